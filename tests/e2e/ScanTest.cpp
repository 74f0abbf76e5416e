// Symbols in finished pages read back: rendered by Ghostscript as a printer would, decoded by two
// foreign readers, at the place and turned the way the job asked for.
#include "tests/e2e/PclPicture.h"
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

struct Box {
  int left, bottom, width, height;  // millimetres
};

// One run of the program, whose output prints one page with one symbol.
struct Row {
  std::string settings;  // lines
  std::string show;      // what the page of a job shows
  std::string format, read;
  std::string zbar{};  // as in Type
  int rotation = 0;
  int dpi = 300;
  Box box{};  // in which the symbol stands, if it is given
};

// The box of a symbol is the middle of its page: some readers look for matrix codes around the
// middle only.
constexpr int kLeft = 10, kBottom = 14;

// What stands before the page, for boxes of that size; all in millimetres. TJ is what page
// descriptions define; letters are names of operators, as with the drivers of Windows.
std::string PageSetup(int width, int height) {
  const auto points = [](int length) { return std::to_string(length * 720 / 254); };
  return "%!PS-Adobe-3.0\n%%EndComments\n<< /PageSize [" + points(2 * kLeft + width) + ' ' +
         points(2 * kBottom + height) +
         "] >> setpagedevice\n/Courier findfont 1 scalefont setfont\n"
         "60 dict begin [65 97] { 1 1 index 25 add { ( ) dup 0 4 -1 roll put cvn /def load def } "
         "for } "
         "forall\n"
         "/TJ { { dup type /stringtype eq { show } { 1000 div neg 0 rmoveto } ifelse } forall } "
         "bind def\n";
}

// Every type alone, and in a job at every resolution and in every direction.
void AddTypes(std::vector<Row>& rows) {
  const std::pair<int, int> kTurns[] = {{0, 203},  {0, 300},   {0, 600},
                                        {90, 300}, {180, 300}, {270, 300}};
  for (const Type& type : kTypes) {
    const std::string number = std::to_string(type.number);
    rows.push_back({"xpos=10\nypos=14\nbarcode=" + number + "\ndata=" + type.data, "", type.format,
                    type.read, type.zbar});
    for (const auto& [rotation, dpi] : kTurns) {
      const bool upright = rotation % 180 == 0;
      rows.push_back({"filter",
                      "($_vxrs --barcode=" + number + " -w60 -h30 -r" + std::to_string(rotation) +
                          " --data=\"" + type.data + "\" $_vxre) show",
                      type.format,
                      type.read,
                      type.zbar,
                      rotation,
                      dpi,
                      {kLeft, kBottom, upright ? 60 : 30, upright ? 30 : 60}});
    }
  }
}

// The forms in which a program may write the text of a sequence, with every insert mode.
void AddForms(std::vector<Row>& rows) {
  const std::string text = "<$_vxrs --data=Form7 -w60 -h30 $_vxre>";
  for (const std::string mode :
       {"beforestring", "afterstring", "beforeline", "afterline\nremove"}) {
    for (const std::string& show :
         {"(" + text + ") show", HexString(text) + " show", Ascii85String(text) + " show",
          std::string("($_vxrs ) show (--data=Form7 ) show (-w60 -h30 $_vxre) show"),
          "(" + text.substr(0, 9) + "\\\n" + text.substr(9) + ") show",
          std::string("[(<$_vxrs --data=Form7 -w)-20(60 )15(-h30 $_vxre>)] TJ")})
      rows.push_back({"filter\ninsert=" + mode, show, "Code128", "Form7", "Form7"});
  }
}

// Parameters and data of the older syntax of sequences.
void AddOlderSyntax(std::vector<Row>& rows) {
  const std::string v1 = "filter\nv1format";
  const Row kRows[] = {
      {v1, "($_vxrs b20 w60 h20 dHello World $_vxre) show", "Code128", "Hello World "},
      {v1, "($_vxrs b8 m300 h15 Toff d\"A-1 B\"$_vxre) show", "Code39", "A-1 B"},
      {v1, "($_vxrs b55 w60 h20 Pr12 Pe4 dversion 1$_vxre) show", "PDF417", "version 1"},
      {v1, "($_vxrs b58 w30 h30 QRe3 r90 dturned$_vxre) show", "QRCode", "turned", "", 90},
      {v1, "($_vxrs b71 w25 h25 Ds10 son d\\\\x41BC$_vxre) show", "DataMatrix", "ABC"},
  };
  rows.insert(rows.end(), std::begin(kRows), std::end(kRows));
}

// The page that a row prints; of a barcode alone, in the middle of a page.
std::string PageOf(const Row& row) {
  const bool alone = row.show.empty();
  const std::string setup =
      row.box.width ? PageSetup(row.box.width, row.box.height) : PageSetup(alone ? 50 : 60, 30);
  const Program::Result result = Program{.settings = Split(row.settings)}.run(
      setup + "72 25.4 div dup 10 mul exch 14 mul moveto\n" + row.show + "\nshowpage\n");
  EXPECT_EQ(result.errors, "");
  return alone ? setup + result.output + "\n" : result.output;
}

