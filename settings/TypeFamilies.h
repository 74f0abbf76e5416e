// Barcode types that share options of their own.
#pragma once

#include <algorithm>
#include <span>

namespace Settings {

inline constexpr int kPdf417Types[] = {55, 56, 84, 106, 107, 108, 109};
inline constexpr int kMaxiCodeTypes[] = {57};
inline constexpr int kQrCodeTypes[] = {58, 104, 105, 143, 145};
inline constexpr int kDataMatrixTypes[] = {71, 102, 103};
inline constexpr int kCodablockFTypes[] = {74, 110, 111};
inline constexpr int kAztecTypes[] = {92, 112, 113};
inline constexpr int kMicroQrTypes[] = {97};

constexpr bool IsOneOf(std::span<const int> types, int type) {
  return std::ranges::find(types, type) != types.end();
}

}  // namespace Settings
