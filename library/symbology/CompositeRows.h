// The rows of a composite symbol, made of libzint's and of those that the linear symbol has alone.
#pragma once

#include "library/symbology/Symbol.h"
#include "library/symbology/ZintSymbol.h"

#include <cstddef>

namespace Library {

// Puts the component of `composed` and its separators on top of a linear symbol, which keeps its
// own bars or takes those that `composed` has for it, and returns how many modules to the right it
// is. REQUIRES: linear rows of the same number and width in both.
int JoinComponent(const ZintSymbol& composed, bool ownBars, Symbol& symbol);

// Draws the separator above the linear row anew, for the bars of that row. `linear` are its
// modules, light ones at the ends included.
void DrawSeparator(Symbol& symbol, std::size_t separator, ModuleSpan linear);
void DrawExpandedSeparator(Symbol& symbol, std::size_t separator, ModuleSpan linear);

}  // namespace Library
