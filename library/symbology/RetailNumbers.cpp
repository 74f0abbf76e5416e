// The retail numbers as people write them, made the digits of EAN and UPC symbols: main digits with
// the check digit or a place for it, then for an add-on a plus sign and its digits.
#include "library/Error.h"
#include "library/symbology/LinearEncoders.h"

#include <algorithm>

namespace Library {
namespace {

constexpr int kBookMethod = 35;  // ISBN-10 and ISSN
constexpr DataCharacter kMark = {kCheckDigitPlace, -1};

bool IsMark(const DataCharacter& character) {
  return character.value == kCheckDigitPlace;
}

[[noreturn]] void Refuse(const DataCharacter& character) {
  throw Error(BC_E_INVALIDDATA, DataIndex(character.source));
}

void RequireCharacters(const Data& data, const Options& options) {
  const CharacterSet& characters = FindSymbology(options.type)->characters;
  for (const DataCharacter character : data) {
    if (!IsMark(character) && !characters.contains(character.value)) Refuse(character);
  }
}

void RequireLength(std::size_t length, std::size_t shortest, std::size_t longest) {
  if (length > longest) throw Error(BC_E_DATATOOLONG);
  if (length < shortest) throw Error(BC_E_INVALIDDATA);
}

void Append(Data& data, std::string_view text) {
  for (const char character : text) {
    data.push_back({static_cast<std::uint16_t>(static_cast<unsigned char>(character)), -1});
  }
}

struct Split {
  Data main, addOn;
};

// Splits at a plus sign or a blank, else behind the place of the check digit, else by length.
Split SplitAddOn(const Data& data, std::size_t addOnDigits) {
  const auto isSeparator = [](const DataCharacter& character) {
    return character.value == '+' || character.value == ' ';
  };
  const auto separator = std::find_if(data.begin(), data.end(), isSeparator);
  if (separator != data.end()) {
    const auto second = std::find_if(separator + 1, data.end(), isSeparator);
    if (second != data.end()) Refuse(*second);
    return {{data.begin(), separator}, {separator + 1, data.end()}};
  }
  const auto mark = std::find_if(data.begin(), data.end(), IsMark);
  const auto end =
      mark != data.end()
          ? mark + 1
          : data.end() - static_cast<std::ptrdiff_t>(std::min(addOnDigits, data.size()));
  return {{data.begin(), end}, {end, data.end()}};
}

// Marks the place of a check digit that is not given.
void CompleteMain(Data& main, std::size_t length) {
  const auto marks = static_cast<std::size_t>(std::count_if(main.begin(), main.end(), IsMark));
  RequireLength(main.size() - marks, length - 1, length - (marks > 0 ? 1 : 0));
  if (marks > 1) throw Error(BC_E_INVALIDDATA);
  if (main.size() < length) main.push_back(kMark);
}

// `data` becomes the main digits and the add-on.
void Join(Split split, std::size_t addOnDigits, Data& data) {
  data = std::move(split.main);
  if (addOnDigits == 0) return;
  for (const DataCharacter character : split.addOn) {
    if (!character.isDigit()) Refuse(character);
  }
  RequireLength(split.addOn.size(), addOnDigits, addOnDigits);
  Append(data, "+");
  data.insert(data.end(), split.addOn.begin(), split.addOn.end());
}

// What of the type's fixed length is no main digit.
std::size_t AddOnDigitsOf(const Symbology& symbology) {
  if (symbology.check.mainLength == 0) return 0;
  return static_cast<std::size_t>(symbology.fixedLength - symbology.check.mainLength);
}

// Zeros that other endings of the short form leave out stand for another number, or for none.
void RequireShortForm(const Data& main) {
  const DataCharacter* const digits = &main[1];
  switch (digits[5].value) {
    case '0':
    case '1':
    case '2':
      return;
    case '3':
      if (digits[2].value <= '2') Refuse(digits[2]);
      return;
    case '4':
      if (digits[3].value == '0') Refuse(digits[3]);
      return;
    default:
      if (digits[4].value == '0') Refuse(digits[4]);
  }
}

// A check digit of ISBN-10 or ISSN at the end of `main`.
void RequireBookCheck(const Data& main, const Options& options) {
  const std::string digits = Bytes(main);
  const std::string expected =
      ComputeCheckDigits(kBookMethod, std::string_view(digits).substr(0, digits.size() - 1));
  if (options.autoCorrect <= 0 && digits.back() != expected.front()) Refuse(main.back());
}

// An X is a check digit of 10 and stands for nothing else.
void RequireXOnlyAt(const Data& main, std::size_t place) {
  for (std::size_t i = 0; i < main.size(); ++i) {
    if (main[i].value == 'X' && i != place) Refuse(main[i]);
  }
}

void RequirePrefix(const Data& main, std::string_view prefix, std::string_view otherLast) {
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    const bool last = i + 1 == prefix.size();
    const bool other = last && otherLast.find(static_cast<char>(main[i].value)) != otherLast.npos;
    if (main[i].value != prefix[i] && !other) Refuse(main[i]);
  }
}

// Prefix, the first `count` characters of `main`, `tail` and a place for the check digit.
Data EanOf(std::string_view prefix, const Data& main, std::size_t count, std::string_view tail) {
  Data ean;
  Append(ean, prefix);
  ean.insert(ean.end(), main.begin(), main.begin() + static_cast<std::ptrdiff_t>(count));
  Append(ean, tail);
  ean.push_back(kMark);
  return ean;
}

constexpr std::size_t kNowhere = std::string::npos;

Data IssnDigits(Data main, const Options& options) {
  std::erase_if(main, IsMark);
  const std::size_t length = main.size();
  RequireXOnlyAt(main, length == 8 || length == 10 ? 7 : kNowhere);
  switch (length) {
    case 7:
      return EanOf("977", main, 7, "00");
    case 8:
    case 10:
      RequireBookCheck(Data(main.begin(), main.begin() + 8), options);
      main.erase(main.begin() + 7);
      if (length == 8) Append(main, "00");
      return EanOf("977", main, 9, "");
    case 9:
      return EanOf("977", main, 9, "");
    case 12:
    case 13:
      RequirePrefix(main, "977", "");
      if (length == 12) main.push_back(kMark);
      return main;
    default:
      throw Error(length > 13 ? BC_E_DATATOOLONG : BC_E_INVALIDDATA);
  }
}

// Nine characters are an old number of that length when their check digit says so, else an ISBN-10
// without its check digit.
bool IsSbn(const Data& main) {
  const std::string digits = '0' + Bytes(main);
  return ComputeCheckDigits(kBookMethod, std::string_view(digits).substr(0, 9)).front() ==
         digits.back();
}

Data IsbnDigits(Data main, const Options& options) {
  const bool marked = std::any_of(main.begin(), main.end(), IsMark);
  std::erase_if(main, IsMark);
  const std::size_t length = main.size();
  const bool mayEndInX = !marked && (length == 9 || length == 10);
  RequireXOnlyAt(main, mayEndInX ? length - 1 : kNowhere);
  const bool sbn = length == 9 && !marked && (main.back().value == 'X' || IsSbn(main));
  if (sbn) main.insert(main.begin(), {'0', -1});
  if (main.size() == 10) RequireBookCheck(main, options);
  if (main.size() == 9 || main.size() == 10) return EanOf("978", main, 9, "");
  if (length != 12 && length != 13) {
    throw Error(length > 13 ? BC_E_DATATOOLONG : BC_E_INVALIDDATA);
  }
  RequirePrefix(main, "978", "9");
  if (length == 12) main.push_back(kMark);
  return main;
}

void RemoveCharacters(Data& data, std::string_view characters) {
  std::erase_if(data, [characters](const DataCharacter& character) {
    return character.isByte() &&
           characters.find(static_cast<char>(character.value)) != characters.npos;
  });
}

}  // namespace

