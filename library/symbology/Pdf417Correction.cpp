// Reed-Solomon error correction over the integers modulo 929 (ISO/IEC 15438 5.10,
// ISO/IEC 24728 5.10).
#include "library/symbology/Pdf417.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Library {
namespace {

constexpr std::uint32_t kModulus = kPdf417Values;

// The generator (x - 3)(x - 9)...(x - 3^count) without its first coefficient, 1, and negated, so
// that the remainder takes additions only; the coefficient of the highest power first.
template <std::size_t kCount>
constexpr std::array<std::uint16_t, kCount> NegatedGenerator() {
  std::array<std::uint32_t, kCount + 1> product{1};
  std::uint32_t root = 1;
  for (std::size_t degree = 1; degree <= kCount; ++degree) {
    root = root * 3 % kModulus;
    for (std::size_t i = degree; i > 0; --i) {
      product[i] = (product[i] + (kModulus - root) * product[i - 1]) % kModulus;
    }
  }
  std::array<std::uint16_t, kCount> negated{};
  for (std::size_t i = 0; i < kCount; ++i) {
    negated[i] = static_cast<std::uint16_t>((kModulus - product[i + 1]) % kModulus);
  }
  return negated;
}

template <std::size_t kCount>
constexpr auto kNegatedGenerator = NegatedGenerator<kCount>();

struct Generator {
  std::size_t count;
  const std::uint16_t* coefficients;
};

template <std::size_t... kCounts>
constexpr std::array<Generator, sizeof...(kCounts)> Generators() {
  return {{{kCounts, kNegatedGenerator<kCounts>.data()}...}};
}

constexpr std::size_t kMostWords = Pdf417CorrectionWords(kMaxPdf417Level);
constexpr auto kGenerators = Generators<2, 4, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 18, 21, 26, 32,
                                        38, 44, 50, 64, 128, 256, kMostWords>();

}  // namespace

void AppendPdf417Correction(CodeWords& words, int count) {
  const auto found = std::find_if(kGenerators.begin(), kGenerators.end(), [count](const auto& row) {
    return row.count == static_cast<std::size_t>(count);
  });
  const auto& [length, generator] = *found;
  // One place more than it has, always 0: what moves up behind the last.
  std::array<std::uint32_t, kMostWords + 1> rest{};
  for (const std::uint16_t word : words) {
    const std::uint32_t factor = (word + rest[0]) % kModulus;
    for (std::size_t i = 0; i < length; ++i) {
      rest[i] = (rest[i + 1] + factor * generator[i]) % kModulus;
    }
  }
  words.reserve(words.size() + length);
  for (std::size_t i = 0; i < length; ++i) {
    words.push_back(static_cast<std::uint16_t>((kModulus - rest[i]) % kModulus));
  }
}

}  // namespace Library
