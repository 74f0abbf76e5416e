// One function for each kind of option value: text in, value out. True when the value is accepted.
// Numbers are stored before they are checked, so a refused one replaces the old value.
#pragma once

#include "settings/Values.h"

#include <limits>
#include <span>
#include <string_view>

namespace Settings {

// Both ends are allowed.
struct Range {
  int low = std::numeric_limits<int>::min();
  int high = std::numeric_limits<int>::max();

  constexpr bool holds(int number) const { return number >= low && number <= high; }
};

struct Keyword {
  std::string_view word;  // upper case
  int value;
};
using Keywords = std::span<const Keyword>;

// Tells the text of a real zero from one that reads as 0 because it holds no number.
using ZeroRule = bool (*)(std::string_view text);

bool ReadInteger(std::string_view text, Range range, int& value, ZeroRule isZero = TextIsZero);
// A length or position; a result within 1e-6 of zero needs the text of a zero.
bool ReadReal(std::string_view text, double& value, ZeroRule isZero = TextIsZero);
// As ReadReal, but only a result of exactly zero needs the text of a zero.
bool ReadRealExactZero(std::string_view text, double& value);
bool ReadPositiveReal(std::string_view text, double& value);
bool ReadNonNegativeReal(std::string_view text, double& value);
// A real number truncated toward zero; a truncated 0 needs the text of a zero.
bool ReadTruncatedReal(std::string_view text, int& value);
// The first byte, a letter A to Z.
bool ReadLetter(std::string_view text, char& value);
// Without regard to the case of ASCII letters. A refused word leaves the value as it was.
bool ReadKeyword(std::string_view text, Keywords keywords, int& value);

}  // namespace Settings
