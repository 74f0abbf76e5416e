// An output language. A writer prints the drawing it is given and knows no symbology; the same
// drawing gives the same bytes.
#pragma once

#include "library/layout/Drawing.h"

#include <string>

namespace Library {

class Writer {
 public:
  virtual ~Writer() = default;
  virtual std::string write(const Drawing& drawing) const = 0;
};

}  // namespace Library
