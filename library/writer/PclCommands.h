// PCL's own commands, and what both kinds of PCL know about fonts.
#pragma once

#include "library/layout/Drawing.h"
#include "library/writer/PclPage.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Library {

// Lengths are decipoints with one decimal: the unit of measure stays as it is.
class Pcl {
 public:
  explicit Pcl(int dpi);

  void command(std::string_view text) { out.append("\033").append(text); }
  void plain(std::string_view text) { out += text; }

  // From the origin of the logical page, whatever the top margin.
  void moveOnPage(const PclPage::Place& to);
  void moveFromCursor(const PclPage::Place& to);
  // From the place of the last step, at first the corner of the box.
  void stepTo(const PclPage::Place& to);

  enum class Fill { kBlack = 0, kWhite = 1, kShade = 2 };
  void setShade(int percent) { command("*c" + std::to_string(percent) + "G"); }
  void fill(const PclPage::Area& area, Fill kind);
  // The bytes that step and fill take.
  std::size_t cost(const PclPage::Area& area) const;

  std::string finish() { return std::move(out); }

 private:
  std::string move(const PclPage::Place& by) const;
  std::string sizes(const PclPage::Area& area) const;

  std::string out;
  int tenthsPerDot;  // tenths of a decipoint
  PclPage::Place pen;
  int lastWidth = -1, lastHeight = -1;
};

// Areas in an order that needs few bytes: always the cheapest of the next few.
void ForEachInOrder(std::vector<PclPage::Area> areas,
                    const std::function<std::size_t(const PclPage::Area&)>& cost,
                    const std::function<void(const PclPage::Area&)>& write);

// Percent of ink that stand for a colour.
int PclShade(int colorMode, const Color& color);

// How the printers of this language know a font: the typeface's number, its stroke weight and
// posture.
struct PclFont {
  int typeface, weight, posture;
  bool proportional;
};
PclFont PclFontOf(const TextRun& run);
std::string PclPoints(const TextRun& run);

// What prints with the font's own widths: all of a text, or each character where they are spread.
// No byte of it is a control code.
struct PclTextPiece {
  std::string text;
  Point anchor;
};
std::vector<PclTextPiece> PclPiecesOf(const TextRun& run);

}  // namespace Library
