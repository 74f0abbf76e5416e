// The modules of an Aztec symbol (ISO/IEC 24778): finder, mode message, reference grid and the
// layers of words round them.
#pragma once

#include "library/symbology/Symbol.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Library {

// The sizes by number: 1 to 4 compact with as many layers, 5 to 36 full with 1 to 32.
struct AztecShape {
  static constexpr int kLastCompact = 4, kLastSize = 36;

  bool compact;
  int layers;

  explicit AztecShape(int size)
      : compact(size <= kLastCompact), layers(compact ? size : size - kLastCompact) {}
  int bits() const { return ((compact ? 88 : 112) + 16 * layers) * layers; }
  int wordBits() const { return layers <= 2 ? 6 : layers <= 8 ? 8 : layers <= 22 ? 10 : 12; }
  int words() const { return bits() / wordBits(); }
  int maxDataWords() const { return compact ? 64 : 2048; }  // that the mode message can tell
};

// What the largest symbol has room for beside three check words.
inline constexpr std::size_t kMaxAztecBits = (1664 - 3) * 12;

// Adds check words until the symbol is full. REQUIRES: 1 <= data.size() < shape.words() and at most
// shape.maxDataWords(), each word of shape.wordBits().
void DrawAztec(const AztecShape& shape, std::vector<std::uint16_t> data, Symbol& symbol);

// A compact symbol without layers, whose mode message is the number itself.
void DrawAztecRune(std::uint8_t number, Symbol& symbol);

}  // namespace Library
