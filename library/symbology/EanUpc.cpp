// EAN-13, EAN-8, UPC-A and UPC-E with their add-ons (ISO/IEC 15420), ISBN and ISSN as EAN-13.
#include "library/symbology/Linear.h"
#include "library/symbology/LinearEncoders.h"

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
constexpr std::string_view kUpcEEndGuard = "111111";
constexpr std::string_view kAddOnGuard = "112";
constexpr std::string_view kAddOnDelineator = "11";

// Number sets of the left half, which tell an EAN-13's first digit.
constexpr std::string_view kLeftSets[] = {
    "AAAAAA", "AABABB", "AABBAB", "AABBBA", "ABAABB",  // 0 to 4
    "ABBAAB", "ABBBAA", "ABABAB", "ABABBA", "ABBABA",  // 5 to 9
};
// Those of a UPC-E of number system 0, which tell its check digit; system 1 has A for B.
constexpr std::string_view kUpcESets[] = {
    "BBBAAA", "BBABAA", "BBAABA", "BBAAAB", "BABBAA",  // 0 to 4
    "BAABBA", "BAAABB", "BABABA", "BABAAB", "BAABAB",  // 5 to 9
};
// By the remainder of the number modulo 4.
constexpr std::string_view kAddOn2Sets[] = {"AA", "AB", "BA", "BB"};
// By the weighted sum modulo 10.
constexpr std::string_view kAddOn5Sets[] = {
    "BBAAA", "BABAA", "BAABA", "BAAAB", "ABBAA",  // 0 to 4
    "AABBA", "AAABB", "ABABA", "ABAAB", "AABAB",  // 5 to 9
};

// Clear modules between the end guard and the add-on.
constexpr int kAddOnGap = 7;
constexpr int kUpcAAddOnGap = 9;

// Digits outside the bars: a cell as wide as a digit, 2 modules off the guard.
constexpr int kOutsideFirst = -9, kOutsideLast = -2;
constexpr int kDigitWidth = 7;

struct RetailNumber {
  std::string main, addOn;
};

RetailNumber NumberOf(const EncoderInput& input) {
  const std::string bytes = Bytes(input.data);
  const std::size_t plus = bytes.find('+');
  if (plus == std::string::npos) return {bytes, {}};
  return {bytes.substr(0, plus), bytes.substr(plus + 1)};
}

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
void AppendHalves(std::string_view left, std::string_view sets, std::string_view right,
                  LinearRow& row, Symbol& symbol) {
  symbol.guards.push_back(AppendGuard(row, kGuard));
  for (std::size_t i = 0; i < left.size(); ++i) AppendDigit(row, left[i], sets[i]);
  symbol.guards.push_back(AppendGuard(row, kCentreGuard));
  for (const char digit : right) AppendDigit(row, digit, 'C');
  symbol.guards.push_back(AppendGuard(row, kGuard));
}

std::string_view AddOnSets(std::string_view digits) {
  const auto digit = [digits](std::size_t i) { return digits[i] - '0'; };
  if (digits.size() == 2) return kAddOn2Sets[(10 * digit(0) + digit(1)) % 4];
  return kAddOn5Sets[(3 * (digit(0) + digit(2) + digit(4)) + 9 * (digit(1) + digit(3))) % 10];
}

// Ends the row, behind the add-on if there is one.
void Finish(LinearRow row, std::string_view addOn, int gap, Symbol& symbol) {
  if (!addOn.empty()) {
    row.append(std::string(1, static_cast<char>('0' + gap)));
    symbol.addOn.from = row.width();
    row.append(kAddOnGuard);
    const std::string_view sets = AddOnSets(addOn);
    for (std::size_t i = 0; i < addOn.size(); ++i) {
      if (i > 0) row.append(kAddOnDelineator);
      AppendDigit(row, addOn[i], sets[i]);
    }
    symbol.addOn.to = row.width();
    symbol.texts.push_back(
        {std::string(addOn), symbol.addOn.from, symbol.addOn.to, SymbolText::Place::kAboveAddOn});
  }
  std::move(row).finish(symbol);
}

void AddText(Symbol& symbol, std::string_view text, int from, int to) {
  symbol.texts.push_back({std::string(text), from, to, SymbolText::Place::kBetweenGuards});
}

void AddHalvesText(Symbol& symbol, std::string_view left, std::string_view right) {
  AddText(symbol, left, symbol.guards[0].to, symbol.guards[1].from);
  AddText(symbol, right, symbol.guards[1].to, symbol.guards[2].from);
}

// The first and the last digit of a UPC stand 5 modules off the guards and are 4 wide at most (GS1
// General Specifications 5.2.5); in front of an add-on, `gap` modules away, in the middle.
constexpr int kSmallDistance = 5, kSmallWidth = 4;

void AddSmallDigits(Symbol& symbol, std::string_view first, std::string_view last, int gap) {
  const auto add = [&symbol](std::string_view digit, int from) {
    symbol.texts.push_back(
        {std::string(digit), from, from + kSmallWidth, SymbolText::Place::kSmallDigit});
  };
  add(first, -kSmallDistance - kSmallWidth);
  add(last, symbol.guards.back().to + (gap > 0 ? (gap - kSmallWidth) / 2 : kSmallDistance));
}

