// The shortest message is found by dynamic programming over the places in the data and the code
// sets in force there. Beside Code 128's steps there are shifts for two or three characters, and
// start modes that save the first switch:
//
//   0, 1, 2  begin in set A, B, C        3, 4  in B, C behind an FNC1
//   5, 6     in C, behind one or two characters of B
#include "library/symbology/Code16K.h"

#include "library/Error.h"
#include "library/symbology/Code128.h"
#include "library/symbology/Code128Sets.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace Library {
namespace {

constexpr int kPad = 103;

// A shift for `count` symbol characters, by the set in force.
struct ShiftRule {
  CodeSet from, to;
  int value, count;
};
constexpr ShiftRule kShifts[] = {
    {kSetA, kSetB, 98, 1},  {kSetA, kSetB, 104, 2}, {kSetA, kSetC, 105, 2}, {kSetA, kSetC, 106, 3},
    {kSetB, kSetA, 98, 1},  {kSetB, kSetA, 104, 2}, {kSetB, kSetC, 105, 2}, {kSetB, kSetC, 106, 3},
    {kSetC, kSetB, 104, 1}, {kSetC, kSetB, 105, 2}, {kSetC, kSetB, 106, 3},
};

using Values = std::vector<std::uint8_t>;

// What is in force between two symbol characters. Set C is not entered while FNC4 is latched.
struct State {
  CodeSet set;
  bool latched;
};
constexpr State kStates[] = {
    {kSetA, false}, {kSetB, false}, {kSetC, false}, {kSetA, true}, {kSetB, true}};
constexpr std::size_t kStateCount = std::size(kStates);
// Set B where A is as good, as other encoders have it.
constexpr std::size_t kPreference[] = {1, 0, 2, 4, 3};
static_assert(std::size(kPreference) == kStateCount);

// A long shift is taken where it saves a symbol character, not where it is as good as a switch.
constexpr int kCharacterCost = 128, kLongShiftCost = 1;

class ShortestMessage {
 public:
  explicit ShortestMessage(const Data& characters) : data(characters), steps(data.size() + 1) {}

  Code16KMessage find() {
    begin();
    for (std::size_t place = 0; place < steps.size(); ++place) {
      // Any state is two changes away at most, a switch and a latch.
      for (int round = 0; round < 2; ++round) changeState(place);
      for (std::size_t state = 0; state < kStateCount; ++state) {
        if (place < data.size() && reached(place, state)) take(place, state);
      }
    }
    return trace();
  }

 private:
  static constexpr int kUnreachable = std::numeric_limits<int>::max();

  // The last step of the cheapest way to a state at a place.
  struct Step {
    int cost = kUnreachable;
    int mode = -1;  // of the first step
    std::size_t fromPlace = 0, fromState = 0;
    Values values;
  };
  struct Place {
    Step in[kStateCount];
  };

  bool reached(std::size_t place, std::size_t state) const {
    return steps[place].in[state].cost != kUnreachable;
  }

  // Behind `place` characters, which are those of set B in front of the modes 5 and 6.
  void beginAt(std::size_t place, CodeSet set, int mode) {
    Values values;
    for (std::size_t i = 0; mode >= 5 && i < place; ++i) append(values, i, kSetB);
    Step& step = steps[place].in[set];
    const int cost = kCharacterCost * static_cast<int>(values.size());
    if (cost < step.cost) step = {cost, mode, 0, 0, std::move(values)};
  }

  void begin() {
    beginAt(0, kSetA, 0);
    beginAt(0, kSetB, 1);
    beginAt(0, kSetC, 2);
    if (!data.empty() && data[0].value == kFnc1) {
      beginAt(1, kSetB, 3);
      beginAt(1, kSetC, 4);
    }
    for (int count = 1; count <= 2; ++count) {
      const std::size_t end = endOf(0, {kSetB, false}, count);
      if (end != 0) beginAt(end, kSetC, 4 + count);
    }
  }

  void offer(std::size_t place, std::size_t state, std::size_t target, std::size_t newState,
             Values values, int extra = 0) {
    const int cost =
        steps[place].in[state].cost + extra + kCharacterCost * static_cast<int>(values.size());
    Step& step = steps[target].in[newState];
    if (cost < step.cost) step = {cost, -1, place, state, std::move(values)};
  }

  void changeState(std::size_t place) {
    for (const std::size_t from : kPreference) {
      for (std::size_t to = 0; to < kStateCount; ++to) {
        if (from == to || !reached(place, from)) continue;
        const State& old = kStates[from];
        const auto fnc4 = static_cast<std::uint8_t>(kFnc4In[old.set == kSetA ? 0 : 1]);
        if (old.latched == kStates[to].latched)
          offer(place, from, place, to, {static_cast<std::uint8_t>(kSwitchTo[kStates[to].set])});
        else if (old.set == kStates[to].set)
          offer(place, from, place, to, {fnc4, fnc4});
      }
    }
  }

  void take(std::size_t place, std::size_t state) {
    if (data[place].isFunction()) return takeFunction(place, state);
    const CodeSet set = kStates[state].set;
    for (const bool fnc4 : {false, true}) {
      if (fnc4 && set == kSetC) break;
      takeShifted(place, state, {set, set, 0, 1}, fnc4);
      for (const ShiftRule& shift : kShifts) {
        const bool digits = shift.to == kSetC && (fnc4 || kStates[state].latched);
        if (shift.from == set && !digits) takeShifted(place, state, shift, fnc4);
      }
    }
  }

