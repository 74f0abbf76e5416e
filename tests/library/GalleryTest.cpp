// The page of pictures, docs/gallery: every type, drawn by the options beside its picture.
#include "library/symbology/Symbology.h"
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Support;

const std::string kFolder = VEXTORIN_GALLERY;

// The options of a type's row, empty without one.
std::string OptionsOf(int type, std::string_view name, std::string_view page) {
  const std::string number = std::to_string(type);
  const std::string start = "| ![" + std::string(name) + "](" + number + ".png) | " + number +
                            " | " + std::string(name) + " | `";
  const std::size_t row = page.find(start);
  if (row == page.npos) return {};
  const std::size_t begin = row + start.size();
  return std::string(page.substr(begin, page.find('`', begin) - begin));
}

// Width, height and levels of a picture as a text, and its ink; empty of no PNG.
std::string Pixels(const std::string& png) {
  return Run({.arguments = {"sh", "-c", "pngtopnm | ppmtopgm"}, .input = png}).output;
}

std::string Drawn(const std::string& options) {
  Lines settings = Split(
      "format=IMAGE imageformat=PNG dpi=200 quietzoneunit=mm quietzoneh=3 "
      "quietzonev=2",
      " ");
  for (std::string option : Split(options.substr(2), " --")) {
    std::erase(option, '"');
    settings.push_back(option);
  }
  const Program::Result result = Program{.settings = settings}.run();
  EXPECT_EQ(result.errors, "");
  return Pixels(result.output);
}

std::size_t Differences(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return std::max(a.size(), b.size());
  std::size_t count = 0;
  for (std::size_t i = 0; i < a.size(); ++i) count += a[i] != b[i];
  return count;
}

}  // namespace

// Text may be in another machine's font, so some pixels may differ.
TEST(Gallery, ShowsEveryTypeAsItIsDrawnNow) {
  const std::string page = ReadFile(kFolder + "README.md");
  std::string job = "%!PS-Adobe-3.0\n/Courier findfont 8 scalefont setfont\n";
  for (int type = 0; type < 1000; ++type) {
    const Library::Symbology* const row = Library::FindSymbology(type);
    if (row == nullptr || row->encoder == nullptr) continue;
    SCOPED_TRACE(row->name);
    const std::string options = OptionsOf(type, row->name, page);
    ASSERT_TRUE(options.starts_with("--barcode=" + std::to_string(type) + " "))
        << "no row in docs/gallery/README.md";
    const std::string picture = Pixels(ReadFile(kFolder + std::to_string(type) + ".png"));
    ASSERT_FALSE(picture.empty()) << "no picture";
    const auto ink = static_cast<std::size_t>(std::count(picture.begin(), picture.end(), '\0'));
    EXPECT_LT(Differences(picture, Drawn(options)), ink / 3)
        << "docs/gallery/make.sh draws it anew";
    std::string text;
    for (const char c : options) text += (c == '\\' ? "\\\\" : std::string(1, c));
    job += "36 700 moveto ($_vxrs " + text + " $_vxre) show\n";
  }
  EXPECT_EQ(Filter("insert=auto").run(job + "showpage\n").errors, "");
}
