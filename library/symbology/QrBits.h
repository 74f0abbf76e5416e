// A sequence of bits, packed into bytes, the highest bit of each first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Library {

class QrBits {
 public:
  // The lowest `count` bits of `value`. REQUIRES: 0 <= count <= 32, value < 1 << count.
  void append(std::uint32_t value, int count) {
    pending = pending << count | value;
    pendingBits += count;
    while (pendingBits >= 8)
      bytes.push_back(static_cast<std::uint8_t>(pending >> (pendingBits -= 8)));
    pending &= (1U << pendingBits) - 1;
  }
  void reserve(std::size_t byteCount) { bytes.reserve(byteCount); }

  std::size_t size() const { return bytes.size() * 8 + static_cast<std::size_t>(pendingBits); }

  // The last byte filled up with zeros.
  std::vector<std::uint8_t> finish() && {
    if (pendingBits > 0) append(0, 8 - pendingBits);
    return std::move(bytes);
  }

 private:
  std::vector<std::uint8_t> bytes;
  std::uint64_t pending = 0;
  int pendingBits = 0;
};

}  // namespace Library
