#pragma once

#include "settings/AppSettings.h"
#include "settings/Option.h"

namespace Settings {

// Every option of the application settings. Any other name goes to the barcode settings.
std::span<const Option<AppSettings>> AppOptions();

}  // namespace Settings
