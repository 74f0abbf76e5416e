#include "library/writer/PclCommands.h"

#include "library/layout/Font.h"
#include "library/layout/Units.h"
#include "library/writer/TextBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Library {
namespace {

using Place = PclPage::Place;
using Area = PclPage::Area;

constexpr int kDecipoints = 720;  // to the inch

std::string Tenths(long tenths) {
  return TextBuilder::decimal(static_cast<double>(tenths) / 10);
}

bool IsControl(char character) {
  return (character & 0x60) == 0 || character == 0x7F;
}

}  // namespace

Pcl::Pcl(int dpi) : tenthsPerDot(kDecipoints * 10 / dpi) {}

// A letter in lower case says that the next command begins as this one.
std::string Pcl::move(const Place& by) const {
  const auto axis = [&](int dots, char letter) {
    return (dots < 0 ? "" : "+") + Tenths(static_cast<long>(dots) * tenthsPerDot) + letter;
  };
  if (by.x == 0 && by.y == 0) return {};
  if (by.y == 0) return "&a" + axis(by.x, 'H');
  return "&a" + (by.x == 0 ? "" : axis(by.x, 'h')) + axis(by.y, 'V');
}

// An absolute vertical place would count from the top margin, so the cursor goes up as far as the
// page does: farther than any page is high.
void Pcl::moveOnPage(const Place& to) {
  command("&a0h-20000V");
  moveFromCursor(to);
}

void Pcl::moveFromCursor(const Place& to) {
  if (to.x != 0 || to.y != 0) command(move(to));
}

void Pcl::stepTo(const Place& to) {
  moveFromCursor({to.x - pen.x, to.y - pen.y});
  pen = to;
}

// Printers round sizes up to whole dots, so they get a little less.
std::string Pcl::sizes(const Area& area) const {
  std::string text;
  if (area.width != lastWidth) text += Tenths(area.width * tenthsPerDot - 1) + "h";
  if (area.height != lastHeight) text += Tenths(area.height * tenthsPerDot - 1) + "v";
  return text;
}

void Pcl::fill(const Area& area, Fill kind) {
  command("*c" + sizes(area) + std::to_string(static_cast<int>(kind)) + "P");
  lastWidth = area.width;
  lastHeight = area.height;
}

std::size_t Pcl::cost(const Area& area) const {
  return move({area.left - pen.x, area.top - pen.y}).size() + sizes(area).size();
}

void ForEachInOrder(std::vector<Area> areas, const std::function<std::size_t(const Area&)>& cost,
                    const std::function<void(const Area&)>& write) {
  const std::size_t ahead =
      std::clamp<std::size_t>(100000 / std::max<std::size_t>(areas.size(), 1), 16, 400);
  std::size_t begin = 0;
  while (begin < areas.size()) {
    std::size_t best = begin, least = std::numeric_limits<std::size_t>::max();
    for (std::size_t i = begin; i < std::min(begin + ahead, areas.size()); ++i) {
      const std::size_t bytes = cost(areas[i]);
      if (bytes >= least) continue;
      least = bytes;
      best = i;
    }
    write(areas[best]);
    std::rotate(areas.begin() + static_cast<std::ptrdiff_t>(begin),
                areas.begin() + static_cast<std::ptrdiff_t>(best),
                areas.begin() + static_cast<std::ptrdiff_t>(best) + 1);
    ++begin;
  }
}

int PclShade(int mode, const Color& color) {
  const double* c = color.components;
  const double light = mode == 2   ? (1 - (c[0] + c[1] + c[2]) / 3) * (1 - c[3])
                       : mode == 1 ? c[0]
                                   : 0.299 * c[0] + 0.587 * c[1] + 0.114 * c[2];
  return static_cast<int>(std::lround((1 - light) * 100));
}

PclFont PclFontOf(const TextRun& run) {
  constexpr int kArial = 16602, kTimesNew = 16901, kCourier = 4099;
  const Font font = FindFont(run.font);
  const std::string_view name = font.standard ? std::string_view(font.name) : "Helvetica";
  const bool bold = name.find("Bold") != name.npos;
  const bool slanted = name.find("Oblique") != name.npos || name.find("Italic") != name.npos;
  const int typeface = name.starts_with("Times")     ? kTimesNew
                       : name.starts_with("Courier") ? kCourier
                                                     : kArial;
  return {typeface, bold ? 3 : 0, slanted ? 1 : 0, typeface != kCourier};
}

std::string PclPoints(const TextRun& run) {
  return TextBuilder::decimal(std::round(run.size / kPoint * 100) / 100);
}

std::vector<PclTextPiece> PclPiecesOf(const TextRun& run) {
  std::string text = run.text;
  std::replace_if(text.begin(), text.end(), IsControl, ' ');
  if (run.spacing == 0) return {{text, run.anchor}};
  const Font font = FindFont(run.font);
  constexpr Point kDirections[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  const Point& direction = kDirections[run.rotation & 3];
  std::vector<PclTextPiece> pieces;
  double along = 0;
  for (const char character : text) {
    const auto step = static_cast<std::int32_t>(std::lround(along));
    pieces.push_back({std::string(1, character),
                      {run.anchor.x + step * direction.x, run.anchor.y + step * direction.y}});
    along += font.textWidth(pieces.back().text, run.size) + run.spacing;
  }
  return pieces;
}

}  // namespace Library
