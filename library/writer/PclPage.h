// A drawing in dots, downward, from the upper left corner of its box: what both kinds of PCL print.
#pragma once

#include "library/layout/Drawing.h"

#include <cstdint>
#include <vector>

namespace Library {

struct PclPage {
  struct Place {
    int x = 0, y = 0;
  };
  struct Area {
    int left, top, width, height;  // at least one dot each way
  };

  // The drawing's y runs upward from the upper edge of the page. `dpi`: 300 or 600.
  PclPage(const Drawing& drawing, int dpi);

  // From the corner of the box.
  Place place(const Point& p) const;
  int length(std::int32_t thousandths) const;
  // Polygons and rings as areas of dots.
  static std::vector<Area> DotRows(const Drawing& drawing, int dpi);

  Place origin;  // the corner of the box, from where the rectangle's coordinates begin
  Place size;    // of the box
  std::vector<Area> bars;

 private:
  Place onPage(const Point& p) const;

  double scale;  // dots in 1/1000 mm
};

}  // namespace Library
