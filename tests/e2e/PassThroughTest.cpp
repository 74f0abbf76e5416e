// A job without sequences leaves the filter as it came, byte for byte: whatever it holds, however
// it arrives, wherever it breaks off.
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace Support;

struct Job {
  const char* name;
  std::string bytes;
};

std::string EveryByte() {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  return bytes;
}

// Small jobs, cut at every place as well.
std::vector<Job> SmallJobs() {
  const std::string exit = "\033%-12345X";
  return {
      {"PostScript",
       "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n/F /Times-Roman findfont def\n%%Page: 1 1\n"
       "F 12 scalefont setfont 72 720 moveto (A \\(b\\) \\\\ \\101\\\n c (nested) ) show\n"
       "<48656c6c 6f> show <~87cURD]i,\"Ebo80~> show << /a [1 2] /b <</c (d)>> >> pop\n"
       "{ 1 2 gt } if showpage\n%%EOF\n\x04"},
      {"odd PostScript",
       "%!PS\r\n($_vxr) ($_vx\\162) <245f76> <~+<VdL~> )) >> > ~> <\r$_vx%$_vx no\r\n(\\) <> "
       "() <~~> \x1c $ @ @PJL\r\n% $_vxrs no\r\n( ( )"},
      {"operands of no picture", "%!PS\n1 2 3 [ /a b currentfile /c 1 2 3 [ /d e currentfile f\n"},
      {"PCL",
       "\033E\033&l0O\033(10U\033(s0p10.00h12.0v0s0b3TInvoice $_vx $_ 12%\r\n"
       "\033*t300R\033*r1A\033*b4W\x01\x02$_\033*rC<<(\\ \034x \x1c\f"
       "\033*b3m2w$_5w12\033*b3W\033%0BSP1;LB$_\x03\033%0A\033*b-5W\033&p9X12345"},
      {"PJL",
       exit +
           "@PJL JOB NAME=\"a\"\r\n@PJL SET COPIES=2\r\n@PJL ENTER LANGUAGE = POSTSCRIPT \r\n"
           "%!PS\n(text) show\n" +
           exit + "@PJL ENTER  LANGUAGE=PCLXL\r\n) HP-PCL XL;2;0\r\n\xd1\x58" + exit +
           "@PJL EOJ\r\n@P @PJL E @PJL ENTER LANG"},
      {"PDF", "%PDF-1.4\n1 0 obj\n<</Length 8>>stream\n$_\xff\x00<~(\\\nendstream\n"},
  };
}

// Larger ones, in the sizes and kinds that meet buffer ends.
std::vector<Job> LargeJobs() {
  const std::string page = "%%Page: 1 1\n72 72 moveto (Some text of a page) show showpage\n";
  std::string pages = "%!PS-Adobe-3.0\n";
  for (int count = 0; count < 4000; ++count) pages += page;
  std::string binary = "%!PS-Adobe-3.0\n%%BeginData: 5120 Binary Bytes\n";
  for (int count = 0; count < 20; ++count) binary += EveryByte();
  std::string tokens;
  for (int count = 0; count < 5000; ++count) tokens += "$_vxr";
  return {
      {"many pages", pages},
      {"binary PostScript", binary + "\n%%EndData\nshowpage\n"},
      {"every byte twice in PCL", "\033E" + EveryByte() + EveryByte()},
      {"zero bytes in the first line", std::string("%!PS\0\0 x\0\n(a) show\n", 20)},
      {"one endless line", "%!PS " + std::string(300000, 'x')},
      {"first line of exactly a buffer", "%!PS" + std::string(4091, 'y') + "\n(a) show\n"},
      {"header word behind the buffer", std::string(4095, 'z') + "%!PS\n(a) show\n"},
      {"one long string", "%!PS\n(" + std::string(200000, 's') + ") show\n"},
      {"one long hexadecimal string", "%!PS\n<" + std::string(200001, '4') + "> show\n"},
      {"one long unclosed string", "%!PS\n((" + std::string(150000, '(')},
      {"one long comment", "%!PS\n%" + std::string(200000, '(') + "\n"},
      {"begin tokens all but their last letter", "%!PS\n" + pages.substr(0, 5000) + tokens},
      {"a line feed alone", "\n"},
      {"a single byte", "x"},
      {"carriage returns only", "%!PS\r(a) show\r% comment\r(b) show\r"},
  };
}

// What is told of the begin token in a job without end tokens.
std::string MissingIn(const std::string& job) {
  const std::size_t begin = job.find("$_vxrs");
  return begin == job.npos ? ""
                           : "ERROR: vextorin: Error: A barcode will be missing: the sequence on "
                             "page 1, at byte " +
                                 std::to_string(begin + 1) + " of the job has no end.\n";
}

void ExpectUnchanged(const Program& program, const std::string& job,
                     const std::string& errors = {}) {
  const Program::Result result = program.run(job);
  // Whole jobs are no help in a message; the place of the first difference is.
  if (result.output != job) {
    const auto [in, out] =
        std::mismatch(job.begin(), job.end(), result.output.begin(), result.output.end());
    ADD_FAILURE() << job.size() << " bytes became " << result.output.size()
                  << ", first difference at " << in - job.begin() << " after ["
                  << testing::PrintToString(
                         std::string(in - std::min<long>(in - job.begin(), 60), in))
                  << "]";
  }
  EXPECT_EQ(result.errors, errors);
  EXPECT_EQ(result.status, 0);
}

