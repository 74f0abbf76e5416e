#include "library/font/Outlines.h"

#include "library/font/Face.h"
#include "library/font/FreeType.h"

#include <algorithm>

namespace Library {
namespace {

using Step = OutlineStep;
using Place = Step::Place;

// Collects what FreeType decomposes, in font units, the pen moved along.
struct Collector {
  std::vector<Step> steps;
  double pen = 0;
  Place last{};

  Place placeOf(const FT_Vector* p) const {
    return {pen + static_cast<double>(p->x), static_cast<double>(p->y)};
  }
  void add(Step::Kind kind, const Place& a, const Place& b, const Place& end) {
    steps.push_back({kind, {a, b, end}});
    last = end;
  }
};

Collector& Of(void* user) {
  return *static_cast<Collector*>(user);
}

int MoveTo(const FT_Vector* to, void* user) {
  Of(user).add(Step::Kind::kMove, {}, {}, Of(user).placeOf(to));
  return 0;
}
int LineTo(const FT_Vector* to, void* user) {
  Of(user).add(Step::Kind::kLine, {}, {}, Of(user).placeOf(to));
  return 0;
}
// A quadratic curve as a cubic one.
int ConicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
  const Place from = Of(user).last, middle = Of(user).placeOf(control), end = Of(user).placeOf(to);
  const auto toward = [&](const Place& start) {
    return Place{start.x + (middle.x - start.x) * 2 / 3, start.y + (middle.y - start.y) * 2 / 3};
  };
  Of(user).add(Step::Kind::kCurve, toward(from), toward(end), end);
  return 0;
}
int CubicTo(const FT_Vector* a, const FT_Vector* b, const FT_Vector* to, void* user) {
  Of(user).add(Step::Kind::kCurve, Of(user).placeOf(a), Of(user).placeOf(b), Of(user).placeOf(to));
  return 0;
}

// From font units to the drawing: narrowed, scaled, moved and turned.
class Transform {
 public:
  Transform(const TextRun& run, double scaleX, double scaleY, double start)
      : anchor(run.anchor), quarterTurns(run.rotation & 3), x(scaleX), y(scaleY), offset(start) {}

  Place operator()(const Place& p) const {
    const double across = offset + p.x * x, up = p.y * y;
    constexpr double kCos[] = {1, 0, -1, 0}, kSin[] = {0, 1, 0, -1};
    const double c = kCos[quarterTurns], s = kSin[quarterTurns];
    return {anchor.x + c * across - s * up, anchor.y + s * across + c * up};
  }

 private:
  Point anchor;
  int quarterTurns;
  double x, y, offset;
};

}  // namespace

std::vector<OutlineStep> OutlineOf(const TextRun& run) {
  const Face face = OpenFace(run.font);
  if (!face) return {};
  const FreeType& freeType = LoadedFreeType();
  constexpr FT_Outline_Funcs kFunctions = {MoveTo, LineTo, ConicTo, CubicTo, 0, 0};
  const double scale = run.size / static_cast<double>(face->units_per_EM);
  const double spacing = run.spacing / scale;
  Collector collector;
  for (const char character : run.text) {
    const FT_ULong code = static_cast<unsigned char>(character);
    if (freeType.loadChar(face.get(), code, FT_LOAD_NO_SCALE) != 0) continue;
    if (face->glyph->format == FT_GLYPH_FORMAT_OUTLINE) {
      freeType.decompose(&face->glyph->outline, &kFunctions, &collector);
    }
    collector.pen += static_cast<double>(face->glyph->advance.x) + spacing;
  }
  const double width = (collector.pen - spacing) * scale;
  const double narrowed = width > run.width ? run.width / width : 1;
  const Transform transform(run, scale * narrowed, scale, (run.width - width * narrowed) / 2);
  for (Step& step : collector.steps) {
    for (Place& point : step.points) point = transform(point);
  }
  return std::move(collector.steps);
}

bool HasOutlines(const Drawing& drawing) {
  return std::ranges::all_of(drawing.texts, [](const TextRun& run) {
    return run.text.empty() || OpenFace(run.font) != nullptr;
  });
}

}  // namespace Library
