// Codablock-F, against a decoder of the whole symbol: rows, their indicators and check characters,
// K1 and K2, each row a message of Code 128.
#include "library/layout/RowHeights.h"
#include "library/symbology/Codablock.h"
#include "library/symbology/ZintSymbol.h"
#include "tests/library/Code128Reader.h"
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Library::Options;
using Library::Symbol;

constexpr int kCodablock = 74;

std::vector<std::vector<int>> DataRows(const Symbol& symbol) {
  std::vector<std::vector<int>> rows;
  for (const Library::SymbolRow& row : symbol.rows) {
    if (!IsSeparator(row)) rows.push_back(row.runs);
  }
  return rows;
}

int NumberOf(int value, char set) {
  if (set == 'C') return value;
  return value >= 64 ? value - 64 : value < 16 ? value + 32 : value + 22;
}

struct Decoded {
  int rows = 0, columns = 0;
  std::vector<int> data;  // FNC1 to FNC3 from kFnc1 on
  int k1 = 0, k2 = 0;
};

void DecodeRow(const std::vector<int>& runs, int index, Decoded& decoded) {
  const auto columns = static_cast<std::size_t>(decoded.columns);
  const bool last = index + 1 == decoded.rows;
  const std::vector<int> values = Code128Reader::ValuesAt(runs, 0, columns + 4);
  int sum = values[0];
  for (std::size_t i = 1; i < columns + 3; ++i) sum += static_cast<int>(i) * values[i];
  EXPECT_EQ(sum % 103, values[columns + 3]);
  EXPECT_EQ(values[0], 103);
  const char set = values[1] == 98 ? 'A' : values[1] == 100 ? 'B' : 'C';
  EXPECT_EQ(NumberOf(values[2], set), index == 0 ? decoded.rows - 2 : index + 42);
  Code128Reader::Reader reader{set};
  for (std::size_t i = 3; i < columns + (last ? 1 : 3); ++i) {
    const auto read = reader.read(values[i]);
    ASSERT_TRUE(read.has_value());
    decoded.data.insert(decoded.data.end(), read->begin(), read->end());
  }
  EXPECT_FALSE(reader.pending || reader.shifted) << "the row ends in front of its character";
  if (!last) return;
  decoded.k1 = NumberOf(values[columns + 1], reader.set);
  decoded.k2 = NumberOf(values[columns + 2], reader.set);
}

Decoded Decode(const Symbol& symbol) {
  const auto rows = DataRows(symbol);
  Decoded decoded;
  decoded.rows = static_cast<int>(rows.size());
  decoded.columns = (symbol.width - 2) / 11 - 5;
  for (int i = 0; i < decoded.rows; ++i) DecodeRow(rows[static_cast<std::size_t>(i)], i, decoded);
  return decoded;
}

std::vector<int> Wanted(const std::string& data) {
  std::vector<int> wanted;
  for (const char character : data) wanted.push_back(static_cast<unsigned char>(character));
  return wanted;
}

void ExpectChecks(const Decoded& decoded, const std::vector<int>& counted) {
  int k1 = 0, k2 = 0;
  for (int i = 0; i < static_cast<int>(counted.size()); ++i) {
    k1 += (i + 1) * counted[static_cast<std::size_t>(i)];
    k2 += i * counted[static_cast<std::size_t>(i)];
  }
  EXPECT_EQ(decoded.k1, k1 % 86);
  EXPECT_EQ(decoded.k2, k2 % 86);
}

std::string RandomData(int kind, std::size_t length, std::mt19937& random) {
  const std::string letters =
      "ab\x01"
      "C0123456789\xB0\xB5\xE9";
  std::string data;
  while (data.size() < length) {
    const char next[] = {static_cast<char>('0' + random() % 10), letters[random() % letters.size()],
                         static_cast<char>(' ' + random() % 95), static_cast<char>(random() % 256)};
    data += next[kind];
  }
  return data;
}

}  // namespace

TEST(Codablock, HoldsRandomDataInEveryShape) {
  std::mt19937 random = Seeded(74);
  for (int run = 0; run < 300; ++run) {
    Options options = OptionsFor(kCodablock, RandomData(run % 4, 1 + random() % 400, random));
    SCOPED_TRACE(testing::PrintToString(options.data));
    if (run % 3 == 1) options.codablock.columns = 4 + static_cast<int>(random() % 59);
    if (run % 3 == 2) options.codablock.rows = 2 + static_cast<int>(random() % 43);
    if (RefusalOf(options) == Refusal{BC_E_DATATOOLONG, -1}) continue;
    const Decoded decoded = Decode(Library::Encode(options));
    EXPECT_TRUE(IsSame(options.type, "the tests' reader", decoded.data, Wanted(options.data)));
    ExpectChecks(decoded, Wanted(options.data));
    EXPECT_TRUE(run % 3 != 1 || decoded.columns == options.codablock.columns);
    EXPECT_TRUE(run % 3 != 2 || decoded.rows == options.codablock.rows);
  }
}

