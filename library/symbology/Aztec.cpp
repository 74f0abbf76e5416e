// Aztec Code (ISO/IEC 24778): what the options ask for, and the smallest symbol that gives it.
#include "library/Error.h"
#include "library/symbology/AztecMessage.h"
#include "library/symbology/AztecPattern.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <algorithm>
#include <string>
#include <utility>

namespace Library {
namespace {

enum Format { kDefault, kGs1, kIndustry };

constexpr int kMaxSymbols = 26;
constexpr std::size_t kMaxIdLength = 32;
constexpr int kMinCheckWords = 3;
constexpr int kRecommendedPercent = 23;  // and the three words besides

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

bool IsLetter(char character) {
  return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

// What tells an industry's format, in front of FNC1.
bool IsSpecifier(const std::string& text) {
  if (text.size() == 1) return IsLetter(text[0]);
  return text.size() == 2 && IsDigit(text[0]) && IsDigit(text[1]);
}

void CheckAppend(const AztecOptions& options) {
  const int sum = options.appendSum - 'A' + 1;
  const int index = options.appendIndex - 'A' + 1;
  const bool good = sum >= 2 && sum <= kMaxSymbols && index >= 1 && index <= sum &&
                    options.messageId.size() <= kMaxIdLength &&
                    options.messageId.find(' ') == std::string::npos;
  if (!good) throw Error(BC_E_INVALIDARG);
}

void CheckOptions(const AztecOptions& options) {
  // A rune has no room for either.
  const bool marked = options.append || options.format != kDefault;
  if (options.runes && marked) throw Error(BC_E_NOTSUPPORTED);
  const bool good = options.format >= kDefault && options.format <= kIndustry &&
                    options.size >= 0 && options.size <= AztecShape::kLastSize &&
                    options.errorCorrection <= 99 &&
                    (options.format != kIndustry || IsSpecifier(options.formatSpecifier));
  if (!good) throw Error(BC_E_INVALIDARG);
  if (options.append) CheckAppend(options);
}

// Aztec runes: one number 0 to 255.
void DrawRune(const EncoderInput& input, Symbol& symbol) {
  for (const DataCharacter character : input.data) {
    if (!character.isDigit()) throw Error(BC_E_INVALIDDATA, DataIndex(character.source));
  }
  std::string digits = Bytes(input.data);
  if (digits.size() > 3) throw Error(BC_E_DATATOOLONG);
  const int number = std::stoi(digits);
  if (number > 255) throw Error(BC_E_INVALIDDATA, DataIndex(input.data.front().source));
  DrawAztecRune(static_cast<std::uint8_t>(number), symbol);
  SetTextLine(symbol, std::move(digits));
}

void Add(AztecContent& content, std::string_view text) {
  for (const char character : text) {
    content.characters.push_back(static_cast<unsigned char>(character));
  }
}

void AddHeader(AztecContent& content, const AztecOptions& options) {
  content.append = options.append;
  if (options.append) {
    if (!options.messageId.empty()) Add(content, ' ' + options.messageId + ' ');
    Add(content, {&options.appendIndex, 1});
    Add(content, {&options.appendSum, 1});
  }
  if (options.format == kIndustry) Add(content, options.formatSpecifier);
  if (options.format != kDefault) content.characters.push_back(kFnc1);
  if (content.eci != 0) content.characters.push_back(kAztecInterpretation);
  content.header = content.characters.size();
}

AztecContent ContentOf(const AztecOptions& options, int eci, const Data& data) {
  AztecContent content;
  content.eci = eci;
  content.binary = options.binary;
  content.characters.reserve(data.size() + kMaxIdLength + 8);
  AddHeader(content, options);
  for (const DataCharacter character : data) {
    if (character.isByte() || character.value == kFnc1) {
      content.characters.push_back(character.value);
    }
  }
  return content;
}

// Check words that a symbol of so many words must have at least.
int LeastCheckWords(const AztecOptions& options, int words) {
  if (options.size != 0) return kMinCheckWords;  // a size that is set rules
  const int percent = options.errorCorrection;
  if (percent < 0) return words * kRecommendedPercent / 100 + kMinCheckWords;
  return std::max((words * percent + 99) / 100, kMinCheckWords);
}

int MostDataWords(const AztecOptions& options, const AztecShape& shape) {
  return std::min(shape.words() - LeastCheckWords(options, shape.words()), shape.maxDataWords());
}

// No more words than `most` where one of the messages tried comes out so: bit stuffing adds a bit
// to every 16th word of 6 bits or so, which can cost a small symbol its size.
AztecMessage::Words WordsOf(const AztecContent& content, const AztecMessage& message,
                            const AztecShape& shape, int most) {
  const auto room = static_cast<std::size_t>(most);
  AztecMessage::Words words = message.words(shape.wordBits());
  if (shape.wordBits() > 8 || words.size() != room + 1) return words;
  for (unsigned choice = 1; choice < AztecMessage::kChoices && words.size() > room; ++choice) {
    words = AztecMessage(content, choice).words(shape.wordBits());
  }
  return words;
}

// In the smallest size that leaves the check words asked for. A full symbol of less than four
// layers holds less than the compact one of its width.
void DrawSmallest(const AztecOptions& options, const AztecContent& content, Symbol& symbol) {
  const AztecMessage message(content);
  const int first = options.size != 0 ? options.size : 1;
  const int last = options.size != 0 ? options.size : AztecShape::kLastSize;
  for (int size = first; size <= last; ++size) {
    constexpr int kFirstUseless = 5, kLastUseless = 7;
    if (options.size == 0 && size >= kFirstUseless && size <= kLastUseless) continue;
    const AztecShape shape(size);
    const int most = MostDataWords(options, shape);
    if (message.bitCount() > most * shape.wordBits()) continue;
    AztecMessage::Words words = WordsOf(content, message, shape, most);
    if (std::ssize(words) <= most) return DrawAztec(shape, std::move(words), symbol);
  }
  throw Error(BC_E_DATATOOLONG);
}

void Draw(const Options& options, const Data& data, Symbol& symbol) {
  const AztecContent content = ContentOf(options.aztec, options.eci, data);
  if (AztecMessage::leastBits(content.characters.size()) > kMaxAztecBits) {
    throw Error(BC_E_DATATOOLONG);
  }
  DrawSmallest(options.aztec, content, symbol);
}

}  // namespace

void EncodeAztec(const EncoderInput& input, Symbol& symbol) {
  const AztecOptions& options = input.options.aztec;
  CheckOptions(options);
  if (options.runes) {
    if (input.options.eci != 0) throw Error(BC_E_NOTSUPPORTED);
    return DrawRune(input, symbol);
  }
  ElementString content = GivenContent(input);
  Draw(input.options, content.data, symbol);
  SetTextLine(symbol, std::move(content.text));
}

void EncodeHibcAztec(const EncoderInput& input, Symbol& symbol) {
  const AztecOptions& options = input.options.aztec;
  CheckOptions(options);
  if (options.format != kDefault || options.runes) throw Error(BC_E_NOTSUPPORTED);
  HibcMessage message = HibcContent(input);
  Draw(input.options, message.data, symbol);
  symbol.checkDigits = std::move(message.check);
  SetTextLine(symbol, std::move(message.text));
}

void EncodeAztecRune(const EncoderInput& input, Symbol& symbol) {
  DrawRune(input, symbol);
}

}  // namespace Library
