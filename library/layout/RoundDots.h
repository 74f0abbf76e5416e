// DotCode: a round dot for every dark module. They stand corner to corner and must not touch.
#pragma once

#include "library/Options.h"
#include "library/layout/Measure.h"
#include "library/layout/Placement.h"
#include "library/symbology/Symbol.h"

namespace Library {

// Adds the dots to the drawing, from top to bottom.
void DrawRoundDots(const Symbol& symbol, const Options& options, const Measures& measures,
                   const Placement& placement, Drawing& drawing);

}  // namespace Library
