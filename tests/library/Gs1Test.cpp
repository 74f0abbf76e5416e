#include "library/symbology/ZintSymbol.h"
#include "tests/library/ScanSymbol.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

Library::Options Gs1Options(const std::string& data) {
  Library::Options options = OptionsFor(16, data);
  options.translateEscapes = true;
  return options;
}

// libzint's form of an element string.
std::string InBrackets(std::string data) {
  std::replace(data.begin(), data.end(), '(', '[');
  std::replace(data.begin(), data.end(), ')', ']');
  return data;
}

// What libzint's own table of identifiers says of an element string; empty: nothing.
std::string ComplaintOfZint(const std::string& elements) {
  const std::string data = InBrackets(elements);
  zint_symbol* const symbol = Library::Zint().create();
  symbol->symbology = BARCODE_DATAMATRIX;
  symbol->input_mode = GS1_MODE;
  Library::Zint().encode(symbol, reinterpret_cast<const unsigned char*>(data.data()),
                         static_cast<int>(data.size()));
  std::string complaint = symbol->errtxt;
  Library::Zint().destroy(symbol);
  return complaint;
}

// What a reader makes of libzint's Data Matrix.
std::string ReadFromZint(const std::string& elements) {
  Library::ZintSymbol encoded(BARCODE_DATAMATRIX);
  encoded->input_mode = GS1_MODE;
  encoded->option_3 = DM_SQUARE;
  encoded.encode(InBrackets(elements));
  Library::Symbol symbol;
  symbol.geometry = Library::Geometry::kMatrix;
  encoded.copyRows(symbol, 1);
  return Scan(symbol).bytes;
}

Library::Options Gs1DataMatrix(const std::string& data) {
  Library::Options options = OptionsFor(71, data);
  options.dataMatrix.format = 1;
  return options;
}

bool Has(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

// All digits; check digits are right in the one and dates in the other.
std::string Zeros(std::size_t length) {
  return std::string(length, '0');
}
std::string OnesAndZeros(std::size_t length) {
  std::string digits = Zeros(length);
  for (std::size_t i = 0; i < length; i += 2) digits[i] = '1';
  return digits;
}

}  // namespace

// libzint refuses more (countries, currencies, account numbers), never less.
TEST(Gs1, IdentifiersTakeWhatLibzintsTableSays) {
  const auto accepts = [](const std::string& data) {
    return RefusalOf(Gs1DataMatrix(data)).code == BC_OK;
  };
  int identifiers = 0;
  for (int number = 0; number < 11100; ++number) {
    std::string digits = std::to_string(number < 100    ? 100 + number
                                        : number < 1100 ? 1000 + number - 100
                                                        : 10000 + number - 1100);
    digits.erase(0, 1);
    // libzint reads identifiers as numbers.
    if (digits.size() > 2 && digits[0] == '0') continue;
    const std::string identifier = '(' + digits + ')';
    SCOPED_TRACE(identifier);
    if (Has(ComplaintOfZint(identifier + "0"), "Invalid AI")) continue;
    ++identifiers;
    for (std::size_t length = 1; length <= 91; ++length) {
      const std::string zeros = identifier + Zeros(length);
      const std::string dates = identifier + OnesAndZeros(length);
      const std::string good = accepts(zeros) ? zeros : accepts(dates) ? dates : "";
      // A warning tells a rule for the content.
      const bool fits = !Has(ComplaintOfZint(zeros), "Error 259");
      ASSERT_EQ(!good.empty(), fits) << length;
      if (good.empty() && length > 20) break;
      if (good.empty()) continue;
      // libzint puts no separator behind 235.
      const std::string two = good + "(91)A";
      if (ComplaintOfZint(two).empty() && number != 100 + 235) {
        ASSERT_EQ(Scan(Library::Encode(Gs1DataMatrix(two))).bytes, ReadFromZint(two)) << good;
      }
      if (length % 5 != 0) continue;
      for (const char last : {'a', 'A', '!', '-', '_', '#', '%', '/', '1'}) {
        const std::string data = good.substr(0, good.size() - 1) + last;
        const std::string complaint = ComplaintOfZint(data);
        const bool wrongCharacter = Has(complaint, "CSET") || Has(complaint, "Non-numeric ch");
        ASSERT_FALSE(accepts(data) ? wrongCharacter : complaint.empty()) << data << complaint;
      }
    }
  }
  EXPECT_GT(identifiers, 400);
}

