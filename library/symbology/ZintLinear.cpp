// Linear symbols of which libzint knows the bars: one row a type.
#include "library/Error.h"
#include "library/symbology/Linear.h"
#include "library/symbology/LinearEncoders.h"
#include "library/symbology/ZintSymbol.h"

#include <charconv>

namespace Library {
namespace {

struct ZintLinearType {
  int type;
  int symbology;     // libzint's number
  std::size_t size;  // characters that libzint takes, the check digit after them is its own; 0: all
  int maxValue;      // of data that are a number, 0: they are none
  int checkPlace;    // of the check digit that libzint puts into the text, -1: none
};

constexpr ZintLinearType kTypes[] = {
    {77, BARCODE_KOREAPOST, 6, 0, -1},
    {140, BARCODE_CHANNEL, 0, 7742862, -1},
    {146, BARCODE_BC412, 0, 0, 1},
};

const ZintLinearType& RowOf(int type) {
  for (const ZintLinearType& row : kTypes) {
    if (row.type == type) return row;
  }
  throw Error(BC_E_NOTSUPPORTED);
}

// The last light modules are the quiet zone's.
void DropLightEnd(Symbol& symbol) {
  std::vector<int>& runs = symbol.rows.back().runs;
  if (runs.size() % 2 != 0) return;
  symbol.width -= runs.back();
  runs.pop_back();
}

}  // namespace

void EncodeZintLinear(const EncoderInput& input, Symbol& symbol) {
  const ZintLinearType& type = RowOf(input.symbology.type);
  std::string data = Bytes(input.data);
  if (type.size > 0) data.resize(type.size);
  if (type.maxValue > 0) {
    int value = 0;
    std::from_chars(data.data(), data.data() + data.size(), value);
    if (value > type.maxValue) {
      throw Error(BC_E_INVALIDDATA, DataIndex(input.data.front().source));
    }
  }
  ZintSymbol zint(type.symbology);
  zint.encode(data);
  zint.copyRows(symbol, 0);
  DropLightEnd(symbol);
  std::string text = reinterpret_cast<const char*>(zint->text);
  if (type.checkPlace >= 0)
    symbol.checkDigits = text.substr(static_cast<std::size_t>(type.checkPlace), 1);
  SetTextLine(symbol, std::move(text));
}

}  // namespace Library
