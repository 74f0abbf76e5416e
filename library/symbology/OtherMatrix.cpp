// DotCode (AIM ISS DotCode) and Han Xin Code (ISO/IEC 20830) by libzint, bytes in the smallest
// symbol that takes them.
#include "library/Error.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/ZintSymbol.h"

namespace Library {
namespace {

struct MatrixCode {
  int zint;    // libzint's number
  int maxEci;  // the largest number that the symbology writes
};

void Draw(const MatrixCode& code, const EncoderInput& input, Symbol& symbol) {
  const Options& options = input.options;
  if (options.eci > code.maxEci) throw Error(BC_E_NOTSUPPORTED);
  ZintSymbol encoded(code.zint);
  encoded->eci = options.eci;
  if (options.placeInMessage.count > 1) {
    encoded->structapp.count = options.placeInMessage.count;
    encoded->structapp.index = options.placeInMessage.index;
  }
  encoded.encode(Bytes(input.data));
  encoded.copyRows(symbol, 1);
  SetTextLine(symbol, PrintableText(input.data));
}

}  // namespace

void EncodeDotCode(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_DOTCODE, 811'799}, input, symbol);
}
void EncodeHanXin(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_HANXIN, 999'999}, input, symbol);
}

}  // namespace Library
