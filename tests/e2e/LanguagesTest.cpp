// The same barcodes in every output language, as pictures beside the PostScript one.
#include "tests/e2e/LanguagePictures.h"
#include "tests/e2e/PclPicture.h"
#include "tests/support/Decode.h"
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace {

using namespace Support;

struct Kind {
  const char* name;
  const char* settings;
  Lines read{};       // by ZXing, or several by ZBar; none where neither knows the symbology
  int reach = 0;      // in dots: how far edges that aren't on dots may be from each other
  int rotations = 4;  // that make a difference
};
const Kind kKinds[] = {
    {"linear", "barcode=20 data=Hello_123 width=60 height=20", {"Hello_123"}},
    {"with guard bars", "barcode=13 data=400638133393 width=50 height=25", {"4006381333931"}},
    {"stacked", "barcode=55 data=stacked width=60 height=25 PDFcols=3", {"stacked"}},
    {"matrix",
     "barcode=58 data=https://example.com/a width=30 height=30",
     {"https://example.com/a"}},
    {"two widths", "barcode=8 data=CODE39 width=60 height=15", {"CODE39"}},
    {"four states", "barcode=70 data=W1J0TR01 width=55 height=8"},
    {"hexagons", "barcode=57 data=MaxiCode_123 width=30 height=30", {"MaxiCode_123"}, 2},
    {"dots", "barcode=115 data=DotCode123 width=30 height=20", {}, 2},
    {"grid",
     "barcode=58 data=0123456789abcdefghij multiple=on rows=1 columns=2 datalimit=10 hdist=6 "
     "width=56 height=25",
     {"0123456789", "abcdefghij"},
     0,
     1},
};

// The program turns the box along with the barcode. A square page; places count from its upper left
// corner, or its lower one.
std::string Settings(const Kind& kind, int rotation, const std::string& more) {
  const std::string where = more.find("PCL") != more.npos || more.find("IMAGE") != more.npos
                                ? " ypos=20"
                                : " ypos=80 origin=top";
  return std::string(kind.settings) +
         " xpos=20 pos=abs dpi=300 optimalwidth rot=" + std::to_string(rotation * 90) + where +
         " " + more;
}

std::string Output(const Kind& kind, int rotation, const std::string& more) {
  const Program::Result result = StandAlone(Settings(kind, rotation, more)).run();
  EXPECT_EQ(result.errors, "") << more;
  return result.output;
}

struct Ink {
  int left, top, right, bottom;
};
bool IsInk(const Page& page, int x, int y) {
  if (x < 0 || y < 0 || x >= page.width || y >= page.height) return false;
  return page.gray[static_cast<std::size_t>(y * page.width + x)] < 128;
}
Ink InkOf(const Page& page) {
  Ink ink = {page.width, page.height, 0, 0};
  for (int y = 0; y < page.height; ++y) {
    for (int x = 0; x < page.width; ++x) {
      if (!IsInk(page, x, y)) continue;
      ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
             std::max(ink.bottom, y + 1)};
    }
  }
  return ink;
}

// Dots of ink of one picture that are more than `reach` dots from any of the other, once their
// lower left corners are put on each other.
int Strays(const Page& page, const Page& other, int reach) {
  const Ink a = InkOf(page), b = InkOf(other);
  int strays = 0;
  for (int y = a.top; y < a.bottom; ++y) {
    for (int x = a.left; x < a.right; ++x) {
      if (!IsInk(page, x, y)) continue;
      bool near = false;
      for (int v = -reach; v <= reach; ++v) {
        for (int h = -reach; h <= reach; ++h) {
          near |= IsInk(other, x - a.left + b.left + h, y - a.bottom + b.bottom + v);
        }
      }
      strays += !near;
    }
  }
  return strays;
}

void ExpectSame(const Page& page, const Page& postScript, int reach) {
  EXPECT_EQ(Strays(page, postScript, reach), 0);
  EXPECT_EQ(Strays(postScript, page, reach), 0);
}

void ExpectAt(const Page& page, const Page& postScript, int fromLeft, int fromTop) {
  const Ink ink = InkOf(page), expected = InkOf(postScript);
  EXPECT_NEAR(ink.left + fromLeft, expected.left, 2);
  EXPECT_NEAR(ink.top + fromTop, expected.top, 2);
}

// Turned clockwise.
Page Turned(const Page& page) {
  Page turned = page;
  std::swap(turned.width, turned.height);
  for (int y = 0; y < turned.height; ++y) {
    for (int x = 0; x < turned.width; ++x) {
      turned.gray[static_cast<std::size_t>(y * turned.width + x)] =
          page.gray[static_cast<std::size_t>((page.height - 1 - x) * page.width + y)];
    }
  }
  return turned;
}

// ZXing reads MaxiCode upright only.
void ExpectRead(Page page, const Kind& kind, int quarterTurns) {
  if (kind.read.empty()) return;
  if (kind.reach == 0) quarterTurns = 0;
  for (; quarterTurns > 0; --quarterTurns) page = Turned(page);
  Lines read;
  for (const Symbol& symbol : kind.read.size() == 1 ? Decode(page) : DecodeWithZBar(page)) {
    read.push_back(symbol.data);
  }
  std::sort(read.begin(), read.end());
  EXPECT_EQ(read, kind.read);
}

using Parameter = std::pair<int, int>;  // the kind and its quarter turns

constexpr int kTextReach = 2;  // in dots: of the outlines of different interpreters

class Languages : public testing::TestWithParam<Parameter> {
 protected:
  const Kind& kind = kKinds[GetParam().first];
  int rotation = GetParam().second;
  std::string output(const std::string& more) const { return Output(kind, rotation, more); }
  Page postScript = kPostScript.paint(output("format=ps text=hide"));
  Page withText = kPostScript.paint(output("format=ps text=below"));
};

