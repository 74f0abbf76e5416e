// PDF 1.4 (ISO 32000-1): a document of one page, which is the box from 0,0 to the right and upper
// edge of the rectangle asked for; or the operators of its content alone, for another program's
// page. Both are ASCII, and no date or id changes them from run to run.
#pragma once

#include "library/writer/Writer.h"

namespace Library {

class PdfWriter : public Writer {
 public:
  // 1/1000 mm.
  PdfWriter(double width, double height) : pageWidth(width), pageHeight(height) {}
  std::string write(const Drawing& drawing) const override;

 private:
  double pageWidth, pageHeight;
};

// Text as outlines, so that the operators need no resources.
class PdfFragmentWriter : public Writer {
 public:
  std::string write(const Drawing& drawing) const override;
};

}  // namespace Library
