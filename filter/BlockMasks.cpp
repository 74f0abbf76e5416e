#include "filter/BlockMasks.h"

#include <algorithm>
#include <cassert>
#include <utility>

#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace Filter {
namespace {

// What the portable code has to do about a byte; most bytes mean nothing.
enum Meaning : std::uint8_t { kFirst = 1, kSecond = 2, kStop = 4, kLine = 8, kBegins = 16 };

std::array<std::uint8_t, 256> MeaningsOf(const StopSet& stops) {
  std::array<std::uint8_t, 256> meanings{};
  const auto of = [&](char byte) -> std::uint8_t& {
    return meanings[static_cast<unsigned char>(byte)];
  };
  for (std::size_t i = 0; i < stops.byteCount; ++i) of(stops.bytes[i]) |= kStop;
  if (stops.hasLineEnd) of(stops.lineEnd) |= kLine;
  if (!stops.watches) return meanings;
  of(stops.watched[0]) |= kFirst;
  of(stops.watched[1]) |= kSecond;
  of(stops.word[0]) |= kBegins;
  return meanings;
}

bool BeginsWord(const char* at, const StopSet& stops) {
  return at[1] == stops.word[1] && at[4] == stops.word[2];
}

#ifdef __x86_64__

__attribute__((target("avx2"), always_inline)) inline __m256i Load(const char* at) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
}

__attribute__((target("avx2"), always_inline)) inline __m256i Splat(char value) {
  return _mm256_set1_epi8(value);
}

__attribute__((target("avx2"), always_inline)) inline __m256i Equal(__m256i bytes, __m256i value) {
  return _mm256_cmpeq_epi8(bytes, value);
}

__attribute__((target("avx2"), always_inline)) inline std::uint64_t Bits(__m256i low,
                                                                         __m256i high) {
  const auto lowBits = static_cast<std::uint32_t>(_mm256_movemask_epi8(low));
  const auto highBits = static_cast<std::uint32_t>(_mm256_movemask_epi8(high));
  return lowBits | std::uint64_t{highBits} << 32;
}

// Where the word begins in the 32 bytes at `at`.
struct Word {
  __m256i at0, at1, at4;

  __attribute__((target("avx2"), always_inline)) explicit Word(const StopSet& stops)
      : at0(Splat(stops.word[0])), at1(Splat(stops.word[1])), at4(Splat(stops.word[2])) {}

  __attribute__((target("avx2"), always_inline)) __m256i in(const char* at) const {
    return _mm256_and_si256(Equal(Load(at), at0),
                            _mm256_and_si256(Equal(Load(at + 1), at1), Equal(Load(at + 4), at4)));
  }
};

// All values are in registers before the first block; the loops over constant counts are unrolled.
template <std::size_t ByteCount, bool Watches, bool WithLines>
__attribute__((target("avx2"))) void MakeMasksWithAvx2(const char* bytes, std::size_t count,
                                                       const StopSet& stops, BlockMasks* masks) {
  const __m256i first = Splat(stops.watched[0]);
  const __m256i second = Splat(stops.watched[1]);
  const __m256i line = Splat(stops.lineEnd);
  const Word word(stops);
  __m256i values[ByteCount + 1];
  for (std::size_t i = 0; i < ByteCount; ++i) values[i] = Splat(stops.bytes[i]);
  for (std::size_t block = 0; block < count; ++block, bytes += kBlockSize) {
    const __m256i low = Load(bytes);
    const __m256i high = Load(bytes + 32);
    __m256i lowStops = _mm256_setzero_si256();
    __m256i highStops = _mm256_setzero_si256();
    for (std::size_t i = 0; i < ByteCount; ++i) {
      lowStops = _mm256_or_si256(lowStops, Equal(low, values[i]));
      highStops = _mm256_or_si256(highStops, Equal(high, values[i]));
    }
    if constexpr (Watches) {
      lowStops = _mm256_or_si256(lowStops, word.in(bytes));
      highStops = _mm256_or_si256(highStops, word.in(bytes + 32));
    }
    masks[block] = {Watches ? Bits(Equal(low, first), Equal(high, first)) : 0,
                    Watches ? Bits(Equal(low, second), Equal(high, second)) : 0,
                    Bits(lowStops, highStops),
                    WithLines ? Bits(Equal(low, line), Equal(high, line)) : 0};
  }
}

// Indexed by the number of bytes that stop.
template <bool Watches, bool WithLines, std::size_t... ByteCounts>
constexpr auto MakersFor(std::index_sequence<ByteCounts...>) {
  return std::array<MaskMaker, sizeof...(ByteCounts)>{
      MakeMasksWithAvx2<ByteCounts, Watches, WithLines>...};
}

template <bool Watches, bool WithLines>
constexpr auto kMakers =
    MakersFor<Watches, WithLines>(std::make_index_sequence<StopSet::kMostBytes + 1>());

MaskMaker MakerFor(const StopSet& stops) {
  if (stops.watches)
    return stops.hasLineEnd ? kMakers<true, true>[stops.byteCount]
                            : kMakers<true, false>[stops.byteCount];
  return stops.hasLineEnd ? kMakers<false, true>[stops.byteCount]
                          : kMakers<false, false>[stops.byteCount];
}

void MakeMasksForAvx2(const char* bytes, std::size_t count, const StopSet& stops,
                      BlockMasks* masks) {
  MakerFor(stops)(bytes, count, stops, masks);
}

#endif

}  // namespace

void StopSet::addByte(char byte) {
  if (contains(byte)) return;
  assert(byteCount < kMostBytes);
  bytes[byteCount++] = byte;
}

void StopSet::watch(char first, char second, const std::array<char, 3>& letters) {
  watched = {first, second};
  word = letters;
  watches = true;
}

void StopSet::setLineEnd(char byte) {
  lineEnd = byte;
  hasLineEnd = true;
}

bool StopSet::contains(char byte) const {
  const auto* const end = bytes.data() + byteCount;
  return std::find(bytes.data(), end, byte) != end;
}

void MakeMasksPortably(const char* bytes, std::size_t count, const StopSet& stops,
                       BlockMasks* masks) {
  const std::array<std::uint8_t, 256> meanings = MeaningsOf(stops);
  for (std::size_t block = 0; block < count; ++block, bytes += kBlockSize) {
    BlockMasks made;
    for (std::size_t place = 0; place < kBlockSize; ++place) {
      const std::uint64_t bit = std::uint64_t{1} << place;
      const unsigned meaning = meanings[static_cast<unsigned char>(bytes[place])];
      if (meaning == 0) continue;
      if (meaning & kFirst) made.first |= bit;
      if (meaning & kSecond) made.second |= bit;
      if (meaning & kLine) made.line |= bit;
      const bool begins = (meaning & kBegins) && BeginsWord(bytes + place, stops);
      if ((meaning & kStop) || begins) made.stop |= bit;
    }
    masks[block] = made;
  }
}

MaskMaker BestMaskMaker() {
#ifdef __x86_64__
  if (__builtin_cpu_supports("avx2")) return MakeMasksForAvx2;
#endif
  return MakeMasksPortably;
}

}  // namespace Filter
