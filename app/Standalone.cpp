#include "app/Standalone.h"

#include "app/StandardStreams.h"
#include "diag/File.h"
#include "diag/Output.h"
#include "engine/GenerateWithSettings.h"
#include "settings/GlobalSettings.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace App {

using Diag::ResultCode;

namespace {

constexpr mode_t kOutputMode = 0664;

void ChooseFormat() {
  int& format = g_settings.application.barcode.format;
  if (format == Settings::kFormatNotSet) format = g_settings.application.streamFormat();
  g_settings.trace.Trace(Diag::kDebug, "Output format: ", format);
}

ResultCode Fail(std::string_view message) {
  g_settings.trace.Trace(Diag::kError, message);
  return Diag::kAccessDenied;
}

// The same, for what the system refused.
ResultCode FailWith(int error, std::string_view message, std::string_view more = {}) {
  g_settings.trace.Trace(Diag::kError, message);
  if (!more.empty()) g_settings.trace.Trace(Diag::kInformation, more);
  g_settings.trace.Trace(Diag::kInformation, "Error: ", std::strerror(error));
  return Diag::kAccessDenied;
}

// The mode is the file's that was opened, whatever its name stands for by now, and only a regular
// one has bits of ours.
bool SetMode(const Diag::Descriptor& file) {
  struct stat status;
  if (fstat(file.get(), &status) != 0) return false;
  return !S_ISREG(status.st_mode) || fchmod(file.get(), kOutputMode) == 0;
}

ResultCode WriteToFile(const std::string& name, const std::string& output) {
  g_settings.trace.Trace(Diag::kInformation, "Writing output to file: ", name);
  Diag::Descriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  if (!file) return FailWith(errno, "Couldn't open output file.");
  int error = Diag::WriteAll(file.get(), output);
  const bool modeSet = SetMode(file);
  // A disk that fills up shows in the write or in the close.
  if (const int closeError = file.close(); error == 0) error = closeError;
  if (error != 0)
    return FailWith(error, "Couldn't write/close file.", "fopen() for daemon failed.");
  return modeSet ? Diag::kSuccess : Fail("Couldn't change file attributes of output file.");
}

ResultCode WriteToStdout(const std::string& output) {
  g_settings.trace.Trace(Diag::kInformation, "Writing output to stdout.");
  const int error = Diag::WriteAll(STDOUT_FILENO, output);
  if (error == 0) return Diag::kSuccess;
  ReportOutputFailure(error);
  return Diag::kAccessDenied;
}

}  // namespace

ResultCode WriteStandaloneBarcode() {
  Settings::AppSettings& application = g_settings.application;
  ChooseFormat();
  std::string output;
  const ResultCode code = Engine::GenerateWithSettings(
      application.barcode, output, static_cast<std::uint32_t>(application.memorySize));
  if (code != Diag::kSuccess) return code;

  g_settings.trace.Trace(Diag::kDebug, "Generated barcode: ");
  g_settings.trace.TraceCont(Diag::kDebug, output);
  return application.outputFile.empty() ? WriteToStdout(output)
                                        : WriteToFile(application.outputFile, output);
}

}  // namespace App
