// Colours, which the program leaves black on white, in every language but PostScript.
#include "engine/library/vextorin9.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Output = BCResult (*)(BCBarcode*, char*, uint32_t*, const BCRect*);

BCResult Pcl(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect) {
  return BCPCLToMemoryExt(b, buffer, size, rect, 1);
}
template <const char* kFormat>
BCResult Picture(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect) {
  return BCBitmapToMemoryA(b, buffer, kFormat, size, rect);
}
constexpr char kPng[] = "PNG", kBmp[] = "BMP", kGif[] = "GIF", kJpg[] = "JPG";

// Dark red bars and blue text on light yellow.
void SetRgb(BCBarcode* b) {
  BCSetBarcodeColorRGB(b, .8, 0, 0);
  BCSetFontColorRGB(b, 0, 0, 1);
  BCSetBackgroundColorRGB(b, 1, 1, .5);
}
void SetGray(BCBarcode* b) {
  BCSetBarcodeColorGray(b, .2);
  BCSetFontColorGray(b, .4);
  BCSetBackgroundColorGray(b, .9);
}
void SetCmyk(BCBarcode* b) {
  BCSetBarcodeColorCMYK(b, 0, 1, 1, .2);
  BCSetFontColorCMYK(b, 1, 1, 0, 0);
  BCSetBackgroundColorCMYK(b, 0, 0, .5, 0);
}
constexpr void (*kSet[])(BCBarcode*) = {SetRgb, SetGray, SetCmyk};

std::string Drawn(int mode, int background, int pclMode, Output output) {
  BCBarcode* barcode = nullptr;
  BCInitLibraryA("");
  EXPECT_EQ(BCAlloc(&barcode), BC_OK);
  BCSetBCType(barcode, 20);
  BCSetTextA(barcode, "Colour", 6);
  BCSetDPI(barcode, 300, 300);
  BCSetPCLMode(barcode, pclMode);
  BCSetBkMode(barcode, background);
  BCSetColorMode(barcode, mode);
  kSet[mode](barcode);
  EXPECT_EQ(BCCreate(barcode), BC_OK);
  std::vector<char> buffer(1000000);
  auto size = static_cast<uint32_t>(buffer.size());
  const BCRect rect = {0, 0, 50000, 20000};
  EXPECT_EQ(output(barcode, buffer.data(), &size, &rect), BC_OK);
  BCFree(barcode);
  BCDeInitLibrary();
  return std::string(buffer.data(), size);
}

using namespace std::string_literals;

TEST(LanguageColours, AreThoseOfTheMode) {
  const struct {
    const char* name;
    int mode, background, pclMode;
    Output output;
    std::vector<std::string> held;  // in this order
    std::string missing{};
  } kRows[] = {
      {"fragment, RGB",
       0,
       2,
       0,
       BCPDFFragmentToMemory,
       {"1 1 0.5 rg\n", "0.8 0 0 rg\n", "0 0 1 rg\n"},
       " k\n"},
      {"fragment, grey", 1, 2, 0, BCPDFFragmentToMemory, {"0.9 g\n", "0.2 g\n", "0.4 g\n"}, "rg\n"},
      {"fragment, CMYK",
       2,
       2,
       0,
       BCPDFFragmentToMemory,
       {"0 0 0.5 0 k\n", "0 1 1 0.2 k\n", "1 1 0 0 k\n"},
       "rg\n"},
      {"fragment, clear", 0, 1, 0, BCPDFFragmentToMemory, {"0.8 0 0 rg\n"}, "0.5 rg"},
      {"PCL, RGB", 0, 2, 0, Pcl, {"FT10,6RR", "PC1,204,0,0PC2,0,0,255SP1"}, "*c"},
      {"PCL, grey", 1, 2, 0, Pcl, {"FT10,10RR", "PC1,51,51,51PC2,102,102,102SP1"}, "*c"},
      {"PCL, CMYK", 2, 2, 0, Pcl, {"FT10,17RR", "PC1,204,0,0PC2,0,0,255SP1"}, "*c"},
      {"PCL, clear", 2, 1, 0, Pcl, {"PC1,204,0,0PC2,0,0,255SP1", "SP2"}, "FT10"},
      {"PCL without HP-GL/2", 0, 2, 1, Pcl, {"*c6G", "v2P", "0P"}, "1P"},
      {"PNG", 0, 2, 0, Picture<kPng>, {"PLTE\xFF\xFF\x80\xCC\0\0"s}, "tRNS"},
      {"PNG, grey", 1, 2, 0, Picture<kPng>, {"PLTE\xE6\xE6\xE6\x33\x33\x33"}, "tRNS"},
      {"PNG, CMYK, clear", 2, 1, 0, Picture<kPng>, {"PLTE\xFF\xFF\x80\xCC\0\0"s, "tRNS"}},
      {"GIF", 0, 2, 0, Picture<kGif>, {"\xFF\xFF\x80\xCC\0\0"s}, "\x21\xF9\x04\x01"},
      {"GIF, clear", 0, 1, 0, Picture<kGif>, {"\xFF\xFF\x80\xCC\0\0\x21"s, "\x21\xF9\x04\x01"}},
      {"BMP", 0, 2, 0, Picture<kBmp>, {"\x80\xFF\xFF\0\0\0\xCC\0"s}},
      {"JPG is grey", 0, 2, 0, Picture<kJpg>, {"\xFF\xC0\0\x0B\x08\0\xEC\x02\x4F\x01"s}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const std::string output = Drawn(row.mode, row.background, row.pclMode, row.output);
    std::size_t place = 0;
    for (const std::string& text : row.held) {
      place = output.find(text, place);
      ASSERT_NE(place, std::string::npos) << text;
    }
    if (!row.missing.empty()) {
      EXPECT_EQ(output.find(row.missing), std::string::npos) << row.missing;
    }
  }
}

}  // namespace
