// What no run of the program shows of its log: names and indentation of other users, assertions
// that fail.
#include "diag/Assert.h"
#include "diag/TraceLog.h"

#include <gtest/gtest.h>

namespace {

TEST(TraceLog, IndentsUnderAnyNameAndCollectsErrorsAndWarnings) {
  Diag::TraceLog log;
  log.setMaxLevel(Diag::kDebug);
  testing::internal::CaptureStderr();
  log.Trace(Diag::kError, "before");
  log.setCollect(true);
  log.setName("other");
  log.decreaseIndent();
  log.increaseIndent();
  log.increaseIndent();
  log.Trace(Diag::kError, "n = ", -3, ' ', 1234.5678, ' ', true);
  log.setIndentWidth(3);
  log.decreaseIndent();
  log.TracePart(Diag::kInformation, "a");
  log.TraceCont(Diag::kWarning, "b");
  log.Note(Diag::kWarning, "ours ", 1);
  log.setMuted(true);
  log.Trace(Diag::kError, "unheard");
  Diag::AssertToStderr(true, "File.cpp", 12, "fine");
  Diag::AssertToLog(log, true, "File.cpp", 12, "fine");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "ERROR: vextorin: Error: before\nERROR: other: Error:     n = -3 1234.57 1\n"
            "INFO: other: Info:    aWARNING:    b\nWARNING: other: Warning:    ours 1\n");
  EXPECT_EQ(log.getCollectedText(), "other: Error:     n = -3 1234.57 1\n   b\n");
}

TEST(FailedAssertion, ReportsItselfAndEndsTheProcessWith100) {
  const std::string report = "Assertion failed!\nFile: File.cpp\nLine: 12\nInfo: broken\n";
  EXPECT_EXIT(Diag::AssertToStderr(false, "File.cpp", 12, "broken"), testing::ExitedWithCode(100),
              "^" + report + "$");
  Diag::TraceLog log;
  EXPECT_EXIT(Diag::AssertToLog(log, false, "File.cpp", 12, "broken"), testing::ExitedWithCode(100),
              "^ERROR: " + report + "$");
}

}  // namespace
