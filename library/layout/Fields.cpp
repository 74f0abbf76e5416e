#include "library/layout/Fields.h"

#include "library/layout/Bars.h"
#include "library/layout/ElementWidths.h"
#include "library/symbology/Symbology.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Library {
namespace {

// One byte an element: '0' and its width.
constexpr int kMostModules = '~' - '0';
// What a printer's memory of a character holds.
constexpr int kMostRuns = 60;

// The row's characters: of one run only where a gap stands between two.
std::vector<int> CharactersOf(const SymbolRow& row) {
  const auto runs = static_cast<int>(row.runs.size());
  const std::vector<int>& known = row.characters;
  const bool complete = std::accumulate(known.begin(), known.end(), 0) == runs;
  return complete ? known : std::vector<int>();
}

bool HasGaps(const std::vector<int>& characters) {
  return characters.size() > 2 && characters[1] == 1;
}

class FieldBuilder {
 public:
  FieldBuilder(const Symbol& encoded, const Measures& measures, const ElementWidths& elementWidths)
      : symbol(encoded), m(measures), widths(elementWidths), lowest(measures.bottom) {
    const bool drops =
        symbol.addOn.to > symbol.addOn.from || !symbol.guards.empty();  // below the other bars
    if (drops) lowest -= m.guardDrop;
  }

  // The lower left corner.
  double left() const { return m.left; }
  double bottom() const { return lowest; }

  // Fills the rows if that can be done by characters.
  void fill(BarField& field) const {
    const int wide = widths.wideModules();
    if (wide == 0 && !widths.areNominal()) return;
    field.rule = wide != 0 ? BarField::Rule::kTwoWidths : BarField::Rule::kCharacters;
    field.wide = wide != 0 ? widths.wide() : 0;
    double top = m.top;
    for (std::size_t row = 0; row < symbol.rows.size(); ++row) {
      const bool last = row + 1 == symbol.rows.size();
      const double bottom = last ? m.bottom : top - m.rowHeights[row];
      field.bars.emplace_back();
      if (!addRow(symbol.rows[row], last, {bottom, top}, field.bars.back())) {
        field.rule = BarField::Rule::kEdges;
        field.bars.clear();
        return;
      }
      top = bottom;
    }
  }

 private:
  bool addRow(const SymbolRow& row, bool last, BarEnds ends, BarRow& bars) const {
    std::vector<int> characters = CharactersOf(row);
    const bool twoWidths = widths.wideModules() != 0;
    // Without gaps all elements of two widths go together.
    if (twoWidths && !HasGaps(characters)) characters = {static_cast<int>(row.runs.size())};
    if (characters.empty()) return false;
    std::size_t run = 0;
    int module = 0;
    bool dark = true;
    for (const int count : characters) {
      BarPart part;
      const int first = module;
      for (int i = 0; i < count; ++i, ++run, dark = !dark) {
        const int modules = row.runs[run];
        if (modules == 0 && run == 0) {
          bars.beginsDark = false;
          continue;
        }
        if (!append(modules, twoWidths, part)) return false;
        part.advance += widths.of(modules, dark);
        module += modules;
      }
      if (!twoWidths && part.widths.size() > kMostRuns) return false;
      const BarEnds own = last ? LastRowEnds(symbol, m, first, ends) : ends;
      part.bottom = static_cast<std::int32_t>(std::lround(own.bottom - lowest));
      part.top = static_cast<std::int32_t>(std::lround(own.top - lowest));
      // A gap belongs to the character in front of it.
      if (twoWidths && count == 1 && !bars.parts.empty()) {
        bars.parts.back().advance += part.advance;
      } else if (!part.widths.empty()) {
        bars.parts.push_back(std::move(part));
      }
    }
    return true;
  }

  bool append(int modules, bool twoWidths, BarPart& part) const {
    if (modules <= 0 || modules > kMostModules) return false;
    if (twoWidths && modules != 1 && modules != widths.wideModules()) return false;
    part.widths += static_cast<char>('0' + (twoWidths ? 1 + (modules > 1) : modules));
    return true;
  }

  const Symbol& symbol;
  const Measures& m;
  const ElementWidths& widths;
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
    return field;
  }
  field.reduction = BarReduction(options, widths.narrowBar(), m.module);
  if (!IsComposite(symbol)) builder.fill(field);
  return field;
}

}  // namespace Library
