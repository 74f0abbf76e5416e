// Options that concern no language in particular hold in all of them, and so does what a machine
// lacks.
#include "tests/e2e/LanguagePictures.h"
#include "tests/support/Decode.h"
#include "tests/support/Program.h"
#include "tests/support/Run.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <string>

namespace {

using namespace Support;

const std::string kPlace = "xpos=20 ypos=20 pos=abs dpi=300 trace=warning ";
const std::string kLinear = "barcode=20 data=Hello_123 width=60 height=20 " + kPlace;

Program::Result Made(const Language& language, const std::string& settings,
                     const Environment& environment = {}) {
  Program program = StandAlone(settings + " " + language.settings);
  program.environment = environment;
  return program.run();
}

std::string ReadFrom(const Language& language, const std::string& output) {
  const std::vector<Symbol> symbols = Decode(language.paint(output));
  return symbols.size() == 1 ? symbols[0].data : Describe(symbols);
}

std::string Inflated(const std::string& packed) {
  std::string bytes(1000, '\0');
  uLongf size = bytes.size();
  const int result = uncompress(reinterpret_cast<Bytef*>(bytes.data()), &size,
                                reinterpret_cast<const Bytef*>(packed.data()), packed.size());
  return result == Z_OK ? bytes.substr(0, size) : "not compressed: " + packed;
}

TEST(LanguageOptions, MustFitRefusesWhatDoesNotFit) {
  const std::string tooNarrow = "barcode=20 data=Hello_123 width=8 height=20 " + kPlace;
  for (const Language& language : EveryLanguage()) {
    SCOPED_TRACE(language.name);
    const Program::Result refused = Made(language, tooNarrow + "mustfit=on");
    EXPECT_EQ(refused.output, "");
    EXPECT_NE(refused.errors.find("0x8007006f"), std::string::npos) << refused.errors;
    const Program::Result fitting = Made(language, kLinear + "mustfit=on");
    EXPECT_EQ(fitting.errors, "");
    EXPECT_EQ(ReadFrom(language, fitting.output), "Hello_123");
  }
}

// Modules of a bitmap are whole pixels, also where the rectangle was measured without any.
TEST(LanguageOptions, BitmapsHoldTheWholeBarcodeOrSayThatTheyDoNot) {
  for (const Language& language : kBitmaps) {
    SCOPED_TRACE(language.name);
    const Program::Result minimal =
        Made(language, "barcode=20 data=Hello_123 sizemode=minimal dpi=203 trace=warning");
    EXPECT_EQ(minimal.errors, "");
    EXPECT_EQ(ReadFrom(language, minimal.output), "Hello_123");
    const Program::Result cut =
        Made(language, "barcode=20 data=Hello_123 width=8 height=20 dpi=203 trace=warning");
    EXPECT_NE(cut.errors.find("cut off at the edges of its picture"), std::string::npos);
  }
}

TEST(LanguageOptions, CompressedDataAreTheSameInEveryLanguage) {
  const std::string data(60, 'x');
  for (const Language& language : EveryLanguage()) {
    SCOPED_TRACE(language.name);
    const Program::Result result =
        Made(language, "barcode=58 compress=zlib width=30 height=30 " + kPlace + "data=" + data);
    EXPECT_EQ(Inflated(ReadFrom(language, result.output)), data) << result.errors;
  }
}

// What prints alone is left off; documents and pictures are whole files in any case.
TEST(LanguageOptions, NoOverheadLeavesTheDrawing) {
  const struct {
    Language language;
    const char* overhead;
  } kRows[] = {{kPostScript, "%!PS-Adobe-3.0 EPSF-3.0"},
               {{"PCL", "format=PCL", nullptr}, "\033%-12345X"},
               {kPdfKinds[0], ""},
               {kPdfKinds[1], ""},
               {kBitmaps[2], ""}};
  for (const auto& [language, overhead] : kRows) {
    SCOPED_TRACE(language.name);
    const std::string with = Made(language, kLinear).output;
    const std::string without = Made(language, kLinear + "nooverhead").output;
    EXPECT_TRUE(with.starts_with(overhead));
    EXPECT_EQ(with == without, *overhead == '\0');
    EXPECT_TRUE(*overhead == '\0' || !without.starts_with(overhead));
  }
}

// Upward, y is that of the edge which the origin names.
TEST(LanguageOptions, OriginNamesTheEdge) {
  const std::string settings = "barcode=20 data=Hello_123 width=60 height=20 xpos=20 pos=abs ";
  std::vector<Language> pages = kPclModes;
  pages.insert(pages.end(), kPdfKinds.begin(), kPdfKinds.end());
  pages.push_back(kPostScript);
  for (const Language& language : pages) {
    SCOPED_TRACE(language.name);
    const bool down = std::string(language.settings).starts_with("format=PCL");
    const std::string top = Made(language, settings + "origin=top ypos=50").output;
    const std::string other = down ? " ypos=70" : " ypos=30";
    EXPECT_EQ(Made(language, settings + "origin=bottom" + other).output, top);
    EXPECT_NE(Made(language, settings + "origin=bottom ypos=50").output, top);
    const std::string unnamed = down ? " ypos=50" : " ypos=30";
    EXPECT_EQ(Made(language, settings + unnamed).output, top);
  }
}

TEST(LanguageOptions, ADocumentHasAPage) {
  for (const char* place : {"ypos=0 origin=top", "xpos=-60 ypos=0"}) {
    const Program::Result result =
        Made(kPdfKinds[0], std::string("barcode=20 data=Hello_123 width=60 height=20 ") + place);
    EXPECT_EQ(result.output, "") << place;
    EXPECT_NE(result.errors.find("0x80070057"), std::string::npos) << place;
  }
}

// The program's colours are black on white; the modes say it in their own way.
TEST(LanguageOptions, ColourModesAndBackgroundsAreTheLanguagesOwn) {
  const struct {
    const char* language;
    const char* settings;
    std::vector<std::string> held, missing;
  } kRows[] = {
      {"format=PDFFRAG", "colormode=rgb", {"1 1 1 rg\n", "0 0 0 rg\n"}, {" k\n", " g\n"}},
      {"format=PDFFRAG", "colormode=gray", {"1 g\n", "\n0 g\n"}, {" k\n", " rg\n"}},
      {"format=PDFFRAG", "colormode=cmyk", {"0 0 0 0 k\n", "0 0 0 1 k\n"}, {" rg\n", " g\n"}},
      {"format=PDFFRAG", "bkmode=transparent", {"0 0 0 rg\n"}, {"1 1 1 rg\n"}},
      {"format=PS", "colormode=cmyk", {"0 0 0 0 setcmykcolor", "0 0 0 1 setcmykcolor"}, {}},
      {"format=PS", "colormode=cmyk bkmode=transparent", {"1 setcmykcolor"}, {" 0 setcmyk"}},
      {"format=PCL", "bkmode=opaque", {"TR0SP0RR"}, {}},
      {"format=PCL pclmode=pcl5nohpgl", "bkmode=opaque", {"v1P"}, {}},
      {"format=PCL", "bkmode=transparent", {"RR"}, {"TR0", "v1P"}},
      {"format=PCL pclmode=pcl5nohpgl", "bkmode=transparent", {"0P"}, {"v1P"}},
      {"format=IMAGE imageformat=PNG", "bkmode=transparent", {"tRNS"}, {}},
      {"format=IMAGE imageformat=PNG", "bkmode=opaque", {"IDAT"}, {"tRNS"}},
      {"format=IMAGE imageformat=GIF", "bkmode=transparent", {"\x21\xF9\x04\x01"}, {}},
      {"format=IMAGE imageformat=GIF", "bkmode=opaque", {"GIF89a"}, {"\x21\xF9\x04\x01"}},
  };
  for (const auto& [language, settings, held, missing] : kRows) {
    SCOPED_TRACE(language + std::string(" ") + settings);
    std::string output = Made({"", language, nullptr}, kLinear + settings).output;
    for (const std::string& text : held) EXPECT_NE(output.find(text), std::string::npos) << text;
    for (const std::string& text : missing) EXPECT_EQ(output.find(text), std::string::npos) << text;
  }
}

constexpr const char* kNoFont =
    "WARNING: vextorin: Warning: The barcode's text is left out: no font was found on this "
    "machine.\n";

// A folder where the loader looks first and finds no library of the name that begins so.
Environment Without(const TempFolder& folder, std::string_view name) {
  const std::string library = ReadFile(VEXTORIN_LIBRARY_FILE);
  const std::string found = library.substr(std::min(library.find(name), library.size()));
  folder.write(found.substr(0, found.find('"')), "no library");
  return {{"LD_LIBRARY_PATH", folder.path().string()}};
}

// A font of one character in dots.
constexpr const char* kFontOfDots =
    "STARTFONT 2.1\nFONT -x-x-medium-r-normal--8-80-75-75-c-80-iso8859-1\nSIZE 8 75 75\n"
    "FONTBOUNDINGBOX 8 8 0 0\nSTARTPROPERTIES 3\nFAMILY_NAME \"Helvetica\"\nFONT_ASCENT 8\n"
    "FONT_DESCENT 0\nENDPROPERTIES\nCHARS 1\nSTARTCHAR H\nENCODING 72\nSWIDTH 1000 0\n"
    "DWIDTH 8 0\nBBX 8 1 0 0\nBITMAP\nFF\nENDCHAR\nENDFONT\n";

// Languages that draw outlines say so and go on, the others know the font by name.
TEST(LanguageOptions, WithoutFontsTheTextIsLeftOutWithAWarning) {
  const TempFolder folder, dots, freeType, fontconfig;
  dots.write("dots.bdf", kFontOfDots);
  freeType.write("libfreetype.so.6", "no library");
  fontconfig.write("libfontconfig.so.1", "no library");
  const auto configured = [&](const char* name, const std::string& content) {
    const std::string text = "<?xml version=\"1.0\"?><fontconfig>" + content + "</fontconfig>";
    return Environment{{"FONTCONFIG_FILE", folder.write(name, text)}};
  };
  const std::string path = dots.path().string();
  const std::pair<const char*, Environment> machines[] = {
      {"fonts", configured("none.conf", "")},
      {"outlines",
       configured("dots.conf", "<dir>" + path + "</dir><cachedir>" + path + "/cache</cachedir>")},
      {"FreeType", {{"LD_LIBRARY_PATH", freeType.path().string()}}},
      {"fontconfig", {{"LD_LIBRARY_PATH", fontconfig.path().string()}}},
  };
  for (const auto& [missing, machine] : machines) {
    for (const Language& language : EveryLanguage()) {
      SCOPED_TRACE(language.name + std::string(" without ") + missing);
      const bool outlined = std::string(language.settings).starts_with("format=IMAGE") ||
                            std::string(language.settings) == "format=PDFFRAG";
      const Program::Result result = Made(language, kLinear + "text=below", machine);
      EXPECT_EQ(result.status, 0);
      EXPECT_EQ(result.errors, outlined ? kNoFont : "");
      EXPECT_EQ(ReadFrom(language, result.output), "Hello_123");
    }
  }
}

TEST(LanguageOptions, AMissingLibraryFailsItsFormatOnly) {
  for (const auto& [format, library] :
       {std::pair{"PNG", "libpng"}, {"JPG", "libjpeg"}, {"GIF", "libgif"}, {"TIF", "libtiff"}}) {
    SCOPED_TRACE(format);
    const TempFolder folder;
    const Environment machine = Without(folder, library);
    const std::string settings = std::string("format=IMAGE imageformat=") + format;
    const Program::Result result = Made({"", settings.c_str(), nullptr}, kLinear, machine);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors.find("0x8007007e"), std::string::npos) << result.errors;
    EXPECT_EQ(Made(kPostScript, kLinear, machine).errors, "");
  }
}

#ifndef __SANITIZE_ADDRESS__
// Wherever memory ends, the program does so by itself, with a line that says what is wrong.
TEST(LanguageOptions, BitmapsRunOutOfMemoryWithoutCrashing) {
  const TempFolder folder;
  const Environment narrow = {{"MALLOC_ARENA_MAX", "1"}};
  for (const Language& language : kBitmaps) {
    std::string settings = kLinear + language.settings + " dpi=2400 width=105 height=105";
    std::replace(settings.begin(), settings.end(), ' ', '\n');
    const std::string ini = folder.write("large.ini", settings + "\n");
    for (const int kilobytes : {20000, 25000}) {
      SCOPED_TRACE(language.name + (" in " + std::to_string(kilobytes)));
      const Finished finished = Support::Run(
          {.arguments = {"sh", "-c", "ulimit -v " + std::to_string(kilobytes) + "; exec \"$@\"",
                         "sh", VEXTORIN_PROGRAM, "--inifile=" + ini, "joe", "title", "1", ""},
           .environment = narrow});
      EXPECT_TRUE(finished.status == 0 || finished.status == 80) << finished.status;
      EXPECT_NE(finished.output.empty(), finished.errors.empty()) << finished.errors;
    }
  }
}
#endif

}  // namespace
