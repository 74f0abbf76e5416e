// The linear symbologies but DataBar: random data of every length, read
// back by ZXing or compared with libzint's bars; what stands below the bars; and every refusal.
#include "library/Error.h"
#include "library/layout/ElementWidths.h"
#include "library/symbology/ZintSymbol.h"
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

using Library::Options;
using Library::Symbol;
using Random = std::mt19937;
using Source = std::function<std::string(Random&)>;

constexpr const char* kDigits = "0123456789";
constexpr const char* kCode39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";
constexpr const char* kNamed = "0123456789ABCXYZabcxyz-/()";

constexpr int kRowsOfEach = 10;

std::string RandomText(std::string_view alphabet, int length, Random& random) {
  std::string text;
  for (int i = 0; i < length; ++i) text += alphabet[random() % alphabet.size()];
  return text;
}

// Short ones as often as long ones.
Source Of(std::string alphabet, int least, int most) {
  return [=](Random& random) {
    const int all = most - least + 1;
    const int some = 1 + static_cast<int>(random() % static_cast<unsigned>(all));
    const int more = static_cast<int>(random() % static_cast<unsigned>(some));
    return RandomText(alphabet, random() % 16 == 0 ? most : least + more, random);
  };
}
Source Digits(int least, int most) {
  return Of(kDigits, least, most);
}
Source Digits(int length) {
  return Digits(length, length);
}

Source operator+(const Source& first, const Source& second) {
  return [=](Random& random) { return first(random) + second(random); };
}
Source operator+(const Source& first, const char* text) {
  return [first, end = std::string(text)](Random& random) { return first(random) + end; };
}
Source operator+(const char* text, const Source& second) {
  return [second, begin = std::string(text)](Random& random) { return begin + second(random); };
}

// One after the other: each makes another pattern of an EAN-13.
Source FirstDigits() {
  return [digit = 0](Random&) mutable { return std::to_string(1 + digit++ % 9); };
}

std::string Ascii() {
  std::string all;
  for (char c = 0; c < 127; ++c) all += c;
  return all + '\x7F';
}

Options OptionsOf(int type, int method, const std::string& data) {
  Options options = OptionsFor(type, data);
  options.checkDigitMethod = method;
  return options;
}

// Short numbers of zero-suppressed UPC-A numbers.
std::string ShortUpc(Random& random) {
  std::string digits = RandomText(kDigits, 6, random);
  for (const auto& [last, place] : {std::pair{'3', 2}, {'4', 3}}) {
    if (digits[5] == last) digits[static_cast<std::size_t>(place)] = '7';
  }
  if (digits[5] > '4') digits[4] = '2';
  return digits;
}

// Readers take no fewer.
std::string CodabarText(Random& random) {
  return RandomText("ABCD", 1, random) + Of("0123456789-$:/.+", 4, 58)(random) +
         RandomText("ABCD", 1, random);
}

std::string TelepenPairs(Random& random) {
  std::string data;
  for (auto pairs = 1 + random() % 30; pairs > 0; --pairs) {
    data += RandomText(kDigits, 1, random) + RandomText("0123456789X", 1, random);
  }
  return data;
}

std::string Number(int least, int most, Random& random) {
  return std::to_string(std::uniform_int_distribution(least, most)(random));
}

}  // namespace

