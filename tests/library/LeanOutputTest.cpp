// What makes output quick must not show in it.
#include "library/layout/Layout.h"
#include "library/symbology/Encode.h"
#include "library/writer/PostScriptWriter.h"
#include "library/writer/TextBuilder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <utility>

namespace {

using namespace Library;

std::string Printed(double number) {
  char text[400];
  std::snprintf(text, sizeof text, "%.6f", number);
  std::string result = text;
  result.erase(result.find_last_not_of('0') + 1);
  if (result.back() == '.') result.pop_back();
  return result == "-0" ? "0" : result;
}

TEST(TextBuilderTest, DecimalsAreThoseOfTheExactValue) {
  std::minstd_rand random(7);
  std::uniform_real_distribution<double> digits(-1, 1), exponent(-9, 12);
  for (int i = 0; i < 20000; ++i) {
    const double number = digits(random) * std::pow(10, exponent(random));
    ASSERT_EQ(TextBuilder::decimal(number), Printed(number)) << i;
    const double half = std::floor(number) / 128;  // ends in the middle between two millionths
    ASSERT_EQ(TextBuilder::decimal(half), Printed(half)) << i;
  }
  for (const double number : {0.0, -0.0, -4e-7, -5e-7, 1e9, -1e300, 0.1234565, 999999999.9999996}) {
    EXPECT_EQ(TextBuilder::decimal(number), Printed(number));
  }
}

// The rectangles left out say where the bars begin.
TEST(LayOutFieldsTest, PrintsAsWithRectangles) {
  const std::pair<int, const char*> kSymbols[] = {{20, "Code 128"},          {8, "CODE 39"},
                                                  {15, "40063813339312345"}, {55, "PDF417"},
                                                  {71, "Data Matrix"},       {18, "A123B"}};
  for (const auto& [type, data] : kSymbols) {
    for (int rotation = 0; rotation < 4; ++rotation) {
      for (const double reduction : {0.0, 10.0, -10.0}) {
        Options options;
        options.type = type;
        options.data = data;
        options.rotation = rotation;
        options.reduction = reduction;
        options.bearerBarType = rotation;
        options.quietZone = {1.5, 1, 2.5, 0.5};
        options.quietZoneUnit = 2;
        const Symbol symbol = Encode(options);
        const BCRect box = {1234, 60003, 61237, 777};
        const PostScriptWriter writer(true);
        EXPECT_EQ(writer.write(LayOutFields(symbol, options, box)),
                  writer.write(LayOut(symbol, options, box)))
            << type << " turned " << rotation << " reduced by " << reduction;
      }
    }
  }
}

}  // namespace
