// EAN-13, EAN-8 and UPC-A (ISO/IEC 15420).
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <algorithm>

namespace Library {
namespace {

// Number set A: space, bar, space, bar. Set C has the same widths beginning with a bar, set B the
// widths of C backwards.
constexpr std::string_view kDigitPatterns[] = {
    "3211", "2221", "2122", "1411", "1132",  // 0 to 4
    "1231", "1114", "1312", "1213", "3112",  // 5 to 9
};
constexpr std::string_view kGuard = "111";
constexpr std::string_view kCentreGuard = "11111";

// Number sets of the left half, which tell an EAN-13's first digit.
constexpr std::string_view kLeftSets[] = {
    "AAAAAA", "AABABB", "AABBAB", "AABBBA", "ABAABB",  // 0 to 4
    "ABBAAB", "ABBBAA", "ABABAB", "ABABBA", "ABBABA",  // 5 to 9
};

// Digits outside the bars: a cell as wide as a digit, 2 modules off the guard.
constexpr int kOutsideFirst = -9, kOutsideLast = -2;
constexpr int kDigitWidth = 7;

void AppendDigit(LinearRow& row, char digit, char set) {
  const std::string_view pattern = kDigitPatterns[digit - '0'];
  if (set != 'B') return row.append(pattern);
  row.append(std::string(pattern.rbegin(), pattern.rend()));
}

ModuleSpan AppendGuard(LinearRow& row, std::string_view pattern) {
  const int from = row.width();
  row.append(pattern);
  return {from, row.width()};
}

// Guard, left half in `sets`, centre guard, right half, guard.
void Draw(std::string_view left, std::string_view sets, std::string_view right, Symbol& symbol) {
  LinearRow row;
  symbol.guards.push_back(AppendGuard(row, kGuard));
  for (std::size_t i = 0; i < left.size(); ++i) AppendDigit(row, left[i], sets[i]);
  symbol.guards.push_back(AppendGuard(row, kCentreGuard));
  for (const char digit : right) AppendDigit(row, digit, 'C');
  symbol.guards.push_back(AppendGuard(row, kGuard));
  std::move(row).finish(symbol);
}

// The first and the last digit of a UPC stand 5 modules off the guards and are 4 wide at most (GS1
// General Specifications 5.2.5).
constexpr int kSmallFirst = -9, kSmallLast = -5;

void AddSmallDigit(Symbol& symbol, std::string_view digit, int from, int to) {
  symbol.texts.push_back({std::string(digit), from, to, SymbolText::Place::kSmallDigit});
}

void AddText(Symbol& symbol, std::string_view text, int from, int to) {
  symbol.texts.push_back({std::string(text), from, to, SymbolText::Place::kBetweenGuards});
}

void AddHalvesText(Symbol& symbol, std::string_view left, std::string_view right) {
  AddText(symbol, left, symbol.guards[0].to, symbol.guards[1].from);
  AddText(symbol, right, symbol.guards[1].to, symbol.guards[2].from);
}

}  // namespace

void EncodeEan8(const EncoderInput& input, Symbol& symbol) {
  const std::string digits = Bytes(input.data);
  const std::string_view left = std::string_view(digits).substr(0, 4);
  const std::string_view right = std::string_view(digits).substr(4);
  Draw(left, kLeftSets[0], right, symbol);
  AddHalvesText(symbol, left, right);
}

void EncodeEan13(const EncoderInput& input, Symbol& symbol) {
  const std::string digits = Bytes(input.data);
  const std::string_view left = std::string_view(digits).substr(1, 6);
  const std::string_view right = std::string_view(digits).substr(7);
  Draw(left, kLeftSets[digits[0] - '0'], right, symbol);
  AddText(symbol, digits.substr(0, 1), kOutsideFirst, kOutsideLast);
  AddHalvesText(symbol, left, right);
}

void EncodeUpcA(const EncoderInput& input, Symbol& symbol) {
  const std::string digits = Bytes(input.data);
  const std::string_view left = std::string_view(digits).substr(0, 6);
  const std::string_view right = std::string_view(digits).substr(6);
  Draw(left, kLeftSets[0], right, symbol);
  // The bars of the first and the last digit are as long as the guards beside them, and the digits
  // themselves stand outside.
  symbol.guards[0].to += kDigitWidth;
  symbol.guards[2].from -= kDigitWidth;
  AddSmallDigit(symbol, left.substr(0, 1), kSmallFirst, kSmallLast);
  AddHalvesText(symbol, left.substr(1), right.substr(0, 5));
  AddSmallDigit(symbol, right.substr(5), symbol.width - kSmallLast, symbol.width - kSmallFirst);
}

}  // namespace Library
