// The C interface as its callers meet it: every function of the header, and the order of calls.
#include "engine/library/vextorin9.h"
#include "tests/support/Program.h"
#include "tests/support/Run.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <limits>
#include <regex>
#include <set>
#include <string>
#include <vector>

extern "C" uint32_t MakeEan13InC(char* buffer, uint32_t capacity);

namespace {

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
  BCResult query(int unit = 2) {
    const BCRect rect = {0, 25400, 50800, 0};
    return BCGetBarcodeSize(barcode, &rect, nullptr, unit, &width, &height);
  }
  BCResult write(uint32_t capacity = 100000) {
    std::vector<char> buffer(capacity + 1, '#');
    const BCRect rect = {0, 30000, 50000, 0};
    needed = capacity;
    const BCResult code = BCPostscriptToMemoryExt(barcode, buffer.data(), &needed, &rect, 0);
    EXPECT_EQ(buffer[capacity], '#') << "written beyond the buffer";
    if (code == BC_OK) output.assign(buffer.data(), needed);
    return code;
  }

  BCBarcode* barcode = nullptr;
  double width = 0, height = 0;
  std::string output;
  uint32_t needed = 0;
};

template <class... Arguments>
BCResult CallWithNull(BCResult (*function)(BCBarcode*, Arguments...)) {
  return function(nullptr, std::decay_t<Arguments>{}...);
}

template <class... Functions>
std::vector<BCResult> CallEachWithNull(Functions... functions) {
  return {CallWithNull(functions)...};
}

struct Answers {
  std::string names;
  std::vector<BCResult> codes;
};
#define ANSWERS_TO_NULL(...) Answers{#__VA_ARGS__, CallEachWithNull(__VA_ARGS__)};

Answers AnswersToNull() {
  return ANSWERS_TO_NULL(
      BCCreate, BCFree, BCSetBCType, BCSetTextA, BCSetCompression, BCSetCDMethod, BCSetAutoCorrect,
      BCSetTranslateEsc, BCSetECI, BCSetBearerBarType, BCSetBearerBarWidth, BCSetNotchHeight,
      BCSetModWidthA, BCSetBarWidthReduction, BCSetRatioA, BCSetFormatA, BCSetDPI,
      BCSetOptResolution, BCSetQuietZone, BCSetMustFit, BCSetDecoder, BCSetSizeMode, BCSetPrintText,
      BCSetTextAlignment, BCSetFontHeight, BCSetFontNameA, BCSetTextDist, BCSetColorMode,
      BCSetBarcodeColorRGB, BCSetFontColorRGB, BCSetBackgroundColorRGB, BCSetBarcodeColorGray,
      BCSetFontColorGray, BCSetBackgroundColorGray, BCSetBarcodeColorCMYK, BCSetFontColorCMYK,
      BCSetBackgroundColorCMYK, BCSetBkMode, BCSetPCLMode, BCSet2DCompositeComponent, BCSetRotation,
      BCSet_PDF417_Rows, BCSet_PDF417_Columns, BCSet_PDF417_RowHeight, BCSet_PDF417_ECLevel,
      BCSet_PDF417_EncodingMode, BCSet_PDF417_RowColRatioA, BCSet_PDF417_SegIndex,
      BCSet_PDF417_SegCount, BCSet_PDF417_TimeStamp, BCSet_PDF417_FileSize, BCSet_PDF417_CheckSum,
      BCSet_PDF417_SegLast, BCSet_PDF417_FileIDA, BCSet_PDF417_FileNameA, BCSet_PDF417_SenderA,
      BCSet_PDF417_AddresseeA, BCSet_MPDF417_Version, BCSet_MPDF417_Mode, BCSet_Maxi_Mode,
      BCSet_Maxi_UnderCut, BCSet_Maxi_Append, BCSet_Maxi_SCMA, BCSet_Maxi_UsePreambleA,
      BCSet_QR_Version, BCSet_QR_Format, BCSet_QR_FmtAppIndicatorA, BCSet_QR_ECLevel, BCSet_QR_Mask,
      BCSet_QR_Append, BCSet_MQR_Version, BCSet_MQR_Mask, BCSet_DM_Size, BCSet_DM_Format,
      BCSet_DM_EnforceBinaryEncoding, BCSet_DM_Rectangular, BCSet_DM_Append, BCSet_CBF_Rows,
      BCSet_CBF_Columns, BCSet_CBF_RowHeight, BCSet_CBF_RowSeparatorHeight, BCSet_CBF_Format,
      BCSet_Aztec_Size, BCSet_Aztec_EnforceBinaryEncoding, BCSet_Aztec_RuneMode,
      BCSet_Aztec_FormatA, BCSet_Aztec_ErrorCorrection, BCSet_Aztec_AppendActive,
      BCSet_Aztec_AppendDataA, BCSet_RSS_SegmPerRow, BCSet_MultiBC_Enabled, BCSet_MultiBC_Rows,
      BCSet_MultiBC_Columns, BCSet_MultiBC_HDist, BCSet_MultiBC_VDist, BCSet_MultiBC_DataLimit,
      BCSet_MultiBC_DynamicBoundingRect, BCSet_MultiBC_StructApp, BCGetBarcodeSize,
      BC_MultiBC_CalculateLayout, BCPostscriptToMemoryExt, BCPCLToMemoryExt, BCPDFToMemory,
      BCPDFFragmentToMemory, BCBitmapToMemoryA);
}

