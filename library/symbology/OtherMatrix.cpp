// DotCode (AIM ISS DotCode), Han Xin Code (ISO/IEC 20830) and Code One (AIM USS Code One) by
// libzint, bytes in the smallest symbol that takes them.
#include "library/Error.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/ZintSymbol.h"

#include <string>
#include <string_view>

namespace Library {
namespace {

// Throws Error where libzint is known to have written other data than these.
using Check = void (*)(const ZintSymbol& encoded, std::string_view data);

// Where digits at the end fill a version but for a word, libzint takes the next one without leaving
// the mode of the digits, and readers see its padding as more of them. Data two digits shorter
// then fit the version before.
void CheckCodeOne(const ZintSymbol& encoded, std::string_view data) {
  constexpr std::size_t kLeastDigits = 13;  // that are packed at the end
  const std::size_t last = data.find_last_not_of("0123456789");
  const std::size_t digits = last == std::string_view::npos ? data.size() : data.size() - last - 1;
  if (digits < kLeastDigits) return;
  ZintSymbol shorter(BARCODE_CODEONE);
  shorter->eci = encoded->eci;
  shorter->structapp = encoded->structapp;
  shorter.encode(data.substr(0, data.size() - 2));
  if (shorter->rows < encoded->rows) throw Error(BC_E_NOTSUPPORTED);
}

struct MatrixCode {
  int zint;               // libzint's number
  int maxEci;             // the largest number that the symbology writes
  Check check = nullptr;  // null: nothing is known
};

void Draw(const MatrixCode& code, const EncoderInput& input, Symbol& symbol) {
  const Options& options = input.options;
  if (options.eci > code.maxEci) throw Error(BC_E_INVALIDARG);
  ZintSymbol encoded(code.zint);
  encoded->eci = options.eci;
  if (options.placeInMessage.count > 1) {
    encoded->structapp.count = options.placeInMessage.count;
    encoded->structapp.index = options.placeInMessage.index;
  }
  const std::string data = Bytes(input.data);
  encoded.encode(data);
  if (code.check != nullptr) code.check(encoded, data);
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
void EncodeCodeOne(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_CODEONE, 999'999, CheckCodeOne}, input, symbol);
}

}  // namespace Library
