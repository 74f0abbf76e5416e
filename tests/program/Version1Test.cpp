// Barcode parameters in the version-1 form: what each letter sets, what is refused and in which
// words.
#include "filter/v1/Version1.h"
#include "settings/Values.h"
#include "tests/program/CollectedLog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Filter::ParseVersion1;
using Settings::BarcodeSettings;
using Lines = std::vector<std::string>;

Lines Dump(const BarcodeSettings& settings) {
  Lines lines;
  std::istringstream text(settings.printSettings());
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

// The lines of the dump that differ from those of untouched settings, without their indentation.
Lines Changes(const BarcodeSettings& settings) {
  const Lines before = Dump({}), after = Dump(settings);
  Lines changes;
  for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i)
    if (before[i] != after[i]) changes.push_back(after[i].substr(2));
  return changes;
}

struct Outcome {
  Diag::ResultCode result;
  Lines changes;
  std::string message;
  BarcodeSettings settings;
};

Outcome Parse(std::string_view text, const BarcodeSettings& before = {}) {
  CollectedLog log;
  Outcome outcome{Diag::kSuccess, {}, "", before};
  outcome.result = ParseVersion1(text, outcome.settings);
  outcome.changes = Changes(outcome.settings);
  outcome.message = log.take();
  return outcome;
}

void ExpectRefused(const std::string& token, const std::string& message) {
  SCOPED_TRACE(token.substr(0, 40));
  const Outcome outcome = Parse(token);
  EXPECT_EQ(outcome.result, Diag::kInvalidArgument);
  EXPECT_EQ(outcome.changes, Lines{});
  EXPECT_NE(outcome.message.find("Error: " + message + '\n'), std::string::npos) << outcome.message;
  EXPECT_EQ(std::count(outcome.message.begin(), outcome.message.end(), '\n'), 1);
}

void ExpectQuoted(const std::string& token, const std::string& message) {
  ExpectRefused(token, message + '"' + token + '"');
}

TEST(Version1Parameters, EachFillsItsFieldAndNoOther) {
  const struct {
    std::string token;
    Lines changes;
  } kRows[] = {
      {"tPS", {"Output format = 1"}},
      {"tpcl", {"Output format = 2"}},
      {"x12.5", {"X position = 12.5"}},
      {"y-3", {"Y position = -3"}},
      {"w40mm", {"Width = 40"}},
      {"h.5", {"Height = 0.5"}},
      {"b55", {"Barcode type = 55"}},
      {"c0", {"Checkdigit method = 0"}},
      {"r90", {"Rotation = 1"}},
      {"r270", {"Rotation = 3"}},
      {"r360", {"Rotation = 4"}},
      {"r45", {}},
      {"ot", {"Orientation = 2"}},
      {"ob", {"Orientation = 1"}},
      {"Ton", {}},
      {"TOFF", {"Text position = 3"}},
      {"a", {"Text position = 1"}},
      {"nothing", {"Text position = 3"}},
      {"AOn", {"Auto correction = 1"}},
      {"Aoff", {"Auto correction = 0"}},
      {"soff", {"Translate escape sequences = 0"}},
      {"soff son", {}},
      {"g0.8", {"Guard width = 0.8"}},
      {"f12", {"Font size = 12"}},
      {"f0", {"Font size = 0"}},
      {"f999", {"Font size = 999"}},
      {"f1000", {"Font name = 1000"}},
      {"f99999999999999999999", {"Font name = 99999999999999999999"}},
      {"f-8", {"Font name = -8"}},
      {"fTimes-Roman", {"Font name = Times-Roman"}},
      {"i1.25", {"Text distance = 1.25"}},
      {"N2", {"Notch height = 2"}},
      {"m254", {"Module width = 0.254"}},
      {"R1:2:1:3", {"Print ratio = 1:2:1:3"}},
      {"FA##B&", {"Format string = A##B&"}},
      {"O", {"Optimize width = 1"}},
      {"I", {"Initgraphics flag = 1"}},
      {"e", {"Move cursor flag = 1"}},
      {"W", {"Trim whitespaces = 1"}},
      {"p", {"Embedding overhead = 0"}},
      {"Qh3.5", {"Quiet zone horizontal (V1Format) = 3.5"}},
      {"Qv0", {"Quiet zone vertical (V1Format) = 0"}},
      {"Pr10 Pc4 Pe0", {"Rows = 10", "Columns = 4", "Error correction level = 0"}},
      {"PR3:1 Ph0.762", {"Row height = 0.762", "Row-column ratio = 3:1"}},
      {"PRauto", {"Row-column ratio = auto"}},
      {"Pi0 Pf017 Pl Pna.txt Px5",
       {"Segment index = 0", "File id = 017", "Last segment = 1", "Filename = a.txt",
        "Segment count = 5"}},
      {"Pt77 Psme Payou Pz900 Pm12345",
       {"Timestamp = 77", "Sender = me", "Addressee = you", "File size = 900", "Checksum = 12345"}},
      {"Ds30 Df5 Dr Das16 Dai1 Daf9",
       {"Size = 30", "Format = 5", "Rectangular = 1", "Sum = 16", "Index = 1", "File id = 9"}},
      {"Mm2 Mu0 Mppre Mas8 Mai1",
       {"Mode = 2", "Undercut = 0", "Sum = 8", "Index = 1", "Preamble = pre"}},
      {"Mss001 Msc840 Msp068107317", {"Service = 001", "Country = 840", "Postal code = 068107317"}},
      {"QRv40 QRf2 QRi37 QRe0 QRm7",
       {"Version = 40", "Format = 2", "Format application indicator = 37",
        "Error correction level = 0", "Mask pattern = 7"}},
      {"QRm5 QRm-1", {}},
      {"QRas2 QRai16 QRap255", {"Sum = 2", "Index = 16", "Parity = 255"}},
      {"Cr44 Cc62 Ch2.5 Cs0.3 Cf1",
       {"Rows = 44", "Columns = 62", "Row height = 2.5", "Row separator height = 0.3",
        "Format = 1"}},
      {"dData", {"Data = Data"}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.token);
    const Outcome outcome = Parse(row.token);
    EXPECT_EQ(outcome.result, Diag::kSuccess);
    EXPECT_EQ(outcome.changes, row.changes);
    EXPECT_EQ(outcome.message, "");
  }
}

