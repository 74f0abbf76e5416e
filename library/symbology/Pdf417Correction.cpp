// Reed-Solomon error correction over the integers modulo 929 (ISO/IEC 15438 5.10).
#include "library/symbology/Pdf417.h"

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

constexpr auto kGenerator0 = NegatedGenerator<2>();
constexpr auto kGenerator1 = NegatedGenerator<4>();
constexpr auto kGenerator2 = NegatedGenerator<8>();
constexpr auto kGenerator3 = NegatedGenerator<16>();
constexpr auto kGenerator4 = NegatedGenerator<32>();
constexpr auto kGenerator5 = NegatedGenerator<64>();
constexpr auto kGenerator6 = NegatedGenerator<128>();
constexpr auto kGenerator7 = NegatedGenerator<256>();
constexpr auto kGenerator8 = NegatedGenerator<512>();
constexpr const std::uint16_t* kGenerators[] = {
    kGenerator0.data(), kGenerator1.data(), kGenerator2.data(),
    kGenerator3.data(), kGenerator4.data(), kGenerator5.data(),
    kGenerator6.data(), kGenerator7.data(), kGenerator8.data()};

}  // namespace

void AppendPdf417Correction(CodeWords& words, int level) {
  const auto count = static_cast<std::size_t>(Pdf417CorrectionWords(level));
  const std::uint16_t* const generator = kGenerators[level];
  // One place more than it has, always 0: what moves up behind the last.
  std::array<std::uint32_t, (2 << kMaxPdf417Level) + 1> rest{};
  for (const std::uint16_t word : words) {
    const std::uint32_t factor = (word + rest[0]) % kModulus;
    for (std::size_t i = 0; i < count; ++i) {
      rest[i] = (rest[i + 1] + factor * generator[i]) % kModulus;
    }
  }
  words.reserve(words.size() + count);
  for (std::size_t i = 0; i < count; ++i) {
    words.push_back(static_cast<std::uint16_t>((kModulus - rest[i]) % kModulus));
  }
}

}  // namespace Library
