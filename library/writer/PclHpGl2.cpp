#include "library/writer/PclHpGl2.h"

#include "library/bitmap/Bitmap.h"
#include "library/writer/TextBuilder.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>
#include <string_view>

namespace Library {
namespace {

using Place = PclPage::Place;
using Area = PclPage::Area;

// ".95", "3.9"
std::string Real(double number) {
  std::string text = TextBuilder::decimal(number);
  if (text.starts_with("0.")) text.erase(0, 1);
  if (text.starts_with("-0.")) text.erase(1, 1);
  return text;
}

// What bars are short of their far edges, in dots: interpreters paint every dot that an area
// touches, or those whose centre lies inside, and so both paint the same. Little, for the cursor
// from which places count may be between dots.
constexpr double kShort = 0.1, kLeastShort = 0.08, kMostShort = 0.16;
// Where it saves a decimal, a hundredth of a large unit.
constexpr double kShortShare = 0.01, kLimitShort = 0.45;

// Dots to the unit in each direction.
struct Unit {
  double x = 1, y = 1;
};

// What places and sizes of bars have in common; where all have one size, that.
double CommonUnit(const std::vector<Area>& bars, int Area::*begin, int Area::*size) {
  constexpr int kMost = 100;
  const Area& first = bars.front();
  int unit = 0;
  bool same = true;
  for (const Area& area : bars) {
    unit = std::gcd(unit, std::gcd(area.*begin - first.*begin, area.*size));
    same = same && area.*begin == first.*begin && area.*size == first.*size;
  }
  if (same) return first.*size - kShort;
  return unit > kMost ? 1 : unit;
}

// Circles have one unit only.
Unit UnitOf(const Drawing& drawing, const PclPage& page) {
  if (page.bars.empty() || !drawing.polygons.empty() || !drawing.rings.empty()) return {};
  return {CommonUnit(page.bars, &Area::left, &Area::width),
          CommonUnit(page.bars, &Area::top, &Area::height)};
}

bool HasTextPen(const Drawing& drawing) {
  return !drawing.texts.empty() &&
         !std::ranges::equal(drawing.fontColor.components, drawing.barColor.components);
}

class HpGl2 {
 public:
  HpGl2(Pcl& target, const Unit& unitInDots, int dpi) : pcl(target), unit(unitInDots) {
    constexpr double kPlotterUnits = 1016;  // to the inch
    scale = "SC0," + TextBuilder::decimal(kPlotterUnits / dpi * unit.x) + ",0," +
            TextBuilder::decimal(kPlotterUnits / dpi * unit.y) + ",2PR";
  }

  // The pen begins at PCL's cursor, and leaves that where it is.
  void enter() {
    pcl.command("%1B");
    pen = {};
  }
  void leave() { pcl.command("%0A"); }

  // What a job's own HP-GL/2 left must not turn, cut or scale the bars, and its palette must not
  // colour them: pens are those of a new palette, 1 for bars, 2 for text.
  void setUp(const Drawing& drawing, const PclPage& page) {
    pcl.plain("IN");
    leave();
    enter();
    pcl.plain(scale);
    if (drawing.opaqueBackground) background(drawing, page.size);
    setPen(1, drawing.colorMode, drawing.barColor);
    if (HasTextPen(drawing)) setPen(2, drawing.colorMode, drawing.fontColor);
    pcl.plain("SP1");
  }
  void chooseTextPen() { pcl.plain("SP2"); }

  void stepTo(const Place& to) {
    pcl.plain(step(to));
    pen = to;
  }
  // The bytes that the step to an area takes: all areas take about as many.
  std::size_t cost(const Area& area) const { return step(cornerOf(area)).size(); }
  void fill(const Area& area) {
    stepTo(cornerOf(area));
    pcl.plain("RR" + shortened(area.width, unit.x) + "," + shortened(area.height, unit.y));
  }
  void polygon(std::span<const Place> corners) {
    stepTo(corners.front());
    pcl.plain("PM0PD");
    for (std::size_t i = 1; i < corners.size(); ++i) {
      if (i > 1) pcl.plain(",");
      pcl.plain(std::to_string(corners[i].x - corners[i - 1].x) + "," +
                std::to_string(corners[i - 1].y - corners[i].y));
    }
    pcl.plain("PM2FP");
    pen = corners.front();
  }
  void ring(const Place& centre, int outer, int inner) {
    stepTo(centre);
    pcl.plain("PM0CI" + std::to_string(outer));
    if (inner > 0) pcl.plain("PM1CI" + std::to_string(inner));
    pcl.plain("PM2FP");
  }
  // The pen's place is unknown afterwards.
  void label(const TextRun& run, std::string_view text, const Place& at) {
    constexpr std::string_view kDirections[] = {"1,0", "0,1", "-1,0", "0,-1"};
    const PclFont font = PclFontOf(run);
    std::string style = "SD1,14,2," + std::to_string(font.proportional) + ",4," + PclPoints(run) +
                        ",5," + std::to_string(font.posture) + ",6," + std::to_string(font.weight) +
                        ",7," + std::to_string(font.typeface) + "SSDI" +
                        std::string(kDirections[run.rotation & 3]);
    stepTo(at);
    if (style != lastStyle) pcl.plain(style);
    lastStyle = std::move(style);
    pcl.plain("LB" + std::string(text) + "\x03");
  }

