// Pictures and fonts beside a sequence: their bytes stay, and the barcode appears.
#include "tests/support/Decode.h"
#include "tests/support/Jobs.h"
#include "tests/support/Pictures.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

namespace {

using namespace Support;

const std::string kSequence = "$_vxrs --barcode=20 --data=Made123 -w60 -h15 $_vxre";

// A page with the picture between two lines of text, the second of which holds `text`.
std::string JobWith(const std::string& picture, const std::string& text) {
  return "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n"
         "/Courier findfont 8 scalefont setfont\n50 700 moveto (A heading, 100 % done) show\n"
         "gsave 300 500 translate 150 150 scale\n" +
         picture + "grestore\n50 150 moveto (" + text +
         ") show\n50 100 moveto (A footer) show\nshowpage\n%%EOF\n";
}

// What stays in the sequence's place.
std::string Left(const std::string& settings) {
  return settings == "insert=auto" ? "" : Blanks(kSequence.size());
}

TEST(Pictures, StayAndTheBarcodeBehindThemReads) {
  std::string pages;
  std::vector<std::string> names;
  for (const std::string settings : {"insert=beforestring", "insert=auto"}) {
    for (const Picture& picture : PicturesOf(EveryPair(1), 256)) {
      SCOPED_TRACE(picture.name + (", " + settings));
      const Program::Result result = Filter(settings).run(JobWith(picture.code, kSequence));
      EXPECT_EQ(result.errors, "");
      EXPECT_TRUE(WithoutBarcodes(result.output) == JobWith(picture.code, Left(settings)));
      names.push_back(picture.name + (", " + settings));
      pages += result.output;
    }
  }
  const Rendering rendering = Render(pages, 150);
  EXPECT_EQ(rendering.messages, "");
  ASSERT_EQ(rendering.pages.size(), names.size());
  for (std::size_t page = 0; page < names.size(); ++page) {
    SCOPED_TRACE(names[page]);
    const std::vector<Symbol> symbols = Decode(rendering.pages[page]);
    ASSERT_EQ(symbols.size(), 1u);
    EXPECT_EQ(symbols[0].data, "Made123");
    EXPECT_NEAR(symbols[0].x, 17.6 + 30, 4);
    EXPECT_NEAR(symbols[0].y, 52.9 + 7.5, 7.5);
  }
}

TEST(Pictures, StayWhateverTheirBytesAreAndHoweverTheyArrive) {
  struct Row {
    unsigned seed;
    std::size_t side, chunk;
  };
  std::vector<Row> rows = {{1, 64, 1}, {2, 64, 7}, {3, 180, 4096}};
  for (unsigned seed = 4; seed < 12; ++seed) rows.push_back({seed, 64 + seed * 9, 0});
  rows.push_back({12, 700, 0});
  for (const auto& [seed, side, chunk] : rows) {
    for (const Picture& picture : PicturesOf(Noise(seed, side * side), side)) {
      for (const std::string settings : {"insert=beforestring", "insert=auto"}) {
        SCOPED_TRACE(picture.name + (", " + settings + ", seed ") + std::to_string(seed));
        Program program = Recorded(Filter(settings));
        program.inputChunk = chunk;
        const Program::Result result = program.run(JobWith(picture.code, kSequence));
        EXPECT_EQ(result.errors, "");
        EXPECT_TRUE(WithoutBarcodes(result.output) == JobWith(picture.code, Left(settings)));
      }
    }
  }
}

// Whole pages as data, in which nothing can be inserted.
TEST(Pictures, CountedStreamsStayAndTheirSequencesAreReported) {
  const std::string contents = "BT (a) Tj (" + kSequence + ") Tj ET " + EveryPair(2) + "\n";
  const std::string job = "%!PS-Adobe-3.0\n%%Page: 1 1\n<</Type /Page /Length " +
                          std::to_string(contents.size()) + ">>stream\n" + contents +
                          "endstream\n(" + kSequence + ") show\n";
  const std::string line =
      "ERROR: vextorin: Error: A barcode will be missing: the sequence on page 1, at byte " +
      std::to_string(job.find(kSequence) + 1) + " of the job stands in a counted stream.\n";
  for (const std::string settings : {"insert=beforestring", "insert=auto"}) {
    for (const std::size_t chunk : {0u, 7u}) {
      Program program = Recorded(Filter(settings));
      program.inputChunk = chunk;
      const Program::Result result = program.run(job);
      std::string left = job;
      left.replace(job.rfind(kSequence), kSequence.size(), Left(settings));
      EXPECT_TRUE(WithoutBarcodes(result.output) == left) << settings;
      EXPECT_NE(result.output, left);
      EXPECT_EQ(result.errors, line);
    }
  }
}

}  // namespace
