// The object behind a handle, and the one way in through which every entry point goes.
#pragma once

#include "library/Error.h"
#include "library/Options.h"
#include "library/symbology/Symbol.h"

#include <optional>

struct BCBarcode {
  Library::Options options;
  std::optional<Library::Symbol> symbol;  // between BCCreate and the next change
  Library::Error lastError{BC_OK};
};

namespace Library {

bool IsSessionOpen();

// Keeps the exception being handled as the object's last error; its result code.
BCResult Fail(BCBarcode& barcode) noexcept;

// Runs body(object). No exception leaves; its code is the result and is kept in the object. Without
// an object or an open session: BC_E_INVALIDARG.
template <class Body>
BCResult Guarded(BCBarcode* handle, Body&& body) noexcept {
  if (!handle || !IsSessionOpen()) return BC_E_INVALIDARG;
  try {
    body(*handle);
    return BC_OK;
  } catch (...) {
    return Fail(*handle);
  }
}

}  // namespace Library
