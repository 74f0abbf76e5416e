// QR Code (ISO/IEC 18004): what the options ask for, and the smallest version that gives it.
#include "library/Error.h"
#include "library/prepare/Gs1.h"
#include "library/prepare/Hibc.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/QrCheckWords.h"
#include "library/symbology/QrContent.h"
#include "library/symbology/QrMask.h"
#include "library/symbology/QrMessage.h"
#include "library/symbology/QrPattern.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace Library {
namespace {

enum Format { kDefault, kGs1, kIndustry };

constexpr int kMaxSymbols = 16;

// In front of the segments.
constexpr std::uint32_t kAppendIndicator = 3, kFnc1First = 5, kFnc1Second = 9;
constexpr int kIndicatorBits = 4;

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

// What tells an industry's format: two digits or a letter. Empty: neither.
std::optional<std::uint32_t> IndicatorOf(const std::string& text) {
  if (text.size() == 2 && IsDigit(text[0]) && IsDigit(text[1])) {
    return static_cast<std::uint32_t>((text[0] - '0') * 10 + text[1] - '0');
  }
  constexpr std::uint32_t kLetters = 100;
  const bool letter = text.size() == 1 &&
                      ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z'));
  if (!letter) return std::nullopt;
  return kLetters + static_cast<unsigned char>(text[0]);
}

bool IsAppended(const QrOptions& options) {
  return options.appendSum >= 0 || options.appendIndex >= 0;
}

void CheckOptions(const QrOptions& options) {
  const bool good =
      options.format >= kDefault && options.format <= kIndustry && options.version >= 0 &&
      options.version <= QrVersion::kLast && options.ecLevel >= 0 && options.ecLevel <= 3 &&
      options.mask >= kAutomaticMask && options.mask < kQrMasks && options.appendParity <= 255;
  const bool placed = !IsAppended(options) ||
                      (options.appendSum >= 2 && options.appendSum <= kMaxSymbols &&
                       options.appendIndex >= 1 && options.appendIndex <= options.appendSum);
  if (!good || !placed) throw Error(BC_E_INVALIDARG);
}

void AppendPlace(QrBits& bits, const QrOptions& options) {
  bits.append(kAppendIndicator, kIndicatorBits);
  bits.append(static_cast<std::uint32_t>(options.appendIndex - 1), 4);
  bits.append(static_cast<std::uint32_t>(options.appendSum - 1), 4);
  bits.append(static_cast<std::uint32_t>(std::max(options.appendParity, 0)), 8);
}

QrBits HeaderOf(const Options& options) {
  const QrOptions& qr = options.qr;
  QrBits bits;
  if (IsAppended(qr)) AppendPlace(bits, qr);
  AppendQrEci(bits, options.eci, kIndicatorBits);
  if (qr.format == kGs1) bits.append(kFnc1First, kIndicatorBits);
  if (qr.format == kIndustry) {
    const auto indicator = IndicatorOf(qr.indicator);
    if (!indicator) throw Error(BC_E_INVALIDARG);
    bits.append(kFnc1Second, kIndicatorBits);
    bits.append(*indicator, 8);
  }
  return bits;
}

std::size_t Room(const QrVersion& version) {
  return version.dataWords() * 8;
}

// REQUIRES: header and message have room in the version.
void Draw(const QrVersion& version, QrBits bits, const QrMessage& message, int mask,
          Symbol& symbol) {
  message.write(bits);
  constexpr std::size_t kTerminatorBits = 4;
  bits.append(0, static_cast<int>(std::min(Room(version) - bits.size(), kTerminatorBits)));
  const std::vector<std::uint8_t> words =
      WithQrCheckWords(PaddedQrWords(std::move(bits), version.dataWords()), version.blocks(),
                       version.checkWordsPerBlock());
  QrPattern(version, words, mask).copyTo(symbol);
}

// In the smallest version that holds it, or the one that is set.
void DrawSmallest(const QrOptions& options, const QrBits& header, const QrContent& content,
                  Symbol& symbol) {
  const int first = options.version != 0 ? options.version : 1;
  const int last = options.version != 0 ? options.version : QrVersion::kLast;
  const std::size_t least = header.size() + QrMessage::leastBits(content);
  const QrSegmentHeads* heads = nullptr;
  std::optional<QrMessage> message;
  for (int number = first; number <= last; ++number) {
    const QrVersion version(number, static_cast<QrLevel>(options.ecLevel));
    if (least > Room(version)) continue;
    if (std::exchange(heads, &version.heads()) != &version.heads()) {
      message.emplace(content, version.heads());
    }
    if (header.size() + message->bitCount() > Room(version)) continue;
    return Draw(version, header, *message, options.mask, symbol);
  }
  throw Error(BC_E_DATATOOLONG);
}

}  // namespace

void EncodeQrCode(const EncoderInput& input, Symbol& symbol) {
  const QrOptions& options = input.options.qr;
  CheckOptions(options);
  const QrBits header = HeaderOf(input.options);
  const bool marked = options.format != kDefault;
  if (!TakesGs1(input.symbology, input.options)) {
    DrawSmallest(options, header, QrContentOf(input.data, marked), symbol);
    return SetTextLine(symbol, PrintableText(input.data));
  }
  ElementString elements = ParseElementString(input.data, input.options.autoCorrect > 0);
  DrawSmallest(options, header, QrContentOf(elements.data, marked), symbol);
  SetTextLine(symbol, std::move(elements.text));
}

void EncodeHibcQrCode(const EncoderInput& input, Symbol& symbol) {
  const QrOptions& options = input.options.qr;
  CheckOptions(options);
  // The plus sign in front tells a reader what the data are.
  if (options.format != kDefault) throw Error(BC_E_NOTSUPPORTED);
  HibcMessage message = CompleteHibc(input.data, input.symbology.maxLength);
  DrawSmallest(options, HeaderOf(input.options), QrContentOf(message.data, false), symbol);
  symbol.checkDigits = std::move(message.check);
  SetTextLine(symbol, std::move(message.text));
}

// The payment order of Slovenian banks: ISO 8859-2 in the bytes of one version.
void EncodeUpnQr(const EncoderInput& input, Symbol& symbol) {
  constexpr int kLatin2 = 4;  // its ECI
  constexpr QrSegmentHeads kBytesOnly{4, {1, 2, 4}, {0, 0, 16}};
  const QrOptions& options = input.options.qr;
  CheckOptions(options);
  const QrVersion version(15, QrLevel::kM);
  QrBits header;
  AppendQrEci(header, kLatin2, kIndicatorBits);
  const QrContent content = QrContentOf(input.data, false);
  const QrMessage message(content, kBytesOnly);
  if (header.size() + message.bitCount() > Room(version)) throw Error(BC_E_DATATOOLONG);
  Draw(version, std::move(header), message, options.mask, symbol);
  SetTextLine(symbol, PrintableText(input.data));
}

}  // namespace Library
