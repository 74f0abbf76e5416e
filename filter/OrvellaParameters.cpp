#include "filter/OrvellaParameters.h"

#include "settings/GlobalSettings.h"
#include "settings/Values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

namespace Filter {
namespace {

using Record = Settings::BarcodeSettings;

constexpr double kMillimetresPerUnit = 25.4 / 300;

struct Symbology {
  int type;            // the library's number; 0: none
  int checkMethod{0};  // the library's number; 0: as set
};

// By p1, which counts from 1.
constexpr Symbology kSymbologies[] = {
    {8},                     // Code 39
    {7},                     // 2 of 5 Industrial
    {3},                     // 2 of 5 Interleaved
    {18},                    // Codabar
    {10},                    // EAN-8
    {13},                    // EAN-13
    {5},                     // 2 of 5 Matrix
    {0},      {1, 7},        // Code 11, one check digit
    {0},      {34},          // UPC-A
    {20},                    // Code 128
    {25},                    // Code 93
    {11},                    // EAN-8 and 2 digits
    {12},                    // EAN-8 and 5 digits
    {37},                    // UPC-E
    {47, 10},                // MSI, mod 10
    {9},                     // Code 39 Extended
    {4},                     // 2 of 5 IATA
    {6},                     // 2 of 5 Data Logic
    {1, 8},                  // Code 11, two check digits
    {47, 11},                // MSI, mod 10 twice
    {0},      {0},    {55},  // PDF417
    {56},                    // PDF417 Truncated
};
static_assert(std::size(kSymbologies) == 26);

enum class RatioForm {
  kBars,           // narrow bar, wide bar, space
  kBarsAndSpaces,  // narrow bar, wide bar, narrow space, wide space
};

constexpr struct {
  int type;
  RatioForm form;
} kRatioForms[] = {
    {1, RatioForm::kBarsAndSpaces},  {3, RatioForm::kBarsAndSpaces},
    {4, RatioForm::kBars},           {7, RatioForm::kBars},
    {8, RatioForm::kBarsAndSpaces},  {9, RatioForm::kBarsAndSpaces},
    {18, RatioForm::kBarsAndSpaces}, {47, RatioForm::kBarsAndSpaces},
};

// By p5, which counts from 1.
constexpr double kRatios[] = {2.0, 2.5, 3.0, 3.5};

// By p6.
constexpr struct {
  int text;
  bool turned;  // by 90 degrees
  bool optimalWidth;
} kTextModes[] = {
    {Settings::kTextHide, false, false},  {Settings::kTextBelow, false, false},
    {Settings::kTextAbove, false, false}, {Settings::kTextHide, true, false},
    {Settings::kTextBelow, true, false},  {Settings::kTextAbove, true, false},
    {Settings::kTextBelow, false, true},
};

// Controls in the data, in lower case, and what the library's escape translation has for them. It
// has nothing to choose a code set with; the encoder finds the sets that suit the data.
constexpr struct {
  std::string_view control;
  std::string_view replacement;
} kControls[] = {
    {"\\sa", ""},      {"\\sb", ""},      {"\\sc", ""},      {"\\sh", ""},
    {"\\ca", ""},      {"\\cb", ""},      {"\\cc", ""},      {"\\f1", "\\210"},
    {"\\f2", "\\211"}, {"\\f3", "\\212"}, {"\\f4", "\\213"},
};
constexpr std::size_t kControlSize = 3;

// The digits at the front of `text`, which then begins behind the byte that follows them.
int TakeNumber(std::string_view& text) {
  const int number = Settings::DecimalPrefix(text);
  const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
  text.remove_prefix(std::min(digits + 1, text.size()));
  return number;
}

// p1 to p6. A number that is missing is 0.
std::array<int, 6> TakeNumbers(std::string_view& text) {
  g_settings.trace.Trace(Diag::kDebug, "Orvella Parameters:");
  std::array<int, 6> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    numbers[i] = TakeNumber(text);
    g_settings.trace.Trace(Diag::kDebug, 'p', i + 1, " = ", numbers[i]);
  }
  return numbers;
}

std::string Fixed2(double number) {
  char text[320];  // the largest double
  const auto end = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, 2).ptr;
  return {text, end};
}

// False when the number stands for no type.
bool SetSymbology(int number, Record& settings) {
  if (number < 1 || number > static_cast<int>(std::size(kSymbologies))) return false;
  const Symbology& symbology = kSymbologies[number - 1];
  if (symbology.type == 0) return false;
  settings.barcode = symbology.type;
  if (symbology.checkMethod != 0) settings.checkdigit = symbology.checkMethod;
  return true;
}

