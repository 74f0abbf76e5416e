// Turns PostScript into pixels with Ghostscript.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Support {

struct Page {
  int width = 0;  // pixels
  int height = 0;
  int dpi = 0;
  std::vector<std::uint8_t> gray;  // row by row from the top; 0 black, 255 white

  double millimetres(double pixels) const { return pixels * 25.4 / dpi; }
};

struct Rendering {
  std::vector<Page> pages;
  // What the interpreter had to say; empty unless the job is in error or prints something.
  std::string messages;
};

// Page sizes are the job's own. No anti-aliasing: what a printer of that resolution would print.
Rendering Render(std::string_view postScript, int dpi);

}  // namespace Support
