// Symbols that none of the readers at hand knows, against patterns that BWIPP draws, and HIBC and
// interpretations in Aztec Code.
#include "library/layout/Layout.h"
#include "library/symbology/ZintSymbol.h"
#include "library/writer/PostScriptWriter.h"
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"
#include "tests/library/SymbolPage.h"
#include "tests/support/Render.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using Library::Options;
using Library::Symbol;

// A row of text for each row of modules.
std::vector<std::string> Rows(const Symbol& symbol) {
  std::vector<std::string> rows;
  for (const Library::SymbolRow& row : symbol.rows) {
    std::string& text = rows.emplace_back();
    bool dark = true;
    for (const int run : row.runs) {
      text.append(static_cast<std::size_t>(run), dark ? '#' : '.');
      dark = !dark;
    }
  }
  return rows;
}

}  // namespace

TEST(OtherSymbols, AreDrawnAsOthersDrawThem) {
  const struct {
    int type;
    const char* data;
    std::vector<std::string> rows;
  } cases[] = {
      {24,
       "CODE 49",
       {
           "######################################################################",
           "#.#..#...#.##.....#.##..##....#...#..##..##..#....####.#####.#..#.####",
           "######################################################################",
           "#.##..####..#.###.##..##...#....#.#...##...##...#.#..#####..#...#.####",
           "######################################################################",
       }},
      // A shifted digit is none of the five digits that would be packed.
      {24,
       "(1]2345",
       {
           "######################################################################",
           "#.##..###..#....#.###.#.######.##.###..##...#..##.#####.##..###.#.####",
           "######################################################################",
           "#.##.#..####.###..#..##..###.####.####.#..#..####.##..##....#...#.####",
           "######################################################################",
       }},
      {115,
       "DOT 115",
       {
           "#.........#...#.#....",
           ".#...#.#.#.#.......#.",
           "#.#...#.#.......#.#..",
           ".#.#.#.#.....#.#.#...",
           "..#.#.....#...#.#.#.#",
           ".#.#.....#.#.#.#...#.",
           "#.#...#.#.#.#.......#",
           ".#.#...#.....#.......",
           "......#.#.#.#.#.#.#..",
           "...#.#.#...#...#...#.",
           "....#.............#..",
           ".......#...#.#...#.#.",
           "#.#.#.#.#.....#.#...#",
           ".#.#.....#.#.#...#...",
       }},
      {128,
       "125",
       {
           "####.#.##.#",
           "###########",
           "##.......##",
           "##.#####.##",
           ".#.#...#.#.",
           ".#.#.#.#.#.",
           ".#.#...#.##",
           ".#.#####.##",
           "##.......#.",
           ".##########",
           "..####.#...",
       }},
      {141,
       "123456",
       {
           "#...###.#.#.###...",
           "###.#..#..#.#....#",
           "#...#.#...#...#...",
           "...##....#...#...#",
           "#...#.#....#.....#",
           "....#.......#.....",
           "##################",
           "..................",
           ".################.",
           ".#..............#.",
           ".################.",
           "...#...#.#..#..##.",
           ".#.#......###.#.#.",
           ".##..#####.##.####",
           ".###....##..#...##",
           "..#.##..##..##..#.",
       }},
  };
  for (const auto& row : cases) {
    EXPECT_TRUE(IsSame(row.type, "reference rows",
                       Rows(Library::Encode(OptionsFor(row.type, row.data))), row.rows))
        << row.type;
  }
}

// BWIPP knows bytes alone, and fills what the function information leaves of its places in turn
// dark and light, where others leave it light.
TEST(HanXin, IsDrawnAsBwippDrawsIt) {
  const struct {
    int length;
    std::uint64_t digest;
  } rows[] = {{1, 0xE3E51FC18B7409F0},   {7, 0xC885F901F054088E},    {18, 0x583C0E3B7336E428},
              {40, 0x7353489A50D1190E},  {90, 0xB7D34B803309A320},   {200, 0xF96D4E96CA831517},
              {500, 0xFFCD47DE8DF4BFDB}, {1200, 0x949A56DDA63AC0D3}, {3000, 0xB5929D42520098CC}};
  for (const auto& row : rows) {
    std::string data;
    for (int i = 0; i < row.length; ++i) data += static_cast<char>(128 + (i * i * 7 + i * 3) % 97);
    std::vector<std::string> modules = ModulesOf(Library::Encode(OptionsFor(116, data)));
    const std::size_t size = modules.size();
    for (const std::size_t i : {0, 2, 4}) modules[8][size - 1 - i] = modules[size - 9][i] = '0';
    EXPECT_TRUE(IsSame(116, "BWIPP's modules", DigestOf(modules), row.digest)) << row.length;
  }
}

