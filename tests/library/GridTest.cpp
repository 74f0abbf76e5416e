// Grids of barcodes: how a message is shared out, what ties the symbols together, and where they
// lie.
#include "library/Error.h"
#include "library/grid/GridLayout.h"
#include "library/grid/Parts.h"
#include "library/layout/Layout.h"
#include "tests/library/ScanSymbol.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

namespace {

using namespace Library;

using Change = std::function<void(Options&)>;
using Lines = std::vector<std::string>;

constexpr int kStandard = 1, kOwn = 2;  // structured append
constexpr int kInterleaved = 3, kCode39 = 8, kEan13 = 13, kGs1128 = 16, kCode128 = 20, kPdf417 = 55,
              kQrCode = 58, kDataMatrix = 71, kAztec = 92;

// Text without a period that would make parts alike.
std::string Text(int length, std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789") {
  std::string text;
  for (unsigned i = 0, state = 7; i < static_cast<unsigned>(length); ++i) {
    state = state * 1103515245u + 12345u;
    text += alphabet[(state >> 16) % alphabet.size()];
  }
  return text;
}

Options GridOf(int type, const std::string& data, int limit = -1, const Change& change = {}) {
  Options options = OptionsFor(type, data);
  options.grid.enabled = true;
  options.grid.dataLimit = limit;
  if (change) change(options);
  return options;
}

Lines Read(const std::vector<Symbol>& symbols) {
  Lines lines;
  for (const Symbol& symbol : symbols) lines.push_back(Scan(symbol).bytes);
  return lines;
}

Refusal RefusedBy(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return {error.code, error.position.value};
  }
  return {};
}

TEST(GridParts, ReadAsTheyWereSharedOut) {
  const Change own = [](Options& o) { o.grid.structuredAppend = kOwn; };
  const struct {
    const char* name;
    Options options;
    Lines expected;
  } kRows[] = {
      {"the last part is shorter", GridOf(kQrCode, "ABCDEFG", 3), {"ABC", "DEF", "G"}},
      {"an escape is one character",
       GridOf(kQrCode, "\\x41\\102\\\\\\n4", 2, [](Options& o) { o.translateEscapes = true; }),
       {"AB", "\\\n", "4"}},
      {"a format string for each symbol, the header in front of it",
       GridOf(kCode128, "abcd", 2, [&](Options& o) { o.format = "<&>", own(o); }),
       {"VXA10102<ab>", "VXA10202<cd>"}},
      {"a check digit for each symbol: 12 digits",
       GridOf(kEan13, "400638133393978014300723"),
       {"4006381333931", "9780143007234"}},
      {"no zero between parts, check digits counted",
       GridOf(kInterleaved, "12345678901234", 7, [](Options& o) { o.checkDigitMethod = 2; }),
       {"12345670", "89012345"}},
      {"elements of GS1 data stay whole",
       GridOf(kGs1128, "(01)09501101530003(10)ABC(21)1(2)3", 26),
       {"010950110153000310ABC", "211(2)3"}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Read(EncodeParts(row.options)), row.expected);
  }
}

TEST(GridParts, HoldAsMuchAsTheTypeDoes) {
  const std::string binary = Text(3000, "\x01\x7F\x80\xFF");
  for (const auto& [type, data, count] : {std::tuple{kQrCode, Text(7000), 3},
                                          {kQrCode, Text(16 * 5596, "0123456789"), 16},
                                          {kDataMatrix, binary, 2},
                                          {kPdf417, Text(3000, "aB3;"), 3},
                                          {kAztec, binary, 2},
                                          {kInterleaved, Text(200, "0123456789"), 3}}) {
    SCOPED_TRACE(testing::Message() << type << ", " << data.size() << " bytes");
    const Lines read = Read(EncodeParts(GridOf(type, data)));
    EXPECT_EQ(static_cast<int>(read.size()), count);
    EXPECT_EQ(std::accumulate(read.begin(), read.end(), std::string()), data);
  }
}

