// The begin token of a sequence as it may stand in strings, and in data.
#pragma once

#include "filter/Stream.h"

#include <cstddef>
#include <cstdint>
#include <functional>
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

// Calls with the place in the job of each token that ends in the window's first `size` bytes, as
// far as the stream looks back.
void ForEachToken(const Stream& stream, std::size_t size, std::string_view token,
                  const std::function<void(std::uint64_t place)>& call);

}  // namespace Filter
