// A shared library that is loaded when it is first needed: most print jobs hold no symbol, and the
// loader's work on what symbols take would double the library's share in the time of a small job.
#pragma once

#include "library/Error.h"

#include <dlfcn.h>

#include <cstdint>

namespace Library {

// It stays loaded.
class LoadedLibrary {
 public:
  // Throws Error with BC_E_MODULENOTFOUND, as find does.
  explicit LoadedLibrary(const char* soname) : handle(dlopen(soname, RTLD_NOW | RTLD_LOCAL)) {
    if (handle == nullptr) throw Error(BC_E_MODULENOTFOUND);
  }

  template <class Function>
  Function find(const char* name) const {
    void* const address = dlsym(handle, name);
    if (address == nullptr) throw Error(BC_E_MODULENOTFOUND);
    return reinterpret_cast<Function>(address);
  }

 private:
  void* handle;
};

// What DT_NEEDED would say, for tools that find a package's dependencies: a note of the form that
// the UAPI group's "ELF dlopen metadata" describes.
template <unsigned textSize>
struct DlopenNote {
  std::uint32_t nameSize, size, type;
  char name[4];
  char text[(textSize + 3) / 4 * 4];
};

#define LIBRARY_DLOPEN_JSON(soname, description)                 \
  "[{\"soname\":[\"" soname "\"],\"description\":\"" description \
  "\",\"priority\":\""                                           \
  "required\"}]"
#define LIBRARY_DLOPEN_NOTE(soname, description)                               \
  [[gnu::used, gnu::section(".note.dlopen")]] alignas(                         \
      4) constexpr DlopenNote<sizeof LIBRARY_DLOPEN_JSON(soname, description)> \
      kDlopenNote = {4,                                                        \
                     sizeof LIBRARY_DLOPEN_JSON(soname, description),          \
                     0x407c0c0a,                                               \
                     {'F', 'D', 'O'},                                          \
                     LIBRARY_DLOPEN_JSON(soname, description)}

}  // namespace Library
