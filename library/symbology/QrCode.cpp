// QR Code (ISO/IEC 18004): what the options ask for, and the smallest version that gives it.
#include "library/Error.h"
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

constexpr int kMaxSymbols = 16;
constexpr int kIndicatorBits = 4;
constexpr QrMarks kMarks{kIndicatorBits, 7, 5, 9};

void CheckOptions(const QrOptions& options) {
  const bool good =
      options.format >= kQrDefault && options.format <= kQrIndustry && options.version >= 0 &&
      options.version <= QrVersion::kLast && options.ecLevel >= 0 && options.ecLevel <= 3 &&
      options.mask >= kAutomaticMask && options.mask < kQrMasks && options.appendParity <= 255;
  const bool placed = !IsQrAppended(options) ||
                      (options.appendSum >= 2 && options.appendSum <= kMaxSymbols &&
                       options.appendIndex >= 1 && options.appendIndex <= options.appendSum);
  if (!good || !placed) throw Error(BC_E_INVALIDARG);
}

void AppendPlace(QrBits& bits, const QrOptions& options) {
  constexpr std::uint32_t kStructuredAppend = 3;
  bits.append(kStructuredAppend, kIndicatorBits);
  bits.append(static_cast<std::uint32_t>(options.appendIndex - 1), 4);
  bits.append(static_cast<std::uint32_t>(options.appendSum - 1), 4);
  bits.append(static_cast<std::uint32_t>(std::max(options.appendParity, 0)), 8);
}

QrBits HeaderOf(const Options& options) {
  QrBits bits;
  if (IsQrAppended(options.qr)) AppendPlace(bits, options.qr);
  AppendQrMarks(bits, options, kMarks);
  return bits;
}

std::size_t Room(const QrVersion& version) {
  return version.dataWords() * 8;
}

// REQUIRES: header and message have room in the version.
void Draw(const QrVersion& version, QrBits bits, const QrMessage& message, int mask,
          Symbol& symbol) {
  constexpr int kTerminatorBits = 4;
  message.write(bits);
  const std::vector<std::uint8_t> words =
      WithQrCheckWords(QrDataWords(std::move(bits), version.dataWords(), kTerminatorBits),
                       version.blocks(), version.checkWordsPerBlock());
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
    if (heads != &version.heads()) {
      heads = &version.heads();
      message.emplace(content, *heads);
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
  QrData data = QrDataOf(input);
  DrawSmallest(options, header, data.content, symbol);
  SetTextLine(symbol, std::move(data.text));
}

void EncodeHibcQrCode(const EncoderInput& input, Symbol& symbol) {
  const QrOptions& options = input.options.qr;
  CheckOptions(options);
  // The plus sign in front tells a reader what the data are.
  if (options.format != kQrDefault) throw Error(BC_E_NOTSUPPORTED);
  HibcMessage message = HibcContent(input);
  const QrData data = QrDataOf({input.options, input.symbology, message.data, input.given});
  DrawSmallest(options, HeaderOf(input.options), data.content, symbol);
  symbol.checkDigits = std::move(message.check);
  SetTextLine(symbol, std::move(message.text));
}

// The payment order of Slovenian banks: ISO 8859-2 in the bytes of one version.
void EncodeUpnQr(const EncoderInput& input, Symbol& symbol) {
  constexpr int kVersion = 15, kLevelM = 1, kLatin2 = 4;
  constexpr QrSegmentHeads kBytesOnly{kIndicatorBits, {0, 0, 4}, {0, 0, 16}};
  const QrOptions& options = input.options.qr;
  RefuseQrMarks(options);
  CheckOptions(options);
  const bool otherVersion = options.version != 0 && options.version != kVersion;
  if (otherVersion || options.ecLevel != kLevelM) throw Error(BC_E_INVALIDARG);

  const QrVersion version(kVersion, QrLevel::kM);
  QrBits header;
  AppendQrEci(header, kLatin2, kMarks);
  QrData data = QrDataOf(input);
  const QrMessage message(data.content, kBytesOnly);
  if (header.size() + message.bitCount() > Room(version)) throw Error(BC_E_DATATOOLONG);
  Draw(version, std::move(header), message, options.mask, symbol);
  SetTextLine(symbol, std::move(data.text));
}

}  // namespace Library
