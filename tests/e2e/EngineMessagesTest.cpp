// What the user is told when the barcode library refuses something: two lines on standard error,
// the program's own sentence and the library's reason, and no barcode.
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Support;

const char* const kNotCreated = "Couldn't create barcode. Please check barcode settings.";
const std::string kInvalidArgument =
    "Error code: 0x80070057 - Error Message: Invalid argument. Unsupported barcode or syntax "
    "error.";
const std::string kNotFreed =
    "WARNING: vextorin: Warning: Couldn't free memory for barcode generation.\n";

// The two lines of one failure.
std::string Report(const std::string& sentence, const std::string& reason = kInvalidArgument) {
  return "ERROR: vextorin: Error: " + sentence + "\nERROR: " + reason + '\n';
}

Program::Result RunFailing(const std::string& failures, const std::string& settings = {},
                           Environment answers = {}) {
  answers.emplace_back("VX_STANDIN_FAIL", failures);
  return Recorded(StandAlone("data=Test123 " + settings), answers).run();
}

struct Row {
  std::string call;  // the library function that fails
  const char* settings;
  const char* sentence;
};

// The setters whose failure ends the barcode.
const Row kFatal[] = {
    {"BCSetCompression", "compress=zlib", "Couldn't set compression algorithm 3."},
    {"BCSetCDMethod", "checkdigit=7", "Couldn't set checkdigit method to 7."},
    {"BCSetAutoCorrect", "autocorrect=on", "Couldn't set autocorrection."},
    {"BCSetTranslateEsc", "", "Couldn't set translation of escape sequences."},
    {"BCSetBearerBarWidth", "guardline=1", "Couldn't set bearer bar width."},
    {"BCSetBearerBarWidth", "bearerwidth=1", "Couldn't set bearer bar width."},
    {"BCSetBearerBarType", "bearertype=top", "Couldn't set bearer bar type."},
    {"BCSetNotchHeight", "notchheight=1", "Couldn't set notch height."},
    {"BCSetModWidthA", "modulewidth=1", "Couldn't set module width."},
    {"BCSetBarWidthReduction", "reduction=1", "Couldn't set bar width reduction."},
    {"BCSetRatioA", "printratio=1:2", "Couldn't set print ratio."},
    {"BCSetFormatA", "formatstring=##", "Couldn't set format string."},
    {"BCSetDPI", "", "Couldn't set resolution."},
    {"BCSetOptResolution", "optimalwidth", "Couldn't set optimal barcode width."},
    {"BCSetQuietZone", "quietzoneh=1", "Couldn't set quiet zone."},
    {"BCSetMustFit", "", "Couldn't set 'must fit' flag."},
    {"BCSetDecoder", "", "Couldn't set decoder."},
    {"BCSetSizeMode", "sizemode=module", "Couldn't set size mode."},
    {"BCSetPrintText", "text=hide", "Couldn't set text position."},
    {"BCSetTextAlignment", "align=left", "Couldn't set horizontal text alignment."},
    {"BCSetFontHeight", "fontsize=9", "Couldn't set font size."},
    {"BCSetFontNameA", "font=Times", "Couldn't set font name."},
    {"BCSetTextDist", "textdist=1", "Couldn't set text distance."},
    {"BCSet_RSS_SegmPerRow", "RSSseg=4", "Could not set segments per row (RSS Expanded Stacked)."},
    {"BCSetBCType", "barcode=59", "Couldn't set barcode type to 59."},
    {"BCSet2DCompositeComponent", "", "Couldn't set composite component type."},
    {"BCSetTextA", "", "Couldn't set barcode data to Test123."},
    {"BCCreate", "", kNotCreated},
    {"BCSetRotation", "", "Couldn't set barcode rotation."},
    {"BCPostscriptToMemoryExt", "", kNotCreated},
    {"BCPCLToMemoryExt", "format=pcl", kNotCreated},
    {"BCPDFToMemory", "format=pdf", kNotCreated},
    {"BCPDFFragmentToMemory", "format=pdffrag", kNotCreated},
    {"BCBitmapToMemoryA", "imageformat=PNG", kNotCreated},
};

TEST(EngineMessages, AFailedCallEndsTheBarcodeWithItsSentence) {
  for (const Row& row : kFatal) {
    SCOPED_TRACE(row.call);
    const Program::Result result = RunFailing(row.call + "=80070057", row.settings);
    EXPECT_EQ(result.errors, Report(row.sentence));
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.status, 0);
    ASSERT_GE(result.calls.size(), 3u);
    EXPECT_EQ(result.calls.end()[-2], "BCFree(b1)");
    EXPECT_TRUE(result.calls.end()[-3].starts_with(row.call)) << result.calls.end()[-3];
    // Only exhausted memory shows in the exit status.
    EXPECT_EQ(RunFailing(row.call + "=8007000e", row.settings).status, 80);
  }
}

