// Data Matrix: read back by ZXing in every size and scheme, against libzint's sizes.
#include "library/symbology/DataMatrixPattern.h"
#include "library/symbology/ZintSymbol.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <random>

namespace {

using Library::Options;
using Library::Symbol;

// Runs of 1 to 12 characters of one kind each: every scheme begins and ends anywhere.
std::string MixedData(std::size_t length, std::mt19937& random) {
  const std::array<std::string, 7> kinds = {"0123456789",
                                            "ABCDEFGHIJKLMNOPQRSTUVWXYZ",
                                            "abcdefghijklmnopqrstuvwxyz ",
                                            "AB12*> \r",
                                            "AB.,;:!?@[]^\"",
                                            "\x80\x9F\xE9\xFF",
                                            std::string("\0\x01\x1D\x7F`{}~", 8)};
  std::string data;
  while (data.size() < length) {
    const std::string& kind = kinds[random() % kinds.size()];
    for (std::size_t run = 1 + random() % 12; run > 0 && data.size() < length; --run) {
      data += kind[random() % kind.size()];
    }
  }
  return data;
}

// Modules of libzint's symbol.
std::size_t ModulesByZint(const std::string& data) {
  Library::ZintSymbol symbol(BARCODE_DATAMATRIX);
  symbol->option_3 = DM_SQUARE;
  symbol.encode(data);
  return static_cast<std::size_t>(symbol->width) * static_cast<std::size_t>(symbol->rows);
}

std::size_t Modules(const Symbol& symbol) {
  return static_cast<std::size_t>(symbol.width) * symbol.rows.size();
}

}  // namespace

TEST(DataMatrix, OfAllLengthsIsReadAndNoLargerThanLibzints) {
  std::mt19937 random = Seeded(16022);
  for (std::size_t length = 1; length < 900; length += 1 + length / 60) {
    const std::string data = MixedData(length, random);
    SCOPED_TRACE(testing::PrintToString(data));
    const Symbol symbol = Library::Encode(OptionsFor(71, data));
    EXPECT_TRUE(ReadsBack(symbol, data));
    EXPECT_LE(Modules(symbol), ModulesByZint(data));
  }
}

TEST(DataMatrix, HoldsInEverySizeWhatTheStandardSays) {
  std::mt19937 random = Seeded(24);
  int size = 0;
  for (const Library::DataMatrixShape& shape : Library::DataMatrixShapes()) {
    SCOPED_TRACE(++size);
    const auto words = static_cast<std::size_t>(shape.dataWords);
    Options options = OptionsFor(71, std::string(2 * words, '7'));
    options.dataMatrix.size = size;
    const Symbol digits = Library::Encode(options);
    EXPECT_EQ(digits.width, shape.width);
    EXPECT_EQ(static_cast<int>(digits.rows.size()), shape.height);
    EXPECT_TRUE(ReadsBack(digits, options.data));
    options.data += '7';
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_DATATOOLONG, -1}));

    // Base 256 to the last word, behind a latch and the length, which tells no more than the rest
    // of the symbol where it would take two words.
    options.dataMatrix.binary = true;
    options.data.resize(words - 2);
    for (char& byte : options.data) byte = static_cast<char>(random());
    EXPECT_TRUE(ReadsBack(Library::Encode(options), options.data));
    options.data += '7';
    EXPECT_EQ(RefusalOf(options).code, BC_E_DATATOOLONG);
    // A byte less, and the length is written: in two words where it takes two.
    if (words == 3) continue;
    options.data.resize(words - 3);
    EXPECT_TRUE(ReadsBack(Library::Encode(options), options.data));
  }
}

TEST(DataMatrix, EndsWithoutAWayBackToAsciiWhereTheSymbolIsFull) {
  const struct {
    const char* data;
    int width;
  } cases[] = {
      {"ABCDEFG", 14},            // C40 and one word of ASCII
      {"ABCDE", 12},              // C40 filled up with a shift
      {"ABCDEF*>ABCDEF*>A", 18},  // X12
      {"a1@L;Z*S^('QAB TP[,#", 18},
      {"1@L;Z*S^('QABATP\\D[,#", 18},  // EDIFACT and two words
      {"KZBCJLYWWDURXGLIZBBMXPPUXXWW", 20},
      {"zquslclhky", 14},
  };
  for (const auto& row : cases) {
    const Symbol symbol = Library::Encode(OptionsFor(71, row.data));
    EXPECT_TRUE(ReadsBack(symbol, row.data));
    EXPECT_EQ(symbol.width, row.width) << row.data;
  }
}