TEST(Gs1, ElementStringsAreEncodedAndShown) {
  // Scanned data: FNC1 between fields is transmitted as GS.
  const struct {
    const char* data;
    const char* scanned;
    const char* text;
  } cases[] = {
      {"(01)09501101530003(10)ABC(21)5",
       "010950110153000310ABC\x1D"
       "215",
       "(01)09501101530003(10)ABC(21)5"},
      {"(10)ABC(01)09501101530003",
       "10ABC\x1D"
       "0109501101530003",
       "(10)ABC(01)09501101530003"},
      {"(3103)001750(15)261231", "310300175015261231", "(3103)001750(15)261231"},
      // A parenthesis is data unless it encloses an identifier that exists.
      {"(10)A(B)C(21)5",
       "10A(B)C\x1D"
       "215",
       "(10)A(B)C(21)5"},
      {R"(010950110153000310ABC\210215)",
       "010950110153000310ABC\x1D"
       "215",
       "(01)09501101530003(10)ABC(21)5"},
      {R"(\21010ABC\x1D215\210)",
       "10ABC\x1D"
       "215",
       "(10)ABC(21)5"},
      {"05unknown", "05unknown", "05unknown"},
      {"(253)4006381333931X1", "2534006381333931X1", "(253)4006381333931X1"},
      {"(8010)AB#1-/", "8010AB#1-/", "(8010)AB#1-/"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.data);
    const Library::Symbol symbol = Library::Encode(Gs1Options(row.data));
    const Scanned scanned = Scan(symbol);
    EXPECT_EQ(scanned.identifier, "]C1");
    EXPECT_TRUE(IsRead(scanned, row.scanned));
    EXPECT_EQ(symbol.texts.at(0).text, row.text);
  }
}

TEST(Gs1, WrongElementStringsAreRefusedAtTheirPlace) {
  const struct {
    const char* data;
    Refusal expected;
  } cases[] = {
      {"(01)09501101530004", {BC_E_INVALIDDATA, 17}},         // check digit
      {"(01)0950110153000", {BC_E_INVALIDDATA, 1}},           // too short
      {"(01)095011015300031", {BC_E_INVALIDDATA, 18}},        // too long
      {"(10)ABCDEFGHIJKLMNOPQRSTU", {BC_E_INVALIDDATA, 24}},  // 21 of up to 20
      {"(15)261301", {BC_E_INVALIDDATA, 6}},                  // month 13
      {"(15)260229", {BC_E_INVALIDDATA, 8}},                  // no leap year
      {"(10)(21)5", {BC_E_INVALIDDATA, 1}},                   // empty
      {"(05)1", {BC_E_INVALIDDATA, 1}},                       // no such identifier
      {"(", {BC_E_INVALIDDATA, 0}},
      {"10AB[C", {BC_E_INVALIDDATA, 4}},
      {R"(10A\21121)", {BC_E_INVALIDDATA, 3}},      // FNC2
      {R"(10A\210\21021)", {BC_E_INVALIDDATA, 7}},  // empty field
      {"(91)12345678901234567890123456789012345678901234567", {BC_E_DATATOOLONG, -1}},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(RefusalOf(Gs1Options(row.data)), row.expected) << row.data;
  }
  Library::Options corrected = Gs1Options("(01)09501101530004");
  corrected.autoCorrect = 1;
  EXPECT_TRUE(ReadsBack(Library::Encode(corrected), "0109501101530003"));
}

TEST(Gs1, MatrixSymbolsCarryTheSameElements) {
  for (const auto& [type, identifier] : {std::pair{58, "]Q3"}, {71, "]d2"}, {92, "]z1"}}) {
    SCOPED_TRACE(type);
    Library::Options options = Gs1Options("(01)09501101530003(10)ABC(21)5%");
    options.type = type;
    options.qr.format = options.dataMatrix.format = options.aztec.format = 1;
    const Library::Symbol symbol = Library::Encode(options);
    const Scanned scanned = Scan(symbol);
    EXPECT_EQ(scanned.identifier, identifier);
    EXPECT_TRUE(IsRead(scanned,
                       "010950110153000310ABC\x1D"
                       "215%"));
    EXPECT_EQ(symbol.texts.at(0).text, options.data);
    options.data = "(01)09501101530004";
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_INVALIDDATA, 17}));
  }
}
