// The fewest code words are found by dynamic programming over the data, one character a step. Costs
// are counted in half code words, the two characters of text compaction. A state is what a reader
// is in: a submode of text compaction at the first or second half of a code word, byte compaction
// after a number of bytes modulo 6 (six take five code words, fewer one each), numeric compaction
// after a number of digits modulo 44 (which take fifteen), or none of them before the first latch.
//
// States that another one betters whatever follows are not followed. Of byte and of numeric
// compaction only the cheapest stay: what characters to come take differs by one code word at most.
// A latch from the cheapest state of all makes any that costs more than that latch needless.
#include "library/prepare/CharacterSet.h"
#include "library/symbology/Pdf417.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>

namespace Library {
namespace {

// Code words that are no data.
constexpr std::uint16_t kTextLatch = 900, kByteLatch = 901, kNumberLatch = 902, kByteShift = 913,
                        kSixBytesLatch = 924;

enum Submode : std::size_t { kAlpha, kLower, kMixed, kPunctuation, kSubmodes };
constexpr int kPad = 29;  // latches from punctuation to alpha, else is a shift that shifts nothing

// Values of the characters of a submode in turn, '\0' where it has none.
constexpr std::string_view kCharacters[kSubmodes] = {
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ ",
    "abcdefghijklmnopqrstuvwxyz ",
    {"0123456789&\r\t,:#-.$/+%*=^\0 ", 27},
    ";<>@[\\]_`~!\r\t,:\n-.$/\"|*()?{}'",
};

struct Values {
  std::uint8_t count = 0;
  std::uint8_t values[2] = {};
};

// From a submode, by line, to another for good.
constexpr Values kLatches[kSubmodes][kSubmodes] = {
    {{}, {1, {27}}, {1, {28}}, {2, {28, 25}}},
    {{2, {28, 28}}, {}, {1, {28}}, {2, {28, 25}}},
    {{1, {28}}, {1, {27}}, {}, {1, {25}}},
    {{1, {29}}, {2, {29, 27}}, {2, {29, 28}}, {}},
};

// How a character is written in each submode, a shift in front where it has none; count 0: cannot.
using Writing = std::array<Values, kSubmodes>;

constexpr std::array<Writing, 256> Writings() {
  std::array<Writing, 256> writings{};
  constexpr struct {
    Submode in, of;
    std::uint8_t shift;
  } kShifts[] = {{kLower, kAlpha, 27},
                 {kAlpha, kPunctuation, 29},
                 {kLower, kPunctuation, 29},
                 {kMixed, kPunctuation, 29}};
  for (const auto& shift : kShifts) {
    for (std::size_t i = 0; i < kCharacters[shift.of].size(); ++i) {
      const auto byte = static_cast<unsigned char>(kCharacters[shift.of][i]);
      writings[byte][shift.in] = {2, {shift.shift, static_cast<std::uint8_t>(i)}};
    }
  }
  for (std::size_t submode = 0; submode < kSubmodes; ++submode) {
    for (std::size_t i = 0; i < kCharacters[submode].size(); ++i) {
      const auto byte = static_cast<unsigned char>(kCharacters[submode][i]);
      if (byte != 0) writings[byte][submode] = {1, {static_cast<std::uint8_t>(i)}};
    }
  }
  return writings;
}
constexpr std::array<Writing, 256> kWritings = Writings();

bool IsText(unsigned char byte) {
  const Writing& writing = kWritings[byte];
  return std::any_of(writing.begin(), writing.end(), [](const Values& v) { return v.count != 0; });
}

constexpr std::size_t kBytesPerGroup = 6, kDigitsPerGroup = 44;

// States: two of each submode, by the half that comes next, those of bytes, of digits, unknown.
constexpr std::size_t kTextStates = 2 * kSubmodes;
constexpr std::size_t kFirstByte = kTextStates, kFirstDigit = kFirstByte + kBytesPerGroup;
constexpr std::size_t kUnlatched = kFirstDigit + kDigitsPerGroup;
constexpr std::size_t kStates = kUnlatched + 1;
constexpr std::uint8_t kShifted = 0x80;  // beside the state from which a byte was shifted to

constexpr int kWord = 2;  // half code words
constexpr int kNever = std::numeric_limits<int>::max() / 2;

constexpr bool IsTextState(std::size_t state) {
  return state < kTextStates;
}
constexpr bool IsByteState(std::size_t state) {
  return state >= kFirstByte && state < kFirstDigit;
}
constexpr bool IsDigitState(std::size_t state) {
  return state >= kFirstDigit && state < kUnlatched;
}

int WholeWords(int cost) {
  return cost + (cost & 1);
}

class Search {
 public:
  Search(std::string_view bytes, bool textOnly, Pdf417Start start)
      : data(bytes),
        onlyText(textOnly),
        beyondBytes(start == Pdf417Start::kUnknown),
        steps(bytes.size() * kStates) {
    now.fill(kNever);
    next.fill(kNever);
    now[start == Pdf417Start::kUnknown ? kUnlatched : std::size_t{kAlpha}] = 0;
  }

