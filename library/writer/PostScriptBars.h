// Rectangles in PostScript, on whole device dots.
//
// A page interpreter paints each dot that a shape touches or each whose centre it holds, and bars
// between dots come out a dot wider or narrower at random. So the printed program rounds for
// itself: the lower left corner of the symbol moves to a whole dot, and from there each edge is
// rounded to the nearest one. Equal modules that are whole numbers of dots stay equal this way,
// whatever the place on the page. The rectangles then stop a little short of the edges, so that
// neither rule paints a dot more when the interpreter's arithmetic is a hair off.
//
// Works under quarter turns and mirroring; under any other rotation it does no harm.
#pragma once

#include "library/writer/TextBuilder.h"

#include <span>

namespace Library {

// Procedures, to stand in the writer's own dictionary, in coordinates of 1/1000 mm.
extern const std::string_view kPostScriptBarProcedures;

// Moves the origin to the device dot nearest to the point.
void WriteOrigin(const Point& origin, TextBuilder& out);

// One filled path. `origin`: what WriteOrigin was given.
void WriteBars(std::span<const Rectangle> rectangles, const Point& origin, TextBuilder& out);

}  // namespace Library
