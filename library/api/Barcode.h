// The object behind a handle, and the one way in through which every entry point goes.
#pragma once

#include "library/Error.h"
#include "library/Options.h"
#include "library/grid/GridPlan.h"
#include "library/symbology/Symbol.h"

#include <optional>
#include <string>
#include <vector>

namespace Library {

enum class Language {
  kPostScript,
  kEps,
  kPcl,
  kPclAtCursor,
  kPdf,
  kPdfFragment,
  kBmp,
  kGif,
  kJpeg,
  kPng,
  kTiff
};

}  // namespace Library

struct BCBarcode {
  // One message in several symbols. The layout query needs them as BCCreate does; they are encoded
  // once, for whichever comes first.
  struct Grid {
    std::vector<Library::Symbol> symbols;
    std::optional<Library::GridShape> shape;  // once a layout query found room
  };

  // Output that found too small a buffer: callers ask again with a larger one.
  struct KeptOutput {
    BCRect rect;
    Library::Language language;
    std::string bytes;
  };

  Library::Options options;
  // Between BCCreate and the next change; of a grid the first one.
  std::optional<Library::Symbol> symbol;
  std::optional<Grid> grid;        // until the next change
  std::optional<KeptOutput> kept;  // until the next change of anything or the next output
  std::string warning;             // of the last output
  Library::Error lastError{BC_OK};
};

namespace Library {

bool IsSessionOpen();

// Encodes the symbols of a grid unless they are. Throws Error as EncodeParts does.
BCBarcode::Grid& EncodedGrid(BCBarcode& barcode);

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
