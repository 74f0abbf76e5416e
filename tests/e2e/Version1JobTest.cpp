// Jobs whose sequences hold their parameters in the version-1 form.
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

namespace {

using namespace Support;

TEST(Version1Jobs, SetTheBarcodeByLetters) {
  const std::string sequence = "$_vxrs b55 w40 Pr10 Qh3.5 Qv0 dHello World$_vxre";
  const Program::Result pcl = Recorded(Filter("v1format")).run("\033E" + sequence + "\033E");
  EXPECT_EQ(pcl.output, "\033E" + kDrawing + Blanks(sequence.size() - 1) + "\033E");
  EXPECT_EQ(FirstWith(pcl.calls, "BCSetBCType("), "BCSetBCType(b1, 55)");
  EXPECT_EQ(FirstWith(pcl.calls, "BCSet_PDF417_Rows("), "BCSet_PDF417_Rows(b1, 10)");
  EXPECT_EQ(FirstWith(pcl.calls, "BCSetQuietZone("), "BCSetQuietZone(b1, [3.5 0 3.5 0], 2)");
  EXPECT_EQ(FirstWith(pcl.calls, "BCSetTextA("), "BCSetTextA(b1, \"Hello World\", 11)");
}

TEST(Version1Jobs, AreReportedAndLeftWithoutABarcodeWhenAParameterIsWrong) {
  const struct {
    std::string parameters, output, errors;
  } rows[] = {
      {" b20 d1", Wrapped(kDrawing, kRelative), ""},
      {" tPCL p d1", "\033%-12345X\033E" + kDrawing + "\033E\033%-12345X", ""},
      {" wabc d1", "", "Invalid width parameter: \"wabc\"\n"},
      {" --data=1 ", "", "Unknown parameter: \"--data=1\"\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.parameters);
    const Program::Result result = Recorded(Filter("v1format remove"))
                                       .run("%!PS\n($_vxrs" + row.parameters + "$_vxre) show\n");
    EXPECT_EQ(result.output, "%!PS\n" + row.output + "() show\n");
    const std::size_t refused = result.errors.find(row.errors);
    ASSERT_NE(refused, std::string::npos) << result.errors;
    const std::size_t named = result.errors.find("Barcode Sequence: " + row.parameters, refused);
    EXPECT_EQ(named == std::string::npos, row.errors.empty()) << result.errors;
  }
}

}  // namespace
