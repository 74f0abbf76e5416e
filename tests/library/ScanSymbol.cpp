#include "tests/library/ScanSymbol.h"

#include "library/Error.h"
#include "tests/library/Coverage.h"

#include <ZXing/ReadBarcode.h>

#include <cstdint>
#include <vector>

namespace {

// How a symbol is drawn; in one view alone the reader passes over one in thousands.
struct View {
  int scale;  // pixels of a module
  int quiet;  // modules
};
constexpr View kViews[] = {{3, 12}, {3, 40}, {5, 40}, {8, 20}};
constexpr int kLinearHeight = 20;

struct Bitmap {
  explicit Bitmap(int w, int h)
      : width(w),
        height(h),
        pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), 255) {}

  void paint(int left, int top, int right, int bottom) {
    for (int y = top; y < bottom; ++y) {
      for (int x = left; x < right; ++x) pixels[static_cast<std::size_t>(y * width + x)] = 0;
    }
  }

  int width, height;
  std::vector<std::uint8_t> pixels;
};

int Height(const Library::SymbolRow& row) {
  return static_cast<int>(row.height == 0 ? kLinearHeight : row.height);
}

Bitmap Draw(const Library::Symbol& symbol, const View& view) {
  const auto [scale, quiet] = view;
  int height = 0;
  for (const Library::SymbolRow& row : symbol.rows) height += Height(row);
  Bitmap bitmap((symbol.width + 2 * quiet) * scale, (height + 2 * quiet) * scale);
  int top = quiet;
  bool odd = false;
  for (const Library::SymbolRow& row : symbol.rows) {
    // Rows of hexagons are shifted by half a one in turn.
    const bool shifted = odd && symbol.geometry == Library::Geometry::kHexagonal;
    int left = quiet * scale + (shifted ? scale / 2 : 0);
    bool dark = true;
    for (const int run : row.runs) {
      const int right = left + run * scale;
      if (dark) bitmap.paint(left, top * scale, right, (top + Height(row)) * scale);
      left = right;
      dark = !dark;
    }
    top += Height(row);
    odd = !odd;
  }
  return bitmap;
}

// What a symbol can be, most likely ones first: bars at random, and modules of other matrices,
// would stop the search for QR Codes.
std::vector<ZXing::BarcodeFormats> FormatsOf(const Library::Symbol& symbol) {
  using enum ZXing::BarcodeFormat;
  constexpr int kMicroQrCode = 97;
  if (symbol.type == kMicroQrCode) return {MicroQRCode};
  switch (symbol.geometry) {
    case Library::Geometry::kHexagonal:
      return {MaxiCode};
    case Library::Geometry::kMatrix:
      return {Aztec | DataMatrix, QRCode};
    default:
      return {LinearCodes | PDF417};
  }
}

ZXing::Result Read(const Library::Symbol& symbol) {
  constexpr int kExtendedCode39 = 9;
  ZXing::DecodeHints hints;
  hints.setTryHarder(true);
  hints.setEanAddOnSymbol(ZXing::EanAddOnSymbol::Read);
  hints.setReturnCodabarStartEnd(true);
  hints.setTryCode39ExtendedMode(symbol.type == kExtendedCode39);
  hints.setIsPure(symbol.geometry == Library::Geometry::kHexagonal ||
                  symbol.geometry == Library::Geometry::kMatrix);
  for (const View& view : kViews) {
    const Bitmap bitmap = Draw(symbol, view);
    const ZXing::ImageView image(bitmap.pixels.data(), bitmap.width, bitmap.height,
                                 ZXing::ImageFormat::Lum);
    for (const ZXing::BarcodeFormats formats : FormatsOf(symbol)) {
      hints.setFormats(formats);
      if (ZXing::Result result = ZXing::ReadBarcode(image, hints); result.isValid()) return result;
    }
  }
  return {};
}

}  // namespace

Scanned Scan(const Library::Symbol& symbol) {
  const ZXing::Result result = Read(symbol);
  const ZXing::ByteArray& bytes = result.bytes();
  const ZXing::ByteArray withEci = result.bytesECI();
  return {symbol.type,
          result.isValid() ? ZXing::ToString(result.format()) : "None",
          std::string(bytes.begin(), bytes.end()),
          result.symbologyIdentifier(),
          result.sequenceIndex(),
          result.sequenceSize(),
          result.sequenceId(),
          result.readerInit(),
          std::string(withEci.begin(), withEci.end())};
}

testing::AssertionResult IsRead(const Scanned& scanned, const std::string& bytes) {
  const bool good = scanned.format != "None" && scanned.bytes == bytes;
  NoteSymbol(scanned.type, "ZXing", good);
  if (good) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << scanned.format << " " << testing::PrintToString(scanned.bytes) << " in place of "
         << testing::PrintToString(bytes);
}

testing::AssertionResult ReadsBack(const Library::Symbol& symbol, const std::string& bytes) {
  return IsRead(Scan(symbol), bytes);
}

Library::Options OptionsFor(int type, const std::string& data) {
  Library::Options options;
  options.type = type;
  options.data = data;
  return options;
}

Refusal RefusalOf(const Library::Options& options) {
  try {
    Library::Encode(options);
    return {};
  } catch (const Library::Error& error) {
    return {error.code, error.position.value};
  }
}