// The setters whose failure is told but costs nothing else, and what couldn't be done then.
const Row kReported[] = {
    {"BCSet_PDF417_Rows", "barcode=55 PDFrows=9", "set number of rows for PDF417"},
    {"BCSet_PDF417_Columns", "barcode=55 PDFcols=9", "set number of columns for PDF417"},
    {"BCSet_PDF417_RowHeight", "barcode=55 PDFrowheight=1", "set row height for PDF417"},
    {"BCSet_PDF417_ECLevel", "barcode=55 PDFecl=1", "set error correction level for PDF417"},
    {"BCSet_PDF417_EncodingMode", "barcode=55", "set mode for PDF417"},
    {"BCSet_PDF417_RowColRatioA", "barcode=55 PDFratio=2:1", "set row-column-ratio for PDF417"},
    {"BCSet_MPDF417_Version", "barcode=84", "set version for Micro PDF417"},
    {"BCSet_PDF417_SegIndex", "barcode=55 PDFindex=1", "set segment index for PDF417"},
    {"BCSet_PDF417_CheckSum", "barcode=55 PDFchecksum=1", "set checksum for PDF417"},
    {"BCSet_Maxi_Mode", "barcode=57 MCmode=4", "set mode for MaxiCode"},
    {"BCSet_Maxi_UnderCut", "barcode=57 MCundercut=5", "set undercut for MaxiCode"},
    {"BCSet_Maxi_Append", "barcode=57 MCsum=2", "set structured append options for MaxiCode"},
    {"BCSet_Maxi_SCMA", "barcode=57 MCservice=1 MCcountry=2 MCpostal=3",
     "set structured carrier message options for MaxiCode"},
    {"BCSet_Maxi_UsePreambleA", "barcode=57 MCpre=x", "set preamble for MaxiCode"},
    {"BCSet_QR_Version", "barcode=58", "set version for QRCode"},
    {"BCSet_QR_Format", "barcode=58", "set format for QRCode"},
    {"BCSet_QR_FmtAppIndicatorA", "barcode=58 QRind=1",
     "set format application indicator for QRCode"},
    {"BCSet_QR_ECLevel", "barcode=58", "set error correction level for QRCode"},
    {"BCSet_QR_Mask", "barcode=58", "set mask pattern for QRCode"},
    {"BCSet_QR_Append", "barcode=58 QRsum=2", "set structured append options for QRCode"},
    {"BCSet_DM_Size", "barcode=71", "set size for DATAMATRIX"},
    {"BCSet_DM_Format", "barcode=71", "set format for DATAMATRIX"},
    {"BCSet_DM_EnforceBinaryEncoding", "barcode=71", "set 'enforce binary mode' for DATAMATRIX"},
    {"BCSet_DM_Rectangular", "barcode=71", "set 'show as rectangle' for DATAMATRIX"},
    {"BCSet_DM_Append", "barcode=71 DMsum=2", "set structured append options for DATAMATRIX"},
    {"BCSet_CBF_Rows", "barcode=74 CBrows=5", "set number of rows for Codablock-F"},
    {"BCSet_CBF_Columns", "barcode=74 CBcols=5", "set number of columns for Codablock-F"},
    {"BCSet_CBF_RowHeight", "barcode=74 CBrowheight=5", "set row height for Codablock-F"},
    {"BCSet_CBF_RowSeparatorHeight", "barcode=74 CBsepheight=5",
     "set row-separator height for Codablock-F"},
    {"BCSet_CBF_Format", "barcode=74", "set format for Codablock-F"},
    {"BCSet_Aztec_Size", "barcode=92", "set size for Aztec Code"},
    {"BCSet_Aztec_EnforceBinaryEncoding", "barcode=92", "set 'enforce binary mode' for Aztec Code"},
    {"BCSet_Aztec_RuneMode", "barcode=92", "set 'use rune mode' for Aztec Code"},
    {"BCSet_Aztec_FormatA", "barcode=92", "set format for Aztec Code"},
    {"BCSet_Aztec_ErrorCorrection", "barcode=92", "set error correction level for Aztec Code"},
    {"BCSet_Aztec_AppendDataA", "barcode=92 ACappend",
     "set structured append options for Aztec Code"},
    {"BCSet_MQR_Version", "barcode=97", "set version for Micro QRCode"},
    {"BCSet_QR_ECLevel", "barcode=97", "set error correction level for Micro QRCode"},
    {"BCSet_MQR_Mask", "barcode=97", "set mask pattern for Micro QRCode"},
    {"BCSet_MultiBC_Enabled", "multiple=on", "enable multiple barcodes"},
    {"BCSet_MultiBC_Rows", "multiple=on rows=2", "set rows of multiple barcodes"},
    {"BCSet_MultiBC_Columns", "multiple=on columns=2", "set columns of multiple barcodes"},
    {"BCSet_MultiBC_HDist", "multiple=on hdist=1", "set horizontal distance of multiple barcodes"},
    {"BCSet_MultiBC_VDist", "multiple=on vdist=1", "set vertical distance of multiple barcodes"},
    {"BCSet_MultiBC_DataLimit", "multiple=on datalimit=9", "set data limit of multiple barcodes"},
    {"BCSet_MultiBC_DynamicBoundingRect", "multiple=on dynamicsize=vertical",
     "set dynamic bounding rectangle of multiple barcodes"},
    {"BCSet_MultiBC_StructApp", "multiple=on structapp=standard",
     "set structured append mode of multiple barcodes"},
};

