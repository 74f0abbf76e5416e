// insert=auto: the barcode stands where its text would have stood, in its size and direction,
// whatever operators show the text, and everything else on the page and in the interpreter is as
// without the filter.
#include "tests/support/Decode.h"
#include "tests/support/Ink.h"
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <chrono>

namespace {

using namespace Support;

constexpr double kPoint = 25.4 / 72;  // mm
const std::string kSequence = "$_vxrs --barcode=20 --data=Made123 -w60 -h15 $_vxre";
const std::string kText = "Total: " + kSequence + " EUR";
constexpr double kFront = 7;  // characters in front of the sequence
constexpr double kAll = 62;

// A page that shows the text in Courier at 8 points, which advances by 4.8 points.
struct Row {
  const char* name;
  std::string code;
  double x = 50 + kFront * 4.8, y = 700;  // of the sequence, in points
  double advance = 4.8;                   // points on paper a character
  double scale = 1;                       // of the barcode
  int angle = 0;
};

std::string Literal(const std::string& text) {
  return "(" + text + ")";
}

std::string Repeated(const std::string& word, double times) {
  std::string words;
  for (int count = 0; count < times; ++count) words += word + ' ';
  return words;
}

// Words one by one.
std::string Words(const std::string& before, const std::string& after) {
  std::string code;
  for (const std::string& word : Split(kText, " ")) code += before + Literal(word) + after + '\n';
  return code;
}

// Pieces of `size` characters with something in between.
std::string Pieces(std::size_t size, const std::string& between) {
  std::string code;
  for (std::size_t at = 0; at < kText.size(); at += size)
    code += (at ? between : "") + Literal(kText.substr(at, size));
  return code;
}

const std::string kShown = Literal(kText);
const std::string kTj =
    "/TJ{{dup type/stringtype eq{show}{-.008 mul 0 rmoveto}ifelse}forall}bind def ";

const Row kRows[] = {
    {"show", "50 700 moveto " + kShown + " show"},
    {"hexadecimal", "50 700 moveto " + HexString(kText) + " show"},
    {"coordinates in front", "/T{3 1 roll moveto show}bind def 50 700 " + kShown + " T"},
    {"coordinates behind", "/Q{moveto show}bind def " + kShown + "50 700 Q"},
    {"movement behind", "/b{exch show 0 rmoveto}bind def 50 700 moveto " + kShown + "41 b(m)0 b"},
    {"movement in front", "/E{0 rmoveto show}bind def 40 700 moveto " + kShown + "10 E"},
    {"next line", "/N{show 50 688 moveto}bind def 50 700 moveto " + kShown + " N (next) N"},
    {"centred", "297 700 moveto " + kShown + " dup stringwidth pop 2 div neg 0 rmoveto show",
     297 - kAll * 2.4 + kFront * 4.8},
    {"right by an operator of the job",
     "/C{dup stringwidth pop neg 0 rmoveto show}bind def 545 700 moveto " + kShown + " C",
     545 - (kAll - kFront) * 4.8},
    {"array", kTj + "50 700 moveto [" + Pieces(9, "-20") + "]TJ", 50 + kFront * 4.8, 700, 4.82},
    {"array that splits the begin token", kTj + "50 700 moveto [" + Pieces(10, "2") + "]TJ"},
    {"widths", "50 700 moveto " + kShown + "[" + Repeated("5", kAll) + "]xshow", 50 + kFront * 5,
     700, 5},
    {"widthshow", "50 700 moveto 1 0 32 " + kShown + " widthshow", 50 + kFront * 4.8 + 1, 700, 4.9},
    {"ashow", "50 700 moveto .2 0 " + kShown + " ashow", 50 + kFront * 5, 700, 5},
    {"word by word", "/W{show ( ) show}bind def 50 700 moveto " + Words("", " W")},
    {"words with their places behind",
     "/P 50 def/w{P 700 moveto dup show length 1 add 4.8 mul P add/P exch def}bind def " +
         Words("", " w")},
    {"kerned, begin token split", "50 700 moveto " + Pieces(3, " show .02 0 rmoveto ") + " show",
     50 + kFront * 4.8, 700, 4.805},
    {"clipped on a flipped axis",
     "gsave 49 690 500 13 rectclip 1 0 0 -1 0 842 6 array astore concat\n"
     "/Courier findfont [8 0 0 -8 0 0] makefont setfont 50 142 moveto " +
         kShown + " show grestore"},
    {"units of 1/600 inch",
     "gsave 72 600 div dup scale /Courier findfont 66.667 scalefont setfont 50 600 72 div mul 700 "
     "600 72 div mul moveto " +
         kShown + " show grestore"},
    {"page at half its size", "gsave .5 dup scale 100 1400 moveto " + kShown + " show grestore",
     50 + kFront * 2.4, 700, 2.4, 0.5},
    {"rotated page", "gsave 300 100 translate 90 rotate 0 0 moveto " + kShown + " show grestore",
     300, 100 + kFront * 4.8, 4.8, 1, 90},
    {"upside down", "gsave 500 300 translate 180 rotate 0 0 moveto " + kShown + " show grestore",
     500 - kFront * 4.8, 300, 4.8, 1, 180},
};

// What a job may see of a text operation: operand stack, font, current point in tenths of a unit.
const std::string kState =
    " (state:) = count = currentfont /FontName known {currentfont /FontName get =} if\n"
    "currentfont /FontMatrix get aload pop 6 {1e5 mul round cvi =} repeat countdictstack =\n"
    "{currentpoint} stopped {(none) =} {10 mul round cvi = 10 mul round cvi =} ifelse\n";

std::string PageWith(const std::string& code) {
  return "%!PS-Adobe-3.0\n%%Page: 1 1\n<< /PageSize [595 842] >> setpagedevice\nsave 1 2 (x)\n"
         "/Courier findfont 8 scalefont setfont 50 790 moveto (A heading) show\n" +
         code + kState + " 50 650 moveto (A footer) show pop pop pop restore showpage\n";
}

void CheckPage(const Page& page, const Page& unfiltered, const Row& row) {
  const std::vector<Symbol> symbols = Decode(page);
  ASSERT_EQ(symbols.size(), 1u);
  EXPECT_EQ(symbols[0].data, "Made123");
  EXPECT_EQ(symbols[0].orientation, row.angle);
  const Frame frame = {row.x * kPoint, row.y * kPoint, row.angle};
  const auto added = InkBeside(page, unfiltered, frame);
  const auto removed = InkBeside(unfiltered, page, frame);
  ASSERT_TRUE(added && removed);
  EXPECT_NEAR(added->left, 0, 1) << *added;
  EXPECT_NEAR(added->bottom, 0, 1) << *added;
  EXPECT_NEAR(added->right, 60 * row.scale, 1) << *added;
  EXPECT_NEAR(added->top, 15 * row.scale, 1) << *added;
  const double length = static_cast<double>(kSequence.size()) * row.advance * kPoint;
  EXPECT_NEAR(removed->left, 0, 1) << *removed;
  EXPECT_NEAR(removed->right, length, 1.5) << *removed;
  EXPECT_GT(removed->bottom, -1.5) << *removed;
  EXPECT_LT(removed->top, 3) << *removed;
}

TEST(AutoInsert, PutsTheBarcodeWhereItsTextStoodAndLeavesTheRest) {
  std::string filtered, unfiltered;
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const std::string job = PageWith(row.code);
    const Program::Result result = Filter("insert=auto").run(job);
    EXPECT_EQ(result.errors, "");
    filtered += result.output;
    unfiltered += job;
  }
  // Fine enough that bars need not shrink to whole dots.
  const Rendering after = Render(filtered, 300), before = Render(unfiltered, 300);
  EXPECT_EQ(after.messages, before.messages);
  ASSERT_EQ(before.pages.size(), std::size(kRows));
  ASSERT_EQ(after.pages.size(), std::size(kRows)) << after.messages;
  for (std::size_t page = 0; page < std::size(kRows); ++page) {
    SCOPED_TRACE(kRows[page].name);
    CheckPage(after.pages[page], before.pages[page], kRows[page]);
  }
  const std::string text = TextOf(filtered);
  for (const char* const gone : {"vxr", "--", "barcode", "-w60"})
    EXPECT_EQ(text.find(gone), text.npos) << text;
}

