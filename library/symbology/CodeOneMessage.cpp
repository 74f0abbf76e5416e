// The shortest message is found by dynamic programming. A state is the place in the data, the
// encodation scheme and how much of a group of the scheme is written. Costs are 24ths of a word.
#include "library/symbology/CodeOneMessage.h"

#include "library/symbology/DataMatrixSchemes.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Library {
namespace {

using Words = std::vector<std::uint16_t>;

constexpr int kWord = 24, kBit = 3, kValue = 16;
constexpr int kUnreached = std::numeric_limits<int>::max() / 2;

constexpr std::uint16_t kPad = 129, kDigitPair = 130, kBytesLatch = 231, kUpperShift = 235,
                        kUnlatch = 255;
constexpr std::size_t kShortRun = 249, kLengthUnit = 250;  // of bytes

// Ten bits for three digits, behind four bits that begin the scheme and in front of six that end
// it. What is left of the word then can be one more digit.
constexpr int kDecimalLatchBits = 4, kGroupBits = 10, kDecimalUnlatchBits = 6, kDigitBits = 4;
constexpr std::size_t kGroupDigits = 3;

// States: the schemes with the values of a group written; of decimals groups, modulo four.
constexpr std::size_t kAscii = 0, kC40 = 1, kText = 4, kEdi = 7, kBytes = 10, kDecimal = 11;
constexpr std::size_t kStates = 15, kDecimalStates = 4;

struct Packed {
  std::size_t state;
  DataMatrixScheme scheme;
  std::uint16_t latch;
};
constexpr Packed kPacked[] = {{kC40, DataMatrixScheme::kC40, 230},
                              {kText, DataMatrixScheme::kText, 239},
                              {kEdi, DataMatrixScheme::kX12, 238}};

// The first state of the scheme.
constexpr std::size_t SchemeOf(std::size_t state) {
  for (const std::size_t first : {kDecimal, kBytes, kEdi, kText, kC40}) {
    if (state >= first) return first;
  }
  return kAscii;
}

// Bits of the last word that are free behind so many groups of digits.
constexpr int FreeBits(std::size_t groups) {
  return (8 - (kDecimalLatchBits + kGroupBits * static_cast<int>(groups % 4)) % 8) % 8;
}
// With the end of the scheme to the end of a word.
constexpr int DecimalEndBits(std::size_t groups) {
  const int free = FreeBits(groups);
  return free < kDecimalUnlatchBits ? free + 8 : free;
}

struct Step {
  int cost = kUnreached;
  std::uint8_t from = 0;    // state
  std::uint8_t taken = 0;   // characters, 0: a change of scheme
  std::uint16_t bytes = 0;  // of the run of bytes
};

// Characters in one scheme.
struct Run {
  std::size_t scheme, first, last;
  bool open = false;  // the symbol ends with it, or what follows is the last word
};

class Writer {
 public:
  Writer(const CodeOneContent& message, std::size_t room)
      : characters(message.characters), words(message.header), capacity(room) {
    words.reserve(capacity);
  }

  void write(const Run& run) {
    if (run.scheme == kAscii) return ascii(run);
    if (run.scheme == kBytes) return bytes(run);
    if (run.scheme == kDecimal) return decimal(run);
    for (const auto& [state, scheme, latch] : kPacked) {
      if (state != run.scheme) continue;
      words.push_back(latch);
      AppendDataMatrixTriples(scheme, {characters.data() + run.first, run.last - run.first}, words);
    }
    if (!run.open) words.push_back(kUnlatch);
  }

  Words padded() && {
    words.resize(capacity, kPad);
    return std::move(words);
  }

 private:
  int digit(std::size_t place) const { return characters[place] - '0'; }
  bool isDigit(std::size_t place) const { return digit(place) >= 0 && digit(place) <= 9; }

  void ascii(const Run& run) {
    for (std::size_t i = run.first; i < run.last; ++i) {
      if (i + 1 < run.last && isDigit(i) && isDigit(i + 1)) {
        words.push_back(static_cast<std::uint16_t>(kDigitPair + digit(i) * 10 + digit(i + 1)));
        ++i;
        continue;
      }
      if (characters[i] >= 128) words.push_back(kUpperShift);
      words.push_back(characters[i] % 128 + 1);
    }
  }