TEST(LinearTypes, AreReadBack) {
  using Expected = std::function<std::string(const std::string& data, const Symbol&)>;
  const Expected same = [](const std::string& data, const Symbol&) { return data; };
  const Expected checked = [](const std::string& data, const Symbol& symbol) {
    return data + symbol.checkDigits;
  };
  const Expected withAddOn = [](const std::string& data, const Symbol& symbol) {
    const std::size_t plus = data.find('+');
    return data.substr(0, plus) + symbol.checkDigits + ' ' + data.substr(plus + 1);
  };
  const auto ahead = [](const char* front, const Expected& expected) -> Expected {
    return [=](const std::string& data, const Symbol& symbol) {
      return front + expected(data, symbol);
    };
  };
  const Expected element = [](const std::string& data, const Symbol&) {
    return data.substr(1, 2) + data.substr(4);
  };
  const Expected s10 = [](const std::string& data, const Symbol& symbol) {
    return data.substr(0, 10) + symbol.checkDigits + data.substr(10);
  };
  const Expected issn = [](const std::string& data, const Symbol& symbol) {
    return "977" + data.substr(0, 4) + data.substr(5, 3) + data.substr(8, 2) + symbol.checkDigits;
  };
  const Expected issnWithAddOn = [issn](const std::string& data, const Symbol& symbol) {
    return issn(data, symbol) + ' ' + data.substr(11);
  };
  const Expected framed = [](const std::string& data, const Symbol& symbol) {
    return data.substr(0, data.size() - 1) + symbol.checkDigits + data.back();
  };
  const struct {
    int type, method;
    Source data;
    const char* format;
    Expected read;
  } rows[] = {
      {3, 1, Digits(10) + Digits(20), "ITF", same},
      {8, 1, Of(kCode39, 1, 60), "Code39", same},
      {9, 1, Of(Ascii(), 1, 40), "Code39", same},
      {10, 1, Digits(7), "EAN-8", checked},
      {11, 1, Digits(7) + "+" + Digits(2), "EAN-8", withAddOn},
      {12, 1, Digits(7) + "+" + Digits(5), "EAN-8", withAddOn},
      {13, 1, FirstDigits() + Digits(11), "EAN-13", checked},
      {14, 1, "4" + Digits(11) + "+" + Digits(2), "EAN-13", withAddOn},
      {15, 1, "7" + Digits(11) + "+" + Digits(5), "EAN-13", withAddOn},
      {18, 1, CodabarText, "Codabar", same},
      {18, 23, CodabarText, "Codabar", framed},
      {21, 1, Digits(13), "ITF", checked},
      {22, 1, Digits(11), "ITF", checked},
      {25, 1, Of(kCode39, 1, 60), "Code93", same},
      {26, 1, Digits(4) + "-" + Digits(3) + Digits(2), "EAN-13", issn},
      {27, 1, Digits(4) + "-" + Digits(3) + Digits(2) + "+" + Digits(2), "EAN-13", issnWithAddOn},
      {33, 1, "(21)" + Of(kNamed, 1, 20), "Code128", element},
      {34, 1, Digits(11), "UPC-A", checked},
      {35, 1, Digits(11) + "+" + Digits(2), "UPC-A", withAddOn},
      {36, 1, Digits(11) + "+" + Digits(5), "UPC-A", withAddOn},
      {37, 1, ShortUpc, "UPC-E", ahead("0", checked)},
      {37, 1, "1" + Source(ShortUpc), "UPC-E", checked},
      {38, 1, "0" + Source(ShortUpc) + "+" + Digits(2), "UPC-E", withAddOn},
      {39, 1, "1" + Source(ShortUpc) + "+" + Digits(5), "UPC-E", withAddOn},
      {48, 1, Digits(17), "Code128", ahead("00", checked)},
      {50, 1, Of(kCode39, 1, 30), "Code39", same},
      {50, 3, Of(kCode39, 1, 30), "Code39", checked},
      {62, 1, Of(Ascii(), 1, 53), "Code93", same},
      {69, 1, "978" + Digits(9), "EAN-13", checked},
      {69, 1, "979" + Digits(9) + "+" + Digits(5), "EAN-13", withAddOn},
      {72, 1, Digits(13), "Code128", ahead("01", checked)},
      {73, 1, "W" + Of("0123456789ABCDEFGHJKLMNPRSTUVWXYZ", 16, 16), "Code39", same},
      {75, 1, Digits(17), "Code128", ahead("00", checked)},
      {88, 1, "(10)" + Of(kNamed, 1, 20), "Code128", element},
      {89, 1, Digits(13), "ITF", checked},
      {96, 1, "%" + Digits(27), "Code128", same},
      {120, 1, Of("ABCDEFGHIJ", 2, 2) + Digits(8) + "US", "Code128", s10},
  };
  Random random = Seeded(39);
  for (const auto& row : rows) {
    for (int i = 0; i < kRowsOfEach; ++i) {
      const std::string data = row.data(random);
      SCOPED_TRACE(testing::Message() << row.type << " " << testing::PrintToString(data));
      const Symbol symbol = Library::Encode(OptionsOf(row.type, row.method, data));
      const Scanned scanned = Scan(symbol);
      EXPECT_EQ(scanned.format, row.format);
      EXPECT_TRUE(IsRead(scanned, row.read(data, symbol)));
    }
  }
}

