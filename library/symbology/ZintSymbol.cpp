#include "library/symbology/ZintSymbol.h"

#include "library/Error.h"
#include "library/symbology/ModuleRuns.h"

#include <cstdint>
#include <string>

namespace Library {
namespace {

[[noreturn]] void ThrowFor(int zintError, BCResult overridden) {
  switch (zintError) {
    case ZINT_WARN_INVALID_OPTION:
      throw Error(overridden);
    case ZINT_ERROR_INVALID_DATA:
    case ZINT_ERROR_INVALID_CHECK:
      throw Error(BC_E_INVALIDDATA);
    case ZINT_ERROR_INVALID_OPTION:
      throw Error(BC_E_INVALIDARG);
    case ZINT_ERROR_MEMORY:
      throw Error(BC_E_OUTOFMEMORY);
    default:
      throw Error(kInternalError);
  }
}

// 64 modules, the first in the lowest bit.
std::uint64_t LoadWord(const unsigned char* bytes) {
  std::uint64_t word = 0;
  for (unsigned i = 0; i < 8; ++i) word |= std::uint64_t{bytes[i]} << (8 * i);
  return word;
}

std::vector<int> Runs(const unsigned char* modules, int width) {
  std::uint64_t words[sizeof(zint_symbol::encoded_data[0]) / sizeof(std::uint64_t)];
  for (int i = 0; i < width; i += 64) words[i / 64] = LoadWord(modules + i / 8);
  return ModuleRuns(words, width);
}

}  // namespace

ZintSymbol::ZintSymbol(int symbology) : symbol(Zint().create()) {
  if (symbol == nullptr) throw Error(BC_E_OUTOFMEMORY);
  symbol->symbology = symbology;
  symbol->input_mode = DATA_MODE;
}

bool ZintSymbol::tryEncode(std::string_view data, BCResult overridden) {
  const int asked = symbol->symbology;
  const int result = Zint().encode(symbol, reinterpret_cast<const unsigned char*>(data.data()),
                                   static_cast<int>(data.size()));
  if (result == ZINT_ERROR_TOO_LONG) return false;
  const bool good = result == 0 || result == ZINT_WARN_NONCOMPLIANT;
  if (!good) ThrowFor(result, overridden);
  if (symbol->symbology != asked) throw Error(kInternalError);
  return true;
}

void ZintSymbol::encode(std::string_view data, BCResult overridden) {
  if (!tryEncode(data, overridden)) throw Error(BC_E_DATATOOLONG);
}

std::vector<int> ZintSymbol::runs(int row) const {
  return Runs(symbol->encoded_data[row], symbol->width);
}

void ZintSymbol::copyRows(Symbol& target, double rowHeight) const {
  target.width = symbol->width;
  target.rows.reserve(static_cast<std::size_t>(symbol->rows));
  for (int row = 0; row < symbol->rows; ++row) {
    target.rows.push_back({runs(row), rowHeight});
  }
}

void SetAppend(ZintSymbol& symbol, int sum, int index, int maxSum) {
  if (sum < 2 || sum > maxSum || index < 1 || index > sum) throw Error(BC_E_INVALIDARG);
  symbol->structapp.count = sum;
  symbol->structapp.index = index;
}

std::string UncheckedElements(const Data& data) {
  // An empty pair of brackets stands for FNC1, the first for the mode.
  std::string elements = "[]";
  elements.reserve(data.size() + 16);
  for (const DataCharacter character : data) {
    if (character.isByte()) elements += static_cast<char>(character.value);
    if (character.value == kFnc1) elements += "[]";
  }
  return elements;
}

}  // namespace Library
