// A symbol as a device-independent list of shapes: integers in thousandths of a millimetre, origin
// in the lower left corner of the page, y upward. Rotation and placement are done; a writer prints
// what it is given and knows no symbology.
#pragma once

#include "library/Options.h"

#include <cstdint>
#include <optional>
#include <span>
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

// Order from top to bottom and from left to right, so that bars of one row follow each other.
void SortRows(std::span<Rectangle> rectangles);

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

// A character of a row of bars, or a guard between characters: its edges go on dots together.
struct BarPart {
  // One byte an element, '0' and its width: in modules, or 1 for narrow and 2 for wide.
  std::string widths;
  double advance = 0;                // X from its beginning to that of the next part
  std::int32_t bottom = 0, top = 0;  // 1/1000 mm from the origin of the bars
};

struct BarRow {
  bool beginsDark = true;
  std::vector<BarPart> parts;
};

// The bars of one symbol, for writers that put them on the dots of a device (layout/Dots.h), in the
// symbol's own direction.
struct BarField {
  enum class Rule {
    kEdges,       // every edge by itself
    kCharacters,  // the edges of a character together
    kTwoWidths,   // equal narrow and equal wide elements
    kMatrix,      // rows and columns of modules
  };
  Rule rule = Rule::kEdges;
  // The drawing's rectangles that show these bars, and the bearer bars behind them.
  std::size_t first = 0, count = 0, bearers = 0;
  Point origin;                   // lower left corner of the unturned bars, on the page
  int rotation = 0;               // quarter turns counter-clockwise
  double module = 0;              // X
  double columns = 0, rows = 0;   // their size in X; rows: of a matrix
  double centre = 0;              // of a matrix: the square in its middle that is to be whole dots
  bool sharesDots = false;        // a matrix: modules of 1 to 2 dots share those on their borders
  double wide = 0;                // a wide element in X, of two widths
  double reduction = 0;           // of each bar; the rectangles have it already
  bool wholeDots = false;         // a module is to be whole dots, also where that is no gain
  bool mayShrink = false;         // to whole dots, if they are a gain
  std::vector<BarRow> bars = {};  // kCharacters, kTwoWidths: from top to bottom
};

// A symbol whose modules are smaller than readers are sure to tell apart.
struct SmallSymbol {
  double module = 0;       // X
  double neededWidth = 0;  // of the symbol with all that stands round it
};

struct Drawing {
  Rectangle box;  // what the symbol with everything round it covers; the background fills it
  bool opaqueBackground = true;
  int colorMode = 0;  // 0 RGB, 1 grey, 2 CMYK
  Color background, barColor, fontColor;
  std::vector<Rectangle> rectangles;
  std::vector<BarField> fields;      // in the order of their rectangles
  std::optional<Rectangle> leftOut;  // what rectangles that are left out would cover
  std::vector<Polygon> polygons;
  std::vector<Ring> rings;
  std::vector<TextRun> texts;
  std::optional<SmallSymbol> tooSmall;
};

}  // namespace Library
