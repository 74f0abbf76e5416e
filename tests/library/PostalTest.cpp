// Postal codes: bars against patterns of other encoders and of the services' own documents, the
// rules for their data, the sizes of their bars.
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"

#include <gtest/gtest.h>

namespace {

using Library::Options;
using Library::Symbol;

// A letter for each bar: F full, A with ascender, D with descender, T tracker only; of two states L
// long, S short. Lines of text.
std::string Bars(const Symbol& symbol) {
  std::vector<std::string> rows;
  for (const Library::SymbolRow& row : symbol.rows) {
    std::string& modules = rows.emplace_back();
    bool dark = true;
    for (const int run : row.runs) {
      modules.append(static_cast<std::size_t>(run), dark ? '1' : '0');
      dark = !dark;
    }
  }
  constexpr int kTwoTrack = 53;
  const bool twoStates = rows.size() == 2 && symbol.type != kTwoTrack;
  std::string bars;
  for (std::size_t i = 0; i < rows[0].size(); i += 2) {
    const bool up = rows.front()[i] == '1', down = rows.back()[i] == '1';
    const char* const letters = twoStates ? "SSLL" : "TDAF";
    bars += letters[(up ? 2 : 0) + (down ? 1 : 0)];
  }
  return bars;
}

std::vector<double> Heights(const Symbol& symbol) {
  std::vector<double> heights;
  for (const Library::SymbolRow& row : symbol.rows) heights.push_back(row.height);
  return heights;
}

}  // namespace

TEST(PostalCodes, AreDrawnAsOthersDrawThem) {
  const struct {
    int type;
    std::string data, bars, text, check;
  } cases[] = {
      // BWIPP
      {40, "12345", "LSSSLLSSLSLSSLLSSLSSLSLSLSSLSLSL", "123455", "5"},
      {41, "123455", "LSSSLLSSLSLSSLLSSLSSLSLSLSSLSLSL", "123455", "5"},
      {42, "123456789", "LSSSLLSSLSLSSLLSSLSSLSLSLSSLLSSLSSSLLSSLSLSLSSSLSLSL", "1234567895", "5"},
      {43, "1234567895", "LSSSLLSSLSLSSLLSSLSSLSLSLSSLLSSLSSSLLSSLSLSLSSSLSLSL", "1234567895", "5"},
      {44, "12345678901", "LSSSLLSSLSLSSLLSSLSSLSLSLSSLLSSLSSSLLSSLSLSLSSLLSSSSSSLLSLSSLL",
       "123456789014", "4"},
      {45, "12345678901", "LSSSLLSSLSLSSLLSSLSSLSLSLSSLLSSLSSSLLSSLSLSLSSLLSSSSSSLLSLSSLL",
       "123456789014", "4"},
      {53, "64570080", "FFFFFFFFFFFFFFFF", "64570080", ""},
      {53, "01234567", "DFAADFDDDDDFD", "01234567", ""},
      {63, "39549554", "ATFAFAAFTFADAATFADADAATTADAFATAATDDAT", "39549554", ""},
      {64, "3954955412345", "ATADTFAFTFADAATFADADAATFFTFATFDTAFTAATTFDTTFAATDAFAT", "3954955412345",
       ""},
      {64, "3954955412345678", "ATADTFAFTFADAATFADADAAFAFDAFAAADDFDADDFADTDFTTADAAAT",
       "3954955412345678", ""},
      {65, "39549554123456789012345",
       "ATDFFDAFTFADAATFADADAAFAFDAFAAADDFDADDTFFFFAFDAFAAADTAFDAAFFTTTAAAT",
       "39549554123456789012345", ""},
      {66, "12345678", "ATAAADFAFDAFAAADDFDADDTTATDADDDTFDAAT", "12345678", ""},
      {70, "w1j 0tr 01", "AAFDTTDAFADTFTTFFFDATFTADTTFFTDAFAFDTF", "W1J0TR01", "W"},
      {76, "15400233-16-4-205",
       "FDFFTFTFFADFTTFTTFDADFADFATFTFFTDAFTFTFADTFTFDAFTTFTFTDATDATDADAFDF", "15400233-16-4-205",
       ""},
      {82, "40123452356", "LLSLLSSSLLLLLLSSLLSLSLLSSLLSLLSLSLSLLLSLSLLSSLLSLSLLSSLLLSLSLL",
       "401234523565", "5"},
      {83, "40123452356366",
       "LLSLLSSSLLLLLLSSLLSLSLLSSLLSLLSLSLSLLLSLSLLSSLLSLSLLSSLLLLSSLLSSLLLSSLLL", "40123452356366",
       "6"},
      {85, "01234567094987654321-01234567891",
       "AADTFFDFTDADTAADAATFDTDDAAADDTDTTDAFADADDDTFFFDDTTTADFAAADFTDAADA",
       "01 234 567094 987654321 01234567891", ""},
      {85, "01234567094987654321",
       "ATTFATTDTTADTAATTDTDTATTDAFDDFADFDFTFFFFFTATFAAAATDFFTDAADFTFDTDT",
       "01 234 567094 987654321", ""},
      {90, "2500gg 30250", "TDFADDAATTFFTTFFDAFTDAFTDTAFTTFFTDFADDAATTFF", "2500GG30250", ""},
      {93, "DAFTTFAD", "DAFTTFAD", "DAFTTFAD", ""},
      // CEPNet by POSTNET's table, 67 and 68 by their Reed-Solomon syndromes
      {54, "36400000", "LSSLLSSLLSSSLSSLLLSSSLLSSSLLSSSLLSSSLLSSSLSSSLL", "364000007", "7"},
      {67, "34567890", "ATDDDAAFAAADDFDADDTFFFTFTFFFFTDDAFTAT", "34567890", ""},
      {68, "98765432", "ATTFFDTFDDDADFADAAAFFDTAAAAFDFDAADFAT", "98765432", ""},
      // Royal Mail Mailmark barcode C and L encoding and decoding, examples
      {121, "1100000000000XY11",
       "TTDTTATTDTAATTDTAATTDTAATTDTTDDAATAADDATAATDDFAFTDDTAADDDTAAFDFAFF", "1100000000000XY11",
       ""},
      {121, "21b2254800659JW5O9QA6Y",
       "DAATATTTADTAATTFADDDDTTFTFDDDDFFDFDAFTADDTFFTDDATADTTFATTDAFDTFDDA",
       "21B2254800659JW5O9QA6Y", ""},
      {121, "11000000000000000XY11  ",
       "TTDTTATDDTTATTDTAATTDTAATDDTTATTDTTDATFTAATDDTAATDDTATATFAADDAATAATDDTAADFTFTA",
       "11000000000000000XY11", ""},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::Message() << row.type << " " << row.data);
    const Symbol symbol = Library::Encode(OptionsFor(row.type, row.data));
    EXPECT_TRUE(IsSame(row.type, "reference rows", Bars(symbol), row.bars));
    ASSERT_EQ(symbol.texts.size(), 1u);
    EXPECT_EQ(symbol.texts[0].text, row.text);
    EXPECT_EQ(symbol.checkDigits, row.check);
  }
  // Customer information is filled up with blanks.
  EXPECT_EQ(Bars(Library::Encode(OptionsFor(64, "39549554A"))),
            Bars(Library::Encode(OptionsFor(64, "39549554A    "))));
  EXPECT_EQ(Bars(Library::Encode(OptionsFor(41, "12345"))),
            Bars(Library::Encode(OptionsFor(40, "12345"))));
}

