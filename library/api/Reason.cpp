#include "library/api/Reason.h"

#include "library/symbology/Encode.h"

#include <algorithm>
#include <vector>

namespace Library {
namespace {

std::string Joined(const std::vector<std::string>& parts) {
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) text += i + 1 == parts.size() ? " and " : ", ";
    text += parts[i];
  }
  return text;
}

struct Group {
  const char* name;
  int first, last;
};
constexpr Group kGroups[] = {
    {"digits", '0', '9'}, {"capital letters", 'A', 'Z'}, {"small letters", 'a', 'z'}};

constexpr struct {
  CharacterSet set;
  const char* name;
} kKnownSets[] = {{CharacterSet::Range(0, 127), "ASCII characters"},
                  {CharacterSet::Range(32, 127), "printable ASCII characters"},
                  {CharacterSet::Range(32, 126), "printable ASCII characters"},
                  {CharacterSet::Range(0, 95), "ASCII characters but small letters"}};

// "digits, capital letters (not O) and -+"
std::string Described(const CharacterSet& set) {
  for (const auto& [known, name] : kKnownSets)
    if (set == known) return name;
  constexpr int kFewMissing = 5;
  std::vector<std::string> parts;
  std::string others;
  for (const Group& group : kGroups) {
    std::string present, missing;
    for (int c = group.first; c <= group.last; ++c)
      (set.contains(c) ? present : missing) += static_cast<char>(c);
    if (missing.size() > kFewMissing) {
      others += present;
    } else {
      parts.push_back(group.name);
      if (!missing.empty()) parts.back() += " (not " + missing + ')';
    }
  }
  if (set.contains(' ')) parts.push_back("blanks");
  for (int c = '!'; c <= '~'; ++c) {
    const bool grouped = std::ranges::any_of(
        kGroups, [c](const Group& group) { return group.first <= c && c <= group.last; });
    if (!grouped && set.contains(c)) others += static_cast<char>(c);
  }
  if (!others.empty()) parts.push_back(others);
  return Joined(parts);
}

std::string Quoted(unsigned char character) {
  constexpr char kHexadecimal[] = "0123456789ABCDEF";
  std::string text = "'";
  if (character < 0x20 || character > 0x7E) {
    text += {'\\', 'x', kHexadecimal[character >> 4], kHexadecimal[character & 15]};
  } else {
    if (character == '\\' || character == '\'') text += '\\';
    text += static_cast<char>(character);
  }
  return text + '\'';
}

// "('A' at 5)"; the place alone where the character is in no data.
std::string Offender(const std::string& data, DataIndex index) {
  const auto at = static_cast<std::size_t>(index.value);
  const std::string place = std::to_string(index.value + 1);
  if (at >= data.size()) return "(at " + place + ')';
  return '(' + Quoted(static_cast<unsigned char>(data[at])) + " at " + place + ')';
}

std::string Counted(int count, const char* things) {
  return std::to_string(count) + ' ' + things + (count == 1 ? "" : "s");
}

// "12 or 13 digits"
std::string LengthsOf(const Symbology& symbology) {
  const char* const things = symbology.characters == kDigits ? "digit" : "character";
  const int least = symbology.minLength;
  const std::string most = Counted(symbology.maxLength, things);
  if (least == symbology.maxLength) return most;
  if (least == 1) return "up to " + most;
  return std::to_string(least) + (least + 1 == symbology.maxLength ? " or " : " to ") + most;
}

bool CanBeEncoded(const Options& options) {
  try {
    Encode(options);
    return true;
  } catch (const Error&) {
    return false;
  }
}

// The digit that would have been right there, and no other, as is so of check digits wherever in
// the data they stand; empty when there is none.
std::string ExpectedDigit(const Options& options, const Symbology& symbology, std::size_t at) {
  constexpr std::size_t kLongestTried = 200;
  const bool checked = symbology.check.standardMethod != 0 || TakesGs1(symbology, options);
  if (!checked || at >= options.data.size() || options.data.size() > kLongestTried) return {};
  Options changed = options;
  std::string right;
  for (char digit = '0'; digit <= '9'; ++digit) {
    changed.data[at] = digit;
    if (CanBeEncoded(changed)) right += digit;
  }
  return right.size() == 1 ? right : std::string();
}

