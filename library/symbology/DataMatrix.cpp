// Data Matrix ECC 200 (ISO/IEC 16022), and the standards that put their messages into one.
#include "library/Error.h"
#include "library/symbology/DataMatrixMessage.h"
#include "library/symbology/DataMatrixPattern.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace Library {
namespace {

enum Format { kDefault, kGs1, kIndustry, kMacro05, kMacro06, kReaderProgramming };

constexpr int kMaxSymbols = 16;

// Code words with a meaning of their own.
constexpr std::uint8_t kFunction1 = 232, kAppend = 233, kReader = 234, kFirstMacro = 236,
                       kInterpretation = 241;

// The frames that one code word stands for (ISO/IEC 15434), in the order of those.
constexpr std::string_view kFrames[] = {
    "[)>\x1E"
    "05\x1D",
    "[)>\x1E"
    "06\x1D"};
constexpr std::string_view kFrameEnd = "\x1E\x04";

bool IsAppended(const DataMatrixOptions& options) {
  return options.appendSum >= 0 || options.appendIndex >= 0;
}

void CheckOptions(const DataMatrixOptions& options) {
  // Each has to be the first code word.
  if (options.format == kReaderProgramming && IsAppended(options)) throw Error(BC_E_NOTSUPPORTED);
  const int sizes = static_cast<int>(DataMatrixShapes().size());
  const bool good = options.format >= kDefault && options.format <= kReaderProgramming &&
                    options.size >= 0 && options.size <= sizes;
  const bool append = !IsAppended(options) ||
                      (options.appendSum >= 2 && options.appendSum <= kMaxSymbols &&
                       options.appendIndex >= 1 && options.appendIndex <= options.appendSum);
  if (!good || !append) throw Error(BC_E_INVALIDARG);
}

// Place and count, and two numbers 1 to 254; readers report 256 times the first plus the second.
void AddAppend(const DataMatrixOptions& options, DataMatrixContent& content) {
  const int id = options.appendFileId;
  const int value = id < 0 ? 0x101 : id < 256 ? 0x100 + id : id;
  const int numbers[] = {value / 256, value % 256};
  content.header.push_back(kAppend);
  content.header.push_back(
      static_cast<std::uint8_t>((options.appendIndex - 1) << 4 | (17 - options.appendSum)));
  for (const int number : numbers) {
    if (number < 1 || number > 254) throw Error(BC_E_INVALIDARG);
    content.header.push_back(static_cast<std::uint8_t>(number));
  }
}

void AddInterpretation(int eci, DataMatrixContent& content) {
  constexpr int kFirstOfTwo = 127, kFirstOfThree = 16'383, kValues = 254;
  if (eci == 0) return;
  const auto add = [&](int word) { content.header.push_back(static_cast<std::uint8_t>(word)); };
  add(kInterpretation);
  if (eci < kFirstOfTwo) {
    add(eci + 1);
  } else if (eci < kFirstOfThree) {
    add((eci - kFirstOfTwo) / kValues + 128);
    add((eci - kFirstOfTwo) % kValues + 1);
  } else {
    const int beyond = eci - kFirstOfThree;
    add(beyond / (kValues * kValues) + 192);
    add(beyond / kValues % kValues + 1);
    add(beyond % kValues + 1);
  }
}

// A letter or two digits that tell the industry's format, and FNC1.
std::size_t AddIndustry(const Data& data, DataMatrixContent& content) {
  const auto isLetter = [](const DataCharacter& character) {
    const int capital = character.value & ~('a' ^ 'A');
    return capital >= 'A' && capital <= 'Z';
  };
  if (data.size() > 1 && data[0].isDigit() && data[1].isDigit()) {
    const int pair = (data[0].value - '0') * 10 + data[1].value - '0';
    content.header.push_back(static_cast<std::uint8_t>(130 + pair));
    content.header.push_back(kFunction1);
    return 2;
  }
  if (!isLetter(data[0])) {
    const bool second = data.size() > 1 && data[0].isDigit();
    throw Error(BC_E_INVALIDDATA, DataIndex(data[second ? 1 : 0].source));
  }
  content.header.push_back(static_cast<std::uint8_t>(data[0].value + 1));
  content.header.push_back(kFunction1);
  return 1;
}

// Begins the content with what the format asks for; the number of data characters that are part of
// it.
std::size_t AddFormat(int format, bool appended, const Data& data, DataMatrixContent& content) {
  switch (format) {
    case kGs1:
      content.header.push_back(kFunction1);
      return 0;
    case kIndustry:
      return AddIndustry(data, content);
    case kMacro05:
    case kMacro06:
      // A macro would have to be the first code word.
      if (!appended)
        content.header.push_back(static_cast<std::uint8_t>(kFirstMacro + format - kMacro05));
      return 0;
    case kReaderProgramming:
      content.header.push_back(kReader);
      return 0;
    default:
      return 0;
  }
}

// Of data that have the frame of a macro themselves the macro, else the default format.
int MacroOf(const std::string& bytes) {
  for (std::size_t i = 0; i < std::size(kFrames); ++i) {
    const bool framed = bytes.size() > kFrames[i].size() + kFrameEnd.size() &&
                        bytes.starts_with(kFrames[i]) && bytes.ends_with(kFrameEnd);
    if (framed) return kMacro05 + static_cast<int>(i);
  }
  return kDefault;
}

DataMatrixContent ContentOf(const Options& options, const Data& data) {
  const DataMatrixOptions& settings = options.dataMatrix;
  const bool appended = IsAppended(settings);
  int format = settings.format;
  std::size_t first = 0, last = data.size();
  if (format == kDefault && !appended && options.eci == 0) {
    format = MacroOf(Bytes(data));
    if (format != kDefault) first = kFrames[0].size(), last -= kFrameEnd.size();
  }
  DataMatrixContent content;
  content.binary = settings.binary;
  if (appended) AddAppend(settings, content);
  first += AddFormat(format, appended, data, content);
  AddInterpretation(options.eci, content);

  const bool spelled = appended && (format == kMacro05 || format == kMacro06);
  const auto add = [&](std::string_view text) {
    if (spelled) content.characters.insert(content.characters.end(), text.begin(), text.end());
  };
  if (spelled) add(kFrames[format - kMacro05]);
  for (std::size_t i = first; i < last; ++i) {
    constexpr std::uint16_t kGroupSeparator = 0x1D;  // what FNC1 is to the receiver
    const std::uint16_t value = data[i].value;
    if (value == kFnc1) content.characters.push_back(content.binary ? kGroupSeparator : value);
    if (data[i].isByte()) content.characters.push_back(value);
  }
  add(kFrameEnd);
  return content;
}

// In the smallest of the shapes that holds the message.
void DrawSmallest(std::span<const DataMatrixShape> shapes, const DataMatrixContent& content,
                  Symbol& symbol) {
  const auto most = static_cast<std::size_t>(shapes.back().dataWords);
  if (LeastDataMatrixWords(content.characters.size()) > most) {
    throw Error(BC_E_DATATOOLONG);
  }
  const DataMatrixMessage message = FindDataMatrixMessage(content);
  for (const DataMatrixShape& shape : shapes) {
    std::vector<std::uint16_t> words = message(static_cast<std::size_t>(shape.dataWords));
    if (!words.empty()) return DrawDataMatrix(shape, std::move(words), symbol);
  }
  throw Error(BC_E_DATATOOLONG);
}

std::span<const DataMatrixShape> ShapesFor(const DataMatrixOptions& options) {
  const auto shapes = DataMatrixShapes();
  if (options.size != 0) return shapes.subspan(static_cast<std::size_t>(options.size - 1), 1);
  return options.rectangular ? shapes.subspan(kDataMatrixSquares)
                             : shapes.first(kDataMatrixSquares);
}

void Draw(const Options& options, const Data& data, Symbol& symbol) {
  CheckOptions(options.dataMatrix);
  DrawSmallest(ShapesFor(options.dataMatrix), ContentOf(options, data), symbol);
}

}  // namespace