std::set<std::string> Matches(const std::string& text, const char* pattern) {
  const std::regex regex(pattern);
  std::set<std::string> matches;
  for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
    matches.insert((*match)[1]);
  }
  return matches;
}

std::set<std::string> NamesInHeader() {
  return Matches(Support::ReadFile(VEXTORIN_LIBRARY_HEADER),
                 R"((?:^|\n)(?:BC_ADDITION )?(?:BCResult|int|void|const char\*) (\w+)\()");
}

TEST_F(CInterface, AnswersANullHandleAsItsHeaderSays) {
  const Answers answers = AnswersToNull();
  for (std::size_t i = 0; i < answers.codes.size(); ++i) {
    EXPECT_EQ(answers.codes[i], BC_E_INVALIDARG) << "function " << i;
  }
  EXPECT_EQ(BCGetBCType(nullptr), 0);
  EXPECT_EQ(BCGetCheckDigitsA(nullptr, nullptr, 0), -1);
  EXPECT_STREQ(BCGetTextA(nullptr), "");
  EXPECT_EQ(BCGetInvalidDataPos(nullptr), -1);
  EXPECT_EQ(BCGetCountRows(nullptr), 0);
  EXPECT_EQ(BCGet2DCompositeComponent(nullptr), 0);
  EXPECT_EQ(BCGet_CompSym_ErrorInCC(nullptr), 0);
  EXPECT_EQ(BCGetWarningA(nullptr, nullptr, 0), 0);
  EXPECT_EQ(BCGetReasonA(nullptr, BC_OK, nullptr, 0), 0);
  EXPECT_EQ(BCAlloc(nullptr), BC_E_INVALIDARG);

  std::set<std::string> tried = Matches(answers.names, R"((\w+))");
  tried.merge(
      std::set<std::string>{"BCGetBCType", "BCGetCheckDigitsA", "BCGetTextA", "BCGetInvalidDataPos",
                            "BCGetCountRows", "BCGet2DCompositeComponent",
                            "BCGet_CompSym_ErrorInCC", "BCAlloc", "BCGetWarningA", "BCGetReasonA",
                            // without a handle
                            "BCInitLibraryA", "BCDeInitLibrary", "BCGetVersionA", "FileExists",
                            "BCGetErrorTextA", "BCGetObjectErrorTextA", "BCGetMaxLenOfData"});
  EXPECT_EQ(tried, NamesInHeader());
}

TEST_F(CInterface, ExportsWhatItsHeaderDeclaresAndNothingElse) {
  const Support::Finished nm = Support::Run(
      {.arguments = {"nm", "-D", "--defined-only", "--format=posix", VEXTORIN_LIBRARY_FILE}});
  ASSERT_EQ(nm.status, 0) << nm.errors;
  EXPECT_EQ(Matches(nm.output, R"((?:^|\n)(\w+) )"), NamesInHeader());
}

TEST_F(CInterface, WorksFromPlainC) {
  std::vector<char> buffer(10001);
  const uint32_t size = MakeEan13InC(buffer.data(), 10000);
  ASSERT_GT(size, 0u);
  EXPECT_TRUE(std::string(buffer.data()).starts_with("%!PS-Adobe-3.0 EPSF-3.0\n"));
  EXPECT_EQ(std::strlen(buffer.data()), size);
}

