// The data of a Data Matrix symbol as code words: the high-level encoding of ISO/IEC 16022.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace Library {

struct DataMatrixContent {
  std::vector<std::uint8_t> header;       // code words in front of everything
  std::vector<std::uint16_t> characters;  // bytes and kFnc1
  bool binary = false;                    // in Base 256 only
};

// A message as exactly `capacity` code words, padded; none when it takes more. What it takes
// depends on what is left of the symbol at its end.
using DataMatrixMessage = std::function<std::vector<std::uint16_t>(std::size_t capacity)>;

// Finds the fewest code words for every place of the data. The message refers to the content.
DataMatrixMessage FindDataMatrixMessage(const DataMatrixContent& content);

// The fewest code words for so many characters.
constexpr std::size_t LeastDataMatrixWords(std::size_t characters) {
  return characters / 2;
}

}  // namespace Library
