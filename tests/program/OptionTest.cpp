#include "parser/StringParser.h"
#include "settings/AppOptions.h"
#include "settings/BarcodeFiles.h"
#include "settings/BarcodeOptions.h"
#include "tests/program/OptionExpectations.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace {

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

template <class Record>
void CheckOption(const std::string& name, const Expectation<Record>& row) {
  CollectedLog log;
  const auto expect = [&](Record& record, std::optional<std::string> text, Diag::ResultCode result,
                          const std::string& report) {
    OneOption source(name, text);
    EXPECT_EQ(record.readOptions(source), result);
    EXPECT_EQ(log.take(), ErrorLine(report));
  };
  for (const auto& [text, value] : row.values.good) {
    SCOPED_TRACE(name + " takes '" + text + "'");
    Record record;
    expect(record, text, Diag::kSuccess, "");
    const auto shown = [&](auto field) { return Diag::Text(record.*field); };
    EXPECT_EQ(std::visit(shown, row.field), value);
    EXPECT_TRUE(!row.given || record.*row.given == 1);
  }
  Record record;
  for (const std::string& text : row.values.bad) {
    SCOPED_TRACE(name + " refuses '" + text + "'");
    expect(record, text, Diag::kInvalidArgument,
           row.message + (row.message.ends_with(": ") ? text : ""));
  }
  if (!row.isFlag()) {
    expect(record, std::nullopt, Diag::kNothingLeft, "Option '" + name + "' requires an argument.");
  }
}

// Every row of the program's table is either expected, with the same names, or a known action.
template <class Record>
void CheckTable(std::span<const Settings::Option<Record>> table,
                const std::vector<Expectation<Record>>& expected, Texts known) {
  for (const auto& row : expected) {
    known.push_back(row.names);
    for (const std::string& name : Split(row.names, ' ')) CheckOption(name, row);
  }
  EXPECT_EQ(table.size(), known.size());
  for (const auto& option : table) {
    std::string names(option.name);
    if (!option.shortNames.empty()) names.append(" ").append(option.shortNames);
    EXPECT_EQ(std::ranges::count(known, names), 1) << names;
  }
}

TEST(EveryOption, StoresGoodValuesAndRefusesOthersByEachName) {
  CheckTable(Settings::BarcodeOptions(), ExpectedBarcodeOptions(), {"datafile", "bcfile"});
  CheckTable(Settings::AppOptions(), ExpectedAppOptions(),
             {"errorfile", "syslog", "nostderr", "trace", "barcodesettings s", "help ?",
              "shorthelp", "version", "morehelp"});
}

TEST_F(Options, AreMatchedWholeAndWithCase) {
  for (const std::string name : {"Data", "dat", "O 72dpiraster", "72dpi", "--data", "P"}) {
    SCOPED_TRACE(name);
    OneOption source(name, "1");
    EXPECT_EQ(settings.readOptions(source), Diag::kInvalidArgument);
    EXPECT_EQ(log.take(), ErrorLine("Unrecognized option " + name));
  }
}

TEST_F(Options, ForTextTakeHBehindTheLetterTOnly) {
  EXPECT_EQ(read("-th"), Diag::kSuccess);
  EXPECT_EQ(settings.text, Settings::kTextHide);
  EXPECT_EQ(read("--text=h"), Diag::kInvalidArgument);
}

TEST_F(Options, ForTheImageFormatChooseImagesUnlessAFormatWasGiven) {
  EXPECT_EQ(read("-i GIF"), Diag::kSuccess);
  EXPECT_EQ(settings.format, Settings::kFormatImage);
  EXPECT_EQ(read("-f PS -i GIF"), Diag::kSuccess);
  EXPECT_EQ(settings.format, Settings::kFormatPostScript);
}

TEST_F(Options, GoUnreportedWithoutDataOnRequest) {
  settings.suppressArgumentReport = true;
  EXPECT_EQ(read("--data"), Diag::kNothingLeft);
  EXPECT_EQ(read("-d"), Diag::kNothingLeft);
  EXPECT_EQ(read("--font"), Diag::kNothingLeft);
  EXPECT_EQ(log.take(), ErrorLine("Option 'font' requires an argument."));
}

