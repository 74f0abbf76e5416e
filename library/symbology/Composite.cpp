// A composite symbol from top to bottom:
//
//   component   rows of 2 X (CC-A, CC-B) or 3 X (CC-C)
//   separator   one row of 1 X; over EAN and UPC three of 2 X
//   linear      the rows of the symbol as it is without component, as high as they are there
//
// Both parts share one grid of modules and are shifted against each other. Most linear symbols tell
// in their bars that a component is above them; EAN and UPC do not, and keep the bars that they
// have without it, add-on included.
#include "library/symbology/Composite.h"

#include "library/Error.h"
#include "library/prepare/Gs1.h"
#include "library/prepare/Prepare.h"
#include "library/symbology/CompositeCode128.h"
#include "library/symbology/CompositeRows.h"
#include "library/symbology/DataBar.h"
#include "library/symbology/Encode.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Families.h"
#include "library/symbology/ZintSymbol.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>

namespace Library {
namespace {

// Whose the bars of the linear part are, and what libzint is told of it.
enum class Linear {
  kEanUpc,    // ours; digits that stand for any others
  kCode128,   // ours; digits that make a symbol as wide
  kGtin,      // libzint's
  kExpanded,  // libzint's
};

}  // namespace

struct CompositeForm {
  int zint;  // libzint's number
  Linear linear;
  std::string_view text = "";  // digits that stand for others, or the identifier of the data
  int leastPairs = 0;          // of segments in the first row, for the component above
};

// clang-format off
const CompositeForm kEan8Composite =                   {BARCODE_EANX_CC,       Linear::kEanUpc, "0000000"};
const CompositeForm kEan13Composite =                  {BARCODE_EANX_CC,       Linear::kEanUpc, "000000000000"};
const CompositeForm kUpcAComposite =                   {BARCODE_UPCA_CC,       Linear::kEanUpc, "00000000000"};
const CompositeForm kUpcEComposite =                   {BARCODE_UPCE_CC,       Linear::kEanUpc, "0000000"};
const CompositeForm kGs1Code128Composite =             {BARCODE_GS1_128_CC,    Linear::kCode128};
const CompositeForm kSsccComposite =                   {BARCODE_GS1_128_CC,    Linear::kCode128, "00"};
const CompositeForm kEan14Composite =                  {BARCODE_GS1_128_CC,    Linear::kCode128, "01"};
const CompositeForm kDataBarComposite =                {BARCODE_DBAR_OMN_CC,   Linear::kGtin};
const CompositeForm kLimitedDataBarComposite =         {BARCODE_DBAR_LTD_CC,   Linear::kGtin};
const CompositeForm kExpandedDataBarComposite =        {BARCODE_DBAR_EXP_CC,   Linear::kExpanded};
const CompositeForm kStackedDataBarComposite =         {BARCODE_DBAR_STK_CC,   Linear::kGtin};
const CompositeForm kStackedOmniDataBarComposite =     {BARCODE_DBAR_OMNSTK_CC, Linear::kGtin};
const CompositeForm kStackedExpandedDataBarComposite = {BARCODE_DBAR_EXPSTK_CC, Linear::kExpanded, "", 2};
// clang-format on

namespace {

enum Component : int { kAuto = 1, kA, kB, kC };

// An element is an identifier of two digits or more and a value. libzint divides by what is left of
// the width of shorter GS1-128 data under a CC-C, and reads past a shorter component.
constexpr std::size_t kLeastElements = 3;
constexpr std::size_t kMaxElements = 2361;  // digits of a CC-C

// The data of a component, as a symbology of its own.
constexpr Symbology kComponent = {
    .type = 0,
    .name = "composite component",
    .family = Families::kDataBarExpanded,
    .encoder = nullptr,
    .normalize = nullptr,
    .characters = kDataBarCharacters,
    .minLength = kLeastElements,
    .maxLength = 2 * kMaxElements,  // with parentheses
    .fixedLength = 0,
    .check = {CheckKind::kBuiltIn, 0, 0, {1}},
    .nominalX = 0,
    .quietZone = {},
};

// libzint reads the six digits of a date that stands in front, whatever is there.
bool LacksDate(const Data& elements) {
  constexpr std::size_t kDateElement = 8;
  const auto second = elements[1].value;
  return elements[0].value == '1' && (second == '1' || second == '7') &&
         elements.size() < kDateElement;
}

// The elements of the component, whose data begin at `begin`, as libzint takes them.
std::string ComponentElements(const Options& options, std::size_t begin) {
  Options component;
  component.data = options.data.substr(std::min(begin, options.data.size()));
  component.translateEscapes = options.translateEscapes;
  Data data = MessageOf(component, kComponent);
  for (DataCharacter& character : data) character.source += static_cast<std::int32_t>(begin);
  data = Prepare(component, kComponent, std::move(data)).data;
  const ElementString elements = ParseElementString(data, options.autoCorrect > 0);
  if (elements.data.size() < kLeastElements) throw Error(BC_E_INVALIDDATA);
  if (elements.data.size() > kMaxElements) throw Error(BC_E_DATATOOLONG);
  if (LacksDate(elements.data)) {
    throw Error(BC_E_INVALIDDATA, DataIndex(elements.data.front().source));
  }
  return UncheckedElements(elements.data);
}

// The element string that a linear symbol holds, of the data that its encoder took.
Data LinearElements(const CompositeForm& form, const EncoderInput& input) {
  Data elements;
  if (TakesGs1(input.symbology, input.options)) {
    elements = ParseElementString(input.data, input.options.autoCorrect > 0).data;
  } else {
    for (const char digit : form.text) elements.push_back({static_cast<unsigned char>(digit), -1});
    elements.insert(elements.end(), input.data.begin(), input.data.end());
  }
  if (elements.size() < kLeastElements) throw Error(BC_E_INVALIDDATA);
  return elements;
}

// What libzint is told of a linear part. Those that it does not draw have the same width.
std::string LinearContent(const CompositeForm& form, const EncoderInput& input,
                          const std::optional<LinkedCode128>& code128) {
  switch (form.linear) {
    case Linear::kEanUpc:
      return std::string(form.text);
    case Linear::kCode128:
      return "[]" + code128->digitsOfSameWidth();
    case Linear::kGtin:
      return Bytes(input.data).substr(0, input.data.size() - 1);
    case Linear::kExpanded:
      break;
  }
  return UncheckedElements(LinearElements(form, input));
}

bool CarriesC(const CompositeForm& form) {
  return form.linear == Linear::kCode128;
}

// The data of both parts, as libzint takes them.
struct Content {
  std::string linear, component;
};

void EncodeAs(int componentType, const Content& content, ZintSymbol& symbol) {
  symbol->input_mode = GS1_MODE | GS1NOCHECK_MODE;
  symbol->option_1 = componentType;
  if (content.linear.size() >= sizeof symbol->primary) throw Error(BC_E_DATATOOLONG);
  std::memcpy(symbol->primary, content.linear.c_str(), content.linear.size() + 1);
  symbol.encode(content.component);
}

bool IsSame(const ZintSymbol& a, const ZintSymbol& b) {
  if (a->rows != b->rows || a->width != b->width) return false;
  for (int row = 0; row < a->rows; ++row) {
    if (a.runs(row) != b.runs(row)) return false;
  }
  return true;
}

void EncodeBoth(const CompositeForm& form, const Options& options, const Content& content,
                ZintSymbol& symbol) {
  const int type = options.compositeType - kAuto;
  symbol->option_2 = SegmentPairs(options);
  EncodeAs(type, content, symbol);
  const int largest = (CarriesC(form) ? kC : kB) - kAuto;
  if (type == 0 || type == largest) return;
  // A component that is too large for the type silently becomes one of the next.
  ZintSymbol next(form.zint);
  next->option_2 = SegmentPairs(options);
  EncodeAs(type + 1, content, next);
  if (IsSame(symbol, next)) throw Error(BC_E_DATATOOLONG);
}

// Gives a Code 128 the bars that tell of the component above.
void DrawLinked(const LinkedCode128& code128, const ZintSymbol& composed,
                const Symbology& symbology, Symbol& symbol) {
  constexpr float kRowHeightOfC = 3;
  const bool componentC = composed->row_height[0] == kRowHeightOfC;
  const std::uint8_t check = code128.draw(componentC, symbol);
  if (symbology.check.kind == CheckKind::kBuiltIn) symbol.checkDigits = std::to_string(check);
}

void Join(const CompositeForm& form, const ZintSymbol& composed, Symbol& symbol) {
  const std::size_t linearRows = symbol.rows.size();
  const int linearWidth = symbol.width;
  const bool ownBars = form.linear == Linear::kEanUpc || form.linear == Linear::kCode128;
  const int shift = JoinComponent(composed, ownBars, symbol);
  const std::size_t separator = symbol.rows.size() - linearRows - 1;
  const ModuleSpan linear = {shift, shift + linearWidth};
  if (form.linear == Linear::kCode128) DrawSeparator(symbol, separator, linear);
  // libzint's is wrong over the finders behind the fourth.
  if (form.linear == Linear::kExpanded) DrawExpandedSeparator(symbol, separator, linear);
}

}  // namespace

void CheckComponentType(const Options& options, const Symbology& symbology) {
  const CompositeForm* const form = symbology.composite;
  const bool carried = form != nullptr && (options.compositeType != kC || CarriesC(*form));
  if (!carried) throw Error(BC_E_NOTSUPPORTED).inComponent();
}

Symbol EncodeComposite(const Options& options, const Symbology& symbology) {
  const CompositeForm& form = *symbology.composite;
  const int pairs = SegmentPairs(options);
  if (pairs > 0 && pairs < form.leastPairs) throw Error(BC_E_INVALIDARG);
  const std::size_t bar = std::min(options.data.find('|'), options.data.size());
  Options linear = options;
  linear.compositeType = 0;
  linear.data.resize(bar);
  const PreparedData prepared = Prepare(linear, symbology, MessageOf(linear, symbology));
  const EncoderInput input = {linear, symbology, prepared.data, prepared.given};
  Symbol symbol = EncodePrepared(linear, symbology, prepared);
  std::optional<LinkedCode128> code128;
  if (form.linear == Linear::kCode128) code128.emplace(LinearElements(form, input));
  Content content = {LinearContent(form, input, code128), {}};

  ZintSymbol composed(form.zint);
  try {
    content.component = ComponentElements(options, bar + 1);
    EncodeBoth(form, options, content, composed);
  } catch (const Error& error) {
    throw error.inComponent();
  }
  if (code128) DrawLinked(*code128, composed, symbology, symbol);
  Join(form, composed, symbol);
  return symbol;
}

}  // namespace Library
