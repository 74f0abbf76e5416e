#include "engine/library/vextorin9.h"
#include "tests/support/Run.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <functional>
#include <limits>
#include <regex>
#include <set>
#include <string>
#include <vector>

extern "C" uint32_t MakeEan13InC(char* buffer, uint32_t capacity);

namespace {

using Call = std::function<BCResult(BCBarcode*)>;

class CInterface : public testing::Test {
 protected:
  CInterface() {
    EXPECT_EQ(BCInitLibraryA(""), BC_OK);
    EXPECT_EQ(BCAlloc(&barcode), BC_OK);
  }
  ~CInterface() override {
    BCFree(barcode);
    BCDeInitLibrary();
  }

  BCResult create(int type, const std::string& data) {
    EXPECT_EQ(BCSetBCType(barcode, type), BC_OK);
    EXPECT_EQ(BCSetTextA(barcode, data.data(), static_cast<int>(data.size())), BC_OK);
    return BCCreate(barcode);
  }
  BCResult query(double& width, double& height, BCRect rect = {0, 0, 50000, 30000}) {
    return BCGetBarcodeSize(barcode, &rect, nullptr, 2, &width, &height);
  }
  BCResult query() {
    double width = 0, height = 0;
    return query(width, height);
  }
  BCResult write(std::string& output, uint32_t capacity = 100000) {
    std::vector<char> buffer(capacity + 1, '#');
    const BCRect rect = {0, 30000, 50000, 0};
    uint32_t size = capacity;
    const BCResult code = BCPostscriptToMemoryExt(barcode, buffer.data(), &size, &rect, 0);
    EXPECT_EQ(buffer[capacity], '#') << "written beyond the buffer";
    if (code == BC_OK) output.assign(buffer.data(), size);
    needed = size;
    return code;
  }

