// What the program asks of the barcode library: which calls, with which arguments, in which order.
//
// The default run's calls are spelt out once. Every other row says which settings it adds and how
// the calls then differ from the default ones. Calls are listed with semicolons between them.
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Support;

Lines Calls(std::string_view list) {
  return Split(list, "; ");
}

const Lines kDefaultCalls = Calls(
    "BCAlloc(); BCSetCDMethod(b1, 1); BCSetTranslateEsc(b1, 1); BCSetDPI(b1, 72, 72); "
    "BCSetMustFit(b1, 0); BCSetDecoder(b1, 1); BCSetColorMode(b1, 0); "
    "BCSetBarcodeColorRGB(b1, 0, 0, 0); BCSetFontColorRGB(b1, 0, 0, 0); "
    "BCSetBackgroundColorRGB(b1, 1, 1, 1); BCSetBkMode(b1, 2); BCSetPCLMode(b1, 0); "
    "BCSetBCType(b1, 20); BCSet2DCompositeComponent(b1, 0); BCSetTextA(b1, \"Test123\", 7); "
    "BCCreate(b1); BCGetBarcodeSize(b1, [0 0 50000 30000], null, 2); BCSetRotation(b1, 0); "
    "BCPostscriptToMemoryExt(b1, 65536, [0 20000 40000 0], 1); BCFree(b1)");

// The calls of a run, without the search for the library's files.
Lines CallsOf(const Program& program, std::string_view input = {}) {
  Lines calls = Recorded(program, program.environment).run(input).calls;
  std::erase_if(calls, [](const std::string& call) { return call.starts_with("FileExists("); });
  return calls;
}

// The calls of one barcode: what lies between opening and closing the session.
Lines BarcodeCalls(const Program& program, std::string_view input = {}) {
  const Lines calls = CallsOf(program, input);
  if (calls.size() < 3) return {"no calls"};
  return {calls.begin() + 1, calls.end() - 1};
}

Lines BarcodeCalls(const std::string& settings) {
  return BarcodeCalls(StandAlone("data=Test123 " + settings));
}

// Those behind a call, and without the call that frees the barcode.
Lines CallsBehind(const std::string& call, const std::string& settings) {
  const Lines calls = BarcodeCalls(settings);
  const auto place = std::find(calls.begin(), calls.end(), call);
  return calls.end() - place < 2 ? calls : Lines(place + 1, calls.end() - 1);
}

// The calls of `one` that `other` has not, in their order.
Lines Missing(const Lines& one, const Lines& other) {
  Lines missing;
  std::copy_if(one.begin(), one.end(), std::back_inserter(missing), [&](const std::string& call) {
    return std::find(other.begin(), other.end(), call) == other.end();
  });
  return missing;
}

TEST(EngineCalls, DefaultsMakeThisRunOfCallsInsideTheSession) {
  EXPECT_EQ(BarcodeCalls(""), kDefaultCalls);
  const char* const job = "%!PS\n($_vxrs --data=1 $_vxre) show\n";
  for (const Program& program : {StandAlone("data=1"), Filter()}) {
    const Lines calls = CallsOf(program, job);
    ASSERT_FALSE(calls.empty());
    EXPECT_TRUE(calls.front().starts_with("BCInitLibraryA(\"")) << calls.front();
    EXPECT_EQ(calls.back(), "BCDeInitLibrary()");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "BCDeInitLibrary()"), 1);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), calls.front()), 1);
  }
  Program failing = StandAlone("data=1 nostderr");
  failing.environment = {{"VX_STANDIN_FAIL", "BCCreate=8007000d"}};
  EXPECT_EQ(FirstWith(CallsOf(failing), "BCDeInit"), "BCDeInitLibrary()");
  failing.environment = {{"VX_STANDIN_FAIL", "BCInitLibraryA=8007000d"}};
  EXPECT_EQ(CallsOf(failing).size(), 1U);
}

