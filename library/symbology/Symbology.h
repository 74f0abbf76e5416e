// The table of barcode types: one row says everything about a symbology that is not its encoder.
// Adding a symbology means adding a row.
#pragma once

#include "library/prepare/CharacterSet.h"
#include "library/prepare/CheckDigits.h"
#include "library/symbology/Symbol.h"

#include <string_view>

namespace Library {

struct EncoderInput;
struct Options;

// Encodes prepared data: fills the rows, width, guards and texts of a symbol whose type, geometry
// and element rule are set already. Throws Error.
using Encoder = void (*)(const EncoderInput& input, Symbol& symbol);

// The least height of a linear symbol that the layout may give it.
enum class MinimalHeight {
  kNone,       // stacked, matrix and 4-state symbols have heights of their own
  kLogistics,  // retail and logistics: 15 % of the length, at least 6.35 mm
  kGeneral,    // 5 mm
};

struct Symbology {
  int type;
  std::string_view name;
  Encoder encoder;
  Geometry geometry;
  ElementRule elements;

  // Data as encoded, after escapes and format string. A check digit that is the last place of the
  // data counts: an EAN-13 takes 12 or 13.
  const CharacterSet& characters;
  int minLength, maxLength;
  int fixedLength;                           // with check digits, 0: no fixed length
  bool functionCharacters;                   // FNC1 to FNC4 can be encoded
  bool codeSets;                             // A, B, C of a format string switch the code set
  bool (*takesGs1)(const Options& options);  // the data are element strings; null: never

  CheckRule check;

  bool textShown;    // by default
  int nominalX;      // 1/1000 mm
  double rowHeight;  // X, of a row of a stacked symbol when none is set; 0: not stacked
  MinimalHeight minimalHeight;
};

inline bool TakesGs1(const Symbology& symbology, const Options& options) {
  return symbology.takesGs1 != nullptr && symbology.takesGs1(options);
}

// Null: no such type.
const Symbology* FindSymbology(int type);

}  // namespace Library
