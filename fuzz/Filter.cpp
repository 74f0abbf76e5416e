// The whole filter. An input is six bytes that choose, and a job:
//
//     insert mode   switches   language, arrival, pattern   filler   its size   its place
//
// The filler makes the job longer than the stream's buffers at a cost of two bytes. What holds:
//
//   - A job without a begin token in any encoding leaves as it came.
//   - The output does not depend on how the job arrives.
//   - Without what was inserted, the output differs from the job only in sequences and in the
//     strings that hold them. So it does where a begin token has no end.
#include "filter/Filter.h"

#include "fuzz/Barcodes.h"
#include "fuzz/Spans.h"
#include "fuzz/Streams.h"
#include "fuzz/Target.h"
#include "settings/GlobalSettings.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Fuzz {
namespace {

using Settings::AppSettings;

struct Case {
  AppSettings settings;
  Arrival arrival;
  std::string job;
  bool logged = false;
};

bool Is(unsigned byte, unsigned bit) {
  return (byte >> bit & 1) != 0;
}

void ChooseSwitches(unsigned byte, Case& filtered) {
  AppSettings& settings = filtered.settings;
  settings.lineByLine = Is(byte, 0);
  settings.orvella = Is(byte, 1);
  if (Is(byte, 2)) settings.barcode.remove = Settings::kRemoveSequence;
  settings.v1format = Is(byte, 3);
  settings.ignoreBarcodeError = Is(byte, 4);
  filtered.logged = Is(byte, 5);
  if (Is(byte, 7)) {
    settings.escapeBegin = "{{";
    settings.escapeEnd = "}}";
  }
}

void ChoosePattern(unsigned byte, AppSettings& settings) {
  constexpr std::array kPatterns = {"", "% Here", "showpage", "x"};
  settings.insertPattern = kPatterns[byte % kPatterns.size()];
}

// A few dozen pieces are the most that a run can afford with a stream that moves at every read.
Arrival ChooseArrival(unsigned byte, std::size_t place, std::size_t jobSize) {
  constexpr std::array<std::size_t, 4> kSizes = {4096, 1, 7, 100};
  constexpr std::size_t kMostPieces = 60;
  Arrival arrival{.size = kSizes[byte % kSizes.size()]};
  const std::size_t reach = kMostPieces * arrival.size;
  if (reach >= jobSize) return arrival;
  arrival.from = place - std::min(place, reach / 2);
  arrival.to = arrival.from + reach;
  return arrival;
}

std::string Noise(std::size_t size) {
  std::string noise;
  std::uint32_t state = 1;
  while (noise.size() < size) {
    state = state * 1664525 + 1013904223;
    noise += static_cast<char>(state >> 24);
  }
  return noise;
}

std::string Filler(unsigned kind, std::size_t size) {
  constexpr std::array kPieces = {
      "(text) show\n", "x", "0 0 moveto 10 20 lineto\n", "(a\\)\r\n", "% line\n", "(", "1.5 "};
  if (kind % 8 == kPieces.size()) return Noise(size);
  const std::string_view piece = kPieces[kind % 8];
  std::string filler;
  while (filler.size() < size) filler += piece;
  return filler;
}

// Half of all inputs have no filler; the longest is longer than any string.
std::size_t FillerSize(unsigned byte) {
  constexpr unsigned kNone = 128;
  constexpr std::size_t kStep = 2048;
  constexpr std::size_t kLongest = 1200 * 1024;
  if (byte < kNone) return 0;
  return byte >= 254 ? kLongest : (byte - kNone + 1) * kStep;
}

Case Described(std::string_view bytes) {
  Input input(bytes);
  static const AppSettings kDefaults;  // looks for configuration files
  Case filtered{.settings = kDefaults, .arrival = {}, .job = {}};
  AppSettings& settings = filtered.settings;
  settings.filter = true;
  settings.insertMode = static_cast<int>(input.choice() % 6);
  ChooseSwitches(input.choice(), filtered);
  const unsigned mixed = input.choice();
  settings.streamType = static_cast<int>(mixed % 4 % 3);
  ChoosePattern(mixed >> 4, settings);
  const unsigned kind = input.choice();
  const std::string filler = Filler(kind, FillerSize(input.choice()));
  const unsigned where = input.choice();
  filtered.job = input.rest();
  const std::size_t place = filtered.job.size() * where / 255;
  filtered.job.insert(place, filler);
  const std::size_t behind = Is(mixed, 6) ? place : place + filler.size();
  filtered.arrival = ChooseArrival(mixed >> 2, behind, filtered.job.size());
  return filtered;
}

std::string Filtered(const Case& filtered, Arrival arrival) {
  g_settings.application = filtered.settings;
  g_settings.trace.setStderrOn(false);
  g_settings.trace.setMaxLevel(filtered.logged ? Diag::kDebug : 0);
  Streams streams(filtered.job, arrival);
  Filter::Filter().run();
  return std::move(streams.output);
}

}  // namespace

void FuzzFilter(std::string_view bytes) {
  const Case filtered = Described(bytes);
  // The fuzzer learns from comparisons what is inserted.
  if (filtered.job.find(" OF TEXT PLACEMENT") != std::string::npos) return;
  if (WithoutInserted(filtered.job) != filtered.job) return;
  const std::string output = Filtered(filtered, {});
  Require(Filtered(filtered, filtered.arrival) == output, "the output depends on the arrival");
  const Spans spans = SpansOfSequences(filtered.job, filtered.settings);
  Require(DiffersOnlyIn(spans, filtered.job, WithoutInserted(output)),
          "bytes outside of sequences changed");
}

}  // namespace Fuzz
