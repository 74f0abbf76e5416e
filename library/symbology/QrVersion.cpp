#include "library/symbology/QrVersion.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace Library {
namespace {

struct Blocks {
  std::uint8_t count, checkWords;  // of each
};

// By version, then by level: L, M, Q, H.
constexpr Blocks kBlocks[QrVersion::kLast][4] = {
    {{1, 7}, {1, 10}, {1, 13}, {1, 17}},       // 1
    {{1, 10}, {1, 16}, {1, 22}, {1, 28}},      // 2
    {{1, 15}, {1, 26}, {2, 18}, {2, 22}},      // 3
    {{1, 20}, {2, 18}, {2, 26}, {4, 16}},      // 4
    {{1, 26}, {2, 24}, {4, 18}, {4, 22}},      // 5
    {{2, 18}, {4, 16}, {4, 24}, {4, 28}},      // 6
    {{2, 20}, {4, 18}, {6, 18}, {5, 26}},      // 7
    {{2, 24}, {4, 22}, {6, 22}, {6, 26}},      // 8
    {{2, 30}, {5, 22}, {8, 20}, {8, 24}},      // 9
    {{4, 18}, {5, 26}, {8, 24}, {8, 28}},      // 10
    {{4, 20}, {5, 30}, {8, 28}, {11, 24}},     // 11
    {{4, 24}, {8, 22}, {10, 26}, {11, 28}},    // 12
    {{4, 26}, {9, 22}, {12, 24}, {16, 22}},    // 13
    {{4, 30}, {9, 24}, {16, 20}, {16, 24}},    // 14
    {{6, 22}, {10, 24}, {12, 30}, {18, 24}},   // 15
    {{6, 24}, {10, 28}, {17, 24}, {16, 30}},   // 16
    {{6, 28}, {11, 28}, {16, 28}, {19, 28}},   // 17
    {{6, 30}, {13, 26}, {18, 28}, {21, 28}},   // 18
    {{7, 28}, {14, 26}, {21, 26}, {25, 26}},   // 19
    {{8, 28}, {16, 26}, {20, 30}, {25, 28}},   // 20
    {{8, 28}, {17, 26}, {23, 28}, {25, 30}},   // 21
    {{9, 28}, {17, 28}, {23, 30}, {34, 24}},   // 22
    {{9, 30}, {18, 28}, {25, 30}, {30, 30}},   // 23
    {{10, 30}, {20, 28}, {27, 30}, {32, 30}},  // 24
    {{12, 26}, {21, 28}, {29, 30}, {35, 30}},  // 25
    {{12, 28}, {23, 28}, {34, 28}, {37, 30}},  // 26
    {{12, 30}, {25, 28}, {34, 30}, {40, 30}},  // 27
    {{13, 30}, {26, 28}, {35, 30}, {42, 30}},  // 28
    {{14, 30}, {28, 28}, {38, 30}, {45, 30}},  // 29
    {{15, 30}, {29, 28}, {40, 30}, {48, 30}},  // 30
    {{16, 30}, {31, 28}, {43, 30}, {51, 30}},  // 31
    {{17, 30}, {33, 28}, {45, 30}, {54, 30}},  // 32
    {{18, 30}, {35, 28}, {48, 30}, {57, 30}},  // 33
    {{19, 30}, {37, 28}, {51, 30}, {60, 30}},  // 34
    {{19, 30}, {38, 28}, {53, 30}, {63, 30}},  // 35
    {{20, 30}, {40, 28}, {56, 30}, {66, 30}},  // 36
    {{21, 30}, {43, 28}, {59, 30}, {70, 30}},  // 37
    {{22, 30}, {45, 28}, {62, 30}, {74, 30}},  // 38
    {{24, 30}, {47, 28}, {65, 30}, {77, 30}},  // 39
    {{25, 30}, {49, 28}, {68, 30}, {81, 30}},  // 40
};

constexpr QrSegmentHeads kHeads[] = {
    {4, {1, 2, 4}, {10, 9, 8}},
    {4, {1, 2, 4}, {12, 11, 16}},
    {4, {1, 2, 4}, {14, 13, 16}},
};

const Blocks& BlocksOf(int version, QrLevel level) {
  return kBlocks[version - 1][static_cast<int>(level)];
}

// Modules that are left when all patterns and informations are drawn.
int DataModules(int version) {
  int modules = (16 * version + 128) * version + 64;
  if (version >= 2) {
    const int alignments = version / 7 + 2;
    modules -= (25 * alignments - 10) * alignments - 55;
  }
  if (version >= 7) modules -= 36;
  return modules;
}

}  // namespace

QrVersion::QrVersion(int versionNumber, QrLevel levelOfVersion)
    : version(versionNumber), ecLevel(levelOfVersion) {}

int QrVersion::blocks() const {
  return BlocksOf(version, ecLevel).count;
}

int QrVersion::checkWordsPerBlock() const {
  return BlocksOf(version, ecLevel).checkWords;
}

std::size_t QrVersion::dataWords() const {
  return static_cast<std::size_t>(DataModules(version) / 8 - blocks() * checkWordsPerBlock());
}

const QrSegmentHeads& QrVersion::heads() const {
  constexpr int kLastSmall = 9, kLastMiddle = 26;
  return kHeads[version <= kLastSmall ? 0 : version <= kLastMiddle ? 1 : 2];
}

// Spread from the last to the second as evenly as even distances can be; version 32 is the
// exception.
std::vector<int> QrVersion::alignment() const {
  if (version == 1) return {};
  const int count = version / 7 + 2;
  const int gaps = 2 * count - 2;
  const int distance = version == 32 ? 26 : (4 * version + 2 * count + 1) / gaps * 2;
  std::vector<int> centres(static_cast<std::size_t>(count), 6);
  int centre = width() - 7;
  for (std::size_t i = centres.size(); --i > 0; centre -= distance) centres[i] = centre;
  return centres;
}

}  // namespace Library
