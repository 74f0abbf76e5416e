// Where a barcode lands in the job, and what becomes of the sequence and of everything around it:
// every output is known to the byte.
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

namespace {

using namespace Support;

const std::string kBarcode = Wrapped(kDrawing, kRelative);
const std::string kSequence = "$_vxrs --data=1 $_vxre";
const std::string kBlanked = Blanks(kSequence.size());
// A sequence outside a PostScript string loses the byte behind its begin token.
const std::string kRawBlanked = Blanks(kSequence.size() - 1);
const std::string kRaw = kDrawing + kRawBlanked;
const std::string kLongLine(8190, 'x');
const std::string kOpenData = "RD \x01((<\xff(\\\x80<~(( ND\n";
const std::string kReset = "\033E";
const std::string kExit = "\033%-12345X";

struct Row {
  const char* name;
  const char* settings;
  std::string job;
  std::string output;
  std::string errors{};
};

void CheckRows(const std::vector<Row>& rows, const std::string& head = {}) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Program::Result result = Recorded(Filter(row.settings)).run(head + row.job);
    EXPECT_EQ(result.output, head + row.output);
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.status, 0);
  }
}

// The data of the only barcode of a run, as the library got it.
std::string DataOf(const std::string& job) {
  return FirstWith(Recorded(Filter()).run(job).calls, "BCSetTextA(");
}

TEST(Embedding, PutsTheBarcodeWhereInsertSays) {
  const std::string job = "one\n10 20 moveto (two " + kSequence + ".) show % c\nthree\n";
  const std::string front = "10 20 moveto ", back = " show % c\n";
  const std::string string = "(two " + kBlanked + ".)", line = front + string + back;
  CheckRows({{"not given", "", job, "one\n" + front + kBarcode + string + back + "three\n"},
             {"before the string", "insert=beforestring", job,
              "one\n" + front + kBarcode + string + back + "three\n"},
             {"after the string", "insert=AFTERSTRING", job,
              "one\n" + front + string + kBarcode + back + "three\n"},
             {"before the line", "insert=BeforeLine", job, "one\n" + kBarcode + line + "three\n"},
             {"after the line", "insert=afterline", job, "one\n" + line + kBarcode + "three\n"}},
            "%!PS\n");
  const std::string raw = "one\ntwo " + kSequence + " three\nfour\n";
  const std::string blanked = "two " + kRawBlanked + " three\n";
  CheckRows({{"raw", "", raw, "one\ntwo " + kRaw + " three\nfour\n"},
             {"after a raw one", "insert=afterstring", raw,
              "one\ntwo " + kRawBlanked + kDrawing + " three\nfour\n"},
             {"before its line", "insert=beforeline", raw, "one\n" + kDrawing + blanked + "four\n"},
             {"after its line", "insert=afterline", raw, "one\n" + blanked + kDrawing + "four\n"},
             {"two in a line", "insert=beforeline", "one\ntwo" + kSequence + kSequence + "\n",
              "one\n" + kDrawing + "two" + kRawBlanked + kRawBlanked + kDrawing + "\n"},
             {"one that fails before it", "insert=beforeline onnodata=ignore trace=off",
              "one\ntwo $_vxrs  $_vxre " + kSequence + "\n",
              "one\n" + kDrawing + "two " + Blanks(13) + " " + kRawBlanked + "\n"},
             {"in the first line", "insert=beforeline", kSequence + " x\n",
              kRawBlanked + kDrawing + " x\n"}},
            kReset);
}

TEST(Embedding, TakesTheLineEndsOfTheJobForLines) {
  const std::string string = "(two " + kBlanked + ") show % (";
  for (const std::string end : {"\r", "\r\n", "\n"}) {
    const std::string head = "%!PS" + end + "one % (" + end, tail = end + "three" + end;
    const std::string job = "(two " + kSequence + ") show % (" + tail;
    CheckRows({{"before", "insert=beforeline", job, kBarcode + string + tail},
               {"after", "insert=afterline", job, string + end + kBarcode + "three" + end},
               {"ended by lines", "linebyline", "(open" + end + job,
                "(open" + end + kBarcode + string + tail}},
              head);
    const std::string pcl = kReset + "one" + end;
    CheckRows(
        {{"before, PCL", "insert=beforeline", kSequence + tail, kDrawing + kRawBlanked + tail},
         {"after, PCL", "insert=afterline", kSequence + tail,
          kRawBlanked + end + kDrawing + "three" + end}},
        pcl);
  }
}

