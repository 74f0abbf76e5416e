#include "library/writer/PostScriptBars.h"

namespace Library {

// u, v   device dots per unit along x and y
// E      low high E size start: an interval at least one dot long, a little inside its edges
// R      bottom top R: begins a row of bars between these, at x = 0
// B      gap width B: a bar that wide, that far from the last one
// The path is built in device dots; y and h are the row's lower edge and height there.
const std::string_view kPostScriptBarProcedures =
    "/D{dtransform abs exch abs add}bind def/u 1 0 D def/v 0 1 D def\n"
    "/E{2 copy ge{pop dup 1 add}if 1 index sub .06 sub exch .03 add}bind def\n"
    "/R{v mul round exch v mul round exch E/y exch def/h exch def/x 0 def}bind def\n"
    "/B{exch x add dup u mul round 3 1 roll add dup/x exch def u mul round E\n"
    "y moveto dup 0 rlineto 0 h rlineto neg 0 rlineto closepath}bind def";

void WriteOrigin(const Point& origin, TextBuilder& out) {
  out << origin << "transform round exch round exch itransform translate";
  out.endLine();
}

void WriteBars(std::span<const Rectangle> rectangles, const Point& origin, TextBuilder& out) {
  if (rectangles.empty()) return;
  out.line("gsave 1 u div 1 v div scale");
  const Rectangle* row = nullptr;
  std::int32_t right = 0;
  for (const Rectangle& r : rectangles) {
    if (!row || r.bottom != row->bottom || r.top != row->top) {
      row = &r;
      right = origin.x;
      out << r.bottom - origin.y << r.top - origin.y << "R";
    }
    out << r.left - right << r.width() << "B";
    right = r.right;
  }
  out << "fill grestore";
  out.endLine();
}

}  // namespace Library
