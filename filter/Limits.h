// Bounds on what a job can make the filter keep in memory. What exceeds one passes as plain bytes.
#pragma once

#include <cstddef>

namespace Filter {

// No interpreter takes longer strings (65,535 bytes in PostScript level 2; ASCII85 and octal
// escapes multiply that by four at the most), so a longer one is binary data that happens to hold
// an opening delimiter.
inline constexpr std::size_t kLongestString = 1024 * 1024 + 64 * 1024;

// A longer comment is read as code from there on.
inline constexpr std::size_t kLongestComment = 1024 * 1024;

// From the begin token to the end token. A symbol holds some thousand bytes, and even as PostScript
// that shows single characters their options stay far below.
inline constexpr std::size_t kLongestSequence = 1024 * 1024;

}  // namespace Filter
