// Control codes that stand around a PCL job.
#pragma once

#include <string_view>

namespace Engine {

inline constexpr std::string_view kUniversalExit = "\033%-12345X";
// Universal exit and printer reset, and back.
inline constexpr std::string_view kPclJobOpener = "\033%-12345X\033E";
inline constexpr std::string_view kPclJobCloser = "\033E\033%-12345X";

}  // namespace Engine
