#pragma once

#include "diag/TraceLog.h"

#include <string>

namespace Settings {

// The directory that holds the running program, with its trailing "/". Where the system doesn't
// tell, the default installation directory, and `log` (may be null) is told so.
std::string ApplicationDirectory(Diag::TraceLog* log = nullptr);

}  // namespace Settings
