#include "library/layout/Measure.h"
#include "library/prepare/CheckDigits.h"
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"
#include "tests/library/SymbolPage.h"

#include <gtest/gtest.h>

#include <random>

namespace {

std::string RandomGtin(int type, std::mt19937& random) {
  std::string digits;
  for (int i = 0; i < 13; ++i) digits += static_cast<char>('0' + random() % 10);
  if (type == 30) digits[0] = static_cast<char>('0' + random() % 2);
  return digits + Library::ComputeCheckDigits(2, digits);
}

Library::Options Segments(int type, const char* data, int segments) {
  Library::Options options = OptionsFor(type, data);
  options.segmentsPerRow = segments;
  return options;
}

}  // namespace

TEST(DataBar, IsDrawnAsBwippDrawsIt) {
  const struct {
    int type, segments;
    const char* data;
    std::uint64_t digest;
  } cases[] = {
      {29, -1, "(01)09501101530003", 0x391FCC4C1B1E2A3E},
      {78, -1, "0950110153000", 0x391FCC4C1B1E2A3E},
      {30, -1, "(01)09501101530003", 0x318433E23814E308},
      {31, -1, "(01)09501101530003(3103)001750", 0x83321A5D813F56DB},
      {31, -1, "(01)98898765432106(3202)012345(15)991231", 0x93732324F7D3F801},
      {31, -1, "(10)aB-c/12345678(21)X", 0x258F5A1C2BCBE746},
      {31, -1, "(01)98898765432106(3932)0401234", 0x53170C41DC70AE63},
      {79, -1, "(01)42022964321942", 0x30C81C3010F6CB34},
      {80, -1, "(01)09501101530003", 0xEBA4D86360F594A3},
      {81, -1, "(01)09501101530003(10)ABC123(21)XY", 0x6B40C1681C8CEBCB},
      {81, 3, "(01)09501101530003(10)ABC123(21)XY", 0x6B40C1681C8CEBCB},
      {81, 6, "(01)09501101530003(10)ABC123(21)XYz12", 0xECB3FEABB44D5FD3},
      {81, 2, "(01)09501101530003(10)ABC", 0x413CD57DBCEBD2C0},
  };
  for (const auto& row : cases) {
    const Library::Symbol symbol = Library::Encode(Segments(row.type, row.data, row.segments));
    EXPECT_TRUE(IsSame(row.type, "BWIPP's modules", DigestOf(symbol), row.digest))
        << row.type << " " << row.data;
  }
}

TEST(DataBar, IsReadBack) {
  std::mt19937 random = Seeded(24724);
  for (const int type : {29, 78, 79, 80}) {
    for (int i = 0; i < 25; ++i) {
      const std::string gtin = RandomGtin(type, random);
      const Library::Symbol symbol = Library::Encode(OptionsFor(type, gtin));
      EXPECT_TRUE(IsSame(symbol.type, "ZBar", ReadByZBar(symbol), "01" + gtin)) << type;
      EXPECT_EQ(symbol.texts.at(0).text, "(01)" + gtin);
      EXPECT_EQ(symbol.checkDigits, gtin.substr(13));
    }
  }
  const std::pair<const char*, const char*> elements[] = {
      {"(01)09501101530003(10)ABC123", "(01)09501101530003(10)ABC123"},
      {R"(10ab C\210215)", "(10)ab C(21)5"},
      {"(01)98898765432106(3103)032768", "(01)98898765432106(3103)032768"},
  };
  for (const auto& [data, read] : elements) {
    for (const int type : {31, 81}) {
      Library::Options options = OptionsFor(type, data);
      options.translateEscapes = true;
      const Library::Symbol symbol = Library::Encode(options);
      EXPECT_TRUE(ReadsBack(symbol, read));
      EXPECT_EQ(symbol.texts.at(0).text, read);
    }
  }
}

TEST(DataBar, WrongDataAreRefusedAtTheirPlace) {
  const struct {
    int type;
    const char* data;
    Refusal expected;
  } cases[] = {
      {29, "0950110153000", {}},
      {29, "010950110153000", {}},
      {29, "0195011015300", {}},  // a number that begins like an identifier
      {29, "09501101530004", {BC_E_INVALIDDATA, 13}},
      {29, "(01)09501101530004", {BC_E_INVALIDDATA, 17}},
      {29, "0950A101530004", {BC_E_INVALIDDATA, 4}},
      {29, "095011015300", {BC_E_INVALIDDATA, -1}},
      {29, "(01)095011015300031", {BC_E_DATATOOLONG, -1}},
      {30, "19501101530000", {}},
      {30, "(01)29501101530004", {BC_E_INVALIDDATA, 4}},
      {30, "2950110A", {BC_E_INVALIDDATA, 7}},
      {30, "2", {BC_E_INVALIDDATA, 0}},
      {31, "(01)09501101530004", {BC_E_INVALIDDATA, 17}},
      {31, "0109501101530004", {BC_E_INVALIDDATA, 15}},  // would be read with another check digit
      {31, "01095011A1530003", {BC_E_INVALIDDATA, 8}},
      {31, R"(01095011\2101530003)", {BC_E_INVALIDDATA, 8}},
      {31,
       "01988987654321063"
       "10A001750",
       {BC_E_INVALIDDATA, 19}},
      {31, "(8010)A#1", {BC_E_INVALIDDATA, 7}},  // has no code
      {31,
       "(91)12345678901234567890123456789012345678901234567890123456789012345678901234567890",
       {BC_E_DATATOOLONG, -1}},
  };
  for (const auto& row : cases) {
    Library::Options options = OptionsFor(row.type, row.data);
    options.translateEscapes = true;
    EXPECT_EQ(RefusalOf(options), row.expected) << row.type << " " << row.data;
  }
  Library::Options corrected = OptionsFor(31, "0109501101530004");
  corrected.autoCorrect = 1;
  const Library::Symbol symbol = Library::Encode(corrected);
  EXPECT_TRUE(IsSame(symbol.type, "ZBar", ReadByZBar(symbol), "0109501101530003"));
  EXPECT_EQ(symbol.texts.at(0).text, "(01)09501101530003");
}

TEST(DataBar, HasTheHeightsOfItsStandard) {
  const struct {
    int type;
    std::vector<double> rows;  // X
  } cases[] = {
      {29, {33}},
      {78, {13}},
      {30, {10}},
      {31, {34}},
      {79, {5, 1, 7}},
      {80, {33, 1, 1, 1, 33}},
      {81, {34, 1, 1, 1, 34}},
  };
  for (const auto& row : cases) {
    Library::Options options = OptionsFor(row.type, "(01)09501101530003");
    if (row.type == 31 || row.type == 81) options.data += "(10)ABC";
    const Library::Symbol symbol = Library::Encode(options);
    options.moduleWidth = 300;
    std::vector<double> heights = Library::Measure(symbol, options, {90000, 1000}).rowHeights;
    for (double& height : heights) height /= 300;
    EXPECT_EQ(heights, row.rows) << row.type;
  }
}