  void bytes(const Run& run) {
    const std::size_t length = run.last - run.first;
    words.push_back(kBytesLatch);
    if (run.open) {
      words.push_back(0);  // to the end of the symbol
    } else if (length <= kShortRun) {
      words.push_back(static_cast<std::uint16_t>(length));
    } else {
      words.push_back(static_cast<std::uint16_t>(kShortRun + length / kLengthUnit));
      words.push_back(static_cast<std::uint16_t>(length % kLengthUnit));
    }
    words.insert(words.end(), characters.begin() + static_cast<std::ptrdiff_t>(run.first),
                 characters.begin() + static_cast<std::ptrdiff_t>(run.last));
  }

  void decimal(const Run& run) {
    constexpr unsigned kOnes = ~0U;
    add(kOnes, kDecimalLatchBits);
    std::size_t i = run.first;
    for (; i + kGroupDigits <= run.last; i += kGroupDigits) {
      add(static_cast<unsigned>(digit(i) * 100 + digit(i + 1) * 10 + digit(i + 2) + 1), kGroupBits);
    }
    if (!run.open) add(kOnes, kDecimalUnlatchBits);
    const bool room = bitCount % 8 == 2 || bitCount % 8 == 4;
    if (room) add(i < run.last ? static_cast<unsigned>(digit(i) + 1) : kOnes, kDigitBits);
    if (bitCount % 8 == 6) add(1, 2);
  }

  void add(unsigned value, int bits) {
    for (int bit = bits - 1; bit >= 0; --bit) {
      current = static_cast<std::uint16_t>(current << 1 | (value >> bit & 1));
      if (++bitCount % 8 == 0) words.push_back(std::exchange(current, std::uint16_t{0}));
    }
  }

  const std::vector<std::uint16_t>& characters;
  Words words;
  const std::size_t capacity;
  std::uint16_t current = 0;  // bits of the word that is begun
  int bitCount = 0;
};

class Search {
 public:
  explicit Search(const CodeOneContent& message)
      : content(message), end(message.characters.size()), steps((end + 1) * kStates) {
    at(0, kAscii).cost = kWord * static_cast<int>(content.header.size());
    for (std::size_t place = 0; place <= end; ++place) {
      leave(place);
      if (place == end) break;
      enter(place);
      take(place);
    }
  }

  Words operator()(std::size_t capacity) const {
    const int room = static_cast<int>(capacity) * kWord;
    if (at(end, kAscii).cost <= room) return write(capacity, end, kAscii, end, false);
    if (Words found = endInScheme(capacity, room); !found.empty()) return found;
    return endInLastWord(capacity, room);
  }

 private:
  Step& at(std::size_t place, std::size_t state) { return steps[place * kStates + state]; }
  const Step& at(std::size_t place, std::size_t state) const {
    return steps[place * kStates + state];
  }
  std::uint16_t character(std::size_t place) const { return content.characters[place]; }
  bool areDigits(std::size_t place, std::size_t count) const {
    if (place + count > end) return false;
    return std::all_of(content.characters.begin() + static_cast<std::ptrdiff_t>(place),
                       content.characters.begin() + static_cast<std::ptrdiff_t>(place + count),
                       [](std::uint16_t c) { return c >= '0' && c <= '9'; });
  }

  void offer(std::size_t place, std::size_t from, std::size_t taken, std::size_t to, int added,
             std::size_t bytes = 0) {
    const int cost = at(place, from).cost + added;
    Step& best = at(place + taken, to);
    if (cost >= best.cost) return;
    best = {cost, static_cast<std::uint8_t>(from), static_cast<std::uint8_t>(taken),
            static_cast<std::uint16_t>(bytes)};
  }

  // Back to ASCII.
  void leave(std::size_t place) {
    for (const Packed& packed : kPacked) offer(place, packed.state, 0, kAscii, kWord);
    for (std::size_t groups = 0; groups < kDecimalStates; ++groups) {
      const std::size_t state = kDecimal + groups;
      const int bits = DecimalEndBits(groups);
      offer(place, state, 0, kAscii, bits * kBit);
      const bool digit = bits - kDecimalUnlatchBits >= kDigitBits && areDigits(place, 1);
      if (digit) offer(place, state, 1, kAscii, bits * kBit);
    }
    offer(place, kBytes, 0, kAscii, 0);
  }

  void enter(std::size_t place) {
    for (const Packed& packed : kPacked) offer(place, kAscii, 0, packed.state, kWord);
    offer(place, kAscii, 0, kDecimal, kDecimalLatchBits * kBit);
  }

