// PCL 5. With HP-GL/2 bars, polygons and text are HP-GL/2; without, PCL's rectangles and fonts.
//
// Cursor moves and sizes are decipoints (1/720 inch) with one decimal, which are the printer's own
// internal units, so the unit of measure stays as it is. The cursor is where it was afterwards; so
// are font, palette and orientation, but that without HP-GL/2 text is shown in the secondary font,
// and the primary one is in force then. HP-GL/2 is left with its default values.
//
// Edges are whole dots at 300 dpi, and so at 600, or at 600 dpi where the drawing was made for it.
#pragma once

#include "library/writer/Writer.h"

namespace Library {

class PclWriter : public Writer {
 public:
  enum class Mode { kHpGl2 = 0, kPclOnly = 1 };

  // `rect` as the caller gave it, whose y runs downward: the drawing was made in it upward.
  // Relative: from the cursor, else from the origin of the logical page.
  PclWriter(const BCRect& rect, bool relative, Mode mode, int dpi)
      : rectangle(rect), fromCursor(relative), language(mode), resolution(dpi) {}
  std::string write(const Drawing& drawing) const override;

 private:
  BCRect rectangle;
  bool fromCursor;
  Mode language;
  int resolution;
};

}  // namespace Library
