// Where on the page a barcode goes.
#pragma once

#include "engine/library/vextorin9.h"
#include "settings/BarcodeSettings.h"

namespace Engine {

// The barcode's rectangle in the coordinates of the output format: PostScript and PDF count y
// upward, PCL and images downward. Needs the final width and height. An origin that isn't set
// becomes the lower edge in PostScript and PDF and the upper edge elsewhere, in `settings`.
BCRect PlaceBarcode(Settings::BarcodeSettings& settings);

}  // namespace Engine
