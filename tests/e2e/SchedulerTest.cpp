// What is different when the print scheduler runs the program, and a configuration on trial.
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Support;

const std::string kBadBarcode =
    "%!PS-Adobe-3.0\n%%Page: 1 1\n(x) show\n%%Page: 2 2\n"
    "($_vxrs --barcode=13 --data=40063A13secret $_vxre) show showpage\n";

// The lines of errors, without what stands behind the last of them.
Lines Errors(Program program, const std::string& job) {
  program.environment.emplace_back("CUPS_SERVERBIN", "/usr/lib/cups");
  Lines lines = Split(program.run(job).errors);
  for (const std::string& line : lines) {
    const Lines prefixes = {
        "ERROR: vextorin: ", "WARNING: vextorin: ", "INFO: vextorin: ", "DEBUG: vextorin: "};
    EXPECT_TRUE(std::ranges::any_of(prefixes, [&](const std::string& prefix) {
      return line.starts_with(prefix);
    })) << line;
  }
  std::erase_if(lines, [](const std::string& line) { return !line.starts_with("ERROR: "); });
  return lines;
}

TEST(UnderTheScheduler, AnErrorIsOneLineWithPlaceAndReason) {
  for (const char* trace : {"trace=error", "trace=verbose"}) {
    SCOPED_TRACE(trace);
    const Lines errors = Errors(Filter(trace), kBadBarcode);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_TRUE(errors[0].starts_with("ERROR: vextorin: page 2: ")) << errors[0];
    EXPECT_NE(errors[0].find("'A' at position 6"), std::string::npos) << errors[0];
    EXPECT_EQ(errors[0].find("secret"), std::string::npos) << errors[0];
  }
  const std::string width = "%!PS\n($_vxrs --data=1 --width=secret $_vxre) show showpage\n";
  EXPECT_EQ(Errors(Filter(), width), Lines{"ERROR: vextorin: byte 6: Invalid barcode width"});
  EXPECT_EQ(Errors(Filter(), "%!PS\n($_vxrs --barcode=99999 --data=1 $_vxre) show showpage\n"),
            Lines{"ERROR: vextorin: byte 6: Couldn't set barcode type to 99999."});
  EXPECT_EQ(Errors(Filter("trace=off"), width), Lines{});
}

TEST(UnderTheScheduler, AWrongConfigurationNamesItsLine) {
  const Lines errors = Errors(Filter("width=abc"), kBadBarcode);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_TRUE(errors[0].starts_with("ERROR: vextorin: Wrong configuration in line 2 of "));
  EXPECT_TRUE(errors[0].ends_with("width=abc (Invalid barcode width: abc)")) << errors[0];
  const Finished missing = Support::Run(
      {.arguments = {VEXTORIN_PROGRAM, "--inifile=/nowhere/x", "user", "title", "1", ""},
       .environment = {{"CUPS_SERVERBIN", "/usr/lib/cups"}}});
  EXPECT_TRUE(
      missing.errors.ends_with("ERROR: vextorin: Couldn't open ini-file. (IniFile: /nowhere/x)\n"))
      << missing.errors;
}

TEST(AConfigurationOnTrial, IsReportedLineByLine) {
  const TempFolder folder;
  const auto check = [](const std::string& file) {
    return Support::Run({.arguments = {VEXTORIN_PROGRAM, "--check", file}});
  };
  const std::string bad = folder.write("bad",
                                       "# comment\nfilter=yes\ninsert=auto\n\nwidth=abc\nfoo=1\n"
                                       "errorfile\nnostderr\nhelp\nbar\n");
  const Finished wrong = check(bad);
  EXPECT_EQ(wrong.status, 10);
  EXPECT_EQ(wrong.errors, "");
  EXPECT_EQ(wrong.output,
            bad + ":2: filter=yes  WRONG: the option takes no value\n" +  //
                bad + ":3: insert=auto\n" +                               //
                bad + ":5: width=abc  WRONG: Invalid barcode width: abc\n" + bad +
                ":6: foo=1  WRONG: Unrecognized option foo\n" + bad +
                ":7: errorfile  WRONG: Option 'errorfile' requires an argument.\n" + bad +
                ":8: nostderr\n" +  //
                bad + ":9: help  WRONG: shows a text in place of every job\n" + bad +
                ":10: bar  WRONG: Unrecognized option bar\n" +  //
                bad + ": 6 mistakes\n");
  const Finished every = check(VEXTORIN_EVERY_OPTION);
  EXPECT_EQ(every.status, 0) << every.output;
  EXPECT_EQ(check(folder.file("none")).status, 20);
}

}  // namespace
