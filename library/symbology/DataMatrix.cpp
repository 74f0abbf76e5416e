// Data Matrix ECC 200 (ISO/IEC 16022) by libzint.
#include "library/Error.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/ZintSymbol.h"

#include <algorithm>
#include <cstring>

namespace Library {
namespace {

enum Format { kDefault, kGs1, kIndustry, kMacro05, kMacro06, kReaderProgramming };

constexpr int kMaxSymbols = 16;
// Sizes 1 to 24 are square, 25 to 30 rectangular in the order of their capacity: 8x18, 8x32, 12x26,
// 12x36, 16x36, 16x48.
constexpr int kFirstRectangle = 25, kLastSize = 30;

void CheckOptions(const DataMatrixOptions& options) {
  if (options.format == kIndustry) throw Error(BC_E_NOTSUPPORTED);
  if (options.format == kReaderProgramming && options.appendSum >= 0)
    throw Error(BC_E_NOTSUPPORTED);
  const bool good = options.format >= kDefault && options.format <= kReaderProgramming &&
                    options.size >= 0 && options.size <= kLastSize;
  if (!good) throw Error(BC_E_INVALIDARG);
}

// The frame that one code word stands for (ISO/IEC 15434); libzint recognises it.
std::string Framed(std::string data, int format) {
  if (format != kMacro05 && format != kMacro06) return data;
  const std::string_view head = format == kMacro05 ? "[)>\x1E"
                                                     "05\x1D"
                                                   : "[)>\x1E"
                                                     "06\x1D";
  constexpr std::string_view kTail = "\x1E\x04";
  return std::string(head).append(data).append(kTail);
}

// Two numbers 1 to 254; readers report 256 times the first plus the second.
void SetFileId(ZintSymbol& symbol, int fileId) {
  const int value = fileId < 0 ? 0x101 : fileId < 256 ? 0x100 + fileId : fileId;
  const int numbers[] = {value / 256, value % 256};
  char* id = symbol->structapp.id;
  for (const int number : numbers) {
    if (number < 1 || number > 254) throw Error(BC_E_INVALIDARG);
    for (const int place : {100, 10, 1}) *id++ = static_cast<char>('0' + number / place % 10);
  }
}

void SetOptions(ZintSymbol& symbol, const DataMatrixOptions& options, int size) {
  symbol->option_2 = size;
  if (size == 0) symbol->option_3 = DM_SQUARE;
  if (options.format == kReaderProgramming) symbol->output_options |= READER_INIT;
  if (options.appendSum < 0 && options.appendIndex < 0) return;
  SetAppend(symbol, options.appendSum, options.appendIndex, kMaxSymbols);
  SetFileId(symbol, options.appendFileId);
}

bool TryEncode(const MatrixContent& content, const DataMatrixOptions& options, int size,
               Symbol& symbol) {
  ZintSymbol encoded(BARCODE_DATAMATRIX);
  SetInputMode(encoded, content);
  SetOptions(encoded, options, size);
  if (!encoded.tryEncode(content.data)) return false;
  encoded.copyRows(symbol, 1);
  return true;
}

bool TrySizes(const MatrixContent& content, const DataMatrixOptions& options, Symbol& symbol) {
  if (!options.rectangular || options.size != 0) {
    return TryEncode(content, options, options.size, symbol);
  }
  for (int size = kFirstRectangle; size <= kLastSize; ++size) {
    if (TryEncode(content, options, size, symbol)) return true;
  }
  return false;
}

}  // namespace

void EncodeDataMatrix(const EncoderInput& input, Symbol& symbol) {
  const DataMatrixOptions& options = input.options.dataMatrix;
  CheckOptions(options);
  MatrixContent content = ContentOf(input);
  content.data = Framed(std::move(content.data), options.format);
  if (!TrySizes(content, options, symbol)) throw Error(BC_E_DATATOOLONG);
  SetTextLine(symbol, std::move(content.text));
}

}  // namespace Library
