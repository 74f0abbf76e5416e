// Setters of one symbology family each, and of grids of barcodes.
#include "library/api/Setters.h"
#include "library/layout/ElementWidths.h"

#include <limits>

using namespace Library;

namespace {

constexpr double kAnyCount = std::numeric_limits<int>::max();
constexpr double kMaxSegments = 99999;  // of a Macro PDF417
constexpr double kMaxGridCells = 10000;

// "rows:columns"; "auto" and an empty text leave it to the library.
std::string RowColumnRatio(const char* text, const std::string& standard) {
  const std::string ratio = kText(text, standard);
  if (ratio.empty() || ratio == "auto") return standard;
  if (ParseRatio(ratio).size() != 2) Reject();
  return ratio;
}

// One symbol of a structured append: number `index` of `sum`, each -1 when not set.
struct Append {
  int sum, index;
};

Append CheckAppend(int sum, int index, double limit) {
  const Append checked = {InRangeOrDefault{2, limit}(sum, -1),
                          InRangeOrDefault{1, limit}(index, -1)};
  if (checked.sum != -1 && checked.index > checked.sum) Reject();
  return checked;
}

struct Letter {
  char operator()(char letter, char) const {
    if (letter < 'A' || letter > 'Z') Reject();
    return letter;
  }
};

}  // namespace

// PDF417 and Micro PDF417

BCResult BCSet_PDF417_Rows(BCBarcode* b, int rows) {
  return Set(b, &Options::pdf417, &Pdf417Options::rows, rows, InRangeOrDefault{3, 90});
}
BCResult BCSet_PDF417_Columns(BCBarcode* b, int columns) {
  return Set(b, &Options::pdf417, &Pdf417Options::columns, columns, InRangeOrDefault{1, 30});
}
BCResult BCSet_PDF417_RowHeight(BCBarcode* b, int32_t height) {
  return Set(b, &Options::pdf417, &Pdf417Options::rowHeight, height, kLength);
}
BCResult BCSet_PDF417_ECLevel(BCBarcode* b, int level) {
  return Set(b, &Options::pdf417, &Pdf417Options::ecLevel, level, InRangeOrDefault{0, 8});
}
BCResult BCSet_PDF417_EncodingMode(BCBarcode* b, int mode) {
  return Set(b, &Options::pdf417, &Pdf417Options::mode, mode, InRangeOrDefault{0, 1});
}
BCResult BCSet_PDF417_RowColRatioA(BCBarcode* b, const char* ratio) {
  return Set(b, &Options::pdf417, &Pdf417Options::ratio, ratio, RowColumnRatio);
}
BCResult BCSet_PDF417_SegIndex(BCBarcode* b, int index) {
  return Set(b, &Options::pdf417, &Pdf417Options::segIndex, index,
             InRangeOrDefault{0, kMaxSegments - 1});
}
BCResult BCSet_PDF417_SegCount(BCBarcode* b, int count) {
  return Set(b, &Options::pdf417, &Pdf417Options::segCount, count,
             InRangeOrDefault{1, kMaxSegments});
}
BCResult BCSet_PDF417_TimeStamp(BCBarcode* b, int time) {
  return Set(b, &Options::pdf417, &Pdf417Options::timeStamp, time, InRangeOrDefault{0, kAnyCount});
}
BCResult BCSet_PDF417_FileSize(BCBarcode* b, int bytes) {
  return Set(b, &Options::pdf417, &Pdf417Options::fileSize, bytes, InRangeOrDefault{0, kAnyCount});
}
BCResult BCSet_PDF417_CheckSum(BCBarcode* b, int sum) {
  return Set(b, &Options::pdf417, &Pdf417Options::checkSum, sum, InRangeOrDefault{0, 65535});
}
BCResult BCSet_PDF417_SegLast(BCBarcode* b, int on) {
  return Set(b, &Options::pdf417, &Pdf417Options::segLast, on, Switch{});
}
BCResult BCSet_PDF417_FileIDA(BCBarcode* b, const char* id) {
  return Set(b, &Options::pdf417, &Pdf417Options::fileId, id, kText);
}
BCResult BCSet_PDF417_FileNameA(BCBarcode* b, const char* name) {
  return Set(b, &Options::pdf417, &Pdf417Options::fileName, name, kText);
}
BCResult BCSet_PDF417_SenderA(BCBarcode* b, const char* sender) {
  return Set(b, &Options::pdf417, &Pdf417Options::sender, sender, kText);
}
BCResult BCSet_PDF417_AddresseeA(BCBarcode* b, const char* addressee) {
  return Set(b, &Options::pdf417, &Pdf417Options::addressee, addressee, kText);
}
BCResult BCSet_MPDF417_Version(BCBarcode* b, int version) {
  return Set(b, &Options::pdf417, &Pdf417Options::microVersion, version, InRangeOrDefault{0, 34});
}
BCResult BCSet_MPDF417_Mode(BCBarcode* b, int mode) {
  return Set(b, &Options::pdf417, &Pdf417Options::microMode, mode, InRangeOrDefault{0, 8});
}

