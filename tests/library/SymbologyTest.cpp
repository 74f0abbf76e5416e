#include "library/symbology/Symbology.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <numeric>
#include <random>

namespace {

using Library::Options;
using Library::Symbol;

std::string RandomBytes(int length, std::mt19937& random) {
  std::string data;
  for (int i = 0; i < length; ++i) data += static_cast<char>(random() & 0xFF);
  return data;
}

}  // namespace

TEST(Symbologies, AreReadBackAsWhatTheyAre) {
  const struct {
    int type;
    const char* format;
    std::string data, scanned;
  } cases[] = {
      {3, "ITF", "12345670", "12345670"},
      {8, "Code39", "CODE-39 $/+%.", "CODE-39 $/+%."},
      {10, "EAN-8", "9638507", "96385074"},
      {13, "EAN-13", "400638133393", "4006381333931"},
      {16, "Code128", "(01)09501101530003", "0109501101530003"},
      {20, "Code128", "Code 128", "Code 128"},
      {34, "UPC-A", "03600029145", "036000291452"},
      {55, "PDF417", "Test123", "Test123"},
      {56, "PDF417", "Test123", "Test123"},
      {58, "QRCode", "Test123", "Test123"},
      {71, "DataMatrix", "Test123", "Test123"},
      {92, "Aztec", "Test123", "Test123"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.format);
    const Symbol symbol = Library::Encode(OptionsFor(row.type, row.data));
    const Scanned scanned = Scan(symbol);
    EXPECT_EQ(scanned.format, row.format);
    EXPECT_TRUE(IsRead(scanned, row.scanned));
    for (const auto& line : symbol.rows) {
      EXPECT_EQ(std::accumulate(line.runs.begin(), line.runs.end(), 0), symbol.width);
      EXPECT_EQ(std::count(line.runs.begin() + 1, line.runs.end(), 0), 0);
    }
  }
}

TEST(Symbologies, AreListedInTheGuide) {
  const std::string guide = Support::ReadFile(VEXTORIN_SYMBOLOGIES);
  for (int type = 0; type < 1000; ++type) {
    const Library::Symbology* const row = Library::FindSymbology(type);
    if (row == nullptr) continue;
    const std::string start =
        "\n| " + std::to_string(type) + " | " + std::string(row->name) + " | ";
    const std::size_t place = guide.find(start);
    ASSERT_NE(place, std::string::npos) << start;
    EXPECT_EQ(guide.substr(place + start.size(), 13) == "not supported", row->encoder == nullptr);
  }
}

TEST(Symbologies, OfTwoDimensionsHoldAllBytesAtEveryLength) {
  std::mt19937 random = Seeded(417);
  for (const int type : {55, 58, 71, 92}) {
    for (int length = 1; length < 1000; length += 1 + length / 12) {
      std::string data = RandomBytes(length, random);
      // ZXing takes a group separator in front, or behind an application's letter or two digits,
      // for Aztec's FNC1.
      std::replace(data.begin(), data.begin() + std::min(length, 3), '\x1D', '\x1E');
      EXPECT_TRUE(ReadsBack(Library::Encode(OptionsFor(type, data)), data))
          << type << ", " << length;
    }
  }
}

TEST(Symbologies, RefuseMoreThanTheyHold) {
  const struct {
    int type;
    char character;
    int good, tooMany;
  } cases[] = {
      {3, '1', 90, 91},         {8, 'A', 85, 86},         {55, '1', 2700, 2711},
      {55, 'a', 1849, 1850},    {55, '\xE9', 1108, 1109}, {58, '\xE9', 2953, 2954},
      {71, '\xE9', 1555, 1557}, {92, '1', 3500, 3840},    {92, '\xE9', 1900, 2000},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::Message() << row.type << " " << row.character);
    Options options =
        OptionsFor(row.type, std::string(static_cast<std::size_t>(row.good), row.character));
    options.qr.ecLevel = 0;
    options.pdf417.ecLevel = 0;
    EXPECT_EQ(RefusalOf(options), Refusal{});
    options.data.assign(static_cast<std::size_t>(row.tooMany), row.character);
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_DATATOOLONG, -1}));
  }
}

TEST(SymbologyOptions, ShapeTheSymbol) {
  const struct {
    const char* name;
    int type;
    std::function<void(Options&)> set;
    int rows, width;
  } cases[] = {
      {"PDF417 both", 55, [](Options& o) { o.pdf417.rows = 12, o.pdf417.columns = 4; }, 12, 137},
      {"PDF417 ratio, upright", 55, [](Options& o) { o.pdf417.ratio = "3:2"; }, 5, 137},
      {"PDF417 ratio, flat", 55, [](Options& o) { o.pdf417.ratio = "1:6"; }, 3, 256},
      {"QR version", 58, [](Options& o) { o.qr.version = 7; }, 45, 45},
      {"Data Matrix square", 71, [](Options&) {}, 16, 16},
      {"Data Matrix rectangle", 71, [](Options& o) { o.dataMatrix.rectangular = true; }, 12, 26},
      {"Data Matrix 16x48", 71, [](Options& o) { o.dataMatrix.size = 30; }, 16, 48},
      {"Aztec size", 92, [](Options& o) { o.aztec.size = 9; }, 37, 37},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    Options options = OptionsFor(row.type, "Symbol 123 shape");
    row.set(options);
    const Symbol symbol = Library::Encode(options);
    EXPECT_EQ(static_cast<int>(symbol.rows.size()), row.rows);
    EXPECT_EQ(symbol.width, row.width);
    EXPECT_TRUE(ReadsBack(symbol, options.data));
  }
}

