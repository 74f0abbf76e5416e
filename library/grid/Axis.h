// One direction of a grid: cells in a row, or rows above each other. Lengths are thousandths of a
// millimetre.
#pragma once

namespace Library {

class Axis {
 public:
  // What lies between two cells at least: a length of its own and a share of the cell, where the
  // symbols grow with their cells.
  struct Gap {
    double length = 0, share = 0;
  };

  // `least`: the smallest cell. `dot`: cells begin at multiples of it, 0: anywhere.
  Axis(double least, Gap gap, double dot) : leastCell(least), between(gap), dotLength(dot) {}

  double least() const { return leastCell; }
  // From the beginning of one cell to that of the next.
  double pitch(double cell) const;
  // Of `count` cells with what lies between them.
  double length(double cell, int count) const { return (count - 1) * pitch(cell) + cell; }
  // The largest cell of which there is room for `count`, never below the smallest.
  double cell(double room, int count) const;
  bool holds(double room, int count) const;
  // The largest number of smallest cells, at least 1 and at most `limit`.
  int capacity(double room, int limit) const;

 private:
  double grown(double cell) const { return cell * (1 + between.share) + between.length; }
  double shrunk(double distance) const { return (distance - between.length) / (1 + between.share); }

  double leastCell;
  Gap between;
  double dotLength;
};

}  // namespace Library
