#include "library/writer/PostScriptText.h"

#include "library/layout/Font.h"
#include "library/writer/Hex.h"

#include <algorithm>

namespace Library {
namespace {

// Fonts come with Adobe's standard encoding, which has the quote and the grave accent elsewhere and
// no letters above 126.
bool NeedsLatin1(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    return static_cast<unsigned char>(c) > 126 || c == '\'' || c == '`';
  });
}

// The level 2 encoding vector has a minus sign at the hyphen's place and quotes that lean.
constexpr std::string_view kLatin1Procedure =
    "/L{dup length dict begin{1 index/FID ne{def}{pop pop}ifelse}forall/Encoding "
    "ISOLatin1Encoding\n"
    "256 array copy dup 39/quotesingle put dup 45/hyphen put dup 96/grave put def\n"
    "currentdict end/vextorin-Latin1 exch definefont}bind def";

// A font that a printer may not have: any failure gives Helvetica.
constexpr std::string_view kFindFont = "cvn{findfont}stopped{pop/Helvetica findfont}if";

// text width T: shows text in a font of unknown metrics in the middle of the width planned for it,
// narrowed if it is wider.
constexpr std::string_view kFitProcedure =
    "/T{1 index stringwidth pop 2 copy lt{div 1 scale}{sub 2 div 0 rmoveto}ifelse show}bind def";

void WriteFont(const TextRun& run, const Font& font, TextBuilder& out) {
  if (font.standard) {
    out << "/" + font.name + " findfont";
  } else {
    out << Hex(font.name) << kFindFont;
  }
  if (NeedsLatin1(run.text)) out << "L";
  out << run.size << "scalefont setfont";
}

void WriteShow(const TextRun& run, const Font& font, TextBuilder& out) {
  if (!font.standard) {
    out << Hex(run.text) << run.width << "T";
  } else if (run.spacing != 0) {
    out << run.spacing << 0 << Hex(run.text) << "ashow";
  } else {
    out << Hex(run.text) << "show";
  }
}

void WriteRun(const TextRun& run, const Font& font, const Point& origin, TextBuilder& out) {
  const Point anchor = {run.anchor.x - origin.x, run.anchor.y - origin.y};
  if (run.rotation == 0 && font.standard) {
    out << anchor << "moveto";
    WriteShow(run, font, out);
  } else {
    out << "gsave" << anchor << "translate" << run.rotation * 90 << "rotate 0 0 moveto";
    WriteShow(run, font, out);
    out << "grestore";
  }
  out.endLine();
}

}  // namespace

void WriteText(std::span<const TextRun> texts, const Point& origin, TextBuilder& out) {
  const auto any = [texts](auto&& is) { return std::any_of(texts.begin(), texts.end(), is); };
  if (any([](const TextRun& run) { return !FindFont(run.font).standard; })) {
    out.line(kFitProcedure);
  }
  if (any([](const TextRun& run) { return NeedsLatin1(run.text); })) out.line(kLatin1Procedure);
  const TextRun* last = nullptr;
  for (const TextRun& run : texts) {
    const Font font = FindFont(run.font);
    if (!last || run.font != last->font || run.size != last->size ||
        NeedsLatin1(run.text) != NeedsLatin1(last->text)) {
      WriteFont(run, font, out);
    }
    WriteRun(run, font, origin, out);
    last = &run;
  }
}

}  // namespace Library