  BCBarcode* barcode = nullptr;
  uint32_t needed = 0;
};

template <class Result, class... Arguments>
Result CallWithNull(Result (*function)(BCBarcode*, Arguments...)) {
  return function(nullptr, std::decay_t<Arguments>{}...);
}

struct Function {
  const char* name;
  std::function<long long()> call;  // with a null handle
  long long expected;
};

#define CODE(f)                                                                 \
  {                                                                             \
#f, [] { return static_cast<long long>(CallWithNull(f)); }, BC_E_INVALIDARG \
  }
#define VALUE(f, expected)                                               \
  {                                                                      \
#f, [] { return static_cast<long long>(CallWithNull(f)); }, expected \
  }

const Function kHandleFunctions[] = {
    CODE(BCCreate),
    CODE(BCFree),
    VALUE(BCGetBCType, 0),
    VALUE(BCGetCheckDigitsA, -1),
    {"BCGetTextA", [] { return static_cast<long long>(std::strlen(BCGetTextA(nullptr))); }, 0},
    VALUE(BCGetInvalidDataPos, -1),
    VALUE(BCGetCountRows, 0),
    VALUE(BCGet2DCompositeComponent, 0),
    VALUE(BCGet_CompSym_ErrorInCC, 0),
    CODE(BCSetBCType),
    CODE(BCSetTextA),
    CODE(BCSetCompression),
    CODE(BCSetCDMethod),
    CODE(BCSetAutoCorrect),
    CODE(BCSetTranslateEsc),
    CODE(BCSetBearerBarType),
    CODE(BCSetBearerBarWidth),
    CODE(BCSetNotchHeight),
    CODE(BCSetModWidthA),
    CODE(BCSetBarWidthReduction),
    CODE(BCSetRatioA),
    CODE(BCSetFormatA),
    CODE(BCSetDPI),
    CODE(BCSetOptResolution),
    CODE(BCSetQuietZone),
    CODE(BCSetMustFit),
    CODE(BCSetDecoder),
    CODE(BCSetSizeMode),
    CODE(BCSetPrintText),
    CODE(BCSetTextAlignment),
    CODE(BCSetFontHeight),
    CODE(BCSetFontNameA),
    CODE(BCSetTextDist),
    CODE(BCSetColorMode),
    CODE(BCSetBarcodeColorRGB),
    CODE(BCSetFontColorRGB),
    CODE(BCSetBackgroundColorRGB),
    CODE(BCSetBarcodeColorGray),
    CODE(BCSetFontColorGray),
    CODE(BCSetBackgroundColorGray),
    CODE(BCSetBarcodeColorCMYK),
    CODE(BCSetFontColorCMYK),
    CODE(BCSetBackgroundColorCMYK),
    CODE(BCSetBkMode),
    CODE(BCSetPCLMode),
    CODE(BCSet2DCompositeComponent),
    CODE(BCSetRotation),
    CODE(BCSet_PDF417_Rows),
    CODE(BCSet_PDF417_Columns),
    CODE(BCSet_PDF417_RowHeight),
    CODE(BCSet_PDF417_ECLevel),
    CODE(BCSet_PDF417_EncodingMode),
    CODE(BCSet_PDF417_RowColRatioA),
    CODE(BCSet_PDF417_SegIndex),
    CODE(BCSet_PDF417_SegCount),
    CODE(BCSet_PDF417_TimeStamp),
    CODE(BCSet_PDF417_FileSize),
    CODE(BCSet_PDF417_CheckSum),
    CODE(BCSet_PDF417_SegLast),
    CODE(BCSet_PDF417_FileIDA),
    CODE(BCSet_PDF417_FileNameA),
    CODE(BCSet_PDF417_SenderA),
    CODE(BCSet_PDF417_AddresseeA),
    CODE(BCSet_MPDF417_Version),
    CODE(BCSet_MPDF417_Mode),
    CODE(BCSet_Maxi_Mode),
    CODE(BCSet_Maxi_UnderCut),
    CODE(BCSet_Maxi_Append),
    CODE(BCSet_Maxi_SCMA),
    CODE(BCSet_Maxi_UsePreambleA),
    CODE(BCSet_QR_Version),
    CODE(BCSet_QR_Format),
    CODE(BCSet_QR_FmtAppIndicatorA),
    CODE(BCSet_QR_ECLevel),
    CODE(BCSet_QR_Mask),
    CODE(BCSet_QR_Append),
    CODE(BCSet_MQR_Version),
    CODE(BCSet_MQR_Mask),
    CODE(BCSet_DM_Size),
    CODE(BCSet_DM_Format),
    CODE(BCSet_DM_EnforceBinaryEncoding),
    CODE(BCSet_DM_Rectangular),
    CODE(BCSet_DM_Append),
    CODE(BCSet_CBF_Rows),
    CODE(BCSet_CBF_Columns),
    CODE(BCSet_CBF_RowHeight),
    CODE(BCSet_CBF_RowSeparatorHeight),
    CODE(BCSet_CBF_Format),
    CODE(BCSet_Aztec_Size),
    CODE(BCSet_Aztec_EnforceBinaryEncoding),
    CODE(BCSet_Aztec_RuneMode),
    CODE(BCSet_Aztec_FormatA),
    CODE(BCSet_Aztec_ErrorCorrection),
    CODE(BCSet_Aztec_AppendActive),
    CODE(BCSet_Aztec_AppendDataA),
    CODE(BCSet_RSS_SegmPerRow),
    CODE(BCSet_MultiBC_Enabled),
    CODE(BCSet_MultiBC_Rows),
    CODE(BCSet_MultiBC_Columns),
    CODE(BCSet_MultiBC_HDist),
    CODE(BCSet_MultiBC_VDist),
    CODE(BCSet_MultiBC_DataLimit),
    CODE(BCSet_MultiBC_DynamicBoundingRect),
    CODE(BCSet_MultiBC_StructApp),
    CODE(BCGetBarcodeSize),
    CODE(BC_MultiBC_CalculateLayout),
    CODE(BCPostscriptToMemoryExt),
    CODE(BCPCLToMemoryExt),
    CODE(BCPDFToMemory),
    CODE(BCPDFFragmentToMemory),
    CODE(BCBitmapToMemoryA),
};

const char* const kFreeFunctions[] = {"BCInitLibraryA",   "BCDeInitLibrary", "BCGetVersionA",
                                      "FileExists",       "BCGetErrorTextA", "BCAlloc",
                                      "BCGetMaxLenOfData"};

std::set<std::string> NamesInHeader() {
  const std::string header = Support::ReadFile(VEXTORIN_LIBRARY_HEADER);
  const std::regex declaration(R"((?:^|\n)(?:BCResult|int|void|const char\*) (\w+)\()");
  std::set<std::string> names;
  for (std::sregex_iterator match(header.begin(), header.end(), declaration), end; match != end;
       ++match) {
    names.insert((*match)[1]);
  }
  return names;
}

TEST_F(CInterface, AnswersANullHandleAsItsHeaderSays) {
  std::set<std::string> tried(std::begin(kFreeFunctions), std::end(kFreeFunctions));
  for (const Function& function : kHandleFunctions) {
    EXPECT_EQ(function.call(), function.expected) << function.name;
    tried.insert(function.name);
  }
  EXPECT_EQ(BCAlloc(nullptr), BC_E_INVALIDARG);
  EXPECT_EQ(tried, NamesInHeader());
}

TEST_F(CInterface, ExportsWhatItsHeaderDeclaresAndNothingElse) {
  const Support::Finished nm = Support::Run(
      {.arguments = {"nm", "-D", "--defined-only", "--format=posix", VEXTORIN_LIBRARY_FILE}});
  ASSERT_EQ(nm.status, 0) << nm.errors;
  std::set<std::string> names;
  std::istringstream lines(nm.output);
  for (std::string line; std::getline(lines, line);) names.insert(line.substr(0, line.find(' ')));
  EXPECT_EQ(names, NamesInHeader());
}

TEST_F(CInterface, WorksFromPlainC) {
  std::vector<char> buffer(10001);
  const uint32_t size = MakeEan13InC(buffer.data(), 10000);
  ASSERT_GT(size, 0u);
  EXPECT_TRUE(std::string(buffer.data()).starts_with("%!PS-Adobe-3.0 EPSF-3.0\n"));
  EXPECT_EQ(std::strlen(buffer.data()), size);
}

TEST(Session, OpensAndClosesOnce) {
  BCBarcode* barcode = nullptr;
  EXPECT_EQ(BCDeInitLibrary(), BC_E_INVALIDARG);
  EXPECT_EQ(BCAlloc(&barcode), BC_E_INVALIDARG);
  EXPECT_EQ(barcode, nullptr);
  EXPECT_EQ(BCInitLibraryA("/usr/lib"), BC_OK);
  EXPECT_EQ(BCInitLibraryA(""), BC_E_INVALIDARG);
  EXPECT_EQ(BCAlloc(&barcode), BC_OK);
  EXPECT_EQ(BCDeInitLibrary(), BC_OK);
  EXPECT_EQ(BCSetDecoder(barcode, 1), BC_E_INVALIDARG);
  EXPECT_EQ(BCCreate(barcode), BC_E_INVALIDARG);
  EXPECT_EQ(BCFree(barcode), BC_OK);
}

TEST(Session, IsNotNeededForVersionAndFiles) {
  int major = -1, minor = -1, patch = -1, revision = -1;
  char date[41] = {};
  EXPECT_EQ(BCGetVersionA(&major, &minor, &patch, &revision, date, 40), BC_OK);
  EXPECT_GE(major, 1);
  EXPECT_GE(minor, 0);
  EXPECT_GE(patch, 0);
  EXPECT_EQ(revision, 1);
  EXPECT_TRUE(std::regex_match(date, std::regex(R"(\d{4}/\d\d/\d\d \d\d:\d\d:\d\d)"))) << date;
  char few[6] = "#####";
  EXPECT_EQ(BCGetVersionA(nullptr, nullptr, nullptr, nullptr, few, 5), BC_OK);
  EXPECT_EQ(std::strlen(few), 4u);
  const Support::TempFolder folder;
  EXPECT_EQ(FileExists(folder.write("file", "").c_str()), 1);
  EXPECT_EQ(FileExists(folder.file("none").c_str()), 0);
  EXPECT_EQ(FileExists(folder.path().c_str()), 0);
  EXPECT_EQ(FileExists(nullptr), 0);
}

std::string TextOf(BCResult code) {
  char buffer[71] = {};
  BCGetErrorTextA(code, buffer, 70);
  return buffer;
}

TEST_F(CInterface, ErrorTextsEndInABlankWhereThereIsMoreToSay) {
  const struct {
    int type;
    const char* data;
    BCResult code;
    bool more;
  } kRows[] = {
      {13, "40063x133393", BC_E_INVALIDDATA, true},    // the x
      {13, "4006", BC_E_INVALIDDATA, false},           // nothing to point at
      {13, "40063813339312", BC_E_DATATOOLONG, true},  // needs 12
      {8, "", BC_E_INVALIDDATA, false},                // nothing to point at
      {8, "x", BC_E_INVALIDDATA, true},                // the x
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.data);
    EXPECT_EQ(create(row.type, row.data), row.code);
    EXPECT_EQ(TextOf(row.code).back() == ' ', row.more) << TextOf(row.code);
  }
  EXPECT_EQ(create(20, std::string(1000, 'x')), BC_E_DATATOOLONG);
  EXPECT_NE(TextOf(BC_E_DATATOOLONG).back(), ' ') << "no number of characters to tell";
  EXPECT_NE(TextOf(BC_E_INVALIDDATA).back(), ' ') << "a failure of long ago";
}

