// Aztec Code, against a reader of bits and a search for the shortest message that work from the
// code tables alone, against libzint's sizes, and read back by ZXing.
#include "library/prepare/PreparedData.h"
#include "library/symbology/AztecMessage.h"
#include "library/symbology/ZintSymbol.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <queue>
#include <random>
#include <sstream>

namespace {

using Library::AztecContent;
using Library::AztecMessage;
using Library::Options;
using Library::Symbol;

// What a code means: characters, or a shift or latch to another mode.
struct Meaning {
  std::string text;
  char mode = 0;  // U, L, M, P, D, B for a run of bytes, F for FLG(n)
  bool latch = false;
};

std::vector<Meaning> Table(const std::string& names) {
  const std::map<std::string, Meaning> kSpecial = {
      {"PS", {"", 'P'}},       {"US", {"", 'U'}},       {"BS", {"", 'B'}},
      {"FL", {"", 'F'}},       {"UL", {"", 'U', true}}, {"LL", {"", 'L', true}},
      {"ML", {"", 'M', true}}, {"DL", {"", 'D', true}}, {"PL", {"", 'P', true}},
      {"SP", {" "}},           {"CR", {"\r"}},          {"CRLF", {"\r\n"}},
      {".SP", {". "}},         {",SP", {", "}},         {":SP", {": "}},
  };
  std::vector<Meaning> table;
  std::istringstream stream(names);
  for (std::string name; stream >> name;) {
    const auto special = kSpecial.find(name);
    if (special != kSpecial.end()) {
      table.push_back(special->second);
    } else if (name.size() == 2) {
      table.push_back({std::string(1, static_cast<char>(std::stoi(name, nullptr, 16)))});
    } else {
      table.push_back({name});
    }
  }
  return table;
}

const std::map<char, std::vector<Meaning>> kTables = {
    {'U', Table("PS SP A B C D E F G H I J K L M N O P Q R S T U V W X Y Z LL ML DL BS")},
    {'L', Table("PS SP a b c d e f g h i j k l m n o p q r s t u v w x y z US ML DL BS")},
    {'M', Table("PS SP 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 1B 1C 1D 1E 1F @ \\ ^ _ ` | ~ 7F "
                "LL UL PL BS")},
    {'P', Table("FL CR CRLF .SP ,SP :SP ! \" # $ % & ' ( ) * + , - . / : ; < = > ? [ ] { } UL")},
    {'D', Table("PS SP 0 1 2 3 4 5 6 7 8 9 , . UL US")},
};

int CodeBits(char mode) {
  return mode == 'D' ? 4 : 5;
}

// What the words transmit; none where a run of bytes is cut off by the end. FNC1 reads as GS.
std::optional<std::string> Read(const AztecMessage::Words& words, int wordBits) {
  std::vector<bool> bits;
  for (const int word : words) {
    const int head = word >> 1, ones = (1 << (wordBits - 1)) - 1;
    EXPECT_TRUE(word != 0 && word != (ones << 1 | 1));
    const int stuffed = head == 0 || head == ones ? 1 : 0;
    for (int bit = wordBits; bit-- > stuffed;) bits.push_back((word >> bit & 1) != 0);
  }
  std::size_t at = 0;
  const auto has = [&](int count) { return at + static_cast<std::size_t>(count) <= bits.size(); };
  const auto take = [&](int count) {
    int value = 0;
    while (count-- > 0) value = value << 1 | (bits[at++] ? 1 : 0);
    return value;
  };
  std::string text;
  char latched = 'U', mode = 'U';
  while (has(CodeBits(mode))) {
    const Meaning& meaning = kTables.at(mode)[static_cast<std::size_t>(take(CodeBits(mode)))];
    text += meaning.text;
    mode = meaning.mode == 0 ? latched : meaning.mode;
    if (meaning.latch) latched = mode;
    if (mode == 'F') {
      EXPECT_EQ(take(3), 0);
      text += '\x1D';
      mode = latched;
    } else if (mode == 'B') {
      if (!has(5)) return std::nullopt;
      int length = take(5);
      if (length == 0 && !has(11)) return std::nullopt;
      if (length == 0) length = 31 + take(11);
      if (!has(8 * length)) return std::nullopt;
      while (length-- > 0) text += static_cast<char>(take(8));
      mode = latched;
    }
  }
  EXPECT_EQ(mode, latched) << "a shift that shifts nothing";
  return text;
}

// The fewest bits that transmit `data`: cheapest first over every place and mode.
int FewestBits(const std::string& data) {
  using State = std::pair<std::size_t, char>;
  using Entry = std::pair<int, State>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
  std::map<State, bool> done;
  open.push({0, {0, 'U'}});
  while (true) {
    const auto [cost, state] = open.top();
    open.pop();
    const auto [place, mode] = state;
    if (place == data.size()) return cost;
    if (std::exchange(done[state], true)) continue;
    const auto take = [&, cost = cost, place = place, mode = mode](const Meaning& code, int bits) {
      if (code.text.empty() || data.compare(place, code.text.size(), code.text) != 0) return;
      open.push({cost + bits, {place + code.text.size(), mode}});
    };
    for (const Meaning& code : kTables.at(mode)) {
      const int bits = CodeBits(mode);
      take(code, bits);
      if (code.latch) open.push({cost + bits, {place, code.mode}});
      if (code.mode == 'B') {
        for (int length = 1; place + static_cast<std::size_t>(length) <= data.size(); ++length) {
          const int lengthBits = length < 32 ? 5 : 16;
          open.push({cost + bits + lengthBits + 8 * length,
                     {place + static_cast<std::size_t>(length), mode}});
        }
      } else if (!code.latch && kTables.contains(code.mode)) {
        for (const Meaning& shifted : kTables.at(code.mode)) take(shifted, bits + 5);
      }
    }
  }
}

AztecContent ContentOf(const std::string& data) {
  AztecContent content;
  for (const char c : data) content.characters.push_back(static_cast<unsigned char>(c));
  return content;
}

// Random data of one kind.
class Source {
 public:
  std::string next(const std::vector<std::string>& pieces, std::size_t length) {
    std::string data;
    while (data.size() < length) data += pieces[random() % pieces.size()];
    data.resize(length);
    // ZXing takes a GS among the first three characters for FNC1.
    for (std::size_t i = 0; i < 3 && i < length; ++i) {
      if (data[i] == '\x1D') data[i] = ' ';
    }
    return data;
  }
  std::size_t below(std::size_t bound) { return random() % bound; }

