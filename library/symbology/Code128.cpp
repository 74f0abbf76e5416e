// The shortest symbol is found by dynamic programming. A state is the place in the data, the code
// set in force and whether FNC4 is latched; a step writes one to three symbol characters and takes
// none (switch, latch), one or two (pair of digits) data characters. Code set C is not entered
// while FNC4 is latched: readers do not agree on what that makes of digits.
#include "library/symbology/Code128.h"

#include "library/Error.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

namespace Library {
namespace {

enum CodeSet { kSetA, kSetB, kSetC };

// Values of symbol characters that are no data.
constexpr int kShift = 98;
constexpr int kFirstStart = 103;
constexpr int kSwitchTo[] = {101, 100, 99};
constexpr int kFnc4In[] = {101, 100};

struct State {
  CodeSet set;
  bool latched;
};
constexpr State kStates[] = {
    {kSetA, false}, {kSetB, false}, {kSetC, false}, {kSetA, true}, {kSetB, true}};
constexpr std::size_t kStateCount = std::size(kStates);

// A data character with what holds at its place.
struct Token {
  DataCharacter character;
  int base = 0;           // of a byte: its lower seven bits
  bool extended = false;  // a byte above 127
  int ordered = -1;       // code set ordered by a switch, -1: none
  bool orderedHere = false;
  bool afterFnc4 = false;  // the caller's own FNC4 stands in front
  bool underFnc4 = false;  // the caller's own FNC4 applies: no digits of set C
};

struct Step {
  int cost = std::numeric_limits<int>::max();
  std::uint8_t from = 0;  // state
  std::uint8_t taken = 0;
  std::uint8_t count = 0;
  std::array<std::uint8_t, 3> values{};

  bool reached() const { return cost != std::numeric_limits<int>::max(); }
  Step& add(int value) {
    values[count++] = static_cast<std::uint8_t>(value);
    return *this;
  }
};

bool SetHolds(CodeSet set, int base) {
  return set == kSetA ? base < 96 : base >= 32;
}

int ValueIn(CodeSet set, int base) {
  return set == kSetA && base < 32 ? base + 64 : base - 32;
}

std::vector<Token> Tokens(const Data& data) {
  std::vector<Token> tokens;
  tokens.reserve(data.size() + 1);
  Token token;
  for (const DataCharacter character : data) {
    if (character.value >= kCodeSetA) {
      token.ordered = character.value - kCodeSetA;
      token.orderedHere = true;
      continue;
    }
    token.character = character;
    token.base = character.value & 0x7F;
    token.extended = character.isByte() && character.value > 0x7F;
    tokens.push_back(token);
    token.orderedHere = false;
  }
  tokens.push_back({});  // the end
  return tokens;
}

// Follows the caller's own FNC4 through the data, as a reader does.
void MarkFnc4(std::vector<Token>& tokens) {
  bool pending = false;
  bool latched = false;
  for (Token& token : tokens) {
    token.afterFnc4 = pending;
    token.underFnc4 = pending || latched;
    if (token.character.value == kFnc4) {
      latched ^= pending;
      pending = !pending;
    } else if (token.character.isByte()) {
      pending = false;
    }
  }
}

class ShortestPath {
 public:
  explicit ShortestPath(std::vector<Token> characters)
      : tokens(std::move(characters)), steps(tokens.size() * kStateCount) {
    for (std::size_t state = 0; state < 3; ++state) at(0, state).cost = 0;
    const auto isExtended = [](const Token& token) { return token.extended; };
    mayLatch = std::any_of(tokens.begin(), tokens.end(), isExtended);
  }

  std::vector<std::uint8_t> run() {
    const std::size_t end = tokens.size() - 1;
    for (std::size_t place = 0; place <= end; ++place) {
      changeState(place);
      if (place == end) break;
      for (std::size_t state = 0; state < kStateCount; ++state) {
        if (at(place, state).reached()) take(place, state);
      }
    }
    return trace(end);
  }

 private:
  Step& at(std::size_t place, std::size_t state) { return steps[place * kStateCount + state]; }

  // Records `step`, whose values are filled in, as a way from `state` at `place` to `target`.
  void offer(std::size_t place, std::size_t state, std::size_t target, Step step,
             std::size_t taken) {
    step.from = static_cast<std::uint8_t>(state);
    step.taken = static_cast<std::uint8_t>(taken);
    step.cost = at(place, state).cost + step.count;
    Step& best = at(place + taken, target);
    if (step.cost < best.cost) best = step;
  }

