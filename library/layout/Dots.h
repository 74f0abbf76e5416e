// Where edges of bars and modules go on the dots of a device.
//
// A decoder measures distances between edges, so edges that are rounded each by itself may be off
// by a dot against each other. The rule:
//
//   - whole dots a module where that makes them equal at little cost: under kWholeDotsBelow dots a
//     module, if the symbol loses at most a fifth of its size and grows by no more than half a dot;
//   - else characters begin and end on the nearest dots, and of all ways to round the edges inside
//     up or down the one is taken in which a decoder's measures come out best (FitCharacter);
//   - symbols of two widths have equal narrow and equal wide elements at any size, and what is left
//     over goes into the gaps between characters;
//   - Aztec symbols are symmetric and have whole dots across what their readers measure (from
//     kCentredFrom dots a module on), because those sample all modules from the bull's-eye
//     outwards;
//   - modules of Data Matrix that have between one and two dots share those on their borders
//     (layout/SharedDots.h);
//   - from kFitBelow dots a module on, and where nothing else is known, each edge by itself.
//
// Other writers use this; PostScript has it as a program (writer/PostScriptBars.cpp), which must do
// the same. docs/print-quality.md has the figures.
#pragma once

#include "library/layout/Drawing.h"

#include <span>
#include <string_view>
#include <vector>

namespace Library {

constexpr double kWholeDotsBelow = 3, kFitBelow = 6;
constexpr double kCentredFrom = 2;

// Places of the edges of a character `total` dots wide, without the first, which is 0. `widths` as
// those of BarPart.
std::vector<int> FitCharacter(std::string_view widths, int total);

// Dots a module of a symbol of so many columns that would have `dots`, which need not be whole.
double DotsPerModule(const BarField& field, double dots);

struct ElementDots {
  double narrow, wide;
};
// Of a symbol of two widths; not whole where no whole dots suit.
ElementDots TwoWidthDots(const BarField& field, double dots);

// All rectangles of the drawing in dots, which begin at the origin of the page.
std::vector<Rectangle> RectanglesOnDots(const Drawing& drawing, double dpiX, double dpiY);

// What the elements of a symbol of two widths must not exceed: `narrow` and `wide` of them take
// `room` X.
struct ElementRoom {
  double narrow, wide, room;
  bool operator==(const ElementRoom&) const = default;
};
// One for each kind of character; of a symbol without gaps one for all of it.
std::vector<ElementRoom> ElementRooms(const BarField& field);
// The share of the room that the elements have to fill.
double LeastFilled(const BarField& field);

// A rectangle of the page as the field's own direction sees it, from its origin.
Rectangle InField(const BarField& field, const Rectangle& onPage);

}  // namespace Library
