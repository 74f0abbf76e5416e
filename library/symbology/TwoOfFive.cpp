// The 2 of 5 family; here Interleaved 2 of 5 (ISO/IEC 16390).
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

namespace Library {
namespace {

// Two wide elements of five, drawn 3 modules wide.
constexpr std::string_view kDigitPatterns[] = {
    "11331", "31113", "13113", "33111", "11313",  // 0 to 4
    "31311", "13311", "11133", "31131", "13131",  // 5 to 9
};
constexpr std::string_view kStart = "1111";
constexpr std::string_view kStop = "311";

}  // namespace

void EncodeInterleaved2Of5(const EncoderInput& input, Symbol& symbol) {
  std::string digits = Bytes(input.data);
  if (digits.size() % 2 != 0) digits.insert(digits.begin(), '0');
  LinearRow row;
  row.append(kStart);
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const std::string_view bars = kDigitPatterns[digits[i] - '0'];
    const std::string_view spaces = kDigitPatterns[digits[i + 1] - '0'];
    std::string pair;
    for (std::size_t k = 0; k < bars.size(); ++k) {
      pair += bars[k];
      pair += spaces[k];
    }
    row.append(pair);
  }
  row.append(kStop);
  std::move(row).finish(symbol);
  SetTextLine(symbol, std::move(digits));
}

}  // namespace Library
