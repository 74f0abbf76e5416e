// Matrix symbols module by module against libzint's: a reader's error correction would hide a wrong
// module.
#include "library/symbology/DataMatrixPattern.h"
#include "library/symbology/ZintSymbol.h"
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

using Library::Options;
using Library::Symbol;
using Runs = std::vector<std::vector<int>>;

Runs RunsOf(const Symbol& symbol) {
  Runs runs;
  for (const Library::SymbolRow& row : symbol.rows) runs.push_back(row.runs);
  return runs;
}

Runs ByLibzint(int symbology, int size, const std::string& data) {
  Library::ZintSymbol zint(symbology);
  zint->option_2 = size;
  zint.encode(data);
  Symbol symbol;
  zint.copyRows(symbol, 1);
  return RunsOf(symbol);
}

std::string RandomText(std::string_view alphabet, int length, std::mt19937& random) {
  std::string text;
  while (length-- > 0) text += alphabet[random() % alphabet.size()];
  return text;
}

}  // namespace

TEST(MatrixPatterns, OfDataMatrixAreLibzintsInEverySize) {
  std::mt19937 random = Seeded(16022);
  Options options = OptionsFor(71, "");
  for (const Library::DataMatrixShape& shape : Library::DataMatrixShapes()) {
    const int size = ++options.dataMatrix.size;
    options.data = RandomText("0123456789", 2 * shape.dataWords, random);
    EXPECT_TRUE(IsSame(71, "libzint", RunsOf(Library::Encode(options)),
                       ByLibzint(BARCODE_DATAMATRIX, size, options.data)))
        << size;
  }
}

TEST(MatrixPatterns, OfAztecAreLibzintsInEverySize) {
  std::mt19937 random = Seeded(24778);
  for (int size = 1; size <= 36; ++size) {
    const bool compact = size <= 4;
    const int layers = compact ? size : size - 4;
    const int letters = ((compact ? 88 : 112) + 16 * layers) * layers / 2 / 5;
    // Letters that fill whole words, and whose bits need no stuffing.
    const int length = letters - letters % (letters < 24 ? 6 : 24);
    Options options = OptionsFor(92, RandomText("IJKLMSTU", length, random));
    options.aztec.size = size;
    EXPECT_TRUE(IsSame(92, "libzint", RunsOf(Library::Encode(options)),
                       ByLibzint(BARCODE_AZTEC, size, options.data)))
        << size;
  }
}

TEST(MatrixPatterns, OfAztecRunesAreLibzints) {
  Options options = OptionsFor(92, "");
  options.aztec.runes = true;
  for (int number = 0; number < 256; ++number) {
    options.data = std::to_string(number);
    ASSERT_EQ(RunsOf(Library::Encode(options)), ByLibzint(BARCODE_AZRUNE, 0, options.data));
  }
}