TEST(LinearTypes, ThatNoReaderKnowsEqualLibzint) {
  const Source digits = Digits(1, 45);
  const Source hex = Of("0123456789ABCDEF", 1, 65);
  const Source code11 = Of("0123456789-", 1, 100);
  const struct {
    int type, method;
    Source data;
    int zint, option;
  } rows[] = {
      {1, 0, code11, BARCODE_CODE11, 2},
      {1, 7, code11, BARCODE_CODE11, 1},
      {1, 8, code11, BARCODE_CODE11, 0},
      {2, 1, Digits(1, 80), BARCODE_C25STANDARD, 0},
      {4, 1, digits, BARCODE_C25IATA, 0},
      {4, 2, digits, BARCODE_C25IATA, 1},
      {5, 2, Digits(1, 80), BARCODE_C25STANDARD, 1},
      {6, 1, Digits(1, 80), BARCODE_C25LOGIC, 0},
      {7, 2, digits, BARCODE_C25IND, 1},
      {9, 3, Of(Ascii(), 1, 40), BARCODE_EXCODE39, 1},
      {28, 1, Digits(1, 90), BARCODE_FLAT, 0},
      {32, 1, Of(Ascii(), 1, 30), BARCODE_TELEPEN, 0},
      {46, 1, hex, BARCODE_PLESSEY, 0},
      {86, 1, hex, BARCODE_PLESSEY, 0},
      {47, 0, Digits(1, 65), BARCODE_MSI_PLESSEY, 0},
      {47, 1, Digits(1, 65), BARCODE_MSI_PLESSEY, 1},
      {47, 11, Digits(1, 65), BARCODE_MSI_PLESSEY, 2},
      {47, 24, Digits(1, 65), BARCODE_MSI_PLESSEY, 3},
      {47, 25, Digits(1, 65), BARCODE_MSI_PLESSEY, 4},
      {47, 26, Digits(1, 65), BARCODE_MSI_PLESSEY, 5},
      {47, 27, Digits(1, 65), BARCODE_MSI_PLESSEY, 6},
      {49, 1, Of("ABCDE", 1, 1), BARCODE_FIM, 0},
      {51, 1, [](Random& r) { return Number(3, 131070, r); }, BARCODE_PHARMA, 0},
      {52, 1, "274" + Of("13579", 4, 4), BARCODE_PZN, 0},
      {87, 1, TelepenPairs, BARCODE_TELEPEN_NUM, 0},
      {91, 1, Digits(8), BARCODE_CODE32, 0},
      {129, 1, Digits(8), BARCODE_CODE32, 0},
  };
  Random random = Seeded(11);
  for (const auto& row : rows) {
    for (int i = 0; i < kRowsOfEach; ++i) {
      const std::string data = row.data(random);
      SCOPED_TRACE(testing::Message() << row.type << " " << testing::PrintToString(data));
      const Options options = OptionsOf(row.type, row.method, data);
      const bool hasNumber = row.type != 52 || RefusalOf(options) == Refusal{};
      if (!hasNumber) continue;
      const Symbol symbol = Library::Encode(options);
      Library::ZintSymbol zint(row.zint);
      zint->option_2 = row.option;
      zint.encode(data);
      Symbol expected;
      zint.copyRows(expected, 0);
      std::vector<int>& runs = expected.rows.at(0).runs;
      if (row.type != 28 && runs.size() % 2 == 0) {
        expected.width -= runs.back();
        runs.pop_back();
      }
      EXPECT_TRUE(IsSame(row.type, "libzint", symbol.rows.at(0).runs, runs));
      EXPECT_EQ(symbol.width, expected.width);
    }
  }
}

