#include "library/layout/Move.h"

#include <algorithm>

namespace Library {

void Move(Drawing& drawing, std::int32_t x, std::int32_t y) {
  const auto move = [x, y](Point& p) { p = {p.x + x, p.y + y}; };
  const auto moveRectangle = [x, y](Rectangle& r) {
    r = {r.left + x, r.bottom + y, r.right + x, r.top + y};
  };
  moveRectangle(drawing.box);
  std::for_each(drawing.rectangles.begin(), drawing.rectangles.end(), moveRectangle);
  for (Polygon& polygon : drawing.polygons) {
    std::for_each(polygon.points.begin(), polygon.points.end(), move);
  }
  for (Ring& ring : drawing.rings) move(ring.centre);
  for (BarField& field : drawing.fields) move(field.origin);
  for (TextRun& text : drawing.texts) move(text.anchor);
}

}  // namespace Library
