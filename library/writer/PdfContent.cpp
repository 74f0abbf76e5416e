#include "library/writer/PdfContent.h"

#include "library/font/Outlines.h"
#include "library/layout/Font.h"
#include "library/layout/Units.h"
#include "library/writer/Hex.h"
#include "library/writer/TextBuilder.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>
#include <utility>

namespace Library {
namespace {

void WriteColor(int mode, const Color& color, TextBuilder& out) {
  const double* c = color.components;
  if (mode == 2) {
    out << c[0] << c[1] << c[2] << c[3] << "k";
  } else if (mode == 1) {
    out << c[0] << "g";
  } else {
    out << c[0] << c[1] << c[2] << "rg";
  }
  out.endLine();
}

void WriteRectangle(const Rectangle& r, TextBuilder& out) {
  out << r.left << r.bottom << r.width() << r.height() << "re";
}

void WritePolygon(const Polygon& polygon, TextBuilder& out) {
  std::string_view operation = "m";
  for (const Point& point : polygon.points) {
    out << point << operation;
    operation = "l";
  }
  out << "h";
}

// Four cubic curves; `direction` 1 runs counter-clockwise, -1 clockwise.
void WriteCircle(const Point& centre, std::int32_t radius, int direction, TextBuilder& out) {
  if (radius <= 0) return;
  constexpr double kArm = 0.5522847498;  // of the radius: the usual curve for a quarter circle
  const auto place = [&](double x, double y) {
    out << std::lround(centre.x + x * radius) << std::lround(centre.y + y * radius * direction);
  };
  constexpr double kQuarters[4][2] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  place(1, 0);
  out << "m";
  for (int i = 0; i < 4; ++i) {
    const auto [x, y] = std::pair(kQuarters[i][0], kQuarters[i][1]);
    const auto [nextX, nextY] = std::pair(kQuarters[(i + 1) % 4][0], kQuarters[(i + 1) % 4][1]);
    place(x + kArm * nextX, y + kArm * nextY);
    place(nextX + kArm * x, nextY + kArm * y);
    place(nextX, nextY);
    out << "c";
  }
  out << "h";
}

void WriteShapes(const Drawing& drawing, TextBuilder& out) {
  if (drawing.rectangles.empty() && drawing.polygons.empty() && drawing.rings.empty()) return;
  for (const Rectangle& r : drawing.rectangles) WriteRectangle(r, out);
  for (const Polygon& polygon : drawing.polygons) WritePolygon(polygon, out);
  for (const Ring& ring : drawing.rings) {
    WriteCircle(ring.centre, ring.outerRadius, 1, out);
    WriteCircle(ring.centre, ring.innerRadius, -1, out);
  }
  out << "f";
  out.endLine();
}

void WriteOutlines(const TextRun& run, TextBuilder& out) {
  constexpr std::string_view kOperators[] = {"m", "l", "c"};
  const std::vector<OutlineStep> steps = OutlineOf(run);
  bool open = false;
  for (const OutlineStep& step : steps) {
    const bool move = step.kind == OutlineStep::Kind::kMove;
    if (move && open) out << "h";
    open = true;
    const bool curve = step.kind == OutlineStep::Kind::kCurve;
    for (const auto& p : std::span(step.points).subspan(curve ? 0 : 2)) {
      out << std::lround(p.x) << std::lround(p.y);
    }
    out << kOperators[static_cast<std::size_t>(step.kind)];
  }
  if (open) out << "h f";
  out.endLine();
}

// The number of a font, from 1, which is added when it is new. PDF knows the standard fonts by
// name; any other becomes Helvetica, with whose metrics its text was laid out.
std::size_t FontNumber(const TextRun& run, std::vector<std::string>& fonts) {
  const Font font = FindFont(run.font);
  const std::string name = font.standard ? font.name : "Helvetica";
  const auto found = std::find(fonts.begin(), fonts.end(), name);
  if (found != fonts.end()) return static_cast<std::size_t>(found - fonts.begin()) + 1;
  fonts.push_back(name);
  return fonts.size();
}

void WriteShow(const TextRun& run, std::vector<std::string>& fonts, TextBuilder& out) {
  constexpr Point kDirections[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  const Point& d = kDirections[run.rotation & 3];
  out << "/F" + std::to_string(FontNumber(run, fonts)) << run.size << "Tf" << run.spacing << "Tc";
  out << d.x << d.y << -d.y << d.x << run.anchor << "Tm" << Hex(run.text) << "Tj";
  out.endLine();
}

}  // namespace

std::string PdfContent(const Drawing& drawing, std::vector<std::string>* fonts) {
  TextBuilder out;
  // 72 points are 25,400 thousandths of a millimetre.
  out.line("q 0.00283464567 0 0 0.00283464567 0 0 cm");
  if (drawing.opaqueBackground) {
    WriteColor(drawing.colorMode, drawing.background, out);
    WriteRectangle(drawing.box, out);
    out << "f";
    out.endLine();
  }
  WriteColor(drawing.colorMode, drawing.barColor, out);
  WriteShapes(drawing, out);
  if (!drawing.texts.empty()) {
    WriteColor(drawing.colorMode, drawing.fontColor, out);
    if (fonts != nullptr) out << "BT";
    for (const TextRun& run : drawing.texts) {
      if (fonts != nullptr) {
        WriteShow(run, *fonts, out);
      } else {
        WriteOutlines(run, out);
      }
    }
    if (fonts != nullptr) out << "ET";
  }
  out.line("Q");
  return out.finish();
}

}  // namespace Library