// The only symbol of the page, which both readers find. Where a linear symbol was met between the
// ends of its bars, which lie along the shorter side of its box, is the reader's choice.
void ExpectSymbol(const Page& page, const Row& row) {
  const std::vector<Symbol> symbols = Decode(page), others = DecodeWithZBar(page);
  ASSERT_EQ(symbols.size(), 1u) << Describe(symbols);
  EXPECT_EQ(symbols[0].format, row.format);
  EXPECT_EQ(symbols[0].data, row.read);
  EXPECT_EQ(symbols[0].orientation, row.rotation);
  if (!row.zbar.empty()) {
    ASSERT_EQ(others.size(), 1u) << Describe(others);
    EXPECT_EQ(others[0].data, row.zbar);
  }
  const auto& [left, bottom, width, height] = row.box;
  if (width == 0) return;
  EXPECT_NEAR(symbols[0].x, left + width / 2.0, width > height ? 4 : width / 2.0)
      << Describe(symbols);
  EXPECT_NEAR(symbols[0].y, bottom + height / 2.0, width > height ? height / 2.0 : 4)
      << Describe(symbols);
}

TEST(Scan, EveryBarcodeReadsAtItsPlaceAndInItsDirection) {
  std::vector<Row> rows = {{"filter",
                            "gsave 45 rotate 2 2 scale 300 300 translate\n"
                            "($_vxrs --data=Corner -x15 -y20 -w50 -h20 $_vxre) show grestore",
                            "Code128",
                            "Corner",
                            "Corner",
                            0,
                            300,
                            {15, 20, 50, 20}}};
  AddTypes(rows);
  AddForms(rows);
  AddOlderSyntax(rows);
  for (const int dpi : {203, 300, 600}) {
    std::vector<Row> printed;
    std::ranges::copy_if(rows, std::back_inserter(printed),
                         [&](const Row& row) { return row.dpi == dpi; });
    std::string pages;
    for (const Row& row : printed) pages += PageOf(row);
    const Rendering rendering = Render(pages, dpi);
    EXPECT_EQ(rendering.messages, "");
    ASSERT_EQ(rendering.pages.size(), printed.size());
    for (std::size_t page = 0; page < printed.size(); ++page) {
      const Row& row = printed[page];
      SCOPED_TRACE(row.settings + '\n' + row.show + " at " + std::to_string(dpi) + " dpi");
      ExpectSymbol(rendering.pages[page], row);
    }
  }
}

std::string Orvella(const std::string& header, const std::string& data) {
  const std::string control = "\x1c";
  return control + 'a' + header + ';' + control + "b##" + data + control + 'b';
}

// Barcodes of PCL jobs, without what stands around them, from a corner of the page.
TEST(Scan, OrvellaBarcodesReadFromTheirPcl) {
  const struct {
    std::string sequence;
    const char* format;
    std::string read;
    int rotation = 0;
  } kRows[] = {
      {Orvella("12,0,150,0,0,1", "Order 4711"), "Code128", "Order 4711"},
      {Orvella("12,0,150,0,0,4", "Order 4711"), "Code128", "Order 4711", 90},
      {Orvella("12,0,150,0,0,6", "Order 4711"), "Code128", "Order 4711"},
      {Orvella("12,0,150,0,0,1", "\\saAB\\sh\\x61\\Sc1234\\f1"), "Code128", "ABa1234\x1d"},
      {Orvella("1,0,200,0,3,0", "A-1"), "Code39", "A-1"},
      {Orvella("3,0,200,10,0,2", "123456"), "ITF", "123456"},
      {Orvella("6,0,250,0,0,1", "400638133393"), "EAN-13", "4006381333931"},
      {Orvella("25,0,0,0,0,0,ECL=4", "Orvella data"), "PDF417", "Orvella data"},
  };
  for (const std::string mode : {"PCL5", "PCL5noHPGL"}) {
    for (const auto& row : kRows) {
      SCOPED_TRACE(row.sequence + " in " + mode);
      const Program::Result result =
          Filter("orvella=on xpos=10 ypos=14 modulewidth=0.3 pclmode=" + mode)
              .run("\033E" + row.sequence + "\033E");
      EXPECT_EQ(result.errors, "");
      const std::size_t begin = std::min(result.output.find("\033&f0S"), result.output.size());
      const std::size_t end = result.output.rfind("\033E");
      const Page page = PaintPcl(result.output.substr(begin, end - begin), 300, 100);
      const std::vector<Symbol> symbols = Decode(page);
      ASSERT_EQ(symbols.size(), 1u) << Describe(symbols);
      EXPECT_EQ(symbols[0].format, row.format);
      EXPECT_EQ(symbols[0].data, row.read);
      EXPECT_EQ(symbols[0].orientation, row.rotation);
    }
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
