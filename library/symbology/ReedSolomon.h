// Reed-Solomon check words of matrix symbols.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Library {

// GF(2^n) by powers of 2, which generates it, and their logarithms. The sum of two logarithms is an
// index of the powers; the logarithm of 0 leads it to a 0.
struct GaloisField {
  const std::uint16_t* power;
  const std::uint16_t* logarithm;
  std::size_t order;  // the powers repeat after so many
};
extern const GaloisField kField16, kField64, kField256, kField1024, kField4096;
extern const GaloisField kQrField256;  // modulo another polynomial

class ReedSolomon {
 public:
  using Words = std::vector<std::uint16_t>;

  // The generator polynomial's roots are the powers of 2 from that of `firstRoot` on.
  ReedSolomon(const GaloisField& words, std::size_t checkWords, std::size_t firstRoot);

  // REQUIRES: data and check words are fewer than the field has numbers.
  Words checkWords(std::span<const std::uint16_t> data) const;

  // Adds those of all blocks. Word number i belongs to block i modulo the blocks, check words too.
  void addTo(Words& words, std::size_t blocks = 1) const;

 private:
  const GaloisField& field;
  Words generator;  // logarithms of its coefficients, highest power first and without its 1
};

}  // namespace Library
