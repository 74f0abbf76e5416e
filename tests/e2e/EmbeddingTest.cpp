// Where a barcode lands in the job, and what becomes of the sequence and of everything around it.
// The recording library draws "DRAWING", so every output is known to the byte.
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

namespace {

using Support::Ascii85String;
using Support::Blanks;
using Support::Filter;
using Support::HexString;
using Support::kAbsolute;
using Support::kRelative;
using Support::kRelativeReset;
using Support::Lines;
using Support::Program;
using Support::Wrapped;

const std::string kDrawing = "DRAWING";
const std::string kBarcode = Wrapped(kDrawing, kRelative);
const std::string kSequence = "$_vxrs --data=1 $_vxre";
const std::string kBlanked = Blanks(kSequence.size());
// A sequence outside a PostScript string loses the byte behind its begin token.
const std::string kRawBlanked = Blanks(kSequence.size() - 1);
const std::string kReset =
    "\x1b"
    "E";
const std::string kExit = "\x1b%-12345X";

Program::Result RunFilter(const Lines& settings, std::string_view job) {
  Program program = Filter(settings);
  program.standIn = true;
  program.environment = {{"VX_STANDIN_OUTPUT", kDrawing}};
  return program.run(job);
}

struct Row {
  const char* name;
  Lines settings;
  std::string job;
  std::string output;
};

void CheckRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Program::Result result = RunFilter(row.settings, row.job);
    EXPECT_EQ(result.output, row.output);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
  }
}

// The data of every barcode of a run, as the library got it.
Lines DataOf(const Program::Result& result) {
  Lines data;
  for (const std::string& call : result.calls) {
    if (call.starts_with("BCSetTextA(")) data.push_back(call.substr(call.find('"')));
  }
  return data;
}

TEST(Embedding, PutsTheBarcodeOfAStringWhereInsertSays) {
  const std::string job =
      "%!PS\n(one) show\n10 20 moveto (two " + kSequence + ".) show % c\n(three) show\n";
  const std::string line1 = "%!PS\n(one) show\n", before = "10 20 moveto ";
  const std::string string = "(two " + kBlanked + ".)", after = " show % c\n";
  const std::string line3 = "(three) show\n";
  CheckRows({
      {"not given", {}, job, line1 + before + kBarcode + string + after + line3},
      {"before the string",
       {"insert=beforestring"},
       job,
       line1 + before + kBarcode + string + after + line3},
      {"after the string",
       {"insert=AFTERSTRING"},
       job,
       line1 + before + string + kBarcode + after + line3},
      {"before the line",
       {"insert=BeforeLine"},
       job,
       line1 + kBarcode + before + string + after + line3},
      {"after the line",
       {"insert=afterline"},
       job,
       line1 + before + string + after + kBarcode + line3},
  });
}

TEST(Embedding, PutsTheBarcodeOfARawSequenceWhereInsertSays) {
  const std::string job = kReset + "one\ntwo " + kSequence + " three\nfour\n";
  const std::string head = kReset + "one\n";
  const std::string line = "two " + kRawBlanked + " three\n";
  CheckRows({
      {"not given", {}, job, head + "two " + kDrawing + kRawBlanked + " three\nfour\n"},
      {"after the string",
       {"insert=afterstring"},
       job,
       head + "two " + kRawBlanked + kDrawing + " three\nfour\n"},
      {"before the line", {"insert=beforeline"}, job, head + kDrawing + line + "four\n"},
      {"after the line", {"insert=afterline"}, job, head + line + kDrawing + "four\n"},
  });
}

TEST(Embedding, WaitsForTheInsertPattern) {
  const std::string job = "%!PS\n(" + kSequence + ") show\nab HERE cd\nef\n(last) show\n";
  const std::string head = "%!PS\n(" + kBlanked + ") show\n";
  const std::string tail = "ef\n(last) show\n";
  CheckRows({
      {"before the pattern",
       {"insertpattern=HERE"},
       job,
       head + "ab " + kBarcode + "HERE cd\n" + tail},
      {"after the pattern",
       {"insertpattern=HERE", "insert=afterstring"},
       job,
       head + "ab HERE" + kBarcode + " cd\n" + tail},
      {"before its line",
       {"insertpattern=HERE", "insert=beforeline"},
       job,
       head + kBarcode + "ab HERE cd\n" + tail},
      {"after its line",
       {"insertpattern=HERE", "insert=afterline"},
       job,
       head + "ab HERE cd\n" + kBarcode + tail},
  });
}

