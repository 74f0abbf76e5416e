#include "library/symbology/QrMask.h"

namespace Library {
namespace {

constexpr bool Inverts(int mask, int x, int y) {
  switch (mask) {
    case 0:
      return (y + x) % 2 == 0;
    case 1:
      return y % 2 == 0;
    case 2:
      return x % 3 == 0;
    case 3:
      return (y + x) % 3 == 0;
    case 4:
      return (y / 2 + x / 3) % 2 == 0;
    case 5:
      return y * x % 2 + y * x % 3 == 0;
    case 6:
      return (y * x % 2 + y * x % 3) % 2 == 0;
    default:
      return ((y + x) % 2 + y * x % 3) % 2 == 0;
  }
}

// Every mask repeats itself after twelve modules.
constexpr int kPeriod = 12;

using MaskRow = QrMatrix::Row;

struct Masks {
  constexpr Masks() {
    for (int mask = 0; mask < kQrMasks; ++mask) {
      for (int y = 0; y < kPeriod; ++y) fill(rows[mask][y], mask, y);
    }
  }
  static constexpr void fill(MaskRow& row, int mask, int y) {
    bool inverts[kPeriod] = {};
    for (int x = 0; x < kPeriod; ++x) inverts[x] = Inverts(mask, x, y);
    for (std::size_t x = 0; x < 64 * QrMatrix::kRowWords; ++x) {
      row[x / 64] |= std::uint64_t{inverts[x % kPeriod]} << (x % 64);
    }
  }
  MaskRow rows[kQrMasks][kPeriod] = {};
};
constexpr Masks kMasks;

}  // namespace

void ApplyQrMask(QrMatrix& modules, const QrMatrix& drawn, int mask) {
  const std::size_t words = (static_cast<std::size_t>(modules.width) + 63) / 64;
  QrMatrix::Row inside{};
  for (int x = 0; x < modules.width; ++x) {
    inside[static_cast<std::size_t>(x) >> 6] |= std::uint64_t{1} << (x & 63);
  }
  for (int y = 0; y < modules.height; ++y) {
    const auto line = static_cast<std::size_t>(y);
    for (std::size_t i = 0; i < words; ++i) {
      modules.rows[line][i] ^= kMasks.rows[mask][y % kPeriod][i] & inside[i] & ~drawn.rows[line][i];
    }
  }
}

}  // namespace Library
