#include "filter/ByteSet.h"

#include <cassert>
#include <cstdint>
#include <cstring>
#include <utility>

namespace Filter {
namespace {

// The compiler's portable vector type: every CPU has something for it, and on x86-64 it is SSE2.
using Block = unsigned char __attribute__((vector_size(16)));
using Words = std::uint64_t __attribute__((vector_size(16)));

bool AnyBitSet(Block block) {
  const Words words = reinterpret_cast<Words>(block);
  return (words[0] | words[1]) != 0;
}

// The first block of `text` that holds one of the `Count` values; the tail shorter than a block
// counts as one.
template <std::size_t Count>
std::size_t FindBlock(std::string_view text, const unsigned char* values) {
  std::size_t at = 0;
  for (; at + sizeof(Block) <= text.size(); at += sizeof(Block)) {
    Block block;
    std::memcpy(&block, text.data() + at, sizeof block);
    Block hits{};
    for (std::size_t i = 0; i < Count; ++i) {
      hits |= reinterpret_cast<Block>(block == values[i]);
    }
    if (AnyBitSet(hits)) break;
  }
  return at;
}

using BlockFinder = std::size_t (*)(std::string_view, const unsigned char*);

template <std::size_t... Counts>
constexpr auto MakeFinders(std::index_sequence<Counts...>) {
  return std::array<BlockFinder, sizeof...(Counts)>{FindBlock<Counts>...};
}

// Indexed by the number of values, so that the comparisons of a block are unrolled.
constexpr auto kFinders = MakeFinders(std::make_index_sequence<ByteSet::kCapacity + 1>());

}  // namespace

ByteSet::ByteSet(std::string_view bytes) {
  for (const char byte : bytes) add(byte);
}

void ByteSet::add(char byte) {
  if (contains(byte)) return;
  assert(count < kCapacity);
  values[count++] = static_cast<unsigned char>(byte);
  members[static_cast<unsigned char>(byte)] = true;
}

std::size_t ByteSet::find(std::string_view text) const {
  std::size_t at = kFinders[count](text, values.data());
  while (at < text.size() && !contains(text[at])) ++at;
  return at;
}

}  // namespace Filter
