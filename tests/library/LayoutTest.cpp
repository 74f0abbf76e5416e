#include "library/Error.h"
#include "library/layout/ElementWidths.h"
#include "library/layout/Font.h"
#include "library/layout/Layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
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
  Symbol symbol = HundredModules();
  symbol.type = 13;
  symbol.rows[0].runs.resize(95);
  symbol.width = 95;
  symbol.guards = {{0, 3}, {45, 50}, {92, 95}};
  using Place = SymbolText::Place;
  symbol.texts = {{"4", -9, -2, Place::kBetweenGuards},
                  {"006381", 3, 45, Place::kBetweenGuards},
                  {"333931", 50, 92, Place::kBetweenGuards}};
  return symbol;
}

Symbol Matrix(std::vector<std::vector<int>> rows) {
  Symbol symbol;
  symbol.type = 58;
  symbol.geometry = Geometry::kMatrix;
  for (int run : rows[0]) symbol.width += run;
  for (auto& runs : rows) symbol.rows.push_back({.runs = std::move(runs), .height = 1});
  return symbol;
}

Symbol Chequered(int size) {
  std::vector<std::vector<int>> rows;
  for (int row = 0; row < size; ++row) {
    std::vector<int> runs(static_cast<std::size_t>(size), 1);
    if (row % 2 == 1) runs.insert(runs.begin(), 0);
    rows.push_back(runs);
  }
  return Matrix(rows);
}