TEST(DataMatrix, TellsTheReaderItsFormatAndInterpretation) {
  const std::string kMacro = std::string("[)>\x1E") + "06\x1D" + "Data\x1E\x04";
  const struct {
    const char* name;
    int type;
    std::string data;
    std::function<void(Options&)> set;
    std::string identifier, withEci, bytes;
  } cases[] = {
      {"industry, letter", 71, "q37", [](Options& o) { o.dataMatrix.format = 2; }, "]d3", "",
       "q37"},
      {"industry, digits", 71, "99AB", [](Options& o) { o.dataMatrix.format = 2; }, "]d3", "",
       "99AB"},
      {"GS1, binary", 71, "(10)A(21)B",
       [](Options& o) { o.dataMatrix.format = 1, o.dataMatrix.binary = true; }, "]d2", "",
       "10A\x1D"
       "21B"},
      {"macro in the data", 71, kMacro, [](Options&) {}, "]d1", "", kMacro},
      {"one word", 71, "\xC3\xBC", [](Options& o) { o.eci = 26; }, "]d1", "\\000026", "\xC3\xBC"},
      {"one word, last", 71, "A", [](Options& o) { o.eci = 126; }, "]d1", "\\000126", "A"},
      {"two words", 71, "A", [](Options& o) { o.eci = 127; }, "]d1", "\\000127", "A"},
      {"two words, last", 71, "A", [](Options& o) { o.eci = 16382; }, "]d1", "\\016382", "A"},
      {"three words", 71, "A", [](Options& o) { o.eci = 16383; }, "]d1", "\\016383", "A"},
      {"largest", 71, "A", [](Options& o) { o.eci = 999999; }, "]d1", "\\999999", "A"},
      {"HIBC", 102, "A123BJC5D6E71", [](Options&) {}, "]d1", "", "+A123BJC5D6E71G"},
      {"HIBC, whole", 103, "+/EO5232013", [](Options&) {}, "]d1", "", "+/EO5232013"},
      {"Mailmark", 119, "JGB 012100123412345678AB19XY1A 0", [](Options&) {}, "]d1", "",
       "JGB 012100123412345678AB19XY1A 0             "},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    Options options = OptionsFor(row.type, row.data);
    row.set(options);
    const Symbol symbol = Library::Encode(options);
    const Scanned scanned = Scan(symbol);
    EXPECT_TRUE(IsRead(scanned, row.bytes));
    if (row.withEci.empty()) {
      EXPECT_EQ(scanned.identifier, row.identifier);
    } else {
      EXPECT_NE(scanned.withEci.find(row.withEci), std::string::npos) << scanned.withEci;
    }
  }
  // One code word, not seven characters.
  EXPECT_EQ(Library::Encode(OptionsFor(71, kMacro)).width, 12);
}

TEST(DataMatrix, RefusesWhatContradictsAndNamesTheCharacter) {
  const std::string kMailmark = "012100123412345678AB19XY1A 0";
  const struct {
    int type;
    std::string data;
    std::function<void(Options&)> set;
    Refusal refusal;
  } cases[] = {
      {71, "*1", [](Options& o) { o.dataMatrix.format = 2; }, {BC_E_INVALIDDATA, 0}},
      {71, "1A", [](Options& o) { o.dataMatrix.format = 2; }, {BC_E_INVALIDDATA, 1}},
      {102, "A", [](Options& o) { o.dataMatrix.format = 1; }, {BC_E_NOTSUPPORTED, -1}},
      {102, "A_", [](Options&) {}, {BC_E_INVALIDDATA, 1}},
      {103, std::string(111, 'A'), [](Options&) {}, {BC_E_DATATOOLONG, -1}},
      {119, "0221", [](Options&) {}, {BC_E_INVALIDDATA, 1}},
      {119, kMailmark.substr(0, 20), [](Options&) {}, {BC_E_INVALIDDATA, -1}},
      {119, "JGB 01210012341234567XAB19XY1A 0", [](Options&) {}, {BC_E_INVALIDDATA, 21}},
      {119, "JGB 012100123412345678AB1CXY1A 0", [](Options&) {}, {BC_E_INVALIDDATA, 25}},
      {119, "JGB 012100123412345678AB19XY1A 7", [](Options&) {}, {BC_E_INVALIDDATA, 31}},
      {119, kMailmark + "EC1A1BB     X", [](Options&) {}, {BC_E_INVALIDDATA, 40}},
      {119, kMailmark, [](Options& o) { o.dataMatrix.size = 9; }, {BC_E_INVALIDARG, -1}},
      {119, kMailmark + std::string(59, ' '), [](Options&) {}, {BC_E_DATATOOLONG, -1}},
  };
  for (const auto& row : cases) {
    Options options = OptionsFor(row.type, row.data);
    row.set(options);
    EXPECT_EQ(RefusalOf(options), row.refusal) << row.type << " " << row.data;
  }
}

TEST(DataMatrix, HasTheThreeSizesOfMailmark) {
  const std::string kMailmark = "JGB 012100123412345678AB19XY1A 0EC1A1BB      ";
  const struct {
    std::size_t content;
    bool rectangular;
    int size, height, width;
  } cases[] = {{6, false, 0, 24, 24}, {7, false, 0, 32, 32},  {45, false, 0, 32, 32},
               {25, true, 0, 16, 48}, {0, false, 30, 16, 48}, {0, false, 10, 32, 32},
               {0, false, 0, 24, 24}, {20, true, 0, 16, 48},  {13, false, 0, 32, 32}};
  for (const auto& row : cases) {
    Options options = OptionsFor(119, kMailmark + std::string(row.content, 'A'));
    options.dataMatrix.rectangular = row.rectangular;
    options.dataMatrix.size = row.size;
    const Symbol symbol = Library::Encode(options);
    EXPECT_EQ(static_cast<int>(symbol.rows.size()), row.height);
    EXPECT_EQ(symbol.width, row.width);
    EXPECT_TRUE(ReadsBack(symbol, options.data));
  }
}
