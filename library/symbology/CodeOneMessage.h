// The data of a Code One symbol as code words: the encodation schemes of AIM USS Code One, which
// Data Matrix took over but for one that packs three digits in ten bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace Library {

struct CodeOneContent {
  std::vector<std::uint16_t> header;      // code words in front of everything
  std::vector<std::uint16_t> characters;  // bytes
};

class CodeOneMessage {
 public:
  using Words = std::vector<std::uint16_t>;

  // Finds the fewest code words for every place of the data.
  explicit CodeOneMessage(const CodeOneContent& content);
  ~CodeOneMessage();
  CodeOneMessage(const CodeOneMessage&) = delete;
  CodeOneMessage& operator=(const CodeOneMessage&) = delete;

  // Exactly `capacity` code words, padded; none when the message takes more.
  Words words(std::size_t capacity) const;

 private:
  class Search;
  std::unique_ptr<const Search> search;
};

}  // namespace Library
