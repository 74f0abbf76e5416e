// The linear symbols of the Code 128 family.
#include "library/Error.h"
#include "library/prepare/Gs1.h"
#include "library/symbology/Code128.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

namespace Library {
namespace {

// GS1 General Specifications 5.4: identifiers, data and separators of one GS1-128 symbol, the FNC1
// in front not counted.
constexpr std::size_t kMaxGs1Characters = 48;

void Draw(const Data& data, std::string text, Symbol& symbol) {
  std::vector<std::uint8_t> values = Code128Values(data);
  const std::uint8_t check = Code128CheckCharacter(values);
  values.push_back(check);
  values.push_back(kCode128Stop);
  LinearRow row;
  row.reserve(6 * values.size() + 1);
  for (const std::uint8_t value : values) row.append(Code128Pattern(value));
  std::move(row).finish(symbol);
  SetTextLine(symbol, std::move(text));
  // The check character is none of the data characters: its value, as text.
  symbol.checkDigits = std::to_string(check);
}

}  // namespace

void EncodeCode128(const EncoderInput& input, Symbol& symbol) {
  Draw(input.data, PrintableText(input.data), symbol);
}

void EncodeGs1Code128(const EncoderInput& input, Symbol& symbol) {
  ElementString elements = ParseElementString(input.data, input.options.autoCorrect > 0);
  if (elements.data.size() > kMaxGs1Characters) throw Error(BC_E_DATATOOLONG);
  Data& data = elements.data;
  // Behind the switches that stand in front, so that they order the start character.
  std::size_t front = 0;
  while (data[front].value >= kCodeSetA) ++front;
  data.insert(data.begin() + static_cast<std::ptrdiff_t>(front), {kFnc1, -1});
  Draw(data, std::move(elements.text), symbol);
}

}  // namespace Library
