#include "library/prepare/CheckDigits.h"

#include "library/Error.h"
#include "library/prepare/CharacterSet.h"

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

// Weights 2 to 7 from the right, over and over.
std::string Mod11(std::string_view data) {
  int sum = 0;
  int weight = 2;
  for (auto it = data.rbegin(); it != data.rend(); ++it) {
    sum += Digit(*it) * weight;
    weight = weight == 7 ? 2 : weight + 1;
    sum %= 11;
  }
  const int check = (11 - sum) % 11;
  if (check == 10) throw Error(BC_E_INVALIDDATA);
  return {static_cast<char>('0' + check)};
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
    {2, 1, kDigits, Mod10},              // mod 10
    {3, 1, kCode39Characters, Mod43},    // mod 43
    {5, 1, kDigits, Mod10Post},          // Leitcode
    {6, 1, kDigits, Mod10Post},          // Identcode
    {13, 1, kDigits, Mod10},             // EAN-8
    {14, 1, kDigits, Mod10},             // EAN-13
    {15, 1, kDigits, Mod10},             // UPC-A
    {21, 1, kDigits, Mod11},             // mod 11, weights 2 to 7
    {28, 1, kDigits, Luhn},              // mod 10 Luhn
    {29, 1, kCapitalsAndDigits, Mod36},  // mod 36 DPD
    {36, 1, kDigits, UpuS10},            // UPU S10
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
  if (rule.kind != CheckKind::kOptional || method == 1) return rule.digits;
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
