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
  if (stops.hasSign) of(stops.sign[0]) |= kBegins;
  for (std::size_t i = 0; i < stops.pairCount; ++i) of(stops.pairs[i].first) |= kBegins;
  for (std::size_t i = 0; i < stops.byteCount; ++i) of(stops.bytes[i]) |= kStop;
  if (stops.hasLineEnd) of(stops.lineEnd) |= kLine;
  if (stops.watched[0] != stops.watched[1]) of(stops.watched[1]) |= kSecond;
  of(stops.watched[0]) |= kFirst;
  return meanings;
}

// Whether a pair or the sign begins here.
bool BeginsSomething(const char* at, const StopSet& stops) {
  for (std::size_t i = 0; i < stops.pairCount; ++i) {
    const StopSet::Pair& pair = stops.pairs[i];
    if (at[0] == pair.first && (at[1] | pair.folded) == pair.second) return true;
  }
  return stops.hasSign && at[0] == stops.sign[0] && at[1] == stops.sign[1] &&
         at[4] == stops.sign[2];
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

// Where a pair begins in the 32 bytes at `at`.
template <std::size_t PairCount>
struct Pairs {
  __m256i first[PairCount + 1], second[PairCount + 1], folded[PairCount + 1];

  __attribute__((target("avx2"), always_inline)) explicit Pairs(const StopSet& stops) {
    for (std::size_t i = 0; i < PairCount; ++i) {
      first[i] = Splat(stops.pairs[i].first);
      second[i] = Splat(stops.pairs[i].second);
      folded[i] = Splat(stops.pairs[i].folded);
    }
  }

  __attribute__((target("avx2"), always_inline)) __m256i in(const char* at) const {
    const __m256i here = Load(at);
    const __m256i next = Load(at + 1);
    __m256i found = _mm256_setzero_si256();
    for (std::size_t i = 0; i < PairCount; ++i) {
      const __m256i compared = _mm256_or_si256(next, folded[i]);
      found = _mm256_or_si256(found,
                              _mm256_and_si256(Equal(here, first[i]), Equal(compared, second[i])));
    }
    return found;
  }
};

// Where the sign begins in the 32 bytes at `at`.
struct Sign {
  __m256i at0, at1, at4;

  __attribute__((target("avx2"), always_inline)) explicit Sign(const StopSet& stops)
      : at0(Splat(stops.sign[0])), at1(Splat(stops.sign[1])), at4(Splat(stops.sign[2])) {}

  __attribute__((target("avx2"), always_inline)) __m256i in(const char* at) const {
    return _mm256_and_si256(Equal(Load(at), at0),
                            _mm256_and_si256(Equal(Load(at + 1), at1), Equal(Load(at + 4), at4)));
  }
};

// All values are in registers before the first block; the loops over constant counts are unrolled.
template <std::size_t ByteCount, std::size_t PairCount, bool WithSign, bool WithLines>
__attribute__((target("avx2"))) void MakeMasksWithAvx2(const char* bytes, std::size_t count,
                                                       const StopSet& stops, BlockMasks* masks) {
  const __m256i first = Splat(stops.watched[0]);
  const __m256i second = Splat(stops.watched[1]);
  const __m256i line = Splat(stops.lineEnd);
  __m256i values[ByteCount + 1];
  for (std::size_t i = 0; i < ByteCount; ++i) values[i] = Splat(stops.bytes[i]);
  const Pairs<PairCount> pairs(stops);
  const Sign sign(stops);
  const bool watchesTwo = stops.watched[0] != stops.watched[1];
  for (std::size_t block = 0; block < count; ++block, bytes += kBlockSize) {
    const __m256i low = Load(bytes);
    const __m256i high = Load(bytes + 32);
    __m256i lowStops = _mm256_setzero_si256();
    __m256i highStops = _mm256_setzero_si256();
    for (std::size_t i = 0; i < ByteCount; ++i) {
      lowStops = _mm256_or_si256(lowStops, Equal(low, values[i]));
      highStops = _mm256_or_si256(highStops, Equal(high, values[i]));
    }
    if constexpr (PairCount > 0) {
      lowStops = _mm256_or_si256(lowStops, pairs.in(bytes));
      highStops = _mm256_or_si256(highStops, pairs.in(bytes + 32));
    }
    if constexpr (WithSign) {
      lowStops = _mm256_or_si256(lowStops, sign.in(bytes));
      highStops = _mm256_or_si256(highStops, sign.in(bytes + 32));
    }
    masks[block] = {Bits(Equal(low, first), Equal(high, first)),
                    watchesTwo ? Bits(Equal(low, second), Equal(high, second)) : 0,
                    Bits(lowStops, highStops),
                    WithLines ? Bits(Equal(low, line), Equal(high, line)) : 0};
  }
}

// Text has single bytes and the sign, indexed by the number of bytes.
template <bool WithSign, bool WithLines, std::size_t... ByteCounts>
constexpr auto MakersForText(std::index_sequence<ByteCounts...>) {
  return std::array<MaskMaker, sizeof...(ByteCounts)>{
      MakeMasksWithAvx2<ByteCounts, 0, WithSign, WithLines>...};
}

template <bool WithSign, bool WithLines>
MaskMaker MakerForText(std::size_t byteCount) {
  static constexpr auto kMakers =
      MakersForText<WithSign, WithLines>(std::make_index_sequence<StopSet::kMostBytes + 1>());
  return kMakers[byteCount];
}

// Binary data have pairs and few single bytes, indexed by the number of pairs less one.
template <std::size_t ByteCount, bool WithLines, std::size_t... PairCounts>
constexpr auto MakersForData(std::index_sequence<PairCounts...>) {
  return std::array<MaskMaker, sizeof...(PairCounts)>{
      MakeMasksWithAvx2<ByteCount, PairCounts + 1, false, WithLines>...};
}

template <bool WithLines>
MaskMaker MakerForData(std::size_t byteCount, std::size_t pairCount) {
  constexpr auto kPairCounts = std::make_index_sequence<StopSet::kMostPairs>();
  static constexpr std::array kMakers = {
      MakersForData<0, WithLines>(kPairCounts), MakersForData<1, WithLines>(kPairCounts),
      MakersForData<2, WithLines>(kPairCounts), MakersForData<3, WithLines>(kPairCounts)};
  return byteCount < kMakers.size() ? kMakers[byteCount][pairCount - 1] : MakeMasksPortably;
}

MaskMaker MakerFor(const StopSet& stops) {
  const bool lines = stops.hasLineEnd;
  if (stops.pairCount == 0 && stops.hasSign)
    return lines ? MakerForText<true, true>(stops.byteCount)
                 : MakerForText<true, false>(stops.byteCount);
  if (stops.pairCount == 0)
    return lines ? MakerForText<false, true>(stops.byteCount)
                 : MakerForText<false, false>(stops.byteCount);
  if (stops.hasSign) return MakeMasksPortably;
  return lines ? MakerForData<true>(stops.byteCount, stops.pairCount)
               : MakerForData<false>(stops.byteCount, stops.pairCount);
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

void StopSet::addPair(char first, char second, char folded) {
  assert(pairCount < kMostPairs);
  pairs[pairCount++] = {first, second, folded};
}

void StopSet::setSign(char at0, char at1, char at4) {
  sign = {at0, at1, at4};
  hasSign = true;
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
      const bool begins = (meaning & kBegins) && BeginsSomething(bytes + place, stops);
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
