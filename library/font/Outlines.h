// The shapes of a text's characters as paths.
#pragma once

#include "library/layout/Drawing.h"

#include <vector>

namespace Library {

// A step of a path in 1/1000 mm. A curve (cubic) has its control points at 0 and 1, every step its
// end at 2.
struct OutlineStep {
  enum class Kind { kMove, kLine, kCurve };
  struct Place {
    double x, y;
  };
  Kind kind;
  Place points[3];
};

// Closed paths at the text's place and turn, to be filled by the non-zero winding rule. Characters
// stand where the standard font's metrics put them; a font with other widths is narrowed to the
// room planned, or stands in its middle. Empty where the machine has no font for it.
std::vector<OutlineStep> OutlineOf(const TextRun& run);
// Whether there is one for each text.
bool HasOutlines(const Drawing& drawing);

}  // namespace Library
