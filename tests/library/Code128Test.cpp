// Code 128, against a decoder and a shortest-path search that work from the reader's side: what a
// sequence of symbol characters means, never how one would choose it.
#include "library/Error.h"
#include "library/prepare/Escapes.h"
#include "library/prepare/FormatString.h"
#include "library/symbology/Code128.h"
#include "tests/library/Code128Reader.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

#include <queue>
#include <random>
#include <tuple>

namespace {

using Code128Reader::Decode;
using Code128Reader::Reader;
using Code128Reader::ValuesAt;
using Library::Code128Values;
using Library::Data;

std::vector<int> Wanted(const Data& data) {
  std::vector<int> wanted;
  for (const auto character : data) wanted.push_back(character.value);
  return wanted;
}

// The fewest symbol characters, the start included, that transmit `wanted`: breadth first over
// every reader state and all 103 values.
int FewestCharacters(const std::vector<int>& wanted) {
  using State = std::pair<std::size_t, Reader>;
  std::queue<std::pair<State, int>> open;
  std::vector<bool> seen((wanted.size() + 1) * Reader::kStates);
  for (const char set : {'A', 'B', 'C'}) open.push({{0, {set}}, 1});
  while (!open.empty()) {
    const auto [state, length] = open.front();
    open.pop();
    if (state.first == wanted.size() && !state.second.pending) return length;
    for (int value = 0; value < 103; ++value) {
      Reader reader = state.second;
      const auto read = reader.read(value);
      if (!read || state.first + read->size() > wanted.size()) continue;
      const auto at = wanted.begin() + static_cast<std::ptrdiff_t>(state.first);
      if (!std::equal(read->begin(), read->end(), at)) continue;
      const std::size_t place = state.first + read->size();
      const std::size_t index = place * Reader::kStates + reader.number();
      if (!seen[index]) open.push({{place, reader}, length + 1});
      seen[index] = true;
    }
  }
  return -1;
}

struct Alphabet {
  const char* name;
  std::string characters;
};

std::string CharacterRange(int first, int last) {
  std::string characters;
  for (int c = first; c <= last; ++c) characters += static_cast<char>(c);
  return characters;
}

const Alphabet kAlphabets[] = {
    {"digits", "0123456789"},
    {"digits and letters", "0123456789Aa"},
    {"printable", CharacterRange(32, 126)},
    {"controls and lower case", CharacterRange(0, 31) + "abc"},
    {"Latin-1", CharacterRange(160, 255) + "0123456789abcXYZ"},
    {"extended and digits", CharacterRange(128, 255) + "00112233445566778899"},
    {"all bytes", CharacterRange(0, 255)},
};

class RandomData {
 public:
  std::string next(const std::string& alphabet, int length) {
    std::string data;
    for (int i = 0; i < length; ++i) data += alphabet[random() % alphabet.size()];
    return data;
  }

 private:
  std::mt19937 random = Seeded(20231);
};

}  // namespace

TEST(Code128, TransmitsRandomDataOfEveryLengthAndAlphabet) {
  RandomData random;
  for (const Alphabet& alphabet : kAlphabets) {
    for (int length = 1; length <= 60; ++length) {
      const std::string data = random.next(alphabet.characters, length);
      SCOPED_TRACE(testing::Message() << alphabet.name << ", " << length);
      const Data prepared = Library::RawData(data);
      const auto decoded = Decode(Code128Values(prepared));
      ASSERT_TRUE(decoded.has_value());
      EXPECT_EQ(*decoded, Wanted(prepared));

      const Scanned scanned = Scan(Library::Encode(OptionsFor(20, data)));
      EXPECT_EQ(scanned.format, "Code128");
      EXPECT_TRUE(IsRead(scanned, data));
    }
  }
}

TEST(Code128, IsAsShortAsAnySymbolCanBe) {
  const std::string alphabet =
      "A a\x01"
      "12\xE1";
  std::size_t count = 0;
  for (std::size_t length = 1, total = alphabet.size(); length <= 5;
       ++length, total *= alphabet.size()) {
    for (std::size_t number = 0; number < total; number += length < 5 ? 1 : 11, ++count) {
      std::string data;
      for (std::size_t i = 0, rest = number; i < length; ++i, rest /= alphabet.size()) {
        data += alphabet[rest % alphabet.size()];
      }
      const Data prepared = Library::RawData(data);
      ASSERT_EQ(static_cast<int>(Code128Values(prepared).size()),
                FewestCharacters(Wanted(prepared)))
          << testing::PrintToString(data);
    }
  }
  EXPECT_GT(count, 2000u);

  RandomData random;
  for (const Alphabet& letters : kAlphabets) {
    for (int length = 6; length <= 30; length += 6) {
      const Data prepared = Library::RawData(random.next(letters.characters, length));
      EXPECT_EQ(static_cast<int>(Code128Values(prepared).size()),
                FewestCharacters(Wanted(prepared)))
          << letters.name << ", " << length;
    }
  }
}

