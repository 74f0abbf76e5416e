#include "library/layout/Dots.h"

#include "library/layout/SharedDots.h"
#include "library/layout/Units.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <optional>
#include <utility>

namespace Library {
namespace {

// A symbol may become so much smaller for the sake of whole dots.
constexpr double kLeastSize = 0.8;
// One dot is too few where two are within 26 %.
constexpr double kTooFewFrom = 2 / 1.26;
// A symbol is said to have room when no more than this part of a dot is missing.
constexpr double kHalfDot = 0.5, kSlack = 0.02;

// A narrow element is to be a third to half of a wide one. Gaps need half a narrow element at least
// and may take a third of a character.
constexpr int kLeastWide = 2, kMostWide = 3;
constexpr double kLeastGap = 0.5;
constexpr double kLeastFilledWithGaps = 0.75;

// Searches the edges of one character from left to right. The residual of an edge is how far it is
// off its ideal place, in dots times modules, so that all is done in integers: an element is off by
// the difference of two residuals, and so is the distance of two edges of one kind, which decoders
// compare. The latter weighs double. Ways that are as bad at their worst are told apart by the sum
// of the squares of what elements are off.
class CharacterFit {
 public:
  CharacterFit(std::string_view elements, int dots) : widths(elements), total(dots) {
    for (const char c : widths) modules += c - '0';
    std::int64_t at = 0;
    for (const char c : widths) {
      at += c - '0';
      const std::int64_t over = at * total % modules;
      nearest.push_back(2 * over >= modules ? modules - over : -over);
    }
    current = best = nearest;
    search(0, 0, 0, {0, 0});
  }

  std::vector<int> edges() const {
    std::vector<int> places;
    std::int64_t at = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      at += widths[i] - '0';
      places.push_back(static_cast<int>((best[i] + at * total) / modules));
    }
    return places;
  }

 private:
  struct Cost {
    std::int64_t worst, squares;
    auto operator<=>(const Cost&) const = default;
  };

  // Tries both dots for an edge; `before` and `last` are the residuals of the two in front of it.
  void search(std::size_t edge, std::int64_t before, std::int64_t last, Cost cost) {
    const std::int64_t near = nearest[edge];
    attempt(edge, near, before, last, cost);
    if (edge + 1 == widths.size()) return;
    attempt(edge, near > 0 ? near - modules : near + modules, before, last, cost);
  }

  void attempt(std::size_t edge, std::int64_t residual, std::int64_t before, std::int64_t last,
               Cost cost) {
    const std::int64_t off = residual - last;
    if (off + (widths[edge] - '0') * std::int64_t{total} < modules) return;  // less than a dot
    const bool final = edge + 1 == widths.size();
    cost.worst = std::max(cost.worst, std::abs(off));
    if (edge > 0 && !final) cost.worst = std::max(cost.worst, 2 * std::abs(residual - before));
    cost.squares += off * off;
    if (!(cost < least)) return;
    current[edge] = residual;
    if (!final) return search(edge + 1, last, residual, cost);
    least = cost;
    best = current;
  }

  std::string_view widths;
  std::int64_t total, modules = 0;
  std::vector<std::int64_t> nearest, current, best;
  Cost least = {INT64_MAX, INT64_MAX};
};

double Round(double value) {
  return std::floor(value + 0.5);
}

// The borders of columns and rows of a symbol that is symmetric: every square round its middle has
// the number of dots that is nearest to its modules among the odd or among the even ones, and the
// one that readers measure is whole dots.
class CentredGrid {
 public:
  CentredGrid(const BarField& field, double dots)
      : modules(Round(field.columns)), measure(field.centre) {
    const double most = modules * dots + kHalfDot;
    measured = std::floor(measure * most / modules);
    size = sizeOf(modules);
    if (size > most) size -= 2;
  }

  double dots() const { return size; }

  double border(double module) const {
    const double fromMiddle = 2 * module - modules;
    const double square = std::min(sizeOf(std::abs(fromMiddle)), size);
    return (size + std::copysign(square, fromMiddle)) / 2;
  }

 private:
  double sizeOf(double square) const {
    const double odd = std::fmod(measured, 2);
    return odd + 2 * Round((square * measured / measure - odd) / 2);
  }

  double modules, measure;
  double measured = 0, size = 0;  // in dots
};

// Rectangles of one field in dots from its origin.
class FieldOnDots {
 public:
  FieldOnDots(const BarField& bars, double dotsAlong, double dotsAcross)
      : field(bars), u(dotsAlong), v(dotsAcross), d(field.module * u) {}

  std::vector<Rectangle> rectangles(std::span<const Rectangle> all) {
    for (const Rectangle& r : all.subspan(field.first + field.count, field.bearers)) add(r);
    if (field.rule == BarField::Rule::kTwoWidths) {
      addTwoWidths();
    } else {
      toWholeDots();
      if (field.rule == BarField::Rule::kCharacters) {
        addCharacters();
      } else if (field.sharesDots && d >= kSharedFrom && d < kSharedBelow && !oblong()) {
        addShared(modulesOf(all.subspan(field.first, field.count)));
      } else {
        for (const Rectangle& r : all.subspan(field.first, field.count)) add(r);
      }
    }
    return std::move(found);
  }

