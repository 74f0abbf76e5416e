// The shortest message is found by dynamic programming. A state is the place in the data and the
// mode in force; a step writes a latch, a character, a pair of characters that is one code of the
// punctuation mode, or a run of bytes. The best run that ends at a place is found without trying
// all of its beginnings: the cost of each, less 8 bits for every byte in front of it, stays in
// order while the place moves on.
#include "library/symbology/AztecMessage.h"

#include "library/prepare/PreparedData.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace Library {
namespace {

constexpr std::size_t kModes = 5;
constexpr std::size_t kUpper = 0, kLower = 1, kMixed = 2, kPunct = 3, kDigit = 4;

constexpr int kNoCode = -1;
constexpr int kBinaryShift = 31;  // upper, lower and mixed mode
constexpr std::size_t kBinaryModes = 3;
constexpr int kPunctShift = 0;  // all modes but punctuation
constexpr int kUpperShift[kModes] = {kNoCode, 28, kNoCode, kNoCode, 15};
// FLG(n) of the punctuation mode, n in 3 bits; 0: FNC1, else an ECI number of n digits follows.
constexpr int kFunction = 0;

// Bytes of a run by the two lengths that it can be written with: 5 bits, or 11 more that count from
// 31 on.
constexpr std::size_t kLongestShortRun = 31, kLongestRun = 31 + 2047;

// Of a run without its bytes: the shift and the shorter length.
constexpr int kLeastRunBits = 5 + 5;

constexpr int CodeBits(std::size_t mode) {
  return mode == kDigit ? 4 : 5;
}

struct Code {
  int bits = 0;
  std::uint32_t value = 0;