// Calls that differ in one value each.
TEST_F(CInterface, DrawsEveryValueOfASetterThatTakesSeveral) {
  BCSet_Aztec_AppendActive(barcode, 1);
  const struct {
    int type;
    std::vector<std::function<BCResult()>> calls;
  } kRows[] = {
      {92,
       {[&] { return BCSet_Aztec_AppendDataA(barcode, 'D', 'B', "id"); },
        [&] { return BCSet_Aztec_AppendDataA(barcode, 'E', 'B', "id"); },
        [&] { return BCSet_Aztec_AppendDataA(barcode, 'D', 'C', "id"); },
        [&] { return BCSet_Aztec_AppendDataA(barcode, 'D', 'B', "ic"); },
        [&] { return BCSet_Aztec_AppendActive(barcode, 0); },
        [&] { return BCSet_Aztec_FormatA(barcode, 2, "12"); },
        [&] { return BCSet_Aztec_FormatA(barcode, 2, "13"); },
        [&] { return BCSet_Aztec_FormatA(barcode, 1, ""); }}},
      {58,
       {[&] { return BCSet_QR_Append(barcode, 4, 2, 7); },
        [&] { return BCSet_QR_Append(barcode, 5, 2, 7); },
        [&] { return BCSet_QR_Append(barcode, 4, 3, 7); },
        [&] { return BCSet_QR_Append(barcode, 4, 2, 8); }}},
      {71,
       {[&] { return BCSet_DM_Append(barcode, 4, 2, 513); },
        [&] { return BCSet_DM_Append(barcode, 5, 2, 513); },
        [&] { return BCSet_DM_Append(barcode, 4, 3, 513); },
        [&] { return BCSet_DM_Append(barcode, 4, 2, 514); }}},
      {57,
       {[&] { return BCSet_Maxi_Append(barcode, 4, 2); },
        [&] { return BCSet_Maxi_Append(barcode, 5, 2); },
        [&] { return BCSet_Maxi_Append(barcode, 4, 3); }}},
  };
  for (const auto& row : kRows) {
    std::set<std::string> drawn;
    for (const auto& call : row.calls) {
      EXPECT_EQ(call(), BC_OK);
      EXPECT_EQ(create(row.type, "(10)ABC"), BC_OK);
      EXPECT_EQ(write(), BC_OK);
      EXPECT_TRUE(drawn.insert(output).second) << row.type << ", call " << drawn.size();
    }
  }
}

TEST_F(CInterface, WarnsOfModulesThatReadersMayMiss) {
  const auto warning = [this] {
    char buffer[256] = {};
    const int length = BCGetWarningA(barcode, buffer, sizeof buffer);
    EXPECT_EQ(static_cast<std::size_t>(length), std::strlen(buffer));
    return std::string(buffer);
  };
  // 10 characters and the stop, 123 modules. X in 1/1000 mm, dpi, decoder.
  const struct {
    const char* module;
    double dpi;
    int decoder;
    const char* expected;
  } kRows[] = {
      {"190", 72, 0, ""},
      {"180", 72, 0,
       "The barcode may be too small to be read: its modules are 0.18 mm wide. A width of 23.37 mm "
       "would do."},
      {"250", 72, 1, ""},
      {"250", 72, 2,
       "The barcode may be too small to be read: its modules are 0.25 mm wide. A width of 41.574 "
       "mm "
       "would do."},
      {"250", 203, 0, ""},
      {"200", 203, 0,
       "The barcode may be too small to be read: its modules are 0.2 mm, 1.6 dots at 203 dpi wide. "
       "A "
       "width of 30.781 mm would do."},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.module << " at " << row.dpi << ", " << row.decoder);
    BCSetModWidthA(barcode, row.module);
    BCSetDPI(barcode, row.dpi, row.dpi);
    BCSetDecoder(barcode, row.decoder);
    for (const bool mustFit : {false, true}) {
      BCSetMustFit(barcode, mustFit);
      ASSERT_EQ(create(20, "ABCDEFGH"), BC_OK);
      const bool refused = mustFit && *row.expected != '\0';
      EXPECT_EQ(write(1), refused ? BC_E_MUSTFIT : BC_E_BUFFERTOOSMALL);
      EXPECT_EQ(query(), refused ? BC_E_MUSTFIT : BC_OK);
      EXPECT_EQ(write(), refused ? BC_E_MUSTFIT : BC_OK);
      EXPECT_EQ(warning(), refused ? "" : row.expected);
    }
  }
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
  char date[41] = {}, few[6] = "#####";
  EXPECT_EQ(BCGetVersionA(nullptr, nullptr, nullptr, nullptr, date, 40), BC_OK);
  EXPECT_TRUE(std::regex_match(date, std::regex(R"(\d{4}/\d\d/\d\d \d\d:\d\d:\d\d)"))) << date;
  EXPECT_EQ(BCGetVersionA(nullptr, nullptr, nullptr, nullptr, few, 5), BC_OK);
  EXPECT_EQ(std::strlen(few), 4u);
  const Support::TempFolder folder;
  EXPECT_EQ(FileExists(folder.write("file", "").c_str()), 1);
  EXPECT_EQ(FileExists(folder.file("none").c_str()), 0);
  EXPECT_EQ(FileExists(folder.path().c_str()), 0);
  EXPECT_EQ(FileExists(nullptr), 0);
}

