// One table of what each setting asks of the barcode library and what the user is told when the
// library refuses it. A recording library has seen the calls.
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Support;

// What happens when a call fails.
enum Failure {
  kEnds,      // the sentence is told, there is no barcode
  kToldOnly,  // the sentence is told, the rest of the group is left out
  kIgnored,   // nothing
};

// Calls are written without "BCSet" in front and the barcode among the arguments: "BkMode 1" is
// BCSetBkMode(b1, 1).
struct Row {
  const char* settings;  // none: the call is always made
  std::string calls;
  std::string sentence{};   // without its usual beginning and end; none: it fails in silence
  std::string otherwise{};  // the arguments without the settings; none: no call
};

struct Group {
  Failure failure;
  std::vector<std::string> barcodes;  // settings that make the group's calls
  std::vector<Row> rows;

  bool isForAll() const { return barcodes[0].empty(); }
};

const char* const kNotCreated = "Couldn't create barcode. Please check barcode settings.";

// In the order of the calls.
const Group kGroups[] = {
    {kEnds,
     {""},
     {{"compress=gzip", "Compression 2", "compression algorithm 2"},
      {"checkdigit=3", "CDMethod 3", "checkdigit method to 3", "1"},
      {"autocorrect=on", "AutoCorrect 1", "autocorrection"},
      {"translation=off", "TranslateEsc 0", "translation of escape sequences", "1"},
      {"eci=26", "ECI 26", "ECI number to 26"},
      {"bearerwidth=0.5", "BearerBarWidth 500", "bearer bar width"},
      {"bearertype=top", "BearerBarType 3", "bearer bar type"},
      {"notchheight=1.25", "NotchHeight 1250", "notch height"},
      {"modulewidth=0.3385", "ModWidthA \"338.5\"", "module width"},
      {"reduction=10 reductionunit=mm", "BarWidthReduction 10, 2", "bar width reduction"},
      {"printratio=1:3", "RatioA \"1:3\"", "print ratio"},
      {"formatstring=A##", "FormatA \"A##\"", "format string"},
      {"dpi=300", "DPI 300, 300", "resolution", "72, 72"},
      {"optimalwidth", "OptResolution 1", "optimal barcode width"},
      {"quietzoneh=2 quietzonev=1.5 quietzoneunit=mm", "QuietZone [2 1.5 2 1.5], 2", "quiet zone"},
      {"mustfit=on", "MustFit 1", "'must fit' flag", "0"},
      {"decoder=vextorin", "Decoder 3", "decoder", "1"},
      {"sizemode=minimal", "SizeMode 2", "size mode"},
      {"text=above", "PrintText 1, 1", "text position"},
      {"align=center", "TextAlignment 3", "horizontal text alignment"},
      {"fontsize=12", "FontHeight 12", "font size"},
      {"font=\"Times\"", "FontNameA \"\\x22Times\\x22\"", "font name"},
      {"textdist=0.75", "TextDist 750", "text distance"}}},
    {kIgnored,
     {""},
     {{"", "ColorMode 0"},
      {"", "BarcodeColorRGB 0, 0, 0"},
      {"", "FontColorRGB 0, 0, 0"},
      {"", "BackgroundColorRGB 1, 1, 1"},
      {"bkmode=transparent", "BkMode 1", "", "2"},
      {"pclmode=pcl5nohpgl", "PCLMode 1", "", "0"}}},
    {kToldOnly,
     {"barcode=55", "barcode=56", "barcode=84", "barcode=106", "barcode=107", "barcode=108",
      "barcode=109"},
     {{"PDFrows=10", "_PDF417_Rows 10", "number of rows for PDF417"},
      {"PDFcols=4", "_PDF417_Columns 4", "number of columns for PDF417"},
      {"PDFrowheight=0.762", "_PDF417_RowHeight 762", "row height for PDF417"},
      {"PDFecl=3", "_PDF417_ECLevel 3", "error correction level for PDF417"},
      {"PDFmode=1", "_PDF417_EncodingMode 1", "mode for PDF417", "0"},
      {"PDFratio=3:1", "_PDF417_RowColRatioA \"3:1\"", "row-column-ratio for PDF417"},
      {"MPDFversion=7", "_MPDF417_Version 7", "version for Micro PDF417", "0"},
      {"MPDFmode=2", "_MPDF417_Mode 2", "mode for Micro PDF417", "0"},
      {"PDFindex=1", "_PDF417_SegIndex 1", "segment index for PDF417"},
      {"PDFcount=5", "_PDF417_SegCount 5", "segment count for PDF417"},
      {"PDFtime=77", "_PDF417_TimeStamp 77", "timestamp for PDF417"},
      {"PDFsize=900", "_PDF417_FileSize 900", "filesize for PDF417"},
      {"PDFchecksum=12345", "_PDF417_CheckSum 12345", "checksum for PDF417"},
      {"PDFlast", "_PDF417_SegLast 1", "last segment for PDF417"},
      {"PDFid=017", "_PDF417_FileIDA \"017\"", "file id for PDF417"},
      {"PDFfile=a.txt", "_PDF417_FileNameA \"a.txt\"", "filename for PDF417"},
      {"PDFsender=me", "_PDF417_SenderA \"me\"", "sender for PDF417"},
      {"PDFaddr=you", "_PDF417_AddresseeA \"you\"", "addressee for PDF417"}}},
    {kToldOnly,
     {"barcode=57"},
     {{"MCmode=2", "_Maxi_Mode 2", "mode for MaxiCode"},
      {"MCundercut=60", "_Maxi_UnderCut 60", "undercut for MaxiCode"},
      {"MCsum=3 MCindex=2", "_Maxi_Append 3, 2", "structured append options for MaxiCode"},
      {"MCservice=001 MCcountry=840 MCpostal=068107317",
       "_Maxi_SCMA \"001\", \"840\", \"068107317\"",
       "structured carrier message options for MaxiCode"},
      {"MCpre=pre", "_Maxi_UsePreambleA 1, \"pre\"", "preamble for MaxiCode"}}},
    {kToldOnly,
     {"barcode=58", "barcode=104", "barcode=105", "barcode=143", "barcode=145"},
     {{"QRversion=7", "_QR_Version 7", "version for QRCode", "0"},
      {"QRformat=2", "_QR_Format 2", "format for QRCode", "0"},
      {"QRind=37", "_QR_FmtAppIndicatorA \"37\"", "format application indicator for QRCode"},
      {"QRecl=3", "_QR_ECLevel 3", "error correction level for QRCode", "1"},
      {"QRmask=5", "_QR_Mask 5", "mask pattern for QRCode", "-1"},
      {"QRsum=4 QRindex=2 QRparity=255", "_QR_Append 4, 2, 255",
       "structured append options for QRCode"}}},
    {kToldOnly,
     {"barcode=71", "barcode=102", "barcode=103"},
     {{"DMsize=5", "_DM_Size 5", "size for DATAMATRIX", "0"},
      {"DMformat=1", "_DM_Format 1", "format for DATAMATRIX", "0"},
      {"DMbinary", "_DM_EnforceBinaryEncoding 1", "'enforce binary mode' for DATAMATRIX", "0"},
      {"DMrect", "_DM_Rectangular 1", "'show as rectangle' for DATAMATRIX", "0"},
      {"DMfile=9", "_DM_Append -1, -1, 9", "structured append options for DATAMATRIX"}}},
    {kToldOnly,
     {"barcode=74", "barcode=110", "barcode=111"},
     {{"CBrows=5", "_CBF_Rows 5", "number of rows for Codablock-F"},
      {"CBcols=10", "_CBF_Columns 10", "number of columns for Codablock-F"},
      {"CBrowheight=2.5", "_CBF_RowHeight 2500", "row height for Codablock-F"},
      {"CBsepheight=0.3", "_CBF_RowSeparatorHeight 300", "row-separator height for Codablock-F"},
      {"CBformat=1", "_CBF_Format 1", "format for Codablock-F", "0"}}},
    {kToldOnly,
     {"barcode=92"},
     {{"ACsize=8", "_Aztec_Size 8", "size for Aztec Code", "0"},
      {"ACbinary", "_Aztec_EnforceBinaryEncoding 1", "'enforce binary mode' for Aztec Code", "0"},
      {"ACrunes", "_Aztec_RuneMode 1", "'use rune mode' for Aztec Code", "0"},
      {"ACformat=2 ACspec=37", "_Aztec_FormatA 2, \"37\"", "format for Aztec Code", "0, \"\""},
      {"ACecl=50", "_Aztec_ErrorCorrection 50", "error correction level for Aztec Code", "-1"},
      {"ACappend ACsum=D ACindex=B ACmessage=id",
       "_Aztec_AppendActive 1; _Aztec_AppendDataA 'D', 'B', \"id\"",
       "structured append options for Aztec Code"}}},
    {kToldOnly,
     {"barcode=97"},
     {{"MQRversion=4", "_MQR_Version 4", "version for Micro QRCode", "0"},
      {"MQRecl=2", "_QR_ECLevel 2", "error correction level for Micro QRCode", "1"},
      {"MQRmask=3", "_MQR_Mask 3", "mask pattern for Micro QRCode", "-1"}}},
    {kEnds,
     {""},
     {{"RSSseg=4", "_RSS_SegmPerRow 4", "Could not set segments per row (RSS Expanded Stacked)."},
      {"barcode=59", "BCSetBCType 59", "barcode type to 59", "20"},
      {"CCtype=b", "2DCompositeComponent 3", "composite component type", "0"}}},
    {kToldOnly,
     {"multiple=on"},
     {{"", "_MultiBC_Enabled 1", "Couldn't enable multiple barcodes."},
      {"rows=2", "_MultiBC_Rows 2", "rows of multiple barcodes"},
      {"columns=3", "_MultiBC_Columns 3", "columns of multiple barcodes"},
      {"hdist=1.5", "_MultiBC_HDist 1500", "horizontal distance of multiple barcodes"},
      {"vdist=2", "_MultiBC_VDist 2000", "vertical distance of multiple barcodes"},
      {"datalimit=100", "_MultiBC_DataLimit 100", "data limit of multiple barcodes"},
      {"dynamicsize=vertical", "_MultiBC_DynamicBoundingRect 2",
       "dynamic bounding rectangle of multiple barcodes", "0"},
      {"structapp=vextorin", "_MultiBC_StructApp 2", "structured append mode of multiple barcodes",
       "0"}}},
    {kEnds,
     {""},
     {{"", "TextA \"Test123\", 7", "barcode data to Test123"},
      {"", "BCCreate", kNotCreated},
      {"", "BCGetBarcodeSize [0 0 50000 30000], null, 2"},
      {"rot=180", "Rotation 2", "barcode rotation", "0"},
      {"", "BCPostscriptToMemoryExt 65536, [0 20000 40000 0], 1", kNotCreated}}},
};

