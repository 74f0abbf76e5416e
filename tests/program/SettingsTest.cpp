#include "filter/v1/Version1.h"
#include "parser/StringParser.h"
#include "settings/AppSettings.h"
#include "settings/HelpText.h"
#include "settings/UsageText.h"
#include "settings/Values.h"
#include "tests/program/Observed.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using Settings::AppSettings;
using Settings::BarcodeSettings;

// Help and usage, which scripts compare whole, and the dumps of fresh settings with every default.
TEST(FixedTexts, AreTheDocumentedOnes) {
  AppSettings fresh;
  fresh.iniFile = "x.conf";
  const struct {
    std::string text;
    std::size_t size;
    std::uint32_t checksum;  // FNV-1a
  } kRows[] = {{std::string(Settings::kUsageText), 1066, 2639480231},
               {std::string(Settings::kHelpText), 11244, 3770324057},
               {Filter::Version1Help(), 3844, 1484668666},
               {fresh.printSettings(), 420, 4238016746},
               {BarcodeSettings().printSettings(), 2756, 3505078740}};
  for (const auto& row : kRows) {
    std::uint32_t checksum = 2166136261u;
    for (const char c : row.text) checksum = (checksum ^ static_cast<unsigned char>(c)) * 16777619u;
    EXPECT_EQ(row.text.size(), row.size);
    EXPECT_EQ(checksum, row.checksum) << row.text;
  }
}

// Ascending numbers as ranges: "1-9,16".
std::string Ranges(const std::vector<int>& numbers) {
  std::string text;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const std::size_t first = i;
    while (i + 1 < numbers.size() && numbers[i + 1] == numbers[i] + 1) ++i;
    text += (text.empty() ? "" : ",") + std::to_string(numbers[first]);
    if (i > first) text += '-' + std::to_string(numbers[i]);
  }
  return text;
}

TEST(DefaultSet, FillsInTheSizesOfEveryType) {
  std::map<std::string, std::vector<int>> types;
  for (int type = 0; type <= 130; ++type) {
    BarcodeSettings set;
    set.barcode = type;
    set.applyDefaultSet();
    types[Diag::Text(set.modulewidth, ' ', set.height, ' ', set.text, ' ', set.fontsize, ' ',
                     set.PDFrowheight, ' ', set.PDFratio)]
        .push_back(type);
    EXPECT_EQ(set.PDFratioGiven, 0);
  }
  std::map<std::string, std::string> sets;
  for (const auto& [sizes, numbers] : types) sets[sizes] = Ranges(numbers);
  // Module width, height, text position, font size, PDF417's row height and ratio.
  EXPECT_EQ(
      sets,
      (std::map<std::string, std::string>{
          {"-1 10.2 2 8 -1 ", "52"},
          {"0.254 10.2 2 7 -1 ", "1-9,16,18,20,25,31-33,46-48,50-51,53,59-62,72,75,86-89,98-101"},
          {"0.254 -1 2 7 -1 ", "81"},
          {"0.254 -1 2 7 0.762 11:1", "55-56,84,106-109"},
          {"0.339 16 2 10 -1 ", "29-30,78"},
          {"0.339 17.6 2 10 -1 ", "10-12,37-39"},
          {"0.339 21.9 2 10 -1 ", "13-15,69"},
          {"0.339 26.1 2 10 -1 ", "34-36"},
          {"0.339 -1 2 10 -1 ", "79-80"},
          {"0.423 25.4 3 12 -1 ", "21-22"},
          {"0.423 4 3 12 -1 ", "77"},
          {"0.47 5 3 14 -1 ", "63-68"},
          {"0.577 2.5 3 17 -1 ", "70,90"},
          {"0.577 3.2 3 17 -1 ", "40-45,82-83"},
          {"0.577 3.5 3 17 -1 ", "76"},
          {"0.577 3.7 3 17 -1 ", "85"},
          {"0.87 -1 3 26 -1 ", "57"},
          {"-1 -1 2 8 -1 ", "0,17,19,23-24,26-28,49,54,58,71,73-74,91-97,102-105,110-130"},
      }));
}