TEST(MissingAdditions, FailTheBarcodesThatNeedThemAndNoOthers) {
  std::string file = Support::ReadFile(VEXTORIN_LIBRARY_FILE);
  for (const std::string name : {"BCSetECI", "BCGetObjectErrorTextA", "BCGetReasonA"}) {
    const std::size_t place = file.find('\0' + name + '\0');
    ASSERT_NE(place, std::string::npos);
    file.replace(place + 1, 2, "xx");
  }
  const Support::TempFolder folder;
  folder.write("libvextorin9.so.0", file);
  const struct {
    const char* settings;
    const char* message;
  } kRows[] = {{"barcode=58 data=1", ""},
               {"barcode=58 data=1 eci=26", "Couldn't set ECI number to 26."},
               {"barcode=13 data=1x", "Invalid data for this barcode type"}};
  for (const auto& row : kRows) {
    Support::Program program = Support::StandAlone(row.settings);
    program.environment = {{"LD_LIBRARY_PATH", folder.path()}};
    const Support::Program::Result result = program.run();
    SCOPED_TRACE(result.errors);
    EXPECT_NE(result.errors.find(row.message), std::string::npos);
    EXPECT_EQ(result.output.starts_with("%!PS"), *row.message == '\0');
  }
}

TEST(MissingLibrary, IsAnErrorOfTheBarcodesThatNeedIt) {
  const Support::TempFolder folder;  // where the loader looks first, and finds what is no library
  std::string file = Support::ReadFile(VEXTORIN_LIBRARY_FILE);
  for (const char* name : {"libzint.so.", "libz.so."}) {
    const std::string found = file.substr(file.find(name));
    folder.write(found.substr(0, found.find('"')), "");
  }
  const struct {
    const char* settings;
    bool needsIt;
  } kRows[] = {{"barcode=20 data=1", false},
               {"barcode=40 data=12345", true},
               {"barcode=20 data=1 compress=ZLIB", true}};
  for (const auto& row : kRows) {
    Support::Program program = Support::StandAlone(row.settings);
    program.environment = {{"LD_LIBRARY_PATH", folder.path()}};
    const Support::Program::Result result = program.run();
    SCOPED_TRACE(result.errors);
    EXPECT_EQ(result.errors.find("0x8007007e") != std::string::npos, row.needsIt);
    EXPECT_EQ(result.output.starts_with("%!PS"), !row.needsIt);
  }
}

std::string TextOf(BCResult code) {
  char buffer[71] = {};
  BCGetErrorTextA(code, buffer, 70);
  return buffer;
}

std::string ObjectTextOf(BCBarcode* barcode, BCResult code) {
  char buffer[71] = {};
  BCGetObjectErrorTextA(barcode, code, buffer, 70);
  return buffer;
}

TEST_F(CInterface, ErrorTextsEndInABlankWhereThereIsMoreToSay) {
  const struct {
    int type;
    std::string data;
    BCResult code;
    bool more;
  } kRows[] = {
      {13, "40063x133393", BC_E_INVALIDDATA, true},           // the x
      {13, "4006", BC_E_INVALIDDATA, false},                  // nothing to point at
      {13, "40063813339312", BC_E_DATATOOLONG, true},         // needs 12
      {20, std::string(1000, 'x'), BC_E_DATATOOLONG, false},  // no number to tell
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.data);
    EXPECT_EQ(create(row.type, row.data), row.code);
    const std::string text = TextOf(row.code);
    EXPECT_EQ(ObjectTextOf(barcode, row.code), text + (row.more ? " " : ""));
    EXPECT_EQ(ObjectTextOf(nullptr, row.code), text);
  }
  char few[] = "######";
  BCGetErrorTextA(BC_E_OUTOFMEMORY, few, 3);
  EXPECT_EQ(std::string(few, 7), std::string("Out\0##", 7));
}

