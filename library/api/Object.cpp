// Life of a barcode object, and what can be asked of it.
#include "library/api/Barcode.h"
#include "library/api/CopyText.h"
#include "library/api/ErrorText.h"
#include "library/api/Reason.h"
#include "library/grid/Parts.h"
#include "library/layout/ElementWidths.h"
#include "library/layout/RowHeights.h"
#include "library/symbology/Encode.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

namespace Library {
namespace {

int CountRows(const Symbol& symbol) {
  if (symbol.geometry == Geometry::kLinear || symbol.geometry == Geometry::kFourState) return 1;
  return static_cast<int>(
      std::count_if(symbol.rows.begin(), symbol.rows.end(), [&symbol](const SymbolRow& row) {
        return symbol.geometry != Geometry::kStacked || !IsSeparator(row);
      }));
}

Error CurrentError() noexcept {
  try {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return Error(BC_E_OUTOFMEMORY);
  } catch (const std::length_error&) {
    return Error(BC_E_OUTOFMEMORY);
  } catch (...) {
    return Error(kInternalError);
  }
}

// Whether the queries of the object can say more about its last error than `code` does: which
// character is invalid, how many there may be.
bool HasDetail(const BCBarcode& barcode, BCResult code) {
  const Error& error = barcode.lastError;
  if (code == BC_E_DATATOOLONG) return MaxDataLength(barcode.options.type) > 0;
  const std::size_t shown = std::strlen(barcode.options.data.c_str());
  return code == BC_E_INVALIDDATA && error.position.known() &&
         static_cast<std::size_t>(error.position.value) < shown;
}

}  // namespace

BCBarcode::Grid& EncodedGrid(BCBarcode& barcode) {
  if (!barcode.grid) barcode.grid = {EncodeParts(barcode.options), {}};
  return *barcode.grid;
}

BCResult Fail(BCBarcode& barcode) noexcept {
  barcode.lastError = CurrentError();
  return barcode.lastError.code;
}

}  // namespace Library

using namespace Library;

BCResult BCAlloc(BCBarcode** handle) {
  if (!handle) return BC_E_INVALIDARG;
  *handle = nullptr;
  if (!IsSessionOpen()) return BC_E_INVALIDARG;
  *handle = new (std::nothrow) BCBarcode;
  return *handle ? BC_OK : BC_E_OUTOFMEMORY;
}

// Works without a session too, so that nothing has to leak.
BCResult BCFree(BCBarcode* b) {
  if (!b) return BC_E_INVALIDARG;
  delete b;
  return BC_OK;
}

BCResult BCCreate(BCBarcode* b) {
  return Guarded(b, [](BCBarcode& barcode) {
    barcode.symbol.reset();
    barcode.kept.reset();
    barcode.lastError = Error(BC_OK);
    const bool grid = barcode.options.grid.enabled;
    Symbol symbol = grid ? EncodedGrid(barcode).symbols.front() : Encode(barcode.options);
    ElementWidths(symbol, barcode.options.ratio);  // throws for a ratio that does not suit it
    barcode.symbol = std::move(symbol);
  });
}

int BCGetBCType(BCBarcode* b) {
  return b ? b->options.type : 0;
}

int BCGetMaxLenOfData(int type) {
  return MaxDataLength(type);
}

int BCGetCheckDigitsA(BCBarcode* b, char* buffer, int size) {
  if (!b) return -1;
  CopyText(b->symbol ? b->symbol->checkDigits : std::string(), buffer, size);
  try {
    return CheckDigitCount(b->options);
  } catch (...) {
    return 0;
  }
}

const char* BCGetTextA(BCBarcode* b) {
  return b ? b->options.data.c_str() : "";
}

int BCGetInvalidDataPos(BCBarcode* b) {
  return b ? b->lastError.position.value : -1;
}

void BCGetErrorTextA(BCResult code, char* buffer, int size) {
  if (buffer && size >= 0) CopyText(ErrorText(code, false), buffer, size + 1);
}

void BCGetObjectErrorTextA(BCBarcode* b, BCResult code, char* buffer, int size) {
  if (buffer && size >= 0) CopyText(ErrorText(code, b && HasDetail(*b, code)), buffer, size + 1);
}

int BCGetReasonA(BCBarcode* b, BCResult code, char* buffer, int size) {
  if (!b) return 0;
  try {
    const std::string reason = ReasonOf(*b, code);
    CopyText(reason, buffer, size);
    return static_cast<int>(reason.size());
  } catch (...) {
    CopyText("", buffer, size);
    return 0;
  }
}

int BCGetCountRows(BCBarcode* b) {
  return b && b->symbol ? CountRows(*b->symbol) : 0;
}

int BCGet2DCompositeComponent(BCBarcode* b) {
  return b ? b->options.compositeType : 0;
}

int BCGet_CompSym_ErrorInCC(BCBarcode* b) {
  return b && b->lastError.inComposite;
}
