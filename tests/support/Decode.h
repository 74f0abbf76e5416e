// Reads barcodes from pixels, with two readers that share no code.
#pragma once

#include "tests/support/Render.h"

#include <string>
#include <vector>

namespace Support {

struct Symbol {
  std::string format;   // the reader's name of the symbology
  std::string data;     // bytes
  double x = 0, y = 0;  // the middle, millimetres from the page's left and lower edge
  int orientation = 0;  // degrees counter-clockwise from upright, a multiple of 90
};

// The symbols on the page, as ZXing reads them, which looks harder for a single one. The middle of
// a linear symbol is that of some line through it.
std::vector<Symbol> Decode(const Page& page, int atMost = 1);
// The same by ZBar, which knows neither Data Matrix nor Aztec nor PDF417; without orientation.
std::vector<Symbol> DecodeWithZBar(const Page& page);

// The one symbol on the one page of a job that Ghostscript has nothing to say about; else its data
// describe what was found, and it has no format.
Symbol DecodeJob(std::string_view postScript, int dpi = 300);

// A line for messages: format, data and place of every symbol.
std::string Describe(const std::vector<Symbol>& symbols);

}  // namespace Support
