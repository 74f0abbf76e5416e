// The widths that text is measured by, against those of an interpreter's fonts.
#include "library/layout/FontWidths.h"
#include "tests/support/Run.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(FontWidths, AreThoseOfTheInterpretersFonts) {
  const struct {
    const char* name;
    const Library::FontWidths& widths;
  } fonts[] = {
      {"Helvetica", Library::kHelveticaWidths},
      {"Helvetica-Bold", Library::kHelveticaBoldWidths},
      {"Times-Roman", Library::kTimesRomanWidths},
      {"Times-Bold", Library::kTimesBoldWidths},
      {"Times-Italic", Library::kTimesItalicWidths},
      {"Times-BoldItalic", Library::kTimesBoldItalicWidths},
  };
  for (const auto& font : fonts) {
    // The signs for which the interpreter's Latin-1 has others than type in a barcode's text.
    const std::string program =
        std::string("/") + font.name +
        " findfont dup length dict copy dup /Encoding ISOLatin1Encoding 256 array copy "
        "dup 39 /quotesingle put dup 45 /hyphen put dup 96 /grave put put "
        "/F exch definefont 1000 scalefont setfont "
        "32 1 255 { ( ) dup 0 4 -1 roll put stringwidth pop round cvi = } for";
    std::istringstream widths(
        Support::Run({.arguments = {"gs", "-q", "-dNODISPLAY", "-dBATCH", "-c", program}}).output);
    for (unsigned code = 32; code < 256; ++code) {
      int width = 0;
      ASSERT_TRUE(widths >> width) << font.name;
      if (code >= 127 && code < 160) continue;  // print nothing
      EXPECT_EQ(font.widths[code - 32], width) << font.name << ' ' << code;
    }
  }
}