TEST(Code128, WritesFunctionCharactersWhereTheyStand) {
  using V = std::vector<std::uint8_t>;
  const std::pair<const char*, V> cases[] = {
      {R"(\210A)", {103, 102, 33}},
      {R"(12\21034)", {105, 12, 102, 34}},
      {R"(\212a)", {104, 96, 65}},
      {R"(\213a)", {104, 100, 65}},
      // Nothing may come between the caller's FNC4 and its character, and no pair of digits.
      {R"(\213\0011234)", {103, 101, 65, 99, 12, 34}},
      {R"(\2131234)", {104, 100, 17, 18, 19, 20}},
      {R"(\213\213123456)", {104, 100, 100, 17, 18, 19, 20, 21, 22}},
  };
  for (const auto& [text, expected] : cases) {
    SCOPED_TRACE(text);
    const V values =
        Code128Values(Library::TranslateEscapes(text, Library::FunctionCharacters::kOctal));
    EXPECT_EQ(values.size(), expected.size());
    // Code set A and B differ in nothing here but the start and FNC4.
    EXPECT_EQ(Decode(values), Decode(expected));
  }
}

TEST(Code128, KeepsToTheCodeSetThatAFormatStringOrders) {
  using V = std::vector<std::uint8_t>;
  const std::tuple<const char*, const char*, V> cases[] = {
      {"A&", "1234", {103, 17, 18, 19, 20}},
      {"C&", "123456", {105, 12, 34, 56}},
      {"C##B&", "1234", {105, 12, 100, 19, 20}},
      {"B#C&", "A1234", {104, 33, 99, 12, 34}},
      // What the set does not have is written in another, and the set returned to.
      {"A&", "12a34", {103, 17, 18, 98, 65, 19, 20}},
      {"C&", "12A34", {105, 12, 101, 33, 99, 34}},
  };
  for (const auto& [format, text, expected] : cases) {
    SCOPED_TRACE(testing::Message() << format << " " << text);
    const Data data = Library::ApplyFormat(Library::RawData(text), format, true, 0);
    V values = Code128Values(data);
    if (values == V{105, 12, 100, 33, 99, 34}) values[2] = 101;  // as good as the other
    EXPECT_EQ(values, expected);
  }
}

TEST(Code128, RefusesWhatNoReaderCouldTell) {
  Library::Options mixed = OptionsFor(20, "ab\\213c\xE9");
  mixed.translateEscapes = true;
  EXPECT_EQ(RefusalOf(mixed), (Refusal{BC_E_INVALIDDATA, 7}));

  EXPECT_EQ(RefusalOf(OptionsFor(20, std::string(568, 'A'))), Refusal{});
  EXPECT_EQ(RefusalOf(OptionsFor(20, std::string(569, 'A'))), (Refusal{BC_E_DATATOOLONG, -1}));
  EXPECT_EQ(RefusalOf(OptionsFor(20, std::string(1136, '1'))), Refusal{});
  EXPECT_EQ(RefusalOf(OptionsFor(20, std::string(1138, '1'))), (Refusal{BC_E_DATATOOLONG, -1}));
}

TEST(Code128, IsHeldToOneCodeSet) {
  const struct {
    int type;
    std::string alphabet;
  } cases[] = {
      {59, CharacterRange(0, 95)}, {60, CharacterRange(32, 127)}, {61, CharacterRange('0', '9')}};
  RandomData random;
  for (const auto& row : cases) {
    for (int length = 2; length <= 40; length += 2) {
      SCOPED_TRACE(testing::Message() << row.type << ", " << length);
      Library::Options options = OptionsFor(row.type, random.next(row.alphabet, length));
      if (length > 20 && row.type != 61) options.format = "C##A##B&";
      const Library::Symbol symbol = Library::Encode(options);
      EXPECT_TRUE(ReadsBack(symbol, options.data));
      const int perCharacter = row.type == 61 ? 2 : 1;
      EXPECT_EQ(symbol.width, 11 * (length / perCharacter + 2) + 13);
      EXPECT_EQ(ValuesAt(symbol.rows[0].runs, 0, 1)[0], 103 + row.type - 59);
    }
  }
  const std::pair<Library::Options, Refusal> refused[] = {
      {OptionsFor(59, "ABc"), {BC_E_INVALIDDATA, 2}},
      {OptionsFor(60, "ab\n"), {BC_E_INVALIDDATA, 2}},
      {OptionsFor(61, "123"), {BC_E_INVALIDDATA, -1}},
      {OptionsFor(61, "12a4"), {BC_E_INVALIDDATA, 2}},
  };
  for (const auto& [options, expected] : refused) {
    EXPECT_EQ(RefusalOf(options), expected) << options.data;
  }
}

