// The operators of a PDF content stream that draw a symbol (ISO 32000-1).
#pragma once

#include "library/layout/Drawing.h"

#include <string>
#include <vector>

namespace Library {

// Text as text needs the page's fonts: the names of those that the stream uses are added to
// `fonts`, F1 is the first of them. Without `fonts` text is drawn as outlines, and the stream needs
// no resource.
std::string PdfContent(const Drawing& drawing, std::vector<std::string>* fonts);

}  // namespace Library
