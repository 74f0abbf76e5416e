#include "library/Error.h"
#include "library/grid/Parts.h"
#include "library/layout/Measure.h"
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/SymbolPage.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

enum Component : int { kAuto = 1, kA, kB, kC };

Library::Options Composite(int type, int component, const std::string& data) {
  Library::Options options = OptionsFor(type, data);
  options.compositeType = component;
  options.translateEscapes = true;
  return options;
}

// "80070032 at -1 in component"
std::string Answer(const Library::Options& options) {
  try {
    Library::Encode(options);
    return "good";
  } catch (const Library::Error& error) {
    std::ostringstream text;
    text << Refusal{error.code, error.position.value};
    return text.str() + (error.inComposite ? " in component" : "");
  }
}

}  // namespace

TEST(Composite, IsDrawnAsBwippDrawsIt) {
  const struct {
    int type, component;
    const char* data;
    std::uint64_t digest;
  } cases[] = {
      {10, kA, "40313948|(21)1234-abcd", 0x0BAF92843F146D86},
      {13, kA, "4006381333931|(21)1234-abcd", 0xC335EF542B77A359},
      {13, kB, "4006381333931|(17)261200(10)aB-c/1", 0x42D4C2D8050C8218},
      {34, kA, "012345678905|(11)260101", 0x40D70483498364F4},
      {17, kA, "012345678905|(11)260101", 0x40D70483498364F4},
      {16, kA, "(01)09501101530003|(21)1234-abcd", 0x0F3049FBB78F5E01},
      {16, kB, "(01)09501101530003|(21)1234-abcd", 0xFC55D31AD9571E7A},
      {16, kC, "(01)09501101530003(10)Ab|(21)1234-abcd", 0x4F71868FF4024DF2},
      {29, kA, "(01)04412345678909|(21)1234-abcd", 0x65D0731420355303},
      {78, kAuto, "(01)04412345678909|(21)1234-abcd", 0x65D0731420355303},
      // Five finders: libzint alone draws another separator.
      {31, kA, "(01)09501101530003(10)ABCDEF12345(21)1234567|(21)1234-abcd", 0x45DD578B8D61DC37},
      {79, kA, "(01)09501101530003|(21)1234-abcd", 0x30E7C985C3FBEE2B},
      {80, kB, "(01)04412345678909|(21)1234-abcd", 0x0A75DD473F16FD01},
      {81, kA, "(01)09501101530003(10)ABCDEF12345|(21)1234-abcd", 0x999E93E068C1F2F8},
  };
  for (const auto& row : cases) {
    const Library::Symbol symbol = Library::Encode(Composite(row.type, row.component, row.data));
    EXPECT_TRUE(IsSame(row.type, "BWIPP's modules", DigestOf(symbol), row.digest))
        << row.type << " " << row.data;
  }
}

TEST(Composite, LinearPartsAreReadBack) {
  const struct {
    int type;
    const char* linear;
    const char* read;
    std::vector<int> components;
  } cases[] = {
      {10, "4031394", "40313948", {kA, kB}},
      {13, "400638133393", "4006381333931", {kA, kB}},
      {34, "01234567890", "0012345678905", {kA, kB}},
      {16,
       "(10)LOT-a(21)5",
       "10LOT-a\x1D"
       "215",
       {kA, kB, kC}},
      {16, "(91)12", "9112", {kA, kB, kC}},
      {29, "0950110153000", "0109501101530003", {kA, kB}},
      {31, "(01)09501101530003(10)aB", "010950110153000310aB", {kA, kB}},
      {48, "10614141123456789", "00106141411234567897", {kA, kB, kC}},
      {72, "0950110153000", "0109501101530003", {kA, kB, kC}},
      {75, "10614141123456789", "00106141411234567897", {kA, kB, kC}},
      {78, "0950110153000", "0109501101530003", {kA, kB}},
      {79, "0950110153000", "0109501101530003", {kA, kB}},
      {80, "0950110153000", "0109501101530003", {kA, kB}},
      {81, "(01)09501101530003(10)aB", "010950110153000310aB", {kA, kB}},
  };
  for (const auto& row : cases) {
    for (const int component : row.components) {
      const std::string data = std::string(row.linear) + "|(10)A-b(21)5";
      const Library::Symbol symbol = Library::Encode(Composite(row.type, component, data));
      EXPECT_TRUE(IsSame(symbol.type, "ZBar", ReadByZBar(symbol), row.read))
          << row.type << ", " << component;
      for (const std::string& modules : ModulesOf(symbol)) {
        EXPECT_EQ(static_cast<int>(modules.size()), symbol.width);
      }
    }
  }
}

TEST(Composite, ComponentsTakeTheTypeAskedForOrTheSmallest) {
  const std::string more(56, '1'), most(338, '1');
  const struct {
    int type, component;
    std::string data;
    const char* answer;
  } cases[] = {
      {13, kA, "9100" + more.substr(4), "good"},
      {13, kA, "9100" + more, "80090004 at -1 in component"},
      {13, kB, "9100" + more, "good"},
      {13, kB, "9100" + most.substr(4), "good"},
      {13, kB, "9100" + most, "80090004 at -1 in component"},
      {13, kAuto, "9100" + most, "80090004 at -1 in component"},
      {16, kA, "9100" + more, "80090004 at -1 in component"},
      {16, kB, "9100" + most, "80090004 at -1 in component"},
      {16, kC, "9100" + std::string(2357, '1'), "good"},
      {16, kC, "9100" + std::string(2358, '1'), "80090004 at -1 in component"},
  };
  for (const auto& row : cases) {
    const std::string linear = row.type == 13 ? "400638133393|" : "(01)09501101530003|";
    EXPECT_EQ(Answer(Composite(row.type, row.component, linear + row.data)), row.answer)
        << row.type << ", " << row.component << ", " << row.data.size();
  }
  for (const auto& [data, component] :
       {std::pair{"91" + more.substr(4), kA}, {"91" + more, kB}, {"91" + most + most, kC}}) {
    const std::string both = "(01)09501101530003|" + data;
    EXPECT_EQ(ModulesOf(Library::Encode(Composite(16, kAuto, both))),
              ModulesOf(Library::Encode(Composite(16, component, both))));
  }
}

