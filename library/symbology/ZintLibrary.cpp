#include "library/symbology/ZintLibrary.h"

#include "library/LoadedLibrary.h"

namespace Library {
namespace {

[[gnu::used, gnu::section(".note.dlopen")]] alignas(4) constexpr auto kNote = NoteOf(
    R"([{"soname":[")" VEXTORIN_ZINT_SONAME R"("],"priority":"required",)"
    R"("description":"postal codes, DataBar, composites, MaxiCode, Code 49, DotCode and others"}])");

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
