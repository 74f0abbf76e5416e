#include "library/api/ErrorText.h"

namespace Library {
namespace {

// Texts that something may be appended to end in a blank.
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
    {BC_E_MODULENOTFOUND, "A library that this barcode needs (libzint or zlib) is missing"},
    {BC_E_MUSTFIT, "The barcode does not fit into the given rectangle"},
};

thread_local BCResult lastDetailed = BC_OK;  // code of the last failure if it has a detail

std::string_view LongestText(BCResult code) {
  for (const auto& row : kErrorTexts) {
    if (row.code == code) return row.text;
  }
  return "Unexpected error in the barcode library";
}

}  // namespace

void NoteFailure(BCResult code, bool hasDetail) noexcept {
  lastDetailed = hasDetail ? code : BC_OK;
}

std::string_view ErrorText(BCResult code) {
  std::string_view text = LongestText(code);
  if (text.ends_with(' ') && code != lastDetailed) text.remove_suffix(1);
  return text;
}

}  // namespace Library

void BCGetErrorTextA(BCResult code, char* buffer, int size) {
  if (!buffer || size < 0) return;
  const std::string_view text = Library::ErrorText(code);
  buffer[text.copy(buffer, static_cast<std::size_t>(size))] = '\0';
}