TEST(Embedding, LeavesPdfJobsAlone) {
  const std::string rest = "PDF-1.4\n1 0 obj (" + kSequence + ") Tj\n";
  const std::string blanked = "PDF-1.4\n1 0 obj (" + kRaw + ") Tj\n";
  const std::string told = "INFO: vextorin: Info: The job is a PDF file and passes unchanged.\n";
  const auto errorsOf = [](const std::string& job) {
    std::string lines;
    for (const std::string& line : Split(Recorded(Filter("trace=info pclreset")).run(job).errors))
      if (line.find("PDF") != line.npos) lines += line + '\n';
    return lines;
  };
  const Lines heads = {"%", "junk\n%", Blanks(1024 - 5) + "%", kExit + "@PJL JOB\n%"};
  for (const std::string& head : heads) {
    CheckRows({{head.c_str(), "pclreset", head + rest, head + rest}});
    EXPECT_EQ(errorsOf(head + rest), told);
  }
  CheckRows({{"too late", "", Blanks(1024 - 4) + "%" + rest, Blanks(1024 - 4) + "%" + blanked},
             {"PCL", "", kReset + "%" + rest, kReset + "%" + blanked}});
}

// The barcode of each of two sequences waits for a pattern of its own.
TEST(Embedding, WaitsForTheInsertPattern) {
  const std::string job =
      kSequence + ") show\nab HERE cd\nef\n(" + kSequence + ") show\ngh\nHERE i\n";
  const std::string front = kBlanked + ") show\n", middle = "ef\n(" + kBlanked + ") show\ngh\n";
  const std::string line = "ab HERE cd\n", second = "HERE i\n";
  CheckRows({{"before the pattern", "insertpattern=HERE", job,
              front + "ab " + kBarcode + "HERE cd\n" + middle + kBarcode + second},
             {"after the pattern", "insertpattern=HERE insert=afterstring", job,
              front + "ab HERE" + kBarcode + " cd\n" + middle + "HERE" + kBarcode + " i\n"},
             {"before its line", "insertpattern=HERE insert=beforeline", job,
              front + kBarcode + line + middle + kBarcode + second},
             {"after its line", "insertpattern=HERE insert=afterline", job,
              front + line + kBarcode + middle + second + kBarcode}},
            "%!PS\n(");
  const std::string comments = ") show\n%%Here it's (\n(x) show % %%Her (\n";
  CheckRows({{"a comment, and nearly so", "insertpattern=%%HERE", kSequence + comments + "%%HERE\n",
              kBlanked + comments + kBarcode + "%%HERE\n"}},
            "%!PS\n(");
  CheckRows({{"before the line of both", "insertpattern=HERE insert=beforeline",
              "(" + kSequence + ") HERE\n(" + kSequence + ")\nb HERE\n",
              kBarcode + "(" + kBlanked + ") HERE\n(" + kBlanked + ")\n" + kBarcode + "b HERE\n"}},
            "%!PS\n");
  CheckRows({{"before the line of both, PCL", "insertpattern=HERE insert=beforeline",
              "a " + kSequence + " HERE\na " + kSequence + "\nb\nc HERE\n",
              kDrawing + "a " + kRawBlanked + " HERE\na " + kRawBlanked + "\nb\n" + kDrawing +
                  "c HERE\n"}},
            kReset + "\n");
}

