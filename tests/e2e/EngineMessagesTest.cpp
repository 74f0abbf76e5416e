// What the user is told when the barcode library refuses something: two lines on standard error,
// the program's own sentence and the library's reason, and no barcode.
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Support::Environment;
using Support::Filter;
using Support::Join;
using Support::Lines;
using Support::Program;
using Support::StandAlone;

const std::string kInvalidArgument =
    "Error code: 0x80070057 - Error Message: Invalid argument. Unsupported barcode or syntax "
    "error.";

// The two lines of one failure.
Lines Report(const std::string& sentence, const std::string& reason = kInvalidArgument) {
  return {"ERROR: vextorin: Error: " + sentence, "ERROR: " + reason};
}

Program::Result RunFailing(const std::string& failures, const Lines& settings,
                           Environment environment = {}) {
  Program program = StandAlone(Join({"data=Test123"}, settings));
  program.standIn = true;
  environment.emplace_back("VX_STANDIN_FAIL", failures);
  program.environment = environment;
  return program.run();
}

struct Row {
  const char* call;  // the library function that fails
  Lines settings;
  const char* sentence;
};

// The setters whose failure ends the barcode.
const Row kFatal[] = {
    {"BCSetCompression", {"compress=zlib"}, "Couldn't set compression algorithm 3."},
    {"BCSetCDMethod", {"checkdigit=7"}, "Couldn't set checkdigit method to 7."},
    {"BCSetAutoCorrect", {"autocorrect=on"}, "Couldn't set autocorrection."},
    {"BCSetTranslateEsc", {}, "Couldn't set translation of escape sequences."},
    {"BCSetBearerBarWidth", {"guardline=1"}, "Couldn't set bearer bar width."},
    {"BCSetBearerBarWidth", {"bearerwidth=1"}, "Couldn't set bearer bar width."},
    {"BCSetBearerBarType", {"bearertype=top"}, "Couldn't set bearer bar type."},
    {"BCSetNotchHeight", {"notchheight=1"}, "Couldn't set notch height."},
    {"BCSetModWidthA", {"modulewidth=1"}, "Couldn't set module width."},
    {"BCSetBarWidthReduction", {"reduction=1"}, "Couldn't set bar width reduction."},
    {"BCSetRatioA", {"printratio=1:2"}, "Couldn't set print ratio."},
    {"BCSetFormatA", {"formatstring=##"}, "Couldn't set format string."},
    {"BCSetDPI", {}, "Couldn't set resolution."},
    {"BCSetOptResolution", {"optimalwidth"}, "Couldn't set optimal barcode width."},
    {"BCSetQuietZone", {"quietzoneh=1"}, "Couldn't set quiet zone."},
    {"BCSetMustFit", {}, "Couldn't set 'must fit' flag."},
    {"BCSetDecoder", {}, "Couldn't set decoder."},
    {"BCSetSizeMode", {"sizemode=module"}, "Couldn't set size mode."},
    {"BCSetPrintText", {"text=hide"}, "Couldn't set text position."},
    {"BCSetTextAlignment", {"align=left"}, "Couldn't set horizontal text alignment."},
    {"BCSetFontHeight", {"fontsize=9"}, "Couldn't set font size."},
    {"BCSetFontNameA", {"font=Times"}, "Couldn't set font name."},
    {"BCSetTextDist", {"textdist=1"}, "Couldn't set text distance."},
    {"BCSet_RSS_SegmPerRow",
     {"RSSseg=4"},
     "Could not set segments per row (RSS Expanded Stacked)."},
    {"BCSetBCType", {"barcode=59"}, "Couldn't set barcode type to 59."},
    {"BCSet2DCompositeComponent", {}, "Couldn't set composite component type."},
    {"BCSetTextA", {}, "Couldn't set barcode data to Test123."},
    {"BCCreate", {}, "Couldn't create barcode. Please check barcode settings."},
    {"BCSetRotation", {}, "Couldn't set barcode rotation."},
    {"BCPostscriptToMemoryExt", {}, "Couldn't create barcode. Please check barcode settings."},
    {"BCPCLToMemoryExt", {"format=pcl"}, "Couldn't create barcode. Please check barcode settings."},
    {"BCPDFToMemory", {"format=pdf"}, "Couldn't create barcode. Please check barcode settings."},
    {"BCPDFFragmentToMemory",
     {"format=pdffrag"},
     "Couldn't create barcode. Please check barcode settings."},
    {"BCBitmapToMemoryA",
     {"imageformat=PNG"},
     "Couldn't create barcode. Please check barcode settings."},
};