TEST(EngineCalls, EveryGeneralSettingIsHandedOverInItsPlace) {
  Program program = StandAlone(
      "data=Test123 compress=gzip checkdigit=3 autocorrect=on translation=off bearerwidth=0.5 "
      "bearertype=top notchheight=1.25 modulewidth=0.254 reduction=10 reductionunit=mm "
      "printratio=1:3 formatstring=A## dpi=300 optimalwidth quietzoneh=2 quietzonev=1.5 "
      "quietzoneunit=mm mustfit=on decoder=vextorin sizemode=minimal text=above align=center "
      "fontsize=12 textdist=0.75 colormode=cmyk bkmode=transparent pclmode=pcl5nohpgl barcode=59 "
      "RSSseg=4 CCtype=b");
  program.settings.push_back("font=Times \"x\"");
  EXPECT_EQ(
      BarcodeCalls(program),
      Calls("BCAlloc(); BCSetCompression(b1, 2); BCSetCDMethod(b1, 3); BCSetAutoCorrect(b1, 1); "
            "BCSetTranslateEsc(b1, 0); BCSetBearerBarWidth(b1, 500); BCSetBearerBarType(b1, 3); "
            "BCSetNotchHeight(b1, 1250); BCSetModWidthA(b1, \"254\"); "
            "BCSetBarWidthReduction(b1, 10, 2); BCSetRatioA(b1, \"1:3\"); "
            "BCSetFormatA(b1, \"A##\"); BCSetDPI(b1, 300, 300); BCSetOptResolution(b1, 1); "
            "BCSetQuietZone(b1, [2 1.5 2 1.5], 2); BCSetMustFit(b1, 1); BCSetDecoder(b1, 3); "
            "BCSetSizeMode(b1, 2); BCSetPrintText(b1, 1, 1); BCSetTextAlignment(b1, 3); "
            "BCSetFontHeight(b1, 12); BCSetFontNameA(b1, \"Times \\x22x\\x22\"); "
            "BCSetTextDist(b1, 750); BCSetColorMode(b1, 2); "
            "BCSetBarcodeColorCMYK(b1, 0, 0, 0, 1); BCSetFontColorCMYK(b1, 0, 0, 0, 1); "
            "BCSetBackgroundColorCMYK(b1, 0, 0, 0, 0); BCSetBkMode(b1, 1); BCSetPCLMode(b1, 1); "
            "BCSet_RSS_SegmPerRow(b1, 4); BCSetBCType(b1, 59); "
            "BCSet2DCompositeComponent(b1, 3); BCSetTextA(b1, \"Test123\", 7); BCCreate(b1); "
            "BCGetBarcodeSize(b1, [0 0 1000 1000], null, 2); BCSetRotation(b1, 0); "
            "BCPostscriptToMemoryExt(b1, 65536, [0 20000 40000 0], 1); BCFree(b1)"));
}

