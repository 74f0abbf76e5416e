#include "library/prepare/PostalFields.h"

#include "library/Error.h"
#include "library/prepare/CharacterSet.h"

#include <algorithm>
#include <string>

namespace Library {
namespace {

constexpr CharacterSet kLetters = CharacterSet::Range('A', 'Z');
constexpr CharacterSet kSmallLetters = CharacterSet::Range('a', 'z');

struct PlaceSet {
  char letter;
  CharacterSet characters;
};
constexpr PlaceSet kPlaceSets[] = {
    {'n', kDigits},
    {'z', kDigits | kLetters},
    {'a', kLetters},
    {'l', CharacterSet::Of("ABDEFGHJLNPQRSTUWXYZ")},
    {'x', kDigits | kLetters | kSmallLetters | CharacterSet::Of(" #")},
    {'f', CharacterSet::Range('0', '4')},
    {'v', CharacterSet::Range('1', '4')},
    {'c', kDigits | CharacterSet::Range('A', 'E')},
    {'s', CharacterSet::Range('0', '6')},
};

bool IsOfPlace(const DataCharacter& character, char place) {
  for (const PlaceSet& set : kPlaceSets) {
    if (set.letter == place) return set.characters.contains(character.value);
  }
  return character.value == static_cast<unsigned char>(place);
}

void Capitalize(Data& data, std::size_t count) {
  for (std::size_t i = 0; i < std::min(count, data.size()); ++i) {
    if (kSmallLetters.contains(data[i].value)) data[i].value ^= 'a' ^ 'A';
  }
}

void FillUp(Data& data, std::size_t length) {
  if (data.size() < length) data.resize(length, {' ', -1});
}

bool IsDigitAt(const Data& data, std::size_t place) {
  return data[place].isDigit();
}
bool IsBlankAt(const Data& data, std::size_t place) {
  return data[place].value == ' ';
}

// Places of the nine characters of a Mailmark's post code with its delivery point suffix. What is
// no post code is held against the form that it comes nearest to.
constexpr std::size_t kPostCodeLength = 9;
constexpr std::string_view kAbroad = "XY11     ";

std::string_view PostCodePlaces(const Data& data, std::size_t first) {
  if (data[first].value == 'X' && data[first + 1].value == 'Y' && data[first + 2].value == '1') {
    return kAbroad;
  }
  if (IsBlankAt(data, first + 7)) return "annllnl  ";
  if (!IsBlankAt(data, first + 8)) {
    return IsDigitAt(data, first + 3) ? "aannnllnl" : "aananllnl";
  }
  if (!IsDigitAt(data, first + 1)) return "aannllnl ";
  return IsDigitAt(data, first + 2) ? "annnllnl " : "ananllnl ";
}

// The first half of a post code, which may stand alone on a sheet.
std::string_view OutwardPlaces(const Data& code) {
  const bool four = code.size() == 4, three = code.size() >= 3;
  if (IsDigitAt(code, 1)) return three && !IsDigitAt(code, 2) ? "ana" : "ann";
  return four && !IsDigitAt(code, 3) ? "aana" : "aann";
}

Data WithoutBlanksBehind(const Data& data, std::size_t first, std::size_t length) {
  const auto begin = data.begin() + static_cast<std::ptrdiff_t>(first);
  Data code(begin, begin + static_cast<std::ptrdiff_t>(length));
  while (!code.empty() && code.back().value == ' ') code.pop_back();
  return code;
}

void CheckDestination(const Data& data, std::size_t first) {
  const Data code = WithoutBlanksBehind(data, first, kPostCodeLength);
  if (code.empty()) return;
  if (code.size() >= 2 && code.size() <= 4 && code.front().value != 'X') {
    return CheckPlaces(code, OutwardPlaces(code));
  }
  CheckPlaces(data, PostCodePlaces(data, first), first);
}

// A return address has a post code without suffix: it is checked with one.
void CheckReturnAddress(const Data& data, std::size_t first, std::size_t length) {
  Data code = WithoutBlanksBehind(data, first, length);
  if (code.empty()) return;
  code.push_back({'1', code.back().source});
  code.push_back({'A', code.back().source});
  FillUp(code, kPostCodeLength);
  CheckPlaces(code, PostCodePlaces(code, 0));
}

}  // namespace

void CheckPlaces(const Data& data, std::string_view places, std::size_t first) {
  for (std::size_t i = 0; i < places.size() && first + i < data.size(); ++i) {
    const DataCharacter& character = data[first + i];
    if (!IsOfPlace(character, places[i])) {
      throw Error(BC_E_INVALIDDATA, DataIndex(character.source));
    }
  }
}

void NormalizePostalLetters(Data& data, const Options&) {
  std::erase_if(data, [](const DataCharacter& character) { return character.value == ' '; });
  Capitalize(data, data.size());
}

void NormalizeAustraliaPost(Data& data, const Options&) {
  CheckPlaces(data, "nnnnnnnnxxxxxxxxxxxxxxx");
}

void NormalizeIntelligentMail(Data& data, const Options&) {
  constexpr std::size_t kTrackingLength = 20;
  if (data.size() > kTrackingLength && data[kTrackingLength].value == '-') {
    data.erase(data.begin() + kTrackingLength);
  }
  CheckPlaces(data, "nfnnnnnnnnnnnnnnnnnnnnnnnnnnnnn");
}

void NormalizeMailmark(Data& data, const Options&) {
  constexpr std::size_t kLengthC = 22, kLengthL = 26;
  constexpr std::string_view kPlacesC = "fvcnnnnnnnnnn", kPlacesL = "fvcnnnnnnnnnnnnnn";
  if (data.size() > kLengthL) return;
  Capitalize(data, data.size());
  const bool small = data.size() <= kLengthC;
  FillUp(data, small ? kLengthC : kLengthL);
  CheckPlaces(data, small ? kPlacesC : kPlacesL);
  const std::size_t postCode = data.size() - kPostCodeLength;
  CheckPlaces(data, PostCodePlaces(data, postCode), postCode);
}

void NormalizeMailmarkMatrix(Data& data, const Options&) {
  constexpr std::string_view kCountry = "JGB ";
  constexpr std::string_view kPlaces = "JGB z1znnnnnnnnnnnnnnn";
  constexpr std::size_t kService = 31, kReturnCode = 32, kReturnLength = 7, kReserved = 39;
  constexpr std::size_t kFixedLength = 45;
  Capitalize(data, kReserved);
  const bool marked = data.size() >= kCountry.size() && data[0].value == 'J' &&
                      data[1].value == 'G' && data[2].value == 'B' && data[3].value == ' ';
  if (!marked) {
    data.insert(data.begin(), kCountry.size(), {});
    for (std::size_t i = 0; i < kCountry.size(); ++i) {
      data[i].value = static_cast<unsigned char>(kCountry[i]);
    }
  }
  FillUp(data, kFixedLength);
  CheckPlaces(data, kPlaces);
  CheckDestination(data, kPlaces.size());
  CheckPlaces(data, "s", kService);
  CheckReturnAddress(data, kReturnCode, kReturnLength);
  CheckPlaces(data, "      ", kReserved);
}

}  // namespace Library
