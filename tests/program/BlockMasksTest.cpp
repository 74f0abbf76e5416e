// The makers of block masks against each other and against the bytes one by one, for whatever may
// be asked for.
#include "filter/BlockMasks.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace Filter {
namespace {

// Few byte values, so that the word comes about.
constexpr std::string_view kAlphabet = "()%<\\@$_\r\n\f\033rtf \xff\x80";

char RandomByte(std::mt19937& random) {
  return random() % 4 == 0 ? static_cast<char>(random()) : kAlphabet[random() % kAlphabet.size()];
}

StopSet RandomStops(std::mt19937& random) {
  StopSet stops;
  for (auto count = random() % StopSet::kMostBytes; count > 0; --count)
    stops.addByte(RandomByte(random));
  if (random() % 4)
    stops.watch('(', ')', {RandomByte(random), RandomByte(random), RandomByte(random)});
  if (random() % 2) stops.setLineEnd(random() % 2 ? '\n' : '\r');
  return stops;
}

bool Stops(const char* at, const StopSet& stops) {
  return stops.contains(at[0]) || (stops.watches && at[0] == stops.word[0] &&
                                   at[1] == stops.word[1] && at[4] == stops.word[2]);
}

TEST(BlockMasks, AreTheSameFromEveryMakerAndAsTheBytesSay) {
  std::mt19937 random(64);
  std::string bytes(5 * kBlockSize + kBlockSize + kBlockLookAhead, '\0');
  std::vector<BlockMasks> best(5), portable(5);
  for (int round = 0; round < 100; ++round) {
    for (char& byte : bytes) byte = RandomByte(random);
    const StopSet stops = RandomStops(random);
    for (std::size_t offset = 0; offset < kBlockSize; ++offset) {
      BestMaskMaker()(bytes.data() + offset, best.size(), stops, best.data());
      MakeMasksPortably(bytes.data() + offset, portable.size(), stops, portable.data());
      for (std::size_t place = 0; place < best.size() * kBlockSize; ++place) {
        const char* const at = bytes.data() + offset + place;
        const auto [first, second] = stops.watched;
        const bool expected[] = {stops.watches && *at == first, stops.watches && *at == second,
                                 Stops(at, stops), stops.hasLineEnd && *at == stops.lineEnd};
        for (const auto* const made : {&best, &portable}) {
          const BlockMasks& block = (*made)[place / kBlockSize];
          const std::uint64_t masks[] = {block.first, block.second, block.stop, block.line};
          for (int mask = 0; mask < 4; ++mask) {
            ASSERT_EQ(masks[mask] >> place % kBlockSize & 1, expected[mask])
                << (made == &best ? "best" : "portable") << " round " << round << " offset "
                << offset << " place " << place << " mask " << mask << " byte "
                << static_cast<int>(*at);
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace Filter
