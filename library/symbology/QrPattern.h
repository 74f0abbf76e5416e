#pragma once

#include "library/symbology/QrMatrix.h"
#include "library/symbology/QrVersion.h"

#include <cstdint>
#include <vector>

namespace Library {

constexpr int kAutomaticMask = -1;

// The modules of a QR Code. `words`: all of the version, check words included. `mask`: 0 to 7, or
// kAutomaticMask for the one with the fewest points.
QrMatrix QrPattern(const QrVersion& version, const std::vector<std::uint8_t>& words, int mask);

}  // namespace Library
