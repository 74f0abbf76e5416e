#include "library/symbology/Encode.h"

#include "library/Error.h"
#include "library/prepare/Prepare.h"
#include "library/symbology/Composite.h"
#include "library/symbology/Encoders.h"

#include <utility>

namespace Library {

const Symbology& SymbologyOf(const Options& options) {
  const Symbology* const symbology = FindSymbology(options.type);
  if (symbology == nullptr) throw Error(BC_E_INVALIDARG);
  if (symbology->encoder == nullptr) throw Error(BC_E_NOTSUPPORTED);
  if (options.compositeType != 0) CheckComponentType(options, *symbology);
  if (options.eci != 0 && !symbology->family.eci) throw Error(BC_E_NOTSUPPORTED);
  return *symbology;
}

namespace {

// Characters of equal counts of runs; what is left over belongs to the last, a stop.
void SplitIntoCharacters(SymbolRow& row, int runs) {
  const auto count = static_cast<int>(row.runs.size()) / runs;
  if (!row.characters.empty() || count == 0) return;
  row.characters.assign(static_cast<std::size_t>(count), runs);
  row.characters.back() += static_cast<int>(row.runs.size()) % runs;
}

}  // namespace

Symbol Encode(const Options& options) {
  const Symbology& symbology = SymbologyOf(options);
  if (options.compositeType != 0) return EncodeComposite(options, symbology);
  return EncodePart(options, MessageOf(options, symbology));
}

Symbol EncodePart(const Options& options, Data part) {
  const Symbology& symbology = SymbologyOf(options);
  // Only whole messages have a component.
  if (options.compositeType != 0) throw Error(BC_E_NOTSUPPORTED).inComponent();
  return EncodePrepared(options, symbology, Prepare(options, symbology, std::move(part)));
}

Symbol EncodePrepared(const Options& options, const Symbology& symbology,
                      const PreparedData& prepared) {
  Symbol symbol;
  symbol.type = symbology.type;
  symbol.geometry = symbology.family.geometry;
  symbol.elements = symbology.family.elements;
  symbol.checkDigits = prepared.checkDigits;
  symbology.encoder({options, symbology, prepared.data, prepared.given}, symbol);
  if (const int runs = symbology.family.characterRuns; runs > 0) {
    for (SymbolRow& row : symbol.rows) SplitIntoCharacters(row, runs);
  }
  return symbol;
}

int CheckDigitCount(const Options& options) {
  const Symbology* const symbology = FindSymbology(options.type);
  return symbology == nullptr ? 0 : CheckDigitCount(symbology->check, options.checkDigitMethod);
}

int MaxDataLength(int type) {
  const Symbology* const symbology = FindSymbology(type);
  return symbology == nullptr ? 0 : symbology->fixedLength;
}

}  // namespace Library