TEST(Composite, ErrorsNameTheirPart) {
  const struct {
    int type, component;
    const char* data;
    const char* answer;
  } cases[] = {
      {20, kAuto, "Test|(10)A", "80070032 at -1 in component"},
      {13, kC, "400638133393|(10)A", "80070032 at -1 in component"},
      {13, kA, "4006381333932|(10)A", "8007000d at 12"},
      {13, kA, "40063X133393|(1", "8007000d at 5"},
      {13, kA, "400638133393|(10)A[", "8007000d at 18 in component"},
      {13, kA, "400638133393|(01)09501101530004", "8007000d at 30 in component"},
      {13, kA, "400638133393|(10)A|(21)B", "8007000d at 18 in component"},
      {13, kA, R"(400638133393|10A\211)", "8007000d at 16 in component"},
      {13, kA, R"(400638133393|\x31\x30\x7B)", "8007000d at 21 in component"},
      {13, kA, "400638133393|(8010)A#", "8007000d at 20 in component"},
      {13, kA, "400638133393|1126", "8007000d at 13 in component"},
      {13, kA, "400638133393|90", "8007000d at -1 in component"},
      {13, kA, "400638133393|", "8007000d at -1 in component"},
      {13, kA, "400638133393", "8007000d at -1 in component"},
      {13, kA, "|(10)A", "8007000d at -1"},
      {16, kC, "91|(10)A", "8007000d at -1"},
      {16, kC, R"(\21091\210|(10)A)", "8007000d at -1"},
      {16, kC, "912|(10)A", "good"},
      {30, kA, "2950110153000|(10)A", "8007000d at 0"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(Answer(Composite(row.type, row.component, row.data)), row.answer) << row.data;
  }
  Library::Options corrected = Composite(13, kA, "4006381333932|(01)09501101530004");
  corrected.autoCorrect = 1;
  EXPECT_EQ(ModulesOf(Library::Encode(corrected)),
            ModulesOf(Library::Encode(Composite(13, kA, "4006381333931|(01)09501101530003"))));
  Library::Options narrow = Composite(81, kA, "(01)09501101530003(10)ABC|(10)A");
  narrow.segmentsPerRow = 2;
  EXPECT_EQ(Answer(narrow), "80070057 at -1");
  Library::Options grid = Composite(13, kA, "400638133393|(10)A");
  grid.grid.enabled = true;
  try {
    Library::EncodeParts(grid);
    ADD_FAILURE();
  } catch (const Library::Error& error) {
    EXPECT_EQ(error.code, BC_E_NOTSUPPORTED);
    EXPECT_TRUE(error.inComposite);
  }
}

TEST(Composite, LinearPartTakesTheHeightThatIsLeft) {
  constexpr double x = 300;
  Library::Options options = Composite(13, kA, "400638133393|(10)LOT42");
  options.printText = 0;
  options.moduleWidth = x;
  options.sizeMode = 0;
  const auto heights = [&](double height) {
    const Library::Symbol symbol = Library::Encode(options);
    return Library::Measure(symbol, options, {symbol.width * x, height}).rowHeights;
  };
  EXPECT_EQ(heights(100 * x),
            (std::vector<double>{2 * x, 2 * x, 2 * x, 2 * x, 2 * x, 2 * x, 88 * x}));
  // Where the linear rows have heights of their own they grow, the component does not.
  options.type = 79;
  options.data = "0950110153000|(10)LOT42";
  std::vector<double> rows = heights(60 * x);
  EXPECT_EQ(rows[0], 2 * x);
  EXPECT_GT(rows.back(), 20 * x);
  EXPECT_EQ(rows.back() * 5, rows[rows.size() - 3] * 7);
}

TEST(Composite, TextAndGuardsStayWithTheLinearPart) {
  const Library::Symbol plain = Library::Encode(OptionsFor(13, "400638133393"));
  const Library::Symbol both = Library::Encode(Composite(13, kA, "400638133393|(10)LOT42"));
  const int shift = both.guards.at(0).from;
  EXPECT_GT(shift, 0);
  EXPECT_EQ(both.guards.at(2).to, plain.guards.at(2).to + shift);
  ASSERT_EQ(both.texts.size(), plain.texts.size());
  for (std::size_t i = 0; i < plain.texts.size(); ++i) {
    EXPECT_EQ(both.texts[i].text, plain.texts[i].text);
    EXPECT_EQ(both.texts[i].from, plain.texts[i].from + shift);
  }
  const std::string row = ModulesOf(both).back();
  EXPECT_EQ(row.substr(static_cast<std::size_t>(shift), 95), ModulesOf(plain)[0]);

  // A GS1-128 is a character longer, and its check character covers that one.
  const Library::Symbol linked = Library::Encode(Composite(16, kA, "(10)ABC|(10)LOT42"));
  const Library::Symbol alone = Library::Encode(OptionsFor(16, "(10)ABC"));
  EXPECT_EQ(linked.texts.at(0).to - linked.texts.at(0).from, alone.width + 11);
  EXPECT_EQ(alone.checkDigits, "79");
  EXPECT_EQ(linked.checkDigits, "51");
}
