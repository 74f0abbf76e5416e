// Writing bytes to descriptors, and texts for the user to standard output.
#pragma once

#include <string_view>

namespace Diag {

// Writes all bytes, waiting where the descriptor doesn't take them yet. 0, or the system's error.
int WriteAll(int descriptor, std::string_view bytes);

// Writes a text for the user, such as a help text, to standard output. Failures are kept, for
// whoever ends the process.
void PrintText(std::string_view text);
// The system's error of the first PrintText that failed, 0 without any.
int PrintFailure();

}  // namespace Diag
