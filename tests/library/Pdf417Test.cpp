// PDF417: read back by ZXing, its code words against libzint's and against a search through every
// way to divide the data among the compaction modes, its bars against the standard's rule.
#include "library/symbology/Pdf417.h"
#include "library/symbology/ZintSymbol.h"
#include "tests/library/ScanSymbol.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <numeric>
#include <random>
#include <set>

namespace {

using Library::CodeWords;
using Library::CompactPdf417;
using Library::Options;
using Library::Symbol;

constexpr int kPdf417 = 55, kTruncated = 56;

std::string CharacterRange(int first, int last) {
  std::string characters;
  for (int c = first; c <= last; ++c) characters += static_cast<char>(c);
  return characters;
}

class RandomData {
 public:
  explicit RandomData(unsigned seed) : random(seed) {}

  std::string of(const std::vector<std::string>& pieces, std::size_t length) {
    std::string data;
    while (data.size() < length) data += pieces[random() % pieces.size()];
    return data;
  }
  // Stretches of one kind after another.
  std::string mixture(std::size_t length);

 private:
  std::mt19937 random;
};

std::vector<std::string> Characters(const std::string& characters) {
  std::vector<std::string> pieces;
  for (const char character : characters) pieces.push_back({character});
  return pieces;
}

struct Kind {
  const char* name;
  std::vector<std::string> pieces;
  std::size_t longest;  // that fits with two words of error correction
};

const Kind kKinds[] = {
    {"digits", Characters("0123456789"), 2710},
    {"capitals", Characters(CharacterRange('A', 'Z')), 1850},
    {"mixed", Characters(CharacterRange(' ', '~')), 1100},
    {"URL", {"https://", "www.", "example", ".com/", "a", "7", "?id=", "&q=", "2024", "%20"}, 1200},
    {"bytes", Characters(CharacterRange(0, 255)), 1108},
    {"UTF-8", {"Gr", "\xC3\xBC", "\xC3\x9F", "e", " ", "\xE2\x82\xAC", "12", ", Stra"}, 1000},
};

std::string RandomData::mixture(std::size_t length) {
  std::string data;
  while (data.size() < length) {
    data += of(kKinds[random() % std::size(kKinds)].pieces, 1 + random() % 15);
  }
  return data.substr(0, length);
}

// The code words of the data columns, as the bars say.
CodeWords WordsOf(const Symbol& symbol) {
  static const auto kWords = [] {
    std::map<std::string, std::uint16_t> words;
    for (const auto& cluster : Library::kPdf417Patterns) {
      for (std::uint16_t value = 0; value < Library::kPdf417Values; ++value) {
        std::string modules = "1";
        for (int bit = 14; bit >= 0; --bit) modules += (cluster[value] >> bit & 1) ? '1' : '0';
        words[modules + '0'] = value;
      }
    }
    return words;
  }();
  CodeWords words;
  for (const auto& row : symbol.rows) {
    std::string modules;
    for (std::size_t i = 0; i < row.runs.size(); ++i) {
      modules.append(static_cast<std::size_t>(row.runs[i]), i % 2 == 0 ? '1' : '0');
    }
    for (std::size_t at = 34; at + 35 < modules.size(); at += 17) {
      words.push_back(kWords.at(modules.substr(at, 17)));
    }
  }
  return words;
}

// Without their number, the padding and the error correction.
CodeWords DataWordsOf(const Symbol& symbol) {
  const CodeWords all = WordsOf(symbol);
  CodeWords data(all.begin() + 1, all.begin() + all[0]);
  while (!data.empty() && data.back() == 900) data.pop_back();
  return data;
}

Symbol ByLibzint(const std::string& data, int level, int columns = 0) {
  Library::ZintSymbol encoded(BARCODE_PDF417);
  encoded->option_1 = level;
  encoded->option_2 = columns;
  encoded.encode(data);
  Symbol symbol;
  encoded.copyRows(symbol, 0);
  return symbol;
}

// The fewest code words for the data from a place on, by trying each stretch in each mode.
class Exhaustive {
 public:
  explicit Exhaustive(std::string bytes) : data(std::move(bytes)) {}