TEST(EngineCalls, ASettingIsPassedOnlyWhenItIsSet) {
  const struct {
    const char* settings;
    const char* added;      // calls that the default run has not
    const char* removed{};  // calls of the default run that are not made
  } rows[] = {
      {"bearerwidth=0.5", "BCSetBearerBarWidth(b1, 500)"},
      {"bearerwidth=0.0005", "BCSetBearerBarWidth(b1, 0)"},  // cut off, not rounded
      {"bearertype=rectangle", "BCSetBearerBarType(b1, 2)"},
      {"guardline=1 bearerwidth=2", "BCSetBearerBarType(b1, 1); BCSetBearerBarWidth(b1, 1000)"},
      {"notchheight=0", ""},
      {"textdist=0", "BCSetTextDist(b1, 0)"},
      {"textdist=-0.6", ""},
      {"reduction=5", "BCSetBarWidthReduction(b1, 5, 0)"},
      {"dpi=0", "", "BCSetDPI(b1, 72, 72)"},
      {"quietzonev=3 quietzoneunit=mod", "BCSetQuietZone(b1, [0 3 0 3], 5)"},
      {"quietzoneunit=mm", ""},
      {"text=below", "BCSetPrintText(b1, 1, 0)"},
      {"text=hide", "BCSetPrintText(b1, 0, 0)"},
      {"sizemode=default", ""},
      {"sizemode=fit", "BCSetSizeMode(b1, 0)"},
      {"autocorrect=off", "BCSetAutoCorrect(b1, 0)"},
      {"compress=none", ""},
      {"decoder=any", "BCSetDecoder(b1, 0)", "BCSetDecoder(b1, 1)"},
      {"colormode=gray",
       "BCSetColorMode(b1, 1); BCSetBarcodeColorGray(b1, 0); BCSetFontColorGray(b1, 0); "
       "BCSetBackgroundColorGray(b1, 1)",
       "BCSetColorMode(b1, 0); BCSetBarcodeColorRGB(b1, 0, 0, 0); "
       "BCSetFontColorRGB(b1, 0, 0, 0); BCSetBackgroundColorRGB(b1, 1, 1, 1)"},
      {"CCtype=auto", "BCSet2DCompositeComponent(b1, 1)", "BCSet2DCompositeComponent(b1, 0)"},
      {"defaultset=1",
       "BCSetModWidthA(b1, \"254\"); BCSetPrintText(b1, 1, 0); BCSetFontHeight(b1, 7); "
       "BCGetBarcodeSize(b1, [0 0 1000 10200], null, 2)",
       "BCGetBarcodeSize(b1, [0 0 50000 30000], null, 2)"},
      {"dravlindefaults width=50",  // a width rules the module width
       "BCSetPrintText(b1, 1, 0); BCSetFontHeight(b1, 8); "
       "BCPostscriptToMemoryExt(b1, 65536, [0 10200 50000 0], 1)",
       "BCGetBarcodeSize(b1, [0 0 50000 30000], null, 2); "
       "BCPostscriptToMemoryExt(b1, 65536, [0 20000 40000 0], 1)"},
      {"defaultset=1 defaultset=0", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings);
    const Lines calls = BarcodeCalls(row.settings);
    EXPECT_EQ(Missing(calls, kDefaultCalls), Calls(row.added));
    EXPECT_EQ(Missing(kDefaultCalls, calls), Calls(row.removed ? row.removed : ""));
  }
}

TEST(EngineCalls, DataIsTrimmedAndStrippedOfStarsOnlyWhenAsked) {
  const auto text = [](const Program& program, std::string_view job = {}) {
    return FirstWith(CallsOf(program, job), "BCSetTextA(");
  };
  const char* const blanks = "$_vxrs --data=\"  \t123\t \" $_vxre";
  EXPECT_EQ(text(Filter(), blanks), "BCSetTextA(b1, \"  \\x09123\\x09 \", 8)");
  EXPECT_EQ(text(Filter("trimwhitespaces"), blanks), "BCSetTextA(b1, \"123\", 3)");
  EXPECT_EQ(text(StandAlone("data=*ABC* barcode=8 SAP")), "BCSetTextA(b1, \"ABC\", 3)");
  EXPECT_EQ(text(StandAlone("data=*ABC* barcode=8")), "BCSetTextA(b1, \"*ABC*\", 5)");
  EXPECT_EQ(text(StandAlone("data=*ABC* SAP")), "BCSetTextA(b1, \"*ABC*\", 5)");
  EXPECT_EQ(text(StandAlone("data=*ABC barcode=8 SAP")), "BCSetTextA(b1, \"*ABC\", 4)");
}