 private:
  void toWholeDots() {
    const bool matrix = field.rule == BarField::Rule::kMatrix;
    if (matrix && oblong()) return;
    const double ideal = d;
    d = DotsPerModule(field, ideal);
    if (d != ideal) {
      x0 = std::trunc(field.columns * (ideal - d) / 2);
      u = d / field.module;
      if (!matrix) return;
      y0 = std::trunc(field.rows * (ideal - d) / 2);
      v = u;
    }
    if (field.centre > 0 && d >= kCentredFrom) centre();
  }

  // The dots themselves.
  bool oblong() const { return std::abs(u - v) > u / 100; }

  void centre() {
    grid.emplace(field, d);
    const double less = std::trunc((field.columns * d - grid->dots()) / 2);
    x0 += less;
    y0 += less;
  }

  double along(double x) const {
    return grid ? grid->border(Round(x / field.module)) : Round(x * u);
  }
  double across(double y) const {
    return grid ? grid->border(Round(y / field.module)) : Round(y * v);
  }

  void add(const Rectangle& onPage) {
    const Rectangle r = InField(field, onPage);
    bottom = y0 + across(r.bottom);
    top = y0 + across(r.top);
    put(along(r.left), along(r.right));
  }

  // A bar at least one dot wide.
  void put(double left, double right) {
    const auto dot = [](double place) { return static_cast<std::int32_t>(place); };
    found.push_back({dot(x0 + left), dot(bottom), dot(x0 + std::max(right, left + 1)),
                     dot(std::max(top, bottom + 1))});
  }

  void putBar(double left, double right) {
    const double less = Round(field.reduction * u), half = std::trunc(less / 2);
    put(left + half, right - (less - half));
  }

  void begin(const BarPart& part) {
    bottom = Round(part.bottom * v);
    top = Round(part.top * v);
  }

  void addCharacters() {
    for (const BarRow& row : field.bars) {
      double modules = 0;
      bool dark = row.beginsDark;
      for (const BarPart& part : row.parts) {
        begin(part);
        const double left = Round(modules * d);
        modules += part.advance;
        const int total = static_cast<int>(Round(modules * d) - left);
        double last = left;
        for (const int edge : edgesOf(part.widths, total)) {
          if (dark) putBar(last, left + edge);
          last = left + edge;
          dark = !dark;
        }
      }
    }
  }

  std::vector<int> edgesOf(std::string_view widths, int total) const {
    if (d < kFitBelow) return FitCharacter(widths, total);
    const double modules = std::accumulate(widths.begin(), widths.end(), 0.0,
                                           [](double sum, char c) { return sum + (c - '0'); });
    std::vector<int> edges;
    double at = 0;
    for (const char c : widths) {
      at += c - '0';
      edges.push_back(static_cast<int>(Round(at * total / modules)));
    }
    return edges;
  }

  CellGrid modulesOf(std::span<const Rectangle> dark) const {
    const auto module = [this](double place) { return static_cast<int>(Round(place)); };
    CellGrid modules{module(field.columns), module(field.rows), {}};
    modules.cells.resize(static_cast<std::size_t>(modules.columns * modules.rows));
    for (const Rectangle& onPage : dark) {
      const Rectangle r = InField(field, onPage);
      const int left = module(r.left / field.module), right = module(r.right / field.module);
      for (int row = module(r.bottom / field.module); row < module(r.top / field.module); ++row) {
        const auto begin = modules.cells.begin() + row * modules.columns;
        std::fill(begin + left, begin + right, std::uint8_t{1});
      }
    }
    return modules;
  }

  void addShared(const CellGrid& modules) {
    const auto dotsOf = [this](int count, double dots) {
      return static_cast<int>(Round(count * field.module * dots));
    };
    const CellGrid dots = ShareDots(modules, dotsOf(modules.columns, u), dotsOf(modules.rows, v));
    for (int y = 0; y < dots.rows; ++y) {
      const auto row = dots.cells.begin() + y * dots.columns, end = row + dots.columns;
      bottom = y0 + y;
      top = bottom + 1;
      for (auto from = std::find(row, end, 1); from != end;) {
        const auto to = std::find(from, end, 0);
        put(double(from - row), double(to - row));
        from = std::find(to, end, 1);
      }
    }
  }

  void addTwoWidths() {
    const ElementDots dots = TwoWidthDots(field, d);
    const std::vector<ElementRoom> rooms = ElementRooms(field);
    if (rooms.size() == 1 && field.bars.front().parts.size() == 1) {
      const ElementRoom& all = rooms.front();
      x0 = std::trunc((all.room * d - all.narrow * dots.narrow - all.wide * dots.wide) / 2);
    }
    for (const BarRow& row : field.bars) {
      double modules = 0;
      for (const BarPart& part : row.parts) {
        begin(part);
        double last = modules * d;
        modules += part.advance;
        bool dark = true;
        for (const char c : part.widths) {
          const double next = last + (c == '1' ? dots.narrow : dots.wide);
          if (dark) putBar(Round(last), Round(next));
          last = next;
          dark = !dark;
        }
      }
    }
  }

