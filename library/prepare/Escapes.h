// Escape sequences in the caller's data:
//
//   \a \b \e \f \n \r \t \v    control characters
//   \\ \"                      the character itself
//   \xHH                       two hexadecimal digits
//   \ddd                       three octal digits
//
// An unknown or unfinished escape, and an octal value above 377, stays as it is.
#pragma once

#include "library/prepare/PreparedData.h"

#include <string_view>

namespace Library {

enum class FunctionCharacters {
  kNone,   // octal 210 to 213 are the bytes 88h to 8Bh
  kOctal,  // octal 210 to 213 stand for FNC1 to FNC4; the bytes are still written as \x88 to \x8B
};

// A character made of an escape has the place of the backslash.
Data TranslateEscapes(std::string_view text, FunctionCharacters functions);

// The bytes as they are.
Data RawData(std::string_view text);

}  // namespace Library
