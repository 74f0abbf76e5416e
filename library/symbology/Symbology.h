// The table of barcode types: one row says everything about a symbology that is not its encoder.
// Adding a symbology means adding a row.
#pragma once

#include "library/prepare/CharacterSet.h"
#include "library/prepare/CheckDigits.h"
#include "library/prepare/PreparedData.h"
#include "library/symbology/Symbol.h"

#include <string_view>

namespace Library {

struct CompositeForm;
struct EncoderInput;
struct Options;
struct StructuredAppend;

// Encodes prepared data: fills the rows, width, guards and texts of a symbol whose type, geometry
// and element rule are set already. Throws Error.
using Encoder = void (*)(const EncoderInput& input, Symbol& symbol);

// Turns data as people write them (with prefixes, hyphens, blanks) into the characters that are
// checked and encoded; each keeps its source. Throws Error.
using Normalizer = void (*)(Data& data, const Options& options);

// The least height of a linear symbol that the layout may give it.
enum class MinimalHeight {
  kNone,       // stacked, matrix and 4-state symbols have heights of their own
  kLogistics,  // retail and logistics: 15 % of the length, at least 6.35 mm
  kGeneral,    // 5 mm
};

// Heights that options set for the rows of a symbol, 1/1000 mm; -1: not set.
struct SetHeights {
  std::int32_t row = -1, separator = -1;
};

// What the types of one kind share.
struct Family {
  Geometry geometry;
  ElementRule elements = ElementRule::kNoRatio;
  MinimalHeight minimalHeight = MinimalHeight::kNone;
  bool textShown = false;  // by default
  double rowHeight = 0;    // X, of a row of a stacked symbol when none is set; 0: not stacked
  int characterRuns = 0;   // bars and spaces of a character where the encoder names none; 0: varies
  double leastHeight = 0;  // X, of a linear symbol, instead of the least height above; 0: none
  double topBar = 0;       // X, of a bar along the top that belongs to the symbol; 0: none

  bool functionCharacters = false;  // FNC1 to FNC4 can be encoded
  bool codeSets = false;            // A, B, C of a format string switch the set
  bool eci = false;                 // an ECI number can be encoded in front
  bool pairs = false;               // an odd number of digits gets a zero in front
  bool hibc = false;                // a plus sign in front of the message, a check character behind
  bool (*takesGs1)(const Options& options) = nullptr;  // the data are element strings; null: never
  bool ownElementCharacters = false;  // element strings have the characters of the type's row
  SetHeights (*setHeights)(const Options& options) = nullptr;  // null: no option sets them
  const StructuredAppend* append = nullptr;                    // null: the symbology has none
  bool (*closed)(const Options& options) = nullptr;  // no text may stand before the data; null: may
};

// A clear zone round a symbol in X.
struct QuietZone {
  double left = 0, right = 0, top = 0, bottom = 0;
};

struct Symbology {
  int type;
  std::string_view name;
  const Family& family;
  Encoder encoder;       // null: a known symbology that is not supported
  Normalizer normalize;  // null: data are taken as they are

  // Data as encoded, after escapes, format string and normalizer. A check digit that is the last
  // place of the data counts: an EAN-13 takes 12 or 13.
  const CharacterSet& characters;
  int minLength, maxLength;
  int fixedLength;  // with check digits, 0: no fixed length

  CheckRule check;

  int nominalX;         // 1/1000 mm
  QuietZone quietZone;  // that the standard asks for

  const CompositeForm* composite = nullptr;  // null: no component can be above it
};

inline bool TakesGs1(const Symbology& symbology, const Options& options) {
  return symbology.family.takesGs1 != nullptr && symbology.family.takesGs1(options);
}

// Null: no such type.
const Symbology* FindSymbology(int type);

}  // namespace Library
