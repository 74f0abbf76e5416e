// Code One: the pattern of every version against libzint's, and random data read back from the code
// words, which libzint gets wrong for digits at the end and bytes above 127.
#include "library/symbology/CodeOneMessage.h"
#include "library/symbology/CodeOnePattern.h"
#include "library/symbology/ZintSymbol.h"
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"
#include "tests/library/SymbolPage.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Library::Options;
using Library::Symbol;

constexpr int kCodeOne = 141;

Symbol ByZint(const std::string& data) {
  Library::ZintSymbol encoded(BARCODE_CODEONE);
  encoded.encode(data);
  Symbol symbol;
  encoded.copyRows(symbol, 1);
  return symbol;
}

// The data that the words stand for, as AIM USS Code One says.
class Reader {
 public:
  explicit Reader(const std::vector<std::uint16_t>& read) : words(read) {}

  std::string read() {
    while (next < words.size()) {
      const int word = take();
      if (word == 230 || word == 239 || word == 238) {
        triples(word);
      } else if (word == 231) {
        bytes();
      } else if (word >= 240) {
        decimals();
      } else {
        ascii(word);
      }
    }
    return data;
  }

 private:
  int take() { return next < words.size() ? words[next++] : 0; }
  void add(int byte) { data += static_cast<char>(byte); }
  void addDigit(int digit) { add('0' + digit); }

  void ascii(int word) {
    if (word == 235) return add(take() - 1 + 128);
    if (word <= 128) return add(word - 1);
    if (word >= 130 && word < 230) addDigit((word - 130) / 10), addDigit((word - 130) % 10);
  }

  void bytes() {
    auto length = static_cast<std::size_t>(take());
    if (length > 249) length = (length - 249) * 250 + static_cast<std::size_t>(take());
    if (length == 0) length = words.size() - next;
    for (; length > 0; --length) add(take());
  }

  // Three values in two words, to a word 255 or the last but one.
  void triples(int scheme) {
    int shift = 0, upper = 0;
    const auto value = [&](int v) {
      if (scheme != 238 && shift == 0 && v < 3) {
        shift = v + 1;
      } else if (shift == 2 && v == 30) {
        shift = 0, upper = 128;
      } else {
        add(upper + characterOf(scheme, shift, v));
        shift = 0, upper = 0;
      }
    };
    while (words.size() - next > 1) {
      if (words[next] == 255) break;
      const int high = take(), packed = high * 256 + take() - 1;
      for (const int v : {packed / 1600, packed / 40 % 40, packed % 40}) value(v);
    }
    if (next < words.size() && words[next] == 255) ++next;
  }

  static int characterOf(int scheme, int shift, int v) {
    constexpr std::string_view kMarks = "!\"#$%&'()*+,-./:;<=>?@[\\]^_", kLast = "{|}~\x7F";
    const bool text = scheme == 239;
    const auto at = [v](std::string_view set, int from) {
      return static_cast<int>(set[static_cast<std::size_t>(v - from)]);
    };
    if (shift == 1) return v;
    if (shift == 2) return at(kMarks, 0);
    if (shift == 3) return v == 0 ? '`' : v > 26 ? at(kLast, 27) : v - 1 + (text ? 'A' : 'a');
    if (v < 4) return scheme == 238 ? at("\r*> ", 0) : ' ';
    return v < 14 ? '0' + v - 4 : v - 14 + (text ? 'a' : 'A');
  }

  // Ten bits for three digits behind four, to six ones or the end; one digit more to the end of the
  // word. A word that is left whole at the end is none of theirs.
  void decimals() {
    std::size_t bit = 8 * (next - 1) + 4;
    const std::size_t end = 8 * words.size();
    const auto read = [&](int count) {
      int value = 0;
      for (; count > 0; --count, ++bit) value = value * 2 + (words[bit / 8] >> (7 - bit % 8) & 1);
      return value;
    };
    while (end - bit >= 6) {
      const int value = read(6);
      if (value == 63) break;
      if (end - bit < 4) {
        bit -= 6;
        break;
      }
      const int group = value * 16 + read(4) - 1;
      addDigit(group / 100), addDigit(group / 10 % 10), addDigit(group % 10);
    }
    if (bit % 8 == 2 || bit % 8 == 4) {
      if (const int digit = read(4); digit >= 1 && digit <= 10) addDigit(digit - 1);
    }
    next = (bit + 7) / 8;
  }

  const std::vector<std::uint16_t>& words;
  std::size_t next = 0;
  std::string data;
};

std::string RandomData(std::mt19937& random) {
  constexpr std::string_view kSets[] = {"0123456789",           "0123456789",   "ABCDEFGHIJ 0123",
                                        "abc def,.-\r\n\t\x01", "\x80\xFF\xE4", "A*>\r"};
  std::string data;
  const std::size_t length = 1 + random() % (random() % 2 == 0 ? 20 : 500);
  while (data.size() < length) {
    const std::string_view set = kSets[random() % std::size(kSets)];
    for (auto run = 1 + random() % 25; run > 0; --run) data += set[random() % set.size()];
  }
  return data;
}

}  // namespace

TEST(CodeOne, HasThePatternOfEveryVersion) {
  int versions = 0, before = 0;
  for (const int length : {10, 24, 60, 130, 260, 500, 1000, 2000}) {
    std::string data;
    for (int i = 0; i < length; ++i) data += static_cast<char>('a' + i * i % 26);
    const Symbol symbol = Library::Encode(OptionsFor(kCodeOne, data));
    EXPECT_TRUE(IsSame(kCodeOne, "libzint", ModulesOf(symbol), ModulesOf(ByZint(data)))) << length;
    versions += symbol.width > before;
    before = symbol.width;
  }
  EXPECT_EQ(versions, 8);
}

TEST(CodeOne, HoldsAllBytesAndIsNoLargerThanLibzints) {
  std::mt19937 random = Seeded(141);
  for (std::size_t i = 0; i < 2000; ++i) {
    std::string data = RandomData(random);
    // Runs of bytes about the lengths that take another word, or another unit in it.
    constexpr std::size_t kRuns = 20;
    if (i < 2 * kRuns)
      data.insert(random() % data.size(), 240 + i / kRuns * 250 + i % kRuns, '\xE4');
    const Symbol symbol = Library::Encode(OptionsFor(kCodeOne, data));
    if (data.find_first_of("\x80\xFF\xE4") == data.npos) {
      EXPECT_LE(symbol.width, ByZint(data).width);
    }
    Library::CodeOneContent content;
    for (const char c : data) content.characters.push_back(static_cast<unsigned char>(c));
    const Library::CodeOneMessage message = Library::FindCodeOneMessage(content);
    for (const Library::CodeOneVersion& version : Library::CodeOneVersions()) {
      const std::vector<std::uint16_t> words = message(version.dataWords);
      if (words.empty()) continue;
      EXPECT_EQ(words.size(), version.dataWords);
      EXPECT_TRUE(IsSame(kCodeOne, "the tests' reader", Reader(words).read(), data));
      break;
    }
  }
}
