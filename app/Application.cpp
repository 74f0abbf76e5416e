#include "app/Application.h"

#include "app/CheckConfiguration.h"
#include "app/QueueConfiguration.h"
#include "app/Run.h"
#include "app/StandardStreams.h"
#include "diag/Output.h"
#include "filter/v1/Version1.h"
#include "settings/ApplicationPath.h"
#include "settings/GlobalSettings.h"

#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace App {

using Diag::ResultCode;

namespace {

constexpr int kArgumentsForStdin = 6;  // program, job, user, title, copies, options
constexpr int kArgumentsForFile = 7;   // and the file's name

// Logs the spooler's arguments and takes the input file's name from them.
ResultCode CheckArguments(int argc, const char* const* argv) {
  Diag::TraceLog& trace = g_settings.trace;
  trace.Trace(Diag::kDebug, "Command line arguments: ");
  for (int i = 0; i < argc; ++i) {
    trace.TracePart(Diag::kDebug, "argv[", i, "]: ");
    trace.TraceCont(Diag::kDebug, Diag::Foreign{argv[i]});
  }
  switch (argc) {
    case kArgumentsForStdin:
      trace.Trace(Diag::kDebug, "Input stream: stdin");
      return Diag::kSuccess;
    case kArgumentsForFile:
      g_settings.application.inputFileGiven = true;
      g_settings.application.inputFile = argv[kArgumentsForFile - 1];
      trace.TracePart(Diag::kDebug, "Input stream: ");
      trace.TraceCont(Diag::kDebug, Diag::Foreign{g_settings.application.inputFile});
      return Diag::kSuccess;
    default:
      trace.Trace(Diag::kError, "Expected parameters: job user title copies options [filename]");
      return Diag::kInvalidArgument;
  }
}

// Whoever asks for the barcode options of a queue that takes them in the version-1 form is told of
// that form, too.
void ShowVersion1Help() {
  const Settings::AppSettings& application = g_settings.application;
  if (!application.v1format || !application.barcodeHelpShown) return;
  const std::string help = Filter::Version1Help();
  Diag::PrintText(help);
}

// The texts that need no configuration, when one is asked for and nothing else.
bool PrintTextAskedFor(int argc, const char* const* argv) {
  if (argc != 2) return false;
  const std::string_view argument = argv[1];
  const Settings::AppSettings& application = g_settings.application;
  if (argument == "--version") {
    application.printVersion();
    return true;
  }
  if (argument != "--help" && argument != "-h") return false;
  application.printUsage();
  return true;
}

// Names the line that ended the loading, in the sinks that the lines above it chose.
void ReportFailurePlace() {
  Diag::TraceLog& trace = g_settings.trace;
  const std::string& place = g_settings.application.failurePlace;
  if (place.empty() || !trace.enabled(Diag::kError)) return;
  trace.openSinks();
  trace.Note(Diag::kError, "Wrong configuration in ", Diag::Foreign{place});
}

// The exit status when there is nothing to go on with.
std::optional<int> LoadSettings(int argc, const char* const* argv) {
  int exitCode = kExitBadArguments;
  std::string& iniFile = g_settings.application.iniFile;
  iniFile = QueueConfiguration(iniFile);
  switch (g_settings.application.load(argc, argv)) {
    case Diag::kSuccess:
      return std::nullopt;
    case Diag::kHelpShown:
      ShowVersion1Help();
      return AfterPrinting(kExitSuccess);
    case Diag::kAccessDenied:
      CheckArguments(argc, argv);
      exitCode = kExitNoIniFile;
      break;
    default:
      g_settings.trace.Trace(Diag::kError, "Error in ini-file.");
      break;
  }
  ReportFailurePlace();
  return exitCode;
}

void WriteBanner() {
  constexpr const char* kRule = "====================================================";
  for (const char* line : {kRule, "Vextorin Event Log", kRule, "Begin logging. ",
                           "Version: Vextorin " VEXTORIN_VERSION}) {
    g_settings.trace.Trace(Diag::kDebug, line);
  }
}

void LogSettings() {
  Diag::TraceLog& trace = g_settings.trace;
  if (!trace.enabled(Diag::kDebug)) return;
  trace.Trace(Diag::kDebug, "Program arguments (g_settings):");
  trace.TraceRaw(Diag::kDebug, g_settings.application.printSettings(), '\n');
}

bool NothingToDo() {
  return g_settings.application.barcode.data.empty() && !g_settings.application.filter;
}

// Names the log, opens its sinks and checks what the spooler and the settings ask for.
std::optional<int> Prepare(int argc, const char* const* argv) {
  Diag::TraceLog& trace = g_settings.trace;
  trace.setName("vextorin");
  trace.openSinks();
  WriteBanner();
  trace.Trace(Diag::kDebug, "Application path: ", Settings::ApplicationDirectory(&trace));
  if (CheckArguments(argc, argv) != Diag::kSuccess) return kExitBadArguments;
  LogSettings();
  if (NothingToDo()) {
    trace.TraceCont(Diag::kError, "BarCode data is missing!\n");
    g_settings.application.printUsage();
    return AfterPrinting(kExitSuccess);
  }
  return std::nullopt;
}

int LogExitCode(int exitCode) {
  g_settings.trace.Trace(Diag::kDebug, "Exit code ", exitCode);
  return exitCode;
}

int StartAndRun(int argc, const char* const* argv) {
  g_settings.trace.setSchedulerReads(RunByScheduler());
  if (argc == 3 && argv[1] == std::string_view("--check")) return CheckConfiguration(argv[2]);
  if (PrintTextAskedFor(argc, argv)) return AfterPrinting(kExitSuccess);
  if (const auto exitCode = LoadSettings(argc, argv)) return *exitCode;
  if (const auto exitCode = Prepare(argc, argv)) return *exitCode;
  const int exitCode = Run();
  return LogExitCode(exitCode == kExitFailure ? int{kExitSuccess} : exitCode);
}

// Ends a run that an exception left. Messages need memory, too: without it the status must do.
int EndUnfinished(int exitCode, std::string_view error, std::string_view detail = {}) {
  try {
    g_settings.trace.Trace(Diag::kError, error);
    if (!detail.empty()) g_settings.trace.Trace(Diag::kDebug, detail);
    LogExitCode(exitCode);
  } catch (const std::bad_alloc&) {
  }
  return exitCode;
}

}  // namespace

int RunApplication(int argc, const char* const* argv) {
  try {
    return StartAndRun(argc, argv);
  } catch (const std::length_error&) {
    return EndUnfinished(kExitSuccess, "Out of memory error.",
                         "String class couldn't allocate enough memory.");
  } catch (const std::bad_alloc&) {
    return EndUnfinished(kExitOutOfMemory, "Out of memory error.");
  } catch (...) {
    return EndUnfinished(kExitException, "Unhandled exception.");
  }
}

}  // namespace App