Symbol Stacked(int rows) {
  Symbol symbol;
  symbol.type = 55;
  symbol.geometry = Geometry::kStacked;
  symbol.width = 100;
  for (int row = 0; row < rows; ++row) {
    symbol.rows.push_back({.runs = {10, row + 1, 10, 79 - row}, .height = 0});
  }
  return symbol;
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
  const Symbol linear = HundredModules(), ean = Ean13(), matrix = Chequered(20),
               stacked = Stacked(5);
  const double dot203 = 25.4 / 203;
  const struct {
    const char* name;
    const Symbol& symbol;
    Change change;
    double boxWidth, boxHeight;
    double width, height;  // expected, mm
  } kRows[] = {
      {"fit is the default", linear, {}, 50, 20, 50, 20},
      {"fit, matrix: height rules", matrix, {}, 50, 20, 20, 20},
      {"fit, matrix: width rules", matrix, {}, 12, 20, 12, 12},
      {"fit, stacked fills the box", stacked, {}, 50, 20, 50, 20},
      {"fit, whole dots at 203 dpi", linear,
       [](Options& o) { o.optimalResolution = true, o.dpiX = o.dpiY = 203; }, 50, 20,
       100 * 3 * dot203, 20},
      {"fit, exactly whole dots, a thousandth short", linear,
       [](Options& o) { o.optimalResolution = true, o.dpiX = o.dpiY = 203; }, 37.536, 20,
       100 * 3 * dot203, 20},
      {"fit, not one dot a module: two dots", linear,
       [](Options& o) { o.optimalResolution = true, o.dpiX = o.dpiY = 203; }, 1, 20,
       100 * 2 * dot203, 20},
      {"module width set", linear, [](Options& o) { o.moduleWidth = 330; }, 1, 20, 33, 20},
      {"module width, least height", linear, [](Options& o) { o.moduleWidth = 330; }, 1, 1, 33, 5},
      {"module width, least height of a retail symbol: 15 %", ean,
       [](Options& o) { o.moduleWidth = 660, o.printText = 0; }, 1, 1, 95 * .66, .15 * 95 * .66},
      {"module width, least height of a retail symbol: 6.35 mm", ean,
       [](Options& o) { o.moduleWidth = 330, o.printText = 0; }, 1, 1, 95 * .33, 6.35},
      {"module mode, nominal X", linear, [](Options& o) { o.sizeMode = 1; }, 1, 20, 25.4, 20},
      {"module mode, matrix", matrix, [](Options& o) { o.sizeMode = 1; }, 1, 1, 6.6, 6.6},
      {"module mode, stacked rows of 3 X", stacked, [](Options& o) { o.sizeMode = 1; }, 1, 1, 25.4,
       5 * 3 * .254},
      {"module mode, stacked rows of a height set", stacked,
       [](Options& o) { o.sizeMode = 1, o.type = 55, o.pdf417.rowHeight = 1000; }, 1, 1, 25.4, 5},
      {"module mode, whole dots: down", linear,
       [](Options& o) { o.sizeMode = 1, o.optimalResolution = true, o.dpiX = 300; }, 1, 20,
       100 * 3 * 25.4 / 300, 20},
      {"module mode, 0.25 mm are two dots at 203 dpi", linear,
       [](Options& o) { o.moduleWidth = 250, o.optimalResolution = true, o.dpiX = 203; }, 1, 20,
       100 * 2 * dot203, 20},
      {"fit wins over a module width when asked for", linear,
       [](Options& o) { o.sizeMode = 0, o.moduleWidth = 330; }, 50, 20, 50, 20},
      {"minimal, any decoder", linear, [](Options& o) { o.sizeMode = 2; }, 1, 1, 19, 5},
      {"minimal, hardware", linear, [](Options& o) { o.sizeMode = 2, o.decoder = 1; }, 50, 50, 25.4,
       5},
      {"minimal, software", linear, [](Options& o) { o.sizeMode = 2, o.decoder = 2; }, 1, 1, 33.8,
       5},
      {"minimal, two whole dots at least", linear,
       [](Options& o) { o.sizeMode = 2, o.optimalResolution = true, o.dpiX = 100; }, 1, 1,
       100 * 2 * .254, 5},
      {"minimal, whole dots: never below the decoder", linear,
       [](Options& o) { o.sizeMode = 2, o.decoder = 1, o.optimalResolution = true, o.dpiX = 600; },
       1, 1, 25.4, 5},
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

TEST(Sizes, QuietZonesCountInTheirUnits) {
  const double kMillimetres[] = {0, 25.4 / 300, 1, .0254, 25.4, .254};
  for (int unit = 0; unit <= 5; ++unit) {
    SCOPED_TRACE(unit);
    const Options options = With([unit](Options& o) {
      o.sizeMode = 1, o.dpiX = o.dpiY = 300;
      o.quietZone = {1, 2, 3, 4}, o.quietZoneUnit = unit;
    });
    const Box size = MeasureSymbol(Chequered(10), options, RectangleOf(1, 1));
    const double module = unit == 5 ? .33 : kMillimetres[unit];
    EXPECT_NEAR(size.width / 1000, 3.3 + 4 * module, 1e-6);
    EXPECT_NEAR(size.height / 1000, 3.3 + 6 * module, 1e-6);
  }
}

TEST(Sizes, MustFitRefusesWhatDoesNotFit) {
  const Options module = With([](Options& o) { o.moduleWidth = 330, o.mustFit = true; });
  const Symbol symbol = HundredModules();
  for (const auto& [width, height, code] : {std::tuple{33.0, 20.0, BC_OK},
                                            {32.998, 20.0, BC_OK},
                                            {32.9, 20.0, BC_E_MUSTFIT},
                                            {40.0, 4.0, BC_E_MUSTFIT}}) {
    SCOPED_TRACE(testing::Message() << width << " x " << height);
    const BCRect box = RectangleOf(width, height);
    EXPECT_EQ(CodeOf([&] { MeasureSymbol(symbol, module, box); }), code);
    EXPECT_EQ(CodeOf([&] { LayOut(symbol, module, box); }), code);
    Options turned = module;
    turned.rotation = 1;
    const BCRect turnedBox = RectangleOf(height, width);
    EXPECT_EQ(CodeOf([&] { LayOut(symbol, turned, turnedBox); }), code);
  }
}

TEST(Sizes, WhatDoesNotFitStartsInTheLowerLeftCorner) {
  const Options options = With([](Options& o) { o.moduleWidth = 330; });
  const Drawing drawing = LayOut(HundredModules(), options, {5000, 27000, 15000, 7000});
  EXPECT_EQ(drawing.box.left, 5000);
  EXPECT_EQ(drawing.box.bottom, 7000);
  EXPECT_EQ(drawing.box.right, 38000);
}

TEST(Sizes, EdgesOfTheRectangleMayBeSwapped) {
  const Options options;
  const std::string upright = LayOut(Ean13(), options, {5000, 27000, 55000, 7000}).dump();
  EXPECT_EQ(LayOut(Ean13(), options, {55000, 7000, 5000, 27000}).dump(), upright);
}

TEST(Sizes, PlacesOutOfRangeAreRefused) {
  const Options huge = With([](Options& o) { o.moduleWidth = 1e6; });
  EXPECT_EQ(CodeOf([&] {
              LayOut(HundredModules(), huge, {INT32_MAX, 1, INT32_MAX, 0});
            }),
            BC_E_INVALIDARG);
  EXPECT_EQ(CodeOf([&] {
              LayOut(HundredModules(), {}, {INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN});
            }),
            BC_E_INVALIDARG);
}

TEST(Bars, EdgesAreRoundedOnceFromTheExactSum) {
  const Drawing drawing = LayOut(HundredModules(), {}, {1000, 21000, 34333, 1000});
  ASSERT_EQ(drawing.rectangles.size(), 50u);
  for (std::size_t i = 0; i < 50; ++i) {
    const double module = 333.33;
    EXPECT_EQ(drawing.rectangles[i].left,
              std::lround(1000 + 2.0 * static_cast<double>(i) * module));
    EXPECT_EQ(drawing.rectangles[i].right,
              std::lround(1000 + (2.0 * static_cast<double>(i) + 1) * module));
  }
}

TEST(Bars, MatrixModulesMergeDownward) {
  const Drawing drawing = LayOut(Matrix({{1, 1, 1}, {1, 1, 1}, {3}}), {}, RectangleOf(30, 30));
  EXPECT_EQ(drawing.dump().substr(drawing.dump().find("rectangle")),
            "rectangle 0 10000 10000 30000\n"
            "rectangle 20000 10000 30000 30000\n"
            "rectangle 0 0 30000 10000\n");
}

TEST(Bars, ReductionNarrowsEachBarOnBothSides) {
  const struct {
    double value;
    int unit;
    int expected;  // 1/1000 mm off a bar; X is 1 mm
  } kRows[] = {
      {10, 0, 100}, {10, 6, 100}, {.1, 2, 100},    {4, 3, 102},    {.01, 4, 254},
      {75, 6, 750}, {99, 6, 750}, {10000, 4, 750}, {-10, 6, -100}, {-99, 6, -750},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.value << " unit " << row.unit);
    // A quiet zone gives widened bars the room to grow.
    const Options options = With([&](Options& o) {
      o.reduction = row.value, o.reductionUnit = row.unit;
      o.quietZone = {1, 0, 1, 0}, o.quietZoneUnit = 2;
    });
    const auto bars = LayOut(Linear({1, 2, 3, 2, 2}), options, RectangleOf(12, 10)).rectangles;
    ASSERT_EQ(bars.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
      const int widths[] = {1000, 3000, 2000}, middles[] = {1500, 5500, 10000};
      EXPECT_NEAR(bars[i].width(), widths[i] - row.expected, 1);
      EXPECT_NEAR(bars[i].left + bars[i].right, 2 * middles[i], 2);
    }
  }
}

// The dark area in thousandths of a square millimetre.
double AreaOf(const Drawing& drawing) {
  double area = 0;
  for (const Rectangle& r : drawing.rectangles) area += 1e-6 * r.width() * r.height();
  return area;
}

TEST(Bars, ReductionOfAMatrixMovesTheOutlineOnly) {
  // An L of three modules of 10 mm, and a corner light in it.
  const Symbol symbol = Matrix({{1, 1}, {2}});
  for (double percent : {0, 20, 60}) {
    SCOPED_TRACE(percent);
    const Options options = With([&](Options& o) { o.reduction = percent, o.reductionUnit = 6; });
    const Drawing drawing = LayOut(symbol, options, RectangleOf(20, 20));
    // The sides move inward, so the light corner keeps its size.
    const double outer = 20 - percent / 10, corner = 10;
    EXPECT_NEAR(AreaOf(drawing), outer * outer - corner * corner, 1e-9);
  }
}

TEST(Ratio, SetsTheWidthsOfItsElements) {
  Symbol twoWidths = Linear({1, 2, 2, 1, 1});
  twoWidths.elements = ElementRule::kTwoWidths;
  Symbol barsOnly = Linear({1, 1, 3, 1, 1});
  barsOnly.elements = ElementRule::kTwoWidthBars;
  const Symbol fourWidths = Linear({1, 2, 3, 4, 4});
  Symbol none = Linear({1, 5, 1});
  none.elements = ElementRule::kNoRatio;
  const struct {
    const char* name;
    const Symbol& symbol;
    const char* ratio;
    double width;  // X, 0: refused
  } kRows[] = {
      {"narrow and wide, bars and spaces", twoWidths, "1:3:2:5", 1 + 5 + 3 + 2 + 1},
      {"decimals", twoWidths, "1:2.5:1:2.5", 1 + 2.5 + 2.5 + 1 + 1},
      {"narrow and wide bars", barsOnly, "1:2:1.5", 1 + 1.5 + 2 + 1.5 + 1},
      {"bars and spaces of 1 to 4", fourWidths, "1:2:3:4:1.1:2.2:3.3:4.4", 1 + 2.2 + 3 + 4.4 + 4},
      {"no ratios", none, "1:2:3", 7},
      {"too few numbers", twoWidths, "1:2:1", 0},
      {"too many numbers", twoWidths, "1:2:1:2:1", 0},
      {"too few numbers", fourWidths, "1:2:1:2", 0},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const Options options = With([&](Options& o) { o.moduleWidth = 1000, o.ratio = row.ratio; });
    double width = 0;
    const BCResult code = CodeOf(
        [&] { width = MeasureSymbol(row.symbol, options, RectangleOf(1, 10)).width / 1000; });
    EXPECT_EQ(code, row.width > 0 ? BC_OK : BC_E_INVALIDARG);
    EXPECT_NEAR(width, row.width, 1e-9);
  }
}

TEST(Ratio, TextsOfAnotherFormAreNone) {
  for (const char* text : {"", ":", "1:", ":1", "1::2", "0:1", "1:-1", "1:nan", "1:inf", "1,5", "a",
                           "1:2 ", "1:1001", "1e3"}) {
    EXPECT_TRUE(ParseRatio(text).empty()) << text;
  }
  EXPECT_EQ(ParseRatio("1:2.5:1000"), (std::vector<double>{1, 2.5, 1000}));
}

// The point where quarter turns put (x, y) of an unturned symbol of that size.
Point TurnedBy(int turns, Point p, int width, int height) {
  switch (turns) {
    case 1:
      return {height - p.y, p.x};
    case 2:
      return {width - p.x, height - p.y};
    case 3:
      return {p.y, width - p.x};
    default:
      return p;
  }
}

TEST(Rotation, TurnsEverythingInsideTheTurnedRectangle) {
  const Options upright = With([](Options& o) { o.quietZone = {3, 1, 2, 4}, o.quietZoneUnit = 2; });
  const Drawing reference = LayOut(Ean13(), upright, RectangleOf(50, 25));
  const auto setOf = [](const std::vector<Rectangle>& rectangles) {
    std::multiset<std::tuple<int, int, int, int>> set;
    for (const Rectangle& r : rectangles) set.insert({r.left, r.bottom, r.right, r.top});
    return set;
  };
  for (int turns = 0; turns < 4; ++turns) {
    SCOPED_TRACE(turns);
    Options options = upright;
    options.rotation = turns;
    const Drawing drawing =
        LayOut(Ean13(), options, turns % 2 == 0 ? RectangleOf(50, 25) : RectangleOf(25, 50));
    std::vector<Rectangle> expected;
    for (const Rectangle& r : reference.rectangles) {
      const Point a = TurnedBy(turns, {r.left, r.bottom}, 50000, 25000);
      const Point b = TurnedBy(turns, {r.right, r.top}, 50000, 25000);
      expected.push_back(
          {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)});
    }
    EXPECT_EQ(setOf(drawing.rectangles), setOf(expected));
    ASSERT_EQ(drawing.texts.size(), reference.texts.size());
    for (std::size_t i = 0; i < drawing.texts.size(); ++i) {
      const Point anchor = TurnedBy(turns, reference.texts[i].anchor, 50000, 25000);
      EXPECT_NEAR(drawing.texts[i].anchor.x, anchor.x, 1);
      EXPECT_NEAR(drawing.texts[i].anchor.y, anchor.y, 1);
      EXPECT_EQ(drawing.texts[i].rotation, turns);
    }
  }
}

