#include "tests/e2e/LanguagePictures.h"

#include "tests/e2e/PclPicture.h"
#include "tests/support/Run.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace Support {
namespace {

// A map of bits, of grey or of colours, without comments, as netpbm's tools write it.
Page ReadMap(const std::string& bytes) {
  Page page;
  page.dpi = kLanguageDpi;
  int kind = 0, begin = 0;
  if (std::sscanf(bytes.c_str(), "P%d %d %d%n", &kind, &page.width, &page.height, &begin) != 3) {
    return page;
  }
  begin += kind == 4 ? 1 : 5;  // behind the largest value, 255
  for (int y = 0; y < page.height; ++y) {
    for (int x = 0; x < page.width; ++x) {
      const auto at = [&](int i) {
        return static_cast<unsigned char>(bytes.at(size_t(begin + i)));
      };
      const int bit = at(kind == 4 ? y * ((page.width + 7) / 8) + x / 8 : 0) >> (7 - x % 8) & 1;
      const int level = at(kind == 4 ? 0 : (y * page.width + x) * (kind == 6 ? 3 : 1));
      page.gray.push_back(static_cast<std::uint8_t>(kind == 4 ? (bit ? 0 : 255) : level));
    }
  }
  return page;
}

Page Converted(const char* tool, const std::string& picture) {
  const Finished finished = Run({.arguments = {tool, "-quiet"}, .input = picture});
  EXPECT_EQ(finished.status, 0) << tool << finished.errors;
  return ReadMap(finished.output);
}

Page OnPaper(const std::string& postScript) {
  const Rendering rendering =
      Render("<</PageSize[283.4646 283.4646]>>setpagedevice\n" + postScript, kLanguageDpi);
  EXPECT_EQ(rendering.messages, "");
  return rendering.pages.empty() ? Page{} : rendering.pages[0];
}

// The document's page ends at the barcode's right and upper edge.
Page OfPdf(const std::string& pdf) {
  const TempFolder folder;
  const std::string file = folder.write("page.pdf", pdf);
  const Finished check = Run({.arguments = {"qpdf", "--check", file}});
  EXPECT_EQ(check.status, 0) << check.output << check.errors;
  const Rendering byGhostscript = Render(pdf, kLanguageDpi);
  EXPECT_EQ(byGhostscript.messages, "");
  const Finished poppler = Run({.arguments = {"pdftoppm", "-r", "300", "-gray", file}});
  EXPECT_EQ(poppler.errors, "");
  return ReadMap(poppler.output);
}

// The fragment on a page that has no resources.
Page OfFragment(const std::string& operators) {
  std::string pdf = "%PDF-1.4\n", table = "xref\n0 5\n0000000000 65535 f \n";
  const std::string objects[] = {
      "<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Count 1/Kids[3 0 R]>>",
      "<</Type/Page/Parent 2 0 R/MediaBox[0 0 283.4646 283.4646]/Resources<<>>/Contents 4 0 R>>",
      "<</Length " + std::to_string(operators.size()) + ">>stream\n" + operators + "\nendstream"};
  for (int i = 0; i < 4; ++i) {
    char entry[24];
    std::snprintf(entry, sizeof entry, "%010zu 00000 n \n", pdf.size());
    table += entry;
    pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
  }
  return OfPdf(pdf + table + "trailer<</Size 5/Root 1 0 R>>\nstartxref\n" +
               std::to_string(pdf.size()) + "\n%%EOF\n");
}

Page OfPcl(const std::string& pcl) {
  return PaintPcl(pcl, kLanguageDpi, kPageSide);
}

}  // namespace

const Language kPostScript = {"PostScript", "format=PS", OnPaper};
const std::vector<Language> kPclModes = {
    {"PCL", "format=PCL nooverhead", OfPcl},
    {"PCL without HP-GL/2", "format=PCL pclmode=pcl5nohpgl nooverhead", OfPcl}};
const std::vector<Language> kPdfKinds = {{"PDF", "format=PDF", OfPdf},
                                         {"PDF fragment", "format=PDFFRAG", OfFragment}};
const std::vector<Language> kBitmaps = {
    {"BMP", "format=IMAGE imageformat=BMP",
     [](const std::string& bytes) { return Converted("bmptopnm", bytes); }},
    {"GIF", "format=IMAGE imageformat=GIF",
     [](const std::string& bytes) { return Converted("giftopnm", bytes); }},
    {"PNG", "format=IMAGE imageformat=PNG",
     [](const std::string& bytes) { return Converted("pngtopnm", bytes); }},
    {"TIF", "format=IMAGE imageformat=TIF",
     [](const std::string& bytes) { return Converted("tifftopnm", bytes); }},
    {"JPG", "format=IMAGE imageformat=JPG",
     [](const std::string& bytes) { return Converted("jpegtopnm", bytes); }}};

std::vector<Language> EveryLanguage() {
  std::vector<Language> all = {kPostScript};
  for (const auto* some : {&kPclModes, &kPdfKinds, &kBitmaps}) {
    all.insert(all.end(), some->begin(), some->end());
  }
  return all;
}

}  // namespace Support
