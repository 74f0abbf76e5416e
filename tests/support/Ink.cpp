#include "tests/support/Ink.h"

#include "tests/support/Run.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <utility>

namespace Support {
namespace {

bool IsInk(const Page& page, int column, int row) {
  if (column < 0 || row < 0 || column >= page.width || row >= page.height) return false;
  const auto place = static_cast<std::size_t>(row) * static_cast<std::size_t>(page.width);
  return page.gray[place + static_cast<std::size_t>(column)] < 128;
}

bool IsInkAround(const Page& page, int column, int row) {
  for (int near = 0; near < 9; ++near) {
    if (IsInk(page, column - 1 + near % 3, row - 1 + near / 3)) return true;
  }
  return false;
}

// The point in the frame's directions.
std::pair<double, double> Turned(double x, double y, const Frame& frame) {
  x -= frame.x;
  y -= frame.y;
  for (int angle = frame.angle; angle > 0; angle -= 90) x = std::exchange(y, -x);
  return {x, y};
}

}  // namespace

std::ostream& operator<<(std::ostream& stream, const Box& box) {
  return stream << "left " << box.left << ", bottom " << box.bottom << ", right " << box.right
                << ", top " << box.top;
}

std::optional<Box> InkBeside(const Page& page, const Page& other, const Frame& frame) {
  std::optional<Box> box;
  for (int row = 0; row < page.height; ++row) {
    for (int column = 0; column < page.width; ++column) {
      if (!IsInk(page, column, row) || IsInkAround(other, column, row)) continue;
      const auto [x, y] =
          Turned(page.millimetres(column + 0.5), page.millimetres(page.height - row - 0.5), frame);
      if (!box) box = {x, y, x, y};
      *box = {std::min(box->left, x), std::min(box->bottom, y), std::max(box->right, x),
              std::max(box->top, y)};
    }
  }
  return box;
}

std::string TextOf(std::string_view postScript) {
  const TempFolder folder;
  const std::string text = folder.file("text");
  Run({.arguments = {"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=txtwrite",
                     "-sOutputFile=" + text, folder.write("job.ps", postScript)}});
  return ReadFile(text);
}

}  // namespace Support
