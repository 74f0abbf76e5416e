#include "library/layout/Measure.h"

#include "library/layout/Outline.h"
#include "library/layout/RowHeights.h"
#include "library/layout/Units.h"
#include "library/symbology/Symbology.h"

#include <algorithm>
#include <cmath>

namespace Library {
namespace {

// The smallest X in 1/1000 mm that a decoder reads, by the number of the decoder setting.
constexpr double kDecoderMinimum[] = {190, 254, 338, 190};

// With whole dots, the smallest symbol still gets two of them: one dot more or less is then no
// misread.
constexpr double kMinimalDots = 2;

// A module may grow this much to be whole dots, and this much to be two instead of one.
constexpr double kMostLarger = 1.1, kMostTwice = 1.26;

// A module width counts as so many dots when no more than this share of a dot is missing: printers
// called 203 dpi have 8 dots per millimetre.
constexpr double kDotSlack = 0.02;
// A module is too small when more than this share of it is missing: two dots at 203 dpi, which is
// what labels have, are 0.25 mm, not 0.254.
constexpr double kModuleSlack = 0.02;

// Font sizes where none is set, in points: for the first try, and for the lowest and the highest
// bars that count.
constexpr double kDefaultPoints = 10, kSmallPoints = 8, kLargePoints = 18;
constexpr double kLowBars = 10 * kMillimetre, kHighBars = 50 * kMillimetre;
constexpr double kNarrow = 30 * kMillimetre;
// EAN and UPC digits in 10 points go with this X (ISO/IEC 15420).
constexpr double kNominalEanModule = 330;
// Wide symbols in a low box keep bars: of the height of both, so much is the font's at most.
constexpr double kLargestShare = 2.0 / 3;

class Sizer {
 public:
  Sizer(const Symbol& encoded, const Options& settings, const Box& room)
      : symbol(encoded),
        options(settings),
        box(room),
        type(*FindSymbology(encoded.type)),
        mode(SizeModeOf(settings)),
        outline(encoded, settings, PlanText(encoded, settings, kDefaultPoints)) {}

  Measures measure();

 private:
  Measures measureRows(double x) const;
  double defaultPoints(const Measures& m) const;
  double chooseModule() const;
  double moduleOfMode() const;
  double readableModule() const;
  double fitModule() const;
  double widestFitting(double most) const;
  double minimalModule() const;
  bool fits(double module, double tolerance) const;
  double contentHeight(double module) const;
  double leastHeight(double module) const;

