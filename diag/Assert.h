// Assertions on the program's own invariants. A failed one reports itself and ends the process
// with exit status 100.
#pragma once

#include "diag/TraceLog.h"

#include <string_view>

namespace Diag {

inline constexpr int kExitAssertion = 100;

void AssertToStderr(bool condition, std::string_view file, int line, std::string_view information);
void AssertToLog(TraceLog& log, bool condition, std::string_view file, int line,
                 std::string_view information);

}  // namespace Diag
