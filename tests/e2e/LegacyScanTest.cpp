// Jobs in the two older syntaxes, down to what a reader reads on the page.
#include "tests/support/Decode.h"
#include "tests/support/Program.h"
#include "tests/support/Render.h"

#include <gtest/gtest.h>

namespace {

using Support::Filter;
using Support::Program;

constexpr int kDpi = 300;

// The one symbol on the one page of `postScript`.
Support::Symbol ReadPage(std::string_view postScript) {
  const Support::Rendering rendering = Support::Render(postScript, kDpi);
  EXPECT_EQ(rendering.messages, "");
  if (rendering.pages.size() != 1) {
    ADD_FAILURE() << rendering.pages.size() << " pages";
    return {};
  }
  const std::vector<Support::Symbol> symbols = Support::Decode(rendering.pages.front());
  if (symbols.size() == 1) return symbols.front();
  ADD_FAILURE() << "read: " << Support::Describe(symbols);
  return {};
}

TEST(LegacyScan, ReadsBarcodesOfVersion1Jobs) {
  const struct {
    std::string parameters, format, data;
  } kRows[] = {
      {"b20 w60 h20 dHello World ", "Code128", "Hello World "},
      {"b8 m300 h15 Toff d\"A-1 B\"", "Code39", "A-1 B"},
      {"b55 w60 h20 Pr12 Pe4 dversion 1", "PDF417", "version 1"},
      {"b58 w30 h30 QRe3 r90 dturned", "QRCode", "turned"},
      {"b71 w25 h25 Ds10 son d\\\\x41BC", "DataMatrix", "ABC"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.parameters);
    const std::string job = "%!PS\n/Helvetica 10 selectfont 200 400 moveto ($_vxrs " +
                            row.parameters + "$_vxre) show showpage\n";
    const Program::Result result = Filter({"v1format"}).run(job);
    EXPECT_EQ(result.errors, "");
    const Support::Symbol symbol = ReadPage(result.output);
    EXPECT_EQ(symbol.format, row.format);
    EXPECT_EQ(symbol.data, row.data);
  }
}

TEST(LegacyScan, ReadsBarcodesOfOrvellaJobs) {
  const struct {
    std::string header, data, format, read;
    int orientation;
  } kRows[] = {
      {"12,0,150,0,0,1", "Order 4711", "Code128", "Order 4711", 0},
      {"12,0,150,0,0,4", "Order 4711", "Code128", "Order 4711", 90},
      {"12,0,150,0,0,6", "Order 4711", "Code128", "Order 4711", 0},
      {"12,0,150,0,0,1", "\\saAB\\sh\\x61\\Sc1234\\f1", "Code128", "ABa1234\x1d", 0},
      {"1,0,200,0,3,0", "A-1", "Code39", "A-1", 0},
      {"3,0,200,10,0,2", "123456", "ITF", "123456", 0},
      {"6,0,250,0,0,1", "400638133393", "EAN-13", "4006381333931", 0},
      {"25,0,0,0,0,0,ECL=4", "Orvella data", "PDF417", "Orvella data", 0},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.header);
    Program program =
        Filter({"orvella=on", "globalxoffset=60", "globalyoffset=100", "modulewidth=0.3"});
    program.environment = {{"LD_PRELOAD", VEXTORIN_POSTSCRIPT_FOR_PCL},
                           {"ASAN_OPTIONS", "verify_asan_link_order=0"}};
    const Program::Result result =
        program.run("\033E\034a" + row.header + ";\034b##" + row.data + "\034b\033E");
    const std::size_t begin = result.output.find("%!PS");
    EXPECT_EQ(result.errors, "");
    ASSERT_NE(begin, std::string::npos);
    const Support::Symbol symbol =
        ReadPage(result.output.substr(begin, result.output.rfind('\033') - begin));
    EXPECT_EQ(symbol.format, row.format);
    EXPECT_EQ(symbol.data, row.read);
    EXPECT_EQ(symbol.orientation, row.orientation);
  }
}

}  // namespace
