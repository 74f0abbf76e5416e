// Where a job comes from and goes to, when that fails, is slow or is no file.
#include "tests/support/Pictures.h"
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace Support;

const std::string kError = "ERROR: vextorin: Error: ";

// The filter behind a line of shell, in which "$@" stands for it with its arguments.
Finished RunInShell(const std::string& line, const std::string& input = {},
                    const std::string& settings = "filter\n") {
  const TempFolder folder;
  return Support::Run(
      {.arguments = {"bash", "-c", line, "bash", VEXTORIN_PROGRAM,
                     "--inifile=" + folder.write("ini", settings), "joe", "title", "1", ""},
       .input = input,
       .folder = folder.path()});
}

// A job that no pipe takes at once.
std::string LongJob() {
  return "%!PS\n(" + std::string(40, 'x') + ") show\n" + Noise(1, 600'000) + "\n";
}

TEST(Stream, FailuresEndWith90AndTheReason) {
  const std::pair<const char*, std::string> rows[] = {
      {"\"$@\" >/dev/full", "Couldn't write the print job: No space left on device"},
      {"\"$@\" >&-", "Couldn't write the print job: Bad file descriptor"},
      {"(env --default-signal=PIPE \"$@\"; exit $?) | (exec <&-); exit ${PIPESTATUS[0]}",
       "Couldn't write the print job: Broken pipe"},
      {"\"$@\" </", "Couldn't read the print job: Is a directory"},
      {"\"$@\" <&-", "Couldn't read the print job: Bad file descriptor"},
      {"\"$@\" /", "Couldn't read the print job: Is a directory"},
  };
  for (const auto& [line, report] : rows) {
    SCOPED_TRACE(line);
    const Finished finished = RunInShell(line, LongJob());
    EXPECT_EQ(finished.errors, kError + report + "\n");
    EXPECT_EQ(finished.status, 90);
    EXPECT_EQ(finished.output, "");
  }
}

// Descriptors that others have made non-blocking, with a slow writer and a slow reader.
TEST(Stream, WaitsWhereADescriptorWouldBlock) {
  Program program = Filter();
  program.slow = true;
  const std::string job = LongJob();
  const Program::Result result = program.run(job);
  EXPECT_TRUE(result.output == job) << result.output.size();
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.status, 0);
}

}  // namespace
