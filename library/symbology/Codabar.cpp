// Codabar with two widths (EN 798).
#include "library/Error.h"
#include "library/prepare/Prepare.h"
#include "library/symbology/Linear.h"
#include "library/symbology/LinearEncoders.h"

#include <iterator>

namespace Library {
namespace {

constexpr std::string_view kAlphabet = "0123456789-$:/.+ABCD";
constexpr std::string_view kGap = "1";

// Wide elements are drawn 2 modules wide.
constexpr std::string_view kPatterns[] = {
    "1111122", "1111221", "1112112", "2211111", "1121121",  // 0 to 4
    "2111121", "1211112", "1211211", "1221111", "2112111",  // 5 to 9
    "1112211", "1122111", "2111212", "2121112", "2121211",  // - $ : / .
    "1121212", "1122121", "1212112", "1112122", "1112221",  // + A to D
};
static_assert(std::size(kPatterns) == kAlphabet.size());

constexpr DataCharacter kDefaultFrame = {'A', -1};
constexpr int kMod16 = 23;

bool IsFrame(const DataCharacter& character) {
  return character.value >= 'A' && character.value <= 'D';
}

[[noreturn]] void Refuse(const DataCharacter& character) {
  throw Error(BC_E_INVALIDDATA, DataIndex(character.source));
}

// Letters start and stop a symbol and are nowhere else.
void RequireFrame(const Data& data) {
  for (std::size_t i = 0; i < data.size(); ++i) {
    const bool end = i == 0 || i + 1 == data.size();
    if (!end && IsFrame(data[i])) Refuse(data[i]);
    if (!end || IsFrame(data[i])) continue;
    if (kCodabarCharacters.contains(data[i].value)) Refuse(data[i]);
  }
}

}  // namespace

void NormalizeCodabar(Data& data, const Options&) {
  std::erase_if(data, [](const DataCharacter& c) { return c.value == kCheckDigitPlace; });
  if (data.empty()) return;
  for (DataCharacter& character : data) {
    if (character.value >= 'a' && character.value <= 'd') character.value -= 'a' - 'A';
  }
  for (const DataCharacter character : data) {
    if (!character.isByte() || !kCodabarCharacters.contains(character.value)) Refuse(character);
  }
  if (!IsFrame(data.front()) && !IsFrame(data.back())) {
    data.insert(data.begin(), kDefaultFrame);
    data.push_back(kDefaultFrame);
  }
  RequireFrame(data);
}

void EncodeCodabar(const EncoderInput& input, Symbol& symbol) {
  std::string code = Bytes(input.data);
  const int method = input.options.checkDigitMethod;
  if (method > 1) {
    // Others than Codabar's own know digits alone.
    const bool framed = method == kMod16;
    symbol.checkDigits = CheckDigitsOf(
        framed ? input.data : Data(input.data.begin() + 1, input.data.end() - 1), method);
    code.insert(code.size() - 1, symbol.checkDigits);
  }
  LinearRow row;
  for (const char character : code) {
    if (row.width() > 0) row.append(kGap);
    row.append(kPatterns[kAlphabet.find(character)]);
  }
  std::move(row).finish(symbol);
  // Start and stop are shown where they were given.
  const bool given = IsFrame(input.data.front()) && input.data.front().source >= 0;
  SetTextLine(symbol, given ? code : code.substr(1, code.size() - 2));
}

}  // namespace Library
