#include "library/prepare/Gs1.h"

#include "library/Error.h"
#include "library/prepare/CharacterSet.h"
#include "library/prepare/CheckDigits.h"
#include "library/prepare/Gs1Identifiers.h"

#include <algorithm>
#include <charconv>

namespace Library {
namespace {

constexpr int kMod10 = 2;

constexpr CharacterSet kSet39 = kDigits | CharacterSet::Range('A', 'Z') | CharacterSet::Of("#-/");
constexpr CharacterSet kSet64 = kDigits | CharacterSet::Range('A', 'Z') |
                                CharacterSet::Range('a', 'z') | CharacterSet::Of("-_=");

const CharacterSet& SetOf(char letter) {
  switch (letter) {
    case 'N':
      return kDigits;
    case 'Y':
      return kSet39;
    case 'Z':
      return kSet64;
    default:
      return kGs1Characters;
  }
}

[[noreturn]] void Refuse(const DataCharacter& character) {
  throw Error(BC_E_INVALIDDATA, DataIndex(character.source));
}

// One part of an identifier's content; Gs1Identifiers.h has the grammar.
struct Part {
  char letter = 'X';
  bool upTo = false, optional = false, checkDigit = false, date = false;
  std::size_t length = 0;
};

// Cuts the first part off `content`.
Part TakePart(std::string_view& content) {
  Part part;
  part.letter = content.front();
  content.remove_prefix(1);
  part.upTo = content.starts_with("..");
  if (part.upTo) content.remove_prefix(2);
  const char* const end = content.data() + content.size();
  const auto number = std::from_chars(content.data(), end, part.length);
  content.remove_prefix(static_cast<std::size_t>(number.ptr - content.data()));
  for (; !content.empty() && content.front() != ' '; content.remove_prefix(1)) {
    part.checkDigit |= content.front() == 'c';
    part.date |= content.front() == 'd';
    part.optional |= content.front() == '?';
  }
  if (!content.empty()) content.remove_prefix(1);
  return part;
}

using Iterator = Data::iterator;

int TwoDigits(Iterator at) {
  return (at[0].value - '0') * 10 + at[1].value - '0';
}

void CheckDate(Iterator begin) {
  constexpr int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const int year = TwoDigits(begin);
  const int month = TwoDigits(begin + 2);
  const int day = TwoDigits(begin + 4);
  if (month < 1 || month > 12) Refuse(begin[2]);
  const bool shortFebruary = month == 2 && year % 4 != 0;
  if (day > kDays[month - 1] - (shortFebruary ? 1 : 0)) Refuse(begin[4]);
}

void CheckCheckDigit(Iterator begin, Iterator end, bool autoCorrect) {
  DataCharacter& given = *(end - 1);
  const std::string expected = ComputeCheckDigits(kMod10, Bytes(Data(begin, end - 1)));
  const auto value = static_cast<std::uint16_t>(expected.front());
  if (given.value != value && !autoCorrect) Refuse(given);
  given.value = value;
}

// Verifies the value [begin, end) of the identifier that stands at `identifier`.
void CheckValue(Iterator begin, Iterator end, std::string_view content,
                const DataCharacter& identifier, bool autoCorrect) {
  Iterator at = begin;
  while (!content.empty()) {
    const Part part = TakePart(content);
    const auto left = static_cast<std::size_t>(end - at);
    if (left == 0 && part.optional) continue;
    if (left == 0 || (left < part.length && !part.upTo)) Refuse(identifier);
    const Iterator partEnd = at + static_cast<std::ptrdiff_t>(std::min(left, part.length));
    const CharacterSet& characters = SetOf(part.letter);
    for (Iterator it = at; it != partEnd; ++it) {
      if (!characters.contains(it->value)) Refuse(*it);
    }
    if (part.date) CheckDate(at);
    if (part.checkDigit) CheckCheckDigit(at, partEnd, autoCorrect);
    at = partEnd;
  }
  if (at != end) Refuse(*at);
}

// The characters from `begin` on that may be an identifier, at most four.
std::string IdentifierText(Data::const_iterator begin, Data::const_iterator end) {
  std::string text;
  for (; begin != end && text.size() < 4 && begin->isDigit(); ++begin) {
    text += static_cast<char>(begin->value);
  }
  return text;
}

// The identifier in parentheses at `at`, null: none.
const ApplicationIdentifier* BracketedIdentifier(Data::const_iterator at,
                                                 Data::const_iterator end) {
  if (at == end || at->value != '(') return nullptr;
  const std::string text = IdentifierText(at + 1, end);
  const ApplicationIdentifier* const found = FindApplicationIdentifier(text);
  if (found == nullptr || static_cast<int>(text.size()) != found->digits) return nullptr;
  const auto close = at + 1 + found->digits;
  return close != end && close->value == ')' ? found : nullptr;
}

void AppendElementText(std::string& text, Data::const_iterator begin, Data::const_iterator end,
                       int identifierDigits) {
  text += '(';
  AppendPrintable(text, begin, begin + identifierDigits);
  text += ')';
  AppendPrintable(text, begin + identifierDigits, end);
}

class BracketedParser {
 public:
  BracketedParser(Data source, bool correct)
      : data(std::move(source)), at(data.begin()), autoCorrect(correct) {}

