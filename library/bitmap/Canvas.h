// Fills shapes with ink, each pixel whose centre lies inside.
#pragma once

#include "library/bitmap/Bitmap.h"

#include <span>
#include <vector>

namespace Library {

class Canvas {
 public:
  struct Place {
    double x, y;  // pixels, downward from the upper left corner
  };

  explicit Canvas(Bitmap& target) : bitmap(target) {}

  // Pixels [left, right) x [top, bottom); what lies outside the bitmap is left out.
  void fillRectangle(int left, int top, int right, int bottom);

  // A closed path that the next fill paints along with the others added since the last one, by the
  // non-zero winding rule.
  void addContour(std::span<const Place> corners);
  void fill();

 private:
  struct Edge {
    double top, bottom;
    double x, slope;  // at y = 0, and per pixel downward
    int winding;
  };
  void fillRun(int left, int right, int y);

  Bitmap& bitmap;
  std::vector<Edge> edges;
};

}  // namespace Library
