// Bars in PostScript, on whole device dots.
//
// A page interpreter paints each dot that a shape touches or each whose centre it holds, and bars
// between dots come out a dot wider or narrower at random. So the printed program puts edges on
// dots itself, by the rule of layout/Dots.h with the dots of the device that it is printed on: the
// lower left corner of the symbol moves to a whole dot, and the edges are counted from there. The
// rectangles then stop a little short of the edges, so that neither rule paints a dot more when the
// interpreter's arithmetic is a hair off.
//
// Works under quarter turns and mirroring; under any other rotation each edge is rounded by itself,
// which does no harm.
#pragma once

#include "library/writer/TextBuilder.h"

namespace Library {

// Moves the origin to the device dot nearest to the point.
void WriteOrigin(const Point& origin, TextBuilder& out);

// The rectangles of the drawing, with the procedures that they need, which stand in the writer's
// own dictionary. `origin`: what WriteOrigin was given; the current unit is 1/1000 mm.
void WriteBars(const Drawing& drawing, const Point& origin, TextBuilder& out);

}  // namespace Library