TEST(Embedding, FindsEverySequenceInEveryFormOfString) {
  const std::string text = "a" + kSequence + "b", blanked = "a" + kBlanked + "b";
  const std::string split = "(x$_vxrs --data=) show % (not this)\n10 0 rmoveto (123) show ( $_vxre";
  const std::string joined =
      "(x" + Blanks(14) + ") show % (not this)\n10 0 rmoveto (   ) show (" + Blanks(7);
  const std::string digits = HexString(kSequence);
  CheckRows(
      {{"hexadecimal", "", HexString(text), kBarcode + HexString(blanked)},
       {"ASCII85", "", Ascii85String(text), kBarcode + Ascii85String(blanked)},
       {"octal and other escapes", "",
        "(\\101\\(\\044_vx\\162s \\-\\-data=1 $_vx\\\nre\\r\\n\\t\\b\\f\\001\\377\\q) show\n",
        kBarcode + "(A\\(" + kBlanked + "\\r\\n\\t\\b\\f\\001\\377q) show\n"},
       {"a begin that needs no escape", "", "(\\" + kSequence + "\\)) show\n",
        kBarcode + "(" + kBlanked + "\\)) show\n"},
       {"behind a marker that would begin a comment", "",
        "currentfile 0 (%E) /SubFileDecode filter exec\n\x01(%E(" + kSequence + ") show\n",
        "currentfile 0 (%E) /SubFileDecode filter exec\n\x01(%E" + kBarcode + "(" + kBlanked +
            ") show\n"},
       {"nested parentheses", "", "(((" + kSequence + ")x)) show\n",
        kBarcode + "(\\(\\(" + kBlanked + "\\)x\\)) show\n"},
       {"several lines", "", "(one\ntwo " + kSequence + "\n(three)) show\n",
        kBarcode + "(one\\ntwo " + kBlanked + "\\n\\(three\\)) show\n"},
       {"continued lines", "", "(a\\\n$_vx\\\rrs --da\\\r\nta=1 $_vx\\\nre\\\n) show\n",
        kBarcode + "(a" + kBlanked + ") show\n"},
       {"long lines", "", "(" + kLongLine + kSequence + kLongLine + ") show\n",
        kBarcode + "(" + kLongLine + kBlanked + kLongLine + ") show\n"},
       {"behind data with open parentheses", "", kOpenData + "(" + kSequence + ") show\n",
        kOpenData + kBarcode + "(" + kBlanked + ") show\n"},
       {"behind a comment of a lone carriage return", "", "% (\r(" + kSequence + ") show\n",
        "% (\r" + kBarcode + "(" + kBlanked + ") show\n"},
       {"split", "", split + " y) show\n", kBarcode + joined + " y) show\n"},
       {"kerned", "", "[(x$_vxrs)-20( --data=1 )15($_vxre.)] TJ",
        "[" + kBarcode + "(x" + Blanks(6) + ")-20(" + Blanks(10) + ")15(" + Blanks(6) + ".)] TJ"},
       {"split, barcode behind", "insert=afterstring", split + ")x", joined + ")" + kBarcode + "x"},
       {"split up to a dictionary", "", "($_vxrs --data=1) show << /a ($_vxre) >>",
        kBarcode + "(" + Blanks(15) + ") show << /a (" + Blanks(6) + ") >>"},
       {"two in a string", "", "(" + text + kSequence + ")",
        kBarcode + kBarcode + "(" + blanked + kBlanked + ")"},
       {"behind an open string", "linebyline", "(open\n(" + text + ")",
        "(open\n" + kBarcode + "(" + blanked + ")"},
       {"over a continued line", "linebyline", "($_vxrs --data=1 \\\n$_vxre) show\n",
        kBarcode + "(" + kBlanked + ") show\n"},
       {"in a dictionary", "", "<< /a (" + kSequence + ") >>",
        "<< /a " + kBarcode + "(" + kBlanked + ") >>"},
       {"hexadecimal digits of a dictionary", "", "<" + digits + ">", "<" + digits + ">"}},
      "%!PS\n");
  CheckRows({{"two raw ones", "", kSequence + kSequence + "\n", kRaw + kRaw + "\n"},
             {"own tokens", "escapebegin=<<<BC escapeend=BC>>>", "a<<<BC --data=1 BC>>>b",
              "a" + kDrawing + Blanks(19) + "b"},
             {"own tokens, escaped", "escapebegin=<<<BC escapeend=BC>>>",
              "%!PS\n(\\74<<BC --data=1 BC>>>) show\n",
              "%!PS\n" + kBarcode + "(" + Blanks(20) + ") show\n"}});
}