void NormalizeAddOn(Data& data, const Options& options) {
  RequireCharacters(data, options);
  const Symbology& symbology = *FindSymbology(options.type);
  const std::size_t addOnDigits = AddOnDigitsOf(symbology);
  Split split = SplitAddOn(data, addOnDigits);
  CompleteMain(split.main, static_cast<std::size_t>(symbology.check.mainLength));
  Join(std::move(split), addOnDigits, data);
}

void NormalizeUpcE(Data& data, const Options& options) {
  RequireCharacters(data, options);
  const std::size_t addOnDigits = AddOnDigitsOf(*FindSymbology(options.type));
  Split split = addOnDigits > 0 ? SplitAddOn(data, addOnDigits) : Split{data, {}};
  Data& main = split.main;
  constexpr std::size_t kLength = 8, kWithoutSystem = 6;
  const auto marks = static_cast<std::size_t>(std::count_if(main.begin(), main.end(), IsMark));
  if (main.size() - marks == kWithoutSystem) main.insert(main.begin(), {'0', -1});
  if (!main.empty() && main.front().isDigit() && main.front().value > '1') Refuse(main.front());
  CompleteMain(main, kLength);
  RequireShortForm(main);
  Join(std::move(split), addOnDigits, data);
}

void NormalizeIssn(Data& data, const Options& options) {
  RemoveCharacters(data, "-");
  RequireCharacters(data, options);
  const std::size_t addOnDigits = AddOnDigitsOf(*FindSymbology(options.type));
  Split split = addOnDigits > 0 ? SplitAddOn(data, addOnDigits) : Split{data, {}};
  split.main = IssnDigits(std::move(split.main), options);
  Join(std::move(split), addOnDigits, data);
}

void NormalizeIsbn(Data& data, const Options& options) {
  RemoveCharacters(data, "- ");
  RequireCharacters(data, options);
  const auto plus =
      std::find_if(data.begin(), data.end(), [](const DataCharacter& c) { return c.value == '+'; });
  Split split = SplitAddOn(data, 0);
  std::size_t addOnDigits = 0;
  if (plus != data.end()) addOnDigits = split.addOn.size() > 2 ? 5 : 2;
  split.main = IsbnDigits(std::move(split.main), options);
  Join(std::move(split), addOnDigits, data);
}

}  // namespace Library
