// The eight data masks of QR Code, of which Micro QR Code has four (ISO/IEC 18004, 7.8.2).
#pragma once

#include "library/symbology/QrMatrix.h"

namespace Library {

constexpr int kQrMasks = 8;

// Inverts what the mask darkens of the modules that are not drawn.
void ApplyQrMask(QrMatrix& modules, const QrMatrix& drawn, int mask);

}  // namespace Library
