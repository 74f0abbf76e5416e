// MaxiCode (ISO/IEC 16023) by libzint.
#include "library/Error.h"
#include "library/prepare/Escapes.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/StructuredAppend.h"
#include "library/symbology/ZintSymbol.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace Library {
namespace {

constexpr int kMaxSymbols = 8;
constexpr int kAutomatic = -1, kNumericPost = 2, kAlphanumericPost = 3, kStandard = 4, kFull = 5;

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}
bool IsNumber(const std::string& text) {
  return std::all_of(text.begin(), text.end(), IsDigit);
}

// Three digits, zeros in front.
std::string ThreeDigits(const std::string& text) {
  if (text.size() > 3 || !IsNumber(text)) throw Error(BC_E_INVALIDARG);
  return std::string(3 - text.size(), '0') + text;
}

bool HasPrimaryMessage(const MaxiOptions& options) {
  return !options.service.empty() || !options.country.empty() || !options.postal.empty();
}

int ModeOf(const MaxiOptions& options) {
  const bool primary = HasPrimaryMessage(options);
  if (options.mode == kAutomatic) {
    if (!primary) return kStandard;
    return IsNumber(options.postal) ? kNumericPost : kAlphanumericPost;
  }
  const bool takesPrimary = options.mode == kNumericPost || options.mode == kAlphanumericPost;
  if (options.mode < kNumericPost || options.mode > kFull || primary != takesPrimary) {
    throw Error(BC_E_INVALIDARG);
  }
  return options.mode;
}

// The United States have nine digits: five of a place, four of a delivery point.
std::string NumericPostCode(std::string postal, const std::string& country) {
  constexpr std::string_view kUnitedStates = "840", kNoDeliveryPoint = "0000";
  constexpr std::size_t kPlaceLength = 5, kLongest = 9;
  if (postal.empty() || postal.size() > kLongest || !IsNumber(postal)) throw Error(BC_E_INVALIDARG);
  if (country == kUnitedStates && postal.size() == kPlaceLength) postal += kNoDeliveryPoint;
  return postal;
}

// Six characters of the symbology's code set A.
std::string AlphanumericPostCode(std::string postal) {
  constexpr std::string_view kCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 \"#$%&'()*+,-./:";
  constexpr std::size_t kLength = 6;
  if (postal.empty()) throw Error(BC_E_INVALIDARG);
  postal.resize(kLength, ' ');
  for (char& character : postal) {
    if (character >= 'a' && character <= 'z') character ^= 'a' ^ 'A';
  }
  if (postal.find_first_not_of(kCharacters) != std::string::npos) throw Error(BC_E_INVALIDARG);
  return postal;
}

void SetPrimaryMessage(const MaxiOptions& options, int mode, ZintSymbol& symbol) {
  if (mode != kNumericPost && mode != kAlphanumericPost) return;
  const std::string country = ThreeDigits(options.country);
  const std::string postal = mode == kNumericPost ? NumericPostCode(options.postal, country)
                                                  : AlphanumericPostCode(options.postal);
  const std::string message = postal + country + ThreeDigits(options.service);
  std::copy(message.begin(), message.end(), symbol->primary);
}

// With the escapes that the data have, too: a structured carrier message begins with separators.
std::string Preamble(const Options& options) {
  if (!options.maxi.usePreamble) return {};
  if (!options.translateEscapes) return options.maxi.preamble;
  return Bytes(TranslateEscapes(options.maxi.preamble, FunctionCharacters::kNone));
}

}  // namespace

void EncodeMaxiCode(const EncoderInput& input, Symbol& symbol) {
  const MaxiOptions& options = input.options.maxi;
  ZintSymbol encoded(BARCODE_MAXICODE);
  encoded->option_1 = ModeOf(options);
  encoded->eci = input.options.eci;
  SetPrimaryMessage(options, encoded->option_1, encoded);
  if (options.appendSum >= 0 || options.appendIndex >= 0) {
    SetAppend(encoded, options.appendSum, options.appendIndex, kMaxSymbols);
  }
  encoded.encode(Preamble(input.options) + Bytes(input.data));
  encoded.copyRows(symbol, 1);
  SetTextLine(symbol, PrintableText(input.data));
}

}  // namespace Library
