// GS1 application identifiers (GS1 General Specifications, section 3).
#pragma once

#include <string_view>

namespace Library {

// What may stand behind an application identifier: parts one after the other, separated by blanks.
// A part is a letter, a length and, where it holds them, what is checked besides:
//
//   N digits, X characters of the 82, Y of the 39, Z of the file-safe base64 set
//   6 exactly six, ..20 up to twenty (at least one)
//   c ends in a mod 10 check digit, d is a date YYMMDD whose day may be 00
//   ? may be left out
struct ApplicationIdentifier {
  int first, last;  // numbers, both ends included
  int digits;       // of the identifier itself
  std::string_view content;
  int lastDigit = 9;  // the largest, where it tells the decimal places
};

// The identifier that `text` begins with, null: none.
const ApplicationIdentifier* FindApplicationIdentifier(std::string_view text);

// Characters of identifier and value together where `text` begins with one of the identifiers
// whose length is predefined, so that no separator follows; 0: any other.
int PredefinedLength(std::string_view text);

}  // namespace Library
