#include "engine/ApplySettings.h"

#include "diag/Text.h"
#include "engine/Session.h"
#include "engine/Setter.h"
#include "engine/SymbologySetters.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace Engine {

using Diag::ResultCode;
using S = Settings::BarcodeSettings;

namespace {

// Rows that resolve settings, without a call to the library.

BCResult FillInDefaultSet(S& settings, BCBarcode*) {
  settings.applyDefaultSet();
  return BC_OK;
}

BCResult ResolvePositioning(S& settings, BCBarcode*) {
  const bool placed = settings.xpos > 0 && settings.ypos > 0;
  settings.pos = placed && settings.format != Settings::kFormatPcl ? 0 : 1;
  return BC_OK;
}

BCResult ResolveQuietZones(S& settings, BCBarcode*) {
  const auto resolve = [&](double version1, double& quietZone) {
    if (!(version1 >= -0.5)) return;
    quietZone = version1;
    settings.quietzoneunit = Settings::kUnitMillimetre;
  };
  resolve(settings.quietzonehV1, settings.quietzoneh);
  resolve(settings.quietzonevV1, settings.quietzonev);
  return BC_OK;
}

// Rows whose values need more than handing over.

BCResult PassBearerBarWidth(S& settings, BCBarcode* handle) {
  if (!(settings.guardline > 0))
    return Pass<BCSetBearerBarWidth, &S::bearerwidth>(settings, handle);
  BCSetBearerBarType(handle, 1);
  return Pass<BCSetBearerBarWidth, &S::guardline>(settings, handle);
}

// A plain decimal without trailing zeros ("254", "338.5"). Six decimals of a thousandth of a
// millimetre are finer than any device and hide what binary fractions leave behind.
BCResult PassModuleWidth(S& settings, BCBarcode* handle) {
  constexpr int kDecimals = 6;
  char digits[std::numeric_limits<double>::max_exponent10 + kDecimals + 3];
  const auto end = std::to_chars(digits, digits + sizeof digits, settings.modulewidth * 1000,
                                 std::chars_format::fixed, kDecimals);
  std::string text(digits, end.ptr);
  if (text.find('.') != text.npos) text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return BCSetModWidthA(handle, text.c_str());
}

BCResult PassEci(S& settings, BCBarcode* handle) {
  return BCSetECI != nullptr ? BCSetECI(handle, settings.eci) : BC_E_NOTSUPPORTED;
}

bool HasQuietZone(const S& settings) {
  return settings.quietzoneh > 0 || settings.quietzonev > 0;
}

BCResult PassQuietZone(S& settings, BCBarcode* handle) {
  const double horizontal = settings.quietzoneh > 0 ? settings.quietzoneh : 0.0;
  const double vertical = settings.quietzonev > 0 ? settings.quietzonev : 0.0;
  const BCMargins margins = {horizontal, vertical, horizontal, vertical};
  return BCSetQuietZone(handle, &margins, settings.quietzoneunit);
}

bool HasTextPosition(const S& settings) {
  return settings.text >= Settings::kTextAbove && settings.text <= Settings::kTextHide;
}

BCResult PassTextPosition(S& settings, BCBarcode* handle) {
  return BCSetPrintText(handle, settings.text != Settings::kTextHide,
                        settings.text == Settings::kTextAbove);
}

// Rows whose results don't matter.

// Bars and text are black and the background white in every colour model.
BCResult PassColours(S& settings, BCBarcode* handle) {
  BCSetColorMode(handle, settings.colormode);
  switch (settings.colormode) {
    case 1:
      BCSetBarcodeColorGray(handle, 0.0);
      BCSetFontColorGray(handle, 0.0);
      BCSetBackgroundColorGray(handle, 1.0);
      break;
    case 2:
      BCSetBarcodeColorCMYK(handle, 0, 0, 0, 1);
      BCSetFontColorCMYK(handle, 0, 0, 0, 1);
      BCSetBackgroundColorCMYK(handle, 0, 0, 0, 0);
      break;
    default:
      BCSetBarcodeColorRGB(handle, 0, 0, 0);
      BCSetFontColorRGB(handle, 0, 0, 0);
      BCSetBackgroundColorRGB(handle, 1, 1, 1);
  }
  return BC_OK;
}

BCResult PassModes(S& settings, BCBarcode* handle) {
  BCSetBkMode(handle, settings.bkmode);
  BCSetPCLMode(handle, settings.pclmode);
  return BC_OK;
}

// A helper that fails has reported it; the barcode is made without the rest of its parameters.
template <ResultCode (*Helper)(S&, BCBarcode*)>
BCResult Try(S& settings, BCBarcode* handle) {
  Helper(settings, handle);
  return BC_OK;
}

// In the order of the calls: the type comes after its parameters.
// clang-format off
constexpr Setter kSetters[] = {
    {[](const S& s) { return s.defaultset; }, FillInDefaultSet},
    {IsNonZero<&S::compress>,         Pass<BCSetCompression, &S::compress>,
     "Couldn't set compression algorithm ", &S::compress},
    {[](const S& s) { return s.pos == -1; }, ResolvePositioning},
    {Always,                          Pass<BCSetCDMethod, &S::checkdigit>,
     "Couldn't set checkdigit method to ", &S::checkdigit},
    {IsNotMinusOne<&S::autocorrect>,  PassSwitch<BCSetAutoCorrect, &S::autocorrect>,
     "Couldn't set autocorrection."},
    {IsNotMinusOne<&S::translation>,  PassSwitch<BCSetTranslateEsc, &S::translation>,
     "Couldn't set translation of escape sequences."},
    {IsNonZero<&S::eci>,              PassEci,
     "Couldn't set ECI number to ", &S::eci},
    {[](const S& s) { return s.guardline > 0 || s.bearerwidth > 0; }, PassBearerBarWidth,
     "Couldn't set bearer bar width."},
    {IsNonZero<&S::bearertype>,       Pass<BCSetBearerBarType, &S::bearertype>,
     "Couldn't set bearer bar type."},
    {IsPositive<&S::notchheight>,     Pass<BCSetNotchHeight, &S::notchheight>,
     "Couldn't set notch height."},
    {IsPositive<&S::modulewidth>,     PassModuleWidth,
     "Couldn't set module width."},
    {IsNonZero<&S::reduction>,
     [](S& s, BCBarcode* b) { return BCSetBarWidthReduction(b, s.reduction, s.reductionunit); },
     "Couldn't set bar width reduction."},
    {IsNotEmpty<&S::printratio>,      Pass<BCSetRatioA, &S::printratio>,
     "Couldn't set print ratio."},
    {IsNotEmpty<&S::formatstring>,    Pass<BCSetFormatA, &S::formatstring>,
     "Couldn't set format string."},
    {IsPositive<&S::dpi>, [](S& s, BCBarcode* b) { return BCSetDPI(b, s.dpi, s.dpi); },
     "Couldn't set resolution."},
    {IsNotMinusOne<&S::optimalwidth>, PassSwitch<BCSetOptResolution, &S::optimalwidth>,
     "Couldn't set optimal barcode width."},
    {Always,                          ResolveQuietZones},
    {HasQuietZone,                    PassQuietZone,
     "Couldn't set quiet zone."},
    {Always,                          Pass<BCSetMustFit, &S::mustfit>,
     "Couldn't set 'must fit' flag."},
    {Always,                          Pass<BCSetDecoder, &S::decoder>,
     "Couldn't set decoder."},
    {IsNotMinusOne<&S::sizemode>,     Pass<BCSetSizeMode, &S::sizemode>,
     "Couldn't set size mode."},
    {HasTextPosition,                 PassTextPosition,
     "Couldn't set text position."},
    {IsNonZero<&S::align>,            Pass<BCSetTextAlignment, &S::align>,
     "Couldn't set horizontal text alignment."},
    {IsNotMinusOne<&S::fontsize>,     Pass<BCSetFontHeight, &S::fontsize>,
     "Couldn't set font size."},
    {IsNotEmpty<&S::font>,            Pass<BCSetFontNameA, &S::font>,
     "Couldn't set font name."},
    {IsLength<&S::textdist>,          Pass<BCSetTextDist, &S::textdist>,
     "Couldn't set text distance."},
    {Always,                          PassColours},
    {Always,                          PassModes},
    {Always,                          Try<ApplySymbology>},
    {IsPositive<&S::RSSseg>,          Pass<BCSet_RSS_SegmPerRow, &S::RSSseg>,
     "Could not set segments per row (RSS Expanded Stacked)."},
    {Always,                          Pass<BCSetBCType, &S::barcode>,
     "Couldn't set barcode type to ", &S::barcode},
    {IsNotNegative<&S::CCtype>,       Pass<BCSet2DCompositeComponent, &S::CCtype>,
     "Couldn't set composite component type."},
    {[](const S& s) { return s.multiple; }, Try<ApplyMultipleBarcodes>},
};

BCResult EnableGrid(S&, BCBarcode* handle) {
  return BCSet_MultiBC_Enabled(handle, 1);
}

constexpr Setter kGridSetters[] = {
    {Always,                       EnableGrid,
     "Couldn't enable multiple barcodes."},
    {IsNotMinusOne<&S::rows>,      Pass<BCSet_MultiBC_Rows, &S::rows>,
     "Couldn't set rows of multiple barcodes."},
    {IsNotMinusOne<&S::columns>,   Pass<BCSet_MultiBC_Columns, &S::columns>,
     "Couldn't set columns of multiple barcodes."},
    {IsNotMinusOne<&S::hdist>,     Pass<BCSet_MultiBC_HDist, &S::hdist>,
     "Couldn't set horizontal distance of multiple barcodes."},
    {IsNotMinusOne<&S::vdist>,     Pass<BCSet_MultiBC_VDist, &S::vdist>,
     "Couldn't set vertical distance of multiple barcodes."},
    {IsNotMinusOne<&S::datalimit>, Pass<BCSet_MultiBC_DataLimit, &S::datalimit>,
     "Couldn't set data limit of multiple barcodes."},
    {Always,                       Pass<BCSet_MultiBC_DynamicBoundingRect, &S::dynamicsize>,
     "Couldn't set dynamic bounding rectangle of multiple barcodes."},
    {Always,                       Pass<BCSet_MultiBC_StructApp, &S::structapp>,
     "Couldn't set structured append mode of multiple barcodes."},
};
// clang-format on

// Missing data must not go unseen, so a muted log speaks for one line.
void ReportMissingData() {
  Diag::TraceLog& trace = g_settings.trace;
  const bool muted = trace.isMuted();
  trace.setMuted(false);
  trace.Trace(Diag::kError, "Barcode text is missing/empty.");
  trace.setMuted(muted);
}

void Trim(S& settings) {
  std::string& data = settings.data;
  constexpr const char* kBlanks = " \t";
  data.erase(0, std::min(data.find_first_not_of(kBlanks), data.size()));
  data.erase(data.find_last_not_of(kBlanks) + 1);
  g_settings.trace.Trace(Diag::kDebug,
                         "Trimmed whitespaces. Barcode data = ", settings.quoted(data));
}

}  // namespace

ResultCode ApplySettings(S& settings, BCBarcode* handle, bool allowEmptyData) {
  const ResultCode code = ApplySetters(kSetters, settings, handle);
  if (code != Diag::kSuccess) return code;
  return ApplyBarcodeData(settings, handle, allowEmptyData);
}

ResultCode ApplyMultipleBarcodes(S& settings, BCBarcode* handle) {
  return ApplySetters(kGridSetters, settings, handle);
}

ResultCode ApplyBarcodeData(S& settings, BCBarcode* handle, bool allowEmptyData) {
  if (settings.data.empty()) {
    if (!allowEmptyData) ReportMissingData();
    return Diag::kNothingLeft;
  }
  if (settings.trimwhitespaces == 1) Trim(settings);

  constexpr std::size_t kLongest = std::numeric_limits<int>::max();
  const int length = static_cast<int>(std::min(settings.data.size(), kLongest));
  const ResultCode code = BCSetTextA(handle, settings.data.data(), length);
  if (code != Diag::kSuccess) {
    ReportFailure(Diag::kError, handle, code, "Couldn't set barcode data to ",
                  settings.quoted(settings.data), '.');
  }
  return code;
}

}  // namespace Engine
