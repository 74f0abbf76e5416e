// GS1 element strings, in either of two forms:
//
//   (01)09501101530003(10)ABC      identifiers in parentheses; identifiers, lengths, characters,
//                                  dates and check digits are verified, code-set switches of a
//                                  format string are dropped
//   010950110153000310ABC<FNC1>21  raw: fields separated by FNC1, taken as they are
//
// A parenthesis is data unless it encloses an identifier that exists.
#pragma once

#include "library/prepare/PreparedData.h"

namespace Library {

struct ElementString {
  Data data;         // as encoded: FNC1 where a separator is needed, none in front or behind
  std::string text;  // identifiers in parentheses
};

// A wrong check digit is replaced when `autoCorrect` is set. Throws Error with BC_E_INVALIDDATA at
// the character. REQUIRES: bytes of the GS1 character set and function characters only.
ElementString ParseElementString(const Data& data, bool autoCorrect);

// Whether an element may begin at the place: it has an identifier in parentheses, or follows a
// separator. REQUIRES: at < data.size().
bool BeginsElement(const Data& data, std::size_t at);

}  // namespace Library