TEST(EngineMessages, AFailedCallEndsTheBarcodeWithItsSentence) {
  for (const Row& row : kFatal) {
    SCOPED_TRACE(row.call);
    const Program::Result result = RunFailing(std::string(row.call) + "=80070057", row.settings);
    EXPECT_EQ(Support::SplitLines(result.errors), Report(row.sentence));
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.status, 0);
    ASSERT_GE(result.calls.size(), 3u);
    EXPECT_EQ(result.calls.end()[-2], "BCFree(b1)");
    EXPECT_TRUE(result.calls.end()[-3].starts_with(row.call)) << result.calls.end()[-3];
  }
}

TEST(EngineMessages, OnlyMemoryExhaustionShowsInTheExitStatus) {
  for (const Row& row : kFatal) {
    SCOPED_TRACE(row.call);
    EXPECT_EQ(RunFailing(std::string(row.call) + "=8007000e", row.settings).status, 80);
  }
}

// The setters whose failure is told but costs nothing else.
const Row kReported[] = {
    {"BCSet_PDF417_Rows", {"barcode=55", "PDFrows=9"}, "Couldn't set number of rows for PDF417."},
    {"BCSet_PDF417_Columns",
     {"barcode=55", "PDFcols=9"},
     "Couldn't set number of columns for PDF417."},
    {"BCSet_PDF417_RowHeight",
     {"barcode=55", "PDFrowheight=1"},
     "Couldn't set row height for PDF417."},
    {"BCSet_PDF417_ECLevel",
     {"barcode=55", "PDFecl=1"},
     "Couldn't set error correction level for PDF417."},
    {"BCSet_PDF417_EncodingMode", {"barcode=55"}, "Couldn't set mode for PDF417."},
    {"BCSet_PDF417_RowColRatioA",
     {"barcode=55", "PDFratio=2:1"},
     "Couldn't set row-column-ratio for PDF417."},
    {"BCSet_MPDF417_Version", {"barcode=84"}, "Couldn't set version for Micro PDF417."},
    {"BCSet_PDF417_SegIndex",
     {"barcode=55", "PDFindex=1"},
     "Couldn't set segment index for PDF417."},
    {"BCSet_PDF417_CheckSum", {"barcode=55", "PDFchecksum=1"}, "Couldn't set checksum for PDF417."},
    {"BCSet_Maxi_Mode", {"barcode=57", "MCmode=4"}, "Couldn't set mode for MaxiCode."},
    {"BCSet_Maxi_UnderCut", {"barcode=57", "MCundercut=5"}, "Couldn't set undercut for MaxiCode."},
    {"BCSet_Maxi_Append",
     {"barcode=57", "MCsum=2"},
     "Couldn't set structured append options for MaxiCode."},
    {"BCSet_Maxi_SCMA",
     {"barcode=57", "MCservice=1", "MCcountry=2", "MCpostal=3"},
     "Couldn't set structured carrier message options for MaxiCode."},
    {"BCSet_Maxi_UsePreambleA", {"barcode=57", "MCpre=x"}, "Couldn't set preamble for MaxiCode."},
    {"BCSet_QR_Version", {"barcode=58"}, "Couldn't set version for QRCode."},
    {"BCSet_QR_Format", {"barcode=58"}, "Couldn't set format for QRCode."},
    {"BCSet_QR_FmtAppIndicatorA",
     {"barcode=58", "QRind=1"},
     "Couldn't set format application indicator for QRCode."},
    {"BCSet_QR_ECLevel", {"barcode=58"}, "Couldn't set error correction level for QRCode."},
    {"BCSet_QR_Mask", {"barcode=58"}, "Couldn't set mask pattern for QRCode."},
    {"BCSet_QR_Append",
     {"barcode=58", "QRsum=2"},
     "Couldn't set structured append options for QRCode."},
    {"BCSet_DM_Size", {"barcode=71"}, "Couldn't set size for DATAMATRIX."},
    {"BCSet_DM_Format", {"barcode=71"}, "Couldn't set format for DATAMATRIX."},
    {"BCSet_DM_EnforceBinaryEncoding",
     {"barcode=71"},
     "Couldn't set 'enforce binary mode' for DATAMATRIX."},
    {"BCSet_DM_Rectangular", {"barcode=71"}, "Couldn't set 'show as rectangle' for DATAMATRIX."},
    {"BCSet_DM_Append",
     {"barcode=71", "DMsum=2"},
     "Couldn't set structured append options for DATAMATRIX."},
    {"BCSet_CBF_Rows", {"barcode=74", "CBrows=5"}, "Couldn't set number of rows for Codablock-F."},
    {"BCSet_CBF_Columns",
     {"barcode=74", "CBcols=5"},
     "Couldn't set number of columns for Codablock-F."},
    {"BCSet_CBF_RowHeight",
     {"barcode=74", "CBrowheight=5"},
     "Couldn't set row height for Codablock-F."},
    {"BCSet_CBF_RowSeparatorHeight",
     {"barcode=74", "CBsepheight=5"},
     "Couldn't set row-separator height for Codablock-F."},
    {"BCSet_CBF_Format", {"barcode=74"}, "Couldn't set format for Codablock-F."},
    {"BCSet_Aztec_Size", {"barcode=92"}, "Couldn't set size for Aztec Code."},
    {"BCSet_Aztec_EnforceBinaryEncoding",
     {"barcode=92"},
     "Couldn't set 'enforce binary mode' for Aztec Code."},
    {"BCSet_Aztec_RuneMode", {"barcode=92"}, "Couldn't set 'use rune mode' for Aztec Code."},
    {"BCSet_Aztec_FormatA", {"barcode=92"}, "Couldn't set format for Aztec Code."},
    {"BCSet_Aztec_ErrorCorrection",
     {"barcode=92"},
     "Couldn't set error correction level for Aztec Code."},
    {"BCSet_Aztec_AppendDataA",
     {"barcode=92", "ACappend"},
     "Couldn't set structured append options for Aztec Code."},
    {"BCSet_MQR_Version", {"barcode=97"}, "Couldn't set version for Micro QRCode."},
    {"BCSet_QR_ECLevel", {"barcode=97"}, "Couldn't set error correction level for Micro QRCode."},
    {"BCSet_MQR_Mask", {"barcode=97"}, "Couldn't set mask pattern for Micro QRCode."},
    {"BCSet_MultiBC_Enabled", {"multiple=on"}, "Couldn't enable multiple barcodes."},
    {"BCSet_MultiBC_Rows", {"multiple=on", "rows=2"}, "Couldn't set rows of multiple barcodes."},
    {"BCSet_MultiBC_Columns",
     {"multiple=on", "columns=2"},
     "Couldn't set columns of multiple barcodes."},
    {"BCSet_MultiBC_HDist",
     {"multiple=on", "hdist=1"},
     "Couldn't set horizontal distance of multiple barcodes."},
    {"BCSet_MultiBC_VDist",
     {"multiple=on", "vdist=1"},
     "Couldn't set vertical distance of multiple barcodes."},
    {"BCSet_MultiBC_DataLimit",
     {"multiple=on", "datalimit=9"},
     "Couldn't set data limit of multiple barcodes."},
    {"BCSet_MultiBC_DynamicBoundingRect",
     {"multiple=on", "dynamicsize=vertical"},
     "Couldn't set dynamic bounding rectangle of multiple barcodes."},
    {"BCSet_MultiBC_StructApp",
     {"multiple=on", "structapp=standard"},
     "Couldn't set structured append mode of multiple barcodes."},
};

