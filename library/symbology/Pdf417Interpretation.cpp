// Extended channel interpretations (ISO/IEC 15438 5.5.1).
#include "library/Error.h"
#include "library/symbology/Pdf417.h"

namespace Library {
namespace {

constexpr int kWordValues = 900;
constexpr int kFirstOfTwoWords = kWordValues;
constexpr int kFirstOfUsers = kFirstOfTwoWords + kWordValues * kWordValues;
constexpr int kFirstBeyond = kFirstOfUsers + kWordValues;

std::uint16_t Word(int value) {
  return static_cast<std::uint16_t>(value);
}

}  // namespace

CodeWords Pdf417Interpretation(int eci) {
  if (eci == 0) return {};
  if (eci < 0) throw Error(BC_E_INVALIDARG);
  if (eci < kFirstOfTwoWords) return {927, Word(eci)};
  if (eci < kFirstOfUsers) return {926, Word(eci / kWordValues - 1), Word(eci % kWordValues)};
  if (eci < kFirstBeyond) return {925, Word(eci - kFirstOfUsers)};
  throw Error(BC_E_NOTSUPPORTED);
}

}  // namespace Library
