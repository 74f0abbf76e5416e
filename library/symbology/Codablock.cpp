// The size of a Codablock-F symbol and its bars.
#include "library/symbology/Codablock.h"

#include "library/Error.h"
#include "library/prepare/Hibc.h"
#include "library/symbology/Code128.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <algorithm>
#include <limits>

namespace Library {
namespace {

constexpr int kStartA = 103;
constexpr int kSeparatorHeight = 1;  // X
constexpr int kNominalRowHeight = 10;

struct Shape {
  int rows, columns;
};

// Start, code set, row indicator, check character and stop stand beside the columns.
int WidthOf(int columns) {
  return 11 * (columns + 5) + 2;
}

int HeightOf(int rows) {
  return rows * (kNominalRowHeight + kSeparatorHeight) + kSeparatorHeight;
}

// The area in square modules, worse the more a symbol is wider than 3.3 times its height or
// higher than wide.
double CostOf(const Shape& shape) {
  constexpr double kWidest = 3.3, kNarrowest = 1, kPenalty = 10;
  const double width = WidthOf(shape.columns), height = HeightOf(shape.rows);
  const double excess =
      std::max({0.0, width / height / kWidest - 1, kNarrowest * height / width - 1});
  return width * height * (1 + kPenalty * excess);
}

Shape FreeShape(CodablockPacker& packer) {
  const int characters = packer.charactersNeeded() + kCodablockChecks;
  // No symbol of so many columns has fewer rows: each row after the first saves a switch at most.
  std::vector<Shape> bounds;
  for (int columns = kMinCodablockColumns; columns <= kMaxCodablockColumns; ++columns) {
    const int rows = std::max((characters + 1 + columns) / (columns + 1), kMinCodablockRows);
    if (rows <= kMaxCodablockRows) bounds.push_back({rows, columns});
  }
  const auto area = [](const Shape& shape) {
    return double(WidthOf(shape.columns)) * HeightOf(shape.rows);
  };
  std::sort(bounds.begin(), bounds.end(),
            [&area](const Shape& a, const Shape& b) { return area(a) < area(b); });
  Shape best{};
  double bestCost = std::numeric_limits<double>::infinity();
  for (const Shape& bound : bounds) {
    if (area(bound) >= bestCost) break;
    const Shape shape{packer.rowsNeeded(bound.columns), bound.columns};
    const double cost = CostOf(shape);
    if (shape.rows > kMaxCodablockRows || cost >= bestCost) continue;
    best = shape;
    bestCost = cost;
  }
  if (best.rows == 0) throw Error(BC_E_DATATOOLONG);
  return best;
}

// More columns never take more rows.
Shape WithRows(CodablockPacker& packer, int rows) {
  int fewest = kMinCodablockColumns, most = kMaxCodablockColumns;
  while (fewest < most) {
    const int middle = (fewest + most) / 2;
    packer.rowsNeeded(middle) <= rows ? most = middle : fewest = middle + 1;
  }
  return {rows, fewest};
}

Shape ShapeFor(CodablockPacker& packer, const CodablockOptions& options) {
  if (options.rows < 0 && options.columns < 0) return FreeShape(packer);
  Shape shape =
      options.columns < 0 ? WithRows(packer, options.rows) : Shape{options.rows, options.columns};
  const int needed = packer.rowsNeeded(shape.columns);
  if (shape.rows < 0) shape.rows = needed;
  if (needed > shape.rows || shape.rows > kMaxCodablockRows) throw Error(BC_E_DATATOOLONG);
  return shape;
}

// How row indicators and check characters are written: a pair of digits, or in sets A and B the
// characters of 0 to 85 that are no digits.
int ValueOf(int number, CodeSet set) {
  if (set == kSetC) return number;
  return number < 32 ? number + 64 : number < 48 ? number - 32 : number - 22;
}

class Drawing {
 public:
  Drawing(std::vector<CodablockRow> packed, const CodablockChecks& sums)
      : rows(std::move(packed)), checks(sums) {}

  void draw(Symbol& symbol) const {
    const int width = WidthOf(static_cast<int>(rows.front().values.size()));
    symbol.rows.reserve(2 * rows.size() + 1);
    symbol.rows.push_back({{width}, kSeparatorHeight});
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (i > 0) symbol.rows.push_back(separator(width));
      LinearRow row;
      row.reserve(static_cast<std::size_t>(width));
      for (const std::uint8_t value : valuesOf(i)) row.append(Code128Pattern(value));
      std::move(row).finish(symbol);
    }
    symbol.rows.push_back({{width}, kSeparatorHeight});
  }

 private:
  std::vector<std::uint8_t> valuesOf(std::size_t index) const {
    constexpr int kSelect[] = {kShiftValue, kSwitchTo[kSetB], kSwitchTo[kSetC]};
    const CodablockRow& row = rows[index];
    const int place = static_cast<int>(index), count = static_cast<int>(rows.size());
    const int indicator = place == 0 ? count - 2 : place + 42;
    std::vector<std::uint8_t> values = {kStartA};
    const auto add = [&values](int value) { values.push_back(static_cast<std::uint8_t>(value)); };
    add(kSelect[row.set]);
    add(ValueOf(indicator, row.set));
    values.insert(values.end(), row.values.begin(), row.values.end());
    if (index + 1 == rows.size()) {
      const CodeSet set = row.lastSet();
      add(ValueOf(checks.k1, set));
      add(ValueOf(checks.k2, set));
    }
    add(Code128CheckCharacter(values));
    add(kCode128Stop);
    return values;
  }

  // Between start and stop, which go on from row to row.
  static SymbolRow separator(int width) {
    constexpr int kStartWidth = 11, kStopWidth = 13, kFirstStopBar = 2;
    return {{2, 1, 1, 4, 1, 2, width - kStartWidth - kStopWidth + kFirstStopBar, 3, 3, 1, 1, 1, 2},
            kSeparatorHeight};
  }

  const std::vector<CodablockRow> rows;
  const CodablockChecks checks;
};

// Returns the values of K1 and K2.
std::string Draw(const Data& given, const CodablockOptions& options, std::string text,
                 Symbol& symbol) {
  const Data data = WithoutFnc4(given);
  CodablockPacker packer(data);
  const Shape shape = ShapeFor(packer, options);
  const CodablockChecks checks = CodablockCheckCharacters(data);
  Drawing(packer.pack(shape.rows, shape.columns), checks).draw(symbol);
  SetTextLine(symbol, std::move(text));
  return std::to_string(checks.k1) + ' ' + std::to_string(checks.k2);
}

}  // namespace

void EncodeCodablockF(const EncoderInput& input, Symbol& symbol) {
  auto [data, text] = GivenContent(input);
  if (TakesGs1(input.symbology, input.options)) data.insert(data.begin(), {kFnc1, -1});
  symbol.checkDigits = Draw(data, input.options.codablock, std::move(text), symbol);
}

void EncodeHibcCodablockF(const EncoderInput& input, Symbol& symbol) {
  if (input.options.codablock.format != 0) throw Error(BC_E_NOTSUPPORTED);
  HibcMessage message = CompleteHibc(input.data, kMaxCodablockLength);
  Draw(message.data, input.options.codablock, std::move(message.text), symbol);
  symbol.checkDigits = message.check;
}

}  // namespace Library