TEST(EngineMessages, AFailedSymbologySettingIsToldButTheBarcodeIsMade) {
  for (const Row& row : kReported) {
    SCOPED_TRACE(row.call);
    const Program::Result result = RunFailing(std::string(row.call) + "=80070057", row.settings);
    EXPECT_EQ(Support::SplitLines(result.errors), Report(row.sentence));
    EXPECT_EQ(result.output, "STAND-IN\n");
    EXPECT_EQ(result.status, 0);
  }
}

TEST(EngineMessages, TheFirstFailureEndsASymbologysOrGridsSettings) {
  const auto count = [](const Program::Result& result, std::string_view prefix) {
    return std::count_if(result.calls.begin(), result.calls.end(),
                         [&](const std::string& call) { return call.starts_with(prefix); });
  };
  EXPECT_EQ(count(RunFailing("BCSet_QR_Format=80070057", {"barcode=58"}), "BCSet_QR_"), 2);
  EXPECT_EQ(count(RunFailing("BCSet_MultiBC_Rows=80070057", {"multiple=on", "rows=2", "columns=2"}),
                  "BCSet_MultiBC_"),
            2);
}

TEST(EngineMessages, ColoursBackgroundAndPclModeFailInSilence) {
  for (const char* call : {"BCSetColorMode", "BCSetBarcodeColorRGB", "BCSetFontColorRGB",
                           "BCSetBackgroundColorRGB", "BCSetBkMode", "BCSetPCLMode"}) {
    SCOPED_TRACE(call);
    const Program::Result result = RunFailing(std::string(call) + "=80070057", {});
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, "STAND-IN\n");
  }
  const Program::Result guard = RunFailing("BCSetBearerBarType=80070057", {"guardline=1"});
  EXPECT_EQ(guard.errors, "");
  EXPECT_EQ(guard.output, "STAND-IN\n");
}

