// MicroPDF417: drawn as libzint draws what it can, what it cannot by its code words; and the HIBC
// symbols of the PDF417 family.
#include "tests/library/Coverage.h"
#include "tests/library/Pdf417Words.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace {

using Library::CodeWords;
using Library::Options;
using Library::Pdf417Start;
using Library::Symbol;

constexpr int kVersions = 34;

std::vector<std::vector<int>> RunsOf(const Symbol& symbol) {
  std::vector<std::vector<int>> runs;
  for (const auto& row : symbol.rows) runs.push_back(row.runs);
  return runs;
}

// Drawn with the columns of our symbol.
Symbol AsLibzintDraws(const Options& options, const Symbol& ours, SegmentOf segment = {}) {
  return DrawnByLibzint(kMicroPdf417, options.data, -1, ours.width / 17 - 1, segment);
}

CodeWords Latched(const std::string& data) {
  return Library::CompactPdf417(data, Library::Compaction::kAny, Pdf417Start::kUnknown);
}

// The code words that the data of a symbol begin with, a pad behind them.
void ExpectWords(Options options, CodeWords words) {
  options.pdf417.rows = 20;
  options.pdf417.microVersion = 13;
  words.push_back(Library::kPdf417Padding);
  CodeWords all = WordsOf(Library::Encode(options));
  if (options.type == kPdf417) all.erase(all.begin());  // their number
  ASSERT_GE(all.size(), words.size());
  all.resize(words.size());
  EXPECT_EQ(all, words);
}

}  // namespace

TEST(MicroPdf417, DrawsEveryVersionAsLibzintDoes) {
  Options options = OptionsFor(kMicroPdf417, "");
  int last = 0;
  for (int version = 1; version <= kVersions; ++version) {
    options.pdf417.microVersion = version;
    // What just fits is too long for the version before it of as many columns.
    options.data = "\x80";
    while (RefusalOf(options).code == BC_OK)
      options.data += static_cast<char>(0x80 + options.data.size() % 100);
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_DATATOOLONG, -1}));
    options.data.pop_back();
    const Symbol symbol = Library::Encode(options);
    EXPECT_TRUE(
        IsSame(kMicroPdf417, "libzint", RunsOf(symbol), RunsOf(AsLibzintDraws(options, symbol))))
        << version;
    const int order = symbol.width * 100 + static_cast<int>(symbol.rows.size());
    EXPECT_GT(order, last);
    last = order;
  }
}

TEST(MicroPdf417, IsAsSmallAsTheDataAllow) {
  const struct {
    std::size_t letters;  // that fit: a latch and two to a code word
    int columns, rows;
  } kRows[] = {{6, 1, 11},   {14, 2, 8},   {24, 2, 11},  {36, 2, 14},  {46, 2, 17},
               {56, 2, 20},  {58, 4, 12},  {64, 2, 23},  {72, 2, 26},  {76, 4, 15},
               {106, 4, 20}, {142, 4, 26}, {178, 4, 32}, {214, 4, 38}, {250, 4, 44}};
  const int kWidths[] = {38, 55, 82, 99};
  std::size_t least = 1;
  for (const auto& row : kRows) {
    for (const std::size_t letters : {least, row.letters}) {
      SCOPED_TRACE(letters);
      Options options = OptionsFor(kMicroPdf417, std::string(letters, 'M'));
      const Symbol symbol = Library::Encode(options);
      EXPECT_EQ(symbol.width, kWidths[row.columns - 1]);
      EXPECT_EQ(std::ssize(symbol.rows), row.rows);
    }
    least = row.letters + 1;
  }
  EXPECT_EQ(RefusalOf(OptionsFor(kMicroPdf417, std::string(251, 'M'))),
            (Refusal{BC_E_DATATOOLONG, -1}));
  for (const int version : {-1, kVersions + 1}) {
    Options options = OptionsFor(kMicroPdf417, "M");
    options.pdf417.microVersion = version;
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_INVALIDARG, -1}));
  }
}

