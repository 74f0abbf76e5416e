// The shortest symbol is found by dynamic programming. A state is the place in the data, the code
// set in force and whether FNC4 is latched; a step writes one to three symbol characters and takes
// none (switch, latch), one or two (pair of digits) data characters. Code set C is not entered
// while FNC4 is latched: readers do not agree on what that makes of digits.
#include "library/symbology/Code128.h"

#include "library/Error.h"
#include "library/symbology/Code128Sets.h"

#include <algorithm>
#include <limits>

namespace Library {
namespace {

constexpr int kFirstStart = 103;

struct State {
  CodeSet set;
  bool latched;
};
// Those with FNC4 latched last: most data need none of them.
constexpr State kStates[] = {
    {kSetA, false}, {kSetB, false}, {kSetC, false}, {kSetA, true}, {kSetB, true}};
constexpr std::size_t kUnlatchedStates = 3;

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
  int from = 0;              // state
  int taken = 0;             // data characters
  int count = 0;             // symbol characters
  std::uint32_t values = 0;  // theirs, the last in the lowest byte

  bool reached() const { return cost != std::numeric_limits<int>::max(); }
  Step& add(int value) {
    values = values << 8 | static_cast<std::uint32_t>(value);
    ++count;
    return *this;
  }
};

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
  explicit ShortestPath(const std::vector<Token>& characters)
      : tokens(characters), stateCount(StatesFor(characters)), steps(tokens.size() * stateCount) {
    for (std::size_t state = 0; state < kUnlatchedStates; ++state) at(0, state).cost = 0;
  }

  std::vector<std::uint8_t> run() {
    const std::size_t end = tokens.size() - 1;
    for (std::size_t place = 0; place <= end; ++place) {
      changeState(place);
      if (place == end) break;
      for (std::size_t state = 0; state < stateCount; ++state) {
        if (at(place, state).reached()) take(place, state);
      }
    }
    return trace(end);
  }

 private:
  static std::size_t StatesFor(const std::vector<Token>& tokens) {
    const auto isExtended = [](const Token& token) { return token.extended; };
    const bool mayLatch = std::any_of(tokens.begin(), tokens.end(), isExtended);
    return mayLatch ? std::size(kStates) : kUnlatchedStates;
  }

  Step& at(std::size_t place, std::size_t state) { return steps[place * stateCount + state]; }

  // Records `step`, whose values are filled in, as a way from `state` at `place` to `target`.
  void offer(std::size_t place, std::size_t state, std::size_t target, const Step& step,
             int taken) {
    const int cost = at(place, state).cost + step.count;
    Step& best = at(place + static_cast<std::size_t>(taken), target);
    if (cost < best.cost) best = {cost, static_cast<int>(state), taken, step.count, step.values};
  }

  // Any state is two changes away at most, a switch and a latch.
  void changeState(std::size_t place) {
    const bool mayLeave = !tokens[place].afterFnc4 || tokens[place].orderedHere;
    if (mayLeave) changeSet(place, 0, kUnlatchedStates);
    if (stateCount == kUnlatchedStates) return;
    for (int round = 0; round < 2; ++round) {
      for (std::size_t state = kUnlatchedStates; state < stateCount; ++state) {
        latch(place, state - kUnlatchedStates, state);
        latch(place, state, state - kUnlatchedStates);
      }
      if (mayLeave) changeSet(place, 0, kUnlatchedStates);
      if (mayLeave) changeSet(place, kUnlatchedStates, stateCount);
    }
  }

  // To every state of [first, last), which differ by the code set, from the cheapest of them.
  void changeSet(std::size_t place, std::size_t first, std::size_t last) {
    const std::size_t from = cheapest(place, first, last);
    if (!at(place, from).reached()) return;
    for (std::size_t target = first; target < last; ++target) {
      if (at(place, from).cost + 1 >= at(place, target).cost) continue;
      offer(place, from, target, Step{}.add(kSwitchTo[kStates[target].set]), 0);
    }
  }

  // Of the states [first, last). Set B where A is as good, as other encoders have it.
  std::size_t cheapest(std::size_t place, std::size_t first, std::size_t last) {
    std::size_t best = first + 1;
    for (std::size_t state = first; state < last; ++state) {
      if (at(place, state).cost < at(place, best).cost) best = state;
    }
    return best;
  }

  void latch(std::size_t place, std::size_t state, std::size_t target) {
    if (!at(place, state).reached()) return;
    const int fnc4 = kFnc4In[kStates[state].set];
    offer(place, state, target, Step{}.add(fnc4).add(fnc4), 0);
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
    const int values[] = {kFnc1Value, kFnc2Value, kFnc3Value, set == kSetC ? 0 : kFnc4In[set]};
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
      step.add(kShiftValue).add(ValueIn(OtherThan(set), token.base));
    }
    offer(place, state, state, step, 1);
  }

  std::vector<std::uint8_t> trace(std::size_t end) {
    std::size_t state = cheapest(end, 0, stateCount);
    std::vector<std::uint8_t> values;
    values.reserve(static_cast<std::size_t>(at(end, state).cost) + 3);  // start, check, stop
    for (std::size_t place = end; at(place, state).count != 0;) {
      const Step& step = at(place, state);
      for (int i = 0; i < step.count; ++i) {
        values.push_back(static_cast<std::uint8_t>(step.values >> 8 * i));
      }
      place -= static_cast<std::size_t>(step.taken);
      state = static_cast<std::size_t>(step.from);
    }
    values.push_back(static_cast<std::uint8_t>(kFirstStart + kStates[state].set));
    std::reverse(values.begin(), values.end());
    return values;
  }

  const std::vector<Token>& tokens;
  const std::size_t stateCount;
  std::vector<Step> steps;  // the last one of the cheapest way to every state at every place
};

void RefuseMixedFnc4(const Data& data) {
  const auto isFnc4 = [](const DataCharacter& character) { return character.value == kFnc4; };
  if (std::none_of(data.begin(), data.end(), isFnc4)) return;
  for (const DataCharacter& character : data) {
    if (character.isByte() && character.value > 0x7F) {
      throw Error(BC_E_INVALIDDATA, DataIndex(character.source));
    }
  }
}

}  // namespace

std::vector<std::uint8_t> Code128Values(const Data& data) {
  std::vector<Token> tokens = Tokens(data);
  // A symbol character holds two data characters at best.
  if (tokens.size() > 2 * kMaxCode128Characters + 1) throw Error(BC_E_DATATOOLONG);
  RefuseMixedFnc4(data);
  MarkFnc4(tokens);
  std::vector<std::uint8_t> values = ShortestPath(tokens).run();
  if (values.size() > kMaxCode128Characters + 1) throw Error(BC_E_DATATOOLONG);
  return values;
}

Data WithoutFnc4(const Data& data) {
  RefuseMixedFnc4(data);
  Data result;
  result.reserve(data.size());
  bool latched = false;
  const DataCharacter* pending = nullptr;
  for (const DataCharacter& character : data) {
    if (character.value == kFnc4) {
      latched ^= pending != nullptr;
      pending = pending == nullptr ? &character : nullptr;
      continue;
    }
    result.push_back(character);
    if (!character.isByte()) continue;
    if (latched != (pending != nullptr)) result.back().value |= 0x80;
    pending = nullptr;
  }
  if (pending != nullptr) throw Error(BC_E_INVALIDDATA, DataIndex(pending->source));
  return result;
}

}  // namespace Library
