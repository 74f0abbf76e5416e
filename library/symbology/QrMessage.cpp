#include "library/symbology/QrMessage.h"

#include "library/prepare/PreparedData.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace Library {
namespace {

constexpr std::string_view kAlphanumeric = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%*+-./:";
constexpr std::uint8_t kNotAlphanumeric = 255;
constexpr std::uint16_t kPercentSign = '%';
constexpr std::uint32_t kPercentValue = 38;
constexpr std::uint32_t kGroupSeparator = 0x1D;  // FNC1 among bytes

constexpr std::array<std::uint8_t, 256> AlphanumericValues() {
  std::array<std::uint8_t, 256> values{};
  values.fill(kNotAlphanumeric);
  for (std::size_t i = 0; i < kAlphanumeric.size(); ++i) {
    values[static_cast<unsigned char>(kAlphanumeric[i])] = static_cast<std::uint8_t>(i);
  }
  return values;
}
constexpr std::array<std::uint8_t, 256> kAlphanumericValues = AlphanumericValues();
static_assert(kAlphanumericValues[kPercentSign] == kPercentValue);

bool IsDigit(std::uint16_t character) {
  return character >= '0' && character <= '9';
}

bool IsAlphanumeric(std::uint16_t character) {
  return character < 256 && kAlphanumericValues[character] != kNotAlphanumeric;
}

// Costs are in sixths of a bit, for three digits take 10 bits and two characters of 45 take 11; a
// segment that ends takes up what is left of its last bit. Never less is right in the end: every
// cost grows with the costs before it.
using Cost = std::uint32_t;
constexpr Cost kBit = 6;
constexpr Cost kNever = std::numeric_limits<Cost>::max() / 4;
using Costs = std::array<Cost, kQrModes>;

constexpr Cost WholeBits(Cost cost) {
  return (cost + kBit - 1) / kBit * kBit;
}

Costs CostsOf(std::uint16_t character, bool marked) {
  constexpr Cost kDigit = 20, kOf45 = 33, kByte = 48;
  if (IsDigit(character)) return {kDigit, kOf45, kByte};
  if (character == kFnc1) return {kNever, kOf45, kByte};
  if (!IsAlphanumeric(character)) return {kNever, kNever, kByte};
  return {kNever, marked && character == kPercentSign ? 2 * kOf45 : kOf45, kByte};
}

Costs HeadCosts(const QrSegmentHeads& heads) {
  Costs costs;
  for (std::size_t mode = 0; mode < kQrModes; ++mode) {
    const auto bits = static_cast<Cost>(heads.indicatorBits + heads.countBits[mode]);
    costs[mode] = heads.countBits[mode] == 0 ? kNever : bits * kBit;
  }
  return costs;
}

// The mode in which the character before stands, for each mode of this one.
using Origins = std::array<QrMode, kQrModes>;

std::size_t Cheapest(const Costs& costs) {
  return static_cast<std::size_t>(std::min_element(costs.begin(), costs.end()) - costs.begin());
}

// What it costs to be in each mode before one more character, and where from.
Costs Enter(const Costs& ended, const Costs& heads, Origins& origins) {
  Costs closed;
  for (std::size_t mode = 0; mode < kQrModes; ++mode) closed[mode] = WholeBits(ended[mode]);
  const std::size_t from = Cheapest(closed);
  Costs entered;
  for (std::size_t mode = 0; mode < kQrModes; ++mode) {
    const Cost begun = closed[from] + heads[mode];
    const bool goesOn = ended[mode] <= begun;
    entered[mode] = goesOn ? ended[mode] : begun;
    origins[mode] = static_cast<QrMode>(goesOn ? mode : from);
  }
  return entered;
}

}  // namespace

bool QrModeHas(QrMode mode, std::uint16_t character) {
  return CostsOf(character, false)[static_cast<std::size_t>(mode)] < kNever;
}

QrMessage::QrMessage(const QrContent& data, const QrSegmentHeads& segmentHeads)
    : content(data), heads(segmentHeads) {
  const Costs headCosts = HeadCosts(heads);
  const std::size_t length = content.characters.size();
  std::vector<Origins> origins(length);
  Costs costs = headCosts;  // the first segment's
  for (std::size_t i = 0; i < length; ++i) {
    if (i > 0) costs = Enter(costs, headCosts, origins[i]);
    const Costs own = CostsOf(content.characters[i], content.marked);
    for (std::size_t mode = 0; mode < kQrModes; ++mode) {
      costs[mode] = std::min(costs[mode] + own[mode], kNever);
    }
  }
  std::size_t mode = Cheapest(costs);
  if (costs[mode] >= kNever) {
    bits = kImpossible;
    return;
  }
  bits = WholeBits(costs[mode]) / kBit;
  modes.resize(length);
  for (std::size_t i = length; i-- > 0;) {
    modes[i] = static_cast<QrMode>(mode);
    mode = static_cast<std::size_t>(origins[i][mode]);
  }
}

void QrMessage::write(QrBits& target) const {
  auto begin = modes.begin();
  while (begin != modes.end()) {
    const QrMode mode = *begin;
    const auto end = std::find_if(begin, modes.end(), [=](QrMode other) { return other != mode; });
    writeSegment(target, mode, static_cast<std::size_t>(begin - modes.begin()),
                 static_cast<std::size_t>(end - modes.begin()));
    begin = end;
  }
}

void QrMessage::writeSegment(QrBits& target, QrMode mode, std::size_t begin,
                             std::size_t end) const {
  target.append(heads.indicators[static_cast<std::size_t>(mode)], heads.indicatorBits);
  switch (mode) {
    case QrMode::kNumeric:
      return writeDigits(target, begin, end);
    case QrMode::kAlphanumeric:
      return writeAlphanumeric(target, begin, end);
    case QrMode::kBytes:
      return writeBytes(target, begin, end);
  }
}

void QrMessage::writeDigits(QrBits& target, std::size_t begin, std::size_t end) const {
  target.append(static_cast<std::uint32_t>(end - begin), heads.countBits[0]);
  for (std::size_t i = begin; i < end; i += 3) {
    const std::size_t count = std::min<std::size_t>(end - i, 3);
    std::uint32_t value = 0;
    for (std::size_t k = 0; k < count; ++k) value = value * 10 + content.characters[i + k] - '0';
    target.append(value, static_cast<int>(3 * count + 1));
  }
}

void QrMessage::writeAlphanumeric(QrBits& target, std::size_t begin, std::size_t end) const {
  std::vector<std::uint32_t> values;
  values.reserve(2 * (end - begin));
  for (std::size_t i = begin; i < end; ++i) {
    const std::uint16_t character = content.characters[i];
    values.push_back(character == kFnc1 ? kPercentValue : kAlphanumericValues[character]);
    if (content.marked && character == kPercentSign) values.push_back(kPercentValue);
  }
  target.append(static_cast<std::uint32_t>(values.size()), heads.countBits[1]);
  std::size_t i = 0;
  for (; i + 1 < values.size(); i += 2) target.append(values[i] * 45 + values[i + 1], 11);
  if (i < values.size()) target.append(values[i], 6);
}

void QrMessage::writeBytes(QrBits& target, std::size_t begin, std::size_t end) const {
  target.append(static_cast<std::uint32_t>(end - begin), heads.countBits[2]);
  for (std::size_t i = begin; i < end; ++i) {
    const std::uint16_t character = content.characters[i];
    target.append(character == kFnc1 ? kGroupSeparator : character, 8);
  }
}

}  // namespace Library