TEST(ErrorTexts, TellTheCodesApart) {
  std::set<std::string> texts;
  for (BCResult code :
       {BC_OK, BC_E_INVALIDARG, BC_E_OUTOFMEMORY, BC_E_INVALIDDATA, BC_E_DATATOOLONG,
        BC_E_NOTSUPPORTED, BC_E_BUFFERTOOSMALL, BC_E_MUSTFIT, BCResult{0x12345678}}) {
    EXPECT_EQ(TextOf(code).find('.'), std::string::npos);
    EXPECT_LT(TextOf(code).size(), 70u);
    texts.insert(TextOf(code));
  }
  EXPECT_EQ(texts.size(), 9u);
  char few[] = "######";
  BCGetErrorTextA(BC_E_OUTOFMEMORY, few, 3);
  EXPECT_EQ(std::string(few, 7), std::string("Out\0##", 7));
}

TEST_F(CInterface, SettersTakeTheirRangesAndKeepWhatTheyHadOtherwise) {
  const double kNan = std::numeric_limits<double>::quiet_NaN();
  const double kInfinity = std::numeric_limits<double>::infinity();
  const BCMargins fine = {1, 2, 3, 4}, negative = {1, -2, 3, 4}, nan = {1, 2, kNan, 4};
  const struct {
    const char* name;
    Call good, bad;
  } kRows[] = {
#define ROW(f, good, bad)                                                           \
  {                                                                                 \
#f, [&](BCBarcode * b) { return f good; }, [&](BCBarcode * b) { return f bad; } \
  }
      ROW(BCSetBCType, (b, 13), (b, 9999)),
      ROW(BCSetTextA, (b, "", 0), (b, nullptr, 1)),
      ROW(BCSetTextA, (b, "a\0b", 3), (b, "a", -1)),
      ROW(BCSetCompression, (b, 3), (b, 4)),
      ROW(BCSetCDMethod, (b, -1), (b, -2)),
      ROW(BCSetCDMethod, (b, 36), (b, 37)),
      ROW(BCSetBearerBarType, (b, 4), (b, 5)),
      ROW(BCSetBearerBarWidth, (b, 500), (b, -500)),
      ROW(BCSetNotchHeight, (b, 0), (b, -2)),
      ROW(BCSetModWidthA, (b, "330.5"), (b, "330,5")),
      ROW(BCSetModWidthA, (b, "330.000000"), (b, "0")),
      ROW(BCSetModWidthA, (b, ""), (b, nullptr)),
      ROW(BCSetModWidthA, (b, "-1"), (b, "-2")),
      ROW(BCSetModWidthA, (b, "1"), (b, "nan")),
      ROW(BCSetBarWidthReduction, (b, -20, 6), (b, 20, 5)),
      ROW(BCSetBarWidthReduction, (b, .1, 2), (b, kNan, 2)),
      ROW(BCSetRatioA, (b, "1:2:1:3"), (b, "1:0:1:3")),
      ROW(BCSetRatioA, (b, ""), (b, nullptr)),
      ROW(BCSetFormatA, (b, "A##B&"), (b, nullptr)),
      ROW(BCSetDPI, (b, 300, 600), (b, 300, 0)),
      ROW(BCSetDPI, (b, 203.2, 203.2), (b, kInfinity, 300)),
      ROW(BCSetQuietZone, (b, &fine, 5), (b, &fine, 6)),
      ROW(BCSetQuietZone, (b, &fine, 0), (b, &negative, 2)),
      ROW(BCSetQuietZone, (b, &fine, 2), (b, &nan, 2)),
      ROW(BCSetQuietZone, (b, &fine, 2), (b, nullptr, 2)),
      ROW(BCSetDecoder, (b, 3), (b, 4)),
      ROW(BCSetSizeMode, (b, 2), (b, 3)),
      ROW(BCSetTextAlignment, (b, 3), (b, 4)),
      ROW(BCSetFontHeight, (b, -1), (b, -2)),
      ROW(BCSetFontNameA, (b, "Arial"), (b, nullptr)),
      ROW(BCSetTextDist, (b, 0), (b, -2)),
      ROW(BCSetColorMode, (b, 2), (b, 3)),
      ROW(BCSetBarcodeColorRGB, (b, 0, .5, 1), (b, 0, .5, 1.1)),
      ROW(BCSetFontColorGray, (b, 1), (b, kNan)),
      ROW(BCSetBackgroundColorCMYK, (b, 0, 0, 0, 1), (b, 0, 0, 0, -1)),
      ROW(BCSetBkMode, (b, 1), (b, 0)),
      ROW(BCSetPCLMode, (b, 1), (b, 2)),
      ROW(BCSet2DCompositeComponent, (b, 4), (b, 5)),
      ROW(BCSetRotation, (b, 3), (b, 4)),
      ROW(BCSet_PDF417_Rows, (b, -1), (b, 2)),
      ROW(BCSet_PDF417_Rows, (b, 90), (b, 91)),
      ROW(BCSet_PDF417_Columns, (b, 30), (b, 31)),
      ROW(BCSet_PDF417_ECLevel, (b, 0), (b, 9)),
      ROW(BCSet_PDF417_RowColRatioA, (b, "auto"), (b, "wide")),
      ROW(BCSet_PDF417_RowColRatioA, (b, "3:1"), (b, "3:1:1")),
      ROW(BCSet_PDF417_SegCount, (b, 1), (b, 0)),
      ROW(BCSet_PDF417_FileIDA, (b, ""), (b, nullptr)),
      ROW(BCSet_MPDF417_Version, (b, 34), (b, 35)),
      ROW(BCSet_Maxi_Mode, (b, 5), (b, 1)),
      ROW(BCSet_Maxi_UnderCut, (b, 100), (b, 101)),
      ROW(BCSet_Maxi_Append, (b, 8, 8), (b, 2, 3)),
      ROW(BCSet_Maxi_SCMA, (b, "", "", ""), (b, "1", nullptr, "2")),
      ROW(BCSet_QR_Version, (b, 40), (b, 41)),
      ROW(BCSet_QR_Mask, (b, -1), (b, 8)),
      ROW(BCSet_QR_Append, (b, 16, 1, 255), (b, 16, 1, 256)),
      ROW(BCSet_QR_Append, (b, -1, -1, -1), (b, 17, 1, 0)),
      ROW(BCSet_MQR_Version, (b, 4), (b, 5)),
      ROW(BCSet_DM_Size, (b, 30), (b, 31)),
      ROW(BCSet_DM_Append, (b, 2, 1, -1), (b, 1, 1, -1)),
      ROW(BCSet_CBF_Columns, (b, 62), (b, 3)),
      ROW(BCSet_Aztec_Size, (b, 36), (b, 37)),
      ROW(BCSet_Aztec_FormatA, (b, 2, "AB"), (b, 3, "AB")),
      ROW(BCSet_Aztec_ErrorCorrection, (b, 95), (b, 100)),
      ROW(BCSet_Aztec_AppendDataA, (b, 'Z', 'A', ""), (b, 'Z', 'a', "")),
      ROW(BCSet_RSS_SegmPerRow, (b, 22), (b, 23)),
      ROW(BCSet_MultiBC_Rows, (b, 1), (b, 0)),
      ROW(BCSet_MultiBC_DataLimit, (b, 1), (b, 0)),
      ROW(BCSet_MultiBC_StructApp, (b, 2), (b, 3)),
#undef ROW
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.good(barcode), BC_OK) << row.name;
    EXPECT_EQ(row.bad(barcode), BC_E_INVALIDARG) << row.name;
  }
  EXPECT_EQ(BCGetBCType(barcode), 13);
  EXPECT_EQ(BCGet2DCompositeComponent(barcode), 4);
  EXPECT_EQ(std::string(BCGetTextA(barcode), 4), std::string("a\0b", 4));
}

