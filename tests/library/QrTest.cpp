// QR Code, Micro QR Code, rMQR Code and what is made of them: against libzint's modules, against a
// scoring of masks and a search for the shortest message that go by the standard's text one module
// and one segment at a time, and read back by ZXing.
#include "library/symbology/QrMessage.h"
#include "library/symbology/QrPenalty.h"
#include "library/symbology/ZintSymbol.h"
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <string_view>

namespace {

using Library::Options;
using Library::QrContent;
using Library::QrMatrix;
using Library::QrMessage;
using Library::QrSegmentHeads;
using Library::Symbol;

constexpr int kQrCode = 58, kMicroQrCode = 97, kHibcLic = 104, kHibcPas = 105, kUpnQr = 143,
              kRectangular = 145;
constexpr std::string_view kOf45 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%*+-./:";

using Grid = std::vector<std::string>;

Grid GridOf(const Symbol& symbol) {
  Grid grid;
  for (const Library::SymbolRow& row : symbol.rows) {
    std::string line;
    bool dark = true;
    for (const int run : row.runs) {
      line.append(static_cast<std::size_t>(run), dark ? '#' : '.');
      dark = !dark;
    }
    grid.push_back(line);
  }
  return grid;
}

// libzint's modules, empty where it refuses the data.
Grid GridByLibzint(int symbology, const std::string& data,
                   const std::function<void(zint_symbol&)>& set) {
  Library::ZintSymbol symbol(symbology);
  set(*symbol.operator->());
  Grid grid;
  try {
    if (!symbol.tryEncode(data)) return {};
  } catch (const std::exception&) {
    return {};
  }
  for (int y = 0; y < symbol->rows; ++y) {
    std::string line;
    for (int x = 0; x < symbol->width; ++x) line += symbol.isDark(y, x) ? '#' : '.';
    grid.push_back(line);
  }
  return grid;
}

Grid Encoded(const Options& options) {
  return GridOf(Library::Encode(options));
}

class Source {
 public:
  int below(int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); }
  std::string of(std::string_view characters, int length) {
    std::string data;
    while (length-- > 0) {
      data += characters[static_cast<std::size_t>(below(static_cast<int>(characters.size())))];
    }
    return data;
  }
  std::string bytes(int length, int first = 0) {
    std::string data;
    while (length-- > 0) data += static_cast<char>(first + below(256 - first));
    return data;
  }

 private:
  std::mt19937 random = Seeded(18004);
};

// Masks

// Points of one line of modules, N1 and N3.
int LinePoints(const std::string& line) {
  int points = 0;
  int run = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    run = i > 0 && line[i] == line[i - 1] ? run + 1 : 1;
    if (run >= 5) points += run == 5 ? 3 : 1;
  }
  const std::string quiet = "....", finder = "#.###.#";
  const std::string wide = quiet + line + quiet;
  for (std::size_t at = wide.find(finder); at != wide.npos; at = wide.find(finder, at + 1)) {
    const bool lightInFront = wide.compare(at - 4, 4, quiet) == 0;
    const bool lightBehind = wide.compare(at + finder.size(), 4, quiet) == 0;
    if (lightInFront || lightBehind) points += 40;
  }
  return points;
}

int Points(const Grid& grid) {
  const int width = static_cast<int>(grid.size());
  int points = 0, dark = 0;
  for (std::size_t x = 0; x < grid.size(); ++x) {
    std::string column;
    for (const std::string& row : grid) column += row[x];
    points += LinePoints(column);
  }
  for (std::size_t y = 0; y < grid.size(); ++y) {
    points += LinePoints(grid[y]);
    dark += static_cast<int>(std::count(grid[y].begin(), grid[y].end(), '#'));
    for (std::size_t x = 0; y > 0 && x + 1 < grid.size(); ++x) {
      const char colour = grid[y][x];
      const bool alike =
          grid[y][x + 1] == colour && grid[y - 1][x] == colour && grid[y - 1][x + 1] == colour;
      if (alike) points += 3;
    }
  }
  // 5 % of the modules, twentyfold.
  return points + std::abs(20 * dark - 10 * width * width) / (width * width) * 10;
}

