// Hands the parameters of one symbology family to the library's barcode object. Each function stops
// at its first failure, which it has reported, and returns its code.
#pragma once

#include "diag/ResultCode.h"
#include "engine/library/vextorin9.h"
#include "settings/BarcodeSettings.h"

namespace Engine {

Diag::ResultCode ApplyPdf417(Settings::BarcodeSettings& settings, BCBarcode* handle);
Diag::ResultCode ApplyMaxiCode(Settings::BarcodeSettings& settings, BCBarcode* handle);
Diag::ResultCode ApplyQrCode(Settings::BarcodeSettings& settings, BCBarcode* handle);
Diag::ResultCode ApplyDataMatrix(Settings::BarcodeSettings& settings, BCBarcode* handle);
Diag::ResultCode ApplyCodablockF(Settings::BarcodeSettings& settings, BCBarcode* handle);
Diag::ResultCode ApplyAztec(Settings::BarcodeSettings& settings, BCBarcode* handle);
Diag::ResultCode ApplyMicroQr(Settings::BarcodeSettings& settings, BCBarcode* handle);

// The parameters of the family that the barcode type belongs to; kSuccess for a type that has none.
Diag::ResultCode ApplySymbology(Settings::BarcodeSettings& settings, BCBarcode* handle);

// PDF417, Micro PDF417 and their variants, the types that count their height in rows.
bool IsPdf417Family(int type);

}  // namespace Engine