TEST_F(CInterface, ARejectedValueChangesNothing) {
  ASSERT_EQ(BCSetModWidthA(barcode, "500"), BC_OK);
  ASSERT_EQ(BCSetModWidthA(barcode, "x"), BC_E_INVALIDARG);
  ASSERT_EQ(create(20, "1234"), BC_OK);
  double width = 0, height = 0;
  ASSERT_EQ(query(width, height), BC_OK);
  EXPECT_DOUBLE_EQ(width, 57 * .5);
  EXPECT_EQ(BCSetModWidthA(barcode, "x"), BC_E_INVALIDARG);
  EXPECT_EQ(query(), BC_OK) << "still created";
}

TEST_F(CInterface, AChangeOfTheDataTakesCreateBackOneOfTheLayoutDoesNot) {
  EXPECT_EQ(query(), BC_E_INVALIDARG);
  EXPECT_EQ(BCGetCountRows(barcode), 0);
  ASSERT_EQ(create(20, "1234"), BC_OK);
  EXPECT_EQ(BCGetCountRows(barcode), 1);
  EXPECT_EQ(BCSetRotation(barcode, 1), BC_OK);
  EXPECT_EQ(BCSetModWidthA(barcode, "500"), BC_OK);
  EXPECT_EQ(BCSetPrintText(barcode, 0, 0), BC_OK);
  double width = 0, height = 0;
  EXPECT_EQ(query(width, height), BC_OK);
  EXPECT_DOUBLE_EQ(height, 57 * .5) << "turned, with the new module width";
  EXPECT_EQ(BCSetTextA(barcode, "5678", 4), BC_OK);
  EXPECT_EQ(BCGetCountRows(barcode), 0);
  EXPECT_EQ(query(), BC_E_INVALIDARG);
  std::string output;
  EXPECT_EQ(write(output), BC_E_INVALIDARG);
  EXPECT_EQ(BCCreate(barcode), BC_OK);
  EXPECT_EQ(write(output), BC_OK);
}

