// The one pass over a job's bytes on which the filter's speed rests.
//
// A block of 64 bytes becomes masks with one bit for each byte that means something to the reader
// of the job; whoever reads walks the bits and never looks at the bytes between them. The masks are
// made with AVX2 where the processor has it, chosen when the program runs, else by portable code
// that gives the same bits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Filter {

// Bit i stands for byte i of the block.
struct BlockMasks {
  std::uint64_t first = 0;  // of the two watched bytes, when asked for
  std::uint64_t second = 0;
  std::uint64_t stop = 0;  // the stops
  std::uint64_t line = 0;  // line ends, when asked for
};

// What the bits of the masks stand for.
class StopSet {
 public:
  static constexpr std::size_t kMostBytes = 10;

  // A byte that stops wherever it stands. REQUIRES: fewer than kMostBytes of them.
  void addByte(char byte);
  // Two bytes that get masks of their own, parentheses, say, and a long word that stops: by three
  // letters of it, at the distances 0, 1 and 4, that hardly any other word has there. The stop
  // stands at the first of them. REQUIRES: the two bytes differ
  void watch(char first, char second, const std::array<char, 3>& letters);
  // The byte that ends a line.
  void setLineEnd(char byte);

  bool contains(char byte) const;

  std::array<char, kMostBytes> bytes{};
  std::size_t byteCount = 0;
  bool watches = false;
  std::array<char, 2> watched{};
  std::array<char, 3> word{};
  char lineEnd = '\0';
  bool hasLineEnd = false;
};

inline constexpr std::size_t kBlockSize = 64;
// Bytes behind a block that decide about it, too.
inline constexpr std::size_t kBlockLookAhead = 4;

// Fills `masks` for `count` blocks. REQUIRES: count * kBlockSize + kBlockLookAhead readable bytes.
using MaskMaker = void (*)(const char* bytes, std::size_t count, const StopSet& stops,
                           BlockMasks* masks);

// The fastest that this processor runs, and the portable one.
MaskMaker BestMaskMaker();
void MakeMasksPortably(const char* bytes, std::size_t count, const StopSet& stops,
                       BlockMasks* masks);

}  // namespace Filter
