#include "parser/StringParser.h"
#include "settings/ApplicationPath.h"
#include "settings/HelpText.h"
#include "settings/UsageText.h"
#include "settings/Values.h"
#include "tests/program/CollectedLog.h"
#include "tests/program/OptionExpectations.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace {

using Settings::AppSettings;
using Settings::BarcodeSettings;

std::vector<std::string> Lines(std::string_view text) {
  std::istringstream stream{std::string(text)};
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// The dump of a fresh record; behind "@" the option that changes the line.
constexpr std::string_view kFreshDump = R"(
Barcode Settings: 

  ----- General options: ----
  Data = @data
  Output format = 0@format
  Barcode type = 20@barcode
  Checkdigit method = 1@checkdigit
  Auto correction = -1@autocorrect
  Translate escape sequences = 1@translation
  Guard width = 0@guardline
  Bearer bar width = 0@bearerwidth
  Bearer bar type = 0@bearertype
  Notch height = -1@notchheight
  Module width = -1@modulewidth
  Bar width reduction = 0@reduction
  Bar width reduction unit = 0@reductionunit
  Print ratio = @printratio
  Format string = @formatstring
  Optimize width = -1@optimalwidth
  Quiet zone unit = 0@quietzoneunit
  Quiet zone horizontal = 0@quietzoneh
  Quiet zone vertical = 0@quietzonev
  Quiet zone horizontal (V1Format) = -1@
  Quiet zone vertical (V1Format) = -1@
  NoOverhead flag = 0@nooverhead
  Image format = BMP@imageformat
  DPI = 72@dpi
  Use DefaultSet = 0@defaultset
  Color Mode = 0@colormode
  Background Mode = 2@bkmode
  PCL Mode = 0@pclmode
  Compression = 0@compress
  ----- Position and size options: ----
  X position = 0@xpos
  Y position = 0@ypos
  Width = -1@width
  Height = -1@height
  Rotation = 0@rot
  Orientation = 0@origin
  Must fit = 0@mustfit
  Decoder = 1@decoder
  Size mode = -1@sizemode
  ----- Text options: ----
  Text position = 0@text
  Text alignment = 0@align
  Font size = -1@fontsize
  Font name = @font
  Text distance = -1@textdist
  Trim whitespaces = 0@trimwhitespaces
  ----- Filtering options: ----
  Initgraphics flag = 0@initgraphics
  Move cursor flag = 0@movecursor
  Escape string operation = 2@remove
  Embedding overhead = -1@embed
  Relative positioning = -1@pos
  ----- Composite component bar code options: ----
  CC Type = 0@CCtype
  ----- Multiple barcodes options: ----
  Rows = -1@rows
  Columns = -1@columns
  Horizontal distance = -1@hdist
  Vertical distance = -1@vdist
  Data limit = -1@datalimit
  Dynamic size (bounding rectangle) = 0@dynamicsize
  Structured append = 0@structapp
  ----- PDF417 options: ----
  Rows = -1@PDFrows
  Columns = -1@PDFcols
  Error correction level = -1@PDFecl
  Row height = -1@PDFrowheight
  PDF417 mode = 0@PDFmode
  Micro PDF417 version = 0@MPDFversion
  Micro PDF417 Mode = 0@MPDFmode
  Segment index = -1@PDFindex
  File id = @PDFid
  Last segment = -1@PDFlast
  Filename = @PDFfile
  Segment count = -1@PDFcount
  Timestamp = -1@PDFtime
  Sender = @PDFsender
  Addressee = @PDFaddr
  File size = -1@PDFsize
  Checksum = -1@PDFchecksum
  Row-column ratio = @PDFratio
  ----- DATAMATRIX options: ----
  Size = 0@DMsize
  Format = 0@DMformat
  Enforce binary = 0@DMbinary
  Rectangular = 0@DMrect
  Sum = -1@DMsum
  Index = -1@DMindex
  File id = -1@DMfile
  ----- MaxiCode options: 
  Mode = -1@MCmode
  Undercut = -1@MCundercut
  Sum = -1@MCsum
  Index = -1@MCindex
  Preamble = @MCpre
  Service = @MCservice
  Country = @MCcountry
  Postal code = @MCpostal
  ----- QRCode options: ----
  Version = 0@QRversion
  Format = 0@QRformat
  Format application indicator = @QRind
  Error correction level = 1@QRecl
  Mask pattern = -1@QRmask
  Sum = -1@QRsum
  Index = -1@QRindex
  Parity = -1@QRparity
  ----- Micro QRCode options: ----
  Version = 0@MQRversion
  Error correction level = 1@MQRecl
  Mask pattern = -1@MQRmask
  ----- CodaBlock-F options: ----
  Rows = -1@CBrows
  Columns = -1@CBcols
  Row height = -1@CBrowheight
  Row separator height = -1@CBsepheight
  Format = 0@CBformat
  ----- Aztec Code options: ----
  Size = 0@ACsize
  Enforce binary = 0@ACbinary
  Error correction level = -1@ACecl
  Runes mode = 0@ACrunes
  Format = 0@ACformat
  Format specifier = @ACspec
  Structured Append = 0@ACappend
  Sum = A@ACsum
  Index = A@ACindex
  Message Id = @ACmessage
  ----- RSS Expanded Stacked options: ----
  Segments per row = -1@RSSseg
)";