  int run() { return fewest(0, {'A', false, true}); }

 private:
  struct Reader {
    char submode;  // A, L, M or P
    bool half;     // the second half of a code word is to come
    bool text;     // in text compaction
    auto operator<=>(const Reader&) const = default;
  };

  static int bytesCost(int n) { return n / 6 * 5 + n % 6; }
  static int numberCost(int n) { return n / 44 * 15 + (n % 44 == 0 ? 0 : n % 44 / 3 + 1); }

  static bool has(char submode, char c) {
    const std::string punctuation = ";<>@[\\]_`~!\r\t,:\n-.$/\"|*()?{}'";
    const std::string mixed = "0123456789&\r\t,:#-.$/+%*=^ ";
    if (submode == 'A') return c == ' ' || (c >= 'A' && c <= 'Z');
    if (submode == 'L') return c == ' ' || (c >= 'a' && c <= 'z');
    return (submode == 'M' ? mixed : punctuation).find(c) != std::string::npos;
  }

  int fewest(std::size_t place, Reader reader) {
    if (place == data.size()) return 0;
    const auto key = std::make_pair(place, reader);
    const auto found = known.find(key);
    if (found != known.end()) return found->second;
    known[key] = 1 << 20;  // a way back here costs something
    int best = 1 << 20;
    for (std::size_t end = place + 1; end <= data.size(); ++end) {
      const int count = static_cast<int>(end - place);
      best = std::min(best, 1 + bytesCost(count) + fewest(end, {'A', false, false}));
      if (data.find_first_not_of("0123456789", place) < end) continue;
      best = std::min(best, 1 + numberCost(count) + fewest(end, {'A', false, false}));
    }
    best = std::min(best, text(place, reader));
    return known[key] = best;
  }

  // Values of text compaction, up to two latches in front of a character.
  int text(std::size_t place, Reader reader) {
    if (!reader.text) return 1 + text(place, {'A', false, true});
    int best = 1 << 20;
    const bool becomesAlpha = reader.submode == 'P' && reader.half;
    best = 2 + fewest(place + 1, {becomesAlpha ? 'A' : reader.submode, false, true});
    latched(place, reader, 0, 0, best);
    return best;
  }

  void latched(std::size_t place, Reader reader, int depth, int cost, int& best) {
    const auto write = [&](int values, char submode) {
      int words = cost;
      bool half = reader.half;
      for (int i = 0; i < values; ++i, half = !half) words += !half;
      best = std::min(best, words + fewest(place + 1, {submode, half, true}));
    };
    const char submode = reader.submode, c = data[place];
    if (has(submode, c)) write(1, submode);
    if (submode != 'P' && has('P', c)) write(2, submode);
    if (submode == 'L' && has('A', c)) write(2, submode);
    if (depth == 2) return;
    static const std::map<char, std::string> kNext = {
        {'A', "LM"}, {'L', "M"}, {'M', "ALP"}, {'P', "A"}};
    for (const char target : kNext.at(submode)) {
      latched(place, {target, !reader.half, true}, depth + 1, cost + !reader.half, best);
    }
  }

  const std::string data;
  std::map<std::pair<std::size_t, Reader>, int> known;
};

// Of rows 3 modules high.
Scanned Read(const Options& options) {
  Symbol symbol = Library::Encode(options);
  for (auto& row : symbol.rows) row.height = 3;
  return Scan(symbol);
}

Options LeastCorrection(int type, const std::string& data) {
  Options options = OptionsFor(type, data);
  options.pdf417.ecLevel = 0;
  return options;
}

}  // namespace