TEST(Version1Parameters, AnEmptyTextCountsAsGiven) {
  using B = BarcodeSettings;
  const struct {
    const char* token;
    int B::*given;
  } kRows[] = {
      {"PR", &B::PDFratioGiven},   {"Pf", &B::PDFidGiven},      {"Pn", &B::PDFfileGiven},
      {"Ps", &B::PDFsenderGiven},  {"Pa", &B::PDFaddrGiven},    {"Mp", &B::MCpreGiven},
      {"Mss", &B::MCserviceGiven}, {"Msc", &B::MCcountryGiven}, {"Msp", &B::MCpostalGiven},
      {"QRi", &B::QRindGiven},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.token);
    EXPECT_EQ(B().*row.given, 0);
    EXPECT_EQ(Parse(row.token).settings.*row.given, 1);
  }
}

TEST(Version1Parameters, ZeroHasToBeWrittenAsZero) {
  const struct {
    const char* letters;
    const char* message;
    bool zeroInRange = true;
  } kRows[] = {
      {"x", "Invalid x-position: "},
      {"y", "Invalid y-position: "},
      {"w", "Invalid width parameter: "},
      {"h", "Invalid height parameter: "},
      {"b", "Invalid barcode type: ", false},
      {"c", "Invalid check digit: "},
      {"r", "Invalid rotation parameter: "},
      {"g", "Invalid guard-width parameter: "},
      {"i", "Invalid text-distance parameter: "},
      {"N", "Invalid notch-height parameter: "},
      {"m", "Invalid module width parameter: "},
      {"Qh", "Invalid horizontal quiet-zone: "},
      {"Qv", "Invalid vertical quiet-zone: "},
      {"Pr", "Invalid number of rows (PDF417): ", false},
      {"Pc", "Invalid number of columns (PDF417): ", false},
      {"Ph", "Invalid row-height parameter (PDF417): "},
      {"Pe", "Invalid error correction level (PDF417): "},
      {"Pi", "Invalid segment index parameter (PDF417): "},
      {"Px", "Invalid segment count parameter (PDF417): "},
      {"Pt", "Invalid timestamp parameter (PDF417): "},
      {"Pz", "Invalid filesize parameter (PDF417): "},
      {"Pm", "Invalid checksum parameter (PDF417): "},
      {"Ds", "Invalid DATAMATRIX size: "},
      {"Df", "Invalid DATAMATRIX format: "},
      {"Das", "Invalid DATAMATRIX append - sum: ", false},
      {"Dai", "Invalid DATAMATRIX append - index: ", false},
      {"Daf", "Invalid DATAMATRIX append - file ID: "},
      {"Mm", "Invalid mode number (MaxiCode): ", false},
      {"Mu", "Invalid undercut size (MaxiCode): "},
      {"Mas", "Invalid number of symbols (MaxiCode): ", false},
      {"Mai", "Invalid symbol index (MaxiCode): ", false},
      {"QRv", "Invalid version number (QRCode): "},
      {"QRf", "Invalid format number (QRCode): "},
      {"QRe", "Invalid error correction level (QRCode): "},
      {"QRm", "Invalid mask pattern (QRCode): "},
      {"QRas", "Invalid number of symbols (QRCode): ", false},
      {"QRai", "Invalid symbol index (QRCode): ", false},
      {"QRap", "Invalid parity byte (QRCode): "},
      {"Cr", "Invalid number of rows (Codablock-F): ", false},
      {"Cc", "Invalid number of columns (Codablock-F): ", false},
      {"Ch", "Invalid row-height (Codablock-F): "},
      {"Cs", "Invalid row-seperator-height (Codablock-F): "},
      {"Cf", "Invalid format number (Codablock-F): "},
  };
  for (const auto& row : kRows) {
    const std::string letters = row.letters;
    for (const char* text : {"", "x", "-0", ".0"}) ExpectQuoted(letters + text, row.message);
    for (const char* text : {"0", "00", "0.0", "0x"}) {
      SCOPED_TRACE(letters + text);
      if (row.zeroInRange)
        EXPECT_EQ(Parse(letters + text).result, Diag::kSuccess);
      else
        ExpectQuoted(letters + text, row.message);
    }
  }
  for (const char* text : {"f00", "f0x", "f0.5"})
    ExpectQuoted(text, "Invalid fontsize parameter: ");
}

