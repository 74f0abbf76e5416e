// From a symbol and the options to a drawing.
#pragma once

#include "library/Options.h"
#include "library/layout/Drawing.h"
#include "library/layout/Measure.h"
#include "library/symbology/Symbol.h"

namespace Library {

// Of a rectangle whose edges may be given in either order.
Box SizeOf(const BCRect& rectangle);

// Both throw Error: BC_E_MUSTFIT when must-fit is on and the symbol needs more than the rectangle;
// BC_E_INVALIDARG for a print ratio that does not suit the symbol and for places out of range. The
// edges of the rectangle may be given in either order. For rotation 1 and 3 it is that of the
// turned symbol, and so is the size.

Box MeasureSymbol(const Symbol& symbol, const Options& options, const BCRect& rectangle);

// A symbol that leaves room is centred when it was to fit, else it starts in the lower left corner.
Drawing LayOut(const Symbol& symbol, const Options& options, const BCRect& rectangle);

// The same without the rectangles of bars that stand in the drawing's field as characters.
Drawing LayOutFields(const Symbol& symbol, const Options& options, const BCRect& rectangle);

}  // namespace Library
