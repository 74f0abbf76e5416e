// Size queries and output.
#include "library/api/CopyText.h"
#include "library/api/Setters.h"
#include "library/bitmap/Formats.h"
#include "library/font/Outlines.h"
#include "library/grid/GridLayout.h"
#include "library/layout/Layout.h"
#include "library/layout/Move.h"
#include "library/layout/Units.h"
#include "library/writer/PclWriter.h"
#include "library/writer/PdfWriter.h"
#include "library/writer/PostScriptWriter.h"
#include "library/writer/TextBuilder.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <utility>

using namespace Library;

namespace {

void RequireCreated(const BCBarcode& barcode) {
  if (!barcode.symbol) Reject();
}

// REQUIRES: created, a grid.
GridPlan PlanFor(const BCBarcode& barcode, const BCRect& rect) {
  GridPlan plan = PlanGrid(barcode.grid->symbols, barcode.options, SizeOf(rect));
  if (!plan.fits) throw Error(BC_E_DATATOOLONG);
  return plan;
}

Box SizeIn(const BCBarcode& barcode, const BCRect& rect) {
  RequireCreated(barcode);
  if (barcode.options.grid.enabled) return PlanFor(barcode, rect).size;
  return MeasureSymbol(*barcode.symbol, barcode.options, rect);
}

using LayOutOne = Drawing (*)(const Symbol&, const Options&, const BCRect&);

// A grid has the rows and columns that the layout query found; a grid that has grown keeps them.
Drawing DrawingIn(const BCBarcode& barcode, const Options& options, const BCRect& rect,
                  LayOutOne layOut) {
  RequireCreated(barcode);
  if (!options.grid.enabled) return layOut(*barcode.symbol, options, rect);
  const auto& [symbols, shape] = *barcode.grid;
  return LayOutGrid(symbols, options, shape ? *shape : PlanFor(barcode, rect).shape, rect);
}

std::string InMillimetres(double length) {
  return TextBuilder::decimal(std::round(length) / kMillimetre) + " mm";
}

// "0.167 mm, 1.3 dots"
std::string WarningOf(const Drawing& drawing, const Options& options) {
  if (!drawing.tooSmall) return {};
  const auto& [module, neededWidth] = *drawing.tooSmall;
  std::string size = InMillimetres(module);
  if (KnowsDots(options)) {
    size += ", " + TextBuilder::decimal(std::round(module / kInch * options.dpiX * 10) / 10) +
            " dots at " + TextBuilder::decimal(options.dpiX) + " dpi";
  }
  return "The barcode may be too small to be read: its modules are " + size + " wide. A width of " +
         InMillimetres(std::ceil(neededWidth)) + " would do.";
}

Drawing DrawingWithWarning(BCBarcode& barcode, const Options& options, const BCRect& rect,
                           LayOutOne layOut = LayOut) {
  Drawing drawing = DrawingIn(barcode, options, rect, layOut);
  barcode.warning = WarningOf(drawing, options);
  return drawing;
}

void AddWarning(BCBarcode& barcode, const std::string& text) {
  if (!barcode.warning.empty()) barcode.warning += ' ';
  barcode.warning += text;
}

// For languages that show text as outlines.
void WarnOfMissingFont(BCBarcode& barcode, const Drawing& drawing) {
  if (HasOutlines(drawing)) return;
  AddWarning(barcode, "The barcode's text is left out: no font was found on this machine.");
}

// A picture ends where its rectangle does, and modules are no less than a pixel.
void WarnOfCutting(BCBarcode& barcode, const Drawing& drawing, const Box& picture) {
  const double slack = kInch / std::min(barcode.options.dpiX, barcode.options.dpiY);
  const Rectangle& box = drawing.box;
  if (box.left >= -slack && box.bottom >= -slack && box.right <= picture.width + slack &&
      box.top <= picture.height + slack) {
    return;
  }
  AddWarning(barcode, "The barcode is cut off at the edges of its picture: it takes " +
                          InMillimetres(box.width()) + " x " + InMillimetres(box.height()) + ".");
}

bool SameRectangle(const BCRect& a, const BCRect& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

void MoveOnPage(Drawing& drawing, double x, double y) {
  constexpr double kMost = 1e9;  // as far as a drawing may lie from its page's origin
  if (std::abs(x) > kMost || std::abs(y) > kMost) Reject();
  Move(drawing, static_cast<std::int32_t>(x), static_cast<std::int32_t>(y));
}

// Modules of a bitmap are whole pixels, whatever the switch for that says.
Bitmap BitmapIn(BCBarcode& barcode, const BCRect& rect) {
  constexpr double kLeastDpi = 50, kMostDpi = 2400;
  Options options = barcode.options;
  const auto [least, most] = std::minmax(options.dpiX, options.dpiY);
  if (least < kLeastDpi || most > kMostDpi) Reject();
  options.optimalResolution = options.dpiIsReal = options.endsAtBox = true;
  Drawing drawing = DrawingWithWarning(barcode, options, rect);
  MoveOnPage(drawing, -static_cast<double>(std::min(rect.left, rect.right)),
             -static_cast<double>(std::min(rect.top, rect.bottom)));
  WarnOfMissingFont(barcode, drawing);
  const Box size = SizeOf(rect);
  WarnOfCutting(barcode, drawing, size);
  return Rasterized(drawing, {size.width, size.height}, options.dpiX, options.dpiY);
}

// On dots that printers of 300 and 600 dpi share, unless the finer ones are asked for.
std::string PclIn(BCBarcode& barcode, const BCRect& rect, bool relative) {
  constexpr int kCoarse = 300, kFine = 600;
  Options options = barcode.options;
  const int dpi = options.dpiX < kFine ? kCoarse : kFine;
  options.dpiX = options.dpiY = dpi;
  options.optimalResolution = options.dpiIsReal = true;
  Drawing drawing = DrawingWithWarning(barcode, options, rect);
  // The rectangle's y runs downward; the drawing was made in it upward.
  MoveOnPage(drawing, 0, -(static_cast<double>(rect.top) + rect.bottom));
  return PclWriter(relative, static_cast<PclWriter::Mode>(options.pclMode), dpi).write(drawing);
}

// The page ends at the rectangle's right and upper edge.
std::string PdfIn(const BCRect& rect, const Drawing& drawing) {
  const int32_t width = std::max(rect.left, rect.right), height = std::max(rect.top, rect.bottom);
  if (width <= 0 || height <= 0) Reject();
  return PdfWriter(width, height).write(drawing);
}

std::string Written(BCBarcode& barcode, const BCRect& rect, Language language) {
  const auto drawing = [&](LayOutOne layOut = LayOut) {
    return DrawingWithWarning(barcode, barcode.options, rect, layOut);
  };
  switch (language) {
    case Language::kPostScript:
      return PostScriptWriter(false).write(drawing(LayOutFields));
    case Language::kEps:
      return PostScriptWriter(true).write(drawing(LayOutFields));
    case Language::kPcl:
      return PclIn(barcode, rect, false);
    case Language::kPclAtCursor:
      return PclIn(barcode, rect, true);
    case Language::kPdf:
      return PdfIn(rect, drawing());
    case Language::kPdfFragment: {
      const Drawing outlined = drawing();
      WarnOfMissingFont(barcode, outlined);
      return PdfFragmentWriter().write(outlined);
    }
    case Language::kBmp:
      return WriteBmp(BitmapIn(barcode, rect));
    case Language::kGif:
      return WriteGif(BitmapIn(barcode, rect));
    case Language::kJpeg:
      return WriteJpeg(BitmapIn(barcode, rect));
    case Language::kPng:
      return WritePng(BitmapIn(barcode, rect));
    case Language::kTiff:
      return WriteTiff(BitmapIn(barcode, rect));
  }
  throw Error(BC_E_NOTSUPPORTED);
}

std::string OutputIn(BCBarcode& barcode, const BCRect& rect, Language language) {
  RequireCreated(barcode);
  std::optional<BCBarcode::KeptOutput> kept = std::exchange(barcode.kept, std::nullopt);
  if (kept && kept->language == language && SameRectangle(kept->rect, rect)) {
    return std::move(kept->bytes);
  }
  barcode.warning.clear();
  return Written(barcode, rect, language);
}

// With room left behind the output also a terminator.
BCResult Output(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect, Language language) {
  return Guarded(b, [&](BCBarcode& barcode) {
    if (!buffer || !size || !rect) Reject();
    std::string bytes = OutputIn(barcode, *rect, language);
    const uint32_t capacity = *size;
    *size = static_cast<uint32_t>(bytes.size());
    if (bytes.size() > capacity) {
      barcode.kept = BCBarcode::KeptOutput{*rect, language, std::move(bytes)};
      throw Error(BC_E_BUFFERTOOSMALL);
    }
    std::memcpy(buffer, bytes.data(), bytes.size());
    if (bytes.size() < capacity) buffer[bytes.size()] = '\0';
  });
}

// Nothing: no such format.
std::optional<Language> BitmapLanguage(std::string_view name) {
  constexpr std::pair<std::string_view, Language> kNames[] = {
      {"BMP", Language::kBmp},   {"GIF", Language::kGif}, {"JPG", Language::kJpeg},
      {"JPEG", Language::kJpeg}, {"PNG", Language::kPng}, {"TIF", Language::kTiff},
      {"TIFF", Language::kTiff}};
  const auto same = [](char a, char b) { return std::toupper(static_cast<unsigned char>(a)) == b; };
  for (const auto& [text, language] : kNames) {
    if (std::ranges::equal(name, text, same)) return language;
  }
  return std::nullopt;
}

// 1/1000 mm in one unit of a size query; unit 0 is that of rectangles.
double SizeUnit(int unit, double dpi) {
  if (unit == kUnitNone) return 1;
  if (unit < kUnitPixel || unit > kUnitInch) Reject();
  return *LengthOf(unit, dpi, 0);
}

// A length that holds the one given, but for the noise of its sum.
int32_t RoundedUp(double length) {
  constexpr double kNoise = 1e-3;
  return static_cast<int32_t>(
      std::min<double>(std::ceil(length - kNoise), std::numeric_limits<int32_t>::max()));
}

}  // namespace

BCResult BCGetBarcodeSize(BCBarcode* b, const BCRect* rect, void*, int unit, double* width,
                          double* height) {
  return Guarded(b, [&](BCBarcode& barcode) {
    if (!rect || !width || !height) Reject();
    const Options& options = barcode.options;
    const double unitX = SizeUnit(unit, options.dpiX), unitY = SizeUnit(unit, options.dpiY);
    const Box size = SizeIn(barcode, *rect);
    *width = size.width / unitX;
    *height = size.height / unitY;
  });
}

BCResult BC_MultiBC_CalculateLayout(BCBarcode* b, void*, const BCRect* rect, int32_t* neededWidth,
                                    int32_t* neededHeight) {
  return Guarded(b, [&](BCBarcode& barcode) {
    if (!rect || !neededWidth || !neededHeight || !barcode.options.grid.enabled) Reject();
    BCBarcode::Grid& grid = EncodedGrid(barcode);
    grid.shape.reset();
    barcode.kept.reset();
    const GridPlan plan = PlanGrid(grid.symbols, barcode.options, SizeOf(*rect));
    *neededWidth = RoundedUp(plan.size.width);
    *neededHeight = RoundedUp(plan.size.height);
    if (!plan.fits) throw Error(BC_E_DATATOOLONG);
    grid.shape = plan.shape;
  });
}

BCResult BCPostscriptToMemoryExt(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect,
                                 int overhead) {
  return Output(b, buffer, size, rect, overhead != 0 ? Language::kEps : Language::kPostScript);
}

BCResult BCPCLToMemoryExt(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect,
                          int relative) {
  return Output(b, buffer, size, rect, relative != 0 ? Language::kPclAtCursor : Language::kPcl);
}

BCResult BCPDFToMemory(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect) {
  return Output(b, buffer, size, rect, Language::kPdf);
}

BCResult BCPDFFragmentToMemory(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect) {
  return Output(b, buffer, size, rect, Language::kPdfFragment);
}

BCResult BCBitmapToMemoryA(BCBarcode* b, char* buffer, const char* format, uint32_t* size,
                           const BCRect* rect) {
  const std::optional<Language> language = format ? BitmapLanguage(format) : std::nullopt;
  if (language) return Output(b, buffer, size, rect, *language);
  return Guarded(b, [](BCBarcode&) { Reject(); });
}

int BCGetWarningA(BCBarcode* b, char* buffer, int size) {
  if (!b) return 0;
  CopyText(b->warning, buffer, size);
  return static_cast<int>(b->warning.size());
}