 private:
  std::mt19937 random = Seeded(24778);
};

std::vector<std::string> Each(int first, int last) {
  std::vector<std::string> pieces;
  for (int c = first; c <= last; ++c) pieces.emplace_back(1, static_cast<char>(c));
  return pieces;
}

const std::pair<const char*, std::vector<std::string>> kKinds[] = {
    {"digits", Each('0', '9')},
    {"capitals", Each('A', 'Z')},
    {"mixed", Each(32, 126)},
    {"text", {"The ", "quick", ", ", ". ", "Fox ", ": ", "1,250.00 ", "EUR", "\r\n", "(a)"}},
    {"URL", {"https://", "www.", "example", ".com/", "?id=", "4711", "&q=", "%20", "A1"}},
    {"bytes", Each(0, 255)},
    {"UTF-8", {"Gr\xC3\xBC\xC3\x9F", "e ", "\xE2\x82\xAC", " 12", "\xE6\x97\xA5", "plain", "N"}},
    {"controls", {"\r", "\n", "\t", "\x1E", ". ", ",", "|", "@", "a", "A"}},
    {"stuffed", {std::string(1, '\0'), "\xFF", "\x80", "\x7F", "00", "A"}},
};

TEST(Aztec, MessagesAreAsShortAsAnyCanBe) {
  Source source;
  for (const auto& [name, pieces] : kKinds) {
    for (std::size_t length = 1; length <= 90; length += 1 + length / 8) {
      const std::string data = source.next(pieces, length);
      EXPECT_EQ(AztecMessage(ContentOf(data)).bitCount(), FewestBits(data))
          << name << ", " << testing::PrintToString(data);
    }
  }
  const std::string bytes(2079, '\x80');
  EXPECT_EQ(AztecMessage(ContentOf(bytes.substr(1))).bitCount(), 21 + 8 * 2078);
  EXPECT_EQ(AztecMessage(ContentOf(bytes)).bitCount(), 21 + 10 + 8 * 2079);
}

// Whatever the mode at the end, and however many bits of the last word are left.
TEST(Aztec, NoFillingIsTakenForAShift) {
  Source source;
  for (const auto& [name, pieces] : kKinds) {
    for (std::size_t length = 1; length <= 60; ++length) {
      const std::string data = source.next(pieces, length);
      const AztecMessage message(ContentOf(data));
      for (const int wordBits : {6, 8, 10, 12}) {
        EXPECT_EQ(Read(message.words(wordBits), wordBits), data) << name << ", " << wordBits;
      }
    }
  }
  EXPECT_EQ(Read(AztecMessage(ContentOf(std::string(1064, '\x80'))).words(12), 12),
            std::string(1064, '\x80'));
}

// What the mode message tells.
struct Told {
  int dataWords, words;
  int checkWords() const { return words - dataWords; }
};

bool IsDark(const Symbol& symbol, int x, int y) {
  int edge = 0;
  bool dark = false;
  for (const int run : symbol.rows[static_cast<std::size_t>(y)].runs) {
    dark = !dark;
    edge += run;
    if (x < edge) break;
  }
  return dark;
}

Told ModeOf(const Symbol& symbol) {
  const int centre = symbol.width / 2;
  const bool compact = !IsDark(symbol, centre - 6, centre - 6) || symbol.width <= 27;
  const int distance = compact ? 5 : 7, reach = compact ? 3 : 5;
  int value = 0, count = 0;
  for (int along = -reach; along <= reach; ++along) {
    if (!compact && along == 0) continue;
    value = value << 1 | (IsDark(symbol, centre + along, centre - distance) ? 1 : 0), ++count;
  }
  for (int along = -reach; count < (compact ? 8 : 16); ++along) {
    if (!compact && along == 0) continue;
    value = value << 1 | (IsDark(symbol, centre + distance, centre + along) ? 1 : 0), ++count;
  }
  const int layers = (value >> (compact ? 6 : 11)) + 1;
  const int bits = ((compact ? 88 : 112) + 16 * layers) * layers;
  const int wordBits = layers <= 2 ? 6 : layers <= 8 ? 8 : layers <= 22 ? 10 : 12;
  return {(value & (compact ? 0x3F : 0x7FF)) + 1, bits / wordBits};
}

// libzint's width for its level 1 to 4, or -1; none: it refuses the data.
std::optional<int> WidthByLibzint(const std::string& data, int level) {
  Library::ZintSymbol symbol(BARCODE_AZTEC);
  symbol->option_1 = level;
  if (!symbol.tryEncode(data)) return std::nullopt;
  return symbol->width;
}

TEST(Aztec, SymbolsAreReadBackAndNeverLargerThanLibzints) {
  constexpr std::pair<int, int> kLevels[] = {{-1, -1}, {10, 1}, {23, 2}, {36, 3}, {50, 4}};
  constexpr std::size_t kLengths[] = {12, 60, 300, 900};
  constexpr std::size_t kRounds = 40;
  // libzint's compact symbol of four layers with more data words than its mode message can tell.
  constexpr int kFourLayers = 27;
  Source source;
  std::size_t smaller = 0;
  for (const auto& [name, pieces] : kKinds) {
    for (std::size_t round = 0; round < kRounds; ++round) {
      const std::size_t length = 1 + source.below(kLengths[round % std::size(kLengths)]);
      const auto [percent, level] = kLevels[round % std::size(kLevels)];
      Options options = OptionsFor(92, source.next(pieces, length));
      options.aztec.errorCorrection = percent;
      SCOPED_TRACE(testing::Message() << name << ", " << length << ", " << percent << " %");
      const Symbol symbol = Library::Encode(options);
      EXPECT_TRUE(ReadsBack(symbol, options.data));
      const int theirs = WidthByLibzint(options.data, level).value_or(999);
      const bool wrong = theirs == kFourLayers && symbol.width > theirs;
      EXPECT_TRUE(symbol.width <= theirs || wrong) << theirs;
      smaller += symbol.width < theirs ? 1 : 0;
    }
  }
  EXPECT_GT(smaller, std::size(kKinds) * kRounds / 10);
}

TEST(Aztec, PercentagesAreKeptToAndNotExceededByASize) {
  constexpr int kWidths[] = {15, 19, 23, 27, 31, 37, 41, 45, 49, 53, 57, 61, 67, 71};
  Source source;
  for (const std::size_t length : {1u, 6u, 20u, 45u, 62u, 100u, 230u}) {
    Options options = OptionsFor(92, source.next(Each(0, 255), length));
    for (int percent = 0; percent <= 70; percent += 7) {
      SCOPED_TRACE(testing::Message() << length << " bytes, " << percent << " %");
      options.aztec.size = 0;
      options.aztec.errorCorrection = percent;
      const Symbol symbol = Library::Encode(options);
      const Told told = ModeOf(symbol);
      EXPECT_GE(told.checkWords() * 100, percent * told.words);
      EXPECT_GE(told.checkWords(), 3);
      EXPECT_TRUE(ReadsBack(symbol, options.data));
      // The next size down holds the data with less than was asked for, or not at all.
      const auto place = std::find(std::begin(kWidths), std::end(kWidths), symbol.width);
      const int number = static_cast<int>(place - std::begin(kWidths)) + 1;
      if (number == 1) continue;
      options.aztec.size = number <= 5 ? number - 1 : number + 2;
      if (RefusalOf(options) == Refusal{BC_E_DATATOOLONG, -1}) continue;
      const Told less = ModeOf(Library::Encode(options));
      EXPECT_LT(less.checkWords() * 100, std::max(percent * less.words, 300));
    }
  }
  Options most = OptionsFor(92, "1");
  most.aztec.errorCorrection = 99;
  EXPECT_TRUE(ReadsBack(Library::Encode(most), "1"));
}

TEST(Aztec, DataThatFitAreNotRefused) {
  Source source;
  Options options = OptionsFor(92, source.next(Each(0, 255), 50));
  EXPECT_EQ(Library::Encode(options).width, 27);
  const struct {
    std::string data;
    int percent;
  } kRows[] = {{source.next(Each(0, 255), 1700), 5},
               {source.next(Each('0', '9'), 4900), 0},
               {source.next(Each(128, 255), 2400), 0},
               {source.next({". ", ", ", ": "}, 7800), 0}};
  for (const auto& row : kRows) {
    options.data = row.data;
    options.aztec.errorCorrection = row.percent;
    EXPECT_TRUE(ReadsBack(Library::Encode(options), row.data)) << row.data.size();
  }
  for (const std::size_t tooMany : {2500u, 8000u}) {
    options.data.assign(tooMany, '\x80');
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_DATATOOLONG, -1}));
  }
}

