// The stages between the caller's data and the encoder, in their order: escapes, compression,
// format string, characters and length, check digits.
#pragma once

#include "library/Options.h"
#include "library/prepare/PreparedData.h"
#include "library/symbology/Symbology.h"

namespace Library {

struct PreparedData {
  Data data;
  Data given;               // as it was before the normalizer, empty without one
  std::string checkDigits;  // that are part of the data, added or given
};

// Both throw Error as Encode does.

// The first two stages: the message that one symbol holds, or the symbols of a grid share.
Data MessageOf(const Options& options, const Symbology& symbology);

// The others, for a message or a part of it.
PreparedData Prepare(const Options& options, const Symbology& symbology, Data data);

// What the data may hold once they are prepared.
const CharacterSet& CharactersOf(const Symbology& symbology, const Options& options);

// ComputeCheckDigits of the bytes of `data`, with an error's index turned into the caller's.
std::string CheckDigitsOf(const Data& data, int method);

}  // namespace Library
