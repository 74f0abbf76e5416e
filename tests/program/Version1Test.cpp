// Barcode parameters in the version-1 form: what each letter sets, what is refused and in which
// words.
#include "filter/v1/Version1.h"
#include "tests/program/Observed.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using Filter::ParseVersion1;
using Settings::BarcodeSettings;

struct Outcome {
  Diag::ResultCode result;
  Texts changes;
  std::string message;
  BarcodeSettings settings;
};

Outcome Parse(std::string_view text, const std::string& dataBefore = {}) {
  CollectedLog log;
  Outcome outcome{Diag::kSuccess, {}, "", {}};
  outcome.settings.data = dataBefore;
  outcome.result = ParseVersion1(text, outcome.settings);
  outcome.changes = Changes(outcome.settings);
  outcome.message = log.take();
  return outcome;
}

void ExpectTaken(const std::string& token) {
  EXPECT_EQ(Parse(token).result, Diag::kSuccess) << token.substr(0, 40);
}

void ExpectRefused(const std::string& token, const std::string& message) {
  SCOPED_TRACE(token.substr(0, 40));
  const Outcome outcome = Parse(token);
  EXPECT_EQ(outcome.result, Diag::kInvalidArgument);
  EXPECT_EQ(outcome.changes, Texts{});
  EXPECT_NE(outcome.message.find("Error: " + message + '\n'), std::string::npos) << outcome.message;
  EXPECT_EQ(Split(outcome.message, '\n').size(), 1U);
}

void ExpectQuoted(const std::string& token, const std::string& message) {
  ExpectRefused(token, message + '"' + token + '"');
}

TEST(Version1Parameters, EachFillsItsFieldAndNoOther) {
  const std::pair<std::string, Texts> kRows[] = {
      {"tPS", {"Output format = 1"}},
      {"tpcl", {"Output format = 2"}},
      {"x12.5 y-3", {"X position = 12.5", "Y position = -3"}},
      {"w40mm h.5", {"Width = 40", "Height = 0.5"}},
      {"b55 c0", {"Barcode type = 55", "Checkdigit method = 0"}},
      {"r90", {"Rotation = 1"}},
      {"r360", {"Rotation = 4"}},
      {"r45", {}},
      {"ot", {"Orientation = 2"}},
      {"ob", {"Orientation = 1"}},
      {"Ton", {}},
      {"TOFF", {"Text position = 3"}},
      {"a", {"Text position = 1"}},
      {"nothing", {"Text position = 3"}},
      {"AOn", {"Auto correction = 1"}},
      {"soff", {"Translate escape sequences = 0"}},
      {"soff son", {}},
      {"g0.8", {"Guard width = 0.8"}},
      {"f0", {"Font size = 0"}},
      {"f999", {"Font size = 999"}},
      {"f1000", {"Font name = 1000"}},
      {"f99999999999999999999", {"Font name = 99999999999999999999"}},
      {"f-8", {"Font name = -8"}},
      {"fTimes-Roman", {"Font name = Times-Roman"}},
      {"i1.25", {"Text distance = 1.25"}},
      {"N2", {"Notch height = 2"}},
      {"m254", {"Module width = 0.254"}},
      {"R1:2:1:3 FA##B&", {"Print ratio = 1:2:1:3", "Format string = A##B&"}},
      {"O", {"Optimize width = 1"}},
      {"I", {"Initgraphics flag = 1"}},
      {"e", {"Move cursor flag = 1"}},
      {"W", {"Trim whitespaces = 1"}},
      {"p", {"Embedding overhead = 0"}},
      {"Qh3.5 Qv0",
       {"Quiet zone horizontal (V1Format) = 3.5", "Quiet zone vertical (V1Format) = 0"}},
      {"Pr10 Pc4 Pe0", {"Rows = 10", "Columns = 4", "Error correction level = 0"}},
      {"PR3:1 Ph0.762", {"Row height = 0.762", "Row-column ratio = 3:1"}},
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
      {"QRas2 QRai16 QRap255", {"Sum = 2", "Index = 16", "Parity = 255"}},
      {"Cr44 Cc62 Ch2.5 Cs0.3 Cf1",
       {"Rows = 44", "Columns = 62", "Row height = 2.5", "Row separator height = 0.3",
        "Format = 1"}},
  };
  for (const auto& [text, changes] : kRows) {
    SCOPED_TRACE(text);
    const Outcome outcome = Parse(text);
    EXPECT_EQ(outcome.result, Diag::kSuccess);
    EXPECT_EQ(outcome.changes, changes);
    EXPECT_EQ(outcome.message, "");
  }
}