  void takeFunction(std::size_t place, std::size_t state) {
    constexpr std::uint8_t kValues[] = {kFnc1Value, kFnc2Value, kFnc3Value};
    const std::uint16_t function = data[place].value;
    if (kStates[state].set != kSetC || function == kFnc1)
      offer(place, state, place + 1, state, {kValues[function - kFnc1]});
  }

  // The characters behind a shift, the first of them under an FNC4; value 0: no shift.
  void takeShifted(std::size_t place, std::size_t state, const ShiftRule& shift, bool fnc4) {
    const std::size_t end = endOf(place, {shift.to, kStates[state].latched}, shift.count, fnc4);
    if (end == 0) return;
    Values values;
    if (fnc4) values.push_back(static_cast<std::uint8_t>(kFnc4In[shift.from]));
    if (shift.value != 0) values.push_back(static_cast<std::uint8_t>(shift.value));
    for (std::size_t i = place; i < end; i += shift.to == kSetC ? 2 : 1)
      append(values, i, shift.to);
    offer(place, state, end, state, std::move(values), shift.count > 1 ? kLongShiftCost : 0);
  }

  // Where `count` symbol characters end that begin at `place`; 0: there are not so many.
  std::size_t endOf(std::size_t place, const State& state, int count, bool fnc4 = false) const {
    const std::size_t end =
        place + static_cast<std::size_t>(state.set == kSetC ? 2 * count : count);
    if (end > data.size()) return 0;
    for (std::size_t i = place; i < end; ++i) {
      const bool high = state.latched != (fnc4 && i == place);
      if (!holds(state.set, data[i], high)) return 0;
    }
    return end;
  }

  static bool holds(CodeSet set, const DataCharacter& character, bool high) {
    if (set == kSetC) return character.isDigit();
    return character.isByte() && (character.value > 0x7F) == high &&
           SetHolds(set, character.value & 0x7F);
  }

  void append(Values& values, std::size_t place, CodeSet set) const {
    const int value = set == kSetC ? (data[place].value - '0') * 10 + data[place + 1].value - '0'
                                   : ValueIn(set, data[place].value & 0x7F);
    values.push_back(static_cast<std::uint8_t>(value));
  }

  Code16KMessage trace() const {
    std::size_t place = data.size(), state = kPreference[0];
    for (const std::size_t other : kPreference) {
      if (steps[place].in[other].cost < steps[place].in[state].cost) state = other;
    }
    Code16KMessage message;
    for (;;) {
      const Step& step = steps[place].in[state];
      message.values.insert(message.values.begin(), step.values.begin(), step.values.end());
      message.mode = step.mode;
      if (step.mode >= 0) return message;
      place = step.fromPlace;
      state = step.fromState;
    }
  }

  const Data& data;
  std::vector<Place> steps;
};

// Tables 3 to 5: the widths at both ends of a row tell its number.
constexpr std::string_view kEnds[] = {"3211", "2221", "2122", "1411",
                                      "1132", "1231", "1114", "3112"};
constexpr std::string_view kGuard = "1";

std::string_view StartOf(std::size_t row) {
  return kEnds[row % 8];
}
std::string_view StopOf(std::size_t row) {
  return kEnds[(row < 8 ? row : row + 4) % 8];
}

std::string_view PatternOf(int value) {
  constexpr std::string_view kLast = "211133";  // 106, which Code 128 has for its stop character
  return value == kCode128Stop ? kLast : Code128Pattern(value);
}

int WeightedSum(const Values& values, int weight) {
  constexpr int kModulus = 107;
  int sum = 0;
  for (const std::uint8_t value : values) sum += value * weight++;
  return sum % kModulus;
}

// All symbol characters, row by row.
Values SymbolCharacters(Code16KMessage message) {
  const int used = static_cast<int>(message.values.size()) + 3;
  const int rows = std::max((used + kCode16KColumns - 1) / kCode16KColumns, kMinCode16KRows);
  Values values = std::move(message.values);
  values.insert(values.begin(), static_cast<std::uint8_t>(7 * (rows - 2) + message.mode));
  values.resize(static_cast<std::size_t>(rows * kCode16KColumns - 2), kPad);
  values.push_back(static_cast<std::uint8_t>(WeightedSum(values, 2)));
  values.push_back(static_cast<std::uint8_t>(WeightedSum(values, 1)));
  return values;
}

}  // namespace

Code16KMessage Code16KValues(const Data& data) {
  if (data.size() > kMaxCode16KLength) throw Error(BC_E_DATATOOLONG);
  Code16KMessage message = ShortestMessage(data).find();
  if (message.values.size() > kMaxCode16KCharacters) throw Error(BC_E_DATATOOLONG);
  return message;
}

void EncodeCode16K(const EncoderInput& input, Symbol& symbol) {
  constexpr double kSeparatorHeight = 1;  // X
  const Values values = SymbolCharacters(Code16KValues(WithoutFnc4(input.data)));
  const std::size_t rows = values.size() / kCode16KColumns;
  for (std::size_t index = 0; index < rows; ++index) {
    LinearRow row;
    row.append(StartOf(index));
    row.append(kGuard);
    for (std::size_t i = 0; i < kCode16KColumns; ++i)
      row.append(PatternOf(values[index * kCode16KColumns + i]));
    row.append(StopOf(index));
    symbol.rows.push_back({{row.width()}, kSeparatorHeight});
    std::move(row).finish(symbol);
  }
  symbol.rows.push_back({{symbol.width}, kSeparatorHeight});
  SetTextLine(symbol, PrintableText(input.data));
  symbol.checkDigits = std::to_string(*(values.end() - 2)) + ' ' + std::to_string(values.back());
}

}  // namespace Library
