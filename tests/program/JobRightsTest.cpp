// What a print job may do through the options of its sequences: what is told of it, and which files
// it may read.
#include "engine/GenerateWithSettings.h"
#include "engine/Session.h"
#include "parser/StringParser.h"
#include "settings/BarcodeFiles.h"
#include "tests/program/Observed.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

namespace {

using Diag::Foreign;
using Settings::BarcodeSettings;

TEST(ForeignText, ShowsItsControlCharacters) {
  const std::pair<std::string_view, std::string_view> rows[] = {
      {"", ""},
      {"plain \xE4\xF6 \\x0A text~", "plain \xE4\xF6 \\x0A text~"},
      {"a\nSTATE: +x\r\n", "a\\x0ASTATE: +x\\x0D\\x0A"},
      {std::string_view("\0\x01\x1B\x1F\x7F", 5), "\\x00\\x01\\x1B\\x1F\\x7F"},
      {"\ttab\vvt", "\ttab\vvt"},
  };
  for (const auto& [text, shown] : rows) {
    EXPECT_EQ(Diag::Text("<", Foreign{text}, ">"), Diag::Text("<", shown, ">"));
    EXPECT_EQ(Diag::Text(Foreign{text, false}), text);
  }
}

TEST(ForeignText, IsCutTo1500ShownBytesAMessage) {
  const std::string fits(1500, 'x');
  EXPECT_EQ(Diag::Text(Foreign{fits}, '.'), fits + '.');
  EXPECT_EQ(Diag::Text(Foreign{fits + 'y'}, '.'), fits.substr(3) + "....");
  EXPECT_EQ(Diag::Text(Foreign{std::string(375, '\n')}).size(), 1500u);
  // No escape is cut through.
  const std::string feeds = Diag::Text(Foreign{std::string(376, '\n')});
  EXPECT_TRUE(feeds.ends_with("\\x0A...")) << feeds;
  EXPECT_EQ(feeds.size(), 1499u);
  // Both parts share the room; configuration needs none.
  const std::string two = Diag::Text(Foreign{std::string(1000, 'a')}, '|', Foreign{fits}, '|',
                                     Foreign{"more"}, Foreign{fits, false});
  EXPECT_EQ(two, std::string(1000, 'a') + '|' + std::string(497, 'x') + "...|" + fits);
}

class JobOptions : public Options {
 protected:
  JobOptions() { settings.fromJob = true; }
  ~JobOptions() override { g_settings.application.jobFiles = true; }
};

TEST_F(JobOptions, AreQuotedOnOneLineWhereTheConfigurationIsQuotedAsItIs) {
  const struct {
    const char* options;
    const char* report;
  } rows[] = {
      {"--width=\"a\nPPD: x\"", "Invalid barcode width: a\\x0APPD: x"},
      {"--na\x1Bme=1", "Unrecognized option na\\x1Bme"},
      {"word\nSTATE: x", "Unrecognized option word\\x0ASTATE: x"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(read(row.options), Diag::kInvalidArgument);
    EXPECT_EQ(log.take(), ErrorLine(row.report));
  }
  read("-\n");
  EXPECT_EQ(log.take(), ErrorLine("Unrecognized option \\x0A"));
  read("--width=" + std::string(100000, 'x'));
  EXPECT_LT(log.take().size(), 1600u);

  settings.fromJob = false;
  EXPECT_EQ(read(rows[0].options), Diag::kInvalidArgument);
  EXPECT_EQ(log.take(), ErrorLine("Invalid barcode width: a\nPPD: x"));
}

TEST_F(JobOptions, KeepTheirLinesInTheDump) {
  EXPECT_EQ(read("--data=\"1\nPAGE: 1 1\" --PDFid=\"\x1B\" --font=\"A\tB\""), Diag::kSuccess);
  const Texts changes = {"Data = 1\\x0APAGE: 1 1", "Font name = A\tB", "File id = \\x1B"};
  EXPECT_EQ(Changes(settings), changes);
}

TEST_F(JobOptions, LeaveNoControlCharactersInWhatIsPrintedInPlaceOfABarcode) {
  ASSERT_EQ(Engine::InitLibrary(""), Diag::kSuccess);
  settings.barcode = 13;  // EAN 13 takes digits only
  settings.data =
      "12\n\x1B"
      "E";
  std::string output;
  EXPECT_NE(Engine::GenerateWithSettings(settings, output, 65536), Diag::kSuccess);
  Engine::DeinitLibrary();
  const Texts lines = Split(output, '\n');
  ASSERT_EQ(lines.size(), 2u) << output;
  EXPECT_EQ(output.find('\x1B'), std::string::npos) << output;
}

TEST_F(JobOptions, NameRegularFilesOnly) {
  const std::string folder = files.file("");
  const std::string pipe = files.file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string data = files.write("data", "from a file");
  std::filesystem::create_symlink(data, files.file("link"));
  const std::string irregular = "Data file is no regular file: ";
  const std::string settingsFile = "arcode settings file";
  const struct {
    std::string option;
    std::string report;
    std::string data = "";
  } rows[] = {
      {"datafile=" + data, "", "from a file"},
      {"datafile=" + folder + "link", "", "from a file"},
      {"datafile=" + pipe, irregular + pipe},
      {"datafile=/dev/zero", irregular + "/dev/zero"},
      {"datafile=/dev/null", irregular + "/dev/null"},
      {"datafile=/proc/self/environ", ""},  // states no size
      {"datafile=" + folder, "Couldn't read from data file.\n"},
      {"datafile=" + folder + "missing", "Couldn't open data file.\n"},
      {"bcfile=" + pipe, "B" + settingsFile + " is no regular file: " + pipe},
      {"bcfile=/dev/zero", "B" + settingsFile + " is no regular file: /dev/zero"},
      {"bcfile=/proc/self/environ", ""},
      {"bcfile=" + folder, "Couldn't read b" + settingsFile + ": " + folder + ": Is a directory"},
      {"bcfile=" + files.write("large", std::string(Settings::kMaxSettingsSize + 1, '#')),
       "B" + settingsFile + " is too large: " + folder + "large"},
      {"bcfile=" + files.write("inner", "datafile=" + pipe + "\n"), irregular + pipe},
      {"bcfile=" + files.write("fine", "data=inside\n"), "", "inside"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.option);
    settings.data.clear();
    EXPECT_EQ(read("--" + row.option), row.report.empty() ? Diag::kSuccess : Diag::kAccessDenied);
    EXPECT_EQ(log.take(), ErrorLine(row.report));
    EXPECT_EQ(settings.data, row.data);
  }
  // The name of the file is told, what stands in it is not.
  EXPECT_EQ(settings.failurePlace, "line 1 of " + files.file("inner"));
}

TEST_F(JobOptions, ReadSoMuchAtMost) {
  std::string twice;
  std::string next = files.write("level0", "");
  for (int depth = 1; depth < Settings::kMaxFileNesting; ++depth) {
    twice = "bcfile=" + next + "\n";
    next = files.write("level" + std::to_string(depth), twice + twice);
  }
  const std::string tooMuch = ErrorLine("A sequence names too many or too large files with '");
  const std::string large = files.write("large", std::string(Settings::kMaxSettingsSize, '#'));
  const std::string data = files.write("data", std::string(Settings::kMaxDataSize, 'x'));
  std::string manyLarge, manyData;
  for (int count = 0; count < 5; ++count) {
    manyLarge += " --bcfile=" + large;
    manyData += " --datafile=" + data + " --data=\"\"";
  }
  const std::pair<std::string, const char*> rows[] = {{"--bcfile=" + next, "bcfile"},
                                                      {manyLarge, "bcfile"},
                                                      {" --data=\"\"" + manyData, "datafile"}};
  for (const auto& [options, option] : rows) {
    settings.fileCost = 0;
    settings.data.clear();
    EXPECT_EQ(read(options), Diag::kAccessDenied);
    EXPECT_EQ(log.take(), tooMuch.substr(0, tooMuch.size() - 1) + option + "'.\n");
  }
  // One of each is fine, and so is anything in the configuration.
  settings = BarcodeSettings();
  settings.fromJob = true;
  EXPECT_EQ(read("--bcfile=" + large + " --datafile=" + data), Diag::kSuccess);
  settings.fromJob = false;
  EXPECT_EQ(read("--bcfile=" + files.file("level10") + manyLarge), Diag::kSuccess);
}

TEST_F(JobOptions, NameNoFilesWhereTheConfigurationDeniesIt) {
  const std::string data = files.write("data", "from a file");
  const std::string inner = files.write("inner", "datafile=" + data + "\n");
  g_settings.application.jobFiles = false;
  for (const std::string option : {"datafile", "bcfile"}) {
    EXPECT_EQ(read("--" + option + "=" + (option == "bcfile" ? inner : data)), Diag::kAccessDenied);
    EXPECT_EQ(log.take(),
              ErrorLine("A sequence may not use '" + option + "': 'jobfiles' is set to 'deny'."));
  }
  settings.fromJob = false;
  EXPECT_EQ(read("--bcfile=" + inner), Diag::kSuccess);
  EXPECT_EQ(settings.data, "from a file");
}

}  // namespace
