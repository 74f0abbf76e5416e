#include "library/layout/ElementWidths.h"

#include "library/Error.h"

#include <algorithm>
#include <charconv>

namespace Library {
namespace {

constexpr double kMaxElementWidth = 1000;

// Whole dots whatever the narrow element has; docs/print-quality.md has it beside 2.5.
constexpr double kDefaultWide = 3;

std::size_t NumbersOf(ElementRule rule) {
  switch (rule) {
    case ElementRule::kTwoWidths:
      return 4;
    case ElementRule::kTwoWidthBars:
      return 3;
    case ElementRule::kFourWidths:
      return 8;
    case ElementRule::kNoRatio:
      break;
  }
  return 0;
}

// The shortest run that is not narrow, of those that come in two widths.
int NominalWide(const Symbol& symbol) {
  const std::size_t step = symbol.elements == ElementRule::kTwoWidthBars ? 2 : 1;
  int wide = 0;
  for (const SymbolRow& row : symbol.rows) {
    for (std::size_t i = 0; i < row.runs.size(); i += step) {
      const int run = row.runs[i];
      if (run > 1 && (wide == 0 || run < wide)) wide = run;
    }
  }
  return std::max(wide, 2);
}

// Narrow elements are one module. (One-track Pharmacode has bars of 1 and 3, and spaces of 2.)
bool IsOfTwoWidths(const Symbol& symbol) {
  if (symbol.elements == ElementRule::kTwoWidths) return true;
  if (symbol.elements != ElementRule::kTwoWidthBars) return false;
  for (const SymbolRow& row : symbol.rows) {
    for (std::size_t i = 1; i < row.runs.size(); i += 2) {
      if (row.runs[i] != 1) return false;
    }
  }
  return true;
}

}  // namespace

std::vector<double> ParseRatio(std::string_view text) {
  std::vector<double> numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end || numbers.empty()) {
    double number = 0;
    const auto [next, error] = std::from_chars(at, end, number, std::chars_format::fixed);
    if (error != std::errc() || !(number > 0 && number <= kMaxElementWidth)) return {};
    numbers.push_back(number);
    if (next == end) return numbers;
    if (*next != ':') return {};
    at = next + 1;
  }
  return {};  // ends in a colon
}

ElementWidths::ElementWidths(const Symbol& symbol, std::string_view text) : rule(symbol.elements) {
  if (rule == ElementRule::kNoRatio) return;
  if (text.empty()) {
    if (!IsOfTwoWidths(symbol)) return;
    ratio = {1, kDefaultWide, 1};
    if (rule == ElementRule::kTwoWidths) ratio.push_back(kDefaultWide);
  } else {
    ratio = ParseRatio(text);
  }
  if (ratio.size() != NumbersOf(rule)) throw Error(BC_E_INVALIDARG);
  nominalWide = NominalWide(symbol);
}

double ElementWidths::of(int modules, bool bar) const {
  if (ratio.empty() || modules == 0) return modules;
  // Elements longer than the ratio has numbers for (a start bar of four modules) grow alike.
  const auto scaled = [modules](double width, int nominal) {
    return modules <= nominal ? width : width * modules / nominal;
  };
  switch (rule) {
    case ElementRule::kTwoWidths: {
      const double* widths = &ratio[bar ? 0 : 2];
      return modules == 1 ? widths[0] : scaled(widths[1], nominalWide);
    }
    case ElementRule::kTwoWidthBars:
      if (!bar) return ratio[2];
      return modules == 1 ? ratio[0] : scaled(ratio[1], nominalWide);
    default:
      return scaled(ratio[(bar ? 0u : 4u) + static_cast<unsigned>(std::min(modules, 4)) - 1], 4);
  }
}

int ElementWidths::wideModules() const {
  const bool bars = rule == ElementRule::kTwoWidthBars;
  if (ratio.empty() || (rule != ElementRule::kTwoWidths && !bars)) return 0;
  const bool alike = ratio[0] == 1 && ratio[2] == 1 && (bars || ratio[1] == ratio[3]);
  return alike ? nominalWide : 0;
}

Columns::Columns(const SymbolRow& row, int symbolWidth, const ElementWidths& widths) {
  int module = 0;
  double position = 0;
  bool bar = true;
  modules.push_back(0);
  positions.push_back(0);
  for (int run : row.runs) {
    const double width = widths.of(run, bar);
    if (bar && run > 0) barList.push_back({module, position, position + width});
    module += run;
    position += width;
    modules.push_back(module);
    positions.push_back(position);
    bar = !bar;
  }
  if (module < symbolWidth) {  // light modules at the end
    modules.push_back(symbolWidth);
    positions.push_back(position + symbolWidth - module);
  }
}

double Columns::at(int module) const {
  if (module <= 0) return module;
  if (module >= modules.back()) return positions.back() + module - modules.back();
  const auto next = std::upper_bound(modules.begin(), modules.end(), module);
  const auto i = static_cast<std::size_t>(next - modules.begin());
  const double share = static_cast<double>(module - modules[i - 1]) / (modules[i] - modules[i - 1]);
  return positions[i - 1] + share * (positions[i] - positions[i - 1]);
}

}  // namespace Library
