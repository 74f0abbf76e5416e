#include "library/Error.h"
#include "library/layout/ElementWidths.h"
#include "library/layout/Font.h"
#include "library/layout/Layout.h"
#include "library/layout/RowHeights.h"
#include "tests/library/ScanSymbol.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <set>

namespace Library {
namespace {

using Change = std::function<void(Options&)>;

// Hand-made symbols. Code 128 (type 20) has a nominal X of 0.254 mm and general heights.
Symbol Linear(std::vector<int> runs) {
  Symbol symbol;
  symbol.type = 20;
  symbol.elements = ElementRule::kFourWidths;
  for (int run : runs) symbol.width += run;
  symbol.rows = {{.runs = std::move(runs)}};
  return symbol;
}

Symbol HundredModules() {
  return Linear(std::vector<int>(100, 1));
}

Symbol Ean13() {
  return Encode(OptionsFor(13, "400638133393"));
}

Symbol Matrix(const std::vector<std::vector<int>>& rows) {
  Symbol symbol;
  symbol.type = 58;
  symbol.geometry = Geometry::kMatrix;
  symbol.width = std::accumulate(rows[0].begin(), rows[0].end(), 0);
  for (const auto& runs : rows) symbol.rows.push_back({.runs = runs, .height = 1});
  return symbol;
}

Symbol Striped(int size) {
  const std::vector<int> runs(static_cast<std::size_t>(size), 1);
  return Matrix(std::vector(static_cast<std::size_t>(size), runs));
}

Options With(const Change& change) {
  Options options;
  if (change) change(options);
  return options;
}

// Millimetres to a rectangle with its lower left corner at 0, 0.
BCRect RectangleOf(double width, double height) {
  return {0, static_cast<int>(std::lround(height * 1000)),
          static_cast<int>(std::lround(width * 1000)), 0};
}

BCResult CodeOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.code;
  }
  return BC_OK;
}

TEST(Sizes, FollowModeDecoderAndResolution) {
  const Symbol linear = HundredModules(), ean = Ean13(), matrix = Striped(20);
  const double dot203 = 25.4 / 203;
  const Change dots203 = [](Options& o) { o.optimalResolution = true, o.dpiX = o.dpiY = 203; };
  const struct {
    const char* name;
    const Symbol& symbol;
    Change change;
    double boxWidth, boxHeight;
    double width, height;  // expected, mm
  } kRows[] = {
      {"fit, matrix: height rules", matrix, {}, 50, 20, 20, 20},
      {"fit, matrix: width rules", matrix, {}, 12, 20, 12, 12},
      {"fit, whole dots, a thousandth short", linear, dots203, 37.536, 20, 300 * dot203, 20},
      {"module width, least height", linear, [](Options& o) { o.moduleWidth = 330; }, 1, 1, 33, 5},
      {"least height of a retail symbol: 15 %", ean,
       [](Options& o) { o.moduleWidth = 660, o.printText = 0; }, 1, 1, 95 * .66, .15 * 95 * .66},
      {"least height of a retail symbol: 6.35 mm", ean,
       [](Options& o) { o.moduleWidth = 330, o.printText = 0; }, 1, 1, 95 * .33, 6.35},
      {"module mode, nominal X", linear, [](Options& o) { o.sizeMode = 1; }, 1, 20, 25.4, 20},
      {"module mode, 0.25 mm are two dots at 203 dpi", linear,
       [&](Options& o) { dots203(o), o.moduleWidth = 250; }, 1, 20, 200 * dot203, 20},
      {"fit wins over a module width when asked for", linear,
       [](Options& o) { o.sizeMode = 0, o.moduleWidth = 330; }, 50, 20, 50, 20},
      {"minimal, hardware", linear, [](Options& o) { o.sizeMode = 2, o.decoder = 1; }, 50, 50, 25.4,
       5},
      {"module mode, nearer dots when they are 10 % more at most", linear,
       [&](Options& o) { dots203(o), o.moduleWidth = 365; }, 1, 20, 300 * dot203, 20},
      {"module mode, else those below", linear,
       [&](Options& o) { dots203(o), o.moduleWidth = 330; }, 1, 20, 200 * dot203, 20},
      {"module mode, two dots rather than one", linear,
       [&](Options& o) { dots203(o), o.moduleWidth = 200; }, 1, 20, 200 * dot203, 20},
      {"fit, between one dot and two", linear, dots203, 22, 20, 22, 20},
      {"72 dpi are dots that nobody knows yet", linear,
       [](Options& o) { o.optimalResolution = true, o.moduleWidth = 365; }, 1, 20, 36.5, 20},
      {"minimal, two whole dots at least", linear,
       [](Options& o) { o.sizeMode = 2, o.optimalResolution = true, o.dpiX = 100; }, 1, 1,
       100 * 2 * .254, 5},
      {"outside digits widen the symbol", ean, [](Options& o) { o.moduleWidth = 330; }, 1, 25,
       (95 + 9) * .33, 25},
      {"a quiet zone takes the outside digits in", ean,
       [](Options& o) {
         o.moduleWidth = 330, o.quietZone = {11, 0, 7, 0}, o.quietZoneUnit = 5;
       },
       1, 25, (11 + 95 + 7) * .33, 25},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const Box size =
        MeasureSymbol(row.symbol, With(row.change), RectangleOf(row.boxWidth, row.boxHeight));
    EXPECT_NEAR(size.width / 1000, row.width, 1e-6);
    EXPECT_NEAR(size.height / 1000, row.height, 1e-6);
  }
}

