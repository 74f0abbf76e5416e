// Code 93 (AIM USS-93) and its full ASCII form.
#include "library/Error.h"
#include "library/symbology/FullAscii.h"
#include "library/symbology/Linear.h"
#include "library/symbology/LinearEncoders.h"

#include <cstdint>
#include <iterator>

namespace Library {
namespace {

// a to d: the shift characters ($) (%) (/) (+), apart from the signs themselves.
constexpr std::string_view kAlphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%abcd";
constexpr std::string_view kShiftSigns = "$%/+";
constexpr std::string_view kDirectSigns = " $%+-./";
constexpr std::string_view kStart = "111141";
constexpr std::string_view kStop = "1111411";

constexpr std::string_view kPatterns[] = {
    "131112", "111213", "111312", "111411", "121113", "121212",  // 0 to 5
    "121311", "111114", "131211", "141111",                      // 6 to 9
    "211113", "211212", "211311", "221112", "221211", "231111",  // A to F
    "112113", "112212", "112311", "122112", "132111", "111123",  // G to L
    "111222", "111321", "121122", "131121", "212112", "212211",  // M to R
    "211122", "211221", "221121", "222111", "112122", "112221",  // S to X
    "122121", "123111",                                          // Y, Z
    "121131", "311112", "311211", "321111",                      // - . blank $
    "112131", "113121", "211131",                                // / + %
    "121221", "312111", "311121", "122211",                      // a to d
};
static_assert(std::size(kPatterns) == kAlphabet.size());

constexpr std::size_t kMaxCharacters = 107;

std::size_t Value(char character) {
  return kAlphabet.find(character);
}

// Weights 1 to `lastWeight` from the right, modulo 47.
char CheckCharacter(std::string_view code, std::size_t lastWeight) {
  std::size_t sum = 0;
  std::size_t weight = 1;
  for (auto it = code.rbegin(); it != code.rend(); ++it) {
    sum += Value(*it) * weight;
    weight = weight == lastWeight ? 1 : weight + 1;
  }
  return kAlphabet[sum % kAlphabet.size()];
}

void Draw(std::string code, std::string text, Symbol& symbol) {
  if (code.size() > kMaxCharacters) throw Error(BC_E_DATATOOLONG);
  for (const std::size_t lastWeight : {20, 15}) {
    symbol.checkDigits += CheckCharacter(code, lastWeight);
    code += symbol.checkDigits.back();
  }
  LinearRow row;
  row.append(kStart);
  for (const char character : code) row.append(kPatterns[Value(character)]);
  row.append(kStop);
  std::move(row).finish(symbol);
  SetTextLine(symbol, std::move(text));
}

}  // namespace

void EncodeCode93(const EncoderInput& input, Symbol& symbol) {
  const std::string data = Bytes(input.data);
  Draw(data, data, symbol);
}

void EncodeExtendedCode93(const EncoderInput& input, Symbol& symbol) {
  const std::string data = Bytes(input.data);
  std::string code;
  for (const char character : data) {
    std::string pair = FullAsciiPair(character, kDirectSigns);
    if (pair.size() > 1) pair[0] = static_cast<char>('a' + kShiftSigns.find(pair[0]));
    code += pair;
  }
  Draw(std::move(code), BlankedText(data), symbol);
}

}  // namespace Library
