// The program from its arguments to its exit status: start-up in its fixed order, then one of two
// runs, the print-queue filter or one stand-alone barcode.
#pragma once

namespace App {

// The process's exit status. A print queue stops at anything but 0, so an ordinary failure to make
// a barcode is 0, too; its report is in the trace log.
enum ExitCode : int {
  kExitSuccess = 0,
  kExitBadArguments = 10,  // ini file rejected, or wrong number of filter arguments
  kExitNoIniFile = 20,     // ini file that can't be opened
  kExitFailure = 70,       // an ordinary failure, never left to the process
  kExitOutOfMemory = 80,
  kExitAccessDenied = 90,  // the output file, standard output or the print job failed
  kExitNoLibrary = 110,    // the session with the barcode library couldn't be opened
  kExitException = 130,
};

// Works on the global settings; called once. Throws nothing.
int RunApplication(int argc, const char* const* argv);

}  // namespace App
