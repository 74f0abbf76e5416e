// Code 128 (ISO/IEC 15417): the character values of the shortest symbol, and their bars.
#pragma once

#include "library/prepare/PreparedData.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Library {

// Symbol characters for data, switches among them. The standard knows no limit; a symbol of this
// many is as long as the long edge of an A0 sheet (1189 mm) at the narrowest X in use (0.19 mm).
inline constexpr int kMaxCode128Characters = 568;

// The values of the start character and the symbol characters of `data`, as few as possible.
//
// Bytes 128 to 255 are written with FNC4, one by one or latched. Where the data hold FNC4 of their
// own, what follows is written as it stands, and a byte above 127 is invalid: nobody could tell the
// two apart. After a code-set switch every character that the set has is written in it, any other
// in whatever set it needs. Throws Error with BC_E_INVALIDDATA, BC_E_DATATOOLONG.
std::vector<std::uint8_t> Code128Values(const Data& data);

// The data with FNC4 of the caller's own taken into the bytes that they apply to, for symbologies
// that write them anew. Throws Error with BC_E_INVALIDDATA at an FNC4 that nothing follows, and as
// above where both FNC4 and such bytes are given.
Data WithoutFnc4(const Data& data);

// The check character over a start character and what follows.
std::uint8_t Code128CheckCharacter(const std::vector<std::uint8_t>& values);

// Widths of the bars and spaces of a value 0..106; 103 to 105 are the start characters A, B, C.
std::string_view Code128Pattern(int value);

inline constexpr int kCode128Stop = 106;

}  // namespace Library
