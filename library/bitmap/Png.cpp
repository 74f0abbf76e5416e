// PNG by libpng: a palette of paper and ink.
#include "library/Error.h"
#include "library/LoadedLibrary.h"
#include "library/bitmap/Formats.h"

#include <png.h>

#include <cmath>
#include <csetjmp>
#include <utility>

namespace Library {
namespace {

[[gnu::used, gnu::section(".note.dlopen")]] alignas(4) constexpr auto kNote = NoteOf(
    R"([{"soname":[")" VEXTORIN_PNG_SONAME R"("],"priority":"recommended",)"
    R"("description":"PNG files"}])");

struct Functions {
  decltype(&png_create_write_struct) createWriter;
  decltype(&png_create_info_struct) createInfo;
  decltype(&png_destroy_write_struct) destroy;
  decltype(&png_set_longjmp_fn) setJump;
  decltype(&png_set_write_fn) setOutput;
  decltype(&png_set_IHDR) setHeader;
  decltype(&png_set_PLTE) setPalette;
  decltype(&png_set_tRNS) setTransparency;
  decltype(&png_set_pHYs) setResolution;
  decltype(&png_write_info) writeInfo;
  decltype(&png_write_row) writeRow;
  decltype(&png_write_end) writeEnd;
};

Functions Load() {
  const LoadedLibrary library(VEXTORIN_PNG_SONAME);
  return {library.find<decltype(Functions::createWriter)>("png_create_write_struct"),
          library.find<decltype(Functions::createInfo)>("png_create_info_struct"),
          library.find<decltype(Functions::destroy)>("png_destroy_write_struct"),
          library.find<decltype(Functions::setJump)>("png_set_longjmp_fn"),
          library.find<decltype(Functions::setOutput)>("png_set_write_fn"),
          library.find<decltype(Functions::setHeader)>("png_set_IHDR"),
          library.find<decltype(Functions::setPalette)>("png_set_PLTE"),
          library.find<decltype(Functions::setTransparency)>("png_set_tRNS"),
          library.find<decltype(Functions::setResolution)>("png_set_pHYs"),
          library.find<decltype(Functions::writeInfo)>("png_write_info"),
          library.find<decltype(Functions::writeRow)>("png_write_row"),
          library.find<decltype(Functions::writeEnd)>("png_write_end")};
}

void Ignore(png_structp, png_const_charp) {}
void NoFlush(png_structp) {}

// No exception may cross libpng, so memory that runs out is noted.
struct Output {
  std::string bytes;
  bool full = false;
};

class Writer {
 public:
  explicit Writer(const Bitmap& source) : bitmap(source) {
    png = functions.createWriter(PNG_LIBPNG_VER_STRING, nullptr, nullptr, Ignore);
    if (png != nullptr) info = functions.createInfo(png);
    if (info == nullptr) {
      functions.destroy(&png, nullptr);
      throw Error(BC_E_OUTOFMEMORY);
    }
  }
  ~Writer() { functions.destroy(&png, &info); }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  // libpng comes back to its setjmp when it fails: nothing here may need a destructor.
  bool run(Output& output, png_rw_ptr append) {
    if (setjmp(*functions.setJump(png, longjmp, sizeof(jmp_buf))) != 0) return false;
    functions.setOutput(png, &output, append, NoFlush);
    functions.setHeader(png, info, static_cast<png_uint_32>(bitmap.width),
                        static_cast<png_uint_32>(bitmap.height), 1, PNG_COLOR_TYPE_PALETTE,
                        PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    const png_color palette[] = {{bitmap.paper.red, bitmap.paper.green, bitmap.paper.blue},
                                 {bitmap.ink.red, bitmap.ink.green, bitmap.ink.blue}};
    functions.setPalette(png, info, palette, 2);
    const png_byte clear = 0;
    if (!bitmap.opaque) functions.setTransparency(png, info, &clear, 1, nullptr);
    constexpr double kMetre = 1 / 0.0254;
    functions.setResolution(png, info, static_cast<png_uint_32>(std::lround(bitmap.dpiX * kMetre)),
                            static_cast<png_uint_32>(std::lround(bitmap.dpiY * kMetre)),
                            PNG_RESOLUTION_METER);
    functions.writeInfo(png, info);
    for (int y = 0; y < bitmap.height; ++y) functions.writeRow(png, bitmap.row(y));
    functions.writeEnd(png, nullptr);
    return true;
  }

 private:
  const Functions functions = Load();
  const Bitmap& bitmap;
  png_structp png = nullptr;
  png_infop info = nullptr;
};

}  // namespace

std::string WritePng(const Bitmap& bitmap) {
  Output output;
  Writer writer(bitmap);
  static const auto kGetIo =
      LoadedLibrary(VEXTORIN_PNG_SONAME).find<decltype(&png_get_io_ptr)>("png_get_io_ptr");
  const png_rw_ptr append = [](png_structp png, png_bytep bytes, png_size_t count) {
    auto& target = *static_cast<Output*>(kGetIo(png));
    try {
      target.bytes.append(reinterpret_cast<const char*>(bytes), count);
    } catch (...) {
      target.full = true;
    }
  };
  if (!writer.run(output, append)) throw Error(kInternalError);
  if (output.full) throw Error(BC_E_OUTOFMEMORY);
  return std::move(output.bytes);
}

}  // namespace Library
