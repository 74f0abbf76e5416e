#include "library/symbology/Codablock.h"

#include <algorithm>
#include <limits>

namespace Library {
namespace {

constexpr int kUnreachable = std::numeric_limits<int>::max();
constexpr int kEndlessRow = 1 << 24;
constexpr std::uint8_t kEmpty = 0xFF;

CodeSet SetAfter(CodeSet set, int value) {
  if (set == kSetC && value < 100) return set;  // two digits
  for (const CodeSet other : {kSetA, kSetB, kSetC}) {
    if (other != set && value == kSwitchTo[other]) return other;
  }
  return set;
}

bool IsExtended(const DataCharacter& character) {
  return character.isByte() && character.value > 0x7F;
}

int LengthIn(CodeSet set, const DataCharacter& character) {
  if (character.value == kFnc1) return 1;
  if (set == kSetC) return 0;
  if (!character.isByte()) return 1;
  return (IsExtended(character) ? 1 : 0) + (SetHolds(set, character.value & 0x7F) ? 1 : 2);
}

void FillUp(CodablockRow& row, std::size_t columns) {
  CodeSet set = row.lastSet();
  while (row.values.size() < columns) {
    const CodeSet next = set == kSetC ? kSetB : kSetC;
    row.values.push_back(static_cast<std::uint8_t>(kSwitchTo[next]));
    set = next;
  }
}

}  // namespace

CodeSet CodablockRow::lastSet() const {
  CodeSet last = set;
  for (const std::uint8_t value : values) last = SetAfter(last, value);
  return last;
}

CodablockPacker::CodablockPacker(const Data& characters)
    : data(characters), costs(characters.size() + 1) {
  lengths.reserve(data.size());
  for (std::size_t i = 0; i < data.size(); ++i) {
    const bool pair = i + 1 < data.size() && data[i].isDigit() && data[i + 1].isDigit();
    lengths.push_back(
        {{LengthIn(kSetA, data[i]), LengthIn(kSetB, data[i]), LengthIn(kSetC, data[i])}, pair});
  }
}

// A character that the rest of a row does not hold begins the next one.
int CodablockPacker::append(int cost, int characters) const {
  const int used = cost % rowLength;
  return cost + characters + (used + characters > rowLength ? rowLength - used : 0);
}

int CodablockPacker::endOfRow(int cost) const {
  const int used = cost % rowLength;
  return used == 0 ? cost : cost + rowLength - used;
}

// The cost when the last step takes data.
int CodablockPacker::costBehind(std::size_t place, int set) const {
  if (place == 0) return 0;
  int cost = kUnreachable;
  if (const int length = lengths[place - 1].in[set]; length > 0)
    cost = append(costs[place - 1].in[set], length);
  if (set == kSetC && place > 1 && lengths[place - 2].pair)
    cost = std::min(cost, append(costs[place - 2].in[kSetC], 1));
  return cost;
}

// Set B where A is as good, as other encoders have it.
int CodablockPacker::cheapestBehind(std::size_t place) const {
  int cheapest = kSetB;
  for (const int set : {kSetA, kSetC}) {
    if (costBehind(place, set) < costBehind(place, cheapest)) cheapest = set;
  }
  return cheapest;
}

// Fewer columns are never worse: what can follow more of them can follow fewer. So one number is
// enough for a place and a set.
void CodablockPacker::fillCosts(int columns) {
  rowLength = columns;
  for (std::size_t place = 0; place < costs.size(); ++place) {
    Costs& here = costs[place];
    for (int set = kSetA; set < kCodeSets; ++set) here.in[set] = costBehind(place, set);
    // Another set takes a switch, or nothing at the beginning of a row.
    const int least = *std::min_element(here.in, here.in + kCodeSets);
    const int changed = std::min(append(least, 1), endOfRow(least));
    for (int& cost : here.in) cost = std::min(cost, changed);
  }
}

int CodablockPacker::charactersNeeded() {
  fillCosts(kEndlessRow);
  return costs.back().in[cheapestBehind(data.size())];
}

int CodablockPacker::rowsNeeded(int columns) {
  fillCosts(columns);
  const int used = costs.back().in[cheapestBehind(data.size())];
  const int rows = (append(used, kCodablockChecks) + columns - 1) / columns;
  return std::max(rows, kMinCodablockRows);
}

std::vector<CodablockRow> CodablockPacker::pack(int rowCount, int columns) {
  fillCosts(columns);
  const auto width = static_cast<std::size_t>(columns);
  const auto count = static_cast<std::size_t>(rowCount);
  std::vector<CodablockRow> rows(count, {kSetB, std::vector(width, kEmpty)});
  trace(rows);
  for (std::size_t i = 0; i < count; ++i) {
    std::erase(rows[i].values, kEmpty);
    FillUp(rows[i], i + 1 < count ? width : width - kCodablockChecks);
  }
  return rows;
}

void CodablockPacker::trace(std::vector<CodablockRow>& rows) const {
  std::size_t place = data.size();
  int set = cheapestBehind(place);
  while (place > 0) {
    const int cost = costs[place].in[set];
    // Writes `count` values that end at `cost`.
    const auto target = [&](int count, int inForce) {
      const int begin = cost - count;
      CodablockRow& row = rows[static_cast<std::size_t>(begin / rowLength)];
      if (begin % rowLength == 0) row.set = static_cast<CodeSet>(inForce);
      return row.values.data() + begin % rowLength;
    };
    // A row may begin in any set.
    const int from = cheapestBehind(place);
    const bool mayChange = cost % rowLength == 0 && from != set;
    if (costBehind(place, set) != cost || mayChange) {
      const int least = costs[place].in[from];
      if (endOfRow(least) != cost) *target(1, from) = static_cast<std::uint8_t>(kSwitchTo[set]);
      set = from;
      continue;
    }
    const int length = lengths[place - 1].in[set];
    const bool pair = length == 0 || append(costs[place - 1].in[set], length) != cost;
    place -= pair ? 2 : 1;
    write(place, static_cast<CodeSet>(set), pair, target(pair ? 1 : length, set));
  }
}

void CodablockPacker::write(std::size_t place, CodeSet set, bool pair, std::uint8_t* at) const {
  const auto put = [&at](int value) { *at++ = static_cast<std::uint8_t>(value); };
  const int base = data[place].value & 0x7F;
  if (pair) return put((base - '0') * 10 + (data[place + 1].value - '0'));
  constexpr int kFunctions[] = {kFnc1Value, kFnc2Value, kFnc3Value};
  if (!data[place].isByte()) return put(kFunctions[data[place].value - kFnc1]);
  if (IsExtended(data[place])) put(kFnc4In[set]);
  if (SetHolds(set, base)) return put(ValueIn(set, base));
  put(kShiftValue);
  put(ValueIn(OtherThan(set), base));
}

CodablockChecks CodablockCheckCharacters(const Data& data) {
  constexpr int kModulus = 86, kSeparator = 0x1D;
  CodablockChecks checks;
  int weight = 0;
  for (std::size_t i = 0; i < data.size(); ++i) {
    // An FNC1 counts as the separator that a reader transmits, and not at all in front.
    if (!data[i].isByte() && (data[i].value != kFnc1 || i == 0)) continue;
    const int value = data[i].isByte() ? data[i].value : kSeparator;
    checks.k1 = (checks.k1 + (weight + 1) * value) % kModulus;
    checks.k2 = (checks.k2 + weight * value) % kModulus;
    ++weight;
  }
  return checks;
}

}  // namespace Library
