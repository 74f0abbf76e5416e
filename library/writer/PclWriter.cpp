#include "library/writer/PclWriter.h"

#include "library/layout/Font.h"
#include "library/layout/Units.h"
#include "library/writer/PclPage.h"
#include "library/writer/TextBuilder.h"

#include <cmath>
#include <span>
#include <string_view>

namespace Library {
namespace {

using Place = PclPage::Place;
using Area = PclPage::Area;

constexpr int kDecipoints = 720;  // to the inch

std::string Tenths(long tenths) {
  return TextBuilder::decimal(static_cast<double>(tenths) / 10);
}

// How the printers of this language know a font: the typeface's number, its stroke weight and
// posture.
struct PclFont {
  int typeface, weight, posture;
};

PclFont PclFontOf(const Font& font) {
  constexpr int kArial = 16602, kTimesNew = 16901, kCourier = 4099;
  const std::string_view name = font.standard ? font.name : "Helvetica";
  const bool bold = name.find("Bold") != name.npos;
  const bool slanted = name.find("Oblique") != name.npos || name.find("Italic") != name.npos;
  const int typeface = name.starts_with("Times")     ? kTimesNew
                       : name.starts_with("Courier") ? kCourier
                                                     : kArial;
  return {typeface, bold ? 3 : 0, slanted ? 1 : 0};
}

bool IsProportional(const PclFont& font) {
  return font.typeface != 4099;
}

std::string Points(const TextRun& run) {
  return TextBuilder::decimal(std::round(run.size / kPoint * 100) / 100);
}

// Pieces that print with the font's own widths: all of it, or each character where they are spread.
struct TextPiece {
  std::string text;
  Point anchor;
};

std::vector<TextPiece> PiecesOf(const TextRun& run) {
  if (run.spacing == 0) return {{run.text, run.anchor}};
  const Font font = FindFont(run.font);
  constexpr Point kDirections[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  const Point& direction = kDirections[run.rotation & 3];
  std::vector<TextPiece> pieces;
  double along = 0;
  for (const char character : run.text) {
    const auto step = static_cast<std::int32_t>(std::lround(along));
    pieces.push_back({std::string(1, character),
                      {run.anchor.x + step * direction.x, run.anchor.y + step * direction.y}});
    along += font.textWidth(pieces.back().text, run.size) + run.spacing;
  }
  return pieces;
}

// PCL's own commands, whose unit is the decipoint.
class Pcl {
 public:
  explicit Pcl(int dpi) : tenthsPerDot(kDecipoints * 10 / dpi) {}

  void command(std::string_view text) { out.append("\033").append(text); }

  void moveTo(const Place& to, bool relative) {
    moveAxis('H', to.x, relative);
    moveAxis('V', to.y, relative);
  }
  // From the place of the last step, or of the corner of the box.
  void stepTo(const Place& to) {
    if (to.x != pen.x) moveAxis('H', to.x - pen.x, true);
    if (to.y != pen.y) moveAxis('V', to.y - pen.y, true);
    pen = to;
  }
  // `kind` 0 black, 1 white, 2 a shade. Printers round sizes up to whole dots, so they get a little
  // less.
  void fill(int width, int height, int kind) {
    std::string text = "*c";
    if (width != lastWidth) text += Tenths(width * tenthsPerDot - 1) + "h";
    if (height != lastHeight) text += Tenths(height * tenthsPerDot - 1) + "v";
    lastWidth = width;
    lastHeight = height;
    command(text + std::to_string(kind) + "P");
  }
  void plain(std::string_view text) { out += text; }
  std::string finish() { return std::move(out); }

 private:
  void moveAxis(char axis, int dots, bool relative) {
    std::string text = "&a";
    if (relative && dots >= 0) text += '+';
    command(text + Tenths(static_cast<long>(dots) * tenthsPerDot) + axis);
  }

  std::string out;
  int tenthsPerDot;  // tenths of a decipoint
  Place pen;
  int lastWidth = -1, lastHeight = -1;
};

// Ink of 100 percent is black; printers without colour make others of dots.
int ShadeOf(const Drawing& drawing) {
  const double* c = drawing.barColor.components;
  const double light = drawing.colorMode == 2   ? (1 - (c[0] + c[1] + c[2]) / 3) * (1 - c[3])
                       : drawing.colorMode == 1 ? c[0]
                                                : 0.299 * c[0] + 0.587 * c[1] + 0.114 * c[2];
  return static_cast<int>(std::lround((1 - light) * 100));
}

// HP-GL/2 with dots as its unit and y upward, from the corner of the box.
class HpGl2 {
 public:
  HpGl2(Pcl& target, int dpi) : pcl(target) {
    constexpr double kPlotterUnits = 1016;  // to the inch
    const std::string factor = TextBuilder::decimal(kPlotterUnits / dpi);
    setUp = "DFSP1SC0," + factor + ",0," + factor + ",2PR";
  }

  // The pen begins at PCL's cursor, and leaves that where it is.
  void enter() {
    pcl.command("%1B");
    if (!setUp.empty()) pcl.plain(setUp);
    setUp.clear();
    pen = {};
  }
  void leave() { pcl.command("%0A"); }

  void stepTo(const Place& to) {
    if (to.x == pen.x && to.y == pen.y) return;
    pcl.plain("PU" + std::to_string(to.x - pen.x) + "," + std::to_string(pen.y - to.y));
    pen = to;
  }
  // Some interpreters paint every dot that an area touches, others those whose corner or centre
  // lies inside: short of its far edges the same for all.
  void fill(const Area& area) {
    stepTo({area.left, area.top});
    pcl.plain("RR" + shortened(area.width) + ",-" + shortened(area.height));
  }
  void polygon(std::span<const Place> corners) {
    stepTo(corners.front());
    pcl.plain("PM0PD");
    Place last = corners.front();
    for (const Place& corner : corners.subspan(1)) {
      pcl.plain((last.x == corners.front().x && last.y == corners.front().y ? "" : ",") +
                std::to_string(corner.x - last.x) + "," + std::to_string(last.y - corner.y));
      last = corner;
    }
    pcl.plain("PM2FP");
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
    const PclFont font = PclFontOf(FindFont(run.font));
    std::string style = "SD1,14,2," + std::to_string(IsProportional(font)) + ",4," + Points(run) +
                        ",5," + std::to_string(font.posture) + ",6," + std::to_string(font.weight) +
                        ",7," + std::to_string(font.typeface) + "SSDI" +
                        std::string(kDirections[run.rotation & 3]);
    stepTo(at);
    if (style != lastStyle) pcl.plain(style);
    lastStyle = std::move(style);
    pcl.plain("LB" + std::string(text) + "\x03");
  }

 private:
  static std::string shortened(int dots) { return TextBuilder::decimal(dots - 0.4); }

  Pcl& pcl;
  std::string setUp, lastStyle;
  Place pen;
};

void WriteHpGl2(const Drawing& drawing, const PclPage& page, int dpi, Pcl& pcl) {
  HpGl2 plotter(pcl, dpi);
  plotter.enter();
  for (const Area& bar : page.bars) plotter.fill(bar);
  for (const Polygon& polygon : drawing.polygons) {
    std::vector<Place> corners;
    for (const Point& p : polygon.points) corners.push_back(page.place(p));
    plotter.polygon(corners);
  }
  for (const Ring& ring : drawing.rings) {
    const Place centre = page.place(ring.centre);
    const Place outer = page.place({ring.centre.x + ring.outerRadius, ring.centre.y});
    const Place inner = page.place({ring.centre.x + ring.innerRadius, ring.centre.y});
    plotter.ring(centre, outer.x - centre.x, inner.x - centre.x);
  }
  for (const TextRun& run : drawing.texts) {
    for (const TextPiece& piece : PiecesOf(run)) {
      plotter.leave();
      plotter.enter();
      plotter.label(run, piece.text, page.place(piece.anchor));
    }
  }
  pcl.plain("DF");
  plotter.leave();
}

// The primary font stays as it is.
void WriteTextInSecondaryFont(const Drawing& drawing, const PclPage& page, Pcl& pcl) {
  for (const TextRun& run : drawing.texts) {
    const PclFont font = PclFontOf(FindFont(run.font));
    pcl.command(")0N");
    pcl.command(")s" + std::to_string(IsProportional(font)) + "p" + Points(run) + "v" +
                std::to_string(font.posture) + "s" + std::to_string(font.weight) + "b" +
                std::to_string(font.typeface) + "T");
    for (const TextPiece& piece : PiecesOf(run)) {
      pcl.stepTo(page.place(piece.anchor));
      pcl.command("&f0S");
      if (run.rotation != 0) pcl.command("&a" + std::to_string(run.rotation * 90) + "P");
      pcl.plain("\x0E" + piece.text + "\x0F");
      if (run.rotation != 0) pcl.command("&a0P");
      pcl.command("&f1S");
    }
  }
}

void WritePclOnly(const Drawing& drawing, const PclPage& page, int dpi, Pcl& pcl) {
  constexpr int kBlack = 0, kShade = 2;
  const int shade = ShadeOf(drawing);
  if (shade < 100) pcl.command("*c" + std::to_string(shade) + "G");
  const auto fill = [&](const Area& area) {
    pcl.stepTo({area.left, area.top});
    pcl.fill(area.width, area.height, shade < 100 ? kShade : kBlack);
  };
  for (const Area& bar : page.bars) fill(bar);
  for (const Area& row : PclPage::DotRows(drawing, dpi)) fill(row);
  WriteTextInSecondaryFont(drawing, page, pcl);
}

}  // namespace

std::string PclWriter::write(const Drawing& drawing) const {
  const PclPage page(drawing, rectangle, resolution);
  Pcl pcl(resolution);
  pcl.command("&f0S");
  pcl.moveTo(page.origin, fromCursor);
  constexpr int kWhite = 1;
  if (drawing.opaqueBackground) pcl.fill(page.size.x, page.size.y, kWhite);
  if (language == Mode::kHpGl2) {
    WriteHpGl2(drawing, page, resolution, pcl);
  } else {
    WritePclOnly(drawing, page, resolution, pcl);
  }
  pcl.command("&f1S");
  return pcl.finish();
}

}  // namespace Library
