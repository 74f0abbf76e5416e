// Hands every parameter of a barcode to the library's barcode object, before it is created.
#pragma once

#include "diag/ResultCode.h"
#include "engine/library/vextorin9.h"
#include "settings/BarcodeSettings.h"

namespace Engine {

// Applies the default set if one is selected, then hands over whatever is set, the data last. The
// record comes back with `pos` resolved, version-1 quiet zones moved into the ordinary ones, the
// default set filled in and the data trimmed. Stops at the first failure, which it has reported,
// and returns its code.
Diag::ResultCode ApplySettings(Settings::BarcodeSettings& settings, BCBarcode* handle,
                               bool allowEmptyData);

// The last step: the data, trimmed if the settings say so. Empty data is kNothingLeft, silently
// when `allowEmptyData`, else with a report that a muted trace log writes, too.
Diag::ResultCode ApplyBarcodeData(Settings::BarcodeSettings& settings, BCBarcode* handle,
                                  bool allowEmptyData);

// The parameters of a grid of barcodes.
Diag::ResultCode ApplyMultipleBarcodes(Settings::BarcodeSettings& settings, BCBarcode* handle);

}  // namespace Engine
