#include "library/symbology/AztecPattern.h"

#include "library/symbology/ModuleRuns.h"
#include "library/symbology/ReedSolomon.h"

#include <cstddef>
#include <cstdlib>

namespace Library {
namespace {

using Words = std::vector<std::uint16_t>;

// Bits of words, the highest of each first, behind so many zeros.
class Bits {
 public:
  Bits(const Words& source, int bitsPerWord, int zerosInFront = 0)
      : following(source.begin()), wordBits(bitsPerWord), left(zerosInFront) {}
  bool next() {
    if (left == 0) {
      word = *following++;
      left = wordBits;
    }
    return (word >> --left & 1) != 0;
  }

 private:
  Words::const_iterator following;
  unsigned word = 0;
  int wordBits, left;  // left: of the word
};

// Modules by their distance from the centre.
class Matrix {
 public:
  explicit Matrix(int reach)
      : centre(reach),
        width(2 * reach + 1),
        modules(static_cast<std::size_t>(width) * static_cast<std::size_t>(width)) {}

  void set(int x, int y, bool dark = true) {
    modules[static_cast<std::size_t>((y + centre) * width + x + centre)] = dark;
  }

  // Draws what stands above the centre on the side that `quarters` clockwise turns bring it to.
  class Side {
   public:
    Side(Matrix& matrix, int quarters) : origin(matrix.modules.data()) {
      constexpr int kCosine[] = {1, 0, -1, 0}, kSine[] = {0, 1, 0, -1};
      const int cosine = kCosine[quarters], sine = kSine[quarters];
      origin += matrix.centre * (matrix.width + 1);
      along = cosine + sine * matrix.width;
      down = cosine * matrix.width - sine;
    }
    void set(int x, int y, bool dark) { origin[x * along + y * down] = dark; }

   private:
    std::uint8_t* origin;  // the centre
    int along, down;       // from a module to the next one
  };

  void copyTo(Symbol& symbol) const {
    AddModules(symbol, width, width, [this](int row, int column) {
      return modules[static_cast<std::size_t>(row * width + column)] != 0;
    });
  }

 private:
  int centre, width;
  std::vector<std::uint8_t> modules;
};

// How far the mode message and the corners round the bull's-eye are from the centre.
constexpr int FinderReach(bool compact) {
  return compact ? 5 : 7;
}

// Rings and the corners that tell the orientation, as far as `reach` from the centre.
void DrawFinder(Matrix& matrix, int reach) {
  for (int ring = 0; ring < reach; ring += 2) {
    for (int along = -ring; along <= ring; ++along) {
      matrix.set(along, -ring), matrix.set(along, ring);
      matrix.set(-ring, along), matrix.set(ring, along);
    }
  }
  matrix.set(-reach, -reach), matrix.set(1 - reach, -reach), matrix.set(-reach, 1 - reach);
  matrix.set(reach, -reach), matrix.set(reach, 1 - reach);
  matrix.set(reach, reach - 1);
}

// Clockwise round the finder from the left of the upper side.
void DrawModeMessage(Matrix& matrix, bool compact, const Words& message) {
  Bits bits(message, 4);
  const int distance = FinderReach(compact);
  const int sideBits = compact ? 7 : 10;
  for (int quarters = 0; quarters < 4; ++quarters) {
    Matrix::Side side(matrix, quarters);
    for (int i = 0; i < sideBits; ++i) {
      const int gap = !compact && i >= sideBits / 2 ? 1 : 0;  // the reference grid
      side.set(i - sideBits / 2 + gap, -distance, bits.next());
    }
  }
}

const GaloisField& FieldOf(int wordBits) {
  switch (wordBits) {
    case 4:
      return kField16;
    case 6:
      return kField64;
    case 8:
      return kField256;
    case 10:
      return kField1024;
    default:
      return kField4096;
  }
}

void AddCheckWords(Words& words, std::size_t total, int wordBits) {
  ReedSolomon(FieldOf(wordBits), total - words.size(), 1).addTo(words);
}

Words ModeMessage(const AztecShape& shape, int dataWords) {
  const int value = (shape.layers - 1) << (shape.compact ? 6 : 11) | (dataWords - 1);
  Words message;
  for (int shift = shape.compact ? 4 : 12; shift >= 0; shift -= 4) {
    message.push_back(static_cast<std::uint16_t>(value >> shift & 15));
  }
  AddCheckWords(message, shape.compact ? 7 : 10, 4);
  return message;
}

// From the places that data can have on an axis, counted from the left, to the distance from the
// centre: a full symbol has a line of the reference grid there and every 16 modules.
class Axis {
 public:
  explicit Axis(const AztecShape& shape)
      : compact(shape.compact), places((compact ? 11 : 14) + 4 * shape.layers) {}
  int count() const { return places; }
  int reach() const { return distance(places - 1); }
  int distance(int place) const {
    const int half = places / 2;
    if (compact) return place - half;
    const int offset = place < half ? half - 1 - place : place - half;
    const int beyond = offset + offset / 15 + 1;
    return place < half ? -beyond : beyond;
  }

