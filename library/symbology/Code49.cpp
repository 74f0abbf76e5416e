// Code 49 (ANSI/AIM BC6) by libzint.
#include "library/Error.h"
#include "library/prepare/CharacterSet.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/ZintSymbol.h"

#include <utility>

namespace Library {
namespace {

SymbolRow Separator(int width) {
  return {{width}, 1};
}

// Characters that are written as a shift and a digit. libzint takes such a digit for one of the
// data when it looks for five in a row to pack, and then packs it without its shift.
constexpr CharacterSet kShiftedDigits = CharacterSet::Range(0x1B, 0x1F) |
                                        CharacterSet::Of("!\"#&'") | CharacterSet::Range(';', '@') |
                                        CharacterSet::Range('[', '^');

bool IsMistaken(const Data& data) {
  constexpr int kPacked = 5;
  int digits = 0;
  for (const DataCharacter character : data) {
    const bool shifted = kShiftedDigits.contains(character.value);
    digits = shifted ? 1 : character.isDigit() && digits > 0 ? digits + 1 : 0;
    if (digits == kPacked) return true;
  }
  return false;
}

}  // namespace

void EncodeCode49(const EncoderInput& input, Symbol& symbol) {
  if (IsMistaken(input.data)) throw Error(BC_E_NOTSUPPORTED);
  ZintSymbol encoded(BARCODE_CODE49);
  encoded.encode(Bytes(input.data));
  Symbol bare;
  encoded.copyRows(bare, 0);
  symbol.width = bare.width;
  symbol.rows.reserve(bare.rows.size() * 2 + 1);
  symbol.rows.push_back(Separator(bare.width));
  for (SymbolRow& row : bare.rows) {
    symbol.rows.push_back(std::move(row));
    symbol.rows.push_back(Separator(bare.width));
  }
  SetTextLine(symbol, PrintableText(input.data));
}

}  // namespace Library
