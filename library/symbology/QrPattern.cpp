#include "library/symbology/QrPattern.h"

#include "library/symbology/QrMask.h"
#include "library/symbology/QrPenalty.h"
#include "library/symbology/QrRemainder.h"

#include <limits>

namespace Library {
namespace {

constexpr int kTiming = 6;  // row and column

void DrawFinders(QrCanvas& canvas, int width) {
  constexpr std::uint32_t kRings = 0b01011;  // from the centre: 3 x 3, a light ring, a dark one
  constexpr int kReach = 4, kCentre = 3;
  canvas.drawRings(kCentre, kCentre, kReach, kRings);
  canvas.drawRings(width - 1 - kCentre, kCentre, kReach, kRings);
  canvas.drawRings(kCentre, width - 1 - kCentre, kReach, kRings);
}

void DrawTiming(QrCanvas& canvas, int width) {
  for (int i = 8; i < width - 8; ++i) {
    canvas.set(i, kTiming, i % 2 == 0);
    canvas.set(kTiming, i, i % 2 == 0);
  }
}

void DrawAlignment(QrCanvas& canvas, const QrVersion& version) {
  constexpr std::uint32_t kRings = 0b101;
  const std::vector<int> centres = version.alignment();
  if (centres.empty()) return;
  const int first = centres.front(), last = centres.back();
  for (const int x : centres) {
    for (const int y : centres) {
      const bool onFinder = (x == first && (y == first || y == last)) || (x == last && y == first);
      if (!onFinder) canvas.drawRings(x, y, 2, kRings);
    }
  }
}

void DrawVersion(QrCanvas& canvas, const QrVersion& version) {
  constexpr int kFirst = 7;
  if (version.number() < kFirst) return;
  const std::uint32_t bits =
      WithQrRemainder(static_cast<std::uint32_t>(version.number()), 0x1F25, 12);
  for (int i = 0; i < 18; ++i) {
    const bool dark = (bits >> i & 1) != 0;
    const int across = version.width() - 11 + i % 3;
    canvas.set(across, i / 3, dark);
    canvas.set(i / 3, across, dark);
  }
}

std::uint32_t FormatBits(QrLevel level, int mask) {
  constexpr std::uint32_t kLevels[] = {1, 0, 3, 2};
  const std::uint32_t value = kLevels[static_cast<int>(level)] << 3 | static_cast<unsigned>(mask);
  return WithQrRemainder(value, 0x537, 10) ^ 0x5412;
}

// Round the upper left finder, and again below the one and beside the other; `target` has a set as
// QrCanvas and QrMatrix have it.
template <class Target>
void DrawFormat(Target& target, int width, std::uint32_t bits) {
  constexpr int kLine = 8;  // row and column
  for (int i = 0; i < 15; ++i) {
    const bool dark = (bits >> i & 1) != 0;
    const int overTiming = i < 8 ? i + (i >= 6 ? 1 : 0) : 14 - i + (i == 8 ? 1 : 0);
    if (i < 8) {
      target.set(kLine, overTiming, dark);
      target.set(width - 1 - i, kLine, dark);
    } else {
      target.set(overTiming, kLine, dark);
      target.set(kLine, width - 15 + i, dark);
    }
  }
  target.set(kLine, width - kLine, true);
}

QrMatrix Masked(const QrCanvas& canvas, QrLevel level, int mask) {
  QrMatrix modules = canvas.modules;
  ApplyQrMask(modules, canvas.drawn, mask);
  DrawFormat(modules, modules.width, FormatBits(level, mask));
  return modules;
}

int BestMask(const QrCanvas& canvas, QrLevel level) {
  int best = 0, least = std::numeric_limits<int>::max();
  for (int mask = 0; mask < kQrMasks; ++mask) {
    const int penalty = QrPenalty(Masked(canvas, level, mask));
    if (penalty >= least) continue;
    least = penalty;
    best = mask;
  }
  return best;
}

}  // namespace

QrMatrix QrPattern(const QrVersion& version, const std::vector<std::uint8_t>& words, int mask) {
  const int width = version.width();
  QrCanvas canvas(width, width);
  DrawFinders(canvas, width);
  DrawTiming(canvas, width);
  DrawAlignment(canvas, version);
  DrawVersion(canvas, version);
  DrawFormat(canvas, width, 0);
  canvas.place(words, width - 1, kTiming);
  const QrLevel level = version.level();
  return Masked(canvas, level, mask == kAutomaticMask ? BestMask(canvas, level) : mask);
}

}  // namespace Library