QrMatrix MatrixOf(const Grid& grid) {
  const int width = static_cast<int>(grid.size());
  QrMatrix matrix(width, width);
  for (int y = 0; y < width; ++y) {
    for (int x = 0; x < width; ++x) {
      matrix.set(x, y, grid[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] == '#');
    }
  }
  return matrix;
}

TEST(QrCodeMasks, AreScoredAsTheStandardSays) {
  Source source;
  const std::string_view kMixtures[] = {"#.", "#......", "######.", "#", "."};
  for (int width = 21; width <= 177; width += 4) {
    for (const std::string_view mixture : kMixtures) {
      Grid grid;
      for (int y = 0; y < width; ++y) grid.push_back(source.of(mixture, width));
      // Finders at every distance from the edges, and such as have dark modules too near.
      for (int i = 0; i < width / 2; ++i) {
        constexpr std::string_view kFinders[] = {"....#.###.#", "#.###.#....", "#.###.#",
                                                 "#...#.###.#...#", "....#.###.#...."};
        const std::string_view finder = kFinders[source.below(5)];
        const auto along =
            static_cast<std::size_t>(source.below(width - static_cast<int>(finder.size()) + 1));
        const auto line = static_cast<std::size_t>(source.below(width));
        for (std::size_t k = 0; k < finder.size(); ++k) {
          (i % 2 == 0 ? grid[line][along + k] : grid[along + k][line]) = finder[k];
        }
      }
      EXPECT_EQ(Library::QrPenalty(MatrixOf(grid)), Points(grid)) << width << " " << mixture;
    }
  }
}

TEST(QrCodeMasks, WithTheFewestPointsAreTakenOfThoseThatCanBeAskedFor) {
  Source source;
  std::map<int, int> taken;
  for (const int length : {5, 20, 60, 200, 300, 700, 1200, 2000}) {
    for (int round = 0; round < 5; ++round) {
      Options options = OptionsFor(kQrCode, source.bytes(length));
      const Grid automatic = Encoded(options);
      int best = 0;
      std::vector<Grid> masked;
      for (options.qr.mask = 0; options.qr.mask < 8; ++options.qr.mask) {
        masked.push_back(Encoded(options));
        if (Points(masked.back()) < Points(masked[static_cast<std::size_t>(best)])) {
          best = options.qr.mask;
        }
      }
      EXPECT_TRUE(automatic == masked[static_cast<std::size_t>(best)]) << length << ", " << best;
      ++taken[best];
    }
  }
  EXPECT_EQ(taken.size(), 8u);
}

// Versions and levels

TEST(QrCode, FillsEveryVersionAndLevelAsLibzintDoes) {
  Source source;
  for (int version = 1; version <= 40; ++version) {
    for (int level = 0; level < 4; ++level) {
      SCOPED_TRACE(testing::Message() << "version " << version << ", level " << level);
      Options options = OptionsFor(kQrCode, "");
      options.qr.version = version;
      options.qr.ecLevel = level;
      options.qr.mask = (version + level) % 8;
      const std::string data = source.bytes(2954, 128);
      std::size_t good = 0, bad = data.size();
      while (good + 1 < bad) {
        const std::size_t middle = (good + bad) / 2;
        options.data = data.substr(0, middle);
        (RefusalOf(options) == Refusal{} ? good : bad) = middle;
      }
      const auto byLibzint = [&](std::size_t length) {
        return GridByLibzint(BARCODE_QRCODE, data.substr(0, length), [&](zint_symbol& symbol) {
          symbol.option_1 = level + 1;
          symbol.option_2 = version;
          symbol.option_3 = (options.qr.mask + 1) << 8;
        });
      };
      options.data = data.substr(0, good);
      const Grid grid = Encoded(options);
      EXPECT_TRUE(grid == byLibzint(good)) << good;
      EXPECT_EQ(static_cast<int>(grid.size()), 17 + 4 * version);
      EXPECT_TRUE(byLibzint(good + 1).empty()) << good;
      options.data = data.substr(0, 1);
      EXPECT_TRUE(Encoded(options) == byLibzint(1));  // filled up
    }
  }
}

// Segments