TEST(Sizes, OfStackedRowsAreThoseOfTheirStandards) {
  for (const auto& [type, data, modules] : {std::tuple{23, "Code 16K", 8},
                                            {24, "CODE 49", 8},
                                            {55, "PDF417", 3},
                                            {74, "Codablock-F", 10},
                                            {80, "2001234567890", 33},
                                            {81, "(01)90012345678908(3103)001750(10)AB", 34},
                                            {84, "MicroPDF417", 2},
                                            {108, "A123BJC5D6E71", 2},
                                            {110, "A123BJC5D6E71", 10}}) {
    const Options options = OptionsFor(type, data);
    const std::vector<double> heights =
        RowHeights(Encode(options), options, SizeMode::kModule, {300, 30000, 1});
    EXPECT_NEAR(std::ranges::max(heights), modules * 300, 1e-6) << type;
  }
}

TEST(Sizes, QuietZonesCountInTheirUnits) {
  const double kMillimetres[] = {0, 25.4 / 300, 1, .0254, 25.4, .254};
  for (int unit = 0; unit <= 5; ++unit) {
    SCOPED_TRACE(unit);
    const Options options = With([unit](Options& o) {
      o.sizeMode = 1, o.dpiX = o.dpiY = 300;
      o.quietZone = {1, 2, 3, 4}, o.quietZoneUnit = unit;
    });
    const Box size = MeasureSymbol(Striped(10), options, RectangleOf(1, 1));
    const double module = unit == 5 ? .33 : kMillimetres[unit];
    EXPECT_NEAR(size.width / 1000, 3.3 + 4 * module, 1e-6);
    EXPECT_NEAR(size.height / 1000, 3.3 + 6 * module, 1e-6);
  }
}

TEST(Sizes, TurnWithTheSymbolAndTheBoxThatItMustFit) {
  const Symbol symbol = HundredModules();
  for (const auto& [width, height, code] : {std::tuple{33.0, 20.0, BC_OK},
                                            {32.998, 20.0, BC_OK},
                                            {32.9, 20.0, BC_E_MUSTFIT},
                                            {40.0, 4.0, BC_E_MUSTFIT}}) {
    for (int turns = 0; turns < 4; ++turns) {
      SCOPED_TRACE(testing::Message() << width << " x " << height << ", turned " << turns);
      const Options options =
          With([&](Options& o) { o.moduleWidth = 330, o.rotation = turns, o.mustFit = true; });
      const bool upright = turns % 2 == 0;
      const BCRect box = upright ? RectangleOf(width, height) : RectangleOf(height, width);
      EXPECT_EQ(CodeOf([&] { LayOut(symbol, options, box); }), code);
      Box size;
      EXPECT_EQ(CodeOf([&] { size = MeasureSymbol(symbol, options, box); }), code);
      if (code != BC_OK) continue;
      EXPECT_NEAR(upright ? size.width : size.height, 33000, 1e-6);
      EXPECT_NEAR(upright ? size.height : size.width, 20000, 1e-6);
    }
  }
}

