// From the symbol's own coordinates to the page: turns by quarters, moves to the place and rounds,
// once, to whole thousandths of a millimetre. Equal coordinates stay equal, so edges that meet
// still meet.
#pragma once

#include "library/layout/Drawing.h"

namespace Library {

class Placement {
 public:
  // A symbol of that size, unturned, whose lower left corner once turned lies at (left, bottom).
  Placement(double symbolWidth, double symbolHeight, int quarterTurns, double pageLeft,
            double pageBottom)
      : width(symbolWidth),
        height(symbolHeight),
        turns(quarterTurns),
        left(pageLeft),
        bottom(pageBottom) {}

  // These throw Error with BC_E_INVALIDARG for a place that 32 bits cannot hold.
  Point point(double x, double y) const;
  Rectangle rectangle(double x0, double y0, double x1, double y1) const;
  std::int32_t length(double value) const;
  Point turned(double x, double y) const;  // a difference of two points

  int quarterTurns() const { return turns; }

 private:
  double width, height;
  int turns;
  double left, bottom;
};

}  // namespace Library
