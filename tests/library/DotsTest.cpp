#include "library/layout/Dots.h"
#include "library/layout/Layout.h"
#include "library/symbology/Encode.h"
#include "library/writer/PostScriptWriter.h"
#include "tests/library/ScanSymbol.h"
#include "tests/support/Decode.h"
#include "tests/support/Render.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace Library {
namespace {

using Change = std::function<void(Options&)>;

TEST(CharacterFit, TakesTheEdgesThatMeasureBest) {
  const struct {
    const char* widths;
    int total;
    std::vector<int> edges;
  } kRows[] = {
      {"211214", 22, {4, 6, 8, 12, 14, 22}},  // whole dots
      {"111", 7, {2, 5, 7}},
      // 1.91 dots a module. Each edge by itself gives 2 2 2 4 2 9: the sum of the first two
      // elements is as large as that of the next two, which are a module less.
      {"211214", 21, {4, 6, 8, 12, 14, 21}},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(FitCharacter(row.widths, row.total), row.edges) << row.widths << " in " << row.total;
  }
}

// What decoders compare: distances of edges of one kind, in modules.
double WorstDistance(const std::string& widths, int total, const std::vector<int>& edges) {
  int modules = 0;
  for (char c : widths) modules += c - '0';
  double worst = 0, at = 0;
  for (std::size_t i = 1; i + 1 < widths.size(); ++i) {
    const int from = i > 1 ? edges[i - 2] : 0;
    at = widths[i] + widths[i - 1] - 2 * '0';
    worst = std::max(worst, std::abs((edges[i] - from) * double(modules) / total - at));
  }
  return worst;
}

TEST(CharacterFit, IsNeverWorseThanRoundingAndKeepsEveryElement) {
  Options options =
      OptionsFor(20, "Some 1234567890 data for a few dozen different characters, Xyz?");
  const Symbol symbol = Encode(options);
  std::size_t run = 0;
  for (const int count : symbol.rows[0].characters) {
    std::string widths;
    int modules = 0;
    for (int i = 0; i < count; ++i, ++run) {
      widths += static_cast<char>('0' + symbol.rows[0].runs[run]);
      modules += symbol.rows[0].runs[run];
    }
    for (int total = modules; total <= 6 * modules; ++total) {
      SCOPED_TRACE(testing::Message() << widths << " in " << total);
      std::vector<int> rounded;
      int at = 0;
      for (char c : widths) {
        at += c - '0';
        rounded.push_back(static_cast<int>(std::floor(at * double(total) / modules + .5)));
      }
      const std::vector<int> edges = FitCharacter(widths, total);
      EXPECT_EQ(edges.back(), total);
      EXPECT_EQ(std::set<int>(edges.begin(), edges.end()).size(), edges.size());
      EXPECT_GT(edges.front(), 0);
      EXPECT_LE(WorstDistance(widths, total, edges), WorstDistance(widths, total, rounded) + 1e-9);
    }
  }
}

constexpr int kPagePoints = 288;  // a page is that wide and high

struct Case {
  const char* name;
  int type;
  const char* data;
  Change change;
};

const Case kCases[] = {
    {"Code 128", 20, "Hello World 123", {}},
    {"Code 128 with bearer bars and narrower bars", 20, "Hello 123",
     [](Options& o) { o.bearerBarType = 1, o.reduction = 20; }},
    {"EAN-13 with text", 13, "400638133393", {}},
    {"EAN-13 without text", 13, "400638133393", [](Options& o) { o.printText = 0; }},
    {"Code 39", 8, "CODE-39", {}},
    {"Code 39 in a ratio of its own", 8, "CODE-39", [](Options& o) { o.ratio = "1:3:1.41:3"; }},
    {"Interleaved 2 of 5", 3, "1234567890", {}},
    {"2 of 5 with wider bars in its frame", 2, "12345", {}},
    {"PDF417", 55, "PDF417 test data 12345", {}},
    {"QR Code", 58, "https://example.com/q?a=1", {}},
    {"Data Matrix, whole dots asked for", 71, "Data Matrix",
     [](Options& o) { o.optimalResolution = true; }},
    {"Data Matrix", 71, "Data Matrix 12", {}},
    {"Data Matrix, 12 by 36", 71, "DATA MATRIX",
     [](Options& o) { o.dataMatrix.rectangular = true; }},
    {"Data Matrix, narrower", 71, "Data Matrix", [](Options& o) { o.reduction = 29.3; }},
    {"Aztec Code", 92, "Aztec Code", {}},
    {"Aztec Code, not compact", 92, "2000 characters", [](Options& o) { o.aztec.size = 10; }},
    {"Aztec Code, narrower", 92, "Aztec", [](Options& o) { o.reduction = 29.3; }},
};

Drawing Draw(const Case& row, double module, int rotation) {
  Options options = OptionsFor(row.type, row.data);
  options.moduleWidth = module;
  options.rotation = rotation;
  if (row.change) row.change(options);
  return LayOut(Encode(options), options, {10017, 22000, 22000, 10013});
}

Support::Rendering RenderPages(const std::vector<Drawing>& drawings, int dpi,
                               const std::string& setup = "") {
  const std::string size = std::to_string(kPagePoints);
  std::string job = "%!\n<< /PageSize [" + size + " " + size + "] >> setpagedevice\n";
  for (const Drawing& drawing : drawings) {
    job += setup + PostScriptWriter(false).write(drawing) + "showpage\n";
  }
  return Support::Render(job, dpi);
}

// Dark dots of a page or of rectangles as rows of text, cut to where they are.
std::vector<std::string> Cut(const std::vector<std::string>& rows) {
  std::size_t left = std::string::npos, right = 0, top = rows.size(), bottom = 0;
  for (std::size_t y = 0; y < rows.size(); ++y) {
    const std::size_t first = rows[y].find('#');
    if (first == std::string::npos) continue;
    left = std::min(left, first), right = std::max(right, rows[y].rfind('#') + 1);
    top = std::min(top, y), bottom = y + 1;
  }
  std::vector<std::string> cut;
  for (std::size_t y = top; y < bottom; ++y) cut.push_back(rows[y].substr(left, right - left));
  return cut;
}

std::vector<std::string> DotsOf(const Support::Page& page) {
  std::vector<std::string> rows;
  for (int y = 0; y < page.height; ++y) {
    rows.emplace_back();
    for (int x = 0; x < page.width; ++x) {
      rows.back() += page.gray[static_cast<std::size_t>(y * page.width + x)] < 128 ? '#' : ' ';
    }
  }
  return Cut(rows);
}

std::vector<std::string> DotsOf(const Drawing& drawing, int dpi) {
  const auto side = static_cast<std::size_t>(kPagePoints / 72 * dpi);
  std::vector<std::string> rows(side, std::string(side, ' '));
  for (const Rectangle& r : RectanglesOnDots(drawing, dpi, dpi)) {
    for (int y = r.bottom; y < r.top; ++y) {
      std::fill(&rows[side - 1 - static_cast<std::size_t>(y)][static_cast<std::size_t>(r.left)],
                &rows[side - 1 - static_cast<std::size_t>(y)][static_cast<std::size_t>(r.right)],
                '#');
    }
  }
  return Cut(rows);
}

TEST(DeviceDots, AreThoseOfTheRuleWhenPostScriptIsPrinted) {
  for (int dpi : {203, 300, 600}) {
    std::vector<Drawing> drawings;
    std::vector<std::string> names;
    for (const Case& row : kCases) {
      for (double module : {201., 239., 286., 330., 401.}) {
        for (int rotation = 0; rotation < 4; ++rotation) {
          if (rotation != 0 && module != 286) continue;
          if (dpi == 600 && module > 240) continue;  // from 6 dots on nothing is fitted
          drawings.push_back(Draw(row, module, rotation));
          drawings.back().texts.clear();
          names.push_back(testing::PrintToString(row.name) + ", X " + std::to_string(module) +
                          ", turned " + std::to_string(rotation));
        }
      }
    }
    const Support::Rendering rendering = RenderPages(drawings, dpi);
    ASSERT_EQ(rendering.messages, "");
    ASSERT_EQ(rendering.pages.size(), drawings.size());
    for (std::size_t i = 0; i < drawings.size(); ++i) {
      EXPECT_EQ(DotsOf(rendering.pages[i]), DotsOf(drawings[i], dpi))
          << names[i] << " at " << dpi << " dpi";
    }
  }
}

TEST(DeviceDots, KeepTheSymbolInItsBoxAndItsTextInPlace) {
  for (const Case& row : kCases) {
    for (int dpi : {203, 300}) {
      for (double module = 200; module < 600; module += 10) {
        const Drawing drawing = Draw(row, module, 0);
        const double unit = dpi / 25400.0;
        for (const Rectangle& r : RectanglesOnDots(drawing, dpi, dpi)) {
          EXPECT_GE(r.left, drawing.box.left * unit - 1.01) << row.name << module;
          EXPECT_LE(r.right, drawing.box.right * unit + 1.01) << row.name << module;
          EXPECT_GE(r.bottom, drawing.box.bottom * unit - 1.01) << row.name << module;
          EXPECT_LE(r.top, drawing.box.top * unit + 1.01) << row.name << module;
        }
      }
    }
  }
}

// With a quiet zone round them.
Support::Page PageOf(const std::vector<std::string>& dots, int dpi) {
  constexpr std::size_t kQuiet = 20;
  const std::size_t width = dots[0].size() + 2 * kQuiet, height = dots.size() + 2 * kQuiet;
  Support::Page page{static_cast<int>(width), static_cast<int>(height), dpi, {}};
  page.gray.assign(width * height, 255);
  for (std::size_t y = 0; y < dots.size(); ++y) {
    std::transform(dots[y].begin(), dots[y].end(), &page.gray[(y + kQuiet) * width + kQuiet],
                   [](char dot) { return dot == '#' ? std::uint8_t{0} : std::uint8_t{255}; });
  }
  return page;
}

// The reader goes outwards from the bull's-eye and loses its way where modules that are a dot wider
// or narrower lie unevenly round it.
TEST(DeviceDots, OfAztecSymbolsAreReadFromTwoAModuleOn) {
  constexpr int kDpi = 203;
  for (const std::size_t length : {3u, 20u, 120u, 300u, 1000u}) {
    const std::string data(length, 'q');
    for (double dots = 2; dots < 5.5; dots += 0.09) {
      const Drawing drawing = Draw({"", 92, data.c_str(), {}}, dots * 25400 / kDpi, 0);
      const std::vector<Support::Symbol> read =
          Support::Decode(PageOf(DotsOf(drawing, kDpi), kDpi));
      EXPECT_EQ(read.size(), 1u) << length << " characters at " << dots << " dots a module";
      for (const Support::Symbol& symbol : read) EXPECT_EQ(symbol.data, data) << length;
    }
  }
}

// What a camera sees whose pixels are so many dots wide, out of focus by a pixel.
Support::Page Photograph(const Support::Page& page, double pixel) {
  const auto side = [pixel](int dots) { return static_cast<int>(dots / pixel) - 1; };
  Support::Page photo{side(page.width), side(page.height), page.dpi, {}};
  constexpr int kSteps = 8;  // of a mean over two pixels
  for (int y = 0; y < photo.height; ++y) {
    for (int x = 0; x < photo.width; ++x) {
      int sum = 0;
      for (int i = 0; i < kSteps * kSteps; ++i) {
        const double right = x + (i % kSteps + 0.5) * 2 / kSteps;
        const double down = y + (i / kSteps + 0.5) * 2 / kSteps;
        sum += page.gray[std::size_t(int(down * pixel) * page.width + int(right * pixel))];
      }
      photo.gray.push_back(static_cast<std::uint8_t>(sum / (kSteps * kSteps)));
    }
  }
  return photo;
}

// In columns of one dot lone modules would be too faint: 79 of these are read then.
TEST(DeviceDots, OfSmallDataMatrixSymbolsAreReadThroughACamera) {
  constexpr int kDpi = 203;
  int tried = 0, read = 0;
  for (const char* data : {"Data Matrix 12", "0104012345123456", "Lot 42-b", "ABC", "x5/7!"}) {
    for (double dots = 1.5; dots < 1.95; dots += 0.05) {
      const Drawing drawing = Draw({"", 71, data, {}}, dots * 25400 / kDpi, 0);
      for (const double pixel : {0.5, 0.6, 0.7}) {
        const Support::Page photo = Photograph(PageOf(DotsOf(drawing, kDpi), kDpi), pixel);
        const std::vector<Support::Symbol> found = Support::Decode(photo);
        ++tried;
        read += found.size() == 1 && found[0].data == data;
      }
    }
  }
  EXPECT_GE(read, 100) << "of " << tried;
}

// With gaps between characters these stay where they are, and the gaps take what is left.
TEST(DeviceDots, OfElementsOfTwoWidthsAreAlikeInEachWidth) {
  constexpr int kDpi = 203;
  const struct {
    int type;
    const char* data;
    bool gaps;
  } kSymbols[] = {{1, "123-45", true},   {3, "1234567890", false}, {4, "12345", false},
                  {6, "12345", false},   {8, "CODE-39", true},     {18, "A3785B", true},
                  {46, "1234AF", false}, {47, "12345", false},     {21, "2134807501640", false},
                  {52, "2758089", true}};
  for (const auto& row : kSymbols) {
    for (const double module : {239., 286., 330., 401.}) {
      SCOPED_TRACE(testing::Message() << row.type << ", X " << module);
      const Drawing drawing = Draw({"", row.type, row.data, {}}, module, 0);
      std::vector<Rectangle> bars = RectanglesOnDots(drawing, kDpi, kDpi);
      std::sort(bars.begin(), bars.end(),
                [](const Rectangle& a, const Rectangle& b) { return a.left < b.left; });
      const Symbol symbol = Encode(OptionsFor(row.type, row.data));
      const std::vector<int>& runs = symbol.rows[0].runs;
      ASSERT_EQ(2 * bars.size(), runs.size() + 1);
      std::set<int> narrow, wide;
      for (std::size_t i = 0; i < bars.size(); ++i) {
        (runs[2 * i] == 1 ? narrow : wide).insert(bars[i].width());
      }
      EXPECT_EQ(narrow.size(), 1u);
      EXPECT_EQ(wide.size(), 1u);
      const double unit = kDpi / 25400.0, length = drawing.box.width() * unit;
      const int drawn = bars.back().right - bars.front().left;
      EXPECT_NEAR(drawn, length, row.gaps ? 3 * *narrow.begin() : length);
    }
  }
}

TEST(DeviceDots, GoByWholeModulesWhereThatCostsLittle) {
  BarField field;
  field.columns = 100;
  field.mayShrink = true;
  for (const auto& [dots, expected] : {std::pair{1.92, 1.92},
                                       {2.0, 2.0},
                                       {1.996, 2.0},
                                       {2.5, 2.0},
                                       {2.51, 2.51},
                                       {2.996, 3.0},
                                       {3.4, 3.4}}) {
    EXPECT_DOUBLE_EQ(DotsPerModule(field, dots), expected) << dots;
  }
  field.wholeDots = true;
  for (const auto& [dots, expected] :
       {std::pair{1.5, 1.0}, {1.6, 1.6}, {2.9, 2.0}, {3.9, 3.0}, {3.996, 4.0}, {9.7, 9.0}}) {
    EXPECT_DOUBLE_EQ(DotsPerModule(field, dots), expected) << dots;
  }
  field.wholeDots = field.mayShrink = false;
  EXPECT_DOUBLE_EQ(DotsPerModule(field, 2.1), 2.1);
}

}  // namespace
}  // namespace Library