TEST(Pdf417, HasBarsOfTheClusterOfTheirRow) {
  for (int cluster = 0; cluster < Library::kPdf417Clusters; ++cluster) {
    std::set<std::uint16_t> seen;
    for (const std::uint16_t pattern : Library::kPdf417Patterns[cluster]) {
      EXPECT_TRUE(seen.insert(pattern).second);
      const std::uint32_t modules = 0x10000u | static_cast<std::uint32_t>(pattern) << 1;
      std::vector<int> runs{0};
      for (int bit = 16; bit >= 0; --bit) {
        if (((modules >> bit & 1) != 0) != (runs.size() % 2 == 1)) runs.push_back(0);
        ++runs.back();
      }
      ASSERT_EQ(runs.size(), 8u);
      EXPECT_LE(*std::max_element(runs.begin(), runs.end()), 6);
      EXPECT_EQ((runs[0] - runs[2] + runs[4] - runs[6] + 9) % 9, 3 * cluster);
    }
  }
}

TEST(Pdf417, DrawsNumbersAsLibzintDoes) {
  RandomData random(1);
  std::set<std::pair<int, std::uint16_t>> seen;  // clusters and code words
  for (int i = 0; i < 120; ++i) {
    const int level = i < 20 ? i % 9 : 8, columns = i < 20 ? 11 + i : 30;
    Options options = OptionsFor(kPdf417, random.of(kKinds[0].pieces, 1100));
    options.pdf417.ecLevel = level;
    options.pdf417.columns = columns;
    const Symbol symbol = Library::Encode(options);
    const Symbol other = ByLibzint(options.data, level, columns);
    ASSERT_EQ(symbol.rows.size(), other.rows.size());
    for (std::size_t row = 0; row < symbol.rows.size(); ++row) {
      ASSERT_EQ(symbol.rows[row].runs, other.rows[row].runs) << level << ", row " << row;
    }
    int place = 0;
    for (const std::uint16_t word : WordsOf(symbol)) seen.insert({place++ / columns % 3, word});
  }
  EXPECT_EQ(seen.size(), 3u * Library::kPdf417Values);
}

TEST(Pdf417, IsReadBackAtEveryLengthOfEveryKind) {
  RandomData random(2);
  for (const Kind& kind : kKinds) {
    for (std::size_t length = 1; length <= kind.longest; length += 1 + length / 6) {
      const std::string data = random.of(kind.pieces, length);
      SCOPED_TRACE(testing::Message() << kind.name << ", " << length);
      EXPECT_EQ(Read(LeastCorrection(kPdf417, data)).bytes, data);
      if (length > 800) continue;
      Options options = OptionsFor(length % 2 == 0 ? kPdf417 : kTruncated, data);
      options.pdf417.mode = length % 3 == 0;
      EXPECT_EQ(Read(options).bytes, data);
    }
  }
  for (std::size_t length = 1; length <= 120; ++length) {
    const std::string data = random.mixture(length);
    EXPECT_EQ(Read(OptionsFor(kTruncated, data)).bytes, data) << testing::PrintToString(data);
  }
}

TEST(Pdf417, HoldsWhatASymbolCan) {
  const struct {
    const char* name;
    std::string data;
    std::size_t most;
  } kRows[] = {
      {"digits", std::string(2711, '5'), 2710},
      {"capitals", std::string(1851, 'Q'), 1850},
      {"small letters", std::string(1850, 'q'), 1849},
      {"bytes", std::string(1112, '\xE9'), 1108},
      {"mixed letters", RandomData(3).of(Characters("aB"), 2000), 0},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    std::size_t most = row.data.size() - 1;
    while (RefusalOf(LeastCorrection(kPdf417, row.data.substr(0, most))).code != BC_OK) --most;
    EXPECT_TRUE(row.most == 0 || most == row.most) << most;
    EXPECT_GT(most, 1107u);
    const std::string data = row.data.substr(0, most);
    EXPECT_EQ(Read(LeastCorrection(kPdf417, data)).bytes, data);
    EXPECT_EQ(RefusalOf(LeastCorrection(kPdf417, row.data.substr(0, most + 1))),
              (Refusal{BC_E_DATATOOLONG, -1}));
  }
}

