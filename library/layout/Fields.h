// The bars of a symbol as characters, for writers that put edges on the dots of a device.
#pragma once

#include "library/Options.h"
#include "library/layout/Drawing.h"
#include "library/layout/Measure.h"
#include "library/layout/Placement.h"
#include "library/symbology/Symbol.h"

namespace Library {

// Without the numbers of its rectangles.
BarField LayOutField(const Symbol& symbol, const Options& options, const Measures& measures,
                     const Placement& placement);

}  // namespace Library
