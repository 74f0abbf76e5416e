// The code words of MicroPDF417's modes (ISO/IEC 24728 5.4.1).
#pragma once

#include "library/symbology/Encoders.h"
#include "library/symbology/Pdf417.h"

#include <string>

namespace Library {

struct MicroPdf417Message {
  CodeWords words;   // of the data, what tells the mode in front
  std::string text;  // for humans
};

// Throws Error.
MicroPdf417Message MicroPdf417MessageOf(const EncoderInput& input);

}  // namespace Library