// Two lines on standard error: the program's sentence and the library's reason.
std::string Report(const std::string& sentence) {
  if (sentence.empty()) return {};
  const bool whole = sentence.ends_with('.');
  return "ERROR: vextorin: Error: " + (whole ? sentence : "Couldn't set " + sentence + '.') +
         "\nERROR: Error code: 0x80070057 - Error Message: Invalid argument. Unsupported barcode "
         "or syntax error.\n";
}

std::string Call(const std::string& text) {
  const std::size_t blank = std::min(text.find(' '), text.size());
  return (text.starts_with("BC") ? "" : "BCSet") + text.substr(0, blank) + "(b1" +
         (blank < text.size() ? ", " + text.substr(blank + 1) : "") + ')';
}

// The calls of a row, with its settings or without.
Lines CallsOf(const Row& row, bool made) {
  if (!made && *row.settings) {
    if (row.otherwise.empty()) return {};
    return {Call(row.calls.substr(0, row.calls.find(' ') + 1) + row.otherwise)};
  }
  Lines calls = Split(row.calls, "; ");
  std::ranges::transform(calls, calls.begin(), Call);
  return calls;
}

const Group& kDrawn = *(std::end(kGroups) - 1);

struct Given {
  const Row* row = nullptr;  // whose settings are made
  std::size_t failing = 0;   // which of its calls fails, unless that goes unnoticed
  bool all = false;          // the settings of all rows are made
};