TEST(MicroPdf417, LatchesToWhatTheDataBeginWith) {
  const struct {
    std::string data;
    CodeWords words;
  } kRows[] = {
      {"A", {900, 29}},
      {"PDF417", {900, 453, 178, 121, 239}},
      {"000213298174000", {902, 1, 624, 434, 632, 282, 200}},
      {"\xE9", {901, 0xE9}},
      {"\351ABCDEFG", {901, 0xE9, 900, 1, 63, 125, 209}},
      {"000213298174000\x80", {902, 1, 624, 434, 632, 282, 200, 901, 0x80}},
  };
  for (const auto& row : kRows) EXPECT_EQ(Latched(row.data), row.words) << row.data;
  RandomData random(Seeded(6));
  for (std::size_t length = 1; length <= 100; ++length) {
    const std::string data = random.of(kDataKinds[1].pieces, length);
    CodeWords words = {900};
    Library::Append(Library::CompactPdf417(data), words);
    EXPECT_EQ(Latched(data), words);
  }
}

TEST(MicroPdf417, TellsItsMode) {
  const struct {
    int mode;
    std::string data;
    std::uint16_t word;
    std::string bytes, text;
  } kRows[] = {
      {1, "(10)ABC(21)7", 903, "10ABC\035217", "(10)ABC(21)7"},
      {1, "(01)09501101530003", 904, "0109501101530003", "(01)09501101530003"},
      {2, "Code 128", 910, "Code 128", "Code 128"},
      {2, "1234567890123456", 911, "1234567890123456", "1234567890123456"},
      {3, "a123", 908, "a123", "a123"},
      {3, "Z\035123", 908, "Z123", "Z123"},
      {3, "99", 909, "99", "99"},
      {3, "99\035ABC", 909, "99ABC", "99ABC"},
      {4, "(10)ABC", 906, "10ABC", "(10)ABC"},
      {4, "(01)09501101530003", 907, "0109501101530003", "(01)09501101530003"},
      {5, "abc", 916, "abc", "abc"},
      {5, "[)>\03605\035a\036\004", 916, "a", "[)>05a"},
      {6, "[)>\03606\0351PA\035Q1\036\004", 917, "1PA\035Q1", "[)>061PAQ1"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.data);
    Options options = OptionsFor(kMicroPdf417, row.data);
    options.pdf417.microMode = row.mode;
    CodeWords words = {row.word};
    Library::Append(Latched(row.bytes), words);
    ExpectWords(options, words);
    EXPECT_EQ(Library::Encode(options).texts.at(0).text, row.text);
  }
}

TEST(MicroPdf417, RefusesWhatItsModeCannotHold) {
  const struct {
    int mode, eci;
    std::string data;
    BCResult code;
    int position = -1;
    int type = kMicroPdf417;
  } kRows[] = {
      {-1, 0, "A", BC_E_INVALIDARG},
      {9, 0, "A", BC_E_INVALIDARG},
      {7, 0, "A", BC_E_NOTSUPPORTED},
      {8, 0, "A", BC_E_NOTSUPPORTED},
      {2, 26, "A", BC_E_NOTSUPPORTED},
      {1, 0, "A123", BC_E_NOTSUPPORTED, -1, 108},
      {1, 0, "(10)A\200", BC_E_INVALIDDATA, 5},
      {3, 0, "?12", BC_E_INVALIDDATA, 0},
      {3, 0, "1A2", BC_E_INVALIDDATA, 1},
      {3, 0, "1", BC_E_INVALIDDATA},
      {5, 0, "[)>\03606\035a\036\004", BC_E_INVALIDDATA, 5},
      {5, 0, "[)>\03605", BC_E_INVALIDDATA},
      {5, 0, "[)>\03605\035ab\036", BC_E_INVALIDDATA, 9},
      {6, 0, "[)>\03606\035\036\004", BC_E_INVALIDDATA, 8},
  };
  for (const auto& row : kRows) {
    Options options = OptionsFor(row.type, row.data);
    options.pdf417.microMode = row.mode;
    options.eci = row.eci;
    EXPECT_EQ(RefusalOf(options), (Refusal{row.code, row.position})) << row.mode << row.data;
  }
}

