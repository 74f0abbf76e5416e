// libzint, loaded when the first symbol is asked of it.
#pragma once

#include <zint.h>

namespace Library {

struct ZintLibrary {
  decltype(&ZBarcode_Create) create;
  decltype(&ZBarcode_Delete) destroy;
  decltype(&ZBarcode_Encode) encode;
};

// Throws Error with BC_E_MODULENOTFOUND where there is no libzint of the version that zint.h is of;
// the next call tries again.
const ZintLibrary& Zint();

}  // namespace Library
