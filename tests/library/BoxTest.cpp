// Whole symbols in boxes of all proportions: nothing of them stands outside.
#include "library/grid/GridLayout.h"
#include "library/layout/Font.h"
#include "library/layout/Layout.h"
#include "tests/library/ScanSymbol.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <span>

namespace {

using Library::Drawing;
using Library::Options;
using Library::Rectangle;

// Roundings of the places of a shape, 1/1000 mm.
constexpr int kRounding = 2;

bool Holds(const Rectangle& box, const Rectangle& shape) {
  return shape.left >= box.left - kRounding && shape.right <= box.right + kRounding &&
         shape.bottom >= box.bottom - kRounding && shape.top <= box.top + kRounding;
}

// What the drawing covers, upright texts to the top of their characters.
std::vector<Rectangle> ShapesOf(const Drawing& drawing) {
  std::vector<Rectangle> shapes = drawing.rectangles;
  for (const Library::Polygon& polygon : drawing.polygons) {
    for (const auto& [x, y] : polygon.points) shapes.push_back({x, y, x, y});
  }
  for (const Library::Ring& ring : drawing.rings) {
    const auto& [centre, radius, inner] = ring;
    shapes.push_back({centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius});
  }
  for (const Library::TextRun& run : drawing.texts) {
    const double ascent = Library::FindFont(run.font).ascentOf(run.text) * run.size;
    EXPECT_GT(run.size, 0);
    shapes.push_back({run.anchor.x, run.anchor.y, run.anchor.x + run.width,
                      run.anchor.y + static_cast<int>(ascent)});
  }
  return shapes;
}

void ExpectInsideItsBox(const Drawing& drawing) {
  for (const Rectangle& shape : ShapesOf(drawing)) {
    ASSERT_TRUE(Holds(drawing.box, shape))
        << shape.left << ' ' << shape.bottom << ' ' << shape.right << ' ' << shape.top;
  }
}

}  // namespace

TEST(Boxes, HoldWhatIsToFit) {
  const struct {
    int type;
    const char* data;
    int composite = 0;
  } symbols[] = {
      {12, "40313948+12345"},
      {13, "4006381333931"},
      {13, "4006381333931|(10)LOT42", 1},
      {20, "Code 128"},
      {23, "Code16K 123456"},
      {24, "MULTIPLE ROWS IN CODE 49"},
      {26, "0031-7470"},
      {40, "12345"},
      {53, "12345678"},
      {55, "PDF417 test data 12345"},
      {57, "MaxiCode"},
      {71, "Data Matrix"},
      {74, "Codablock F test data 1234567890"},
      {79, "0950110153000"},
      {80, "0950110153000"},
      {80, "0950110153000|(10)LOT42", 1},
      {109, "/EO523201"},
      {115, "DotCode test 123"},
  };
  const BCRect boxes[] = {{0, 20000, 60000, 0},
                          {5000, 15000, 115000, 2000},
                          {0, 80000, 12000, 0},
                          {0, 60000, 300000, 0}};
  const struct {
    double reduction, quietZone;  // percent, modules
  } surroundings[] = {{0, 0}, {-45, 0}, {0, 10}};
  for (const auto& row : symbols) {
    for (const BCRect& box : boxes) {
      for (const auto& [reduction, quiet] : surroundings) {
        SCOPED_TRACE(testing::Message() << row.type << ' ' << row.data << " in " << box.right << 'x'
                                        << box.top << ", " << reduction << ", " << quiet);
        Options options = OptionsFor(row.type, row.data);
        options.compositeType = row.composite;
        options.sizeMode = 0;
        options.reduction = reduction;
        options.quietZoneUnit = 5;
        options.quietZone = {quiet, quiet, quiet, quiet};
        const Library::Symbol symbol = Library::Encode(options);
        const Drawing drawing = Library::LayOut(symbol, options, box);
        EXPECT_TRUE(Holds({box.left, box.bottom, box.right, box.top}, drawing.box));
        ExpectInsideItsBox(drawing);
        ExpectInsideItsBox(LayOutGrid(std::span(&symbol, 1), options, {1, 1}, box));
      }
    }
  }
}

// A font size that rounds to nothing is no font size.
TEST(Boxes, LeaveOutTextThatIsTooSmallToBe) {
  Options options = OptionsFor(29, "0950110153000");
  options.moduleWidth = 0.04;
  const BCRect box = {0, 40000, 100000, 0};
  EXPECT_TRUE(LayOut(Library::Encode(options), options, box).texts.empty());
}

TEST(Boxes, HoldTheBarOnTopOfAParcelsNumber) {
  Options options = OptionsFor(96, "%000393206219912345678101040");
  options.moduleWidth = 375;
  options.printText = 0;
  const Drawing drawing = LayOut(Library::Encode(options), options, {0, 30000, 90000, 0});
  const Rectangle& bar = drawing.rectangles.back();
  EXPECT_EQ(bar.height(), 3 * 375);
  EXPECT_EQ(bar.top, drawing.box.top);
  EXPECT_EQ(bar.width(), drawing.box.width());
  EXPECT_EQ(drawing.rectangles.front().top, bar.bottom);
}

TEST(Boxes, HoldTheDigitsOfAnAddOnUnderAComponent) {
  Options options = OptionsFor(14, "4006381333931+12|(10)LOT42");
  options.compositeType = 1;
  options.textDistance = 400;
  const Drawing drawing = LayOut(Library::Encode(options), options, {0, 30000, 60000, 0});
  const auto digits = std::find_if(drawing.texts.begin(), drawing.texts.end(),
                                   [](const auto& run) { return run.text == "12"; });
  ASSERT_NE(digits, drawing.texts.end());
  int top = 0;
  for (const Rectangle& bar : drawing.rectangles) {
    if (bar.left > digits->anchor.x) top = std::max(top, bar.top);
  }
  EXPECT_NEAR(digits->anchor.y, top + 400, kRounding);
}
