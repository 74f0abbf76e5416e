#include "library/symbology/QrContent.h"

#include "library/Error.h"
#include "library/symbology/Encoders.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace Library {
namespace {

constexpr std::uint16_t kGroupSeparator = 0x1D;

// In marked data GS separates like FNC1. In front of a percent sign both are the byte GS: among the
// 45 characters a reader takes the first two of three percent signs for the doubled one.
std::uint16_t ValueAt(const Data& data, std::size_t at, bool marked) {
  const std::uint16_t value = data[at].value;
  const bool separates = marked && (value == kGroupSeparator || value == kFnc1);
  if (!separates) return value;
  const bool ambiguous = at + 1 < data.size() && data[at + 1].value == '%';
  return ambiguous ? kGroupSeparator : std::uint16_t{kFnc1};
}

QrContent ContentOf(const Data& data, bool marked) {
  QrContent content;
  content.marked = marked;
  content.characters.reserve(data.size());
  for (std::size_t i = 0; i < data.size(); ++i) {
    if (data[i].isByte() || data[i].value == kFnc1) {
      content.characters.push_back(ValueAt(data, i, marked));
    }
  }
  return content;
}

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

bool IsLetter(char character) {
  return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

// What tells an industry's format; none: the text is no application indicator.
std::optional<std::uint32_t> IndicatorOf(const std::string& text) {
  constexpr std::uint32_t kLetters = 100;
  if (text.size() == 1 && IsLetter(text[0])) return kLetters + static_cast<unsigned char>(text[0]);
  if (text.size() != 2 || !IsDigit(text[0]) || !IsDigit(text[1])) return std::nullopt;
  return static_cast<std::uint32_t>((text[0] - '0') * 10 + text[1] - '0');
}

}  // namespace

QrData QrDataOf(const EncoderInput& input) {
  const bool marked = input.options.qr.format != kQrDefault;
  ElementString content = GivenContent(input);
  return {ContentOf(content.data, marked), std::move(content.text)};
}

bool IsQrAppended(const QrOptions& options) {
  return options.appendSum >= 0 || options.appendIndex >= 0;
}

void RefuseQrMarks(const QrOptions& options) {
  if (IsQrAppended(options) || options.format != kQrDefault) throw Error(BC_E_NOTSUPPORTED);
}

void AppendQrEci(QrBits& bits, int eci, const QrMarks& marks) {
  if (eci == 0) return;
  if (eci < 3 || eci > 999'999) throw Error(BC_E_INVALIDARG);
  const auto number = static_cast<std::uint32_t>(eci);
  bits.append(marks.eci, marks.bits);
  if (number < 1U << 7) {
    bits.append(number, 8);
  } else if (number < 1U << 14) {
    bits.append(0b10U << 14 | number, 16);
  } else {
    bits.append(0b110U << 21 | number, 24);
  }
}

void AppendQrMarks(QrBits& bits, const Options& options, const QrMarks& marks) {
  AppendQrEci(bits, options.eci, marks);
  if (options.qr.format == kQrGs1) bits.append(marks.fnc1First, marks.bits);
  if (options.qr.format != kQrIndustry) return;
  const auto indicator = IndicatorOf(options.qr.indicator);
  if (!indicator) throw Error(BC_E_INVALIDARG);
  bits.append(marks.fnc1Second, marks.bits);
  bits.append(*indicator, 8);
}

std::vector<std::uint8_t> QrDataWords(QrBits bits, std::size_t words, int terminatorBits) {
  constexpr std::uint8_t kPads[] = {0xEC, 0x11};
  const auto room = static_cast<int>(words * 8 - bits.size());
  bits.append(0, std::min(room, terminatorBits));
  std::vector<std::uint8_t> filled = std::move(bits).finish();
  filled.reserve(words);
  for (std::size_t pad = 0; filled.size() < words; ++pad) filled.push_back(kPads[pad % 2]);
  return filled;
}

}  // namespace Library