TEST(BarWidthReduction, WidensWithinTheBoxOnly) {
  for (const Symbol& symbol : {HundredModules(), Chequered(11)}) {
    for (int turns = 0; turns < 4; ++turns) {
      const Options options = With([&](Options& o) { o.reduction = -40, o.rotation = turns; });
      const Drawing drawing = LayOut(symbol, options, RectangleOf(30, 30));
      for (const Rectangle& r : drawing.rectangles) {
        EXPECT_GE(r.left, drawing.box.left);
        EXPECT_LE(r.right, drawing.box.right);
        EXPECT_GE(r.bottom, drawing.box.bottom);
        EXPECT_LE(r.top, drawing.box.top);
      }
    }
  }
}

TEST(Rotation, TurnsTheSizeAskedForAndTheBoxThatItMustFit) {
  for (int turns = 0; turns < 4; ++turns) {
    SCOPED_TRACE(turns);
    const Options options =
        With([&](Options& o) { o.moduleWidth = 330, o.rotation = turns, o.mustFit = true; });
    const bool upright = turns % 2 == 0;
    const BCRect fitting = upright ? RectangleOf(40, 20) : RectangleOf(20, 40);
    const Box size = MeasureSymbol(HundredModules(), options, fitting);
    EXPECT_NEAR(upright ? size.width : size.height, 33000, 1e-6);
    EXPECT_NEAR(upright ? size.height : size.width, 20000, 1e-6);
    const BCRect narrow = upright ? RectangleOf(20, 40) : RectangleOf(40, 20);
    EXPECT_EQ(CodeOf([&] { MeasureSymbol(HundredModules(), options, narrow); }), BC_E_MUSTFIT);
    EXPECT_EQ(CodeOf([&] { LayOut(HundredModules(), options, narrow); }), BC_E_MUSTFIT);
  }
}