TEST(Version1Parameters, NumbersKeepToTheirRangesAndZeroIsWrittenAsZero) {
  const struct {
    std::string letters;
    const char* message;
    int low = INT_MIN, high = INT_MAX;
  } kRows[] = {
      {"x", "Invalid x-position: "},
      {"y", "Invalid y-position: "},
      {"w", "Invalid width parameter: "},
      {"h", "Invalid height parameter: "},
      {"b", "Invalid barcode type: ", 1},
      {"c", "Invalid check digit: "},
      {"r", "Invalid rotation parameter: "},
      {"g", "Invalid guard-width parameter: "},
      {"i", "Invalid text-distance parameter: "},
      {"N", "Invalid notch-height parameter: "},
      {"m", "Invalid module width parameter: "},
      {"Qh", "Invalid horizontal quiet-zone: "},
      {"Qv", "Invalid vertical quiet-zone: "},
      {"Pr", "Invalid number of rows (PDF417): ", 3, 90},
      {"Pc", "Invalid number of columns (PDF417): ", 1, 30},
      {"Ph", "Invalid row-height parameter (PDF417): "},
      {"Pe", "Invalid error correction level (PDF417): ", 0, 8},
      {"Pi", "Invalid segment index parameter (PDF417): "},
      {"Px", "Invalid segment count parameter (PDF417): "},
      {"Pt", "Invalid timestamp parameter (PDF417): "},
      {"Pz", "Invalid filesize parameter (PDF417): "},
      {"Pm", "Invalid checksum parameter (PDF417): "},
      {"Ds", "Invalid DATAMATRIX size: ", 0, 30},
      {"Df", "Invalid DATAMATRIX format: ", 0, 5},
      {"Das", "Invalid DATAMATRIX append - sum: ", 2, 16},
      {"Dai", "Invalid DATAMATRIX append - index: ", 1, 16},
      {"Daf", "Invalid DATAMATRIX append - file ID: "},
      {"Mm", "Invalid mode number (MaxiCode): ", 2, 5},
      {"Mu", "Invalid undercut size (MaxiCode): ", 0, 100},
      {"Mas", "Invalid number of symbols (MaxiCode): ", 2, 8},
      {"Mai", "Invalid symbol index (MaxiCode): ", 1, 8},
      {"QRv", "Invalid version number (QRCode): ", 0, 40},
      {"QRf", "Invalid format number (QRCode): ", 0, 2},
      {"QRe", "Invalid error correction level (QRCode): ", 0, 3},
      {"QRm", "Invalid mask pattern (QRCode): ", -1, 7},
      {"QRas", "Invalid number of symbols (QRCode): ", 2, 16},
      {"QRai", "Invalid symbol index (QRCode): ", 1, 16},
      {"QRap", "Invalid parity byte (QRCode): ", 0, 255},
      {"Cr", "Invalid number of rows (Codablock-F): ", 2, 44},
      {"Cc", "Invalid number of columns (Codablock-F): ", 4, 62},
      {"Ch", "Invalid row-height (Codablock-F): "},
      {"Cs", "Invalid row-seperator-height (Codablock-F): "},
      {"Cf", "Invalid format number (Codablock-F): ", 0, 1},
  };
  for (const auto& row : kRows) {
    for (const char* text : {"", "x", "-0", ".0"}) ExpectQuoted(row.letters + text, row.message);
    for (const char* text : {"0", "00", "0.0", "0x"}) {
      if (row.low <= 0)
        ExpectTaken(row.letters + text);
      else
        ExpectQuoted(row.letters + text, row.message);
    }
    if (row.low == INT_MIN) continue;
    ExpectTaken(row.letters + std::to_string(row.low));
    ExpectTaken(row.letters + std::to_string(row.high));
    ExpectQuoted(row.letters + std::to_string(row.low - 1), row.message);
    if (row.high < INT_MAX) ExpectQuoted(row.letters + std::to_string(row.high + 1), row.message);
  }
}