// Each size with as much as it holds by the standard's numbers of words.
TEST(Aztec, SizesHoldAllThatThreeCheckWordsLeave) {
  constexpr int kWidths[] = {15,  19,  23,  27,  19,  23,  27,  31,  37,  41,  45,  49,
                             53,  57,  61,  67,  71,  75,  79,  83,  87,  91,  95,  101,
                             105, 109, 113, 117, 121, 125, 131, 135, 139, 143, 147, 151};
  Source source;
  Options options = OptionsFor(92, "");
  for (int size = 1; size <= 36; ++size) {
    SCOPED_TRACE(size);
    options.aztec.size = size;
    const bool compact = size <= 4;
    const int layers = compact ? size : size - 4;
    const int wordBits = layers <= 2 ? 6 : layers <= 8 ? 8 : layers <= 22 ? 10 : 12;
    const int words = ((compact ? 88 : 112) + 16 * layers) * layers / wordBits;
    const int most = std::min(words - 3, compact ? 64 : 2048);
    // Bit stuffing finds nothing in the bytes, but something in front of them.
    constexpr int kStuffed = 4;
    const int bits = most * wordBits - kStuffed;
    const int shift = bits >= 21 + 8 * 2079 ? 42 : bits >= 10 + 8 * 32 ? 21 : 10;
    const auto length = static_cast<std::size_t>((bits - shift) / 8);
    options.data = source.next({"\xAA", "\xD5"}, length);
    const Symbol symbol = Library::Encode(options);
    EXPECT_EQ(symbol.width, kWidths[size - 1]);
    EXPECT_EQ(static_cast<int>(symbol.rows.size()), symbol.width);
    EXPECT_TRUE(ReadsBack(symbol, options.data));
    options.data += "\xAA\xAA\xAA\xAA";
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_DATATOOLONG, -1}));
  }
}

