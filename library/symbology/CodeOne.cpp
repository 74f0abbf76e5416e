// Code One (AIM USS Code One): bytes in the smallest of the versions A to H that takes them.
#include "library/Error.h"
#include "library/symbology/CodeOneMessage.h"
#include "library/symbology/CodeOnePattern.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/StructuredAppend.h"

#include <string>
#include <utility>

namespace Library {
namespace {

constexpr std::uint16_t kPad = 129, kFunction2 = 233, kEscape = '\\' + 1;

// The place in the message, in one word or two, in front of FNC2; in the symbol that tells how to
// read escapes it stands behind a word for padding.
void AddHeader(const PlaceInMessage& place, bool escapes, CodeOneContent& content) {
  constexpr int kMostInOneWord = 15;
  std::vector<std::uint16_t> told;
  const auto tell = [&told](int word) { told.push_back(static_cast<std::uint16_t>(word)); };
  const bool small = place.count <= kMostInOneWord;
  if (place.count > 1 && small) tell((place.index - 1) * kMostInOneWord + place.count - 1);
  if (place.count > 1 && !small) tell(place.index), tell(place.count);

  std::vector<std::uint16_t>& header = content.header;
  const bool first = escapes && place.index == 1;
  if (first) header.push_back(kPad);
  if (first && (place.count == 1 || !small)) header.push_back(kEscape);
  if (first && place.count > 1) header.push_back(kFunction2);
  header.insert(header.end(), told.begin(), told.end());
  if (first && place.count > 1 && small) header.push_back(kEscape);
  if (!first && place.count > 1) header.push_back(kFunction2);
}

// An interpretation is six digits behind a backslash, other backslashes are doubled then.
CodeOneContent ContentOf(const Options& options, const Data& data) {
  CodeOneContent content;
  const bool escapes = options.eci != 0;
  AddHeader(options.placeInMessage, escapes, content);
  if (escapes) {
    for (const char character : '\\' + FixedDigits(options.eci, 6)) {
      content.characters.push_back(static_cast<unsigned char>(character));
    }
  }
  for (const DataCharacter character : data) {
    content.characters.push_back(character.value);
    if (escapes && character.value == '\\') content.characters.push_back(character.value);
  }
  return content;
}

}  // namespace

void EncodeCodeOne(const EncoderInput& input, Symbol& symbol) {
  const CodeOneContent content = ContentOf(input.options, input.data);
  const CodeOneMessage message = FindCodeOneMessage(content);
  for (const CodeOneVersion& version : CodeOneVersions()) {
    std::vector<std::uint16_t> words = message(version.dataWords);
    if (words.empty()) continue;
    DrawCodeOne(version, std::move(words), symbol);
    return SetTextLine(symbol, PrintableText(input.data));
  }
  throw Error(BC_E_DATATOOLONG);
}

}  // namespace Library
