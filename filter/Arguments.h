// Options of a sequence that stands among plain bytes of a PostScript job, where an application
// writes values as PostScript strings.
#pragma once

#include "diag/TraceLog.h"

#include <string>

namespace Filter {

// Turns every PostScript string in `text` into a double-quoted option value: (A "B") becomes
// "A ""B""". What is quoted already, and a string that is not closed, stays as it is. Each
// conversion is written to the log at debug level.
void decodeArguments(std::string& text, Diag::TraceLog& log);

}  // namespace Filter
