// Code 16K, against a decoder of the whole symbol and a symbol of libzint's that another encoder
// draws alike.
#include "library/layout/RowHeights.h"
#include "library/symbology/Code16K.h"
#include "library/symbology/ZintSymbol.h"
#include "tests/library/Code128Reader.h"
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

#include <random>
#include <string_view>

namespace {

using Library::Symbol;

constexpr int kCode16K = 23;

std::vector<std::vector<int>> DataRows(const Symbol& symbol) {
  std::vector<std::vector<int>> rows;
  for (const Library::SymbolRow& row : symbol.rows) {
    if (!IsSeparator(row)) rows.push_back(row.runs);
  }
  return rows;
}

std::string Widths(const std::vector<int>& runs, std::size_t first, std::size_t count) {
  std::string widths;
  for (std::size_t i = first; i < first + count; ++i) widths += std::to_string(runs.at(i));
  return widths;
}

// All symbol characters; row number and check characters are verified (EN 12323 tables 3 to 5).
std::vector<int> CharactersOf(const Symbol& symbol) {
  constexpr std::string_view kEnds[] = {"3211", "2221", "2122", "1411",
                                        "1132", "1231", "1114", "3112"};
  constexpr int kStops[] = {0, 1, 2, 3, 4, 5, 6, 7, 4, 5, 6, 7, 0, 1, 2, 3};
  const auto rows = DataRows(symbol);
  std::vector<int> all;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(Widths(rows[i], 0, 5), std::string(kEnds[i % 8]) + "1");
    EXPECT_EQ(Widths(rows[i], 35, 4), kEnds[kStops[i]]);
    const std::vector<int> values = Code128Reader::ValuesAt(rows[i], 5, 5);
    all.insert(all.end(), values.begin(), values.end());
  }
  for (const std::size_t check : {all.size() - 2, all.size() - 1}) {
    int sum = 0;
    for (std::size_t i = 0; i < check; ++i)
      sum += all[i] * static_cast<int>(i + all.size() - check);
    EXPECT_EQ(sum % 107, all[check]);
  }
  EXPECT_EQ(all[0] / 7 + 2, static_cast<int>(rows.size()));
  return all;
}

class Reader {
 public:
  // FNC1 as GS.
  std::string read(const std::vector<int>& characters) {
    const int mode = characters[0] % 7;
    set = "ABCBCCC"[mode];
    if (mode == 3 || mode == 4) text = "\x1D";
    if (mode >= 5) shift('B', mode - 4);
    for (std::size_t i = 1; i + 2 < characters.size(); ++i) next(characters[i]);
    EXPECT_FALSE(pending || shiftLeft > 0) << "ends in a shift";
    return text;
  }

 private:
  void shift(char to, int count) { shiftTo = to, shiftLeft = count; }

  void next(int value) {
    const bool shifted = shiftLeft > 0;
    const char used = shifted ? shiftTo : set;
    const bool data = used == 'C' ? value < 100 : value < 96;
    if (!data) {
      EXPECT_FALSE(shifted) << value;
      return control(value);
    }
    if (shifted) --shiftLeft;
    if (used == 'C') {
      EXPECT_FALSE(latched || pending);
      text += {static_cast<char>('0' + value / 10), static_cast<char>('0' + value % 10)};
      return;
    }
    const int base = used == 'A' && value >= 64 ? value - 64 : value + 32;
    text += static_cast<char>(base + (latched != pending ? 128 : 0));
    pending = false;
  }

  void control(int value) {
    const char other = set == 'A' ? 'B' : 'A';
    if (value == 102) text += '\x1D';
    if (value == 102 || value == 103) return;
    if (set == 'C') {
      if (value >= 104) return shift('B', value - 103);
      set = value == 100 ? 'B' : 'A';
    } else if (value == 98 || value == 104) {
      return shift(other, value == 98 ? 1 : 2);
    } else if (value >= 105) {
      shift('C', value - 103);
    } else if (value == 99) {
      set = 'C';
    } else if ((value == 100) == (set == 'A')) {
      set = other;
    } else {
      latched ^= pending;
      pending ^= true;
      return;
    }
    EXPECT_FALSE(pending) << "FNC4 applies to nothing";
  }

