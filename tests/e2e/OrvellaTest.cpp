// Orvella control sequences in a job: what stands in their place afterwards, and the barcode that
// the parameters and the data ask of the library.
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace {

using Support::Blanks;
using Support::Filter;
using Support::Join;
using Support::Lines;
using Support::Program;

const std::string kBarcode = "STAND-IN\n";  // what the recording library draws
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

Program Orvella(const Lines& settings = {}) {
  Program program = Filter(Join({"orvella=on"}, settings));
  program.standIn = true;
  return program;
}

void ExpectUnchanged(const std::string& job, const Program& program = Orvella()) {
  EXPECT_EQ(program.run(job).output, job);
}

TEST(OrvellaSequences, AreOrdinaryBytesWhileSwitchedOff) {
  const std::string job = Job(kHeader + "text" + Body("123"));
  for (const Lines& settings : {Lines{}, Lines{"orvella=off"}}) {
    Program program = Filter(settings);
    program.standIn = true;
    ExpectUnchanged(job, program);
  }
}

TEST(OrvellaSequences, NeedALetterBehindTheControlByte) {
  for (const std::string text : {"x", "A", "B", "\x1c", ""}) ExpectUnchanged(kControl + text);
  ExpectUnchanged("%!PS\n" + kControl + "x" + kControl + kControl + "c(text) show\n");
  EXPECT_EQ(Orvella({"remove"}).run(kControl + kHeader + "end").output, kControl + "end");
}

TEST(OrvellaSequences, AreBlankedInPlaceWithTheBarcodeBehind) {
  const std::string header = Header("12,\t100,\n150");
  const std::string body = Body("1\t2\n3");
  const std::string job = Job(header + "between" + body);
  const std::string blankHeader = Blanks(5) + "\t" + Blanks(4) + "\n" + Blanks(4);
  const std::string blankBody = Blanks(5) + "\t" + Blanks(1) + "\n" + Blanks(3);
  for (const std::size_t chunk : {0, 1, 7}) {
    SCOPED_TRACE(chunk);
    Program program = Orvella();
    program.inputChunk = chunk;
    EXPECT_EQ(program.run(job).output, Job(blankHeader + "between" + blankBody + kBarcode));
  }
}

TEST(OrvellaSequences, LeaveNoTraceInRemoveMode) {
  const Program program = Orvella({"remove"});
  EXPECT_EQ(program.run(Job(kHeader + "between" + Body("123"))).output, Job("between" + kBarcode));
}

TEST(OrvellaSequences, StandInPostScriptToo) {
  EXPECT_EQ(Orvella({"remove"}).run("%!PS\n" + kHeader + Body("1") + "(text) show\n").output,
            "%!PS\n" + kBarcode + "(text) show\n");
}

TEST(OrvellaSequences, AZeroByteOfABodyIsBlankedAsFourBytes) {
  const std::string zero(1, '\0');
  EXPECT_EQ(Orvella().run(Job(Header("12" + zero) + kMarker + zero + "!1" + zero + kMarker)).output,
            Job(Blanks(6) + Blanks(2 + 4 + 1 + 1 + 4 + 2) + kBarcode));
}

TEST(OrvellaSequences, TheBodyEndsWithTheNextMarkerBehindTheTwoBytes) {
  const Program program = Orvella({"remove"});
  const auto data = [&](const std::string& job, const std::string& output) {
    const Program::Result result = program.run(job);
    EXPECT_EQ(result.output, output);
    const auto call = std::find_if(result.calls.begin(), result.calls.end(), [](const auto& line) {
      return line.starts_with("BCSetTextA(");
    });
    return call == result.calls.end() ? "" : *call;
  };
  EXPECT_EQ(data(kHeader + Body("123"), kBarcode), "BCSetTextA(b1, \"123\", 3)");
  EXPECT_EQ(data(kHeader + kMarker + kMarker + "12" + kMarker + "rest", kBarcode + "rest"),
            "BCSetTextA(b1, \"12\", 2)");
  EXPECT_EQ(data(kHeader + kMarker + "#\x1c" + "b12" + kMarker + "b", kBarcode + "b"),
            "BCSetTextA(b1, \"b12\", 3)");
  EXPECT_EQ(data(kHeader + kMarker + "#!1" + kControl + kMarker + "x", kBarcode + "x"),
            "BCSetTextA(b1, \"1\\x1c\", 2)");
}

TEST(OrvellaSequences, WithoutAnEndTheJobStaysAsItIs) {
  const std::string zero(1, '\0');
  const struct {
    std::string sequence;
    std::string name;
  } kRows[] = {
      {kControl + "a", "header"},
      {kControl + "a12,100" + zero + "\t", "header"},
      {kMarker, "body"},
      {kMarker + "#", "body"},
      {kMarker + zero + "!1" + zero + "\n", "body"},
      {kMarker + kMarker, "body"},
      {kMarker + "#!123" + kControl, "body"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name + " " + row.sequence);
    const std::string job = "\033E" + row.sequence;
    const Program::Result result = Orvella({"trace=warning"}).run(job);
    EXPECT_EQ(result.output, job);
    EXPECT_NE(result.errors.find("Begin of Orvella control sequence (" + row.name +
                                 ") without valid end found!"),
              std::string::npos)
        << result.errors;
  }
}

TEST(OrvellaSequences, LongerThanAnyRealOneAreUnclosed) {
  const std::string raster = kMarker + std::string(1024 * 1024 + 10, '\0') + Body("1");
  const Program::Result result = Orvella({"remove"}).run(kHeader + raster);
  // The first marker behind the limit begins a sequence of its own.
  EXPECT_EQ(result.output, raster.substr(0, raster.size() - Body("1").size()) + kBarcode);
  const std::string open = kControl + "a" + std::string(3 * 1024 * 1024, 'x');
  ExpectUnchanged(open);
}

TEST(OrvellaSequences, AFailureLeavesTheBarcodeOutAndTheJobGoesOn) {
  const std::string wrong = Header("8,100");
  const std::string job = wrong + Body("1") + "|" + kHeader + Body("2") + "|" + Body("3");
  EXPECT_EQ(Orvella({"remove", "nostderr"}).run(job).output, "|" + kBarcode + "|" + kBarcode);
  EXPECT_EQ(Orvella({"nostderr"}).run(wrong + Body("1")).output,
            Blanks(wrong.size() + Body("1").size()));

  Program failing = Orvella({"remove", "nostderr"});
  failing.environment = {{"VX_STANDIN_FAIL", "BCCreate#1=8007000d"}};
  EXPECT_EQ(failing.run(kHeader + Body("1") + "|" + Body("2")).output, "|" + kBarcode);
}

TEST(OrvellaSequences, TakeNoPartInInsertModesAndPatterns) {
  for (const std::string mode : {"beforeline", "afterline", "beforestring", "afterstring"}) {
    SCOPED_TRACE(mode);
    const Program program = Orvella({"remove", "insert=" + mode, "insertpattern=X"});
    EXPECT_EQ(program.run("\033E\none " + kHeader + Body("1") + " two X\n").output,
              "\033E\none " + kBarcode + " two X\n");
  }
}

TEST(OrvellaSequences, NeverResetThePrinterUnlessAskedTo) {
  const std::string job = kHeader + Body("1");
  EXPECT_EQ(Orvella({"remove"}).run(job).output, kBarcode);
  EXPECT_EQ(Orvella({"remove", "embed=on"}).run(job).output, kBarcode);
  EXPECT_EQ(Orvella({"remove", "embed=off"}).run(job).output,
            "\033%-12345X\033E" + kBarcode + "\033E\033%-12345X");
}

// The library calls of a barcode, in the middle of which the parameters show.
Lines CallsOf(const std::string& header, const std::string& body, const Lines& settings = {}) {
  return Orvella(Join({"remove", "nostderr"}, settings)).run(header + body).calls;
}

void ExpectCalls(const Lines& calls, const Lines& present, const Lines& absent = {}) {
  const auto begins = [&](const std::string& start) {
    return std::any_of(calls.begin(), calls.end(),
                       [&](const std::string& call) { return call.starts_with(start); });
  };
  for (const std::string& call : present)
    EXPECT_TRUE(begins(call)) << call << '\n' << testing::PrintToString(calls);
  for (const std::string& call : absent)
    EXPECT_FALSE(begins(call)) << call << '\n' << testing::PrintToString(calls);
}

TEST(OrvellaParameters, ChooseTypeAndCheckDigits) {
  const int kTypes[26] = {8,  7,  3,  18, 10, 13, 5, 0, 1,  0, 34, 20, 25,
                          11, 12, 37, 47, 9,  4,  6, 1, 47, 0, 0,  55, 56};
  const auto method = [](int p1) {
    switch (p1) {
      case 9:
        return 7;
      case 17:
        return 10;
      case 21:
        return 8;
      case 22:
        return 11;
      default:
        return 1;
    }
  };
  for (int p1 = 1; p1 <= 26; ++p1) {
    SCOPED_TRACE(p1);
    const Lines calls = CallsOf(Header(std::to_string(p1)), Body("1"));
    const int type = kTypes[p1 - 1];
    if (type == 0) {
      ExpectCalls(calls, {}, {"BCAlloc"});
      continue;
    }
    ExpectCalls(calls, {"BCSetBCType(b1, " + std::to_string(type) + ")",
                        "BCSetCDMethod(b1, " + std::to_string(method(p1)) + ")"});
  }
}

TEST(OrvellaParameters, RefuseANumberThatIsNoType) {
  for (const std::string number : {"0", "8", "24", "27", "2147483647", ""}) {
    SCOPED_TRACE(number);
    const Program::Result result = Orvella({"remove"}).run(Header(number + ",100") + Body("1"));
    const std::string shown = number.empty() ? "0" : number;
    EXPECT_NE(result.errors.find("Error: Invalid barcode type: " + shown + "\n"), std::string::npos)
        << result.errors;
    EXPECT_EQ(result.output, "");
  }
}

TEST(OrvellaParameters, ReachTheLibrary) {
  const std::string font10 = "BCSetFontHeight(b1, 10)", hidden = "BCSetPrintText(b1, 0, 0)";
  const struct {
    const char* header;
    Lines present;
    Lines absent;
  } kRows[] = {
      {"12", {font10, hidden, "BCPCLToMemoryExt("}, {"BCSetModWidthA", "BCSetRatioA"}},
      {"12,49", {font10}, {"BCSetModWidthA"}},
      {"12,50", {"BCSetModWidthA(b1, \"4233", "BCSetFontHeight(b1, 2)"}, {}},
      {"12,125", {"BCSetModWidthA(b1, \"10583", "BCSetFontHeight(b1, 6)"}, {}},
      {"12,999", {"BCSetModWidthA(b1, \"84582", "BCSetFontHeight(b1, 47)"}, {}},
      {"12,1000", {font10}, {"BCSetModWidthA"}},
      {"12,0,300", {"BCGetBarcodeSize(b1, [0 0 50000 25400]"}, {}},
      {"12,0,0", {"BCGetBarcodeSize(b1, [0 0 50000 30000]"}, {}},
      {"12,100,0,250,1", {}, {"BCSetRatioA"}},
      {"1,0,0,0,1", {"BCSetRatioA(b1, \"1.00:2.00:1.00:2.00\")"}, {}},
      {"3,0,0,0,2", {"BCSetRatioA(b1, \"1.00:2.50:1.00:2.50\")"}, {}},
      {"4,0,0,0,3", {"BCSetRatioA(b1, \"1.00:3.00:1.00:3.00\")"}, {}},
      {"9,0,0,0,4", {"BCSetRatioA(b1, \"1.00:3.50:1.00:3.50\")"}, {}},
      {"17,0,0,0,4", {"BCSetRatioA(b1, \"1.00:3.50:1.00:3.50\")"}, {}},
      {"18,0,0,0,1", {"BCSetRatioA(b1, \"1.00:2.00:1.00:2.00\")"}, {}},
      {"2,0,0,0,2", {"BCSetRatioA(b1, \"1.00:2.50:1.00\")"}, {}},
      {"19,0,0,0,3", {"BCSetRatioA(b1, \"1.00:3.00:1.00\")"}, {}},
      {"1,0,0,0,5", {}, {"BCSetRatioA"}},
      {"1,0,0,0,0", {}, {"BCSetRatioA"}},
      {"1,100,0,225,1", {"BCSetRatioA(b1, \"1.00:2.25:1.00:2.25\")"}, {}},
      {"1,0,0,225,1", {"BCSetRatioA(b1, \"1.00:2.00:1.00:2.00\")"}, {}},
      {"12,0,0,0,0,0", {hidden, "BCSetRotation(b1, 0)"}, {"BCSetOptResolution"}},
      {"12,0,0,0,0,1", {"BCSetPrintText(b1, 1, 0)", "BCSetRotation(b1, 0)"}, {}},
      {"12,0,0,0,0,2", {"BCSetPrintText(b1, 1, 1)", "BCSetRotation(b1, 0)"}, {}},
      {"12,0,0,0,0,3", {hidden, "BCSetRotation(b1, 1)"}, {}},
      {"12,0,0,0,0,4", {"BCSetPrintText(b1, 1, 0)", "BCSetRotation(b1, 1)"}, {}},
      {"12,0,0,0,0,5", {"BCSetPrintText(b1, 1, 1)", "BCSetRotation(b1, 1)"}, {}},
      {"12,0,0,0,0,6", {"BCSetPrintText(b1, 1, 0)", "BCSetOptResolution(b1, 1)"}, {}},
      {"12,0,0,0,0,7", {hidden, "BCSetRotation(b1, 0)"}, {"BCSetOptResolution"}},
      {"25,0,0,0,0,0,ECL=5", {"BCSet_PDF417_ECLevel(b1, 5)"}, {}},
      {"25,0,0,0,0,0", {}, {"BCSet_PDF417_ECLevel"}},
      {"25 0/0x0-0+0 ECL=0", {"BCSet_PDF417_ECLevel(b1, 0)"}, {}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.header);
    ExpectCalls(CallsOf(Header(row.header), Body("99")), row.present, row.absent);
  }
}

TEST(OrvellaParameters, OverrideTheSettingsThatTheyName) {
  const Lines settings = {"format=PDF", "text=above", "fontsize=20",
                          "barcode=71", "data=old",   "width=30"};
  ExpectCalls(
      CallsOf(Header("12"), Body("new"), settings),
      {"BCPCLToMemoryExt(b1, 65536, ", "BCSetPrintText(b1, 0, 0)", "BCSetFontHeight(b1, 10)",
       "BCSetBCType(b1, 20)", "BCSetTextA(b1, \"new\", 3)", "BCGetBarcodeSize(b1, [0 0 30000 "});
}

TEST(OrvellaParameters, ComeFromTheLatestHeaderElseFromTheBody) {
  const Lines calls = CallsOf(Header("12") + Body("1") + Header("13"), Body("2") + Body("3"));
  ExpectCalls(calls, {"BCSetBCType(b1, 20)", "BCSetBCType(b2, 25)", "BCSetBCType(b3, 25)"});
  ExpectCalls(CallsOf("", kMarker + "13,data" + kMarker),
              {"BCSetBCType(b1, 25)", "BCSetTextA(b1, \",data\", 5)"});
}

TEST(OrvellaParameters, AreLoggedAtTheVerboseLevel) {
  const std::string errors =
      Orvella({"trace=verbose"}).run(Header("25,100,0,0,1,6,ECL=4") + Body("\\f1a")).errors;
  std::size_t at = 0;
  for (const std::string line :
       {"Orvella Header Sequence found.", "Orvella Body Sequence found.",
        "Orvella Parameters:", "p1 = 25", "p2 = 100", "p3 = 0", "p4 = 0", "p5 = 1", "p6 = 6",
        "PDF417 Error Correction Level = 4", "Data String: \\210a"}) {
    at = errors.find(line + '\n', at);
    ASSERT_NE(at, std::string::npos) << line << '\n' << errors;
  }
}

TEST(OrvellaData, HasItsControlsInTheFormOfTheLibrary) {
  const struct {
    std::string data;
    std::string shown;  // as the recording library writes it: a backslash is \x5c
  } kRows[] = {
      {"plain", "plain"},
      {"\\f1A\\F2B\\f3\\f4", "\\x5c210A\\x5c211B\\x5c212\\x5c213"},
      {"\\ca12\\sb\\SH3\\Sc45\\cB\\CC\\sa", "12345"},
      {"\\f5\\sx\\n", "\\x5cf5\\x5csx\\x5cn"},
      {"\\\\sa\\\\\\sa", "\\x5c\\x5csa\\x5c\\x5c"},
      {"end\\", "end\\x5c"},
      {"end\\s", "end\\x5cs"},
      {std::string("1\0002", 3), "1\\x5cx002"},
      {"\xe4;,", "\\xe4;,"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.shown);
    ExpectCalls(CallsOf(kHeader, Body(row.data)), {"BCSetTextA(b1, \"" + row.shown + "\", "});
  }
}

TEST(OrvellaData, ChoosesTheCodeSetsOfCode128) {
  const struct {
    std::string data;
    std::string format;
  } kRows[] = {
      {"\\ca12\\sb\\SH3x\\Sc45", "A##BA#B#C##"},
      {"1\\sa\\sh23", "#AB#A#"},
      {"\\f1\\sc\\x4112", "#C###"},
      {"\\sb\\n\\q\\101\\777", "B########"},
      {std::string("\\sc1\0002", 6), "C###"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.format);
    ExpectCalls(CallsOf(kHeader, Body(row.data)), {"BCSetFormatA(b1, \"" + row.format + "\")"});
    for (const std::string& call : CallsOf(Header("1,0,0,0,0,1"), Body(row.data))) {
      EXPECT_EQ(call.find("BCSetFormatA"), std::string::npos) << call;
    }
  }
}

}  // namespace
