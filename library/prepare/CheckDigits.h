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
  kOptional,  // the method set appends to the data; methods 0 and 1 append nothing
  kLast,      // the last place of data of fixed length: verified when given, else computed
  kBuiltIn,   // symbol characters outside the data, made by the encoder
};

struct CheckRule {
  CheckKind kind;
  int standardMethod;  // what method 1 stands for, 0: none
  int digits;          // that the standard method adds
  CheckMethods methods;
};

// Numbers of methods that encoders compute by.
inline constexpr int kDpdMod36 = 29, kUpuS10 = 36;

// Number of check digits that `rule` adds under `method`; 0 also where the method is not allowed.
int CheckDigitCount(const CheckRule& rule, int method);

// The check digits of `data` by a method that appends characters. Throws Error with
// BC_E_INVALIDDATA: position is the index in `data` of a character that the method knows no value
// for, or -1 where the data has no check digit (mod 11 remainder 10).
std::string ComputeCheckDigits(int method, std::string_view data);

}  // namespace Library
