#include "library/Error.h"
#include "library/prepare/CharacterSet.h"
#include "library/prepare/Gs1.h"
#include "library/symbology/MicroPdf417.h"

#include <algorithm>
#include <iterator>

namespace Library {
namespace {

constexpr std::uint16_t kNumberLatch = 902;
constexpr std::uint16_t kGroupSeparator = 0x1D;  // stands for FNC1 behind the first
constexpr CharacterSet kLetters = CharacterSet::Range('A', 'Z') | CharacterSet::Range('a', 'z');

struct Content {
  Data data;
  std::string text;
  bool digitsFirst = false;  // in front of an implied FNC1
};

Content PlainContent(const EncoderInput& input) {
  return {input.data, PrintableText(input.data)};
}

Content ElementStrings(const EncoderInput& input) {
  if (!TakesGs1(input.symbology, input.options)) throw Error(BC_E_NOTSUPPORTED);
  ElementString elements = ParseElementString(input.data, input.options.autoCorrect > 0);
  for (DataCharacter& character : elements.data) {
    if (character.value == kFnc1) character.value = kGroupSeparator;
  }
  return {std::move(elements.data), std::move(elements.text)};
}

// FNC1 is implied behind a letter or two digits. A separator given there is left out.
Content ApplicationIndicator(const EncoderInput& input) {
  Content content = PlainContent(input);
  Data& data = content.data;
  const auto isDigit = [&](std::size_t at) { return at < data.size() && data[at].isDigit(); };
  content.digitsFirst = isDigit(0);
  if (content.digitsFirst) {
    if (!isDigit(1))
      throw Error(BC_E_INVALIDDATA, DataIndex(data.size() > 1 ? data[1].source : -1));
  } else if (!kLetters.contains(data[0].value)) {
    throw Error(BC_E_INVALIDDATA, DataIndex(data[0].source));
  }
  const std::size_t indicator = content.digitsFirst ? 2 : 1;
  if (indicator < data.size() && data[indicator].value == kGroupSeparator)
    data.erase(data.begin() + static_cast<std::ptrdiff_t>(indicator));
  return content;
}

// The data inside the envelope of ISO/IEC 15434, which may be given with them.
Content InsideEnvelope(const EncoderInput& input, std::string_view format) {
  constexpr std::string_view kHeader = "[)>\x1E", kTrailer = "\x1E\x04";
  const std::string opening = std::string(kHeader) + std::string(format) + "\x1D";
  Content content = PlainContent(input);
  Data& data = content.data;
  const std::string bytes = Bytes(data);
  if (!bytes.starts_with(kHeader)) return content;
  if (!bytes.starts_with(opening)) {
    const auto wrong = std::mismatch(bytes.begin(), bytes.end(), opening.begin(), opening.end());
    const auto at = static_cast<std::size_t>(wrong.first - bytes.begin());
    throw Error(BC_E_INVALIDDATA, DataIndex(at < data.size() ? data[at].source : -1));
  }
  if (!bytes.ends_with(kTrailer) || bytes.size() <= opening.size() + kTrailer.size())
    throw Error(BC_E_INVALIDDATA, DataIndex(data.back().source));
  data.erase(data.end() - std::ssize(kTrailer), data.end());
  data.erase(data.begin(), data.begin() + std::ssize(opening));
  return content;
}

Content InsideFormat05(const EncoderInput& input) {
  return InsideEnvelope(input, "05");
}
Content InsideFormat06(const EncoderInput& input) {
  return InsideEnvelope(input, "06");
}

struct Mode {
  Content (*content)(const EncoderInput& input);  // null: not supported
  // The code word in front of data that begin in text, and in numeric compaction. Which compaction
  // they are in is said nevertheless, readers differ in what they take for granted.
  std::uint16_t text, number;
};

constexpr Mode kModes[] = {
    {PlainContent, 0, 0},
    {ElementStrings, 903, 904},        // Code 128 with FNC1 in front
    {PlainContent, 910, 911},          // Code 128
    {ApplicationIndicator, 908, 909},  // Code 128 with FNC1 in second place
    {ElementStrings, 906, 907},        // the same as the first, linked to a linear symbol
    {InsideFormat05, 916, 916},
    {InsideFormat06, 917, 917},
    {nullptr, 0, 0},  // composite component A
    {nullptr, 0, 0},  // composite component B
};

}  // namespace

MicroPdf417Message MicroPdf417MessageOf(const EncoderInput& input) {
  const Pdf417Options& options = input.options.pdf417;
  if (options.microMode < 0 || options.microMode >= std::ssize(kModes))
    throw Error(BC_E_INVALIDARG);
  const Mode& mode = kModes[options.microMode];
  const bool marked = mode.text != 0;
  if (mode.content == nullptr || (marked && input.options.eci != 0)) throw Error(BC_E_NOTSUPPORTED);

  Content content = mode.content(input);
  const Compaction compaction = options.mode == 1 ? Compaction::kBytes : Compaction::kAny;
  const CodeWords data = CompactPdf417(Bytes(content.data), compaction, Pdf417Start::kUnknown);
  MicroPdf417Message message;
  message.words = Pdf417Interpretation(input.options.eci);
  const bool number = content.digitsFirst || data.front() == kNumberLatch;
  if (marked) message.words.push_back(number ? mode.number : mode.text);
  Append(data, message.words);
  message.text = std::move(content.text);
  return message;
}

}  // namespace Library
