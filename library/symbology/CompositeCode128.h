// GS1-128 under a composite component (ISO/IEC 24723, 7.4): a code set character behind the data
// that nothing follows tells readers that there is a component, and of which kind.
#pragma once

#include "library/prepare/PreparedData.h"
#include "library/symbology/Symbol.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Library {

class LinkedCode128 {
 public:
  // `elements`: without FNC1 in front. Throws Error as Code128Values does.
  explicit LinkedCode128(Data elements);

  // Digits that make a symbol of as many characters.
  std::string digitsOfSameWidth() const;

  // Replaces the row of a GS1-128 of the same elements; a line of text along it grows with it.
  // Returns the value of the check character.
  std::uint8_t draw(bool componentC, Symbol& symbol) const;

 private:
  std::vector<std::uint8_t> values;
};

}  // namespace Library
