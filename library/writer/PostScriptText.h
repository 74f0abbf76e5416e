// Human-readable text in PostScript.
#pragma once

#include "library/writer/TextBuilder.h"

#include <span>

namespace Library {

// `origin`: where the coordinate system of the program begins.
void WriteText(std::span<const TextRun> texts, const Point& origin, TextBuilder& out);

}  // namespace Library