TEST_F(CInterface, NamesTheInvalidCharacter) {
  EXPECT_EQ(create(13, "40063x133393"), BC_E_INVALIDDATA);
  EXPECT_EQ(BCGetInvalidDataPos(barcode), 5);
  EXPECT_EQ(BCGet_CompSym_ErrorInCC(barcode), 0);
  EXPECT_EQ(create(13, "400638133393"), BC_OK);
  EXPECT_EQ(BCGetInvalidDataPos(barcode), -1);
  char digits[4] = "###";
  EXPECT_EQ(BCGetCheckDigitsA(barcode, digits, 3), 1);
  EXPECT_STREQ(digits, "1");
  EXPECT_EQ(BCGetCheckDigitsA(barcode, nullptr, 0), 1);
  EXPECT_EQ(BCGetMaxLenOfData(13), 13);
}

TEST_F(CInterface, SetsTheRowHeightOfPdf417) {
  ASSERT_EQ(BCSetModWidthA(barcode, "250"), BC_OK);
  ASSERT_EQ(create(55, "Hello PDF417"), BC_OK);
  double width = 0, height = 0;
  ASSERT_EQ(query(width, height), BC_OK);
  EXPECT_DOUBLE_EQ(height, BCGetCountRows(barcode) * 3 * .25) << "three modules by default";
  ASSERT_EQ(BCSet_PDF417_RowHeight(barcode, 2000), BC_OK);
  ASSERT_EQ(BCCreate(barcode), BC_OK);
  ASSERT_EQ(query(width, height), BC_OK);
  EXPECT_DOUBLE_EQ(height, BCGetCountRows(barcode) * 2);
}