TEST(Embedding, BlanksOrRemovesTheSequence) {
  CheckRows({{"tabs and line feeds stay", "", "a$_vxrs\t--data=1\n--width=5\t$_vxreb",
              "a" + kDrawing + Blanks(14) + "\n" + Blanks(9) + "\t" + Blanks(6) + "b"},
             {"in a string", "remove", "%!PS\n(one " + kSequence + ") show\n",
              "%!PS\n" + kBarcode + "(one ) show\n"},
             {"raw", "remove", "a" + kSequence + "b", "a" + kDrawing + "b"},
             {"what then meets is no sequence", "remove",
              "%!PS\n(a$_v" + kSequence + "xrs --data=2 $_vxre) show\n",
              "%!PS\n" + kBarcode + "(a$_vxrs --data=2 $_vxre) show\n"},
             {"asked by the sequence itself, too late", "", "a$_vxrs --data=1 --remove $_vxreb",
              "a" + kDrawing + Blanks(30) + "b"}});
}

TEST(Embedding, WrapsAsTheSequenceSays) {
  const struct {
    std::string options;
    std::string barcode;
  } rows[] = {{"--pos=rel", kBarcode},
              {"--pos=abs", Wrapped(kDrawing, kAbsolute)},
              {"-x5 -y5", Wrapped(kDrawing, kAbsolute)},
              {"-x5", kBarcode},
              {"--initgraphics", Wrapped(kDrawing, kRelativeReset)},
              {"--initgraphics -x5 -y5", Wrapped(kDrawing, kAbsolute)},
              {"--embed=off", kDrawing},
              {"--nooverhead", kDrawing}};
  for (const auto& row : rows) {
    CheckRows({{row.options.c_str(), "", "($_vxrs --data=1 " + row.options + " $_vxre) show\n",
                row.barcode + "(" + Blanks(23 + row.options.size()) + ") show\n"}},
              "%!PS\n");
  }
}

TEST(Embedding, FramesPclJobsAndMovesTheCursorWhenAsked) {
  const std::string front = kExit + kReset, back = kReset + kExit;
  CheckRows({{"no sequence", "pclreset", "text\n", front + "text\n" + back},
             {"frame", "pclreset", "a" + kSequence + "b", front + "a" + kRaw + "b" + back},
             {"cursor", "movecursor width=50 height=30", "a" + kSequence + "b",
              "a" + kDrawing + "\033&a+1417h+850V" + kRawBlanked + "b"}});
}

