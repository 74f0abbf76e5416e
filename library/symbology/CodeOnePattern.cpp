#include "library/symbology/CodeOnePattern.h"

#include "library/symbology/ModuleRuns.h"
#include "library/symbology/ReedSolomon.h"

namespace Library {
namespace {

using Words = std::vector<std::uint16_t>;

constexpr int kFour[] = {4}, kTwelve[] = {12}, kSixteen[] = {16}, kC[] = {4, 26},
              kD[] = {4, 20, 36}, kE[] = {4, 26, 48}, kF[] = {4, 26, 48, 70},
              kG[] = {6, 27, 48, 69, 90}, kH[] = {6, 26, 46, 66, 86, 106, 126};

constexpr CodeOneVersion kVersions[] = {
    // rows, columns, data words, check words, blocks, bars, full ones, upright bars
    {5, 4, 10, 10, 1, 3, 1, kFour, kTwelve}, {7, 5, 19, 16, 1, 4, 1, kFour, kSixteen},
    {10, 7, 44, 26, 1, 4, 2, kC, kC},        {15, 9, 91, 44, 1, 5, 1, kD, kD},
    {21, 12, 182, 70, 1, 5, 2, kE, kE},      {30, 17, 370, 140, 2, 5, 3, kF, kF},
    {46, 22, 732, 280, 4, 6, 2, kG, kG},     {68, 30, 1480, 560, 8, 6, 3, kH, kH},
};

// Words lie in rows, four bits above four. The bars across the middle stand between the halves of
// the words, the upright ones between their columns, each with a light line behind it.
class Pattern {
 public:
  Pattern(const CodeOneVersion& drawn, const Words& content)
      : version(drawn),
        middle(drawn.rows + 1),
        rows(2 * (drawn.rows + drawn.bars)),
        columns(drawn.columns * kWordWidth + 2 * static_cast<int>(drawn.above.size())),
        modules(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {
    drawUprightBars();
    drawMiddle();
    drawWords(content);
  }

  void copyTo(Symbol& symbol) const {
    AddModules(symbol, columns, rows, [this](int row, int column) { return isDark(row, column); });
  }

 private:
  static constexpr int kWordWidth = 4, kWordHeight = 2, kWordBits = 8;

  std::size_t indexOf(int row, int column) const {
    return static_cast<std::size_t>(row * columns + column);
  }
  bool isDark(int row, int column) const { return modules[indexOf(row, column)]; }
  void darken(int row, int column) { modules[indexOf(row, column)] = true; }

  void drawUprightBars() {
    // Every other bar meets the full ones across the middle, unless they differ in both halves.
    const bool same = version.above.data() == version.below.data();
    for (std::size_t i = 0; i < version.above.size(); ++i) {
      const int reach = i % 2 == 1 ? 2 * (version.fullBars - 1) : 0;
      for (int row = 0; row < middle + reach; ++row) drawUprightPart(row, version.above[i]);
    }
    for (const int column : version.below) {
      for (int row = 0; row < version.rows; ++row) drawUprightPart(rows - 1 - row, column);
      if (!same) darken(version.rows, column);
    }
  }

  // Wider in every twelfth line, counted from above and from below.
  void drawUprightPart(int row, int column) {
    constexpr int kDistance = 12;
    darken(row, column);
    const int fromEdge = row < version.rows ? row : rows - 1 - row;
    if (fromEdge < version.rows && fromEdge % kDistance == 0) darken(row, column + 1);
  }

  void drawMiddle() {
    for (int bar = 0; bar < version.bars; ++bar) {
      const int row = middle + 2 * bar, indent = bar < version.fullBars ? 0 : 1;
      for (int column = indent; column < columns - indent; ++column) darken(row, column);
      if (indent == 0 || bar == version.bars - 1) continue;
      darken(row + 1, 1);
      darken(row + 1, columns - 2);
    }
  }

  void drawWords(const Words& words) {
    for (int i = 0; i < static_cast<int>(words.size()); ++i) {
      for (int bit = 0; bit < kWordBits; ++bit) {
        if ((words[static_cast<std::size_t>(i)] >> (kWordBits - 1 - bit) & 1) == 0) continue;
        const int row = i / version.columns * kWordHeight + bit / kWordWidth;
        drawBit(row, i % version.columns * kWordWidth + bit % kWordWidth);
      }
    }
  }

  // At the place among all bits of words.
  void drawBit(int row, int column) {
    const bool below = row >= version.rows;
    for (const int bar : below ? version.below : version.above) {
      if (column >= bar) column += 2;
    }
    darken(below ? row + 2 * version.bars : row, column);
  }

  const CodeOneVersion& version;
  const int middle, rows, columns;
  std::vector<bool> modules;
};

}  // namespace

std::span<const CodeOneVersion> CodeOneVersions() {
  return kVersions;
}

void DrawCodeOne(const CodeOneVersion& version, Words data, Symbol& symbol) {
  const ReedSolomon code(kField256, version.checkWords / version.blocks, 0);
  code.addTo(data, version.blocks);
  Pattern(version, data).copyTo(symbol);
}

}  // namespace Library
