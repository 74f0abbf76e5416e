// The output languages as pictures: what each prints on a square page, or shows.
#pragma once

#include "tests/support/Render.h"

#include <string>
#include <vector>

namespace Support {

constexpr int kLanguageDpi = 300;
constexpr int kPageSide = 100;  // millimetres

struct Language {
  const char* name;
  const char* settings;
  // A failure of the test where a foreign program has something to say about the output.
  Page (*paint)(const std::string& output);
};

// PostScript; PCL in both modes; the PDF document, which ends at the barcode's right and upper
// edge, and the fragment on a page of its own; every bitmap, which shows the rectangle alone.
extern const Language kPostScript;
extern const std::vector<Language> kPclModes, kPdfKinds, kBitmaps;
// All of them.
std::vector<Language> EveryLanguage();

}  // namespace Support
