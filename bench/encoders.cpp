// Encoding speed: our way from options to a symbol against bare libzint, in turn in the same run.
// Prints a line for each type: both times and their ratio, medians of several rounds.
#include "library/symbology/Encode.h"

#include <zint.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {

struct Row {
  const char* name;
  int type;  // our number
  int zint;  // libzint's symbology
  int inputMode;
  std::string data;
  std::string zintData;
};

const std::vector<Row> kRows = {
    {"Code 128", 20, BARCODE_CODE128, DATA_MODE, "Code 128 Tst", "Code 128 Tst"},
    {"GS1-128", 16, BARCODE_GS1_128, GS1_MODE, "(01)09501101530003(10)ABC123",
     "[01]09501101530003[10]ABC123"},
    {"Code 39", 8, BARCODE_CODE39, DATA_MODE, "CODE-39 TE", "CODE-39 TE"},
    {"Interleaved", 3, BARCODE_C25INTER, DATA_MODE, "1234567890", "1234567890"},
    {"EAN-13", 13, BARCODE_EANX, DATA_MODE, "400638133393", "400638133393"},
    {"PDF417", 55, BARCODE_PDF417, DATA_MODE, std::string(100, 'p'), std::string(100, 'p')},
    {"QR Code", 58, BARCODE_QRCODE, DATA_MODE, std::string(60, 'q'), std::string(60, 'q')},
    {"Data Matrix", 71, BARCODE_DATAMATRIX, DATA_MODE, std::string(60, 'd'), std::string(60, 'd')},
    {"Aztec", 92, BARCODE_AZTEC, DATA_MODE, std::string(60, 'a'), std::string(60, 'a')},
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

// Microseconds a symbol.
template <class Encoder>
double Time(Encoder encode, const Row& row) {
  constexpr auto kRound = std::chrono::milliseconds(20);
  const auto begin = std::chrono::steady_clock::now();
  int count = 0;
  std::chrono::duration<double, std::micro> elapsed{};
  for (; elapsed < kRound; elapsed = std::chrono::steady_clock::now() - begin, ++count) encode(row);
  return elapsed.count() / count;
}

double Median(std::vector<double> values) {
  std::ranges::nth_element(values, values.begin() + std::ssize(values) / 2);
  return values[values.size() / 2];
}

}  // namespace

int main() {
  constexpr int kRounds = 11;
  std::printf("%-12s %10s %10s %8s\n", "", "ours us", "libzint us", "ratio");
  for (const Row& row : kRows) {
    std::vector<double> ours, bare, ratios;
    for (int round = 0; round < kRounds; ++round) {
      ours.push_back(Time(EncodeOurs, row));
      bare.push_back(Time(EncodeBare, row));
      ratios.push_back(ours.back() / bare.back());
    }
    std::printf("%-12s %10.2f %10.2f %8.2f\n", row.name, Median(ours), Median(bare),
                Median(ratios));
  }
}
