// Aztec Code (ISO/IEC 24778) by libzint, with what it lacks: any percentage of error correction,
// and a compact symbol of four layers that can be read. Both need the number of data words, which
// the mode message round the centre tells.
#include "library/Error.h"
#include "library/prepare/CharacterSet.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/ZintSymbol.h"

#include <cstring>
#include <memory>
#include <optional>

namespace Library {
namespace {

enum Format { kDefault, kGs1, kIndustry };

constexpr int kMaxSymbols = 26;
constexpr int kMinCheckWords = 3;

// Sizes by number: 1 to 4 compact with as many layers, 5 to 36 full with 1 to 32.
constexpr int kLastCompact = 4, kLastSize = 36;
// The full symbol with the word size of the largest compact one and more room.
constexpr int kAboveCompact = 8;
constexpr int kMaxCompactWords = 64;  // that the mode message can tell

struct Shape {
  bool compact;
  int layers;

  explicit Shape(int size)
      : compact(size <= kLastCompact), layers(compact ? size : size - kLastCompact) {}
  int bits() const { return ((compact ? 88 : 112) + 16 * layers) * layers; }
  int wordBits() const { return layers <= 2 ? 6 : layers <= 8 ? 8 : layers <= 22 ? 10 : 12; }
  int words() const { return bits() / wordBits(); }
};

using Encoded = std::unique_ptr<ZintSymbol>;

class AztecEncoder {
 public:
  AztecEncoder(const AztecOptions& set, const MatrixContent& encoded)
      : options(set), content(encoded) {}

  Encoded run() {
    if (options.size != 0) return readable(explicitSize(options.size), options.size);
    const int level = levelOf(options.errorCorrection);
    if (level != 0) return automatic(level);
    return searched();
  }

 private:
  // libzint's levels; 0: a percentage that it does not have.
  static int levelOf(int percent) {
    switch (percent) {
      case 10:
        return 1;
      case 23:
        return 2;
      case 36:
        return 3;
      case 50:
        return 4;
      default:
        return percent < 0 ? -1 : 0;
    }
  }

  // Null: too long.
  Encoded encode(int level, int size) const {
    auto symbol = std::make_unique<ZintSymbol>(BARCODE_AZTEC);
    SetInputMode(*symbol, content);
    (*symbol)->option_1 = level;
    (*symbol)->option_2 = size;
    if (options.append) setAppend(*symbol);
    return symbol->tryEncode(content.data) ? std::move(symbol) : nullptr;
  }

  void setAppend(ZintSymbol& symbol) const {
    SetAppend(symbol, options.appendSum - 'A' + 1, options.appendIndex - 'A' + 1, kMaxSymbols);
    const std::string& id = options.messageId;
    if (id.size() > sizeof symbol->structapp.id || id.find(' ') != id.npos) {
      throw Error(BC_E_INVALIDARG);
    }
    std::memcpy(symbol->structapp.id, id.data(), id.size());
  }

  // libzint picks a compact symbol whenever one is large enough.
  static int sizeOf(const ZintSymbol& symbol) {
    constexpr int kWidths[] = {15,  19,  23,  27,  19,  23,  27,  31,  37,  41,  45,  49,
                               53,  57,  61,  67,  71,  75,  79,  83,  87,  91,  95,  101,
                               105, 109, 113, 117, 121, 125, 131, 135, 139, 143, 147, 151};
    static_assert(std::size(kWidths) == kLastSize);
    int size = 1;
    while (size < kLastSize && kWidths[size - 1] != symbol->width) ++size;
    return size;
  }

  // From the mode message: the side above the centre from the left, then the right side downwards.
  static int dataWords(const ZintSymbol& symbol, int size) {
    const bool compact = Shape(size).compact;
    const int centre = symbol->width / 2;
    const int distance = compact ? 5 : 7;
    const int reach = compact ? 3 : 5;
    const int wanted = compact ? 8 : 16;
    int bits = 0;
    int count = 0;
    for (const bool right : {false, true}) {
      for (int along = -reach; along <= reach && count < wanted; ++along) {
        if (!compact && along == 0) continue;  // the reference grid
        const bool dark = right ? symbol.isDark(centre + along, centre + distance)
                                : symbol.isDark(centre - distance, centre + along);
        bits = bits << 1 | (dark ? 1 : 0);
        ++count;
      }
    }
    return (bits & (compact ? 0x3F : 0x7FF)) + 1;
  }

  Encoded automatic(int level) const {
    Encoded symbol = encode(level, 0);
    if (symbol == nullptr) throw Error(BC_E_DATATOOLONG);
    const int size = sizeOf(*symbol);
    if (size != kLastCompact) return symbol;
    Encoded larger = encode(-1, kAboveCompact);
    const bool unreadable =
        larger != nullptr && dataWords(*larger, kAboveCompact) > kMaxCompactWords;
    return unreadable ? std::move(larger) : std::move(symbol);
  }

  // The fewest bits that the data can take, by the automatic symbol with least error correction;
  // none: more than it holds.
  std::optional<int> leastBits() const {
    const Encoded symbol = encode(1, 0);
    if (symbol == nullptr) return std::nullopt;
    const int size = sizeOf(*symbol);
    // A word can lose one bit to stuffing.
    return (dataWords(*symbol, size) - 1) * (Shape(size).wordBits() - 1);
  }

