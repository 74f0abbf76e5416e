// Bytes as a hexadecimal string between angle brackets, as PostScript and PDF read it.
#pragma once

#include <string>
#include <string_view>

namespace Library {

inline std::string Hex(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  constexpr std::size_t kBytesInLine = 100;
  std::string hex = "<";
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (i > 0 && i % kBytesInLine == 0) hex += '\n';
    hex += kDigits[byte >> 4];
    hex += kDigits[byte & 15];
  }
  return hex + ">";
}

}  // namespace Library
