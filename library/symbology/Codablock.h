// Codablock-F (AIM Europe, ISS-X-24): 2 to 44 rows of Code 128 one
// above the other. A row reads
//
//   start A | code set | row indicator | 4 to 62 columns | check character | stop
//
// and begins anew in a code set of its own. The last two columns of the last row are the check
// characters K1 and K2 over the data.
#pragma once

#include "library/prepare/PreparedData.h"
#include "library/symbology/Code128Sets.h"

#include <cstdint>
#include <vector>

namespace Library {

inline constexpr int kMinCodablockRows = 2, kMaxCodablockRows = 44;
inline constexpr int kMinCodablockColumns = 4, kMaxCodablockColumns = 62;
inline constexpr int kCodablockChecks = 2;
// Digits that the largest symbol holds.
inline constexpr int kMaxCodablockLength =
    2 * (kMaxCodablockRows * kMaxCodablockColumns - kCodablockChecks);

// Values of the symbol characters in columns.
struct CodablockRow {
  CodeSet set = kSetB;  // that the row begins in
  std::vector<std::uint8_t> values;

  CodeSet lastSet() const;
};

// Distributes data over rows of a given number of columns, as few rows as possible, by dynamic
// programming over the places in the data and the code sets in force there.
//
// Bytes above 127 get an FNC4 each: a latch would end with the row, and readers of this symbology
// are not known to have it. Nothing that belongs together is parted by the end of a row.
class CodablockPacker {
 public:
  // REQUIRES: data as of WithoutFnc4, which live as long as the packer.
  explicit CodablockPacker(const Data& data);

  // Rows needed, room for the check characters included.
  int rowsNeeded(int columns);

  // The fewest symbol characters that the data take where rows have no end.
  int charactersNeeded();

  // `rows` rows that are filled up with changes of the code set; the last one has two columns left
  // for the check characters. REQUIRES: rows >= rowsNeeded(columns).
  std::vector<CodablockRow> pack(int rows, int columns);

 private:
  // Symbol characters of one data character, 0 where a set does not have it.
  struct Lengths {
    int in[kCodeSets];
    bool pair;  // it makes one digit pair with the next
  };
  struct Costs {
    int in[kCodeSets];
  };

  void fillCosts(int columns);
  int costBehind(std::size_t place, int set) const;
  int cheapestBehind(std::size_t place) const;
  int append(int cost, int characters) const;
  int endOfRow(int cost) const;
  void trace(std::vector<CodablockRow>& rows) const;
  void write(std::size_t place, CodeSet set, bool pair, std::uint8_t* end) const;

  const Data& data;
  std::vector<Lengths> lengths;
  int rowLength = 0;  // columns of the costs below
  // Columns used up to a place in the data when a set is in force, counted over the rows.
  std::vector<Costs> costs;
};

// K1 and K2, 0 to 85.
struct CodablockChecks {
  int k1 = 0, k2 = 0;
};
CodablockChecks CodablockCheckCharacters(const Data& data);

}  // namespace Library
