// What QR Code, Micro QR Code and rMQR Code have in common round their segments.
#pragma once

#include "library/prepare/PreparedData.h"
#include "library/symbology/QrBits.h"
#include "library/symbology/QrMessage.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Library {

// `marked`: FNC1 stands in front, GS separates like FNC1.
QrContent QrContentOf(const Data& data, bool marked);

// The indicator of an ECI, 7 in so many bits, and its number; nothing for 0. Throws Error with
// BC_E_INVALIDARG unless the number is 0 or 3 to 999999.
void AppendQrEci(QrBits& bits, int eci, int indicatorBits);

// Fills up to `count` words with those that stand for nothing. REQUIRES: the bits are no more.
std::vector<std::uint8_t> PaddedQrWords(QrBits bits, std::size_t count);

}  // namespace Library
