// The two runs that the program consists of, once its settings are known.
#pragma once

namespace App {

// Opens the barcode library's session, filters the print job or makes the stand-alone barcode as
// the global settings say, and closes the session. Returns an exit status (see Application.h).
int Run();

}  // namespace App