TEST(LinearTypes, OfLibzintHaveNoLightModulesAtTheEnd) {
  const struct {
    int type;
    const char* data;
    std::vector<int> runs;
    const char* check;
  } rows[] = {
      {77,
       "123456",
       {1, 3, 1, 11, 1, 3, 1, 3, 1, 7, 1, 7,  1, 3, 1, 7, 1, 3, 1, 7, 1, 3, 1, 3, 1, 11, 1, 3,
        1, 3, 1, 7,  1, 7, 1, 3, 1, 3, 1, 10, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 7, 1, 7,  1},
       "9"},
      {140, "0123", {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 1, 1, 4, 1, 2, 1, 1, 4}, ""},
      {146,
       "1234567",
       {1, 2, 1, 1, 1, 1, 1, 2, 1, 4, 1, 3, 1, 2, 1, 2, 1, 1, 1, 1, 1, 1, 1,
        3, 1, 3, 1, 1, 1, 1, 1, 4, 1, 2, 1, 1, 1, 1, 1, 5, 1, 1, 1, 1, 1, 2,
        1, 1, 1, 4, 1, 1, 1, 2, 1, 2, 1, 3, 1, 1, 1, 2, 1, 3, 1, 2, 1, 1, 1},
       "U"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.type);
    const Symbol symbol = Library::Encode(OptionsFor(row.type, row.data));
    EXPECT_TRUE(IsSame(row.type, "reference rows", symbol.rows.at(0).runs, row.runs));
    EXPECT_EQ(symbol.checkDigits, row.check);
    EXPECT_EQ(std::reduce(symbol.rows[0].runs.begin(), symbol.rows[0].runs.end()), symbol.width);
  }
}

// All texts of a symbol, those of an add-on after a plus sign.
std::string Shown(const Symbol& symbol) {
  std::string shown;
  for (const auto& text : symbol.texts) {
    if (!shown.empty()) {
      shown += text.place == Library::SymbolText::Place::kAboveAddOn ? '+' : '|';
    }
    shown += text.text;
  }
  return shown;
}

TEST(LinearTypes, ShowWhatPeopleRead) {
  const struct {
    int type, method;
    std::string data;
    const char* shown;
  } rows[] = {
      {1, 1, "123-45", "123-4552"},
      {9, 3, "a\tB", "a BX"},
      {14, 1, "400638133393+12", "4|006381|333931+12"},
      {12, 1, "9638507 12345", "9638|5074+12345"},
      {18, 1, "a123b", "A123B"},
      {18, 1, "123", "123"},
      {18, 23, "A37859B", "A37859+B"},
      {18, 28, "12345678", "123456782"},
      {21, 1, "2134807501640", "21348.075.016.40 1"},
      {22, 1, "56310243031", "56.310 243.031 3"},
      {25, 1, "CODE 93", "CODE 93"},
      {26, 1, "0031747", "9|770031|747007|ISSN 0031-7470"},
      {26, 1, "9771234567898", "9|771234|567898|ISSN 1234-5679"},
      {27, 1, "2434-561X 05", "9|772434|561006+05|ISSN 2434-561X"},
      {27, 1, "2434-561X0105", "9|772434|561013+05|ISSN 2434-561X"},
      {28, 1, "123", ""},
      {35, 1, "0360002914512", "0|2|36000|29145+12"},
      {37, 1, "123456", "0|5|123456"},
      {39, 1, "1123456+54321", "1|2|123456+54321"},
      {46, 1, "C64", "C64"},
      {47, 24, "6", "610"},
      {52, 1, "PZN-2758089", "PZN - 27580899"},
      {52, 1, "-012345", "PZN - 0123458"},
      {62, 1, "a\x1F", "a "},
      {69, 1, "3-16-148410-X", "9|783161|484100|ISBN 978-3-16-148410-0"},
      {69, 1, "3 16 148410", "9|783161|484100|ISBN 978-3-16-148410-0"},
      {69, 1, "306406152", "9|780306|406157|ISBN 9780306406157"},
      {69, 1, "030640615+50999", "9|780306|406157+50999|ISBN 9780306406157"},
      {69, 1, "979-0-2600-0043-8", "9|790260|000438|ISMN 979-0-2600-0043-8"},
      {77, 1, "1234569", "1234569"},
      {87, 1, "123X", "123X"},
      {89, 1, "0950110153000", "0 95 01101 53000 3"},
      {91, 1, "A01234567", "A012345676"},
      {140, 1, "0012", "0012"},
      {146, 1, "1234567", "1U234567"},
  };
  for (const auto& row : rows) {
    Options options = OptionsOf(row.type, row.method, row.data);
    options.translateEscapes = true;
    EXPECT_EQ(Shown(Library::Encode(options)), row.shown) << row.type << " " << row.data;
  }
}

