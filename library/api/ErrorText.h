#pragma once

#include "engine/library/vextorin9.h"

#include <string_view>

namespace Library {

// For any code. Callers append to it, without a separator, what an object's queries tell of the
// error ("'x' at position 3"), and then a full stop; so where there is something to append the text
// ends in a blank. At most 70 characters.
std::string_view ErrorText(BCResult code, bool hasDetail);

}  // namespace Library
