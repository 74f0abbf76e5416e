// Linear symbols of which libzint knows the bars.
#include "library/Error.h"
#include "library/symbology/Linear.h"
#include "library/symbology/LinearEncoders.h"
#include "library/symbology/ZintSymbol.h"

#include <charconv>

namespace Library {
namespace {

struct ZintLinearType {
  int symbology;     // libzint's number
  std::size_t size;  // characters that libzint takes, the check digit after them is its own; 0: all
  int maxValue;      // of data that are a number, 0: they are none
  int checkPlace;    // of the check digit that libzint puts into the text, -1: none
};

// The last light modules are the quiet zone's.
void DropLightEnd(Symbol& symbol) {
  std::vector<int>& runs = symbol.rows.back().runs;
  if (runs.size() % 2 != 0) return;
  symbol.width -= runs.back();
  runs.pop_back();
}

void Draw(const ZintLinearType& type, const EncoderInput& input, Symbol& symbol) {
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

}  // namespace

void EncodeKoreaPost(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_KOREAPOST, 6, 0, -1}, input, symbol);
}
void EncodeChannelCode(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_CHANNEL, 0, 7'742'862, -1}, input, symbol);
}
void EncodeBc412(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_BC412, 0, 0, 1}, input, symbol);
}

}  // namespace Library