void SetSizes(int moduleWidth, int height, Record& settings) {
  if (moduleWidth >= 50 && moduleWidth <= 999) {
    settings.modulewidth = moduleWidth * kMillimetresPerUnit;
    // A fifth of the module width, from 1/300 inch to points.
    settings.fontsize = moduleWidth * 72 / (300 * 5);
  }
  if (height > 0) settings.height = height * kMillimetresPerUnit;
}

void SetRatio(int wideWidth, int family, Record& settings) {
  const auto* form =
      std::ranges::find(kRatioForms, settings.barcode, [](const auto& row) { return row.type; });
  if (form == std::end(kRatioForms)) return;
  double ratio = 0;
  if (wideWidth > 0 && settings.modulewidth > 0) {
    ratio = wideWidth * kMillimetresPerUnit / settings.modulewidth;
  } else if (family >= 1 && family <= static_cast<int>(std::size(kRatios))) {
    ratio = kRatios[family - 1];
  } else {
    return;
  }
  const std::string narrow = Fixed2(1.0);
  settings.printratio = narrow + ':' + Fixed2(ratio) + ':' + narrow;
  if (form->form == RatioForm::kBarsAndSpaces) settings.printratio += ':' + Fixed2(ratio);
}

void SetTextMode(int number, Record& settings) {
  if (number >= static_cast<int>(std::size(kTextModes))) return;
  const auto& mode = kTextModes[number];
  settings.text = mode.text;
  if (mode.turned) settings.rot = 1;
  if (mode.optimalWidth) settings.optimalwidth = 1;
}

void SetErrorCorrection(std::string_view text, Record& settings) {
  constexpr std::string_view kName = "ECL=";
  const std::size_t name = text.find(kName);
  if (name == std::string_view::npos) return;
  settings.PDFecl = Settings::DecimalPrefix(text.substr(name + kName.size()));
  g_settings.trace.Trace(Diag::kDebug, "PDF417 Error Correction Level = ", settings.PDFecl);
}

// What the backslash at the front of `text` stands for, and the characters that it takes.
std::string_view TranslateControl(std::string_view text, std::size_t& size) {
  std::string control(text.substr(0, kControlSize));
  for (char& c : control)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  for (const auto& row : kControls) {
    if (row.control != control) continue;
    size = kControlSize;
    return row.replacement;
  }
  // Of another escape, the letter too: the second backslash of two begins no control.
  size = std::min<std::size_t>(2, text.size());
  return text.substr(0, size);
}

std::string TranslateControls(std::string_view data) {
  std::string result;
  while (!data.empty()) {
    const std::size_t plain = std::min(data.find('\\'), data.size());
    result += data.substr(0, plain);
    data.remove_prefix(plain);
    if (data.empty()) break;
    std::size_t size = 0;
    result += TranslateControl(data, size);
    data.remove_prefix(size);
  }
  return result;
}

}  // namespace

std::string OrvellaText(std::string_view body) {
  std::string text(body);
  Settings::ReplaceAll(text, std::string_view("\0", 1), "\\x00");
  return text;
}

Diag::ResultCode DecodeOrvella(std::string_view header, std::string_view body,
                               Settings::BarcodeSettings& settings) {
  settings.format = Settings::kFormatPcl;
  settings.text = Settings::kTextHide;
  settings.fontsize = 10;
  // A reset of the printer in the middle of its job would lose what the job has set up.
  if (settings.embed == -1) settings.embed = 1;

  std::string_view rest = (header.empty() ? body : header).substr(kOrvellaMarker.size());
  const auto [type, moduleWidth, height, wideWidth, ratio, textMode] = TakeNumbers(rest);
  if (!SetSymbology(type, settings)) {
    g_settings.trace.Trace(Diag::kError, "Invalid barcode type: ", type);
    return Diag::kInvalidArgument;
  }
  SetSizes(moduleWidth, height, settings);
  SetRatio(wideWidth, ratio, settings);
  SetTextMode(textMode, settings);
  SetErrorCorrection(rest, settings);

  const std::size_t frame = kOrvellaDataBegin + kOrvellaMarker.size();
  const std::string_view data = body.substr(kOrvellaDataBegin, body.size() - frame);
  settings.data = TranslateControls(OrvellaText(data));
  g_settings.trace.Trace(Diag::kDebug, "Data String: ", settings.data);
  return Diag::kSuccess;
}

}  // namespace Filter
