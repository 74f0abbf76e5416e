// Paints what the library's PCL prints, without its text. It understands exactly what the library
// writes and throws std::runtime_error for anything else, so it is no PCL interpreter.
#pragma once

#include "tests/support/Render.h"

#include <string_view>

namespace Support {

// `side`: of the square page in millimetres; the cursor is at its upper left corner.
Page PaintPcl(std::string_view pcl, int dpi, double side);

}  // namespace Support