TEST_F(Options, EndAtARefusedValueAndKeepWhatWasApplied) {
  EXPECT_EQ(read("--xpos=5 --width=abc --ypos=7"), Diag::kInvalidArgument);
  EXPECT_EQ(settings.xpos, 5);
  EXPECT_EQ(settings.ypos, 0);
  EXPECT_EQ(read("word"), Diag::kInvalidArgument);
  EXPECT_EQ(log.take(),
            ErrorLine("Invalid barcode width: abc") + ErrorLine("Unrecognized option word"));
}

TEST_F(Options, AppendDataFilesByteForByte) {
  const std::string bytes("\0\r\n\xFF", 4);
  const std::string large(200000, 'x');
  settings.data = "AB";
  EXPECT_EQ(
      read("--datafile=" + files.write("a", bytes) + " --datafile=" + files.write("b", large)),
      Diag::kSuccess);
  EXPECT_EQ(settings.data, "AB" + bytes + large);
}

TEST_F(Options, FromSettingsFilesApplyInTheirPlace) {
  const std::string inner = files.write("inner", "height=7\nrot=90\n");
  const std::string outer = files.write("outer", "# both\nwidth=3\nbcfile=" + inner + "\nxpos=2\n");
  EXPECT_EQ(read("--width=1 --xpos=1 --bcfile=" + outer + " --xpos=9"), Diag::kSuccess);
  EXPECT_EQ(settings.width, 3);
  EXPECT_EQ(settings.height, 7);
  EXPECT_EQ(settings.rot, 1);
  EXPECT_EQ(settings.xpos, 9);
}

TEST_F(Options, PassTheFailuresOfFilesUp) {
  const std::string folder = files.file("");
  const std::string loop = files.write("loop", "xpos=1\nbcfile=" + folder + "loop\n");
  const std::string tooDeep = "Barcode settings files are nested too deeply: " + loop;
  const struct {
    std::string option;
    Diag::ResultCode result;
    std::string report;
  } kCases[] = {
      {"datafile=" + folder + "missing", Diag::kAccessDenied, "Couldn't open data file.\n"},
      {"datafile=" + folder, Diag::kAccessDenied, "Couldn't read from data file.\n"},
      {"datafile=/dev/zero", Diag::kAccessDenied, "Data file is too large: /dev/zero"},
      {"bcfile=" + folder + "missing", Diag::kAccessDenied,
       "Couldn't open barcode settings file: " + folder + "missing: No such file or directory"},
      {"bcfile=" + folder, Diag::kAccessDenied,
       "Couldn't read barcode settings file: " + folder + ": Is a directory"},
      {"bcfile=/dev/zero", Diag::kAccessDenied, "Barcode settings file is too large: /dev/zero"},
      {"bcfile=" + files.write("bad", "rot=45\n"), Diag::kInvalidArgument,
       "Rotation must be set to '0', '90', '180' or '270'."},
      {"bcfile=" + files.write("bare", "width\n"), Diag::kNothingLeft,
       "Option 'width' requires an argument."},
      {"bcfile=" + files.write("flag", "remove=1\n"), Diag::kInvalidArgument,
       "Unrecognized option 1"},
      {"bcfile=" + loop, Diag::kInvalidArgument, tooDeep},
      {"bcfile=" + loop, Diag::kInvalidArgument, tooDeep},  // the first one left nothing behind
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.option);
    EXPECT_EQ(read("--" + test.option), test.result);
    EXPECT_EQ(log.take(), ErrorLine(test.report));
  }
}

TEST_F(Options, MayComeFromFilesNestedToTheBound) {
  std::string next = files.write("last", "rot=90\n");
  for (int depth = 1; depth < Settings::kMaxFileNesting; ++depth)
    next = files.write("level" + std::to_string(depth), "bcfile=" + next);
  EXPECT_EQ(read("--bcfile=" + next), Diag::kSuccess);
  EXPECT_EQ(settings.rot, 1);
}

}  // namespace