// The bits that a segment takes, -1: the mode lacks a character.
int SegmentBits(const std::vector<std::uint16_t>& characters, std::size_t begin, std::size_t end,
                int mode, const QrSegmentHeads& heads, bool marked) {
  const int countBits = heads.countBits[static_cast<std::size_t>(mode)];
  if (countBits == 0) return -1;
  int units = 0;
  for (std::size_t i = begin; i < end; ++i) {
    const std::uint16_t c = characters[i];
    const bool fnc1 = c == Library::kFnc1;
    if (mode == 0 && (c < '0' || c > '9')) return -1;
    if (mode == 1 && !fnc1 && (c > 127 || kOf45.find(static_cast<char>(c)) == kOf45.npos))
      return -1;
    units += mode == 1 && marked && c == '%' ? 2 : 1;
  }
  const int bits = mode == 0   ? units / 3 * 10 + (units % 3) * 3 + (units % 3 > 0 ? 1 : 0)
                   : mode == 1 ? units / 2 * 11 + units % 2 * 6
                               : units * 8;
  return heads.indicatorBits + countBits + bits;
}

// By trying every last segment of every beginning.
int FewestBits(const QrContent& content, const QrSegmentHeads& heads) {
  constexpr int kNever = 1'000'000;
  const auto& characters = content.characters;
  std::vector<int> fewest(characters.size() + 1, kNever);
  fewest[0] = 0;
  for (std::size_t end = 1; end <= characters.size(); ++end) {
    for (std::size_t begin = 0; begin < end; ++begin) {
      for (int mode = 0; mode < 3; ++mode) {
        const int bits = SegmentBits(characters, begin, end, mode, heads, content.marked);
        if (bits > 0) fewest[end] = std::min(fewest[end], fewest[begin] + bits);
      }
    }
  }
  return fewest.back() == kNever ? -1 : fewest.back();
}

TEST(QrCodeMessages, AreAsShortAsAnyCanBe) {
  constexpr QrSegmentHeads kHeads[] = {{4, {1, 2, 4}, {10, 9, 8}},
                                       {4, {1, 2, 4}, {14, 13, 16}},
                                       {2, {0, 1, 2}, {5, 4, 4}},
                                       {1, {0, 1, 0}, {4, 3, 0}},
                                       {0, {0, 0, 0}, {3, 0, 0}}};
  Source source;
  for (int round = 0; round < 300; ++round) {
    QrContent content;
    content.marked = round % 3 == 0;
    constexpr int kLengths[] = {8, 30, 80};
    const int length = 1 + source.below(kLengths[round % 3]);
    while (static_cast<int>(content.characters.size()) < length) {
      // Runs of one kind, for which another mode may pay or not.
      constexpr std::string_view kKinds[] = {"0123456789", kOf45, "abc\xE9", "%A"};
      const std::string run = source.of(kKinds[source.below(round % 4 + 1)], 1 + source.below(14));
      for (const char c : run) content.characters.push_back(static_cast<unsigned char>(c));
      if (content.marked && source.below(3) == 0) content.characters.push_back(Library::kFnc1);
    }
    for (const QrSegmentHeads& heads : kHeads) {
      const int fewest = FewestBits(content, heads);
      const QrMessage message(content, heads);
      if (fewest < 0) {
        EXPECT_EQ(message.bitCount(), QrMessage::kImpossible);
        continue;
      }
      EXPECT_EQ(message.bitCount(), static_cast<std::size_t>(fewest)) << round;
      EXPECT_LE(QrMessage::leastBits(content), message.bitCount());
      Library::QrBits bits;
      message.write(bits);
      EXPECT_EQ(bits.size(), message.bitCount()) << round;
    }
  }
}

