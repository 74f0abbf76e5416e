// What ties the symbols of a grid together, so that a reader can put the message in order again.
//
//   none      nothing: the reader gets the parts as they come
//   standard  the symbology's own structured append: number, count, and an id of the message
//   own       eight characters in front of each part: VXA1, then the symbol's number from 01 and
//             the count, two digits each
#pragma once

#include "library/Options.h"
#include "library/prepare/PreparedData.h"

#include <cstdint>

namespace Library {

struct StructuredAppend;

class Append {
 public:
  // The message gets what only the whole has: the plus sign and the check character of HIBC. Throws
  // Error with BC_E_NOTSUPPORTED where the type has no structured append, or cannot hold the eight
  // characters.
  Append(const Options& options, Data& message);

  int maxSymbols() const;

  // Writes the place of symbol `index`, from 1, into its options and data. The room that this takes
  // in a symbol is the same for every place but the last, which may take more. A lone symbol is
  // marked by the own method only.
  // REQUIRES: settings are those that Append was made with, or marked by it since.
  void mark(int index, int count, Options& settings, Data& part) const;

 private:
  const StructuredAppend* standard = nullptr;
  bool own = false;
  std::string format;       // of the options as they were
  std::uint8_t parity = 0;  // of all bytes of the message
  std::uint32_t id = 0;     // of the message
};

}  // namespace Library
