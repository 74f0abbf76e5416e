#include "app/Standalone.h"

#include "engine/GenerateWithSettings.h"
#include "settings/GlobalSettings.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

namespace App {

using Diag::ResultCode;

namespace {

constexpr mode_t kOutputMode = 0664;

void ChooseFormat() {
  int& format = g_settings.application.barcode.format;
  if (format == Settings::kFormatNotSet) format = g_settings.application.streamFormat();
  g_settings.trace.Trace(Diag::kDebug, "Output format: ", format);
}

void ReportSystemError(int error) {
  g_settings.trace.Trace(Diag::kInformation, "Error: ", std::strerror(error));
}

bool WriteAll(std::FILE* stream, const std::string& output) {
  return std::fwrite(output.data(), 1, output.size(), stream) == output.size();
}

// A disk that fills up shows in the write or in the close, depending on the size of the output.
bool WriteAndClose(std::FILE* file, const std::string& output) {
  errno = 0;
  const bool written = WriteAll(file, output);
  const int writeError = errno;
  if (std::fclose(file) != 0) return false;
  errno = writeError;
  return written;
}

ResultCode WriteToFile(const std::string& name, const std::string& output) {
  Diag::TraceLog& trace = g_settings.trace;
  trace.Trace(Diag::kInformation, "Writing output to file: ", name);
  std::FILE* const file = std::fopen(name.c_str(), "wb");
  if (file == nullptr) {
    const int error = errno;
    trace.Trace(Diag::kError, "Couldn't open output file.");
    ReportSystemError(error);
    return Diag::kAccessDenied;
  }
  if (!WriteAndClose(file, output)) {
    const int error = errno;
    trace.Trace(Diag::kError, "Couldn't write/close file.");
    trace.Trace(Diag::kInformation, "fopen() for daemon failed.");
    ReportSystemError(error);
    return Diag::kAccessDenied;
  }
  if (chmod(name.c_str(), kOutputMode) != 0) {
    trace.Trace(Diag::kError, "Couldn't change file attributes of output file.");
    return Diag::kAccessDenied;
  }
  return Diag::kSuccess;
}

ResultCode WriteToStdout(const std::string& output) {
  g_settings.trace.Trace(Diag::kInformation, "Writing output to stdout.");
  WriteAll(stdout, output);
  return Diag::kSuccess;
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
