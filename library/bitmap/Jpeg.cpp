// JPEG by libjpeg, grey.
#include "library/Error.h"
#include "library/LoadedLibrary.h"
#include "library/bitmap/Formats.h"

// jpeglib.h needs the former.
#include <jpeglib.h>

#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <utility>

namespace Library {
namespace {

[[gnu::used, gnu::section(".note.dlopen")]] alignas(4) constexpr auto kNote = NoteOf(
    R"([{"soname":[")" VEXTORIN_JPEG_SONAME R"("],"priority":"recommended",)"
    R"("description":"JPEG files"}])");

constexpr int kQuality = 95;

struct Functions {
  decltype(&jpeg_std_error) standardErrors;
  decltype(&jpeg_CreateCompress) create;
  decltype(&jpeg_destroy_compress) destroy;
  decltype(&jpeg_set_defaults) setDefaults;
  decltype(&jpeg_set_quality) setQuality;
  decltype(&jpeg_start_compress) start;
  decltype(&jpeg_write_scanlines) writeLines;
  decltype(&jpeg_finish_compress) finish;
};

Functions Load() {
  const LoadedLibrary library(VEXTORIN_JPEG_SONAME);
  return {library.find<decltype(Functions::standardErrors)>("jpeg_std_error"),
          library.find<decltype(Functions::create)>("jpeg_CreateCompress"),
          library.find<decltype(Functions::destroy)>("jpeg_destroy_compress"),
          library.find<decltype(Functions::setDefaults)>("jpeg_set_defaults"),
          library.find<decltype(Functions::setQuality)>("jpeg_set_quality"),
          library.find<decltype(Functions::start)>("jpeg_start_compress"),
          library.find<decltype(Functions::writeLines)>("jpeg_write_scanlines"),
          library.find<decltype(Functions::finish)>("jpeg_finish_compress")};
}

struct Errors : jpeg_error_mgr {
  jmp_buf back;
};

void ComeBack(j_common_ptr info) {
  longjmp(static_cast<Errors*>(info->err)->back, 1);
}
void SayNothing(j_common_ptr) {}

JSAMPLE GreyOf(const Rgb& color) {
  return static_cast<JSAMPLE>(
      std::lround(0.299 * color.red + 0.587 * color.green + 0.114 * color.blue));
}

// The file in chunks. libjpeg's own memory destination is in no state to be freed after a failure.
struct Destination : jpeg_destination_mgr {
  std::string bytes;
  bool full = false;  // no memory for more
  JOCTET chunk[16384];

  void begin() {
    next_output_byte = chunk;
    free_in_buffer = sizeof chunk;
  }
  // No exception may cross libjpeg.
  void take(std::size_t count) {
    try {
      if (!full) bytes.append(reinterpret_cast<const char*>(chunk), count);
    } catch (...) {
      full = true;
    }
    begin();
  }
  static Destination& Of(j_compress_ptr info) { return *static_cast<Destination*>(info->dest); }
  static void Begin(j_compress_ptr info) { Of(info).begin(); }
  static boolean TakeChunk(j_compress_ptr info) {
    Of(info).take(sizeof chunk);
    return TRUE;
  }
  static void TakeRest(j_compress_ptr info) {
    Of(info).take(sizeof chunk - Of(info).free_in_buffer);
  }
};

// What libjpeg works on; it comes back to its setjmp when it fails, so nothing in run may need a
// destructor.
struct Writer {
  const Functions functions = Load();
  const Bitmap& bitmap;
  JSAMPLE* line;
  Destination& destination;
  jpeg_compress_struct info{};
  Errors errors{};

  bool run() {
    info.err = functions.standardErrors(&errors);
    errors.error_exit = ComeBack;
    errors.output_message = SayNothing;
    if (setjmp(errors.back) != 0) return false;
    functions.create(&info, JPEG_LIB_VERSION, sizeof info);
    info.dest = &destination;
    info.image_width = static_cast<JDIMENSION>(bitmap.width);
    info.image_height = static_cast<JDIMENSION>(bitmap.height);
    info.input_components = 1;
    info.in_color_space = JCS_GRAYSCALE;
    functions.setDefaults(&info);
    functions.setQuality(&info, kQuality, TRUE);
    info.density_unit = 1;  // dots per inch
    info.X_density = static_cast<UINT16>(std::lround(bitmap.dpiX));
    info.Y_density = static_cast<UINT16>(std::lround(bitmap.dpiY));
    functions.start(&info, TRUE);
    const JSAMPLE paper = GreyOf(bitmap.paper), ink = GreyOf(bitmap.ink);
    for (int y = 0; y < bitmap.height; ++y) {
      for (int x = 0; x < bitmap.width; ++x) line[x] = bitmap.isInk(x, y) ? ink : paper;
      functions.writeLines(&info, &line, 1);
    }
    functions.finish(&info);
    return true;
  }
};

}  // namespace

std::string WriteJpeg(const Bitmap& bitmap) {
  std::vector<JSAMPLE> line(static_cast<std::size_t>(bitmap.width));
  Destination destination;
  destination.init_destination = Destination::Begin;
  destination.empty_output_buffer = Destination::TakeChunk;
  destination.term_destination = Destination::TakeRest;
  Writer writer{.bitmap = bitmap, .line = line.data(), .destination = destination};
  const bool good = writer.run();
  writer.functions.destroy(&writer.info);
  if (destination.full) throw Error(BC_E_OUTOFMEMORY);
  if (!good) throw Error(kInternalError);
  return std::move(destination.bytes);
}

}  // namespace Library
