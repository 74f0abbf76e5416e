// A drawing in whole pixels: what the bitmap formats write into their files.
#pragma once

#include "library/layout/Drawing.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Library {

struct Rgb {
  std::uint8_t red, green, blue;
};

struct Bitmap {
  int width = 0, height = 0;  // pixels
  double dpiX = 0, dpiY = 0;
  // Rows from top to bottom, eight pixels a byte, the leftmost in the highest bit; 1 is ink. The
  // last bits of a row are 0.
  std::vector<std::uint8_t> bits;
  Rgb paper{}, ink{};
  bool opaque = true;  // else paper is transparent, where the format has that

  std::size_t stride() const { return (static_cast<std::size_t>(width) + 7) / 8; }
  const std::uint8_t* row(int y) const { return &bits[static_cast<std::size_t>(y) * stride()]; }
  bool isInk(int x, int y) const { return (row(y)[x >> 3] >> (7 - (x & 7)) & 1) != 0; }
};

// What a screen shows of a colour of that mode.
Rgb ScreenColor(int mode, const Color& color);

struct Size {
  double width, height;  // 1/1000 mm
};

// The part of the page from its lower left corner on at that resolution. Bars stand on pixels by
// the rule of layout/Dots.h; nothing is blurred. Text is drawn by the machine's fonts. Throws Error
// with BC_E_DATATOOLONG for more pixels than a print queue should wait for.
Bitmap Rasterized(const Drawing& drawing, const Size& size, double dpiX, double dpiY);

}  // namespace Library
