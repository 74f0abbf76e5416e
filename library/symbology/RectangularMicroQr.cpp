// rMQR Code (ISO/IEC 23941): 32 versions of 7 to 17 rows and 27 to 139 columns, with one finder on
// the left and a small one on the right.
#include "library/Error.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/QrCheckWords.h"
#include "library/symbology/QrContent.h"
#include "library/symbology/QrMask.h"
#include "library/symbology/QrRemainder.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace Library {
namespace {

constexpr int kIndicatorBits = 3;
constexpr std::array<std::uint8_t, kQrModes> kIndicators = {1, 2, 3};

struct Filling {
  std::uint8_t dataWords, blocks;
};

struct RectangularVersion {
  std::uint8_t height, width, words;
  Filling fillings[2];  // M, H
  QrSegmentHeads heads;

  int area() const { return height * width; }
};

constexpr RectangularVersion kVersions[] = {
    // clang-format off
    // height, width, words, data words and blocks of M and H, bits of the counts
    { 7,  43,  13, {{  6, 1}, { 3, 1}}, {3, kIndicators, {4, 3, 3}}},  // 1
    { 7,  59,  21, {{ 12, 1}, { 7, 1}}, {3, kIndicators, {5, 5, 4}}},  // 2
    { 7,  77,  32, {{ 20, 1}, {10, 1}}, {3, kIndicators, {6, 5, 5}}},  // 3
    { 7,  99,  44, {{ 28, 1}, {14, 1}}, {3, kIndicators, {7, 6, 5}}},  // 4
    { 7, 139,  68, {{ 44, 1}, {24, 2}}, {3, kIndicators, {7, 6, 6}}},  // 5
    { 9,  43,  21, {{ 12, 1}, { 7, 1}}, {3, kIndicators, {5, 5, 4}}},  // 6
    { 9,  59,  33, {{ 21, 1}, {11, 1}}, {3, kIndicators, {6, 5, 5}}},  // 7
    { 9,  77,  49, {{ 31, 1}, {17, 2}}, {3, kIndicators, {7, 6, 5}}},  // 8
    { 9,  99,  66, {{ 42, 1}, {22, 2}}, {3, kIndicators, {7, 6, 6}}},  // 9
    { 9, 139,  99, {{ 63, 2}, {33, 3}}, {3, kIndicators, {8, 7, 6}}},  // 10
    {11,  27,  15, {{  7, 1}, { 5, 1}}, {3, kIndicators, {4, 4, 3}}},  // 11
    {11,  43,  31, {{ 19, 1}, {11, 1}}, {3, kIndicators, {6, 5, 5}}},  // 12
    {11,  59,  47, {{ 31, 1}, {15, 2}}, {3, kIndicators, {7, 6, 5}}},  // 13
    {11,  77,  67, {{ 43, 1}, {23, 2}}, {3, kIndicators, {7, 6, 6}}},  // 14
    {11,  99,  89, {{ 57, 2}, {29, 2}}, {3, kIndicators, {8, 7, 6}}},  // 15
    {11, 139, 132, {{ 84, 2}, {42, 3}}, {3, kIndicators, {8, 7, 7}}},  // 16
    {13,  27,  21, {{ 12, 1}, { 7, 1}}, {3, kIndicators, {5, 5, 4}}},  // 17
    {13,  43,  41, {{ 27, 1}, {13, 1}}, {3, kIndicators, {6, 6, 5}}},  // 18
    {13,  59,  60, {{ 38, 1}, {20, 2}}, {3, kIndicators, {7, 6, 6}}},  // 19
    {13,  77,  85, {{ 53, 2}, {29, 2}}, {3, kIndicators, {7, 7, 6}}},  // 20
    {13,  99, 113, {{ 73, 2}, {35, 3}}, {3, kIndicators, {8, 7, 7}}},  // 21
    {13, 139, 166, {{106, 3}, {54, 4}}, {3, kIndicators, {8, 8, 7}}},  // 22
    {15,  43,  51, {{ 33, 1}, {15, 2}}, {3, kIndicators, {7, 6, 6}}},  // 23
    {15,  59,  74, {{ 48, 1}, {26, 2}}, {3, kIndicators, {7, 7, 6}}},  // 24
    {15,  77, 103, {{ 67, 2}, {31, 3}}, {3, kIndicators, {8, 7, 7}}},  // 25
    {15,  99, 136, {{ 88, 2}, {48, 4}}, {3, kIndicators, {8, 7, 7}}},  // 26
    {15, 139, 199, {{127, 3}, {69, 5}}, {3, kIndicators, {9, 8, 7}}},  // 27
    {17,  43,  61, {{ 39, 1}, {21, 2}}, {3, kIndicators, {7, 6, 6}}},  // 28
    {17,  59,  88, {{ 56, 2}, {28, 2}}, {3, kIndicators, {8, 7, 6}}},  // 29
    {17,  77, 122, {{ 78, 2}, {38, 3}}, {3, kIndicators, {8, 7, 7}}},  // 30
    {17,  99, 160, {{100, 3}, {56, 4}}, {3, kIndicators, {8, 8, 7}}},  // 31
    {17, 139, 232, {{152, 4}, {76, 6}}, {3, kIndicators, {9, 8, 8}}},  // 32
    // clang-format on
};
constexpr int kVersionCount = static_cast<int>(std::size(kVersions));

// Asked for instead of a version: the narrowest of so many rows that holds the data.
constexpr int kHeights[] = {7, 9, 11, 13, 15, 17};
constexpr int kLastRequest = kVersionCount + static_cast<int>(std::size(kHeights));

constexpr int kLevelM = 1, kLevelH = 3;

void CheckOptions(const QrOptions& options) {
  if (IsQrAppended(options)) throw Error(BC_E_NOTSUPPORTED);
  const bool good = options.version >= 0 && options.version <= kLastRequest &&
                    (options.ecLevel == kLevelM || options.ecLevel == kLevelH);
  if (!good) throw Error(BC_E_INVALIDARG);
}

bool IsAskedFor(const RectangularVersion& version, int request) {
  if (request == 0) return true;
  if (request <= kVersionCount) return &version == &kVersions[request - 1];
  return version.height == kHeights[request - kVersionCount - 1];
}

// Columns with timing and an alignment pattern at either end.
std::vector<int> Columns(int width) {
  switch (width) {
    case 43:
      return {21};
    case 59:
      return {19, 39};
    case 77:
      return {25, 51};
    case 99:
      return {23, 49, 75};
    case 139:
      return {27, 55, 83, 111};
    default:
      return {};
  }
}

void DrawTiming(QrCanvas& canvas, int width, int height) {
  for (int x = 0; x < width; ++x) {
    canvas.set(x, 0, x % 2 == 0);
    canvas.set(x, height - 1, x % 2 == 0);
  }
  std::vector<int> columns = Columns(width);
  for (const int x : columns) {
    canvas.drawRings(x, 1, 1, 0b10);
    canvas.drawRings(x, height - 2, 1, 0b10);
  }
  columns.insert(columns.end(), {0, width - 1});
  for (const int x : columns) {
    for (int y = 0; y < height; ++y) canvas.set(x, y, y % 2 == 0);
  }
}

void DrawCorners(QrCanvas& canvas, int width, int height) {
  canvas.set(1, height - 1, true);
  canvas.set(0, height - 2, true);
  canvas.set(1, height - 2, false);
  canvas.set(width - 2, 0, true);
  canvas.set(width - 1, 1, true);
  canvas.set(width - 2, 1, false);
  canvas.drawRings(3, 3, 4, 0b01011);
  canvas.drawRings(width - 3, height - 3, 2, 0b101);
}

// Beside either finder: columns of five, and three modules more.
template <class Target>
void DrawFormat(Target& target, int width, int height, std::uint32_t left, std::uint32_t right) {
  for (int i = 0; i < 18; ++i) {
    const bool leftDark = (left >> i & 1) != 0, rightDark = (right >> i & 1) != 0;
    const int column = i / 5, row = i % 5;
    target.set(8 + column, 1 + row, leftDark);
    if (i < 15) {
      target.set(width - 8 + column, height - 6 + row, rightDark);
    } else {
      target.set(width - 5 + row, height - 6, rightDark);
    }
  }
}

QrMatrix Pattern(const RectangularVersion& version, bool high,
                 const std::vector<std::uint8_t>& words) {
  const int width = version.width, height = version.height;
  QrCanvas canvas(width, height);
  DrawTiming(canvas, width, height);
  DrawCorners(canvas, width, height);
  DrawFormat(canvas, width, height, 0, 0);
  canvas.place(words, width - 2, 0);

  constexpr int kMask = 4;  // the only one
  QrMatrix modules = canvas.modules;
  ApplyQrMask(modules, canvas.drawn, kMask);
  const auto number = static_cast<std::uint32_t>(&version - kVersions);
  const std::uint32_t format = WithQrRemainder(number | (high ? 32U : 0U), 0x1F25, 12);
  DrawFormat(modules, width, height, format ^ 0x1FAB2, format ^ 0x20A7B);
  return modules;
}

void Draw(const RectangularVersion& version, bool high, QrBits bits, const QrMessage& message,
          Symbol& symbol) {
  const Filling filling = version.fillings[high ? 1 : 0];
  constexpr int kTerminatorBits = 3;
  message.write(bits);
  const int checkWords = (version.words - filling.dataWords) / filling.blocks;
  const std::vector<std::uint8_t> words = WithQrCheckWords(
      QrDataWords(std::move(bits), filling.dataWords, kTerminatorBits), filling.blocks, checkWords);
  Pattern(version, high, words).copyTo(symbol);
}

// In the version of the least area, of two alike the less wide one.
void DrawSmallest(const QrOptions& options, const QrBits& header, const QrContent& content,
                  Symbol& symbol) {
  const bool high = options.ecLevel == kLevelH;
  const RectangularVersion* best = nullptr;
  for (const RectangularVersion& version : kVersions) {
    const std::size_t room = version.fillings[high ? 1 : 0].dataWords * 8U;
    if (!IsAskedFor(version, options.version)) continue;
    if (best != nullptr && version.area() > best->area()) continue;
    if (header.size() + QrMessage::leastBits(content) > room) continue;
    const std::size_t bits = QrMessage(content, version.heads).bitCount();
    if (header.size() + bits <= room) best = &version;
  }
  if (best == nullptr) throw Error(BC_E_DATATOOLONG);
  Draw(*best, high, header, QrMessage(content, best->heads), symbol);
}

}  // namespace

void EncodeRectangularQr(const EncoderInput& input, Symbol& symbol) {
  constexpr QrMarks kMarks{kIndicatorBits, 7, 5, 6};
  const QrOptions& options = input.options.qr;
  CheckOptions(options);
  QrBits header;
  AppendQrMarks(header, input.options, kMarks);
  QrData data = QrDataOf(input);
  DrawSmallest(options, header, data.content, symbol);
  SetTextLine(symbol, std::move(data.text));
}

}  // namespace Library
