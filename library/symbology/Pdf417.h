// PDF417 (ISO/IEC 15438): the code words of data, their error correction and their bars.
#pragma once

#include "library/Options.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Library {

using CodeWords = std::vector<std::uint16_t>;

inline constexpr int kPdf417Values = 929;  // of a code word
inline constexpr int kPdf417Clusters = 3;  // sets of bars, which rows take in turn

// The middle 15 of a code word's 17 modules, the first in the highest bit; in front of them stands
// a dark one, behind them a light one.
extern const std::uint16_t kPdf417Patterns[kPdf417Clusters][kPdf417Values];

enum class Compaction {
  kAny,
  kText,   // text compaction, which bytes interrupt one by one
  kBytes,  // byte compaction
};

// The fewest code words that hold the data, for a reader in text compaction's submode alpha.
CodeWords CompactPdf417(std::string_view data, Compaction compaction = Compaction::kAny);

// Numeric compaction, without the latch in front.
void AppendPdf417Number(std::string_view digits, CodeWords& words);

// The control block of Macro PDF417; empty when no option asks for one. Throws Error.
CodeWords Pdf417ControlBlock(const Pdf417Options& options);

constexpr int Pdf417CorrectionWords(int level) {
  return 2 << level;
}
inline constexpr int kMaxPdf417Level = 8;

// Appends the error-correction words of all words before.
void AppendPdf417Correction(CodeWords& words, int level);

}  // namespace Library