// One job by its rendering: what a page with this code shows.
struct Shown {
  std::string errors;  // of the filter
  std::string messages;
  std::vector<Symbol> symbols;
  std::string text;
};

Shown Filtered(const std::string& settings, const std::string& code, int atMost = 1) {
  const Program::Result result = Filter("insert=auto " + settings).run(PageWith(code));
  const Rendering rendering = Render(result.output, 203);
  Shown shown = {result.errors, rendering.messages, {}, TextOf(result.output)};
  if (rendering.pages.size() == 1) shown.symbols = Decode(rendering.pages[0], atMost);
  return shown;
}

TEST(AutoInsert, PutsEachSequenceOfAStringInItsPlace) {
  const Shown shown = Filtered("",
                               "50 700 moveto "
                               "(A $_vxrs -w45 --data=First $_vxre B $_vxrs -w45 --data=Second "
                               "$_vxre C) show",
                               2);
  ASSERT_EQ(shown.symbols.size(), 2u) << Describe(shown.symbols);
  const bool inOrder = shown.symbols[0].data == "First";
  EXPECT_EQ(shown.symbols[inOrder ? 0 : 1].data, "First");
  EXPECT_EQ(shown.symbols[inOrder ? 1 : 0].data, "Second");
  EXPECT_NEAR(shown.symbols[inOrder ? 0 : 1].x, (50 + 2 * 4.8) * kPoint + 22.5, 3);
  EXPECT_NEAR(shown.symbols[inOrder ? 1 : 0].x, (50 + 37 * 4.8) * kPoint + 22.5, 3);
}

