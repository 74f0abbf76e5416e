// The manual pages have every option.
#include "settings/AppOptions.h"
#include "settings/BarcodeOptions.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <sstream>

namespace {

// The names in the headings of a page's list: behind \fB, up to the next escape.
std::set<std::string> Headings(const std::string& page) {
  std::set<std::string> names;
  std::istringstream lines(page);
  for (std::string line; std::getline(lines, line);) {
    if (line != ".TP" || !std::getline(lines, line)) continue;
    for (std::size_t at = line.find("\\fB"); at != line.npos; at = line.find("\\fB", at)) {
      at += 3;
      names.insert(line.substr(at, line.find_first_of("\\=", at) - at));
    }
  }
  return names;
}

template <class Options>
void ExpectAll(const Options& options, const std::set<std::string>& names,
               std::set<std::string>& known) {
  for (const auto& option : options) {
    std::istringstream all(std::string(option.name) + ' ' + std::string(option.shortNames));
    for (std::string name; all >> name;) {
      EXPECT_TRUE(names.contains(name)) << "missing in the page: " << name;
      known.insert(name);
    }
  }
}

TEST(Manual, HasEveryOptionAndNoOther) {
  const std::string page = Support::ReadFile(VEXTORIN_MANUAL "vextorin.conf.5");
  const std::set<std::string> names = Headings(page);
  std::set<std::string> known;
  ExpectAll(Settings::AppOptions(), names, known);
  ExpectAll(Settings::BarcodeOptions(), names, known);
  const std::set<std::string> values = {"allow", "deny", "message", "ignore", "PS",
                                        "PCL",   "top",  "bottom",  "rel",    "abs"};
  for (const std::string& name : names)
    EXPECT_TRUE(known.contains(name) || values.contains(name)) << "unknown: " << name;
}

// The range of a whole number stands behind it.
TEST(Manual, HasTheRangesOfTheOptions) {
  const std::string page = Support::ReadFile(VEXTORIN_MANUAL "vextorin.conf.5");
  for (const auto& option : Settings::BarcodeOptions()) {
    if (option.kind != Settings::Kind::kInteger || option.range.high > 1000) continue;
    if (option.range.high - option.range.low < 2) continue;
    const std::string low = (option.range.low < 0 ? "\\" : "") + std::to_string(option.range.low);
    const std::string range = "\\fB" + std::string(option.name) + "=\\fINUMBER\\fR (" + low + ".." +
                              std::to_string(option.range.high) + ")";
    EXPECT_NE(page.find(range), std::string::npos) << range;
  }
}

}  // namespace
