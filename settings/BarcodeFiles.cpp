#include "settings/BarcodeFiles.h"

#include "diag/File.h"
#include "parser/IniFileParser.h"
#include "settings/GlobalSettings.h"

#include <array>
#include <cstdio>

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

}  // namespace

Diag::ResultCode AppendDataFile(BarcodeSettings& settings, const std::string& fileName) {
  const Diag::File file(std::fopen(fileName.c_str(), "rb"));
  if (!file) return Fail(Diag::kAccessDenied, "Couldn't open data file.\n");
  std::array<char, 65536> block;
  while (const std::size_t size = std::fread(block.data(), 1, block.size(), file.get())) {
    if (settings.data.size() + size > kMaxDataSize)
      return Fail(Diag::kAccessDenied, "Data file is too large: ", fileName);
    settings.data.append(block.data(), size);
  }
  if (std::ferror(file.get())) return Fail(Diag::kAccessDenied, "Couldn't read from data file.\n");
  return Diag::kSuccess;
}

Diag::ResultCode ReadSettingsFile(BarcodeSettings& settings, const std::string& fileName) {
  const NestingLevel level;
  if (g_fileNesting > kMaxFileNesting)
    return Fail(Diag::kInvalidArgument, "Barcode settings files are nested too deeply: ", fileName);
  Parser::IniFileParser file;
  if (const Diag::ResultCode result = file.open(fileName)) return result;
  return settings.readOptions(file);
}

}  // namespace Settings
