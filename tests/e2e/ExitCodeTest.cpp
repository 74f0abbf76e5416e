// The exit statuses of the program, one row a cause. A spooler acts on these numbers.
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using Support::Filter;
using Support::Finished;
using Support::Join;
using Support::Lines;
using Support::Program;
using Support::StandAlone;
using Support::TempFolder;

const std::string kUsage = "Usage: vextorin job user title copies options [filename]\n\n";

TEST(ExitCode, FollowsTheLibrarysFailures) {
  const struct {
    const char* failure;
    int status;
  } rows[] = {
      {"", 0},
      {"BCInitLibraryA=80070057", 110},
      {"BCInitLibraryA=8007000e", 110},
      {"BCCreate=8007000d", 0},   // an ordinary failure must not stop the queue
      {"BCCreate=80070005", 90},  // whatever reports "access denied"
      {"BCCreate=8007000e", 80},
      {"BCDeInitLibrary=8007000e", 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.failure);
    Program program = StandAlone({"data=Test123"});
    program.standIn = true;
    program.environment = {{"VX_STANDIN_FAIL", row.failure}};
    EXPECT_EQ(program.run().status, row.status);
  }
}

TEST(ExitCode, OfAJobWithAFailedSequenceIsZeroUnlessMemoryRanOut) {
  const struct {
    const char* failure;
    int status;
  } rows[] = {{"BCCreate=8007000d", 0}, {"BCCreate=80070005", 0}, {"BCCreate=8007000e", 80}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.failure);
    Program program = Filter();
    program.standIn = true;
    program.environment = {{"VX_STANDIN_FAIL", row.failure}};
    const Program::Result result =
        program.run("%!PS\n($_vxrs --data=1 $_vxre) show\n(rest) show\n");
    EXPECT_EQ(result.status, row.status);
    EXPECT_TRUE(result.output.ends_with("(rest) show\n")) << result.output;
  }
}

struct SettingsRow {
  const char* name;
  Lines settings;
  int status;
  std::string errors;
};

TEST(ExitCode, OfRejectedSettingsIsTen) {
  const std::string wrong =
      "ERROR: vextorin: Error: Wrong ini-file.\n"
      "ERROR: Try 'vextorin --help' for more information.\n\n"
      "ERROR: vextorin: Error: Error in ini-file.\n";
  const SettingsRow rows[] = {
      {"application value",
       {"memory=0"},
       10,
       "ERROR: vextorin: Error: Size of memory must be a value greater 0.\n" + wrong},
      {"barcode value",
       {"width=abc"},
       10,
       "ERROR: vextorin: Error: Invalid barcode width: abc\n" + wrong},
      {"unknown option",
       {"data=1", "Trace=verbose"},
       10,
       "ERROR: vextorin: Error: Unrecognized option Trace\n" + wrong},
      {"value of a flag",
       {"filter=1"},
       10,
       "ERROR: vextorin: Error: Unrecognized option 1\n" + wrong},
      {"missing value",
       {"stream"},
       10,
       "ERROR: vextorin: Error: Option 'stream' requires an argument.\n"
       "ERROR: vextorin: Error: Error in ini-file.\n"},
  };
  for (const SettingsRow& row : rows) {
    SCOPED_TRACE(row.name);
    const Program::Result result = StandAlone(row.settings).run();
    EXPECT_EQ(result.status, row.status);
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.output, "");
  }
}

TEST(ExitCode, OfFilesThatCannotBeReadIsTwenty) {
  const Program::Result data = StandAlone({"datafile=/nonexistent"}).run();
  EXPECT_EQ(data.status, 20);
  EXPECT_EQ(data.errors, "ERROR: vextorin: Error: Couldn't open data file.\n\n");
  EXPECT_EQ(StandAlone({"bcfile=/nonexistent"}).run().status, 20);

  const Finished missing = Support::Run(
      {.arguments = {VEXTORIN_PROGRAM, "--inifile=/nonexistent.ini", "joe", "title", "1", ""}});
  EXPECT_EQ(missing.status, 20);
  EXPECT_EQ(missing.errors,
            "ERROR: IniFile: ERROR: /nonexistent.ini\n"
            "ERROR: vextorin: Error: Couldn't open ini-file.\n\n");
  EXPECT_EQ(missing.output, "");
}

Finished RunWithArguments(const Lines& settings, const Lines& more, std::string_view input = {}) {
  const TempFolder folder;
  std::string text;
  for (const std::string& line : settings) text += line + '\n';
  Lines arguments = {VEXTORIN_PROGRAM, "--inifile=" + folder.write("ini", text)};
  return Support::Run({.arguments = Join(arguments, more), .input = std::string(input)});
}

TEST(ExitCode, OfAWrongNumberOfArgumentsIsTen) {
  for (const Lines& arguments :
       {Lines{}, Lines{"user", "title", "1"}, Lines{"user", "title", "1", "", "file", "more"}}) {
    SCOPED_TRACE(arguments.size() + 2);
    const Finished finished = RunWithArguments({"data=1"}, arguments);
    EXPECT_EQ(finished.status, 10);
    EXPECT_EQ(finished.errors,
              "ERROR: vextorin: Error: Expected parameters: job user title copies options "
              "[filename]\n");
    EXPECT_EQ(finished.output, "");
  }
}

TEST(ExitCode, WithNothingToDoIsZeroAndShowsTheUsage) {
  const Program::Result result = StandAlone({}).run();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "ERROR: BarCode data is missing!\n\n");
  EXPECT_TRUE(result.output.starts_with(kUsage)) << result.output;
  EXPECT_EQ(result.output.size(), 1066u);
}