Symbol WithLine(Symbol symbol, const std::string& text) {
  symbol.texts = {{text, 0, symbol.width, SymbolText::Place::kLine}};
  return symbol;
}

TEST(HumanReadableText, IsShownAsTheSymbologyHasItOrAsAsked) {
  const Symbol linear = WithLine(HundredModules(), "Text"),
               matrix = WithLine(Chequered(20), "Text");
  const auto shown = [](const Symbol& symbol, int printText) {
    const Options options = With([&](Options& o) { o.printText = printText; });
    return LayOut(symbol, options, RectangleOf(50, 20)).texts.size() == 1;
  };
  EXPECT_TRUE(shown(linear, -1));
  EXPECT_FALSE(shown(linear, 0));
  EXPECT_FALSE(shown(matrix, -1));
  EXPECT_TRUE(shown(matrix, 1));
}

TEST(HumanReadableText, StandsOffTheBarsInItsSize) {
  const struct {
    const char* name;
    Change change;
    double boxWidth;
    int size, distance;
    bool above;
  } kRows[] = {
      {"10 pt", {}, 40, 3528, 500, false},
      {"8 pt on narrow symbols", {}, 29, 2822, 500, false},
      {"size set", [](Options& o) { o.fontHeight = 12; }, 29, 4233, 500, false},
      {"distance set", [](Options& o) { o.textDistance = 1500; }, 40, 3528, 1500, false},
      {"no distance", [](Options& o) { o.textDistance = 0; }, 40, 3528, 0, false},
      {"above", [](Options& o) { o.printText = 1, o.textAbove = true; }, 40, 3528, 500, true},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const Drawing drawing =
        LayOut(WithLine(HundredModules(), "Text"), With(row.change), RectangleOf(row.boxWidth, 20));
    ASSERT_EQ(drawing.texts.size(), 1u);
    const TextRun& text = drawing.texts[0];
    const Rectangle& bar = drawing.rectangles[0];
    EXPECT_EQ(text.size, row.size);
    const int ascent = static_cast<int>(.73 * text.size),
              descent = static_cast<int>(.22 * text.size);
    if (row.above) {
      EXPECT_EQ(bar.bottom, 0);
      EXPECT_NEAR(text.anchor.y - descent, bar.top + row.distance, 2);
      EXPECT_NEAR(text.anchor.y + ascent, 20000, 2);
    } else {
      EXPECT_EQ(bar.top, 20000);
      EXPECT_NEAR(text.anchor.y + ascent, bar.bottom - row.distance, 2);
      EXPECT_NEAR(text.anchor.y - descent, 0, 2);
    }
  }
}

