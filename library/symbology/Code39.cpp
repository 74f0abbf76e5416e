// Code 39 (ISO/IEC 16388).
#include "library/prepare/Hibc.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <numeric>

namespace Library {
namespace {

constexpr std::string_view kAlphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%*";
constexpr char kStartStop = '*';
constexpr std::string_view kGap = "1";

// Wide elements are drawn 2 modules wide.
constexpr std::string_view kPatterns[] = {
    "111221211", "211211112", "112211112", "212211111", "111221112",  // 0 to 4
    "211221111", "112221111", "111211212", "211211211", "112211211",  // 5 to 9
    "211112112", "112112112", "212112111", "111122112", "211122111",  // A to E
    "112122111", "111112212", "211112211", "112112211", "111122211",  // F to J
    "211111122", "112111122", "212111121", "111121122", "211121121",  // K to O
    "112121121", "111111222", "211111221", "112111221", "111121221",  // P to T
    "221111112", "122111112", "222111111", "121121112", "221121111",  // U to Y
    "122121111", "121111212", "221111211", "122111211", "121212111",  // Z to $
    "121211121", "121112121", "111212121", "121121211",               // / to *
};
static_assert(std::size(kPatterns) == kAlphabet.size());

std::string_view Pattern(char character) {
  return kPatterns[kAlphabet.find(character)];
}

void Draw(std::string_view data, Symbol& symbol) {
  LinearRow row;
  row.append(Pattern(kStartStop));
  for (const char character : data) {
    row.append(kGap);
    row.append(Pattern(character));
  }
  row.append(kGap);
  row.append(Pattern(kStartStop));
  std::move(row).finish(symbol);
}

}  // namespace

void EncodeCode39(const EncoderInput& input, Symbol& symbol) {
  std::string text = Bytes(input.data);
  Draw(text, symbol);
  SetTextLine(symbol, std::move(text));
}

// Health Industry Bar Code, wide elements 3 modules wide.
void EncodeHibcCode39(const EncoderInput& input, Symbol& symbol) {
  HibcMessage message = CompleteHibc(input.data, input.symbology.maxLength);
  Draw(Bytes(message.data), symbol);
  for (int& run : symbol.rows.front().runs) run = run == 1 ? 1 : 3;
  symbol.width =
      std::accumulate(symbol.rows.front().runs.begin(), symbol.rows.front().runs.end(), 0);
  SetTextLine(symbol, std::move(message.text));
  symbol.checkDigits = message.check;
}

}  // namespace Library
