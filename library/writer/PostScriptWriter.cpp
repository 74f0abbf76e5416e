#include "library/writer/PostScriptWriter.h"

#include "library/layout/Units.h"
#include "library/writer/PostScriptBars.h"
#include "library/writer/PostScriptText.h"
#include "library/writer/TextBuilder.h"

#include <algorithm>
#include <cmath>

namespace Library {
namespace {

// Equal components are written as grey: printers take RGB black for a colour to be mixed or
// dithered.
void WriteColor(int mode, const Color& color, TextBuilder& out) {
  const double* c = color.components;
  if (mode == 2) {
    out << c[0] << c[1] << c[2] << c[3] << "setcmykcolor";
  } else if (mode == 1 || (c[0] == c[1] && c[1] == c[2])) {
    out << c[0] << "setgray";
  } else {
    out << c[0] << c[1] << c[2] << "setrgbcolor";
  }
  out.endLine();
}

bool SameColor(const Color& a, const Color& b) {
  return std::equal(std::begin(a.components), std::end(a.components), std::begin(b.components));
}

// Where the bars begin: they are what has to lie on whole dots.
Point OriginOf(const Drawing& drawing) {
  if (drawing.rectangles.empty() && !drawing.leftOut) {
    return {drawing.box.left, drawing.box.bottom};
  }
  Point origin = {drawing.box.right, drawing.box.top};
  if (drawing.leftOut) {
    origin = {std::min(origin.x, drawing.leftOut->left),
              std::min(origin.y, drawing.leftOut->bottom)};
  }
  for (const Rectangle& r : drawing.rectangles) {
    origin = {std::min(origin.x, r.left), std::min(origin.y, r.bottom)};
  }
  return origin;
}

std::vector<Point> Steps(const Polygon& polygon) {
  std::vector<Point> steps;
  for (std::size_t i = 1; i < polygon.points.size(); ++i) {
    steps.push_back({polygon.points[i].x - polygon.points[i - 1].x,
                     polygon.points[i].y - polygon.points[i - 1].y});
  }
  return steps;
}

bool SameSteps(const std::vector<Point>& a, const std::vector<Point>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const Point& p, const Point& q) { return p.x == q.x && p.y == q.y; });
}

// Polygons of one shape share a procedure, H.
void WritePolygons(const std::vector<Polygon>& polygons, const Point& origin, TextBuilder& out) {
  std::vector<Point> shape;
  for (const Polygon& polygon : polygons) {
    if (polygon.points.size() < 3) continue;
    const std::vector<Point> steps = Steps(polygon);
    if (shape.empty() || !SameSteps(steps, shape)) {
      shape = steps;
      out << "/H{moveto";
      for (const Point& step : shape) out << step << "rlineto";
      out << "closepath}bind def";
    }
    out << polygon.points[0].x - origin.x << polygon.points[0].y - origin.y << "H";
  }
}

void WriteCircle(const Point& centre, std::int32_t radius, std::string_view arc, TextBuilder& out) {
  if (radius <= 0) return;
  out << centre.x + radius << centre.y << "moveto" << centre << radius << arc << "closepath";
}

void WriteRings(const std::vector<Ring>& rings, const Point& origin, TextBuilder& out) {
  constexpr std::size_t kRingsOfAPath = 100;  // old interpreters hold 1500 points
  std::size_t count = 0;
  for (const Ring& ring : rings) {
    if (count++ == kRingsOfAPath) {
      out << "fill";
      out.endLine();
      count = 1;
    }
    const Point centre = {ring.centre.x - origin.x, ring.centre.y - origin.y};
    WriteCircle(centre, ring.outerRadius, "0 360 arc", out);
    WriteCircle(centre, ring.innerRadius, "360 0 arcn", out);
  }
}

// Jobs give operators names of a letter; `bind` would take those for our variables and procedures
// of that name where ours are not defined yet. Hence all of them are.
constexpr std::string_view kBegin =
    "gsave 60 dict begin[65 97]{1 1 index 25 add{( )dup 0 4 -1 roll put cvn 0 def}for}forall\n"
    "newpath 72 25400 div dup scale";

void WriteDrawing(const Drawing& drawing, TextBuilder& out) {
  const Point origin = OriginOf(drawing);
  out.line(kBegin);
  WriteOrigin(origin, out);
  if (drawing.opaqueBackground) {
    WriteColor(drawing.colorMode, drawing.background, out);
    out << drawing.box.left - origin.x << drawing.box.bottom - origin.y << drawing.box.width()
        << drawing.box.height() << "rectfill";
    out.endLine();
  }
  WriteColor(drawing.colorMode, drawing.barColor, out);
  WriteBars(drawing, origin, out);
  if (!drawing.polygons.empty() || !drawing.rings.empty()) {
    WritePolygons(drawing.polygons, origin, out);
    WriteRings(drawing.rings, origin, out);
    out << "fill";
    out.endLine();
  }
  if (!drawing.texts.empty()) {
    if (!SameColor(drawing.fontColor, drawing.barColor)) {
      WriteColor(drawing.colorMode, drawing.fontColor, out);
    }
    WriteText(drawing.texts, origin, out);
  }
  out.line("end grestore");
}

// One line `keyword left bottom right top`, in points.
void WriteBox(std::string_view keyword, double left, double bottom, double right, double top,
              TextBuilder& out) {
  out << keyword << left << bottom << right << top;
  out.endLine();
}

void WriteHeader(const Rectangle& box, TextBuilder& out) {
  const double left = box.left / kPoint, bottom = box.bottom / kPoint;
  const double right = box.right / kPoint, top = box.top / kPoint;
  out.line("%!PS-Adobe-3.0 EPSF-3.0");
  WriteBox("%%BoundingBox:", std::floor(left), std::floor(bottom), std::ceil(right), std::ceil(top),
           out);
  WriteBox("%%HiResBoundingBox:", left, bottom, right, top, out);
  out.line("%%LanguageLevel: 2");
  out.line("%%DocumentData: Clean7Bit");
  out.line("%%EndComments");
}

}  // namespace

std::string PostScriptWriter::write(const Drawing& drawing) const {
  TextBuilder out;
  if (overhead) WriteHeader(drawing.box, out);
  WriteDrawing(drawing, out);
  if (overhead) out.line("showpage");
  return out.finish();
}

}  // namespace Library
