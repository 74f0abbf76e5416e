// The code sets of Code 128, which Code 16K and Codablock-F share.
#pragma once

namespace Library {

enum CodeSet { kSetA, kSetB, kSetC };
inline constexpr int kCodeSets = 3;

// Values of symbol characters that are no data, the same in all three symbologies.
inline constexpr int kFnc3Value = 96, kFnc2Value = 97, kShiftValue = 98, kFnc1Value = 102;
inline constexpr int kSwitchTo[] = {101, 100, 99};  // to A, B, C
inline constexpr int kFnc4In[] = {101, 100};        // A and B have FNC4 at each other's switch

// REQUIRES, here and below: set A or B, base < 128.
constexpr bool SetHolds(CodeSet set, int base) {
  return set == kSetA ? base < 96 : base >= 32;
}

constexpr int ValueIn(CodeSet set, int base) {
  return set == kSetA && base < 32 ? base + 64 : base - 32;
}

constexpr CodeSet OtherThan(CodeSet set) {
  return set == kSetA ? kSetB : kSetA;
}

}  // namespace Library
