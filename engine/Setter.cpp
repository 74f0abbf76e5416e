#include "engine/Setter.h"

#include "engine/Session.h"

namespace Engine {

namespace {

void Report(const Setter& setter, const Settings::BarcodeSettings& settings, BCBarcode* handle,
            Diag::ResultCode code) {
  if (setter.number == nullptr) {
    ReportFailure(Diag::kError, handle, code, setter.message);
  } else {
    ReportFailure(Diag::kError, handle, code, setter.message, settings.*setter.number, '.');
  }
  if (setter.number == &Settings::BarcodeSettings::barcode)
    g_settings.trace.reason(Diag::Text("there is no barcode type ", settings.barcode));
}

}  // namespace

Diag::ResultCode ApplySetters(std::span<const Setter> setters, Settings::BarcodeSettings& settings,
                              BCBarcode* handle) {
  for (const Setter& setter : setters) {
    if (!setter.isSet(settings)) continue;
    const Diag::ResultCode code = setter.call(settings, handle);
    if (code == Diag::kSuccess) continue;
    Report(setter, settings, handle, code);
    return code;
  }
  return Diag::kSuccess;
}

}  // namespace Engine