TEST(QrCode, IsReadBackAndNeverLargerThanLibzints) {
  const std::pair<const char*, std::vector<std::string>> kKinds[] = {
      {"digits", {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}},
      {"capitals", {"A", "B", "Z", " ", "$", "%", "*", "+", "-", ".", "/", ":"}},
      {"mixed", {"a", "B", "c", "1", "2345678", "X/Y", "\"", "\n", " "}},
      {"URL", {"https://", "www.", "example", ".com/", "?id=", "4711", "&q=", "%20", "A1"}},
      {"bytes", {std::string(1, '\0'), "\xFF", "\x80", "\x93\xFA", "\xEA\x40", "7"}},
      {"UTF-8", {"Gr\xC3\xBC\xC3\x9F", "e ", "\xE2\x82\xAC", " 12", "\xE6\x97\xA5", "N"}},
  };
  Source source;
  for (const auto& [name, pieces] : kKinds) {
    for (int round = 0; round < 32; ++round) {
      constexpr int kLengths[] = {12, 50, 250, 900};
      const int length = 1 + source.below(kLengths[round / 4 % 4]);
      Options options = OptionsFor(kQrCode, "");
      while (static_cast<int>(options.data.size()) < length) {
        options.data +=
            pieces[static_cast<std::size_t>(source.below(static_cast<int>(pieces.size())))];
      }
      options.qr.ecLevel = round % 4;
      SCOPED_TRACE(testing::Message() << name << ", " << length << ", " << options.qr.ecLevel);
      const Symbol symbol = Library::Encode(options);
      EXPECT_TRUE(ReadsBack(symbol, options.data));
      const Grid theirs = GridByLibzint(BARCODE_QRCODE, options.data, [&](zint_symbol& s) {
        s.option_1 = options.qr.ecLevel + 1;
      });
      EXPECT_LE(symbol.rows.size(), theirs.size());
    }
  }
}

// What stands in front of the data

