// Micro QR Code (ISO/IEC 18004): versions M1 to M4 with one finder, of which M1 and M3 end their
// data with half a word.
#include "library/Error.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/QrCheckWords.h"
#include "library/symbology/QrContent.h"
#include "library/symbology/QrMask.h"
#include "library/symbology/QrRemainder.h"

#include <algorithm>
#include <utility>

namespace Library {
namespace {

// A version at a level of error correction; the number of its row goes into the format information.
struct MicroVersion {
  int number, level;  // level 0 L, 1 M, 2 Q; M1 only detects errors, whatever the level
  int dataBits, checkWords;

  int width() const { return 9 + 2 * number; }
  int terminatorBits() const { return 2 * number + 1; }
};

constexpr MicroVersion kVersions[] = {
    {1, 0, 20, 2}, {2, 0, 40, 5},  {2, 1, 32, 6},   {3, 0, 84, 6},
    {3, 1, 68, 8}, {4, 0, 128, 8}, {4, 1, 112, 10}, {4, 2, 80, 14},
};

constexpr QrSegmentHeads kHeads[] = {
    {0, {0, 0, 0}, {3, 0, 0}},
    {1, {0, 1, 0}, {4, 3, 0}},
    {2, {0, 1, 2}, {5, 4, 4}},
    {3, {0, 1, 2}, {6, 5, 5}},
};

// Those of QR Code that Micro QR Code has.
constexpr int kMasks[] = {1, 4, 6, 7};
constexpr int kMaskCount = 4;

constexpr int kAnyVersion = 0, kAnyMask = -1;
constexpr int kLevelQ = 2;

void CheckOptions(const QrOptions& options) {
  const int version = options.microVersion;
  const bool known = version >= kAnyVersion && version <= 4 && options.microMask >= kAnyMask &&
                     options.microMask < kMaskCount;
  const bool hasLevel = options.ecLevel >= 0 && options.ecLevel <= kLevelQ &&
                        (options.ecLevel != kLevelQ || version == kAnyVersion || version == 4);
  if (!known || !hasLevel) throw Error(BC_E_INVALIDARG);
}

bool Serves(const MicroVersion& version, const QrOptions& options) {
  if (options.microVersion == kAnyVersion) return version.level == options.ecLevel;
  if (version.number != options.microVersion) return false;
  return version.number == 1 || version.level == options.ecLevel;
}

// M1 and M2 do not have every character; where one is asked for, the first that it lacks is wrong.
void CheckCharacters(const Data& data, int version) {
  if (version != 1 && version != 2) return;
  const QrMode mode = version == 1 ? QrMode::kNumeric : QrMode::kAlphanumeric;
  for (const DataCharacter character : data) {
    if (!QrModeHas(mode, character.value)) {
      throw Error(BC_E_INVALIDDATA, DataIndex(character.source));
    }
  }
}

// Data words, of which the last may be half a word in its upper bits, and check words.
std::vector<std::uint8_t> BytesOf(const MicroVersion& version, QrBits bits) {
  const std::size_t wholeWords = static_cast<std::size_t>(version.dataBits) / 8;
  const bool half = version.dataBits % 8 != 0;
  // What nothing stands in is zero in half a word.
  const bool halfNeeded = bits.size() > wholeWords * 8;
  std::vector<std::uint8_t> data =
      QrDataWords(std::move(bits), wholeWords + (halfNeeded ? 1 : 0), version.terminatorBits());
  data.resize(wholeWords + (half ? 1 : 0));
  std::vector<std::uint8_t> words = WithQrCheckWords(data, 1, version.checkWords);
  if (!half) return words;

  QrBits packed;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i == wholeWords) {
      packed.append(words[i] >> 4, 4);
    } else {
      packed.append(words[i], 8);
    }
  }
  return std::move(packed).finish();
}

// Round the finder.
template <class Target>
void DrawFormat(Target& target, std::uint32_t bits) {
  constexpr int kLine = 8;  // row and column
  for (int i = 0; i < 15; ++i) {
    const bool dark = (bits >> i & 1) != 0;
    if (i < 7) {
      target.set(kLine, i + 1, dark);
    } else {
      target.set(15 - i, kLine, dark);
    }
  }
}

QrCanvas CanvasOf(int width) {
  QrCanvas canvas(width, width);
  canvas.drawRings(3, 3, 4, 0b01011);
  for (int i = 8; i < width; ++i) {
    canvas.set(i, 0, i % 2 == 0);
    canvas.set(0, i, i % 2 == 0);
  }
  DrawFormat(canvas, 0);
  return canvas;
}

QrMatrix Masked(const QrCanvas& canvas, const MicroVersion& version, int mask) {
  QrMatrix modules = canvas.modules;
  ApplyQrMask(modules, canvas.drawn, kMasks[mask]);
  const auto number = static_cast<std::uint32_t>(&version - kVersions);
  const std::uint32_t value = number << 2 | static_cast<std::uint32_t>(mask);
  DrawFormat(modules, WithQrRemainder(value, 0x537, 10) ^ 0x4445);
  return modules;
}

// The dark modules on the two sides without timing, which a reader takes for the border.
int Rating(const QrMatrix& modules) {
  const int last = modules.width - 1;
  int right = 0, lower = 0;
  for (int i = 1; i <= last; ++i) {
    right += modules.isDark(last, i) ? 1 : 0;
    lower += modules.isDark(i, last) ? 1 : 0;
  }
  return std::min(right, lower) * 16 + std::max(right, lower);
}

QrMatrix BestMasked(const QrCanvas& canvas, const MicroVersion& version) {
  QrMatrix best = Masked(canvas, version, 0);
  for (int mask = 1; mask < kMaskCount; ++mask) {
    const QrMatrix modules = Masked(canvas, version, mask);
    if (Rating(modules) > Rating(best)) best = modules;
  }
  return best;
}

void Draw(const MicroVersion& version, const QrMessage& message, int mask, Symbol& symbol) {
  QrBits bits;
  message.write(bits);
  QrCanvas canvas = CanvasOf(version.width());
  canvas.place(BytesOf(version, std::move(bits)), version.width() - 1, 0);
  const QrMatrix modules =
      mask == kAnyMask ? BestMasked(canvas, version) : Masked(canvas, version, mask);
  modules.copyTo(symbol);
}

void DrawSmallest(const QrOptions& options, const QrContent& content, Symbol& symbol) {
  for (const MicroVersion& version : kVersions) {
    if (!Serves(version, options)) continue;
    const QrMessage message(content, kHeads[version.number - 1]);
    // kImpossible is more than any.
    if (message.bitCount() > static_cast<std::size_t>(version.dataBits)) continue;
    return Draw(version, message, options.microMask, symbol);
  }
  throw Error(BC_E_DATATOOLONG);
}

}  // namespace

void EncodeMicroQrCode(const EncoderInput& input, Symbol& symbol) {
  const QrOptions& options = input.options.qr;
  RefuseQrMarks(options);
  CheckOptions(options);
  CheckCharacters(input.data, options.microVersion);
  QrData data = QrDataOf(input);
  DrawSmallest(options, data.content, symbol);
  SetTextLine(symbol, std::move(data.text));
}

}  // namespace Library
