// A symbol as a device-independent list of shapes: integers in thousandths of a millimetre, origin
// in the lower left corner of the page, y upward. Rotation and placement are done; a writer prints
// what it is given and knows no symbology.
#pragma once

#include "library/Options.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Library {

struct Point {
  std::int32_t x = 0, y = 0;
};

struct Rectangle {
  std::int32_t left = 0, bottom = 0, right = 0, top = 0;
  std::int32_t width() const { return right - left; }
  std::int32_t height() const { return top - bottom; }
};

struct Polygon {
  std::vector<Point> points;
};

// A filled circle with a circular hole.
struct Ring {
  Point centre;
  std::int32_t outerRadius = 0, innerRadius = 0;
};

struct TextRun {
  std::string text;          // Latin-1
  std::string font;          // PostScript name
  std::int32_t size = 0;     // font height in thousandths of a millimetre
  Point anchor;              // left end of the baseline, in the text's own direction
  std::int32_t width = 0;    // of the text at that size, by the font's metrics and the spacing
  std::int32_t spacing = 0;  // room between two characters in addition to the font's own
  int rotation = 0;          // quarter turns counter-clockwise
};

struct Drawing {
  Rectangle box;  // what the symbol with everything round it covers; the background fills it
  bool opaqueBackground = true;
  int colorMode = 0;  // 0 RGB, 1 grey, 2 CMYK
  Color background, barColor, fontColor;
  std::vector<Rectangle> rectangles;
  std::vector<Polygon> polygons;
  std::vector<Ring> rings;
  std::vector<TextRun> texts;
};

}  // namespace Library
