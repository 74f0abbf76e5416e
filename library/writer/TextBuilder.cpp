#include "library/writer/TextBuilder.h"

#include <cmath>
#include <cstdint>

namespace Library {
namespace {

constexpr int kDecimals = 6;
constexpr std::int64_t kScale = 1'000'000;

// The number in millionths, rounded as its exact value is; false where only a longer calculation
// can tell.
bool ToMillionths(double number, std::int64_t& millionths) {
  constexpr double kLargest = 1e9;  // so that products are whole numbers without loss
  constexpr double kUnsure = 1e-6;  // round a half
  if (!(number >= 0 && number < kLargest)) return false;
  const double product = number * kScale;
  const double lost = std::fma(number, static_cast<double>(kScale), -product);
  millionths = static_cast<std::int64_t>(product);
  const double rest = product - static_cast<double>(millionths) + lost;
  if (std::abs(rest - 0.5) < kUnsure) return false;
  if (rest > 0.5) ++millionths;
  return true;
}

}  // namespace

char* TextBuilder::writeDecimal(char* text, double number) {
  char* const limit = text + kLongestDecimal;
  std::int64_t millionths = 0;
  char* end = nullptr;
  if (ToMillionths(std::abs(number), millionths)) {
    if (number < 0 && millionths != 0) *text++ = '-';
    end = std::to_chars(text, limit, millionths / kScale).ptr;
    std::int64_t decimals = millionths % kScale;
    if (decimals == 0) return end;
    *end = '.';
    for (int i = kDecimals; i > 0; --i, decimals /= 10) {
      end[i] = static_cast<char>('0' + decimals % 10);
    }
    end += kDecimals + 1;
  } else {
    end = std::to_chars(text, limit, number, std::chars_format::fixed, kDecimals).ptr;
  }
  while (end[-1] == '0') --end;
  if (end[-1] == '.') --end;
  if (end == text + 2 && text[0] == '-' && text[1] == '0') *--end = '\0', *text = '0';
  return end;
}

}  // namespace Library
