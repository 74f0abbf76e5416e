#include "library/Error.h"
#include "library/prepare/CheckDigits.h"
#include "tests/library/ScanSymbol.h"

#include <gtest/gtest.h>

using Library::ComputeCheckDigits;

TEST(CheckDigits, FollowTheirMethods) {
  const struct {
    int method;
    const char* data;
    const char* expected;
  } cases[] = {
      {2, "400638133393", "1"},
      {2, "0950110153000", "3"},
      {3, "CODE39", "W"},
      {5, "2134807501640", "1"},
      {6, "56310243031", "3"},
      {28, "123456", "6"},
      {21, "123456", "0"},
      {21, "1234567", "4"},
      {7, "123-45", "5"},
      {8, "123-45", "52"},
      {9, "12345", "5"},
      {10, "123456", "6"},
      {11, "123456", "66"},
      {24, "123456", "0"},
      {26, "123456", "0"},
      {24, "6", "10"},
      {25, "6", "106"},
      {27, "6", "106"},
      {16, "0123456", "5"},
      {16, "1234513", "4"},
      {16, "0123454", "3"},
      {20, "2758089", "9"},
      {20, "012345", "8"},
      {22, "0950110153000", "3"},
      {23, "A37859B", "+"},
      {31, "123456", "9"},
      {32, "01234567", "6"},
      {34, "2FTPX28L0XCA15511", "0"},
      {34, "11111111111111111", "1"},
      {35, "0031747", "0"},
      {35, "316148410", "X"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(ComputeCheckDigits(row.method, row.data), row.expected)
        << row.method << " " << row.data;
    // Ten is one digit of MSI's that takes two.
    const std::string_view digits = row.expected;
    const std::size_t ten = digits.starts_with("10") ? 1 : 0;
    const Library::CheckRule rule{Library::CheckKind::kOptional, 0, 0, {row.method}};
    EXPECT_EQ(CheckDigitCount(rule, row.method), static_cast<int>(digits.size() - ten))
        << row.method;
  }
}

TEST(CheckDigits, AreAddedByMethodToTypesThatHaveNone) {
  const struct {
    int type, method;
    const char* data;
    const char* text;
    const char* digits;
    int count;
  } cases[] = {
      {8, 1, "CODE39", "CODE39", "", 0},   {8, 0, "CODE39", "CODE39", "", 0},
      {8, 3, "CODE39", "CODE39W", "W", 1}, {8, 28, "123456", "1234566", "6", 1},
      {3, 1, "123456", "123456", "", 0},   {3, 1, "12345", "012345", "", 0},
      {3, 2, "12345", "123457", "7", 1},   {3, 2, "123456", "01234565", "5", 1},
      {3, 21, "12345", "123455", "5", 1},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::Message() << row.type << " " << row.method << " " << row.data);
    Library::Options options = OptionsFor(row.type, row.data);
    options.checkDigitMethod = row.method;
    EXPECT_EQ(Library::CheckDigitCount(options), row.count);
    const Library::Symbol symbol = Library::Encode(options);
    EXPECT_EQ(symbol.checkDigits, row.digits);
    EXPECT_EQ(symbol.texts.at(0).text, row.text);
    EXPECT_TRUE(ReadsBack(symbol, row.text));
  }
}

TEST(CheckDigits, AreVerifiedOrCorrectedWhereTheyAreGiven) {
  const struct {
    int type;
    std::string data, right;
    char wrong;
  } cases[] = {
      {10, "9638507", "4", '5'}, {13, "400638133393", "1", '0'}, {34, "03600029145", "2", '9'}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.type);
    const int place = static_cast<int>(row.data.size());
    Library::Options options = OptionsFor(row.type, row.data + row.wrong);
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_INVALIDDATA, place}));
    options.autoCorrect = 1;
    EXPECT_EQ(Library::Encode(options).checkDigits, row.right);
    options.data = row.data + row.right;
    const std::string given = Scan(Library::Encode(options)).bytes;
    for (const int method : {0, 1, 2}) {
      options.checkDigitMethod = method;
      options.data = row.data;
      EXPECT_TRUE(ReadsBack(Library::Encode(options), given));
    }
  }
}

TEST(CheckDigits, NameTheCharacterThatHasNoValueAndTheMethodThatIsNotAllowed) {
  const struct {
    int type, method;
    const char* data;
    Refusal expected;
  } cases[] = {
      {8, 28, "12A4", {BC_E_INVALIDDATA, 2}},     {3, 21, "6", {BC_E_INVALIDDATA, -1}},
      {52, 20, "0000055", {BC_E_INVALIDDATA, 0}}, {18, 28, "A1-2B", {BC_E_INVALIDDATA, 2}},
      {37, 14, "123456", {BC_E_INVALIDARG, -1}},  {73, 3, "W", {BC_E_INVALIDARG, -1}},
      {8, 2, "1234", {BC_E_INVALIDARG, -1}},      {13, 13, "400638133393", {BC_E_INVALIDARG, -1}},
      {58, 2, "A", {BC_E_INVALIDARG, -1}},
  };
  for (const auto& row : cases) {
    Library::Options options = OptionsFor(row.type, row.data);
    options.checkDigitMethod = row.method;
    EXPECT_EQ(RefusalOf(options), row.expected) << row.type << " " << row.method;
  }
}
