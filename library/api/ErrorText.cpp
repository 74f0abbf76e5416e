#include "library/api/ErrorText.h"

namespace Library {
namespace {

// Texts to which something may be appended end in a blank.
constexpr struct {
  BCResult code;
  std::string_view text;
} kErrorTexts[] = {
    {BC_OK, "No error"},
    {BC_E_INVALIDARG, "Invalid argument, unsupported barcode type or call out of order"},
    {BC_E_OUTOFMEMORY, "Out of memory"},
    {BC_E_INVALIDDATA, "Invalid data for this barcode type "},
    {BC_E_DATATOOLONG, "Data too long for this barcode type or size "},
    {BC_E_NOTSUPPORTED, "Not supported for this barcode type or combination of options"},
    {BC_E_BUFFERTOOSMALL, "Output buffer too small"},
    {BC_E_MODULENOTFOUND, "A library that this barcode or its format needs is missing"},
    {BC_E_MUSTFIT, "The barcode does not fit into the given rectangle"},
};

std::string_view LongestText(BCResult code) {
  for (const auto& row : kErrorTexts) {
    if (row.code == code) return row.text;
  }
  return "Unexpected error in the barcode library";
}

}  // namespace

std::string_view ErrorText(BCResult code, bool hasDetail) {
  std::string_view text = LongestText(code);
  if (text.ends_with(' ') && !hasDetail) text.remove_suffix(1);
  return text;
}

}  // namespace Library
