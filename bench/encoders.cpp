// Speed of encoding and drawing: our way from options to a symbol, and the whole way through the C
// interface to PostScript, against bare libzint's encoding, in turn in the same run. Prints a line
// for each type, processor time of the quickest of several rounds, with the limits that hold; then
// the type that takes longest for the longest data that it accepts, and the memory of the run.
#include "engine/library/vextorin9.h"
#include "library/symbology/Encode.h"

#include <sys/resource.h>
#include <zint.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>
#include <string>
#include <vector>

namespace {

// Limits, times in microseconds.
struct Limits {
  double encode = 0;  // times what libzint takes, 0: none
  bool whole = false;
};
constexpr double kWholeFactor = 2, kWholeExtra = 6, kLongest = 10'000;
constexpr Limits kNone = {}, kDrawn = {0, true}, kQr = {0.6, false};

struct Row {
  const char* name;
  int type;  // our number
  int zint;  // libzint's symbology
  int inputMode;
  std::string data;
  std::string zintData;
  Limits limits;
};

const std::vector<Row> kRows = {
    {"Code 128", 20, BARCODE_CODE128, DATA_MODE, "Code 128 Tst", "Code 128 Tst", kDrawn},
    {"GS1-128", 16, BARCODE_GS1_128, GS1_MODE, "(01)09501101530003(10)ABC123",
     "[01]09501101530003[10]ABC123", kNone},
    {"Code 39", 8, BARCODE_CODE39, DATA_MODE, "CODE-39 TE", "CODE-39 TE", kNone},
    {"Interleaved", 3, BARCODE_C25INTER, DATA_MODE, "1234567890", "1234567890", kNone},
    {"EAN-13", 13, BARCODE_EANX, DATA_MODE, "400638133393", "400638133393", kDrawn},
    {"PDF417", 55, BARCODE_PDF417, DATA_MODE, std::string(100, 'p'), std::string(100, 'p'), kDrawn},
    {"QR Code", 58, BARCODE_QRCODE, DATA_MODE, std::string(60, 'q'), std::string(60, 'q'), kQr},
    {"Data Matrix", 71, BARCODE_DATAMATRIX, DATA_MODE, std::string(60, 'd'), std::string(60, 'd'),
     kDrawn},
    {"Aztec", 92, BARCODE_AZTEC, DATA_MODE, std::string(60, 'a'), std::string(60, 'a'), kDrawn},
};

void EncodeOurs(const Row& row) {
  Library::Options options;
  options.type = row.type;
  options.data = row.data;
  if (Library::Encode(options).rows.empty()) std::abort();
}

void EncodeBare(const Row& row) {
  zint_symbol* const symbol = ZBarcode_Create();
  symbol->symbology = row.zint;
  symbol->input_mode = row.inputMode;
  const auto* const data = reinterpret_cast<const unsigned char*>(row.zintData.data());
  if (ZBarcode_Encode(symbol, data, static_cast<int>(row.zintData.size())) >= ZINT_ERROR) {
    std::abort();
  }
  ZBarcode_Delete(symbol);
}

// Whether there is such a barcode.
bool Draw(int type, const std::string& data) {
  static std::vector<char> buffer(8 << 20);
  constexpr BCRect kBox = {0, 0, 60'000, 25'000};
  BCBarcode* barcode = nullptr;
  auto size = static_cast<std::uint32_t>(buffer.size());
  const bool drawn = BCAlloc(&barcode) == BC_OK && BCSetBCType(barcode, type) == BC_OK &&
                     BCSetTextA(barcode, data.data(), static_cast<int>(data.size())) == BC_OK &&
                     BCCreate(barcode) == BC_OK &&
                     BCPostscriptToMemoryExt(barcode, buffer.data(), &size, &kBox, 1) == BC_OK;
  BCFree(barcode);
  return drawn;
}

void DrawWhole(const Row& row) {
  if (!Draw(row.type, row.data)) std::abort();
}

// Processor time of this thread in microseconds.
double Now() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

// Lowers `best`, microseconds a time, to what a round takes.
template <class Work>
void Time(Work work, double round, double& best) {
  const double begin = Now();
  double elapsed = 0;
  int count = 0;
  for (; elapsed < round; elapsed = Now() - begin) {
    constexpr int kBetweenLooks = 2;
    for (int i = 0; i < kBetweenLooks; ++i) work();
    count += kBetweenLooks;
  }
  best = std::min(best, elapsed / count);
}

// A time and its limit.
void PrintLimit(double time, double limit) {
  std::printf(" %8.2f %-5s", limit, time <= limit ? "holds" : "OVER");
}

void Compare(const Row& row) {
  constexpr int kRounds = 21;
  constexpr double kRound = 10'000;
  double libzint = HUGE_VAL, ours = HUGE_VAL, whole = HUGE_VAL;
  for (int i = 0; i < kRounds; ++i) {
    Time([&row] { EncodeBare(row); }, kRound, libzint);
    Time([&row] { EncodeOurs(row); }, kRound, ours);
    Time([&row] { DrawWhole(row); }, kRound, whole);
  }
  std::printf("%-12s %8.2f %8.2f %8.2f %8.2f", row.name, libzint, ours, ours / libzint, whole);
  if (row.limits.encode > 0) PrintLimit(ours, row.limits.encode * libzint);
  if (row.limits.whole) PrintLimit(whole, kWholeFactor * libzint + kWholeExtra);
  std::printf("\n");
}

// The longest data of a kind that a type accepts, "" if none.
std::string Longest(const Library::Symbology& type, const std::string& characters) {
  std::minstd_rand random(1);
  std::string data;
  for (int i = 0; i < type.maxLength; ++i) data += characters[random() % characters.size()];
  std::size_t fits = 0, most = data.size() + 1;
  while (fits + 1 < most) {
    const std::size_t middle = most == data.size() + 1 ? data.size() : (fits + most) / 2;
    (Draw(type.type, data.substr(0, middle)) ? fits : most) = middle;
  }
  return data.substr(0, fits);
}

// What characters data may be made of, those that the type takes of each.
std::vector<std::string> Kinds(const Library::Symbology& type) {
  std::vector<std::string> kinds;
  const std::pair<int, int> kRanges[] = {{'0', '9'}, {'A', 'Z'}, {'a', 'z'}, {'0', 'z'},
                                         {0, 127},   {128, 255}, {0, 255}};
  for (const auto& [first, last] : kRanges) {
    std::string characters;
    for (int c = first; c <= last; ++c) {
      if (type.characters.contains(static_cast<unsigned>(c))) characters += static_cast<char>(c);
    }
    if (!characters.empty()) kinds.push_back(characters);
  }
  return kinds;
}

void FindSlowest() {
  constexpr int kRounds = 5, kLastType = 200;
  constexpr double kRound = 1'000;
  struct {
    std::string_view name = "none";
    std::size_t length = 0;
    double time = 0;
  } slowest;
  int types = 0;
  for (int number = 1; number < kLastType; ++number) {
    const Library::Symbology* const type = Library::FindSymbology(number);
    if (type == nullptr || type->encoder == nullptr) continue;
    bool measured = false;
    for (const std::string& characters : Kinds(*type)) {
      const std::string data = Longest(*type, characters);
      if (data.empty()) continue;
      measured = true;
      double time = HUGE_VAL;
      for (int i = 0; i < kRounds; ++i) Time([&] { Draw(number, data); }, kRound, time);
      if (time > slowest.time) slowest = {type->name, data.size(), time};
    }
    types += measured;
  }
  std::printf("slowest of %d types with their longest data: %.*s, %zu bytes, %.2f us", types,
              static_cast<int>(slowest.name.size()), slowest.name.data(), slowest.length,
              slowest.time);
  PrintLimit(slowest.time, kLongest);
  std::printf("\n");
}

}  // namespace

int main() {
  if (BCInitLibraryA("") != BC_OK) return EXIT_FAILURE;
  std::printf("%-12s %8s %8s %8s %8s %8s\n", "us", "libzint", "encode", "ratio", "whole", "limit");
  for (const Row& row : kRows) Compare(row);
  FindSlowest();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("peak memory %ld KiB\n", usage.ru_maxrss);
}
