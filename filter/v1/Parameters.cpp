#include "filter/v1/Parameters.h"

#include "settings/BarcodeKeywords.h"
#include "settings/Values.h"

#include <iterator>

namespace Filter {
namespace {

using B = Settings::BarcodeSettings;
using Flagged = Settings::FlaggedText<B>;

constexpr Settings::Keyword kFormats[] = {{"PS", Settings::kFormatPostScript},
                                          {"PCL", Settings::kFormatPcl}};
// The library's default position, or none.
constexpr Settings::Keyword kShowText[] = {{"ON", Settings::kTextNotSet},
                                           {"OFF", Settings::kTextHide}};

// Parameters with a rule of their own.

// There is no type 0.
std::string_view ReadType(B& settings, const Token& token) {
  const int type = Settings::TextToInteger(token.value);
  if (type == 0) return "Invalid barcode type: ";
  settings.barcode = type;
  return {};
}

// From degrees to quarter turns.
std::string_view ReadRotation(B& settings, const Token& token) {
  int degrees = 0;
  if (!Settings::ReadInteger(token.value, {}, degrees, BeginsWithZero)) {
    return "Invalid rotation parameter: ";
  }
  settings.rot = degrees / 90;
  return {};
}

// From thousandths of a millimetre.
std::string_view ReadModuleWidth(B& settings, const Token& token) {
  int thousandths = 0;
  if (token.isTooLong() || !Settings::ReadInteger(token.value, {}, thousandths, BeginsWithZero)) {
    return "Invalid module width parameter: ";
  }
  settings.modulewidth = thousandths / 1000.0;
  return {};
}

// A number of up to three digits is the font's size, anything else its name: f1200 names a font.
std::string_view ReadFont(B& settings, const Token& token) {
  constexpr int kLargestSize = 999;
  const bool digit = !token.value.empty() && token.value[0] >= '0' && token.value[0] <= '9';
  const int size = Settings::TextToInteger(token.value);
  if (digit && size <= kLargestSize) {
    if (size == 0 && token.value != "0") return "Invalid fontsize parameter: ";
    settings.fontsize = size;
    return {};
  }
  if (token.isTooLong()) return "Invalid font name parameter: ";
  settings.font = token.value;
  return {};
}

// Data are added to what there is, without the quotes around them.
std::string_view ReadData(B& settings, const Token& token) {
  constexpr std::size_t kLongestData = 1023;
  std::string_view data = token.value;
  if (data.starts_with('"')) {
    data.remove_prefix(1);
    if (data.ends_with('"')) data.remove_suffix(1);
  }
  if (settings.data.size() + data.size() > kLongestData) return "Data string to long.";
  settings.data += data;
  return {};
}

// clang-format off
constexpr Parameter kParameters[] = {
    {"t", Choice{&B::format, kFormats}, "Invalid output type: ", "<TYPE>",
     "output format: PS or PCL"},
    {"x", &B::xpos, "Invalid x-position: ", "<XPOS>", "x-position in mm"},
    {"y", &B::ypos, "Invalid y-position: ", "<YPOS>", "y-position in mm"},
    {"w", &B::width, "Invalid width parameter: ", "<WIDTH>", "width in mm"},
    {"h", &B::height, "Invalid height parameter: ", "<HEIGHT>", "height in mm"},
    {"b", &ReadType, "", "<BCTYPE>", "barcode type number"},
    {"c", &B::checkdigit, "Invalid check digit: ", "<CHECKDIGIT>", "check digit method"},
    {"r", &ReadRotation, "", "<ROTATION>", "rotation in degrees: 0, 90, 180 or 270"},
    {"ot", Fixed{&B::origin, Settings::kOriginTop}, "", "", "x/y is the upper left corner"},
    {"ob", Fixed{&B::origin, Settings::kOriginBottom}, "", "", "x/y is the lower left corner"},
    {"T", Choice{&B::text, kShowText}, "Invalid show-text parameter: ", "on|off", "show text"},
    {"a", Fixed{&B::text, Settings::kTextAbove}, "", "", "text above the barcode"},
    {"n", Fixed{&B::text, Settings::kTextHide}, "", "", "no text"},
    {"A", Choice{&B::autocorrect, Settings::kOnOff}, "Invalid auto-correct parameter: ", "on|off",
     "auto-correction"},
    {"s", Choice{&B::translation, Settings::kOnOff}, "Invalid translate-esc parameter: ", "on|off",
     "translate escape sequences"},
    {"g", &B::guardline, "Invalid guard-width parameter: ", "<GUARDWIDTH>",
     "guard (bearer bar) width in mm"},
    {"f", &ReadFont, "", "<FONTSIZE|FONTNAME>", "font size in points (up to 999) or font name"},
    {"i", &B::textdist, "Invalid text-distance parameter: ", "<TEXTDIST>", "text distance in mm"},
    {"N", &B::notchheight, "Invalid notch-height parameter: ", "<NOTCHHEIGHT>",
     "notch height in mm"},
    {"m", &ReadModuleWidth, "", "<MODULEWIDTH>", "module width in 1/1000 mm"},
    {"R", &B::printratio, "Invalid print ratio: ", "<PRINTRATIO>", "print ratio, e.g. 1:2:1:3"},
    {"F", &B::formatstring, "Invalid format string: ", "<FORMAT>", "format string, e.g. A##B&"},
    {"O", Fixed{&B::optimalwidth, 1}, "", "", "optimal width"},
    {"I", Fixed{&B::initgraphics, 1}, "", "", "use initgraphics in PostScript"},
    {"e", Fixed{&B::movecursor, 1}, "", "", "move the PCL cursor to the end of the barcode"},
    {"W", Fixed{&B::trimwhitespaces, 1}, "", "", "trim whitespace of the data"},
    {"p", Fixed{&B::embed, 0}, "", "", ""},

    {"Qh", &B::quietzonehV1, "Invalid horizontal quiet-zone: ", "<length>",
     "horizontal quiet zone in mm"},
    {"Qv", &B::quietzonevV1, "Invalid vertical quiet-zone: ", "<length>",
     "vertical quiet zone in mm"},

    {"Pr", &B::PDFrows, "Invalid number of rows (PDF417): ", "<rows>", "PDF417: rows"},
    {"Pc", &B::PDFcols, "Invalid number of columns (PDF417): ", "<columns>", "PDF417: columns"},
    {"PR", Flagged{&B::PDFratio, &B::PDFratioGiven},
     "Invalid row-column ratio string (PDF417): ", "<ratio>|auto",
     "PDF417: row-column ratio, e.g. 3:1"},
    {"Ph", &B::PDFrowheight, "Invalid row-height parameter (PDF417): ", "<height>",
     "PDF417: row height in mm"},
    {"Pe", &B::PDFecl, "Invalid error correction level (PDF417): ", "<level>",
     "PDF417: error correction level"},
    {"Pi", &B::PDFindex, "Invalid segment index parameter (PDF417): ", "<index>",
     "Macro PDF417: segment index"},
    {"Pf", Flagged{&B::PDFid, &B::PDFidGiven}, "Invalid file id string (PDF417): ", "<id>",
     "Macro PDF417: file id"},
    {"Pl", Fixed{&B::PDFlast, 1}, "", "", "Macro PDF417: last segment"},
    {"Pn", Flagged{&B::PDFfile, &B::PDFfileGiven}, "Invalid filename string (PDF417): ", "<name>",
     "Macro PDF417: file name"},
    {"Px", &B::PDFcount, "Invalid segment count parameter (PDF417): ", "<count>",
     "Macro PDF417: segment count"},
    {"Pt", &B::PDFtime, "Invalid timestamp parameter (PDF417): ", "<time>",
     "Macro PDF417: time stamp"},
    {"Ps", Flagged{&B::PDFsender, &B::PDFsenderGiven}, "Invalid sender string (PDF417): ",
     "<sender>", "Macro PDF417: sender"},
    {"Pa", Flagged{&B::PDFaddr, &B::PDFaddrGiven}, "Invalid addressee string (PDF417): ",
     "<addressee>", "Macro PDF417: addressee"},
    {"Pz", &B::PDFsize, "Invalid filesize parameter (PDF417): ", "<size>",
     "Macro PDF417: file size"},
    {"Pm", &B::PDFchecksum, "Invalid checksum parameter (PDF417): ", "<checksum>",
     "Macro PDF417: checksum"},

    {"Ds", &B::DMsize, "Invalid DATAMATRIX size: ", "<size>", "DATAMATRIX: size"},
    {"Df", &B::DMformat, "Invalid DATAMATRIX format: ", "<format>", "DATAMATRIX: format"},
    {"Dr", Fixed{&B::DMrect, 1}, "", "", "DATAMATRIX: rectangular symbol"},
    {"Das", &B::DMsum, "Invalid DATAMATRIX append - sum: ", "<sum>",
     "DATAMATRIX: structured append, sum"},
    {"Dai", &B::DMindex, "Invalid DATAMATRIX append - index: ", "<index>",
     "DATAMATRIX: structured append, index"},
    {"Daf", &B::DMfile, "Invalid DATAMATRIX append - file ID: ", "<id>",
     "DATAMATRIX: structured append, file ID"},

    {"Mm", &B::MCmode, "Invalid mode number (MaxiCode): ", "<mode>", "MaxiCode: mode"},
    {"Mu", &B::MCundercut, "Invalid undercut size (MaxiCode): ", "<undercut>",
     "MaxiCode: undercut in percent"},
    {"Mp", Flagged{&B::MCpre, &B::MCpreGiven}, "Invalid preamble string (MaxiCode): ",
     "<preamble>", "MaxiCode: preamble"},
    {"Mas", &B::MCsum, "Invalid number of symbols (MaxiCode): ", "<sum>",
     "MaxiCode: structured append, sum"},
    {"Mai", &B::MCindex, "Invalid symbol index (MaxiCode): ", "<index>",
     "MaxiCode: structured append, index"},
    {"Mss", Flagged{&B::MCservice, &B::MCserviceGiven},
     "Invalid service class string (MaxiCode): ", "<class>", "MaxiCode: SCM, service class"},
    {"Msc", Flagged{&B::MCcountry, &B::MCcountryGiven},
     "Invalid country code string (MaxiCode): ", "<code>", "MaxiCode: SCM, country code"},
    {"Msp", Flagged{&B::MCpostal, &B::MCpostalGiven},
     "Invalid postal code string (MaxiCode): ", "<code>", "MaxiCode: SCM, postal code"},

    {"QRv", &B::QRversion, "Invalid version number (QRCode): ", "<version>", "QRCode: version"},
    {"QRf", &B::QRformat, "Invalid format number (QRCode): ", "<format>", "QRCode: format"},
    {"QRi", Flagged{&B::QRind, &B::QRindGiven},
     "Invalid format application indicator string (QRCode): ", "<indicator>",
     "QRCode: format application indicator"},
    {"QRe", &B::QRecl, "Invalid error correction level (QRCode): ", "<level>",
     "QRCode: error correction level"},
    {"QRm", &B::QRmask, "Invalid mask pattern (QRCode): ", "<mask>", "QRCode: mask pattern"},
    {"QRas", &B::QRsum, "Invalid number of symbols (QRCode): ", "<sum>",
     "QRCode: structured append, sum"},
    {"QRai", &B::QRindex, "Invalid symbol index (QRCode): ", "<index>",
     "QRCode: structured append, index"},
    {"QRap", &B::QRparity, "Invalid parity byte (QRCode): ", "<parity>",
     "QRCode: structured append, parity byte"},

    {"Cr", &B::CBrows, "Invalid number of rows (Codablock-F): ", "<rows>", "Codablock-F: rows"},
    {"Cc", &B::CBcols, "Invalid number of columns (Codablock-F): ", "<columns>",
     "Codablock-F: columns"},
    {"Ch", &B::CBrowheight, "Invalid row-height (Codablock-F): ", "<height>",
     "Codablock-F: row height in mm"},
    {"Cs", &B::CBsepheight, "Invalid row-seperator-height (Codablock-F): ", "<height>",
     "Codablock-F: row separator height in mm"},
    {"Cf", &B::CBformat, "Invalid format number (Codablock-F): ", "<format>",
     "Codablock-F: format"},

    {"d", &ReadData, "", "<DATA>", "content (must be the last parameter of the settings!)"},
};
// clang-format on

// So at most one row matches a token, whatever the order of the rows.
constexpr bool LettersAreUnambiguous() {
  for (const Parameter& one : kParameters)
    for (const Parameter& other : kParameters)
      if (&one != &other && one.letters.starts_with(other.letters)) return false;
  return true;
}
static_assert(LettersAreUnambiguous());

struct Family {
  std::string_view letters;
  std::string_view unknown;
};

// The first row that matches counts.
constexpr Family kFamilies[] = {
    {"o", "Invalid orientation parameter: "},
    {"QR", "Unknown parameter for QRCode: "},
    {"Q", "Unknown parameter for quiet-zone: "},
    {"P", "Unknown parameter for PDF417: "},
    {"Da", "Unknown parameter for DATAMATRIX append: "},
    {"D", "Unknown parameter for DATAMATRIX: "},
    {"Ma", "Unknown append parameter for MaxiCode: "},
    {"Ms", "Unknown SCM parameter for MaxiCode: "},
    {"M", "Unknown parameter for MaxiCode: "},
    {"C", "Unknown parameter for Codablock-F: "},
    {"", "Unknown parameter: "},
};

}  // namespace

std::span<const Parameter> AllParameters() {
  return kParameters;
}

const Parameter* FindParameter(std::string_view token) {
  for (const Parameter& parameter : kParameters)
    if (token.starts_with(parameter.letters)) return &parameter;
  return nullptr;
}

std::string_view UnknownParameter(std::string_view token) {
  const Family* family = std::begin(kFamilies);
  while (!token.starts_with(family->letters)) ++family;
  return family->unknown;
}

}  // namespace Filter