  ElementString parse() {
    while (at != data.end()) element();
    return std::move(result);
  }

 private:
  void element() {
    const ApplicationIdentifier* const found = BracketedIdentifier(at, data.end());
    // Points at the identifier's first digit where there is one.
    if (found == nullptr) Refuse(at + 1 == data.end() ? *at : at[1]);
    const Iterator identifier = at + 1;
    const Iterator value = identifier + found->digits + 1;
    const Iterator end = valueEnd(value);
    CheckValue(value, end, found->content, *identifier, autoCorrect);
    append(identifier, found->digits, value, end);
    at = end;
    // A separator may be written but need not be.
    if (at != data.end() && at->value == kFnc1) ++at;
  }

  Iterator valueEnd(Iterator value) {
    return std::find_if(value, data.end(), [this](const DataCharacter& character) {
      const auto place = data.begin() + (&character - data.data());
      return character.value == kFnc1 || BracketedIdentifier(place, data.end()) != nullptr;
    });
  }

  void append(Iterator identifier, int digits, Iterator value, Iterator end) {
    if (separatorDue) result.data.push_back({kFnc1, -1});
    const std::string number = IdentifierText(identifier, identifier + digits);
    separatorDue = PredefinedLength(number) == 0;
    const auto start = static_cast<std::ptrdiff_t>(result.data.size());
    result.data.insert(result.data.end(), identifier, identifier + digits);
    result.data.insert(result.data.end(), value, end);
    AppendElementText(result.text, result.data.begin() + start, result.data.end(), digits);
  }

  Data data;
  Iterator at;
  bool autoCorrect;
  bool separatorDue = false;
  ElementString result;
};

// The text of one raw field: as elements for as long as they can be told apart.
void AppendFieldText(std::string& text, Data::const_iterator at, Data::const_iterator end) {
  while (at != end) {
    const std::string digits = IdentifierText(at, end);
    const ApplicationIdentifier* const found = FindApplicationIdentifier(digits);
    const auto left = static_cast<int>(end - at);
    if (found == nullptr || found->digits >= left) break;
    const int predefined = PredefinedLength(digits);
    const int length = predefined == 0 ? left : predefined;
    if (length > left) break;
    AppendElementText(text, at, at + length, found->digits);
    at += length;
  }
  AppendPrintable(text, at, end);
}

bool IsSeparator(const DataCharacter& character) {
  return character.value == kFnc1;
}
// Data that were scanned once have GS for FNC1.
bool IsFieldEnd(const DataCharacter& character) {
  constexpr std::uint16_t kGroupSeparator = 0x1D;
  return IsSeparator(character) || character.value == kGroupSeparator;
}
bool IsCodeSet(const DataCharacter& character) {
  return !character.isByte() && !character.isFunction();
}

// Takes the separators away that the encoder writes itself (in front) or that nothing follows.
void TrimSeparators(Data& data) {
  const auto first = std::find_if_not(data.begin(), data.end(), IsCodeSet);
  if (first != data.end() && IsSeparator(*first)) data.erase(first);
  const auto last = std::find_if_not(data.rbegin(), data.rend(), IsCodeSet);
  if (last != data.rend() && IsSeparator(*last)) data.erase(std::next(last).base());
}

ElementString ParseRaw(const Data& data) {
  ElementString result{data, {}};
  TrimSeparators(result.data);
  Data plain = result.data;
  std::erase_if(plain, IsCodeSet);
  for (auto field = plain.cbegin();;) {
    const auto fieldEnd = std::find_if(field, plain.cend(), IsSeparator);
    if (field == fieldEnd)
      throw Error(BC_E_INVALIDDATA, DataIndex(field == plain.cend() ? -1 : field->source));
    AppendFieldText(result.text, field, fieldEnd);
    if (fieldEnd == plain.cend()) return result;
    field = fieldEnd + 1;
  }
}

}  // namespace

ElementString ParseElementString(const Data& data, bool autoCorrect) {
  for (const DataCharacter& character : data) {
    if (character.isFunction() && character.value != kFnc1) Refuse(character);
  }
  const auto first = std::find_if_not(data.begin(), data.end(), IsCodeSet);
  if (first == data.end() || first->value != '(') return ParseRaw(data);
  Data plain = data;
  std::erase_if(plain, IsCodeSet);
  return BracketedParser(std::move(plain), autoCorrect).parse();
}

bool BeginsElement(const Data& data, std::size_t at) {
  if (at == 0 || IsFieldEnd(data[at - 1])) return true;
  const auto place = data.begin() + static_cast<std::ptrdiff_t>(at);
  return data.front().value == '(' && BracketedIdentifier(place, data.end()) != nullptr;
}

}  // namespace Library
