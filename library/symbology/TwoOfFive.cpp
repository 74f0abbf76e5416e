// The 2 of 5 family: Interleaved 2 of 5 (ISO/IEC 16390) with ITF-14, Leitcode and Identcode; the
// older ones that have the data in bars and spaces, or in bars alone.
#include "library/symbology/Linear.h"
#include "library/symbology/LinearEncoders.h"

namespace Library {
namespace {

// Two wide elements of five, drawn 3 modules wide.
constexpr std::string_view kDigitPatterns[] = {
    "11331", "31113", "13113", "33111", "11313",  // 0 to 4
    "31311", "13311", "11133", "31131", "13131",  // 5 to 9
};
constexpr std::string_view kNarrow = "1";

struct Frame {
  std::string_view start, stop;
};
constexpr Frame kInterleavedFrame = {"1111", "311"};
constexpr Frame kMatrixFrame = {"411111", "41111"};
constexpr Frame kDataLogicFrame = {"1111", "311"};
constexpr Frame kIataFrame = {"1111", "311"};
constexpr Frame kIndustrialFrame = {"313111", "31113"};

std::string_view Pattern(char digit) {
  return kDigitPatterns[digit - '0'];
}

void DrawInterleaved(std::string_view digits, Symbol& symbol) {
  LinearRow row;
  row.append(kInterleavedFrame.start);
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const std::string_view bars = Pattern(digits[i]);
    const std::string_view spaces = Pattern(digits[i + 1]);
    std::string pair;
    for (std::size_t k = 0; k < bars.size(); ++k) pair.append({bars[k], spaces[k]});
    row.append(pair);
  }
  row.append(kInterleavedFrame.stop);
  std::move(row).finish(symbol);
}

void DrawMasked(const EncoderInput& input, std::string_view textMask, Symbol& symbol) {
  const std::string digits = Bytes(input.data);
  DrawInterleaved(digits, symbol);
  SetTextLine(symbol, Masked(digits, textMask));
}

void AppendBarsAndSpaces(char digit, LinearRow& row) {
  row.append(Pattern(digit));
  row.append(kNarrow);
}

void AppendBars(char digit, LinearRow& row) {
  std::string widths;
  for (const char bar : Pattern(digit)) widths.append({bar, kNarrow[0]});
  row.append(widths);
}

void Draw(const EncoderInput& input, const Frame& frame, void (*append)(char, LinearRow&),
          Symbol& symbol) {
  std::string digits = Bytes(input.data);
  LinearRow row;
  row.append(frame.start);
  for (const char digit : digits) append(digit, row);
  row.append(frame.stop);
  std::move(row).finish(symbol);
  SetTextLine(symbol, std::move(digits));
}

}  // namespace

void EncodeInterleaved2Of5(const EncoderInput& input, Symbol& symbol) {
  std::string digits = Bytes(input.data);
  if (digits.size() % 2 != 0) digits.insert(digits.begin(), '0');
  DrawInterleaved(digits, symbol);
  SetTextLine(symbol, std::move(digits));
}

void EncodeLeitcode(const EncoderInput& input, Symbol& symbol) {
  DrawMasked(input, "#####.###.###.## #", symbol);
}

void EncodeIdentcode(const EncoderInput& input, Symbol& symbol) {
  DrawMasked(input, "##.### ###.### #", symbol);
}

void EncodeItf14(const EncoderInput& input, Symbol& symbol) {
  DrawMasked(input, "# ## ##### ##### #", symbol);
}

void EncodeStandard2Of5(const EncoderInput& input, Symbol& symbol) {
  Draw(input, kMatrixFrame, AppendBarsAndSpaces, symbol);
}

void EncodeDataLogic2Of5(const EncoderInput& input, Symbol& symbol) {
  Draw(input, kDataLogicFrame, AppendBarsAndSpaces, symbol);
}

void EncodeIata2Of5(const EncoderInput& input, Symbol& symbol) {
  Draw(input, kIataFrame, AppendBars, symbol);
}

void EncodeIndustrial2Of5(const EncoderInput& input, Symbol& symbol) {
  Draw(input, kIndustrialFrame, AppendBars, symbol);
}

}  // namespace Library
