// The encodation schemes of Data Matrix (ISO/IEC 16022): how characters become code words.
#pragma once

#include "library/symbology/DataMatrixMessage.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Library {

enum class DataMatrixScheme : std::uint8_t { kAscii, kC40, kText, kX12, kEdifact, kBase256 };

// Bytes in a row of Base 256 that one word of length tells, and two.
inline constexpr std::size_t kDataMatrixShortRun = 249, kDataMatrixLongestRun = 1555;

// Values that a character takes in a scheme that packs values; 0: it has none there.
int DataMatrixValueCount(DataMatrixScheme scheme, std::uint16_t character);

// Adds characters in C40, Text or X12, three values in two words. One value that is missing at the
// end is a shift.
void AppendDataMatrixTriples(DataMatrixScheme scheme, std::span<const std::uint16_t> characters,
                             std::vector<std::uint16_t>& words);

// Words of the characters from `first` on in ASCII, digits in pairs.
std::size_t DataMatrixAsciiWords(const std::vector<std::uint16_t>& characters, std::size_t first);

struct DataMatrixTail {
  std::size_t place = 0;  // where the characters that need no change to ASCII begin
  bool open = false;      // the last scheme in front of it is not left
};

// The message in these schemes, one for each character, padded.
// REQUIRES: it takes no more than `capacity` words; schemes are left where they can be.
std::vector<std::uint16_t> WriteDataMatrix(const DataMatrixContent& content,
                                           const std::vector<DataMatrixScheme>& schemes,
                                           const DataMatrixTail& tail, std::size_t capacity);

}  // namespace Library