TEST(QrCode, TellsTheReaderFormatEciAndPlace) {
  const struct {
    const char* name;
    std::string data;
    std::function<void(Options&)> set;
    std::string identifier, bytes;
  } cases[] = {
      {"plain", "AB%\x1D", [](Options&) {}, "]Q1", "AB%\x1D"},
      {"GS1", "(01)09501101530003(10)AB(21)5%", [](Options& o) { o.qr.format = 1; }, "]Q3",
       "010950110153000310AB\x1D"
       "215%"},
      {"GS1, small letters", "(10)ab(21)5", [](Options& o) { o.qr.format = 1; }, "]Q3",
       "10ab\x1D"
       "215"},
      {"digits",
       "A\x1D"
       "2%",
       [](Options& o) { o.qr.format = 2, o.qr.indicator = "37"; }, "]Q5",
       "37A\x1D"
       "2%"},
      {"percent signs behind GS",
       "AB1\x1D"
       "%%2",
       [](Options& o) { o.qr.format = 2, o.qr.indicator = "37"; }, "]Q5",
       "37AB1\x1D"
       "%%2"},
      {"letter",
       "Ab\x1D"
       "2",
       [](Options& o) { o.qr.format = 2, o.qr.indicator = "z"; }, "]Q5",
       "zAb\x1D"
       "2"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    Options options = OptionsFor(kQrCode, row.data);
    row.set(options);
    const Scanned scanned = Scan(Library::Encode(options));
    EXPECT_EQ(scanned.identifier, row.identifier);
    EXPECT_TRUE(IsRead(scanned, row.bytes));
  }
}

TEST(QrCode, TellsTheReaderItsEci) {
  const std::pair<int, const char*> kEcis[] = {
      {3, "000003"}, {26, "000026"}, {899, "000899"}, {16384, "016384"}, {999999, "999999"}};
  for (const auto& [eci, digits] : kEcis) {
    Options options = OptionsFor(kQrCode, "Gr\xC3\xBC\xC3\x9F, AB12");
    options.eci = eci;
    EXPECT_EQ(Scan(Library::Encode(options)).withEci, "]Q2\\" + (digits + options.data));
    options.qr.format = 2;
    options.qr.indicator = "37";
    EXPECT_EQ(Scan(Library::Encode(options)).withEci, "]Q6\\" + (digits + ("37" + options.data)));
  }
}

// libzint misjudges the length of percent signs in element strings, so the version is given there.
TEST(QrCode, WritesHeadersAsLibzintDoes) {
  for (const int eci : {3, 26, 127, 128, 899, 16383, 16384, 999999}) {
    Options options = OptionsFor(kQrCode, "Data 4711");
    options.eci = eci;
    EXPECT_TRUE(Encoded(options) ==
                GridByLibzint(BARCODE_QRCODE, options.data,
                              [&](auto& symbol) { symbol.option_1 = 2, symbol.eci = eci; }))
        << eci;
  }
  for (const auto& [sum, index, parity] : {std::tuple{2, 1, -1}, {16, 16, 255}, {9, 2, 100}}) {
    Options options = OptionsFor(kQrCode, "Data 4711");
    options.qr.appendSum = sum, options.qr.appendIndex = index, options.qr.appendParity = parity;
    EXPECT_TRUE(Encoded(options) == GridByLibzint(BARCODE_QRCODE, options.data,
                                                  [&](auto& symbol) {
                                                    symbol.option_1 = 2,
                                                    symbol.structapp.count = sum,
                                                    symbol.structapp.index = index;
                                                    std::snprintf(symbol.structapp.id,
                                                                  sizeof symbol.structapp.id, "%d",
                                                                  std::max(parity, 0));
                                                  }))
        << sum;
  }
  for (const std::string value : {"5%0A%%", "ABC", "1%", "%"}) {
    Options options = OptionsFor(kQrCode, "(10)" + value + "(21)X");
    options.qr.format = 1;
    options.qr.version = 5;
    const std::string elements = "[]10" + value + "[]21X";
    EXPECT_TRUE(Encoded(options) == GridByLibzint(BARCODE_QRCODE, elements,
                                                  [](auto& symbol) {
                                                    symbol.option_1 = 2, symbol.option_2 = 5;
                                                    symbol.input_mode = GS1_MODE | GS1NOCHECK_MODE;
                                                  }))
        << value;
  }
}

// Micro QR Code

TEST(MicroQrCode, HasTheModulesOfLibzints) {
  Source source;
  int compared = 0, equal = 0;
  for (int round = 0; round < 1500; ++round) {
    const std::string_view kinds[] = {kOf45.substr(0, 10), kOf45, "ab1\xE9Z2345"};
    Options options = OptionsFor(kMicroQrCode, source.of(kinds[round % 3], 1 + source.below(22)));
    options.qr.ecLevel = source.below(3);
    options.qr.microMask = source.below(5) - 1;
    options.qr.microVersion = options.qr.ecLevel == 2 ? 4 * source.below(2) : source.below(5);
    const bool refused = RefusalOf(options).code != BC_OK;
    const Grid theirs = GridByLibzint(BARCODE_MICROQR, options.data, [&](auto& symbol) {
      symbol.option_1 = options.qr.microVersion == 1 ? 1 : options.qr.ecLevel + 1;
      symbol.option_2 = options.qr.microVersion;
      symbol.option_3 = (options.qr.microMask + 1) << 8;
    });
    SCOPED_TRACE(options.data);
    EXPECT_EQ(refused, theirs.empty());
    if (refused) continue;
    ++compared;
    const Symbol symbol = Library::Encode(options);
    EXPECT_TRUE(ReadsBack(symbol, options.data));
    EXPECT_EQ(symbol.rows.size(), theirs.size());
    equal += GridOf(symbol) == theirs ? 1 : 0;
  }
  EXPECT_GT(compared, 500);
  // Of two segmentations that are as short either may be taken.
  EXPECT_GE(equal, compared - 3);
}

TEST(MicroQrCode, RefusesWhatItsVersionsLack) {
  const struct {
    const char* name;
    std::string data;
    std::function<void(Library::QrOptions&)> set;
    Refusal refusal;
  } cases[] = {
      {"35 digits", std::string(35, '1'), [](auto& o) { o.ecLevel = 0; }, {}},
      {"digits for M", std::string(31, '1'), [](auto&) {}, {BC_E_DATATOOLONG, -1}},
      {"level H", "1", [](auto& o) { o.ecLevel = 3; }, {BC_E_INVALIDARG, -1}},
      {"level Q of M3",
       "1",
       [](auto& o) { o.ecLevel = 2, o.microVersion = 3; },
       {BC_E_INVALIDARG, -1}},
      {"level Q of M1",
       "1",
       [](auto& o) { o.ecLevel = 2, o.microVersion = 1; },
       {BC_E_INVALIDARG, -1}},
      {"M5", "1", [](auto& o) { o.microVersion = 5; }, {BC_E_INVALIDARG, -1}},
      {"mask", "1", [](auto& o) { o.microMask = 4; }, {BC_E_INVALIDARG, -1}},
      {"letter in M1", "12A", [](auto& o) { o.microVersion = 1; }, {BC_E_INVALIDDATA, 2}},
      {"small letter in M2", "AaB", [](auto& o) { o.microVersion = 2; }, {BC_E_INVALIDDATA, 1}},
      {"too long for M1", "123456", [](auto& o) { o.microVersion = 1; }, {BC_E_DATATOOLONG, -1}},
      {"GS1", "1", [](auto& o) { o.format = 1; }, {BC_E_NOTSUPPORTED, -1}},
      {"append", "1", [](auto& o) { o.appendSum = 2, o.appendIndex = 1; }, {BC_E_NOTSUPPORTED, -1}},
  };
  for (const auto& row : cases) {
    Options options = OptionsFor(kMicroQrCode, row.data);
    row.set(options.qr);
    EXPECT_EQ(RefusalOf(options), row.refusal) << row.name;
  }
  Options options = OptionsFor(kMicroQrCode, "1");
  options.eci = 26;
  EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_NOTSUPPORTED, -1}));
}