TEST(EngineMessages, AFailedSymbologySettingIsToldButTheBarcodeIsMade) {
  for (const Row& row : kReported) {
    SCOPED_TRACE(row.call);
    const Program::Result result = RunFailing(row.call + "=80070057", row.settings);
    EXPECT_EQ(result.errors, Report("Couldn't " + std::string(row.sentence) + "."));
    EXPECT_EQ(result.output, kDrawing);
    EXPECT_EQ(result.status, 0);
  }
  const auto count = [](const Program::Result& result, std::string_view prefix) {
    return std::ranges::count_if(result.calls,
                                 [&](const std::string& call) { return call.starts_with(prefix); });
  };
  // The first failure ends the group.
  EXPECT_EQ(count(RunFailing("BCSet_QR_Format=80070057", "barcode=58"), "BCSet_QR_"), 2);
  EXPECT_EQ(count(RunFailing("BCSet_MultiBC_Rows=80070057", "multiple=on rows=2 columns=2"),
                  "BCSet_MultiBC_"),
            2);
}

TEST(EngineMessages, ColoursBackgroundAndPclModeFailInSilence) {
  for (const std::string call :
       {"BCSetColorMode", "BCSetBarcodeColorRGB", "BCSetFontColorRGB", "BCSetBackgroundColorRGB",
        "BCSetBkMode", "BCSetPCLMode", "BCSetBearerBarType"}) {
    SCOPED_TRACE(call);
    const Program::Result result = RunFailing(call + "=80070057", "guardline=1");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, kDrawing);
  }
}

TEST(EngineMessages, FailuresAroundABarcodeAreTold) {
  const std::string asked = "WARNING: Error code: 0x8007000e - Error Message: ";
  const struct {
    const char* failure;
    std::string errors;
    std::string output;
    int status;
  } rows[] = {
      {"BCGetBarcodeSize=80070057", "", "", 0},
      // Freeing the handle that never was fails as well.
      {"BCAlloc=8007000e",
       Report("Couldn't allocate memory for barcode generation.",
              "Error code: 0x8007000e - Error Message: -") +
           Report("Couldn't set checkdigit method to 1.") + kNotFreed +
           "WARNING: " + kInvalidArgument + '\n',
       "", 0},
      {"BCFree=80070057", kNotFreed + "WARNING: " + kInvalidArgument + '\n', kDrawing, 0},
      {"BCFree=8007000e", kNotFreed + asked + "Library text .\n", kDrawing, 0},
      {"BCInitLibraryA=8007000e",
       "ERROR: vextorin: Error: Couldn't initialize library. Error code: -2147024882\n", "", 110},
      {"BCDeInitLibrary=8007000e",
       "WARNING: vextorin: Warning: Couldn't deinitalize library.\n" + asked + "-\n", kDrawing, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.failure);
    const Program::Result result = RunFailing(row.failure, "trace=warning");
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.output, row.output);
    EXPECT_EQ(result.status, row.status);
    EXPECT_EQ(FirstWith(result.calls, "BCFree(").empty(), row.status == 110);
  }
}