TEST(EngineMessages, AFailedSizeQueryEndsTheBarcodeWithoutASentence) {
  const Program::Result result = RunFailing("BCGetBarcodeSize=80070057", {});
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.calls.end()[-2], "BCFree(b1)");
}

TEST(EngineMessages, ABarcodeThatCannotBeAllocatedFailsAtTheNextCall) {
  const Program::Result result = RunFailing("BCAlloc=8007000e", {"trace=warning"});
  Lines expected = Report("Couldn't allocate memory for barcode generation.",
                          "Error code: 0x8007000e - Error Message: -");
  expected = Join(expected, Report("Couldn't set checkdigit method to 1.",
                                   "Error code: 0x80070057 - Error Message: Invalid argument. "
                                   "Unsupported barcode or syntax error."));
  Lines lines = Support::SplitLines(result.errors);
  ASSERT_GE(lines.size(), 4u);
  // Freeing the handle that never was fails as well; that is a warning.
  EXPECT_EQ(Lines(lines.begin(), lines.begin() + 4), expected);
  EXPECT_EQ(lines.at(4),
            "WARNING: vextorin: Warning: Couldn't free memory for barcode generation.");
  EXPECT_EQ(result.output, "");
}

TEST(EngineMessages, TheReasonNamesWhatTheLibraryKnows) {
  const struct {
    const char* name;
    const char* code;
    Environment answers;
    Lines settings;
    const char* reason;
  } rows[] = {
      {"a code without details", "80070032", {}, {}, "80070032 - Error Message: Library text ."},
      {"a printable character",
       "8007000d",
       {{"VX_STANDIN_INVALIDPOS", "4"}},
       {},
       "8007000d - Error Message: Library text '1' at position 5."},
      {"a tab",
       "8007000d",
       {{"VX_STANDIN_INVALIDPOS", "2"}},
       {"data=ab\tc"},
       "8007000d - Error Message: Library text (ASCII Code 0x9) at position 3."},
      {"a blank",
       "8007000d",
       {{"VX_STANDIN_INVALIDPOS", "1"}},
       {"data=a b"},
       "8007000d - Error Message: Library text (ASCII Code 0x20) at position 2."},
      {"a byte above 127",
       "8007000d",
       {{"VX_STANDIN_INVALIDPOS", "1"}},
       {"data=a\xe4"},
       "8007000d - Error Message: Library text (ASCII Code 0xe4) at position 2."},
      {"unknown position", "8007000d", {}, {}, "8007000d - Error Message: Library text ."},
      {"position behind the data",
       "8007000d",
       {{"VX_STANDIN_INVALIDPOS", "7"}},
       {},
       "8007000d - Error Message: Library text ."},
      {"too long",
       "80090004",
       {{"VX_STANDIN_MAXLEN", "13"}, {"VX_STANDIN_CHECKDIGITS", "2"}},
       {},
       "80090004 - Error Message: Library text (needs 11 characters)."},
      {"too long, check digits unknown",
       "80090004",
       {{"VX_STANDIN_MAXLEN", "13"}, {"VX_STANDIN_CHECKDIGITS", "-1"}},
       {},
       "80090004 - Error Message: Library text (needs 13 characters)."},
      {"too long without a limit", "80090004", {}, {}, "80090004 - Error Message: Library text ."},
      {"linear part of a composite",
       "80070032",
       {{"VX_STANDIN_COMPOSITE", "1"}},
       {},
       "80070032 - Error Message: Error in linear component - Library text ."},
      {"composite component",
       "8007000d",
       {{"VX_STANDIN_COMPOSITE", "1"}, {"VX_STANDIN_ERRORINCC", "1"}},
       {},
       "8007000d - Error Message: Error in 2D Composite Component - Library text ."},
      {"composite on a type without one",
       "80070032",
       {{"VX_STANDIN_COMPOSITE", "1"}, {"VX_STANDIN_ERRORINCC", "1"}},
       {},
       "80070032 - Error Message: Error in Composite Symbol - Composite Component not supported "
       "for the selected barcode type."},
      {"a text longer than the buffer",
       "80070032",
       {{"VX_STANDIN_ERRORTEXT", std::string(90, 'x')}},
       {},
       "80070032 - Error Message: "
       "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx."},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Program::Result result =
        RunFailing(std::string("BCCreate=") + row.code, row.settings, row.answers);
    EXPECT_EQ(Support::SplitLines(result.errors),
              Report("Couldn't create barcode. Please check barcode settings.",
                     std::string("Error code: 0x") + row.reason));
  }
}

