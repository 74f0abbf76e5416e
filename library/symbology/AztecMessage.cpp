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

using Code = AztecCode;

constexpr Code CodeIn(std::size_t mode, int code) {
  return {CodeBits(mode), static_cast<std::uint32_t>(code)};
}

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

// A code of the punctuation mode, shifted to where another is in force.
constexpr Code PunctCode(std::size_t mode, const Code& code) {
  return mode == kPunct ? code : CodeIn(mode, kPunctShift).then(code);
}

// How the characters are written in each mode that stays in force; no bits where one cannot be.
using TextCodes = std::array<std::array<Code, kModes>, 256>;

constexpr TextCodes MakeTextCodes() {
  TextCodes codes{};
  for (std::size_t character = 0; character < codes.size(); ++character) {
    const int upper = kCodes[kUpper][character], punct = kCodes[kPunct][character];
    for (std::size_t mode = 0; mode < kModes; ++mode) {
      Code& code = codes[character][mode];
      if (const int own = kCodes[mode][character]; own != kNoCode) {
        code = CodeIn(mode, own);
      } else if (upper != kNoCode && kUpperShift[mode] != kNoCode) {
        code = CodeIn(mode, kUpperShift[mode]).then(CodeIn(kUpper, upper));
      } else if (punct != kNoCode) {
        code = PunctCode(mode, CodeIn(kPunct, punct));
      }
    }
  }
  return codes;
}
constexpr TextCodes kTextCodes = MakeTextCodes();

// The code in punctuation mode of two characters.
constexpr int PairCode(int first, int second) {
  if (first == '\r' && second == '\n') return 2;
  if (second != ' ') return kNoCode;
  return first == '.' ? 3 : first == ',' ? 4 : first == ':' ? 5 : kNoCode;
}

// What a run of bytes begins with.
constexpr Code RunCode(std::size_t mode, std::size_t length) {
  const Code shift = CodeIn(mode, kBinaryShift);
  return length <= kLongestShortRun ? shift.then({5, static_cast<std::uint32_t>(length)})
                                    : shift.then({5 + 11, static_cast<std::uint32_t>(length - 31)});
}

// The shortest way from mode to mode; no bits where it is the same one.
using Latches = std::array<std::array<Code, kModes>, kModes>;

