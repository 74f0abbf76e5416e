// Code 16K (EN 12323): 2 to 16 rows of five symbol characters each. The first character of the
// symbol tells the number of rows and the start mode, the last two are check characters.
#pragma once

#include "library/prepare/PreparedData.h"

#include <cstdint>
#include <vector>

namespace Library {

inline constexpr int kMinCode16KRows = 2, kMaxCode16KRows = 16;
inline constexpr int kCode16KColumns = 5;
// Symbol characters for data, and digits in them.
inline constexpr int kMaxCode16KCharacters = kMaxCode16KRows * kCode16KColumns - 3;
inline constexpr int kMaxCode16KLength = 2 * kMaxCode16KCharacters;

struct Code16KMessage {
  int mode = 0;                      // 0 to 6
  std::vector<std::uint8_t> values;  // of the symbol characters behind the first one
};

// The shortest message for data as of WithoutFnc4. Throws Error with BC_E_DATATOOLONG.
Code16KMessage Code16KValues(const Data& data);

}  // namespace Library
