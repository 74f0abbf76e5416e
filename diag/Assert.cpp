#include "diag/Assert.h"

#include "diag/Output.h"

#include <unistd.h>

#include <cstdlib>

namespace Diag {
namespace {

std::string Report(std::string_view file, int line, std::string_view information) {
  return Text("Assertion failed!\nFile: ", file, "\nLine: ", line, "\nInfo: ", information);
}

}  // namespace

void AssertToStderr(bool condition, std::string_view file, int line, std::string_view information) {
  if (condition) return;
  const std::string report = Report(file, line, information) + '\n';
  WriteAll(STDERR_FILENO, report);
  std::exit(kExitAssertion);
}

void AssertToLog(TraceLog& log, bool condition, std::string_view file, int line,
                 std::string_view information) {
  if (condition) return;
  log.TraceCont(kError, Report(file, line, information));
  std::exit(kExitAssertion);
}

}  // namespace Diag
