// What was printed on one page and not on another, and where.
#pragma once

#include "tests/support/Render.h"

#include <optional>
#include <ostream>

namespace Support {

// A place on the page and the direction of reading there: millimetres from the page's left and
// lower edge, degrees counter-clockwise, a multiple of 90.
struct Frame {
  double x = 0, y = 0;
  int angle = 0;
};

// Millimetres from a frame's place, in its directions.
struct Box {
  double left = 0, bottom = 0, right = 0, top = 0;
};
std::ostream& operator<<(std::ostream& stream, const Box& box);

// The box of all ink on `page` that isn't on `other`, but for edges that moved by one pixel.
// REQUIRES: pages of one size and resolution.
std::optional<Box> InkBeside(const Page& page, const Page& other, const Frame& frame = {});

// All text on the pages of a job, as Ghostscript extracts it.
std::string TextOf(std::string_view postScript);

}  // namespace Support
