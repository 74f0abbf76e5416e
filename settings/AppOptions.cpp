#include "settings/AppOptions.h"

#include "settings/ApplyOption.h"
#include "settings/BarcodeKeywords.h"
#include "settings/MoreHelp.h"

namespace Settings {
namespace {

using A = AppSettings;
using enum Kind;

constexpr Keyword kStreams[] = {{"PS", kStreamPostScript}, {"PCL", kStreamPcl}};
constexpr Keyword kInserts[] = {{"BEFORELINE", kInsertBeforeLine},
                                {"AFTERLINE", kInsertAfterLine},
                                {"BEFORESTRING", kInsertBeforeString},
                                {"AFTERSTRING", kInsertAfterString},
                                {"AUTO", kInsertAuto}};
constexpr Keyword kAllowDeny[] = {{"ALLOW", 1}, {"DENY", 0}};
constexpr Keyword kIgnoreMessage[] = {{"IGNORE", 1}, {"MESSAGE", 0}};
constexpr Keyword kTraceLevels[] = {{"OFF", 0},
                                    {"VERBOSE", Diag::kDebug},
                                    {"INFO", Diag::kInformation},
                                    {"WARNING", Diag::kWarning},
                                    {"ERROR", Diag::kError}};

// The trace log's switches are not fields of the record.

Diag::ResultCode NameErrorFile(A&, const Option<A>&, Given given) {
  g_settings.trace.setErrorFileName(given.value);
  g_settings.trace.setErrorFileOn(true);
  return Diag::kSuccess;
}

Diag::ResultCode SwitchSyslogOn(A&, const Option<A>&, Given) {
  g_settings.trace.setSyslogOn(true);
  return Diag::kSuccess;
}

Diag::ResultCode SwitchStderrOff(A&, const Option<A>&, Given) {
  g_settings.trace.setStderrOn(false);
  return Diag::kSuccess;
}

Diag::ResultCode SetTraceLevel(A& settings, const Option<A>& option, Given given) {
  int level = 0;
  if (!ReadKeyword(given.value, option.keywords, level))
    return RefuseValue(settings, option.refusal, given.value);
  g_settings.trace.setMaxLevel(level);
  return Diag::kSuccess;
}

Diag::ResultCode ShowBarcodeSettings(A& settings, const Option<A>&, Given) {
  settings.barcode.printUsage();
  settings.barcodeHelpShown = true;
  return Diag::kHelpShown;
}

Diag::ResultCode ShowUsage(A& settings, const Option<A>&, Given) {
  settings.printUsage();
  return Diag::kHelpShown;
}

Diag::ResultCode ShowMoreHelp(A&, const Option<A>&, Given) {
  PrintMoreHelp();
  return Diag::kHelpShown;
}

Diag::ResultCode ShowVersion(A& settings, const Option<A>&, Given) {
  settings.printVersion();
  return Diag::kHelpShown;
}

// clang-format off
constexpr Option<A> kOptions[] = {
    {"memory", "", kInteger, &A::memorySize, "Size of memory must be a value greater 0.",
     {.low = 1}},
    {"output", "o", kText, &A::outputFile},
    {"inifile", "", kText, &A::iniFile},
    {"globalxoffset", "", kReal, &A::globalXOffset, "Invalid global x offset: "},
    {"globalyoffset", "", kReal, &A::globalYOffset, "Invalid global y offset: "},
    {"filter", "", kFlag, &A::filter},
    {"stream", "", kKeyword, &A::streamType, "Stream type must be 'PS' or 'PCL'.", {}, kStreams},
    {"escapebegin", "", kText, &A::escapeBegin},
    {"escapeend", "", kText, &A::escapeEnd},
    {"insert", "", kKeyword, &A::insertMode,
     "Insert mode must be 'beforeline', 'afterline', 'beforestring' or 'afterstring'.", {},
     kInserts},
    {"insertpattern", "", kText, &A::insertPattern},
    {"pclreset", "", kFlag, &A::pclReset},
    {"SAP", "S", kFlag, &A::sap},
    {"orvella", "", kKeyword, &A::orvella, "Orvella state must be set to 'on' or 'off'.", {},
     kOnOff},
    {"v1format", "", kFlag, &A::v1format},
    {"errorfile", "", kValueAction, &NameErrorFile},
    {"syslog", "", kAction, &SwitchSyslogOn},
    {"nostderr", "", kAction, &SwitchStderrOff},
    {"trace", "", kValueAction, &SetTraceLevel,
     "Trace level must be 'off', 'verbose', 'info', 'warning' or 'error'.", {}, kTraceLevels},
    {"onerror", "", kKeyword, &A::ignoreBarcodeError,
     "On-Error-Action must be 'ignore' or 'message'.", {}, kIgnoreMessage},
    {"onnodata", "", kKeyword, &A::ignoreNoData,
     "On-No-Data-Action must be 'ignore' or 'message'.", {}, kIgnoreMessage},
    {"linebyline", "", kFlag, &A::lineByLine},
    {"jobfiles", "", kKeyword, &A::jobFiles, "Job files must be set to 'allow' or 'deny'.", {},
     kAllowDeny},
    {"barcodesettings", "s", kAction, &ShowBarcodeSettings},
    {"help", "?", kAction, &ShowUsage},
    {"shorthelp", "", kAction, &ShowUsage},
    {"version", "", kAction, &ShowVersion},
    {"morehelp", "", kAction, &ShowMoreHelp},
};
// clang-format on

static_assert(NamesUnique(kOptions));
static_assert(KindsSuitFields(kOptions));

}  // namespace

std::span<const Option<AppSettings>> AppOptions() {
  return kOptions;
}

}  // namespace Settings
