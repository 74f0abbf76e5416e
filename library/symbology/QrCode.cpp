// QR Code (ISO/IEC 18004) by libzint.
#include "library/Error.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/ZintSymbol.h"

#include <algorithm>
#include <charconv>

namespace Library {
namespace {

enum Format { kDefault, kGs1, kIndustry };

constexpr int kMaxSymbols = 16;

void CheckOptions(const QrOptions& options) {
  if (options.format == kIndustry) throw Error(BC_E_NOTSUPPORTED);
  const bool good = options.format >= kDefault && options.format <= kGs1 && options.version >= 0 &&
                    options.version <= 40 && options.ecLevel >= 0 && options.ecLevel <= 3 &&
                    options.mask >= -1 && options.mask <= 7 && options.appendParity <= 255;
  if (!good) throw Error(BC_E_INVALIDARG);
}

void SetAppendOf(ZintSymbol& symbol, const QrOptions& options) {
  if (options.appendSum < 0 && options.appendIndex < 0) return;
  SetAppend(symbol, options.appendSum, options.appendIndex, kMaxSymbols);
  char* const id = symbol->structapp.id;
  std::to_chars(id, id + sizeof symbol->structapp.id - 1, std::max(options.appendParity, 0));
}

}  // namespace

void EncodeQrCode(const EncoderInput& input, Symbol& symbol) {
  const QrOptions& options = input.options.qr;
  CheckOptions(options);
  MatrixContent content = ContentOf(input);
  ZintSymbol encoded(BARCODE_QRCODE);
  SetInputMode(encoded, content);
  encoded->option_1 = options.ecLevel + 1;
  encoded->option_2 = options.version;
  encoded->option_3 = (options.mask + 1) << 8;
  SetAppendOf(encoded, options);
  encoded.encode(content.data);
  encoded.copyRows(symbol, 1);
  SetTextLine(symbol, std::move(content.text));
}

}  // namespace Library