  void take(std::size_t place) {
    offer(place, kAscii, 1, kAscii, character(place) >= 128 ? 2 * kWord : kWord);
    if (areDigits(place, 2)) offer(place, kAscii, 2, kAscii, kWord);
    for (const Packed& packed : kPacked) {
      const int values = DataMatrixValueCount(packed.scheme, character(place));
      for (std::size_t in = 0; in < 3 && values > 0; ++in) {
        const std::size_t next = (in + static_cast<std::size_t>(values)) % 3;
        offer(place, packed.state + in, 1, packed.state + next, values * kValue);
      }
    }
    if (areDigits(place, kGroupDigits)) {
      for (std::size_t in = 0; in < kDecimalStates; ++in) {
        offer(place, kDecimal + in, kGroupDigits, kDecimal + (in + 1) % kDecimalStates,
              kGroupBits * kBit);
      }
    }
    takeByte(place);
  }

  void takeByte(std::size_t place) {
    offer(place, kAscii, 1, kBytes, 3 * kWord, 1);  // with latch and length
    const std::size_t run = at(place, kBytes).bytes;
    if (run == 0) return;
    offer(place, kBytes, 1, kBytes, run == kShortRun ? 2 * kWord : kWord, run + 1);
  }

  // Endings that need no way back to ASCII, as the symbol is full.
  Words endInScheme(std::size_t capacity, int room) const {
    const auto ends = [&](std::size_t state, int more) {
      return at(end, state).cost + more == room;
    };
    for (const auto& [state, scheme, latch] : kPacked) {
      if (ends(state, 0)) return write(capacity, end, state, end, true);
      const bool padded = scheme != DataMatrixScheme::kX12 && ends(state + 2, kValue);
      if (padded) return write(capacity, end, state + 2, end, true);
    }
    if (at(end, kBytes).bytes > kShortRun && ends(kBytes, -kWord)) {
      return write(capacity, end, kBytes, end, true);
    }
    for (std::size_t groups = 0; groups < kDecimalStates; ++groups) {
      const int free = FreeBits(groups);
      for (std::size_t digits = 0; digits <= (free >= kDigitBits ? 1 : 0); ++digits) {
        if (digits > end || !areDigits(end - digits, digits)) continue;
        const std::size_t place = end - digits, state = kDecimal + groups;
        if (at(place, state).cost + free * kBit != room) continue;
        return write(capacity, place, state, end, true);
      }
    }
    return {};
  }

  // A single word that is left is ASCII.
  Words endInLastWord(std::size_t capacity, int room) const {
    for (const std::size_t taken : {1, 2}) {
      if (taken > end) break;
      const std::size_t place = end - taken;
      if (taken == 1 ? character(place) >= 128 : !areDigits(place, 2)) continue;
      for (const std::size_t state : {kC40, kText, kEdi, kDecimal + 2}) {
        const bool inRun = at(place, state).taken != 0;
        if (inRun && at(place, state).cost + kWord == room) {
          return write(capacity, place, state, place, true);
        }
      }
    }
    return {};
  }

  // The message that comes to the state; its last run goes on to `last`, and what is behind is
  // ASCII.
  Words write(std::size_t capacity, std::size_t place, std::size_t state, std::size_t last,
              bool open) const {
    std::vector<Run> runs;
    if (last < end) runs.push_back({kAscii, last, end});
    if (place < last) runs.push_back({SchemeOf(state), place, last});
    const std::size_t openRun = runs.size() - (place < last ? 1 : 0);
    bool closed = place == last;
    while (place > 0 || state != kAscii) {
      const Step& step = at(place, state);
      // A digit behind the end of decimals belongs to them.
      const std::size_t scheme =
          SchemeOf(step.taken == 1 && step.from >= kDecimal ? kDecimal : state);
      if (step.taken != 0) {
        if (closed || runs.back().scheme != scheme) runs.push_back({scheme, place, place});
        place -= step.taken;
        runs.back().first = place;
      }
      closed = step.taken == 0 || step.bytes == 1;
      state = step.from;
    }
    if (open) runs[openRun].open = true;
    Writer writer(content, capacity);
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) writer.write(*run);
    return std::move(writer).padded();
  }

  const CodeOneContent& content;
  const std::size_t end;
  std::vector<Step> steps;
};

}  // namespace

CodeOneMessage FindCodeOneMessage(const CodeOneContent& content) {
  return Search(content);
}

}  // namespace Library
