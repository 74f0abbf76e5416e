#include "library/symbology/QrCheckWords.h"

#include "library/symbology/ReedSolomon.h"

#include <cstddef>

namespace Library {

std::vector<std::uint8_t> WithQrCheckWords(const std::vector<std::uint8_t>& data, int blocks,
                                           int checkWordsPerBlock) {
  const auto count = static_cast<std::size_t>(blocks);
  const auto checkWords = static_cast<std::size_t>(checkWordsPerBlock);
  const ReedSolomon code(kQrField256, checkWords, 0);
  const std::size_t shortLength = data.size() / count;
  const std::size_t shortBlocks = count - data.size() % count;

  std::vector<std::uint8_t> words(data.size() + count * checkWords);
  auto next = data.begin();
  for (std::size_t b = 0; b < count; ++b) {
    const bool isLong = b >= shortBlocks;
    const ReedSolomon::Words block(next, next + static_cast<std::ptrdiff_t>(shortLength) + isLong);
    next += std::ssize(block);
    const auto byte = [](std::uint16_t word) { return static_cast<std::uint8_t>(word); };
    for (std::size_t i = 0; i < shortLength; ++i) words[i * count + b] = byte(block[i]);
    if (isLong) words[shortLength * count + b - shortBlocks] = byte(block[shortLength]);
    std::size_t place = data.size() + b;
    for (const std::uint16_t check : code.checkWords(block)) {
      words[place] = byte(check);
      place += count;
    }
  }
  return words;
}

}  // namespace Library
