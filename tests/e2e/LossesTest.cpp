// What fails is told: output that nobody takes, configurations that can't be read or are wrong,
// memory that runs out.
#include "settings/UsageText.h"
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

namespace {

using namespace Support;
namespace fs = std::filesystem;

const std::string kError = "ERROR: vextorin: Error: ";

// The program behind a line of shell, in which "$@" stands for it with its arguments.
Finished RunInShell(const std::string& line, const Lines& arguments) {
  return Support::Run({.arguments = Join({"sh", "-c", line, "sh", VEXTORIN_PROGRAM}, arguments)});
}

class Losses : public testing::Test {
 protected:
  // The spooler's arguments, with a configuration of these lines.
  Lines with(const std::string& settings) const {
    return {"--inifile=" + folder.write("ini", settings), "joe", "title", "1", ""};
  }
  Finished run(const Lines& arguments) const { return RunInShell("\"$@\"", arguments); }

  const TempFolder folder;
};

TEST_F(Losses, OfStandardOutputEndWith90AndTheReason) {
  const struct {
    const char* settings;
    const char* before = "";
  } runs[] = {{"data=1"},   {"help"},
              {"version"},  {"barcodesettings\nv1format\n"},
              {"morehelp"}, {"", "ERROR: BarCode data is missing!\n\n"}};
  const std::pair<const char*, std::string> outputs[] = {
      {"\"$@\" >/dev/full", "No space left on device"},
      {"\"$@\" >&-", "Bad file descriptor"},
      {"\"$@\" <&- >&-", "Bad file descriptor"},
  };
  for (const auto& [line, reason] : outputs) {
    const std::string report = kError + "Couldn't write to standard output: " + reason + "\n";
    for (const auto& run : runs) {
      SCOPED_TRACE(std::string(run.settings) + line);
      const Finished finished = RunInShell(line, with(run.settings));
      EXPECT_EQ(finished.status, 90);
      EXPECT_EQ(finished.errors, run.before + report);
    }
    const Finished alone = RunInShell(line, {"--help"});
    EXPECT_EQ(alone.status, 90);
    EXPECT_EQ(alone.errors, report);
  }
}

// The grid of barcodes is more than a pipe takes, so that its end shows even if the reader ends
// late.
TEST_F(Losses, OfAReaderEndWith90WhateverSigpipeWouldDo) {
  const Finished finished =
      RunInShell("(env --default-signal=PIPE \"$@\"; echo $? >&2) | true",
                 with("barcode=71\nmultiple=on\ndatalimit=200\nwidth=200\nheight=200\ndata=" +
                      std::string(3900, 'x') + '\n'));
  EXPECT_EQ(finished.errors, kError + "Couldn't write to standard output: Broken pipe\n90\n");
}

TEST_F(Losses, OfStandardStreamsDoNotReachFilesInTheirPlace) {
  const std::string plain = run(with("data=1")).output;
  const std::string file = folder.file("barcode.ps");
  for (const char* const line : {"\"$@\" <&- >&- 2>&-", "\"$@\" <&- 2>&-", "\"$@\" 2>&-"}) {
    const Finished finished =
        RunInShell(line, with("data=1\ntrace=verbose\noutput=" + file + "\n"));
    EXPECT_EQ(finished.status, 0);
    EXPECT_EQ(ReadFile(file), plain) << line;
    fs::remove(file);
  }
  EXPECT_FALSE(plain.empty());
}

TEST_F(Losses, OfTheOutputFileAreToldAndDevicesKeepTheirMode) {
  struct stat before {};
  ASSERT_EQ(stat("/dev/full", &before), 0);
  const Finished finished = run(with("data=1\ntrace=info\noutput=/dev/full\n"));
  EXPECT_EQ(finished.status, 90);
  EXPECT_NE(finished.errors.find(kError + "Couldn't write/close file.\n"
                                          "INFO: vextorin: Info: fopen() for daemon failed.\n"
                                          "INFO: vextorin: Info: Error: No space left on device\n"),
            std::string::npos)
      << finished.errors;
  EXPECT_EQ(run(with("data=1\noutput=/dev/null\n")).status, 0);
  struct stat after {};
  ASSERT_EQ(stat("/dev/full", &after), 0);
  EXPECT_EQ(before.st_mode, after.st_mode);
}

TEST_F(Losses, OfConfigurationsThatCannotBeReadToTheirEndAreThoseOfMissingOnes) {
  for (const std::string& name :
       {folder.path().string(), std::string("/proc/self/mem"), std::string("/dev/zero")}) {
    const Finished finished = run({"--inifile=" + name, "joe", "title", "1", ""});
    EXPECT_EQ(finished.status, 20);
    EXPECT_EQ(finished.errors,
              "ERROR: IniFile: ERROR: " + name + "\n" + kError + "Couldn't open ini-file.\n\n");
    EXPECT_EQ(finished.output, "");
  }
}

TEST_F(Losses, InTheConfigurationAreNamedByFileAndLineBehindEverythingElse) {
  const std::string ini = folder.file("ini");
  const std::string inner = folder.write("inner", "rot=90\n\nrot=45\n");
  const std::string longLine = "data=" + std::string(9000, 'x');
  const struct {
    std::string settings;
    int status;
    std::string place;
  } rows[] = {
      {"# one\n\nfilter\n  width=abc\n", 10, "line 4 of " + ini + ": width=abc"},
      {longLine + "\n\r\nno\n", 10, "line 1 of " + ini + ": " + std::string(4095, 'x')},
      {"data=1\nfilter=on\ntrace=off\n", 10, "line 2 of " + ini + ": filter=on"},
      {"filter\nstream\n", 10, "line 2 of " + ini + ": stream"},
      {"datafile=/", 20, "line 1 of " + ini + ": datafile=/"},
      {"filter\nbcfile=/missing\n", 20, "line 2 of " + ini + ": bcfile=/missing"},
      {"bcfile=" + inner, 10,
       "line 3 of " + inner + ": rot=45, named in line 1 of " + ini + ": bcfile=" + inner},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings.substr(0, 40));
    const Finished finished = run(with(row.settings));
    EXPECT_EQ(finished.status, row.status);
    const std::string line = kError + "Wrong configuration in " + row.place;
    const std::size_t at = finished.errors.rfind(line.substr(0, 1000));
    ASSERT_NE(at, std::string::npos) << finished.errors;
    // To the end, or to where a long line is cut.
    EXPECT_EQ(finished.errors.find('\n', at), finished.errors.size() - 1);
    EXPECT_TRUE(line.size() > 1500 || finished.errors.substr(at) == line + "\n");
    EXPECT_LT(finished.errors.size() - at, 1600u);
    for (const std::string quiet : {"trace=off\n", "nostderr\n"}) {
      EXPECT_EQ(run(with(quiet + row.settings)).errors, "");
    }
  }
  EXPECT_TRUE(run(with("bcfile=/missing"))
                  .errors.starts_with(kError + "Couldn't open barcode settings file: /missing: No "
                                               "such file or directory\n"));
}