TEST(Codablock, IsNeverLargerThanOtherEncodersMakeIt) {
  std::mt19937 random = Seeded(110);
  for (int run = 0; run < 120; ++run) {
    Options options = OptionsFor(kCodablock, RandomData(2 * (run % 2), 1 + random() % 300, random));
    Library::ZintSymbol other(BARCODE_CODABLOCKF);
    if (run % 3 > 0) options.codablock.columns = 5 + run / 4;
    if (run % 3 > 0) other->option_2 = options.codablock.columns + 5;
    if (!other.tryEncode(options.data)) continue;
    // Data that do not fit get other columns from it.
    if (run % 3 > 0 && other->width != 11 * other->option_2 + 2) continue;
    const Symbol ours = Library::Encode(options);
    const auto area = [](int rows, int width) { return width * (11 * rows + 1); };
    EXPECT_LE(area(static_cast<int>(DataRows(ours).size()), ours.width),
              area(other->rows, other->width))
        << options.data;
  }
}

TEST(Codablock, LooksAsOtherEncodersDrawIt) {
  const std::string data = "Codablock F test data 1234567890";
  Options options = OptionsFor(kCodablock, data);
  options.codablock.rows = 4;
  options.codablock.columns = 8;
  Library::ZintSymbol other(BARCODE_CODABLOCKF);
  other->option_1 = 4;
  other.encode(data);
  Symbol theirs;
  other.copyRows(theirs, 0);
  const Symbol ours = Library::Encode(options);
  EXPECT_EQ(DataRows(ours), DataRows(theirs));
  ASSERT_EQ(ours.rows.size(), 9u);
  EXPECT_EQ(ours.rows[0].runs, std::vector<int>{145});
  EXPECT_EQ(ours.rows[2].runs, (std::vector<int>{2, 1, 1, 4, 1, 2, 123, 3, 3, 1, 1, 1, 2}));
}

TEST(Codablock, TakesFunctionCharacters) {
  Options options = OptionsFor(kCodablock, "(10)ABC(21)12345");
  options.codablock.format = 1;
  const Decoded gs1 = Decode(Library::Encode(options));
  std::vector<int> expected = Wanted(
      "10ABC\x1D"
      "2112345");
  ExpectChecks(gs1, expected);
  expected[5] = Library::kFnc1;
  expected.insert(expected.begin(), Library::kFnc1);
  EXPECT_EQ(gs1.data, expected);
  EXPECT_EQ(Library::Encode(options).texts.at(0).text, "(10)ABC(21)12345");

  options = OptionsFor(kCodablock, "a\\213b\\213\\213cd\\213e\\213\\213f\\212");
  options.translateEscapes = true;
  std::vector<int> functions = Wanted(
      "a\xE2\xE3\xE4"
      "ef");
  functions.push_back(Library::kFnc3);
  EXPECT_EQ(Decode(Library::Encode(options)).data, functions);
  options.data = "ab\\213";
  EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_INVALIDDATA, 2}));
}

TEST(Codablock, CarriesHibcMessages) {
  for (const int type : {110, 111}) {
    Options options = OptionsFor(type, "A123BJC5D6E71");
    const Symbol symbol = Library::Encode(options);
    EXPECT_TRUE(
        IsSame(symbol.type, "the tests' reader", Decode(symbol).data, Wanted("+A123BJC5D6E71G")));
    EXPECT_EQ(symbol.texts.at(0).text, "*+A123BJC5D6E71G*");
    EXPECT_EQ(symbol.checkDigits, "G");
    options.data = "a123";
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_INVALIDDATA, 0}));
  }
}

TEST(Codablock, RefusesWhatItsSizeDoesNotHold) {
  const Refusal tooLong = {BC_E_DATATOOLONG, -1};
  const struct {
    int rows, columns;
    std::string data;
    Refusal expected;
  } cases[] = {
      {2, 4, "ABCDEF", {}},
      {2, 4, "ABCDEFG", tooLong},
      {-1, 4, std::string(174, 'A'), {}},
      {-1, 4, std::string(175, 'A'), tooLong},
      {2, -1, std::string(122, 'A'), {}},
      {2, -1, std::string(123, 'A'), tooLong},
      {-1, -1, std::string(2726, 'A'), {}},
      {-1, -1, std::string(2727, 'A'), tooLong},
      {44, 62, std::string(5452, '1'), {}},
      {-1, -1, std::string(5453, '1'), tooLong},
  };
  for (const auto& row : cases) {
    Options options = OptionsFor(kCodablock, row.data);
    options.codablock.rows = row.rows;
    options.codablock.columns = row.columns;
    EXPECT_EQ(RefusalOf(options), row.expected) << row.data.size();
  }
}
