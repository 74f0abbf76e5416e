// The manual pages have every option and every function.
#include "settings/AppOptions.h"
#include "settings/BarcodeOptions.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <limits>
#include <regex>
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

// What the page says of an option, its heading included.
std::string Entry(const std::string& page, const std::string& name) {
  for (std::size_t begin = 0; (begin = page.find("\n.TP\n", begin)) != page.npos; ++begin) {
    const std::size_t end =
        std::min(page.find("\n.TP\n", begin + 1), page.find("\n.SH", begin + 1));
    const std::string entry = page.substr(begin + 5, end - begin - 5);
    const std::string heading = entry.substr(0, entry.find('\n'));
    if ((heading + '\\').starts_with("\\fB" + name + '\\') ||
        heading.starts_with("\\fB" + name + '='))
      return entry;
  }
  return {};
}

std::string Lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

std::string Number(int number) {
  return (number < 0 ? "\\" : "") + std::to_string(number);
}

// "(1..30)", "(0, 1)", "(1...)"
std::string RangeText(const Settings::Range& range) {
  if (range.high == std::numeric_limits<int>::max()) return '(' + Number(range.low) + "...)";
  return '(' + Number(range.low) + (range.high - range.low == 1 ? ", " : "..") +
         Number(range.high) + ')';
}

template <class Options>
void ExpectValues(const Options& options, const std::string& page) {
  using Settings::Kind;
  const Settings::Range any;
  for (const auto& option : options) {
    const std::string name(option.name);
    const std::string entry = Entry(page, name);
    const std::string heading = entry.substr(0, entry.find('\n'));
    SCOPED_TRACE(heading);
    EXPECT_GT(entry.size(), heading.size() + 5);  // it says something
    EXPECT_EQ(heading.find('=') != heading.npos, TakesValue(option.kind));
    const bool ranged = option.range.low != any.low || option.range.high != any.high;
    if (ranged) {
      EXPECT_NE(heading.find(RangeText(option.range)), heading.npos) << RangeText(option.range);
    }
    const bool real = option.kind == Kind::kReal || option.kind == Kind::kPositiveReal ||
                      option.kind == Kind::kNonNegativeReal;
    if (real) {
      EXPECT_NE(heading.find("\\fILENGTH"), heading.npos);
    }
    if (heading.find("\\fISTATE") != heading.npos) continue;
    for (const auto& keyword : option.keywords)
      EXPECT_NE(Lower(entry).find(Lower(std::string(keyword.word))), entry.npos) << keyword.word;
  }
}

// Ranges stand behind their option, keywords in its text, what is a length says so.
TEST(Manual, HasWhatTheOptionsTake) {
  const std::string page = Support::ReadFile(VEXTORIN_MANUAL "vextorin.conf.5");
  ExpectValues(Settings::AppOptions(), page);
  ExpectValues(Settings::BarcodeOptions(), page);
  for (const char* units :
       {"are millimetres unless said otherwise", "with a decimal point in every locale"})
    EXPECT_NE(page.find(units), page.npos) << units;
}

// The declarations of a text, each on a line of its own, with single blanks.
std::set<std::string> Declarations(std::string text) {
  text =
      std::regex_replace(text, std::regex(R"(/\*[^*]*(\*[^/][^*]*)*\*/|#[^\n]*|BC_ADDITION )"), "");
  text = std::regex_replace(text, std::regex(R"(\s+)"), " ");
  text = std::regex_replace(text, std::regex(R"(\s*(\*+)\s*)"), " $1");
  std::set<std::string> found;
  const std::regex declaration(R"((const )?\w+ \**\w+\([^()]*\);)");
  for (std::sregex_iterator at(text.begin(), text.end(), declaration), end; at != end; ++at)
    found.insert(at->str());
  return found;
}

TEST(Manual, DeclaresTheLibrarysFunctionsAsTheHeaderDoes) {
  const std::set<std::string> header = Declarations(Support::ReadFile(VEXTORIN_HEADER));
  EXPECT_GT(header.size(), 100u);
  std::string page = Support::ReadFile(VEXTORIN_MANUAL "libvextorin9.3");
  page = page.substr(page.find(".SH FUNCTIONS"),
                     page.find(".SH EXAMPLE") - page.find(".SH FUNCTIONS"));
  EXPECT_EQ(Declarations(page), header);
}

}  // namespace