  const Symbol& symbol;
  const Options& options;
  const Box& box;
  const Symbology& type;
  SizeMode mode;
  Outline outline;
};

// Square modules and hexagons: the width settles the height.
bool HasProportions(Geometry geometry) {
  return geometry == Geometry::kMatrix || geometry == Geometry::kDots ||
         geometry == Geometry::kHexagonal;
}

double Sizer::contentHeight(double module) const {
  return module * (symbol.geometry == Geometry::kHexagonal
                       ? HexagonRowsHeight(symbol)
                       : static_cast<double>(symbol.rows.size()));
}

// 0: any will do.
double Sizer::leastHeight(double module) const {
  if (HasProportions(symbol.geometry)) return contentHeight(module);
  const double rows = LeastRowsHeight(symbol, options, module);
  // What lies round bars alone may grow with the module. Nothing helps where even text leaves no
  // room.
  if (rows > 0 || outline.below(0) + kLeastBarHeight + outline.above(0) > box.height) return rows;
  return kLeastBarHeight;
}

bool Sizer::fits(double module, double tolerance) const {
  if (outline.width(module) > box.width + tolerance) return false;
  const double least = leastHeight(module);
  return least <= 0 ||
         outline.below(module) + least + outline.above(module) <= box.height + tolerance;
}

// Whether one dot is too little for a module as wide as `ideal` dots: two would be a quarter more.
bool IsTooFew(double dots, double ideal) {
  return dots < kMinimalDots && ideal * kMostTwice >= kMinimalDots;
}

// The nearest whole number of dots unless that is much more, else the one below.
double NearDots(double ideal) {
  double dots = std::round(ideal);
  if (dots > ideal * kMostLarger) --dots;
  if (IsTooFew(dots, ideal)) dots = kMinimalDots;
  return std::max(dots, 1.0);
}

// Up to `most`, which does not fit, while 0 does. All grows with the module, mostly in proportion,
// so that the end of a straight line from 0 to `most` is next to what is looked for.
double Sizer::widestFitting(double most) const {
  constexpr double kNext = 0x1p-46;
  const auto share = [](double least, double largest, double room) {
    return largest > room ? (room - least) / (largest - least) : 1;
  };
  const auto height = [this](double x) {
    return outline.below(x) + leastHeight(x) + outline.above(x);
  };
  double part = share(outline.width(0), outline.width(most), box.width);
  if (leastHeight(most) > 0) {
    part = std::min(part, share(height(0), height(most), box.height));
  }
  double low = most * part * (1 - kNext), high = most * part * (1 + kNext);
  if (!fits(low, 0)) low = 0;
  if (fits(high, 0)) high = most;
  for (int i = 0; i < 60; ++i) {
    const double middle = (low + high) / 2;
    if (middle == low || middle == high) break;
    (fits(middle, 0) ? low : high) = middle;
  }
  return low;
}

// The largest module width that fits; 0: none, or not one whole dot.
double Sizer::fitModule() const {
  if (!fits(0, 0)) return 0;
  double low = box.width / outline.modules();
  if (!fits(low, 0)) low = widestFitting(low);
  const double dot = DotOf(options);
  if (dot <= 0) return low;
  double dots = std::floor(low / dot);
  if (fits((dots + 1) * dot, kBoxTolerance)) ++dots;
  // Between one dot and two is better than one, where that can be drawn.
  return IsTooFew(dots, low / dot) && !options.dpiIsReal ? low : dots * dot;
}

double Sizer::minimalModule() const {
  // Postal and parcel services fix the size of their symbols.
  const bool fixed =
      symbol.geometry == Geometry::kFourState || symbol.geometry == Geometry::kHexagonal;
  const double least = fixed ? type.nominalX : kDecoderMinimum[options.decoder];
  const double dot = DotOf(options);
  if (dot <= 0) return least;
  return std::max(std::ceil(least / dot - kDotSlack), kMinimalDots) * dot;
}

// What is too wide on whole dots may have been asked for without.
double Sizer::chooseModule() const {
  const double module = moduleOfMode();
  if (!options.endsAtBox || fits(module, kBoxTolerance)) return module;
  const double largest = fitModule();
  return largest > 0 ? largest : module;
}

double Sizer::moduleOfMode() const {
  switch (mode) {
    case SizeMode::kFit:
      if (const double module = fitModule(); module > 0) return module;
      return minimalModule();  // does not fit: as small as it can be read
    case SizeMode::kModule: {
      const double module = options.moduleWidth > 0 ? options.moduleWidth : type.nominalX;
      const double dot = DotOf(options);
      if (dot <= 0) return module;
      return dot * (options.dpiIsReal ? std::max(std::floor(module / dot + kDotSlack), 1.0)
                                      : NearDots(module / dot));
    }
    case SizeMode::kMinimal:
      break;
  }
  return minimalModule();
}

// The smallest module for the decoder, of two dots where they are known.
double Sizer::readableModule() const {
  const double dots = KnowsDots(options) ? kMinimalDots * kInch / options.dpiX : 0;
  return std::max(kDecoderMinimum[options.decoder], dots);
}

Measures Sizer::measureRows(double x) const {
  Measures m;
  m.module = x;
  m.width = outline.width(x);
  m.left = outline.left(x);
  m.right = m.left + outline.modules() * x;
  m.bottom = outline.below(x);
  m.top = m.bottom;
  const double rowSpace = box.height - outline.below(x) - outline.above(x);
  if (HasProportions(symbol.geometry)) {
    m.rowHeights.assign(symbol.rows.size(), x);
    m.top += contentHeight(x);
  } else {
    m.rowHeights = RowHeights(symbol, options, mode, {x, m.right - m.left, rowSpace});
    for (double height : m.rowHeights) m.top += height;
  }
  m.height = m.top + outline.above(x);
  return m;
}

// The text grows with the symbol that it stands under.
double Sizer::defaultPoints(const Measures& m) const {
  if (outline.text().hasDigits) {
    const int lines = outline.text().hasLine ? 2 : 1;
    return std::min(kDefaultPoints * m.module / kNominalEanModule,
                    kLargestShare * m.height / lines / kPoint);
  }
  if (m.right - m.left < kNarrow) return kSmallPoints;
  if (symbol.geometry != Geometry::kLinear) return kDefaultPoints;
  const double share = (m.top - m.bottom - kLowBars) / (kHighBars - kLowBars);
  return std::round(kSmallPoints + std::clamp(share, 0.0, 1.0) * (kLargePoints - kSmallPoints));
}

Measures Sizer::measure() {
  double x = chooseModule();
  Measures m = measureRows(x);
  if (outline.text().shown && options.fontHeight <= 0) {
    outline.setTextSize(defaultPoints(m) * kPoint);
    if (leastHeight(x) > 0) x = chooseModule();
    m = measureRows(x);
  }
  m.guardDrop = outline.guardDrop(x);
  m.bearer = outline.bearer(x);
  m.bearerType = outline.bearerType();
  m.text = outline.text();
  if (const double least = readableModule(); x < least * (1 - kModuleSlack)) {
    m.neededModule = least;
    m.neededWidth = outline.width(least);
  }
  m.fits = m.width <= box.width + kBoxTolerance && m.height <= box.height + kBoxTolerance;
  return m;
}

}  // namespace

SizeMode SizeModeOf(const Options& options) {
  if (options.sizeMode >= 0) return static_cast<SizeMode>(options.sizeMode);
  return options.moduleWidth > 0 ? SizeMode::kModule : SizeMode::kFit;
}

bool KnowsDots(const Options& options) {
  return options.dpiIsReal || options.dpiX != kUnknownDpi || options.dpiY != kUnknownDpi;
}

double DotOf(const Options& options, double dpi) {
  return options.optimalResolution && KnowsDots(options) ? kInch / dpi : 0;
}

Measures Measure(const Symbol& symbol, const Options& options, const Box& box) {
  return Sizer(symbol, options, box).measure();
}

}  // namespace Library
