// libzint, loaded when the first symbol is asked of it: most print jobs hold none, and finding it
// and what it needs takes a tenth of the time of a small job.
#pragma once

#include <zint.h>

namespace Library {

struct ZintLibrary {
  decltype(&ZBarcode_Create) create;
  decltype(&ZBarcode_Delete) destroy;
  decltype(&ZBarcode_Encode) encode;
};

// Throws Error with BC_E_MODULENOTFOUND where there is no libzint of the version that zint.h is of;
// the next call tries again. It stays loaded.
const ZintLibrary& Zint();

}  // namespace Library