TEST(LinearTypes, TakeTheRatioOfBarsAloneFromTheBars) {
  const Symbol pharmacode = Library::Encode(OptionsFor(51, "123456"));
  const Library::ElementWidths widths(pharmacode, "1:2.5:1.5");
  EXPECT_EQ(widths.of(3, true), 2.5);
  EXPECT_EQ(widths.of(2, false), 1.5);
}

TEST(LinearTypes, CorrectOrComputeCheckDigitsWhereTheyBelong) {
  const struct {
    int type, method;
    const char* data;
    const char* format;
    const char* shown;
  } rows[] = {
      {14, 1, "4006381333930 12", "", "4|006381|333931+12"},
      {14, 1, "40063813339312", "############^##", "4|006381|333931+12"},
      {14, 1, "40063813339312", "############^+##", "4|006381|333931+12"},
      {37, 1, "01234560", "", "0|5|123456"},
      {37, 1, "123456", "&^", "0|5|123456"},
      {26, 1, "0031-7471", "", "9|770031|747007|ISSN 0031-7470"},
      {26, 1, "0031747", "####-###^", "9|770031|747007|ISSN 0031-7470"},
      {69, 1, "9780306406150", "", "9|780306|406157|ISBN 9780306406157"},
      {69, 1, "0306406150", "", "9|780306|406157|ISBN 9780306406157"},
      {52, 1, "27580890", "", "PZN - 27580899"},
      {52, 1, "275808", "PZN&^", "PZN - 2758089"},
      {73, 1, "2FTPX28L9XCA15511", "", "2FTPX28L0XCA15511"},
      {73, 1, "2FTPX28LXCA15511", "########^&", "2FTPX28L0XCA15511"},
      {18, 23, "37859", "A&^B", "37859+"},
      {47, 10, "123456", "12&^", "121234561"},
      {2, 2, "123", "^&", "6123"},
      {89, 1, "09501101530009", "", "0 95 01101 53000 3"},
      {91, 1, "A012345670", "", "A012345676"},
  };
  for (const auto& row : rows) {
    Options options = OptionsOf(row.type, row.method, row.data);
    options.autoCorrect = 1;
    options.format = row.format;
    EXPECT_EQ(Shown(Library::Encode(options)), row.shown) << row.type << " " << row.data;
  }
}

