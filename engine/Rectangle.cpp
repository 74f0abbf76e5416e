#include "engine/Rectangle.h"

#include "engine/Length.h"
#include "settings/GlobalSettings.h"

#include <algorithm>

namespace Engine {

using namespace Settings;

namespace {

struct Placement {
  int format;
  int origin;
  int top;     // heights added to the y position
  int bottom;  // heights added to the y position
};

// The first row of a format has the origin it takes when none is set.
constexpr Placement kPlacements[] = {
    {kFormatPostScript, kOriginBottom, +1, 0},
    {kFormatPostScript, kOriginTop, 0, -1},
    {kFormatPdf, kOriginBottom, +1, 0},
    {kFormatPdf, kOriginTop, 0, -1},
    {kFormatPdfFragment, kOriginBottom, +1, 0},
    {kFormatPdfFragment, kOriginTop, 0, -1},
    {kFormatPcl, kOriginTop, 0, +1},
    {kFormatPcl, kOriginBottom, -1, 0},
    {kFormatImage, kOriginTop, 0, +1},
    {kFormatImage, kOriginBottom, 0, +1},
};

const Placement* FindPlacement(const BarcodeSettings& settings) {
  const auto* const row = std::ranges::find_if(kPlacements, [&](const Placement& placement) {
    return placement.format == settings.format &&
           (settings.origin == kOriginNotSet || placement.origin == settings.origin);
  });
  return row != std::end(kPlacements) ? row : nullptr;
}

}  // namespace

BCRect PlaceBarcode(BarcodeSettings& settings) {
  BCRect rectangle = {RoundedThousandths(settings.xpos), 0,
                      RoundedThousandths(settings.xpos + settings.width), 0};
  const Placement* const placement = FindPlacement(settings);
  if (placement == nullptr) {
    g_settings.trace.Trace(Diag::kError, "Image format not set!");
    return rectangle;
  }
  settings.origin = placement->origin;
  rectangle.top = RoundedThousandths(settings.ypos + placement->top * settings.height);
  rectangle.bottom = RoundedThousandths(settings.ypos + placement->bottom * settings.height);
  return rectangle;
}

}  // namespace Engine