std::string WrongCharacter(const BCBarcode& barcode, const Symbology& symbology, DataIndex index) {
  const Options& options = barcode.options;
  const std::string name(symbology.name);
  const std::string offender = ' ' + Offender(options.data, index);
  const CharacterSet& characters = CharactersOf(symbology, options);
  const auto at = static_cast<std::size_t>(index.value);
  if (at < options.data.size() &&
      !characters.contains(static_cast<unsigned char>(options.data[at])))
    return name + " takes " + Described(characters) + " only" + offender;
  if (const std::string digit = ExpectedDigit(options, symbology, at); !digit.empty())
    return "the check digit of this " + name + " should be " + digit + offender;
  return "invalid data for " + name + offender;
}

std::string WrongLength(const BCBarcode& barcode, const Symbology& symbology) {
  const std::string name(symbology.name);
  const auto length = static_cast<int>(barcode.options.data.size());
  const std::string given = " (" + std::to_string(length) + " given)";
  // Hyphens, element strings, escapes and the like count otherwise, and encoders know closer
  // limits.
  if (length < symbology.minLength || length > symbology.maxLength)
    return name + " takes " + LengthsOf(symbology) + given;
  return "these data do not have the right length for " + name + given;
}

std::string TooMuch(const BCBarcode& barcode, const Symbology& symbology) {
  if (symbology.fixedLength > 0) return WrongLength(barcode, symbology);
  return "too much data for one " + std::string(symbology.name) +
         ", or for the size that is set for it (" +
         Counted(static_cast<int>(barcode.options.data.size()), "character") + ')';
}

std::string NotSupported(const Options& options, const Symbology& symbology) {
  const std::string name(symbology.name);
  if (symbology.encoder == nullptr) return "barcodes of type " + name + " can't be made";
  if (options.compositeType != 0 && symbology.composite == nullptr)
    return name + " has no composite component";
  if (options.eci != 0 && !symbology.family.eci) return name + " takes no ECI number";
  if (options.compression != 0 && !(CharactersOf(symbology, options) == kAllBytes))
    return name + " can't hold compressed data";
  return name + " can't be made with these options";
}

std::string WrongArgument(const Options& options, const Symbology& symbology) {
  if (!symbology.check.methods.allow(options.checkDigitMethod))
    return std::string(symbology.name) + " has no check digit method " +
           std::to_string(options.checkDigitMethod);
  return std::string(symbology.name) + " can't be made with these options";
}

}  // namespace

std::string ReasonOf(const BCBarcode& barcode, BCResult code) {
  const Options& options = barcode.options;
  const Symbology* const symbology = FindSymbology(options.type);
  const DataIndex index = barcode.lastError.position;
  if (symbology == nullptr || barcode.lastError.code != code) return {};
  const std::string name(symbology->name);
  if (barcode.lastError.inComposite && code == BC_E_INVALIDDATA)
    return "the data of the composite component are wrong" +
           (index.known() ? ' ' + Offender(options.data, index) : std::string());
  switch (code) {
    case BC_E_INVALIDDATA:
      return index.known() ? WrongCharacter(barcode, *symbology, index)
                           : WrongLength(barcode, *symbology);
    case BC_E_DATATOOLONG:
      return TooMuch(barcode, *symbology);
    case BC_E_NOTSUPPORTED:
      return NotSupported(options, *symbology);
    case BC_E_INVALIDARG:
      return WrongArgument(options, *symbology);
    case BC_E_MUSTFIT:
      return name + " does not fit into its place, and 'mustfit' is on";
    case BC_E_MODULENOTFOUND:
      return "libzint or zlib, one of which " + name + " needs, is not installed";
    default:
      return {};
  }
}

}  // namespace Library
