// What the human-readable text asks of the layout before anything has its place.
#pragma once

#include "library/Options.h"
#include "library/layout/Font.h"
#include "library/symbology/Symbol.h"

namespace Library {

struct TextPlan {
  bool shown = false;
  bool above = false;      // the digits between guard bars, or else the lines, stand above the bars
  bool hasDigits = false;  // text between guard bars
  bool hasLine = false;
  bool hasAddOn = false;

  Font font;
  double size = 0;      // font size, 1/1000 mm
  double ascent = 0;    // of the highest text, 1 is the font size
  double distance = 0;  // between bars and text, 1/1000 mm

  // Modules that text outside the bars needs left and right of them.
  int modulesLeft = 0, modulesRight = 0;

  // A line beside digits takes the other side of the bars (an ISBN).
  bool lineAbove() const { return hasDigits ? !above : above; }
  // Heights with the distance to the bars. Digits have no descenders, but round ones reach a little
  // below the line.
  double lineBand() const { return (ascent + font.descent) * size + distance; }
  double digitsBand() const { return (ascent + 0.03) * size + distance; }
  double bandAbove() const;
  double bandBelow() const;
  // How far the bars of an add-on begin below the others, to leave room for its digits.
  double addOnDrop() const { return shown && hasAddOn && !above ? digitsBand() : 0; }
  bool standsBetweenGuards() const { return shown && hasDigits && !above; }
};

// `defaultPoints`: font size in points where the options name none.
TextPlan PlanText(const Symbol& symbol, const Options& options, double defaultPoints);

}  // namespace Library
