#include "engine/Overhead.h"

#include "diag/Text.h"
#include "engine/Length.h"
#include "engine/PclCodes.h"
#include "settings/GlobalSettings.h"

#include <string_view>

namespace Engine {

namespace {

using Settings::BarcodeSettings;

constexpr std::string_view kOpener = "\n\n% BEGIN OF BARCODE\ngsave\n";
constexpr std::string_view kCloser = "grestore\n% END OF BARCODE\n\n";

// initgraphics resets the matrix, too: the current point goes through device space to survive it.
constexpr std::string_view kAtCurrentPointReset =
    "% translate to current position\n"
    "currentpoint transform initgraphics itransform translate\n";
constexpr std::string_view kAtCurrentPoint =
    "% translate to current position\n"
    "currentpoint translate\n";
constexpr std::string_view kAbsolute = "initgraphics\n\n";

constexpr std::string_view kEpsProlog =
    "/BeginBarcodeEPSF { %def               % Prepare for EPS file\n"
    "  /b4_Inc_state save def               % Save state for cleanup\n"
    "  /dict_count countdictstack def\n"
    "  /op_count count 1 sub def            % Count objects on op stack\n"
    "  userdict begin                       % Make userdict currend dict\n"
    "  /showpage { } def                    % Redefine showpage to be null\n"
    "  0 setgray 0 setlinecap\n"
    "  1 setlinewidth 0 setlinejoin\n"
    "  10 setmiterlimit [ ] 0 setdash newpath\n"
    "  /languagelevel where                 % If level not equal to 1 then\n"
    "    {pop languagelevel                 % set strokeadjust and\n"
    "    1 ne                               % overprint to their defaults\n"
    "    {false setstrokeadjust false setoverprint\n"
    "    } if\n"
    "  } if\n"
    "} bind def/EndBarcodeEPSF { %def\n"
    "  count op_count sub {pop} repeat\n"
    "% Clean up dict stack\n"
    "  countdictstack dict_count sub {end} repeat\n"
    "  b4_Inc_state restore\n"
    "} bind def\n"
    "\n"
    "BeginBarcodeEPSF\n"
    "\n";
static_assert(kEpsProlog.size() == 911, "drivers downstream know the prolog byte for byte");

constexpr std::string_view kEpsEpilogue = "\nEndBarcodeEPSF\n";

constexpr double kDecipointsPerInch = 720;
constexpr double kMillimetresPerInch = 25.4;

int Decipoints(double millimetres) {
  return ToInt32(kDecipointsPerInch * millimetres / kMillimetresPerInch + 0.5);
}

std::string_view Placement(const BarcodeSettings& settings) {
  if (settings.pos == 0) return kAbsolute;
  if (settings.drawnAtText) return kPlacementAtText;
  return settings.initgraphics == 1 ? kAtCurrentPointReset : kAtCurrentPoint;
}

void WrapPostScript(std::string& output, const BarcodeSettings& settings) {
  if (settings.embed != 1 || settings.nooverhead == 1) return;
  g_settings.trace.Trace(Diag::kDebug, "Adding EPS overhead.");
  output = Diag::Text(kOpener, Placement(settings), kEpsProlog, output, kEpsEpilogue, kCloser);
}

// To the right edge of the barcode and, unless it stands on the cursor's line, to its lower edge.
std::string CursorMove(const BarcodeSettings& settings) {
  const int down = settings.origin == Settings::kOriginBottom ? 0 : Decipoints(settings.height);
  return Diag::Text("\033&a+", Decipoints(settings.width), "h+", down, 'V');
}

void WrapPcl(std::string& output, const BarcodeSettings& settings) {
  g_settings.trace.Trace(Diag::kDebug, "Handling PCL overhead.");
  const bool framed = settings.embed != 1 && settings.nooverhead != 1;
  if (framed) output.insert(0, kPclJobOpener);
  if (settings.movecursor == 1) output += CursorMove(settings);
  if (framed) output += kPclJobCloser;
}

}  // namespace

void addOverhead(std::string& output, const BarcodeSettings& settings) {
  if (settings.format == Settings::kFormatPostScript) WrapPostScript(output, settings);
  if (settings.format == Settings::kFormatPcl) WrapPcl(output, settings);
}

}  // namespace Engine
