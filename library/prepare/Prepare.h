// The stages between the caller's data and the encoder, in their order: escapes, compression,
// format string, characters and length, check digits.
#pragma once

#include "library/Options.h"
#include "library/prepare/PreparedData.h"
#include "library/symbology/Symbology.h"

namespace Library {

struct PreparedData {
  Data data;
  std::string checkDigits;  // that are part of the data, added or given
};

// Throws Error as Encode does.
PreparedData Prepare(const Options& options, const Symbology& symbology);

}  // namespace Library