struct DumpLine {
  std::string text;
  std::string option;
};

std::vector<DumpLine> FreshDump() {
  std::vector<DumpLine> lines;
  for (const std::string& line : Lines(kFreshDump)) {
    const std::size_t end = std::min(line.find('@'), line.size());
    lines.push_back({line.substr(0, end), end < line.size() ? line.substr(end + 1) : ""});
  }
  return lines;
}

TEST(BarcodeDump, OfAFreshRecordListsTheDefaults) {
  std::string expected;
  for (const DumpLine& line : FreshDump()) expected += line.text + '\n';
  EXPECT_EQ(BarcodeSettings().printSettings(), expected);
}

TEST(BarcodeDump, ShowsEveryOptionOnItsLine) {
  const std::vector<DumpLine> fresh = FreshDump();
  for (const auto& row : ExpectedBarcodeOptions()) {
    const std::string name = row.names.substr(0, row.names.find(' '));
    // Not shown; or on the line of another option, which has rows of its own.
    if (name == "multiple" || name == "PDFauto" || name == "dravlindefaults") continue;
    for (const auto& [text, value] : row.good) {
      SCOPED_TRACE(name + "=" + text);
      BarcodeSettings settings;
      Parser::StringParser parser("--" + name + (row.flag ? "" : "=\"" + text + "\""));
      ASSERT_EQ(settings.readOptions(parser), Diag::kSuccess);
      if (name == "imageformat") settings.format = Settings::kFormatNotSet;
      const std::vector<std::string> lines = Lines(settings.printSettings());
      ASSERT_EQ(lines.size(), fresh.size());
      for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string label = fresh[i].text.substr(0, fresh[i].text.find(" = "));
        EXPECT_EQ(lines[i], fresh[i].option == name ? label + " = " + value : fresh[i].text);
      }
    }
  }
}

TEST(UsageText, FitsATerminalAndHasItsFixedSize) {
  EXPECT_EQ(Settings::kUsageText.size(), 1066u);
  const std::vector<std::string> lines = Lines(Settings::kUsageText);
  EXPECT_EQ(lines[0], "Usage: vextorin job user title copies options [filename]");
  for (const std::string& line : lines) EXPECT_LE(line.size(), 80u) << line;
}

TEST(HelpText, NamesEveryOptionWithItsDescriptionInThe29thColumn) {
  EXPECT_EQ(Settings::kHelpText.size(), 11244u);
  for (const auto& row : ExpectedBarcodeOptions()) {
    std::istringstream names(row.names);
    std::string name;
    names >> name;
    EXPECT_NE(Settings::kHelpText.find("--" + name + (row.flag ? "" : "=")), std::string::npos)
        << name;
    while (names >> name) {
      const std::string shown = name.size() == 1 ? "  -" + name + ", --" : ", --" + name;
      EXPECT_NE(Settings::kHelpText.find(shown), std::string::npos) << name;
    }
  }
  bool inOptions = false;
  for (const std::string& line : Lines(Settings::kHelpText)) {
    inOptions = line != "Examples:" && (inOptions || line == "General options:");
    if (!inOptions || !line.starts_with(' ') || line.ends_with("--72dpiraster")) continue;
    ASSERT_GT(line.size(), 28u) << line;
    EXPECT_EQ(line[27], ' ') << line;
    EXPECT_NE(line[28], ' ') << line;
    EXPECT_LE(line.size(), 80u) << line;
  }
}