TEST(LinearTypes, NameTheCharacterThatIsWrong) {
  const std::string long94(94, 'a');
  const struct {
    int type;
    std::string data;
    Refusal expected;
  } rows[] = {
      {1, "12+", {BC_E_INVALIDDATA, 2}},
      {9, "ab\x80", {BC_E_INVALIDDATA, 2}},
      {9, long94.substr(0, 43), {BC_E_DATATOOLONG, -1}},
      {11, "9638507+1", {BC_E_INVALIDDATA, -1}},
      {12, "9638507+123456", {BC_E_DATATOOLONG, -1}},
      {14, "40063813339+12", {BC_E_INVALIDDATA, -1}},
      {14, "4006381333930+12", {BC_E_INVALIDDATA, 12}},
      {14, "400638133393+1+2", {BC_E_INVALIDDATA, 14}},
      {14, "40063813339x+1", {BC_E_INVALIDDATA, 11}},
      {18, "1B", {BC_E_INVALIDDATA, 0}},
      {18, "A1", {BC_E_INVALIDDATA, 1}},
      {18, "A1A2B", {BC_E_INVALIDDATA, 2}},
      {18, "12e", {BC_E_INVALIDDATA, 2}},
      {18, "AB", {BC_E_INVALIDDATA, -1}},
      {21, "21348075016402", {BC_E_INVALIDDATA, 13}},
      {25, "Ab", {BC_E_INVALIDDATA, 1}},
      {26, "0031-7471", {BC_E_INVALIDDATA, 8}},
      {26, "0031X47", {BC_E_INVALIDDATA, 4}},
      {26, "003174", {BC_E_INVALIDDATA, -1}},
      {26, "9790031747007", {BC_E_INVALIDDATA, 2}},
      {26, "0031-747+05", {BC_E_INVALIDDATA, 8}},
      {27, "0031-7470", {BC_E_INVALIDDATA, -1}},
      {27, "0031-7470+0X", {BC_E_INVALIDDATA, 11}},
      {35, "036000291453 12", {BC_E_INVALIDDATA, 11}},
      {37, "01234564", {BC_E_INVALIDDATA, 7}},
      {37, "7123456", {BC_E_INVALIDDATA, 0}},
      {37, "0120453", {BC_E_INVALIDDATA, 3}},
      {37, "0123044", {BC_E_INVALIDDATA, 4}},
      {37, "0123405", {BC_E_INVALIDDATA, 5}},
      {37, "012345678", {BC_E_DATATOOLONG, -1}},
      {46, "12a", {BC_E_INVALIDDATA, 2}},
      {49, "F", {BC_E_INVALIDDATA, 0}},
      {50, "Aa", {BC_E_INVALIDDATA, 1}},
      {51, "2", {BC_E_INVALIDDATA, 0}},
      {51, "131071", {BC_E_INVALIDDATA, 0}},
      {52, "PZN-27580898", {BC_E_INVALIDDATA, 11}},
      {62, long94.substr(0, 54), {BC_E_DATATOOLONG, -1}},
      {69, "0-306-40615-3", {BC_E_INVALIDDATA, 12}},
      {69, "9770306406157", {BC_E_INVALIDDATA, 2}},
      {69, "978-0-306-40615-8", {BC_E_INVALIDDATA, 16}},
      {69, "X306406152", {BC_E_INVALIDDATA, 0}},
      {69, "030640615+5", {BC_E_INVALIDDATA, -1}},
      {69, "030640615+123456", {BC_E_DATATOOLONG, -1}},
      {73, "2FTPX28L1XCA15511", {BC_E_INVALIDDATA, 8}},
      {73, "2FTPX28O0XCA15511", {BC_E_INVALIDDATA, 7}},
      {73, "2FTPX28L0XCA1551", {BC_E_INVALIDDATA, -1}},
      {77, "1234568", {BC_E_INVALIDDATA, 6}},
      {87, "12X4", {BC_E_INVALIDDATA, 2}},
      {87, "123", {BC_E_INVALIDDATA, -1}},
      {89, "09501101530004", {BC_E_INVALIDDATA, 13}},
      {91, "A012345675", {BC_E_INVALIDDATA, 9}},
      {140, "7742863", {BC_E_INVALIDDATA, 0}},
      {146, "123456O", {BC_E_INVALIDDATA, 6}},
      {146, "123456", {BC_E_INVALIDDATA, -1}},
  };
  for (const auto& row : rows) {
    Options options = OptionsFor(row.type, row.data);
    EXPECT_EQ(RefusalOf(options), row.expected) << row.type << " " << row.data;
  }
}
