#include "engine/Overhead.h"
#include "settings/BarcodeSettings.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using Settings::BarcodeSettings;

const std::string kBarcode = "<barcode>";
const std::string kPclOpener = "\033%-12345X\033E";
const std::string kPclCloser = "\033E\033%-12345X";

std::string Wrapped(const BarcodeSettings& settings) {
  std::string output = kBarcode;
  Engine::addOverhead(output, settings);
  return output;
}

BarcodeSettings With(int format, int embed, int pos) {
  BarcodeSettings settings;
  settings.format = format;
  settings.embed = embed;
  settings.pos = pos;
  return settings;
}

TEST(EmbeddingOverhead, PutsAnEmbeddedPostScriptBarcodeAtItsPlaceInAGraphicsStateOfItsOwn) {
  const std::string comment = "% translate to current position\n";
  const struct {
    int pos, initgraphics;
    std::string placement;
  } kCases[] = {
      {0, 0, "initgraphics\n\n"},
      {0, 1, "initgraphics\n\n"},
      {1, 0, comment + "currentpoint translate\n"},
      {1, 1, comment + "currentpoint transform initgraphics itransform translate\n"},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.placement);
    BarcodeSettings settings = With(Settings::kFormatPostScript, 1, row.pos);
    settings.initgraphics = row.initgraphics;
    const std::string output = Wrapped(settings);
    EXPECT_TRUE(
        output.starts_with("\n\n% BEGIN OF BARCODE\ngsave\n" + row.placement +
                           "/BeginBarcodeEPSF { %def               % Prepare for EPS file\n"));
    EXPECT_TRUE(output.ends_with("  b4_Inc_state restore\n} bind def\n\nBeginBarcodeEPSF\n\n" +
                                 kBarcode + "\nEndBarcodeEPSF\ngrestore\n% END OF BARCODE\n\n"))
        << output;
    // Opener, prolog, epilogue and closer.
    EXPECT_EQ(output.size() - row.placement.size() - kBarcode.size(), 27U + 911 + 16 + 27);
  }
}

TEST(EmbeddingOverhead, LeavesAloneWhatNeedsNone) {
  for (const int format : {Settings::kFormatNotSet, Settings::kFormatImage, Settings::kFormatPdf,
                           Settings::kFormatPdfFragment, Settings::kFormatPcl})
    EXPECT_EQ(Wrapped(With(format, 1, 0)), kBarcode) << format;
  for (const int embed : {0, -1})
    EXPECT_EQ(Wrapped(With(Settings::kFormatPostScript, embed, 1)), kBarcode) << embed;
  for (const int format : {Settings::kFormatPostScript, Settings::kFormatPcl})
    for (const int embed : {0, 1}) {
      BarcodeSettings settings = With(format, embed, 1);
      settings.nooverhead = 1;
      EXPECT_EQ(Wrapped(settings), kBarcode) << format << ' ' << embed;
    }
}

TEST(EmbeddingOverhead, FramesAPclBarcodeThatStandsAloneAndMovesTheCursorPastIt) {
  EXPECT_EQ(Wrapped(With(Settings::kFormatPcl, -1, 1)), kPclOpener + kBarcode + kPclCloser);
  const struct {
    double width, height;
    int origin;
    const char* move;
  } kCases[] = {
      {50, 30, Settings::kOriginTop, "\033&a+1417h+850V"},
      {50, 30, Settings::kOriginBottom, "\033&a+1417h+0V"},
      {25.4, 12.7, Settings::kOriginNotSet, "\033&a+720h+360V"},
      {0.01, 0.02, Settings::kOriginTop, "\033&a+0h+1V"},
      {1e300, std::numeric_limits<double>::quiet_NaN(), Settings::kOriginTop,
       "\033&a+2147483647h+0V"},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.move);
    BarcodeSettings settings = With(Settings::kFormatPcl, 1, 1);
    settings.movecursor = 1;
    settings.width = row.width;
    settings.height = row.height;
    settings.origin = row.origin;
    EXPECT_EQ(Wrapped(settings), kBarcode + row.move);
    settings.embed = 0;
    EXPECT_EQ(Wrapped(settings), kPclOpener + kBarcode + row.move + kPclCloser);
  }
}

}  // namespace
