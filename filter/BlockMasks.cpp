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
enum Meaning : std::uint8_t { kNothing, kOpen, kClose, kStop, kLine, kBegins };

std::array<std::uint8_t, 256> MeaningsOf(const StopSet& stops) {
  std::array<std::uint8_t, 256> meanings{};
  const auto of = [&](char byte) -> std::uint8_t& {
    return meanings[static_cast<unsigned char>(byte)];
  };
  if (stops.hasSign) of(stops.sign[0]) = kBegins;
  for (std::size_t i = 0; i < stops.pairCount; ++i) of(stops.pairs[i][0]) = kBegins;
  for (std::size_t i = 0; i < stops.byteCount; ++i) of(stops.bytes[i]) = kStop;
  if (stops.hasLineEnd) of(stops.lineEnd) = kLine;
  of('(') = kOpen;
  of(')') = kClose;
  return meanings;
}

// Whether a pair or the sign begins here.
bool BeginsSomething(const char* at, const StopSet& stops) {
  for (std::size_t i = 0; i < stops.pairCount; ++i) {
    if (at[0] == stops.pairs[i][0] && at[1] == stops.pairs[i][1]) return true;
  }
  return stops.hasSign && at[0] == stops.sign[0] && at[1] == stops.sign[1] &&
         at[4] == stops.sign[2];
}

#ifdef __x86_64__

__attribute__((target("avx2"), always_inline)) inline __m256i Load(const char* at) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
}

__attribute__((target("avx2"), always_inline)) inline __m256i Equal(__m256i bytes, char value) {
  return _mm256_cmpeq_epi8(bytes, _mm256_set1_epi8(value));
}

__attribute__((target("avx2"), always_inline)) inline std::uint64_t Bits(__m256i low,
                                                                         __m256i high) {
  const auto lowBits = static_cast<std::uint32_t>(_mm256_movemask_epi8(low));
  const auto highBits = static_cast<std::uint32_t>(_mm256_movemask_epi8(high));
  return lowBits | std::uint64_t{highBits} << 32;
}

// The compiler unrolls the loops over constant counts and keeps the values in registers.
template <std::size_t ByteCount, bool WithPairs, bool WithSign, bool WithLines>
__attribute__((target("avx2"))) void MakeMasksWithAvx2(const char* bytes, std::size_t count,
                                                       const StopSet& stops, BlockMasks* masks) {
  const __m256i zero = _mm256_setzero_si256();
  for (std::size_t block = 0; block < count; ++block, bytes += kBlockSize) {
    const __m256i low = Load(bytes);
    const __m256i high = Load(bytes + 32);
    __m256i lowStops = zero;
    __m256i highStops = zero;
    for (std::size_t i = 0; i < ByteCount; ++i) {
      lowStops = _mm256_or_si256(lowStops, Equal(low, stops.bytes[i]));
      highStops = _mm256_or_si256(highStops, Equal(high, stops.bytes[i]));
    }
    if constexpr (WithPairs) {
      const __m256i lowNext = Load(bytes + 1);
      const __m256i highNext = Load(bytes + 33);
      for (std::size_t i = 0; i < stops.pairCount; ++i) {
        const auto [first, second] = stops.pairs[i];
        lowStops =
            _mm256_or_si256(lowStops, _mm256_and_si256(Equal(low, first), Equal(lowNext, second)));
        highStops = _mm256_or_si256(highStops,
                                    _mm256_and_si256(Equal(high, first), Equal(highNext, second)));
      }
    }
    if constexpr (WithSign) {
      const auto [at0, at1, at4] = stops.sign;
      lowStops = _mm256_or_si256(
          lowStops,
          _mm256_and_si256(Equal(low, at0), _mm256_and_si256(Equal(Load(bytes + 1), at1),
                                                             Equal(Load(bytes + 4), at4))));
      highStops = _mm256_or_si256(
          highStops,
          _mm256_and_si256(Equal(high, at0), _mm256_and_si256(Equal(Load(bytes + 33), at1),
                                                              Equal(Load(bytes + 36), at4))));
    }
    masks[block] = {Bits(Equal(low, '('), Equal(high, '(')),
                    Bits(Equal(low, ')'), Equal(high, ')')), Bits(lowStops, highStops),
                    WithLines ? Bits(Equal(low, stops.lineEnd), Equal(high, stops.lineEnd)) : 0};
  }
}

template <bool... With, std::size_t... Counts>
constexpr auto MakersFor(std::index_sequence<Counts...>) {
  return std::array<MaskMaker, sizeof...(Counts)>{MakeMasksWithAvx2<Counts, With...>...};
}

template <bool... With>
void Dispatch(const char* bytes, std::size_t count, const StopSet& stops, BlockMasks* masks) {
  static constexpr auto kMakers =
      MakersFor<With...>(std::make_index_sequence<StopSet::kMostBytes + 1>());
  kMakers[stops.byteCount](bytes, count, stops, masks);
}

// Indexed by what is wanted beside single bytes: pairs 1, the sign 2, line ends 4.
constexpr std::array<MaskMaker, 8> kDispatchers = {
    Dispatch<false, false, false>, Dispatch<true, false, false>, Dispatch<false, true, false>,
    Dispatch<true, true, false>,   Dispatch<false, false, true>, Dispatch<true, false, true>,
    Dispatch<false, true, true>,   Dispatch<true, true, true>};

void MakeMasksForAvx2(const char* bytes, std::size_t count, const StopSet& stops,
                      BlockMasks* masks) {
  const unsigned wanted = 1U * (stops.pairCount > 0) + 2U * stops.hasSign + 4U * stops.hasLineEnd;
  kDispatchers[wanted](bytes, count, stops, masks);
}

#endif

}  // namespace

void StopSet::addByte(char byte) {
  if (contains(byte)) return;
  assert(byteCount < kMostBytes);
  bytes[byteCount++] = byte;
}

void StopSet::addPair(char first, char second) {
  assert(pairCount < kMostPairs);
  pairs[pairCount++] = {first, second};
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
      switch (meanings[static_cast<unsigned char>(bytes[place])]) {
        case kOpen:
          made.open |= bit;
          break;
        case kClose:
          made.close |= bit;
          break;
        case kStop:
          made.stop |= bit;
          break;
        case kLine:
          made.line |= bit;
          break;
        case kBegins:
          if (BeginsSomething(bytes + place, stops)) made.stop |= bit;
          break;
        default:
          break;
      }
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