// What is asked for explicitly goes before.
TEST(AutoInsert, ObeysPlaceAndRemoval) {
  const Shown placed = Filtered(
      "", "50 700 moveto (Total: $_vxrs -x30 -y40 -w60 -h15 --data=Made123 $_vxre EUR) show");
  ASSERT_EQ(placed.symbols.size(), 1u);
  EXPECT_NEAR(placed.symbols[0].x, 30 + 30, 3);
  EXPECT_NEAR(placed.symbols[0].y, 40 + 7.5, 7.5);
  EXPECT_NE(placed.text.find("EUR"), placed.text.npos);
  const std::string code = "50 700 moveto " + kShown + " show";
  const Program::Result removed = Filter("insert=auto remove").run(PageWith(code));
  EXPECT_EQ(WithoutBarcodes(removed.output), PageWith("50 700 moveto (Total:  EUR) show"));
  const std::vector<Page> pages =
      Render(removed.output + PageWith("50 700 moveto (Total:  EUR) show"), 203).pages;
  ASSERT_EQ(pages.size(), 2u);
  const auto barcode = InkBeside(pages[0], pages[1], {(50 + 33.6) * kPoint, 700 * kPoint});
  ASSERT_TRUE(barcode);
  EXPECT_NEAR(barcode->left, 0, 1);
  EXPECT_NEAR(barcode->right, 60, 1);
}

TEST(AutoInsert, DrawsTheMessagesOfAFailedBarcodeAtItsPlace) {
  const std::string code =
      "/Q{moveto show}bind def (Total: $_vxrs --barcode=13 --data=abc $_vxre EUR)50 700 Q";
  const Shown shown = Filtered("onerror=message", code);
  EXPECT_EQ(shown.messages, Render(PageWith(code), 203).messages);
  EXPECT_NE(shown.text.find("create barcode."), shown.text.npos) << shown.text;
  EXPECT_NE(shown.text.find("EUR"), shown.text.npos) << shown.text;
  EXPECT_EQ(Filtered("onerror=ignore", code).text.find("create"), shown.text.npos);
}

