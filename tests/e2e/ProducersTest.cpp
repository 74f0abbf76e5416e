// Jobs as real programs write them: the text of a sequence typed into a document comes out of each
// of them in its own form, and the barcode still stands on the page.
#include "tests/support/Decode.h"
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace Support;

const std::string kText = "$_vxrs --barcode=20 --data=Made123 -x30 -y100 -w70 -h25 $_vxre";

std::string Output(const Lines& arguments, const std::string& input = {}) {
  const Finished finished = Support::Run({.arguments = arguments,
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
  return Output(Join(converter, {Pdf(folder), "-"}));
}

struct Producer {
  const char* name;
  std::string (*job)();
};

std::string Groff(const std::string& requests) {
  return Output({"groff", "-Tps"}, requests + kText + "\n");
}

std::string Enscript(const Lines& options) {
  return Output(Join({"enscript", "-q", "-p", "-"}, options), kText + "\n");
}

const Producer kProducers[] = {
    {"hand-written", HandWritten},
    {"word by word", WordByWord},
    {"groff, Courier", [] { return Groff(".nf\n.ft CR\n"); }},
    {"groff, Times", [] { return Groff(".nf\n"); }},
    {"enscript", [] { return Enscript({"-B"}); }},
    {"enscript with header", [] { return Enscript({}); }},
    {"cairo, sans", [] { return Cairo("sans"); }},
    {"cairo, monospace", [] { return Cairo("monospace"); }},
    {"poppler", [] { return FromPdf({"pdftops"}); }},
    {"poppler, level 1", [] { return FromPdf(Split("pdftops -level1", " ")); }},
    {"poppler over cairo", [] { return FromPdf(Split("pdftocairo -ps", " ")); }},
};

TEST(Producers, BarcodesAppearInTheirJobsAndTheRestStaysAsItIs) {
  for (const Producer& producer : kProducers) {
    SCOPED_TRACE(producer.name);
    const std::string job = producer.job();
    ASSERT_TRUE(job.starts_with("%!PS")) << job.substr(0, 40);
    const Program::Result result = Filter().run(job);
    EXPECT_EQ(result.errors, "");
    const Symbol symbol = DecodeJob(result.output, 200);
    EXPECT_EQ(symbol.data, "Made123");
    EXPECT_NEAR(symbol.x, 30 + 70 / 2.0, 3);
    EXPECT_NEAR(symbol.y, 100 + 25 / 2.0, 25 / 2.0);
    // Some write the text in one piece.
    std::string blanked = job;
    const std::size_t place = blanked.find(kText);
    if (place == blanked.npos) continue;
    blanked.replace(place, kText.size(), kText.size(), ' ');
    EXPECT_TRUE(WithoutBarcodes(result.output) == blanked);
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