void EncodeDataMatrix(const EncoderInput& input, Symbol& symbol) {
  ElementString content = GivenContent(input);
  Draw(input.options, content.data, symbol);
  SetTextLine(symbol, std::move(content.text));
}

void EncodeHibcDataMatrix(const EncoderInput& input, Symbol& symbol) {
  const int format = input.options.dataMatrix.format;
  if (format == kGs1 || format == kIndustry) throw Error(BC_E_NOTSUPPORTED);
  HibcMessage message = HibcContent(input);
  Draw(input.options, message.data, symbol);
  symbol.checkDigits = std::move(message.check);
  SetTextLine(symbol, std::move(message.text));
}

// Royal Mail Mailmark comes in three sizes; the options of Data Matrix choose among them.
void EncodeMailmarkMatrix(const EncoderInput& input, Symbol& symbol) {
  struct Size {
    int number;
    std::size_t longest;
  };
  constexpr Size kSmall = {8, 51}, kLarge = {10, 90}, kRectangle = {30, 70};
  const DataMatrixOptions& asked = input.options.dataMatrix;
  Size size = input.data.size() <= kSmall.longest ? kSmall : kLarge;
  if (asked.rectangular) size = kRectangle;
  for (const Size& known : {kSmall, kLarge, kRectangle}) {
    if (known.number == asked.size) size = known;
  }
  if (asked.size != 0 && asked.size != size.number) throw Error(BC_E_INVALIDARG);
  if (input.data.size() > size.longest) throw Error(BC_E_DATATOOLONG);

  Options options = input.options;
  options.dataMatrix = {};
  options.dataMatrix.size = size.number;
  Draw(options, input.data, symbol);
  SetTextLine(symbol, PrintableText(input.data));
}

}  // namespace Library
