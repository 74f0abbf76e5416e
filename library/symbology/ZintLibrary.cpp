#include "library/symbology/ZintLibrary.h"

#include "library/Error.h"

#include <dlfcn.h>

#include <cstdint>

namespace Library {
namespace {

#define DLOPEN_JSON                                                  \
  "[{\"soname\":[\"" VEXTORIN_ZINT_SONAME                            \
  "\"],\"feature\":\"zint\","                                        \
  "\"description\":\"PDF417, QR Code, Data Matrix and Aztec Code\"," \
  "\"priority\":\"required\"}]"

// What DT_NEEDED would say, for tools that find a package's dependencies: a note of the form that
// the UAPI group's "ELF dlopen metadata" describes.
struct DlopenNote {
  std::uint32_t nameSize, textSize, type;
  char name[4];
  alignas(4) char text[sizeof DLOPEN_JSON];
};
[[gnu::used, gnu::section(".note.dlopen")]] alignas(4) constexpr DlopenNote kDlopenNote = {
    4, sizeof DLOPEN_JSON, 0x407c0c0a, {'F', 'D', 'O'}, DLOPEN_JSON};

template <class Function>
Function Find(void* library, const char* name) {
  void* const address = dlsym(library, name);
  if (address == nullptr) throw Error(BC_E_MODULENOTFOUND);
  return reinterpret_cast<Function>(address);
}

ZintLibrary Load() {
  void* const library = dlopen(VEXTORIN_ZINT_SONAME, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw Error(BC_E_MODULENOTFOUND);
  return {Find<decltype(ZintLibrary::create)>(library, "ZBarcode_Create"),
          Find<decltype(ZintLibrary::destroy)>(library, "ZBarcode_Delete"),
          Find<decltype(ZintLibrary::encode)>(library, "ZBarcode_Encode")};
}

}  // namespace

const ZintLibrary& Zint() {
  static const ZintLibrary library = Load();
  return library;
}

}  // namespace Library
