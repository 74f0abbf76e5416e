// Jobs as real programs write them: the text of a sequence typed into a document comes out of each
// of them in its own form, and the barcode still stands on the page.
#include "tests/support/Decode.h"
#include "tests/support/Ink.h"
#include "tests/support/Jobs.h"
#include "tests/support/Pictures.h"
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace Support;

const std::string kPlaced = "$_vxrs --barcode=20 --data=Made123 -x30 -y100 -w70 -h25 $_vxre";
const std::string kSequence = "$_vxrs --barcode=20 --data=Made123 -w60 -h15 $_vxre";

std::string Output(const Lines& arguments, const std::string& input = {}) {
  const Finished finished = Support::Run({.arguments = arguments,
                                          .environment = {{"ASAN_OPTIONS", "detect_leaks=0"}},
                                          .input = input});
  EXPECT_EQ(finished.status, 0) << arguments[0] << ": " << finished.errors;
  return finished.output;
}

std::string HandWritten(const std::string& text) {
  return "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n/Courier findfont 9 scalefont "
         "setfont\n50 700 moveto (" +
         text + ") show\nshowpage\n%%EOF\n";
}

// The same text word by word, as programs write it that place each word themselves.
std::string WordByWord(const std::string& text) {
  std::string job =
      "%!PS\n/Courier findfont 9 scalefont setfont /w { show 5.4 0 rmoveto } def 50 700 moveto\n";
  for (const std::string& word : Split(text, " ")) job += "(" + word + ")w % (x)\n";
  return job + "showpage\n";
}

// As printer drivers of Windows write it: operators under names of a letter, y downwards in dots,
// every character with its width.
std::string WindowsDriver(const std::string& text) {
  std::string widths;
  for (std::size_t i = 0; i < text.size(); ++i) widths += "45 ";
  return "%!PS-Adobe-3.0\r\n%%Pages: (atend)\r\n%%EndComments\r\n%%BeginProlog\r\n"
         "/Driver 90 dict dup begin/d/def load def/M/moveto load d/S/show load d/L/fill load "
         "d/E/end\r\n"
         "load d/n/exch load d/V/div load d/K/stroke load d/xS/xshow load d/b/bind load d end "
         "def\r\n"
         "%%EndProlog\r\n%%Page: 1 1\r\nDriver begin[72 600 V 0 0 -72 600 V 15 827]concat\r\n"
         "/F0/Courier findfont[75 0 0 -75 0 0]makefont d F0 setfont\r\n400 1000 M (" +
         text + ")[" + widths + "]xS\r\n400 2000 M (Second line)S\r\nshowpage E\r\n%%EOF\r\n";
}

// A picture of noise above the text.
std::string Netpbm(const Lines& options, const std::string& text) {
  const std::string picture =
      Output(Join({"pnmtops", "-noturn", "-quiet"}, options), "P5 64 64 255\n" + Noise(1, 64 * 64));
  return "%!PS-Adobe-3.0\n%%Page: 1 1\nsave /showpage{}def /setpagedevice{pop}def 0 300 translate\n"
         "%%BeginDocument: noise.eps\n" +
         picture +
         "\n%%EndDocument\nrestore\n/Courier findfont 9 scalefont setfont 50 150 moveto (" + text +
         ") show showpage\n";
}

std::string Pdf(const TempFolder& folder, const std::string& text) {
  const std::string pdf = folder.file("job.pdf");
  Output({"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pdfwrite", "-sOutputFile=" + pdf,
          "-"},
         HandWritten(text));
  return pdf;
}

std::string Cairo(const char* family, const std::string& text) {
  const TempFolder folder;
  const std::string file = folder.file("job.ps");
  Output({VEXTORIN_CAIRO_JOB, file, family, "595", "842", "50", "100", text});
  return Support::ReadFile(file);
}

std::string FromPdf(const std::string& converter, const std::string& text) {
  const TempFolder folder;
  return Output(Join(Split(converter, " "), {Pdf(folder, text), "-"}));
}

std::string Groff(const std::string& requests, const std::string& text) {
  return Output({"groff", "-Tps", "-P-pa4"}, "\\&\n.sp 9\n" + requests + text + "\n");
}

// A program that reads text, behind some empty lines.
std::string FromText(const std::string& command, const std::string& text) {
  return Output(Split(command, " "), "\n\n\n\n\n\n\n\n" + text + "\n");
}

// Two pages of enscript on one.
std::string TwoUp(const std::string& text) {
  return Output(Split("psnup -q -pa4 -2", " "),
                FromText("enscript -q -p - -B -M A4 -f Courier8", text));
}

using Text = const std::string&;
struct Producer {
  const char* name;
  std::string (*job)(Text text);
  double scale = 1;
  int angle = 0;
};