TEST(EngineMessages, AnInvalidArgumentIsExplainedWithoutAskingTheLibrary) {
  for (const std::string& call : RunFailing("BCCreate=80070057", {}).calls) {
    EXPECT_FALSE(call.starts_with("BCGetErrorTextA")) << call;
  }
}

TEST(EngineMessages, AGridThatDoesNotFitSaysWhatItNeeds) {
  const struct {
    const char* name;
    Lines size;
    Lines errors;
  } rows[] = {
      {"too narrow",
       {"width=59", "height=10"},
       {"ERROR: vextorin: Error: Given width is too small. A width of at least 60 mm is "
        "required."}},
      {"too low",
       {"width=60", "height=10"},
       {"ERROR: vextorin: Error: Given height is too small. A height of at least 30.5 mm is "
        "required."}},
      {"large enough",
       {"width=60", "height=31"},
       Report("Couldn't create multiple barcodes. Please check barcode settings.")},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Program::Result result =
        RunFailing("BC_MultiBC_CalculateLayout=80070057", Join({"multiple=on"}, row.size),
                   {{"VX_STANDIN_LAYOUT", "60000x30500"}});
    EXPECT_EQ(Support::SplitLines(result.errors), row.errors);
    EXPECT_EQ(result.output, "");
  }
}

TEST(EngineMessages, AnOutputThatNeverFitsIsToldWithItsSizes) {
  Program program = StandAlone({"data=Test123", "memory=100"});
  program.standIn = true;
  program.environment = {{"VX_STANDIN_NEEDED", "200,300"}};
  const Program::Result result = program.run();
  EXPECT_EQ(Support::SplitLines(result.errors),
            (Lines{"ERROR: vextorin: Error: Couldn't create barcode. Size of memory for barcode "
                   "creation was to small.",
                   "ERROR: Size of memory: 200 - Required size: 300"}));
  EXPECT_EQ(result.output, "");
}

