// Full ASCII in the 43 characters of Code 39 and Code 93: most characters are a shift and a letter.
#pragma once

#include <string>
#include <string_view>

namespace Library {

// `byte` 0 to 127 as one character of the 43, or as a shift character and a letter. The shift
// characters are $ % / +; `direct` are the signs that stand for themselves.
std::string FullAsciiPair(int byte, std::string_view direct);

}  // namespace Library
