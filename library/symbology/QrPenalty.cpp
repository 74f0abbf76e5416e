// Whole rows at a time: each module is a bit, compared with its neighbours by shifting the row and
// by taking the rows above and below. What is found in rows is found in columns the same way.
#include "library/symbology/QrPenalty.h"

#include <bit>
#include <cstdlib>

namespace Library {
namespace {

constexpr int kRunPoints = 3, kAreaPoints = 3, kFinderPoints = 40, kBalancePoints = 10;

template <std::size_t kWords>
struct Bits {
  std::array<std::uint64_t, kWords> words{};

  friend Bits operator&(Bits a, const Bits& b) {
    for (std::size_t i = 0; i < kWords; ++i) a.words[i] &= b.words[i];
    return a;
  }
  friend Bits operator|(Bits a, const Bits& b) {
    for (std::size_t i = 0; i < kWords; ++i) a.words[i] |= b.words[i];
    return a;
  }
  friend Bits operator^(Bits a, const Bits& b) {
    for (std::size_t i = 0; i < kWords; ++i) a.words[i] ^= b.words[i];
    return a;
  }
  friend Bits operator~(Bits a) {
    for (std::size_t i = 0; i < kWords; ++i) a.words[i] = ~a.words[i];
    return a;
  }

  int count() const {
    int total = 0;
    for (const std::uint64_t word : words) total += std::popcount(word);
    return total;
  }
};

// Brings the module that is `distance` places further on to each place.
template <int distance, std::size_t kWords>
Bits<kWords> After(Bits<kWords> bits) {
  for (std::size_t i = 0; i < kWords; ++i) {
    const std::uint64_t next = i + 1 < kWords ? bits.words[i + 1] << (64 - distance) : 0;
    bits.words[i] = bits.words[i] >> distance | next;
  }
  return bits;
}

// The one that is `distance` places before.
template <int distance, std::size_t kWords>
Bits<kWords> Before(Bits<kWords> bits) {
  for (std::size_t i = kWords; i-- > 0;) {
    const std::uint64_t last = i > 0 ? bits.words[i - 1] >> (64 - distance) : 0;
    bits.words[i] = bits.words[i] << distance | last;
  }
  return bits;
}

template <std::size_t kWords>
class Scorer {
 public:
  explicit Scorer(const QrMatrix& matrix) : width(static_cast<std::size_t>(matrix.width)) {
    for (std::size_t column = 0; column < width; ++column) {
      all.words[column >> 6] |= std::uint64_t{1} << (column & 63);
    }
    const Row allButLast = After<1>(all);
    for (std::size_t y = 0; y < width; ++y) {
      for (std::size_t i = 0; i < kWords; ++i) rows[y + kQuiet].words[i] = matrix.rows[y][i];
    }
    for (std::size_t y = 0; y < width; ++y) {
      const Row& row = dark(y);
      likeRight[y] = ~(row ^ After<1>(row)) & allButLast;
      if (y + 1 < width) likeBelow[y] = ~(row ^ dark(y + 1)) & all;
    }
  }

  int penalty() const {
    int longRuns = 0, longRunModules = 0, areas = 0, finders = 0, darkModules = 0;
    Row begunAbove{};
    for (std::size_t y = 0; y < width; ++y) {
      const Row fiveInRow = fourAcross(y), fiveInColumn = fourDown(y);
      longRunModules += fiveInRow.count() + fiveInColumn.count();
      longRuns += (fiveInRow & ~Before<1>(fiveInRow)).count();
      longRuns += (fiveInColumn & ~begunAbove).count();
      begunAbove = fiveInColumn;
      // Nothing is like what lies below the last row.
      if (y + 1 < width) areas += (likeRight[y] & likeRight[y + 1] & likeBelow[y]).count();
      finders += findersAcross(y).count() + findersDown(y).count();
      darkModules += dark(y).count();
    }
    // A run of five begins at one place, one of six at two.
    return longRunModules + longRuns * (kRunPoints - 1) + areas * kAreaPoints +
           finders * kFinderPoints + balancePoints(darkModules);
  }

 private:
  using Row = Bits<kWords>;
  static constexpr std::size_t kQuiet = 4;
  static constexpr std::size_t kFinder = 7;

  // From kQuiet rows above the symbol to as many below it.
  const Row& dark(std::size_t y) const { return rows[y + kQuiet]; }

  // Where five modules of one colour begin.
  Row fourAcross(std::size_t y) const {
    const Row pairs = likeRight[y] & After<1>(likeRight[y]);
    return pairs & After<2>(pairs);
  }
  Row fourDown(std::size_t y) const {
    return likeBelow[y] & likeBelow[y + 1] & likeBelow[y + 2] & likeBelow[y + 3];
  }

  Row findersAcross(std::size_t y) const {
    const Row& row = dark(y);
    const Row core = row & ~After<1>(row) & After<2>(row) & After<3>(row) & After<4>(row) &
                     ~After<5>(row) & After<6>(row);
    const Row darkInFront = Before<1>(row) | Before<2>(row) | Before<3>(row) | Before<4>(row);
    const Row darkBehind = After<7>(row) | After<8>(row) | After<9>(row) | After<10>(row);
    return core & ~(darkInFront & darkBehind);
  }

  Row findersDown(std::size_t y) const {
    if (y + kFinder > width) return {};
    const Row* const row = &dark(y);
    const Row core = row[0] & ~row[1] & row[2] & row[3] & row[4] & ~row[5] & row[6];
    const Row darkAbove = row[-1] | row[-2] | row[-3] | row[-4];
    const Row darkBelow = row[7] | row[8] | row[9] | row[10];
    return core & ~(darkAbove & darkBelow);
  }

  int balancePoints(int darkModules) const {
    const int modules = static_cast<int>(width * width);
    return std::abs(2 * darkModules - modules) * 10 / modules * kBalancePoints;
  }

  static constexpr std::size_t kMaxRows = kWords * 64;
  std::size_t width;
  Row all{};
  std::array<Row, kMaxRows + 2 * kQuiet> rows{};
  std::array<Row, kMaxRows> likeRight;        // to the next in the row
  std::array<Row, kMaxRows + 4> likeBelow{};  // to the next in the column, none for the last row
};

}  // namespace

int QrPenalty(const QrMatrix& matrix) {
  if (matrix.width <= 64) return Scorer<1>(matrix).penalty();
  if (matrix.width <= 128) return Scorer<2>(matrix).penalty();
  return Scorer<3>(matrix).penalty();
}

}  // namespace Library
