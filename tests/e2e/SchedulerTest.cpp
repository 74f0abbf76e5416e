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
    EXPECT_EQ(errors[0], "ERROR: vextorin: page 2: EAN-13 takes digits only ('A' at 6)");
  }
  const std::string width = "%!PS\n($_vxrs --data=1 --width=secret $_vxre) show showpage\n";
  EXPECT_EQ(Errors(Filter(), width), Lines{"ERROR: vextorin: byte 6: Invalid barcode width"});
  EXPECT_EQ(Errors(Filter(), "%!PS\n($_vxrs --barcode=99999 --data=1 $_vxre) show showpage\n"),
            Lines{"ERROR: vextorin: byte 6: there is no barcode type 99999"});
  EXPECT_EQ(Errors(Filter("trace=off"), width), Lines{});
}

// What people who print read of a failed barcode: nothing of its data but the one wrong character.
TEST(UnderTheScheduler, AFailedBarcodeHasAPlainReason) {
  const TempFolder folder;
  const std::string file = folder.write("settings", "barcode=20\nwidth=abc\n");
  const struct {
    std::string options, reason;
  } kRows[] = {
      {"--barcode=8 --data=AB\\303",
       "Code 39 takes digits, capital letters, blanks and $%+-./ only "
       "('\\xC3' at 3)"},
      {"--barcode=60 --data=a\\001",
       "Code 128 B takes printable ASCII characters only ('\\x01' at 2)"},
      {"--barcode=73 --data=12", "VIN takes 17 characters (2 given)"},
      {"--barcode=146 --data=12345'7",
       "BC412 takes digits and capital letters (not O) only ('\\'' at 6)"},
      {"--barcode=13 --data=4006", "EAN-13 takes 12 or 13 digits (4 given)"},
      {"--barcode=13 --data=400638133393211", "EAN-13 takes 12 or 13 digits (15 given)"},
      {"--barcode=13 --data=4006381333932",
       "the check digit of this EAN-13 should be 1 ('2' at 13)"},
      {"--barcode=16 --data=(01)09501101530004",
       "the check digit of this GS1-128 should be 3 ('4' at 18)"},
      {"--barcode=51 --data=999999", "invalid data for Pharmacode one-track ('9' at 1)"},
      {"--barcode=58 --QRversion=1 --data=" + std::string(400, 'x'),
       "too much data for one QR Code, or for the size that is set for it (400 characters)"},
      {"--barcode=3 --data=12 --checkdigit=9", "2 of 5 Interleaved has no check digit method 9"},
      {"--barcode=8 --data=A --eci=26", "Code 39 takes no ECI number"},
      {"--barcode=19 --data=123", "barcodes of type Codabar (18 widths) can't be made"},
      {"--barcode=20 --data=x --width=2 --height=5 --mustfit=on",
       "Code 128 does not fit into its place, and 'mustfit' is on"},
      {"--barcode=20 --data=x --secret=1", "option 3 is not known"},
      {"--data=x --width", "option 2 has no value"},
      {"--datafile=" + folder.file("none"),
       "the file of 'datafile' can't be opened: No such file or directory"},
      {"--bcfile=" + file, "Invalid barcode width, in line 2 of the settings file"},
  };
  for (const char* errors : {"onerror=message", "onerror=ignore"}) {
    for (const auto& [options, reason] : kRows) {
      SCOPED_TRACE(options);
      const std::string job = "%!PS\n($_vxrs " + options + " $_vxre) show showpage\n";
      EXPECT_EQ(Errors(Filter(errors), job), Lines{"ERROR: vextorin: byte 6: " + reason});
    }
  }
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
