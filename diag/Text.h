// Building message texts from parts, independent of the locale.
#pragma once

#include "diag/Foreign.h"

#include <charconv>
#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

namespace Diag {

inline void AppendText(std::string& text, std::string_view part) {
  text += part;
}
inline void AppendText(std::string& text, char part) {
  text += part;
}

// A bool is written as 1 or 0; an overload of its own would take texts too, as pointers.
template <std::integral Number>
void AppendText(std::string& text, Number part) {
  char digits[24];
  text.append(digits, std::to_chars(digits, digits + sizeof digits, part + 0).ptr);
}

// Six significant digits, as a C++ stream writes a double by default.
inline void AppendText(std::string& text, double part) {
  char digits[40];
  text.append(
      digits,
      std::to_chars(digits, digits + sizeof digits, part, std::chars_format::general, 6).ptr);
}

template <class... Parts>
std::string Text(const Parts&... parts) {
  std::string text;
  std::size_t room = kLongestQuotation;  // of all foreign parts together
  const auto append = [&](const auto& part) {
    if constexpr (std::is_same_v<std::remove_cvref_t<decltype(part)>, Foreign>)
      AppendForeign(text, part, room);
    else
      AppendText(text, part);
  };
  (append(parts), ...);
  return text;
}

// The same without what a print job, or the command line, brought.
template <class... Parts>
std::string TextWithoutForeign(const Parts&... parts) {
  std::string text;
  const auto append = [&](const auto& part) {
    if constexpr (std::is_same_v<std::remove_cvref_t<decltype(part)>, Foreign>) {
      if (!part.foreign) text += part.text;
    } else {
      AppendText(text, part);
    }
  };
  (append(parts), ...);
  return text;
}

}  // namespace Diag
