// How numbers of parcels and trade units are written, brought to what is checked and encoded.
#pragma once

#include "library/Options.h"
#include "library/prepare/PreparedData.h"

namespace Library {

// Take away the application identifier in front, with parentheses or without: (00) or 00, which
// SSCC-18 and NVE-18 add themselves; (01) or 01 of EAN-14.
void RemoveSsccIdentifier(Data& data, const Options& options);
void RemoveGtinIdentifier(Data& data, const Options& options);

// 27 letters and digits get a percent sign in front, small letters become capitals. Throws Error
// with BC_E_INVALIDDATA at any other character.
void NormalizeDpd(Data& data, const Options& options);

// Throws Error with BC_E_INVALIDDATA at a character out of place: two letters, eight digits and
// perhaps a check digit, two letters.
void CheckUpuS10(Data& data, const Options& options);

}  // namespace Library
