#include "app/Run.h"

#include "app/Application.h"
#include "app/Standalone.h"
#include "engine/Session.h"
#include "filter/Filter.h"
#include "settings/ApplicationPath.h"
#include "settings/GlobalSettings.h"

namespace App {

using Diag::ResultCode;

namespace {

int RunFilter() {
  g_settings.trace.Trace(Diag::kInformation, "Filtering stdin.");
  switch (Filter::Filter().run()) {
    case Diag::kSuccess:
      return kExitSuccess;
    case Diag::kJobStreamFailed:
      return kExitAccessDenied;
    case Diag::kOutOfMemory:
      return kExitOutOfMemory;
    default:
      return kExitFailure;
  }
}

int RunStandalone() {
  g_settings.trace.Trace(Diag::kInformation,
                         "Creating barcode with settings from command line arguments.");
  switch (WriteStandaloneBarcode()) {
    case Diag::kSuccess:
      return kExitSuccess;
    case Diag::kAccessDenied:
      return kExitAccessDenied;
    case Diag::kOutOfMemory:
      return kExitOutOfMemory;
    default:
      return kExitFailure;
  }
}

}  // namespace

int Run() {
  if (Engine::InitLibrary(Settings::ApplicationDirectory()) != Diag::kSuccess) {
    return kExitNoLibrary;
  }
  const int exitCode = g_settings.application.filter ? RunFilter() : RunStandalone();
  Engine::DeinitLibrary();
  return exitCode;
}

}  // namespace App