TEST_F(CInterface, SettersRefuseWhatIsOutOfTheirRange) {
  const double kNan = std::numeric_limits<double>::quiet_NaN();
  const BCMargins fine = {1, 2, 3, 4}, nan = {1, 2, kNan, 4};
  const std::string kLongest(131072, 'x'), kLonger = kLongest + 'x';
  const char* const format = &kLongest[131072 - 16384];
  const char* const font = &kLongest[131072 - 1024];
  EXPECT_EQ(BCSetTextA(barcode, kLongest.data(), 131072), BC_OK);
  EXPECT_EQ(BCSetTextA(barcode, kLonger.data(), 131073), BC_E_DATATOOLONG);
  const struct {
    const char* name;
    BCResult good, bad;
  } kRows[] = {
      {"longest format", BCSetFormatA(barcode, format), BCSetFormatA(barcode, format - 1)},
      {"longest text", BCSetFontNameA(barcode, font), BCSetFontNameA(barcode, font - 1)},
      {"text", BCSetTextA(barcode, "a\0b", 3), BCSetTextA(barcode, "a", -1)},
      {"type", BCSetBCType(barcode, 13), BCSetBCType(barcode, 9999)},
      {"number", BCSetModWidthA(barcode, "330.500000"), BCSetModWidthA(barcode, "330,5")},
      {"finite", BCSetModWidthA(barcode, ""), BCSetModWidthA(barcode, "nan")},
      {"unit", BCSetBarWidthReduction(barcode, -20, 6), BCSetBarWidthReduction(barcode, 20, 5)},
      {"ratio", BCSetRatioA(barcode, "1:2:1:3"), BCSetRatioA(barcode, "1:0:1:3")},
      {"null text", BCSetFormatA(barcode, "A##B&"), BCSetFormatA(barcode, nullptr)},
      {"dpi", BCSetDPI(barcode, 203.2, 600), BCSetDPI(barcode, 300, 0)},
      {"margins", BCSetQuietZone(barcode, &fine, 0), BCSetQuietZone(barcode, &nan, 2)},
      {"null margins", BCSetQuietZone(barcode, &fine, 2), BCSetQuietZone(barcode, nullptr, 2)},
      {"colour", BCSetBarcodeColorRGB(barcode, 0, .5, 1), BCSetBarcodeColorRGB(barcode, 0, 0, 1.1)},
      {"gap in a range", BCSet_PDF417_Rows(barcode, 90), BCSet_PDF417_Rows(barcode, 2)},
      {"index and sum", BCSet_Maxi_Append(barcode, 8, 8), BCSet_Maxi_Append(barcode, 2, 3)},
      {"parity", BCSet_QR_Append(barcode, 16, 1, 255), BCSet_QR_Append(barcode, 16, 1, 256)},
      {"letters", BCSet_Aztec_AppendDataA(barcode, 'Z', 'A', ""),
       BCSet_Aztec_AppendDataA(barcode, 'Z', 'a', "")},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.good, BC_OK) << row.name;
    EXPECT_EQ(row.bad, BC_E_INVALIDARG) << row.name;
  }
}

TEST_F(CInterface, AChangeOfTheDataTakesCreateBackOneOfTheLayoutDoesNot) {
  EXPECT_EQ(query(), BC_E_INVALIDARG);
  EXPECT_EQ(BCGetCountRows(barcode), 0);
  ASSERT_EQ(create(20, "1234"), BC_OK);
  EXPECT_EQ(BCGetCountRows(barcode), 1);
  EXPECT_EQ(BCSetRotation(barcode, 1), BC_OK);
  EXPECT_EQ(BCSetModWidthA(barcode, "500"), BC_OK);
  EXPECT_EQ(BCSetModWidthA(barcode, "x"), BC_E_INVALIDARG) << "changes nothing";
  EXPECT_EQ(BCSetPrintText(barcode, 0, 0), BC_OK);
  EXPECT_EQ(query(), BC_OK);
  EXPECT_DOUBLE_EQ(height, 57 * .5) << "turned, with the new module width";
  EXPECT_EQ(BCSetTextA(barcode, "5678", 4), BC_OK);
  EXPECT_EQ(BCGetCountRows(barcode), 0);
  EXPECT_EQ(query(), BC_E_INVALIDARG);
  EXPECT_EQ(write(), BC_E_INVALIDARG);
  EXPECT_EQ(BCCreate(barcode), BC_OK);
  EXPECT_EQ(write(), BC_OK);
}

