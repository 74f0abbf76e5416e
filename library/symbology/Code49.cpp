// Code 49 (ANSI/AIM BC6): rows of bars, as many as the data need.
#include "library/symbology/Code49.h"

#include "library/Error.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/ModuleRuns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Library {
namespace {

using Codes = std::vector<int>;

constexpr std::size_t kRowCodes = 8, kRowData = 7;  // with the check character, and without
constexpr std::size_t kMaxData = 49;
constexpr int kShift1 = 43, kShift2 = 44, kNumeric = 48, kPad = 48;
constexpr std::size_t kPackedDigits = 5;  // as few as are packed

constexpr std::string_view kCodeOrder = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";
// What the codes stand for behind the shifts; at the places of codes that have no meaning there is
// a character that needs no shift.
constexpr char kShifted1[] =
    "'\x1B\x1C\x1D\x1E\x1F!\"#&"
    "\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A\x0B\x0C\x0D\x0E\x0F\x10\x11\x12\x13\x14\x15\x16\x17"
    "\x18\x19\x1A"
    "()\0*,:0";
constexpr char kShifted2[] =
    "^;<=>?@[\\]"
    "abcdefghijklmnopqrstuvwxyz"
    "_`\x7F{|}~";

int Find(std::string_view order, char character) {
  const std::size_t place = order.find(character);
  return place == order.npos ? -1 : static_cast<int>(place);
}

void AppendCharacter(char character, Codes& codes) {
  constexpr std::string_view kOrder1(kShifted1, sizeof kShifted1 - 1),
      kOrder2(kShifted2, sizeof kShifted2 - 1);
  const int plain = Find(kCodeOrder, character), first = Find(kOrder1, character);
  if (plain < 0) codes.push_back(first >= 0 ? kShift1 : kShift2);
  codes.push_back(plain >= 0 ? plain : first >= 0 ? first : Find(kOrder2, character));
}

// `count` digits in as many codes as hold them; four get a mark in front that five have not.
void AppendNumber(std::string_view digits, Codes& codes) {
  constexpr int kFourDigits = 100'000;
  int value = std::stoi(std::string(digits)) + (digits.size() == 4 ? kFourDigits : 0);
  const std::size_t count = digits.size() == 1 ? 1 : digits.size() == 3 ? 2 : 3;
  codes.resize(codes.size() + count);
  for (std::size_t i = 1; i <= count; ++i, value /= 48) codes[codes.size() - i] = value % 48;
}

// In fives; of what is left two digits go with the last five as four and three.
void AppendPacked(std::string_view digits, Codes& codes) {
  while (!digits.empty()) {
    const std::size_t size = digits.size() == 7 ? 4 : std::min(digits.size(), kPackedDigits);
    AppendNumber(digits.substr(0, size), codes);
    digits.remove_prefix(size);
  }
}

Codes CodesOf(std::string_view data) {
  Codes codes;
  for (std::size_t i = 0; i < data.size();) {
    const std::size_t stop = std::min(data.find_first_not_of("0123456789", i), data.size());
    if (stop - i < kPackedDigits) {
      AppendCharacter(data[i++], codes);
      continue;
    }
    codes.push_back(kNumeric);
    AppendPacked(data.substr(i, stop - i), codes);
    i = stop;
    if (i < data.size()) codes.push_back(kNumeric);  // back again
  }
  return codes;
}

// What the symbol begins with need not be said twice.
int TakeMode(Codes& codes) {
  constexpr std::array<std::pair<int, int>, 3> kModes = {
      {{kNumeric, 2}, {kShift1, 4}, {kShift2, 5}}};
  for (const auto& [code, mode] : kModes) {
    if (codes.front() != code) continue;
    codes.erase(codes.begin());
    return mode;
  }
  return 0;
}

class Grid {
 public:
  explicit Grid(std::string_view data) {
    Codes codes = CodesOf(data);
    const int mode = TakeMode(codes);
    if (codes.size() > kMaxData) throw Error(BC_E_DATATOOLONG);
    place(codes);
    at(count() - 1, 6) = 7 * (static_cast<int>(count()) - 2) + mode;
    for (std::size_t row = 0; row + 1 < count(); ++row) checkRow(row);
    checkSymbol();
    checkRow(count() - 1);
  }