TEST(Embedding, FindsSequencesInEveryFormOfString) {
  const std::string text = "a" + kSequence + "b", blanked = "a" + kBlanked + "b";
  CheckRows({
      {"hexadecimal",
       {},
       "%!PS\n" + HexString(text) + " show\n",
       "%!PS\n" + kBarcode + HexString(blanked) + " show\n"},
      {"ASCII85",
       {},
       "%!PS\n" + Ascii85String(text) + " show\n",
       "%!PS\n" + kBarcode + Ascii85String(blanked) + " show\n"},
      {"octal and other escapes",
       {},
       "%!PS\n(\\101\\(\\044_vx\\162s \\-\\-data=1 $_vx\\\nre\\r\\n\\t\\b\\f\\001\\377\\q) show\n",
       "%!PS\n" + kBarcode + "(A\\(" + kBlanked + "\\r\\n\\t\\b\\f\\001\\377q) show\n"},
      {"nested parentheses",
       {},
       "%!PS\n(((" + kSequence + ")x)) show\n",
       "%!PS\n" + kBarcode + "(\\(\\(" + kBlanked + "\\)x\\)) show\n"},
  });
}

TEST(Embedding, JoinsASequenceThatIsSplitOverStrings) {
  const std::string job =
      "%!PS\n(x$_vxrs --data=) show % (not this)\n10 0 rmoveto (123) show ( $_vxre y) show\n";
  const std::string first = "(x" + Blanks(14) + ")", last = "(" + Blanks(7) + " y)";
  const std::string middle = " show % (not this)\n10 0 rmoveto (" + Blanks(3) + ") show ";
  CheckRows({
      {"before", {}, job, "%!PS\n" + kBarcode + first + middle + last + " show\n"},
      {"after",
       {"insert=afterstring"},
       job,
       "%!PS\n" + first + middle + last + kBarcode + " show\n"},
  });
  // The parts are joined by a blank; --data takes the first word.
  EXPECT_EQ(DataOf(RunFilter({}, "%!PS\n($_vxrs --data=) show (123 $_vxre) show\n")),
            (Lines{"\"123\", 3)"}));
}

TEST(Embedding, FindsEverySequenceOfAString) {
  const std::string two = "$_vxrs --data=2 --height=5 $_vxre";
  CheckRows(
      {{"two in one string",
        {},
        "%!PS\n(a" + kSequence + "b" + two + "c) show\n",
        "%!PS\n" + kBarcode + kBarcode + "(a" + kBlanked + "b" + Blanks(two.size()) + "c) show\n"},
       {"two raw ones",
        {},
        kSequence + kSequence + "\n",
        kDrawing + kRawBlanked + kDrawing + kRawBlanked + "\n"}});
}

TEST(Embedding, RemovesTheSequenceWhenAsked) {
  CheckRows({
      {"in a string",
       {"remove"},
       "%!PS\n(one " + kSequence + ") show\n",
       "%!PS\n" + kBarcode + "(one ) show\n"},
      {"raw", {"remove"}, "a" + kSequence + "b", "a" + kDrawing + "b"},
      {"asked by the sequence itself, too late",
       {},
       "a$_vxrs --data=1 --remove $_vxreb",
       "a" + kDrawing + Blanks(30) + "b"},
  });
}

TEST(Embedding, KeepsTabsAndLineFeedsOfABlankedRawSequence) {
  CheckRows({{"raw",
              {},
              "a$_vxrs\t--data=1\n--width=5\t$_vxreb",
              "a" + kDrawing + Blanks(6) + Blanks(8) + "\n" + Blanks(9) + "\t" + Blanks(6) + "b"}});
}

TEST(Embedding, WrapsAsTheSequenceSays) {
  const auto job = [](const std::string& options) {
    return "%!PS\n($_vxrs --data=1 " + options + " $_vxre) show\n";
  };
  const auto output = [](const std::string& options, const std::string& barcode) {
    return "%!PS\n" + barcode + "(" + Blanks(23 + options.size()) + ") show\n";
  };
  const struct {
    const char* options;
    std::string barcode;
  } rows[] = {
      {"--pos=rel", Wrapped(kDrawing, kRelative)},
      {"--pos=abs", Wrapped(kDrawing, kAbsolute)},
      {"-x5 -y5", Wrapped(kDrawing, kAbsolute)},
      {"-x5", Wrapped(kDrawing, kRelative)},
      {"--initgraphics", Wrapped(kDrawing, kRelativeReset)},
      {"--initgraphics -x5 -y5", Wrapped(kDrawing, kAbsolute)},
      {"--embed=off", kDrawing},
      {"--nooverhead", kDrawing},
  };
  std::vector<Row> cases;
  for (const auto& row : rows) {
    cases.push_back({row.options, {}, job(row.options), output(row.options, row.barcode)});
  }
  CheckRows(cases);
}