constexpr Latches MakeLatches() {
  Latches ways{};
  const auto set = [&](std::size_t from, std::size_t to, int code) {
    ways[from][to] = CodeIn(from, code);
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
  bool run = false;         // of bytes

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

  // Adds the message, and returns the mode at its end.
  AztecMode write(std::vector<Code>& codes) {
    find();
    std::size_t last = 0;
    for (std::size_t mode = 1; mode < kModes; ++mode) {
      if (at(end, mode).cost < at(end, last).cost) last = mode;
    }
    const auto first = std::ssize(codes);
    std::size_t mode = last;
    for (std::size_t place = end; at(place, mode).cost != 0;) {
      const Step& step = at(place, mode);
      place -= step.taken;
      writeBackwards(place, step, mode, codes);
      mode = step.from;
    }
    std::reverse(codes.begin() + first, codes.end());
    return static_cast<AztecMode>(last);
  }

 private:
  // The last step to each state.
  void find() {
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
  }

  Step& at(std::size_t place, std::size_t mode) { return steps[place * kModes + mode]; }
  bool isByte(std::size_t place) const { return content.characters[place] < 256; }
  bool mayBeText(std::size_t place) const {
    return isByte(place) && (!content.binary || place < content.header);
  }

  // Whether the step is taken up.
  bool offer(std::size_t place, std::size_t from, std::size_t to, int bits, std::size_t taken,
             bool asRun = false) {
    const int cost = at(place, from).cost + bits;
    Step& best = at(place + taken, to);
    if (cost - slack(place, taken == 0) > best.cost) return false;
    best = {cost, static_cast<std::uint16_t>(taken), static_cast<std::uint8_t>(from), asRun};
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
        if (to != from) offer(place, from, to, kLatches[from][to].bits, 0);
      }
    }
  }

  // The digits of an ECI number, which every way has to write, count nothing.
  void takeFunction(std::size_t place) {
    for (std::size_t mode = 0; mode < kModes; ++mode) {
      offer(place, mode, mode, functionCode(place, mode).bits, 1);
    }
  }

  void takeText(std::size_t place) {
    const auto& codes = kTextCodes[content.characters[place]];
    const bool pair = pairCode(place) != kNoCode;
    for (std::size_t mode = 0; mode < kModes; ++mode) {
      if (codes[mode].bits != 0) offer(place, mode, mode, codes[mode].bits, 1);
      if (pair) offer(place, mode, mode, PunctCode(mode, CodeIn(kPunct, 0)).bits, 2);
    }
  }

  // Not behind a latch from a mode that has runs itself: it is as short behind the run.
  void addStart(CheapestStart& starts, std::size_t place, std::size_t mode) {
    const Step& step = at(place, mode);
    const bool latched = step.taken == 0 && step.from != mode && step.from < kBinaryModes;
    if (choice == 0 && latched) return;
    starts.add(place, step.cost - 8 * static_cast<int>(place));
  }

  void beginRuns(std::size_t place) {
    for (std::size_t mode = 0; mode < kBinaryModes; ++mode) {
      addStart(shortStarts[mode], place, mode);
    }
  }

  // Whether one of them is the cheapest way to a mode.
  bool endRuns(std::size_t place) {
    const std::size_t firstShort = firstStart(place, kLongestShortRun);
    const std::size_t firstLong = firstStart(place, kLongestRun);
    bool any = false;
    for (std::size_t mode = 0; mode < kBinaryModes; ++mode) {
      // What a run is too long for now.
      if (firstShort > barrier) addStart(longStarts[mode], firstShort - 1, mode);
      any |= endRun(place, mode, shortStarts[mode].from(firstShort));
      any |= endRun(place, mode, longStarts[mode].from(firstLong));
    }
    return any;
  }

  std::size_t firstStart(std::size_t place, std::size_t longest) const {
    return std::max(place - std::min(place, longest), barrier);
  }

  bool endRun(std::size_t place, std::size_t mode, const CheapestStart::Start* start) {
    if (start == nullptr) return false;
    const std::size_t length = place - start->place;
    const int least = start->key + 8 * static_cast<int>(place) + kLeastRunBits;
    if (least - slack(start->place, false) > at(place, mode).cost) return false;
    const int bits = RunCode(mode, length).bits + 8 * static_cast<int>(length);
    return offer(start->place, mode, mode, bits, length, true);
  }

  // The code of two characters, if they have one.
  int pairCode(std::size_t place) const {
    if (place + 1 >= end || !mayBeText(place + 1)) return kNoCode;
    return PairCode(content.characters[place], content.characters[place + 1]);
  }

  // Without the digits of an ECI number.
  Code functionCode(std::size_t place, std::size_t mode) const {
    const bool eci = content.characters[place] == kAztecInterpretation;
    const auto digits = eci ? static_cast<std::uint32_t>(std::to_string(content.eci).size()) : 0;
    return PunctCode(mode, CodeIn(kPunct, kFunction).then({3, digits}));
  }

  // The step from a place to a mode, its last code first.
  void writeBackwards(std::size_t place, const Step& step, std::size_t mode,
                      std::vector<Code>& codes) const {
    if (step.taken == 0) {
      codes.push_back(kLatches[step.from][mode]);
    } else if (step.run) {
      for (std::size_t i = step.taken; i-- > 0;) {
        codes.push_back({8, content.characters[place + i]});
      }
      codes.push_back(RunCode(mode, step.taken));
    } else if (step.taken == 2) {
      codes.push_back(PunctCode(mode, CodeIn(kPunct, pairCode(place))));
    } else if (isByte(place)) {
      codes.push_back(kTextCodes[content.characters[place]][mode]);
    } else {
      if (content.characters[place] == kAztecInterpretation) {
        for (int left = content.eci; left > 0; left /= 10) {
          codes.push_back(CodeIn(kDigit, kCodes[kDigit]['0' + left % 10]));
        }
      }
      codes.push_back(functionCode(place, mode));
    }
  }

  const AztecContent& content;
  const std::size_t end;
  std::vector<Step> steps;  // the last one of the cheapest way to every mode at every place
  CheapestStart shortStarts[kBinaryModes], longStarts[kBinaryModes];
  std::size_t barrier = 0;  // behind the last character that is no byte
  unsigned choice;
};

// `count` bits that a reader in `mode` takes for nothing but latches.
Code Filling(std::size_t mode, int count) {
  constexpr std::size_t kNext[kModes] = {kDigit, kDigit, kUpper, kUpper, kUpper};
  Code filling;
  while (count - filling.bits >= CodeBits(mode)) {
    filling = filling.then(kLatches[mode][kNext[mode]]);
    mode = kNext[mode];
  }
  const int left = count - filling.bits;
  return filling.then({left, (1U << left) - 1});
}

// The first word of what is left to write.
std::uint16_t TakeWord(Code& left, int wordBits) {
  left.bits -= wordBits;
  const std::uint32_t word = left.value >> left.bits & ((1U << wordBits) - 1);
  const std::uint32_t head = word >> 1, ones = (1U << (wordBits - 1)) - 1;
  if (head != 0 && head != ones) return static_cast<std::uint16_t>(word);
  // The last bit is stuffing; what stood there comes next.
  ++left.bits;
  return static_cast<std::uint16_t>(head << 1 | (head == 0 ? 1 : 0));
}

}  // namespace

AztecMessage::AztecMessage(const AztecContent& content, unsigned choice) {
  codes.reserve(content.characters.size() + 16);
  if (content.append) codes.push_back(kAppendMark);
  last = ShortestPath(content, choice).write(codes);
  for (const AztecCode& code : codes) bits += code.bits;
}

AztecMessage::Words AztecMessage::words(int wordBits) const {
  Words result;
  result.reserve(static_cast<std::size_t>(bits / (wordBits - 1) + 1));
  Code left;
  for (const AztecCode& code : codes) {
    left = left.then(code);
    while (left.bits >= wordBits) result.push_back(TakeWord(left, wordBits));
  }
  if (left.bits > 0) {
    left = left.then(Filling(static_cast<std::size_t>(last), wordBits - left.bits));
    result.push_back(TakeWord(left, wordBits));
  }
  return result;
}

}  // namespace Library
