#include "diag/Assert.h"
#include "diag/TraceLog.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdarg>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <vector>

namespace {

// The calls for the system log, whose functions are replaced in this process.
std::vector<std::string> g_syslog;

void WriteDown(int priority, const char* format, std::va_list arguments) {
  char text[256];
  std::vsnprintf(text, sizeof text, format, arguments);
  g_syslog.push_back(Diag::Text(priority, " [", text, ']'));
}

}  // namespace

extern "C" {

void openlog(const char* identity, int options, int facility) {
  g_syslog.push_back(Diag::Text("open ", identity, ' ', options, ' ', facility));
}

void closelog() {
  g_syslog.push_back("close");
}

void syslog(int priority, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  WriteDown(priority, format, arguments);
  va_end(arguments);
}

// What syslog is in a build with checked C library functions.
void __syslog_chk(int priority, int, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  WriteDown(priority, format, arguments);
  va_end(arguments);
}

}  // extern "C"

namespace {

using Diag::TraceLog;
using Write = std::function<void(TraceLog&)>;

std::string OnStderr(const Write& write, int maxLevel = Diag::kDebug) {
  TraceLog log;
  log.setMaxLevel(maxLevel);
  testing::internal::CaptureStderr();
  write(log);
  return testing::internal::GetCapturedStderr();
}

TEST(TraceLogLine, HasTagNameLevelWordAndIndentation) {
  const std::pair<Write, const char*> kCases[] = {
      {[](TraceLog& log) { log.Trace(Diag::kError, "m"); }, "ERROR: vextorin: Error: m\n"},
      {[](TraceLog& log) { log.Trace(Diag::kWarning, "m"); }, "WARNING: vextorin: Warning: m\n"},
      {[](TraceLog& log) { log.Trace(Diag::kInformation, "m"); }, "INFO: vextorin: Info: m\n"},
      {[](TraceLog& log) { log.Trace(Diag::kDebug, "n = ", -3, ' ', 0.254, ' ', true); },
       "DEBUG: vextorin: n = -3 0.254 1\n"},
      {[](TraceLog& log) { log.TracePart(Diag::kError, "m"); }, "ERROR: vextorin: Error: m"},
      {[](TraceLog& log) { log.TraceCont(Diag::kError, "m"); }, "ERROR: m\n"},
      {[](TraceLog& log) { log.TraceRaw(Diag::kError, "a\nb\n"); }, "ERROR: a\nb\n"},
      {[](TraceLog& log) {
         log.setName("other");
         log.increaseIndent();
         log.increaseIndent();
         log.Trace(Diag::kError, "m");
       },
       "ERROR: other: Error:     m\n"},
      {[](TraceLog& log) { log.Note(Diag::kWarning, "m", 1); }, "WARNING: vextorin: Warning: m1\n"},
      {[](TraceLog& log) {
         log.setIndentWidth(3);
         log.decreaseIndent();
         log.increaseIndent();
         log.TraceCont(Diag::kError, "m");
       },
       "ERROR:    m\n"},
      {[](TraceLog& log) {
         log.setMuted(true);
         log.Trace(Diag::kError, "m");
         log.setMuted(false);
         log.setStderrOn(false);
         log.Trace(Diag::kError, "m");
         Diag::AssertToStderr(true, "File.cpp", 12, "fine");
         Diag::AssertToLog(log, true, "File.cpp", 12, "fine");
       },
       ""},
  };
  for (const auto& [write, line] : kCases) {
    SCOPED_TRACE(line);
    EXPECT_EQ(OnStderr(write), line);
  }
}

TEST(TraceLogLevel, LetsMessagesUpToItThrough) {
  const Write all = [](TraceLog& log) {
    for (const auto level : {Diag::kError, Diag::kWarning, Diag::kInformation, Diag::kDebug})
      log.TraceRaw(level, static_cast<int>(level));
  };
  EXPECT_EQ(OnStderr(all, 0), "");
  EXPECT_EQ(OnStderr(all, 1), "ERROR: 1");
  EXPECT_EQ(OnStderr(all, 4), "ERROR: 1WARNING: 2INFO: 3DEBUG: 4");
}

TEST(TraceLogCollection, HoldsErrorsAndWarningsWithoutTags) {
  TraceLog log;
  log.setStderrOn(false);
  log.setMaxLevel(Diag::kDebug);
  log.Trace(Diag::kError, "before");
  log.setCollect(true);
  log.Trace(Diag::kError, "a");
  log.Trace(Diag::kInformation, "b");
  log.TraceCont(Diag::kWarning, "c");
  log.Note(Diag::kError, "ours");
  EXPECT_EQ(log.getCollectedText(), "vextorin: Error: a\nc\n");
}

TEST(ErrorFile, IsAppendedToAndCompleteAfterEveryLine) {
  const Support::TempFolder folder;
  const std::string path = folder.file("errors.txt");
  std::string expected;
  for (const std::string run : {"first", "second"}) {
    TraceLog log;
    log.setStderrOn(false);
    log.setErrorFileName(path);
    log.setErrorFileOn(true);
    EXPECT_EQ(log.openSinks(), TraceLog::kSinksOpen);
    log.Trace(Diag::kError, run);
    expected += "vextorin: Error: " + run + "\n";
    EXPECT_EQ(Support::ReadFile(path), expected);
  }
}

TEST(ErrorFile, ThatCannotBeOpenedIsReportedAndLeftOut) {
  const Support::TempFolder folder;
  const std::string link = folder.file("link"), pipe = folder.file("pipe");
  std::filesystem::create_symlink(folder.write("target", "kept"), link);
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const struct {
    const char* name;
    Diag::ResultCode result;
    std::string report;
  } kCases[] = {
      {"", Diag::kInvalidArgument, "Filename of error file must be specified.\n"},
      {"/nowhere/error.txt", Diag::kAccessDenied,
       "Couldn't open error file.\nError message:No such file or directory\n"},
      {link.c_str(), Diag::kAccessDenied,
       "Couldn't open error file.\nError message:Too many levels of symbolic links\n"},
      // Nobody reads it.
      {pipe.c_str(), Diag::kAccessDenied,
       "Couldn't open error file.\nError message:No such device or address\n"},
  };
  for (const auto& test : kCases) {
    const std::string report = OnStderr([&](TraceLog& log) {
      log.setErrorFileName(test.name);
      log.setErrorFileOn(true);
      EXPECT_EQ(log.openSinks(), test.result);
      log.Trace(Diag::kError, "goes on");
    });
    EXPECT_EQ(report, test.report + "ERROR: vextorin: Error: goes on\n");
  }
  EXPECT_EQ(Support::ReadFile(folder.file("target")), "kept");
}

TEST(ErrorFile, IsForOwnerAndGroupAndMayBeAStandardStream) {
  const Support::TempFolder folder;
  const std::string path = folder.file("errors.txt");
  const mode_t before = umask(0);
  for (const std::string& name : {path, std::string("/dev/stderr")}) {
    EXPECT_EQ(OnStderr([&](TraceLog& log) {
                log.setStderrOn(false);
                log.setErrorFileName(name);
                log.setErrorFileOn(true);
                EXPECT_EQ(log.openSinks(), TraceLog::kSinksOpen);
                log.Trace(Diag::kError, "m");
              }),
              name == path ? "" : "vextorin: Error: m\n");
  }
  umask(before);
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777u, 0640u);
}

