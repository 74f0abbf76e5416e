// Shares one message out to the symbols of a grid.
#pragma once

#include "library/Options.h"
#include "library/symbology/Symbol.h"

#include <vector>

namespace Library {

// The message, its escapes translated and compressed as a whole if so set, is cut into parts of at
// most the data limit, headers not counted, or of what the type holds, each as long as can be.
// Format string and check digits belong to the single symbol. GS1 data are cut between elements
// only, Interleaved 2 of 5 where the number of digits is even. A message that fits in one symbol
// makes one.
//
// Throws Error as Encode does; BC_E_DATATOOLONG also for more symbols than the structured append
// can number and more work than kMaxGridModules, BC_E_NOTSUPPORTED for a type without the one asked
// for.
std::vector<Symbol> EncodeParts(const Options& options);

}  // namespace Library