  std::size_t count() const { return grid.size() / kRowCodes; }
  int word(std::size_t row, std::size_t place) const {
    const std::size_t first = row * kRowCodes + 2 * place;
    return grid[first] * kCode49Characters + grid[first + 1];
  }

 private:
  int& at(std::size_t row, std::size_t column) { return grid[row * kRowCodes + column]; }

  // The last row has five places for check characters or, from seven rows on, seven.
  void place(const Codes& codes) {
    constexpr std::size_t kChecks = 5, kLargeSymbol = 6;
    std::size_t rows = std::max((codes.size() + kRowData - 1) / kRowData, std::size_t{1});
    const std::size_t free = rows * kRowData - codes.size();
    if (rows == 1 || rows > kLargeSymbol || free < kChecks) ++rows;
    grid.assign(rows * kRowCodes, kPad);
    for (std::size_t i = 0; i < codes.size(); ++i) at(i / kRowData, i % kRowData) = codes[i];
  }

  void checkRow(std::size_t row) {
    int sum = 0;
    for (std::size_t i = 0; i < kRowData; ++i) sum += at(row, i);
    at(row, kRowData) = sum % kCode49Characters;
  }

  // Three sums of all words, each weighted by powers that begin at another place; the first one
  // only in large symbols.
  void checkSymbol() {
    constexpr std::size_t kLargeSymbol = 6;
    const int size = at(count() - 1, 6);
    if (count() > kLargeSymbol) set(0, weighted(2, 38 * size));
    set(1, weighted(1, 16 * size));
    set(2, weighted(0, 20 * size));
  }

  void set(std::size_t place, int value) {
    at(count() - 1, 2 * place) = value / kCode49Characters;
    at(count() - 1, 2 * place + 1) = value % kCode49Characters;
  }

  // Over the words in front of the one that it is for: word 2 of the last row is weighted least.
  int weighted(std::size_t offset, int sum) const {
    constexpr int kWeights[] = {1,  9,  31, 26, 2,  12, 17, 23, 37, 18, 22, 6,  27, 44, 15, 43, 39,
                                11, 13, 5,  41, 33, 36, 8,  4,  32, 3,  19, 40, 25, 29, 10, 24, 30};
    const std::size_t words = (count() - 1) * 4 + (2 - offset);
    for (std::size_t i = 0; i < words; ++i) sum += kWeights[i + offset] * word(i / 4, i % 4);
    return sum % kCode49Words;
  }

  std::vector<int> grid;
};

// Of the words of each row but the last, which are even.
constexpr std::string_view kParities[] = {"OEEO", "EOEO", "OOEE", "EEOO",
                                          "OEOE", "EOOE", "OOOO", "EEEE"};

SymbolRow RowOf(const Grid& grid, std::size_t row) {
  constexpr int kWordWidth = 16, kWordRuns = 8, kStop = 4;
  const bool last = row + 1 == grid.count();
  SymbolRow bars = {{1, 1}, 0, {2}};
  for (std::size_t place = 0; place < 4; ++place) {
    const bool odd = !last && kParities[row][place] == 'O';
    const unsigned pattern = kCode49Patterns[odd][grid.word(row, place)];
    std::uint64_t modules = 0;  // the first in the lowest bit
    for (int i = 0; i < kWordWidth; ++i) {
      modules |= std::uint64_t{pattern >> (kWordWidth - 1 - i) & 1} << i;
    }
    const std::vector<int> runs = ModuleRuns(&modules, kWordWidth);
    bars.runs.insert(bars.runs.end(), runs.begin(), runs.end());
    bars.characters.push_back(kWordRuns);
  }
  bars.runs.push_back(kStop);
  bars.characters.push_back(1);
  return bars;
}

constexpr int kWidth = 70;  // modules

SymbolRow Separator() {
  return {{kWidth}, 1};
}

}  // namespace

void EncodeCode49(const EncoderInput& input, Symbol& symbol) {
  const Grid grid(Bytes(input.data));
  symbol.width = kWidth;
  symbol.rows.reserve(grid.count() * 2 + 1);
  symbol.rows.push_back(Separator());
  for (std::size_t row = 0; row < grid.count(); ++row) {
    symbol.rows.push_back(RowOf(grid, row));
    symbol.rows.push_back(Separator());
  }
  SetTextLine(symbol, PrintableText(input.data));
}

}  // namespace Library
