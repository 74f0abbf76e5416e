#include "library/writer/PclWriter.h"

#include "library/writer/PclCommands.h"
#include "library/writer/PclHpGl2.h"
#include "library/writer/PclPage.h"

namespace Library {
namespace {

using Area = PclPage::Area;

void WriteBackground(const Drawing& drawing, const PclPage& page, Pcl& pcl) {
  const int shade = PclShade(drawing.colorMode, drawing.background);
  if (shade > 0) pcl.setShade(shade);
  pcl.fill({0, 0, page.size.x, page.size.y}, shade > 0 ? Pcl::Fill::kShade : Pcl::Fill::kWhite);
}

// In black: dots of a shade would break narrow bars.
void WriteAreas(const Drawing& drawing, const PclPage& page, int dpi, Pcl& pcl) {
  std::vector<Area> areas = page.bars;
  const std::vector<Area> rows = PclPage::DotRows(drawing, dpi);
  areas.insert(areas.end(), rows.begin(), rows.end());
  ForEachInOrder(
      std::move(areas), [&](const Area& area) { return pcl.cost(area); },
      [&](const Area& area) {
        pcl.stepTo({area.left, area.top});
        pcl.fill(area, Pcl::Fill::kBlack);
      });
}

// The primary font stays as it is.
void WriteTextInSecondaryFont(const Drawing& drawing, const PclPage& page, Pcl& pcl) {
  for (const TextRun& run : drawing.texts) {
    const PclFont font = PclFontOf(run);
    pcl.command(")0N");
    pcl.command(")s" + std::to_string(font.proportional) + "p" + PclPoints(run) + "v" +
                std::to_string(font.posture) + "s" + std::to_string(font.weight) + "b" +
                std::to_string(font.typeface) + "T");
    for (const PclTextPiece& piece : PclPiecesOf(run)) {
      pcl.stepTo(page.place(piece.anchor));
      pcl.command("&f0S");
      if (run.rotation != 0) pcl.command("&a" + std::to_string(run.rotation * 90) + "P");
      pcl.plain("\x0E" + piece.text + "\x0F");
      if (run.rotation != 0) pcl.command("&a0P");
      pcl.command("&f1S");
    }
  }
}

}  // namespace

std::string PclWriter::write(const Drawing& drawing) const {
  const PclPage page(drawing, resolution);
  Pcl pcl(resolution);
  pcl.command("&f0S");
  // Printers draw underlining along every way to the right, which would join bars.
  if (language == Mode::kPclOnly) pcl.command("&d@");
  fromCursor ? pcl.moveFromCursor(page.origin) : pcl.moveOnPage(page.origin);
  if (language == Mode::kHpGl2) {
    WriteHpGl2(drawing, page, resolution, pcl);
  } else {
    if (drawing.opaqueBackground) WriteBackground(drawing, page, pcl);
    WriteAreas(drawing, page, resolution, pcl);
    WriteTextInSecondaryFont(drawing, page, pcl);
  }
  pcl.command("&f1S");
  return pcl.finish();
}

}  // namespace Library
