#include "library/prepare/Prepare.h"

#include "library/Error.h"
#include "library/prepare/Compression.h"
#include "library/prepare/Escapes.h"
#include "library/prepare/FormatString.h"

#include <algorithm>

namespace Library {
namespace {

constexpr std::uint16_t kGroupSeparator = 0x1D;

bool TakesFunctionCharacters(const Symbology& symbology, const Options& options) {
  return symbology.family.functionCharacters || TakesGs1(symbology, options);
}
// The number sign is in the set of one identifier alone, and not among the 82.
constexpr CharacterSet kElementCharacters = kGs1Characters | CharacterSet::Of("#");

bool IsCheckDigitPlace(const DataCharacter& character) {
  return character.value == kCheckDigitPlace;
}

Data SourceData(const Options& options, bool functionCharacters) {
  if (!options.translateEscapes) return RawData(options.data);
  return TranslateEscapes(options.data, functionCharacters && options.compression == 0
                                            ? FunctionCharacters::kOctal
                                            : FunctionCharacters::kNone);
}

void CheckCharacters(Data& data, const CharacterSet& characters, bool functionCharacters,
                     bool gs1) {
  for (DataCharacter& character : data) {
    // Data that went through a scanner once separate their fields by GS.
    if (gs1 && character.value == kGroupSeparator) character.value = kFnc1;
    const bool good = character.isByte() ? characters.contains(character.value)
                                         : functionCharacters || !character.isFunction();
    if (!good) throw Error(BC_E_INVALIDDATA, DataIndex(character.source));
  }
}

void CheckLength(const Data& data, const Symbology& symbology) {
  const auto marks = std::count_if(data.begin(), data.end(), IsCheckDigitPlace);
  const auto length = std::count_if(data.begin(), data.end(), [](const DataCharacter& character) {
    return character.isByte() || character.isFunction();
  });
  // A check digit still to come counts where it belongs to the data.
  const bool counted = symbology.check.kind == CheckKind::kLast;
  if (length + (counted ? marks : 0) > symbology.maxLength) throw Error(BC_E_DATATOOLONG);
  if (length < symbology.minLength) throw Error(BC_E_INVALIDDATA);
}

void Insert(Data& data, Data::difference_type place, const std::string& digits) {
  Data added = RawData(digits);
  for (DataCharacter& character : added) character.source = -1;
  data.insert(data.begin() + place, added.begin(), added.end());
}

// The last place of `data` holds a check digit: verifies or corrects it.
std::string VerifyLast(Data& data, int method, bool autoCorrect) {
  const DataCharacter given = data.back();
  data.pop_back();
  const std::string expected = CheckDigitsOf(data, method);
  const auto value = static_cast<std::uint16_t>(static_cast<unsigned char>(expected.front()));
  if (given.value != value && !autoCorrect) throw Error(BC_E_INVALIDDATA, DataIndex(given.source));
  data.push_back({value, given.source});
  return expected;
}

// Makes or verifies the check digits of data without an add-on.
std::string CompleteCheckDigits(Data& data, int method, int fixedLength, const Symbology& symbology,
                                bool autoCorrect) {
  const bool last = symbology.check.kind == CheckKind::kLast;
  const auto mark = std::find_if(data.begin(), data.end(), IsCheckDigitPlace);
  const bool marked = mark != data.end();
  const auto place = mark - data.begin();
  std::erase_if(data, IsCheckDigitPlace);
  const bool given = last && !marked && static_cast<int>(data.size()) == fixedLength;
  if (given) return VerifyLast(data, method, autoCorrect);

  const std::string digits = CheckDigitsOf(data, method);
  Insert(data, place, digits);
  // A format string may have put the check digit where the symbology does not look for it.
  if (last) VerifyLast(data, method, false);
  return digits;
}

std::string ApplyCheckDigits(Data& data, const Symbology& symbology, const Options& options) {
  const CheckRule& rule = symbology.check;
  const bool standard = options.checkDigitMethod == 1 || rule.kind == CheckKind::kLast;
  const int method = standard ? rule.standardMethod : options.checkDigitMethod;
  const bool byEncoder =
      rule.kind == CheckKind::kBuiltIn || rule.kind == CheckKind::kOptionalBuiltIn;
  if (byEncoder || method == 0) {
    std::erase_if(data, IsCheckDigitPlace);
    return {};
  }
  if (rule.mainLength == 0) {
    return CompleteCheckDigits(data, method, symbology.fixedLength, symbology,
                               options.autoCorrect > 0);
  }
  const auto addOn = std::find_if(data.begin(), data.end(), [](const DataCharacter& character) {
    return character.value == '+';
  });
  const Data tail(addOn, data.end());
  data.erase(addOn, data.end());
  std::string digits =
      CompleteCheckDigits(data, method, rule.mainLength, symbology, options.autoCorrect > 0);
  data.insert(data.end(), tail.begin(), tail.end());
  return digits;
}

}  // namespace

const CharacterSet& CharactersOf(const Symbology& symbology, const Options& options) {
  const bool elements = TakesGs1(symbology, options) && !symbology.family.ownElementCharacters;
  return elements ? kElementCharacters : symbology.characters;
}

std::string CheckDigitsOf(const Data& data, int method) {
  try {
    return ComputeCheckDigits(method, Bytes(data));
  } catch (const Error& error) {
    if (!error.position.known()) throw;
    throw Error(error.code, DataIndex(data[static_cast<std::size_t>(error.position.value)].source));
  }
}

Data MessageOf(const Options& options, const Symbology& symbology) {
  Data data = SourceData(options, TakesFunctionCharacters(symbology, options));
  if (options.compression == 0) return data;
  if (!(CharactersOf(symbology, options) == kAllBytes)) throw Error(BC_E_NOTSUPPORTED);
  return Compress(data, options.compression);
}

PreparedData Prepare(const Options& options, const Symbology& symbology, Data data) {
  if (!symbology.check.methods.allow(options.checkDigitMethod)) throw Error(BC_E_INVALIDARG);
  if (!options.format.empty()) {
    data = ApplyFormat(data, options.format, symbology.family.codeSets,
                       static_cast<int>(options.data.size()));
  }
  Data given;
  if (symbology.normalize != nullptr) {
    given = data;
    symbology.normalize(data, options);
  }
  CheckCharacters(data, CharactersOf(symbology, options),
                  TakesFunctionCharacters(symbology, options), TakesGs1(symbology, options));
  CheckLength(data, symbology);
  std::string checkDigits = ApplyCheckDigits(data, symbology, options);
  return {std::move(data), std::move(given), std::move(checkDigits)};
}

}  // namespace Library
