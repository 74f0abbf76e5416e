// A drawing in dots, downward, from the upper left corner of its box: what both kinds of PCL print.
#pragma once

#include "library/layout/Drawing.h"

#include <vector>

namespace Library {

struct PclPage {
  struct Place {
    int x = 0, y = 0;
  };
  struct Area {
    int left, top, width, height;  // at least one dot each way
  };

  // `rect` as the caller gave it, whose y runs downward: the drawing was made in it upward. `dpi`:
  // 300 or 600. Every edge of the drawing takes the dot of the page that is nearest to it.
  PclPage(const Drawing& drawing, const BCRect& rect, int dpi);

  // From the corner of the box.
  Place place(const Point& p) const;
  // Polygons and rings as runs of dots in rows.
  static std::vector<Area> DotRows(const Drawing& drawing, int dpi);

  Place origin;  // the corner of the box, from where the rectangle's coordinates begin
  Place size;    // of the box
  std::vector<Area> bars;

 private:
  Place onPage(const Point& p) const;

  double scale;  // dots in 1/1000 mm
  double sum;    // of the rectangle's top and bottom
};

}  // namespace Library