  // Switches and latches, until none makes any state cheaper.
  void changeState(std::size_t place) {
    const bool mayLeave = !tokens[place].afterFnc4 || tokens[place].orderedHere;
    int before = -1;
    int sum = 0;
    do {
      before = sum;
      sum = 0;
      for (std::size_t state = 0; state < kStateCount; ++state) {
        if (!at(place, state).reached()) continue;
        sum += at(place, state).cost + 1;
        for (std::size_t target = 0; target < kStateCount; ++target) {
          change(place, state, target, mayLeave);
        }
      }
    } while (sum != before);
  }

  void change(std::size_t place, std::size_t state, std::size_t target, bool mayLeave) {
    const State from = kStates[state];
    const State to = kStates[target];
    if (from.latched == to.latched && from.set != to.set && mayLeave) {
      offer(place, state, target, Step{}.add(kSwitchTo[to.set]), 0);
    } else if (from.latched != to.latched && from.set == to.set && mayLatch) {
      offer(place, state, target, Step{}.add(kFnc4In[to.set]).add(kFnc4In[to.set]), 0);
    }
  }

  bool isPair(std::size_t place) const {
    const Token& first = tokens[place];
    const Token& second = tokens[place + 1];
    return first.character.isDigit() && second.character.isDigit() && !first.underFnc4 &&
           !second.underFnc4 && !second.orderedHere;
  }

  // Whether the character at `place` may be written in `set`: not while another set is ordered
  // that has it.
  bool mayUse(std::size_t place, CodeSet set) const {
    const Token& token = tokens[place];
    if (token.ordered < 0 || token.ordered == set) return true;
    const auto ordered = static_cast<CodeSet>(token.ordered);
    if (token.character.isFunction()) return ordered == kSetC && token.character.value != kFnc1;
    return ordered == kSetC ? !isPair(place) : !SetHolds(ordered, token.base);
  }

  void take(std::size_t place, std::size_t state) {
    const Token& token = tokens[place];
    const CodeSet set = kStates[state].set;
    if (!mayUse(place, set)) return;
    if (token.character.isFunction()) {
      takeFunction(place, state);
    } else if (set != kSetC) {
      takeByte(place, state);
    } else if (isPair(place)) {
      const int pair = (token.base - '0') * 10 + tokens[place + 1].base - '0';
      offer(place, state, state, Step{}.add(pair), 2);
    }
  }

  void takeFunction(std::size_t place, std::size_t state) {
    const CodeSet set = kStates[state].set;
    const std::uint16_t function = tokens[place].character.value;
    if (set == kSetC && function != kFnc1) return;
    const int values[] = {102, 97, 96, set == kSetC ? 0 : kFnc4In[set]};
    offer(place, state, state, Step{}.add(values[function - kFnc1]), 1);
  }

  void takeByte(std::size_t place, std::size_t state) {
    const Token& token = tokens[place];
    const CodeSet set = kStates[state].set;
    Step step;
    if (token.extended != kStates[state].latched) step.add(kFnc4In[set]);
    if (SetHolds(set, token.base)) {
      step.add(ValueIn(set, token.base));
    } else {
      step.add(kShift).add(ValueIn(set == kSetA ? kSetB : kSetA, token.base));
    }
    offer(place, state, state, step, 1);
  }

  std::vector<std::uint8_t> trace(std::size_t end) {
    std::size_t state = 0;
    for (std::size_t other = 1; other < kStateCount; ++other) {
      if (at(end, other).cost < at(end, state).cost) state = other;
    }
    std::vector<std::uint8_t> values;
    for (std::size_t place = end; at(place, state).count != 0;) {
      const Step& step = at(place, state);
      for (std::size_t i = step.count; i-- > 0;) values.push_back(step.values[i]);
      place -= step.taken;
      state = step.from;
    }
    values.push_back(static_cast<std::uint8_t>(kFirstStart + kStates[state].set));
    std::reverse(values.begin(), values.end());
    return values;
  }

  std::vector<Token> tokens;
  std::vector<Step> steps;
  bool mayLatch = false;
};

void RefuseMixedFnc4(const std::vector<Token>& tokens) {
  const auto isFnc4 = [](const Token& token) { return token.character.value == kFnc4; };
  if (std::none_of(tokens.begin(), tokens.end(), isFnc4)) return;
  for (const Token& token : tokens) {
    if (token.extended) throw Error(BC_E_INVALIDDATA, token.character.source);
  }
}

}  // namespace

std::vector<std::uint8_t> Code128Values(const Data& data) {
  std::vector<Token> tokens = Tokens(data);
  // A symbol character holds two data characters at best.
  if (tokens.size() > 2 * kMaxCode128Characters + 1) throw Error(BC_E_DATATOOLONG);
  RefuseMixedFnc4(tokens);
  MarkFnc4(tokens);
  std::vector<std::uint8_t> values = ShortestPath(std::move(tokens)).run();
  if (values.size() > kMaxCode128Characters + 1) throw Error(BC_E_DATATOOLONG);
  return values;
}

}  // namespace Library