TEST(Code128Family, ReadsAndShowsItsNumbers) {
  const struct {
    int type;
    const char *data, *scanned, *identifier, *text, *check;
  } cases[] = {
      {33, "(00)106141411234567897", "00106141411234567897", "]C1", "(00)106141411234567897",
       nullptr},
      {88, "10LOT42\\21021SER7",
       "10LOT42\x1D"
       "21SER7",
       "]C1", "(10)LOT42(21)SER7", nullptr},
      {48, "10614141123456789", "00106141411234567897", "]C1", "(00)106141411234567897", "7"},
      {48, "(00)106141411234567897", "00106141411234567897", "]C1", "(00)106141411234567897", "7"},
      {75, "0037612345000001003", "00376123450000010039", "]C1", "(00)376123450000010039", "9"},
      {48, "000000000000000000", "00000000000000000000", "]C1", "(00)000000000000000000", "0"},
      {72, "0109501101530003", "0109501101530003", "]C1", "(01)09501101530003", "3"},
      {72, "0950110153000", "0109501101530003", "]C1", "(01)09501101530003", "3"},
      {96, "000393206219912345678101040", "%000393206219912345678101040", "]C0",
       "0003 932 0621 9912 3456 78 101 040 9", "9"},
      {96, "\"007110601632532948375101276", "\"007110601632532948375101276", "]C0",
       "0071 106 0163 2532 9483 75 101 276 O", "O"},
      {98, "A123BJC5D6E71", "+A123BJC5D6E71G", "]C0", "*+A123BJC5D6E71G*", "G"},
      {100, "+/EO5232013", "+/EO5232013", "]C0", "*+/EO5232013*", "3"},
      {99, "+A123BJC5D6E71G", "+A123BJC5D6E71G", "]A0", "*+A123BJC5D6E71G*", "G"},
      {101, "/EO523201", "+/EO5232013", "]A0", "*+/EO5232013*", "3"},
      {120, "RB47312482US", "RB473124829US", "]C0", "RB473124829US", "9"},
      {120, "RB473124829US", "RB473124829US", "]C0", "RB473124829US", "9"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::Message() << row.type << " " << row.data);
    Library::Options options = OptionsFor(row.type, row.data);
    options.translateEscapes = row.type == 88;
    const Library::Symbol symbol = Library::Encode(options);
    const Scanned scanned = Scan(symbol);
    EXPECT_TRUE(IsRead(scanned, row.scanned));
    EXPECT_EQ(scanned.identifier, row.identifier);
    EXPECT_EQ(symbol.texts.at(0).text, row.text);
    EXPECT_TRUE(row.check == nullptr || symbol.checkDigits == row.check) << symbol.checkDigits;
  }
}

TEST(Code128Family, NamesTheCharacterThatIsWrong) {
  const struct {
    int type;
    const char* data;
    Refusal expected;
    bool corrected = false;  // good with auto-correction
  } cases[] = {
      {48, "(00)106141411234567890", {BC_E_INVALIDDATA, 21}, true},
      {75, "37612345000001A03", {BC_E_INVALIDDATA, 14}},
      {75, "3761234500000100", {BC_E_INVALIDDATA, -1}},
      {75, "(00)3761234500000100391", {BC_E_DATATOOLONG, -1}},
      {72, "09501101530004", {BC_E_INVALIDDATA, 13}, true},
      {72, "(02)09501101530003", {BC_E_INVALIDDATA, 0}},
      {96, "%00039320621991234567810104", {BC_E_INVALIDDATA, 0}},
      {96, "%0003932-6219912345678101040", {BC_E_INVALIDDATA, 8}},
      {96, "00039320621991234567810104", {BC_E_INVALIDDATA, -1}},
      {96, "%0003932062199123456781010400", {BC_E_DATATOOLONG, -1}},
      {98, "A123b", {BC_E_INVALIDDATA, 4}},
      {101, "+", {BC_E_INVALIDDATA, -1}},
      {120, "RB473124828US", {BC_E_INVALIDDATA, 10}, true},
      {120, "R0473124829US", {BC_E_INVALIDDATA, 1}},
      {120, "RB47312482U5", {BC_E_INVALIDDATA, 11}},
      {120, "RB473124829U", {BC_E_INVALIDDATA, -1}},
      {120, "RB47312482USA", {BC_E_DATATOOLONG, -1}},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::Message() << row.type << " " << row.data);
    Library::Options options = OptionsFor(row.type, row.data);
    EXPECT_EQ(RefusalOf(options), row.expected);
    options.autoCorrect = 1;
    EXPECT_EQ(RefusalOf(options), row.corrected ? Refusal{} : row.expected);
  }
}
