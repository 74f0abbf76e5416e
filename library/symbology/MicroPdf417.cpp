// MicroPDF417 (ISO/IEC 24728): the size of a symbol and its rows.
#include "library/symbology/MicroPdf417.h"

#include "library/Error.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <iterator>

namespace Library {
namespace {

constexpr double kSharedHeight = 0;  // the layout knows how high rows become
constexpr int kRowHeight = 2;        // X, when nothing else is set
constexpr int kQuietZone = 1;        // X, at every side
constexpr int kWordModules = 17, kAddressModules = 10, kStopModules = 1;

struct Version {
  int columns, rows;
  int correction;           // code words
  int left, centre, right;  // numbers of the first row's address patterns, centre 0: has none
};

// Tables 1 and 11 of the standard.
constexpr Version kVersions[] = {
    // clang-format off
    {1, 11, 7,  1,  0,  9},  {1, 14, 7,  8,  0,  8},  {1, 17, 7,  36, 0,  36}, {1, 20, 8,  19, 0,  19},
    {1, 24, 8,  9,  0,  17}, {1, 28, 8,  25, 0,  33},
    {2, 8,  8,  1,  0,  1},  {2, 11, 9,  1,  0,  9},  {2, 14, 9,  8,  0,  8},  {2, 17, 10, 36, 0,  36},
    {2, 20, 11, 19, 0,  19}, {2, 23, 13, 9,  0,  17}, {2, 26, 15, 27, 0,  35},
    {3, 6,  12, 1,  1,  1},  {3, 8,  14, 7,  7,  7},  {3, 10, 16, 15, 15, 15}, {3, 12, 18, 25, 25, 25},
    {3, 15, 21, 37, 37, 37}, {3, 20, 26, 1,  17, 33}, {3, 26, 32, 1,  9,  17}, {3, 32, 38, 21, 29, 37},
    {3, 38, 44, 15, 31, 47}, {3, 44, 50, 1,  25, 49},
    {4, 4,  8,  47, 19, 43}, {4, 6,  12, 1,  1,  1},  {4, 8,  14, 7,  7,  7},  {4, 10, 16, 15, 15, 15},
    {4, 12, 18, 25, 25, 25}, {4, 15, 21, 37, 37, 37}, {4, 20, 26, 1,  17, 33}, {4, 26, 32, 1,  9,  17},
    {4, 32, 38, 21, 29, 37}, {4, 38, 44, 15, 31, 47}, {4, 44, 50, 1,  25, 49},
    // clang-format on
};

int Capacity(const Version& version) {
  return version.rows * version.columns - version.correction;
}

int Width(const Version& version) {
  const int addresses = version.centre == 0 ? 2 : 3;
  return version.columns * kWordModules + addresses * kAddressModules + kStopModules;
}

int Area(const Version& version) {
  return (Width(version) + 2 * kQuietZone) * (version.rows * kRowHeight + 2 * kQuietZone);
}

// A strip saves next to nothing and fits no label.
bool IsStrip(const Version& version) {
  constexpr int kMostTimesHeight = 5;
  return Width(version) > kMostTimesHeight * version.rows * kRowHeight;
}

// The smallest that has room for the words.
const Version& FreeVersion(int words) {
  const Version* best = nullptr;
  for (const Version& version : kVersions) {
    if (Capacity(version) < words || IsStrip(version)) continue;
    if (best == nullptr || Area(version) < Area(*best)) best = &version;
  }
  if (best == nullptr) throw Error(BC_E_DATATOOLONG);
  return *best;
}

const Version& VersionFor(int words, int number) {
  if (number == 0) return FreeVersion(words);
  if (number < 0 || number > std::ssize(kVersions)) throw Error(BC_E_INVALIDARG);
  const Version& version = kVersions[number - 1];
  if (Capacity(version) < words) throw Error(BC_E_DATATOOLONG);
  return version;
}

void AppendAddress(RowAddressPlace place, int number, std::vector<int>& runs) {
  AppendModules(kRowAddressPatterns[place][(number - 1) % kRowAddresses], kAddressModules, runs);
}

SymbolRow RowOf(const CodeWords& words, const Version& version, int index) {
  SymbolRow row;
  row.height = kSharedHeight;
  // What stands at the left tells the cluster.
  const int cluster = (version.left - 1 + index) % kRowAddresses % kPdf417Clusters;
  AppendAddress(kAtSide, version.left + index, row.runs);
  for (int column = 0; column < version.columns; ++column) {
    const bool centre = version.centre != 0 && column == version.columns - 2;
    if (centre) AppendAddress(kInCentre, version.centre + index, row.runs);
    const auto place = static_cast<std::size_t>(index * version.columns + column);
    AppendPdf417Word(cluster, words[place], row.runs);
  }
  AppendAddress(kAtSide, version.right + index, row.runs);
  row.runs.push_back(kStopModules);
  return row;
}

}  // namespace

void EncodeMicroPdf417(const EncoderInput& input, Symbol& symbol) {
  const CodeWords block = Pdf417ControlBlock(input.options.pdf417);
  MicroPdf417Message message = MicroPdf417MessageOf(input);
  CodeWords& words = message.words;
  const int used = static_cast<int>(words.size() + block.size());
  const Version& version = VersionFor(used, input.options.pdf417.microVersion);
  const auto padding = static_cast<std::size_t>(Capacity(version) - used);
  words.insert(words.end(), padding, kPdf417Padding);
  Append(block, words);
  AppendPdf417Correction(words, version.correction);

  symbol.width = Width(version);
  symbol.rows.reserve(static_cast<std::size_t>(version.rows));
  for (int row = 0; row < version.rows; ++row) symbol.rows.push_back(RowOf(words, version, row));
  SetTextLine(symbol, std::move(message.text));
}

}  // namespace Library
