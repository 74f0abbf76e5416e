#include "tests/library/SymbolPage.h"

#include <algorithm>

std::vector<std::string> ModulesOf(const Library::Symbol& symbol) {
  std::vector<std::string> rows;
  for (const Library::SymbolRow& row : symbol.rows) {
    char module = '1';
    rows.emplace_back();
    for (const int run : row.runs) {
      rows.back().append(static_cast<std::size_t>(run), module);
      module = module == '1' ? '0' : '1';
    }
  }
  return rows;
}

Support::Page PageOf(const Library::Symbol& symbol) {
  constexpr int kPixels = 3, kQuiet = 12, kHeight = 33;
  Support::Page page;
  page.width = (symbol.width + 2 * kQuiet) * kPixels;
  page.dpi = 300;
  const auto add = [&page](const std::string& modules, int pixels) {
    std::vector<std::uint8_t> line;
    for (const char module : modules) line.insert(line.end(), kPixels, module == '1' ? 0 : 255);
    for (int i = 0; i < pixels; ++i) page.gray.insert(page.gray.end(), line.begin(), line.end());
    page.height += pixels;
  };
  const std::string side(kQuiet, '0'), light(static_cast<std::size_t>(symbol.width), '0');
  add(side + light + side, kQuiet * kPixels);
  const std::vector<std::string> modules = ModulesOf(symbol);
  for (std::size_t row = 0; row < modules.size(); ++row) {
    const double height = symbol.rows[row].height;
    add(side + modules[row] + side, (height > 0 ? static_cast<int>(height) : kHeight) * kPixels);
  }
  add(side + light + side, kQuiet * kPixels);
  return page;
}

std::uint64_t DigestOf(const Library::Symbol& symbol) {
  return DigestOf(ModulesOf(symbol));
}

std::uint64_t DigestOf(std::vector<std::string> rows) {
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  std::size_t from = std::string::npos, to = 0;
  for (const std::string& row : rows) {
    from = std::min(from, row.find('1'));
    to = std::max(to, row.rfind('1') + 1);
  }
  std::string all;
  for (const std::string& row : rows) all += row.substr(from, to - from) + '\n';
  all.pop_back();
  std::uint64_t digest = 0xCBF29CE484222325;
  for (const char character : all) {
    digest = (digest ^ static_cast<unsigned char>(character)) * 0x100000001B3;
  }
  return digest;
}

std::string ReadByZBar(const Library::Symbol& symbol) {
  std::string all;
  for (const Support::Symbol& read : Support::DecodeWithZBar(PageOf(symbol))) {
    all += (all.empty() ? "" : " ") + read.data;
  }
  return all;
}
