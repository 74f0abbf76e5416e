// The same barcodes in every output language, as pictures beside the PostScript one.
#include "tests/e2e/PclPicture.h"
#include "tests/support/Decode.h"
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace Support;

constexpr int kDpi = 300;
constexpr int kSide = 100;  // of the page in millimetres

struct Kind {
  const char* name;
  const char* settings;
  const char* read;  // by ZXing
};
constexpr Kind kKinds[] = {
    {"linear", "barcode=20 data=Hello_123 width=60 height=20", "Hello_123"},
    {"with guard bars", "barcode=13 data=400638133393 width=50 height=25", "4006381333931"},
    {"stacked", "barcode=55 data=stacked width=60 height=25 PDFcols=3", "stacked"},
    {"matrix", "barcode=58 data=https://example.com/a width=30 height=30", "https://example.com/a"},
    {"two widths", "barcode=8 data=CODE39 width=60 height=15", "CODE39"},
};

// The program turns the box along with the barcode. A square page; places count from its upper left
// corner, or its lower one.
std::string Settings(const Kind& kind, int rotation, const std::string& more) {
  const std::string where = more.find("PCL") != more.npos || more.find("IMAGE") != more.npos
                                ? " ypos=20"
                                : " ypos=80 origin=top";
  std::string settings = std::string(kind.settings) + " xpos=20 pos=abs dpi=300 optimalwidth rot=" +
                         std::to_string(rotation * 90) + where + " " + more;
  return settings;
}

std::string Output(const Kind& kind, int rotation, const std::string& more) {
  const Program::Result result = StandAlone(Settings(kind, rotation, more)).run();
  EXPECT_EQ(result.errors, "") << more;
  return result.output;
}

// A map of bits, of grey or of colours, without comments, as netpbm's tools write it.
Page ReadMap(const std::string& bytes) {
  Page page;
  page.dpi = kDpi;
  int kind = 0, begin = 0;
  if (std::sscanf(bytes.c_str(), "P%d %d %d%n", &kind, &page.width, &page.height, &begin) != 3) {
    return page;
  }
  begin += kind == 4 ? 1 : 5;  // behind the largest value, 255
  for (int y = 0; y < page.height; ++y) {
    for (int x = 0; x < page.width; ++x) {
      const auto at = [&](int i) {
        return static_cast<unsigned char>(bytes.at(size_t(begin + i)));
      };
      const int bit = at(kind == 4 ? y * ((page.width + 7) / 8) + x / 8 : 0) >> (7 - x % 8) & 1;
      const int level = at(kind == 4 ? 0 : (y * page.width + x) * (kind == 6 ? 3 : 1));
      page.gray.push_back(static_cast<std::uint8_t>(kind == 4 ? (bit ? 0 : 255) : level));
    }
  }
  return page;
}

Page Converted(const std::string& tool, const std::string& picture) {
  const Finished finished = Run({.arguments = {tool, "-quiet"}, .input = picture});
  EXPECT_EQ(finished.status, 0) << tool << finished.errors;
  return ReadMap(finished.output);
}

Page OnPaper(const std::string& postScript) {
  const Rendering rendering =
      Render("<</PageSize[283.4646 283.4646]>>setpagedevice\n" + postScript, kDpi);
  EXPECT_EQ(rendering.messages, "");
  return rendering.pages.empty() ? Page{} : rendering.pages[0];
}

// The document's page ends at the barcode's right and upper edge.
Page OfPdf(const std::string& pdf) {
  const TempFolder folder;
  const std::string file = folder.write("page.pdf", pdf);
  const Finished check = Run({.arguments = {"qpdf", "--check", file}});
  EXPECT_EQ(check.status, 0) << check.output << check.errors;
  const Rendering byGhostscript = Render(pdf, kDpi);
  EXPECT_EQ(byGhostscript.messages, "");
  const Finished poppler = Run({.arguments = {"pdftoppm", "-r", "300", "-gray", file}});
  EXPECT_EQ(poppler.errors, "");
  return ReadMap(poppler.output);
}