TEST_F(CInterface, MeasuresASymbolThatFillsTheBoxAsTheBox) {
  const std::string data(60, 'x');
  for (std::size_t length = 1; length <= data.size(); ++length) {
    SCOPED_TRACE(length);
    ASSERT_EQ(create(55, data.substr(0, length)), BC_OK);
    double width = 0, height = 0;
    ASSERT_EQ(query(width, height), BC_OK);
    EXPECT_EQ(width, 50);
    EXPECT_EQ(height, 30);
  }
}

TEST_F(CInterface, PutsACompositeThatIsNotSupportedDownToTheComponent) {
  ASSERT_EQ(BCSet2DCompositeComponent(barcode, 1), BC_OK);
  EXPECT_EQ(create(8, "CODE"), BC_E_NOTSUPPORTED);
  EXPECT_EQ(BCGet_CompSym_ErrorInCC(barcode), 1);
  ASSERT_EQ(BCSet2DCompositeComponent(barcode, 0), BC_OK);
  EXPECT_EQ(create(8, "code"), BC_E_INVALIDDATA);
  EXPECT_EQ(BCGet_CompSym_ErrorInCC(barcode), 0);
}

TEST_F(CInterface, RefusesARatioThatDoesNotSuitTheSymbol) {
  ASSERT_EQ(BCSetRatioA(barcode, "1:2:1"), BC_OK);
  EXPECT_EQ(create(8, "CODE"), BC_E_INVALIDARG);
}

