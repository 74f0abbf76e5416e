// What the program asks of the barcode library beyond handing settings over, and what it makes of
// the answers: sizes and formats, failures and their reasons, sessions and jobs. Calls are listed
// with semicolons between them; a recording library has seen them.
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>

namespace {

using namespace Support;

const std::string kError = "ERROR: vextorin: Error: ";
const std::string kNotCreated = "Couldn't create barcode. Please check barcode settings.";
const std::string kReason = "Error code: 0x80070057 - Error Message: ";
const std::string kInvalidArgument =
    kReason + "Invalid argument. Unsupported barcode or syntax error.";
const std::string kNotFreed =
    "WARNING: vextorin: Warning: Couldn't free memory for barcode generation.\nWARNING: ";

// The two lines of one failure.
std::string Report(const std::string& sentence, const std::string& reason = kInvalidArgument) {
  return kError + sentence + "\nERROR: " + reason + '\n';
}

Program::Result RunAlone(const std::string& settings, const Environment& answers = {}) {
  return Recorded(StandAlone("data=Test123 " + settings), answers).run();
}

// The calls of a barcode from that call on, those that open, free and close left out.
Lines CallsFrom(std::string_view call, const Program::Result& result) {
  const auto first = std::ranges::find_if(
      result.calls, [&](const std::string& each) { return each.starts_with(call); });
  if (result.calls.end() - first < 2) return {"no calls"};
  return {first, result.calls.end() - 2};
}

// The calls of `one` that `other` has not, in their order.
Lines Missing(const Lines& one, const Lines& other) {
  Lines missing;
  std::ranges::copy_if(one, std::back_inserter(missing), [&](const std::string& call) {
    return std::ranges::find(other, call) == other.end();
  });
  return missing;
}

TEST(Engine, PassesASettingOnlyWhenItIsSet) {
  const struct {
    const char* settings;
    const char* added;      // calls that the default run has not
    const char* removed{};  // calls of the default run that are not made
  } rows[] = {
      {"bearerwidth=0.0005", "BCSetBearerBarWidth(b1, 0)"},  // cut off, not rounded
      {"guardline=1 bearerwidth=2", "BCSetBearerBarType(b1, 1); BCSetBearerBarWidth(b1, 1000)"},
      {"notchheight=0 textdist=-0.6 quietzoneunit=mm sizemode=default compress=none", ""},
      {"textdist=0", "BCSetTextDist(b1, 0)"},
      {"reduction=5", "BCSetBarWidthReduction(b1, 5, 0)"},
      {"dpi=0", "", "BCSetDPI(b1, 72, 72)"},
      {"quietzonev=3 quietzoneunit=mod", "BCSetQuietZone(b1, [0 3 0 3], 5)"},
      {"text=below", "BCSetPrintText(b1, 1, 0)"},
      {"text=hide sizemode=fit autocorrect=off",
       "BCSetAutoCorrect(b1, 0); BCSetSizeMode(b1, 0); BCSetPrintText(b1, 0, 0)"},
      {"decoder=any CCtype=auto", "BCSetDecoder(b1, 0); BCSet2DCompositeComponent(b1, 1)",
       "BCSetDecoder(b1, 1); BCSet2DCompositeComponent(b1, 0)"},
      {"colormode=gray",
       "BCSetColorMode(b1, 1); BCSetBarcodeColorGray(b1, 0); BCSetFontColorGray(b1, 0); "
       "BCSetBackgroundColorGray(b1, 1)",
       "BCSetColorMode(b1, 0); BCSetBarcodeColorRGB(b1, 0, 0, 0); "
       "BCSetFontColorRGB(b1, 0, 0, 0); BCSetBackgroundColorRGB(b1, 1, 1, 1)"},
      {"defaultset=1",
       "BCSetModWidthA(b1, \"254\"); BCSetPrintText(b1, 1, 0); BCSetFontHeight(b1, 7); "
       "BCGetBarcodeSize(b1, [0 0 1000 10200], null, 2)",
       "BCGetBarcodeSize(b1, [0 0 50000 30000], null, 2)"},
      {"dravlindefaults width=50 height=30",  // a width rules the module width
       "BCSetPrintText(b1, 1, 0); BCSetFontHeight(b1, 8); "
       "BCPostscriptToMemoryExt(b1, 65536, [0 30000 50000 0], 1)",
       "BCGetBarcodeSize(b1, [0 0 50000 30000], null, 2); "
       "BCPostscriptToMemoryExt(b1, 65536, [0 20000 40000 0], 1)"},
      {"defaultset=1 defaultset=0 PDFauto QRversion=7", ""},
  };
  const Lines plain = RunAlone("").calls;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings);
    const Lines calls = RunAlone(row.settings).calls;
    EXPECT_EQ(Missing(calls, plain), Split(row.added, "; "));
    EXPECT_EQ(Missing(plain, calls), Split(row.removed ? row.removed : "", "; "));
  }
  EXPECT_EQ(FirstWith(RunAlone("barcode=55 PDFauto").calls, "BCSet_PDF417_RowCol"), "");
}

