#include "library/prepare/CheckDigits.h"

#include "library/Error.h"
#include "library/prepare/CharacterSet.h"

#include <iterator>

namespace Library {
namespace {

constexpr std::string_view kCode39Alphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";

int Digit(char character) {
  return character - '0';
}
char DigitFor(int sum) {
  return static_cast<char>('0' + (10 - sum % 10) % 10);
}

// Sum of the digits times `last`, `other`, `last`, ... from the right.
int AlternatingSum(std::string_view data, int last, int other) {
  int sum = 0;
  bool odd = true;
  for (auto it = data.rbegin(); it != data.rend(); ++it, odd = !odd) {
    sum += Digit(*it) * (odd ? last : other);
  }
  return sum;
}

// EAN, UPC, 2 of 5 (GS1 General Specifications 7.9).
std::string Mod10(std::string_view data) {
  return {DigitFor(AlternatingSum(data, 3, 1))};
}

// Leitcode and Identcode.
std::string Mod10Post(std::string_view data) {
  return {DigitFor(AlternatingSum(data, 4, 9))};
}

std::string Luhn(std::string_view data) {
  int sum = 0;
  bool doubled = true;
  for (auto it = data.rbegin(); it != data.rend(); ++it, doubled = !doubled) {
    const int product = Digit(*it) * (doubled ? 2 : 1);
    sum += product / 10 + product % 10;
  }
  return {DigitFor(sum)};
}

// Code 39 (ISO/IEC 16388 annex A).
std::string Mod43(std::string_view data) {
  std::size_t sum = 0;
  for (const char character : data) sum += kCode39Alphabet.find(character);
  return {kCode39Alphabet[sum % kCode39Alphabet.size()]};
}

// What completes the digits times 2, 3, .. `lastWeight`, 2, .. from the right to a multiple of 11.
int Mod11Value(std::string_view data, int lastWeight) {
  int sum = 0;
  int weight = 2;
  for (auto it = data.rbegin(); it != data.rend(); ++it) {
    sum = (sum + Digit(*it) * weight) % 11;
    weight = weight == lastWeight ? 2 : weight + 1;
  }
  return (11 - sum) % 11;
}

std::string Mod11(std::string_view data) {
  const int check = Mod11Value(data, 7);
  if (check == 10) throw Error(BC_E_INVALIDDATA);
  return std::to_string(check);
}

// MSI knows the check digit 10, as two digits.
std::string Mod11Ibm(std::string_view data) {
  return std::to_string(Mod11Value(data, 7));
}
std::string Mod11Ncr(std::string_view data) {
  return std::to_string(Mod11Value(data, 9));
}

// First `First`, then Luhn over data and check digits.
template <std::string (*First)(std::string_view)>
std::string ThenLuhn(std::string_view data) {
  const std::string first = First(data);
  return first + Luhn(std::string(data) + first);
}

// ISBN-10 and ISSN (ISO 2108:1992, ISO 3297).
std::string Mod11WithX(std::string_view data) {
  const int check = Mod11Value(data, 10);
  return check == 10 ? "X" : std::to_string(check);
}

// Code 11: weights 1 to `lastWeight` from the right, the hyphen counts 10.
char Code11Check(std::string_view data, int lastWeight) {
  int sum = 0;
  int weight = 1;
  for (auto it = data.rbegin(); it != data.rend(); ++it) {
    sum += (*it == '-' ? 10 : Digit(*it)) * weight;
    weight = weight == lastWeight ? 1 : weight + 1;
  }
  return "0123456789-"[sum % 11];
}
std::string Code11One(std::string_view data) {
  return {Code11Check(data, 10)};
}
std::string Code11Two(std::string_view data) {
  const std::string first = Code11One(data);
  return first + Code11Check(std::string(data) + first, 9);
}

// Postal codes.
std::string Mod10Sum(std::string_view data) {
  return {DigitFor(AlternatingSum(data, 1, 1))};
}

// UPC-E: of the UPC-A number that the seven digits stand for.
std::string UpcE(std::string_view data) {
  const std::string_view digits = data.substr(1, 5);
  const char last = data[6];
  std::size_t kept = 5;  // of the digits; then zeros, and the others at the end
  if (last <= '2') kept = 2;
  if (last == '3' || last == '4') kept = static_cast<std::size_t>(Digit(last));
  std::string number(data.substr(0, 1 + kept));
  if (last <= '2') number += last;
  const std::string tail =
      std::string(digits.substr(kept)) + (kept == 5 ? std::string(1, last) : "");
  number.append(11 - number.size() - tail.size(), '0');
  return Mod10(number + tail);
}

// PZN8 has weights 1 to 7 from the left, PZN7 2 to 7.
std::string Pzn(std::string_view data) {
  int weight = data.size() == 6 ? 2 : 1;
  int sum = 0;
  for (const char digit : data) sum += Digit(digit) * weight++;
  if (sum % 11 == 10) throw Error(BC_E_INVALIDDATA, DataIndex(0));
  return std::to_string(sum % 11);
}

// Codabar's mod 16 over start, data and stop characters.
std::string Mod16(std::string_view data) {
  constexpr std::string_view kAlphabet = "0123456789-$:/.+ABCD";
  std::size_t sum = 0;
  for (const char character : data) sum += kAlphabet.find(character);
  return {kAlphabet[(16 - sum % 16) % 16]};
}

// Weights 1, 2, 1, .. from the left, digits of the products summed.
std::string Code32(std::string_view data) {
  int sum = 0;
  for (std::size_t i = 0; i < data.size(); ++i) {
    const int product = Digit(data[i]) * (i % 2 == 0 ? 1 : 2);
    sum += product / 10 + product % 10;
  }
  return std::to_string(sum % 10);
}

// Vehicle identification numbers (49 CFR 565.15), whose ninth character is the check digit.
std::string Vin(std::string_view data) {
  constexpr std::string_view kLetterValues = "12345678 12345 7 923456789";  // A to Z
  constexpr int kWeights[] = {8, 7, 6, 5, 4, 3, 2, 10, 0, 9, 8, 7, 6, 5, 4, 3, 2};
  int sum = 0;
  for (std::size_t i = 0; i < data.size() && i < std::size(kWeights); ++i) {
    const char character = data[i];
    const bool letter = character >= 'A';
    sum += kWeights[i] *
           Digit(letter ? kLetterValues[static_cast<std::size_t>(character - 'A')] : character);
  }
  return {"0123456789X"[sum % 11]};
}

constexpr CharacterSet kCapitalsAndDigits = kDigits | CharacterSet::Range('A', 'Z');

// ISO/IEC 7064 MOD 37,36.
std::string Mod36(std::string_view data) {
  constexpr std::size_t kModulus = 36;
  std::size_t product = kModulus;
  for (const char character : data) {
    const std::size_t sum = (product + kCode39Alphabet.find(character)) % kModulus;
    product = (sum == 0 ? kModulus : sum) * 2 % (kModulus + 1);
  }
  return {kCode39Alphabet[(kModulus + 1 - product) % kModulus]};
}

std::string UpuS10(std::string_view data) {
  constexpr int kWeights[] = {8, 6, 4, 2, 3, 5, 9, 7};
  int sum = 0;
  for (std::size_t i = 0; i < data.size(); ++i) sum += Digit(data[i]) * kWeights[i % 8];
  const int check = 11 - sum % 11;
  return {static_cast<char>(check == 10 ? '0' : check == 11 ? '5' : '0' + check)};
}

struct CheckMethod {
  int number;
  int digits;
  const CharacterSet& characters;
  std::string (*compute)(std::string_view data);
};

constexpr CheckMethod kMethods[] = {
    {2, 1, kDigits, Mod10},                // mod 10
    {3, 1, kCode39Characters, Mod43},      // mod 43
    {5, 1, kDigits, Mod10Post},            // Leitcode
    {6, 1, kDigits, Mod10Post},            // Identcode
    {7, 1, kDigitsAndHyphen, Code11One},   // Code 11, one digit
    {8, 2, kDigitsAndHyphen, Code11Two},   // Code 11, two digits
    {9, 1, kDigits, Mod10Sum},             // POSTNET
    {10, 1, kDigits, Luhn},                // MSI, mod 10
    {11, 2, kDigits, ThenLuhn<Luhn>},      // MSI, mod 10 + mod 10
    {13, 1, kDigits, Mod10},               // EAN-8
    {14, 1, kDigits, Mod10},               // EAN-13
    {15, 1, kDigits, Mod10},               // UPC-A
    {16, 1, kDigits, UpcE},                // UPC-E
    {20, 1, kDigits, Pzn},                 // PZN
    {21, 1, kDigits, Mod11},               // mod 11, weights 2 to 7
    {22, 1, kDigits, Mod10},               // EAN-14
    {23, 1, kCodabarCharacters, Mod16},    // Codabar
    {24, 1, kDigits, Mod11Ibm},            // MSI, mod 11, weights 2 to 7
    {25, 2, kDigits, ThenLuhn<Mod11Ibm>},  // the same + mod 10
    {26, 1, kDigits, Mod11Ncr},            // MSI, mod 11, weights 2 to 9
    {27, 2, kDigits, ThenLuhn<Mod11Ncr>},  // the same + mod 10
    {28, 1, kDigits, Luhn},                // mod 10 Luhn
    {29, 1, kCapitalsAndDigits, Mod36},    // mod 36 DPD
    {31, 1, kDigits, Mod10Sum},            // Korea Post
    {32, 1, kDigits, Code32},              // Code 32
    {34, 1, kVinCharacters, Vin},          // VIN
    {35, 1, kDigits, Mod11WithX},          // ISBN-10, ISSN
    {36, 1, kDigits, UpuS10},              // UPU S10
};

const CheckMethod* FindMethod(int number) {
  for (const CheckMethod& method : kMethods) {
    if (method.number == number) return &method;
  }
  return nullptr;
}

}  // namespace

int CheckDigitCount(const CheckRule& rule, int method) {
  if (!rule.methods.allow(method)) return 0;
  const bool optional =
      rule.kind == CheckKind::kOptional || rule.kind == CheckKind::kOptionalBuiltIn;
  if (!optional || method == 1) return rule.digits;
  const CheckMethod* const found = FindMethod(method);
  return found == nullptr ? 0 : found->digits;
}

std::string ComputeCheckDigits(int method, std::string_view data) {
  const CheckMethod* const found = FindMethod(method);
  if (found == nullptr) throw Error(BC_E_INVALIDARG);
  for (std::size_t i = 0; i < data.size(); ++i) {
    if (!found->characters.contains(static_cast<unsigned char>(data[i]))) {
      throw Error(BC_E_INVALIDDATA, DataIndex(static_cast<int>(i)));
    }
  }
  return found->compute(data);
}

}  // namespace Library
