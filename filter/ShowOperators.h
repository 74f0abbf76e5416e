// What the words behind a string mean for the text that it holds. Every other word shows it.
#pragma once

#include <string_view>

namespace Filter {

// It prepares the showing. Of the graphics state such words change what survives the hiding of a
// text: current point, matrix, font.
bool Prepares(std::string_view word);

// It takes the string and shows nothing.
bool TakesOtherwise(std::string_view word);

// A sequence does not go on behind it.
bool EndsText(std::string_view word);

}  // namespace Filter
