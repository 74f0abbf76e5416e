#include "library/layout/Font.h"

#include <algorithm>
#include <optional>

namespace Library {
namespace {

struct Face {
  const char* name;
  const FontWidths* widths;
};

struct Family {
  Face regular, bold, italic, boldItalic;
  double ascent, accentedAscent, descent;
};

constexpr Family kHelvetica = {{"Helvetica", &kHelveticaWidths},
                               {"Helvetica-Bold", &kHelveticaBoldWidths},
                               {"Helvetica-Oblique", &kHelveticaWidths},
                               {"Helvetica-BoldOblique", &kHelveticaBoldWidths},
                               0.73,
                               0.94,
                               0.22};
constexpr Family kTimes = {{"Times-Roman", &kTimesRomanWidths},
                           {"Times-Bold", &kTimesBoldWidths},
                           {"Times-Italic", &kTimesItalicWidths},
                           {"Times-BoldItalic", &kTimesBoldItalicWidths},
                           0.69,
                           0.94,
                           0.22};
constexpr Family kCourier = {{"Courier", nullptr},
                             {"Courier-Bold", nullptr},
                             {"Courier-Oblique", nullptr},
                             {"Courier-BoldOblique", nullptr},
                             0.63,
                             0.81,
                             0.18};

// Family names as they are left when style words are taken off.
constexpr struct {
  std::string_view name;
  const Family& family;
} kFamilies[] = {
    {"", kHelvetica},     {"helvetica", kHelvetica}, {"arial", kHelvetica},    {"times", kTimes},
    {"timesnew", kTimes}, {"courier", kCourier},     {"couriernew", kCourier},
};

// Lower-case letters alone; nothing for a name with anything but letters and separators.
std::optional<std::string> LettersOf(std::string_view name) {
  std::string letters;
  for (char c : name) {
    if (c >= 'A' && c <= 'Z') {
      letters += static_cast<char>(c - 'A' + 'a');
    } else if (c >= 'a' && c <= 'z') {
      letters += c;
    } else if (std::string_view(" -_,").find(c) == std::string_view::npos) {
      return std::nullopt;
    }
  }
  return letters;
}

bool TakeOff(std::string& letters, std::string_view word) {
  const std::size_t at = letters.find(word);
  if (at == std::string::npos) return false;
  letters.erase(at, word.size());
  return true;
}

const Family* FindFamily(std::string_view letters) {
  for (const auto& row : kFamilies) {
    if (row.name == letters) return &row.family;
  }
  return nullptr;
}

Font MakeFont(const Family& family, bool bold, bool italic) {
  const Face& face =
      bold ? (italic ? family.boldItalic : family.bold) : (italic ? family.italic : family.regular);
  return {face.name, true, face.widths, family.ascent, family.accentedAscent, family.descent};
}

}  // namespace

double Font::textWidth(std::string_view text, double size) const {
  int sum = 0;
  for (char c : text) {
    const auto code = static_cast<unsigned char>(c);
    sum += !widths ? 600 : code < 32 ? 0 : (*widths)[code - 32u];
  }
  return sum * size / 1000;
}

double Font::ascentOf(std::string_view text) const {
  const bool accented = std::any_of(text.begin(), text.end(), [](char c) {
    const auto code = static_cast<unsigned char>(c);
    return code >= 0xC0 && code <= 0xDD;
  });
  return accented ? accentedAscent : ascent;
}

Font FindFont(std::string_view name) {
  if (name.empty() || name == kHelvetica.regular.name) return MakeFont(kHelvetica, false, false);
  if (std::optional<std::string> letters = LettersOf(name)) {
    const bool bold = TakeOff(*letters, "bold");
    const bool italic = TakeOff(*letters, "italic") || TakeOff(*letters, "oblique");
    for (std::string_view word : {"regular", "roman", "psmt", "ps", "mt"}) TakeOff(*letters, word);
    if (const Family* family = FindFamily(*letters)) return MakeFont(*family, bold, italic);
  }
  Font font = MakeFont(kHelvetica, false, false);
  font.name = name;
  font.standard = false;
  return font;
}

}  // namespace Library