TEST(GridParts, ThatCannotBeMadeAreRefused) {
  const auto append = [](int mode) {
    return [mode](Options& o) { o.grid.structuredAppend = mode; };
  };
  const struct {
    const char* name;
    Options options;
    Refusal expected;
  } kRows[] = {
      {"no structured append of its own",
       GridOf(kCode128, "abcd", 2, append(kStandard)),
       {BC_E_NOTSUPPORTED}},
      {"a number of one length has no place for a header",
       GridOf(73, "2FTPX28L0XCA15511", -1, append(kOwn)),
       {BC_E_NOTSUPPORTED}},
      {"fields of their own begin a Mailmark",
       GridOf(119, "JGB 012100123412345678AB19XY1A 0", -1, append(kOwn)),
       {BC_E_NOTSUPPORTED}},
      {"a rune is one number",
       GridOf(kAztec, "125", -1,
              [](Options& o) { o.aztec.runes = true, o.grid.structuredAppend = kOwn; }),
       {BC_E_NOTSUPPORTED}},
      {"digits only",
       GridOf(97, "123", -1,
              [](Options& o) { o.qr.microVersion = 1, o.grid.structuredAppend = kOwn; }),
       {BC_E_NOTSUPPORTED}},
      {"17 QR Codes", GridOf(kQrCode, Text(17), 1, append(kStandard)), {BC_E_DATATOOLONG}},
      {"100 with a header", GridOf(kQrCode, Text(100), 1, append(kOwn)), {BC_E_DATATOOLONG}},
      {"work without end: 100 symbols of 31,329 modules",
       GridOf(kQrCode, Text(100), 1, [](Options& o) { o.qr.version = 40; }),
       {BC_E_DATATOOLONG}},
      {"a job's worth of data", GridOf(kQrCode, Text(20 << 20), 1), {BC_E_DATATOOLONG}},
      {"an element longer than the limit",
       GridOf(kGs1128, "(10)ABCDEFGH(21)1", 5),
       {BC_E_DATATOOLONG}},
      {"a bad character after escapes",
       GridOf(kCode39, "\\x41BCDEFa", 4, [](Options& o) { o.translateEscapes = true; }),
       {BC_E_INVALIDDATA, 9}},
      {"nothing", GridOf(kQrCode, ""), {BC_E_INVALIDDATA}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(RefusedBy([&] { EncodeParts(row.options); }), row.expected);
  }
}

TEST(StructuredAppend, TellsIndexCountAndMessage) {
  const Change standard = [](Options& o) { o.grid.structuredAppend = kStandard; };
  const std::string data = Text(100);
  for (const int type : {kQrCode, kDataMatrix, kPdf417, kAztec}) {
    SCOPED_TRACE(type);
    const auto symbols = EncodeParts(GridOf(type, data, 30, standard));
    ASSERT_EQ(symbols.size(), 4u);
    const std::string id = Scan(symbols[0]).sequenceId;
    std::string read;
    for (int i = 0; i < 4; ++i) {
      const Scanned scanned = Scan(symbols[static_cast<std::size_t>(i)]);
      EXPECT_EQ(scanned.sequenceIndex, i);
      EXPECT_EQ(scanned.sequenceSize, 4);
      EXPECT_EQ(scanned.sequenceId, id);
      read += scanned.bytes;
    }
    EXPECT_EQ(read, data);
    const auto others = EncodeParts(GridOf(type, data + "!", 30, standard));
    EXPECT_TRUE(type == kAztec || Scan(others[0]).sequenceId != id);
  }
  EXPECT_LE(Scan(EncodeParts(GridOf(kQrCode, "ABC", -1, standard)).at(0)).sequenceSize, 0);
}

TEST(StructuredAppend, KeepsAnIdentifierOfTheCallers) {
  const Change change = [](Options& o) {
    o.grid.structuredAppend = kStandard;
    o.pdf417.fileId = "017053";
    o.dataMatrix.appendFileId = 513;
  };
  for (const auto& [type, id] : {std::pair{kPdf417, "017053"}, {kDataMatrix, "513"}}) {
    for (const Symbol& symbol : EncodeParts(GridOf(type, Text(60), 30, change))) {
      EXPECT_EQ(Scan(symbol).sequenceId, id) << type;
    }
  }
}

TEST(StructuredAppend, SharesAHealthMessageWithOnePlusSignAndOneCheckCharacter) {
  const auto shared = [](int type, const std::string& data) {
    return GridOf(type, data, 20, [](Options& o) { o.grid.structuredAppend = kStandard; });
  };
  const std::string data = Text(50);
  for (const int type : {102, 105, 106, 113}) {
    SCOPED_TRACE(type);
    std::string read;
    for (const Symbol& symbol : EncodeParts(shared(type, data))) {
      const Scanned scanned = Scan(symbol);
      EXPECT_EQ(scanned.sequenceSize, 3);
      read += scanned.bytes;
    }
    EXPECT_EQ(read.substr(0, 51), '+' + data);
    EXPECT_TRUE(read.size() == 52 && ReadsBack(Encode(OptionsFor(type, data)), read)) << read;
    EXPECT_EQ(Read(EncodeParts(shared(type, "AB"))), Read({Encode(OptionsFor(type, "AB"))}));
    EXPECT_EQ(RefusedBy([&] { EncodeParts(shared(type, Text(30) + "a" + Text(30))); }),
              (Refusal{BC_E_INVALIDDATA, 30}));
  }
}

// QR Codes of 21 modules, which hold 20 of these characters, 1 mm a module: 21 mm.
Options Fixed(int symbols, int rows, int columns, int growth = 0) {
  return GridOf(kQrCode, Text(symbols * 10), 10, [=](Options& o) {
    o.sizeMode = 1, o.moduleWidth = 1000;
    o.grid.rows = rows, o.grid.columns = columns, o.grid.growth = growth;
    o.grid.horizontalDistance = 2000, o.grid.verticalDistance = 3000;
  });
}
// The same that fill their cells; at least 21 * 0.19 mm = 3.99 mm.
Options Filling(int symbols, int rows, int columns, int growth = 0) {
  Options options = Fixed(symbols, rows, columns, growth);
  options.sizeMode = 0;
  return options;
}

TEST(GridPlans, HaveRowsColumnsAndSizes) {
  constexpr int kSideways = 1, kDownward = 2;
  const struct {
    const char* name;
    Options options;
    double roomWidth, roomHeight;  // mm
    bool fits;
    int rows, columns;
    double width, height;  // mm
  } kRows[] = {
      {"cells left over", Fixed(1, 2, 3), 70, 50, true, 2, 3, 67, 45},
      {"rows filled from edge to edge", Fixed(5, -1, -1), 70, 50, true, 2, 3, 67, 45},
      {"exactly the room", Fixed(4, 2, 2), 44, 45, true, 2, 2, 44, 45},
      {"too few cells", Fixed(5, 2, 2), 50, 50, false, 3, 2, 44, 69},
      {"no room at all", Fixed(2, -1, -1), 0, 0, false, 2, 1, 21, 45},
      {"sideways", Fixed(5, 2, 2, kSideways), 50, 50, true, 2, 3, 67, 45},
      {"sideways does not help the height", Fixed(5, 2, 2, kSideways), 50, 40, false, 2, 3, 67, 45},
      {"downward, as many columns as there is room for", Fixed(5, -1, -1, kDownward), 50, 20, true,
       3, 2, 44, 69},
      {"filling: width rules", Filling(4, 2, 2), 42, 90, true, 2, 2, 42, 43},
      {"filling: too small", Filling(4, 2, 2), 9.97, 10.98, false, 2, 2, 9.98, 10.98},
      {"filling: the largest symbols, wide", Filling(4, -1, -1), 200, 30, true, 1, 4, 126, 30},
      {"filling: cells keep their size sideways", Filling(6, 2, 2, kSideways), 42, 43, true, 2, 3,
       64, 43},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const auto symbols = EncodeParts(row.options);
    const GridPlan plan =
        PlanGrid(symbols, row.options, {row.roomWidth * 1000, row.roomHeight * 1000});
    EXPECT_EQ(plan.fits, row.fits);
    EXPECT_EQ(plan.shape.rows, row.rows);
    EXPECT_EQ(plan.shape.columns, row.columns);
    EXPECT_NEAR(plan.size.width / 1000, row.width, 0.001);
    EXPECT_NEAR(plan.size.height / 1000, row.height, 0.001);
  }
}

TEST(GridPlans, KeepQuietZonesWhereNoDistanceIsSet) {
  for (const auto& [type, modules] :
       {std::pair{kQrCode, 4}, {kDataMatrix, 1}, {kAztec, 0}, {kCode128, 10}, {kPdf417, 2}}) {
    SCOPED_TRACE(type);
    const Options options = GridOf(type, Text(60), 20);
    const auto symbols = EncodeParts(options);
    const GridCells cells = CellsOf(symbols, options);
    const double cell = 40000, gap = cells.across.pitch(cell) - cell;
    EXPECT_GE(gap + .001, modules * cell / symbols[0].width);
    EXPECT_LT(gap, cell / 2);
  }
}

TEST(GridPlans, ThatFitTakeNoMoreThanTheRoom) {
  int fitting = 0;
  for (int i = 0; i < 600; ++i) {
    Options options =
        i % 2 == 0 ? GridOf(kEan13, "400638133393978014300723") : GridOf(kCode128, Text(12), 4);
    options.rotation = i / 2 % 4;
    options.optimalResolution = true;
    options.dpiX = options.dpiY = i % 3 == 0 ? 203 : 600;
    options.quietZoneUnit = 5;
    options.quietZone = i % 5 == 0 ? BCMargins{1, 2, 3, 4} : BCMargins{0, 0, 0, 0};
    const Box room = {20000.0 + i * 97, 62000.0 - i * 71};
    const GridPlan plan = PlanGrid(EncodeParts(options), options, room);
    if (!plan.fits) continue;
    ++fitting;
    EXPECT_LE(plan.size.width, room.width + 2) << i;
    EXPECT_LE(plan.size.height, room.height + 2) << i;
  }
  EXPECT_GT(fitting, 300);
}

TEST(GridPlans, ThatMustFitDoSoInBothDirections) {
  Options options = Fixed(4, 2, 2);
  options.mustFit = true;
  const auto symbols = EncodeParts(options);
  for (const auto& [width, height, expected] : {std::tuple{44000, 45000, BC_OK},
                                                {43900, 45000, BC_E_MUSTFIT},
                                                {44000, 44900, BC_E_MUSTFIT}}) {
    const BCRect rectangle = {0, height, width, 0};
    EXPECT_EQ(RefusedBy([&] {
                LayOutGrid(symbols, options, {2, 2}, rectangle);
              }).code,
              expected)
        << width << " x " << height;
  }
}

// Dark stretches of the shadow that everything throws on an axis. Columns and rows of these QR
// Codes are nowhere light throughout, so each stretch is a column or a row of the grid.
std::vector<std::pair<int, int>> Stretches(const Drawing& drawing, bool across) {
  std::vector<std::pair<int, int>> edges, stretches;
  for (const Rectangle& r : drawing.rectangles) {
    edges.push_back(across ? std::pair(r.left, r.right) : std::pair(r.bottom, r.top));
  }
  std::sort(edges.begin(), edges.end());
  for (const auto& [from, to] : edges) {
    if (stretches.empty() || from > stretches.back().second) {
      stretches.emplace_back(from, to);
    } else {
      stretches.back().second = std::max(stretches.back().second, to);
    }
  }
  return stretches;
}

int LeastGap(const std::vector<std::pair<int, int>>& stretches) {
  int least = INT32_MAX;
  for (std::size_t i = 1; i < stretches.size(); ++i) {
    least = std::min(least, stretches[i].first - stretches[i - 1].second);
  }
  return least;
}

constexpr int kLeft = 10000, kBottom = 20000;

BCRect RectangleOf(const Box& size) {
  return {kLeft, kBottom + static_cast<int>(std::ceil(size.height - .001)),
          kLeft + static_cast<int>(std::ceil(size.width - .001)), kBottom};
}

TEST(GridDrawings, KeepTheirDistanceInsideTheRectangleThatWasPlanned) {
  const struct {
    const char* name;
    Change change;
  } kRows[] = {
      {"filling", {}},
      {"filling, whole dots, other ones downward",
       [](Options& o) { o.optimalResolution = true, o.dpiX = 203, o.dpiY = 300; }},
      {"smallest, whole dots",
       [](Options& o) { o.sizeMode = 2, o.optimalResolution = true, o.dpiX = o.dpiY = 300; }},
      {"distances left to the type",
       [](Options& o) { o.grid.horizontalDistance = o.grid.verticalDistance = -1; }},
  };
  for (const auto& row : kRows) {
    for (const double room : {40000.0, 50000.0, 61237.0}) {
      SCOPED_TRACE(testing::Message() << row.name << " in " << room / 1000 << " mm");
      Options options = Fixed(5, 2, 3);
      options.sizeMode = -1, options.moduleWidth = -1;
      if (row.change) row.change(options);
      const auto symbols = EncodeParts(options);
      const GridPlan plan = PlanGrid(symbols, options, {room, room});
      ASSERT_TRUE(plan.fits);
      const BCRect rectangle = RectangleOf(plan.size);
      const Drawing drawing = LayOutGrid(symbols, options, plan.shape, rectangle);
      const auto columns = Stretches(drawing, true), rows = Stretches(drawing, false);
      ASSERT_EQ(columns.size(), 3u);
      ASSERT_EQ(rows.size(), 2u);
      EXPECT_GE(LeastGap(columns), options.grid.horizontalDistance - 2);
      EXPECT_GE(LeastGap(rows), options.grid.verticalDistance - 2);
      EXPECT_GE(columns.front().first, kLeft - 2);
      EXPECT_LE(columns.back().second, rectangle.right + 2);
      EXPECT_GE(rows.front().first, kBottom - 2);
      EXPECT_LE(rows.back().second, rectangle.top + 2);
      // What was planned is what is drawn: a second plan for it changes nothing.
      EXPECT_NEAR(columns.back().second - columns.front().first, plan.size.width, 3);
      EXPECT_NEAR(rows.back().second - rows.front().first, plan.size.height, 3);
    }
  }
}

// The calls of the program: layout query, create, output.
class GridCalls : public testing::Test {
 protected:
  GridCalls() {
    BCInitLibraryA("");
    BCAlloc(&barcode);
    const std::string data = Text(50);
    BCSetBCType(barcode, kQrCode);
    BCSetTextA(barcode, data.data(), 50);
    BCSet_MultiBC_Enabled(barcode, 1);
    BCSet_MultiBC_Rows(barcode, 2);
    BCSet_MultiBC_Columns(barcode, 2);
    BCSet_MultiBC_HDist(barcode, 2000);
    BCSet_MultiBC_VDist(barcode, 2000);
    BCSet_MultiBC_DataLimit(barcode, 10);
  }
  ~GridCalls() override {
    BCFree(barcode);
    BCDeInitLibrary();
  }

  BCResult layOut(int32_t right, int32_t bottom) {
    const BCRect rect = {0, 0, right, bottom};
    return BC_MultiBC_CalculateLayout(barcode, nullptr, &rect, &width, &height);
  }
  BCResult write() {
    std::vector<char> buffer(100000);
    auto size = static_cast<uint32_t>(buffer.size());
    const BCRect rect = {0, height, width, 0};
    const BCResult code = BCPostscriptToMemoryExt(barcode, buffer.data(), &size, &rect, 1);
    output.assign(buffer.data(), code == BC_OK ? size : 0);
    return code;
  }

  BCBarcode* barcode = nullptr;
  int32_t width = 0, height = 0;
  std::string output;
};

TEST_F(GridCalls, TellTheSizeNeededWithTheError) {
  // Five symbols of 3.99 mm in four cells.
  EXPECT_EQ(layOut(50000, 50000), BC_E_DATATOOLONG);
  EXPECT_EQ(width, 2 * 3990 + 2000);
  EXPECT_EQ(height, 3 * 3990 + 2 * 2000);
  BCSet_MultiBC_Rows(barcode, 3);
  EXPECT_EQ(layOut(9979, 50000), BC_OK) << "within the rounding of rectangles";
  EXPECT_EQ(layOut(9970, 50000), BC_E_DATATOOLONG);
  EXPECT_EQ(width, 9980);
  EXPECT_EQ(layOut(INT32_MIN, INT32_MAX), BC_OK);
}

TEST_F(GridCalls, DrawAGrownGridInTheSizeThatItHasUntilTheDataChange) {
  BCSet_MultiBC_DynamicBoundingRect(barcode, 1);
  ASSERT_EQ(layOut(50000, 50000), BC_OK);
  EXPECT_EQ(width, 3 * 24000 + 2 * 2000);
  EXPECT_EQ(write(), BC_E_INVALIDARG) << "not created";
  ASSERT_EQ(BCCreate(barcode), BC_OK);
  ASSERT_EQ(write(), BC_OK);
  EXPECT_NE(output.find("%%BoundingBox: 0 0 216 142\n"), output.npos) << output.substr(0, 200);
  BCSetTextA(barcode, "0123456789ABCDEFGHIJ", 20);
  BCSet_MultiBC_Rows(barcode, -1);
  ASSERT_EQ(layOut(50000, 50000), BC_OK);
  EXPECT_EQ(height, 24000);
  EXPECT_EQ(BCSet_MultiBC_Enabled(barcode, 0), BC_OK);
  EXPECT_EQ(layOut(50000, 50000), BC_E_INVALIDARG) << "no grid";
}

}  // namespace
