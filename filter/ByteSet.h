// The search on which the filter's speed rests: the next byte that means something in the current
// state. Everything before it leaves as one run.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace Filter {

// A small set of byte values.
class ByteSet {
 public:
  static constexpr std::size_t kCapacity = 8;

  ByteSet() = default;
  explicit ByteSet(std::string_view bytes);

  // A value that is already in the set is not added again. REQUIRES: fewer than kCapacity values.
  void add(char byte);
  bool contains(char byte) const { return members[static_cast<unsigned char>(byte)]; }

  // The index of the first byte of `text` that is in the set; text.size() if there is none.
  std::size_t find(std::string_view text) const;

 private:
  std::array<char, kCapacity> values{};
  std::size_t count = 0;
  std::array<bool, 256> members{};
};

}  // namespace Filter
