// Windows bitmap of one bit a pixel.
#include "library/bitmap/Formats.h"

#include <cmath>

namespace Library {
namespace {

constexpr double kInchesPerMetre = 1 / 0.0254;

class LittleEndian {
 public:
  explicit LittleEndian(std::string& target) : bytes(target) {}
  LittleEndian& put16(std::uint32_t value) { return put(value, 2); }
  LittleEndian& put32(std::uint32_t value) { return put(value, 4); }

 private:
  LittleEndian& put(std::uint32_t value, int count) {
    for (; count > 0; --count, value >>= 8) bytes += static_cast<char>(value & 0xFF);
    return *this;
  }
  std::string& bytes;
};

std::uint32_t PixelsPerMetre(double dpi) {
  return static_cast<std::uint32_t>(std::lround(dpi * kInchesPerMetre));
}

std::uint32_t PaletteEntry(const Rgb& color) {
  return static_cast<std::uint32_t>(color.red) << 16 |
         static_cast<std::uint32_t>(color.green) << 8 | color.blue;
}

}  // namespace

std::string WriteBmp(const Bitmap& bitmap) {
  constexpr std::uint32_t kFileHeader = 14, kInfoHeader = 40, kColors = 2;
  constexpr std::uint32_t kPixels = kFileHeader + kInfoHeader + kColors * 4;
  const auto width = static_cast<std::uint32_t>(bitmap.width),
             height = static_cast<std::uint32_t>(bitmap.height);
  const std::uint32_t row = (width + 31) / 32 * 4;
  std::string file = "BM";
  file.reserve(kPixels + std::size_t{row} * height);
  LittleEndian out(file);
  out.put32(kPixels + row * height).put32(0).put32(kPixels);
  out.put32(kInfoHeader).put32(width).put32(height).put16(1).put16(1).put32(0).put32(row * height);
  out.put32(PixelsPerMetre(bitmap.dpiX)).put32(PixelsPerMetre(bitmap.dpiY));
  out.put32(kColors).put32(kColors);
  out.put32(PaletteEntry(bitmap.paper)).put32(PaletteEntry(bitmap.ink));
  for (int y = bitmap.height - 1; y >= 0; --y) {
    file.append(reinterpret_cast<const char*>(bitmap.row(y)), bitmap.stride());
    file.append(row - bitmap.stride(), '\0');
  }
  return file;
}

}  // namespace Library