TEST(Sizes, PlacesOutOfRangeAreRefused) {
  const Options huge = With([](Options& o) { o.moduleWidth = 1e6; });
  for (const BCRect& box :
       {BCRect{INT32_MAX, 1, INT32_MAX, 0}, BCRect{INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN}}) {
    EXPECT_EQ(CodeOf([&] { LayOut(HundredModules(), huge, box); }), BC_E_INVALIDARG);
  }
}

TEST(Bars, ReductionNarrowsEachBarOnBothSides) {
  // Off a bar, in 1/1000 mm; X is 1 mm.
  for (const auto& [value, unit, expected] : {std::tuple{10., 6, 100},
                                              {.1, 2, 100},
                                              {4., 3, 102},
                                              {.01, 4, 254},
                                              {99., 6, 750},
                                              {-99., 6, -750}}) {
    SCOPED_TRACE(testing::Message() << value << " unit " << unit);
    Options options;
    options.reduction = value, options.reductionUnit = unit;
    // A quiet zone gives widened bars the room to grow.
    options.quietZone = {1, 0, 1, 0}, options.quietZoneUnit = 2;
    const auto bars = LayOut(Linear({1, 2, 3, 2, 2}), options, RectangleOf(12, 10)).rectangles;
    EXPECT_NEAR(bars.at(1).left, 4000 + expected / 2, 1);
    EXPECT_NEAR(bars.at(1).right, 7000 - expected / 2, 1);
  }
}

TEST(Bars, ReductionOfAMatrixMovesTheOutlineOnly) {
  // An L of three modules of 10 mm, and a corner light in it.
  const Symbol symbol = Matrix({{1, 1}, {2}});
  for (double percent : {0, 20, 60}) {
    const Options options = With([&](Options& o) { o.reduction = percent, o.reductionUnit = 6; });
    double dark = 0;
    for (const Rectangle& r : LayOut(symbol, options, RectangleOf(20, 20)).rectangles) {
      dark += 1e-6 * r.width() * r.height();
    }
    // The sides move inward, so the light corner keeps its size.
    const double outer = 20 - percent / 10, corner = 10;
    EXPECT_NEAR(dark, outer * outer - corner * corner, 1e-9) << percent;
  }
}

TEST(Bars, AreWidenedAlikeAtTheEndsOfTheSymbol) {
  for (const Symbol& symbol : {HundredModules(), Striped(11)}) {
    const Options options = With([](Options& o) { o.reduction = -40; });
    const auto bars = LayOut(symbol, options, RectangleOf(30, 30)).rectangles;
    for (const Rectangle& r : bars) EXPECT_NEAR(r.width(), bars[1].width(), 2);
  }
}

TEST(Bars, AreWidenedWithinTheBoxOnly) {
  for (const Symbol& symbol : {HundredModules(), Striped(11)}) {
    for (int turns = 0; turns < 4; ++turns) {
      const Options options = With([&](Options& o) { o.reduction = -40, o.rotation = turns; });
      const Drawing drawing = LayOut(symbol, options, RectangleOf(30, 30));
      for (const Rectangle& r : drawing.rectangles) {
        EXPECT_GE(std::min(r.left - drawing.box.left, r.bottom - drawing.box.bottom), 0);
        EXPECT_GE(std::min(drawing.box.right - r.right, drawing.box.top - r.top), 0);
      }
    }
  }
}

