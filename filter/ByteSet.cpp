#include "filter/ByteSet.h"

#include <bit>
#include <cassert>
#include <cstring>
#include <utility>

namespace Filter {
namespace {

#ifdef __SSE2__

// The compiler's vector type: comparisons give all ones in the bytes that match.
using Block = char __attribute__((vector_size(16)));

Block Splat(char value) {
  return Block{} + value;
}

// One bit for each byte of the block that is one of the `Count` values.
template <std::size_t Count>
unsigned Matches(const char* bytes, const Block* values) {
  Block block;
  std::memcpy(&block, bytes, sizeof block);
  Block hits{};
  for (std::size_t i = 0; i < Count; ++i) hits |= block == values[i];
  return static_cast<unsigned>(__builtin_ia32_pmovmskb128(hits));
}

// The index of the first match in the whole blocks of `text`, else the size of those blocks.
template <std::size_t Count>
std::size_t FindInBlocks(std::string_view text, const char* values) {
  Block splats[Count + 1];
  for (std::size_t i = 0; i < Count; ++i) splats[i] = Splat(values[i]);
  std::size_t at = 0;
  for (; at + sizeof(Block) <= text.size(); at += sizeof(Block)) {
    const unsigned matches = Matches<Count>(text.data() + at, splats);
    if (matches != 0) return at + static_cast<std::size_t>(std::countr_zero(matches));
  }
  return at;
}

#else

template <std::size_t Count>
std::size_t FindInBlocks(std::string_view, const char*) {
  return 0;
}

#endif

using BlockFinder = std::size_t (*)(std::string_view, const char*);

template <std::size_t... Counts>
constexpr auto MakeFinders(std::index_sequence<Counts...>) {
  return std::array<BlockFinder, sizeof...(Counts)>{FindInBlocks<Counts>...};
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
  values[count++] = byte;
  members[static_cast<unsigned char>(byte)] = true;
}

std::size_t ByteSet::find(std::string_view text) const {
  std::size_t at = kFinders[count](text, values.data());
  while (at < text.size() && !contains(text[at])) ++at;
  return at;
}

}  // namespace Filter
