// Reed-Solomon check words over GF(256) with x^8 + x^4 + x^3 + x^2 + 1, as QR Code and its
// relatives have them.
#pragma once

#include <cstdint>
#include <vector>

namespace Library {

// The data with check words for each of `blocks` blocks, which are interleaved word by word; the
// last blocks hold one word of data more where they are not all alike.
// REQUIRES: 1 <= blocks <= data.size(), a block is less than 256 words.
std::vector<std::uint8_t> WithQrCheckWords(const std::vector<std::uint8_t>& data, int blocks,
                                           int checkWordsPerBlock);

}  // namespace Library
