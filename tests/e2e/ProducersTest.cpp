// Jobs as real programs write them: the text of a sequence typed into a document comes out of each
// of them in its own form, and the barcode still stands on the page.
#include "tests/support/Decode.h"
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Support::Filter;
using Support::Lines;
using Support::Program;
using Support::Rendering;
using Support::Symbol;
using Support::TempFolder;

const std::string kText = "$_vxrs --barcode=20 --data=Made123 -x30 -y100 -w70 -h25 $_vxre";

std::string Output(const Lines& arguments, const std::string& input = {}) {
  const Support::Finished finished =
      Support::Run({.arguments = arguments,
                    .environment = {{"ASAN_OPTIONS", "detect_leaks=0"}},
                    .input = input});
  EXPECT_EQ(finished.status, 0) << arguments[0] << ": " << finished.errors;
  return finished.output;
}

std::string HandWritten() {
  return "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n/Courier findfont 9 scalefont "
         "setfont\n50 700 moveto (" +
         kText + ") show\nshowpage\n%%EOF\n";
}

// The same text word by word, as programs write it that place each word themselves.
std::string WordByWord() {
  return "%!PS\n/Courier findfont 9 scalefont setfont /w { 3 0 rmoveto show } def 50 700 moveto\n"
         "($_vxrs) show (--barcode=20) w (--data=Made123) w\n(-x30)w(-y100)w (-w70)w % (x)\n"
         "(-h25)w ($_vxre) w showpage\n";
}

std::string Pdf(const TempFolder& folder) {
  const std::string pdf = folder.file("job.pdf");
  Output({"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pdfwrite", "-sOutputFile=" + pdf,
          "-"},
         HandWritten());
  return pdf;
}

std::string Cairo(const char* family) {
  const TempFolder folder;
  const std::string file = folder.file("job.ps");
  Output({VEXTORIN_CAIRO_JOB, file, family, "595", "842", "50", "100", kText});
  return Support::ReadFile(file);
}

std::string FromPdf(const Lines& converter) {
  const TempFolder folder;
  Lines arguments = converter;
  arguments.push_back(Pdf(folder));
  arguments.push_back("-");
  return Output(arguments);
}

struct Producer {
  const char* name;
  std::function<std::string()> job;
};

const Producer kProducers[] = {
    {"hand-written", HandWritten},
    {"word by word", WordByWord},
    {"groff, Courier",
     [] {
       return Output({"groff", "-Tps"}, ".nf\n.ft CR\n" + kText + "\n");
     }},
    {"groff, Times",
     [] {
       return Output({"groff", "-Tps"}, ".nf\n" + kText + "\n");
     }},
    {"enscript",
     [] {
       return Output({"enscript", "-q", "-B", "-p", "-"}, kText + "\n");
     }},
    {"enscript with header",
     [] {
       return Output({"enscript", "-q", "-p", "-"}, kText + "\n");
     }},
    {"cairo, sans", [] { return Cairo("sans"); }},
    {"cairo, monospace", [] { return Cairo("monospace"); }},
    {"poppler", [] { return FromPdf({"pdftops"}); }},
    {"poppler, level 1",
     [] {
       return FromPdf({"pdftops", "-level1"});
     }},
    {"poppler over cairo",
     [] {
       return FromPdf({"pdftocairo", "-ps"});
     }},
};

TEST(Producers, BarcodesAppearInTheJobsOfEveryProgram) {
  for (const Producer& producer : kProducers) {
    SCOPED_TRACE(producer.name);
    const std::string job = producer.job();
    ASSERT_TRUE(job.starts_with("%!PS")) << job.substr(0, 40);
    const Program::Result result = Filter().run(job);
    EXPECT_EQ(result.errors, "");
    const Rendering rendering = Support::Render(result.output, 200);
    EXPECT_EQ(rendering.messages, "");
    ASSERT_EQ(rendering.pages.size(), 1u);
    const std::vector<Symbol> symbols = Support::Decode(rendering.pages[0]);
    ASSERT_EQ(symbols.size(), 1u) << Support::Describe(symbols);
    EXPECT_EQ(symbols[0].data, "Made123");
    EXPECT_NEAR(symbols[0].x, 30 + 70 / 2.0, 3) << Support::Describe(symbols);
    EXPECT_NEAR(symbols[0].y, 100 + 25 / 2.0, 25 / 2.0) << Support::Describe(symbols);
  }
}

TEST(Producers, TheRestOfTheirJobsStaysAsItIs) {
  for (const Producer& producer : kProducers) {
    SCOPED_TRACE(producer.name);
    const std::string job = producer.job();
    std::string blanked = job;
    // Every producer but one writes the text in one piece.
    const std::size_t place = blanked.find(kText);
    if (place == blanked.npos) continue;
    blanked.replace(place, kText.size(), kText.size(), ' ');
    EXPECT_EQ(Support::WithoutBarcodes(Filter().run(job).output) == blanked, true);
  }
}

TEST(Producers, JobsWithoutSequencesPassUnchanged) {
  const std::string text = "An ordinary letter, (c) 2026 <a@b.c> 100 % \\ $\n";
  const TempFolder folder;
  const std::string pdf = Pdf(folder);
  const Lines commands[] = {
      {"groff", "-Tps"},
      {"enscript", "-q", "-p", "-"},
      {"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=ljet4", "-sOutputFile=%stdout",
       folder.write("plain.ps",
                    "%!PS\n/Times-Roman findfont 99 scalefont setfont 50 500 moveto "
                    "(plain) show showpage\n")},
      {"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pxlmono", "-sOutputFile=%stdout",
       folder.file("plain.ps")},
      {"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=ps2write", "-sOutputFile=%stdout",
       folder.file("plain.ps")},
      {"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pdfwrite", "-sOutputFile=%stdout",
       folder.file("plain.ps")},
      {"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=png16m", "-sOutputFile=%stdout",
       folder.file("plain.ps")},
  };
  for (const Lines& command : commands) {
    SCOPED_TRACE(command[0] + " " + (command.size() > 5 ? command[5] : ""));
    const std::string job = Output(command, text);
    ASSERT_GT(job.size(), 500u);
    const Program::Result result = Filter().run(job);
    EXPECT_TRUE(result.output == job);
    EXPECT_EQ(result.errors, "");
  }
}

}  // namespace