TEST(Version1Parameters, NumbersKeepToTheRangesOfTheirFields) {
  const struct {
    const char* letters;
    int low, high;
  } kRows[] = {
      {"Pr", 3, 90},   {"Pc", 1, 30},   {"Pe", 0, 8},     {"Ds", 0, 30},  {"Df", 0, 5},
      {"Das", 2, 16},  {"Dai", 1, 16},  {"Mm", 2, 5},     {"Mu", 0, 100}, {"Mas", 2, 8},
      {"Mai", 1, 8},   {"QRv", 0, 40},  {"QRf", 0, 2},    {"QRe", 0, 3},  {"QRm", -1, 7},
      {"QRas", 2, 16}, {"QRai", 1, 16}, {"QRap", 0, 255}, {"Cr", 2, 44},  {"Cc", 4, 62},
      {"Cf", 0, 1},
  };
  for (const auto& row : kRows) {
    const auto result = [&](int number) {
      return Parse(row.letters + std::to_string(number)).result;
    };
    SCOPED_TRACE(row.letters);
    EXPECT_EQ(result(row.low), Diag::kSuccess);
    EXPECT_EQ(result(row.high), Diag::kSuccess);
    EXPECT_EQ(result(row.low - 1), Diag::kInvalidArgument);
    EXPECT_EQ(result(row.high + 1), Diag::kInvalidArgument);
  }
}

TEST(Version1Parameters, WordsAndLettersThatAreNoneAreReportedAsWritten) {
  const struct {
    const char* token;
    const char* message;
  } kRows[] = {
      {"t", "Invalid output type: "},
      {"tPDF", "Invalid output type: "},
      {"o", "Invalid orientation parameter: "},
      {"oT", "Invalid orientation parameter: "},
      {"Tonx", "Invalid show-text parameter: "},
      {"A1", "Invalid auto-correct parameter: "},
      {"s", "Invalid translate-esc parameter: "},
      {"Q", "Unknown parameter for quiet-zone: "},
      {"Qx3", "Unknown parameter for quiet-zone: "},
      {"P", "Unknown parameter for PDF417: "},
      {"Pq1", "Unknown parameter for PDF417: "},
      {"D", "Unknown parameter for DATAMATRIX: "},
      {"DS1", "Unknown parameter for DATAMATRIX: "},
      {"Da1", "Unknown parameter for DATAMATRIX append: "},
      {"Mx", "Unknown parameter for MaxiCode: "},
      {"Ma", "Unknown append parameter for MaxiCode: "},
      {"Mse1", "Unknown SCM parameter for MaxiCode: "},
      {"QR", "Unknown parameter for QRCode: "},
      {"QRaf1", "Unknown parameter for QRCode: "},
      {"Cx", "Unknown parameter for Codablock-F: "},
      {"B20", "Unknown parameter: "},
      {"z", "Unknown parameter: "},
      {"--barcode=20", "Unknown parameter: "},
      {"\tw40", "Unknown parameter: "},
      {"\xff", "Unknown parameter: "},
  };
  for (const auto& row : kRows) ExpectQuoted(row.token, row.message);
}

