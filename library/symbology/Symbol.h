// What was encoded, in modules. The hand-over from the encoders to the layout: an encoder knows no
// units, the layout no symbology.
#pragma once

#include <string>
#include <vector>

namespace Library {

enum class Geometry {
  kLinear,     // one row of bars
  kStacked,    // rows of bars, each with its own height in X
  kMatrix,     // square modules, every row 1 X high
  kDots,       // round dots in place of square modules
  kFourState,  // rows ascender, tracker, descender
  kHexagonal,  // MaxiCode's 33 rows of hexagons round a bullseye
};

// How a print ratio applies to the runs.
enum class ElementRule {
  kNoRatio,
  kTwoWidths,     // narrow and wide, bars and spaces: 4 numbers
  kTwoWidthBars,  // narrow and wide bars, one space: 3 numbers
  kFourWidths,    // bars and spaces of 1 to 4 modules: 8 numbers
};

struct SymbolRow {
  // Widths in modules, bar and space in turn. The first is a bar, 0 wide when the row begins
  // light. A two-width row holds 1 for narrow and the symbology's nominal factor for wide.
  std::vector<int> runs;
  double height = 0;  // in X; 0: shares what height is left
  // Numbers of runs: of each character, guard and gap between characters in turn. Empty: not known.
  std::vector<int> characters = {};
  bool rigid = false;  // no higher than that, also where rows have to fill a box
};

// A piece of human-readable text and the modules that it belongs to. [from, to) may reach outside
// 0..width: an EAN-13's first digit stands left of the bars.
struct SymbolText {
  enum class Place {
    kLine,
    kBetweenGuards,
    kSmallDigit,  // beside the bars on the line of the digits between the guards, as wide as fits
    kAboveAddOn
  };
  std::string text;  // Latin-1, printable
  int from = 0, to = 0;
  Place place = Place::kLine;
};

// Modules [from, to): bars inside drop below the data bars when text stands between the guards.
struct ModuleSpan {
  int from = 0, to = 0;
};

struct Symbol {
  int type = 0;
  Geometry geometry = Geometry::kLinear;
  ElementRule elements = ElementRule::kNoRatio;
  int width = 0;   // modules
  int centre = 0;  // modules of the square in the middle that readers take the scale from; 0: none
  bool evenlyRead = false;  // readers look for modules in even steps between the outer borders
  std::vector<SymbolRow> rows;
  std::vector<ModuleSpan> guards;
  ModuleSpan addOn;  // empty: none
  std::vector<SymbolText> texts;
  std::string checkDigits;  // as the symbol adds them
};

}  // namespace Library
