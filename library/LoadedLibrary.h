// A shared library that is loaded when it is first needed: most print jobs hold no symbol, and the
// loader's work on what symbols take would double the library's share in the time of a small job.
#pragma once

#include "library/Error.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstddef>
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
// the UAPI group's "ELF dlopen metadata" describes. Belongs into the section .note.dlopen.
template <std::size_t size>
struct DlopenNote {
  std::uint32_t nameSize, textSize, type;
  char name[4];
  char text[size];
};

template <std::size_t size>
constexpr DlopenNote<size> NoteOf(const char (&json)[size]) {
  DlopenNote<size> note = {4, size, 0x407c0c0a, {'F', 'D', 'O'}, {}};
  std::copy(json, json + size, note.text);
  return note;
}

}  // namespace Library
