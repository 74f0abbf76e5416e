// From options to the finished symbol.
#pragma once

#include "library/Options.h"
#include "library/prepare/Prepare.h"
#include "library/symbology/Symbol.h"
#include "library/symbology/Symbology.h"

namespace Library {

// Prepares the data and encodes it. The symbol also carries the text of its check digits. Throws
// Error with BC_E_INVALIDARG for an unknown type, a check method that the type does not allow and
// options that contradict each other, BC_E_INVALIDDATA with the index of the character in
// options.data where it is known, BC_E_DATATOOLONG, BC_E_NOTSUPPORTED.
Symbol Encode(const Options& options);

// The same for a part of the message: format string, characters, length and check digits are those
// of the part.
Symbol EncodePart(const Options& options, Data part);

// The last step alone: the symbol of data that are prepared for the type.
Symbol EncodePrepared(const Options& options, const Symbology& symbology,
                      const PreparedData& prepared);

// Throws Error as Encode does.
const Symbology& SymbologyOf(const Options& options);

// The number of check digits that the symbol adds by the method set, whatever the data is; 0 for an
// unknown type and a method that the type does not allow.
int CheckDigitCount(const Options& options);

// Data characters of a type of fixed length, check digits included; 0: no fixed limit.
int MaxDataLength(int type);

}  // namespace Library
