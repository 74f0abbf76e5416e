#pragma once

#include <cstdint>

namespace Library {

// The value and behind it its remainder by a generator polynomial of degree `bits`, which protects
// format and version informations. REQUIRES: value < 1 << (32 - bits).
constexpr std::uint32_t WithQrRemainder(std::uint32_t value, std::uint32_t generator, int bits) {
  std::uint32_t remainder = value << bits;
  for (int bit = 31; bit >= bits; --bit) {
    if ((remainder >> bit & 1) != 0) remainder ^= generator << (bit - bits);
  }
  return value << bits | remainder;
}

}  // namespace Library