  constexpr Code then(const Code& next) const {
    return {bits + next.bits, value << next.bits | next.value};
  }
  constexpr Code then(std::size_t mode, int code) const {
    return then({CodeBits(mode), static_cast<std::uint32_t>(code)});
  }
};

// Codes of the characters by mode.
using Codes = std::array<std::array<std::int8_t, 256>, kModes>;

constexpr Codes MakeCodes() {
  struct Row {
    std::size_t mode;
    int first;
    std::string_view characters;
  };
  constexpr Row kRows[] = {
      {kUpper, 1, " ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
      {kLower, 1, " abcdefghijklmnopqrstuvwxyz"},
      {kMixed, 1, " \x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A\x0B\x0C\x0D\x1B\x1C\x1D\x1E\x1F"},
      {kMixed, 20, "@\\^_`|~\x7F"},
      {kPunct, 1, "\r"},
      {kPunct, 6, "!\"#$%&'()*+,-./:;<=>?[]{}"},
      {kDigit, 1, " 0123456789,."},
  };
  Codes codes{};
  for (auto& mode : codes) mode.fill(kNoCode);
  for (const Row& row : kRows) {
    int code = row.first;
    for (const char character : row.characters) {
      codes[row.mode][static_cast<unsigned char>(character)] = static_cast<std::int8_t>(code++);
    }
  }
  return codes;
}
constexpr Codes kCodes = MakeCodes();

// The code in punctuation mode of two characters.
constexpr int PairCode(int first, int second) {
  if (first == '\r' && second == '\n') return 2;
  if (second != ' ') return kNoCode;
  return first == '.' ? 3 : first == ',' ? 4 : first == ':' ? 5 : kNoCode;
}

// The shortest way from mode to mode; no bits where it is the same one.
using Latches = std::array<std::array<Code, kModes>, kModes>;

constexpr Latches MakeLatches() {
  Latches ways{};
  const auto set = [&](std::size_t from, std::size_t to, int code) {
    ways[from][to] = Code{}.then(from, code);
  };
  set(kUpper, kLower, 28), set(kUpper, kMixed, 29), set(kUpper, kDigit, 30);
  set(kLower, kMixed, 29), set(kLower, kDigit, 30);
  set(kMixed, kLower, 28), set(kMixed, kUpper, 29), set(kMixed, kPunct, 30);
  set(kPunct, kUpper, 31);
  set(kDigit, kUpper, 14);
  for (std::size_t via = 0; via < kModes * 2; ++via) {
    for (std::size_t from = 0; from < kModes; ++from) {
      for (std::size_t to = 0; to < kModes; ++to) {
        const Code first = ways[from][via % kModes], second = ways[via % kModes][to];
        if (from == to || first.bits == 0 || second.bits == 0) continue;
        Code& best = ways[from][to];
        if (best.bits == 0 || first.bits + second.bits < best.bits) best = first.then(second);
      }
    }
  }
  return ways;
}
constexpr Latches kLatches = MakeLatches();
static_assert(kLatches[kLower][kUpper].bits == 9 && kLatches[kDigit][kPunct].bits == 14);

// The mark of structured append: to mixed mode and back, with nothing written.
constexpr Code kAppendMark = kLatches[kUpper][kMixed].then(kLatches[kMixed][kUpper]);

struct Step {
  int cost = std::numeric_limits<int>::max();
  std::uint16_t taken = 0;  // characters
  std::uint8_t from = 0;    // mode
  bool run = false;         // the characters taken follow the code as bytes
  Code code;

  bool reached() const { return cost != std::numeric_limits<int>::max(); }
};

// Of the places that a run of bytes may begin at, the cheapest.
class CheapestStart {
 public:
  struct Start {
    std::size_t place;
    int key;
  };

  void add(std::size_t place, int key) {
    if (starts.empty()) starts.reserve(kUsualStarts);
    while (starts.size() > head && starts.back().key >= key) starts.pop_back();
    starts.push_back({place, key});
  }
  // Null: none from `first` on, which never decreases.
  const Start* from(std::size_t first) {
    while (head < starts.size() && starts[head].place < first) ++head;
    return head < starts.size() ? &starts[head] : nullptr;
  }

 private:
  static constexpr std::size_t kUsualStarts = 64;

  std::vector<Start> starts;  // those from `head` on count, their keys increase
  std::size_t head = 0;
};

class ShortestPath {
 public:
  ShortestPath(const AztecContent& message, unsigned choiceOfEquals)
      : content(message),
        end(message.characters.size()),
        steps((end + 1) * kModes),
        choice(choiceOfEquals) {
    at(0, kUpper).cost = 0;
  }

  // The steps of the message from its begin on, and the mode at its end.
  std::vector<Step> run(AztecMode& last) {
    for (std::size_t place = 0; place <= end; ++place) {
      // In this order few runs are worth a look: most cost more than text and a latch.
      latch(place);
      if (endRuns(place)) latch(place);
      if (place == end) break;
      if (isByte(place)) {
        beginRuns(place);
      } else {
        barrier = place + 1;
      }
      if (mayBeText(place)) takeText(place);
      if (!isByte(place)) takeFunction(place);
    }
    return trace(last);
  }

 private:
  Step& at(std::size_t place, std::size_t mode) { return steps[place * kModes + mode]; }
  bool isByte(std::size_t place) const { return content.characters[place] < 256; }
  bool mayBeText(std::size_t place) const {
    return isByte(place) && (!content.binary || place < content.header);
  }

  // Whether the step is taken up.
  bool offer(std::size_t place, std::size_t from, std::size_t to, const Code& code,
             std::size_t taken, bool asRun = false) {
    const auto count = static_cast<int>(taken);
    const int cost = at(place, from).cost + code.bits + (asRun ? 8 * count : 0);
    Step& best = at(place + taken, to);
    if (cost - slack(place, taken == 0) > best.cost) return false;
    best = {cost, static_cast<std::uint16_t>(taken), static_cast<std::uint8_t>(from), asRun, code};
    return true;
  }

  // What a way may cost more than the one before it and replace it; less than it where negative.
  // Latches may never cost more: with them there would be ways in circles.
  int slack(std::size_t place, bool isLatch) const {
    constexpr unsigned kPlaces = 3;
    if (choice == 0) return -1;
    if ((choice >> place % kPlaces & 1) == 0) return -1;
    return isLatch ? 0 : static_cast<int>(choice >> kPlaces);
  }

  void latch(std::size_t place) {
    // Two latches in a row are never shorter than the one that goes there at once.
    const bool shorterOnly = place > 0 && slack(place, true) < 0;
    for (std::size_t from = 0; from < kModes; ++from) {
      const Step& step = at(place, from);
      if (!step.reached() || (shorterOnly && step.taken == 0)) continue;
      for (std::size_t to = 0; to < kModes; ++to) {
        if (to != from) offer(place, from, to, kLatches[from][to], 0);
      }
    }
  }

  // One code of the punctuation mode, shifted to where another is in force.
  void takePunct(std::size_t place, std::size_t mode, const Code& code, std::size_t taken) {
    const Code shift = mode == kPunct ? Code{} : Code{}.then(mode, kPunctShift);
    offer(place, mode, mode, shift.then(code), taken);
  }

  void takeFunction(std::size_t place) {
    // The digits, which every way has to write, count nothing.
    const bool eci = content.characters[place] == kAztecInterpretation;
    const auto digits = eci ? static_cast<std::uint32_t>(std::to_string(content.eci).size()) : 0;
    const Code function = Code{}.then(kPunct, kFunction).then({3, digits});
    for (std::size_t mode = 0; mode < kModes; ++mode) takePunct(place, mode, function, 1);
  }

  void takeText(std::size_t place) {
    const std::size_t character = content.characters[place];
    const bool pair = place + 1 < end && mayBeText(place + 1);
    const int pairCode =
        pair ? PairCode(content.characters[place], content.characters[place + 1]) : kNoCode;
    const int upper = kCodes[kUpper][character];
    const int punct = kCodes[kPunct][character];
    for (std::size_t mode = 0; mode < kModes; ++mode) {
      const int code = kCodes[mode][character];
      if (code != kNoCode) {
        offer(place, mode, mode, Code{}.then(mode, code), 1);
      } else if (upper != kNoCode && kUpperShift[mode] != kNoCode) {
        offer(place, mode, mode, Code{}.then(mode, kUpperShift[mode]).then(kUpper, upper), 1);
      } else if (punct != kNoCode) {
        takePunct(place, mode, Code{}.then(kPunct, punct), 1);
      }
      if (pairCode != kNoCode) takePunct(place, mode, Code{}.then(kPunct, pairCode), 2);
    }
  }

  // Not behind a latch from a mode that has runs itself: it is as short behind the run.
  bool beginsRuns(std::size_t place, std::size_t mode) {
    const Step& step = at(place, mode);
    return choice != 0 || step.taken != 0 || step.from == mode || step.from >= kBinaryModes;
  }

  void beginRuns(std::size_t place) {
    for (std::size_t mode = 0; mode < kBinaryModes; ++mode) {
      if (!beginsRuns(place, mode)) continue;
      const int key = at(place, mode).cost - 8 * static_cast<int>(place);
      shortStarts[mode].add(place, key);
    }
  }

  // Whether one of them is the cheapest way to a mode.
  bool endRuns(std::size_t place) {
    bool any = false;
    for (std::size_t mode = 0; mode < kBinaryModes; ++mode) {
      if (place > kLongestShortRun) {
        const std::size_t start = place - kLongestShortRun - 1;
        const int key = at(start, mode).cost - 8 * static_cast<int>(start);
        if (start >= barrier && beginsRuns(start, mode)) longStarts[mode].add(start, key);
      }
      any |= endRun(place, mode, shortStarts[mode], kLongestShortRun);
      any |= endRun(place, mode, longStarts[mode], kLongestRun);
    }
    return any;
  }

  bool endRun(std::size_t place, std::size_t mode, CheapestStart& starts, std::size_t longest) {
    const std::size_t first = place > longest ? place - longest : 0;
    const CheapestStart::Start* const start = starts.from(std::max(first, barrier));
    if (start == nullptr) return false;
    const std::size_t length = place - start->place;
    const int least = start->key + 8 * static_cast<int>(place) + kLeastRunBits;
    if (least - slack(start->place, false) > at(place, mode).cost) return false;
    const Code shift = Code{}.then(mode, kBinaryShift);
    const Code run = length <= kLongestShortRun
                         ? shift.then({5, static_cast<std::uint32_t>(length)})
                         : shift.then({5 + 11, static_cast<std::uint32_t>(length - 31)});
    return offer(start->place, mode, mode, run, length, true);
  }

  std::vector<Step> trace(AztecMode& last) {
    std::size_t mode = 0;
    for (std::size_t other = 1; other < kModes; ++other) {
      if (at(end, other).cost < at(end, mode).cost) mode = other;
    }
    last = static_cast<AztecMode>(mode);
    std::vector<Step> way;
    way.reserve(2 * end);
    for (std::size_t place = end; at(place, mode).cost != 0;) {
      const Step& step = at(place, mode);
      way.push_back(step);
      place -= step.taken;
      mode = step.from;
    }
    std::reverse(way.begin(), way.end());
    return way;
  }

  const AztecContent& content;
  const std::size_t end;
  std::vector<Step> steps;  // the last one of the cheapest way to every mode at every place
  CheapestStart shortStarts[kBinaryModes], longStarts[kBinaryModes];
  std::size_t barrier = 0;  // behind the last character that is no byte
  unsigned choice;
};

void Append(std::vector<std::uint8_t>& bits, const Code& code) {
  const auto count = static_cast<std::size_t>(code.bits);
  bits.resize(bits.size() + count);
  std::uint8_t* next = bits.data() + bits.size();
  for (std::size_t bit = 0; bit < count; ++bit) *--next = code.value >> bit & 1;
}

void AppendDigits(std::vector<std::uint8_t>& bits, int number) {
  for (const char digit : std::to_string(number)) {
    Append(bits, {CodeBits(kDigit),
                  static_cast<std::uint32_t>(kCodes[kDigit][static_cast<unsigned char>(digit)])});
  }
}

// `count` bits that a reader in `mode` takes for nothing but latches.
std::uint32_t Filling(std::size_t mode, int count) {
  constexpr std::size_t kNext[kModes] = {kDigit, kDigit, kUpper, kUpper, kUpper};
  Code filling;
  while (count - filling.bits >= CodeBits(mode)) {
    filling = filling.then(kLatches[mode][kNext[mode]]);
    mode = kNext[mode];
  }
  const int left = count - filling.bits;
  return filling.then({left, (1U << left) - 1}).value;
}

}  // namespace

AztecMessage::AztecMessage(const AztecContent& content, unsigned choice) {
  const std::vector<Step> way = ShortestPath(content, choice).run(last);
  bits.reserve(content.characters.size() * 8);
  std::size_t place = 0;
  if (content.append) Append(bits, kAppendMark);
  for (const Step& step : way) {
    Append(bits, step.code);
    if (step.taken == 1 && content.characters[place] == kAztecInterpretation) {
      AppendDigits(bits, content.eci);
    }
    for (std::size_t i = place; step.run && i < place + step.taken; ++i) {
      Append(bits, {8, content.characters[i]});
    }
    place += step.taken;
  }
}

AztecMessage::Words AztecMessage::words(int wordBits) const {
  const std::size_t size = static_cast<std::size_t>(wordBits);
  const std::uint32_t ones = (1U << (wordBits - 1)) - 1;  // without the last bit
  Words result;
  result.reserve(bits.size() / (size - 1) + 1);
  for (std::size_t place = 0; place < bits.size();) {
    const std::size_t taken = std::min(size, bits.size() - place);
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < taken; ++i) word = word << 1 | bits[place + i];
    if (taken < size) {
      const int missing = wordBits - static_cast<int>(taken);
      word = word << missing | Filling(static_cast<std::size_t>(last), missing);
    }
    place += taken;
    const std::uint32_t head = word >> 1;
    if (head == 0 || head == ones) {
      // The last bit is stuffing; what stood there comes next.
      if (taken == size) --place;
      word = head << 1 | (head == 0 ? 1 : 0);
    }
    result.push_back(static_cast<std::uint16_t>(word));
  }
  return result;
}

}  // namespace Library
