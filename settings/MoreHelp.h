// The keys and values that the fixed usage and help texts don't name, shown by `morehelp`.
#pragma once

namespace Settings {

// Writes the list to standard output.
void PrintMoreHelp();

}  // namespace Settings