TEST(Pdf417, TakesNoMoreCodeWordsThanAnyWayToDivideTheData) {
  RandomData random(4);
  for (const auto& [alphabet, longest] : {std::pair{std::string("Aa1;\x80 "), 24},
                                          {std::string("a((){}b\xFF"), 24},
                                          {std::string("0123456789aA"), 40},
                                          {std::string("0123456789\x80\x81"), 40},
                                          {CharacterRange(0, 255), 24}}) {
    for (int length = 1; length <= longest; ++length) {
      for (int i = 0; i < 4; ++i) {
        const std::string data = random.of(Characters(alphabet), static_cast<std::size_t>(length));
        ASSERT_EQ(static_cast<int>(CompactPdf417(data).size()), Exhaustive(data).run())
            << testing::PrintToString(data);
        EXPECT_EQ(Read(OptionsFor(kPdf417, data)).bytes, data);
      }
    }
  }
  for (int length = 10; length <= 70; ++length) {
    const std::string data = random.mixture(static_cast<std::size_t>(length));
    ASSERT_EQ(static_cast<int>(CompactPdf417(data).size()), Exhaustive(data).run())
        << testing::PrintToString(data);
  }
}

TEST(Pdf417, TakesNoMoreCodeWordsThanLibzint) {
  RandomData random(5);
  for (const Kind& kind : kKinds) {
    std::size_t ours = 0, theirs = 0;
    for (std::size_t length = 1; length <= 300; length += 5) {
      const std::string data = random.of(kind.pieces, length);
      const std::size_t words = CompactPdf417(data).size();
      const std::size_t others = DataWordsOf(ByLibzint(data, 0)).size();
      EXPECT_LE(words, others) << kind.name << ": " << testing::PrintToString(data);
      ours += words;
      theirs += others;
    }
    EXPECT_LE(ours, theirs) << kind.name;
  }
}

TEST(Pdf417, HasTheErrorCorrectionThatIsSetOrRecommended) {
  const auto correction = [](const Symbol& symbol) {
    const CodeWords words = WordsOf(symbol);
    return words.size() - words[0];
  };
  Options options = OptionsFor(kPdf417, "Level");
  for (int level = 0; level <= 8; ++level) {
    options.pdf417.ecLevel = level;
    EXPECT_EQ(correction(Library::Encode(options)), std::size_t{2} << level);
    EXPECT_EQ(Read(options).bytes, "Level");
  }
  options.pdf417.ecLevel = 9;
  EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_INVALIDARG, -1}));

  options.pdf417.ecLevel = -1;
  for (const std::size_t letters : {2, 80, 82, 320, 322, 640, 642, 1726}) {
    options.data.assign(letters, 'L');
    EXPECT_EQ(correction(Library::Encode(options)), correction(ByLibzint(options.data, -1)));
  }
  // As much as there is room for.
  for (const auto& [letters, words] : {std::pair{1728, 32u}, {1792, 16u}, {1850, 2u}}) {
    options.data.assign(static_cast<std::size_t>(letters), 'L');
    EXPECT_EQ(correction(Library::Encode(options)), words);
    EXPECT_EQ(Read(options).bytes, options.data);
  }
}