TEST(Ratio, SetsTheWidthsOfItsElements) {
  const struct {
    ElementRule elements;
    std::vector<int> runs;
    const char* ratio;
    double width;  // X, 0: refused
  } kRows[] = {
      {ElementRule::kTwoWidths, {1, 2, 2, 1, 1}, "1:3:2:5.5", 1 + 5.5 + 3 + 2 + 1},
      {ElementRule::kTwoWidths, {1, 2, 2, 1, 1}, "1:2:1", 0},
      {ElementRule::kTwoWidths, {1, 2, 2, 1, 1}, "", 1 + 3 + 3 + 1 + 1},
      {ElementRule::kTwoWidthBars, {1, 1, 2, 1, 1}, "", 1 + 1 + 3 + 1 + 1},
      {ElementRule::kTwoWidthBars, {1, 2, 3, 2, 1}, "", 9},  // spaces of two modules
      {ElementRule::kFourWidths, {1, 2, 3, 4, 4}, "", 14},
      {ElementRule::kTwoWidthBars, {1, 1, 3, 1, 1}, "1:2:1.5", 1 + 1.5 + 2 + 1.5 + 1},
      {ElementRule::kFourWidths, {1, 2, 3, 4, 4}, "1:2:3:4:1.1:2.2:3.3:4.4", 1 + 2.2 + 3 + 4.4 + 4},
      {ElementRule::kNoRatio, {1, 5, 1}, "1:2:3", 7},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.ratio);
    Symbol symbol = Linear(row.runs);
    symbol.elements = row.elements;
    const Options options = With([&](Options& o) { o.moduleWidth = 1000, o.ratio = row.ratio; });
    Box size;
    EXPECT_EQ(CodeOf([&] { size = MeasureSymbol(symbol, options, RectangleOf(1, 10)); }),
              row.width > 0 ? BC_OK : BC_E_INVALIDARG);
    EXPECT_NEAR(size.width, row.width * 1000, 1e-6);
  }
  for (const char* text : {"", "1:", "1::2", "0:1", "1:-1", "1:nan", "1,5", "1:2 ", "1:1001"}) {
    EXPECT_TRUE(ParseRatio(text).empty()) << text;
  }
}

// The point that a quarter turn to the left puts at `p`, in a symbol of that turned width.
Point TurnedBack(Point p, int width) {
  return {p.y, width - p.x};
}

TEST(Rotation, TurnsEverythingInsideTheTurnedRectangle) {
  using Places = std::multiset<std::tuple<int, int, int, int>>;
  // Barcode and texts turned by `turns`, and turned back by as many quarters.
  const auto placesOf = [](int turns) {
    const Options options = With([=](Options& o) {
      o.quietZone = {3, 1, 2, 4}, o.quietZoneUnit = 2, o.rotation = turns;
    });
    const bool upright = turns % 2 == 0;
    const Drawing drawing =
        LayOut(Ean13(), options, upright ? RectangleOf(50, 25) : RectangleOf(25, 50));
    const auto back = [&](Point p) {
      for (int left = turns; left > 0; --left) p = TurnedBack(p, left % 2 == 1 ? 25000 : 50000);
      return p;
    };
    Places places;
    for (const Rectangle& r : drawing.rectangles) {
      const Point a = back({r.left, r.bottom}), b = back({r.right, r.top});
      places.insert(
          {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)});
    }
    for (const TextRun& text : drawing.texts) {
      EXPECT_EQ(text.rotation, turns);
      const Point anchor = back(text.anchor);
      places.insert({anchor.x, anchor.y, text.width, text.size});
    }
    return places;
  };
  const Places upright = placesOf(0);
  EXPECT_EQ(upright.size(), 33u);
  for (int turns = 1; turns < 4; ++turns) EXPECT_EQ(placesOf(turns), upright) << turns;
}

Symbol WithLine(Symbol symbol, const std::string& text) {
  symbol.texts = {{text, 0, symbol.width, SymbolText::Place::kLine}};
  return symbol;
}

TEST(HumanReadableText, StandsOffTheBarsInItsSize) {
  const struct {
    const char* name;
    Change change;
    double boxWidth, boxHeight;
    int size, distance;
  } kRows[] = {
      {"10 pt", {}, 40, 20, 3528, 500},
      {"8 pt on narrow symbols", {}, 29, 60, 2822, 500},
      {"8 pt under low bars", {}, 40, 12, 2822, 500},
      {"18 pt under the highest", {}, 150, 60, 6350, 500},
      {"size set", [](Options& o) { o.fontHeight = 9; }, 150, 60, 3175, 500},
      {"distance set", [](Options& o) { o.textDistance = 1500; }, 40, 22, 3528, 1500},
      {"above", [](Options& o) { o.printText = 1, o.textAbove = true; }, 40, 20, 3528, 500},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const Options options = With(row.change);
    const Drawing drawing = LayOut(WithLine(HundredModules(), "Text"), options,
                                   RectangleOf(row.boxWidth, row.boxHeight));
    const TextRun& text = drawing.texts.at(0);
    EXPECT_EQ(text.size, row.size);
    const int low = text.anchor.y - text.size * 22 / 100,
              high = text.anchor.y + text.size * 73 / 100;
    const Rectangle& bar = drawing.rectangles[0];
    EXPECT_NEAR(options.textAbove ? low - bar.top : bar.bottom - high, row.distance, 2);
    EXPECT_NEAR(options.textAbove ? bar.bottom : low, 0, 2);
    EXPECT_NEAR(options.textAbove ? high : bar.top, row.boxHeight * 1000, 2);
  }
}