TEST(Aztec, FormatsAndAppendReachTheReader) {
  const struct {
    const char* name;
    std::function<void(Library::AztecOptions&)> set;
    const char *identifier, *data, *read;
  } kRows[] = {
      {"plain", [](auto&) {}, "]z0", "Data 1", "Data 1"},
      {"GS1", [](auto& o) { o.format = 1; }, "]z1", "(10)ABC(21)x",
       "10ABC\x1D"
       "21x"},
      {"letter", [](auto& o) { o.format = 2, o.formatSpecifier = "Q"; }, "]z2", "Data", "QData"},
      {"digits", [](auto& o) { o.format = 2, o.formatSpecifier = "37"; }, "]z2", "Data", "37Data"},
      {"append", [](auto& o) { o.append = true; }, "]z6", "Data", "Data"},
      {"append, GS1", [](auto& o) { o.append = true, o.format = 1; }, "]z7", "(10)ABC(21)x",
       "10ABC\x1D"
       "21x"},
      {"append, binary", [](auto& o) { o.append = o.binary = true; }, "]z6", "Data", "Data"},
      {"GS1, binary", [](auto& o) { o.format = 1, o.binary = true; }, "]z1", "(10)ABC(21)x",
       "10ABC\x1D"
       "21x"},
  };
  for (const auto& row : kRows) {
    for (const char* id : {"", "x", "an-id-of-32-characters-with-%_12"}) {
      SCOPED_TRACE(testing::Message() << row.name << " " << id);
      Options options = OptionsFor(92, row.data);
      options.aztec.appendSum = 'Z', options.aztec.appendIndex = 'Y';
      options.aztec.messageId = id;
      row.set(options.aztec);
      const Scanned scanned = Scan(Library::Encode(options));
      EXPECT_TRUE(IsRead(scanned, row.read));
      EXPECT_EQ(scanned.identifier, row.identifier);
      EXPECT_EQ(scanned.sequenceSize, options.aztec.append ? 26 : -1);
      EXPECT_EQ(scanned.sequenceIndex, options.aztec.append ? 24 : -1);
      EXPECT_EQ(scanned.sequenceId, options.aztec.append ? id : "");
    }
  }
}

