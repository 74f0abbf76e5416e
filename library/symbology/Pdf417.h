// PDF417 (ISO/IEC 15438) and MicroPDF417 (ISO/IEC 24728): the code words of data, their error
// correction and their bars.
#pragma once

#include "library/Options.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Library {

using CodeWords = std::vector<std::uint16_t>;
inline void Append(const CodeWords& more, CodeWords& words) {
  words.insert(words.end(), more.begin(), more.end());
}

inline constexpr int kPdf417Values = 929;  // of a code word
inline constexpr int kPdf417Clusters = 3;  // sets of bars, which rows take in turn

// The middle 15 of a code word's 17 modules, the first in the highest bit; in front of them stands
// a dark one, behind them a light one.
extern const std::uint16_t kPdf417Patterns[kPdf417Clusters][kPdf417Values];

// MicroPDF417's row address patterns, 10 modules each.
inline constexpr int kRowAddresses = 52;
enum RowAddressPlace { kAtSide, kInCentre, kRowAddressPlaces };
extern const std::uint16_t kRowAddressPatterns[kRowAddressPlaces][kRowAddresses];

// The modules as runs; the first, in the highest of `count` bits, begins a run.
void AppendModules(std::uint32_t modules, int count, std::vector<int>& runs);
void AppendPdf417Word(int cluster, int word, std::vector<int>& runs);

constexpr std::uint16_t kPdf417Padding = 900;

enum class Compaction {
  kAny,
  kText,   // text compaction, which bytes interrupt one by one
  kBytes,  // byte compaction
};

// What a reader is in where the data begin.
enum class Pdf417Start {
  kAlpha,    // text compaction, submode alpha
  kUnknown,  // so that a latch comes first
};

// The fewest code words that hold the data.
CodeWords CompactPdf417(std::string_view data, Compaction compaction = Compaction::kAny,
                        Pdf417Start start = Pdf417Start::kAlpha);

// Numeric compaction, without the latch in front.
void AppendPdf417Number(std::string_view digits, CodeWords& words);

// The code words that name the interpretation of all data behind them; none for 0. Throws Error.
CodeWords Pdf417Interpretation(int eci);

// The control block of Macro PDF417; empty when no option asks for one. Throws Error.
CodeWords Pdf417ControlBlock(const Pdf417Options& options);

constexpr int Pdf417CorrectionWords(int level) {
  return 2 << level;
}
inline constexpr int kMaxPdf417Level = 8;

// Appends so many error-correction words of all words before. REQUIRES: the number is that of a
// level or of a version of MicroPDF417.
void AppendPdf417Correction(CodeWords& words, int count);

}  // namespace Library
