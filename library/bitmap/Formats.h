// The bitmap formats: each turns a bitmap into the bytes of a file that records the resolution.
// Equal bitmaps give equal bytes.
#pragma once

#include "library/bitmap/Bitmap.h"

#include <string>

namespace Library {

// Throw Error: BC_E_MODULENOTFOUND where the library that knows the format is missing,
// BC_E_OUTOFMEMORY, and kInternalError for any other failure of that library.
std::string WriteBmp(const Bitmap& bitmap);
std::string WriteGif(const Bitmap& bitmap);
std::string WriteJpeg(const Bitmap& bitmap);  // grey, quality 95
std::string WritePng(const Bitmap& bitmap);
std::string WriteTiff(const Bitmap& bitmap);  // CCITT group 4

}  // namespace Library