  const BarField& field;
  double u, v;  // dots per 1/1000 mm
  double d;     // dots per module
  double x0 = 0, y0 = 0, bottom = 0, top = 0;
  std::optional<CentredGrid> grid;
  std::vector<Rectangle> found;
};

struct Dot {
  std::int32_t x, y;
};

Dot Turned(const Dot& dot, int quarterTurns) {
  switch (quarterTurns) {
    case 1:
      return {-dot.y, dot.x};
    case 2:
      return {-dot.x, -dot.y};
    case 3:
      return {dot.y, -dot.x};
    default:
      return dot;
  }
}

Rectangle OnPage(const Rectangle& r, const Dot& origin, int quarterTurns) {
  const Dot a = Turned({r.left, r.bottom}, quarterTurns);
  const Dot b = Turned({r.right, r.top}, quarterTurns);
  return {origin.x + std::min(a.x, b.x), origin.y + std::min(a.y, b.y),
          origin.x + std::max(a.x, b.x), origin.y + std::max(a.y, b.y)};
}

}  // namespace

std::vector<int> FitCharacter(std::string_view widths, int total) {
  return CharacterFit(widths, total).edges();
}

double DotsPerModule(const BarField& field, double dots) {
  double whole = Round(dots);
  if (whole * field.columns > dots * field.columns + kHalfDot) --whole;
  if (whole < 1) return dots;
  if (field.wholeDots) return whole > 1 || dots < kTooFewFrom ? whole : dots;
  const bool gain = dots < kWholeDotsBelow && whole >= dots * kLeastSize;
  return field.mayShrink && gain ? whole : dots;
}

std::vector<ElementRoom> ElementRooms(const BarField& field) {
  std::vector<ElementRoom> rooms;
  for (const BarRow& row : field.bars) {
    for (const BarPart& part : row.parts) {
      const auto narrow =
          static_cast<double>(std::count(part.widths.begin(), part.widths.end(), '1'));
      const double wide = static_cast<double>(part.widths.size()) - narrow;
      const bool last = &part == &row.parts.back();
      const ElementRoom room = {narrow + (last ? 0 : kLeastGap), wide, part.advance};
      if (std::find(rooms.begin(), rooms.end(), room) == rooms.end()) rooms.push_back(room);
    }
  }
  return rooms;
}

double LeastFilled(const BarField& field) {
  return field.bars.front().parts.size() > 1 ? kLeastFilledWithGaps : kLeastSize;
}

ElementDots TwoWidthDots(const BarField& field, double dots) {
  ElementDots best = {dots, field.wide * dots};
  const std::vector<ElementRoom> rooms = ElementRooms(field);
  const double filled = LeastFilled(field);
  double least = HUGE_VAL;
  for (double narrow = std::max(std::floor(dots) - 1, 1.0); narrow <= std::floor(dots) + 2;
       ++narrow) {
    for (double wide = kLeastWide * narrow; wide <= kMostWide * narrow; ++wide) {
      const bool suits = std::all_of(rooms.begin(), rooms.end(), [&](const ElementRoom& room) {
        const double most = std::floor(room.room * dots + kSlack);
        const double needed = room.narrow * narrow + room.wide * wide;
        return needed <= most && needed >= most * filled;
      });
      const double cost = 2 * std::abs(narrow - dots) + std::abs(wide - field.wide * dots);
      if (!suits || cost >= least) continue;
      least = cost;
      best = {narrow, wide};
    }
  }
  return best;
}

Rectangle InField(const BarField& field, const Rectangle& r) {
  const Dot origin = {field.origin.x, field.origin.y};
  const Rectangle moved = {r.left - origin.x, r.bottom - origin.y, r.right - origin.x,
                           r.top - origin.y};
  return field.rotation == 0 ? moved : OnPage(moved, {0, 0}, (4 - field.rotation) % 4);
}

std::vector<Rectangle> RectanglesOnDots(const Drawing& drawing, double dpiX, double dpiY) {
  const double perUnitX = dpiX / kInch, perUnitY = dpiY / kInch;
  std::vector<Rectangle> result;
  for (const BarField& field : drawing.fields) {
    const bool upright = field.rotation % 2 == 0;
    FieldOnDots onDots(field, upright ? perUnitX : perUnitY, upright ? perUnitY : perUnitX);
    const Dot origin = {static_cast<std::int32_t>(Round(field.origin.x * perUnitX)),
                        static_cast<std::int32_t>(Round(field.origin.y * perUnitY))};
    for (const Rectangle& r : onDots.rectangles(drawing.rectangles)) {
      result.push_back(OnPage(r, origin, field.rotation));
    }
  }
  return result;
}

}  // namespace Library
