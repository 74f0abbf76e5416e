// The words of Code 49 (ANSI/AIM BC6): two code characters in four bars and four spaces.
#pragma once

#include <cstdint>

namespace Library {

inline constexpr int kCode49Characters = 49;
inline constexpr int kCode49Words = kCode49Characters * kCode49Characters;
inline constexpr int kCode49Parities = 2;  // even, odd

// 16 modules, the first in the highest bit, dark.
extern const std::uint16_t kCode49Patterns[kCode49Parities][kCode49Words];

}  // namespace Library
