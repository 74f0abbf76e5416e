#include "library/symbology/QrCheckWords.h"

#include <array>
#include <cstddef>

namespace Library {
namespace {

using Words = std::vector<std::uint8_t>;

struct Tables {
  constexpr Tables() {
    unsigned value = 1;
    for (std::size_t i = 0; i < kOrder; ++i) {
      power[i] = power[i + kOrder] = static_cast<std::uint8_t>(value);
      logarithm[value] = static_cast<std::uint8_t>(i);
      value <<= 1;
      if (value > 255) value ^= 0x11D;
    }
  }
  static constexpr std::size_t kOrder = 255;
  std::array<std::uint8_t, 2 * kOrder> power{};  // of 2, twice: sums of logarithms need no modulus
  std::array<std::uint8_t, 256> logarithm{};
};
constexpr Tables kTables;

std::uint8_t Product(std::uint8_t a, std::uint8_t b) {
  if (a == 0 || b == 0) return 0;
  return kTables.power[std::size_t{kTables.logarithm[a]} + kTables.logarithm[b]];
}

// Logarithms of the product of x - 2^i for i below `degree`, highest power first and without its 1.
// No coefficient of one is 0.
Words GeneratorLogarithms(std::size_t degree) {
  Words generator(degree);
  for (std::size_t root = 0; root < degree; ++root) {
    std::uint8_t before = 1;
    for (std::size_t i = 0; i <= root; ++i) {
      const std::uint8_t old = generator[i];
      generator[i] = static_cast<std::uint8_t>(old ^ Product(before, kTables.power[root]));
      before = old;
    }
  }
  for (std::uint8_t& coefficient : generator) coefficient = kTables.logarithm[coefficient];
  return generator;
}

// The remainder of the data by the generator, written to every `step`th place from `check` on.
void Divide(const std::uint8_t* data, std::size_t length, const Words& generator,
            std::uint8_t* check, std::size_t step) {
  std::array<std::uint8_t, 256> remainder{};
  const std::size_t degree = generator.size();
  for (std::size_t word = 0; word < length; ++word) {
    const auto factor = static_cast<std::uint8_t>(data[word] ^ remainder[0]);
    for (std::size_t i = 0; i + 1 < degree; ++i) remainder[i] = remainder[i + 1];
    remainder[degree - 1] = 0;
    if (factor == 0) continue;
    const std::size_t logarithm = kTables.logarithm[factor];
    for (std::size_t i = 0; i < degree; ++i) {
      remainder[i] ^= kTables.power[logarithm + generator[i]];
    }
  }
  for (std::size_t i = 0; i < degree; ++i) check[i * step] = remainder[i];
}

}  // namespace

std::vector<std::uint8_t> WithQrCheckWords(const std::vector<std::uint8_t>& data, int blocks,
                                           int checkWordsPerBlock) {
  const auto count = static_cast<std::size_t>(blocks);
  const Words generator = GeneratorLogarithms(static_cast<std::size_t>(checkWordsPerBlock));
  const std::size_t shortLength = data.size() / count;
  const std::size_t longBlocks = data.size() % count;
  const std::size_t shortBlocks = count - longBlocks;

  Words words(data.size() + count * generator.size());
  const std::uint8_t* block = data.data();
  for (std::size_t b = 0; b < count; ++b) {
    const bool isLong = b >= shortBlocks;
    const std::size_t length = shortLength + (isLong ? 1 : 0);
    for (std::size_t i = 0; i < shortLength; ++i) words[i * count + b] = block[i];
    if (isLong) words[shortLength * count + b - shortBlocks] = block[shortLength];
    Divide(block, length, generator, &words[data.size() + b], count);
    block += length;
  }
  return words;
}

}  // namespace Library
