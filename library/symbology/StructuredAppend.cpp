#include "library/symbology/StructuredAppend.h"

#include "library/Options.h"

namespace Library {
namespace {

// More symbols than a sheet takes that somebody scans; what is longer is a mistake.
constexpr int kMaxPdf417Symbols = 1000;

void PlacePdf417(Options& options, const AppendPlace& place) {
  constexpr std::uint32_t kValues = 900;  // of a code word
  options.pdf417.segIndex = place.index - 1;
  options.pdf417.segCount = place.count;
  options.pdf417.segLast = -1;
  if (!options.pdf417.fileId.empty()) return;
  options.pdf417.fileId = FixedDigits(static_cast<int>(place.id / kValues % kValues), 3) +
                          FixedDigits(static_cast<int>(place.id % kValues), 3);
}

void PlaceQrCode(Options& options, const AppendPlace& place) {
  options.qr.appendSum = place.count;
  options.qr.appendIndex = place.index;
  options.qr.appendParity = place.parity;
}

void PlaceDataMatrix(Options& options, const AppendPlace& place) {
  constexpr std::uint32_t kValues = 254;  // 1 to 254, twice
  options.dataMatrix.appendSum = place.count;
  options.dataMatrix.appendIndex = place.index;
  if (options.dataMatrix.appendFileId >= 0) return;
  options.dataMatrix.appendFileId =
      static_cast<int>((1 + place.id / kValues % kValues) * 256 + 1 + place.id % kValues);
}

void PlaceAztec(Options& options, const AppendPlace& place) {
  options.aztec.append = true;
  options.aztec.appendSum = static_cast<char>('A' + place.count - 1);
  options.aztec.appendIndex = static_cast<char>('A' + place.index - 1);
}

void PlaceMaxiCode(Options& options, const AppendPlace& place) {
  options.maxi.appendSum = place.count;
  options.maxi.appendIndex = place.index;
}

}  // namespace

const StructuredAppend kPdf417Append = {kMaxPdf417Symbols, PlacePdf417};
const StructuredAppend kQrCodeAppend = {16, PlaceQrCode};
const StructuredAppend kDataMatrixAppend = {16, PlaceDataMatrix};
const StructuredAppend kAztecAppend = {26, PlaceAztec};
const StructuredAppend kMaxiCodeAppend = {8, PlaceMaxiCode};
const StructuredAppend kDotCodeAppend = {35};
const StructuredAppend kCodeOneAppend = {128};

std::string FixedDigits(int value, int length) {
  std::string digits(static_cast<std::size_t>(length), '0');
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, value /= 10) {
    *digit = static_cast<char>('0' + value % 10);
  }
  return digits;
}

}  // namespace Library
