#include "library/prepare/LogisticsNumbers.h"

#include "library/Error.h"
#include "library/prepare/CharacterSet.h"

#include <algorithm>
#include <string_view>

namespace Library {
namespace {

constexpr CharacterSet kCapitals = CharacterSet::Range('A', 'Z');
constexpr CharacterSet kSmallLetters = CharacterSet::Range('a', 'z');

bool BeginsWith(const Data& data, std::string_view text) {
  return data.size() >= text.size() &&
         std::equal(text.begin(), text.end(), data.begin(),
                    [](char wanted, const DataCharacter& given) { return given.value == wanted; });
}

// `longest`: of the number without the identifier.
void RemoveIdentifier(Data& data, std::string_view inParentheses, std::size_t longest) {
  const std::string_view bare = inParentheses.substr(1, inParentheses.size() - 2);
  std::size_t length = 0;
  if (BeginsWith(data, inParentheses)) {
    length = inParentheses.size();
  } else if (data.size() > longest && BeginsWith(data, bare)) {
    length = bare.size();
  }
  data.erase(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(length));
}

void Require(bool good, const DataCharacter& character) {
  if (!good) throw Error(BC_E_INVALIDDATA, DataIndex(character.source));
}

bool IsPlace(const DataCharacter& character) {
  return character.value == kCheckDigitPlace;
}

}  // namespace

void RemoveSsccIdentifier(Data& data, const Options&) {
  RemoveIdentifier(data, "(00)", 18);
}

void RemoveGtinIdentifier(Data& data, const Options&) {
  RemoveIdentifier(data, "(01)", 14);
}

void NormalizeDpd(Data& data, const Options&) {
  constexpr std::size_t kLength = 28;
  constexpr CharacterSet kPrintable = CharacterSet::Range(0x20, 0x7E);
  std::erase_if(data, IsPlace);  // the check character is in the text alone
  const bool marked = data.size() != kLength - 1;
  for (std::size_t i = 0; i < data.size(); ++i) {
    std::uint16_t& value = data[i].value;
    if (i == 0 && marked) {
      Require(kPrintable.contains(value), data[i]);
      continue;
    }
    if (kSmallLetters.contains(value)) value = static_cast<std::uint16_t>(value - 'a' + 'A');
    Require(data[i].isDigit() || kCapitals.contains(value), data[i]);
  }
  if (!marked) data.insert(data.begin(), {'%', -1});
}

void CheckUpuS10(Data& data, const Options&) {
  constexpr std::size_t kFirstDigit = 2, kCheckPlace = 10;
  std::erase_if(data, IsPlace);  // the check digit has its place
  for (std::size_t i = 0; i < data.size(); ++i) {
    const bool letter = kCapitals.contains(data[i].value);
    const bool digitHere = i >= kFirstDigit && i <= kCheckPlace;
    const bool letterHere = i < kFirstDigit || i >= kCheckPlace;
    Require((digitHere && data[i].isDigit()) || (letterHere && letter), data[i]);
  }
}

}  // namespace Library
