#include "library/api/ErrorText.h"

namespace Library {
namespace {

// Callers append the place of the error to a text, without a separator, and then a full stop. So
// the two texts that get one end in a blank.
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
    {BC_E_MUSTFIT, "The barcode does not fit into the given rectangle"},
};

}  // namespace

std::string_view ErrorText(BCResult code) {
  for (const auto& row : kErrorTexts) {
    if (row.code == code) return row.text;
  }
  return "Unexpected error in the barcode library";
}

}  // namespace Library

void BCGetErrorTextA(BCResult code, char* buffer, int size) {
  if (!buffer || size < 0) return;
  const std::string_view text = Library::ErrorText(code).substr(0, static_cast<std::size_t>(size));
  buffer[text.copy(buffer, text.size())] = '\0';
}
