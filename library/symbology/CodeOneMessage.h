// The data of a Code One symbol as code words: the encodation schemes of AIM USS Code One, which
// Data Matrix took over but for one that packs three digits in ten bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace Library {

struct CodeOneContent {
  std::vector<std::uint16_t> header;      // code words in front of everything
  std::vector<std::uint16_t> characters;  // bytes
};

// A message as exactly `capacity` code words, padded; none when it takes more.
using CodeOneMessage = std::function<std::vector<std::uint16_t>(std::size_t capacity)>;

// Finds the fewest code words for every place of the data. The message refers to the content.
CodeOneMessage FindCodeOneMessage(const CodeOneContent& content);

}  // namespace Library