// MaxiCode

BCResult BCSet_Maxi_Mode(BCBarcode* b, int mode) {
  return Set(b, &Options::maxi, &MaxiOptions::mode, mode, InRangeOrDefault{2, 5});
}
BCResult BCSet_Maxi_UnderCut(BCBarcode* b, int percent) {
  return Set(b, &Options::maxi, &MaxiOptions::underCut, percent, InRangeOrDefault{0, 100});
}
BCResult BCSet_Maxi_Append(BCBarcode* b, int sum, int index) {
  return Apply(b, [&](Options& options) {
    const Append append = CheckAppend(sum, index, 8);
    options.maxi.appendSum = append.sum;
    options.maxi.appendIndex = append.index;
  });
}
BCResult BCSet_Maxi_SCMA(BCBarcode* b, const char* service, const char* country,
                         const char* postal) {
  return Apply(b, [&](Options& options) {
    MaxiOptions changed = options.maxi;
    changed.service = kText(service, {});
    changed.country = kText(country, {});
    changed.postal = kText(postal, {});
    options.maxi = std::move(changed);
  });
}
BCResult BCSet_Maxi_UsePreambleA(BCBarcode* b, int on, const char* preamble) {
  return Apply(b, [&](Options& options) {
    options.maxi.preamble = kText(preamble, {});
    options.maxi.usePreamble = on != 0;
  });
}

// QR Code and Micro QR Code

BCResult BCSet_QR_Version(BCBarcode* b, int version) {
  return Set(b, &Options::qr, &QrOptions::version, version, InRangeOrDefault{0, 40});
}
BCResult BCSet_QR_Format(BCBarcode* b, int format) {
  return Set(b, &Options::qr, &QrOptions::format, format, InRangeOrDefault{0, 2});
}
BCResult BCSet_QR_FmtAppIndicatorA(BCBarcode* b, const char* indicator) {
  return Set(b, &Options::qr, &QrOptions::indicator, indicator, kText);
}
BCResult BCSet_QR_ECLevel(BCBarcode* b, int level) {
  return Set(b, &Options::qr, &QrOptions::ecLevel, level, InRangeOrDefault{0, 3});
}
BCResult BCSet_QR_Mask(BCBarcode* b, int mask) {
  return Set(b, &Options::qr, &QrOptions::mask, mask, InRangeOrDefault{0, 7});
}
BCResult BCSet_QR_Append(BCBarcode* b, int sum, int index, int parity) {
  return Apply(b, [&](Options& options) {
    const Append append = CheckAppend(sum, index, 16);
    options.qr.appendParity = InRangeOrDefault{0, 255}(parity, -1);
    options.qr.appendSum = append.sum;
    options.qr.appendIndex = append.index;
  });
}
BCResult BCSet_MQR_Version(BCBarcode* b, int version) {
  return Set(b, &Options::qr, &QrOptions::microVersion, version, InRangeOrDefault{0, 4});
}
BCResult BCSet_MQR_Mask(BCBarcode* b, int mask) {
  return Set(b, &Options::qr, &QrOptions::microMask, mask, InRangeOrDefault{0, 3});
}

// Data Matrix

BCResult BCSet_DM_Size(BCBarcode* b, int size) {
  return Set(b, &Options::dataMatrix, &DataMatrixOptions::size, size, InRangeOrDefault{0, 30});
}
BCResult BCSet_DM_Format(BCBarcode* b, int format) {
  return Set(b, &Options::dataMatrix, &DataMatrixOptions::format, format, InRangeOrDefault{0, 5});
}
BCResult BCSet_DM_EnforceBinaryEncoding(BCBarcode* b, int on) {
  return Set(b, &Options::dataMatrix, &DataMatrixOptions::binary, on, Switch{});
}
BCResult BCSet_DM_Rectangular(BCBarcode* b, int on) {
  return Set(b, &Options::dataMatrix, &DataMatrixOptions::rectangular, on, Switch{});
}
BCResult BCSet_DM_Append(BCBarcode* b, int sum, int index, int fileId) {
  return Apply(b, [&](Options& options) {
    const Append append = CheckAppend(sum, index, 16);
    options.dataMatrix.appendFileId = InRangeOrDefault{0, 65535}(fileId, -1);
    options.dataMatrix.appendSum = append.sum;
    options.dataMatrix.appendIndex = append.index;
  });
}

