#pragma once

#include "settings/BarcodeSettings.h"
#include "settings/Option.h"

namespace Settings {

// Every option of the barcode settings.
std::span<const Option<BarcodeSettings>> BarcodeOptions();

}  // namespace Settings
