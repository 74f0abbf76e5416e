// The log of a run: what it shows, and where it goes. The run is that of the shipped example of a
// configuration, which sets every option once.
#include "settings/AppOptions.h"
#include "settings/BarcodeOptions.h"
#include "settings/Values.h"
#include "tests/support/Program.h"
#include "tests/support/Render.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <set>

namespace {

using namespace Support;

Lines ExampleLines() {
  Lines lines;
  for (const std::string& line : Split(ReadFile(VEXTORIN_EVERY_OPTION))) {
    if (!line.empty() && line.front() != '#') lines.push_back(line);
  }
  return lines;
}

template <class Table>
void ExpectAllSet(const Table& table, const std::set<std::string>& names,
                  const std::set<std::string>& elsewhere) {
  for (const auto& option : table) {
    const std::string name(option.name);
    EXPECT_EQ(names.count(name) + elsewhere.count(name), 1U) << name;
  }
}

TEST(EveryOptionExample, SetsEachOptionOnce) {
  std::set<std::string> names;
  for (const std::string& line : ExampleLines()) {
    EXPECT_TRUE(names.insert(line.substr(0, line.find('='))).second) << line;
  }
  ExpectAllSet(Settings::AppOptions(), names,
               {"filter", "output", "inifile", "errorfile", "syslog", "nostderr", "help",
                "shorthelp", "version", "morehelp", "barcodesettings"});
  ExpectAllSet(Settings::BarcodeOptions(), names,
               {"datafile", "bcfile", "dravlindefaults", "PDFauto"});
}

TEST(EveryOptionExample, DrawsItsBarcode) {
  const Rendering rendering =
      Render("%!PS\n" + Program{.settings = ExampleLines()}.run().output + " showpage\n", 72);
  EXPECT_EQ(rendering.messages, "");
  ASSERT_EQ(rendering.pages.size(), 1U);
  EXPECT_NE(std::ranges::count(rendering.pages[0].gray, 0), 0);
}

TEST(Log, ShowsEverySettingAndEveryStepOfARun) {
  const Program::Result result = Recorded({.settings = ExampleLines()}).run();
  const std::string program = VEXTORIN_PROGRAM;
  const std::size_t path = result.errors.find("\nIniFile = ") + 11;
  std::string log = result.errors;
  Settings::ReplaceAll(
      log, result.errors.substr(path, result.errors.find("/test.ini", path) - path), "{folder}");
  Settings::ReplaceAll(log, program.substr(0, program.rfind('/')), "{program folder}");
  const Lines expected = Split(ReadFile(VEXTORIN_EVERY_OPTION_LOG)), lines = Split(log);
  EXPECT_EQ(lines.size(), expected.size());
  for (std::size_t i = 0; i < std::min(lines.size(), expected.size()); ++i)
    ASSERT_EQ(lines[i], expected[i]) << "line " << i + 1;
  EXPECT_EQ(result.output, kDrawing);
}

// The lines of a run from the choice of the format to the end; those of the settings are left out.
Lines StepsOf(const std::string& settings) {
  const Program program = Recorded(StandAlone("data=*A* trace=verbose " + settings),
                                   {{"VX_STANDIN_NEEDED", "100,200"}});
  Lines lines = Split(program.run().errors);
  lines.erase(lines.begin(), std::ranges::find_if(lines, [](const std::string& line) {
                return line.starts_with("DEBUG: vextorin: Output format: ");
              }));
  std::erase_if(lines, [](const std::string& line) {
    return line.find(": vextorin: ") == line.npos && !line.starts_with("ERROR: ");
  });
  return lines;
}

TEST(Log, TellsWhatIsDoneToABarcode) {
  const std::string file = TempFolder().file("barcode.ps");  // in a folder that is gone
  const std::string debug = "DEBUG: vextorin: ", info = "INFO: vextorin: Info: ";
  const std::string error = "ERROR: vextorin: Error: ";
  EXPECT_EQ(StepsOf("barcode=8 SAP embed=on width=30 rot=90"),
            (Lines{debug + "Output format: 1", info + "Removing embracing '*' in Code39 data.",
                   debug + "SAP and Code39: '*' filtered. Barcode data = A",
                   info + "Generating barcode... ", debug + "Width and Height of Barcode = 20 x 30",
                   debug + "Barcode rectangle: 0 30000 20000 0", debug + "Adding EPS overhead.",
                   debug + "Generated barcode: ", info + "Writing output to stdout.",
                   debug + "Library deinitialized.", debug + "Exit code 0"}));
  EXPECT_EQ(StepsOf("stream=pcl memory=100 output=" + file),
            (Lines{debug + "Output format: 2", info + "Generating barcode... ",
                   debug + "Width and Height of Barcode = 40 x 20",
                   debug + "Barcode rectangle: 0 0 40000 20000", debug + "Handling PCL overhead.",
                   debug + "Generated barcode: ", info + "Writing output to file: " + file,
                   error + "Couldn't open output file.", info + "Error: No such file or directory",
                   debug + "Library deinitialized.", debug + "Exit code 90"}));
  EXPECT_EQ(StepsOf("memory=50"),
            (Lines{debug + "Output format: 1", info + "Generating barcode... ",
                   debug + "Width and Height of Barcode = 40 x 20",
                   debug + "Barcode rectangle: 0 20000 40000 0",
                   debug + "Barcode rectangle: 0 20000 40000 0", debug + "BCxxxToMemory failed.",
                   error + "Couldn't create barcode. Size of memory for barcode creation was to "
                           "small.",
                   "ERROR: Size of memory: 100 - Required size: 200",
                   debug + "Library deinitialized.", debug + "Exit code 0"}));
}

TEST(Log, WarnsOnceOfABarcodeTooSmallToRead) {
  const auto warnings = [](const std::string& settings) {
    Lines lines =
        Split(StandAlone("barcode=20 data=12345678 trace=verbose " + settings).run().errors);
    std::erase_if(lines, [](const std::string& line) { return !line.starts_with("WARNING: "); });
    return lines;
  };
  EXPECT_EQ(warnings("modulewidth=0.25"), Lines());
  EXPECT_EQ(warnings("modulewidth=0.1 mustfit=on"), Lines());
  EXPECT_EQ(
      warnings("modulewidth=0.1"),
      Lines{"WARNING: vextorin: Warning: The barcode may be too small to be read: its modules "
            "are 0.1 mm wide. A width of 20.066 mm would do."});
}

TEST(Log, NamesTheInputFile) {
  Program program = Recorded(Filter("trace=verbose"));
  program.inputFile = true;
  const std::string log = program.run("\033Ejob\n").errors;
  const std::size_t begin = log.find("argv[6]: DEBUG: ") + 16;
  const std::string line = log.substr(begin, log.find('\n', begin) + 1 - begin);
  EXPECT_TRUE(line.ends_with("/job\n")) << line;
  EXPECT_NE(log.find("DEBUG: vextorin: Input stream: DEBUG: " + line), log.npos) << log;
}

TEST(Log, GoesWhereItsOptionsSay) {
  const TempFolder folder;
  const std::string reason =
      "Error code: 0x80070057 - Error Message: Invalid argument. Unsupported barcode or syntax "
      "error.";
  const struct {
    const char* tag;
    int priority;
    std::string name, text;
  } kLines[] = {
      {"INFO: ", 14, "vextorin: ", "Info: Library initialized."},
      {"INFO: ", 14,
       "vextorin: ", "Info: Creating barcode with settings from command line arguments."},
      {"INFO: ", 14, "vextorin: ", "Info: Generating barcode... "},
      {"ERROR: ", 11, "vextorin: ", "Error: Couldn't set barcode data to 1%s."},
      {"ERROR: ", 11, "", reason},
      {"WARNING: ", 12, "vextorin: ", "Warning: Couldn't deinitalize library."},
      {"WARNING: ", 12, "", reason},
  };
  std::string onStderr, inFile;
  Lines inSystemLog = {"closelog()", "openlog(\"vextorin\", 1, 8)"};  // with process id, of a user
  for (const auto& line : kLines) {
    onStderr += line.tag + line.name + line.text + '\n';
    inFile += line.name + line.text + '\n';
    inSystemLog.push_back("syslog(" + std::to_string(line.priority) + ", \"" + line.text + "\")");
  }
  inSystemLog.push_back("closelog()");
  const std::string file = folder.file("errors.txt"), link = folder.file("link");
  const std::string pipe = folder.file("pipe");
  std::filesystem::create_symlink(file, link);
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string refused = "Couldn't open error file.\nError message:";
  const mode_t before = umask(0);
  const struct {
    std::string settings, errors, file;
    bool systemLog;
  } rows[] = {
      {"", onStderr, "", false},
      {"syslog nostderr", "", "", true},
      {"errorfile=" + file, onStderr, inFile, false},
      {"errorfile=" + file + " syslog nostderr", "", inFile + inFile, true},
      {"errorfile=/dev/stderr nostderr", inFile, inFile + inFile, false},
      {"errorfile=/nowhere/error.txt", refused + "No such file or directory\n" + onStderr,
       inFile + inFile, false},
      {"errorfile=" + link, refused + "Too many levels of symbolic links\n" + onStderr,
       inFile + inFile, false},
      // Nobody reads it.
      {"errorfile=" + pipe, refused + "No such device or address\n" + onStderr, inFile + inFile,
       false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings);
    Program::Result result =
        Recorded(StandAlone("data=1%s trace=info " + row.settings),
                 {{"VX_STANDIN_FAIL", "BCSetTextA=80070057,BCDeInitLibrary=80070057"}})
            .run();
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(ReadFile(file), row.file);
    std::erase_if(result.calls,
                  [](const std::string& call) { return call.find("log(") == call.npos; });
    EXPECT_EQ(result.calls, row.systemLog ? inSystemLog : Lines{});
  }
  umask(before);
  struct stat status {};
  ASSERT_EQ(stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777u, 0640u);
}

}  // namespace
