#include "library/symbology/DataMatrixPattern.h"

#include "library/symbology/ModuleRuns.h"
#include "library/symbology/ReedSolomon.h"

#include <utility>

namespace Library {
namespace {

using Words = std::vector<std::uint16_t>;

constexpr DataMatrixShape kShapes[] = {
    // clang-format off
    // height, width, regions down, across, data words, check words, blocks
    {10, 10, 1, 1, 3, 5, 1},         {12, 12, 1, 1, 5, 7, 1},         {14, 14, 1, 1, 8, 10, 1},
    {16, 16, 1, 1, 12, 12, 1},       {18, 18, 1, 1, 18, 14, 1},       {20, 20, 1, 1, 22, 18, 1},
    {22, 22, 1, 1, 30, 20, 1},       {24, 24, 1, 1, 36, 24, 1},       {26, 26, 1, 1, 44, 28, 1},
    {32, 32, 2, 2, 62, 36, 1},       {36, 36, 2, 2, 86, 42, 1},       {40, 40, 2, 2, 114, 48, 1},
    {44, 44, 2, 2, 144, 56, 1},      {48, 48, 2, 2, 174, 68, 1},      {52, 52, 2, 2, 204, 84, 2},
    {64, 64, 4, 4, 280, 112, 2},     {72, 72, 4, 4, 368, 144, 4},     {80, 80, 4, 4, 456, 192, 4},
    {88, 88, 4, 4, 576, 224, 4},     {96, 96, 4, 4, 696, 272, 4},     {104, 104, 4, 4, 816, 336, 6},
    {120, 120, 6, 6, 1050, 408, 6},  {132, 132, 6, 6, 1304, 496, 8},  {144, 144, 6, 6, 1558, 620, 10},
    {8, 18, 1, 1, 5, 7, 1},          {8, 32, 1, 2, 10, 11, 1},        {12, 26, 1, 1, 16, 14, 1},
    {12, 36, 1, 2, 22, 18, 1},       {16, 36, 1, 2, 32, 24, 1},       {16, 48, 1, 2, 49, 28, 1},
    // clang-format on
};

void AddCheckWords(const DataMatrixShape& shape, Words& words) {
  const auto blocks = static_cast<std::size_t>(shape.blocks);
  const auto checkWords = static_cast<std::size_t>(shape.checkWords);
  ReedSolomon(kField256, checkWords / blocks, 1).addTo(words, blocks);
}

// The places of the bits in the mapping matrix, all regions without their borders: words lie along
// diagonals from the lower left, up and down again.
class Placement {
 public:
  Placement(int rowCount, int columnCount, const Words& content)
      : rows(rowCount),
        columns(columnCount),
        words(content),
        modules(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns), kFree) {
    fill();
  }

  bool isDark(int row, int column) const { return at(row, column) == kDark; }

 private:
  enum Module : std::uint8_t { kLight, kDark, kFree };
  struct Place {
    int row, column;
  };

  std::size_t indexOf(int row, int column) const {
    return static_cast<std::size_t>(row * columns + column);
  }
  Module at(int row, int column) const { return modules[indexOf(row, column)]; }
  void set(int row, int column, Module module) { modules[indexOf(row, column)] = module; }

  void fill() {
    int row = 4, column = 0;
    do {
      fillCorners(row, column);
      do {
        if (row < rows && column >= 0 && at(row, column) == kFree) place(row, column);
        row -= 2, column += 2;
      } while (row >= 0 && column < columns);
      row += 1, column += 3;
      do {
        if (row >= 0 && column < columns && at(row, column) == kFree) place(row, column);
        row += 2, column -= 2;
      } while (row < rows && column >= 0);
      row += 3, column += 1;
    } while (row < rows || column < columns);
    if (at(rows - 1, columns - 1) != kFree) return;
    set(rows - 1, columns - 1, kDark), set(rows - 2, columns - 2, kDark);
    set(rows - 1, columns - 2, kLight), set(rows - 2, columns - 1, kLight);
  }

  // The eight bits of a word whose last one is at the place.
  void place(int row, int column) {
    const Place places[] = {{-2, -2}, {-2, -1}, {-1, -2}, {-1, -1},
                            {-1, 0},  {0, -2},  {0, -1},  {0, 0}};
    place(places, row, column);
  }

  // Words that lie round a corner; places count from the far edges where they are negative.
  void fillCorners(int row, int column) {
    const int r = rows, c = columns;
    if (row == r && column == 0) {
      place({{r - 1, 0},
             {r - 1, 1},
             {r - 1, 2},
             {0, c - 2},
             {0, c - 1},
             {1, c - 1},
             {2, c - 1},
             {3, c - 1}});
    }
    if (row == r - 2 && column == 0 && c % 4 != 0) {
      place({{r - 3, 0},
             {r - 2, 0},
             {r - 1, 0},
             {0, c - 4},
             {0, c - 3},
             {0, c - 2},
             {0, c - 1},
             {1, c - 1}});
    }
    if (row == r - 2 && column == 0 && c % 8 == 4) {
      place({{r - 3, 0},
             {r - 2, 0},
             {r - 1, 0},
             {0, c - 2},
             {0, c - 1},
             {1, c - 1},
             {2, c - 1},
             {3, c - 1}});
    }
    if (row == r + 4 && column == 2 && c % 8 == 0) {
      place({{r - 1, 0},
             {r - 1, c - 1},
             {0, c - 3},
             {0, c - 2},
             {0, c - 1},
             {1, c - 3},
             {1, c - 2},
             {1, c - 1}});
    }
  }

  void place(const Place (&places)[8], int row = 0, int column = 0) {
    const unsigned word = next < words.size() ? words[next] : 0;
    ++next;
    for (unsigned bit = 0; bit < 8; ++bit) {
      Place target = {row + places[bit].row, column + places[bit].column};
      if (target.row < 0) target = {target.row + rows, target.column + 4 - (rows + 4) % 8};
      if (target.column < 0) target = {target.row + 4 - (columns + 4) % 8, target.column + columns};
      set(target.row, target.column, (word >> (7 - bit) & 1) != 0 ? kDark : kLight);
    }
  }

  int rows, columns;
  const Words& words;
  std::size_t next = 0;
  std::vector<Module> modules;
};

// A region has a solid line at its left and lower edge and a dotted one at the others.
class Regions {
 public:
  Regions(const DataMatrixShape& symbolShape, const Words& words)
      : shape(symbolShape),
        data(shape.height - 2 * shape.down, shape.width - 2 * shape.across, words) {}

  bool isDark(int row, int column) const {
    const int height = shape.height / shape.down, width = shape.width / shape.across;
    const int inRow = row % height, inColumn = column % width;
    if (inColumn == 0 || inRow == height - 1) return true;
    if (inRow == 0) return inColumn % 2 == 0;
    if (inColumn == width - 1) return inRow % 2 != 0;
    return data.isDark(row - 2 * (row / height) - 1, column - 2 * (column / width) - 1);
  }

 private:
  const DataMatrixShape& shape;
  Placement data;
};

}  // namespace

std::span<const DataMatrixShape> DataMatrixShapes() {
  return kShapes;
}

void DrawDataMatrix(const DataMatrixShape& shape, Words data, Symbol& symbol) {
  AddCheckWords(shape, data);
  const Regions regions(shape, data);
  symbol.evenlyRead = true;
  AddModules(symbol, shape.width, shape.height,
             [&regions](int row, int column) { return regions.isDark(row, column); });
}

}  // namespace Library