TEST(HumanReadableText, IsAlignedToTheBars) {
  for (const auto& [alignment, share] : {std::pair{0, .5}, {1, 0.}, {2, 1.}, {3, .5}}) {
    const Options options = With([a = alignment](Options& o) { o.textAlignment = a; });
    const TextRun text =
        LayOut(WithLine(HundredModules(), "Text"), options, RectangleOf(40, 20)).texts.at(0);
    EXPECT_NEAR(text.anchor.x, share * (40000 - text.width), 2) << alignment;
  }
}

TEST(HumanReadableText, ShrinksToTheSymbolAndIsNeverCut) {
  const std::string words(90, 'W');
  const TextRun text =
      LayOut(WithLine(HundredModules(), words), {}, RectangleOf(40, 20)).texts.at(0);
  EXPECT_EQ(text.text, words);
  EXPECT_NEAR(text.width, 40000, 30);
  EXPECT_LT(text.size, 3528);
}

TEST(HumanReadableText, OfRetailSymbolsStandsBetweenLongerGuards) {
  const Drawing drawing = LayOut(Ean13(), {}, RectangleOf(104 * .33, 25));
  const double module = 330;
  const int data = drawing.rectangles[0].bottom;
  for (const Rectangle& bar : drawing.rectangles) {
    const int column = static_cast<int>(std::lround(bar.left / module)) - 9;
    const bool guard = column < 3 || (column >= 45 && column < 50) || column >= 92;
    EXPECT_NEAR(bar.bottom, guard ? data - 5 * module : data, 1) << column;
  }
  ASSERT_EQ(drawing.texts.size(), 3u);
  const double from[] = {0, 12, 59}, to[] = {7, 54, 101};
  for (std::size_t i = 0; i < 3; ++i) {
    const TextRun& text = drawing.texts[i];
    EXPECT_GE(text.anchor.x, from[i] * module) << text.text;
    EXPECT_LE(text.anchor.x + text.width, to[i] * module) << text.text;
    EXPECT_GE(text.anchor.y, drawing.box.bottom);
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

TEST(HumanReadableText, HiddenLeavesTheGuardsLevelUnlessANotchIsSet) {
  const auto drop = [](int notch) {
    const Options options = With([&](Options& o) { o.printText = 0, o.notchHeight = notch; });
    const auto bars = LayOut(Ean13(), options, RectangleOf(40, 20)).rectangles;
    const auto [low, high] = std::minmax_element(
        bars.begin(), bars.end(),
        [](const Rectangle& a, const Rectangle& b) { return a.bottom < b.bottom; });
    return high->bottom - low->bottom;
  };
  EXPECT_EQ(drop(-1), 0);
  EXPECT_EQ(drop(0), 0);
  EXPECT_EQ(drop(1200), 1200);
}

TEST(HumanReadableText, OfAnAddOnStandsAboveItsLowerBars) {
  Symbol symbol = Ean13();
  symbol.rows[0].runs.insert(symbol.rows[0].runs.end(), {8});
  for (int i = 0; i < 20; ++i) symbol.rows[0].runs.push_back(1);
  symbol.width = 123;
  symbol.addOn = {103, 123};
  symbol.texts.push_back({"12", 103, 123, SymbolText::Place::kAboveAddOn});
  const Drawing drawing = LayOut(symbol, {}, RectangleOf(50, 25));
  const double module = 50000.0 / (123 + 9);
  const int top = drawing.box.top, low = drawing.box.bottom;
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
  EXPECT_GT(low, -1);
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
    const Drawing drawing = LayOut(HundredModules(), options, RectangleOf(50, 20));
    const auto count = [&](auto&& is) {
      return std::count_if(drawing.rectangles.begin(), drawing.rectangles.end(), is);
    };
    EXPECT_EQ(count([](const Rectangle& r) { return r.bottom == 18000 && r.width() > 30000; }),
              row.top);
    EXPECT_EQ(count([](const Rectangle& r) { return r.top == 2000 && r.width() > 30000; }),
              row.bottom);
    EXPECT_EQ(count([](const Rectangle& r) {
                return r.width() == 2000 && (r.left == 0 || r.right == 50000);
              }),
              row.sides);
    EXPECT_EQ(count([&](const Rectangle& r) {
                return r.top == (row.top ? 18000 : 20000) && r.bottom == (row.bottom ? 2000 : 0) &&
                       r.width() < 1000;
              }),
              50);
  }
}

TEST(BearerBars, ShareNoDotsWithTheQuietZoneInsideAFrame) {
  const Options options = With([](Options& o) { o.bearerBarType = 2; });
  const Drawing drawing = LayOut(HundredModules(), options, RectangleOf(65, 20));
  // 5 X frame, 10 X quiet zone, 100 X bars, 10 X, 5 X
  const double module = 65000.0 / 130;
  int first = 65000;
  for (const Rectangle& r : drawing.rectangles) {
    if (r.width() < 1000) first = std::min(first, r.left);
  }
  EXPECT_NEAR(first, 15 * module, 1);
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

TEST(Fonts, GoByTheirUsualNames) {
  const struct {
    const char* name;
    const char* postScript;
    bool standard;
  } kRows[] = {
      {"", "Helvetica", true},
      {"Arial", "Helvetica", true},
      {"arial bold", "Helvetica-Bold", true},
      {"Arial-BoldItalicMT", "Helvetica-BoldOblique", true},
      {"Helvetica-Oblique", "Helvetica-Oblique", true},
      {"Times", "Times-Roman", true},
      {"Times New Roman", "Times-Roman", true},
      {"TimesNewRomanPS-BoldMT", "Times-Bold", true},
      {"Times-BoldItalic", "Times-BoldItalic", true},
      {"Courier New", "Courier", true},
      {"Courier, italic", "Courier-Oblique", true},
      {"OCR-B", "OCR-B", false},
      {"Arial Narrow", "Arial Narrow", false},
      {"OCRB10", "OCRB10", false},
  };
  for (const auto& row : kRows) {
    const Font font = FindFont(row.name);
    EXPECT_EQ(font.name, row.postScript);
    EXPECT_EQ(font.standard, row.standard) << row.name;
  }
  EXPECT_DOUBLE_EQ(FindFont("Arial").textWidth("A1-\xC4", 1000), 667 + 556 + 333 + 667);
  EXPECT_DOUBLE_EQ(FindFont("Courier").textWidth("A1-\xC4", 1000), 2400);
}

}  // namespace
}  // namespace Library
