// GS1 DataBar (ISO/IEC 24724).
#include "library/symbology/DataBar.h"

#include "library/Error.h"
#include "library/prepare/CheckDigits.h"
#include "library/prepare/Gs1.h"
#include "library/prepare/LogisticsNumbers.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/ZintSymbol.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace Library {
namespace {

constexpr std::size_t kGtinLength = 14;
constexpr std::size_t kGtinElement = 2 + kGtinLength;  // with its identifier

// libzint adds the check digit, which stands in the symbol as little as the identifier.
void EncodeGtin(const EncoderInput& input, int zintSymbology, Symbol& symbol) {
  const std::string gtin = Bytes(input.data);
  ZintSymbol encoded(zintSymbology);
  encoded.encode(std::string_view(gtin).substr(0, kGtinLength - 1));
  encoded.copyRows(symbol, 0);
  SetTextLine(symbol, "(01)" + gtin);
}

bool BeginsWithGtin(const Data& elements) {
  return elements.size() >= kGtinElement && elements[0].value == '0' && elements[1].value == '1';
}

// A GTIN in front, and a weight behind it, are written as numbers, and the check digit is not
// written: raw element strings that begin like them have digits there, and the right one.
void CheckNumbers(const Data& elements) {
  constexpr std::size_t kWeightIdentifier = 20, kWeightElement = 26;
  const auto at = [&elements](std::size_t place) { return elements[place].value; };
  const bool weight = elements.size() >= kWeightElement && at(2) == '9' && at(16) == '3' &&
                      (at(17) == '1' || at(17) == '2') && at(18) == '0';
  const std::size_t digits = weight ? kWeightIdentifier : kGtinElement;
  for (std::size_t i = 0; i < digits; ++i) {
    if (!elements[i].isDigit()) throw Error(BC_E_INVALIDDATA, DataIndex(elements[i].source));
  }
}

// Whether the check digit of the GTIN in front was replaced.
bool CorrectGtin(Data& elements, bool autoCorrect) {
  constexpr int kMod10 = 2;
  DataCharacter& given = elements[kGtinElement - 1];
  const Data digits(elements.begin() + 2, elements.begin() + kGtinElement - 1);
  const auto expected = static_cast<std::uint16_t>(ComputeCheckDigits(kMod10, Bytes(digits))[0]);
  if (given.value == expected) return false;
  if (!autoCorrect) throw Error(BC_E_INVALIDDATA, DataIndex(given.source));
  given.value = expected;
  return true;
}

ElementString ElementsOf(const EncoderInput& input) {
  const bool autoCorrect = input.options.autoCorrect > 0;
  ElementString elements = ParseElementString(input.data, autoCorrect);
  if (!BeginsWithGtin(elements.data)) return elements;
  CheckNumbers(elements.data);
  if (!CorrectGtin(elements.data, autoCorrect)) return elements;
  return ParseElementString(elements.data, autoCorrect);  // the text shows it
}

void EncodeElements(const EncoderInput& input, int zintSymbology, Symbol& symbol) {
  ElementString elements = ElementsOf(input);
  ZintSymbol encoded(zintSymbology);
  encoded->input_mode = GS1_MODE | GS1NOCHECK_MODE;
  encoded->option_2 = SegmentPairs(input.options);
  encoded.encode(UncheckedElements(elements.data));
  encoded.copyRows(symbol, 0);
  SetTextLine(symbol, std::move(elements.text));
}

// Heights in X of rows and the separators between them, over and over.
void GiveHeights(Symbol& symbol, std::initializer_list<double> heights) {
  for (std::size_t row = 0; row < symbol.rows.size(); ++row) {
    symbol.rows[row].height = heights.begin()[row % heights.size()];
  }
}

}  // namespace

void NormalizeLimitedGtin(Data& data, const Options& options) {
  RemoveGtinIdentifier(data, options);
  const auto isDigit = [](const DataCharacter& character) {
    return character.isDigit() || character.value == kCheckDigitPlace;
  };
  // A character that no GTIN has is the first thing wrong.
  if (data.empty() || !std::all_of(data.begin(), data.end(), isDigit)) return;
  if (data.front().value > '1') throw Error(BC_E_INVALIDDATA, DataIndex(data.front().source));
}

void EncodeDataBar(const EncoderInput& input, Symbol& symbol) {
  EncodeGtin(input, BARCODE_DBAR_OMN, symbol);
}

void EncodeLimitedDataBar(const EncoderInput& input, Symbol& symbol) {
  EncodeGtin(input, BARCODE_DBAR_LTD, symbol);
}

void EncodeStackedDataBar(const EncoderInput& input, Symbol& symbol) {
  EncodeGtin(input, BARCODE_DBAR_STK, symbol);
  GiveHeights(symbol, {5, 1, 7});
}

void EncodeStackedOmniDataBar(const EncoderInput& input, Symbol& symbol) {
  EncodeGtin(input, BARCODE_DBAR_OMNSTK, symbol);
  GiveHeights(symbol, {33, 1, 1, 1});
}

void EncodeExpandedDataBar(const EncoderInput& input, Symbol& symbol) {
  EncodeElements(input, BARCODE_DBAR_EXP, symbol);
}

void EncodeStackedExpandedDataBar(const EncoderInput& input, Symbol& symbol) {
  EncodeElements(input, BARCODE_DBAR_EXPSTK, symbol);
  GiveHeights(symbol, {34, 1, 1, 1});
}

int SegmentPairs(const Options& options) {
  return options.segmentsPerRow > 0 ? (options.segmentsPerRow + 1) / 2 : 0;
}

}  // namespace Library
