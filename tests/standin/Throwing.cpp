// Preloaded into the program: the first call for a barcode throws what VX_THROW names, in place of
// what the program's own code might throw anywhere.
#include "engine/library/vextorin9.h"

#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string_view>

BCResult BCAlloc(BCBarcode**) {
  const char* const name = std::getenv("VX_THROW");
  const std::string_view exception = name ? name : "";
  if (exception == "bad_alloc") throw std::bad_alloc();
  if (exception == "length_error") throw std::length_error("too long");
  throw 1;
}