TEST(Engine, TrimsDataAndStripsStarsOnlyWhenAsked) {
  const std::string blanks = "$_vxrs --data=\"  \t123\t \" $_vxre";
  const struct {
    Program program;
    const char* call;
  } rows[] = {
      {Filter(), "BCSetTextA(b1, \"  \\x09123\\x09 \", 8)"},
      {Filter("trimwhitespaces"), "BCSetTextA(b1, \"123\", 3)"},
      {StandAlone("data=*ABC* barcode=8 SAP"), "BCSetTextA(b1, \"ABC\", 3)"},
      {StandAlone("data=** barcode=8 SAP onnodata=ignore"), ""},
      {StandAlone("data=* barcode=8 SAP"), "BCSetTextA(b1, \"*\", 1)"},
      {StandAlone("data=*ABC* barcode=8"), "BCSetTextA(b1, \"*ABC*\", 5)"},
      {StandAlone("data=*ABC* SAP"), "BCSetTextA(b1, \"*ABC*\", 5)"},
      {StandAlone("data=*ABC barcode=8 SAP"), "BCSetTextA(b1, \"*ABC\", 4)"},
      {StandAlone("data=ABC* barcode=8 SAP"), "BCSetTextA(b1, \"ABC*\", 4)"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(FirstWith(Recorded(row.program).run(blanks).calls, "BCSetTextA("), row.call);
}

TEST(Engine, PlacesABarcodeByItsSizeFormatAndOrigin) {
  const auto ask = [](const std::string& box) {
    return "BCGetBarcodeSize(b1, " + box + ", null, 2); ";
  };
  const auto turn = [](char rotation, const std::string& box) {
    return std::string("BCSetRotation(b1, ") + rotation + "); BCPostscriptToMemoryExt(b1, 65536, " +
           box + ", 1)";
  };
  const std::string place = "xpos=5 ypos=17 width=30 height=10 ";
  const std::string up = "[5000 27000 35000 17000]", down = "[5000 17000 35000 7000]";
  const std::string fromTop = "[5000 17000 35000 27000]", upright = "BCSetRotation(b1, 0); ";
  const std::string fragment = upright + "BCPDFFragmentToMemory(b1, 65536, ";
  const std::string pcl = upright + "BCPCLToMemoryExt(b1, 65536, ";
  const std::string image = upright + "BCBitmapToMemoryA(b1, ";
  const std::pair<std::string, std::string> rows[] = {
      {"width=30 height=10", turn('0', "[0 10000 30000 0]")},
      {"width=30.0001", ask("[0 0 30001 30000]") + turn('0', "[0 20000 30000 0]")},
      {"height=10", ask("[0 0 50000 10000]") + turn('0', "[0 10000 40000 0]")},
      {"modulewidth=0.3 width=30", ask("[0 0 30000 1000]") + turn('0', "[0 20000 40000 0]")},
      {"modulewidth=0.3 sizemode=fit", ask("[0 0 50000 30000]") + turn('0', "[0 20000 40000 0]")},
      {"sizemode=module", ask("[0 0 1000 1000]") + turn('0', "[0 20000 40000 0]")},
      {"optimalwidth width=30 height=10",
       ask("[0 0 30000 10000]") + turn('0', "[0 20000 40000 0]")},
      {"width=30 height=10 rot=90", turn('1', "[0 30000 10000 0]")},
      {"width=30 height=10 rot=180", turn('2', "[0 10000 30000 0]")},
      {"width=30 height=10 rot=270", turn('3', "[0 30000 10000 0]")},
      {"barcode=55 PDFrowheight=2 width=30",
       "BCGetCountRows(b1); " + turn('0', "[0 2000 30000 0]")},
      {"barcode=55 PDFrowheight=2 width=30 height=10", turn('0', "[0 10000 30000 0]")},
      {"PDFrowheight=2 width=30", ask("[0 0 30000 30000]") + turn('0', "[0 20000 30000 0]")},
      // places are rounded to thousandths
      {"xpos=1.2346 ypos=2.0004 width=30 height=10 globalxoffset=5 globalyoffset=10",
       turn('0', "[6235 22000 36235 12000]")},
      {place, turn('0', up)},
      {place + "format=ps nooverhead",
       upright + "BCPostscriptToMemoryExt(b1, 65536, " + up + ", 0)"},
      {place + "format=ps origin=top", turn('0', down)},
      {place + "format=pdf", upright + "BCPDFToMemory(b1, 65536, " + up + ")"},
      {place + "format=pdf origin=top", upright + "BCPDFToMemory(b1, 65536, " + down + ")"},
      {place + "format=pdffrag origin=bottom", fragment + up + ")"},
      {place + "format=pdffrag origin=top", fragment + down + ")"},
      {place + "format=pcl", pcl + fromTop + ", 1)"},
      {place + "stream=pcl pos=abs", pcl + fromTop + ", 0)"},
      {place + "format=pcl origin=bottom", pcl + "[5000 7000 35000 17000], 1)"},
      {place + "imageformat=Gif", image + "\"Gif\", 65536, " + fromTop + ")"},
      {place + "format=image origin=bottom memory=1000", image + "\"BMP\", 1000, " + fromTop + ")"},
  };
  for (const auto& [settings, calls] : rows) {
    SCOPED_TRACE(settings);
    Lines expected = Split(calls, "; ");
    expected.insert(expected.begin(), "BCCreate(b1)");
    EXPECT_EQ(CallsFrom("BCCreate(", RunAlone(settings)), expected);
    const std::string output = expected.back().substr(0, expected.back().find('('));
    const Program::Result failed = RunAlone(settings, {{"VX_STANDIN_FAIL", output + "=80070057"}});
    EXPECT_EQ(failed.errors, Report(kNotCreated));
    EXPECT_EQ(failed.output, "");
  }
}

TEST(Engine, LaysAGridOutAndNeitherMeasuresNorTurnsIt) {
  const std::string create = "BCCreate(b1); BCPostscriptToMemoryExt(b1, 65536, ";
  const std::pair<const char*, std::string> rows[] = {
      // as wide as the grid needs, as high as was given
      {"width=50 height=40 rot=90", "[0 0 50000 40000]); " + create + "[0 40000 60000 0], 1)"},
      {"width=70 height=7", "[0 0 70000 7000]); " + create + "[0 30500 70000 0], 1)"},
      {"", "[0 0 50000 50000]); " + create + "[0 30500 60000 0], 1)"},
  };
  for (const auto& [settings, calls] : rows) {
    const Program::Result result =
        RunAlone(std::string("multiple=on ") + settings, {{"VX_STANDIN_LAYOUT", "60000x30500"}});
    EXPECT_EQ(CallsFrom("BC_MultiBC_Calc", result),
              Split("BC_MultiBC_CalculateLayout(b1, null, " + calls, "; "));
  }
}

TEST(Engine, TellsSizesThatDoNotDo) {
  const std::pair<const char*, std::string> rows[] = {
      {"multiple=on width=59 height=10",
       kError + "Given width is too small. A width of at least 60 mm is required.\n"},
      {"multiple=on width=60 height=10",
       kError + "Given height is too small. A height of at least 30.5 mm is required.\n"},
      {"multiple=on width=60 height=30.5",
       Report("Couldn't create multiple barcodes. Please check barcode settings.")},
      {"memory=100", kError + "Couldn't create barcode. Size of memory for barcode creation was to "
                              "small.\nERROR: Size of memory: 200 - Required size: 300\n"},
      {"memory=200", ""},
  };
  for (const auto& [settings, errors] : rows) {
    SCOPED_TRACE(settings);
    const Program::Result result =
        RunAlone(settings, {{"VX_STANDIN_LAYOUT", "60000x30500"},
                            {"VX_STANDIN_FAIL", "BC_MultiBC_CalculateLayout=80070057"},
                            {"VX_STANDIN_NEEDED", "200,300"}});
    EXPECT_EQ(result.errors, errors);
    EXPECT_EQ(result.output, errors.empty() ? kDrawing : "");
  }
  // The buffer grows once, to the size asked for.
  const Program::Result grown =
      RunAlone("memory=16384 width=40 height=20", {{"VX_STANDIN_NEEDED", "20000,20000"}});
  EXPECT_EQ(grown.output, kDrawing);
  EXPECT_EQ(CallsFrom("BCPostscript", grown),
            Split("BCPostscriptToMemoryExt(b1, 16384, [0 20000 40000 0], 1); "
                  "BCPostscriptToMemoryExt(b1, 20000, [0 20000 40000 0], 1)",
                  "; "));
}

// Runs started during its life may have a gibibyte of memory and not more.
class LittleMemory {
 public:
  LittleMemory() {
    getrlimit(RLIMIT_AS, &before);
#ifndef __SANITIZE_ADDRESS__  // which takes all address space there is, and obeys an option instead
    const rlimit little = {kGibibyte, before.rlim_max};
    setrlimit(RLIMIT_AS, &little);
#endif
  }
  ~LittleMemory() {
    setrlimit(RLIMIT_AS, &before);
  }
  LittleMemory(const LittleMemory&) = delete;
  LittleMemory& operator=(const LittleMemory&) = delete;

 private:
  static constexpr rlim_t kGibibyte = rlim_t{1} << 30;
  rlimit before{};
};

TEST(Engine, TellsThatMemoryIsNotToBeHad) {
  const std::string grown = kError +
                            "Couldn't reallocate memory for barcode. Initial memory size: 65536. "
                            "New memory size: 2147483647.\n";
  const std::string small = kError +
                            "Couldn't create barcode. Size of memory for barcode creation was to "
                            "small.\nERROR: Size of memory: 65536 - Required size: 2147483647\n";
  const std::string sequence = kError + "Barcode Sequence: --data=1 \n";
  const std::pair<Program, std::string> rows[] = {
      {StandAlone("data=1"), grown + small},
      {StandAlone("data=1 memory=2147483647"), kError + "Couldn't allocate memory for barcode.\n"},
      {Filter(), grown + small + sequence},
      // The end of the mute is here.
      {Filter("onerror=ignore"), small + sequence},
  };
  for (const auto& [program, errors] : rows) {
    SCOPED_TRACE(testing::PrintToString(program.settings));
    const Environment answers = {
        {"VX_STANDIN_NEEDED", "2147483647"},
        {"ASAN_OPTIONS", "allocator_may_return_null=1:max_allocation_size_mb=1024"}};
    const LittleMemory little;
    const Program::Result result = Recorded(program, answers).run("\033E$_vxrs --data=1 $_vxre");
    EXPECT_EQ(result.errors, errors);
    EXPECT_EQ(result.status, 80);
  }
}

TEST(Engine, TellsFailuresAroundABarcode) {
  const std::string asked = "Error code: 0x8007000e - Error Message: ";
  const struct {
    const char* failure;
    std::string errors;
    std::string output;
    int status;
  } rows[] = {
      // Freeing the handle that never was fails as well.
      {"BCAlloc=8007000e",
       Report("Couldn't allocate memory for barcode generation.", asked + "-") +
           Report("Couldn't set checkdigit method to 1.") + kNotFreed + kInvalidArgument + '\n',
       "", 0},
      {"BCFree=8007000e", kNotFreed + asked + "Library text .\n", kDrawing, 0},
      {"BCInitLibraryA=8007000e", kError + "Couldn't initialize library. Error code: -2147024882\n",
       "", 110},
      {"BCDeInitLibrary=8007000e",
       "WARNING: vextorin: Warning: Couldn't deinitalize library.\nWARNING: " + asked + "-\n",
       kDrawing, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.failure);
    const Program::Result result = RunAlone("trace=warning", {{"VX_STANDIN_FAIL", row.failure}});
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.output, row.output);
    EXPECT_EQ(result.status, row.status);
    EXPECT_EQ(FirstWith(result.calls, "BCFree(").empty(), row.status == 110);
    EXPECT_EQ(std::ranges::count(result.calls, "BCDeInitLibrary()"), row.status == 110 ? 0 : 1);
  }
}

TEST(Engine, NamesTheReasonAsFarAsTheLibraryKnows) {
  const std::string plain = "Library text .";
  const struct {
    const char* code;
    const char* data;
    std::string answers;  // of the recording library
    std::string reason;
  } rows[] = {
      {"80070032", "Test123", "INVALIDPOS=4 MAXLEN=13", plain},
      {"8007000d", "Test123", "INVALIDPOS=4", "Library text '1' at position 5."},
      {"8007000d", "ab\tc", "INVALIDPOS=2", "Library text (ASCII Code 0x9) at position 3."},
      {"8007000d", "a b", "INVALIDPOS=1", "Library text (ASCII Code 0x20) at position 2."},
      {"8007000d", "a!~\x7f", "INVALIDPOS=1", "Library text '!' at position 2."},
      {"8007000d", "a!~\x7f", "INVALIDPOS=2", "Library text '~' at position 3."},
      {"8007000d", "a!~\x7f", "INVALIDPOS=3", "Library text (ASCII Code 0x7f) at position 4."},
      {"8007000d", "\xe4x", "INVALIDPOS=0", "Library text (ASCII Code 0xe4) at position 1."},
      {"8007000d", "Test123", "", plain},
      {"8007000d", "Test123", "INVALIDPOS=7", plain},  // behind the data
      {"80090004", "1", "MAXLEN=13 CHECKDIGITS=2", "Library text (needs 11 characters)."},
      {"80090004", "1", "MAXLEN=13 CHECKDIGITS=-1", "Library text (needs 13 characters)."},
      {"80090004", "1", "", plain},  // without a limit
      {"80090004", "1", "COMPOSITE=1 MAXLEN=13",
       "Error in linear component - Library text (needs 13 characters)."},
      {"8007000d", "1", "COMPOSITE=1 ERRORINCC=1 INVALIDPOS=0",
       "Error in 2D Composite Component - Library text '1' at position 1."},
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
}

// What a job with failing sequences comes to: the messages, and what is printed in each place.
TEST(Engine, NamesFailedSequencesAndPrintsTheirMessagesUnlessErrorsAreIgnored) {
  const auto sequence = [](const std::string& options) {
    return "($_vxrs " + options + " $_vxre) show\n";
  };
  const auto blanked = [](const std::string& options) {
    return "(" + Blanks(options.size() + 14) + ") show\n";
  };
  const auto named = [](const std::string& options) {
    return kError + "Barcode Sequence:  " + options + " \n";
  };
  const auto printed = [](const std::string& message) { return "(" + message + "\\n) show"; };
  const std::string one = "--data=(x)", two = "--data=2", empty = "--barcode=20",
                    wrong = "--rot=45";
  const std::string missing = "Barcode text is missing/empty.",
                    refused = "Rotation must be set to '0', '90', '180' or '270'.";
  const std::string message = "vextorin: Error: " + kNotCreated + "\\n" + kInvalidArgument;
  const std::string job = "%!PS\n" + sequence(one) + sequence(two) + sequence(empty) +
                          sequence(wrong) + sequence("--data=3");
  const Environment failing = {{"VX_STANDIN_FAIL", "BCCreate#1=80070057,BCCreate#2=80070057"}};
  const std::string last = Wrapped(kDrawing, kRelative) + blanked("--data=3");
  const struct {
    const char* settings;
    std::string errors, output;
  } rows[] = {
      {"onerror=message",
       Report(kNotCreated) + named(one) + Report(kNotCreated) + named(two) + kError + missing +
           '\n' + named(empty) + kError + refused + '\n' + named(wrong),
       printed(message) + blanked(one) + printed(message) + blanked(two) +
           printed("vextorin: Error: " + missing) + blanked(empty) + blanked(wrong)},
      // What is missing is told even then, and so is what can't be read.
      {"onerror=ignore",
       named(one) + named(two) + kError + missing + '\n' + named(empty) + kError + refused + '\n' +
           named(wrong),
       blanked(one) + blanked(two) + printed("vextorin: Error: " + missing) + blanked(empty) +
           blanked(wrong)},
      {"onerror=ignore onnodata=ignore",
       named(one) + named(two) + named(empty) + kError + refused + '\n' + named(wrong),
       blanked(one) + blanked(two) + blanked(empty) + blanked(wrong)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings);
    const Program::Result result = Recorded(Filter(row.settings), failing).run(job);
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.output, "%!PS\n" + row.output + last);
    EXPECT_EQ(result.status, 0);
  }
}

TEST(Engine, MakesEverySequenceOfAJobABarcodeOfItsOwnInOneSession) {
  const Program::Result result = Recorded(Filter("width=30"))
                                     .run(
                                         "%!PS\n($_vxrs --data=one --height=5 $_vxre) show\n"
                                         "($_vxrs --data=two --barcode=8 $_vxre) show\n");
  const std::string own =
      "BCAlloc(); BCSetBCType(b1, 20); BCSetTextA(b1, \"one\", 3); BCPostscriptToMemoryExt(b1, "
      "65536, [0 5000 30000 0], 1); BCFree(b1); BCAlloc(); BCSetBCType(b2, 8); BCSetTextA(b2, "
      "\"two\", 3); BCGetBarcodeSize(b2, [0 0 30000 30000], null, 2); BCPostscriptToMemoryExt(b2, "
      "65536, [0 20000 30000 0], 1); BCFree(b2); BCDeInitLibrary()";
  Lines calls = result.calls;
  std::erase_if(calls, [&](const std::string& call) { return own.find(call) == own.npos; });
  EXPECT_EQ(calls, Split(own, "; "));
  EXPECT_EQ(std::ranges::count_if(
                result.calls,
                [](const std::string& call) { return call.starts_with("BCInitLibraryA("); }),
            1);
}

}  // namespace
