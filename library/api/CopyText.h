#pragma once

#include <string_view>

namespace Library {

// Cuts the text to what a buffer of `size` bytes takes with its terminator.
inline void CopyText(std::string_view text, char* buffer, int size) {
  if (!buffer || size <= 0) return;
  buffer[text.copy(buffer, static_cast<std::size_t>(size) - 1)] = '\0';
}

}  // namespace Library
