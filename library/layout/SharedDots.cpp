#include "library/layout/SharedDots.h"

#include <cstddef>

namespace Library {
namespace {

// Of a dot in one direction: the module it begins in, and what lies in that and in the next one,
// where a module is as many as there are dots.
struct Share {
  int module;
  int parts[2];
};

std::vector<Share> SharesOf(int modules, int dots) {
  std::vector<Share> shares;
  for (int dot = 0; dot < dots; ++dot) {
    const int first = dot * modules / dots;
    const int rest = (first + 1) * dots - dot * modules;
    const int here = rest < modules ? rest : modules;
    shares.push_back({first, {here, modules - here}});
  }
  return shares;
}

class DotSharing {
 public:
  DotSharing(const CellGrid& grid, int columns, int rows)
      : modules(grid),
        across(SharesOf(grid.columns, columns)),
        upwards(SharesOf(grid.rows, rows)),
        dots{columns, rows, {}} {
    const int whole = columns * rows;
    for (const std::uint8_t dark : modules.cells) {
      missing.push_back(whole * (dark ? kDarkPercent : 200 - kDarkPercent) / 100);
    }
    begin();
  }

  CellGrid settle() {
    for (bool changed = true; changed;) {
      changed = false;
      for (int y = 0; y < dots.rows; ++y) {
        for (int x = 0; x < dots.columns; ++x) changed |= improve(x, y);
      }
    }
    return dots;
  }

 private:
  static constexpr int kDarkPercent = 95;

  // Every dot has the colour of the module that its middle lies in.
  void begin() {
    for (int y = 0; y < dots.rows; ++y) {
      const int row = (2 * y + 1) * modules.rows / (2 * dots.rows);
      for (int x = 0; x < dots.columns; ++x) {
        const int column = (2 * x + 1) * modules.columns / (2 * dots.columns);
        dots.cells.push_back(modules.cells[index(column, row)]);
        give(x, y);
      }
    }
  }

  bool improve(int x, int y) {
    std::uint8_t& dot = dots.cells[static_cast<std::size_t>(y * dots.columns + x)];
    int change = 0;  // of the sum of squares
    eachModule(x, y, [&](std::size_t module, int part) {
      const int gain = modules.cells[module] == dot ? -part : part;
      change += part * part - 2 * gain * missing[module];
    });
    if (change >= 0) return false;
    dot ^= 1;
    eachModule(x, y, [&](std::size_t module, int part) {
      missing[module] -= modules.cells[module] == dot ? part : -part;
    });
    return true;
  }

  void give(int x, int y) {
    eachModule(x, y, [&](std::size_t module, int part) {
      if (modules.cells[module] == dots.cells.back()) missing[module] -= part;
    });
  }

  // Up to four that the dot lies in, and how much of it does.
  template <typename Take>
  void eachModule(int x, int y, const Take& take) const {
    const Share& column = across[static_cast<std::size_t>(x)];
    const Share& row = upwards[static_cast<std::size_t>(y)];
    for (int up = 0; up < 2; ++up) {
      for (int right = 0; right < 2; ++right) {
        const int part = row.parts[up] * column.parts[right];
        if (part > 0) take(index(column.module + right, row.module + up), part);
      }
    }
  }

  std::size_t index(int column, int row) const {
    return static_cast<std::size_t>(row * modules.columns + column);
  }

  const CellGrid& modules;
  std::vector<Share> across, upwards;
  std::vector<int> missing;  // of each module's ink or paper, in parts
  CellGrid dots;
};

}  // namespace

CellGrid ShareDots(const CellGrid& modules, int columns, int rows) {
  return DotSharing(modules, columns, rows).settle();
}

}  // namespace Library
