// What tests of the PDF417 family share: random data, the code words of a symbol, the symbols that
// libzint draws, and the fewest code words that data take.
#pragma once

#include "library/symbology/Pdf417.h"
#include "library/symbology/Symbol.h"

#include <random>
#include <string>
#include <vector>

inline constexpr int kPdf417 = 55, kTruncatedPdf417 = 56, kMicroPdf417 = 84;

struct DataKind {
  const char* name;
  std::vector<std::string> pieces;
  std::size_t longest;  // that fits into a PDF417 with two words of error correction
};
extern const std::vector<DataKind> kDataKinds;
const DataKind& Digits();

std::vector<std::string> OneByOne(const std::string& characters);
std::string CharacterRange(int first, int last);

class RandomData {
 public:
  explicit RandomData(const std::mt19937& numbers) : random(numbers) {}

  std::string of(const std::vector<std::string>& pieces, std::size_t length);
  // Stretches of one kind after another.
  std::string mixture(std::size_t length);

 private:
  std::mt19937 random;
};

// All code words of the symbol, as its bars say.
Library::CodeWords WordsOf(const Library::Symbol& symbol);

struct SegmentOf {
  int index = 0, count = 0;  // from 1, 0: no Macro PDF417
  const char* id = "";
};
Library::Symbol DrawnByLibzint(int type, const std::string& data, int level, int columns,
                               SegmentOf segment = {});

// By the cheapest way through all ways to divide the data among the compaction modes.
int FewestWords(const std::string& data, Library::Pdf417Start start);
