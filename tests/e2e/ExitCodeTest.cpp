// The exit statuses of the program, one row a cause. A spooler acts on these numbers.
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using namespace Support;

const std::string kUsage = "Usage: vextorin job user title copies options [filename]\n\n";
const std::string kError = "ERROR: vextorin: Error: ";

Program Failing(const Program& program, const char* failure) {
  return Recorded(program, {{"VX_STANDIN_FAIL", failure}});
}

TEST(ExitCode, FollowsTheLibrarysFailures) {
  const struct {
    const char* failure;
    int status;
    int ofAJob;
  } rows[] = {
      {"", 0, 0},
      {"BCInitLibraryA=80070057", 110, 110},
      {"BCInitLibraryA=8007000e", 110, 110},
      {"BCCreate=8007000d", 0, 0},   // an ordinary failure must not stop the queue
      {"BCCreate=80070005", 90, 0},  // whatever reports "access denied"
      {"BCCreate=8007000e", 80, 80},
      {"BCDeInitLibrary=8007000e", 0, 0},
  };
  const std::string job = "%!PS\n($_vxrs --data=1 $_vxre) show\n(rest) show\n";
  for (const auto& row : rows) {
    SCOPED_TRACE(row.failure);
    const Program::Result alone = Failing(StandAlone("data=1 trace=verbose"), row.failure).run();
    EXPECT_EQ(alone.status, row.status);
    EXPECT_TRUE(
        alone.errors.ends_with("DEBUG: vextorin: Exit code " + std::to_string(row.status) + "\n"));
    const Program::Result filtered = Failing(Filter(), row.failure).run(job);
    EXPECT_EQ(filtered.status, row.ofAJob);
    EXPECT_TRUE(row.ofAJob == 110 || filtered.output.ends_with("(rest) show\n"));
  }
}

// The report without the folder of its ini file, which has another name in each run.
std::string WithoutFolder(std::string report) {
  const std::size_t begin = report.find(" of /");
  const std::size_t end = report.rfind("/test.ini");
  if (begin < end && end != report.npos) report.erase(begin + 4, end - begin - 3);
  return report;
}

std::string PlaceLine(const std::string& place) {
  if (place.empty()) return {};
  return kError + "Wrong configuration in line " + std::string(place).insert(1, " of test.ini") +
         "\n";
}