TEST(Version1Parameters, TextsEndBelow1024BytesWithTheirLetters) {
  const struct {
    std::string letters;
    const char* message;
  } kRows[] = {
      {"f", "Invalid font name parameter: "},
      {"R", "Invalid print ratio: "},
      {"F", "Invalid format string: "},
      {"PR", "Invalid row-column ratio string (PDF417): "},
      {"Pf", "Invalid file id string (PDF417): "},
      {"Pn", "Invalid filename string (PDF417): "},
      {"Ps", "Invalid sender string (PDF417): "},
      {"Pa", "Invalid addressee string (PDF417): "},
      {"Mp", "Invalid preamble string (MaxiCode): "},
      {"Mss", "Invalid service class string (MaxiCode): "},
      {"Msc", "Invalid country code string (MaxiCode): "},
      {"Msp", "Invalid postal code string (MaxiCode): "},
      {"QRi", "Invalid format application indicator string (QRCode): "},
  };
  for (const auto& row : kRows) {
    const std::string fits = row.letters + std::string(1023 - row.letters.size(), 'A');
    EXPECT_EQ(Parse(fits).result, Diag::kSuccess) << row.letters;
    ExpectQuoted(fits + 'A', row.message);
  }
  const std::string number = "m254" + std::string(1019, ' ' + 1);
  EXPECT_EQ(Parse(number).result, Diag::kSuccess);
  ExpectQuoted(number + '!', "Invalid module width parameter: ");
}

TEST(Version1Data, RunsToTheEndOfTheText) {
  const struct {
    const char* text;
    const char* data;
  } kRows[] = {
      {"b20 w40 dHello World", "Hello World"},
      {"b20  w40   d\"Hello World\"", "Hello World"},
      {"  dw30 h20  ", "w30 h20  "},
      {"d", ""},
      {"d\"", ""},
      {"d\"\"", ""},
      {"d\"open", "open"},
      {"d\"closed\" ", "closed\" "},
      {"dnot \"quoted\"", "not \"quoted\""},
      {"d\"a \"b\" c\"", "a \"b\" c"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.text);
    const Outcome outcome = Parse(row.text);
    EXPECT_EQ(outcome.result, Diag::kSuccess);
    EXPECT_EQ(outcome.settings.data, row.data);
  }
  const std::string zero("d1\0002", 4);
  EXPECT_EQ(Parse(zero).settings.data, zero.substr(1));
}

TEST(Version1Data, IsAddedToTheDataHeldUpTo1023Bytes) {
  BarcodeSettings before;
  before.data = "12";
  EXPECT_EQ(Parse("d34", before).settings.data, "1234");
  EXPECT_EQ(Parse("w40", before).settings.data, "12");
  EXPECT_EQ(Parse("d" + std::string(1021, '3'), before).settings.data.size(), 1023u);
  const Outcome outcome = Parse("d" + std::string(1022, '3'), before);
  EXPECT_EQ(outcome.result, Diag::kInvalidArgument);
  EXPECT_NE(outcome.message.find("Error: Data string to long.\n"), std::string::npos);
  EXPECT_EQ(outcome.settings.data, "12");
}

TEST(Version1Text, StopsAtTheFirstParameterThatFails) {
  const Outcome outcome = Parse("w40 t PCL h20 dData");
  EXPECT_EQ(outcome.result, Diag::kInvalidArgument);
  EXPECT_EQ(outcome.changes, Lines{"Width = 40"});
  EXPECT_NE(outcome.message.find("Invalid output type: \"t\"\n"), std::string::npos);
}

TEST(Version1Text, WithoutParametersIsRefused) {
  for (const char* text : {"", " ", "     "}) ExpectRefused(text, "Missing barcode parameters!");
}

TEST(Version1Text, IsSplitAtBlanksOnly) {
  using Tokens = std::vector<std::string_view>;
  EXPECT_EQ(Filter::SplitVersion1("  b20\tw40   h\n d  x "), (Tokens{"b20\tw40", "h\n", "d  x "}));
  EXPECT_EQ(Filter::SplitVersion1("ab cd d"), (Tokens{"ab", "cd", "d"}));
}

TEST(Version1Help, HasALineForEachParameterAndEndsWithTheData) {
  const std::string help = Filter::Version1Help();
  EXPECT_TRUE(help.starts_with("  BARCODE_SETTINGS:\n"));
  EXPECT_TRUE(help.ends_with("content (must be the last parameter of the settings!)\n"));
  for (const char* start : {"t<TYPE> ",
                            "x<XPOS> ",
                            "w<WIDTH> ",
                            "b<BCTYPE> ",
                            "c<CHECKDIGIT> ",
                            "r<ROTATION> ",
                            "ot ",
                            "ob ",
                            "g<GUARDWIDTH> ",
                            "i<TEXTDIST> ",
                            "N<NOTCHHEIGHT> ",
                            "m<MODULEWIDTH> ",
                            "R<PRINTRATIO> ",
                            "F<FORMAT> ",
                            "O ",
                            "I ",
                            "e ",
                            "W ",
                            "Qh<length> ",
                            "QRap<",
                            "Pm<",
                            "Daf<",
                            "Msp<",
                            "Cf<",
                            "d<DATA> "}) {
    EXPECT_NE(help.find("\n    " + std::string(start)), std::string::npos) << start;
  }
  EXPECT_EQ(help.find("\n    p"), std::string::npos);
}

}  // namespace
