// MaxiCode: hexagons that stand on a tip, in rows shifted by half a pitch, round a bullseye.
#pragma once

#include "library/Options.h"
#include "library/layout/Measure.h"
#include "library/layout/Placement.h"
#include "library/symbology/Symbol.h"

namespace Library {

// Adds the hexagons and rings to the drawing. All hexagons have the same corners relative to their
// centre.
void DrawHexagons(const Symbol& symbol, const Options& options, const Measures& measures,
                  const Placement& placement, Drawing& drawing);

}  // namespace Library