TEST(DefaultSet, LeavesWhatWasGiven) {
  const std::pair<std::string, Texts> kRows[] = {
      {"--width=50 --fontsize=5",
       {"Width = 50", "Height = 10.2", "Text position = 2", "Font size = 5"}},
      {"-b55 --modulewidth=0.5 --PDFratio=3:1 --text=above",
       {"Barcode type = 55", "Module width = 0.5", "Text position = 1", "Font size = 15",
        "Row height = 1.5", "Row-column ratio = 3:1"}},
      {"-b55 --height=20",
       {"Barcode type = 55", "Module width = 0.254", "Height = 20", "Text position = 2",
        "Font size = 7", "Row-column ratio = 11:1"}},
      {"-b55 --PDFrowheight=2 --modulewidth=1e300",
       {"Barcode type = 55", "Module width = 1e+300", "Text position = 2", "Font size = 2147483647",
        "Row height = 2", "Row-column ratio = 11:1"}},
  };
  for (const auto& [options, changes] : kRows) {
    BarcodeSettings settings;
    Parser::StringParser parser(options);
    EXPECT_EQ(settings.readOptions(parser), Diag::kSuccess);
    settings.applyDefaultSet();
    EXPECT_EQ(Changes(settings), changes) << options;
  }
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
  AppSettings settings;
  CollectedLog log;
};

TEST_F(ConfigurationFile, FillsApplicationAndBarcodeSettings) {
  EXPECT_EQ(load("memory=100\nwidth=50\nfilter\n-d\n"), Diag::kInvalidArgument);
  EXPECT_EQ(settings.iniFile, folder.file("conf"));
  EXPECT_EQ(settings.memorySize, 100);
  EXPECT_EQ(settings.barcode.width, 50);
  EXPECT_TRUE(settings.filter);
  EXPECT_EQ(log.take(), ErrorLine("Unrecognized option -d") + ErrorLine("Wrong ini-file.") +
                            "Try 'vextorin --help' for more information.\n\n");
}

TEST_F(ConfigurationFile, RoutesTheTraceLog) {
  int level = 0;
  for (const std::string word : {"OFF", "error", "Warning", "INFO", "Verbose"}) {
    SCOPED_TRACE(word);
    EXPECT_EQ(load("trace=" + word), Diag::kSuccess);
    for (int probe = 1; probe <= 4; ++probe)
      EXPECT_EQ(g_settings.trace.enabled(static_cast<Diag::Level>(probe)), probe <= level);
    ++level;
  }
  g_settings.trace.setMaxLevel(Diag::kError);
  EXPECT_EQ(load("trace=loud"), Diag::kInvalidArgument);
  EXPECT_TRUE(log.take().starts_with(
      ErrorLine("Trace level must be 'off', 'verbose', 'info', 'warning' or 'error'.")));
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
  EXPECT_EQ(DecimalPrefix("99999999999"), 2147483647);
  EXPECT_TRUE(NumberIsZero(1e-6) && NumberIsZero(-1e-6) && !NumberIsZero(1.1e-6));
  EXPECT_TRUE(NumberMatchesText(0, ".0") && NumberMatchesText(2, "x") &&
              !NumberMatchesText(0, "0 "));
}

TEST(Values, ChangeAndCompareTexts) {
  using namespace Settings;
  std::string text = "a\xE4z{Q1";
  EXPECT_EQ(ToUpper(text), "A\xE4Z{Q1");
  EXPECT_TRUE(StartsWith("abc", "abx", 2) && StartsWith("", "x", 0));
  EXPECT_FALSE(StartsWith("abc", "abx", 3) || StartsWith("ab", "abc", 3));
  std::string replaced = "aaab";
  ReplaceAll(replaced, "aa", "aaa");
  ReplaceAll(replaced, "", "x");
  EXPECT_EQ(replaced, "aaaab");
  EXPECT_EQ(HexDigits("x4 1-4b4"), "AK@");
}

}  // namespace
