#include "settings/AppSettings.h"

#include "diag/Output.h"
#include "engine/library/vextorin9.h"
#include "parser/CommandLineParser.h"
#include "parser/IniFileParser.h"
#include "settings/AppOptions.h"
#include "settings/ApplicationPath.h"
#include "settings/ApplyOption.h"
#include "settings/BarcodeFiles.h"
#include "settings/UsageText.h"

namespace Settings {
namespace {

constexpr const char* kSystemConfiguration = "/var/opt/share/vextorin/vextorin.conf";

}  // namespace

AppSettings::AppSettings()
    : iniFile(FileExists(kSystemConfiguration) ? kSystemConfiguration
                                               : ApplicationDirectory() + "vextorin.conf") {}

std::string AppSettings::printSettings() const {
  std::string text = "Application settings: ";
  const auto line = [&](std::string_view label, const auto& value) {
    text += Diag::Text('\n', label, " = ", value);
  };
  line("MemorySize", memorySize);
  line("OutputFile", outputFile);
  line("Global x offset", globalXOffset);
  line("Global y offset", globalYOffset);
  line("Filter Flag", filter);
  line("Stream Type", streamType);
  line("Begin of Escape Sequence", escapeBegin);
  line("End of Escape Sequence", escapeEnd);
  line("Insert Mode", insertMode);
  line("Insert Pattern", insertPattern);
  line("PCL Reset", pclReset);
  line("SAP Flag", sap);
  line("Orvella Flag", orvella);
  line("v1format Flag", v1format);
  line("Ignore Barcode Error Flag", ignoreBarcodeError);
  line("Ignore No Data Flag", ignoreNoData);
  line("ErrorFile", g_settings.trace.getErrorFileName());
  line("IniFile", Diag::Foreign{iniFile});
  line("Filter Line-by-Line Flag", lineByLine);
  return text;
}

void AppSettings::printUsage() const {
  Diag::PrintText(kUsageText);
}

Diag::ResultCode AppSettings::readOptions(Parser::ArgumentParser& parser) {
  Diag::ResultCode shown = Diag::kSuccess;
  const Diag::ResultCode result = applyEach(parser, [&](const std::string& name) {
    const Option<AppSettings>* option = FindOption(AppOptions(), name);
    if (!option) return barcode.handleOption(name, parser);
    const Diag::ResultCode applied = ApplyFrom(parser, *this, *option, name);
    if (applied != Diag::kHelpShown) return applied;
    shown = applied;  // the options behind a help or version option are still applied
    return Diag::kSuccess;
  });
  return result == Diag::kSuccess ? shown : result;
}

OutputFormat AppSettings::streamFormat() const {
  return streamType == kStreamPcl ? kFormatPcl : kFormatPostScript;
}

// On the command line every option is taken to have an argument, and only this one counts.
void AppSettings::takeIniFileName(int argc, const char* const* argv) {
  Parser::CommandLineParser parser(argc, argv);
  std::string name;
  std::string value;
  while (parser.nextOption(name) == Diag::kSuccess)
    if (parser.optionArgument(value) == Diag::kSuccess && name == "inifile") iniFile = value;
}

Diag::ResultCode AppSettings::load(int argc, const char* const* argv) {
  Diag::TraceLog& trace = g_settings.trace;
  takeIniFileName(argc, argv);
  Parser::IniFileParser parser;
  if (parser.open(iniFile) != Diag::kSuccess) {
    trace.TraceRaw(Diag::kError, Diag::kFile);
    trace.TraceCont(Diag::kError, Diag::Foreign{iniFile});
    trace.Trace(Diag::kError, "Couldn't open ini-file.\n");
    return Diag::kAccessDenied;
  }
  const Diag::ResultCode result = readOptions(parser);
  if (result != Diag::kSuccess && result != Diag::kHelpShown) {
    failurePlace = PlaceIn(parser, iniFile, false);
    if (!barcode.failurePlace.empty())
      failurePlace = barcode.failurePlace + ", named in " + failurePlace;
  }
  if (result == Diag::kInvalidArgument) {
    trace.Trace(Diag::kError, "Wrong ini-file.");
    trace.TraceCont(Diag::kError, "Try 'vextorin --help' for more information.\n");
  }
  return result;
}

}  // namespace Settings
