#include "library/symbology/ZintLibrary.h"

#include "library/LoadedLibrary.h"

namespace Library {
namespace {

LIBRARY_DLOPEN_NOTE(VEXTORIN_ZINT_SONAME, "PDF417, QR Code, Data Matrix and Aztec Code");

ZintLibrary Load() {
  const LoadedLibrary library(VEXTORIN_ZINT_SONAME);
  return {library.find<decltype(ZintLibrary::create)>("ZBarcode_Create"),
          library.find<decltype(ZintLibrary::destroy)>("ZBarcode_Delete"),
          library.find<decltype(ZintLibrary::encode)>("ZBarcode_Encode")};
}

}  // namespace

const ZintLibrary& Zint() {
  static const ZintLibrary library = Load();
  return library;
}

}  // namespace Library