  // libzint writes past its arrays when long data are to go into a small symbol.
  bool mayTry(int size, std::optional<int> least) const {
    constexpr int kNearlyAll = 14000;
    return Shape(size).bits() > least.value_or(kNearlyAll);
  }

  Encoded explicitSize(int size) const {
    constexpr std::size_t kAlwaysSafe = 1000;
    if (content.data.size() > kAlwaysSafe && !mayTry(size, leastBits())) {
      throw Error(BC_E_DATATOOLONG);
    }
    Encoded symbol = encode(-1, size);
    if (symbol == nullptr) throw Error(BC_E_DATATOOLONG);
    return symbol;
  }

  Encoded readable(Encoded symbol, int size) const {
    if (size != kLastCompact) return symbol;
    const Encoded larger = encode(-1, kAboveCompact);
    if (larger != nullptr && dataWords(*larger, kAboveCompact) > kMaxCompactWords) {
      throw Error(BC_E_DATATOOLONG);
    }
    return symbol;
  }

  // How many words of so many bits the data take, in whatever size has them: read off the largest.
  // None: they do not fit there.
  std::optional<int> wordsOf(int wordBits, std::optional<int> least) const {
    int size = kLastSize;
    while (Shape(size).wordBits() != wordBits) --size;
    if (!mayTry(size, least)) return std::nullopt;
    if (least && !leavesEnough(Shape(size), *least / wordBits)) return std::nullopt;
    const Encoded symbol = encode(-1, size);
    if (symbol == nullptr) return std::nullopt;
    return dataWords(*symbol, size);
  }

  bool leavesEnough(const Shape& shape, int words) const {
    const int check = shape.words() - words;
    return check >= kMinCheckWords && check * 100 >= options.errorCorrection * shape.words();
  }

  // The first size, from the smallest, whose words leave the percentage asked for.
  Encoded searched() const {
    const std::optional<int> least = leastBits();
    int wordBits = 0;
    std::optional<int> words;
    for (int size = 1; size <= kLastSize; ++size) {
      // A compact symbol of the same width holds more.
      if (size > kLastCompact && size < kAboveCompact) continue;
      const Shape shape(size);
      if (shape.wordBits() != wordBits) words = wordsOf(wordBits = shape.wordBits(), least);
      if (!words || !leavesEnough(shape, *words) || !mayTry(size, least)) continue;
      if (size == kLastCompact && *words > kMaxCompactWords) continue;
      if (Encoded symbol = encode(-1, size)) return symbol;
    }
    throw Error(BC_E_DATATOOLONG);
  }

  const AztecOptions& options;
  const MatrixContent& content;
};

// libzint writes a wrong length for a byte run that is longer than its 11 bits can tell.
void CheckLength(const std::string& data) {
  constexpr std::size_t kLongestRun = 2078;
  constexpr CharacterSet kOnlyAsBytes = CharacterSet::Of(std::string_view("\0", 1)) |
                                        CharacterSet::Range(14, 26) | CharacterSet::Range(128, 255);
  if (data.size() <= kLongestRun) return;
  for (const char character : data) {
    if (kOnlyAsBytes.contains(static_cast<unsigned char>(character))) throw Error(BC_E_DATATOOLONG);
  }
}

void CheckOptions(const AztecOptions& options) {
  const bool gs1 = options.format == kGs1;
  if (options.format == kIndustry) throw Error(BC_E_NOTSUPPORTED);
  // libzint loses the FNC1 of an appended symbol; a rune has no room for either.
  if (options.append && (gs1 || options.runes)) throw Error(BC_E_NOTSUPPORTED);
  if (gs1 && options.runes) throw Error(BC_E_NOTSUPPORTED);
  const bool good = options.format >= kDefault && options.format <= kGs1 && options.size >= 0 &&
                    options.size <= kLastSize && options.errorCorrection <= 99;
  if (!good) throw Error(BC_E_INVALIDARG);
}

// Aztec runes: one number 0 to 255.
void EncodeRune(const EncoderInput& input, Symbol& symbol) {
  for (const DataCharacter character : input.data) {
    if (!character.isDigit()) throw Error(BC_E_INVALIDDATA, character.source);
  }
  std::string digits = Bytes(input.data);
  if (digits.size() > 3) throw Error(BC_E_DATATOOLONG);
  if (std::stoi(digits) > 255) throw Error(BC_E_INVALIDDATA, input.data.front().source);
  ZintSymbol encoded(BARCODE_AZRUNE);
  encoded.encode(digits);
  encoded.copyRows(symbol, 1);
  SetTextLine(symbol, std::move(digits));
}

}  // namespace

void EncodeAztec(const EncoderInput& input, Symbol& symbol) {
  const AztecOptions& options = input.options.aztec;
  CheckOptions(options);
  if (options.runes) return EncodeRune(input, symbol);
  MatrixContent content = ContentOf(input);
  CheckLength(content.data);
  AztecEncoder(options, content).run()->copyRows(symbol, 1);
  SetTextLine(symbol, std::move(content.text));
}

}  // namespace Library