  struct Step {
    std::uint8_t from;
    std::uint8_t to;
  };

  // The states before and after every character; kShifted beside `from`.
  std::vector<Step> run() {
    for (place = 0; place < data.size(); ++place) {
      const auto byte = static_cast<unsigned char>(data[place]);
      leave();
      takeText(byte);
      if (!onlyText) takeByte();
      if (!onlyText && kDigits.contains(byte)) takeDigit();
      std::swap(now, next);
      std::fill(next.begin(), next.begin() + kFirstDigit, kNever);
      if (beyondBytes || digitsNext) std::fill(next.begin() + kFirstDigit, next.end(), kNever);
      beyondBytes = digitsNext;
      digitsNext = false;
    }
    leave();
    return trace();
  }

 private:
  void offer(std::size_t state, int cost, std::size_t from) {
    if (cost >= next[state]) return;
    next[state] = cost;
    steps[place * kStates + state] = static_cast<std::uint8_t>(from);
  }

  // Finds the cheapest state to leave from, at a whole code word.
  void leave() {
    exitCost = kNever;
    const std::size_t end = beyondBytes ? kStates : kFirstDigit;
    for (std::size_t state = 0; state < end; ++state) {
      const int cost = WholeWords(now[state]);
      if (cost >= exitCost) continue;
      exitCost = cost;
      exit = state;
    }
  }

  void takeText(unsigned char byte) {
    const bool text = IsText(byte);
    for (std::size_t state = 0; state < kTextStates; ++state) {
      const int cost = now[state];
      if (cost >= kNever) continue;
      const auto submode = static_cast<Submode>(state / 2);
      // The same submode half a code word earlier is as good, but where a pad would change it.
      if (submode != kPunctuation && now[state ^ 1] < cost) continue;
      if (text) write(byte, submode, cost, state);
      // Around text it pays in punctuation only, to which two latches lead back.
      if (!text || submode == kPunctuation) shift(submode, cost, state);
    }
    if (text && !IsTextState(exit)) write(byte, kAlpha, exitCost + kWord, exit);
  }

  void write(unsigned char byte, Submode submode, int cost, std::size_t from) {
    for (std::size_t target = 0; target < kSubmodes; ++target) {
      const int written = kWritings[byte][target].count;
      if (written == 0) continue;
      const int total = cost + kLatches[submode][target].count + written;
      offer(2 * target + static_cast<std::size_t>(total & 1), total, from);
    }
  }

  // A latch costs nothing where it stands for the pad in front of the byte.
  void shift(Submode submode, int cost, std::size_t from) {
    for (std::size_t target = 0; target < kSubmodes; ++target) {
      const int total = cost + kLatches[submode][target].count;
      const bool padded = (total & 1) != 0;
      if (padded && target == kPunctuation) continue;  // the pad is the latch to alpha
      offer(2 * target, WholeWords(total) + 2 * kWord, from | kShifted);
    }
  }

  int cheapest(std::size_t first, std::size_t count) const {
    const auto begin = now.begin() + static_cast<std::ptrdiff_t>(first);
    return *std::min_element(begin, begin + static_cast<std::ptrdiff_t>(count));
  }

  void takeByte() {
    const int least = std::min(cheapest(kFirstByte, kBytesPerGroup), exitCost + kWord);
    for (std::size_t count = 0; count < kBytesPerGroup; ++count) {
      const int cost = now[kFirstByte + count];
      if (cost > least) continue;
      const std::size_t taken = (count + 1) % kBytesPerGroup;
      offer(kFirstByte + taken, cost + (taken == 0 ? 0 : kWord), kFirstByte + count);
    }
    if (!IsByteState(exit)) offer(kFirstByte + 1, exitCost + 2 * kWord, exit);
  }

  void takeDigit() {
    digitsNext = true;
    if (beyondBytes) {
      const int least = std::min(cheapest(kFirstDigit, kDigitsPerGroup), exitCost + kWord);
      for (std::size_t count = 0; count < kDigitsPerGroup; ++count) {
        const int cost = now[kFirstDigit + count];
        if (cost > least) continue;
        const std::size_t taken = (count + 1) % kDigitsPerGroup;
        const bool more = taken == 1 || (taken != 0 && taken % 3 == 0);
        offer(kFirstDigit + taken, cost + (more ? kWord : 0), kFirstDigit + count);
      }
    }
    if (!IsDigitState(exit)) offer(kFirstDigit + 1, exitCost + 2 * kWord, exit);
  }

  std::vector<Step> trace() const {
    std::vector<Step> path(data.size());
    std::size_t state = exit;
    for (std::size_t i = data.size(); i > 0; --i) {
      const std::uint8_t from = steps[(i - 1) * kStates + state];
      path[i - 1] = {from, static_cast<std::uint8_t>(state)};
      state = from & ~std::size_t{kShifted};
    }
    return path;
  }

