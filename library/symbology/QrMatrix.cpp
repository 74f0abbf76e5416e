#include "library/symbology/QrMatrix.h"

#include <algorithm>
#include <cstdlib>

namespace Library {

void QrCanvas::drawRings(int centreX, int centreY, int reach, std::uint32_t darkRings) {
  const int left = std::max(centreX - reach, 0);
  const int right = std::min(centreX + reach, modules.width - 1);
  const int top = std::max(centreY - reach, 0);
  const int bottom = std::min(centreY + reach, modules.height - 1);
  for (int y = top; y <= bottom; ++y) {
    for (int x = left; x <= right; ++x) {
      const int ring = std::max(std::abs(x - centreX), std::abs(y - centreY));
      set(x, y, (darkRings >> ring & 1) != 0);
    }
  }
}

void QrCanvas::place(const std::vector<std::uint8_t>& bytes, int right, int skippedColumn) {
  const std::size_t count = bytes.size() * 8;
  std::size_t bit = 0;
  const int last = modules.height - 1;
  bool upward = true;
  for (; right > 0; right -= 2, upward = !upward) {
    if (right == skippedColumn) --right;
    for (int step = 0; step <= last; ++step) {
      const int y = upward ? last - step : step;
      for (int x = right; x >= right - 1; --x) {
        if (drawn.isDark(x, y)) continue;
        if (bit == count) return;
        const unsigned dark = bytes[bit >> 3] >> (7 - (bit & 7)) & 1U;
        modules.word(x, y) |= std::uint64_t{dark} << (x & 63);
        ++bit;
      }
    }
  }
}

}  // namespace Library
