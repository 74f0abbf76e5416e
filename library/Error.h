// The library's one exception: every stage throws it, the C border turns it into a result code.
#pragma once

#include "engine/library/vextorin9.h"

#include <exception>

namespace Library {

class Error : public std::exception {
 public:
  explicit Error(BCResult code, int position = -1, bool inComposite = false)
      : code(code), position(position), inComposite(inComposite) {}
  const char* what() const noexcept override { return "barcode library error"; }

  BCResult code;
  int position;      // zero-based index of the rejected character in the caller's data, -1: unknown
  bool inComposite;  // the error lies in the composite component
};

}  // namespace Library
