#include "library/layout/Layout.h"

#include "library/Error.h"
#include "library/layout/Bars.h"
#include "library/layout/Fields.h"
#include "library/layout/Hexagons.h"
#include "library/layout/Placement.h"
#include "library/layout/RoundDots.h"
#include "library/layout/TextLayout.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <tuple>

namespace Library {
namespace {

struct Corner {
  double left, bottom;
};

Corner LowerLeft(const BCRect& r) {
  return {static_cast<double>(std::min(r.left, r.right)),
          static_cast<double>(std::min(r.top, r.bottom))};
}

Box Turned(const Box& box, int quarterTurns) {
  return quarterTurns % 2 == 0 ? box : Box{box.height, box.width};
}

Measures MeasureChecked(const Symbol& symbol, const Options& options, const Box& box) {
  Measures m = Measure(symbol, options, box);
  if (options.mustFit && (!m.fits || m.neededModule > 0)) throw Error(BC_E_MUSTFIT);
  return m;
}

Placement Place(const Measures& m, const Options& options, const BCRect& rectangle) {
  auto [left, bottom] = LowerLeft(rectangle);
  if (SizeModeOf(options) == SizeMode::kFit) {
    const Box box = SizeOf(rectangle), size = Turned({m.width, m.height}, options.rotation);
    left += std::max(box.width - size.width, 0.0) / 2;
    bottom += std::max(box.height - size.height, 0.0) / 2;
  }
  return {m.width, m.height, options.rotation, left, bottom};
}

// Callers round sizes up, so a sum of heights must not exceed what it stands for by its last bit.
double WithoutNoise(double length) {
  constexpr double kSteps = 1e6;
  return std::round(length * kSteps) / kSteps;
}

enum class Shapes { kAll, kFields };

Drawing Draw(const Symbol& symbol, const Options& options, const BCRect& rectangle, Shapes shapes) {
  const Box box = Turned(SizeOf(rectangle), options.rotation);
  const Measures m = MeasureChecked(symbol, options, box);
  const Placement placement = Place(m, options, rectangle);
  Drawing drawing;
  drawing.box = placement.rectangle(0, 0, m.width, m.height);
  drawing.opaqueBackground = options.backgroundMode == 2;
  drawing.colorMode = options.colorMode;
  drawing.background = options.background;
  drawing.barColor = options.barcodeColor;
  drawing.fontColor = options.fontColor;
  // Bars that are widened, not narrowed, stop at the edge of the box.
  const auto placed = [&](const Bar& b) {
    return placement.rectangle(std::max(b.left, 0.0), std::max(b.bottom, 0.0),
                               std::min(b.right, m.width), std::min(b.top, m.height));
  };
  const auto add = [&](const std::vector<Bar>& bars) {
    drawing.rectangles.reserve(drawing.rectangles.size() + bars.size());
    for (const Bar& b : bars) drawing.rectangles.push_back(placed(b));
  };
  if (symbol.geometry == Geometry::kHexagonal) {
    DrawHexagons(symbol, options, m, placement, drawing);
  } else if (symbol.geometry == Geometry::kDots) {
    DrawRoundDots(symbol, options, m, placement, drawing);
  } else {
    BarField field = LayOutField(symbol, options, m, placement);
    if (shapes == Shapes::kAll || field.bars.empty()) {
      add(LayOutBars(symbol, options, m));
    } else if (const std::optional<Bar> bounds = BoundsOfBars(symbol, options, m)) {
      drawing.leftOut = placed(*bounds);
    }
    field.count = drawing.rectangles.size();
    add(LayOutBearerBars(m));
    field.bearers = drawing.rectangles.size() - field.count;
    SortRows(std::span(drawing.rectangles).first(field.count));
    drawing.fields.push_back(std::move(field));
  }
  DrawText(symbol, options, m, placement, drawing);
  if (m.neededModule > 0) drawing.tooSmall = {m.module, m.neededWidth};
  return drawing;
}
}  // namespace

Box SizeOf(const BCRect& rectangle) {
  return {std::abs(static_cast<double>(rectangle.right) - rectangle.left),
          std::abs(static_cast<double>(rectangle.top) - rectangle.bottom)};
}

Box MeasureSymbol(const Symbol& symbol, const Options& options, const BCRect& rectangle) {
  const Box box = Turned(SizeOf(rectangle), options.rotation);
  const Measures m = MeasureChecked(symbol, options, box);
  return Turned({WithoutNoise(m.width), WithoutNoise(m.height)}, options.rotation);
}

Drawing LayOut(const Symbol& symbol, const Options& options, const BCRect& rectangle) {
  return Draw(symbol, options, rectangle, Shapes::kAll);
}

Drawing LayOutFields(const Symbol& symbol, const Options& options, const BCRect& rectangle) {
  return Draw(symbol, options, rectangle, Shapes::kFields);
}

}  // namespace Library
