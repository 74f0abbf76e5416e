// What the program asks of the barcode library beyond handing settings over one by one: sizes and
// places, formats, sessions and jobs. Calls are listed with semicolons between them; a recording
// library has seen them.
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Support;

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

TEST(EngineCalls, PassesASettingOnlyWhenItIsSet) {
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

TEST(EngineCalls, TrimsDataAndStripsStarsOnlyWhenAsked) {
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

TEST(EngineCalls, PlacesABarcodeByItsSizeFormatAndOrigin) {
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
    EXPECT_TRUE(failed.errors.starts_with(
        "ERROR: vextorin: Error: Couldn't create barcode. Please check barcode settings.\n"));
    EXPECT_EQ(failed.output, "");
  }
}

TEST(EngineCalls, LaysAGridOutAndNeitherMeasuresNorTurnsIt) {
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

TEST(EngineCalls, EnlargesTheBufferOnceToTheSizeAskedFor) {
  const Program::Result grown =
      RunAlone("memory=16384 width=40 height=20", {{"VX_STANDIN_NEEDED", "20000,20000"}});
  EXPECT_EQ(grown.output, kDrawing);
  EXPECT_EQ(CallsFrom("BCPostscript", grown),
            Split("BCPostscriptToMemoryExt(b1, 16384, [0 20000 40000 0], 1); "
                  "BCPostscriptToMemoryExt(b1, 20000, [0 20000 40000 0], 1)",
                  "; "));
}

TEST(EngineCalls, MakesEverySequenceOfAJobABarcodeOfItsOwnInOneSession) {
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
