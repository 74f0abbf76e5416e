// Code 39 (ISO/IEC 16388), its full ASCII form and LOGMARS (MIL-STD-1189B).
#include "library/symbology/Code39.h"

#include "library/Error.h"
#include "library/prepare/Hibc.h"
#include "library/symbology/FullAscii.h"
#include "library/symbology/Linear.h"
#include "library/symbology/LinearEncoders.h"

#include <algorithm>

namespace Library {
namespace {

constexpr std::string_view kAlphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%*";
constexpr char kStartStop = '*';
constexpr std::string_view kGap = "1";

// Wide elements are drawn 2 modules wide.
constexpr std::string_view kPatterns[] = {
    "111221211", "211211112", "112211112", "212211111", "111221112",  // 0 to 4
    "211221111", "112221111", "111211212", "211211211", "112211211",  // 5 to 9
    "211112112", "112112112", "212112111", "111122112", "211122111",  // A to E
    "112122111", "111112212", "211112211", "112112211", "111122211",  // F to J
    "211111122", "112111122", "212111121", "111121122", "211121121",  // K to O
    "112121121", "111111222", "211111221", "112111221", "111121221",  // P to T
    "221111112", "122111112", "222111111", "121121112", "221121111",  // U to Y
    "122121111", "121111212", "221111211", "122111211", "121212111",  // Z to $
    "121211121", "121112121", "111212121", "121121211",               // / to *
};
static_assert(std::size(kPatterns) == kAlphabet.size());

// Of the full ASCII form.
constexpr std::size_t kMaxCodeCharacters = 85;
constexpr std::string_view kDirectSigns = "-.";

void AppendCharacter(char character, int wide, LinearRow& row) {
  std::string widths(kPatterns[kAlphabet.find(character)]);
  std::replace(widths.begin(), widths.end(), '2', static_cast<char>('0' + wide));
  row.append(widths);
}

}  // namespace

void DrawCode39(std::string_view text, int wide, Symbol& symbol) {
  LinearRow row;
  AppendCharacter(kStartStop, wide, row);
  for (const char character : text) {
    row.append(kGap);
    AppendCharacter(character, wide, row);
  }
  row.append(kGap);
  AppendCharacter(kStartStop, wide, row);
  std::move(row).finish(symbol);
}

void EncodeCode39(const EncoderInput& input, Symbol& symbol) {
  std::string text = Bytes(input.data);
  DrawCode39(text, 2, symbol);
  SetTextLine(symbol, std::move(text));
}

void EncodeExtendedCode39(const EncoderInput& input, Symbol& symbol) {
  const std::string data = Bytes(input.data);
  std::string code;
  for (const char character : data) code += FullAsciiPair(character, kDirectSigns);
  if (code.size() > kMaxCodeCharacters) throw Error(BC_E_DATATOOLONG);
  const int method = input.options.checkDigitMethod;
  if (method > 1) symbol.checkDigits = ComputeCheckDigits(method, code);
  DrawCode39(code + symbol.checkDigits, 2, symbol);
  SetTextLine(symbol, BlankedText(data) + symbol.checkDigits);
}

void EncodeLogmars(const EncoderInput& input, Symbol& symbol) {
  std::string text = Bytes(input.data);
  DrawCode39(text, 3, symbol);
  SetTextLine(symbol, std::move(text));
}

// Health Industry Bar Code, wide elements 3 modules wide.
void EncodeHibcCode39(const EncoderInput& input, Symbol& symbol) {
  HibcMessage message = CompleteHibc(input.data, input.symbology.maxLength);
  DrawCode39(Bytes(message.data), 3, symbol);
  SetTextLine(symbol, std::move(message.text));
  symbol.checkDigits = message.check;
}

}  // namespace Library
