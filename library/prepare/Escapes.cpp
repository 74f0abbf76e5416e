#include "library/prepare/Escapes.h"

#include <charconv>

namespace Library {
namespace {

constexpr int kFirstFunctionByte = 0x88;  // octal 210

struct Escape {
  int value = -1;  // -1: no escape
  std::size_t length = 0;
};

// The number in exactly `digits` digits after the first `prefix` characters.
Escape NumericEscape(std::string_view text, std::size_t prefix, std::size_t digits, int base) {
  if (text.size() < prefix + digits) return {};
  const char* const begin = text.data() + prefix;
  const char* const end = begin + digits;
  int value = 0;
  if (*begin == '-' || std::from_chars(begin, end, value, base).ptr != end) return {};
  return value > 0xFF ? Escape{} : Escape{value, prefix + digits};
}

Escape SimpleEscape(char letter) {
  constexpr std::string_view kLetters = "abefnrtv\\\"";
  constexpr std::string_view kValues = "\a\b\x1B\f\n\r\t\v\\\"";
  static_assert(kLetters.size() == kValues.size());
  const std::size_t index = letter == '\0' ? kLetters.npos : kLetters.find(letter);
  return index == kLetters.npos ? Escape{} : Escape{kValues[index], 2};
}

// REQUIRES: text begins with a backslash.
Escape ReadEscape(std::string_view text) {
  if (text.size() < 2) return {};
  if (text[1] == 'x') return NumericEscape(text, 2, 2, 16);
  if (text[1] >= '0' && text[1] <= '7') return NumericEscape(text, 1, 3, 8);
  return SimpleEscape(text[1]);
}

bool IsFunction(const Escape& escape) {
  return escape.length == 4 && escape.value >= kFirstFunctionByte &&
         escape.value < kFirstFunctionByte + 4;
}

}  // namespace

Data TranslateEscapes(std::string_view text, FunctionCharacters functions) {
  Data data;
  data.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const auto source = static_cast<std::int32_t>(at);
    const Escape escape = text[at] == '\\' ? ReadEscape(text.substr(at)) : Escape{};
    if (escape.value < 0) {
      data.push_back({static_cast<unsigned char>(text[at]), source});
      ++at;
      continue;
    }
    // \xHH is four characters long as well, but means the byte.
    const bool octal = text[at + 1] != 'x';
    const bool function = functions == FunctionCharacters::kOctal && octal && IsFunction(escape);
    const int value = function ? kFnc1 + escape.value - kFirstFunctionByte : escape.value;
    data.push_back({static_cast<std::uint16_t>(value), source});
    at += escape.length;
  }
  return data;
}

Data RawData(std::string_view text) {
  Data data(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    data[i] = {static_cast<unsigned char>(text[i]), static_cast<std::int32_t>(i)};
  }
  return data;
}

}  // namespace Library
