#include "tests/support/Render.h"

#include "tests/support/Run.h"
#include "tests/support/TempFolder.h"

#include <cstdio>
#include <filesystem>

namespace Support {
namespace {

// A binary grey map: "P5 width height 255", with comment lines in between, then the pixels.
Page ReadGrayMap(const std::string& bytes, int dpi) {
  std::size_t place = 2;
  const auto number = [&] {
    while (bytes[place] == '#' || bytes[place] <= ' ') {
      place = bytes[place] == '#' ? bytes.find('\n', place) : place + 1;
    }
    int value = 0;
    for (; bytes[place] > ' '; ++place) value = value * 10 + (bytes[place] - '0');
    return value;
  };
  Page page;
  page.dpi = dpi;
  page.width = number();
  page.height = number();
  number();
  page.gray.assign(bytes.begin() + static_cast<long>(place) + 1, bytes.end());
  return page;
}

std::string PageFile(int number) {
  char name[24];
  std::snprintf(name, sizeof name, "page%04d.pgm", number);
  return name;
}

}  // namespace

Rendering Render(std::string_view postScript, int dpi) {
  const TempFolder folder;
  const Finished finished =
      Run({.arguments = {"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pgmraw",
                         "-r" + std::to_string(dpi), "-sOutputFile=" + folder.file("page%04d.pgm"),
                         folder.write("job.ps", postScript)}});
  Rendering rendering;
  rendering.messages = finished.output + finished.errors;
  for (int page = 1; std::filesystem::exists(folder.file(PageFile(page))); ++page) {
    rendering.pages.push_back(ReadGrayMap(ReadFile(folder.file(PageFile(page))), dpi));
  }
  return rendering;
}

}  // namespace Support
