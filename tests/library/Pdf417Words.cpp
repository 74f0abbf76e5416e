#include "tests/library/Pdf417Words.h"

#include "library/symbology/ZintSymbol.h"

#include <cstring>
#include <map>
#include <queue>
#include <set>
#include <tuple>

using Library::CodeWords;
using Library::Symbol;

std::string CharacterRange(int first, int last) {
  std::string characters;
  for (int c = first; c <= last; ++c) characters += static_cast<char>(c);
  return characters;
}

std::vector<std::string> OneByOne(const std::string& characters) {
  std::vector<std::string> pieces;
  for (const char character : characters) pieces.push_back({character});
  return pieces;
}

const std::vector<DataKind> kDataKinds = {
    {"digits", OneByOne("0123456789"), 2710},
    {"capitals", OneByOne(CharacterRange('A', 'Z')), 1850},
    {"mixed", OneByOne(CharacterRange(' ', '~')), 1100},
    {"URL", {"https://", "www.", "example", ".com/", "a", "7", "?id=", "&q=", "2024", "%20"}, 1200},
    {"bytes", OneByOne(CharacterRange(0, 255)), 1108},
    {"UTF-8", {"Gr", "\xC3\xBC", "\xC3\x9F", "e", " ", "\xE2\x82\xAC", "12", ", Stra"}, 1000},
};

const DataKind& Digits() {
  return kDataKinds.front();
}

std::string RandomData::of(const std::vector<std::string>& pieces, std::size_t length) {
  std::string data;
  while (data.size() < length) data += pieces[random() % pieces.size()];
  return data;
}

std::string RandomData::mixture(std::size_t length) {
  std::string data;
  while (data.size() < length) {
    data += of(kDataKinds[random() % kDataKinds.size()].pieces, 1 + random() % 15);
  }
  return data.substr(0, length);
}

namespace {

std::map<std::string, std::uint16_t> WordsByModules() {
  std::map<std::string, std::uint16_t> words;
  for (const auto& cluster : Library::kPdf417Patterns) {
    for (std::uint16_t value = 0; value < Library::kPdf417Values; ++value) {
      std::string modules = "1";
      for (int bit = 14; bit >= 0; --bit) modules += (cluster[value] >> bit & 1) ? '1' : '0';
      words[modules + '0'] = value;
    }
  }
  return words;
}

// Where a row has code words.
std::vector<std::size_t> PlacesOf(const Symbol& symbol) {
  const std::map<int, std::vector<std::size_t>> kMicro = {
      {38, {10}}, {55, {10, 27}}, {82, {10, 37, 54}}, {99, {10, 27, 54, 71}}};
  if (symbol.type == kMicroPdf417) return kMicro.at(symbol.width);
  std::vector<std::size_t> places;
  for (int at = 34; at + 35 < symbol.width; at += 17)
    places.push_back(static_cast<std::size_t>(at));
  return places;
}

}  // namespace

CodeWords WordsOf(const Symbol& symbol) {
  static const auto kWords = WordsByModules();
  CodeWords words;
  for (const auto& row : symbol.rows) {
    std::string modules;
    for (std::size_t i = 0; i < row.runs.size(); ++i) {
      modules.append(static_cast<std::size_t>(row.runs[i]), i % 2 == 0 ? '1' : '0');
    }
    for (const std::size_t at : PlacesOf(symbol)) {
      words.push_back(kWords.at(modules.substr(at, 17)));
    }
  }
  return words;
}

Symbol DrawnByLibzint(int type, const std::string& data, int level, int columns,
                      SegmentOf segment) {
  Library::ZintSymbol encoded(type);
  encoded->option_1 = level;
  encoded->option_2 = columns;
  encoded->structapp.index = segment.index;
  encoded->structapp.count = segment.count;
  std::strncpy(encoded->structapp.id, segment.id, sizeof encoded->structapp.id - 1);
  encoded.encode(data);
  Symbol symbol;
  symbol.type = type;
  encoded.copyRows(symbol, 0);
  return symbol;
}

namespace {

constexpr char kNoSubmode = '-';

bool Has(char submode, char c) {
  const std::string punctuation = ";<>@[\\]_`~!\r\t,:\n-.$/\"|*()?{}'";
  const std::string mixed = "0123456789&\r\t,:#-.$/+%*=^ ";
  if (submode == 'A') return c == ' ' || (c >= 'A' && c <= 'Z');
  if (submode == 'L') return c == ' ' || (c >= 'a' && c <= 'z');
  return (submode == 'M' ? mixed : punctuation).find(c) != std::string::npos;
}

// Costs are half code words, the two characters of text compaction.
class Ways {
 public:
  int cheapest(const std::string& data, char submode) {
    add(0, 0, submode);
    while (true) {
      const auto [cost, place, from] = open.top();
      open.pop();
      if (place == data.size()) return (cost + 1) / 2;
      if (!done.insert({place, from, cost % 2}).second) continue;
      leave(data, cost + cost % 2, place, from);
      if (from != kNoSubmode) write(data[place], cost, place, from);
    }
  }

 private:
  void add(int cost, std::size_t place, char submode) { open.push({cost, place, submode}); }

  void leave(const std::string& data, int cost, std::size_t place, char submode) {
    for (std::size_t end = place + 1; end <= data.size(); ++end) {
      const int n = static_cast<int>(end - place);
      add(cost + 2 * (1 + n / 6 * 5 + n % 6), end, kNoSubmode);
      if (data.find_first_not_of("0123456789", place) < end) continue;
      add(cost + 2 * (1 + n / 44 * 15 + (n % 44 == 0 ? 0 : n % 44 / 3 + 1)), end, kNoSubmode);
    }
    if (submode == kNoSubmode) add(cost + 2, place, 'A');
  }

  void write(char c, int cost, std::size_t place, char submode) {
    static const std::map<char, std::string> kLatches = {
        {'A', "LM"}, {'L', "M"}, {'M', "ALP"}, {'P', "A"}};
    for (const char target : kLatches.at(submode)) add(cost + 1, place, target);
    if (Has(submode, c)) add(cost + 1, place + 1, submode);
    const bool shifted = (submode != 'P' && Has('P', c)) || (submode == 'L' && Has('A', c));
    if (shifted) add(cost + 2, place + 1, submode);
    // A byte: the value that fills the code word before is a latch in punctuation.
    const bool padded = cost % 2 != 0;
    add(cost + padded + 4, place + 1, padded && submode == 'P' ? 'A' : submode);
  }

  using Way = std::tuple<int, std::size_t, char>;
  std::priority_queue<Way, std::vector<Way>, std::greater<>> open;
  std::set<std::tuple<std::size_t, char, int>> done;
};

}  // namespace

int FewestWords(const std::string& data, Library::Pdf417Start start) {
  return Ways().cheapest(data, start == Library::Pdf417Start::kAlpha ? 'A' : kNoSubmode);
}