TEST(Code49, HoldsWhatLibzintPutsIntoIt) {
  // There are 4,802 patterns. No character whose second code is that of a digit: libzint counts it
  // as one, and packs four digits behind it.
  std::mt19937 random = Seeded(49);
  constexpr std::string_view kSets[] = {"0123456789", "ABCDEFG-. $/+%0123456789",
                                        "abcxyz,:_~\x01\x1A 01"};
  for (int i = 0; i < 2500; ++i) {
    const std::string_view set = kSets[i % 3];
    std::string data;
    for (auto length = 1 + random() % (i % 3 == 0 ? 81 : 30); length > 0; --length) {
      data += set[random() % set.size()];
    }
    Library::ZintSymbol encoded(BARCODE_CODE49);
    if (!encoded.tryEncode(data)) {
      EXPECT_EQ(RefusalOf(OptionsFor(24, data)).code, BC_E_DATATOOLONG);
      continue;
    }
    Symbol expected, bars;
    encoded.copyRows(expected, 1);
    for (const Library::SymbolRow& row : Library::Encode(OptionsFor(24, data)).rows) {
      if (row.height == 0) bars.rows.push_back(row);
    }
    EXPECT_TRUE(IsSame(24, "libzint", Rows(bars), Rows(expected))) << data;
  }
}

TEST(OtherSymbols, RefuseWhatTheyCannotHoldAndNameTheCharacter) {
  const struct {
    int type;
    std::string data;
    int eci;
    Refusal refusal;
  } cases[] = {
      {24, std::string(82, '1'), 0, {BC_E_DATATOOLONG, -1}},
      {24, std::string(50, 'A'), 0, {BC_E_DATATOOLONG, -1}},
      {24, "caf\xE9", 0, {BC_E_INVALIDDATA, 3}},
      {24, "A", 26, {BC_E_NOTSUPPORTED, -1}},
      {115, std::string(1001, '1'), 0, {BC_E_DATATOOLONG, -1}},
      {115, "A", 811800, {BC_E_NOTSUPPORTED, -1}},
      {116, std::string(7828, '1'), 0, {BC_E_DATATOOLONG, -1}},
      {116, std::string(3300, '\x80'), 0, {BC_E_DATATOOLONG, -1}},
      {141, std::string(3550, '1'), 0, {}},
      {115, std::string(1000, '1'), 0, {}},
      {116, std::string(7827, '1'), 0, {}},
      {116, std::string(3261, '\x80'), 0, {}},
      {141, std::string(1478, '\x80'), 0, {}},
      {141, std::string(1479, '\x80'), 0, {BC_E_DATATOOLONG, -1}},
      {128, "12A", 0, {BC_E_INVALIDDATA, 2}},
      {128, "256", 0, {BC_E_INVALIDDATA, 0}},
      {128, "0255", 0, {BC_E_DATATOOLONG, -1}},
      {112, "A!", 0, {BC_E_INVALIDDATA, 1}},
      {142, "A", 0, {BC_E_NOTSUPPORTED, -1}},
      {144, "A", 0, {BC_E_NOTSUPPORTED, -1}},
  };
  for (const auto& row : cases) {
    Options options = OptionsFor(row.type, row.data);
    options.eci = row.eci;
    EXPECT_EQ(RefusalOf(options), row.refusal) << row.type << " " << row.data;
  }
}

TEST(OtherSymbols, TakeAnInterpretationInFront) {
  for (const int type : {115, 116, 141}) {
    Options options = OptionsFor(type, "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789");
    const Symbol plain = Library::Encode(options);
    options.eci = 26;
    const Symbol interpreted = Library::Encode(options);
    EXPECT_NE(Rows(plain), Rows(interpreted)) << type;
  }
}

TEST(OtherSymbols, OfAztecCarryHibcAndInterpretations) {
  const Symbol hibc = Library::Encode(OptionsFor(112, "A123BJC5D6E71"));
  EXPECT_TRUE(ReadsBack(hibc, "+A123BJC5D6E71G"));
  EXPECT_EQ(hibc.checkDigits, "G");
  EXPECT_EQ(hibc.texts.at(0).text, "*+A123BJC5D6E71G*");
  EXPECT_TRUE(ReadsBack(Library::Encode(OptionsFor(113, "+/EO5232013")), "+/EO5232013"));
  EXPECT_EQ(Rows(Library::Encode(OptionsFor(128, "125"))).size(), 11u);

  for (const int eci : {3, 26, 899, 16383, 811799}) {
    Options options = OptionsFor(92,
                                 "Gr\xC3\xBC\xC3\x9F"
                                 "e");
    options.eci = eci;
    const Scanned scanned = Scan(Library::Encode(options));
    EXPECT_TRUE(IsRead(scanned, options.data));
    const std::string digits = std::to_string(1000000 + eci).substr(1);
    EXPECT_NE(scanned.withEci.find("\\" + digits), std::string::npos) << eci;
  }
  Options rune = OptionsFor(92, "25");
  rune.aztec.runes = true;
  rune.eci = 26;
  EXPECT_EQ(RefusalOf(rune).code, BC_E_NOTSUPPORTED);
}

