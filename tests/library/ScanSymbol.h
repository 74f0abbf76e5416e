// Reads encoded symbols with ZXing from a bitmap of their modules.
#pragma once

#include "library/Options.h"
#include "library/symbology/Encode.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

struct Scanned {
  int type;            // of the symbol
  std::string format;  // ZXing's name, "None" when nothing was read
  std::string bytes;
  std::string identifier;  // "]C1"
  int sequenceIndex = -1, sequenceSize = -1;
  std::string sequenceId;
  bool readerProgramming = false;
  std::string withEci;  // as the reader transmits them, "]Q2\\000026" in front
};

Scanned Scan(const Library::Symbol& symbol);

// Whether ZXing read these bytes, which is noted for the table of all types.
testing::AssertionResult IsRead(const Scanned& scanned, const std::string& bytes);
testing::AssertionResult ReadsBack(const Library::Symbol& symbol, const std::string& bytes);

Library::Options OptionsFor(int type, const std::string& data);

// What Encode answers: a result code and the index of the character.
struct Refusal {
  BCResult code = BC_OK;
  int position = -1;

  bool operator==(const Refusal&) const = default;
  friend std::ostream& operator<<(std::ostream& stream, const Refusal& refusal) {
    return stream << std::hex << refusal.code << std::dec << " at " << refusal.position;
  }
};

Refusal RefusalOf(const Library::Options& options);
