// The one global object: the application settings, which own the barcode settings, and the trace
// log. It is built before main runs, so that the earliest messages already reach standard error.
#pragma once

#include "diag/TraceLog.h"
#include "settings/AppSettings.h"

namespace Settings {

struct GlobalSettings {
  AppSettings application;
  Diag::TraceLog trace;
};

}  // namespace Settings

extern Settings::GlobalSettings g_settings;
