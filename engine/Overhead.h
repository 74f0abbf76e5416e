// The wrapping that fits a rendered barcode into its surroundings: the page of a print job, or a
// job of its own.
#pragma once

#include "settings/BarcodeSettings.h"

#include <string>
#include <string_view>

namespace Engine {

// Goes to the place that the filter's code around a shown text has found, in a graphics state of
// its own.
inline constexpr std::string_view kPlacementAtText =
    "% go to the place of the text\n"
    "vextorin begin l end\n";

// Wraps `output`, in place. An embedded PostScript barcode gets a graphics state of its own, at the
// current point or at an absolute place; a PCL barcode that stands alone gets a job frame, and one
// that asks for it moves the cursor past itself. Other formats stay as they are. The width, height,
// origin and positioning of `settings` are those that were used for the output.
void addOverhead(std::string& output, const Settings::BarcodeSettings& settings);

}  // namespace Engine
