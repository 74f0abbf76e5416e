#pragma once

#include "engine/library/vextorin9.h"

#include <string_view>

namespace Library {

// At most 70 characters, for any code.
std::string_view ErrorText(BCResult code);

}  // namespace Library
