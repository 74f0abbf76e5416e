#include "library/symbology/CompositeCode128.h"

#include "library/symbology/Code128.h"
#include "library/symbology/Linear.h"

#include <algorithm>

namespace Library {
namespace {

constexpr std::uint8_t kCodeC = 99, kCodeB = 100, kCodeA = 101, kStartA = 103;

// Start character and FNC1.
constexpr std::size_t kInFront = 2;

// The flags of the code sets A, B and C, which the data end in.
constexpr std::uint8_t kFlags[] = {kCodeB, kCodeC, kCodeA};
constexpr std::uint8_t kFlagsOfC[] = {kCodeC, kCodeA, kCodeB};

// 0, 1 and 2 for A, B and C. Element strings hold no FNC4, whose values are those of switches.
std::size_t LastCodeSet(const std::vector<std::uint8_t>& values) {
  std::size_t set = values[0] - kStartA;
  for (std::size_t i = kInFront; i < values.size(); ++i) {
    if (values[i] >= kCodeC && values[i] <= kCodeA)
      set = static_cast<std::size_t>(kCodeA - values[i]);
  }
  return set;
}

}  // namespace

LinkedCode128::LinkedCode128(Data elements) {
  // A switch in front orders the start character.
  const auto first = std::find_if(elements.begin(), elements.end(),
                                  [](const DataCharacter& c) { return c.value < kCodeSetA; });
  elements.insert(first, {kFnc1, -1});
  values = Code128Values(elements);
}

std::string LinkedCode128::digitsOfSameWidth() const {
  return std::string(2 * (values.size() - kInFront), '0');
}

std::uint8_t LinkedCode128::draw(bool componentC, Symbol& symbol) const {
  std::vector<std::uint8_t> all = values;
  all.push_back((componentC ? kFlagsOfC : kFlags)[LastCodeSet(values)]);
  const std::uint8_t check = Code128CheckCharacter(all);
  all.insert(all.end(), {check, kCode128Stop});
  LinearRow row;
  for (const std::uint8_t value : all) row.append(Code128Pattern(value));
  for (SymbolText& text : symbol.texts) text.to += row.width() - symbol.width;
  symbol.rows.clear();
  std::move(row).finish(symbol);
  return check;
}

}  // namespace Library
