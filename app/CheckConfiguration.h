// A configuration on trial, without a job.
#pragma once

#include <string>

namespace App {

// Reads the file as a configuration and prints, line by line, what it sets and what is wrong with
// it. Returns the process's exit status: kExitSuccess, kExitBadArguments when something is wrong,
// kExitNoIniFile when the file can't be read.
int CheckConfiguration(const std::string& fileName);

}  // namespace App
