// The library's one exception: every stage throws it, the C border turns it into a result code.
#pragma once

#include "engine/library/vextorin9.h"

#include <concepts>
#include <exception>

namespace Library {

// E_FAIL: a fault of ours or of a library under us, not one that the interface names.
inline constexpr BCResult kInternalError = 0x80004005u;

// Zero-based index of a character in the caller's data, a type of its own so that it cannot be
// taken for a result code.
struct DataIndex {
  int value = -1;  // -1: unknown

  constexpr DataIndex() = default;
  constexpr explicit DataIndex(int index) : value(index) {}
  constexpr bool known() const { return value >= 0; }
};

class Error : public std::exception {
 public:
  explicit Error(std::same_as<BCResult> auto result, DataIndex index = {})
      : code(result), position(index) {}
  const char* what() const noexcept override { return "barcode library error"; }

  // The same error, in the composite component of the symbol.
  Error inComponent() const {
    Error error = *this;
    error.inComposite = true;
    return error;
  }

  BCResult code;
  DataIndex position;        // of the rejected character
  bool inComposite = false;  // the error lies in the composite component
};

}  // namespace Library