// A line above the bars of the main symbol; its digits stand below them.
void SetTitle(Symbol& symbol, std::string title) {
  symbol.texts.push_back({std::move(title), 0, symbol.guards.back().to, SymbolText::Place::kLine});
}

// The hyphens of a book number as it was given, its digits those of the EAN-13: numbers of ten
// digits go without the 978 in front, older ones of nine without a zero as well.
std::string Hyphenated(const std::string& ean, const Data& given) {
  std::string digits, hyphens;  // a hyphen behind so many digits
  for (const DataCharacter character : given) {
    if (character.value == '+') break;
    const bool digit = character.isDigit() || character.value == 'X';
    const bool hyphen = character.value == '-' || character.value == ' ';
    if (digit) digits += static_cast<char>(character.value);
    if (hyphen && !digits.empty()) hyphens += static_cast<char>(digits.size());
  }
  if (hyphens.empty()) return ean;
  const std::size_t whole = ean.size() - 1;
  const std::size_t offset = digits.size() >= whole ? 0 : ean.find(digits.substr(0, 8), 3);
  std::string text;
  for (std::size_t i = 0; i < ean.size(); ++i) {
    const bool prefix = offset > 0 && (i == 3 || i == offset);
    const bool inside =
        i > offset && hyphens.find(static_cast<char>(i - offset)) != std::string::npos;
    if (prefix || inside || i == whole) text += '-';
    text += ean[i];
  }
  return text;
}

}  // namespace

void EncodeEan8(const EncoderInput& input, Symbol& symbol) {
  const RetailNumber number = NumberOf(input);
  const std::string_view left = std::string_view(number.main).substr(0, 4);
  const std::string_view right = std::string_view(number.main).substr(4);
  LinearRow row;
  AppendHalves(left, kLeftSets[0], right, row, symbol);
  AddHalvesText(symbol, left, right);
  Finish(std::move(row), number.addOn, kAddOnGap, symbol);
}

void EncodeEan13(const EncoderInput& input, Symbol& symbol) {
  const RetailNumber number = NumberOf(input);
  const std::string_view left = std::string_view(number.main).substr(1, 6);
  const std::string_view right = std::string_view(number.main).substr(7);
  LinearRow row;
  AppendHalves(left, kLeftSets[number.main[0] - '0'], right, row, symbol);
  AddText(symbol, number.main.substr(0, 1), kOutsideFirst, kOutsideLast);
  AddHalvesText(symbol, left, right);
  Finish(std::move(row), number.addOn, kAddOnGap, symbol);
}

void EncodeUpcA(const EncoderInput& input, Symbol& symbol) {
  const RetailNumber number = NumberOf(input);
  const std::string_view left = std::string_view(number.main).substr(0, 6);
  const std::string_view right = std::string_view(number.main).substr(6);
  LinearRow row;
  AppendHalves(left, kLeftSets[0], right, row, symbol);
  // The bars of the first and the last digit are as long as the guards beside them, and the digits
  // themselves stand outside.
  symbol.guards[0].to += kDigitWidth;
  symbol.guards[2].from -= kDigitWidth;
  AddSmallDigits(symbol, left.substr(0, 1), right.substr(5),
                 number.addOn.empty() ? 0 : kUpcAAddOnGap);
  AddHalvesText(symbol, left.substr(1), right.substr(0, 5));
  Finish(std::move(row), number.addOn, kUpcAAddOnGap, symbol);
}

void EncodeUpcE(const EncoderInput& input, Symbol& symbol) {
  const RetailNumber number = NumberOf(input);
  const std::string_view digits = std::string_view(number.main).substr(1, 6);
  const std::string_view sets = kUpcESets[number.main[7] - '0'];
  const bool inverse = number.main[0] == '1';
  LinearRow row;
  symbol.guards.push_back(AppendGuard(row, kGuard));
  for (std::size_t i = 0; i < digits.size(); ++i) {
    AppendDigit(row, digits[i], (sets[i] == 'B') != inverse ? 'B' : 'A');
  }
  symbol.guards.push_back(AppendGuard(row, kUpcEEndGuard));
  AddSmallDigits(symbol, number.main.substr(0, 1), number.main.substr(7),
                 number.addOn.empty() ? 0 : kAddOnGap);
  AddText(symbol, digits, symbol.guards[0].to, symbol.guards[1].from);
  Finish(std::move(row), number.addOn, kAddOnGap, symbol);
}

void EncodeIssn(const EncoderInput& input, Symbol& symbol) {
  EncodeEan13(input, symbol);
  constexpr int kIssnMethod = 35;
  const std::string digits = Bytes(input.data).substr(3, 7);
  SetTitle(symbol, "ISSN " + Masked(digits + ComputeCheckDigits(kIssnMethod, digits), "####-####"));
}

void EncodeIsbn(const EncoderInput& input, Symbol& symbol) {
  EncodeEan13(input, symbol);
  const std::string ean = Bytes(input.data).substr(0, 13);
  constexpr std::string_view kPrintedMusic = "9790";
  SetTitle(symbol,
           (ean.starts_with(kPrintedMusic) ? "ISMN " : "ISBN ") + Hyphenated(ean, input.given));
}

}  // namespace Library