TEST(ExitCode, TellsSettingsFromFiles) {
  const std::string wrong = kError +
                            "Wrong ini-file.\nERROR: Try 'vextorin --help' for more "
                            "information.\n\n" +
                            kError + "Error in ini-file.\n";
  const struct {
    const char* settings;
    int status;
    std::string errors;
    const char* place = "";  // of the wrong line, which ends the report
  } rows[] = {
      {"memory=0", 10, kError + "Size of memory must be a value greater 0.\n" + wrong,
       "1: memory=0"},
      {"width=abc", 10, kError + "Invalid barcode width: abc\n" + wrong, "1: width=abc"},
      {"data=1 Trace=verbose", 10, kError + "Unrecognized option Trace\n" + wrong,
       "2: Trace=verbose"},
      {"filter=1", 10, kError + "Unrecognized option 1\n" + wrong, "1: filter=1"},
      {"stream", 10,
       kError + "Option 'stream' requires an argument.\n" + kError + "Error in ini-file.\n",
       "1: stream"},
      {"datafile=/nonexistent", 20, kError + "Couldn't open data file.\n\n",
       "1: datafile=/nonexistent"},
      {"data=1 output=/nonexistent/barcode.ps", 90, kError + "Couldn't open output file.\n"},
      {"filter trace=warning pclreset", 0, "WARNING: vextorin: Warning: Nothing to filter!\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings);
    const Program::Result result = StandAlone(row.settings).run();
    EXPECT_EQ(result.status, row.status);
    EXPECT_EQ(WithoutFolder(result.errors), row.errors + PlaceLine(row.place));
    EXPECT_EQ(result.output, "");
  }
}

Finished RunWithArguments(const std::string& settings, const Lines& more) {
  const TempFolder folder;
  std::string text;
  for (const std::string& line : Split(settings, " ")) text += line + '\n';
  Lines arguments = {VEXTORIN_PROGRAM, "--inifile=" + folder.write("ini", text)};
  return Support::Run({.arguments = Join(arguments, more)});
}

TEST(ExitCode, OfWrongArgumentsIsTenAndOfMissingFilesTwentyOrZero) {
  for (const Lines& arguments :
       {Lines{}, Lines{"user", "title", "1"}, Lines{"user", "title", "1", "", "file", "more"}}) {
    SCOPED_TRACE(arguments.size() + 2);
    const Finished finished = RunWithArguments("data=1", arguments);
    EXPECT_EQ(finished.status, 10);
    EXPECT_EQ(finished.errors,
              kError + "Expected parameters: job user title copies options [filename]\n");
    EXPECT_EQ(finished.output, "");
  }
  const Finished noIni = Support::Run(
      {.arguments = {VEXTORIN_PROGRAM, "--inifile=/nonexistent.ini", "joe", "title", "1", ""}});
  EXPECT_EQ(noIni.status, 20);
  EXPECT_EQ(noIni.errors,
            "ERROR: IniFile: ERROR: /nonexistent.ini\n" + kError + "Couldn't open ini-file.\n\n");
  EXPECT_EQ(noIni.output, "");
  const Finished noJob =
      RunWithArguments("filter pclreset", {"user", "title", "1", "", "/nonexistent.ps"});
  EXPECT_EQ(noJob.status, 0);
  EXPECT_EQ(noJob.errors, kError + "Input file not found: /nonexistent.ps\n");
  EXPECT_EQ(noJob.output, "");
}

TEST(ExitCode, OfHelpAndVersionTextsIsZeroWithOrWithoutArguments) {
  const std::pair<const char*, std::string> rows[] = {
      {"help", kUsage},
      {"shorthelp", kUsage},
      {"barcodesettings", "Available barcode settings: \n\n"},
      {"version", "Vextorin Version "},
  };
  for (const auto& [option, text] : rows) {
    const Finished finished = RunWithArguments(option + std::string(" data=1"), {});
    EXPECT_EQ(finished.status, 0);
    EXPECT_EQ(finished.errors, "");
    EXPECT_TRUE(finished.output.starts_with(text)) << finished.output;
  }
  const Program::Result nothing = StandAlone({}).run();
  EXPECT_EQ(nothing.status, 0);
  EXPECT_EQ(nothing.errors, "ERROR: BarCode data is missing!\n\n");
  EXPECT_TRUE(nothing.output.starts_with(kUsage)) << nothing.output;
  EXPECT_EQ(nothing.output.size(), 1066u);
}

TEST(HelpText, DescribesTheVersion1FormWhereItIsSwitchedOn) {
  const std::string plain = RunWithArguments("barcodesettings", {}).output;
  const std::string both = RunWithArguments("barcodesettings v1format", {}).output;
  EXPECT_TRUE(both.starts_with(plain + "  BARCODE_SETTINGS:\n")) << both;
  EXPECT_TRUE(both.ends_with("content (must be the last parameter of the settings!)\n")) << both;
  const std::string usage = RunWithArguments("help", {}).output;
  EXPECT_EQ(RunWithArguments("help v1format", {}).output, usage);
}

TEST(StandAloneOutput, ReplacesTheNamedFileForGroupAndOwnerToWrite) {
  const TempFolder folder;
  const std::string file = folder.file("barcode.ps");
  const std::string older = folder.write("older.ps", std::string(1000, 'x'));
  const mode_t before = umask(0077);
  EXPECT_EQ(Recorded(StandAlone("data=1 output=" + file)).run().output, "");
  Recorded(StandAlone("data=1 o=" + older)).run();
  umask(before);
  EXPECT_EQ(ReadFile(file), kDrawing);
  EXPECT_EQ(ReadFile(older), kDrawing);
  struct stat status {};
  ASSERT_EQ(stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777u, 0664u);
}

TEST(StandAloneOutput, FramesPclAndKeepsZeroBytesOfImagesOnly) {
  const std::string opener = "\033%-12345X\033E", closer = "\033E\033%-12345X";
  const struct {
    const char* settings;
    const char* drawn;
    std::string output;
  } rows[] = {
      {"", "drawing", "drawing"},
      {"format=pcl", "drawing", opener + "drawing" + closer},
      {"stream=pcl", "drawing", opener + "drawing" + closer},
      {"format=pcl nooverhead", "drawing", "drawing"},
      {"format=pdf", "one\\0two", "one"},
      {"format=image", "one\\0two\\0", std::string("one\0two\0", 8)},
      {"format=pcl nooverhead movecursor width=50 height=30", "drawing",
       "drawing\033&a+1417h+850V"},
      {"format=pcl embed=off movecursor origin=bottom width=25.4 height=30", "drawing",
       opener + "drawing\033&a+720h+0V" + closer},
      {"format=pcl embed=on movecursor width=0.01 height=0.02", "drawing", "drawing\033&a+0h+1V"},
      {"format=ps embed=on nooverhead", "drawing", "drawing"},
      {"format=image embed=on", "drawing", "drawing"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings);
    const Program program = StandAlone(std::string("data=1 ") + row.settings);
    EXPECT_EQ(Recorded(program, {{"VX_STANDIN_OUTPUT", row.drawn}}).run().output, row.output);
  }
}

}  // namespace
