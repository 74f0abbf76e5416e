// The data of a Data Matrix symbol as code words: the high-level encoding of ISO/IEC 16022.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace Library {

struct DataMatrixContent {
  std::vector<std::uint8_t> header;       // code words in front of everything
  std::vector<std::uint16_t> characters;  // bytes and kFnc1
  bool binary = false;                    // in Base 256 only
};

class DataMatrixMessage {
 public:
  using Words = std::vector<std::uint16_t>;

  // Finds the fewest code words for every place of the data.
  explicit DataMatrixMessage(const DataMatrixContent& content);
  ~DataMatrixMessage();
  DataMatrixMessage(const DataMatrixMessage&) = delete;
  DataMatrixMessage& operator=(const DataMatrixMessage&) = delete;

  // Exactly `capacity` code words, padded; none when the message takes more. What a message takes
  // depends on what is left of the symbol at its end.
  Words words(std::size_t capacity) const;

  // The fewest code words for so many characters.
  static std::size_t leastWords(std::size_t characters) { return characters / 2; }

 private:
  class Search;
  std::unique_ptr<const Search> search;
};

}  // namespace Library