TEST_F(CInterface, NamesTheInvalidCharacterAndTheComponent) {
  EXPECT_EQ(create(13, "40063x133393"), BC_E_INVALIDDATA);
  EXPECT_EQ(BCGetInvalidDataPos(barcode), 5);
  EXPECT_EQ(create(13, "400638133393"), BC_OK);
  EXPECT_EQ(BCGetInvalidDataPos(barcode), -1);
  char digits[4] = "###";
  EXPECT_EQ(BCGetCheckDigitsA(barcode, digits, 3), 1);
  EXPECT_STREQ(digits, "1");
  EXPECT_EQ(BCGetCheckDigitsA(barcode, nullptr, 0), 1);
  ASSERT_EQ(BCSet2DCompositeComponent(barcode, 1), BC_OK);
  EXPECT_EQ(create(8, "CODE"), BC_E_NOTSUPPORTED);
  EXPECT_EQ(BCGet_CompSym_ErrorInCC(barcode), 1);
  ASSERT_EQ(BCSet2DCompositeComponent(barcode, 0), BC_OK);
  EXPECT_EQ(create(8, "code"), BC_E_INVALIDDATA);
  EXPECT_EQ(BCGet_CompSym_ErrorInCC(barcode), 0);
  ASSERT_EQ(BCSetRatioA(barcode, "1:2:1"), BC_OK);
  EXPECT_EQ(create(8, "CODE"), BC_E_INVALIDARG) << "a ratio of too few numbers";
}

TEST_F(CInterface, SetsTheRowHeightOfPdf417) {
  ASSERT_EQ(BCSetModWidthA(barcode, "250"), BC_OK);
  for (const double rowHeight : {3 * .25, 2.}) {
    ASSERT_EQ(create(55, "Hello PDF417"), BC_OK);
    ASSERT_EQ(query(), BC_OK);
    EXPECT_DOUBLE_EQ(height, BCGetCountRows(barcode) * rowHeight);
    ASSERT_EQ(BCSet_PDF417_RowHeight(barcode, 2000), BC_OK);
  }
}

TEST_F(CInterface, MeasuresASymbolThatFillsTheBoxAsTheBoxInEachUnit) {
  ASSERT_EQ(BCSetDPI(barcode, 300, 600), BC_OK);
  const double kWidths[] = {50800, 600, 50.8, 2000, 2}, kHeights[] = {25400, 600, 25.4, 1000, 1};
  for (std::size_t length = 1; length <= 60; ++length) {
    ASSERT_EQ(create(55, std::string(length, 'x')), BC_OK);
    for (int unit = 0; unit <= 4; ++unit) {
      SCOPED_TRACE(testing::Message() << length << " characters, unit " << unit);
      ASSERT_EQ(query(unit), BC_OK);
      EXPECT_EQ(width, kWidths[unit]);
      EXPECT_EQ(height, kHeights[unit]);
    }
  }
  EXPECT_EQ(query(-1), BC_E_INVALIDARG);
  EXPECT_EQ(query(5), BC_E_INVALIDARG);
}

TEST_F(CInterface, SaysHowMuchRoomTheOutputNeeds) {
  ASSERT_EQ(create(20, "1234"), BC_OK);
  ASSERT_EQ(write(), BC_OK);
  const std::string whole = output;
  EXPECT_EQ(needed, whole.size());
  const auto size = static_cast<uint32_t>(whole.size());
  for (const uint32_t capacity : {10u, size - 1}) {
    EXPECT_EQ(write(capacity), BC_E_BUFFERTOOSMALL);
    EXPECT_EQ(needed, whole.size());
  }
  EXPECT_EQ(write(size), BC_OK);
  EXPECT_EQ(output, whole);
  // What was asked for in vain is not what is asked for after a change.
  EXPECT_EQ(write(10), BC_E_BUFFERTOOSMALL);
  ASSERT_EQ(BCSetRotation(barcode, 1), BC_OK);
  EXPECT_EQ(write(), BC_OK);
  EXPECT_NE(output, whole);
  EXPECT_EQ(write(10), BC_E_BUFFERTOOSMALL);
  ASSERT_EQ(create(20, "5678"), BC_OK);
  ASSERT_EQ(BCSetRotation(barcode, 0), BC_OK);
  EXPECT_EQ(write(), BC_OK);
  EXPECT_NE(output, whole);
}

}  // namespace
