// Orvella control sequences in a job: what stands in their place afterwards, and the barcode that
// the parameters and the data ask of the library.
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Support;

const std::string kControl = "\x1c";
const std::string kMarker = kControl + "b";

std::string Header(const std::string& parameters) {
  return kControl + "a" + parameters + ";";
}

std::string Body(const std::string& data) {
  return kMarker + "#!" + data + kMarker;
}

// A PCL job with a printer setting in front and behind.
std::string Job(const std::string& content) {
  return "\033&l0O" + content + "\033&l1H";
}

const std::string kHeader = Header("12,100,150,0,0,1");
const std::string kZero(1, '\0');

Program Orvella(const std::string& settings = {}) {
  return Recorded(Filter("orvella=on " + settings));
}

TEST(OrvellaSequences, AreOrdinaryBytesWhenSwitchedOffOrIncomplete) {
  const std::string job = Job(kHeader + "text" + Body("123"));
  EXPECT_EQ(Recorded(Filter()).run(job).output, job);
  EXPECT_EQ(Recorded(Filter("orvella=off")).run(job).output, job);
  for (const std::string text : {"x", "A", "B", "\x1c", "", "x\x1c\x1c\143 text"}) {
    EXPECT_EQ(Orvella().run(kControl + text).output, kControl + text);
  }
}

TEST(OrvellaSequences, AreBlankedInPlaceWithTheBarcodeBehind) {
  const std::string header = Header("12,\t100,\n150"), body = Body("1\t2\n3");
  const std::string output = Job(Blanks(5) + "\t" + Blanks(4) + "\n" + Blanks(4) + "between" +
                                 Blanks(5) + "\t \n" + Blanks(3) + kDrawing);
  for (const std::size_t chunk : {0, 1, 7}) {
    SCOPED_TRACE(chunk);
    Program program = Orvella();
    program.inputChunk = chunk;
    EXPECT_EQ(program.run(Job(header + "between" + body)).output, output);
  }
  // A zero byte of a body becomes four blanks.
  EXPECT_EQ(
      Orvella().run(Job(Header("12" + kZero) + kMarker + kZero + "!1" + kZero + kMarker)).output,
      Job(Blanks(6) + Blanks(2 + 4 + 1 + 1 + 4 + 2) + kDrawing));
}

