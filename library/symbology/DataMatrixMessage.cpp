// The shortest message is found by dynamic programming. A state is the place in the data, the
// encodation scheme and how much of a group of the scheme is written: C40, Text and X12 pack three
// values in two words, EDIFACT four in three. Costs are twelfths of a word. A scheme is left where
// a group is whole, EDIFACT anywhere. What the end costs depends on the words left in the symbol,
// so that the ways to end are tried for each size.
#include "library/symbology/DataMatrixMessage.h"

#include "library/symbology/DataMatrixSchemes.h"

#include <iterator>
#include <limits>

namespace Library {
namespace {

using Scheme = DataMatrixScheme;
using Words = std::vector<std::uint16_t>;

constexpr int kWord = 12;  // twelfths
constexpr int kValue = 8, kEdifactValue = 9;
constexpr int kUnreached = std::numeric_limits<int>::max() / 2;

// States: the schemes with the places in their groups.
constexpr std::size_t kAscii = 0, kC40 = 1, kText = 4, kX12 = 7, kEdifact = 10, kBase256 = 14;
constexpr std::size_t kStates = 15;
// Of EDIFACT, by the place in the group: its end, and what is left of the word.
constexpr int kEdifactUnlatch[] = {12, 15, 18, 9};

struct Latch {
  std::size_t state;
  Scheme scheme;
};
constexpr Latch kLatches[] = {{kC40, Scheme::kC40},
                              {kText, Scheme::kText},
                              {kX12, Scheme::kX12},
                              {kEdifact, Scheme::kEdifact}};

constexpr Scheme SchemeOf(std::size_t state) {
  if (state == kBase256) return Scheme::kBase256;
  if (state >= kEdifact) return Scheme::kEdifact;
  if (state >= kX12) return Scheme::kX12;
  if (state >= kText) return Scheme::kText;
  return state >= kC40 ? Scheme::kC40 : Scheme::kAscii;
}

struct Step {
  int cost = kUnreached;
  std::uint8_t from = 0;    // state
  std::uint8_t taken = 0;   // characters, 0: a change of scheme
  std::uint16_t bytes = 0;  // of the run of Base 256
};

class Search {
 public:
  explicit Search(const DataMatrixContent& message)
      : content(message), end(message.characters.size()), steps((end + 1) * kStates) {
    if (content.binary) return;
    at(0, kAscii).cost = kWord * static_cast<int>(content.header.size());
    for (std::size_t place = 0; place <= end; ++place) {
      leave(place);
      if (place == end) break;
      enter(place);
      take(place);
    }
  }

  Words operator()(std::size_t capacity) const {
    if (content.binary) return binaryWords(capacity);
    const int room = static_cast<int>(capacity) * kWord;
    if (const Words found = endInFullSymbol(capacity, room); !found.empty()) return found;
    if (at(end, kAscii).cost <= room) return write(capacity, end, kAscii, {});
    return {};
  }

 private:
  Step& at(std::size_t place, std::size_t state) { return steps[place * kStates + state]; }
  const Step& at(std::size_t place, std::size_t state) const {
    return steps[place * kStates + state];
  }
  std::uint16_t character(std::size_t place) const { return content.characters[place]; }
  // Not just latched.
  bool isInRun(std::size_t place, std::size_t state) const { return at(place, state).taken != 0; }
  bool isByte(std::size_t place) const { return character(place) < 256; }
  bool isDigit(std::size_t place) const {
    return character(place) >= '0' && character(place) <= '9';
  }

  void offer(std::size_t place, std::size_t from, std::size_t taken, std::size_t to, int added,
             std::size_t bytes = 0) {
    const int cost = at(place, from).cost + added;
    Step& best = at(place + taken, to);
    const auto run = static_cast<std::uint16_t>(bytes);
    if (cost > best.cost || (cost == best.cost && run >= best.bytes)) return;
    best = {cost, static_cast<std::uint8_t>(from), static_cast<std::uint8_t>(taken), run};
  }

  // Back to ASCII.
  void leave(std::size_t place) {
    for (const std::size_t state : {kC40, kText, kX12}) offer(place, state, 0, kAscii, kWord);
    for (std::size_t in = 0; in < std::size(kEdifactUnlatch); ++in) {
      offer(place, kEdifact + in, 0, kAscii, kEdifactUnlatch[in]);
    }
    if (at(place, kBase256).bytes <= kDataMatrixLongestRun) offer(place, kBase256, 0, kAscii, 0);
  }

  void enter(std::size_t place) {
    for (const Latch& latch : kLatches) offer(place, kAscii, 0, latch.state, kWord);
  }

