// Reed-Solomon check words over the fields of Aztec symbols (ISO/IEC 24778): GF(16) of the mode
// message, GF(64) to GF(4096) of the words. Data Matrix (ISO/IEC 16022) has the one of 8 bits, too,
// and so has Code One, whose first root is the power 0.
#pragma once

#include <cstdint>
#include <vector>

namespace Library {

// REQUIRES: wordBits is 4, 6, 8, 10 or 12, and data and check words are fewer than 1 << wordBits.
std::vector<std::uint16_t> AztecCheckWords(const std::vector<std::uint16_t>& data, int count,
                                           int wordBits, int firstRoot = 1);

}  // namespace Library