TEST(Syslog, GetsMessagesWithoutNameAndLineEndWhileOn) {
  constexpr int kWithProcessId = 1;
  constexpr int kUserFacility = 8;
  for (const bool on : {true, false}) {
    g_syslog.clear();
    {
      TraceLog log;
      log.setStderrOn(false);
      log.setSyslogOn(on);
      log.setMaxLevel(Diag::kDebug);
      log.setName("queue");
      EXPECT_EQ(log.openSinks(), TraceLog::kSinksOpen);
      log.increaseIndent();
      log.Trace(Diag::kError, "100%s");
      log.TracePart(Diag::kWarning, "one ");
      log.TraceCont(Diag::kInformation, "two");
      log.TraceRaw(Diag::kDebug, "three\n");
    }
    const std::vector<std::string> expected = {
        "close",  // open sinks are closed first
        Diag::Text("open queue ", kWithProcessId, ' ', kUserFacility),
        "11 [Error:   100%s]",
        "12 [Warning:   one ]",
        "14 [  two]",
        "14 [  three\n]",
        "close"};
    EXPECT_EQ(g_syslog, on ? expected : std::vector<std::string>{});
  }
}

TEST(FailedAssertion, ReportsItselfAndEndsTheProcessWith100) {
  const std::string report = "Assertion failed!\nFile: File.cpp\nLine: 12\nInfo: broken\n";
  EXPECT_EXIT(Diag::AssertToStderr(false, "File.cpp", 12, "broken"), testing::ExitedWithCode(100),
              "^" + report + "$");
  TraceLog log;
  EXPECT_EXIT(Diag::AssertToLog(log, false, "File.cpp", 12, "broken"), testing::ExitedWithCode(100),
              "^ERROR: " + report + "$");
}

}  // namespace
