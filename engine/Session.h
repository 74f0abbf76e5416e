// The process-wide session with the barcode library, and the words for its result codes.
#pragma once

#include "diag/ResultCode.h"
#include "diag/TraceLog.h"
#include "engine/library/vextorin9.h"
#include "settings/GlobalSettings.h"

#include <string>

namespace Engine {

// Opens the session: once, before any other call of the engine. `argument` is the directory of the
// running program. Returns the library's code.
Diag::ResultCode InitLibrary(const std::string& argument);

// Closes the session, after the last barcode has been freed. Returns the library's code.
Diag::ResultCode DeinitLibrary();

// The full message for a failed library call. `handle` is the barcode whose call failed, null where
// the failure concerns no barcode.
std::string GetErrorMessage(BCBarcode* handle, Diag::ResultCode code);

// The part of that message that comes from the library and the state of the barcode:
// "Error in linear component - " (composite symbols only), the library's text, and what it is about
// ("'A' at position 3"). `handle` is not null.
std::string GetErrorDetails(BCBarcode* handle, Diag::ResultCode code);

// Says why the last call on that barcode failed, where the print scheduler reads: in a sentence for
// those who print, when the library has one. `handle` is not null.
void GiveReason(BCBarcode* handle, Diag::ResultCode code);

// Reports a failed library call: the caller's sentence, given in parts, as a line of its own and
// the library's message behind it.
template <class... Parts>
void ReportFailure(Diag::Level level, BCBarcode* handle, Diag::ResultCode code,
                   const Parts&... sentence) {
  g_settings.trace.Trace(level, sentence...);
  g_settings.trace.TraceCont(level, GetErrorMessage(handle, code));
}

}  // namespace Engine
