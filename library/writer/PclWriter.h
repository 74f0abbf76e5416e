// PCL 5. With HP-GL/2 bars, polygons and text are HP-GL/2; without, PCL's rectangles and fonts.
//
// The cursor is where it was afterwards; so are font, unit of measure, palette and orientation, but
// that without HP-GL/2 text is shown in the secondary font, the primary one is in force then, and
// underlining is off.
// HP-GL/2 is left with its default values. docs/languages.md has the list.
//
// Edges are whole dots at 300 dpi, and so at 600, or at 600 dpi where the drawing was made for it.
#pragma once

#include "library/writer/Writer.h"

namespace Library {

class PclWriter : public Writer {
 public:
  enum class Mode { kHpGl2 = 0, kPclOnly = 1 };

  // Relative: from the cursor, else from the origin of the logical page.
  PclWriter(bool relative, Mode mode, int dpi)
      : fromCursor(relative), language(mode), resolution(dpi) {}
  // The drawing's y runs upward from the upper edge of the page, or from the cursor.
  std::string write(const Drawing& drawing) const override;

 private:
  bool fromCursor;
  Mode language;
  int resolution;
};

}  // namespace Library
