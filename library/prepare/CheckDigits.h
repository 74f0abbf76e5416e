// Check digits: the methods by number, and how a symbology uses them.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace Library {

// A set of method numbers, 0 to 63.
struct CheckMethods {
  std::uint64_t bits = 0;

  constexpr CheckMethods(std::initializer_list<int> numbers) {
    for (const int number : numbers) bits |= std::uint64_t{1} << number;
  }
  constexpr bool allow(int number) const {
    return number >= 0 && number < 64 && ((bits >> number) & 1) != 0;
  }
};

enum class CheckKind {
  kOptional,  // the method set appends to the data; 1 stands for the standard's, if it has one
  kOptionalBuiltIn,  // as kOptional, but the encoder puts them where they belong
  kLast,             // the last place of data of fixed length: verified when given, else computed
  kBuiltIn,          // symbol characters outside the data, made by the encoder
};

struct CheckRule {
  CheckKind kind;
  int standardMethod;  // what method 1 stands for, 0: none
  int digits;          // that the standard method adds
  CheckMethods methods;
  // kLast: length with the check digit of data that may go on with a plus sign and an add-on; 0:
  // there is no add-on, the type's fixed length.
  int mainLength = 0;
};

// Numbers of methods that encoders compute by.
inline constexpr int kDpdMod36 = 29, kUpuS10 = 36;

// Number of check digits that `rule` adds under `method`; 0 also where the method is not allowed.
int CheckDigitCount(const CheckRule& rule, int method);

// The check digits of `data` by a method that appends characters. Throws Error with
// BC_E_INVALIDDATA: position is the index in `data` of a character that the method knows no value
// for; where the data as a whole have no check digit (mod 11 remainder 10) it is 0 for a PZN, of
// which such numbers are none, else -1.
std::string ComputeCheckDigits(int method, std::string_view data);

}  // namespace Library
