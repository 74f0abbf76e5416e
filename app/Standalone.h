// The run without the filter flag: one barcode from the configured settings.
#pragma once

#include "diag/ResultCode.h"

namespace App {

// Generates the barcode of the global settings and writes it, as one block, to the output file
// (mode 0664) or to standard output. Returns the generation's result, or kAccessDenied for whatever
// went wrong with the file; a partly written file stays.
Diag::ResultCode WriteStandaloneBarcode();

}  // namespace App
