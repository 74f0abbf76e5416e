#include "library/layout/Layout.h"
#include "library/symbology/Encode.h"
#include "library/writer/PostScriptWriter.h"
#include "tests/library/ScanSymbol.h"
#include "tests/support/Render.h"
#include "tests/support/Run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>
#include <vector>

namespace Library {
namespace {

using Support::Page;
using Support::Render;
using Support::Rendering;

constexpr Color kWhite = {{1, 1, 1, 0}};
constexpr int kPagePoints = 288;  // a page is that wide and high

std::string OnPage(const std::string& body) {
  const std::string size = std::to_string(kPagePoints);
  return "%!\n<< /PageSize [" + size + " " + size + "] >> setpagedevice\n" + body;
}

std::string Fragment(const Drawing& drawing) {
  return PostScriptWriter(false).write(drawing);
}

Drawing LayOutText(int type, const std::string& data, const BCRect& rectangle, int rotation = 0) {
  Options options = OptionsFor(type, data);
  options.rotation = rotation;
  return LayOut(Encode(options), options, rectangle);
}

Drawing BarsOf(const std::vector<Rectangle>& rectangles) {
  Drawing drawing;
  drawing.box = {0, 0, 90000, 90000};
  drawing.background = kWhite;
  drawing.rectangles = rectangles;
  return drawing;
}

// Bars and spaces of one module each, from `left` on.
Drawing Comb(double left, double module, int bars) {
  std::vector<Rectangle> rectangles;
  for (int i = 0; i < bars; ++i) {
    const auto edge = [&](int k) {
      return static_cast<std::int32_t>(std::lround(left + k * module));
    };
    rectangles.push_back({edge(2 * i), 20000, edge(2 * i + 1), 40000});
  }
  return BarsOf(rectangles);
}

// Where dark begins and ends along a row of pixels, or along a column from below.
std::vector<int> Edges(const Page& page, int line, bool alongColumn) {
  std::vector<int> edges;
  bool dark = false;
  const int length = alongColumn ? page.height : page.width;
  for (int i = 0; i < length; ++i) {
    const int x = alongColumn ? line : i, y = alongColumn ? page.height - 1 - i : line;
    const bool next = page.gray[static_cast<std::size_t>(y * page.width + x)] < 128;
    if (next != dark) edges.push_back(i);
    dark = next;
  }
  return edges;
}

std::vector<int> RowEdges(const Rendering& rendering, double millimetresFromBelow) {
  const Page& page = rendering.pages.at(0);
  const auto line = static_cast<int>(page.height - millimetresFromBelow / 25.4 * page.dpi);
  return Edges(page, line, false);
}

void ExpectModules(const std::vector<int>& edges, std::size_t count, int dots) {
  ASSERT_EQ(edges.size(), count);
  for (std::size_t i = 1; i < edges.size(); ++i) EXPECT_EQ(edges[i] - edges[i - 1], dots);
}

Rendering RenderPages(const std::vector<std::string>& pages, int dpi) {
  std::string job;
  for (const std::string& page : pages) job += page + "showpage\n";
  return Render(OnPage(job), dpi);
}

TEST(DeviceDots, ModulesOfWholeDotsAreEqualAnywhereOnThePage) {
  constexpr int kPlaces = 8;
  for (int dpi : {203, 300, 600}) {
    for (int dots : {2, 3}) {
      const double dot = 25400.0 / dpi;
      std::vector<std::string> pages;
      for (int place = 0; place < kPlaces; ++place) {
        pages.push_back(Fragment(Comb(10000 + place * dot / kPlaces, dots * dot, 40)));
      }
      const Rendering rendering = RenderPages(pages, dpi);
      ASSERT_EQ(rendering.pages.size(), pages.size()) << rendering.messages;
      for (const Page& page : rendering.pages) {
        SCOPED_TRACE(testing::Message() << dpi << " dpi, " << dots << " dots");
        ExpectModules(Edges(page, page.height * 7 / 10, false), 80, dots);
      }
    }
  }
}

// An interpreter may paint every dot that a shape touches, or those whose centre it holds.
TEST(DeviceDots, DoNotDependOnTheFillRule) {
  const Drawing comb = Comb(10000, 3 * 25400.0 / 300, 40);
  for (const char* adjust : {"0", "0.5"}) {
    const std::string rule = std::string(adjust) + " dup .setfilladjust2\n";
    const Rendering rendering = Render(OnPage(rule + Fragment(comb) + "showpage\n"), 300);
    ASSERT_EQ(rendering.messages, "");
    SCOPED_TRACE(adjust);
    ExpectModules(RowEdges(rendering, 30), 80, 3);
  }
}

TEST(DeviceDots, BarsBelowOneDotStillShow) {
  const std::string job = Fragment(Comb(10000, 400, 10)) + "showpage\n";
  EXPECT_FALSE(RowEdges(Render(OnPage(job), 25), 30).empty());
}

TEST(DeviceDots, HoldOnPagesTurnedScaledAndMirrored) {
  const Drawing comb = Comb(1000, 3 * 25400.0 / 300, 20);
  const struct {
    const char* name;
    const char* setup;
    bool alongColumn;
    double line;  // millimetres from the left or lower edge
    int dots;
  } kRows[] = {
      {"turned left", "200 100 translate 90 rotate", true, 70.56 - 30, 3},
      {"mirrored", "200 0 translate -1 1 scale", false, 30, 3},
      {"doubled", "2 2 scale", false, 60, 6},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const Rendering rendering =
        Render(OnPage(std::string(row.setup) + "\n" + Fragment(comb) + "showpage\n"), 300);
    const Page& page = rendering.pages.at(0);
    const int line = static_cast<int>(row.line / 25.4 * 300);
    ExpectModules(Edges(page, row.alongColumn ? line : page.height - line, row.alongColumn), 40,
                  row.dots);
  }
}

// A drawing with everything in it.
Drawing Everything() {
  Drawing drawing = LayOutText(20, "It's \xC4", {10000, 40000, 60000, 20000}, 1);
  drawing.polygons.push_back({{{10000, 10000}, {12000, 10000}, {11000, 12000}}});
  drawing.rings.push_back({{20000, 20000}, 3000, 1000});
  drawing.texts.push_back({.text = "text",
                           .font = "No Such Font",
                           .size = 3000,
                           .anchor = {1000, 1000},
                           .width = 9000});
  return drawing;
}

TEST(EmbeddedPostScript, LeavesStacksGraphicsStateAndDictionariesAsTheyWere) {
  const std::string state =
      "[ count 1 sub countdictstack matrix currentmatrix aload pop currentpoint currentgray "
      "currentlinewidth currentfont /FontName get userdict length currentdict length "
      "globaldict length ] ==\n";
  for (const char* wrapper : {"", "gsave\n", "save\n"}) {
    const std::string job = "/Courier findfont 10 scalefont setfont .3 setgray 7 setlinewidth\n" +
                            std::string("30 40 moveto 1 2 3\n") + wrapper + state +
                            Fragment(Everything()) + state + "showpage\n";
    const std::string messages = Render(OnPage(job), 72).messages;
    const std::size_t end = messages.find('\n') + 1;
    EXPECT_EQ(messages.front(), '[');
    EXPECT_EQ(messages.substr(end), messages.substr(0, end));
  }
}

TEST(EmbeddedPostScript, StandsAloneTwiceOnOnePage) {
  const Drawing left = Comb(10000, 300, 10), right = Comb(40000, 300, 10);
  const Rendering rendering = Render(OnPage(Fragment(left) + Fragment(right) + "showpage\n"), 300);
  EXPECT_EQ(rendering.messages, "");
  // The second background covers the first symbol.
  EXPECT_EQ(RowEdges(rendering, 30).size(), 20u);
}

TEST(Eps, PrintsAsAJobOfItsOwnAndStatesItsBox) {
  const Rendering rendering = Render(PostScriptWriter(true).write(Everything()), 72);
  EXPECT_EQ(rendering.messages, "");
  EXPECT_EQ(rendering.pages.size(), 1u);
  Drawing drawing = BarsOf({{1000, 1000, 2000, 2000}});
  drawing.box = {-1000, 25400, 50800, 76200};
  const std::string eps = PostScriptWriter(true).write(drawing);
  EXPECT_TRUE(eps.starts_with("%!PS-Adobe-3.0 EPSF-3.0\n"));
  EXPECT_NE(eps.find("\n%%BoundingBox: -3 72 144 216\n"), std::string::npos) << eps;
  EXPECT_NE(eps.find("\n%%HiResBoundingBox: -2.834646 72 144 216\n"), std::string::npos);
}

TEST(HostileText, NeverBecomesCode) {
  const std::string attack = ")> show } stop %%EOF\n%%Page: 1 1\nshowpage quit\\\xFF<~";
  Drawing drawing = BarsOf({{10000, 10000, 20000, 20000}});
  drawing.texts.push_back({.text = attack,
                           .font = "/Helvetica) quit\n%%EOF",
                           .size = 3000,
                           .anchor = {1000, 30000},
                           .width = 9000});
  drawing.texts.push_back({.text = attack + std::string(2000, 'x'),
                           .font = "Helvetica",
                           .size = 300,
                           .anchor = {1000, 30000}});
  for (bool overhead : {false, true}) {
    const std::string output = PostScriptWriter(overhead).write(drawing);
    EXPECT_EQ(output.find("quit"), std::string::npos);
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(line.size(), 255u);
      for (const char* keyword : {"%%Page", "%%Trailer", "%%EOF"}) {
        EXPECT_FALSE(line.starts_with(keyword)) << line;
      }
      for (char c : line) EXPECT_TRUE(c >= ' ' && c <= '~') << static_cast<int>(c);
    }
    const Rendering rendering = Render(overhead ? output : OnPage(output + "showpage\n"), 72);
    EXPECT_EQ(rendering.pages.size(), 1u);
    EXPECT_EQ(rendering.messages.find("Error"), std::string::npos) << rendering.messages;
  }
}

TEST(Colours, AreThoseOfTheirMode) {
  Drawing drawing = BarsOf({{10000, 10000, 20000, 20000}});
  EXPECT_LT(Fragment(drawing).find("1 setgray"), Fragment(drawing).find("rectfill"));
  EXPECT_NE(Fragment(drawing).find("0 setgray"), std::string::npos);
  drawing.barColor = {{0, 0, .25, 0}};
  EXPECT_NE(Fragment(drawing).find("0 0 0.25 setrgbcolor"), std::string::npos);
  drawing.colorMode = 2;
  drawing.barColor = {{0, 0, 0, 1}};
  EXPECT_NE(Fragment(drawing).find("0 0 0 1 setcmykcolor"), std::string::npos);
  drawing.opaqueBackground = false;
  const std::string transparent = Fragment(drawing);
  EXPECT_EQ(transparent.find("setcmykcolor"), transparent.rfind("setcmykcolor"));
}

TEST(TextFonts, HaveTheLettersOfLatin1) {
  const auto inkOf = [](const char* text) {
    Drawing drawing = BarsOf({});
    drawing.texts = {{.text = text, .font = "Helvetica", .size = 30000, .anchor = {10000, 30000}}};
    const Rendering rendering = Render(OnPage(Fragment(drawing) + "showpage\n"), 72);
    EXPECT_EQ(rendering.messages, "");
    const auto& gray = rendering.pages.at(0).gray;
    return std::count_if(gray.begin(), gray.end(), [](std::uint8_t pixel) { return pixel < 128; });
  };
  EXPECT_GT(inkOf("\xC4"), inkOf("A"));  // dots on the A
  EXPECT_LT(inkOf("-"), inkOf("+"));
  // The hyphen beside a letter of Latin-1 is still a hyphen, not a minus.
  EXPECT_EQ(inkOf("-\xA0"), inkOf("-"));
}

// All letters of a page without the blanks between them, as Ghostscript finds them: UTF-8.
std::string ReadBack(const std::string& job) {
  std::string text =
      Support::Run(
          {.arguments = {"gs", "-q", "-dSAFER", "-sDEVICE=txtwrite", "-o", "-", "-"}, .input = job})
          .output;
  std::erase_if(text, [](char c) { return c == ' ' || c == '\n' || c == '\r'; });
  return text;
}

TEST(TextUnderBars, ReadsAsItsData) {
  const struct {
    int type, rotation;
    const char *data, *font, *text;
  } kRows[] = {
      {20, 0, "Hello World 123", "", "HelloWorld123"},
      {20, 2, "\\(It's) <\xC4\xE9-`>", "Courier", "\\(It's)<\u00C4\u00E9-`>"},
      {20, 0, "No such font", "Nowhere Bold", "Nosuchfont"},
      {16, 2, "(01)09501101530003(10)ABC", "Times", "(01)09501101530003(10)ABC"},
      {13, 0, "400638133393", "", "4006381333931"},
      {34, 0, "03600029145", "Arial", "036000291452"},
      {3, 0, "123", "", "0123"},
      {58, 0, "matrix", "Times-BoldItalic", "matrix"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.data);
    Options options = OptionsFor(row.type, row.data);
    options.printText = 1;
    options.fontName = row.font;
    options.rotation = row.rotation;
    const Drawing drawing = LayOut(Encode(options), options, {0, 40000, 70000, 0});
    EXPECT_EQ(ReadBack(PostScriptWriter(true).write(drawing)), row.text);
  }
}

TEST(Output, IsSmall) {
  for (const auto& [type, length, bytes] :
       {std::tuple{20, 15u, 2000u}, {20, 50u, 2400u}, {58, 32u, 4000u}, {58, 2300u, 100000u}}) {
    const std::string data(length, 'x');
    EXPECT_LT(Fragment(LayOutText(type, data, {10000, 60000, 60000, 10000})).size(), bytes);
  }
}

}  // namespace
}  // namespace Library
