// PDF417: read back by ZXing, its code words against a search through every way to divide the data
// among the compaction modes, its bars against libzint's.
#include "tests/library/Pdf417Words.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <set>

namespace {

using Library::CodeWords;
using Library::CompactPdf417;
using Library::Options;
using Library::Pdf417Start;
using Library::Symbol;

// Without their number, the padding and the error correction.
CodeWords DataWordsOf(const Symbol& symbol) {
  const CodeWords all = WordsOf(symbol);
  CodeWords data(all.begin() + 1, all.begin() + all[0]);
  while (!data.empty() && data.back() == Library::kPdf417Padding) data.pop_back();
  return data;
}

using Set = void (*)(Library::Pdf417Options&);

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

TEST(Pdf417, DrawsNumbersAsLibzintDoes) {
  RandomData random(Seeded(1));
  std::set<std::pair<int, std::uint16_t>> seen;  // clusters and code words
  for (int i = 0; i < 120; ++i) {
    const int level = i < 20 ? i % 9 : 8, columns = i < 20 ? 11 + i : 30;
    Options options = OptionsFor(kPdf417, random.of(Digits().pieces, 1100));
    options.pdf417.ecLevel = level;
    options.pdf417.columns = columns;
    const Symbol symbol = Library::Encode(options);
    const Symbol other = DrawnByLibzint(kPdf417, options.data, level, columns);
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
  RandomData random(Seeded(2));
  for (const DataKind& kind : kDataKinds) {
    for (std::size_t length = 1; length <= kind.longest; length += 1 + length / 6) {
      const std::string data = random.of(kind.pieces, length);
      SCOPED_TRACE(testing::Message() << kind.name << ", " << length);
      EXPECT_EQ(Read(LeastCorrection(kPdf417, data)).bytes, data);
      if (length > 800) continue;
      Options options = OptionsFor(length % 2 == 0 ? kPdf417 : kTruncatedPdf417, data);
      options.pdf417.mode = length % 3 == 0;
      EXPECT_EQ(Read(options).bytes, data);
    }
  }
  // ZXing passes over one truncated symbol in a thousand.
  constexpr int kLongest = 120;
  int read = 0;
  for (int length = 1; length <= kLongest; ++length) {
    const Options options = OptionsFor(kTruncatedPdf417, random.mixture(std::size_t(length)));
    EXPECT_EQ(Read(options).bytes, options.data);
    const Scanned scanned = Scan(Library::Encode(options));
    if (scanned.format != "None") read += IsRead(scanned, options.data) ? 1 : 0;
  }
  EXPECT_GE(read, kLongest - 2);
}

TEST(Pdf417, HoldsWhatASymbolCan) {
  for (const auto& [pieces, most] :
       {std::pair{"5", 2710u}, {"Q", 1850u}, {"q", 1849u}, {"\xE9", 1108u}, {"aB", 1282u}}) {
    const std::string data = RandomData(std::mt19937(3)).of(OneByOne(pieces), most + 1);
    EXPECT_EQ(RefusalOf(LeastCorrection(kPdf417, data)), (Refusal{BC_E_DATATOOLONG, -1})) << pieces;
    const Options options = LeastCorrection(kPdf417, data.substr(0, most));
    EXPECT_EQ(Read(options).bytes, options.data);
  }
}

TEST(Pdf417, TakesNoMoreCodeWordsThanAnyWayToDivideTheData) {
  RandomData random(Seeded(4));
  std::vector<std::string> rows;
  for (const auto& [alphabet, longest] : {std::pair{std::string("Aa1;\x80 "), 24u},
                                          {std::string("a((){}b\xFF"), 24u},
                                          {std::string("0123456789aA"), 40u},
                                          {std::string("0123456789\x80\x81"), 40u},
                                          {CharacterRange(0, 255), 24u}}) {
    for (std::size_t i = 0; i < 4 * longest; ++i) {
      rows.push_back(random.of(OneByOne(alphabet), 1 + i / 4));
      EXPECT_EQ(Read(OptionsFor(kPdf417, rows.back())).bytes, rows.back());
    }
  }
  for (std::size_t length = 10; length <= 70; ++length) rows.push_back(random.mixture(length));
  for (const std::string& data : rows) {
    SCOPED_TRACE(testing::PrintToString(data));
    for (const auto start : {Pdf417Start::kAlpha, Pdf417Start::kUnknown}) {
      const CodeWords words = CompactPdf417(data, Library::Compaction::kAny, start);
      ASSERT_EQ(static_cast<int>(words.size()), FewestWords(data, start));
    }
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
    EXPECT_EQ(correction(Library::Encode(options)),
              correction(DrawnByLibzint(kPdf417, options.data, -1, 0)));
  }
  // As much as there is room for.
  for (const auto& [letters, words] : {std::pair{1728, 32u}, {1792, 16u}, {1850, 2u}}) {
    options.data.assign(static_cast<std::size_t>(letters), 'L');
    EXPECT_EQ(correction(Library::Encode(options)), words);
    EXPECT_EQ(Read(options).bytes, options.data);
  }
}

TEST(Pdf417, HasTheShapeThatIsSet) {
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
    for (const auto& [type, rest] : {std::pair{kPdf417, 69}, {kTruncatedPdf417, 35}}) {
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

TEST(MacroPdf417, WritesEveryFieldThatFitsTheOthers) {
  const struct {
    const char* name;
    Set set;
    CodeWords block;
    BCResult code = BC_OK;
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
      {"index beyond", [](auto& o) { o.segIndex = 3, o.segCount = 3; }, {}, BC_E_INVALIDARG},
      {"no index", [](auto& o) { o.segCount = 3; }, {}, BC_E_NOTSUPPORTED},
      {"early", [](auto& o) { o.segCount = 3, o.segIndex = o.segLast = 1; }, {}, BC_E_NOTSUPPORTED},
      {"late", [](auto& o) { o.segIndex = o.segLast = 0, o.segCount = 1; }, {}, BC_E_NOTSUPPORTED},
      {"bytes", [](auto& o) { o.segIndex = 0, o.fileId = "\x80"; }, {}, BC_E_NOTSUPPORTED},
      {"long", [](auto& o) { o.fileName = std::string(2048, '?'); }, {}, BC_E_DATATOOLONG},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    Options options = OptionsFor(kPdf417, "Macro");
    options.pdf417.rows = 20;  // leaves room to fill
    row.set(options.pdf417);
    EXPECT_EQ(RefusalOf(options), (Refusal{row.code, -1}));
    if (row.code != BC_OK) continue;
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
    Options options = OptionsFor(kTruncatedPdf417, "part");
    options.pdf417.segIndex = index;
    options.pdf417.segCount = count;
    options.pdf417.fileId = id;
    options.pdf417.sender = "from A to \xFE";
    options.pdf417.fileSize = 4;
    const Scanned scanned = Read(options);
    EXPECT_TRUE(IsRead(scanned, "part"));
    EXPECT_EQ(scanned.sequenceIndex, index);
    EXPECT_EQ(scanned.sequenceSize, count);
    EXPECT_EQ(scanned.sequenceId, id);
  }
}
