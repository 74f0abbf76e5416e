#include "library/symbology/CompositeRows.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace Library {
namespace {

int FirstBar(const std::vector<int>& runs) {
  return runs[0] > 0 ? 0 : runs[1];
}

// The same runs so many modules further right.
std::vector<int> Shifted(std::vector<int> runs, int modules) {
  if (modules == 0) return runs;
  if (runs[0] == 0) {
    runs[1] += modules;
  } else {
    runs.insert(runs.begin(), {0, modules});
  }
  return runs;
}

// Guards, add-on and text go along with the bars.
void MoveParts(int shift, Symbol& symbol) {
  for (ModuleSpan& guard : symbol.guards) guard = {guard.from + shift, guard.to + shift};
  ModuleSpan& addOn = symbol.addOn;
  if (addOn.to > addOn.from) addOn = {addOn.from + shift, addOn.to + shift};
  for (SymbolText& text : symbol.texts) {
    text.from += shift;
    text.to += shift;
  }
}

// Light modules up to the edge of the symbol.
void Fill(std::vector<int>& runs, int width) {
  const int rest = width - std::accumulate(runs.begin(), runs.end(), 0);
  if (rest <= 0) return;
  if (runs.size() % 2 == 0) {
    runs.back() += rest;
  } else {
    runs.push_back(rest);
  }
}

std::vector<bool> Modules(const std::vector<int>& runs) {
  std::vector<bool> modules;
  bool dark = true;
  for (const int run : runs) {
    modules.insert(modules.end(), static_cast<std::size_t>(run), dark);
    dark = !dark;
  }
  return modules;
}

std::vector<int> RunsOf(const std::vector<bool>& modules) {
  std::vector<int> runs = {0};
  bool dark = true;
  for (const bool module : modules) {
    if (module != dark) runs.push_back(0);
    dark = module;
    ++runs.back();
  }
  return runs;
}

// The complement of the modules [from, to), light elsewhere.
std::vector<bool> Complement(const std::vector<bool>& modules, int from, int to) {
  std::vector<bool> complement(modules.size());
  for (auto i = static_cast<std::size_t>(from); i < static_cast<std::size_t>(to); ++i) {
    complement[i] = !modules[i];
  }
  return complement;
}

// Over a finder of DataBar Expanded: light where the row is dark, else dark and light in turn.
void DrawOverFinder(const std::vector<bool>& below, int from, std::vector<bool>& separator) {
  constexpr int kModules = 13;
  bool dark = false;
  for (auto i = static_cast<std::size_t>(from); i < static_cast<std::size_t>(from + kModules);
       ++i) {
    dark = !below[i] && !dark;
    separator[i] = dark;
  }
}

}  // namespace

int JoinComponent(const ZintSymbol& composed, bool ownBars, Symbol& symbol) {
  const int above = composed->rows - static_cast<int>(symbol.rows.size());
  const int shift = FirstBar(composed.runs(composed->rows - 1)) - FirstBar(symbol.rows.back().runs);
  std::vector<SymbolRow> rows;
  for (int row = 0; row < above; ++row) {
    rows.push_back(
        {.runs = composed.runs(row), .height = composed->row_height[row], .rigid = true});
  }
  for (SymbolRow& row : symbol.rows) {
    const int place = static_cast<int>(rows.size());
    rows.push_back({.runs = ownBars ? Shifted(std::move(row.runs), shift) : composed.runs(place),
                    .height = row.height,
                    .rigid = row.rigid});
  }
  MoveParts(shift, symbol);
  symbol.width = std::max(composed->width, symbol.width + shift);
  for (SymbolRow& row : rows) Fill(row.runs, symbol.width);
  symbol.rows = std::move(rows);
  symbol.elements = ElementRule::kNoRatio;  // one grid holds bars of all widths
  return shift;
}

void DrawSeparator(Symbol& symbol, std::size_t separator, ModuleSpan linear) {
  const std::vector<bool> below = Modules(symbol.rows[separator + 1].runs);
  symbol.rows[separator].runs = RunsOf(Complement(below, linear.from, linear.to));
}

void DrawExpandedSeparator(Symbol& symbol, std::size_t separator, ModuleSpan linear) {
  constexpr int kLightEnds = 4, kFirstFinder = 19, kFinderPitch = 49, kFinderWidth = 15;
  const std::vector<bool> below = Modules(symbol.rows[separator + 1].runs);
  std::vector<bool> modules = Complement(below, linear.from + kLightEnds, linear.to - kLightEnds);
  int skipped = 0;  // modules of the finder
  for (int at = linear.from + kFirstFinder; at + kFinderWidth < linear.to; at += kFinderPitch) {
    DrawOverFinder(below, at + skipped, modules);
    skipped = 2 - skipped;
  }
  symbol.rows[separator].runs = RunsOf(modules);
}

}  // namespace Library
