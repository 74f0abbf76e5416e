#include "diag/Assert.h"
#include "diag/TraceLog.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

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
  EXPECT_EQ(log.getCollectedText(), "vextorin: Error: a\nc\n");
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
