#include "library/grid/Append.h"

#include "library/Error.h"
#include "library/prepare/Escapes.h"
#include "library/symbology/Encode.h"

#include <algorithm>

namespace Library {
namespace {

enum Mode { kNone, kStandard, kOwn };

// More symbols than a sheet takes that somebody scans; what is longer is a mistake.
constexpr int kMaxSymbols = 1000;
constexpr int kMaxOwn = 99;

struct Place {
  int index, count;
  std::uint8_t parity;
  std::uint32_t id;
};

std::string Digits(int value, int length) {
  std::string digits(static_cast<std::size_t>(length), '0');
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, value /= 10) {
    *digit = static_cast<char>('0' + value % 10);
  }
  return digits;
}

std::string OwnHeader(int index, int count) {
  return "VXA1" + Digits(index, 2) + Digits(count, 2);
}

void PlaceQrCode(Options& options, const Place& place) {
  options.qr.appendSum = place.count;
  options.qr.appendIndex = place.index;
  options.qr.appendParity = place.parity;
}

// A file id that is set stays, here and below.
void PlaceDataMatrix(Options& options, const Place& place) {
  constexpr std::uint32_t kValues = 254;  // 1 to 254, twice
  options.dataMatrix.appendSum = place.count;
  options.dataMatrix.appendIndex = place.index;
  if (options.dataMatrix.appendFileId >= 0) return;
  options.dataMatrix.appendFileId =
      static_cast<int>((1 + place.id / kValues % kValues) * 256 + 1 + place.id % kValues);
}

void PlacePdf417(Options& options, const Place& place) {
  constexpr std::uint32_t kValues = 900;  // of a code word
  options.pdf417.segIndex = place.index - 1;
  options.pdf417.segCount = place.count;
  options.pdf417.segLast = -1;
  if (!options.pdf417.fileId.empty()) return;
  options.pdf417.fileId = Digits(static_cast<int>(place.id / kValues % kValues), 3) +
                          Digits(static_cast<int>(place.id % kValues), 3);
}

void PlaceAztec(Options& options, const Place& place) {
  options.aztec.append = true;
  options.aztec.appendSum = static_cast<char>('A' + place.count - 1);
  options.aztec.appendIndex = static_cast<char>('A' + place.index - 1);
}

// FNV-1a.
std::uint32_t HashOf(const std::string& bytes) {
  std::uint32_t hash = 2166136261u;
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619u;
  return hash;
}

bool CanHold(const Options& options, std::string_view text) {
  const Symbology& symbology = SymbologyOf(options);
  return !TakesGs1(symbology, options) && std::all_of(text.begin(), text.end(), [&](char c) {
    return symbology.characters.contains(static_cast<unsigned char>(c));
  });
}

}  // namespace

// Structured append as symbologies have it.
struct Append::Standard {
  int type;
  int maxSymbols;
  void (*place)(Options& options, const Place& place);
};

const Append::Standard Append::kStandards[] = {
    {55, kMaxSymbols, PlacePdf417}, {56, kMaxSymbols, PlacePdf417}, {58, 16, PlaceQrCode},
    {71, 16, PlaceDataMatrix},      {92, 26, PlaceAztec},
};

const Append::Standard* Append::findStandard(int type) {
  const auto found = std::find_if(std::begin(kStandards), std::end(kStandards),
                                  [type](const Standard& row) { return row.type == type; });
  return found == std::end(kStandards) ? nullptr : found;
}

Append::Append(const Options& options, const Data& message)
    : own(options.grid.structuredAppend == kOwn), format(options.format) {
  if (own && !CanHold(options, OwnHeader(1, 1))) throw Error(BC_E_NOTSUPPORTED);
  if (options.grid.structuredAppend != kStandard) return;
  standard = findStandard(options.type);
  if (standard == nullptr) throw Error(BC_E_NOTSUPPORTED);
  const std::string bytes = Bytes(message);
  for (const char byte : bytes) parity ^= static_cast<std::uint8_t>(byte);
  id = HashOf(bytes);
}

int Append::maxSymbols() const {
  if (own) return kMaxOwn;
  return standard == nullptr ? kMaxSymbols : standard->maxSymbols;
}

void Append::mark(int index, int count, Options& settings, Data& part) const {
  if (standard != nullptr && count > 1) standard->place(settings, {index, count, parity, id});
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