  char set = 'A', shiftTo = 'A';
  int shiftLeft = 0;
  bool latched = false, pending = false;
  std::string text;
};

std::string Decode(const Symbol& symbol) {
  return Reader().read(CharactersOf(symbol));
}

}  // namespace

TEST(Code16K, HoldsRandomDataOfEveryLength) {
  const std::string letters =
      "ab\x01\x02"
      "CD01234567890123456789";
  std::mt19937 random = Seeded(16);
  for (int length = 1; length <= 60; ++length) {
    for (const int kind : {0, 1, 2, 3}) {
      std::string data;
      for (int i = 0; i < length; ++i) {
        const char next[] = {static_cast<char>('0' + random() % 10),
                             letters[random() % letters.size()], static_cast<char>(random() % 128),
                             static_cast<char>(random() % 256)};
        data += next[kind];
      }
      const Library::Options options = OptionsFor(kCode16K, data);
      if (kind == 3 && RefusalOf(options).code == BC_E_DATATOOLONG) continue;
      EXPECT_TRUE(IsSame(kCode16K, "the tests' reader", Decode(Library::Encode(options)), data))
          << kind << ", " << length;
    }
  }
}

TEST(Code16K, LooksAsOtherEncodersDrawIt) {
  Library::ZintSymbol other(BARCODE_CODE16K);
  other.encode("Code16K 123456");
  Symbol theirs;
  other.copyRows(theirs, 0);
  const Symbol ours = Library::Encode(OptionsFor(kCode16K, "Code16K 123456"));
  EXPECT_EQ(DataRows(ours), DataRows(theirs));
  ASSERT_EQ(ours.rows.size(), 7u);
  for (const std::size_t separator : {0, 2, 4, 6}) {
    EXPECT_EQ(ours.rows[separator].runs, std::vector<int>{70});
    EXPECT_EQ(ours.rows[separator].height, 1);
  }
}

TEST(Code16K, SavesSwitchesByStartModesAndLongShifts) {
  const struct {
    const char* data;
    int mode;
    std::size_t characters;
  } cases[] = {
      {"A1234", 5, 3},          {"ab123456", 6, 5},   {"\\210123456", 4, 3}, {"\\210abc", 3, 3},
      {"ab\\x01\\x02cd", 1, 7}, {"abc1234def", 1, 9}, {"12ab34", 2, 5},      {"\\x01\\x02", 0, 2},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.data);
    Library::Options options = OptionsFor(kCode16K, row.data);
    options.translateEscapes = true;
    const std::vector<int> all = CharactersOf(Library::Encode(options));
    EXPECT_EQ(all[0] % 7, row.mode);
    const auto pads = std::count(all.begin() + 1, all.end() - 2, 103);
    EXPECT_EQ(all.size() - 3 - static_cast<std::size_t>(pads), row.characters);
  }
}

TEST(Code16K, EndsAtSixteenRows) {
  EXPECT_EQ(DataRows(Library::Encode(OptionsFor(kCode16K, std::string(154, '7')))).size(), 16u);
  EXPECT_EQ(DataRows(Library::Encode(OptionsFor(kCode16K, "a"))).size(), 2u);
  const Refusal tooLong = {BC_E_DATATOOLONG, -1};
  EXPECT_EQ(RefusalOf(OptionsFor(kCode16K, std::string(155, '7'))), tooLong);
  EXPECT_EQ(RefusalOf(OptionsFor(kCode16K, std::string(77, 'a'))), Refusal{});
  EXPECT_EQ(RefusalOf(OptionsFor(kCode16K, std::string(78, 'a'))), tooLong);
}