// rMQR Code

TEST(RectangularMicroQrCode, HasTheModulesOfLibzintsInEveryVersion) {
  Source source;
  int refused = 0;
  for (int version = 0; version <= 38; ++version) {
    for (int round = 0; round < 16; ++round) {
      Options options = OptionsFor(kRectangular, source.of("0123456789", 1 + source.below(330)));
      if (round % 4 == 1) options.data = source.of(kOf45.substr(10), 1 + source.below(60));
      if (round % 4 == 2) options.data = source.bytes(1 + source.below(40), 128);
      if (round % 4 == 3) options.data = source.of("0123456789", 1 + source.below(4));
      options.qr.version = version;
      options.qr.ecLevel = round % 8 < 4 ? 1 : 3;
      const Grid theirs = GridByLibzint(BARCODE_RMQR, options.data, [&](auto& symbol) {
        symbol.option_1 = options.qr.ecLevel + 1, symbol.option_2 = version;
      });
      SCOPED_TRACE(testing::Message() << version << " " << testing::PrintToString(options.data));
      EXPECT_EQ(RefusalOf(options), theirs.empty() ? (Refusal{BC_E_DATATOOLONG, -1}) : Refusal{});
      refused += theirs.empty() ? 1 : 0;
      if (theirs.empty()) continue;
      EXPECT_TRUE(IsSame(kRectangular, "libzint", Encoded(options), theirs));
    }
  }
  EXPECT_LT(refused, 39 * 16 / 2);
}

TEST(RectangularMicroQrCode, TakesFormatsAndEciButNoOtherLevels) {
  const auto refusal = [](const std::function<void(Options&)>& set) {
    Options options = OptionsFor(kRectangular, "1");
    set(options);
    return RefusalOf(options);
  };
  const Refusal kInvalid{BC_E_INVALIDARG, -1};
  EXPECT_EQ(refusal([](Options& o) { o.qr.ecLevel = 0; }), kInvalid);
  EXPECT_EQ(refusal([](Options& o) { o.qr.ecLevel = 2; }), kInvalid);
  EXPECT_EQ(refusal([](Options& o) { o.qr.version = 39; }), kInvalid);
  EXPECT_EQ(refusal([](Options& o) { o.eci = 2; }), kInvalid);
  EXPECT_EQ(refusal([](Options& o) { o.qr.format = 2; }), kInvalid);
  EXPECT_EQ(refusal([](Options& o) { o.qr.appendSum = 2, o.qr.appendIndex = 1; }),
            (Refusal{BC_E_NOTSUPPORTED, -1}));

  Options options = OptionsFor(kRectangular, "(10)AB12(21)X");
  options.qr.format = 1;
  EXPECT_EQ(Encoded(options), GridByLibzint(BARCODE_RMQR, "[]10AB12[]21X", [](auto& symbol) {
              symbol.option_1 = 2;
              symbol.input_mode = GS1_MODE | GS1NOCHECK_MODE;
            }));
  options = OptionsFor(kRectangular, "ABC123");
  options.eci = 26;
  EXPECT_EQ(Encoded(options), GridByLibzint(BARCODE_RMQR, "ABC123", [](auto& symbol) {
              symbol.option_1 = 2, symbol.eci = 26;
            }));
}