const Producer kProducers[] = {
    {"hand-written", HandWritten},
    {"word by word", WordByWord},
    {"Windows", WindowsDriver},
    {"groff, Courier", [](Text text) { return Groff(".nf\n.ft CR\n", text); }},
    {"groff, Times", [](Text text) { return Groff(".nf\n", text); }},
    {"groff, centred", [](Text text) { return Groff(".nf\n.ce\n", text); }},
    {"enscript", [](Text text) { return FromText("enscript -q -p - -B -M A4", text); }},
    {"enscript with header", [](Text text) { return FromText("enscript -q -p - -M A4", text); }},
    {"enscript, fancy", [](Text text) { return FromText("enscript -q -p - -G -M A4", text); }},
    {"a2ps", [](Text text) { return FromText("a2ps -q -o - -1 -M A4 -l 100", text); }},
    {"psutils, two pages on one", TwoUp, 0.7071, 90},
    {"cairo, sans", [](Text text) { return Cairo("sans", text); }},
    {"cairo, monospace", [](Text text) { return Cairo("monospace", text); }},
    {"poppler", [](Text text) { return FromPdf("pdftops", text); }},
    {"poppler, level 1", [](Text text) { return FromPdf("pdftops -level1", text); }},
    {"poppler, level 3", [](Text text) { return FromPdf("pdftops -level3", text); }},
    {"poppler over cairo", [](Text text) { return FromPdf("pdftocairo -ps", text); }},
    {"netpbm", [](Text text) { return Netpbm({}, text); }},
    {"netpbm, RunLength",
     [](Text text) {
       return Netpbm({"-rle", "-psfilter"}, text);
     }},
    {"netpbm, Flate and ASCII85",
     [](Text text) {
       return Netpbm({"-flate", "-psfilter", "-ascii85"}, text);
     }},
};

TEST(Producers, BarcodesAppearInTheirJobsAndTheRestStaysAsItIs) {
  for (const Producer& producer : kProducers) {
    SCOPED_TRACE(producer.name);
    if (producer.scale != 1) continue;  // its place is one on the smaller page
    const std::string job = producer.job(kPlaced);
    ASSERT_TRUE(job.starts_with("%!PS")) << job.substr(0, 40);
    const Program::Result result = Filter().run(job);
    EXPECT_EQ(result.errors, "");
    const Symbol symbol = DecodeJob(result.output, 200);
    EXPECT_EQ(symbol.data, "Made123");
    EXPECT_NEAR(symbol.x, 30 + 70 / 2.0, 3);
    EXPECT_NEAR(symbol.y, 100 + 25 / 2.0, 25 / 2.0);
    // Some write the text in one piece.
    std::string blanked = job;
    const std::size_t place = blanked.find(kPlaced);
    if (place == blanked.npos) continue;
    blanked.replace(place, kPlaced.size(), kPlaced.size(), ' ');
    EXPECT_TRUE(WithoutBarcodes(result.output) == blanked);
  }
}

// With one setting for all of them.
TEST(Producers, BarcodesStandWhereTheirTextStood) {
  for (const Producer& producer : kProducers) {
    SCOPED_TRACE(producer.name);
    const std::string job = producer.job("Total: " + kSequence + " EUR");
    const Program::Result result = Filter("insert=auto").run(job);
    EXPECT_EQ(result.errors, "");
    const Rendering after = Render(result.output, 203), before = Render(job, 203);
    EXPECT_EQ(after.messages, before.messages);
    ASSERT_TRUE(after.pages.size() == 1 && before.pages.size() == 1) << after.messages;
    const std::vector<Symbol> symbols = Decode(after.pages[0]);
    ASSERT_EQ(symbols.size(), 1u);
    EXPECT_EQ(symbols[0].data, "Made123");
    EXPECT_EQ(symbols[0].orientation, producer.angle);
    const Frame frame = {0, 0, producer.angle};
    const auto added = InkBeside(after.pages[0], before.pages[0], frame);
    const auto removed = InkBeside(before.pages[0], after.pages[0], frame);
    ASSERT_TRUE(added && removed);
    EXPECT_NEAR(added->right - added->left, 60 * producer.scale, 1) << *added;
    EXPECT_NEAR(added->top - added->bottom, 15 * producer.scale, 1) << *added;
    EXPECT_NEAR(removed->left, added->left, 1) << *removed << *added;
    EXPECT_NEAR(removed->bottom, added->bottom - 1, 1) << *removed << *added;
    EXPECT_LT(removed->top, added->bottom + 4) << *removed << *added;
  }
}

TEST(Producers, JobsWithoutSequencesPassUnchanged) {
  const std::string text = "An ordinary letter, (c) 2026 <a@b.c> 100 % \\ $\n";
  const TempFolder folder;
  const std::string plain =
      folder.write("plain.ps",
                   "%!PS\n/Times-Roman findfont 99 scalefont setfont 50 500 moveto (plain) show "
                   "showpage\n");
  for (const std::string command :
       {"groff -Tps", "enscript -q -p -", "-sDEVICE=ljet4", "-sDEVICE=pxlmono", "-sDEVICE=ps2write",
        "-sDEVICE=pdfwrite", "-sDEVICE=png16m"}) {
    SCOPED_TRACE(command);
    const Lines device = {
        "gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", command, "-sOutputFile=%stdout", plain};
    const std::string job = Output(command[0] == '-' ? device : Split(command, " "), text);
    ASSERT_GT(job.size(), 500u);
    const Program::Result result = Filter().run(job);
    EXPECT_TRUE(result.output == job);
    EXPECT_EQ(result.errors, "");
  }
}

}  // namespace
