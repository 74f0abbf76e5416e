#include "settings/BarcodeFiles.h"

#include "diag/File.h"
#include "parser/IniFileParser.h"
#include "settings/GlobalSettings.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Settings {
namespace {

int g_fileNesting = 0;

struct NestingLevel {
  NestingLevel() { ++g_fileNesting; }
  ~NestingLevel() { --g_fileNesting; }
  NestingLevel(const NestingLevel&) = delete;
  NestingLevel& operator=(const NestingLevel&) = delete;
};

template <class... Parts>
Diag::ResultCode Fail(Diag::ResultCode result, const Parts&... message) {
  g_settings.trace.Trace(Diag::kError, message...);
  return result;
}

Diag::FileKind KindFor(const BarcodeSettings& settings) {
  return settings.fromJob ? Diag::FileKind::kRegular : Diag::FileKind::kAny;
}

// Whether settings from a job may read one file more. `cost` is its own, for what it makes us do.
Diag::ResultCode CheckRights(BarcodeSettings& settings, std::string_view option,
                             std::size_t cost = 0) {
  if (!settings.fromJob) return Diag::kSuccess;
  if (!g_settings.application.jobFiles)
    return Fail(Diag::kAccessDenied, "A sequence may not use '", option,
                "': 'jobfiles' is set to 'deny'.");
  settings.fileCost += cost;
  if (settings.fileCost > kMaxFileCost)
    return Fail(Diag::kAccessDenied, "A sequence names too many or too large files with '", option,
                "'.");
  return Diag::kSuccess;
}

Diag::ResultCode ReportDataFile(const BarcodeSettings& settings, const std::string& fileName,
                                const Diag::FileContents& file) {
  switch (file.failure) {
    case Diag::ReadFailure::kNone:
      return Diag::kSuccess;
    case Diag::ReadFailure::kNotOpened:
      g_settings.trace.reason(
          Diag::Text("the file of 'datafile' can't be opened: ", std::strerror(file.error)));
      return Fail(Diag::kAccessDenied, "Couldn't open data file.\n");
    case Diag::ReadFailure::kNotRead:
      return Fail(Diag::kAccessDenied, "Couldn't read from data file.\n");
    case Diag::ReadFailure::kNotRegular:
      return Fail(Diag::kAccessDenied, "Data file is no regular file: ", settings.quoted(fileName));
    case Diag::ReadFailure::kTooLarge:
      break;
  }
  return Fail(Diag::kAccessDenied, "Data file is too large: ", settings.quoted(fileName));
}

Diag::ResultCode ReportSettingsFile(const BarcodeSettings& settings, const std::string& fileName,
                                    const Diag::FileContents& file) {
  const Diag::Foreign name = settings.quoted(fileName);
  switch (file.failure) {
    case Diag::ReadFailure::kNone:
      return Diag::kSuccess;
    case Diag::ReadFailure::kNotOpened:
      return Fail(Diag::kAccessDenied, "Couldn't open barcode settings file: ", name, ": ",
                  std::strerror(file.error));
    case Diag::ReadFailure::kNotRead:
      return Fail(Diag::kAccessDenied, "Couldn't read barcode settings file: ", name, ": ",
                  std::strerror(file.error));
    case Diag::ReadFailure::kNotRegular:
      return Fail(Diag::kAccessDenied, "Barcode settings file is no regular file: ", name);
    case Diag::ReadFailure::kTooLarge:
      break;
  }
  return Fail(Diag::kAccessDenied, "Barcode settings file is too large: ", name);
}

Diag::ResultCode ApplyFile(BarcodeSettings& settings, const std::string& fileName,
                           std::string bytes) {
  Parser::IniFileParser parser;
  parser.take(std::move(bytes));
  const Diag::ResultCode result = settings.readOptions(parser);
  if (result != Diag::kSuccess && settings.failurePlace.empty())
    settings.failurePlace = PlaceIn(parser, fileName, settings.fromJob);
  return result;
}

}  // namespace

Diag::ResultCode AppendDataFile(BarcodeSettings& settings, const std::string& fileName) {
  if (const auto result = CheckRights(settings, "datafile")) return result;
  const std::size_t room = kMaxDataSize - std::min(kMaxDataSize, settings.data.size());
  const Diag::FileContents file = Diag::ReadFile(fileName, KindFor(settings), room);
  settings.data += file.bytes;
  if (const auto result = ReportDataFile(settings, fileName, file)) return result;
  return CheckRights(settings, "datafile", kFileCost + file.bytes.size());
}

Diag::ResultCode ReadSettingsFile(BarcodeSettings& settings, const std::string& fileName) {
  if (const auto result = CheckRights(settings, "bcfile")) return result;
  const NestingLevel level;
  if (g_fileNesting > kMaxFileNesting)
    return Fail(Diag::kInvalidArgument,
                "Barcode settings files are nested too deeply: ", settings.quoted(fileName));
  Diag::FileContents file = Diag::ReadFile(fileName, KindFor(settings), kMaxSettingsSize);
  if (const auto result = ReportSettingsFile(settings, fileName, file)) return result;
  const std::size_t cost = kFileCost + kSettingsByteCost * file.bytes.size();
  if (const auto result = CheckRights(settings, "bcfile", cost)) return result;
  return ApplyFile(settings, fileName, std::move(file.bytes));
}

std::string PlaceIn(const Parser::IniFileParser& parser, const std::string& fileName,
                    bool fromJob) {
  const std::string place = Diag::Text("line ", parser.lineNumber(), " of ");
  // What stands in a file that a job names is not the job's to read.
  if (fromJob) return Diag::Text(place, Diag::Foreign{fileName});
  return Diag::Text(place, Diag::Foreign{fileName}, ": ", Diag::Foreign{parser.lineText()});
}

}  // namespace Settings