TEST(Embedding, FramesTheJobWithResetsWhenAsked) {
  CheckRows({
      {"without a sequence", {"pclreset"}, "text\n", kExit + kReset + "text\n" + kReset + kExit},
      {"with one",
       {"pclreset"},
       "a" + kSequence + "b",
       kExit + kReset + "a" + kDrawing + kRawBlanked + "b" + kReset + kExit},
  });
}

TEST(Embedding, MovesThePclCursorOnlyWhenAsked) {
  CheckRows({{"moved",
              {"movecursor", "width=50", "height=30"},
              "a" + kSequence + "b",
              "a" + kDrawing + "\x1b&a+1417h+850V" + kRawBlanked + "b"}});
}

TEST(Embedding, TakesOtherTokens) {
  CheckRows({{"own tokens",
              {"escapebegin=<<<BC", "escapeend=BC>>>"},
              "a<<<BC --data=1 BC>>>b",
              "a" + kDrawing + Blanks(19) + "b"}});
}

TEST(Embedding, LeavesCommentsAndOtherLanguagesAlone) {
  const std::string comment = "%!PS\n% " + kSequence + "\n(x) show\n";
  CheckRows({
      {"comment", {}, comment, comment},
      {"header line", {}, "%!PS " + kSequence + "\n", "%!PS " + kSequence + "\n"},
      {"string in PCL", {}, "(" + kSequence + ")\n", "(" + kDrawing + kRawBlanked + ")\n"},
      {"switched to PCL",
       {},
       kExit + "@PJL ENTER LANGUAGE=PCL\n" + kReset + "(" + kSequence + ")\n",
       kExit + "@PJL ENTER LANGUAGE=PCL\n" + kReset + "(" + kDrawing + kRawBlanked + ")\n"},
      {"switched to PostScript",
       {},
       kExit + "@PJL EnTeR \t LANGUAGE = PostScript\n%!PS\n(" + kSequence + ") show\n",
       kExit + "@PJL EnTeR \t LANGUAGE = PostScript\n%!PS\n" + kBarcode + "(" + kBlanked +
           ") show\n"},
  });
}

TEST(Embedding, TellsPostScriptFromPclByTheFirstLine) {
  const std::string job = "(" + kSequence + ")\n";
  const std::string string = kBarcode + "(" + kBlanked + ")\n";  // in PostScript
  const std::string raw = "(" + kDrawing + kRawBlanked + ")\n";  // in PCL
  const std::string far = std::string(4095, ' ') + "%!PS\n",
                    near = std::string(4091, ' ') + "%!PS\n";
  const std::string pjl = kExit + "@PJL ENTER LANGUAGE=POSTSCRIPT\n%!PS\n" + kExit + "@PJL\n";
  CheckRows({
      {"header", {}, "%!PS-Adobe-3.0\n" + job, "%!PS-Adobe-3.0\n" + string},
      {"header within the line", {}, "\x04%!PS\n" + job, "\x04%!PS\n" + string},
      {"no whole header", {}, "%!P S\n" + job, "%!P S\n" + raw},
      {"header on the second line", {}, "\n%!PS\n" + job, "\n%!PS\n" + raw},
      {"header at the end of what decides", {}, near + job, near + string},
      {"header behind it", {}, far + job, far + raw},
      {"exit before the header", {}, kExit + "%!PS\n" + job, kExit + "%!PS\n" + raw},
      {"called PostScript", {"stream=ps"}, "x\n" + job, "x\n" + string},
      {"called PCL", {"stream=PCL"}, "%!PS\n" + job, "%!PS\n" + raw},
      {"back to a language whose name begins with PCL",
       {},
       pjl + "@PJL ENTER LANGUAGE = PCL3GUI\n" + job,
       pjl + "@PJL ENTER LANGUAGE = PCL3GUI\n" + raw},
      {"no other language is known",
       {},
       pjl + "@PJL ENTER LANGUAGE = HPGL2\n" + job,
       pjl + "@PJL ENTER LANGUAGE = HPGL2\n" + string},
      {"PJL is none in a job called PostScript",
       {"stream=ps"},
       "x\n@PJL ENTER LANGUAGE=PCL\n" + job,
       "x\n@PJL ENTER LANGUAGE=PCL\n" + string},
  });
}

TEST(Embedding, EndsStringsAtLineEndsWhenConfigured) {
  const std::string job = "%!PS\n(open\n(x" + kSequence + ") show\n";
  CheckRows({{"line by line",
              {"linebyline"},
              job,
              "%!PS\n(open\n" + kBarcode + "(x" + kBlanked + ") show\n"}});
}

