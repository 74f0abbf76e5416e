// The size of a barcode: given, measured by the library, or what a grid of barcodes needs.
#pragma once

#include "diag/ResultCode.h"
#include "engine/library/vextorin9.h"
#include "settings/BarcodeSettings.h"

namespace Engine {

// Creates the barcode (or grid of barcodes) whose parameters `handle` already holds, brings width
// and height of `settings` to the size it will be drawn in, and turns it. A failure that has words
// has been reported; returns its code.
Diag::ResultCode CreateSized(Settings::BarcodeSettings& settings, BCBarcode* handle);

}  // namespace Engine
