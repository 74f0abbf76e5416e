// Why a barcode can't be made, in a sentence for people who see neither its data nor its options:
//
//     EAN-13 takes digits only ('A' at 5)
#pragma once

#include "library/api/Barcode.h"

#include <string>

namespace Library {

// Of the object's last error, which had that code. It quotes nothing of the data but the character
// that was rejected, escaped, with its place, counted from 1. Empty when there is no more to say
// than the text of the code. May throw what allocation throws.
std::string ReasonOf(const BCBarcode& barcode, BCResult code);

}  // namespace Library