TEST(Embedding, ReadsTheOptionsOfRawSequencesInPostScriptStrings) {
  const struct {
    const char* name;
    std::string job;
    std::string data;
  } rows[] = {
      {"literal", "%!PS\n$_vxrs --data=(12\\)3 \\101\") $_vxre\n", "\"12)3 A\\x22\", 7)"},
      {"hexadecimal", "%!PS\n$_vxrs --data=<4142> $_vxre\n", "\"AB\", 2)"},
      {"ASCII85", "%!PS\n$_vxrs --data=" + Ascii85String("ABC") + " $_vxre\n", "\"ABC\", 3)"},
      {"plain", "%!PS\n$_vxrs --data=AB $_vxre\n", "\"AB\", 2)"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(DataOf(RunFilter({}, row.job)), Lines{row.data});
  }
}

TEST(Embedding, ReadsTheOlderSyntaxWhenConfigured) {
  const Program::Result result =
      RunFilter({"v1format"}, "a$_vxrs b58 w20 h20 QRe3 dHello World$_vxreb");
  EXPECT_EQ(DataOf(result), (Lines{"\"Hello World\", 11)"}));
  EXPECT_NE(std::find(result.calls.begin(), result.calls.end(), "BCSetBCType(b1, 58)"),
            result.calls.end());
  EXPECT_NE(std::find(result.calls.begin(), result.calls.end(), "BCSet_QR_ECLevel(b1, 3)"),
            result.calls.end());
}

// Sequences that come to nothing

struct FailingRow {
  const char* name;
  std::string job;
  std::string output;
  std::string errors;
};

TEST(Embedding, ASequenceWithoutEndInsertsNothingAndIsAWarning) {
  const std::string warning =
      "WARNING: vextorin: Warning: Begin of barcode escape sequence without valid end found!\n";
  const FailingRow rows[] = {
      {"raw", "a $_vxrs --data=1 b\nc\n", "a $_vxrs --data=1 b\nc\n", warning},
      {"raw at the end", "a $_vxrs", "a $_vxrs", warning},
      {"in a string", "%!PS\n(a$_vxrs --data=1) show\n(b) show\n",
       "%!PS\n(a$_vxrs --data=1) show\n(b) show\n", warning},
      {"no complete begin", "a $_vxr $_vx $ b\n$_vxr", "a $_vxr $_vx $ b\n$_vxr", ""},
      {"an end alone", "a $_vxre b\n", "a $_vxre b\n", ""},
  };
  for (const FailingRow& row : rows) {
    SCOPED_TRACE(row.name);
    const Program::Result result = RunFilter({"trace=warning"}, row.job);
    EXPECT_EQ(result.output, row.output);
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.status, 0);
  }
}

TEST(Embedding, ASequenceThatDoesNotParseInsertsNothingAndTheRestGoesOn) {
  const FailingRow rows[] = {
      {"raw", "a$_vxrs --rot=45 $_vxreb" + kSequence + "c",
       "a" + Blanks(21) + "b" + kDrawing + kRawBlanked + "c",
       "ERROR: vextorin: Error: Rotation must be set to '0', '90', '180' or '270'.\n"
       "ERROR: vextorin: Error: Barcode Sequence: --rot=45 \n"},
      {"in a string", "%!PS\n($_vxrs --nonsense $_vxre) show (" + kSequence + ") show\n",
       "%!PS\n(" + Blanks(24) + ") show " + kBarcode + "(" + kBlanked + ") show\n",
       "ERROR: vextorin: Error: Unrecognized option nonsense\n"
       "ERROR: vextorin: Error: Barcode Sequence:  --nonsense \n"},
  };
  for (const FailingRow& row : rows) {
    SCOPED_TRACE(row.name);
    const Program::Result result = RunFilter({}, row.job);
    EXPECT_EQ(result.output, row.output);
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.status, 0);
  }
}

TEST(Embedding, AllSequencesOfALongJobAreFoundHoweverItArrives) {
  std::string job = "%!PS\n", output = job;
  for (int page = 0; page < 60; ++page) {
    const std::string text(static_cast<std::size_t>(page * 37 % 500), 'x');
    job += "(" + text + kSequence + ") show\n";
    output += kBarcode + "(" + text + kBlanked + ") show\n";
  }
  for (const std::size_t chunk : {0u, 1u, 2u, 3u, 7u, 64u}) {
    SCOPED_TRACE(chunk);
    Program program = Filter();
    program.standIn = true;
    program.environment = {{"VX_STANDIN_OUTPUT", kDrawing}};
    program.inputChunk = chunk;
    EXPECT_EQ(program.run(job).output, output);
  }
}

}  // namespace
