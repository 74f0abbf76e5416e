#include "parser/StringParser.h"
#include "settings/AppOptions.h"
#include "settings/BarcodeFiles.h"
#include "settings/BarcodeOptions.h"
#include "tests/program/CollectedLog.h"
#include "tests/program/OptionExpectations.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <sstream>

namespace {

using Settings::AppSettings;
using Settings::BarcodeSettings;

// One option and, unless it is to be missing, its value.
class OneOption : public Parser::ArgumentParser {
 public:
  OneOption(std::string optionName, std::optional<std::string> optionValue)
      : name(std::move(optionName)), value(std::move(optionValue)) {}

  Diag::ResultCode nextOption(std::string& out) override {
    out = std::exchange(name, "");
    return out.empty() ? Diag::kNothingLeft : Diag::kSuccess;
  }
  Diag::ResultCode optionArgument(std::string& out) override {
    out = value.value_or("");
    return value ? Diag::kSuccess : Diag::kNothingLeft;
  }

 private:
  std::string name;
  std::optional<std::string> value;
};

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

std::string ErrorLine(const std::string& message) {
  return "vextorin: Error: " + message + "\n";
}

template <class Record>
std::string FieldText(const Record& record, const typename Expectation<Record>::Field& field) {
  return std::visit([&](auto member) { return Diag::Text(record.*member); }, field);
}

template <class Record>
class OptionCheck {
 public:
  explicit OptionCheck(const Expectation<Record>& expected) : row(expected) {}

  void allNames() {
    for (const std::string& name : Words(row.names)) {
      SCOPED_TRACE(name);
      for (const auto& [text, value] : row.good) accepts(name, text, value);
      for (const std::string& text : row.bad) refuses(name, text);
      if (!row.flag) missesItsArgument(name);
    }
  }

 private:
  void accepts(const std::string& name, const std::string& text, const std::string& value) {
    SCOPED_TRACE("takes '" + text + "'");
    Record record;
    EXPECT_EQ(apply(record, name, text), Diag::kSuccess);
    EXPECT_EQ(FieldText(record, row.field), value);
    EXPECT_TRUE(!row.given || record.*row.given == 1);
    EXPECT_EQ(log.take(), "");
  }

  void refuses(const std::string& name, const std::string& text) {
    SCOPED_TRACE("refuses '" + text + "'");
    Record record;
    EXPECT_EQ(apply(record, name, text), Diag::kInvalidArgument);
    EXPECT_EQ(log.take(),
              ErrorLine(row.message.ends_with(": ") ? row.message + text : row.message));
  }

  void missesItsArgument(const std::string& name) {
    SCOPED_TRACE("without argument");
    Record record;
    EXPECT_EQ(apply(record, name, std::nullopt), Diag::kNothingLeft);
    EXPECT_EQ(log.take(), ErrorLine("Option '" + name + "' requires an argument."));
  }

  static Diag::ResultCode apply(Record& record, const std::string& name,
                                const std::optional<std::string>& text) {
    OneOption source(name, text);
    return record.readOptions(source);
  }

  const Expectation<Record>& row;
  CollectedLog log;
};

// Every row of the program's table is either expected, with the same names, or a known action.
template <class Record>
void ExpectTableKnown(std::span<const Settings::Option<Record>> table,
                      const std::vector<Expectation<Record>>& expected,
                      const std::vector<std::string>& actions) {
  EXPECT_EQ(table.size(), expected.size() + actions.size());
  for (const auto& option : table) {
    std::string names(option.name);
    if (!option.shortNames.empty()) names.append(" ").append(option.shortNames);
    const bool known = std::ranges::count(expected, names, &Expectation<Record>::names) == 1;
    EXPECT_TRUE(known || std::ranges::count(actions, names) == 1) << names;
  }
}

Diag::ResultCode Read(BarcodeSettings& settings, const std::string& text) {
  Parser::StringParser parser(text);
  return settings.readOptions(parser);
}

class OptionFiles : public testing::Test {
 protected:
  std::string file(const std::string& name, const std::string& contents) const {
    return temporary.write(name, contents);
  }