TEST(SymbologyOptions, ThatCannotBeMetAreRefused) {
  const struct {
    const char* name;
    int type;
    std::function<void(Options&)> set;
    BCResult code;
  } cases[] = {
      {"PDF417 size", 55, [](Options& o) { o.pdf417.rows = 3, o.pdf417.columns = 1; },
       BC_E_DATATOOLONG},
      {"PDF417 area", 55, [](Options& o) { o.pdf417.rows = 90, o.pdf417.columns = 30; },
       BC_E_INVALIDARG},
      {"PDF417 index", 55, [](Options& o) { o.pdf417.segIndex = 2, o.pdf417.segCount = 2; },
       BC_E_INVALIDARG},
      {"QR version", 58, [](Options& o) { o.qr.version = 1; }, BC_E_DATATOOLONG},
      {"QR append", 58, [](Options& o) { o.qr.appendSum = 3, o.qr.appendIndex = 4; },
       BC_E_INVALIDARG},
      {"Data Matrix size", 71, [](Options& o) { o.dataMatrix.size = 2; }, BC_E_DATATOOLONG},
      {"Aztec size", 92, [](Options& o) { o.aztec.size = 1; }, BC_E_DATATOOLONG},
  };
  for (const auto& row : cases) {
    Options options = OptionsFor(row.type, "Symbol 123 shape, too large");
    row.set(options);
    EXPECT_EQ(RefusalOf(options).code, row.code) << row.name;
  }
}

TEST(SymbologyOptions, OfStructuredAppendReachTheReader) {
  Options options;
  options.data = "part";
  options.pdf417.segIndex = 1;
  options.pdf417.segCount = 3;
  options.pdf417.fileId = "017099";
  options.qr.appendSum = options.dataMatrix.appendSum = 3;
  options.qr.appendIndex = options.dataMatrix.appendIndex = 2;
  options.qr.appendParity = 201;
  options.dataMatrix.appendFileId = 5 * 256 + 7;
  options.aztec.append = true;
  options.aztec.appendSum = 'C';
  options.aztec.appendIndex = 'B';
  options.aztec.messageId = "id";
  const std::pair<int, const char*> ids[] = {{55, "017099"}, {58, "201"}, {71, "1287"}, {92, "id"}};
  for (const auto& [type, id] : ids) {
    SCOPED_TRACE(type);
    options.type = type;
    const Scanned scanned = Scan(Library::Encode(options));
    EXPECT_EQ(scanned.sequenceIndex, 1);
    EXPECT_EQ(scanned.sequenceSize, 3);
    EXPECT_EQ(scanned.sequenceId, id);
    EXPECT_TRUE(IsRead(scanned, "part"));
  }
}

TEST(SymbologyOptions, OfDataMatrixFormatsReachTheReader) {
  Options options = OptionsFor(71, "Data");
  for (const auto& [format, envelope] : {std::pair{3, "05"}, {4, "06"}}) {
    options.dataMatrix.format = format;
    const Symbol symbol = Library::Encode(options);
    EXPECT_TRUE(ReadsBack(symbol, std::string("[)>\x1E") + envelope + "\x1D" + "Data\x1E\x04"));
    EXPECT_EQ(symbol.width, 12);  // one code word, not nine characters
  }
  options.dataMatrix.format = 5;
  EXPECT_TRUE(Scan(Library::Encode(options)).readerProgramming);
}

TEST(SymbologyOptions, OfAztecGiveTheErrorCorrectionAskedFor) {
  std::mt19937 random = Seeded(92);
  for (const int length : {1, 20, 45, 55, 62, 70, 300, 500}) {
    const std::string data = RandomBytes(length, random);
    int last = 0;
    for (const int percent : {0, 5, 10, 15, 23, 30, 36, 45, 50, 60}) {
      SCOPED_TRACE(testing::Message() << length << " bytes, " << percent << " %");
      Options options = OptionsFor(92, data);
      options.aztec.errorCorrection = percent;
      const Symbol symbol = Library::Encode(options);
      EXPECT_TRUE(ReadsBack(symbol, data));
      EXPECT_GE(symbol.width, last);
      last = symbol.width;
    }
  }
}

TEST(SymbologyOptions, OfAztecCompactSizesMakeNoSymbolThatCannotBeRead) {
  std::mt19937 random = Seeded(64);
  Options options = OptionsFor(92, "");
  options.aztec.size = 4;
  int read = 0;
  for (int length = 30; length < 70; ++length) {
    options.data = RandomBytes(length, random);
    if (RefusalOf(options).code == BC_E_DATATOOLONG) continue;
    EXPECT_TRUE(ReadsBack(Library::Encode(options), options.data)) << length;
    ++read;
  }
  EXPECT_GE(read, 5);

  options = OptionsFor(92, "25");
  options.aztec.runes = true;
  EXPECT_EQ(Library::Encode(options).width, 11);
  options.data = "256";
  EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_INVALIDDATA, 0}));
}
