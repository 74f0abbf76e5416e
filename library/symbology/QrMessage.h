// The data of a QR Code, Micro QR Code or rMQR Code as a sequence of bits: segments of digits, of
// 45 characters and of bytes, each with a mode indicator and a count in front.
#pragma once

#include "library/symbology/QrBits.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Library {

enum class QrMode : std::uint8_t { kNumeric, kAlphanumeric, kBytes };
constexpr std::size_t kQrModes = 3;

// How a symbol of some size begins its segments, by mode.
struct QrSegmentHeads {
  int indicatorBits;
  std::array<std::uint8_t, kQrModes> indicators;
  std::array<std::uint8_t, kQrModes> countBits;  // 0: the symbol does not have the mode
};

// What is encoded: bytes, and in data marked by FNC1 separators (kFnc1).
struct QrContent {
  std::vector<std::uint16_t> characters;
  // FNC1 stands in front: among the 45 characters a percent sign then is a separator, and a pair of
  // them is a percent sign.
  bool marked = false;
};

// The segmentation that takes the fewest bits.
class QrMessage {
 public:
  QrMessage(const QrContent& data, const QrSegmentHeads& segmentHeads);

  // The fewest bits that any content of so many characters takes: three digits take ten.
  static std::size_t leastBits(const QrContent& data) { return data.characters.size() * 10 / 3; }

  static constexpr std::size_t kImpossible = SIZE_MAX;
  // kImpossible: some character is in none of the symbol's modes.
  std::size_t bitCount() const { return bits; }

  // REQUIRES: bitCount() is not kImpossible, the content still lives.
  void write(QrBits& target) const;

 private:
  void writeSegment(QrBits& target, QrMode mode, std::size_t begin, std::size_t end) const;
  void writeDigits(QrBits& target, std::size_t begin, std::size_t end) const;
  void writeAlphanumeric(QrBits& target, std::size_t begin, std::size_t end) const;
  void writeBytes(QrBits& target, std::size_t begin, std::size_t end) const;

  const QrContent& content;
  const QrSegmentHeads& heads;
  std::size_t bits = 0;
  std::vector<QrMode> modes;  // of each character
};

// Whether the mode has the character, which is a byte.
bool QrModeHas(QrMode mode, std::uint16_t character);

}  // namespace Library
