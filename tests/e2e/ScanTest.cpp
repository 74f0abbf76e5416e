// Symbols in finished pages read back: rendered by Ghostscript as a printer would, decoded by two
// foreign readers, at the place and turned the way the job asked for.
#include "tests/support/Decode.h"
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace {

using namespace Support;

struct Type {
  int number;
  std::string data;
  std::string format;  // ZXing's name
  std::string read;    // what a reader returns
  std::string zbar{};  // what ZBar returns; empty: it doesn't know the symbology
};

const Type kTypes[] = {
    {20, "Code 128 Test", "Code128", "Code 128 Test", "Code 128 Test"},
    {16, "(01)09501101530003(10)ABC123", "Code128", "010950110153000310ABC123",
     "010950110153000310ABC123"},
    {8, "CODE-39 TEST", "Code39", "CODE-39 TEST", "CODE-39 TEST"},
    {3, "1234567890", "ITF", "1234567890", "1234567890"},
    {10, "40313948", "EAN-8", "40313948", "40313948"},
    {13, "4006381333931", "EAN-13", "4006381333931", "4006381333931"},
    {34, "012345678905", "UPC-A", "012345678905", "0012345678905"},
    {55, "PDF417 holds more than a line", "PDF417", "PDF417 holds more than a line"},
    {58, "https://example.org/?q=42", "QRCode", "https://example.org/?q=42",
     "https://example.org/?q=42"},
    {71, "Data Matrix 123456", "DataMatrix", "Data Matrix 123456"},
    {92, "Aztec Code 123456", "Aztec", "Aztec Code 123456"},
};

// Where the box of a symbol begins. The box is the middle of its page: some readers look for matrix
// codes around the middle only.
constexpr int kLeft = 10, kBottom = 14;

// What stands before the pages, for boxes of that size; all in millimetres.
std::string PageSetup(int width = 60, int height = 30) {
  const auto points = [](int length) { return std::to_string(length * 720 / 254); };
  return "%!PS-Adobe-3.0\n%%EndComments\n<< /PageSize [" + points(2 * kLeft + width) + ' ' +
         points(2 * kBottom + height) +
         "] >> setpagedevice\n/Courier findfont 1 scalefont setfont\n"
         "/mm { 25.4 div 72 mul } bind def\n";
}

std::string PageOf(const std::string& show) {
  return "10 mm 14 mm moveto\n" + show + "\nshowpage\n";
}

std::string Sequence(const Type& type, const std::string& options) {
  return "$_vxrs --barcode=" + std::to_string(type.number) + " " + options + " --data=\"" +
         type.data + "\" $_vxre";
}

// The only symbol of the page, as one reader finds it, if the other agrees.
Symbol ReadPage(const Page& page, const Type& type) {
  const std::vector<Symbol> symbols = Decode(page), others = DecodeWithZBar(page);
  EXPECT_EQ(symbols.size(), 1u) << Describe(symbols);
  if (symbols.size() != 1) return {};
  EXPECT_EQ(symbols[0].format, type.format);
  EXPECT_EQ(symbols[0].data, type.read);
  if (!type.zbar.empty()) {
    EXPECT_EQ(others.size(), 1u) << Describe(others);
    EXPECT_EQ(others.empty() ? "" : others[0].data, type.zbar);
  }
  return symbols[0];
}

// The symbol is centred in its box. Where a linear one was met between the ends of its bars, which
// lie along the shorter side, is the reader's choice.
void ExpectAt(const Symbol& symbol, double left, double bottom, double width, double height) {
  EXPECT_NEAR(symbol.x, left + width / 2, width > height ? 4 : width / 2) << Describe({symbol});
  EXPECT_NEAR(symbol.y, bottom + height / 2, width > height ? height / 2 : 4) << Describe({symbol});
}

TEST(Scan, StandAloneBarcodesRead) {
  std::string pages = PageSetup(50, 30);
  for (const Type& type : kTypes) {
    const Program::Result result = Program{
        .settings = {"data=" + type.data, "barcode=" + std::to_string(type.number), "xpos=10",
                     "ypos=14"}}.run();
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(result.output.starts_with("%!PS")) << result.output.substr(0, 40);
    pages += result.output + "\n";
  }
  const Rendering rendering = Render(pages, 300);
  EXPECT_EQ(rendering.messages, "");
  ASSERT_EQ(rendering.pages.size(), std::size(kTypes));
  for (std::size_t page = 0; page < std::size(kTypes); ++page) {
    SCOPED_TRACE(kTypes[page].data);
    ReadPage(rendering.pages[page], kTypes[page]);
  }
}

// One page a type, its symbol in a box of 60 mm by 30, turned; filtered.
std::string FilteredPages(int rotation) {
  std::string job = rotation % 180 == 0 ? PageSetup(60, 30) : PageSetup(30, 60);
  const std::string options = "-w60 -h30 -r" + std::to_string(rotation);
  for (const Type& type : kTypes) job += PageOf("(" + Sequence(type, options) + ") show");
  const Program::Result result = Filter().run(job);
  EXPECT_EQ(result.errors, "");
  return result.output;
}

TEST(Scan, BarcodesInAJobReadAtEveryResolutionAndInTheirDirection) {
  const std::pair<int, int> rows[] = {{0, 203},  {0, 300},   {0, 600},
                                      {90, 300}, {180, 300}, {270, 300}};
  for (const auto& [rotation, dpi] : rows) {
    SCOPED_TRACE(std::to_string(rotation) + " degrees at " + std::to_string(dpi) + " dpi");
    const Rendering rendering = Render(FilteredPages(rotation), dpi);
    EXPECT_EQ(rendering.messages, "");
    ASSERT_EQ(rendering.pages.size(), std::size(kTypes));
    const bool upright = rotation % 180 == 0;
    for (std::size_t page = 0; page < std::size(kTypes); ++page) {
      SCOPED_TRACE(kTypes[page].data);
      const Symbol symbol = ReadPage(rendering.pages[page], kTypes[page]);
      EXPECT_EQ(symbol.orientation, rotation);
      ExpectAt(symbol, kLeft, kBottom, upright ? 60 : 30, upright ? 30 : 60);
    }
  }
}

TEST(Scan, AbsolutePlacesCountFromThePagesCorner) {
  const std::string job = PageSetup() + "gsave 45 rotate 2 2 scale 300 300 translate\n" +
                          PageOf("($_vxrs --data=Corner -x15 -y20 -w50 -h20 $_vxre) show grestore");
  const Symbol symbol = DecodeJob(Filter().run(job).output);
  EXPECT_EQ(symbol.data, "Corner");
  ExpectAt(symbol, 15, 20, 50, 20);
}

// The forms in which a program may write the text of a sequence, and what is left of it.
struct Form {
  const char* name;
  std::string show;
  std::string blanked;
  std::string removed;
};

std::vector<Form> Forms() {
  const std::string options = "$_vxrs --data=Form7 -w60 -h30 $_vxre";
  const std::string text = "<" + options + ">";
  const std::string blanked = "<" + Blanks(options.size()) + ">";
  return {
      {"literal", "(" + text + ") show", "(" + blanked + ") show", "(<>) show"},
      {"hexadecimal", HexString(text) + " show", HexString(blanked) + " show", "<3C3E> show"},
      {"ASCII85", Ascii85String(text) + " show", Ascii85String(blanked) + " show",
       Ascii85String("<>") + " show"},
      {"split by words", "($_vxrs ) show (--data=Form7 ) show (-w60 -h30 $_vxre) show",
       "(" + Blanks(7) + ") show (" + Blanks(13) + ") show (" + Blanks(16) + ") show",
       "() show () show () show"},
      {"continued lines", "(" + text.substr(0, 9) + "\\\n" + text.substr(9) + ") show",
       "(" + blanked + ") show", "(<>) show"},
      {"kerned", "[(<$_vxrs --data=Form7 -w)-20(60 )15(-h30 $_vxre>)] TJ",
       "[(<" + Blanks(22) + ")-20(" + Blanks(3) + ")15(" + Blanks(11) + ">)] TJ",
       "[(<)-20()15(>)] TJ"},
  };
}

// Each form on a page of its own; TJ as page descriptions define it.
std::string FormsJob(const std::string Form::*text) {
  std::string job = PageSetup() +
                    "/TJ { { dup type /stringtype eq { show } { 1000 div neg 0 rmoveto } ifelse }"
                    " forall } bind def\n";
  for (const Form& form : Forms()) job += PageOf(form.*text);
  return job;
}

TEST(Scan, EveryFormAndEveryInsertModeKeepsTheRestOfTheJob) {
  const struct {
    const char* settings;
    const std::string Form::*rest;
  } rows[] = {
      {"insert=beforestring", &Form::blanked},        {"insert=afterstring", &Form::blanked},
      {"insert=beforeline", &Form::blanked},          {"insert=afterline", &Form::blanked},
      {"insert=beforestring remove", &Form::removed},
  };
  std::string pages;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings);
    const Program::Result result = Filter(row.settings).run(FormsJob(&Form::show));
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(WithoutBarcodes(result.output), FormsJob(row.rest));
    pages += result.output;
  }
  const Rendering rendering = Render(pages, 300);
  EXPECT_EQ(rendering.messages, "");
  const std::size_t forms = Forms().size();
  ASSERT_EQ(rendering.pages.size(), std::size(rows) * forms);
  for (std::size_t page = 0; page < rendering.pages.size(); ++page) {
    SCOPED_TRACE(rows[page / forms].settings + (", " + std::string(Forms()[page % forms].name)));
    const std::vector<Symbol> symbols = Decode(rendering.pages[page]);
    ASSERT_EQ(symbols.size(), 1u) << Describe(symbols);
    EXPECT_EQ(symbols[0].data, "Form7");
  }
}