TEST_F(Losses, InTheConfigurationReachTheSinksThatItHasChosen) {
  const std::string log = folder.file("log");
  EXPECT_EQ(run(with("nostderr\nerrorfile=" + log + "\nwidth=abc\n")).errors, "");
  EXPECT_EQ(ReadFile(log), "vextorin: Error: Wrong configuration in line 3 of " +
                               folder.file("ini") + ": width=abc\n");
}

TEST_F(Losses, OfMemoryEndWith80) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the sanitizer needs more address space than can be taken away";
#endif
  const std::string large(std::size_t{15} << 20, '#');  // bytes, which are read at once
  Lines arguments = with("data=1\n" + large + "\n");
  EXPECT_EQ(run(arguments).status, 0);
  const Finished finished =
      RunInShell("prlimit --as=" + std::to_string(24 << 20) + " \"$@\"", arguments);
  EXPECT_EQ(finished.status, 80);
  EXPECT_EQ(finished.errors, kError + "Out of memory error.\n");
  EXPECT_EQ(finished.output, "");
}

TEST_F(Losses, OfControlAreToldWithTheirStatus) {
  const struct {
    const char* exception;
    int status;
    std::string report;
  } rows[] = {
      {"bad_alloc", 80, kError + "Out of memory error.\n"},
      {"length_error", 0,
       kError + "Out of memory error.\nDEBUG: vextorin: String class couldn't allocate enough "
                "memory.\n"},
      {"other", 130, kError + "Unhandled exception.\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.exception);
    Program program = StandAlone("data=1 trace=verbose");
    program.executable = VEXTORIN_SHARED_RUNTIME;
    program.environment = {{"LD_PRELOAD", VEXTORIN_THROWING},
                           {"ASAN_OPTIONS", "verify_asan_link_order=0"},
                           {"VX_THROW", row.exception}};
    const Program::Result result = program.run();
    EXPECT_EQ(result.status, row.status);
    EXPECT_EQ(result.output, "");
    const std::string end =
        row.report + "DEBUG: vextorin: Exit code " + std::to_string(row.status) + "\n";
    EXPECT_TRUE(result.errors.ends_with(end)) << result.errors;
  }
}

// A copy of the program in a folder of its own, where its configuration may stand beside it.
class ProgramAlone : public Losses {
 protected:
  ProgramAlone() {
    fs::copy_file(VEXTORIN_PROGRAM, folder.path() / "vextorin");
    const fs::path library = fs::path(VEXTORIN_PROGRAM).parent_path().parent_path() / "lib";
    environment = {{"LD_LIBRARY_PATH", library.string()}};
  }
  Finished start(const Lines& arguments) const {
    return Support::Run(
        {.arguments = Join({folder.file("vextorin")}, arguments), .environment = environment});
  }

  Environment environment;
};

TEST_F(ProgramAlone, ShowsItsTextsWithoutAConfiguration) {
  for (const char* const option : {"--help", "-h"}) {
    const Finished help = start({option});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.output, Settings::kUsageText);
    EXPECT_EQ(help.errors, "");
  }
  const Finished version = start({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.output, run({with("version")[0]}).output);
  EXPECT_TRUE(version.output.starts_with("Vextorin Version ")) << version.output;
  EXPECT_NE(start({"--help", "more"}).status, 0);
}

TEST_F(ProgramAlone, TakesTheConfigurationBesideIt) {
  if (fs::exists("/var/opt/share/vextorin/vextorin.conf")) GTEST_SKIP() << "the system's is there";
  const Lines arguments = {"1", "joe", "title", "1", ""};
  const std::string configuration = folder.file("vextorin.conf");
  const Finished without = start(arguments);
  EXPECT_EQ(without.status, 20);
  EXPECT_EQ(without.errors, "ERROR: IniFile: ERROR: " + configuration + "\n" + kError +
                                "Couldn't open ini-file.\n\n");
  folder.write("vextorin.conf", "data=beside\n");
  EXPECT_EQ(start(arguments).output, run(with("data=beside")).output);
}

TEST_F(ProgramAlone, ListsTheKeysThatTheOtherHelpTextsDoNot) {
  const Finished finished = run({with("morehelp\ndata=1\n")[0]});
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.errors, "");
  for (const char* const key :
       {"\n  insert=auto ", "\n  jobfiles=", "\n  morehelp ", "\n  --help, -h ", "\n  --version "})
    EXPECT_NE(finished.output.find(key), std::string::npos) << key;
  for (const std::string& line : Split(finished.output, "\n")) {
    EXPECT_LE(line.size(), 80u) << line;
    EXPECT_FALSE(line.ends_with(' ')) << line;
    EXPECT_TRUE(!line.starts_with("  ") || (line[27] == ' ' && line[28] != ' ')) << line;
  }
}

}  // namespace
