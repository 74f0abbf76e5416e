#include "library/writer/PdfWriter.h"

#include "library/layout/Units.h"
#include "library/prepare/Compression.h"
#include "library/writer/PdfContent.h"
#include "library/writer/TextBuilder.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace Library {
namespace {

std::string Ascii85(std::string_view bytes) {
  constexpr std::size_t kLineLength = 95;
  std::string text;
  std::size_t column = 0;
  const auto add = [&](char character) {
    if (column++ == kLineLength) {
      text += '\n';
      column = 1;
    }
    text += character;
  };
  for (std::size_t i = 0; i < bytes.size(); i += 4) {
    const std::size_t count = std::min<std::size_t>(4, bytes.size() - i);
    std::uint32_t word = 0;
    for (std::size_t k = 0; k < 4; ++k) {
      word = word << 8 | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0u);
    }
    if (word == 0 && count == 4) {
      add('z');
      continue;
    }
    char digits[5];
    for (int k = 4; k >= 0; --k, word /= 85) digits[k] = static_cast<char>('!' + word % 85);
    for (std::size_t k = 0; k <= count; ++k) add(digits[k]);
  }
  return text + "~>";
}

// Numbers its objects from 1 and remembers where each begins.
class Document {
 public:
  int add(const std::string& body) {
    offsets.push_back(text.size());
    const int number = static_cast<int>(offsets.size());
    text += std::to_string(number) + " 0 obj\n" + body + "\nendobj\n";
    return number;
  }
  std::string finish(int catalog) && {
    const std::size_t table = text.size();
    const std::string count = std::to_string(offsets.size() + 1);
    text += "xref\n0 " + count + "\n0000000000 65535 f \n";
    for (const std::size_t offset : offsets) {
      const std::string digits = std::to_string(offset);
      text += std::string(10 - digits.size(), '0') + digits + " 00000 n \n";
    }
    text += "trailer\n<</Size " + count + "/Root " + Reference(catalog) + ">>\nstartxref\n" +
            std::to_string(table) + "\n%%EOF\n";
    return std::move(text);
  }
  static std::string Reference(int number) { return std::to_string(number) + " 0 R"; }

 private:
  std::string text = "%PDF-1.4\n";
  std::vector<std::size_t> offsets;
};

std::string FontDictionary(const std::string& name) {
  return "<</Type/Font/Subtype/Type1/BaseFont/" + name + "/Encoding/WinAnsiEncoding>>";
}

}  // namespace

std::string PdfWriter::write(const Drawing& drawing) const {
  std::vector<std::string> fonts;
  const std::string stream = Ascii85(Zlib(PdfContent(drawing, &fonts)));
  Document document;
  const int content =
      document.add("<</Length " + std::to_string(stream.size()) +
                   "/Filter[/ASCII85Decode/FlateDecode]>>stream\n" + stream + "\nendstream");
  std::string resources = "<<";
  for (std::size_t i = 0; i < fonts.size(); ++i) {
    resources += (i == 0 ? "/Font<</F" : "/F") + std::to_string(i + 1) + " " +
                 Document::Reference(document.add(FontDictionary(fonts[i])));
  }
  resources += fonts.empty() ? ">>" : ">>>>";
  // The page comes next, and behind it the tree that it names as its parent.
  const int parent = content + static_cast<int>(fonts.size()) + 2;
  const int page = document.add("<</Type/Page/Parent " + Document::Reference(parent) +
                                "/MediaBox[0 0 " + TextBuilder::decimal(pageWidth / kPoint) + " " +
                                TextBuilder::decimal(pageHeight / kPoint) + "]/Resources" +
                                resources + "/Contents " + Document::Reference(content) + ">>");
  const int pages = document.add("<</Type/Pages/Count 1/Kids[" + Document::Reference(page) + "]>>");
  const int catalog = document.add("<</Type/Catalog/Pages " + Document::Reference(pages) + ">>");
  return std::move(document).finish(catalog);
}

std::string PdfFragmentWriter::write(const Drawing& drawing) const {
  return PdfContent(drawing, nullptr);
}

}  // namespace Library