  const Support::TempFolder temporary;
  const std::string folder = temporary.file("");
  BarcodeSettings settings;
  CollectedLog log;
};

TEST(EveryOption, StoresGoodValuesAndRefusesOthersByEachName) {
  for (const auto& row : ExpectedBarcodeOptions()) OptionCheck(row).allNames();
  for (const auto& row : ExpectedAppOptions()) OptionCheck(row).allNames();
}

TEST(EveryOption, IsExpectedHere) {
  ExpectTableKnown(Settings::BarcodeOptions(), ExpectedBarcodeOptions(), {"datafile", "bcfile"});
  ExpectTableKnown(Settings::AppOptions(), ExpectedAppOptions(),
                   {"errorfile", "syslog", "nostderr", "trace", "barcodesettings s", "help ?",
                    "shorthelp", "version"});
}

TEST(OptionNames, AreMatchedWholeAndWithCase) {
  CollectedLog log;
  for (const std::string name : {"Data", "dat", "O 72dpiraster", "72dpi", "--data", "DATA", "P"}) {
    SCOPED_TRACE(name);
    BarcodeSettings settings;
    OneOption source(name, "1");
    EXPECT_EQ(settings.readOptions(source), Diag::kInvalidArgument);
    EXPECT_EQ(log.take(), ErrorLine("Unrecognized option " + name));
  }
}

TEST(TextOption, TakesHBehindTheLetterTOnly) {
  CollectedLog log;
  BarcodeSettings settings;
  EXPECT_EQ(Read(settings, "-th"), Diag::kSuccess);
  EXPECT_EQ(settings.text, Settings::kTextHide);
  EXPECT_EQ(Read(settings, "--text=h"), Diag::kInvalidArgument);
}

TEST(ImageFormatOption, ChoosesImagesUnlessAFormatWasGiven) {
  BarcodeSettings settings;
  EXPECT_EQ(Read(settings, "-i GIF"), Diag::kSuccess);
  EXPECT_EQ(settings.format, Settings::kFormatImage);
  BarcodeSettings postScript;
  EXPECT_EQ(Read(postScript, "-f PS -i GIF"), Diag::kSuccess);
  EXPECT_EQ(postScript.format, Settings::kFormatPostScript);
}

TEST(MissingData, GoesUnreportedOnRequest) {
  CollectedLog log;
  BarcodeSettings settings;
  settings.suppressArgumentReport = true;
  EXPECT_EQ(Read(settings, "--data"), Diag::kNothingLeft);
  EXPECT_EQ(Read(settings, "-d"), Diag::kNothingLeft);
  EXPECT_EQ(log.take(), "");
  EXPECT_EQ(Read(settings, "--font"), Diag::kNothingLeft);
  EXPECT_EQ(log.take(), ErrorLine("Option 'font' requires an argument."));
}

TEST(RefusedValue, EndsReadingAndKeepsWhatWasApplied) {
  CollectedLog log;
  BarcodeSettings settings;
  EXPECT_EQ(Read(settings, "--xpos=5 --width=abc --ypos=7"), Diag::kInvalidArgument);
  EXPECT_EQ(settings.xpos, 5);
  EXPECT_EQ(settings.ypos, 0);
  EXPECT_EQ(Read(settings, "word"), Diag::kInvalidArgument);
  EXPECT_EQ(log.take(),
            ErrorLine("Invalid barcode width: abc") + ErrorLine("Unrecognized option word"));
}

TEST_F(OptionFiles, DataFilesAreAppendedByteForByte) {
  const std::string bytes("\0\r\n\xFF", 4);
  const std::string large(200000, 'x');
  settings.data = "AB";
  EXPECT_EQ(Read(settings, "--datafile=" + file("a", bytes) + " --datafile=" + file("b", large)),
            Diag::kSuccess);
  EXPECT_EQ(settings.data, "AB" + bytes + large);
}

TEST_F(OptionFiles, UnreadableDataFilesAreDeniedAccess) {
  const std::pair<std::string, std::string> kCases[] = {
      {folder + "missing", "Couldn't open data file.\n"},
      {folder, "Couldn't read from data file.\n"},
      {"/dev/zero", "Data file is too large: /dev/zero"},
  };
  for (const auto& [name, message] : kCases) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Read(settings, "--datafile=" + name), Diag::kAccessDenied);
    EXPECT_EQ(log.take(), ErrorLine(message));
  }
}

TEST_F(OptionFiles, SettingsFilesApplyInTheirPlace) {
  const std::string inner = file("inner", "height=7\nrot=90\n");
  const std::string outer = file("outer", "# both\nwidth=3\nbcfile=" + inner + "\nxpos=2\n");
  EXPECT_EQ(Read(settings, "--width=1 --xpos=1 --bcfile=" + outer + " --xpos=9"), Diag::kSuccess);
  EXPECT_EQ(settings.width, 3);
  EXPECT_EQ(settings.height, 7);
  EXPECT_EQ(settings.rot, 1);
  EXPECT_EQ(settings.xpos, 9);
}

TEST_F(OptionFiles, SettingsFilesPassTheirFailureUp) {
  const struct {
    std::string file;
    Diag::ResultCode result;
    std::string report;
  } kCases[] = {
      {folder + "missing", Diag::kAccessDenied, ""},
      {file("bad", "rot=45\n"), Diag::kInvalidArgument,
       ErrorLine("Rotation must be set to '0', '90', '180' or '270'.")},
      {file("bare", "width\n"), Diag::kNothingLeft,
       ErrorLine("Option 'width' requires an argument.")},
      {file("flag", "remove=1\n"), Diag::kInvalidArgument, ErrorLine("Unrecognized option 1")},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.file);
    EXPECT_EQ(Read(settings, "--bcfile=" + test.file), test.result);
    EXPECT_EQ(log.take(), test.report);
  }
}

TEST_F(OptionFiles, SettingsFileThatIncludesItselfIsRefused) {
  const std::string loop = file("loop", "xpos=1\nbcfile=" + folder + "loop\n");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Read(settings, "--bcfile=" + loop), Diag::kInvalidArgument);
    EXPECT_EQ(log.take(), ErrorLine("Barcode settings files are nested too deeply: " + loop));
  }
}

TEST_F(OptionFiles, SettingsFilesMayNestToTheBound) {
  std::string next;
  for (int depth = 0; depth < Settings::kMaxFileNesting; ++depth)
    next = file("level" + std::to_string(depth), next.empty() ? "rot=90\n" : "bcfile=" + next);
  EXPECT_EQ(Read(settings, "--bcfile=" + next), Diag::kSuccess);
  EXPECT_EQ(settings.rot, 1);
}

}  // namespace
