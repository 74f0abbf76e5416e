// Code 128, against a decoder and a shortest-path search that work from the reader's side: what a
// sequence of symbol characters means, never how one would choose it.
#include "library/Error.h"
#include "library/prepare/Escapes.h"
#include "library/prepare/FormatString.h"
#include "library/symbology/Code128.h"
#include "tests/library/ScanSymbol.h"

#include <gtest/gtest.h>

#include <optional>
#include <queue>
#include <random>
#include <tuple>

namespace {

using Library::Code128Values;
using Library::Data;

// A reader between two symbol characters (ISO/IEC 15417 4.3.4).
struct Reader {
  char set = 'A';
  bool latched = false, pending = false, shifted = false;

  static constexpr std::size_t kStates = 24;
  std::size_t number() const {
    return static_cast<std::size_t>((set - 'A') * 8 + latched * 4 + pending * 2 + shifted);
  }

  // What `value` transmits, FNC1 to FNC3 as the values from kFnc1; none where it makes no sense.
  std::optional<std::vector<int>> read(int value) {
    if (value == 102) return std::vector<int>{Library::kFnc1};
    if (set == 'C') {
      if (value < 100) return digits(value);
      set = value == 100 ? 'B' : 'A';
      return pending ? std::nullopt : std::optional(std::vector<int>{});
    }
    if (value < 96) return std::vector<int>{character(value)};
    if (shifted) return std::nullopt;
    if (value == 97) return std::vector<int>{Library::kFnc2};
    if (value == 96) return std::vector<int>{Library::kFnc3};
    control(value);
    return std::vector<int>{};
  }

 private:
  std::optional<std::vector<int>> digits(int value) const {
    if (latched || pending) return std::nullopt;
    return std::vector<int>{'0' + value / 10, '0' + value % 10};
  }

  int character(int value) {
    const char used = shifted ? (set == 'A' ? 'B' : 'A') : set;
    const int base = used == 'A' && value >= 64 ? value - 64 : value + 32;
    const int high = latched != pending ? 128 : 0;
    pending = shifted = false;
    return base + high;
  }

  void control(int value) {
    if (value == 98) {
      shifted = true;
    } else if (value == 99) {
      set = 'C';
    } else if ((value == 100) == (set == 'A')) {
      set = value == 100 ? 'B' : 'A';
    } else if (pending) {
      latched = !latched;
      pending = false;
    } else {
      pending = true;
    }
  }
};

std::optional<std::vector<int>> Decode(const std::vector<std::uint8_t>& values) {
  Reader reader{static_cast<char>('A' + values.front() - 103)};
  std::vector<int> result;
  for (std::size_t i = 1; i < values.size(); ++i) {
    const auto read = reader.read(values[i]);
    if (!read) return std::nullopt;
    result.insert(result.end(), read->begin(), read->end());
  }
  return result;
}

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
  std::mt19937 random{20231};
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
      EXPECT_EQ(scanned.bytes, data);
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
