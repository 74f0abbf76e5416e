// Marks that sorting and packing machines look for, with no text: Flattermarken on signatures of a
// book, the one-track Pharmacode, the facing identification marks of letters.
#include "library/Error.h"
#include "library/symbology/Linear.h"
#include "library/symbology/LinearEncoders.h"

#include <algorithm>
#include <charconv>

namespace Library {
namespace {

constexpr int kFlatterPlaces = 9;  // a digit
constexpr int kMinPharmacode = 3, kMaxPharmacode = 131070;

constexpr std::string_view kFimPatterns[] = {
    "111515111", "13111311131", "11131313111", "1111131311111", "1317131",  // A to E
};

}  // namespace

// A digit is a bar at its place of nine, 0 is none. The light modules at the ends belong to the
// places.
void EncodeFlattermarken(const EncoderInput& input, Symbol& symbol) {
  std::vector<int> runs = {0};
  int last = 0;  // the end of the last bar
  int begin = 0;
  for (const DataCharacter digit : input.data) {
    const int place = begin + digit.value - '1';
    if (place == 0) {
      runs.back() = 1;
      last = 1;
    } else if (digit.value != '0') {
      if (place > last) {
        runs.push_back(place - last);
        runs.push_back(1);
      } else {
        ++runs.back();
      }
      last = place + 1;
    }
    begin += kFlatterPlaces;
  }
  if (begin > last) runs.push_back(begin - last);
  symbol.width = begin;
  symbol.rows.push_back({std::move(runs), 0});
}

void EncodePharmacode(const EncoderInput& input, Symbol& symbol) {
  const std::string digits = Bytes(input.data);
  int value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (value < kMinPharmacode || value > kMaxPharmacode) {
    throw Error(BC_E_INVALIDDATA, DataIndex(input.data.front().source));
  }
  // From the last bar to the first: narrow for odd values, wide for even ones.
  std::string widths;
  for (; value > 0; value = (value - 1) / 2) {
    if (!widths.empty()) widths += '2';
    widths += value % 2 != 0 ? '1' : '3';
  }
  std::reverse(widths.begin(), widths.end());
  LinearRow row;
  row.append(widths);
  std::move(row).finish(symbol);
}

void EncodeFim(const EncoderInput& input, Symbol& symbol) {
  LinearRow row;
  row.append(kFimPatterns[input.data.front().value - 'A']);
  std::move(row).finish(symbol);
}

}  // namespace Library
