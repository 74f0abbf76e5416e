#include "engine/Barcode.h"

#include "diag/Assert.h"
#include "engine/ApplySettings.h"
#include "engine/Overhead.h"
#include "engine/Rectangle.h"
#include "engine/Session.h"
#include "engine/Size.h"
#include "engine/library/vextorin9.h"
#include "settings/GlobalSettings.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

namespace Engine {

using Diag::ResultCode;
using Settings::BarcodeSettings;

namespace {

// Silences the trace log for as long as it lives, or until end().
class Mute {
 public:
  explicit Mute(bool wanted) : active(wanted) {
    if (active) g_settings.trace.setMuted(true);
  }
  ~Mute() { end(); }
  Mute(const Mute&) = delete;
  Mute& operator=(const Mute&) = delete;

  void end() {
    if (std::exchange(active, false)) g_settings.trace.setMuted(false);
  }

 private:
  bool active;
};

struct FreeMemory {
  void operator()(char* memory) const { std::free(memory); }
};

// What the library writes into: zeroed, with a byte behind the capacity that the library is told
// of, so that text in it is always terminated.
struct Buffer {
  explicit Buffer(std::uint32_t newCapacity)
      : memory(static_cast<char*>(std::calloc(std::size_t{newCapacity} + 1, 1))),
        capacity(newCapacity) {}

  std::unique_ptr<char, FreeMemory> memory;  // null when it couldn't be had
  std::uint32_t capacity;                    // bytes
};

BCBarcode* Allocate() {
  BCBarcode* handle = nullptr;
  const ResultCode code = BCAlloc(&handle);
  if (code != Diag::kSuccess) {
    // The next call fails on the null handle and ends the run.
    ReportFailure(Diag::kError, handle, code, "Couldn't allocate memory for barcode generation.");
  }
  return handle;
}

void Free(BCBarcode* handle) {
  const ResultCode code = BCFree(handle);
  if (code != Diag::kSuccess) {
    ReportFailure(Diag::kWarning, handle, code, "Couldn't free memory for barcode generation.");
  }
}

// The one output call. `size` is the buffer's capacity going in and the bytes written, or needed,
// coming out.
ResultCode WriteBarcode(BCBarcode* handle, const BarcodeSettings& settings, char* buffer,
                        std::uint32_t& size, const BCRect& rectangle) {
  g_settings.trace.Trace(Diag::kDebug, "Barcode rectangle: ", rectangle.left, ' ', rectangle.top,
                         ' ', rectangle.right, ' ', rectangle.bottom);
  switch (settings.format) {
    case Settings::kFormatPostScript:
      return BCPostscriptToMemoryExt(handle, buffer, &size, &rectangle, settings.nooverhead != 1);
    case Settings::kFormatPcl:
      return BCPCLToMemoryExt(handle, buffer, &size, &rectangle, settings.pos == 1);
    case Settings::kFormatImage:
      return BCBitmapToMemoryA(handle, buffer, settings.imageformat.c_str(), &size, &rectangle);
    case Settings::kFormatPdf:
      return BCPDFToMemory(handle, buffer, &size, &rectangle);
    case Settings::kFormatPdfFragment:
      return BCPDFFragmentToMemory(handle, buffer, &size, &rectangle);
    default:
      // The number under which this failure is known, wherever the line may be.
      Diag::AssertToLog(g_settings.trace, false, "Barcode", 712, "Critical Failure!");
      return Diag::kSuccess;
  }
}

// The second and last attempt, in a buffer of exactly the size that the library asked for. `size`
// holds it and comes back as the second attempt leaves it.
ResultCode WriteEnlarged(BCBarcode* handle, const BarcodeSettings& settings, Buffer& buffer,
                         std::uint32_t& size, const BCRect& rectangle, Mute& silence) {
  Diag::TraceLog& trace = g_settings.trace;
  ResultCode code = Diag::kOutOfMemory;
  if (Buffer larger(size); larger.memory) {
    buffer = std::move(larger);
    code = WriteBarcode(handle, settings, buffer.memory.get(), size, rectangle);
  } else {
    trace.Trace(Diag::kError,
                "Couldn't reallocate memory for barcode. Initial memory size: ", buffer.capacity,
                ". New memory size: ", size, '.');
    silence.end();
  }
  if (code != Diag::kSuccess) {
    trace.Trace(Diag::kDebug, "BCxxxToMemory failed.");
    trace.Trace(Diag::kError,
                "Couldn't create barcode. Size of memory for barcode creation was to small.");
    trace.TraceCont(Diag::kError, "Size of memory: ", buffer.capacity, " - Required size: ", size);
  }
  return code;
}

// Writes into `buffer`, enlarged if need be. `size` becomes the number of bytes written.
ResultCode WriteToMemory(BCBarcode* handle, const BarcodeSettings& settings, Buffer& buffer,
                         std::uint32_t& size, const BCRect& rectangle, Mute& silence) {
  size = buffer.capacity;
  const ResultCode code = WriteBarcode(handle, settings, buffer.memory.get(), size, rectangle);
  if (code == Diag::kSuccess) return code;
  if (size > buffer.capacity) {
    return WriteEnlarged(handle, settings, buffer, size, rectangle, silence);
  }
  g_settings.trace.Trace(Diag::kDebug, "BCxxxToMemory failed.");
  ReportFailure(Diag::kError, handle, code,
                "Couldn't create barcode. Please check barcode settings.");
  return code;
}

// Images are bytes, everything else is text up to its first zero byte.
void TakeOutput(const Buffer& buffer, std::uint32_t size, const BarcodeSettings& settings,
                std::string& result) {
  const char* const memory = buffer.memory.get();
  const std::size_t length = settings.format == Settings::kFormatImage
                                 ? std::min(size, buffer.capacity)
                                 : strnlen(memory, buffer.capacity);
  result.assign(memory, length);
  addOverhead(result, settings);
}

// What the library has to say about a barcode that it has made; without the addition, nothing.
void NoteWarning(BCBarcode* handle) {
  if (BCGetWarningA == nullptr) return;
  char warning[256] = {};
  if (BCGetWarningA(handle, warning, sizeof warning) > 0) {
    g_settings.trace.Note(Diag::kWarning, std::string_view(warning));
  }
}

}  // namespace

ResultCode GenerateBarcode(BarcodeSettings& settings, std::string& result, std::uint32_t memorySize,
                           bool mute, bool allowEmptyData) {
  result = "uninitialized";
  Mute silence(mute);
  Diag::TraceLog& trace = g_settings.trace;
  trace.Trace(Diag::kInformation, "Generating barcode... ");
  if (trace.enabled(Diag::kDebug)) trace.TraceRaw(Diag::kDebug, settings.printSettings());

  BCBarcode* const handle = Allocate();
  ResultCode code = ApplySettings(settings, handle, allowEmptyData);
  if (code == Diag::kSuccess) code = CreateSized(settings, handle);
  if (code == Diag::kSuccess) {
    const BCRect rectangle = PlaceBarcode(settings);
    Buffer buffer(memorySize);
    if (!buffer.memory) {
      // The object is left to the library.
      trace.Trace(Diag::kError, "Couldn't allocate memory for barcode.");
      return Diag::kOutOfMemory;
    }
    std::uint32_t size = 0;
    code = WriteToMemory(handle, settings, buffer, size, rectangle, silence);
    if (code == Diag::kSuccess) {
      NoteWarning(handle);
      TakeOutput(buffer, size, settings, result);
    }
  }
  if (code == BC_E_MUSTFIT) GiveReason(handle, code);
  Free(handle);
  return code;
}

}  // namespace Engine
