// Size queries and output.
#include "library/api/Setters.h"
#include "library/layout/Layout.h"
#include "library/layout/Units.h"
#include "library/writer/PostScriptWriter.h"

#include <cstring>

using namespace Library;

namespace {

// The symbol of a created barcode.
const Symbol& CreatedSymbol(const BCBarcode& barcode) {
  if (barcode.options.grid.enabled) throw Error(BC_E_NOTSUPPORTED);
  if (!barcode.symbol) Reject();
  return *barcode.symbol;
}

// Into the caller's buffer; with room left also a terminator.
void Deliver(const std::string& text, char* buffer, uint32_t* size) {
  const uint32_t capacity = *size;
  *size = static_cast<uint32_t>(text.size());
  if (text.size() > capacity) throw Error(BC_E_BUFFERTOOSMALL);
  std::memcpy(buffer, text.data(), text.size());
  if (text.size() < capacity) buffer[text.size()] = '\0';
}

BCResult Write(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect,
               const Writer& writer) {
  return Guarded(b, [&](BCBarcode& barcode) {
    if (!buffer || !size || !rect) Reject();
    const Symbol& symbol = CreatedSymbol(barcode);
    Deliver(writer.write(LayOut(symbol, barcode.options, *rect)), buffer, size);
  });
}

BCResult NotSupported(BCBarcode* b, const char* buffer, const uint32_t* size, const BCRect* rect) {
  return Guarded(b, [&](BCBarcode& barcode) {
    if (!buffer || !size || !rect) Reject();
    CreatedSymbol(barcode);
    throw Error(BC_E_NOTSUPPORTED);
  });
}

// 1/1000 mm in one unit of a size query; unit 0 is that of rectangles.
double SizeUnit(int unit, double dpi) {
  if (unit == kUnitNone) return 1;
  if (unit < kUnitPixel || unit > kUnitInch) Reject();
  return *LengthOf(unit, dpi, 0);
}

}  // namespace

BCResult BCGetBarcodeSize(BCBarcode* b, const BCRect* rect, void*, int unit, double* width,
                          double* height) {
  return Guarded(b, [&](BCBarcode& barcode) {
    if (!rect || !width || !height) Reject();
    const Options& options = barcode.options;
    const double unitX = SizeUnit(unit, options.dpiX), unitY = SizeUnit(unit, options.dpiY);
    const Box size = MeasureSymbol(CreatedSymbol(barcode), options, *rect);
    *width = size.width / unitX;
    *height = size.height / unitY;
  });
}

BCResult BC_MultiBC_CalculateLayout(BCBarcode* b, void*, const BCRect* rect, int32_t* neededWidth,
                                    int32_t* neededHeight) {
  return Guarded(b, [&](BCBarcode& barcode) {
    if (!rect || !neededWidth || !neededHeight || !barcode.options.grid.enabled) Reject();
    throw Error(BC_E_NOTSUPPORTED);
  });
}

BCResult BCPostscriptToMemoryExt(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect,
                                 int overhead) {
  return Write(b, buffer, size, rect, PostScriptWriter(overhead != 0));
}

BCResult BCPCLToMemoryExt(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect, int) {
  return NotSupported(b, buffer, size, rect);
}

BCResult BCPDFToMemory(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect) {
  return NotSupported(b, buffer, size, rect);
}

BCResult BCPDFFragmentToMemory(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect) {
  return NotSupported(b, buffer, size, rect);
}

BCResult BCBitmapToMemoryA(BCBarcode* b, char* buffer, const char*, uint32_t* size,
                           const BCRect* rect) {
  return NotSupported(b, buffer, size, rect);
}
