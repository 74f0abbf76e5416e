#include "library/layout/TextLayout.h"

#include "library/layout/ElementWidths.h"
#include "library/layout/Outline.h"

#include <algorithm>

namespace Library {
namespace {

enum Alignment : int { kLeft = 1, kRight = 2, kCentre = 3 };

constexpr double kMaxSpacing = 0.25;  // of the font size

class TextPlacer {
 public:
  TextPlacer(const Symbol& encoded, const Options& settings, const Measures& measures)
      : symbol(encoded),
        options(settings),
        m(measures),
        columns(encoded.rows.back(), encoded.width, ElementWidths(encoded, settings.ratio)) {}

  void draw(const Placement& placement, Drawing& drawing) const;

 private:
  bool isLine(const SymbolText& text) const { return text.place == SymbolText::Place::kLine; }
  bool isSmall(const SymbolText& text) const {
    return text.place == SymbolText::Place::kSmallDigit;
  }
  double left(const SymbolText& text) const { return m.left + columns.at(text.from) * m.module; }
  double room(const SymbolText& text) const {
    return (columns.at(text.to) - columns.at(text.from)) * m.module;
  }
  double shrink(const SymbolText& text) const;
  double spacing(const SymbolText& text, double size) const;
  double baseline(const SymbolText& text, double size) const;
  double x(const SymbolText& text, double width) const;

  const Symbol& symbol;
  const Options& options;
  const Measures& m;
  Columns columns;
};

double TextPlacer::shrink(const SymbolText& text) const {
  const double width = m.text.font.textWidth(text.text, m.text.size);
  return width > room(text) ? room(text) / width : 1;
}

// Digits between guard bars stand under the bars that show them, as long as they still read as one
// number.
double TextPlacer::spacing(const SymbolText& text, double size) const {
  if (text.place != SymbolText::Place::kBetweenGuards || text.text.size() < 2) return 0;
  const double rest = room(text) - m.text.font.textWidth(text.text, size);
  return std::clamp(rest / static_cast<double>(text.text.size()), 0.0, kMaxSpacing * size);
}

// Smaller text keeps its distance to the bars.
double TextPlacer::baseline(const SymbolText& text, double size) const {
  const Font& font = m.text.font;
  const bool line = isLine(text);
  const bool above = line ? m.text.lineAbove() : m.text.above;
  const double descent = line ? font.descent * size : 0;
  if (above) {
    const double bearer = HasBearerAbove(m.bearerType) ? m.bearer : 0;
    return m.top + bearer + m.text.distance + descent;
  }
  if (text.place == SymbolText::Place::kAboveAddOn) {
    // A component may stand on the bars.
    const double barTop = m.bottom + m.rowHeights.back();
    return barTop - m.text.addOnDrop() + m.text.distance;
  }
  const double bearer = HasBearerBelow(m.bearerType) ? m.bearer : 0;
  return m.bottom - bearer - m.text.distance - m.text.ascent * size;
}

double TextPlacer::x(const SymbolText& text, double width) const {
  const double rest = room(text) - width;
  if (isLine(text) && options.textAlignment == kLeft) return left(text);
  if (isLine(text) && options.textAlignment == kRight) return left(text) + rest;
  return left(text) + rest / 2;
}

void TextPlacer::draw(const Placement& placement, Drawing& drawing) const {
  double digits = 1;
  for (const SymbolText& text : symbol.texts) {
    if (!isLine(text) && !isSmall(text)) digits = std::min(digits, shrink(text));
  }
  for (const SymbolText& text : symbol.texts) {
    if (text.text.empty()) continue;
    const double line = m.text.size * (isLine(text) ? shrink(text) : digits);
    const double size = isSmall(text) ? std::min(line, m.text.size * shrink(text)) : line;
    if (placement.length(size) <= 0) continue;
    const double gap = spacing(text, size);
    const double width =
        m.text.font.textWidth(text.text, size) + gap * (static_cast<double>(text.text.size()) - 1);
    drawing.texts.push_back({.text = text.text,
                             .font = m.text.font.name,
                             .size = placement.length(size),
                             .anchor = placement.point(x(text, width), baseline(text, line)),
                             .width = placement.length(width),
                             .spacing = placement.length(gap),
                             .rotation = placement.quarterTurns()});
  }
}

}  // namespace

void DrawText(const Symbol& symbol, const Options& options, const Measures& measures,
              const Placement& placement, Drawing& drawing) {
  if (measures.text.shown) TextPlacer(symbol, options, measures).draw(placement, drawing);
}

}  // namespace Library
