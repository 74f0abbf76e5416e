// Setters that concern every symbology.
#include "library/api/Setters.h"
#include "library/layout/ElementWidths.h"
#include "library/layout/Units.h"
#include "library/symbology/Symbology.h"

#include <charconv>
#include <concepts>
#include <cstring>

using namespace Library;

namespace {

constexpr double kMaxModuleWidth = 1e6;  // 1 m
constexpr double kMaxDpi = 1e5;
constexpr double kMaxQuietZone = 1e6;
constexpr double kMaxReduction = 1e6;
constexpr double kMaxPoints = 10000;
constexpr double kMaxCheckDigitMethod = 36;

int KnownType(int type, int) {
  if (!FindSymbology(type)) Reject();
  return type;
}

// A positive decimal number; an empty text or -1 gives the default.
double ModuleWidth(const char* text, double standard) {
  if (!text) Reject();
  const char* const end = text + std::strlen(text);
  if (text == end) return standard;
  double width = 0;
  const auto [stop, error] = std::from_chars(text, end, width);
  if (error != std::errc() || stop != end) Reject();
  if (width == 0) Reject();
  return InRangeOrDefault{0, kMaxModuleWidth}(width, standard);
}

std::string Ratio(const char* text, const std::string& standard) {
  std::string ratio = kText(text, standard);
  if (!ratio.empty() && ParseRatio(ratio).empty()) Reject();
  return ratio;
}

int ReductionUnit(int unit) {
  if (unit != kUnitNone && (unit < kUnitMillimetre || unit > kUnitPercent || unit == kUnitModule)) {
    Reject();
  }
  return unit;
}

BCMargins Margins(const BCMargins* margins) {
  if (!margins) Reject();
  for (double side : {margins->left, margins->top, margins->right, margins->bottom}) {
    InRange{0, kMaxQuietZone}(side, 0.0);
  }
  return *margins;
}

constexpr int kCmyk = 2;

Color Black(int mode) {
  return mode == kCmyk ? Color{{0, 0, 0, 1}} : Color{{0, 0, 0, 0}};
}
Color White(int mode) {
  return mode == kCmyk ? Color{{0, 0, 0, 0}} : Color{{1, 1, 1, 0}};
}

template <std::same_as<double>... Components>
BCResult SetColor(BCBarcode* b, Color LayoutOptions::*member, Components... components) {
  return Arrange(b, [&](LayoutOptions& layout) {
    layout.*member = Color{{InRange{0, 1}(components, 0.0)...}};
  });
}

}  // namespace

BCResult BCSetBCType(BCBarcode* b, int type) {
  return Set(b, &Options::type, type, KnownType);
}

BCResult BCSetTextA(BCBarcode* b, const char* data, int length) {
  return Apply(b, [&](Options& options) {
    if (length < 0 || (!data && length > 0)) Reject();
    if (length > kMaxDataBytes) throw Error(BC_E_DATATOOLONG);
    options.data.assign(data ? data : "", static_cast<std::size_t>(data ? length : 0));
  });
}

BCResult BCSetCompression(BCBarcode* b, int algorithm) {
  return Set(b, &Options::compression, algorithm, InRange{0, 3});
}
BCResult BCSetCDMethod(BCBarcode* b, int method) {
  return Set(b, &Options::checkDigitMethod, method, InRangeOrDefault{0, kMaxCheckDigitMethod});
}
BCResult BCSetAutoCorrect(BCBarcode* b, int on) {
  return Set(b, &Options::autoCorrect, on, Switch{});
}
BCResult BCSetTranslateEsc(BCBarcode* b, int on) {
  return Set(b, &Options::translateEscapes, on, Switch{});
}
BCResult BCSetECI(BCBarcode* b, int number) {
  return Set(b, &Options::eci, number, [](int value, int) {
    constexpr int kFirst = 3, kLast = 999999;
    if (value != 0) InRange{kFirst, kLast}(value, 0);
    return value;
  });
}
BCResult BCSetBearerBarType(BCBarcode* b, int type) {
  return Set(b, &Options::bearerBarType, type, InRange{0, 4});
}
BCResult BCSetBearerBarWidth(BCBarcode* b, int32_t width) {
  return Set(b, &Options::bearerBarWidth, width, kLength);
}
BCResult BCSetNotchHeight(BCBarcode* b, int32_t height) {
  return Set(b, &Options::notchHeight, height, kLength);
}
BCResult BCSetModWidthA(BCBarcode* b, const char* width) {
  return Set(b, &Options::moduleWidth, width, ModuleWidth);
}
BCResult BCSetBarWidthReduction(BCBarcode* b, double value, int unit) {
  return Arrange(b, [&](LayoutOptions& layout) {
    const double reduction = InRange{-kMaxReduction, kMaxReduction}(value, 0.0);
    layout.reductionUnit = ReductionUnit(unit);
    layout.reduction = reduction;
  });
}
BCResult BCSetRatioA(BCBarcode* b, const char* ratio) {
  return Set(b, &Options::ratio, ratio, Ratio);
}
BCResult BCSetFormatA(BCBarcode* b, const char* format) {
  return Set(b, &Options::format, format, TextOfAtMost{kMaxFormatBytes});
}
BCResult BCSetDPI(BCBarcode* b, double x, double y) {
  return Arrange(b, [&](LayoutOptions& layout) {
    const double dpiX = InRange{1, kMaxDpi}(x, 0.0), dpiY = InRange{1, kMaxDpi}(y, 0.0);
    layout.dpiX = dpiX;
    layout.dpiY = dpiY;
  });
}
BCResult BCSetOptResolution(BCBarcode* b, int on) {
  return Set(b, &Options::optimalResolution, on, Switch{});
}
BCResult BCSetQuietZone(BCBarcode* b, const BCMargins* margins, int unit) {
  return Arrange(b, [&](LayoutOptions& layout) {
    const BCMargins checked = Margins(margins);
    layout.quietZoneUnit = InRange{kUnitNone, kUnitModule}(unit, 0);
    layout.quietZone = checked;
  });
}
BCResult BCSetMustFit(BCBarcode* b, int on) {
  return Set(b, &Options::mustFit, on, Switch{});
}
BCResult BCSetDecoder(BCBarcode* b, int decoder) {
  return Set(b, &Options::decoder, decoder, InRange{0, 3});
}
BCResult BCSetSizeMode(BCBarcode* b, int mode) {
  return Set(b, &Options::sizeMode, mode, InRangeOrDefault{0, 2});
}

