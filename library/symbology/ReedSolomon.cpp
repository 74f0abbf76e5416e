#include "library/symbology/ReedSolomon.h"

#include <array>

namespace Library {
namespace {

// The powers stand there twice, and zeros behind them, where the logarithm of 0 leads to.
template <int bits, int polynomial>
struct Tables {
  static constexpr std::size_t kOrder = (1U << bits) - 1;
  std::array<std::uint16_t, 4 * kOrder + 1> power{};
  std::array<std::uint16_t, kOrder + 1> logarithm{};

  constexpr Tables() {
    logarithm[0] = 2 * kOrder;
    unsigned value = 1;
    for (std::size_t i = 0; i < kOrder; ++i) {
      power[i] = power[i + kOrder] = static_cast<std::uint16_t>(value);
      logarithm[value] = static_cast<std::uint16_t>(i);
      value <<= 1;
      if (value > kOrder) value ^= polynomial;
    }
  }
};
template <int bits, int polynomial>
constexpr Tables<bits, polynomial> kTables;

template <int bits, int polynomial>
constexpr GaloisField kField = {kTables<bits, polynomial>.power.data(),
                                kTables<bits, polynomial>.logarithm.data(), (1U << bits) - 1};

}  // namespace

constinit const GaloisField kField16 = kField<4, 0x13>, kField64 = kField<6, 0x43>,
                            kField256 = kField<8, 0x12D>, kField1024 = kField<10, 0x409>,
                            kField4096 = kField<12, 0x1069>, kQrField256 = kField<8, 0x11D>;

// Coefficient i of the product of all x - 2^(first + j) for j below n is the one before it times
// 2^(first + i - 1) (2^(n - i + 1) - 1) / (2^i - 1): powers of 2 times Gaussian binomials.
ReedSolomon::ReedSolomon(const GaloisField& words, std::size_t checkWords, std::size_t firstRoot)
    : field(words) {
  const auto ofPowerLessOne = [this](std::size_t i) -> std::size_t {
    return field.logarithm[field.power[i] ^ 1];
  };
  generator.reserve(checkWords);
  std::size_t logarithm = 0;
  for (std::size_t i = 1; i <= checkWords; ++i) {
    logarithm += firstRoot + i - 1 + ofPowerLessOne(checkWords - i + 1);
    logarithm = (logarithm + field.order - ofPowerLessOne(i)) % field.order;
    generator.push_back(static_cast<std::uint16_t>(logarithm));
  }
}

ReedSolomon::Words ReedSolomon::checkWords(std::span<const std::uint16_t> data) const {
  const std::size_t degree = generator.size();
  Words remainder(degree + 1);  // a zero behind, which moves up
  for (const std::uint16_t word : data) {
    const std::uint16_t factor = word ^ remainder[0];
    const std::uint16_t* const multiples = field.power + field.logarithm[factor];
    for (std::size_t i = 0; i < degree; ++i) {
      remainder[i] = remainder[i + 1] ^ multiples[generator[i]];
    }
  }
  remainder.pop_back();
  return remainder;
}

void ReedSolomon::addTo(Words& words, std::size_t blocks) const {
  const std::size_t dataWords = words.size();
  words.resize(dataWords + blocks * generator.size());
  Words data;
  data.reserve(dataWords / blocks + 1);
  for (std::size_t block = 0; block < blocks; ++block) {
    data.clear();
    std::size_t place = block;
    for (; place < dataWords; place += blocks) data.push_back(words[place]);
    for (const std::uint16_t check : checkWords(data)) {
      words[place] = check;
      place += blocks;
    }
  }
}

}  // namespace Library