TEST(Scan, AGridOfBarcodesReadsAsOneMessage) {
  std::string data;
  for (int i = 0; i < 500; ++i) data += static_cast<char>('0' + i * i / 7 % 10);
  const Program::Result result =
      StandAlone(
          "barcode=58 multiple=on rows=2 columns=2 datalimit=130 hdist=5 vdist=5 width=70 "
          "height=70 xpos=10 ypos=10 data=" +
          data)
          .run();
  EXPECT_EQ(result.errors, "");
  const Rendering rendering = Render(PageSetup(70, 70) + result.output, 300);
  ASSERT_EQ(rendering.pages.size(), 1u) << rendering.messages;
  // ZXing takes finder patterns of different symbols for those of one.
  std::vector<Symbol> symbols = DecodeWithZBar(rendering.pages[0]);
  constexpr double kMiddle = 45;  // mm from the page's lower and left edge
  std::sort(symbols.begin(), symbols.end(), [](const Symbol& a, const Symbol& b) {
    return std::pair(a.y<kMiddle, a.x> kMiddle) < std::pair(b.y<kMiddle, b.x> kMiddle);
  });
  std::string read;
  for (const Symbol& symbol : symbols) read += symbol.data;
  EXPECT_EQ(symbols.size(), 4u) << Describe(symbols);
  EXPECT_EQ(read, data);
}

}  // namespace