TEST(HelpText, DescribesTheVersion1FormWhereItIsSwitchedOn) {
  constexpr std::size_t kHelpSize = 11244;
  const std::string plain = RunWithArguments({"barcodesettings"}, {}).output;
  EXPECT_EQ(plain.size(), kHelpSize);
  const std::string both = RunWithArguments({"barcodesettings", "v1format"}, {}).output;
  EXPECT_EQ(both.substr(0, kHelpSize), plain);
  EXPECT_TRUE(both.substr(kHelpSize).starts_with("  BARCODE_SETTINGS:\n")) << both;
  EXPECT_TRUE(both.ends_with("content (must be the last parameter of the settings!)\n"));
  EXPECT_EQ(RunWithArguments({"help", "v1format"}, {}).output.size(), 1066U);
}

TEST(ExitCode, OfHelpAndVersionTextsIsZeroWithOrWithoutArguments) {
  const struct {
    const char* option;
    std::string text;
  } rows[] = {
      {"help", kUsage},
      {"shorthelp", kUsage},
      {"barcodesettings", "Available barcode settings: \n\n"},
      {"version", "Vextorin Version "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.option);
    const Finished finished = RunWithArguments({row.option, "data=1"}, {});
    EXPECT_EQ(finished.status, 0);
    EXPECT_EQ(finished.errors, "");
    EXPECT_TRUE(finished.output.starts_with(row.text)) << finished.output;
  }
}

TEST(ExitCode, OfAnOutputFileThatCannotBeWrittenIsNinety) {
  Program program = StandAlone({"data=1", "output=/nonexistent/barcode.ps", "trace=info"});
  const Program::Result result = program.run();
  EXPECT_EQ(result.status, 90);
  EXPECT_NE(result.errors.find("ERROR: vextorin: Error: Couldn't open output file.\n"
                               "INFO: vextorin: Info: Error: No such file or directory\n"),
            std::string::npos)
      << result.errors;
}

TEST(ExitCode, OfAJobThatIsMissingOrEmptyIsZeroWithoutOutput) {
  const Finished missing =
      RunWithArguments({"filter", "pclreset"}, {"user", "title", "1", "", "/nonexistent.ps"});
  EXPECT_EQ(missing.status, 0);
  EXPECT_EQ(missing.errors, "ERROR: vextorin: Error: Input file not found: /nonexistent.ps\n");
  EXPECT_EQ(missing.output, "");

  Program program = Filter({"trace=warning", "pclreset"});
  const Program::Result empty = program.run("");
  EXPECT_EQ(empty.status, 0);
  EXPECT_EQ(empty.errors, "WARNING: vextorin: Warning: Nothing to filter!\n");
  EXPECT_EQ(empty.output, "");
}

TEST(ExitCode, StandsAtTheEndOfTheLog) {
  Program program = StandAlone({"data=1", "trace=verbose"});
  program.standIn = true;
  program.environment = {{"VX_STANDIN_FAIL", "BCCreate=8007000e"}};
  EXPECT_TRUE(program.run().errors.ends_with("DEBUG: vextorin: Exit code 80\n"));
  program.environment.clear();
  EXPECT_TRUE(program.run().errors.ends_with("DEBUG: vextorin: Exit code 0\n"));
}

// Stand-alone output

TEST(StandAloneOutput, GoesToTheNamedFileForGroupAndOwnerToWrite) {
  const TempFolder folder;
  const std::string file = folder.file("barcode.ps");
  const mode_t before = umask(0077);
  Program program = StandAlone({"data=1", "output=" + file});
  program.standIn = true;
  const Program::Result result = program.run();
  umask(before);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(Support::ReadFile(file), "STAND-IN\n");
  struct stat status {};
  ASSERT_EQ(stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777u, 0664u);
}

TEST(StandAloneOutput, ReplacesAnOlderFile) {
  const TempFolder folder;
  const std::string file = folder.write("barcode.ps", std::string(1000, 'x'));
  Program program = StandAlone({"data=1", "o=" + file});
  program.standIn = true;
  program.run();
  EXPECT_EQ(Support::ReadFile(file), "STAND-IN\n");
}

TEST(StandAloneOutput, FramesPclAndKeepsZeroBytesOfImagesOnly) {
  const struct {
    const char* name;
    Lines settings;
    const char* library;
    std::string output;
  } rows[] = {
      {"PostScript as it comes", {}, "drawing", "drawing"},
      {"PCL is framed",
       {"format=pcl"},
       "drawing",
       "\x1b%-12345X\x1b"
       "Edrawing\x1b"
       "E\x1b%-12345X"},
      {"PCL by the stream's type",
       {"stream=pcl"},
       "d",
       "\x1b%-12345X\x1b"
       "Ed\x1b"
       "E\x1b%-12345X"},
      {"PCL without overhead", {"format=pcl", "nooverhead"}, "drawing", "drawing"},
      {"text up to the first zero byte", {"format=pdf"}, "one\\0two", "one"},
      {"images whole", {"format=image"}, "one\\0two\\0", std::string("one\0two\0", 8)},
      {"the cursor moved past it",
       {"format=pcl", "nooverhead", "movecursor", "width=50", "height=30"},
       "drawing",
       "drawing\x1b&a+1417h+850V"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Program program = StandAlone(Join({"data=1"}, row.settings));
    program.standIn = true;
    program.environment = {{"VX_STANDIN_OUTPUT", row.library}};
    EXPECT_EQ(program.run().output, row.output);
  }
}

}  // namespace
