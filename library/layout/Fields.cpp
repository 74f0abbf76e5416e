#include "library/layout/Fields.h"

#include "library/layout/Bars.h"
#include "library/layout/ElementWidths.h"
#include "library/layout/SharedDots.h"
#include "library/symbology/Symbology.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

namespace Library {
namespace {

// One byte an element: '0' and its width.
constexpr int kMostModules = '~' - '0';
// What a printer's memory of a character holds.
constexpr int kMostRuns = 60;
// 1/1000 mm: two dots of a printer of 150 dpi, the coarsest that labels are printed with.
constexpr double kSharedModules = 339;

// The row's characters: of one run only where a gap stands between two.
std::span<const int> CharactersOf(const SymbolRow& row) {
  const auto runs = static_cast<int>(row.runs.size());
  const std::vector<int>& known = row.characters;
  const bool complete = std::accumulate(known.begin(), known.end(), 0) == runs;
  return complete ? std::span(known) : std::span<const int>();
}

bool HasGaps(std::span<const int> characters) {
  return characters.size() > 2 && characters[1] == 1;
}

class FieldBuilder {
 public:
  FieldBuilder(const Symbol& encoded, const Measures& measures, const ElementWidths& elementWidths)
      : symbol(encoded),
        m(measures),
        widths(elementWidths),
        unequal(HasUnequalBars(encoded)),
        lowest(measures.bottom) {
    if (unequal) lowest -= m.guardDrop;
  }

  // The lower left corner.
  double left() const { return m.left; }
  double bottom() const { return lowest; }

  // Fills the rows if that can be done by characters. Symbols of two widths with a wider element in
  // their start and stop characters are drawn as those of many widths.
  void fill(BarField& field) const {
    if (widths.wideModules() != 0 && fillBy(BarField::Rule::kTwoWidths, field)) {
      field.wide = widths.wide();
    } else {
      fillBy(BarField::Rule::kCharacters, field);
    }
  }

 private:
  bool fillBy(BarField::Rule rule, BarField& field) const {
    double top = m.top;
    field.bars.reserve(symbol.rows.size());
    for (std::size_t row = 0; row < symbol.rows.size(); ++row) {
      const bool last = row + 1 == symbol.rows.size();
      const double bottom = last ? m.bottom : top - m.rowHeights[row];
      field.bars.emplace_back();
      if (!addRow(symbol.rows[row], rule, last, {bottom, top}, field.bars.back())) {
        field.bars.clear();
        return false;
      }
      top = bottom;
    }
    field.rule = rule;
    return true;
  }

  // From the lowest end of all.
  struct Ends {
    std::int32_t bottom, top;
  };
  Ends endsOf(const BarEnds& ends) const {
    return {static_cast<std::int32_t>(std::lround(ends.bottom - lowest)),
            static_cast<std::int32_t>(std::lround(ends.top - lowest))};
  }

  bool addRow(const SymbolRow& row, BarField::Rule rule, bool last, BarEnds ends,
              BarRow& bars) const {
    std::span<const int> characters = CharactersOf(row);
    const bool twoWidths = rule == BarField::Rule::kTwoWidths;
    // Without gaps all elements of two widths go together.
    const auto all = static_cast<int>(row.runs.size());
    if (twoWidths && !HasGaps(characters)) characters = std::span(&all, 1);
    if (characters.empty()) return false;
    bars.parts.reserve(characters.size());
    const Ends whole = endsOf(ends);
    std::size_t run = 0;
    int module = 0;
    bool dark = true;
    for (const int count : characters) {
      BarPart part;
      const int first = module;
      const std::span<const int> runs = std::span(row.runs).subspan(run, std::size_t(count));
      const bool light = run == 0 && count > 0 && runs.front() == 0;
      if (light) bars.beginsDark = false;
      if (!setWidths(light ? runs.subspan(1) : runs, dark != light, twoWidths, part)) return false;
      for (const int modules : runs) {
        part.advance += widths.of(modules, dark);
        module += modules;
        dark = !dark;
      }
      run += runs.size();
      if (!twoWidths && part.widths.size() > kMostRuns) return false;
      const Ends own = last && unequal ? endsOf(LastRowEnds(symbol, m, first, ends)) : whole;
      part.bottom = own.bottom;
      part.top = own.top;
      // A gap belongs to the character in front of it.
      if (twoWidths && count == 1 && !bars.parts.empty()) {
        bars.parts.back().advance += part.advance;
      } else if (!part.widths.empty()) {
        bars.parts.push_back(std::move(part));
      }
    }
    return true;
  }

  bool setWidths(std::span<const int> runs, bool dark, bool twoWidths, BarPart& part) const {
    part.widths.resize(runs.size());
    char* next = part.widths.data();
    for (const int modules : runs) {
      const int width = twoWidths ? narrowOrWide(modules) : wholeWidth(modules, dark);
      if (width <= 0 || width > kMostModules) return false;
      *next++ = static_cast<char>('0' + width);
      dark = !dark;
    }
    return true;
  }

  int narrowOrWide(int modules) const {
    return modules == 1 ? 1 : modules == widths.wideModules() ? 2 : 0;
  }

  int wholeWidth(int modules, bool dark) const {
    if (widths.areNominal()) return modules;
    const double width = std::min<double>(widths.of(modules, dark), kMostModules + 1);
    return width == std::floor(width) ? static_cast<int>(width) : 0;
  }

  const Symbol& symbol;
  const Measures& m;
  const ElementWidths& widths;
  bool unequal;
  double lowest;
};

bool FixedByStandard(Geometry geometry) {
  return geometry == Geometry::kFourState || geometry == Geometry::kHexagonal;
}

// The rows of a composite share one grid, so that each edge takes the nearest dot.
bool IsComposite(const Symbol& symbol) {
  const Symbology* const type = FindSymbology(symbol.type);
  return type != nullptr && type->family.geometry == Geometry::kLinear && symbol.rows.size() > 1;
}

}  // namespace

BarField LayOutField(const Symbol& symbol, const Options& options, const Measures& m,
                     const Placement& placement) {
  const ElementWidths widths(symbol, options.ratio);
  const FieldBuilder builder(symbol, m, widths);
  BarField field;
  field.origin = placement.point(builder.left(), builder.bottom());
  field.rotation = placement.quarterTurns();
  field.module = m.module;
  field.columns = (m.right - m.left) / m.module;
  if (FixedByStandard(symbol.geometry) || symbol.geometry == Geometry::kDots) return field;
  field.wholeDots = options.optimalResolution && !KnowsDots(options);
  field.mayShrink = !m.text.standsBetweenGuards();
  if (symbol.geometry == Geometry::kMatrix) {
    field.rule = BarField::Rule::kMatrix;
    field.rows = static_cast<double>(symbol.rows.size());
    if (BarReduction(options, widths.narrowBar(), m.module) != 0) return field;
    field.centre = symbol.centre;
    field.sharesDots = symbol.evenlyRead && m.module < kSharedModules &&
                       std::max(field.columns, field.rows) <= kMostSharedModules;
    return field;
  }
  field.reduction = BarReduction(options, widths.narrowBar(), m.module);
  if (!IsComposite(symbol)) builder.fill(field);
  return field;
}

}  // namespace Library