TEST(HelpTexts, GoToStandardOutput) {
  testing::internal::CaptureStdout();
  BarcodeSettings().printUsage();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), Settings::kHelpText);
  testing::internal::CaptureStdout();
  AppSettings().printUsage();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), Settings::kUsageText);
}

// "1-9, 16, 18" holds 16.
bool ListHolds(const std::string& list, int type) {
  std::istringstream ranges(list);
  for (std::string range; std::getline(ranges, range, ',');) {
    const int first = std::stoi(range);
    const std::size_t dash = range.find('-');
    const int last = dash == std::string::npos ? first : std::stoi(range.substr(dash + 1));
    if (type >= first && type <= last) return true;
  }
  return false;
}

double Lookup(const std::vector<std::pair<std::string, double>>& table, int type) {
  for (const auto& [list, value] : table)
    if (ListHolds(list, type)) return value;
  return -1.0;
}

const std::vector<std::pair<std::string, double>> kModuleWidths = {
    {"1-9,16,18,20,25,31-33,46-48,50,51,53,55,56,59-62,72,75,81,84,86-89,98-101,106-109", 0.254},
    {"10-15,29,30,34-39,69,78-80", 0.339},
    {"21,22,77", 0.423},
    {"40-45,70,76,82,83,85,90", 0.577},
    {"57", 0.87},
    {"63-68", 0.47},
};
const std::vector<std::pair<std::string, double>> kHeights = {
    {"1-9,16,18,20,25,31-33,46-48,50-53,59-62,72,75,86-89,98-101", 10.2},
    {"10-12,37-39", 17.6},
    {"13-15,69", 21.9},
    {"21,22", 25.4},
    {"29,30,78", 16.0},
    {"34-36", 26.1},
    {"40-45,82,83", 3.2},
    {"63-68", 5.0},
    {"70,90", 2.5},
    {"76", 3.5},
    {"77", 4.0},
    {"85", 3.7},
};
const std::vector<std::pair<double, int>> kFontSizes = {
    {-1.0, 8}, {0.254, 7}, {0.339, 10}, {0.423, 12}, {0.577, 17}, {0.87, 26}, {0.47, 14}};
const std::string kHidden = "21,22,40-45,57,63-68,70,76,77,82,83,85,90";
const std::string kPdf417 = "55,56,84,106-109";

TEST(DefaultSet, FillsInTheSizesOfEveryType) {
  for (int type = 0; type <= 130; ++type) {
    SCOPED_TRACE(type);
    BarcodeSettings settings;
    settings.barcode = type;
    settings.applyDefaultSet();
    EXPECT_EQ(settings.modulewidth, Lookup(kModuleWidths, type));
    EXPECT_EQ(settings.height, Lookup(kHeights, type));
    EXPECT_EQ(settings.text, ListHolds(kHidden, type) ? 3 : 2);
    const auto size =
        std::ranges::find(kFontSizes, settings.modulewidth, &std::pair<double, int>::first);
    EXPECT_EQ(settings.fontsize, size->second);
    const bool pdf417 = ListHolds(kPdf417, type);
    EXPECT_DOUBLE_EQ(settings.PDFrowheight, pdf417 ? 0.762 : -1.0);
    EXPECT_EQ(settings.PDFratio, pdf417 ? "11:1" : "");
    EXPECT_EQ(settings.PDFratioGiven, 0);
  }
}

