#include "settings/Values.h"

#include <locale.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace Settings {
namespace {

constexpr double kZeroTolerance = 1e-6;

// The plain C locale, whatever the process's own is; lives as long as the process.
locale_t CLocale() {
  static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
  return locale;
}

int HexDigit(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  return -1;
}

}  // namespace

bool TextIsZero(std::string_view text) {
  return text.find_first_not_of("0.") == std::string_view::npos;
}

bool NumberIsZero(double number) {
  return std::abs(number) <= kZeroTolerance;
}

bool NumberMatchesText(double number, std::string_view text) {
  return !NumberIsZero(number) || TextIsZero(text);
}

int TextToInteger(std::string_view text) {
  const long number = std::strtol(std::string(text).c_str(), nullptr, 10);
  return static_cast<int>(
      std::clamp<long>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

double TextToReal(std::string_view text) {
  const double number = strtod_l(std::string(text).c_str(), nullptr, CLocale());
  return std::isfinite(number) ? number : 0.0;
}

int Truncated(double number) {
  constexpr double kLow = std::numeric_limits<int>::min();
  constexpr double kHigh = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(number, kLow, kHigh));
}

std::string ToUpper(std::string& text) {
  for (char& character : text)
    if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 'a' + 'A');
  return text;
}

bool StartsWith(std::string_view text, std::string_view start, std::size_t count) {
  return count <= text.size() && text.substr(0, count) == start.substr(0, count);
}

void ReplaceAll(std::string& text, std::string_view search, std::string_view replacement) {
  if (search.empty()) return;
  std::string result;
  std::size_t begin = 0;
  for (std::size_t found; (found = text.find(search, begin)) != std::string::npos;
       begin = found + search.size())
    result.append(text, begin, found - begin).append(replacement);
  text = result.append(text, begin);
}

int DecimalPrefix(std::string_view text) {
  if (text.empty() || text[0] < '0' || text[0] > '9') return 0;
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() ? number : std::numeric_limits<int>::max();
}

std::string HexDigits(std::string_view text) {
  std::string bytes;
  bool high = true;
  for (const char character : text) {
    const int digit = HexDigit(character);
    if (digit < 0) continue;
    if (high)
      bytes += static_cast<char>(digit << 4);
    else
      bytes.back() = static_cast<char>(static_cast<unsigned char>(bytes.back()) | digit);
    high = !high;
  }
  return bytes;
}

}  // namespace Settings