  const std::string_view data;
  const bool onlyText;
  // Any state of numeric compaction, or none yet, is reached before and after the character.
  bool beyondBytes, digitsNext = false;
  std::size_t place = 0;
  std::array<int, kStates> now, next;  // costs of the states before and after the character
  int exitCost = 0;
  std::size_t exit = 0;
  std::vector<std::uint8_t> steps;  // the states before, by place and state after
};

void AppendBytes(std::string_view bytes, CodeWords& words) {
  const bool groupsOnly = bytes.size() % kBytesPerGroup == 0;
  words.push_back(groupsOnly ? kSixBytesLatch : kByteLatch);
  for (; bytes.size() >= kBytesPerGroup; bytes.remove_prefix(kBytesPerGroup)) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < kBytesPerGroup; ++i) {
      number = number << 8 | static_cast<unsigned char>(bytes[i]);
    }
    std::uint16_t group[5];
    for (std::size_t i = std::size(group); i > 0; --i, number /= 900) {
      group[i - 1] = static_cast<std::uint16_t>(number % 900);
    }
    words.insert(words.end(), std::begin(group), std::end(group));
  }
  for (const char byte : bytes) words.push_back(static_cast<unsigned char>(byte));
}

// Joins the values of text compaction in pairs.
class TextWriter {
 public:
  explicit TextWriter(CodeWords& target) : words(target) {}

  void add(int value) {
    if (half < 0) {
      half = value;
      return;
    }
    words.push_back(static_cast<std::uint16_t>(half * 30 + value));
    half = -1;
  }
  void add(const Values& values) {
    for (int i = 0; i < values.count; ++i) add(values.values[i]);
  }
  void finishWord() {
    if (half >= 0) add(kPad);
  }

 private:
  CodeWords& words;
  int half = -1;
};

// Text behind its latch, and bytes shifted to, from `place` to where text compaction is left, which
// is returned.
std::size_t AppendText(std::string_view data, const std::vector<Search::Step>& path,
                       std::size_t place, CodeWords& words) {
  TextWriter text(words);
  if (!IsTextState(path[place].from & ~std::size_t{kShifted})) words.push_back(kTextLatch);
  std::size_t submode = kAlpha;
  for (; place < path.size() && IsTextState(path[place].to); ++place) {
    const auto byte = static_cast<unsigned char>(data[place]);
    const std::size_t target = path[place].to / 2;
    text.add(kLatches[submode][target]);
    if ((path[place].from & kShifted) != 0) {
      text.finishWord();
      words.push_back(kByteShift);
      words.push_back(byte);
    } else {
      text.add(kWritings[byte][target]);
    }
    submode = target;
  }
  text.finishWord();
  return place;
}

std::size_t EndOf(const std::vector<Search::Step>& path, std::size_t place) {
  const bool bytes = IsByteState(path[place].to);
  while (place < path.size() && !IsTextState(path[place].to) &&
         IsByteState(path[place].to) == bytes) {
    ++place;
  }
  return place;
}

}  // namespace

void AppendPdf417Number(std::string_view digits, CodeWords& words) {
  constexpr std::uint32_t kBase = 900;
  while (!digits.empty()) {
    std::string_view group = digits.substr(0, kDigitsPerGroup);
    digits.remove_prefix(group.size());
    // The number with a 1 in front, which keeps leading zeros; the lowest code word first.
    std::array<std::uint32_t, kDigitsPerGroup / 3 + 1> number{1};
    std::size_t length = 1;
    while (!group.empty()) {
      std::uint32_t carry = 0, scale = 1;
      for (const char digit : group.substr(0, 3)) {
        carry = carry * 10 + static_cast<std::uint32_t>(digit - '0');
        scale *= 10;
      }
      group.remove_prefix(std::min<std::size_t>(3, group.size()));
      for (std::size_t i = 0; i < length; ++i) {
        const std::uint32_t sum = number[i] * scale + carry;
        number[i] = sum % kBase;
        carry = sum / kBase;
      }
      if (carry != 0) number[length++] = carry;
    }
    for (; length > 0; --length) words.push_back(static_cast<std::uint16_t>(number[length - 1]));
  }
}

CodeWords CompactPdf417(std::string_view data, Compaction compaction, Pdf417Start start) {
  CodeWords words;
  if (compaction == Compaction::kBytes) {
    AppendBytes(data, words);
    return words;
  }
  const std::vector<Search::Step> path = Search(data, compaction == Compaction::kText, start).run();
  words.reserve(data.size() + 3);
  for (std::size_t place = 0; place < data.size();) {
    if (IsTextState(path[place].to)) {
      place = AppendText(data, path, place, words);
      continue;
    }
    const std::size_t end = EndOf(path, place);
    const std::string_view run = data.substr(place, end - place);
    if (IsByteState(path[place].to)) {
      AppendBytes(run, words);
    } else {
      words.push_back(kNumberLatch);
      AppendPdf417Number(run, words);
    }
    place = end;
  }
  return words;
}

}  // namespace Library
