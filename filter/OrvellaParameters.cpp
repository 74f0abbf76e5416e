#include "filter/OrvellaParameters.h"

#include "settings/GlobalSettings.h"
#include "settings/Values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <utility>

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

// Controls in the data, in upper case, and what the library has for them: function characters are
// escapes in the data, the code sets of Code 128 stand in a format string.
constexpr char kNoSet = '\0';
constexpr char kShift = 'S';
constexpr struct Control {
  std::string_view control;
  std::string_view replacement;
  char set = kNoSet;
} kControls[] = {
    {"\\SA", "", 'A'}, {"\\SB", "", 'B'}, {"\\SC", "", 'C'}, {"\\SH", "", kShift},
    {"\\CA", "", 'A'}, {"\\CB", "", 'B'}, {"\\CC", "", 'C'}, {"\\F1", "\\210"},
    {"\\F2", "\\211"}, {"\\F3", "\\212"}, {"\\F4", "\\213"},
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
  const std::string wide = Fixed2(ratio);
  settings.printratio = Diag::Text(narrow, ':', wide, ':', narrow);
  if (form->form == RatioForm::kBarsAndSpaces) settings.printratio += Diag::Text(':', wide);
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

// The control at the front of `text`; null when there is none.
const Control* FindControl(std::string_view text) {
  std::string control(text.substr(0, kControlSize));
  Settings::ToUpper(control);
  const auto* row = std::ranges::find(kControls, control, &Control::control);
  return row == std::end(kControls) ? nullptr : row;
}

// The length of the text that stands for the first character of `text` once the library has
// translated escapes: \xHH, \ddd, or a letter behind a backslash. Of an escape that it doesn't
// know, each character stands for itself.
std::size_t CharacterLength(std::string_view text) {
  const auto digits = [&](std::size_t from, std::size_t count, std::string_view allowed) {
    return text.size() >= from + count &&
           text.substr(from, count).find_first_not_of(allowed) == std::string_view::npos;
  };
  if (text.front() != '\\' || text.size() < 2) return 1;
  if (text[1] == 'x') return digits(2, 2, "0123456789abcdefABCDEF") ? 4 : 1;
  if (digits(1, 3, "01234567") && text[1] <= '3') return 4;
  return std::string_view("abefnrtv\\\"").find(text[1]) == std::string_view::npos ? 1 : 2;
}

// Collects the format string that holds a symbol to the code sets asked for: one "#" for each
// character of the data, and the letters of the sets between them.
class CodeSets {
 public:
  void choose(char newSet) {
    used = true;
    set = newSet;
    format += set;
  }
  // To the other one of A and B for one character.
  void shift() {
    used = shifted = true;
    format += set == 'A' ? 'B' : 'A';
  }
  void character() {
    format += '#';
    if (std::exchange(shifted, false)) format += set;
  }
  // Empty when the data ask for no set.
  std::string takeFormat() { return used ? std::move(format) : std::string(); }

 private:
  std::string format;
  char set = 'B';
  bool shifted = false;
  bool used = false;
};

void Apply(const Control& control, CodeSets& sets) {
  switch (control.set) {
    case kNoSet:
      return sets.character();
    case kShift:
      return sets.shift();
    default:
      return sets.choose(control.set);
  }
}

void SetData(std::string_view data, Record& settings) {
  constexpr int kCode128 = 20;
  CodeSets sets;
  settings.data.clear();
  while (!data.empty()) {
    const Control* const control = FindControl(data);
    const std::size_t size = control ? kControlSize : CharacterLength(data);
    settings.data += control ? control->replacement : data.substr(0, size);
    if (control) {
      Apply(*control, sets);
    } else {
      sets.character();
    }
    data.remove_prefix(size);
  }
  const std::string format = sets.takeFormat();
  if (settings.barcode == kCode128 && !format.empty()) settings.formatstring = format;
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
  SetData(OrvellaText(data), settings);
  g_settings.trace.Trace(Diag::kDebug, "Data String: ", settings.quoted(settings.data));
  return Diag::kSuccess;
}

}  // namespace Filter