TEST(DefaultSet, LeavesWhatWasGiven) {
  BarcodeSettings linear;
  linear.width = 50;
  linear.fontsize = 5;
  linear.applyDefaultSet();
  EXPECT_EQ(linear.modulewidth, -1.0);
  EXPECT_EQ(linear.height, 10.2);
  EXPECT_EQ(linear.fontsize, 5);

  BarcodeSettings stacked;
  stacked.barcode = 55;
  stacked.modulewidth = 0.5;
  stacked.PDFratio = "3:1";
  stacked.text = Settings::kTextAbove;
  stacked.applyDefaultSet();
  EXPECT_EQ(stacked.PDFrowheight, 1.5);
  EXPECT_EQ(stacked.PDFratio, "3:1");
  EXPECT_EQ(stacked.text, Settings::kTextAbove);
  EXPECT_EQ(stacked.fontsize, 15);

  BarcodeSettings tall;
  tall.barcode = 55;
  tall.height = 20;
  tall.applyDefaultSet();
  EXPECT_EQ(tall.PDFrowheight, -1.0);

  BarcodeSettings rows;
  rows.barcode = 55;
  rows.PDFrowheight = 2;
  rows.modulewidth = 1e300;
  rows.applyDefaultSet();
  EXPECT_EQ(rows.PDFrowheight, 2);
  EXPECT_GT(rows.fontsize, 0);
}

class ConfigurationFile : public testing::Test {
 protected:
  ~ConfigurationFile() override { g_settings.trace.setMaxLevel(Diag::kError); }

  Diag::ResultCode load(const std::string& contents) {
    const std::string option = "--inifile=" + folder.write("conf", contents);
    const char* const arguments[] = {"vextorin", "--other", "x", option.c_str(), "1", "user"};
    return settings.load(6, arguments);
  }

  const Support::TempFolder folder;
  const std::string path = folder.file("conf");
  AppSettings settings;
  CollectedLog log;
};

TEST_F(ConfigurationFile, FillsApplicationAndBarcodeSettings) {
  EXPECT_EQ(load("memory=100\nwidth=50\nfilter\ntrace=Warning\n-d\n"), Diag::kInvalidArgument);
  EXPECT_EQ(settings.iniFile, path);
  EXPECT_EQ(settings.memorySize, 100);
  EXPECT_EQ(settings.barcode.width, 50);
  EXPECT_TRUE(settings.filter);
  EXPECT_TRUE(g_settings.trace.enabled(Diag::kWarning));
  EXPECT_FALSE(g_settings.trace.enabled(Diag::kInformation));
  EXPECT_EQ(log.take(),
            "vextorin: Error: Unrecognized option -d\nvextorin: Error: Wrong ini-file.\n"
            "Try 'vextorin --help' for more information.\n\n");
}

TEST_F(ConfigurationFile, RoutesTheTraceLog) {
  const std::pair<const char*, int> kLevels[] = {
      {"OFF", 0}, {"error", 1}, {"Warning", 2}, {"INFO", 3}, {"Verbose", 4}};
  for (const auto& [word, level] : kLevels) {
    SCOPED_TRACE(word);
    EXPECT_EQ(load(std::string("trace=") + word), Diag::kSuccess);
    for (int probe = 1; probe <= 4; ++probe)
      EXPECT_EQ(g_settings.trace.enabled(static_cast<Diag::Level>(probe)), probe <= level);
  }
  g_settings.trace.setMaxLevel(Diag::kError);
  EXPECT_EQ(load("trace=loud"), Diag::kInvalidArgument);
  EXPECT_TRUE(
      log.take().starts_with("vextorin: Error: Trace level must be 'off', 'verbose', "
                             "'info', 'warning' or 'error'.\n"));
}

TEST_F(ConfigurationFile, WithHelpOptionsIsStillAppliedWhole) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(load("help\nshorthelp\nmemory=7\ns\n"), Diag::kHelpShown);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            Diag::Text(Settings::kUsageText, Settings::kUsageText, Settings::kHelpText));
  EXPECT_EQ(settings.memorySize, 7);
  testing::internal::CaptureStdout();
  EXPECT_EQ(load("version\nmemory=0\n"), Diag::kInvalidArgument);
  const std::string version = testing::internal::GetCapturedStdout();
  EXPECT_TRUE(version.starts_with("Vextorin Version 1.0.0, Rev. ")) << version;
  EXPECT_TRUE(version.ends_with("\nCompilation options: --enable-libvextorin \n\n")) << version;
}

