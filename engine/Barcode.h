// One barcode, or one grid of barcodes, from a settings record to the finished bytes.
#pragma once

#include "diag/ResultCode.h"
#include "settings/BarcodeSettings.h"

#include <cstdint>
#include <string>

namespace Engine {

// Generates the barcode that `settings` describe into `result`: wrapped for its output format, or
// undefined on failure. `settings` comes back with the width, height and origin that were used.
//
// memorySize     the output buffer's first size in bytes; it is enlarged once, to the size that the
//                library asks for
// mute           silences the trace log for the whole call
// allowEmptyData makes missing data a silent failure
//
// Returns the library's code unchanged, kOutOfMemory, or kNothingLeft for missing data.
Diag::ResultCode GenerateBarcode(Settings::BarcodeSettings& settings, std::string& result,
                                 std::uint32_t memorySize, bool mute, bool allowEmptyData);

}  // namespace Engine