TEST(EngineMessages, SessionFailuresAreTold) {
  const Program::Result opened = RunFailing("BCInitLibraryA=8007000e", {});
  EXPECT_EQ(opened.errors,
            "ERROR: vextorin: Error: Couldn't initialize library. Error code: -2147024882\n");
  EXPECT_EQ(opened.status, 110);
  const Program::Result closed = RunFailing("BCDeInitLibrary=8007000e", {"trace=warning"});
  EXPECT_EQ(Support::SplitLines(closed.errors),
            (Lines{"WARNING: vextorin: Warning: Couldn't deinitalize library.",
                   "WARNING: Error code: 0x8007000e - Error Message: -"}));
  EXPECT_EQ(closed.output, "STAND-IN\n");
  EXPECT_EQ(closed.status, 0);
}

TEST(EngineMessages, ABarcodeThatCannotBeFreedIsAWarningOnly) {
  const Program::Result result = RunFailing("BCFree=80070057", {"trace=warning"});
  EXPECT_EQ(Support::SplitLines(result.errors),
            (Lines{"WARNING: vextorin: Warning: Couldn't free memory for barcode generation.",
                   "WARNING: " + kInvalidArgument}));
  EXPECT_EQ(result.output, "STAND-IN\n");
  const Program::Result asked = RunFailing("BCFree=8007000e", {"trace=warning"});
  EXPECT_EQ(Support::SplitLines(asked.errors),
            (Lines{"WARNING: vextorin: Warning: Couldn't free memory for barcode generation.",
                   "WARNING: Error code: 0x8007000e - Error Message: Library text ."}));
  EXPECT_EQ(asked.status, 0);
}

// In a job the failed sequence is named too, and its message is printed in the barcode's place.

const char* const kJob = "%!PS\n($_vxrs --data=(x) $_vxre) show\n";

Program FailingFilter(const Lines& settings) {
  Program program = Filter(settings);
  program.standIn = true;
  program.environment = {{"VX_STANDIN_FAIL", "BCCreate=80070057"}};
  return program;
}

TEST(EngineMessages, AFailedSequenceIsNamedAndItsMessagePrinted) {
  const Program::Result result = FailingFilter({}).run(kJob);
  Lines expected = Report("Couldn't create barcode. Please check barcode settings.");
  expected.push_back("ERROR: vextorin: Error: Barcode Sequence:  --data=(x) ");
  EXPECT_EQ(Support::SplitLines(result.errors), expected);
  EXPECT_EQ(result.output,
            "%!PS\n(vextorin: Error: Couldn't create barcode. Please check barcode settings.\\n" +
                kInvalidArgument + "\\n) show(" + std::string(24, ' ') + ") show\n");
  EXPECT_EQ(result.status, 0);
}

TEST(EngineMessages, IgnoredErrorsLeaveNoMessageInTheJob) {
  const Program::Result result = FailingFilter({"onerror=ignore"}).run(kJob);
  EXPECT_EQ(result.output, "%!PS\n(" + std::string(24, ' ') + ") show\n");
  EXPECT_EQ(result.errors.find("Couldn't"), std::string::npos) << result.errors;
}

TEST(EngineMessages, MissingDataIsToldEvenWhenErrorsAreIgnored) {
  const std::string job = "%!PS\n($_vxrs --barcode=20 $_vxre) show\n";
  const std::string missing = "ERROR: vextorin: Error: Barcode text is missing/empty.\n";
  Program program = Filter({"onerror=ignore"});
  program.standIn = true;
  EXPECT_TRUE(program.run(job).errors.starts_with(missing)) << program.run(job).errors;
  program.settings = {"filter", "onnodata=ignore"};
  const Program::Result silent = program.run(job);
  EXPECT_EQ(silent.errors.find(missing), std::string::npos) << silent.errors;
  EXPECT_EQ(silent.output, "%!PS\n(" + std::string(26, ' ') + ") show\n");
}

}  // namespace
