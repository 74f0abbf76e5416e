#include "library/bitmap/Bitmap.h"

#include "library/Error.h"
#include "library/Limits.h"
#include "library/bitmap/Canvas.h"
#include "library/font/Outlines.h"
#include "library/layout/Dots.h"
#include "library/layout/Units.h"

#include <algorithm>
#include <cmath>

namespace Library {
namespace {

constexpr int kRoundCorners = 64;  // of the polygon that stands for a circle

std::uint8_t Level(double component) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
}

// From the page to pixels, downward from the upper edge of the picture.
struct Grid {
  Canvas::Place place(double x, double y) const { return {x * scaleX, height - y * scaleY}; }

  double scaleX, scaleY;
  int height;
};

void DrawRing(const Ring& ring, const Grid& grid, Canvas& canvas) {
  const auto circle = [&](double radius, int direction) {
    if (radius <= 0) return;
    std::vector<Canvas::Place> corners;
    for (int i = 0; i < kRoundCorners; ++i) {
      const double angle = direction * 2 * M_PI * i / kRoundCorners;
      corners.push_back(grid.place(ring.centre.x + radius * std::cos(angle),
                                   ring.centre.y + radius * std::sin(angle)));
    }
    canvas.addContour(corners);
  };
  circle(ring.outerRadius, 1);
  circle(ring.innerRadius, -1);
  canvas.fill();
}

// Curves become so many lines: at 2400 dpi, those of a letter 5 mm high are a pixel off at most.
constexpr int kCurveSteps = 16;

void DrawText(const TextRun& run, const Grid& grid, Canvas& canvas) {
  std::vector<Canvas::Place> contour;
  for (const OutlineStep& step : OutlineOf(run)) {
    if (step.kind == OutlineStep::Kind::kMove) {
      canvas.addContour(contour);
      contour.clear();
    }
    const auto& [a, b, end] = step.points;
    if (step.kind != OutlineStep::Kind::kCurve || contour.empty()) {
      contour.push_back(grid.place(end.x, end.y));
      continue;
    }
    const Canvas::Place p0 = contour.back(), p1 = grid.place(a.x, a.y), p2 = grid.place(b.x, b.y),
                        p3 = grid.place(end.x, end.y);
    for (int i = 1; i <= kCurveSteps; ++i) {
      const double t = static_cast<double>(i) / kCurveSteps, s = 1 - t;
      const auto at = [&](double c0, double c1, double c2, double c3) {
        return s * s * s * c0 + 3 * s * s * t * c1 + 3 * s * t * t * c2 + t * t * t * c3;
      };
      contour.push_back({at(p0.x, p1.x, p2.x, p3.x), at(p0.y, p1.y, p2.y, p3.y)});
    }
  }
  canvas.addContour(contour);
  canvas.fill();
}

int Pixels(double length, double dpi) {
  const double pixels = std::round(length * dpi / kInch);
  if (pixels > kMaxBitmapSide) throw Error(BC_E_DATATOOLONG);
  return std::max(static_cast<int>(pixels), 1);
}

}  // namespace

Rgb ScreenColor(int mode, const Color& color) {
  const double* c = color.components;
  if (mode == 1) return {Level(c[0]), Level(c[0]), Level(c[0])};
  if (mode != 2) return {Level(c[0]), Level(c[1]), Level(c[2])};
  const double light = 1 - c[3];
  return {Level((1 - c[0]) * light), Level((1 - c[1]) * light), Level((1 - c[2]) * light)};
}

Bitmap Rasterized(const Drawing& drawing, const Size& size, double dpiX, double dpiY) {
  Bitmap bitmap;
  bitmap.width = Pixels(size.width, dpiX);
  bitmap.height = Pixels(size.height, dpiY);
  bitmap.dpiX = dpiX;
  bitmap.dpiY = dpiY;
  const auto width = static_cast<std::size_t>(bitmap.width),
             height = static_cast<std::size_t>(bitmap.height);
  if (width * height > kMaxBitmapPixels) throw Error(BC_E_DATATOOLONG);
  bitmap.bits.resize(bitmap.stride() * height);
  bitmap.paper = ScreenColor(drawing.colorMode, drawing.background);
  bitmap.ink = ScreenColor(drawing.colorMode, drawing.barColor);
  bitmap.opaque = drawing.opaqueBackground;

  const Grid grid = {dpiX / kInch, dpiY / kInch, bitmap.height};
  Canvas canvas(bitmap);
  for (const Rectangle& r : RectanglesOnDots(drawing, dpiX, dpiY)) {
    canvas.fillRectangle(r.left, bitmap.height - r.top, r.right, bitmap.height - r.bottom);
  }
  for (const Polygon& polygon : drawing.polygons) {
    std::vector<Canvas::Place> corners;
    for (const Point& p : polygon.points) corners.push_back(grid.place(p.x, p.y));
    canvas.addContour(corners);
    canvas.fill();
  }
  for (const Ring& ring : drawing.rings) DrawRing(ring, grid, canvas);
  for (const TextRun& run : drawing.texts) DrawText(run, grid, canvas);
  return bitmap;
}

}  // namespace Library
