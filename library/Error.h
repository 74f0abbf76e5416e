// The library's one exception: every stage throws it, the C border turns it into a result code.
#pragma once

#include "engine/library/vextorin9.h"

#include <exception>

namespace Library {

class Error : public std::exception {
 public:
  explicit Error(BCResult result, int index = -1, bool composite = false)
      : code(result), position(index), inComposite(composite) {}
  const char* what() const noexcept override { return "barcode library error"; }

  BCResult code;
  int position;      // zero-based index of the rejected character in the caller's data, -1: unknown
  bool inComposite;  // the error lies in the composite component
};

}  // namespace Library
