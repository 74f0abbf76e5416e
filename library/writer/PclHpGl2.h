// The drawing in HP-GL/2, which is inside of PCL: bars, polygons, rings and text.
//
// The unit in each direction is what makes numbers short, a module or the height of bars, or else a
// dot; y runs upward. Colours
// other than black are pens of a palette that is dropped afterwards.
#pragma once

#include "library/layout/Drawing.h"
#include "library/writer/PclCommands.h"
#include "library/writer/PclPage.h"

namespace Library {

// PCL's cursor is at the corner of the box, and stays there.
void WriteHpGl2(const Drawing& drawing, const PclPage& page, int dpi, Pcl& pcl);

}  // namespace Library
