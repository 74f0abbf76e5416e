// The font of the human-readable text: which PostScript font a name means, and how long a text
// becomes in it.
#pragma once

#include "library/layout/FontWidths.h"

#include <string>
#include <string_view>

namespace Library {

struct Font {
  std::string name;                    // PostScript name
  bool standard = true;                // false: metrics are unknown, those of Helvetica stand in
  const FontWidths* widths = nullptr;  // null: every character is 0.6 of the font size wide
  double ascent = 0;                   // capitals and digits above the baseline, 1 is the font size
  double accentedAscent = 0;           // capitals with an accent
  double descent = 0;                  // brackets and letters below it

  // In the unit of `size`.
  double textWidth(std::string_view text, double size) const;
  // How high the highest character of the text may reach.
  double ascentOf(std::string_view text) const;
};

// Knows Helvetica, Times and Courier and their usual other names (Arial, Times New Roman, Courier
// New, with Bold, Italic and Oblique in any spelling). Any other name is kept as it is. Empty:
// Helvetica.
Font FindFont(std::string_view name);

}  // namespace Library
