#include "engine/GenerateWithSettings.h"

#include "engine/Barcode.h"
#include "settings/GlobalSettings.h"

namespace Engine {

using Diag::ResultCode;
using Settings::BarcodeSettings;

namespace {

constexpr int kCode39 = 8;

// SAP prints Code 39 data with its start and stop characters, which the library adds itself.
void RemoveSapStars(BarcodeSettings& settings) {
  std::string& data = settings.data;
  if (settings.barcode != kCode39 || !g_settings.application.sap) return;
  if (data.size() < 2 || !data.starts_with('*') || !data.ends_with('*')) return;
  g_settings.trace.Trace(Diag::kInformation, "Removing embracing '*' in Code39 data.");
  data = data.substr(1, data.size() - 2);
  g_settings.trace.Trace(Diag::kDebug,
                         "SAP and Code39: '*' filtered. Barcode data = ", settings.quoted(data));
}

// Collects error and warning lines for as long as it lives.
class Collecting {
 public:
  explicit Collecting(Diag::TraceLog& newTrace) : trace(newTrace) {
    trace.clearCollectedText();
    trace.setCollect(true);
  }
  ~Collecting() { trace.setCollect(false); }
  Collecting(const Collecting&) = delete;
  Collecting& operator=(const Collecting&) = delete;

 private:
  Diag::TraceLog& trace;
};

}  // namespace

ResultCode GenerateWithSettings(BarcodeSettings& settings, std::string& output,
                                std::uint32_t memorySize) {
  const Settings::AppSettings& application = g_settings.application;
  RemoveSapStars(settings);
  settings.xpos += application.globalXOffset;
  settings.ypos += application.globalYOffset;

  const Collecting collecting(g_settings.trace);
  const ResultCode code = GenerateBarcode(settings, output, memorySize,
                                          application.ignoreBarcodeError, application.ignoreNoData);
  if (code != Diag::kSuccess) output = g_settings.trace.getCollectedText();
  return code;
}

}  // namespace Engine
