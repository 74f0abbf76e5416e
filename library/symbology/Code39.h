// Code 39's bars, which other symbologies use, too.
#pragma once

#include "library/symbology/Symbol.h"

#include <string_view>

namespace Library {

// Draws `text`, characters of the 43, between start and stop characters; wide elements are `wide`
// modules, 2 or 3.
void DrawCode39(std::string_view text, int wide, Symbol& symbol);

}  // namespace Library