TEST(EngineCalls, TheSettingsOfASymbologyReachItsSetters) {
  const struct {
    const char* types;
    const char* settings;
    const char* calls;
  } rows[] = {
      {"55 56 84 106 107 108 109", "",
       "BCSet_PDF417_EncodingMode(b1, 0); BCSet_MPDF417_Version(b1, 0); BCSet_MPDF417_Mode(b1, 0)"},
      {"55", "PDFauto",
       "BCSet_PDF417_EncodingMode(b1, 0); BCSet_MPDF417_Version(b1, 0); BCSet_MPDF417_Mode(b1, 0)"},
      {"55",
       "PDFrows=10 PDFcols=4 PDFrowheight=0.762 PDFecl=3 PDFmode=1 PDFratio=3:1 MPDFversion=7 "
       "MPDFmode=2 PDFindex=1 PDFcount=5 PDFtime=77 PDFsize=900 PDFchecksum=12345 PDFlast "
       "PDFid=017 PDFfile=a.txt PDFsender=me PDFaddr=you",
       "BCSet_PDF417_Rows(b1, 10); BCSet_PDF417_Columns(b1, 4); "
       "BCSet_PDF417_RowHeight(b1, 762); BCSet_PDF417_ECLevel(b1, 3); "
       "BCSet_PDF417_EncodingMode(b1, 1); BCSet_PDF417_RowColRatioA(b1, \"3:1\"); "
       "BCSet_MPDF417_Version(b1, 7); BCSet_MPDF417_Mode(b1, 2); BCSet_PDF417_SegIndex(b1, 1); "
       "BCSet_PDF417_SegCount(b1, 5); BCSet_PDF417_TimeStamp(b1, 77); "
       "BCSet_PDF417_FileSize(b1, 900); BCSet_PDF417_CheckSum(b1, 12345); "
       "BCSet_PDF417_SegLast(b1, 1); BCSet_PDF417_FileIDA(b1, \"017\"); "
       "BCSet_PDF417_FileNameA(b1, \"a.txt\"); BCSet_PDF417_SenderA(b1, \"me\"); "
       "BCSet_PDF417_AddresseeA(b1, \"you\")"},
      {"58 104", "",
       "BCSet_QR_Version(b1, 0); BCSet_QR_Format(b1, 0); BCSet_QR_ECLevel(b1, 1); "
       "BCSet_QR_Mask(b1, -1)"},
      {"104", "QRversion=7 QRformat=2 QRind=37 QRecl=3 QRmask=5 QRsum=4 QRindex=2 QRparity=255",
       "BCSet_QR_Version(b1, 7); BCSet_QR_Format(b1, 2); BCSet_QR_FmtAppIndicatorA(b1, \"37\"); "
       "BCSet_QR_ECLevel(b1, 3); BCSet_QR_Mask(b1, 5); BCSet_QR_Append(b1, 4, 2, 255)"},
      {"97", "", "BCSet_MQR_Version(b1, 0); BCSet_QR_ECLevel(b1, 1); BCSet_MQR_Mask(b1, -1)"},
      {"97", "MQRversion=4 MQRecl=2 MQRmask=3",
       "BCSet_MQR_Version(b1, 4); BCSet_QR_ECLevel(b1, 2); BCSet_MQR_Mask(b1, 3)"},
      {"71 102", "",
       "BCSet_DM_Size(b1, 0); BCSet_DM_Format(b1, 0); BCSet_DM_EnforceBinaryEncoding(b1, 0); "
       "BCSet_DM_Rectangular(b1, 0)"},
      {"102", "DMsize=5 DMformat=1 DMbinary DMrect DMfile=9",
       "BCSet_DM_Size(b1, 5); BCSet_DM_Format(b1, 1); BCSet_DM_EnforceBinaryEncoding(b1, 1); "
       "BCSet_DM_Rectangular(b1, 1); BCSet_DM_Append(b1, -1, -1, 9)"},
      {"57 59 20", "", ""},
      {"92", "",
       "BCSet_Aztec_Size(b1, 0); BCSet_Aztec_EnforceBinaryEncoding(b1, 0); "
       "BCSet_Aztec_RuneMode(b1, 0); BCSet_Aztec_FormatA(b1, 0, \"\"); "
       "BCSet_Aztec_ErrorCorrection(b1, -1)"},
      {"92",
       "ACsize=8 ACbinary ACrunes ACformat=2 ACspec=37 ACecl=50 ACappend ACsum=D ACindex=B "
       "ACmessage=id",
       "BCSet_Aztec_Size(b1, 8); BCSet_Aztec_EnforceBinaryEncoding(b1, 1); "
       "BCSet_Aztec_RuneMode(b1, 1); BCSet_Aztec_FormatA(b1, 2, \"37\"); "
       "BCSet_Aztec_ErrorCorrection(b1, 50); BCSet_Aztec_AppendActive(b1, 1); "
       "BCSet_Aztec_AppendDataA(b1, 'D', 'B', \"id\")"},
      {"74 110", "", "BCSet_CBF_Format(b1, 0)"},
      {"110", "CBrows=5 CBcols=10 CBrowheight=2.5 CBsepheight=0.3 CBformat=1",
       "BCSet_CBF_Rows(b1, 5); BCSet_CBF_Columns(b1, 10); BCSet_CBF_RowHeight(b1, 2500); "
       "BCSet_CBF_RowSeparatorHeight(b1, 300); BCSet_CBF_Format(b1, 1)"},
      {"59", "QRversion=7 DMsize=5", ""},
      {"57",
       "MCmode=2 MCundercut=60 MCsum=3 MCindex=2 MCservice=001 MCcountry=840 MCpostal=068107317 "
       "MCpre=pre",
       "BCSet_Maxi_Mode(b1, 2); BCSet_Maxi_UnderCut(b1, 60); BCSet_Maxi_Append(b1, 3, 2); "
       "BCSet_Maxi_SCMA(b1, \"001\", \"840\", \"068107317\"); "
       "BCSet_Maxi_UsePreambleA(b1, 1, \"pre\")"},
  };
  for (const auto& row : rows) {
    for (const std::string& type : Split(row.types, " ")) {
      SCOPED_TRACE("type " + type + " " + row.settings);
      const Lines calls = BarcodeCalls("barcode=" + type + " " + row.settings);
      const auto first = std::find(calls.begin(), calls.end(), "BCSetPCLMode(b1, 0)");
      const auto last = std::find(calls.begin(), calls.end(), "BCSetBCType(b1, " + type + ")");
      ASSERT_LT(first, last);
      EXPECT_EQ(Lines(first + 1, last), Calls(row.calls));
    }
  }
}

