#include "tests/support/Decode.h"

#include <ZXing/ReadBarcode.h>

#include <cmath>
#include <cstdio>
#include <numbers>

namespace Support {
namespace {

// ZXing's angle (radians, clockwise, as its rows count downward) as whole quarter turns
// counter-clockwise, in degrees.
int QuarterTurns(double clockwise) {
  const long quarters = std::lround(-clockwise / (std::numbers::pi / 2));
  return static_cast<int>((quarters + 4) % 4) * 90;
}

Symbol Convert(const ZXing::Result& result, const Page& page) {
  const ZXing::Position& corners = result.position();
  double column = 0, row = 0;
  for (const ZXing::PointI& corner : corners) {
    column += corner.x / 4.0;
    row += corner.y / 4.0;
  }
  return {.format = ZXing::ToString(result.format()),
          .data = {result.bytes().begin(), result.bytes().end()},
          .x = page.millimetres(column),
          .y = page.millimetres(page.height - row),
          .orientation = QuarterTurns(corners.orientation())};
}

}  // namespace

std::vector<Symbol> Decode(const Page& page, int atMost) {
  ZXing::DecodeHints hints;
  hints.setTryHarder(true).setTryRotate(true);
  hints.setMaxNumberOfSymbols(static_cast<std::uint8_t>(atMost));
  // ZXing 1.4 stops at an assertion when it meets a linear symbol among several at two scales.
  hints.setTryDownscale(atMost == 1);
  const ZXing::ImageView image(page.gray.data(), page.width, page.height, ZXing::ImageFormat::Lum);
  std::vector<Symbol> symbols;
  for (const ZXing::Result& result : ZXing::ReadBarcodes(image, hints)) {
    symbols.push_back(Convert(result, page));
  }
  return symbols;
}

Symbol DecodeJob(std::string_view postScript, int dpi) {
  const Rendering rendering = Render(postScript, dpi);
  std::vector<Symbol> symbols;
  if (rendering.pages.size() == 1) symbols = Decode(rendering.pages[0]);
  if (symbols.size() == 1 && rendering.messages.empty()) return symbols[0];
  Symbol none;
  none.data = rendering.messages + std::to_string(rendering.pages.size()) + " pages with " +
              Describe(symbols);
  return none;
}

std::string Describe(const std::vector<Symbol>& symbols) {
  std::string text;
  for (const Symbol& symbol : symbols) {
    char place[64];
    std::snprintf(place, sizeof place, "  at %.1f,%.1f mm, turned %d", symbol.x, symbol.y,
                  symbol.orientation);
    text += "  " + symbol.format + "  " + symbol.data + place + "\n";
  }
  return text.empty() ? "  nothing\n" : text;
}

}  // namespace Support