// Settings that change the way of the bytes through the filter.
const char* const kWays[] = {"",
                             "insert=beforeline",
                             "insert=afterline insertpattern=showpage",
                             "insert=afterstring linebyline",
                             "remove orvella=on",
                             "stream=ps",
                             "stream=pcl",
                             "insert=auto",
                             "escapebegin=\"\""};

TEST(PassThrough, LeavesJobsWithoutSequencesUnchanged) {
  std::vector<Job> jobs = SmallJobs();
  std::ranges::move(LargeJobs(), std::back_inserter(jobs));
  for (const Job& job : jobs) {
    for (const std::string settings : kWays) {
      for (const bool inputFile : {false, true}) {
        SCOPED_TRACE(job.name + (", " + settings) + (inputFile ? " from a file" : ""));
        Program program = Filter(settings);
        program.inputFile = inputFile;
        // What is a comment in PostScript is text in PCL.
        ExpectUnchanged(program, job.bytes, settings == "stream=pcl" ? MissingIn(job.bytes) : "");
      }
    }
  }
}

TEST(PassThrough, DoesNotDependOnHowTheJobArrives) {
  for (const std::size_t chunk : {1u, 2u, 7u}) {
    for (const Job& job : SmallJobs()) {
      SCOPED_TRACE(std::string(job.name) + " in pieces of " + std::to_string(chunk));
      Program program = Filter();
      program.inputChunk = chunk;
      ExpectUnchanged(program, job.bytes);
    }
  }
}

TEST(PassThrough, LeavesJobsCutAtAnyPlaceUnchanged) {
#ifdef __SANITIZE_ADDRESS__
  constexpr std::size_t kStep = 5;  // a start under the sanitizers takes ten times as long
#else
  constexpr std::size_t kStep = 1;
#endif
  for (const Job& job : SmallJobs()) {
    for (std::size_t length = 1; length < job.bytes.size(); length += kStep) {
      SCOPED_TRACE(std::string(job.name) + " cut at " + std::to_string(length));
      ExpectUnchanged(Filter(), job.bytes.substr(0, length));
    }
  }
}

// Each parenthesis may begin a string of its own: tried one by one they would take hours.
TEST(PassThrough, ASequenceWithoutEndInFrontOfManyParenthesesEndsAsWell) {
  const std::string begin = "%!PS\n($_vxrs) show\n", many(1200000, '(');
  for (const std::string& job : {begin + many, begin + many + std::string(many.size(), ')')}) {
    for (const char* const way : {"", "insert=beforeline", "insert=auto", "linebyline"}) {
      SCOPED_TRACE(way);
      ExpectUnchanged(
          Filter(way), job,
          "ERROR: vextorin: Error: A barcode will be missing: the sequence at byte 6 of "
          "the job has no end.\n");
    }
  }
}

// A random mixture of everything that means something to a PostScript or PCL reader.
std::string Torture(std::mt19937& random) {
  static const Lines kPieces = Join(
      Split("( ) < > << >> <~ ~> ~ % \\ \\( \\) \\\\ \\n \\12 $ $_ $_v $_vx $_vxr $_vxre \x04 \033 "
            "\033%-12345X \033*b3W @ @PJL \034 \034c { } [ ] /n z 48656c 87cUR \xff \x80\xfe %!PS",
            " "),
      {"\n", "\r", "\r\n", "\\\n", " ", "\t", "show ", "@PJL ENTER", "%%Page: 1 1\n",
       "@PJL ENTER LANGUAGE=PCL\n", "@PJL ENTER LANGUAGE = PostScript\n", std::string(1, '\0')});
  std::string job = random() % 2 ? "%!PS-Adobe-3.0\n" : "\033E\033&l0O\n";
  const auto pieces = random() % 400;
  for (unsigned count = 0; count < pieces; ++count) {
    const auto choice = random() % (kPieces.size() + 2);
    if (choice == kPieces.size()) {
      job += std::string(random() % 40 == 0 ? random() % 20000 : random() % 20, 'w');
    } else if (choice == kPieces.size() + 1) {
      for (auto length = random() % 30; length > 0; --length) {
        job += static_cast<char>(random() % 256);
      }
    } else {
      job += kPieces[choice];
    }
  }
  return job;
}

// Whether the begin token could be in the job in any form, however unlikely.
bool MightHoldASequence(const std::string& job) {
  std::string letters;
  for (const char c : job) {
    if (c != '\\' && c != '\n' && c != '\r') letters += c;
  }
  return letters.find("$_vxrs") != letters.npos;
}

TEST(PassThrough, LeavesRandomMixturesOfDelimitersUnchanged) {
  std::mt19937 random(20260101);
  for (int round = 0; round < 600; ++round) {
    const std::string job = Torture(random);
    const char* const settings = kWays[random() % 4];
    if (MightHoldASequence(job)) continue;
    SCOPED_TRACE("round " + std::to_string(round) + " " + settings);
    Program program = Filter(settings);
    program.inputFile = round % 3 == 0;
    program.inputChunk = round % 3 == 1 ? static_cast<std::size_t>(round % 11 + 1) : 0;
    ExpectUnchanged(program, job);
    if (HasFailure()) {
      std::puts(testing::PrintToString(job).c_str());
      break;
    }
  }
}

}  // namespace