// Strings that nothing shows: the page is as before, and the operator's absence is told.
TEST(AutoInsert, LeavesPagesAloneOnWhichTheTextHasNoPlace) {
  const struct {
    std::string code;
    bool told;  // for no operator could be seen
  } rows[] = {{kShown + " pop", true},
              {"/text " + kShown + " def", true},
              {"[" + kShown + " length] pop", true},
              {"{" + kShown + " show} pop", false},
              {"/s{pop}def " + kShown + " s", false},
              {kShown + " {show} stopped pop pop", false}};
  for (const auto& [behind, told] : rows) {
    const std::string code = "newpath " + behind;
    SCOPED_TRACE(code);
    const std::string job = PageWith(code);
    const Program::Result result = Filter("insert=auto trace=warning").run(job);
    const Rendering after = Render(result.output, 100), before = Render(job, 100);
    EXPECT_EQ(after.messages, before.messages);
    ASSERT_EQ(after.pages.size(), 1u);
    EXPECT_FALSE(InkBeside(after.pages[0], before.pages[0]));
    EXPECT_FALSE(InkBeside(before.pages[0], after.pages[0]));
    EXPECT_EQ(result.errors.find("could not be seen") != result.errors.npos, told) << result.errors;
  }
}

// Each string of an array is told of by its own place.
TEST(AutoInsert, ReportsEachSequenceWithoutAnEndOnce) {
  const std::string job =
      "%!PS\n[(A $_vxrs -b20)-9($_vxrs $_vxrs)-9(c)-9($_vxrs)] TJ ($_vxrs) show\n";
  std::string errors;
  for (const char* const string : {"(A", "($_vxrs $", "($_vxrs)]", "($_vxrs) "}) {
    errors += "ERROR: vextorin: Error: A barcode will be missing: the sequence at byte " +
              std::to_string(job.find(string) + 1) + " of the job has no end.\n";
  }
  const Program::Result result = Filter("insert=auto").run(job);
  EXPECT_EQ(result.errors, errors);
  EXPECT_EQ(result.output, job);
}

// All barcodes of a string are at hand before it is written, and those of a pattern until it comes.
TEST(AutoInsert, BoundsTheBarcodesThatWait) {
  const std::string text = Literal(Repeated("$_vxrs -b58 -d1 --QRversion=40 $_vxre", 260));
  const std::string job = PageWith(text + " show\nHERE");
  const std::string place = ", at byte " + std::to_string(job.find(text) + 1) + " of the job ";
  for (const auto& [settings, message] :
       {std::pair{"insert=auto", place + "stands behind too many others in one text.\n"},
        {"insertpattern=HERE", place + "waits behind too many others.\n"}}) {
    const Program::Result result = Filter(settings).run(job);
    EXPECT_GT(result.output.size(), 16u << 20);
    EXPECT_LT(result.output.size(), 18u << 20);
    EXPECT_NE(result.errors.find(message), result.errors.npos) << result.errors;
  }
}

// Whoever prints may write jobs that are full of what has to be looked at twice.
TEST(AutoInsert, TakesTimeAndOutputInProportionToTheJob) {
  const auto times = [](int count, const std::string& text) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
  };
  const std::string sequence = "$_vxrs $_vxre";
  const struct {
    const char* name;
    std::string code;
  } rows[] = {
      {"strings of an array that end like a begin token", "[" + times(20000, "($)1") + "] TJ"},
      {"strings of an array with a begin token", "[" + times(20000, "($_vxrs)1") + "] TJ"},
      {"backslashes in front of strings",
       times(200, Literal(std::string(16000, '\\')) + Literal(sequence) + " show\n")},
      {"digits between sequences",
       times(3, Literal(std::string(800000, '1') + times(12000, sequence + '1')) + " show\n")},
      {"widths that don't fit the string",
       Literal(times(4000, 'x' + sequence)) + '[' + times(40001, "1 ") + "] xshow"},
  };
  for (const auto& [name, code] : rows) {
    SCOPED_TRACE(name);
    const std::string job = PageWith(code);
    const auto begin = std::chrono::steady_clock::now();
    const Program::Result result = Filter("insert=auto trace=off").run(job);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(took.count(), 10);
    EXPECT_LT(result.output.size(), 40 * job.size());
    EXPECT_EQ(result.status, 0);
  }
}

}  // namespace