TEST(EngineCalls, AGridIsLaidOutAndNeitherMeasuredNorTurned) {
  EXPECT_EQ(CallsBehind("BCSet2DCompositeComponent(b1, 0)",
                        "multiple=on rows=2 columns=3 hdist=1.5 vdist=2 datalimit=100 "
                        "dynamicsize=vertical structapp=vextorin width=50 height=40 rot=90"),
            Calls("BCSet_MultiBC_Enabled(b1, 1); BCSet_MultiBC_Rows(b1, 2); "
                  "BCSet_MultiBC_Columns(b1, 3); BCSet_MultiBC_HDist(b1, 1500); "
                  "BCSet_MultiBC_VDist(b1, 2000); BCSet_MultiBC_DataLimit(b1, 100); "
                  "BCSet_MultiBC_DynamicBoundingRect(b1, 2); BCSet_MultiBC_StructApp(b1, 2); "
                  "BCSetTextA(b1, \"Test123\", 7); "
                  "BC_MultiBC_CalculateLayout(b1, null, [0 0 50000 40000]); BCCreate(b1); "
                  // as wide as the grid needs, as high as was given
                  "BCPostscriptToMemoryExt(b1, 65536, [0 40000 60000 0], 1)"));
}

TEST(EngineCalls, SizesAreGivenOrAskedFor) {
  const auto ask = [](const std::string& box) {
    return "BCGetBarcodeSize(b1, " + box + ", null, 2); ";
  };
  const struct {
    const char* settings;
    std::string query;
    char rotation;
    std::string box;
  } rows[] = {
      {"width=30 height=10", "", '0', "[0 10000 30000 0]"},
      {"width=30.0001", ask("[0 0 30001 30000]"), '0', "[0 20000 30000 0]"},
      {"height=10", ask("[0 0 50000 10000]"), '0', "[0 10000 40000 0]"},
      {"modulewidth=0.3 width=30", ask("[0 0 30000 1000]"), '0', "[0 20000 40000 0]"},
      {"modulewidth=0.3 sizemode=fit", ask("[0 0 50000 30000]"), '0', "[0 20000 40000 0]"},
      {"optimalwidth width=30 height=10", ask("[0 0 30000 10000]"), '0', "[0 20000 40000 0]"},
      {"width=30 height=10 rot=90", "", '1', "[0 30000 10000 0]"},
      {"width=30 height=10 rot=180", "", '2', "[0 10000 30000 0]"},
      {"width=30 height=10 rot=270", "", '3', "[0 30000 10000 0]"},
      {"barcode=55 PDFrowheight=2 width=30", "BCGetCountRows(b1); ", '0', "[0 2000 30000 0]"},
      // places are rounded to thousandths
      {"xpos=1.2346 ypos=2.0004 width=30 height=10 globalxoffset=5 globalyoffset=10", "", '0',
       "[6235 22000 36235 12000]"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings);
    EXPECT_EQ(CallsBehind("BCCreate(b1)", row.settings),
              Calls(row.query + "BCSetRotation(b1, " + row.rotation +
                    "); BCPostscriptToMemoryExt(b1, 65536, " + row.box + ", 1)"));
  }
}

