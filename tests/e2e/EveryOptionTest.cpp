// A configuration that sets every option once, as a user would try it: the log of the run shows
// each value. The file is the example that is shipped.
#include "settings/AppOptions.h"
#include "settings/BarcodeOptions.h"
#include "tests/support/Program.h"
#include "tests/support/Render.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using namespace Support;

Lines ExampleLines() {
  Lines lines;
  for (const std::string& line : Split(ReadFile(VEXTORIN_EVERY_OPTION))) {
    if (!line.empty() && line.front() != '#') lines.push_back(line);
  }
  return lines;
}

// The values that the dump shows, from the first group of the barcode settings on.
const Lines kDump = Split(
    "Data = The quick brown fox; Output format = 1; Barcode type = 58; Checkdigit method = 0; "
    "Auto correction = 1; Translate escape sequences = 0; Guard width = 0.25; "
    "Bearer bar width = 1.25; Bearer bar type = 2; Notch height = 2; Module width = 0.5; "
    "Bar width reduction = 4; Bar width reduction unit = 6; Print ratio = 1:2:1:3; "
    "Format string = &; Optimize width = 1; Quiet zone unit = 5; Quiet zone horizontal = 4; "
    "Quiet zone vertical = 4.5; NoOverhead flag = 1; Image format = PNG; DPI = 600; "
    "Use DefaultSet = 1; Color Mode = 1; Background Mode = 1; PCL Mode = 1; Compression = 0; "
    "X position = 13.5; Y position = 32.5; Width = 80; Height = 60; Rotation = 2; "
    "Orientation = 1; Must fit = 0; Decoder = 2; Size mode = 0; Text position = 3; "
    "Text alignment = 3; Font size = 9; Font name = Courier; Text distance = 0.75; "
    "Trim whitespaces = 1; Initgraphics flag = 1; Move cursor flag = 1; "
    "Escape string operation = 1; Embedding overhead = 0; Relative positioning = 0; "
    "CC Type = 0; Rows = 2; Columns = 2; Horizontal distance = 5; Vertical distance = 6; "
    "Data limit = 10; Dynamic size (bounding rectangle) = 2; Structured append = 2; Rows = 12; "
    "Columns = 5; Error correction level = 4; Row height = 1.1; PDF417 mode = 1; "
    "Micro PDF417 version = 7; Micro PDF417 Mode = 2; Segment index = 3; File id = 042; "
    "Last segment = 1; Filename = manual.txt; Segment count = 6; Timestamp = 1700000000; "
    "Sender = Dock 12; Addressee = Ward 3; File size = 4096; Checksum = 77; "
    "Row-column ratio = 3:1; Size = 10; Format = 3; Enforce binary = 1; Rectangular = 1; "
    "Sum = 4; Index = 2; File id = 258; Mode = 3; Undercut = 15; Sum = 5; Index = 4; "
    "Preamble = pre; Service = 001; Country = 840; Postal code = B1050; Version = 4; "
    "Format = 0; Format application indicator = A; Error correction level = 3; "
    "Mask pattern = 5; Sum = 16; Index = 15; Parity = 200; Version = 2; "
    "Error correction level = 0; Mask pattern = 1; Rows = 8; Columns = 20; Row height = 2.5; "
    "Row separator height = 0.3; Format = 1; Size = 11; Enforce binary = 1; "
    "Error correction level = 33; Runes mode = 1; Format = 2; Format specifier = 37; "
    "Structured Append = 1; Sum = D; Index = B; Message Id = ID-1; Segments per row = 6",
    "; ");

template <class Table>
void ExpectAllSet(const Table& table, const std::set<std::string>& names,
                  const std::set<std::string>& elsewhere) {
  for (const auto& option : table) {
    const std::string name(option.name);
    EXPECT_EQ(names.count(name) + elsewhere.count(name), 1U) << name;
  }
}

TEST(EveryOptionExample, SetsEachOptionOnce) {
  std::set<std::string> names;
  for (const std::string& line : ExampleLines()) {
    EXPECT_TRUE(names.insert(line.substr(0, line.find('='))).second) << line;
  }
  ExpectAllSet(Settings::AppOptions(), names,
               {"filter", "output", "inifile", "errorfile", "syslog", "nostderr", "help",
                "shorthelp", "version", "morehelp", "barcodesettings"});
  ExpectAllSet(Settings::BarcodeOptions(), names,
               {"datafile", "bcfile", "dravlindefaults", "PDFauto"});
}

TEST(EveryOptionExample, RunsAndShowsEveryValue) {
  const auto result = Program{.settings = ExampleLines()}.run();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors.find("Error: "), std::string::npos) << result.errors;
  const auto rendering = Render("%!PS\n" + result.output + " showpage\n", 72);
  EXPECT_EQ(rendering.messages, "");
  ASSERT_EQ(rendering.pages.size(), 1U);
  EXPECT_NE(std::ranges::count(rendering.pages[0].gray, 0), 0);
  std::size_t at = result.errors.find("Barcode Settings: ");
  for (const std::string& line : kDump) {
    at = result.errors.find("\n  " + line + '\n', at);
    ASSERT_NE(at, std::string::npos) << line << '\n' << result.errors;
  }
  for (const std::string& line :
       Split("MemorySize = 100000; Global x offset = 1.5; Global y offset = -2; Stream Type = 1; "
             "Begin of Escape Sequence = <<bar; End of Escape Sequence = bar>>; "
             "Insert Mode = 2; Insert Pattern = %HERE; PCL Reset = 1; SAP Flag = 1; "
             "Orvella Flag = 1; v1format Flag = 1; Ignore Barcode Error Flag = 0; "
             "Ignore No Data Flag = 1; Filter Line-by-Line Flag = 1",
             "; ")) {
    EXPECT_NE(result.errors.find('\n' + line + '\n'), std::string::npos) << line;
  }
}

}  // namespace