BCResult BCSetPrintText(BCBarcode* b, int show, int above) {
  return Arrange(b, [&](LayoutOptions& layout) {
    layout.printText = show != 0;
    layout.textAbove = above != 0;
  });
}
BCResult BCSetTextAlignment(BCBarcode* b, int alignment) {
  return Set(b, &Options::textAlignment, alignment, InRange{0, 3});
}
BCResult BCSetFontHeight(BCBarcode* b, int points) {
  return Set(b, &Options::fontHeight, points, InRangeOrDefault{0, kMaxPoints});
}
BCResult BCSetFontNameA(BCBarcode* b, const char* name) {
  return Set(b, &Options::fontName, name, kText);
}
BCResult BCSetTextDist(BCBarcode* b, int32_t distance) {
  return Set(b, &Options::textDistance, distance, kLength);
}

// Components of another mode mean nothing: a new mode begins with black on white.
BCResult BCSetColorMode(BCBarcode* b, int mode) {
  return Arrange(b, [&](LayoutOptions& layout) {
    if (InRange{0, 2}(mode, 0) == layout.colorMode) return;
    layout.colorMode = mode;
    layout.barcodeColor = layout.fontColor = Black(mode);
    layout.background = White(mode);
  });
}
BCResult BCSetBarcodeColorRGB(BCBarcode* b, double red, double green, double blue) {
  return SetColor(b, &Options::barcodeColor, red, green, blue);
}
BCResult BCSetFontColorRGB(BCBarcode* b, double red, double green, double blue) {
  return SetColor(b, &Options::fontColor, red, green, blue);
}
BCResult BCSetBackgroundColorRGB(BCBarcode* b, double red, double green, double blue) {
  return SetColor(b, &Options::background, red, green, blue);
}
BCResult BCSetBarcodeColorGray(BCBarcode* b, double level) {
  return SetColor(b, &Options::barcodeColor, level);
}
BCResult BCSetFontColorGray(BCBarcode* b, double level) {
  return SetColor(b, &Options::fontColor, level);
}
BCResult BCSetBackgroundColorGray(BCBarcode* b, double level) {
  return SetColor(b, &Options::background, level);
}
BCResult BCSetBarcodeColorCMYK(BCBarcode* b, double c, double m, double y, double k) {
  return SetColor(b, &Options::barcodeColor, c, m, y, k);
}
BCResult BCSetFontColorCMYK(BCBarcode* b, double c, double m, double y, double k) {
  return SetColor(b, &Options::fontColor, c, m, y, k);
}
BCResult BCSetBackgroundColorCMYK(BCBarcode* b, double c, double m, double y, double k) {
  return SetColor(b, &Options::background, c, m, y, k);
}
BCResult BCSetBkMode(BCBarcode* b, int mode) {
  return Set(b, &Options::backgroundMode, mode, InRange{1, 2});
}
BCResult BCSetPCLMode(BCBarcode* b, int mode) {
  return Set(b, &Options::pclMode, mode, InRange{0, 1});
}
BCResult BCSet2DCompositeComponent(BCBarcode* b, int type) {
  return Set(b, &Options::compositeType, type, InRangeOrDefault{0, 4});
}

BCResult BCSetRotation(BCBarcode* b, int quarterTurns) {
  return Set(b, &Options::rotation, quarterTurns, InRange{0, 3});
}
