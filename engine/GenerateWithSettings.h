// The generation step that the stand-alone run and the filter share.
#pragma once

#include "diag/ResultCode.h"
#include "settings/BarcodeSettings.h"

#include <cstdint>
#include <string>

namespace Engine {

// Applies the application's adjustments (SAP stars of Code 39, global offsets) to `settings`, in
// place, and generates the barcode into `output`. On failure `output` holds the error and warning
// lines written meanwhile, so that a caller can print them in place of the barcode.
Diag::ResultCode GenerateWithSettings(Settings::BarcodeSettings& settings, std::string& output,
                                      std::uint32_t memorySize);

}  // namespace Engine