// Codablock-F

BCResult BCSet_CBF_Rows(BCBarcode* b, int rows) {
  return Set(b, &Options::codablock, &CodablockOptions::rows, rows, InRangeOrDefault{2, 44});
}
BCResult BCSet_CBF_Columns(BCBarcode* b, int columns) {
  return Set(b, &Options::codablock, &CodablockOptions::columns, columns, InRangeOrDefault{4, 62});
}
BCResult BCSet_CBF_RowHeight(BCBarcode* b, int32_t height) {
  return Set(b, &Options::codablock, &CodablockOptions::rowHeight, height, kLength);
}
BCResult BCSet_CBF_RowSeparatorHeight(BCBarcode* b, int32_t height) {
  return Set(b, &Options::codablock, &CodablockOptions::separatorHeight, height, kLength);
}
BCResult BCSet_CBF_Format(BCBarcode* b, int format) {
  return Set(b, &Options::codablock, &CodablockOptions::format, format, InRangeOrDefault{0, 1});
}

// Aztec Code

BCResult BCSet_Aztec_Size(BCBarcode* b, int size) {
  return Set(b, &Options::aztec, &AztecOptions::size, size, InRangeOrDefault{0, 36});
}
BCResult BCSet_Aztec_EnforceBinaryEncoding(BCBarcode* b, int on) {
  return Set(b, &Options::aztec, &AztecOptions::binary, on, Switch{});
}
BCResult BCSet_Aztec_RuneMode(BCBarcode* b, int on) {
  return Set(b, &Options::aztec, &AztecOptions::runes, on, Switch{});
}
BCResult BCSet_Aztec_FormatA(BCBarcode* b, int format, const char* specifier) {
  return Apply(b, [&](Options& options) {
    const int checked = InRangeOrDefault{0, 2}(format, 0);
    options.aztec.formatSpecifier = kText(specifier, {});
    options.aztec.format = checked;
  });
}
BCResult BCSet_Aztec_ErrorCorrection(BCBarcode* b, int percent) {
  return Set(b, &Options::aztec, &AztecOptions::errorCorrection, percent, InRangeOrDefault{0, 99});
}
BCResult BCSet_Aztec_AppendActive(BCBarcode* b, int on) {
  return Set(b, &Options::aztec, &AztecOptions::append, on, Switch{});
}
BCResult BCSet_Aztec_AppendDataA(BCBarcode* b, char sum, char index, const char* messageId) {
  return Apply(b, [&](Options& options) {
    const char checkedSum = Letter{}(sum, 'A'), checkedIndex = Letter{}(index, 'A');
    options.aztec.messageId = kText(messageId, {});
    options.aztec.appendSum = checkedSum;
    options.aztec.appendIndex = checkedIndex;
  });
}

// GS1 DataBar Expanded Stacked

BCResult BCSet_RSS_SegmPerRow(BCBarcode* b, int segments) {
  return Set(b, &Options::segmentsPerRow, segments, InRangeOrDefault{2, 22});
}

// Grids

BCResult BCSet_MultiBC_Enabled(BCBarcode* b, int on) {
  return Set(b, &Options::grid, &GridOptions::enabled, on, Switch{});
}
BCResult BCSet_MultiBC_Rows(BCBarcode* b, int rows) {
  return Set(b, &Options::grid, &GridOptions::rows, rows, InRangeOrDefault{1, kMaxGridCells});
}
BCResult BCSet_MultiBC_Columns(BCBarcode* b, int columns) {
  return Set(b, &Options::grid, &GridOptions::columns, columns, InRangeOrDefault{1, kMaxGridCells});
}
BCResult BCSet_MultiBC_HDist(BCBarcode* b, int32_t distance) {
  return Set(b, &Options::grid, &GridOptions::horizontalDistance, distance, kLength);
}
BCResult BCSet_MultiBC_VDist(BCBarcode* b, int32_t distance) {
  return Set(b, &Options::grid, &GridOptions::verticalDistance, distance, kLength);
}
BCResult BCSet_MultiBC_DataLimit(BCBarcode* b, int bytes) {
  return Set(b, &Options::grid, &GridOptions::dataLimit, bytes, InRangeOrDefault{1, kAnyCount});
}
BCResult BCSet_MultiBC_DynamicBoundingRect(BCBarcode* b, int growth) {
  return Set(b, &Options::grid, &GridOptions::growth, growth, InRangeOrDefault{0, 2});
}
BCResult BCSet_MultiBC_StructApp(BCBarcode* b, int mode) {
  return Set(b, &Options::grid, &GridOptions::structuredAppend, mode, InRangeOrDefault{0, 2});
}