TEST(OrvellaSequences, LeaveNoTraceInRemoveMode) {
  const std::string raster = kMarker + std::string(1024 * 1024 + 10, '\0');
  const std::string open = kControl + "a" + std::string(3 * 1024 * 1024, 'x');
  const std::string frame = "\033%-12345X\033E" + kDrawing + "\033E\033%-12345X";
  const struct {
    const char* name;
    std::string job, output;
    const char* settings{};
  } rows[] = {
      {"in PCL", Job(kHeader + "between" + Body("123")), Job("between" + kDrawing)},
      {"in PostScript", "%!PS\n" + kHeader + Body("1") + "(text)", "%!PS\n" + kDrawing + "(text)"},
      {"behind a control byte", kControl + kHeader + "end", kControl + "end"},
      // The first marker behind the limit begins a sequence of its own.
      {"longer than any real one", kHeader + raster + Body("1"), raster + kDrawing},
      {"longer still", open, open},
      {"wrong type", Header("8,100") + Body("1") + "|" + kHeader + Body("2") + "|" + Body("3"),
       "|" + kDrawing + "|" + kDrawing},
      {"embedded", kHeader + Body("1"), kDrawing, "embed=on"},
      {"framed", kHeader + Body("1"), frame, "embed=off"},
      {"mode", "one " + kHeader + Body("1") + " two X\n", "one " + kDrawing + " two X\n",
       "insert=afterline insertpattern=X"},
      {"mode", "one\ntwo " + kHeader + Body("1") + " X\n", "one\ntwo " + kDrawing + " X\n",
       "insert=beforeline"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string settings =
        std::string("remove nostderr ") + (row.settings ? row.settings : "");
    EXPECT_TRUE(Orvella(settings).run(row.job).output == row.output);
  }
  Program failing = Orvella("remove nostderr");
  failing.environment = {{"VX_STANDIN_FAIL", "BCCreate#1=8007000d"}};
  EXPECT_EQ(failing.run(kHeader + Body("1") + "|" + Body("2")).output, "|" + kDrawing);
}

TEST(OrvellaSequences, EndWithTheNextMarkerBehindTheTwoBytes) {
  const struct {
    std::string body, output, call;
  } rows[] = {
      {Body("123"), "", "BCSetTextA(b1, \"123\", 3)"},
      {kMarker + kMarker + "12" + kMarker + "rest", "rest", "BCSetTextA(b1, \"12\", 2)"},
      {kMarker + "#" + kMarker + "12" + kMarker + "b", "b", "BCSetTextA(b1, \"b12\", 3)"},
      {kMarker + "#!1" + kControl + kMarker + "x", "x", "BCSetTextA(b1, \"1\\x1c\", 2)"},
  };
  for (const auto& row : rows) {
    const Program::Result result = Orvella("remove").run(kHeader + row.body);
    EXPECT_EQ(result.output, kDrawing + row.output);
    EXPECT_EQ(FirstWith(result.calls, "BCSetTextA("), row.call);
  }
}

TEST(OrvellaSequences, WithoutAnEndTheJobStaysAsItIs) {
  const std::string sequences[] = {kControl + "a",
                                   kControl + "a12,100" + kZero + "\t",
                                   kMarker,
                                   kMarker + "#",
                                   kMarker + kZero + "!1" + kZero + "\n",
                                   kMarker + kMarker,
                                   kMarker + "#!123" + kControl};
  for (const std::string& sequence : sequences) {
    SCOPED_TRACE(sequence);
    const std::string name = sequence[1] == 'a' ? "header" : "body";
    const Program::Result result = Orvella("trace=warning").run("\033E" + sequence);
    EXPECT_EQ(result.output, "\033E" + sequence);
    EXPECT_NE(result.errors.find("Begin of Orvella control sequence (" + name +
                                 ") without valid end found!"),
              std::string::npos)
        << result.errors;
  }
}

// The calls of these beginnings, of each the first, as the sequence makes them.
void ExpectCalls(const std::string& sequence, const std::string& present,
                 const std::string& absent = {}, const std::string& settings = {}) {
  const Lines calls = Orvella("remove nostderr " + settings).run(sequence).calls;
  for (const std::string& call : Split(present, "; "))
    EXPECT_NE(FirstWith(calls, call), "") << call << '\n' << testing::PrintToString(calls);
  if (!absent.empty()) {
    EXPECT_EQ(FirstWith(calls, absent), "");
  }
}

TEST(OrvellaParameters, ChooseTypeAndCheckDigits) {
  const std::pair<int, int> kTypes[] = {
      {8, 1}, {7, 1},  {3, 1},  {18, 1},  {10, 1}, {13, 1}, {5, 1},  {0, 0},   {1, 7},
      {0, 0}, {34, 1}, {20, 1}, {25, 1},  {11, 1}, {12, 1}, {37, 1}, {47, 10}, {9, 1},
      {4, 1}, {6, 1},  {1, 8},  {47, 11}, {0, 0},  {0, 0},  {55, 1}, {56, 1},  {0, 0}};
  int p1 = 0;
  for (const auto& [type, method] : kTypes) {
    const std::string number = std::to_string(++p1);
    SCOPED_TRACE(number);
    const std::string job = Header(number) + Body("1");
    ExpectCalls(job,
                type == 0 ? ""
                          : "BCSetBCType(b1, " + std::to_string(type) + "); BCSetCDMethod(b1, " +
                                std::to_string(method) + ")",
                type == 0 ? "BCAlloc" : "");
  }
}

TEST(OrvellaParameters, RefuseANumberThatIsNoType) {
  for (const std::string number : {"0", "8", "27", "2147483647"}) {
    const Program::Result result = Orvella("remove").run(Header(number + ",100") + Body("1"));
    EXPECT_NE(result.errors.find("Error: Invalid barcode type: " + number + "\n"),
              std::string::npos)
        << result.errors;
    EXPECT_EQ(result.output, "");
  }
}

TEST(OrvellaParameters, ReachTheLibrary) {
  const std::string font10 = "BCSetFontHeight(b1, 10)", hidden = "BCSetPrintText(b1, 0, 0)";
  const std::string below = "BCSetPrintText(b1, 1, 0)", above = "BCSetPrintText(b1, 1, 1)";
  const std::string upright = "; BCSetRotation(b1, 0)", turned = "; BCSetRotation(b1, 1)";
  const struct {
    const char* header;
    std::string present;
    const char* absent{};
  } kRows[] = {
      {"12", font10 + "; " + hidden + "; BCPCLToMemoryExt(", "BCSetModWidthA"},
      {"12,49", font10, "BCSetModWidthA"},
      {"12,50", "BCSetModWidthA(b1, \"4233; BCSetFontHeight(b1, 2)"},
      {"12,999", "BCSetModWidthA(b1, \"84582; BCSetFontHeight(b1, 47)"},
      {"12,1000", font10, "BCSetModWidthA"},
      {"12,0,300", "BCGetBarcodeSize(b1, [0 0 50000 25400]"},
      {"12,0,0", "BCGetBarcodeSize(b1, [0 0 50000 30000]", "BCSetRatioA"},
      {"12,100,0,250,1", "", "BCSetRatioA"},
      {"1,0,0,0,1", "BCSetRatioA(b1, \"1.00:2.00:1.00:2.00\")"},
      {"3,0,0,0,2", "BCSetRatioA(b1, \"1.00:2.50:1.00:2.50\")"},
      {"4,0,0,0,3", "BCSetRatioA(b1, \"1.00:3.00:1.00:3.00\")"},
      {"9,0,0,0,4", "BCSetRatioA(b1, \"1.00:3.50:1.00:3.50\")"},
      {"17,0,0,0,4", "BCSetRatioA(b1, \"1.00:3.50:1.00:3.50\")"},
      {"18,0,0,0,1", "BCSetRatioA(b1, \"1.00:2.00:1.00:2.00\")"},
      {"2,0,0,0,2", "BCSetRatioA(b1, \"1.00:2.50:1.00\")"},
      {"19,0,0,0,3", "BCSetRatioA(b1, \"1.00:3.00:1.00\")"},
      {"1,0,0,0,5", "", "BCSetRatioA"},
      {"1,0,0,0,0", "", "BCSetRatioA"},
      {"1,100,0,225,1", "BCSetRatioA(b1, \"1.00:2.25:1.00:2.25\")"},
      {"1,0,0,225,1", "BCSetRatioA(b1, \"1.00:2.00:1.00:2.00\")"},
      {"12,0,0,0,0,0", hidden + upright, "BCSetOptResolution"},
      {"12,0,0,0,0,1", below + upright},
      {"12,0,0,0,0,2", above + upright},
      {"12,0,0,0,0,3", hidden + turned},
      {"12,0,0,0,0,4", below + turned},
      {"12,0,0,0,0,5", above + turned},
      {"12,0,0,0,0,6", below + "; BCSetOptResolution(b1, 1)"},
      {"12,0,0,0,0,7", hidden + upright, "BCSetOptResolution"},
      {"25,0,0,0,0,0,ECL=5", "BCSet_PDF417_ECLevel(b1, 5)"},
      {"25,0,0,0,0,0", "", "BCSet_PDF417_ECLevel"},
      {"25 0/0x0-0+0 ECL=0", "BCSet_PDF417_ECLevel(b1, 0)"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.header);
    ExpectCalls(Header(row.header) + Body("99"), row.present, row.absent ? row.absent : "");
  }
}

TEST(OrvellaParameters, OverrideSettingsAndComeFromTheLatestHeaderElseFromTheBody) {
  ExpectCalls(Header("12") + Body("new"),
              "BCPCLToMemoryExt(b1, 65536, ; BCSetPrintText(b1, 0, 0); BCSetFontHeight(b1, 10); "
              "BCSetBCType(b1, 20); BCSetTextA(b1, \"new\", 3); BCGetBarcodeSize(b1, [0 0 30000 ",
              "", "format=PDF text=above fontsize=20 barcode=71 data=old width=30");
  ExpectCalls(Header("12") + Body("1") + Header("13") + Body("2") + Body("3"),
              "BCSetBCType(b1, 20); BCSetBCType(b2, 25); BCSetBCType(b3, 25)");
  ExpectCalls(kMarker + "13,data" + kMarker, "BCSetBCType(b1, 25); BCSetTextA(b1, \",data\", 5)");
}

TEST(OrvellaParameters, AreLoggedAtTheVerboseLevel) {
  const std::string errors =
      Orvella("trace=verbose").run(Header("25,100,0,0,1,6,ECL=4") + Body("\\f1a")).errors;
  std::size_t at = 0;
  for (const std::string& line :
       Split("Orvella Header Sequence found.; Orvella Body Sequence found.; Orvella Parameters:; "
             "p1 = 25; p2 = 100; p3 = 0; p4 = 0; p5 = 1; p6 = 6; "
             "PDF417 Error Correction Level = 4; Data String: \\210a",
             "; ")) {
    at = errors.find(line + '\n', at);
    ASSERT_NE(at, std::string::npos) << line << '\n' << errors;
  }
}

TEST(OrvellaData, HasItsControlsInTheFormOfTheLibrary) {
  const struct {
    std::string data;
    std::string shown;  // as the recording library writes it: a backslash is \x5c
    std::string codeSets{};
  } kRows[] = {
      {"plain", "plain"},
      {"\\f1A\\F2B\\f3\\f4", "\\x5c210A\\x5c211B\\x5c212\\x5c213"},
      {"\\ca12\\sb\\SH3\\Sc45\\cB\\CC\\sa", "12345"},
      {"\\f5\\sx\\n", "\\x5cf5\\x5csx\\x5cn"},
      {"\\\\sa\\\\\\sa", "\\x5c\\x5csa\\x5c\\x5c"},
      {"end\\", "end\\x5c"},
      {"end\\s", "end\\x5cs"},
      {"1" + kZero + "2", "1\\x5cx002"},
      {"\xe4;,", "\\xe4;,"},
      {"\\ca12\\sb\\SH3x\\Sc45", "123x45", "A##BA#B#C##"},
      {"1\\sa\\sh23", "123", "#AB#A#"},
      {"\\f1\\sc\\x4112", "\\x5c210\\x5cx4112", "#C###"},
      {"\\sb\\n\\q\\101\\777", "\\x5cn\\x5cq\\x5c101\\x5c777", "B########"},
      {"\\sc1" + kZero + "2", "1\\x5cx002", "C###"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.shown);
    ExpectCalls(kHeader + Body(row.data), "BCSetTextA(b1, \"" + row.shown + "\", ");
    if (row.codeSets.empty()) continue;
    ExpectCalls(kHeader + Body(row.data), "BCSetFormatA(b1, \"" + row.codeSets + "\")");
    // Other types know no code sets.
    ExpectCalls(Header("1,0,0,0,0,1") + Body(row.data), "", "BCSetFormatA");
  }
}

}  // namespace