TEST(Version1Parameters, ThatAreNoneAreReportedAsWritten) {
  const struct {
    const char* message;
    Texts tokens;
  } kRows[] = {
      {"Invalid output type: ", {"t", "tPDF"}},
      {"Invalid orientation parameter: ", {"o", "oT"}},
      {"Invalid show-text parameter: ", {"Tonx"}},
      {"Invalid auto-correct parameter: ", {"A1"}},
      {"Invalid translate-esc parameter: ", {"s"}},
      {"Invalid fontsize parameter: ", {"f00", "f0x", "f0.5"}},
      {"Unknown parameter for quiet-zone: ", {"Q", "Qx3"}},
      {"Unknown parameter for PDF417: ", {"P", "Pq1"}},
      {"Unknown parameter for DATAMATRIX: ", {"D", "DS1"}},
      {"Unknown parameter for DATAMATRIX append: ", {"Da1"}},
      {"Unknown parameter for MaxiCode: ", {"Mx"}},
      {"Unknown append parameter for MaxiCode: ", {"Ma"}},
      {"Unknown SCM parameter for MaxiCode: ", {"Mse1"}},
      {"Unknown parameter for QRCode: ", {"QR", "QRaf1"}},
      {"Unknown parameter for Codablock-F: ", {"Cx"}},
      {"Unknown parameter: ", {"B20", "--barcode=20", "\tw40", "\xff"}},
  };
  for (const auto& row : kRows)
    for (const std::string& token : row.tokens) ExpectQuoted(token, row.message);
  for (const char* text : {"", "     "}) ExpectRefused(text, "Missing barcode parameters!");
}

TEST(Version1Parameters, WithTextsMayBeEmptyAndEndBelow1024Bytes) {
  using B = BarcodeSettings;
  const struct {
    std::string letters;
    const char* message;
    int B::*given = nullptr;
  } kRows[] = {
      {"f", "Invalid font name parameter: "},
      {"R", "Invalid print ratio: "},
      {"F", "Invalid format string: "},
      {"PR", "Invalid row-column ratio string (PDF417): ", &B::PDFratioGiven},
      {"Pf", "Invalid file id string (PDF417): ", &B::PDFidGiven},
      {"Pn", "Invalid filename string (PDF417): ", &B::PDFfileGiven},
      {"Ps", "Invalid sender string (PDF417): ", &B::PDFsenderGiven},
      {"Pa", "Invalid addressee string (PDF417): ", &B::PDFaddrGiven},
      {"Mp", "Invalid preamble string (MaxiCode): ", &B::MCpreGiven},
      {"Mss", "Invalid service class string (MaxiCode): ", &B::MCserviceGiven},
      {"Msc", "Invalid country code string (MaxiCode): ", &B::MCcountryGiven},
      {"Msp", "Invalid postal code string (MaxiCode): ", &B::MCpostalGiven},
      {"QRi", "Invalid format application indicator string (QRCode): ", &B::QRindGiven},
      {"m254", "Invalid module width parameter: "},
  };
  for (const auto& row : kRows) {
    EXPECT_TRUE(!row.given || Parse(row.letters).settings.*row.given == 1) << row.letters;
    const std::string fits = row.letters + std::string(1023 - row.letters.size(), 'A');
    ExpectTaken(fits);
    ExpectQuoted(fits + 'A', row.message);
  }
}

TEST(Version1Data, RunToTheEndOfTheTextAndAreAddedToTheDataHeld) {
  const std::pair<std::string, std::string> kRows[] = {
      {"b20  w40   d\"Hello World\"", "Hello World"},
      {"  dw30 h20  ", "w30 h20  "},
      {"d", ""},
      {"d\"", ""},
      {"d\"\"", ""},
      {"d\"open", "open"},
      {"d\"closed\" ", "closed\" "},
      {"dnot \"quoted\"", "not \"quoted\""},
      {"d\"a \"b\" c\"", "a \"b\" c"},
      {std::string("d1\0002", 4), std::string("1\0002", 3)},
      {"w40", ""},
      {"d" + std::string(1021, '3'), std::string(1021, '3')},
  };
  for (const auto& [text, data] : kRows) {
    SCOPED_TRACE(text);
    const Outcome outcome = Parse(text, "12");
    EXPECT_EQ(outcome.result, Diag::kSuccess);
    EXPECT_EQ(outcome.settings.data, "12" + data);
  }
  const Outcome outcome = Parse("d" + std::string(1022, '3'), "12");
  EXPECT_EQ(outcome.result, Diag::kInvalidArgument);
  EXPECT_NE(outcome.message.find("Error: Data string to long.\n"), std::string::npos);
  EXPECT_EQ(outcome.settings.data, "12");
}

TEST(Version1Text, IsSplitAtBlanksOnlyAndStopsAtTheFirstParameterThatFails) {
  using Tokens = std::vector<std::string_view>;
  EXPECT_EQ(Filter::SplitVersion1("  b20\tw40   h\n d  x "), (Tokens{"b20\tw40", "h\n", "d  x "}));
  const Outcome outcome = Parse("w40 t PCL h20 dData");
  EXPECT_EQ(outcome.result, Diag::kInvalidArgument);
  EXPECT_EQ(outcome.changes, Texts{"Width = 40"});
  EXPECT_NE(outcome.message.find("Invalid output type: \"t\"\n"), std::string::npos);
}

}  // namespace