TEST(Embedding, TellsPostScriptFromPcl) {
  const std::string job = "(" + kSequence + ")\n";
  const std::string string = kBarcode + "(" + kBlanked + ")\n";  // in PostScript
  const std::string raw = "(" + kRaw + ")\n";                    // in PCL
  const std::string enter = "@PJL ENTER LANGUAGE=";
  const std::string pjl = kExit + enter + "POSTSCRIPT\n%!PS\n" + kExit + "@PJL\n";
  const struct {
    const char* name;
    const char* settings;
    std::string head;
    bool postScript;
  } rows[] = {
      {"header", "", "%!PS-Adobe-3.0\n", true},
      {"header within the line", "", "\x04%!PS\n", true},
      {"header of two bytes", "", "%!\n", true},
      {"anything behind them", "", "%!P S\n", true},
      {"behind blank lines, a form feed, an end", "", "\r\n \n\f\x04%!\n", true},
      {"text in front of an incomplete header", "", "x %!P S\n", false},
      {"text in front of a header on the second line", "", "x\n%!PS\n", false},
      {"header at the end of what decides", "", Blanks(4091) + "%!PS\n", true},
      {"header behind it", "", Blanks(4095) + "%!PS\n", false},
      {"exit before the header", "", kExit + "%!PS\n", false},
      {"called PostScript", "stream=ps", "x\n", true},
      {"called PCL", "stream=PCL", "%!PS\n", false},
      {"switched to PCL", "", kExit + enter + "PCL\n" + kReset, false},
      {"switched to PostScript", "", kExit + "@PJL EnTeR \t LANGUAGE = PostScript\n%!PS\n", true},
      {"name that begins with PCL", "", pjl + "@PJL ENTER LANGUAGE = PCL3GUI\n", false},
      {"exit without a language", "", pjl + enter + "HPGL2\n", false},
      {"exit with PJL on its line", "", "%!PS\n" + kExit + "@PjL EOJ\n", false},
      {"exit with a reset", "", "%!PS\n" + kExit + kReset, false},
      {"exit with neither", "", "%!PS\n" + kExit + "\n" + kReset, true},
      {"exit within a string", "", "%!PS\n(" + kExit + "@PJL)\n", true},
      {"exit within a comment", "", "%!PS\n%" + kExit + "@PJL\n", true},
      {"exit from a job called PostScript", "stream=ps", "x\n" + kExit + "@PJL\n", true},
      {"back from PCL", "", pjl + enter + "POSTSCRIPT\n", true},
      {"PJL is none in a job called PostScript", "stream=ps", "x\n" + enter + "PCL\n", true},
      {"comment", "", "%!PS\n% " + kSequence + "\n", true},
      {"header line", "", "%!PS " + kSequence + "\n", true},
  };
  for (const auto& row : rows) {
    CheckRows({{row.name, row.settings, job, row.postScript ? string : raw}}, row.head);
  }
}

TEST(Embedding, ReadsTheOptionsOfRawSequencesInPostScriptStrings) {
  const std::pair<std::string, const char*> rows[] = {
      {"$_vxrs --data=(12\\)3 \\101\") $_vxre", "BCSetTextA(b1, \"12)3 A\\x22\", 7)"},
      {"$_vxrs --data=<4142> $_vxre", "BCSetTextA(b1, \"AB\", 2)"},
      {"$_vxrs --data=" + Ascii85String("ABC") + " $_vxre", "BCSetTextA(b1, \"ABC\", 3)"},
      {"$_vxrs --data=AB $_vxre", "BCSetTextA(b1, \"AB\", 2)"},
      {"$_vxrs /data(A B) $_vxre", "BCSetTextA(b1, \"A B\", 3)"},
      {"$_vxrs /barcode(8)\n/data\t<4142> $_vxre", "BCSetTextA(b1, \"AB\", 2)"},
      {"$_vxrs --data (A B) $_vxre", "BCSetTextA(b1, \"A B\", 3)"},
      {"$_vxrs -d(A B) $_vxre", "BCSetTextA(b1, \"A B\", 3)"},
      {"$_vxrs --data=\"(A)\" --font=\"<<\" $_vxre", "BCSetTextA(b1, \"(A)\", 3)"},
      {"$_vxrs --data=<< $_vxre", "BCSetTextA(b1, \"<<\", 2)"},
      {"$_vxrs --data=1(2 $_vxre", "BCSetTextA(b1, \"1(2\", 3)"},
      // The parts of a split sequence are joined by a blank; --data takes the first word.
      {"($_vxrs --data=) show (12) show (--height=5 $_vxre) show", "BCSetTextA(b1, \"12\", 2)"},
  };
  for (const auto& [sequence, call] : rows) {
    EXPECT_EQ(DataOf("%!PS\n" + sequence + "\n"), call) << sequence;
  }
}