 private:
  bool compact;
  int places;
};

void DrawGrid(Matrix& matrix, int reach) {
  for (int line = 0; line <= reach; line += 16) {
    for (int along = -(reach & ~1); along <= reach; along += 2) {
      matrix.set(line, along), matrix.set(-line, along);
      matrix.set(along, line), matrix.set(along, -line);
    }
  }
}

// Layers from the outermost inwards, each anticlockwise from the upper left corner in pairs of
// modules: down, right, up and left again.
void DrawLayers(Matrix& matrix, const AztecShape& shape, const Words& words) {
  const Axis axis(shape);
  Bits bits(words, shape.wordBits(), shape.bits() % shape.wordBits());
  for (int layer = 0; layer < shape.layers; ++layer) {
    const int outer = 2 * layer;
    const int length = axis.count() - 2 * outer - 2;
    const int depths[] = {axis.distance(outer), axis.distance(outer + 1)};
    for (const int quarters : {3, 2, 1, 0}) {
      Matrix::Side side(matrix, quarters);
      for (int along = length - 1; along >= 0; --along) {
        const int place = axis.distance(outer + 2 + along);
        for (const int depth : depths) side.set(place, depth, bits.next());
      }
    }
  }
}

// Readers go outwards from the bull's-eye's last ring but one.
void SetMeasure(bool compact, Symbol& symbol) {
  symbol.centre = 2 * FinderReach(compact) - 3;
}

}  // namespace

void DrawAztec(const AztecShape& shape, std::vector<std::uint16_t> data, Symbol& symbol) {
  const Words mode = ModeMessage(shape, static_cast<int>(data.size()));
  AddCheckWords(data, static_cast<std::size_t>(shape.words()), shape.wordBits());
  const int reach = Axis(shape).reach();
  Matrix matrix(reach);
  if (!shape.compact) DrawGrid(matrix, reach);
  DrawLayers(matrix, shape, data);
  DrawFinder(matrix, FinderReach(shape.compact));
  DrawModeMessage(matrix, shape.compact, mode);
  SetMeasure(shape.compact, symbol);
  matrix.copyTo(symbol);
}

void DrawAztecRune(std::uint8_t number, Symbol& symbol) {
  Words message{static_cast<std::uint16_t>(number >> 4), static_cast<std::uint16_t>(number & 15)};
  AddCheckWords(message, 7, 4);
  for (std::uint16_t& word : message) word ^= 0b1010;
  Matrix matrix(FinderReach(true));
  DrawFinder(matrix, FinderReach(true));
  DrawModeMessage(matrix, true, message);
  SetMeasure(true, symbol);
  matrix.copyTo(symbol);
}

}  // namespace Library
