// Writes a one-page PostScript job as a program that draws with cairo does:
//
//   cairo_job FILE FAMILY WIDTH HEIGHT X Y TEXT
//
// The page is WIDTH x HEIGHT points; TEXT begins at X points from the left and Y from the top.
#include <cairo-ps.h>
#include <cairo.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  if (argc != 8) {
    std::fputs("usage: cairo_job FILE FAMILY WIDTH HEIGHT X Y TEXT\n", stderr);
    return 2;
  }
  cairo_surface_t* surface =
      cairo_ps_surface_create(argv[1], std::atof(argv[3]), std::atof(argv[4]));
  cairo_t* page = cairo_create(surface);
  cairo_select_font_face(page, argv[2], CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(page, 9);
  cairo_move_to(page, std::atof(argv[5]), std::atof(argv[6]));
  cairo_show_text(page, argv[7]);
  cairo_show_page(page);
  cairo_destroy(page);
  cairo_surface_finish(surface);
  const bool written = cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(surface);
  return written ? 0 : 1;
}