TEST_P(Languages, PclIsTheSameDotForDot) {
  for (const Language& mode : kPclModes) {
    SCOPED_TRACE(mode.name);
    const std::string settings = mode.settings, pcl = output(settings + " text=hide");
    const Page page = mode.paint(pcl);
    ExpectSame(page, postScript, kind.reach);
    ExpectAt(page, postScript, 0, 0);
    ExpectRead(page, kind, rotation);
    EXPECT_NO_THROW(PaintPcl(pcl, 600, kPageSide));  // whole dots there, too
    ExpectRead(mode.paint(output(settings)), kind, rotation);
    ExpectSame(mode.paint(output(settings + " text=hide pos=rel")), page, 0);
  }
}

TEST_P(Languages, BitmapsAreTheSamePixelForPixel) {
  const int box = std::lround(20 / 25.4 * kLanguageDpi);
  for (const Language& format : kBitmaps) {
    SCOPED_TRACE(format.name);
    const std::string settings = format.settings, bytes = output(settings + " text=hide");
    EXPECT_EQ(bytes, output(settings + " text=hide"));
    const Page page = format.paint(bytes);
    ExpectSame(page, postScript, kind.reach);
    ExpectAt(page, postScript, box, box);
    const Page labelled = format.paint(output(settings + " text=below"));
    ExpectSame(labelled, withText, kTextReach);
    if (kind.reach == 0) ExpectRead(labelled, kind, rotation);
  }
}

TEST_P(Languages, PdfIsTheSameButForTheFillRule) {
  for (const Language& language : kPdfKinds) {
    for (const bool text : {false, true}) {
      SCOPED_TRACE(language.name + std::string(text ? " with text" : ""));
      const std::string settings =
          language.settings + std::string(text ? " text=below" : " text=hide");
      const Page& expected = text ? withText : postScript;
      const std::string bytes = output(settings);
      EXPECT_EQ(bytes, output(settings));
      const Page page = language.paint(bytes);
      ExpectSame(page, expected, std::max(text ? kTextReach : 1, kind.reach));
      if (page.width == expected.width) ExpectAt(page, expected, 0, 0);
      // ZXing finds MaxiCode on a page of its own only.
      if (!text || kind.reach == 0) ExpectRead(page, kind, rotation);
    }
  }
}

// A job that turns to PCL and, behind it, to PostScript.
TEST_P(Languages, JobsHoldThemAsTheyAreAlone) {
  const std::string begin = "\033%-12345X@PJL ENTER LANGUAGE=PCL\r\n\033EBefore ";
  const std::string end =
      "After\033E\033%-12345X@PJL ENTER LANGUAGE=POSTSCRIPT\r\n%!PS\nshowpage\n\033%-12345X";
  for (const Language& mode : kPclModes) {
    SCOPED_TRACE(mode.name);
    const std::string alone = output(mode.settings + std::string(" pos=rel"));
    Lines settings = Split(Settings(kind, rotation, " format=PCL pos=rel"), " ");
    std::string sequence = "$_vxrs";
    for (const std::string& option : settings) {
      if (!option.empty()) sequence += " --" + option;
    }
    sequence += std::string(mode.settings).find("nohpgl") != std::string::npos
                    ? " --pclmode=pcl5nohpgl $_vxre"
                    : " $_vxre";
    const std::string job = begin + sequence + end;
    EXPECT_TRUE(Filter("remove").run(job).output == begin + alone + end);
    EXPECT_TRUE(Filter().run(job).output == begin + alone + Blanks(sequence.size() - 1) + end);
  }
}

std::string NameOf(const testing::TestParamInfo<Parameter>& info) {
  std::string name = kKinds[info.param.first].name;
  std::replace(name.begin(), name.end(), ' ', '_');
  return name + "_" + std::to_string(info.param.second * 90);
}
std::vector<Parameter> Parameters() {
#ifdef __SANITIZE_ADDRESS__
  constexpr int kMost = 1;  // they take ten times as long
#else
  constexpr int kMost = 4;
#endif
  std::vector<Parameter> all;
  for (int kind = 0; kind < static_cast<int>(std::size(kKinds)); ++kind) {
    for (int turns = 0; turns < std::min(kMost, kKinds[kind].rotations); ++turns) {
      all.emplace_back(kind, turns);
    }
  }
  return all;
}
INSTANTIATE_TEST_SUITE_P(Kinds, Languages, testing::ValuesIn(Parameters()), NameOf);

// Of a size where modules take numbers of many digits.
TEST(LanguagesSize, PclIsSmall) {
  const std::string qr = "barcode=58 QRversion=4 xpos=12.345 ypos=67.891 dpi=300 ";
  for (const Language& mode : kPclModes) {
    SCOPED_TRACE(mode.name);
    EXPECT_LT(Output(kKinds[0], 0, mode.settings).size(), 1024u);
    for (const char* more :
         {"width=30 height=30 data=Forty_bytes_of_text_for_a_QR_Code_of_4.",
          "width=60 height=60 QRecl=3 data=34_bytes_that_fill_all_of_level_H",
          "width=60 height=60 dpi=600 QRecl=0 data=0123456789012345678901234567890123456789"
          "abcdefghijklmnopqrstuvwxyz.ABCDEFGHI"}) {
      const Program::Result result = StandAlone(qr + more + " " + mode.settings).run();
      EXPECT_EQ(result.errors, "");
      EXPECT_LT(result.output.size(), 4096u) << more;
      EXPECT_GT(result.output.size(), 2048u) << more;
    }
  }
}

}  // namespace