// The calls of a run up to the end of the group, or at least up to the barcode's data.
Lines Expected(const Group& group, const std::string& barcode, const Given& given) {
  Lines calls = {"BCAlloc()"};
  for (const Group& part : kGroups) {
    if (!part.isForAll() && &part != &group) continue;
    for (const Row& row : part.rows) {
      const bool last = &row == given.row && group.failure != kIgnored;
      Lines more = CallsOf(row, &row == given.row || (given.all && &part == &group));
      if (last) more.resize(given.failing + 1);
      calls = Join(calls, more);
      if (last && group.failure == kEnds) return Join(calls, {"BCFree(b1)"});
      if (last || (&part == &kDrawn && &group != &part)) break;
    }
  }
  if (barcode.starts_with("barcode="))
    std::ranges::replace(calls, "BCSetBCType(b1, 20)",
                         "BCSetBCType(b1, " + barcode.substr(8) + ')');
  return calls;
}

Program::Result RunFailing(const std::string& settings, const std::string& call) {
  const std::string function = call.substr(0, call.find('('));
  const Environment failing = {{"VX_STANDIN_FAIL", function + "=80070057"}};
  Program::Result result = Recorded(StandAlone("data=Test123 " + settings), failing).run();
  std::erase_if(result.calls, [](const std::string& each) {
    return each.starts_with("FileExists(") || each.find("InitLibrary") != each.npos;
  });
  return result;
}

// As many of the calls as are expected.
void ExpectCalls(Lines calls, const Lines& expected) {
  calls.resize(std::min(calls.size(), expected.size()));
  EXPECT_EQ(calls, expected);
}

TEST(EngineCalls, AreMadeInOneOrderWithAllSettingsOfAGroupAndWithNone) {
  for (const Group& group : kGroups) {
    std::string all;
    for (const Row& row : group.rows) all += std::string(" ") + row.settings;
    for (const std::string& barcode : group.barcodes) {
      SCOPED_TRACE(barcode + all);
      ExpectCalls(RunFailing(barcode, "").calls, Expected(group, barcode, {}));
      ExpectCalls(RunFailing(barcode + all, "").calls, Expected(group, barcode, {.all = true}));
    }
  }
}

TEST(EngineMessages, TellWhichSettingTheLibraryRefused) {
  for (const Group& group : kGroups) {
    const std::string& barcode = group.barcodes[0];
    for (const Row& row : group.rows) {
      const Lines calls = CallsOf(row, true);
      for (std::size_t failing = 0; failing < calls.size(); ++failing) {
        SCOPED_TRACE(calls[failing]);
        const Program::Result result = RunFailing(barcode + " " + row.settings, calls[failing]);
        EXPECT_EQ(result.errors, Report(row.sentence));
        EXPECT_EQ(result.output, group.failure == kEnds ? "" : kDrawing);
        EXPECT_EQ(result.status, 0);
        ExpectCalls(result.calls, Expected(group, barcode, {&row, failing}));
      }
    }
  }
}

}  // namespace
