// Jobs whose sequences hold their parameters in the version-1 form.
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Support::Blanks;
using Support::Filter;
using Support::Join;
using Support::Lines;
using Support::Program;

const std::string kBarcode = "STAND-IN\n";  // what the recording library draws

Program::Result RunVersion1(const Lines& settings, const std::string& job) {
  Program program = Filter(Join({"v1format"}, settings));
  program.standIn = true;
  return program.run(job);
}

bool Called(const Program::Result& result, const std::string& call) {
  return std::find(result.calls.begin(), result.calls.end(), call) != result.calls.end();
}

TEST(Version1Jobs, SetTheBarcodeByLetters) {
  const std::string sequence = "$_vxrs b55 w40 Pr10 dHello World$_vxre";
  const Program::Result pcl = RunVersion1({}, "\033E" + sequence + "\033E");
  EXPECT_EQ(pcl.output, "\033E" + kBarcode + Blanks(sequence.size() - 1) + "\033E");
  EXPECT_TRUE(Called(pcl, "BCSetBCType(b1, 55)"));
  EXPECT_TRUE(Called(pcl, "BCSet_PDF417_Rows(b1, 10)"));
  EXPECT_TRUE(Called(pcl, "BCSetTextA(b1, \"Hello World\", 11)"));

  const Program::Result postScript = RunVersion1({"remove"}, "%!PS\n(" + sequence + ") show\n");
  EXPECT_EQ(postScript.output,
            "%!PS\n" + Support::Wrapped(kBarcode, Support::kRelative) + "() show\n");
  EXPECT_TRUE(Called(postScript, "BCSetTextA(b1, \"Hello World\", 11)"));
}

TEST(Version1Jobs, ChooseTheLanguageAndTheOverhead) {
  const Program::Result result = RunVersion1({"remove"}, "%!PS\n($_vxrs tPCL p d1$_vxre) show\n");
  EXPECT_EQ(result.output, "%!PS\n\033%-12345X\033E" + kBarcode + "\033E\033%-12345X() show\n");
}

TEST(Version1Jobs, AreReportedAndLeftWithoutABarcodeWhenAParameterIsWrong) {
  const std::string sequence = "$_vxrs wabc d1$_vxre";
  const Program::Result result = RunVersion1({}, "%!PS\n(" + sequence + ") show\n");
  EXPECT_EQ(result.output, "%!PS\n(" + Blanks(sequence.size()) + ") show\n");
  const std::size_t refused = result.errors.find("Invalid width parameter: \"wabc\"\n");
  ASSERT_NE(refused, std::string::npos) << result.errors;
  EXPECT_NE(result.errors.find("Barcode Sequence:  wabc d1", refused), std::string::npos)
      << result.errors;
}

TEST(Version1Jobs, TakeNoLongOptions) {
  const Program::Result result = RunVersion1({"remove"}, "\033E$_vxrs --data=1 $_vxre");
  EXPECT_EQ(result.output, "\033E");
  EXPECT_NE(result.errors.find("Unknown parameter: \"--data=1\"\n"), std::string::npos);
}

}  // namespace