TEST_F(CInterface, SaysHowMuchRoomTheOutputNeeds) {
  ASSERT_EQ(create(20, "1234"), BC_OK);
  std::string output, again;
  ASSERT_EQ(write(output), BC_OK);
  EXPECT_EQ(needed, output.size());
  EXPECT_EQ(write(again, 10), BC_E_BUFFERTOOSMALL);
  EXPECT_EQ(needed, output.size());
  EXPECT_EQ(write(again, needed - 1), BC_E_BUFFERTOOSMALL);
  EXPECT_EQ(write(again, needed), BC_OK);
  EXPECT_EQ(again, output);
}

TEST_F(CInterface, AnswersSizesInTheUnitAskedFor) {
  ASSERT_EQ(BCSetDPI(barcode, 300, 600), BC_OK);
  ASSERT_EQ(create(20, "1234"), BC_OK);
  const BCRect rect = {0, 25400, 50800, 0};
  const double kWidths[] = {50800, 600, 50.8, 2000, 2}, kHeights[] = {25400, 600, 25.4, 1000, 1};
  for (int unit = -1; unit <= 6; ++unit) {
    SCOPED_TRACE(unit);
    double width = 0, height = 0;
    const BCResult code = BCGetBarcodeSize(barcode, &rect, nullptr, unit, &width, &height);
    if (unit < 0 || unit > 4) {
      EXPECT_EQ(code, BC_E_INVALIDARG);
      continue;
    }
    EXPECT_EQ(code, BC_OK);
    EXPECT_DOUBLE_EQ(width, kWidths[unit]);
    EXPECT_DOUBLE_EQ(height, kHeights[unit]);
  }
}

TEST_F(CInterface, AColourModeBeginsWithBlackOnWhite) {
  ASSERT_EQ(BCSetColorMode(barcode, 2), BC_OK);
  ASSERT_EQ(create(20, "1234"), BC_OK);
  std::string output;
  ASSERT_EQ(write(output), BC_OK);
  EXPECT_NE(output.find("0 0 0 1 setcmykcolor"), std::string::npos);
  EXPECT_NE(output.find("0 0 0 0 setcmykcolor"), std::string::npos);
}

}  // namespace
