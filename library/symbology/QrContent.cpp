#include "library/symbology/QrContent.h"

#include "library/Error.h"

#include <utility>

namespace Library {

QrContent QrContentOf(const Data& data, bool marked) {
  constexpr std::uint16_t kGroupSeparator = 0x1D;
  QrContent content;
  content.marked = marked;
  content.characters.reserve(data.size());
  for (const DataCharacter character : data) {
    if (!character.isByte() && character.value != kFnc1) continue;
    const bool separates = marked && character.value == kGroupSeparator;
    content.characters.push_back(separates ? std::uint16_t{kFnc1} : character.value);
  }
  return content;
}

void AppendQrEci(QrBits& bits, int eci, int indicatorBits) {
  if (eci == 0) return;
  if (eci < 3 || eci > 999'999) throw Error(BC_E_INVALIDARG);
  const auto number = static_cast<std::uint32_t>(eci);
  bits.append(7, indicatorBits);
  if (number < 1U << 7) {
    bits.append(number, 8);
  } else if (number < 1U << 14) {
    bits.append(0b10U << 14 | number, 16);
  } else {
    bits.append(0b110U << 21 | number, 24);
  }
}

std::vector<std::uint8_t> PaddedQrWords(QrBits bits, std::size_t count) {
  constexpr std::uint8_t kPads[] = {0xEC, 0x11};
  std::vector<std::uint8_t> words = std::move(bits).finish();
  const std::size_t filled = words.size();
  words.reserve(count);
  for (std::size_t i = filled; i < count; ++i) words.push_back(kPads[(i - filled) % 2]);
  return words;
}

}  // namespace Library
