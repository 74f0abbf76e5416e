// The default set: the customary sizes of each symbology, for what the user left unset. Keyed by
// the library's type numbers; lengths are millimetres. The lists differ from each other on purpose.
#include "settings/GlobalSettings.h"
#include "settings/OptionValues.h"
#include "settings/TypeFamilies.h"

#include <algorithm>
#include <span>

namespace Settings {
namespace {

struct TypeRange {
  int first;
  int last;

  constexpr bool holds(int type) const { return type >= first && type <= last; }
};

struct TypeValue {
  TypeRange types;
  double value;
};

// clang-format off
constexpr TypeValue kModuleWidths[] = {
    {{1, 9}, 0.254}, {{16, 16}, 0.254}, {{18, 18}, 0.254}, {{20, 20}, 0.254}, {{25, 25}, 0.254},
    {{31, 33}, 0.254}, {{46, 48}, 0.254}, {{50, 51}, 0.254}, {{53, 53}, 0.254}, {{55, 56}, 0.254},
    {{59, 62}, 0.254}, {{72, 72}, 0.254}, {{75, 75}, 0.254}, {{81, 81}, 0.254}, {{84, 84}, 0.254},
    {{86, 89}, 0.254}, {{98, 101}, 0.254}, {{106, 109}, 0.254},
    {{10, 15}, 0.339}, {{29, 30}, 0.339}, {{34, 39}, 0.339}, {{69, 69}, 0.339}, {{78, 80}, 0.339},
    {{21, 22}, 0.423}, {{77, 77}, 0.423},
    {{40, 45}, 0.577}, {{70, 70}, 0.577}, {{76, 76}, 0.577}, {{82, 83}, 0.577}, {{85, 85}, 0.577},
    {{90, 90}, 0.577},
    {{57, 57}, 0.87},
    {{63, 68}, 0.47},
};

constexpr TypeValue kHeights[] = {
    {{1, 9}, 10.2}, {{16, 16}, 10.2}, {{18, 18}, 10.2}, {{20, 20}, 10.2}, {{25, 25}, 10.2},
    {{31, 33}, 10.2}, {{46, 48}, 10.2}, {{50, 53}, 10.2}, {{59, 62}, 10.2}, {{72, 72}, 10.2},
    {{75, 75}, 10.2}, {{86, 89}, 10.2}, {{98, 101}, 10.2},
    {{10, 12}, 17.6}, {{37, 39}, 17.6},
    {{13, 15}, 21.9}, {{69, 69}, 21.9},
    {{21, 22}, 25.4},
    {{29, 30}, 16.0}, {{78, 78}, 16.0},
    {{34, 36}, 26.1},
    {{40, 45}, 3.2}, {{82, 83}, 3.2},
    {{63, 68}, 5.0},
    {{70, 70}, 2.5}, {{90, 90}, 2.5},
    {{76, 76}, 3.5},
    {{77, 77}, 4.0},
    {{85, 85}, 3.7},
};
// clang-format on

// The PDF417 family has a row height in place of a height: this without a module width, else 3
// modules.
constexpr double kPdf417RowHeight = 0.762;

constexpr TypeRange kHiddenText[] = {{21, 22}, {40, 45}, {57, 57}, {63, 68}, {70, 70},
                                     {76, 77}, {82, 83}, {85, 85}, {90, 90}};

constexpr int kFontSize = 8;  // points, without a module width

// `otherwise` for a type that the table doesn't list.
double ValueOf(int type, std::span<const TypeValue> table, double otherwise) {
  for (const TypeValue& row : table)
    if (row.types.holds(type)) return row.value;
  return otherwise;
}

bool Lists(std::span<const TypeRange> list, int type) {
  return std::ranges::any_of(list, [type](TypeRange types) { return types.holds(type); });
}

// 10 points for a module of 0.339 mm.
int FontSizeOf(double modulewidth) {
  return modulewidth > 0 ? Truncated(modulewidth * 1000 / 339 * 10 + 0.5) : kFontSize;
}

}  // namespace

void BarcodeSettings::applyDefaultSet() {
  g_settings.trace.Trace(Diag::kDebug, "Settings DefaultSet.");
  const bool pdf417 = IsOneOf(kPdf417Types, barcode);
  if (width < 0 && modulewidth < 0) modulewidth = ValueOf(barcode, kModuleWidths, -1.0);
  if (height < 0) height = ValueOf(barcode, kHeights, height);
  if (height < 0 && pdf417 && PDFrowheight < 0)
    PDFrowheight = modulewidth > 0 ? 3 * modulewidth : kPdf417RowHeight;
  if (text == kTextNotSet) text = Lists(kHiddenText, barcode) ? kTextHide : kTextBelow;
  if (fontsize == -1) fontsize = FontSizeOf(modulewidth);
  // The companion flag stays as it was: the ratio counts as not given.
  if (pdf417 && PDFratio.empty()) PDFratio = "11:1";
}

}  // namespace Settings
