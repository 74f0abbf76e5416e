// PDF417 (ISO/IEC 15438) by libzint.
#include "library/Error.h"
#include "library/prepare/CharacterSet.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/ZintSymbol.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace Library {
namespace {

constexpr double kSharedHeight = 0;  // the layout knows how high rows become
constexpr int kMinRows = 3, kMaxRows = 90;
constexpr int kMaxColumns = 30;
constexpr int kMaxWords = 928;
constexpr int kMaxSegments = 99999;

// libzint writes past its arrays from 1,356 bytes of mixed text on. Longer data fit a symbol only
// when they are all digits or all capitals and blanks, which it handles.
constexpr std::size_t kMaxMixed = 1355, kMaxText = 1850, kMaxDigits = 2710;
constexpr CharacterSet kPlainText = CharacterSet::Range('A', 'Z') | CharacterSet::Of(" ");

bool AllIn(const std::string& data, const CharacterSet& characters) {
  return std::all_of(data.begin(), data.end(), [&characters](char character) {
    return characters.contains(static_cast<unsigned char>(character));
  });
}

void CheckLength(const std::string& data) {
  if (data.size() <= kMaxMixed) return;
  if (data.size() <= kMaxText && AllIn(data, kPlainText)) return;
  if (data.size() <= kMaxDigits && AllIn(data, kDigits)) return;
  throw Error(BC_E_DATATOOLONG);
}

// "R:C", rows to columns; 0 when nothing is asked for.
double RatioOf(const std::string& text) {
  if (text.empty() || text == "auto") return 0;
  const char* const end = text.data() + text.size();
  double rows = 0, columns = 0;
  const auto first = std::from_chars(text.data(), end, rows);
  if (first.ec != std::errc{} || first.ptr == end || *first.ptr != ':')
    throw Error(BC_E_INVALIDARG);
  const auto second = std::from_chars(first.ptr + 1, end, columns);
  if (second.ec != std::errc{} || second.ptr != end) throw Error(BC_E_INVALIDARG);
  const double ratio = rows / columns;
  if (!(rows > 0) || !(columns > 0) || !std::isfinite(ratio)) throw Error(BC_E_INVALIDARG);
  return ratio;
}

// libzint writes index, count and a numeric file id, and marks the last segment by itself.
void SetMacro(ZintSymbol& symbol, const Pdf417Options& options) {
  if (options.timeStamp >= 0 || options.fileSize >= 0 || options.checkSum >= 0 ||
      !options.fileName.empty() || !options.sender.empty() || !options.addressee.empty()) {
    throw Error(BC_E_NOTSUPPORTED);
  }
  if (options.segIndex < 0 && options.segCount < 0 && options.segLast < 0 &&
      options.fileId.empty()) {
    return;
  }
  if (options.segIndex < 0 || options.segCount < 0) throw Error(BC_E_NOTSUPPORTED);
  SetAppend(symbol, options.segCount, options.segIndex + 1, kMaxSegments);
  const bool last = options.segIndex + 1 == options.segCount;
  if (options.segLast >= 0 && (options.segLast != 0) != last) throw Error(BC_E_NOTSUPPORTED);

  // Triplets 000 to 899, one code word each.
  const std::string& id = options.fileId;
  if (id.size() > 30 || id.size() % 3 != 0 || !AllIn(id, kDigits)) throw Error(BC_E_NOTSUPPORTED);
  for (std::size_t i = 0; i < id.size(); i += 3) {
    if (id[i] == '9') throw Error(BC_E_NOTSUPPORTED);
  }
  std::memcpy(symbol->structapp.id, id.data(), id.size());
}

struct Size {
  int rows, columns;  // 0: free
};

Size SizeSet(const Pdf417Options& options) {
  const Size size{std::max(options.rows, 0), std::max(options.columns, 0)};
  const bool good = (size.rows == 0 || (size.rows >= kMinRows && size.rows <= kMaxRows)) &&
                    size.columns <= kMaxColumns && size.rows * size.columns <= kMaxWords;
  if (!good) throw Error(BC_E_INVALIDARG);
  return size;
}

// The shape nearest to `ratio` for as many code words as the automatic shape took.
Size SizeByRatio(int words, double ratio) {
  const double columns = std::ceil(std::sqrt(words / ratio));
  const int kept = static_cast<int>(std::clamp(columns, 1.0, double{kMaxColumns}));
  // Too few columns for the rows there may be: wider.
  const int least = (words + kMaxRows - 1) / kMaxRows;
  const int used = std::max(kept, least);
  return {std::clamp((words + used - 1) / used, kMinRows, kMaxRows), used};
}

void Encode(ZintSymbol& symbol, const EncoderInput& input, const std::string& data, Size size) {
  const Pdf417Options& options = input.options.pdf417;
  if (options.ecLevel > 8) throw Error(BC_E_INVALIDARG);
  symbol->option_1 = std::max(options.ecLevel, -1);
  symbol->option_2 = size.columns;
  symbol->option_3 = size.rows;
  SetMacro(symbol, options);
  symbol.encode(data, BC_E_DATATOOLONG);
}

}  // namespace

void EncodePdf417(const EncoderInput& input, Symbol& symbol) {
  const std::string data = Bytes(input.data);
  CheckLength(data);
  const Size size = SizeSet(input.options.pdf417);
  const double ratio = RatioOf(input.options.pdf417.ratio);
  ZintSymbol encoded(BARCODE_PDF417);
  Encode(encoded, input, data, size);
  const bool free = size.rows == 0 && size.columns == 0;
  if (ratio > 0 && free) {
    constexpr int kFixedModules = 69, kModulesPerWord = 17;
    const int words = encoded->rows * ((encoded->width - kFixedModules) / kModulesPerWord);
    ZintSymbol shaped(BARCODE_PDF417);
    Encode(shaped, input, data, SizeByRatio(words, ratio));
    shaped.copyRows(symbol, kSharedHeight);
  } else {
    encoded.copyRows(symbol, kSharedHeight);
  }
  SetTextLine(symbol, PrintableText(input.data));
}

}  // namespace Library