TEST_F(ConfigurationFile, ThatIsMissingIsReported) {
  const char* const arguments[] = {"vextorin", "--inifile", "/nowhere/x.conf"};
  EXPECT_EQ(settings.load(3, arguments), Diag::kAccessDenied);
  EXPECT_EQ(log.take(), "IniFile: /nowhere/x.conf\nvextorin: Error: Couldn't open ini-file.\n\n");
}

TEST_F(ConfigurationFile, IsListedInTheLogWithAllSettings) {
  settings.iniFile = "x.conf";
  settings.pclReset = true;
  EXPECT_EQ(settings.printSettings(),
            "Application settings: \nMemorySize = 65536\nOutputFile = \nGlobal x offset = 0\n"
            "Global y offset = 0\nFilter Flag = 0\nStream Type = 0\n"
            "Begin of Escape Sequence = $_vxrs\nEnd of Escape Sequence = $_vxre\n"
            "Insert Mode = 0\nInsert Pattern = \nPCL Reset = 1\nSAP Flag = 0\n"
            "Orvella Flag = 0\nv1format Flag = 0\nIgnore Barcode Error Flag = 0\n"
            "Ignore No Data Flag = 0\nErrorFile = vextorin_error.txt\nIniFile = x.conf\n"
            "Filter Line-by-Line Flag = 0");
}

TEST(ApplicationDirectory, HoldsTheRunningProgram) {
  const std::string directory = Settings::ApplicationDirectory();
  EXPECT_TRUE(directory.ends_with('/'));
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(directory, program.parent_path().string() + "/");
}

TEST(Values, ReadNumbersFromTheStartOfATextWithinBounds) {
  using namespace Settings;
  EXPECT_EQ(TextToInteger(" +12abc"), 12);
  EXPECT_EQ(TextToInteger("99999999999999999999"), 2147483647);
  EXPECT_EQ(TextToInteger("-99999999999"), -2147483647 - 1);
  EXPECT_EQ(TextToReal(" 1.5e1mm"), 15.0);
  EXPECT_EQ(TextToReal("-inf"), 0.0);
  EXPECT_EQ(Truncated(-1e300), -2147483647 - 1);
  EXPECT_EQ(DecimalPrefix("042,7"), 42);
  EXPECT_EQ(DecimalPrefix("-1"), 0);
  EXPECT_EQ(DecimalPrefix(""), 0);
  EXPECT_EQ(DecimalPrefix("99999999999"), 2147483647);
  EXPECT_TRUE(TextIsZero("") && TextIsZero("0.00") && !TextIsZero("-0") && !TextIsZero("0 "));
  EXPECT_TRUE(NumberIsZero(1e-6) && NumberIsZero(-1e-6) && !NumberIsZero(1.1e-6));
  EXPECT_TRUE(NumberMatchesText(0, ".0") && NumberMatchesText(2, "x") &&
              !NumberMatchesText(0, "x"));
}

TEST(Values, ChangeAndCompareTexts) {
  using namespace Settings;
  std::string text = "a\xE4z{Q1";
  EXPECT_EQ(ToUpper(text), "A\xE4Z{Q1");
  EXPECT_EQ(text, "A\xE4Z{Q1");
  EXPECT_TRUE(StartsWith("abc", "abx", 2) && StartsWith("", "x", 0));
  EXPECT_FALSE(StartsWith("abc", "abx", 3) || StartsWith("ab", "abc", 3) ||
               StartsWith("abc", "ab", 3));
  std::string replaced = "aaab";
  ReplaceAll(replaced, "aa", "aaa");
  EXPECT_EQ(replaced, "aaaab");
  ReplaceAll(replaced, "", "x");
  EXPECT_EQ(replaced, "aaaab");
  EXPECT_EQ(HexDigits("x4 1-4b4"), "AK@");
  EXPECT_EQ(HexDigits("no hx"), "");
}

}  // namespace