TEST(Aztec, BinaryWritesBytesOnly) {
  Options options = OptionsFor(92, std::string(100, '1'));
  options.aztec.errorCorrection = 0;
  const int digits = ModeOf(Library::Encode(options)).dataWords;
  options.aztec.binary = true;
  const Symbol symbol = Library::Encode(options);
  EXPECT_TRUE(ReadsBack(symbol, options.data));
  EXPECT_EQ(digits, (5 + 400 + 7) / 8);
  EXPECT_EQ(ModeOf(symbol).dataWords, (21 + 800 + 7) / 8);
}

TEST(Aztec, OptionsThatMakeNoSenseAreRefused) {
  const struct {
    const char* name;
    const char* data;
    std::function<void(Library::AztecOptions&)> set;
    Refusal expected;
  } kRows[] = {
      {"size", "1", [](auto& o) { o.size = 37; }, {BC_E_INVALIDARG}},
      {"percent", "1", [](auto& o) { o.errorCorrection = 100; }, {BC_E_INVALIDARG}},
      {"format", "1", [](auto& o) { o.format = 3; }, {BC_E_INVALIDARG}},
      {"no specifier", "1", [](auto& o) { o.format = 2; }, {BC_E_INVALIDARG}},
      {"long specifier",
       "1",
       [](auto& o) { o.format = 2, o.formatSpecifier = "AB"; },
       {BC_E_INVALIDARG}},
      {"sum of one", "1", [](auto& o) { o.append = true; }, {BC_E_INVALIDARG}},
      {"index beyond the sum",
       "1",
       [](auto& o) { o.append = true, o.appendSum = 'C', o.appendIndex = 'D'; },
       {BC_E_INVALIDARG}},
      {"blank in the id",
       "1",
       [](auto& o) { o.append = true, o.appendSum = 'C', o.messageId = "a b"; },
       {BC_E_INVALIDARG}},
      {"id of 33",
       "1",
       [](auto& o) { o.append = true, o.appendSum = 'C', o.messageId.assign(33, 'x'); },
       {BC_E_INVALIDARG}},
      {"rune of GS1", "(10)1", [](auto& o) { o.runes = true, o.format = 1; }, {BC_E_NOTSUPPORTED}},
      {"appended rune",
       "1",
       [](auto& o) { o.runes = o.append = true, o.appendSum = 'C'; },
       {BC_E_NOTSUPPORTED}},
      {"large rune", "256", [](auto& o) { o.runes = true; }, {BC_E_INVALIDDATA, 0}},
      {"long rune", "0001", [](auto& o) { o.runes = true; }, {BC_E_DATATOOLONG}},
      {"rune of letters", "1a", [](auto& o) { o.runes = true; }, {BC_E_INVALIDDATA, 1}},
  };
  for (const auto& row : kRows) {
    Options options = OptionsFor(92, row.data);
    row.set(options.aztec);
    EXPECT_EQ(RefusalOf(options), row.expected) << row.name;
  }
}

}  // namespace
