// TIFF by libtiff: CCITT group 4 for black on white, a palette in LZW for other colours.
#include "library/Error.h"
#include "library/LoadedLibrary.h"
#include "library/bitmap/Formats.h"

#include <tiffio.h>

#include <algorithm>
#include <cstring>

namespace Library {
namespace {

[[gnu::used, gnu::section(".note.dlopen")]] alignas(4) constexpr auto kNote = NoteOf(
    R"([{"soname":[")" VEXTORIN_TIFF_SONAME R"("],"priority":"recommended",)"
    R"("description":"TIFF files"}])");

struct Functions {
  decltype(&TIFFClientOpen) open;
  decltype(&TIFFClose) close;
  decltype(&TIFFSetField) set;
  decltype(&TIFFWriteScanline) writeLine;
  decltype(&TIFFSetErrorHandler) setErrorHandler;
  decltype(&TIFFSetWarningHandler) setWarningHandler;
};

Functions Load() {
  const LoadedLibrary library(VEXTORIN_TIFF_SONAME);
  const Functions functions = {
      library.find<decltype(Functions::open)>("TIFFClientOpen"),
      library.find<decltype(Functions::close)>("TIFFClose"),
      library.find<decltype(Functions::set)>("TIFFSetField"),
      library.find<decltype(Functions::writeLine)>("TIFFWriteScanline"),
      library.find<decltype(Functions::setErrorHandler)>("TIFFSetErrorHandler"),
      library.find<decltype(Functions::setWarningHandler)>("TIFFSetWarningHandler")};
  functions.setErrorHandler(nullptr);  // they print
  functions.setWarningHandler(nullptr);
  return functions;
}

// A file in memory. No exception may cross libtiff, which takes a short count for an error.
struct File {
  std::string bytes;
  std::size_t place = 0;
  bool failed = false;

  static File& Of(thandle_t handle) { return *static_cast<File*>(handle); }

  static tmsize_t Read(thandle_t handle, void* target, tmsize_t count) {
    File& file = Of(handle);
    const std::size_t left = file.bytes.size() - std::min(file.place, file.bytes.size());
    const std::size_t taken = std::min(left, static_cast<std::size_t>(count));
    std::memcpy(target, file.bytes.data() + file.place, taken);
    file.place += taken;
    return static_cast<tmsize_t>(taken);
  }
  static tmsize_t Write(thandle_t handle, void* source, tmsize_t count) {
    File& file = Of(handle);
    const std::size_t end = file.place + static_cast<std::size_t>(count);
    try {
      if (end > file.bytes.size()) file.bytes.resize(end);
    } catch (...) {
      file.failed = true;
      return 0;
    }
    std::memcpy(&file.bytes[file.place], source, static_cast<std::size_t>(count));
    file.place = end;
    return count;
  }
  static toff_t Seek(thandle_t handle, toff_t offset, int from) {
    File& file = Of(handle);
    const std::size_t start = from == SEEK_CUR   ? file.place
                              : from == SEEK_END ? file.bytes.size()
                                                 : 0;
    return file.place = start + static_cast<std::size_t>(offset);
  }
  static toff_t Size(thandle_t handle) { return Of(handle).bytes.size(); }
  static int Close(thandle_t) { return 0; }
  static int Map(thandle_t, void**, toff_t*) { return 0; }
  static void Unmap(thandle_t, void*, toff_t) {}
};

bool IsColor(const Rgb& color, std::uint8_t level) {
  return color.red == level && color.green == level && color.blue == level;
}

void SetColors(const Functions& f, TIFF* tiff, const Bitmap& bitmap) {
  if (IsColor(bitmap.paper, 255) && IsColor(bitmap.ink, 0)) {
    f.set(tiff, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
    f.set(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
    return;
  }
  const auto wide = [](std::uint8_t level) { return static_cast<std::uint16_t>(level * 257); };
  const std::uint16_t red[] = {wide(bitmap.paper.red), wide(bitmap.ink.red)};
  const std::uint16_t green[] = {wide(bitmap.paper.green), wide(bitmap.ink.green)};
  const std::uint16_t blue[] = {wide(bitmap.paper.blue), wide(bitmap.ink.blue)};
  f.set(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
  f.set(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_PALETTE);
  f.set(tiff, TIFFTAG_COLORMAP, red, green, blue);
}

}  // namespace

std::string WriteTiff(const Bitmap& bitmap) {
  static const Functions f = Load();
  File file;
  TIFF* const tiff = f.open("barcode", "wl", &file, File::Read, File::Write, File::Seek,
                            File::Close, File::Size, File::Map, File::Unmap);
  if (tiff == nullptr) throw Error(BC_E_OUTOFMEMORY);
  f.set(tiff, TIFFTAG_IMAGEWIDTH, bitmap.width);
  f.set(tiff, TIFFTAG_IMAGELENGTH, bitmap.height);
  f.set(tiff, TIFFTAG_BITSPERSAMPLE, 1);
  f.set(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
  f.set(tiff, TIFFTAG_ROWSPERSTRIP, bitmap.height);
  f.set(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  f.set(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
  f.set(tiff, TIFFTAG_XRESOLUTION, bitmap.dpiX);
  f.set(tiff, TIFFTAG_YRESOLUTION, bitmap.dpiY);
  SetColors(f, tiff, bitmap);
  bool good = true;
  std::vector<std::uint8_t> line(bitmap.stride());
  for (int y = 0; good && y < bitmap.height; ++y) {
    std::memcpy(line.data(), bitmap.row(y), line.size());  // libtiff may change it
    good = f.writeLine(tiff, line.data(), static_cast<std::uint32_t>(y), 0) == 1;
  }
  f.close(tiff);
  if (file.failed) throw Error(BC_E_OUTOFMEMORY);
  if (!good) throw Error(kInternalError);
  return std::move(file.bytes);
}

}  // namespace Library