TEST(PostalCodes, RefuseWhatIsNoneAndNameTheCharacter) {
  const Refusal tooLong{BC_E_DATATOOLONG, -1}, incomplete{BC_E_INVALIDDATA, -1};
  const auto invalid = [](int position) { return Refusal{BC_E_INVALIDDATA, position}; };
  const struct {
    int type;
    std::string data;
    Refusal refusal;
  } cases[] = {
      {40, "1234", incomplete},
      {40, "123456", tooLong},
      {41, "123456", invalid(5)},
      {42, "12345678", incomplete},
      {43, "12345A7890", invalid(5)},
      {45, "1234567890123", tooLong},
      {53, "3", invalid(0)},
      {53, "64570081", invalid(0)},
      {53, "123456789", tooLong},
      {54, "364000008", invalid(8)},
      {63, "3954955", incomplete},
      {66, "1234567X", invalid(7)},
      {64, "A2345678", invalid(0)},
      {64, "12345678ab*", invalid(10)},
      {64, "1234567812345A", tooLong},
      {64, "123456781234567", incomplete},
      {65, "12345678123456789012345X", tooLong},
      {65, "12345678\xE9", invalid(8)},
      {70, "W1J+0", invalid(3)},
      {70, std::string(51, 'A'), tooLong},
      {76, "1540/", invalid(4)},
      {76, "ABCDEFGHIJK", tooLong},
      {82, "401234523564", invalid(11)},
      {83, "401234523563", incomplete},
      {85, "0523456709498765432", invalid(1)},
      {85, "012345670949876543211", incomplete},
      {85, "0123456709-987654321", invalid(10)},
      {85, std::string(32, '0'), tooLong},
      {90, std::string(19, '0'), tooLong},
      {93, "DAFX", invalid(3)},
      {93, "daft", invalid(0)},
      {121, "5100000000000XY11", invalid(0)},
      {121, "1500000000000XY11", invalid(1)},
      {121, "11F0000000000XY11", invalid(2)},
      {121, "110000000000AXY11", invalid(12)},
      {121, "1100000000000XY12", invalid(16)},
      {121, "1100000000000KM12CQ3N", invalid(17)},
      {121, "11000000", incomplete},
      {121, std::string(27, '1'), tooLong},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(RefusalOf(OptionsFor(row.type, row.data)), row.refusal) << row.type << row.data;
  }
  Options corrected = OptionsFor(41, "123456");
  corrected.autoCorrect = 1;
  EXPECT_EQ(Library::Encode(corrected).checkDigits, "5");
}

TEST(PostalCodes, HaveTheSizesOfTheServices) {
  const struct {
    int type;
    const char* data;
    std::vector<double> heights;
  } cases[] = {
      {40, "12345", {3.225, 2.15}},      {53, "4", {4, 4}},
      {63, "39549554", {3.7, 2.6, 3.7}}, {70, "W1J0TR01", {3.164, 2.165, 3.164}},
      {76, "1540023", {2, 2, 2}},        {85, "01234567094987654321", {2.0855, 2.064, 2.0855}},
      {93, "DAFT", {3, 2, 3}},           {121, "1100000000000XY11", {3.164, 2.165, 3.164}},
  };
  for (const auto& row : cases) {
    const Symbol symbol = Library::Encode(OptionsFor(row.type, row.data));
    EXPECT_EQ(Heights(symbol), row.heights) << row.type;
    EXPECT_EQ(symbol.geometry, Library::Geometry::kFourState);
  }
}
