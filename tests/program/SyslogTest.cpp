// What the system log gets. The functions of the C library are replaced in this process by ones
// that write down their calls.
#include "diag/TraceLog.h"

#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

namespace {

std::vector<std::string> g_calls;

std::string Formatted(const char* format, std::va_list arguments) {
  char text[256];
  std::vsnprintf(text, sizeof text, format, arguments);
  return text;
}

}  // namespace

extern "C" {

void openlog(const char* identity, int options, int facility) {
  g_calls.push_back(Diag::Text("open ", std::string(identity), ' ', options, ' ', facility));
}

void closelog() {
  g_calls.push_back("close");
}

void syslog(int priority, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  g_calls.push_back(Diag::Text(priority, " [", Formatted(format, arguments), ']'));
  va_end(arguments);
}

// What syslog is in a build with checked C library functions.
void __syslog_chk(int priority, int, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  g_calls.push_back(Diag::Text(priority, " [", Formatted(format, arguments), ']'));
  va_end(arguments);
}

}  // extern "C"

namespace {

constexpr int kWithProcessId = 1;
constexpr int kUserFacility = 8;

TEST(Syslog, GetsMessagesWithoutNameAndLineEnd) {
  g_calls.clear();
  {
    Diag::TraceLog log;
    log.setStderrOn(false);
    log.setSyslogOn(true);
    log.setMaxLevel(Diag::kDebug);
    log.setName("queue");
    EXPECT_EQ(log.openSinks(), Diag::TraceLog::kSinksOpen);
    g_calls.erase(g_calls.begin());  // open sinks are closed first
    log.increaseIndent();
    log.Trace(Diag::kError, "100%s");
    log.TracePart(Diag::kWarning, "one ");
    log.TraceCont(Diag::kInformation, "two");
    log.TraceRaw(Diag::kDebug, "three\n");
  }
  EXPECT_EQ(g_calls,
            (std::vector<std::string>{Diag::Text("open queue ", kWithProcessId, ' ', kUserFacility),
                                      "11 [Error:   100%s]", "12 [Warning:   one ]", "14 [  two]",
                                      "14 [  three\n]", "close"}));
}

TEST(Syslog, IsLeftAloneWhileOff) {
  g_calls.clear();
  {
    Diag::TraceLog log;
    log.setStderrOn(false);
    log.openSinks();
    log.Trace(Diag::kError, "text");
  }
  EXPECT_TRUE(g_calls.empty());
}

}  // namespace
