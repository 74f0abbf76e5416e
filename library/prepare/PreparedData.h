// The caller's data on its way to the encoder: bytes, function characters and code-set switches,
// each with the place that it came from, so that an error can name it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Library {

// Values above the 256 bytes.
enum : std::uint16_t {
  kFnc1 = 256,
  kFnc2,
  kFnc3,
  kFnc4,
  kCodeSetA,  // switches ordered by a format string
  kCodeSetB,
  kCodeSetC,
  kCheckDigitPlace,  // of a format string; gone once the check digits are in
};

struct DataCharacter {
  std::uint16_t value = 0;
  std::int32_t source = -1;  // index in the caller's data; -1: added on the way

  bool isByte() const { return value < 256; }
  bool isDigit() const { return value >= '0' && value <= '9'; }
  bool isFunction() const { return value >= kFnc1 && value <= kFnc4; }
};

using Data = std::vector<DataCharacter>;

// The bytes, without function characters and switches.
std::string Bytes(const Data& data);

// What of the data a human reads: the printable Latin-1 characters.
std::string PrintableText(const Data& data);
void AppendPrintable(std::string& text, Data::const_iterator begin, Data::const_iterator end);

}  // namespace Library