TEST(DotCode, IsDrawnAsDotsThatDoNotTouch) {
  const Symbol symbol = Library::Encode(OptionsFor(115, "DotCode test 123"));
  Options options;
  options.moduleWidth = 500;
  const Library::Drawing drawing = Library::LayOut(symbol, options, {0, 20000, 20000, 0});
  std::size_t dark = 0;
  for (const std::string& row : Rows(symbol)) {
    dark += static_cast<std::size_t>(std::count(row.begin(), row.end(), '#'));
  }
  EXPECT_TRUE(drawing.rectangles.empty());
  ASSERT_EQ(drawing.rings.size(), dark);
  for (const Library::Ring& dot : drawing.rings) {
    EXPECT_EQ(dot.innerRadius, 0);
    EXPECT_EQ(dot.outerRadius, 200);
    EXPECT_GE(dot.centre.x - dot.outerRadius, drawing.box.left);
    EXPECT_LE(dot.centre.y + dot.outerRadius, drawing.box.top);
  }

  constexpr int kDpi = 300;
  const Support::Rendering rendering =
      Support::Render(Library::PostScriptWriter(true).write(drawing), kDpi);
  ASSERT_EQ(rendering.pages.size(), 1u) << rendering.messages;
  const Support::Page& page = rendering.pages[0];
  const auto isInk = [&](double x, double y) {  // 1/1000 mm from the upper left corner of the box
    const double pixels = kDpi / 25400.0;
    const auto column = static_cast<std::size_t>((drawing.box.left + x) * pixels);
    const auto row = static_cast<std::size_t>(page.height - (drawing.box.top - y) * pixels);
    return page.gray[row * static_cast<std::size_t>(page.width) + column] == 0;
  };
  const std::vector<std::string> rows = Rows(symbol);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t column = 0; column < rows[row].size(); ++column) {
      const double x = static_cast<double>(column) * 500, y = static_cast<double>(row) * 500;
      ASSERT_EQ(isInk(x + 250, y + 250), rows[row][column] == '#') << row << ", " << column;
      ASSERT_FALSE(isInk(x + 3, y + 3));
    }
  }
}

TEST(HibcMessages, AreReadBackFromEveryCarrier) {
  constexpr std::string_view kValues = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";
  std::mt19937 random = Seeded(26);
  for (const int type : {98, 99, 100, 101, 102, 103, 104, 105, 106, 107, 110, 111, 112, 113}) {
    for (std::size_t row = 0; row < 10; ++row) {
      std::string message = "+";
      std::size_t sum = kValues.find('+');
      for (std::size_t length = row == 0 ? 2 : 2 + random() % 50; length > 0; --length) {
        const std::size_t value = message.size() == 1 ? 10 : random() % kValues.size();
        sum += value;
        message += kValues[value];
      }
      const std::string data = message.substr(1);
      message += kValues[sum % kValues.size()];
      const Symbol symbol = Library::Encode(OptionsFor(type, row % 2 == 0 ? message : data));
      if (type == 110 || type == 111) {
        const Symbol carrier = Library::Encode(OptionsFor(74, message));
        EXPECT_TRUE(IsSame(type, "the carrier's symbol", Rows(symbol), Rows(carrier)));
      } else {
        EXPECT_TRUE(ReadsBack(symbol, message)) << type;
      }
    }
  }
}

// What marks an industry's data would stand in front of the plus sign that tells what these are.
TEST(HibcMessages, AreNoElementStrings) {
  const struct {
    int type;
    void (*ask)(Library::Options&);
  } rows[] = {
      {103, [](Library::Options& o) { o.dataMatrix.format = 1; }},
      {104, [](Library::Options& o) { o.qr.format = 1; }},
      {105, [](Library::Options& o) { o.qr.format = 2, o.qr.indicator = "12"; }},
      {109, [](Library::Options& o) { o.pdf417.microMode = 1; }},
      {110, [](Library::Options& o) { o.codablock.format = 1; }},
      {112, [](Library::Options& o) { o.aztec.format = 1; }},
  };
  for (const auto& row : rows) {
    Library::Options options = OptionsFor(row.type, "A123%BJC");
    EXPECT_EQ(RefusalOf(options), Refusal{}) << row.type;
    row.ask(options);
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_NOTSUPPORTED, -1})) << row.type;
  }
}
