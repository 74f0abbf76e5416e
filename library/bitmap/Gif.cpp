// GIF by giflib: a palette of paper and ink. The format has no field for the resolution, which
// stands in a comment.
#include "library/Error.h"
#include "library/LoadedLibrary.h"
#include "library/bitmap/Formats.h"

#include <gif_lib.h>

#include <utility>

namespace Library {
namespace {

[[gnu::used, gnu::section(".note.dlopen")]] alignas(4) constexpr auto kNote = NoteOf(
    R"([{"soname":[")" VEXTORIN_GIF_SONAME R"("],"priority":"recommended",)"
    R"("description":"GIF files"}])");

struct Functions {
  decltype(&EGifOpen) open;
  decltype(&EGifCloseFile) close;
  decltype(&EGifSetGifVersion) setVersion;
  decltype(&EGifPutScreenDesc) putScreen;
  decltype(&EGifPutExtension) putExtension;
  decltype(&EGifPutImageDesc) putImage;
  decltype(&EGifPutLine) putLine;
  decltype(&GifMakeMapObject) makeMap;
  decltype(&GifFreeMapObject) freeMap;
};

Functions Load() {
  const LoadedLibrary library(VEXTORIN_GIF_SONAME);
  return {library.find<decltype(Functions::open)>("EGifOpen"),
          library.find<decltype(Functions::close)>("EGifCloseFile"),
          library.find<decltype(Functions::setVersion)>("EGifSetGifVersion"),
          library.find<decltype(Functions::putScreen)>("EGifPutScreenDesc"),
          library.find<decltype(Functions::putExtension)>("EGifPutExtension"),
          library.find<decltype(Functions::putImage)>("EGifPutImageDesc"),
          library.find<decltype(Functions::putLine)>("EGifPutLine"),
          library.find<decltype(Functions::makeMap)>("GifMakeMapObject"),
          library.find<decltype(Functions::freeMap)>("GifFreeMapObject")};
}

// No exception may cross giflib, which takes a short count for an error.
int Append(GifFileType* gif, const GifByteType* bytes, int count) {
  try {
    static_cast<std::string*>(gif->UserData)
        ->append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
    return count;
  } catch (...) {
    return 0;
  }
}

GifColorType GifColor(const Rgb& color) {
  return {color.red, color.green, color.blue};
}

bool WriteImage(const Functions& functions, GifFileType* gif, ColorMapObject* map,
                const Bitmap& bitmap) {
  functions.setVersion(gif, true);
  if (functions.putScreen(gif, bitmap.width, bitmap.height, 1, 0, map) != GIF_OK) return false;
  const std::string comment = std::to_string(static_cast<int>(bitmap.dpiX)) + " x " +
                              std::to_string(static_cast<int>(bitmap.dpiY)) + " dpi";
  if (functions.putExtension(gif, COMMENT_EXT_FUNC_CODE, static_cast<int>(comment.size()),
                             comment.data()) != GIF_OK) {
    return false;
  }
  // Colour 0, paper, is transparent; no disposal, no delay.
  constexpr GifByteType kClear[] = {1, 0, 0, 0};
  if (!bitmap.opaque &&
      functions.putExtension(gif, GRAPHICS_EXT_FUNC_CODE, sizeof kClear, kClear) != GIF_OK) {
    return false;
  }
  if (functions.putImage(gif, 0, 0, bitmap.width, bitmap.height, false, nullptr) != GIF_OK) {
    return false;
  }
  std::vector<GifPixelType> line(static_cast<std::size_t>(bitmap.width));
  for (int y = 0; y < bitmap.height; ++y) {
    for (int x = 0; x < bitmap.width; ++x) {
      line[static_cast<std::size_t>(x)] = bitmap.isInk(x, y);
    }
    if (functions.putLine(gif, line.data(), bitmap.width) != GIF_OK) return false;
  }
  return true;
}

}  // namespace

std::string WriteGif(const Bitmap& bitmap) {
  const Functions functions = Load();
  std::string bytes;
  int error = 0;
  GifFileType* const gif = functions.open(&bytes, Append, &error);
  if (gif == nullptr) throw Error(BC_E_OUTOFMEMORY);
  const GifColorType colors[] = {GifColor(bitmap.paper), GifColor(bitmap.ink)};
  ColorMapObject* const map = functions.makeMap(2, colors);
  const bool written = map != nullptr && WriteImage(functions, gif, map, bitmap);
  const bool closed = functions.close(gif, &error) == GIF_OK;
  if (map != nullptr) functions.freeMap(map);
  if (!written || !closed) throw Error(kInternalError);
  return bytes;
}

}  // namespace Library