TEST(EngineCalls, EachFormatHasItsCallAndItsCoordinates) {
  const struct {
    const char* settings;
    const char* call;
  } rows[] = {
      {"", "BCPostscriptToMemoryExt(b1, 65536, [5000 27000 35000 17000], 1)"},
      {"format=ps nooverhead", "BCPostscriptToMemoryExt(b1, 65536, [5000 27000 35000 17000], 0)"},
      {"format=ps origin=top", "BCPostscriptToMemoryExt(b1, 65536, [5000 17000 35000 7000], 1)"},
      {"format=pdf", "BCPDFToMemory(b1, 65536, [5000 27000 35000 17000])"},
      {"format=pdf origin=top", "BCPDFToMemory(b1, 65536, [5000 17000 35000 7000])"},
      {"format=pdffrag origin=bottom",
       "BCPDFFragmentToMemory(b1, 65536, [5000 27000 35000 17000])"},
      {"format=pdffrag origin=top", "BCPDFFragmentToMemory(b1, 65536, [5000 17000 35000 7000])"},
      {"format=pcl", "BCPCLToMemoryExt(b1, 65536, [5000 17000 35000 27000], 1)"},
      {"stream=pcl pos=abs", "BCPCLToMemoryExt(b1, 65536, [5000 17000 35000 27000], 0)"},
      {"format=pcl origin=bottom", "BCPCLToMemoryExt(b1, 65536, [5000 7000 35000 17000], 1)"},
      {"imageformat=Gif", "BCBitmapToMemoryA(b1, \"Gif\", 65536, [5000 17000 35000 27000])"},
      {"format=image origin=bottom memory=1000",
       "BCBitmapToMemoryA(b1, \"BMP\", 1000, [5000 17000 35000 27000])"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings);
    const std::string place = "xpos=5 ypos=17 width=30 height=10 ";
    EXPECT_EQ(CallsBehind("BCCreate(b1)", place + row.settings).back(), row.call);
  }
}

TEST(EngineCalls, TheBufferGrowsOnceToTheSizeTheLibraryAsksFor) {
  const Program program = Recorded(StandAlone("data=1 memory=16384 width=40 height=20"),
                                   {{"VX_STANDIN_NEEDED", "20000,20000"}});
  const Program::Result result = program.run();
  EXPECT_EQ(result.output, kDrawing);
  ASSERT_GE(result.calls.size(), 4U);
  EXPECT_EQ(Lines(result.calls.end() - 4, result.calls.end()),
            Calls("BCPostscriptToMemoryExt(b1, 16384, [0 20000 40000 0], 1); "
                  "BCPostscriptToMemoryExt(b1, 20000, [0 20000 40000 0], 1); BCFree(b1); "
                  "BCDeInitLibrary()"));
}

TEST(EngineCalls, EverySequenceOfAJobIsABarcodeOfItsOwn) {
  const Lines calls = BarcodeCalls(Filter("width=30"),
                                   "%!PS\n($_vxrs --data=one --height=5 $_vxre) show\n"
                                   "($_vxrs --data=two --barcode=8 $_vxre) show\n");
  ASSERT_EQ(calls.size(), 39U);
  const auto second = std::find(calls.begin(), calls.end(), "BCFree(b1)") + 1;
  EXPECT_EQ(Missing({calls.begin(), second}, kDefaultCalls),
            Calls("BCSetTextA(b1, \"one\", 3); "
                  "BCPostscriptToMemoryExt(b1, 65536, [0 5000 30000 0], 1)"));
  EXPECT_EQ(FirstWith({second, calls.end()}, "BCSetBCType("), "BCSetBCType(b2, 8)");
  EXPECT_EQ(Lines(calls.end() - 6, calls.end()),
            Calls("BCSetTextA(b2, \"two\", 3); BCCreate(b2); "
                  "BCGetBarcodeSize(b2, [0 0 30000 30000], null, 2); BCSetRotation(b2, 0); "
                  "BCPostscriptToMemoryExt(b2, 65536, [0 20000 30000 0], 1); BCFree(b2)"));
}

}  // namespace