// Made of QR Codes

TEST(UpnQr, IsOneVersionOfBytesInLatin2) {
  // Everything that ISO 8859-2 prints, and the end of a line.
  std::string latin2 = "\n";
  for (int c = 0x20; c < 0x100; ++c) latin2 += c < 0x7F || c >= 0xA0 ? static_cast<char>(c) : ' ';
  Source source;
  for (int row = 0; row < 36; ++row) {
    SCOPED_TRACE(row);
    const int length = row == 0 ? 1 : row % 9 == 0 ? 411 : 1 + source.below(411);
    Options options = OptionsFor(kUpnQr, source.of(latin2, length));
    options.qr.mask = row % 9 - 1;
    options.qr.version = row % 2 == 0 ? 0 : 15;
    const Symbol symbol = Library::Encode(options);
    const Scanned scanned = Scan(symbol);
    EXPECT_TRUE(IsRead(scanned, options.data));
    EXPECT_EQ(scanned.withEci.substr(0, 10), "]Q2\\000004");
    EXPECT_TRUE(IsSame(kUpnQr, "libzint", GridOf(symbol),
                       GridByLibzint(BARCODE_UPNQR, options.data, [&](zint_symbol& zint) {
                         zint.option_3 = (options.qr.mask + 1) << 8;
                       })));
  }
  // The bytes are the caller's: UTF-8 and control characters go through as they are.
  const std::string others = "\xC4\x8D\x80\x9F" + std::string(1, '\0') + "\x7F\\";
  EXPECT_TRUE(ReadsBack(Library::Encode(OptionsFor(kUpnQr, others)), others));
}

TEST(UpnQr, RefusesWhatItHasNot) {
  const struct {
    const char* name;
    std::function<void(Options&)> set;
    BCResult code;
  } cases[] = {
      {"412 bytes", [](Options& o) { o.data.assign(412, '1'); }, BC_E_DATATOOLONG},
      {"nothing", [](Options& o) { o.data.clear(); }, BC_E_INVALIDDATA},
      {"version 1", [](Options& o) { o.qr.version = 1; }, BC_E_INVALIDARG},
      {"version 14", [](Options& o) { o.qr.version = 14; }, BC_E_INVALIDARG},
      {"version 16", [](Options& o) { o.qr.version = 16; }, BC_E_INVALIDARG},
      {"version 41", [](Options& o) { o.qr.version = 41; }, BC_E_INVALIDARG},
      {"level L", [](Options& o) { o.qr.ecLevel = 0; }, BC_E_INVALIDARG},
      {"level Q", [](Options& o) { o.qr.ecLevel = 2; }, BC_E_INVALIDARG},
      {"level H", [](Options& o) { o.qr.ecLevel = 3; }, BC_E_INVALIDARG},
      {"mask 8", [](Options& o) { o.qr.mask = 8; }, BC_E_INVALIDARG},
      {"GS1", [](Options& o) { o.qr.format = 1; }, BC_E_NOTSUPPORTED},
      {"industry", [](Options& o) { o.qr.format = 2, o.qr.indicator = "37"; }, BC_E_NOTSUPPORTED},
      {"append", [](Options& o) { o.qr.appendSum = 2, o.qr.appendIndex = 1; }, BC_E_NOTSUPPORTED},
      {"other interpretation", [](Options& o) { o.eci = 26; }, BC_E_NOTSUPPORTED},
      {"component", [](Options& o) { o.compositeType = 1; }, BC_E_NOTSUPPORTED},
  };
  for (const auto& row : cases) {
    Options options = OptionsFor(kUpnQr, "UPNQR\n");
    row.set(options);
    EXPECT_EQ(RefusalOf(options), (Refusal{row.code, -1})) << row.name;
  }
}

