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
// With the brackets that stand for FNC1.
constexpr std::string_view kAlphanumeric = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%*+-./:[]";

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

// libzint misjudges the length of element strings with percent signs, which it doubles, and writes
// past the version it chose. With a version that has room for the data at their longest it cannot:
// the version that takes so many bytes, which it judges right. 0: no such data.
int RoomyVersion(const MatrixContent& content, int ecLevel) {
  const auto percents = std::count(content.data.begin(), content.data.end(), '%');
  if (!content.gs1 || percents == 0) return 0;
  const bool alphanumeric = content.data.find_first_not_of(kAlphanumeric) == std::string::npos;
  const auto length = content.data.size();
  std::size_t bits =
      alphanumeric ? (length + static_cast<std::size_t>(percents)) * 11 / 2 : length * 8;
  bits += bits / 16 + 64;
  ZintSymbol room(BARCODE_QRCODE);
  room->option_1 = ecLevel + 1;
  room.encode(std::string(bits / 8 + 1, '\x80'));
  return (room->width - 17) / 4;
}

// The version to ask for, 0: automatic.
int VersionFor(const MatrixContent& content, const QrOptions& options) {
  const int roomy = RoomyVersion(content, options.ecLevel);
  if (options.version != 0 && options.version < roomy) throw Error(BC_E_DATATOOLONG);
  return std::max(options.version, roomy);
}

}  // namespace

void EncodeQrCode(const EncoderInput& input, Symbol& symbol) {
  const QrOptions& options = input.options.qr;
  CheckOptions(options);
  MatrixContent content = ContentOf(input);
  ZintSymbol encoded(BARCODE_QRCODE);
  SetInputMode(encoded, content);
  encoded->option_1 = options.ecLevel + 1;
  encoded->option_2 = VersionFor(content, options);
  encoded->option_3 = (options.mask + 1) << 8;
  SetAppendOf(encoded, options);
  encoded.encode(content.data);
  encoded.copyRows(symbol, 1);
  SetTextLine(symbol, std::move(content.text));
}

}  // namespace Library