TEST(Pdf417, HasTheShapeThatIsSet) {
  using Set = void (*)(Library::Pdf417Options&);
  const struct {
    const char* name;
    std::size_t letters;  // 1 + half of them + 2 code words
    Set set;
    int rows, columns;  // 0: refused
    BCResult code = BC_E_DATATOOLONG;
  } kRows[] = {
      {"free", 54, [](auto&) {}, 10, 3},
      {"least", 2, [](auto&) {}, 4, 1},
      {"fullest", 1850, [](auto&) {}, 58, 16},
      {"one column", 54, [](auto& o) { o.columns = 1; }, 30, 1},
      {"thirty columns", 54, [](auto& o) { o.columns = 30; }, 3, 30},
      {"90 rows", 54, [](auto& o) { o.rows = 90; }, 90, 1},
      {"3 rows", 174, [](auto& o) { o.rows = 3; }, 3, 30},
      {"both", 54, [](auto& o) { o.rows = 5, o.columns = 6; }, 5, 6},
      {"ratio", 54, [](auto& o) { o.ratio = "1:1"; }, 5, 6},
      {"ratio, steep", 54, [](auto& o) { o.ratio = "1000:1"; }, 30, 1},
      {"ratio, flat", 1000, [](auto& o) { o.ratio = "1:1000"; }, 17, 30},
      {"ratio of a full symbol", 1850, [](auto& o) { o.ratio = "1:1"; }, 32, 29},
      {"ratio beside rows", 54, [](auto& o) { o.ratio = "1:1", o.rows = 10; }, 10, 3},
      {"auto", 54, [](auto& o) { o.ratio = "auto"; }, 10, 3},
      {"column too high", 176, [](auto& o) { o.columns = 1; }, 0, 0},
      {"rows too long", 176, [](auto& o) { o.rows = 3; }, 0, 0},
      {"no room", 56, [](auto& o) { o.rows = 5, o.columns = 6; }, 0, 0},
      {"2 rows", 2, [](auto& o) { o.rows = 2; }, 0, 0, BC_E_INVALIDARG},
      {"91 rows", 2, [](auto& o) { o.rows = 91; }, 0, 0, BC_E_INVALIDARG},
      {"31 columns", 2, [](auto& o) { o.columns = 31; }, 0, 0, BC_E_INVALIDARG},
      {"930 places", 2, [](auto& o) { o.rows = 31, o.columns = 30; }, 0, 0, BC_E_INVALIDARG},
      {"no ratio", 2, [](auto& o) { o.ratio = "3"; }, 0, 0, BC_E_INVALIDARG},
      {"ratio of nothing", 2, [](auto& o) { o.ratio = "3:0"; }, 0, 0, BC_E_INVALIDARG},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    for (const auto& [type, rest] : {std::pair{kPdf417, 69}, {kTruncated, 35}}) {
      Options options = LeastCorrection(type, std::string(row.letters, 'S'));
      row.set(options.pdf417);
      if (row.rows == 0) {
        EXPECT_EQ(RefusalOf(options), (Refusal{row.code, -1}));
        continue;
      }
      const Symbol symbol = Library::Encode(options);
      EXPECT_EQ(static_cast<int>(symbol.rows.size()), row.rows);
      EXPECT_EQ(symbol.width, 17 * row.columns + rest);
      for (const auto& line : symbol.rows) {
        EXPECT_EQ(std::accumulate(line.runs.begin(), line.runs.end(), 0), symbol.width);
      }
    }
  }
}

TEST(Pdf417, WritesBytesOnlyInBinaryMode) {
  Options options = OptionsFor(kPdf417, "ABCDEF");
  options.pdf417.mode = 1;
  EXPECT_EQ(DataWordsOf(Library::Encode(options)).front(), 924);
  options.data += "G";
  const CodeWords words = DataWordsOf(Library::Encode(options));
  EXPECT_EQ(words.front(), 901);
  EXPECT_EQ(words.back(), 'G');
  EXPECT_EQ(words.size(), 7u);
}