  void take(std::size_t place) {
    takeAscii(place);
    for (const Latch& latch : kLatches) {
      const int values = DataMatrixValueCount(latch.scheme, character(place));
      if (values == 0) continue;
      const bool edifact = latch.scheme == Scheme::kEdifact;
      const std::size_t group = edifact ? 4 : 3;
      const int cost = values * (edifact ? kEdifactValue : kValue);
      for (std::size_t in = 0; in < group; ++in) {
        const std::size_t next = (in + static_cast<std::size_t>(values)) % group;
        offer(place, latch.state + in, 1, latch.state + next, cost);
      }
    }
    if (isByte(place)) takeBytes(place);
  }

  void takeAscii(std::size_t place) {
    const bool extended = isByte(place) && character(place) >= 128;
    offer(place, kAscii, 1, kAscii, extended ? 2 * kWord : kWord);
    if (place + 1 < end && isDigit(place) && isDigit(place + 1)) {
      offer(place, kAscii, 2, kAscii, kWord);
    }
  }

  void takeBytes(std::size_t place) {
    offer(place, kAscii, 1, kBase256, 3 * kWord, 1);  // with latch and length
    const Step& run = at(place, kBase256);
    if (run.cost >= kUnreached || run.bytes > kDataMatrixLongestRun) return;
    const bool longer = run.bytes == kDataMatrixShortRun;  // a second word of length
    offer(place, kBase256, 1, kBase256, longer ? 2 * kWord : kWord, run.bytes + std::size_t{1});
  }

  // Endings that need no way back to ASCII, as the symbol is full or nearly so. They come first:
  // with two words left behind a group of EDIFACT a way back would be taken for data.
  Words endInFullSymbol(std::size_t capacity, int room) const {
    const DataMatrixTail open = {end, true};
    for (const std::size_t state : {kC40, kText, kX12}) {
      if (at(end, state).cost == room) return write(capacity, end, state, open);
    }
    for (const std::size_t state : {kC40 + 2, kText + 2}) {
      if (at(end, state).cost + kValue == room) return write(capacity, end, state, open);
    }
    if (at(end, kBase256).bytes > kDataMatrixShortRun && at(end, kBase256).cost - kWord == room) {
      return write(capacity, end, kBase256, open);
    }
    if (end > 0 && character(end - 1) < 128) {
      for (const std::size_t state : {kC40, kText, kX12}) {
        const bool one = at(end - 1, state).cost + kWord == room;
        if (one && isInRun(end - 1, state)) return write(capacity, end - 1, state, {end - 1, true});
      }
    }
    return endOfEdifact(capacity, room);
  }

  // One or two words behind a group of EDIFACT are ASCII.
  Words endOfEdifact(std::size_t capacity, int room) const {
    int needed = 0;
    for (std::size_t place = end;; --place) {
      const int left = room - at(place, kEdifact).cost;
      if (left >= needed && left <= 2 * kWord && isInRun(place, kEdifact)) {
        return write(capacity, place, kEdifact, {place, true});
      }
      if (place == 0 || end - place == 4) return {};
      const std::uint16_t next = character(place - 1);
      if (next >= 128) return {};
      needed = kWord * static_cast<int>(DataMatrixAsciiWords(content.characters, place - 1));
    }
  }

  // The message that comes to the state; behind the tail's place in ASCII.
  Words write(std::size_t capacity, std::size_t place, std::size_t state,
              DataMatrixTail tail) const {
    std::vector<Scheme> schemes(end, Scheme::kAscii);
    if (!tail.open) tail.place = end;
    while (place > 0 || state != kAscii) {
      const Step& step = at(place, state);
      for (std::size_t i = 1; i <= step.taken; ++i) schemes[place - i] = SchemeOf(state);
      place -= step.taken;
      state = step.from;
    }
    return WriteDataMatrix(content, schemes, tail, capacity);
  }

  Words binaryWords(std::size_t capacity) const {
    const std::size_t head = content.header.size() + 1;  // with the latch
    const std::size_t length = end > kDataMatrixShortRun ? 2 : 1;
    const std::vector<Scheme> schemes(end, Scheme::kBase256);
    const bool full = head + 1 + end == capacity;
    if (!full && (head + length + end > capacity || end > kDataMatrixLongestRun)) return {};
    return WriteDataMatrix(content, schemes, {end, full}, capacity);
  }

  const DataMatrixContent& content;
  const std::size_t end;
  std::vector<Step> steps;
};

}  // namespace

DataMatrixMessage FindDataMatrixMessage(const DataMatrixContent& content) {
  return Search(content);
}

}  // namespace Library