TEST(HibcQrCode, HoldsTheWholeMessage) {
  for (const auto& [type, data, message] :
       {std::tuple{kHibcLic, "A123BJC5D6E71", "+A123BJC5D6E71G"},
        {kHibcPas, "/EO523201", "+/EO5232013"}}) {
    Options options = OptionsFor(type, data);
    const Symbol symbol = Library::Encode(options);
    const Scanned scanned = Scan(symbol);
    EXPECT_TRUE(IsRead(scanned, message));
    EXPECT_EQ(scanned.identifier, "]Q1");
    EXPECT_EQ(symbol.texts.at(0).text, std::string("*") + message + "*");
    EXPECT_EQ(symbol.checkDigits, std::string(1, std::string(message).back()));
    options.qr.version = 4;
    EXPECT_EQ(Library::Encode(options).width, 33);
    options.qr.format = 1;
    EXPECT_EQ(RefusalOf(options).code, BC_E_NOTSUPPORTED);
  }
  EXPECT_EQ(RefusalOf(OptionsFor(kHibcLic, "A1b")), (Refusal{BC_E_INVALIDDATA, 2}));
}

TEST(QrCode, RefusesWhatIsBeyondItsOptions) {
  const struct {
    const char* name;
    std::function<void(Options&)> set;
    BCResult code;
  } cases[] = {
      {"version 41", [](Options& o) { o.qr.version = 41; }, BC_E_INVALIDARG},
      {"version 40", [](Options& o) { o.qr.version = 40; }, BC_OK},
      {"version too small", [](Options& o) { o.qr.version = 1; }, BC_E_DATATOOLONG},
      {"level 4", [](Options& o) { o.qr.ecLevel = 4; }, BC_E_INVALIDARG},
      {"level -1", [](Options& o) { o.qr.ecLevel = -1; }, BC_E_INVALIDARG},
      {"mask 8", [](Options& o) { o.qr.mask = 8; }, BC_E_INVALIDARG},
      {"mask -2", [](Options& o) { o.qr.mask = -2; }, BC_E_INVALIDARG},
      {"format 3", [](Options& o) { o.qr.format = 3; }, BC_E_INVALIDARG},
      {"ECI 2", [](Options& o) { o.eci = 2; }, BC_E_INVALIDARG},
      {"ECI 1000000", [](Options& o) { o.eci = 1'000'000; }, BC_E_INVALIDARG},
      {"17 symbols", [](Options& o) { o.qr.appendSum = 17, o.qr.appendIndex = 1; },
       BC_E_INVALIDARG},
      {"one symbol", [](Options& o) { o.qr.appendSum = 1, o.qr.appendIndex = 1; }, BC_E_INVALIDARG},
      {"symbol 0", [](Options& o) { o.qr.appendSum = 2, o.qr.appendIndex = 0; }, BC_E_INVALIDARG},
      {"symbol 3 of 2", [](Options& o) { o.qr.appendSum = 2, o.qr.appendIndex = 3; },
       BC_E_INVALIDARG},
      {"no sum", [](Options& o) { o.qr.appendIndex = 1; }, BC_E_INVALIDARG},
      {"parity 256", [](Options& o) { o.qr.appendParity = 256; }, BC_E_INVALIDARG},
      {"no indicator", [](Options& o) { o.qr.format = 2; }, BC_E_INVALIDARG},
      {"one digit", [](Options& o) { o.qr.format = 2, o.qr.indicator = "3"; }, BC_E_INVALIDARG},
      {"three digits", [](Options& o) { o.qr.format = 2, o.qr.indicator = "123"; },
       BC_E_INVALIDARG},
      {"two letters", [](Options& o) { o.qr.format = 2, o.qr.indicator = "AB"; }, BC_E_INVALIDARG},
      {"digit, letter", [](Options& o) { o.qr.format = 2, o.qr.indicator = "1A"; },
       BC_E_INVALIDARG},
  };
  for (const auto& row : cases) {
    Options options = OptionsFor(kQrCode, "More than version 1 holds");
    row.set(options);
    EXPECT_EQ(RefusalOf(options), (Refusal{row.code, -1})) << row.name;
  }
}

}  // namespace