TEST(MicroPdf417, EndsInTheControlBlock) {
  Options options = OptionsFor(kMicroPdf417, "SEG");
  options.pdf417.segIndex = 1;
  options.pdf417.segCount = 3;
  options.pdf417.fileId = "017";
  const Symbol symbol = Library::Encode(options);
  EXPECT_TRUE(RunsOf(symbol) == RunsOf(AsLibzintDraws(options, symbol, {2, 3, "017"})));
}

TEST(BinaryMode, WritesBytesOnly) {
  for (const int type : {kPdf417, kMicroPdf417}) {
    Options options = OptionsFor(type, "alcool");
    options.pdf417.mode = 1;
    ExpectWords(options, {924, 163, 238, 432, 766, 244});
    options.data += "!";
    ExpectWords(options, {901, 163, 238, 432, 766, 244, '!'});
  }
}

TEST(Interpretation, IsNamedInFrontOfTheData) {
  const struct {
    int eci;
    CodeWords words;
    BCResult code = BC_OK;
  } kRows[] = {
      {0, {}},
      {26, {927, 26}},
      {899, {927, 899}},
      {900, {926, 0, 0}},
      {810899, {926, 899, 899}},
      {810900, {925, 0}},
      {811799, {925, 899}},
      {811800, {}, BC_E_NOTSUPPORTED},
      {-1, {}, BC_E_INVALIDARG},
  };
  for (const auto& row : kRows) {
    for (const int type : {kPdf417, kMicroPdf417}) {
      SCOPED_TRACE(testing::Message() << type << ", " << row.eci);
      Options options = OptionsFor(type, "Gr\303\274\303\237e");
      options.eci = row.eci;
      EXPECT_EQ(RefusalOf(options), (Refusal{row.code, -1}));
      if (row.code != BC_OK) continue;
      const bool micro = type == kMicroPdf417;
      CodeWords words = row.words;
      Library::Append(micro ? Latched(options.data) : Library::CompactPdf417(options.data), words);
      ExpectWords(options, words);
      EXPECT_TRUE(micro || Scan(Library::Encode(options)).bytes == options.data);
    }
  }
}

TEST(HibcPdf417, HoldsTheMessageThatIsGivenInPartOrWhole) {
  const std::string zeros(111, '0'), most = zeros.substr(1);
  const struct {
    std::string data, message;
    BCResult code = BC_OK;
    int position = -1;
  } kRows[] = {
      {"A123BJC5D6E71", "+A123BJC5D6E71G"},
      {"+A123BJC5D6E71", "+A123BJC5D6E71G"},
      {"+A123BJC5D6E71G", "+A123BJC5D6E71G"},
      {"A123BJC5D6E71G", "+A123BJC5D6E71GW"},
      {"/EU720060FF0", "+/EU720060FF0+"},
      {"/", "+/ "},
      {"+/", "+/ "},
      {most, "+" + most + "+"},
      {"+", "", BC_E_INVALIDDATA},
      {"A1a", "", BC_E_INVALIDDATA, 2},
      {zeros, "", BC_E_DATATOOLONG},
      {"+" + zeros, "", BC_E_DATATOOLONG},
  };
  for (const auto& row : kRows) {
    for (const int type : {106, 107, 108, 109}) {
      SCOPED_TRACE(testing::Message() << type << ", " << row.data);
      const Options options = OptionsFor(type, row.data);
      EXPECT_EQ(RefusalOf(options), (Refusal{row.code, row.position}));
      if (row.code != BC_OK) continue;
      const Symbol symbol = Library::Encode(options);
      const int carrier = type < 108 ? kPdf417 : kMicroPdf417;
      EXPECT_TRUE(IsSame(type, "the carrier's symbol", RunsOf(symbol),
                         RunsOf(Library::Encode(OptionsFor(carrier, row.message)))));
      EXPECT_EQ(symbol.checkDigits, row.message.substr(row.message.size() - 1));
      const std::string shown = row.message == "+/ " ? "+/_" : row.message;
      EXPECT_EQ(symbol.texts.at(0).text, "*" + shown + "*");
    }
  }
}
