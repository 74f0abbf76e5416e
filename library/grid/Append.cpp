#include "library/grid/Append.h"

#include "library/Error.h"
#include "library/prepare/Escapes.h"
#include "library/prepare/Hibc.h"
#include "library/symbology/Encode.h"
#include "library/symbology/StructuredAppend.h"

#include <algorithm>
#include <limits>

namespace Library {
namespace {

enum Mode { kNone, kStandard, kOwn };

// More symbols than a sheet takes that somebody scans; what is longer is a mistake.
constexpr int kMaxSymbols = 1000;
constexpr int kMaxOwn = 99;

std::string OwnHeader(int index, int count) {
  return "VXA1" + FixedDigits(index, 2) + FixedDigits(count, 2);
}

// FNV-1a.
std::uint32_t HashOf(const std::string& bytes) {
  std::uint32_t hash = 2166136261u;
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619u;
  return hash;
}

bool CanHold(const Options& options, std::string_view text) {
  const Symbology& symbology = SymbologyOf(options);
  // Numbers of one length have no place for anything else.
  const int least = symbology.minLength + static_cast<int>(text.size());
  if (symbology.fixedLength > 0 || least > symbology.maxLength) return false;
  if (symbology.family.closed != nullptr && symbology.family.closed(options)) return false;
  return !TakesGs1(symbology, options) && std::all_of(text.begin(), text.end(), [&](char c) {
    return symbology.characters.contains(static_cast<unsigned char>(c));
  });
}

void CompleteHibcMessage(const Options& options, Data& message) {
  if (!options.format.empty()) throw Error(BC_E_NOTSUPPORTED);
  for (const DataCharacter& character : message) {
    const bool good =
        character.isByte() && SymbologyOf(options).characters.contains(character.value);
    if (!good) throw Error(BC_E_INVALIDDATA, DataIndex(character.source));
  }
  message = CompleteHibc(std::move(message), std::numeric_limits<int>::max()).data;
}

}  // namespace

Append::Append(const Options& options, Data& message)
    : own(options.grid.structuredAppend == kOwn), format(options.format) {
  if (own && !CanHold(options, OwnHeader(1, 1))) throw Error(BC_E_NOTSUPPORTED);
  if (options.grid.structuredAppend != kStandard) return;
  standard = SymbologyOf(options).family.append;
  if (standard == nullptr) throw Error(BC_E_NOTSUPPORTED);
  if (SymbologyOf(options).family.hibc) CompleteHibcMessage(options, message);
  const std::string bytes = Bytes(message);
  for (const char byte : bytes) parity ^= static_cast<std::uint8_t>(byte);
  id = HashOf(bytes);
}

int Append::maxSymbols() const {
  if (own) return kMaxOwn;
  return standard == nullptr ? kMaxSymbols : standard->maxSymbols;
}

void Append::mark(int index, int count, Options& settings, Data& part) const {
  if (standard != nullptr && count > 1) {
    settings.placeInMessage = {index, count};
    if (standard->place != nullptr) standard->place(settings, {index, count, parity, id});
  }
  if (!own) return;
  const std::string header = OwnHeader(index, count);
  if (format.empty()) {
    Data marked = RawData(header);
    for (DataCharacter& character : marked) character.source = -1;
    marked.insert(marked.end(), part.begin(), part.end());
    part = std::move(marked);
    return;
  }
  // In front of everything that the format string makes of the part.
  settings.format.clear();
  for (const char character : header) settings.format.append({'\\', character});
  settings.format += format;
}

}  // namespace Library
