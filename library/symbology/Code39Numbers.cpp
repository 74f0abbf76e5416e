// Numbers that are written in Code 39: vehicle identification numbers, the German and the Italian
// pharmaceutical number.
#include "library/Error.h"
#include "library/symbology/Code39.h"
#include "library/symbology/Linear.h"
#include "library/symbology/LinearEncoders.h"

#include <charconv>

namespace Library {
namespace {

constexpr std::size_t kVinLength = 17, kVinCheckPlace = 8;
constexpr int kVinMethod = 34;
constexpr std::string_view kCode32Alphabet = "0123456789BCDFGHJKLMNPQRSTUVWXYZ";
constexpr std::size_t kCode32Characters = 6;

bool StartsWith(const Data& data, std::string_view text) {
  if (data.size() < text.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (data[i].value != text[i]) return false;
  }
  return true;
}

void EraseFront(Data& data, std::size_t count) {
  data.erase(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(count));
}

// North American numbers must have the check digit.
bool HasCheckDigit(const std::string& number, int method) {
  return method == kVinMethod || (number[0] >= '1' && number[0] <= '5');
}

}  // namespace

// The check digit stands inside the number, where a format string may have left it to us.
void NormalizeVin(Data& data, const Options&) {
  const auto erased =
      std::erase_if(data, [](const DataCharacter& c) { return c.value == kCheckDigitPlace; });
  if (erased == 1 && data.size() == kVinLength - 1) {
    data.insert(data.begin() + kVinCheckPlace, {'0', -1});
  }
}

void EncodeVin(const EncoderInput& input, Symbol& symbol) {
  std::string number = Bytes(input.data);
  const int place = input.data[kVinCheckPlace].source;
  const bool missing = place < 0 && !input.options.format.empty();
  if (missing || HasCheckDigit(number, input.options.checkDigitMethod)) {
    const char expected = ComputeCheckDigits(kVinMethod, number).front();
    const bool wrong = number[kVinCheckPlace] != expected;
    if (wrong && !missing && input.options.autoCorrect <= 0) {
      throw Error(BC_E_INVALIDDATA, DataIndex(place));
    }
    number[kVinCheckPlace] = expected;
    symbol.checkDigits = expected;
  }
  DrawCode39(number, 2, symbol);
  SetTextLine(symbol, std::move(number));
}

void NormalizePzn(Data& data, const Options&) {
  constexpr std::string_view kName = "PZN";
  if (StartsWith(data, kName)) EraseFront(data, kName.size());
  while (StartsWith(data, " ") || StartsWith(data, "-")) EraseFront(data, 1);
}

// Eight digits, or seven of the numbers issued up to 2012.
void EncodePzn(const EncoderInput& input, Symbol& symbol) {
  const std::string digits = Bytes(input.data);
  DrawCode39('-' + digits, 2, symbol);
  SetTextLine(symbol, "PZN - " + digits);
}

void NormalizeCode32(Data& data, const Options&) {
  if (StartsWith(data, "A")) EraseFront(data, 1);
}

void EncodeCode32(const EncoderInput& input, Symbol& symbol) {
  const std::string digits = Bytes(input.data);
  unsigned value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  std::string code(kCode32Characters, '0');
  for (auto it = code.rbegin(); it != code.rend(); ++it, value /= 32) {
    *it = kCode32Alphabet[value % 32];
  }
  DrawCode39(code, 2, symbol);
  SetTextLine(symbol, 'A' + digits);
}

}  // namespace Library
