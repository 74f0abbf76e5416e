#include "library/symbology/Symbology.h"

#include "library/Options.h"
#include "library/symbology/AztecPattern.h"
#include "library/symbology/Code128.h"
#include "library/symbology/Encoders.h"

#include <algorithm>
#include <iterator>

namespace Library {
namespace {

bool Always(const Options&) {
  return true;
}
bool GsDataMatrix(const Options& options) {
  return options.dataMatrix.format == 1;
}
bool GsQrCode(const Options& options) {
  return options.qr.format == 1;
}
bool GsAztec(const Options& options) {
  return options.aztec.format == 1;
}

constexpr CheckRule kNoCheck{CheckKind::kBuiltIn, 0, 0, {0, 1}};
constexpr CheckRule kCode128Check{CheckKind::kBuiltIn, 18, 1, {0, 1, 18}};
constexpr CheckRule kGs1Check{CheckKind::kBuiltIn, 17, 1, {0, 1, 17}};
constexpr CheckRule kCode39Check{CheckKind::kOptional, 0, 0, {0, 1, 3, 21, 28}};
constexpr CheckRule k2Of5Check{CheckKind::kOptional, 0, 0, {0, 1, 2, 5, 6, 21, 28}};
constexpr CheckRule kEan8Check{CheckKind::kLast, 13, 1, {0, 1, 2, 13}};
constexpr CheckRule kEan13Check{CheckKind::kLast, 14, 1, {0, 1, 2, 14}};
constexpr CheckRule kUpcACheck{CheckKind::kLast, 15, 1, {0, 1, 2, 15}};

// Element strings of 48 characters, with a pair of parentheses round every identifier of two.
constexpr int kGs1Length = 48 * 2;
// Two digits to a symbol character; the encoder counts those.
constexpr int kCode128Length = 2 * kMaxCode128Characters;
// Two characters to a code of five bits; the encoder counts those.
constexpr int kAztecLength = kMaxAztecBits * 2 / 5;

using G = Geometry;
using E = ElementRule;
using M = MinimalHeight;

// In the order of the type numbers.
constexpr Symbology kSymbologies[] = {
    // clang-format off
    // type name                  encoder                geometry     elements        characters         min max             fixed FNC    sets   GS1           check          text   X    row height
    {3,     "Interleaved 2 of 5", EncodeInterleaved2Of5, G::kLinear,  E::kTwoWidths,  kDigits,           1,  90,             0,    false, false, nullptr,      k2Of5Check,    true,  254, 0,  M::kGeneral},
    {8,     "Code 39",            EncodeCode39,          G::kLinear,  E::kTwoWidths,  kCode39Characters, 1,  85,             0,    false, false, nullptr,      kCode39Check,  true,  254, 0,  M::kGeneral},
    {10,    "EAN-8",              EncodeEan8,            G::kLinear,  E::kFourWidths, kDigits,           7,  8,              8,    false, false, nullptr,      kEan8Check,    true,  330, 0,  M::kLogistics},
    {13,    "EAN-13",             EncodeEan13,           G::kLinear,  E::kFourWidths, kDigits,           12, 13,             13,   false, false, nullptr,      kEan13Check,   true,  330, 0,  M::kLogistics},
    {16,    "GS1-128",            EncodeGs1Code128,      G::kLinear,  E::kFourWidths, kGs1Characters,    1,  kGs1Length,     0,    true,  true,  Always,       kGs1Check,     true,  495, 0,  M::kLogistics},
    {20,    "Code 128",           EncodeCode128,         G::kLinear,  E::kFourWidths, kAllBytes,         1,  kCode128Length, 0,    true,  true,  nullptr,      kCode128Check, true,  254, 0,  M::kGeneral},
    {34,    "UPC-A",              EncodeUpcA,            G::kLinear,  E::kFourWidths, kDigits,           11, 12,             12,   false, false, nullptr,      kUpcACheck,    true,  330, 0,  M::kLogistics},
    {55,    "PDF417",             EncodePdf417,          G::kStacked, E::kNoRatio,    kAllBytes,         1,  2710,           0,    false, false, nullptr,      kNoCheck,      false, 254, 3,  M::kNone},
    {56,    "PDF417 Truncated",   EncodeTruncatedPdf417, G::kStacked, E::kNoRatio,    kAllBytes,         1,  2710,           0,    false, false, nullptr,      kNoCheck,      false, 254, 3,  M::kNone},
    {58,    "QR Code",            EncodeQrCode,          G::kMatrix,  E::kNoRatio,    kAllBytes,         1,  7089,           0,    false, false, GsQrCode,     kNoCheck,      false, 330, 0,  M::kNone},
    {71,    "Data Matrix",        EncodeDataMatrix,      G::kMatrix,  E::kNoRatio,    kAllBytes,         1,  3116,           0,    false, false, GsDataMatrix, kNoCheck,      false, 254, 0,  M::kNone},
    {92,    "Aztec Code",         EncodeAztec,           G::kMatrix,  E::kNoRatio,    kAllBytes,         1,  kAztecLength,   0,    false, false, GsAztec,      kNoCheck,      false, 330, 0,  M::kNone},
    // clang-format on
};

constexpr bool Ordered() {
  for (std::size_t i = 1; i < std::size(kSymbologies); ++i) {
    if (kSymbologies[i - 1].type >= kSymbologies[i].type) return false;
  }
  return true;
}
static_assert(Ordered());

}  // namespace

const Symbology* FindSymbology(int type) {
  const auto found = std::lower_bound(
      std::begin(kSymbologies), std::end(kSymbologies), type,
      [](const Symbology& symbology, int number) { return symbology.type < number; });
  return found != std::end(kSymbologies) && found->type == type ? found : nullptr;
}

}  // namespace Library
