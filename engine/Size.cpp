#include "engine/Size.h"

#include "engine/Length.h"
#include "engine/Session.h"
#include "engine/SymbologySetters.h"

#include <cstdint>
#include <utility>

namespace Engine {

using Diag::ResultCode;
using Settings::BarcodeSettings;

namespace {

constexpr int kUnitMillimetres = 2;  // of BCGetBarcodeSize

// What is asked for where no size is given, in thousandths of a millimetre.
struct Request {
  std::int32_t width;
  std::int32_t height;
};
constexpr Request kRoomyRequest = {50000, 30000};
// Where the library decides, it needs no room to do so.
constexpr Request kSmallRequest = {1000, 1000};
constexpr Request kGridRequest = {50000, 50000};

ResultCode Create(BCBarcode* handle) {
  const ResultCode code = BCCreate(handle);
  if (code != Diag::kSuccess) {
    ReportFailure(Diag::kError, handle, code,
                  "Couldn't create barcode. Please check barcode settings.");
    GiveReason(handle, code);
  }
  return code;
}

void TakeHeightFromRows(BarcodeSettings& settings, BCBarcode* handle) {
  if (!IsPdf417Family(settings.barcode)) return;
  if (settings.height > 0 || !(settings.PDFrowheight > 0)) return;
  settings.height = BCGetCountRows(handle) * settings.PDFrowheight;
}

bool LibraryDecidesSize(const BarcodeSettings& settings) {
  constexpr int kByModuleWidth = 1;
  constexpr int kMinimal = 2;
  return settings.sizemode == kByModuleWidth || settings.sizemode == kMinimal ||
         (settings.sizemode == -1 && settings.modulewidth > 0) || settings.optimalwidth == 1;
}

// Fills in width and height, or replaces them where the library decides.
ResultCode Measure(BarcodeSettings& settings, BCBarcode* handle) {
  const bool widthGiven = settings.width > 0;
  const bool heightGiven = settings.height > 0;
  const bool libraryDecides = LibraryDecidesSize(settings);
  if (!libraryDecides && widthGiven && heightGiven) return Diag::kSuccess;

  const Request request = libraryDecides ? kSmallRequest : kRoomyRequest;
  const BCRect rectangle = {0, 0, widthGiven ? RoundedUpThousandths(settings.width) : request.width,
                            heightGiven ? RoundedUpThousandths(settings.height) : request.height};
  double width = settings.width;
  double height = settings.height;
  const ResultCode code =
      BCGetBarcodeSize(handle, &rectangle, nullptr, kUnitMillimetres, &width, &height);
  if (libraryDecides || !widthGiven) settings.width = width;
  if (libraryDecides || !heightGiven) settings.height = height;
  return code;
}

ResultCode Turn(const BarcodeSettings& settings, BCBarcode* handle) {
  const ResultCode code = BCSetRotation(handle, settings.rot);
  if (code != Diag::kSuccess) {
    ReportFailure(Diag::kError, handle, code, "Couldn't set barcode rotation.");
  }
  return code;
}

ResultCode CreateSingle(BarcodeSettings& settings, BCBarcode* handle) {
  if (const ResultCode code = Create(handle); code != Diag::kSuccess) return code;
  TakeHeightFromRows(settings, handle);
  const ResultCode code = Measure(settings, handle);
  if (settings.rot == 1 || settings.rot == 3) std::swap(settings.width, settings.height);
  g_settings.trace.Trace(Diag::kDebug, "Width and Height of Barcode = ", settings.width, " x ",
                         settings.height);
  if (code != Diag::kSuccess) return code;
  return Turn(settings, handle);
}

void ReportLayoutFailure(BCBarcode* handle, ResultCode code, const BCRect& rectangle,
                         std::int32_t neededWidth, std::int32_t neededHeight) {
  Diag::TraceLog& trace = g_settings.trace;
  if (rectangle.right < neededWidth) {
    trace.Trace(Diag::kError, "Given width is too small. A width of at least ",
                neededWidth / 1000.0, " mm is required.");
  } else if (rectangle.bottom < neededHeight) {
    trace.Trace(Diag::kError, "Given height is too small. A height of at least ",
                neededHeight / 1000.0, " mm is required.");
  } else {
    ReportFailure(Diag::kError, handle, code,
                  "Couldn't create multiple barcodes. Please check barcode settings.");
  }
}

// In a grid a size of 0 counts as given.
ResultCode CreateGrid(BarcodeSettings& settings, BCBarcode* handle) {
  const BCRect rectangle = {
      0, 0, settings.width >= 0 ? RoundedUpThousandths(settings.width) : kGridRequest.width,
      settings.height >= 0 ? RoundedUpThousandths(settings.height) : kGridRequest.height};
  std::int32_t neededWidth = 0;
  std::int32_t neededHeight = 0;
  const ResultCode code =
      BC_MultiBC_CalculateLayout(handle, nullptr, &rectangle, &neededWidth, &neededHeight);
  if (code != Diag::kSuccess) {
    ReportLayoutFailure(handle, code, rectangle, neededWidth, neededHeight);
    return code;
  }
  if (neededWidth / 1000.0 > settings.width) settings.width = neededWidth / 1000.0;
  if (neededHeight / 1000.0 > settings.height) settings.height = neededHeight / 1000.0;
  return Create(handle);
}

}  // namespace

ResultCode CreateSized(BarcodeSettings& settings, BCBarcode* handle) {
  return settings.multiple ? CreateGrid(settings, handle) : CreateSingle(settings, handle);
}

}  // namespace Engine
