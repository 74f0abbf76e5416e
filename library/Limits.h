// What one barcode may cost, however its options are set: a print queue waits for it. Together the
// limits keep the encoding and the output of one barcode well under two seconds and 64 MiB beside
// the data. Beyond one there is an error; nothing is cut short.
#pragma once

#include <cstddef>

namespace Library {

// Data, before escapes are translated. The densest structured append, sixteen QR Codes full of
// digits, takes 113,424. BC_E_DATATOOLONG.
constexpr int kMaxDataBytes = 128 * 1024;

// A format string, which every symbol of a grid applies anew, and any other text that is set
// beside the data: a font name, which every symbol repeats, is the longest in use. BC_E_INVALIDARG.
constexpr std::size_t kMaxFormatBytes = 16 * 1024;
constexpr std::size_t kMaxTextBytes = 1024;

// Modules of all symbols that are encoded for one grid, those included that only tell how much of
// the message a symbol holds. Sixteen of the largest QR Codes take 1.5 million. BC_E_DATATOOLONG.
constexpr std::size_t kMaxGridModules = 5'000'000;
// An encoder that finds the data too long has worked for every character as for so many modules.
constexpr std::size_t kModulesPerCharacter = 10;

// Pixels of a bitmap: 400 mm x 400 mm at 600 dpi. GIF and JPEG count a side in 16 bits.
// BC_E_DATATOOLONG.
constexpr std::size_t kMaxBitmapPixels = 100'000'000;
constexpr int kMaxBitmapSide = 65'000;

}  // namespace Library