// The fragment on a page that has no resources.
Page OfFragment(const std::string& operators) {
  std::string pdf = "%PDF-1.4\n", table = "xref\n0 5\n0000000000 65535 f \n";
  const std::string objects[] = {
      "<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Count 1/Kids[3 0 R]>>",
      "<</Type/Page/Parent 2 0 R/MediaBox[0 0 283.4646 283.4646]/Resources<<>>/Contents 4 0 R>>",
      "<</Length " + std::to_string(operators.size()) + ">>stream\n" + operators + "\nendstream"};
  for (int i = 0; i < 4; ++i) {
    char entry[24];
    std::snprintf(entry, sizeof entry, "%010zu 00000 n \n", pdf.size());
    table += entry;
    pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
  }
  return OfPdf(pdf + table + "trailer<</Size 5/Root 1 0 R>>\nstartxref\n" +
               std::to_string(pdf.size()) + "\n%%EOF\n");
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

void ExpectRead(const Page& page, const Kind& kind) {
  const std::vector<Symbol> symbols = Decode(page);
  ASSERT_EQ(symbols.size(), 1u);
  EXPECT_EQ(symbols[0].data, kind.read);
}

class Languages : public testing::TestWithParam<std::tuple<int, int>> {
 protected:
  const Kind& kind = kKinds[std::get<0>(GetParam())];
  int rotation = std::get<1>(GetParam());
  std::string output(const std::string& more) const { return Output(kind, rotation, more); }
  Page postScript = OnPaper(output("format=ps text=hide"));
};

TEST_P(Languages, PclIsTheSameDotForDot) {
  for (const std::string mode : {"pclmode=pcl5 ", "pclmode=pcl5nohpgl "}) {
    SCOPED_TRACE(mode);
    const std::string pcl = output(mode + "format=PCL nooverhead text=hide");
    const Page page = PaintPcl(pcl, kDpi, kSide);
    ExpectSame(page, postScript, 0);
    ExpectAt(page, postScript, 0, 0);
    ExpectRead(page, kind);
    EXPECT_NO_THROW(PaintPcl(pcl, 600, kSide));  // whole dots there, too
    ExpectRead(PaintPcl(output(mode + "format=PCL nooverhead"), kDpi, kSide), kind);
    const std::string relative = output(mode + "format=PCL nooverhead text=hide pos=rel");
    ExpectSame(PaintPcl(relative, kDpi, kSide), page, 0);
  }
}

TEST_P(Languages, BitmapsAreTheSamePixelForPixel) {
  const int box = std::lround(20 / 25.4 * kDpi);
  for (const auto& [format, tool] : {std::pair{"BMP", "bmptopnm"},
                                     {"GIF", "giftopnm"},
                                     {"PNG", "pngtopnm"},
                                     {"TIF", "tifftopnm"},
                                     {"JPG", "jpegtopnm"}}) {
    SCOPED_TRACE(format);
    const std::string settings = std::string("format=IMAGE imageformat=") + format;
    const std::string bytes = output(settings + " text=hide");
    EXPECT_EQ(bytes, output(settings + " text=hide"));
    const Page page = Converted(tool, bytes);
    ExpectSame(page, postScript, 0);
    ExpectAt(page, postScript, box, box);
    ExpectRead(Converted(tool, output(settings)), kind);
  }
}

TEST_P(Languages, PdfIsTheSameButForTheFillRule) {
  const Page withText = OnPaper(output("format=ps text=below"));
  for (const std::string text : {"text=hide", "text=below"}) {
    SCOPED_TRACE(text);
    const Page& expected = text == "text=hide" ? postScript : withText;
    const std::string pdf = output("format=PDF " + text);
    EXPECT_EQ(pdf, output("format=PDF " + text));
    const Page document = OfPdf(pdf), fragment = OfFragment(output("format=PDFFRAG " + text));
    if (text == "text=hide") ExpectSame(document, expected, 1);
    if (text == "text=hide") ExpectSame(fragment, expected, 1);
    ExpectAt(fragment, expected, 0, 0);
    ExpectRead(document, kind);
    ExpectRead(fragment, kind);
  }
}

std::string NameOf(const testing::TestParamInfo<std::tuple<int, int>>& info) {
  std::string name = kKinds[std::get<0>(info.param)].name;
  std::replace(name.begin(), name.end(), ' ', '_');
  return name + "_" + std::to_string(std::get<1>(info.param) * 90);
}
#ifdef __SANITIZE_ADDRESS__
constexpr int kRotations = 1;  // they take ten times as long
#else
constexpr int kRotations = 4;
#endif
INSTANTIATE_TEST_SUITE_P(Kinds, Languages,
                         testing::Combine(testing::Range(0, static_cast<int>(std::size(kKinds))),
                                          testing::Range(0, kRotations)),
                         NameOf);

TEST(LanguagesSize, PclIsSmall) {
  const Kind qr = {
      "", "barcode=58 QRversion=4 data=Forty_bytes_of_text_for_a_QR_Code_of_4. width=30 height=30",
      ""};
  for (const std::string mode : {"pclmode=pcl5 ", "pclmode=pcl5nohpgl "}) {
    EXPECT_LT(Output(kKinds[0], 0, mode + "format=PCL nooverhead").size(), 1024u);
    EXPECT_LT(Output(qr, 0, mode + "format=PCL nooverhead").size(), 4096u);
  }
}

}  // namespace