TEST(Embedding, ASequenceThatComesToNothingInsertsNothingAndTheRestGoesOn) {
  const std::string warning =
      "WARNING: vextorin: Warning: Begin of barcode escape sequence without valid end found!\n";
  const auto missing = [&](const std::string& where) {
    return warning + "ERROR: vextorin: Error: A barcode will be missing: the sequence " + where +
           " of the job has no end.\n";
  };
  const std::string failed = "ERROR: vextorin: Error: The barcode sequence that failed begins ";
  const std::string open = "%!PS\n(a$_vxrs --data=1) show\n(b) show\n";
  const std::string none = "a $_vxr $_vx $ b $_vxre c\n$_vxr";
  CheckRows(
      {{"raw", "trace=warning", "a $_vxrs --data=1 b\nc\n", "a $_vxrs --data=1 b\nc\n",
        missing("on page 1, at byte 3")},
       {"raw at the end", "trace=warning", "\fa $_vxrs", "\fa $_vxrs",
        missing("on page 2, at byte 4")},
       {"in a string", "trace=warning", open, open, missing("at byte 6")},
       {"no complete begin, an end alone", "trace=warning", none, none},
       {"wrong value", "", "a$_vxrs --rot=45 $_vxreb" + kSequence + "c",
        "a" + Blanks(21) + "b" + kRaw + "c",
        "ERROR: vextorin: Error: Rotation must be set to '0', '90', '180' or '270'.\n"
        "ERROR: vextorin: Error: Barcode Sequence: --rot=45 \n" +
            failed + "on page 1, at byte 2 of the job.\n"},
       {"unknown option", "",
        "%!PS\n%%Page: 1 1\n($_vxrs --nonsense $_vxre) show (" + kSequence + ") show\n",
        "%!PS\n%%Page: 1 1\n(" + Blanks(24) + ") show " + kBarcode + "(" + kBlanked + ") show\n",
        "ERROR: vextorin: Error: Unrecognized option nonsense\n"
        "ERROR: vextorin: Error: Barcode Sequence:  --nonsense \n" +
            failed + "on page 1, at byte 18 of the job.\n"}});
}

TEST(Embedding, AllSequencesOfALongJobAreFoundHoweverItArrives) {
  std::string job = "%!PS\n", output = job;
  for (int page = 0; page < 60; ++page) {
    const std::string text(static_cast<std::size_t>(page * 37 % 500), 'x');
    job += "(" + text + kSequence + ") show\n";
    output += kBarcode + "(" + text + kBlanked + ") show\n";
  }
  for (const std::size_t chunk : {0u, 1u, 3u, 64u}) {
    SCOPED_TRACE(chunk);
    Program program = Recorded(Filter());
    program.inputChunk = chunk;
    EXPECT_EQ(program.run(job).output, output);
  }
}

// Sequences at the end of long strings, around the sizes at which buffers grow.
TEST(Embedding, ASequenceInAStringOfAnyLengthIsFound) {
  for (const std::size_t kibibytes : {64, 128, 256, 1024}) {
    for (const std::size_t missing : {30u, 23u, 22u, 9u, 1u, 0u}) {
      SCOPED_TRACE(std::to_string(kibibytes) + " KiB but " + std::to_string(missing));
      const std::string text(kibibytes * 1024 - missing, 'x');
      const Program::Result result =
          Recorded(Filter()).run("%!PS\n(" + text + kSequence + ") show\n");
      EXPECT_TRUE(result.output == "%!PS\n" + kBarcode + "(" + text + kBlanked + ") show\n");
      EXPECT_EQ(result.status, 0);
    }
  }
}

TEST(Embedding, ALineLongerThanAnyReadIsKeptForTheBarcodeInFrontOfIt) {
  const std::string line(400000, 'x');
  const std::string blanks(21, ' ');
  const std::pair<std::string, std::string> rows[] = {
      {"\033E\n", line}, {"%!PS\n", line}, {"\033E\n", "a\033*b400000W" + line}};
  for (const auto& [front, text] : rows) {
    const Program::Result result = Recorded(Filter("insert=beforeline nooverhead"))
                                       .run(front + text + "$_vxrs --data=1 $_vxre\n");
    EXPECT_TRUE(result.output == front + kDrawing + text + blanks + "\n") << front;
  }
}

}  // namespace
