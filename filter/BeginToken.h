// The begin token of a sequence as it may stand in strings.
#pragma once

#include <cstddef>
#include <string_view>

namespace Filter {

enum class BeginMatch {
  kNone,
  kPart,  // the string ends within the token
  kWhole,
};

// Whether `text`, the inside of a literal string with its escapes, begins with the token.
BeginMatch MatchBegin(std::string_view text, std::string_view token);

// How many of the token's bytes, fewer than all, `bytes` ends with.
std::size_t PartAtEnd(std::string_view bytes, std::string_view token);

}  // namespace Filter
