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
    ratio = {1, kDefaultWide, 1, kDefaultWide};
    numbers = NumbersOf(rule);
  } else {
    const std::vector<double> given = ParseRatio(text);
    numbers = NumbersOf(rule);
    if (given.size() != numbers) throw Error(BC_E_INVALIDARG);
    std::copy(given.begin(), given.end(), ratio.begin());
  }
  nominalWide = NominalWide(symbol);
}

double ElementWidths::byRatio(int modules, bool bar) const {
  if (modules == 0) return modules;
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
  if (areNominal() || (rule != ElementRule::kTwoWidths && !bars)) return 0;
  const bool alike = ratio[0] == 1 && ratio[2] == 1 && (bars || ratio[1] == ratio[3]);
  return alike ? nominalWide : 0;
}

double Columns::width() const {
  int reached = 0;
  double position = 0;
  bool dark = true;
  for (const int run : row.runs) {
    reached += run;
    position += widths.of(run, dark);
    dark = !dark;
  }
  return reached < modules ? position + modules - reached : position;  // light ones at the end
}

double Columns::at(int module) const {
  if (module <= 0 || widths.areNominal()) return module;
  int reached = 0;
  double position = 0;
  bool dark = true;
  for (const int run : row.runs) {
    const double width = widths.of(run, dark);
    if (module < reached + run) return position + width * (module - reached) / run;
    reached += run;
    position += width;
    dark = !dark;
  }
  return position + module - reached;
}

}  // namespace Library