TEST(HumanReadableText, IsAlignedToTheBarsAndShrinksRatherThanBeCut) {
  const std::string words(90, 'W');
  for (const auto& [alignment, share] : {std::pair{0, .5}, {1, 0.}, {2, 1.}, {3, .5}}) {
    const Options options = With([a = alignment](Options& o) { o.textAlignment = a; });
    const auto textOf = [&](const std::string& text) {
      return LayOut(WithLine(HundredModules(), text), options, RectangleOf(40, 20)).texts.at(0);
    };
    const TextRun small = textOf("Text"), large = textOf(words);
    EXPECT_NEAR(small.anchor.x, share * (40000 - small.width), 2) << alignment;
    EXPECT_EQ(large.text, words);
    EXPECT_NEAR(large.width, 40000, 30);
  }
}

TEST(HumanReadableText, OfRetailSymbolsStandsBetweenLongerGuards) {
  const Drawing drawing = LayOut(Ean13(), {}, RectangleOf(104 * .33, 25));
  const double module = 330;
  const int data = drawing.rectangles[3].bottom;
  for (const Rectangle& bar : drawing.rectangles) {
    const int column = static_cast<int>(std::lround(bar.left / module)) - 9;
    const bool guard = column < 3 || (column >= 45 && column < 50) || column >= 92;
    EXPECT_NEAR(bar.bottom, guard ? data - 5 * module : data, 1) << column;
  }
  const double from[] = {0, 12, 59}, to[] = {7, 54, 101};
  for (std::size_t i = 0; i < 3; ++i) {
    const TextRun& text = drawing.texts.at(i);
    EXPECT_GE(text.anchor.x, from[i] * module) << text.text;
    EXPECT_LE(text.anchor.x + text.width, to[i] * module) << text.text;
    EXPECT_NEAR(text.size, 3528, 2);
  }
}

TEST(HumanReadableText, OfRetailSymbolsGrowsWithTheModule) {
  Options options;
  options.type = 34;
  options.data = "012345678905";
  for (const double module : {264, 330, 660}) {
    const Drawing drawing = LayOut(Encode(options), options, RectangleOf(113 * module / 1000, 50));
    ASSERT_EQ(drawing.texts.size(), 4u);
    for (const TextRun& text : drawing.texts) {
      SCOPED_TRACE(text.text);
      EXPECT_EQ(text.anchor.y, drawing.texts[0].anchor.y);
      const bool small = text.text.size() == 1;
      EXPECT_NEAR(small ? text.width : text.size, small ? 4 * module : 3528 * module / 330, 5);
    }
    const int right = drawing.texts[0].anchor.x + drawing.texts[0].width;
    const auto first = std::ranges::min(drawing.rectangles, {}, &Rectangle::left);
    EXPECT_NEAR(first.left - right, 5 * module, 5);
  }
}

TEST(HumanReadableText, OfCapitalsWithAccentsKeepsClearOfTheBars) {
  for (const char* font : {"Helvetica", "Times", "Courier"}) {
    SCOPED_TRACE(font);
    Symbol symbol = HundredModules();
    const auto baselineBelowBars = [&](const char* text) {
      symbol.texts = {{text, 0, 100, SymbolText::Place::kLine}};
      const Options options = With([&](Options& o) { o.fontName = font, o.fontHeight = 20; });
      const Drawing drawing = LayOut(symbol, options, RectangleOf(50, 30));
      return drawing.rectangles.front().bottom - drawing.texts.front().anchor.y;
    };
    // Accents take a good sixth of the font size, 20 points.
    EXPECT_GE(baselineBelowBars("\xC4"), baselineBelowBars("A") + 7056 / 6);
    EXPECT_EQ(baselineBelowBars("\xE4"), baselineBelowBars("A"));
  }
}