 private:
  // White shows where white isn't transparent; dots of ink stand for colours, which printers of one
  // colour don't have.
  void background(const Drawing& drawing, const Place& size) {
    const int shade = PclShade(drawing.colorMode, drawing.background);
    pcl.plain("TR0" + (shade > 0 ? "SP1FT10," + std::to_string(shade) : "SP0"));
    pcl.plain("RR" + shortened(size.x, unit.x) + ",-" + shortened(size.y, unit.y));
    pcl.plain(shade > 0 ? "FTTR1" : "TR1");
  }
  // Pen 1 is black unless it is set.
  void setPen(int number, int colorMode, const Color& color) {
    const Rgb rgb = ScreenColor(colorMode, color);
    if (number == 1 && rgb.red == 0 && rgb.green == 0 && rgb.blue == 0) return;
    pcl.plain("PC" + std::to_string(number) + "," + std::to_string(rgb.red) + "," +
              std::to_string(rgb.green) + "," + std::to_string(rgb.blue));
  }
  // The lower left one, from where both sizes are positive.
  static Place cornerOf(const Area& area) { return {area.left, area.top + area.height}; }

  std::string step(const Place& to) const {
    if (to.x == pen.x && to.y == pen.y) return {};
    const auto inUnits = [](int dots, double unitInDots) {
      double decimals = 1;
      while (decimals < 100 * unitInDots) decimals *= 10;
      return Real(std::round(dots * decimals / unitInDots) / decimals);
    };
    return "PU" + inUnits(to.x - pen.x, unit.x) + "," + inUnits(pen.y - to.y, unit.y);
  }
  // With as few decimals as do.
  static std::string shortened(int dots, double unitInDots) {
    const double most = std::clamp(kShortShare * unitInDots + 1e-9, kMostShort, kLimitShort);
    for (double decimals = 1;; decimals *= 10) {
      const double size = std::floor((dots - kLeastShort) / unitInDots * decimals) / decimals;
      if (dots - size * unitInDots <= most) return Real(size);
    }
  }

  Pcl& pcl;
  Unit unit;
  std::string scale, lastStyle;
  Place pen;
};

void WriteShapes(const Drawing& drawing, const PclPage& page, HpGl2& plotter) {
  ForEachInOrder(
      page.bars, [&](const Area& area) { return plotter.cost(area); },
      [&](const Area& area) { plotter.fill(area); });
  for (const Polygon& polygon : drawing.polygons) {
    std::vector<Place> corners;
    for (const Point& p : polygon.points) corners.push_back(page.place(p));
    plotter.polygon(corners);
  }
  for (const Ring& ring : drawing.rings) {
    plotter.ring(page.place(ring.centre), page.length(ring.outerRadius),
                 page.length(ring.innerRadius));
  }
}

}  // namespace

void WriteHpGl2(const Drawing& drawing, const PclPage& page, int dpi, Pcl& pcl) {
  HpGl2 plotter(pcl, UnitOf(drawing, page), dpi);
  pcl.command("*p0P");
  plotter.enter();
  plotter.setUp(drawing, page);
  WriteShapes(drawing, page, plotter);
  bool penChosen = !HasTextPen(drawing);
  for (const TextRun& run : drawing.texts) {
    for (const PclTextPiece& piece : PclPiecesOf(run)) {
      plotter.leave();
      plotter.enter();
      if (!penChosen) plotter.chooseTextPen();
      penChosen = true;
      plotter.label(run, piece.text, page.place(piece.anchor));
    }
  }
  pcl.plain("DF");
  plotter.leave();
  pcl.command("*p1P");
}

}  // namespace Library
