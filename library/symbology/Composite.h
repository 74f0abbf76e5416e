// GS1 composite symbols (ISO/IEC 24723): a linear symbol under a two-dimensional component. The
// data of the two stand on either side of the first bar "|".
#pragma once

#include "library/Options.h"
#include "library/symbology/Symbol.h"
#include "library/symbology/Symbology.h"

namespace Library {

// What a symbology's composites are made from.
extern const CompositeForm kEan8Composite, kEan13Composite, kUpcAComposite, kUpcEComposite,
    kGs1Code128Composite, kSsccComposite, kEan14Composite, kDataBarComposite,
    kLimitedDataBarComposite, kExpandedDataBarComposite, kStackedDataBarComposite,
    kStackedOmniDataBarComposite, kStackedExpandedDataBarComposite;

// Throws Error with BC_E_NOTSUPPORTED in the component where the type cannot carry one of
// options.compositeType.
void CheckComponentType(const Options& options, const Symbology& symbology);

// Throws Error as Encode does, of a fault in the component with inComposite set.
// REQUIRES: CheckComponentType.
Symbol EncodeComposite(const Options& options, const Symbology& symbology);

}  // namespace Library