TEST(MacroPdf417, WritesEveryField) {
  using Set = void (*)(Library::Pdf417Options&);
  const struct {
    const char* name;
    Set set;
    CodeWords block;
  } kRows[] = {
      {"index", [](auto& o) { o.segIndex = 1; }, {928, 111, 101}},
      {"highest index", [](auto& o) { o.segIndex = 99998; }, {928, 222, 198}},
      {"last", [](auto& o) { o.segIndex = 1, o.segLast = 1; }, {928, 111, 101, 922}},
      {"only one", [](auto& o) { o.segCount = 1; }, {928, 111, 100, 923, 1, 111, 101, 922}},
      {"count", [](auto& o) { o.segIndex = 1, o.segCount = 3; }, {928, 111, 101, 923, 1, 111, 103}},
      {"count, last",
       [](auto& o) { o.segIndex = 2, o.segCount = 3; },
       {928, 111, 102, 923, 1, 111, 103, 922}},
      {"id", [](auto& o) { o.segIndex = 0, o.fileId = "017899"; }, {928, 111, 100, 17, 899}},
      {"short id", [](auto& o) { o.segIndex = 0, o.fileId = "1000"; }, {928, 111, 100, 1, 0}},
      {"large id", [](auto& o) { o.segIndex = 0, o.fileId = "999"; }, {928, 111, 100, 849, 279}},
      {"text id", [](auto& o) { o.segIndex = 0, o.fileId = "AB"; }, {928, 111, 100, 1}},
      {"file name",
       [](auto& o) { o.fileName = "A.TXT"; },
       {928, 111, 100, 923, 0, 29, 529, 709, 922}},
      {"time",
       [](auto& o) { o.timeStamp = 1700000000; },
       {928, 111, 100, 923, 2, 16, 44, 400, 0, 922}},
      {"sender", [](auto& o) { o.sender = "Bob"; }, {928, 111, 100, 923, 3, 57, 421, 922}},
      {"addressee",
       [](auto& o) { o.addressee = "Zo\xEB"; },
       {928, 111, 100, 923, 4, 777, 449, 913, 235, 922}},
      {"size", [](auto& o) { o.fileSize = 12345; }, {928, 111, 100, 923, 5, 124, 745, 922}},
      {"check sum", [](auto& o) { o.checkSum = 7; }, {928, 111, 100, 923, 6, 111, 107, 922}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    Options options = OptionsFor(kPdf417, "Macro");
    options.pdf417.rows = 20;  // leaves room to fill
    row.set(options.pdf417);
    CodeWords words = DataWordsOf(Library::Encode(options));
    ASSERT_GT(words.size(), row.block.size());
    words.erase(words.begin(), words.end() - std::ssize(row.block));
    EXPECT_EQ(words, row.block);
    EXPECT_EQ(Read(options).bytes, "Macro");
  }
}

TEST(MacroPdf417, TellsTheReaderIndexCountAndId) {
  for (const auto& [index, count, id] : {std::tuple{0, 2, "000"},
                                         {1, 2, "017899"},
                                         {99998, 99999, "123456789012345678801234567890123"}}) {
    Options options = OptionsFor(kTruncated, "part");
    options.pdf417.segIndex = index;
    options.pdf417.segCount = count;
    options.pdf417.fileId = id;
    options.pdf417.sender = "from A to \xFE";
    options.pdf417.fileSize = 4;
    const Scanned scanned = Read(options);
    EXPECT_EQ(scanned.bytes, "part");
    EXPECT_EQ(scanned.sequenceIndex, index);
    EXPECT_EQ(scanned.sequenceSize, count);
    EXPECT_EQ(scanned.sequenceId, id);
  }
}

TEST(MacroPdf417, RefusesWhatDoesNotFitTogether) {
  using Set = void (*)(Library::Pdf417Options&);
  const struct {
    const char* name;
    Set set;
    BCResult code;
  } kRows[] = {
      {"index beyond", [](auto& o) { o.segIndex = 3, o.segCount = 3; }, BC_E_INVALIDARG},
      {"no index", [](auto& o) { o.segCount = 3; }, BC_E_NOTSUPPORTED},
      {"last too early", [](auto& o) { o.segIndex = 1, o.segCount = 3, o.segLast = 1; },
       BC_E_NOTSUPPORTED},
      {"an id of bytes", [](auto& o) { o.segIndex = 0, o.fileId = "\x80"; }, BC_E_NOTSUPPORTED},
      {"a name too long", [](auto& o) { o.fileName.assign(1024, '?'), o.sender.assign(1024, '?'); },
       BC_E_DATATOOLONG},
  };
  for (const auto& row : kRows) {
    Options options = OptionsFor(kPdf417, "Macro");
    row.set(options.pdf417);
    EXPECT_EQ(RefusalOf(options), (Refusal{row.code, -1})) << row.name;
  }
}
