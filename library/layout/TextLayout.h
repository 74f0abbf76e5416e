// Places the human-readable text.
#pragma once

#include "library/Options.h"
#include "library/layout/Measure.h"
#include "library/layout/Placement.h"
#include "library/symbology/Symbol.h"

namespace Library {

// Adds the texts to the drawing. A text wider than the modules it belongs to is set smaller; the
// digits of one symbol keep one size.
void DrawText(const Symbol& symbol, const Options& options, const Measures& measures,
              const Placement& placement, Drawing& drawing);

}  // namespace Library
