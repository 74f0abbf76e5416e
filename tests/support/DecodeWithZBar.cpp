// ZBar as the second reader. Its header and ZXing's can't be included together.
#include "tests/support/Decode.h"

#include <zbar.h>

#include <memory>

namespace Support {
namespace {

using Scanner =
    std::unique_ptr<zbar::zbar_image_scanner_t, decltype(&zbar::zbar_image_scanner_destroy)>;
using Image = std::unique_ptr<zbar::zbar_image_t, decltype(&zbar::zbar_image_destroy)>;

Symbol Convert(const zbar::zbar_symbol_t* read, const Page& page) {
  const unsigned points = zbar::zbar_symbol_get_loc_size(read);
  double column = 0, row = 0;
  for (unsigned point = 0; point < points; ++point) {
    column += static_cast<double>(zbar::zbar_symbol_get_loc_x(read, point)) / points;
    row += static_cast<double>(zbar::zbar_symbol_get_loc_y(read, point)) / points;
  }
  return {.format = zbar::zbar_get_symbol_name(zbar::zbar_symbol_get_type(read)),
          .data = {zbar::zbar_symbol_get_data(read), zbar::zbar_symbol_get_data_length(read)},
          .x = page.millimetres(column),
          .y = page.millimetres(page.height - row)};
}

}  // namespace

std::vector<Symbol> DecodeWithZBar(const Page& page) {
  const Scanner scanner(zbar::zbar_image_scanner_create(), zbar::zbar_image_scanner_destroy);
  const Image image(zbar::zbar_image_create(), zbar::zbar_image_destroy);
  zbar::zbar_image_set_format(image.get(), zbar_fourcc('Y', '8', '0', '0'));
  zbar::zbar_image_set_size(image.get(), static_cast<unsigned>(page.width),
                            static_cast<unsigned>(page.height));
  zbar::zbar_image_set_data(image.get(), page.gray.data(), page.gray.size(), nullptr);
  zbar::zbar_scan_image(scanner.get(), image.get());
  std::vector<Symbol> symbols;
  for (const zbar::zbar_symbol_t* read = zbar::zbar_image_first_symbol(image.get()); read;
       read = zbar::zbar_symbol_next(read)) {
    symbols.push_back(Convert(read, page));
  }
  return symbols;
}

}  // namespace Support
