// The linear symbols of the Code 128 family.
#include "library/Error.h"
#include "library/prepare/CheckDigits.h"
#include "library/prepare/Gs1.h"
#include "library/prepare/Hibc.h"
#include "library/symbology/Code128.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <algorithm>
#include <iterator>

namespace Library {
namespace {

// GS1 General Specifications 5.4: identifiers, data and separators of one GS1-128 symbol, the FNC1
// in front not counted.
constexpr std::size_t kMaxGs1Characters = 48;

// Returns the value of the check character.
int Draw(const Data& data, std::string text, Symbol& symbol) {
  std::vector<std::uint8_t> values = Code128Values(data);
  const std::uint8_t check = Code128CheckCharacter(values);
  values.push_back(check);
  values.push_back(kCode128Stop);
  LinearRow row;
  row.reserve(6 * values.size() + 1);
  for (const std::uint8_t value : values) row.append(Code128Pattern(value));
  std::move(row).finish(symbol);
  SetTextLine(symbol, std::move(text));
  return check;
}

// Where the check character is the only one. It is none of the data characters: its value, as text.
void DrawPlain(const Data& data, std::string text, Symbol& symbol) {
  symbol.checkDigits = std::to_string(Draw(data, std::move(text), symbol));
}

// Switches that a format string orders give way to the one set.
void DrawIn(std::uint16_t codeSet, const Data& given, Symbol& symbol) {
  Data data = {{codeSet, -1}};
  std::copy_if(given.begin(), given.end(), std::back_inserter(data),
               [](const DataCharacter& character) { return character.value < kCodeSetA; });
  DrawPlain(data, PrintableText(data), symbol);
}

// One element whose identifier is not among the data.
void DrawElement(std::string_view identifier, const Data& digits, Symbol& symbol) {
  Data data = {{kFnc1, -1}};
  for (const char digit : identifier) data.push_back({static_cast<std::uint8_t>(digit), -1});
  data.insert(data.end(), digits.begin(), digits.end());
  Draw(data, '(' + std::string(identifier) + ')' + Bytes(digits), symbol);
}

// Parcel labels have the number in groups.
std::string DpdText(const std::string& characters) {
  constexpr int kGroups[] = {4, 3, 4, 4, 4, 2, 3, 3, 1};
  std::string text;
  std::size_t at = 0;
  for (const int group : kGroups) {
    if (!text.empty()) text += ' ';
    text += characters.substr(at, static_cast<std::size_t>(group));
    at += static_cast<std::size_t>(group);
  }
  return text;
}

}  // namespace

void EncodeCode128(const EncoderInput& input, Symbol& symbol) {
  DrawPlain(input.data, PrintableText(input.data), symbol);
}

void EncodeCode128A(const EncoderInput& input, Symbol& symbol) {
  DrawIn(kCodeSetA, input.data, symbol);
}

void EncodeCode128B(const EncoderInput& input, Symbol& symbol) {
  DrawIn(kCodeSetB, input.data, symbol);
}

void EncodeCode128C(const EncoderInput& input, Symbol& symbol) {
  if (input.data.size() % 2 != 0) throw Error(BC_E_INVALIDDATA);
  DrawIn(kCodeSetC, input.data, symbol);
}

void EncodeSscc18(const EncoderInput& input, Symbol& symbol) {
  DrawElement("00", input.data, symbol);
}

void EncodeEan14(const EncoderInput& input, Symbol& symbol) {
  DrawElement("01", input.data, symbol);
}

void EncodeDpd(const EncoderInput& input, Symbol& symbol) {
  const std::string characters = Bytes(input.data).substr(1);
  symbol.checkDigits = ComputeCheckDigits(kDpdMod36, characters);
  Draw(input.data, DpdText(characters + symbol.checkDigits), symbol);
}

void EncodeUpuS10(const EncoderInput& input, Symbol& symbol) {
  constexpr std::size_t kFirstDigit = 2, kDigitCount = 8, kCheckPlace = kFirstDigit + kDigitCount;
  constexpr std::size_t kLength = 13;
  Data data = input.data;
  const bool given = data[kCheckPlace].isDigit();
  if (!given) data.insert(data.begin() + kCheckPlace, {0, -1});
  if (data.size() > kLength) throw Error(BC_E_DATATOOLONG);
  if (data.size() < kLength) throw Error(BC_E_INVALIDDATA);

  symbol.checkDigits =
      ComputeCheckDigits(kUpuS10, Bytes(input.data).substr(kFirstDigit, kDigitCount));
  DataCharacter& check = data[kCheckPlace];
  const auto expected = static_cast<std::uint16_t>(symbol.checkDigits.front());
  if (given && check.value != expected && input.options.autoCorrect <= 0)
    throw Error(BC_E_INVALIDDATA, DataIndex(check.source));
  check.value = expected;
  Draw(data, Bytes(data), symbol);
}

void EncodeHibcCode128(const EncoderInput& input, Symbol& symbol) {
  HibcMessage message = CompleteHibc(input.data, input.symbology.maxLength);
  Draw(message.data, std::move(message.text), symbol);
  symbol.checkDigits = message.check;
}

void EncodeGs1Code128(const EncoderInput& input, Symbol& symbol) {
  ElementString elements = ParseElementString(input.data, input.options.autoCorrect > 0);
  if (elements.data.size() > kMaxGs1Characters) throw Error(BC_E_DATATOOLONG);
  Data& data = elements.data;
  // Behind the switches that stand in front, so that they order the start character.
  std::size_t front = 0;
  while (data[front].value >= kCodeSetA) ++front;
  data.insert(data.begin() + static_cast<std::ptrdiff_t>(front), {kFnc1, -1});
  DrawPlain(data, std::move(elements.text), symbol);
}

}  // namespace Library
