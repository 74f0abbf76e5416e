// Structured append as symbologies have it: one message in several symbols that readers join.
#pragma once

#include <cstdint>
#include <string>

namespace Library {

struct Options;

// Where a symbol stands among those of its message.
struct AppendPlace {
  int index, count;     // from 1
  std::uint8_t parity;  // exclusive or of all bytes of the message
  std::uint32_t id;     // alike in all symbols of a message
};

struct StructuredAppend {
  int maxSymbols;
  // Sets the symbology's own options for one symbol. An id that is set stays. Null: it has none.
  void (*place)(Options& options, const AppendPlace& place) = nullptr;
};

extern const StructuredAppend kPdf417Append, kQrCodeAppend, kDataMatrixAppend, kAztecAppend,
    kMaxiCodeAppend, kDotCodeAppend, kCodeOneAppend;

// `value` with zeros in front, `length` digits.
std::string FixedDigits(int value, int length);

}  // namespace Library
