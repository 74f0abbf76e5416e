// Format strings: a mask that is filled with the data.
//
//   #        the next data character
//   &        all data characters that are left
//   ^        the check digits
//   A, B, C  switch the code set, where the symbology has code sets
//   \        the next character of the format stands for itself
//
// Every other character stands for itself. Data that no sign takes are not encoded.
#pragma once

#include "library/prepare/PreparedData.h"

#include <string_view>

namespace Library {

// Throws Error with BC_E_INVALIDDATA at `dataLength`, the end of the caller's data, when there are
// more # than data characters.
Data ApplyFormat(const Data& data, std::string_view format, bool codeSets, int dataLength);

}  // namespace Library