TEST(BearerBars, TouchTheBarsOnTheSidesOfTheirType) {
  const struct {
    int type;
    int top, bottom, sides;  // how many
  } kRows[] = {{0, 0, 0, 0}, {1, 1, 1, 0}, {2, 1, 1, 2}, {3, 1, 0, 0}, {4, 0, 1, 0}};
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.type);
    const Options options =
        With([&](Options& o) { o.bearerBarType = row.type, o.bearerBarWidth = 2000; });
    int top = 0, bottom = 0, sides = 0, bars = 0;
    for (const Rectangle& r : LayOut(HundredModules(), options, RectangleOf(50, 20)).rectangles) {
      top += r.width() > 30000 && r.bottom == 18000;
      bottom += r.width() > 30000 && r.top == 2000;
      sides += r.width() == 2000 && (r.left == 0 || r.right == 50000);
      bars += r.width() < 1000 && r.top == (row.top ? 18000 : 20000) &&
              r.bottom == (row.bottom ? 2000 : 0);
    }
    EXPECT_EQ(std::tuple(top, bottom, sides, bars), std::tuple(row.top, row.bottom, row.sides, 50));
  }
}

TEST(Fonts, GoByTheirUsualNames) {
  for (const auto& [name, postScript] : {std::pair{"arial bold", "Helvetica-Bold"},
                                         {"Arial-BoldItalicMT", "Helvetica-BoldOblique"},
                                         {"TimesNewRomanPS-BoldMT", "Times-Bold"},
                                         {"Courier, italic", "Courier-Oblique"},
                                         {"Arial Narrow", "Arial Narrow"},
                                         {"OCRB10", "OCRB10"}}) {
    EXPECT_EQ(FindFont(name).name, postScript);
  }
  EXPECT_DOUBLE_EQ(FindFont("Arial").textWidth("A1-\xC4", 1000), 667 + 556 + 333 + 667);
}

}  // namespace
TEST(HumanReadableText, OfAnAddOnStandsAboveItsLowerBars) {
  Symbol symbol = Ean13();
  symbol.rows[0].runs.insert(symbol.rows[0].runs.end(), {8});
  for (int i = 0; i < 20; ++i) symbol.rows[0].runs.push_back(1);
  symbol.width = 123;
  symbol.addOn = {103, 123};
  symbol.texts.push_back({"12", 103, 123, SymbolText::Place::kAboveAddOn});
  const Drawing drawing = LayOut(symbol, {}, RectangleOf(50, 25));
  const double module = 50000.0 / (123 + 9);
  const int top = drawing.box.top;
  int addOnTop = 0;
  for (const Rectangle& bar : drawing.rectangles) {
    if (bar.left > (9 + 100) * module) {
      addOnTop = bar.top;
      EXPECT_LT(bar.top, top - 2500);
    } else {
      EXPECT_EQ(bar.top, top);
    }
  }
  const TextRun& text = drawing.texts.back();
  EXPECT_EQ(text.text, "12");
  EXPECT_NEAR(text.anchor.y, addOnTop + 500, 1);
  EXPECT_LE(text.anchor.y + .73 * text.size, top);
}

TEST(Hexagons, KeepMaxiCodesProportions) {
  Symbol symbol;
  symbol.type = 58;  // a type of the table; the geometry decides
  symbol.geometry = Geometry::kHexagonal;
  symbol.width = 30;
  symbol.rows.assign(33, {.runs = {1, 28, 1}});
  const Box size = MeasureSymbol(symbol, {}, RectangleOf(100, 28.87));
  EXPECT_NEAR(size.width / size.height, 30 / (32 * .8660254 + 1.1547005), 1e-6);
  const Drawing drawing = LayOut(symbol, {}, RectangleOf(26.4, 26.4));
  ASSERT_EQ(drawing.polygons.size(), 66u);
  ASSERT_EQ(drawing.rings.size(), 3u);
  EXPECT_EQ(drawing.rings[0].outerRadius, 1180);
  EXPECT_EQ(drawing.rings[2].innerRadius, 3200);
  EXPECT_EQ(drawing.rings[0].centre.x, std::lround(14.5 * 880));
  for (const Polygon& hexagon : drawing.polygons) ASSERT_EQ(hexagon.points.size(), 6u);
}

}  // namespace Library
