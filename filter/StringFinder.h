// Which string a begin token stands in.
//
// A reader that has met unknown data may be in the middle of a string that never was: data hold "("
// like any other byte. A begin token proves that there is text, so it decides: the outermost "(" in
// front of it counts behind which nothing but text stands, and which is closed behind the token.
#pragma once

#include <cstddef>
#include <string_view>

namespace Filter {

// The offset behind the last thing in `text`, the inside of a supposed string, that no text string
// holds: a control character, "~>", a structuring comment, a line of data without a blank, a line
// that ends with an operator of the page. 0 when there is none.
std::size_t BehindForeignBytes(std::string_view text);

}  // namespace Filter
