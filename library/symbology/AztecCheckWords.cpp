#include "library/symbology/AztecCheckWords.h"

#include <array>
#include <cstddef>

namespace Library {
namespace {

// Powers of 2 and their logarithms in GF(2^bits). The sum of two logarithms is an index of the
// powers: these stand there twice, and zeros behind them, where the logarithm of 0 leads to.
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

struct Field {
  const std::uint16_t* power;
  const std::uint16_t* logarithm;
};

template <int bits, int polynomial>
Field FieldOf() {
  static constexpr Tables<bits, polynomial> kTables;
  return {kTables.power.data(), kTables.logarithm.data()};
}

Field FieldFor(int wordBits) {
  switch (wordBits) {
    case 4:
      return FieldOf<4, 0x13>();
    case 6:
      return FieldOf<6, 0x43>();
    case 8:
      return FieldOf<8, 0x12D>();
    case 10:
      return FieldOf<10, 0x409>();
    default:
      return FieldOf<12, 0x1069>();
  }
}

// The product of x - 2^(first + i) for i below `degree`, highest power first and without its 1.
std::vector<std::uint16_t> Generator(const Field& field, std::size_t degree, std::size_t first) {
  std::vector<std::uint16_t> generator(degree);
  for (std::size_t root = 0; root < degree; ++root) {
    std::uint16_t before = 1;
    for (std::size_t i = 0; i <= root; ++i) {
      const std::uint16_t old = generator[i];
      generator[i] = old ^ field.power[field.logarithm[before] + first + root];
      before = old;
    }
  }
  return generator;
}

}  // namespace

std::vector<std::uint16_t> AztecCheckWords(const std::vector<std::uint16_t>& data, int count,
                                           int wordBits, int firstRoot) {
  const Field field = FieldFor(wordBits);
  const auto degree = static_cast<std::size_t>(count);
  const std::vector<std::uint16_t> generator =
      Generator(field, degree, static_cast<std::size_t>(firstRoot));
  std::vector<std::uint16_t> logarithms(degree);
  for (std::size_t i = 0; i < degree; ++i) logarithms[i] = field.logarithm[generator[i]];
  std::vector<std::uint16_t> remainder(degree + 1);  // a zero behind, which moves up
  for (const std::uint16_t word : data) {
    const std::uint16_t factor = word ^ remainder[0];
    const std::uint16_t* const multiples = field.power + field.logarithm[factor];
    for (std::size_t i = 0; i < degree; ++i) {
      remainder[i] = remainder[i + 1] ^ multiples[logarithms[i]];
    }
  }
  remainder.pop_back();
  return remainder;
}

}  // namespace Library