TEST(EngineMessages, TheReasonNamesWhatTheLibraryKnows) {
  const std::string plain = "Library text .";
  const struct {
    const char* code;
    const char* data;
    std::string answers;  // of the recording library
    std::string reason;
  } rows[] = {
      {"80070032", "Test123", "", plain},
      {"8007000d", "Test123", "INVALIDPOS=4", "Library text '1' at position 5."},
      {"8007000d", "ab\tc", "INVALIDPOS=2", "Library text (ASCII Code 0x9) at position 3."},
      {"8007000d", "a b", "INVALIDPOS=1", "Library text (ASCII Code 0x20) at position 2."},
      {"8007000d", "a\xe4", "INVALIDPOS=1", "Library text (ASCII Code 0xe4) at position 2."},
      {"8007000d", "Test123", "", plain},
      {"8007000d", "Test123", "INVALIDPOS=7", plain},  // behind the data
      {"80090004", "1", "MAXLEN=13 CHECKDIGITS=2", "Library text (needs 11 characters)."},
      {"80090004", "1", "MAXLEN=13 CHECKDIGITS=-1", "Library text (needs 13 characters)."},
      {"80090004", "1", "", plain},  // without a limit
      {"80070032", "1", "COMPOSITE=1", "Error in linear component - " + plain},
      {"8007000d", "1", "COMPOSITE=1 ERRORINCC=1", "Error in 2D Composite Component - " + plain},
      {"80070032", "1", "COMPOSITE=1 ERRORINCC=1",
       "Error in Composite Symbol - Composite Component not supported for the selected barcode "
       "type."},
      // no more than its buffer holds
      {"80070032", "1", "ERRORTEXT=" + std::string(90, 'x'), std::string(70, 'x') + '.'},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.reason);
    const std::string code = row.code;
    Environment answers = {{"VX_STANDIN_FAIL", "BCCreate=" + code}};
    for (const std::string& answer : Split(row.answers, " ")) {
      const std::size_t equals = answer.find('=');
      answers.emplace_back("VX_STANDIN_" + answer.substr(0, equals), answer.substr(equals + 1));
    }
    Program program = Recorded(StandAlone({}), answers);
    program.settings = {std::string("data=") + row.data};
    EXPECT_EQ(program.run().errors,
              Report(kNotCreated, "Error code: 0x" + code + " - Error Message: " + row.reason));
  }
  // The library isn't asked about an invalid argument.
  EXPECT_EQ(FirstWith(RunFailing("BCCreate=80070057").calls, "BCGetErrorTextA"), "");
}

TEST(EngineMessages, SizesThatDoNotDoAreTold) {
  const std::string error = "ERROR: vextorin: Error: ";
  const std::pair<const char*, std::string> rows[] = {
      {"multiple=on width=59 height=10",
       error + "Given width is too small. A width of at least 60 mm is required.\n"},
      {"multiple=on width=60 height=10",
       error + "Given height is too small. A height of at least 30.5 mm is required.\n"},
      {"multiple=on width=60 height=31",
       Report("Couldn't create multiple barcodes. Please check barcode settings.")},
      {"memory=100", error + "Couldn't create barcode. Size of memory for barcode creation was to "
                             "small.\nERROR: Size of memory: 200 - Required size: 300\n"},
  };
  for (const auto& [settings, errors] : rows) {
    SCOPED_TRACE(settings);
    const Program::Result result =
        RunFailing("BC_MultiBC_CalculateLayout=80070057", settings,
                   {{"VX_STANDIN_LAYOUT", "60000x30500"}, {"VX_STANDIN_NEEDED", "200,300"}});
    EXPECT_EQ(result.errors, errors);
    EXPECT_EQ(result.output, "");
  }
}

// In a job the failed sequence is named too, and its message is printed in the barcode's place.
TEST(EngineMessages, AFailedSequenceIsNamedAndItsMessagePrinted) {
  const char* const job = "%!PS\n($_vxrs --data=(x) $_vxre) show\n";
  const Environment failing = {{"VX_STANDIN_FAIL", "BCCreate=80070057"}};
  const std::string blanked = "(" + std::string(24, ' ') + ") show\n";
  const Program::Result told = Recorded(Filter(), failing).run(job);
  EXPECT_EQ(told.errors,
            Report(kNotCreated) + "ERROR: vextorin: Error: Barcode Sequence:  --data=(x) \n");
  EXPECT_EQ(told.output, std::string("%!PS\n(vextorin: Error: ") + kNotCreated + "\\n" +
                             kInvalidArgument + "\\n) show" + blanked);
  EXPECT_EQ(told.status, 0);
  const Program::Result ignored = Recorded(Filter("onerror=ignore"), failing).run(job);
  EXPECT_EQ(ignored.output, "%!PS\n" + blanked);
  EXPECT_EQ(ignored.errors.find("Couldn't"), std::string::npos) << ignored.errors;
}

TEST(EngineMessages, MissingDataIsToldEvenWhenErrorsAreIgnored) {
  const std::string job = "%!PS\n($_vxrs --barcode=20 $_vxre) show\n";
  const std::string missing = "ERROR: vextorin: Error: Barcode text is missing/empty.\n";
  const std::string told = Recorded(Filter("onerror=ignore")).run(job).errors;
  EXPECT_TRUE(told.starts_with(missing)) << told;
  const Program::Result silent = Recorded(Filter("onnodata=ignore")).run(job);
  EXPECT_EQ(silent.errors.find(missing), std::string::npos) << silent.errors;
  EXPECT_EQ(silent.output, "%!PS\n(" + std::string(26, ' ') + ") show\n");
}

}  // namespace
