#include "settings/BarcodeOptions.h"

#include "settings/ApplyOption.h"
#include "settings/BarcodeFiles.h"
#include "settings/BarcodeKeywords.h"

namespace Settings {
namespace {

using B = BarcodeSettings;
using Flagged = FlaggedText<BarcodeSettings>;
using enum Kind;

// The irregular options.

Diag::ResultCode ReadDataFile(B& settings, const Option<B>&, Given given) {
  return AppendDataFile(settings, std::string(given.value));
}

Diag::ResultCode ReadOptionFile(B& settings, const Option<B>&, Given given) {
  return ReadSettingsFile(settings, std::string(given.value));
}

// An image is what is wanted then, unless a format was chosen.
Diag::ResultCode SetImageFormat(B& settings, const Option<B>&, Given given) {
  settings.imageformat = given.value;
  if (settings.format == kFormatNotSet) settings.format = kFormatImage;
  return Diag::kSuccess;
}

// There is one default set, number 1; 0 is none. Text without digits reads as 0.
Diag::ResultCode ChooseDefaultSet(B& settings, const Option<B>& option, Given given) {
  const int number = TextToInteger(given.value);
  if (!option.range.holds(number)) return RefuseValue(settings, option.refusal, given.value);
  settings.defaultset = number == 1;
  return Diag::kSuccess;
}

// 0 is none; 1 and 2 are no numbers of today's standard.
Diag::ResultCode ChooseEci(B& settings, const Option<B>& option, Given given) {
  const int number = TextToInteger(given.value);
  if (!option.range.holds(number) || number == 1 || number == 2) {
    return RefuseValue(settings, option.refusal, given.value);
  }
  settings.eci = number;
  return Diag::kSuccess;
}

// The letter h hides the text too, but only behind the letter t: "-th".
Diag::ResultCode PlaceText(B& settings, const Option<B>& option, Given given) {
  std::string word(given.value);
  if (given.name == "t" && ToUpper(word) == "H")
    settings.text = kTextHide;
  else if (!ReadKeyword(word, option.keywords, settings.text))
    return RefuseValue(settings, option.refusal, given.value);
  return Diag::kSuccess;
}

Diag::ResultCode ChooseAutomaticRatio(B& settings, const Option<B>&, Given) {
  settings.PDFratio = "auto";
  settings.PDFratioGiven = 1;
  return Diag::kSuccess;
}

// clang-format off
constexpr Option<B> kOptions[] = {
    // General
    {"data", "d", kQuietText, &B::data},
    {"datafile", "", kValueAction, &ReadDataFile},
    {"bcfile", "", kValueAction, &ReadOptionFile},
    {"format", "f", kKeyword, &B::format,
     "Output format must be 'PS', 'PCL', 'PDF', 'PDFFRAG', or 'IMAGE'.", {}, kFormats},
    {"barcode", "b", kNonZeroInteger, &B::barcode, "Invalid barcode type: "},
    {"checkdigit", "c", kInteger, &B::checkdigit, "Invalid checkdigit method: "},
    {"compress", "", kKeyword, &B::compress,
     "Compression algorithm must be 'NONE', 'DEFLATE', 'GZIP' or 'ZLIB'.", {}, kCompressions},
    {"autocorrect", "", kKeyword, &B::autocorrect, "Autocorrect must be set to 'on' or 'off'.", {},
     kOnOff},
    {"translation", "e", kKeyword, &B::translation, "Translation must be set to 'on' or 'off'.", {},
     kOnOff},
    {"eci", "", kValueAction, &ChooseEci, "Invalid ECI number: ", {0, 999999}},
    {"guardline", "", kReal, &B::guardline, "Invalid guardline width: "},
    {"bearerwidth", "", kReal, &B::bearerwidth, "Invalid bearer bar width: "},
    {"bearertype", "", kKeyword, &B::bearertype,
     "Output bearer bar type must be 'NONE', 'TOPANDBOTTOM', 'RECTANGLE', 'TOP', or 'BOTTOM'.", {},
     kBearerTypes},
    {"notchheight", "", kReal, &B::notchheight, "Invalid notch height: "},
    {"modulewidth", "m", kReal, &B::modulewidth, "Invalid module width: "},
    {"reduction", "", kUncheckedReal, &B::reduction},
    {"reductionunit", "", kKeyword, &B::reductionunit,
     "Bar width reduction unit must be 'PERC', 'MM', 'MILS', or 'INCH'", {}, kReductionUnits},
    {"printratio", "", kText, &B::printratio},
    {"formatstring", "", kText, &B::formatstring},
    {"optimalwidth", "O 72dpiraster", kFlag, &B::optimalwidth},
    {"quietzoneunit", "", kKeyword, &B::quietzoneunit,
     "Quiet zone unit must be 'NONE', 'MOD', 'MM', 'MILS', 'INCH', or 'PX'", {}, kQuietZoneUnits},
    {"quietzoneh", "", kNonNegativeReal, &B::quietzoneh,
     "Invalid length of horizontal quiet zone: "},
    {"quietzonev", "", kNonNegativeReal, &B::quietzonev, "Invalid length of vertical quiet zone: "},
    {"nooverhead", "", kFlag, &B::nooverhead},
    {"imageformat", "i", kValueAction, &SetImageFormat},
    {"dpi", "", kRealExactZero, &B::dpi, "Invalid dpi value: "},
    {"defaultset", "", kValueAction, &ChooseDefaultSet, "Invalid default set number: ", {0, 1}},
    {"dravlindefaults", "", kFlag, &B::defaultset},

    // Position and size
    {"xpos", "x", kReal, &B::xpos, "Invalid x position: "},
    {"ypos", "y", kReal, &B::ypos, "Invalid y position: "},
    {"width", "w", kPositiveReal, &B::width, "Invalid barcode width: "},
    {"height", "h", kPositiveReal, &B::height, "Invalid barcode height: "},
    {"rot", "r", kKeyword, &B::rot, "Rotation must be set to '0', '90', '180' or '270'.", {},
     kRotations},
    {"origin", "", kKeyword, &B::origin, "Origin must be set to 'top' or 'bottom'.", {}, kOrigins},
    {"mustfit", "", kKeyword, &B::mustfit, "'Must fit' flag must be set to 'on' or 'off'.", {},
     kOnOff},
    {"decoder", "", kKeyword, &B::decoder,
     "Decoder must be set to 'Any', 'Hardware', 'Software' or 'Vextorin'.", {}, kDecoders},
    {"sizemode", "", kKeyword, &B::sizemode,
     "Size mode must be set to 'DEFAULT', 'FIT', 'MODULE' or 'MINIMAL'.", {}, kSizeModes},

    // Text
    {"text", "t", kValueAction, &PlaceText,
     "Text position must be set to 'below', 'above' or 'hide'.", {}, kTextPositions},
    {"align", "", kKeyword, &B::align,
     "Text alignment must be 'DEFAULT', 'LEFT', 'CENTER' or 'RIGHT'.", {}, kAlignments},
    {"colormode", "", kKeyword, &B::colormode,
     "Color mode must be set to 'CMYK', 'GRAY' or 'RGB'.", {}, kColorModes},
    {"pclmode", "", kKeyword, &B::pclmode,
     "PCL mode must be set to 'PCL5' (default) or 'PCL5noHPGL'.", {}, kPclModes},
    {"fontsize", "", kInteger, &B::fontsize, "Invalid font size: "},
    {"font", "", kText, &B::font},
    {"textdist", "", kReal, &B::textdist, "Invalid text distance: "},
    {"trimwhitespaces", "", kFlag, &B::trimwhitespaces},

    // Filtering
    {"initgraphics", "", kFlag, &B::initgraphics},
    {"movecursor", "", kFlag, &B::movecursor},
    {"remove", "", kFlag, &B::remove},
    {"embed", "", kKeyword, &B::embed, "Embedding must be set to 'on' or 'off'.", {}, kOnOff},
    {"pos", "", kKeyword, &B::pos, "Positioning must be set to 'rel' or 'abs'.", {}, kPositionings},

    // PDF417, Micro PDF417, Macro PDF417
    {"PDFrows", "", kInteger, &B::PDFrows, "Invalid number of rows for PDF417: ", {3, 90}},
    {"PDFcols", "", kInteger, &B::PDFcols, "Invalid number of columns for PDF417: ", {1, 30}},
    {"PDFratio", "", kTextWithFlag, Flagged{&B::PDFratio, &B::PDFratioGiven}},
    {"PDFauto", "", kAction, &ChooseAutomaticRatio},
    {"PDFrowheight", "", kReal, &B::PDFrowheight, "Invalid row height for PDF417: "},
    {"PDFecl", "", kInteger, &B::PDFecl, "Invalid error correction level for PDF417: ", {0, 8}},
    {"PDFmode", "", kInteger, &B::PDFmode, "Invalid mode for PDF417: ", {0, 1}},
    {"MPDFversion", "", kInteger, &B::MPDFversion, "Invalid version for Micro PDF417: ", {0, 34}},
    {"MPDFmode", "", kInteger, &B::MPDFmode, "Invalid mode for Micro PDF417: ", {0, 8}},
    {"PDFindex", "", kInteger, &B::PDFindex, "Invalid segment index for PDF417: "},
    {"PDFid", "", kTextWithFlag, Flagged{&B::PDFid, &B::PDFidGiven}},
    {"PDFlast", "", kFlag, &B::PDFlast},
    {"PDFfile", "", kTextWithFlag, Flagged{&B::PDFfile, &B::PDFfileGiven}},
    {"PDFcount", "", kInteger, &B::PDFcount, "Invalid segment count for PDF417: "},
    {"PDFtime", "", kInteger, &B::PDFtime, "Invalid timestamp for PDF417: "},
    {"PDFsender", "", kTextWithFlag, Flagged{&B::PDFsender, &B::PDFsenderGiven}},
    {"PDFaddr", "", kTextWithFlag, Flagged{&B::PDFaddr, &B::PDFaddrGiven}},
    {"PDFsize", "", kInteger, &B::PDFsize, "Invalid filesize for PDF417: "},
    {"PDFchecksum", "", kInteger, &B::PDFchecksum, "Invalid checksum for PDF417: "},

    // Data Matrix
    {"DMsize", "", kInteger, &B::DMsize, "Invalid size for DATAMATRIX: ", {0, 30}},
    {"DMformat", "", kInteger, &B::DMformat, "Invalid format for DATAMATRIX: ", {0, 5}},
    {"DMbinary", "", kFlag, &B::DMbinary},
    {"DMrect", "", kFlag, &B::DMrect},
    {"DMsum", "", kInteger, &B::DMsum, "Invalid sum (structured append) for DATAMATRIX: ", {2, 16}},
    {"DMindex", "", kInteger, &B::DMindex, "Invalid index (structured append) for DATAMATRIX: ",
     {1, 16}},
    {"DMfile", "", kInteger, &B::DMfile, "Invalid file id (structured append) for DATAMATRIX: "},

    // MaxiCode
    {"MCmode", "", kInteger, &B::MCmode, "Invalid mode for MaxiCode: ", {2, 5}},
    {"MCundercut", "", kInteger, &B::MCundercut, "Invalid undercut of hexagon for MaxiCode: ",
     {0, 100}},
    {"MCpre", "", kTextWithFlag, Flagged{&B::MCpre, &B::MCpreGiven}},
    {"MCsum", "", kInteger, &B::MCsum, "Invalid sum (structured append) for MaxiCode: ", {2, 8}},
    {"MCindex", "", kInteger, &B::MCindex, "Invalid index (structured append) for MaxiCode: ",
     {1, 8}},
    {"MCservice", "", kTextWithFlag, Flagged{&B::MCservice, &B::MCserviceGiven}},
    {"MCcountry", "", kTextWithFlag, Flagged{&B::MCcountry, &B::MCcountryGiven}},
    {"MCpostal", "", kTextWithFlag, Flagged{&B::MCpostal, &B::MCpostalGiven}},

    // QR Code, Micro QR Code
    {"QRversion", "", kInteger, &B::QRversion, "Invalid version for QRCode: ", {0, 40}},
    {"MQRversion", "", kInteger, &B::MQRversion, "Invalid version for Micro QRCode: ", {0, 4}},
    {"QRformat", "", kInteger, &B::QRformat, "Invalid format for QRCode: ", {0, 2}},
    {"QRind", "", kTextWithFlag, Flagged{&B::QRind, &B::QRindGiven}},
    {"QRecl", "", kInteger, &B::QRecl, "Invalid error correction level for QRCode: ", {0, 3}},
    {"MQRecl", "", kInteger, &B::MQRecl, "Invalid error correction level for Micro QRCode: ",
     {0, 3}},
    // -1 leaves the mask to the library.
    {"QRmask", "", kInteger, &B::QRmask, "Invalid mask pattern for QRCode: ", {-1, 7}},
    {"MQRmask", "", kInteger, &B::MQRmask, "Invalid mask pattern for Micro QRCode: ", {-1, 3}},
    {"QRsum", "", kInteger, &B::QRsum, "Invalid sum (structured append) for QRCode: ", {2, 16}},
    {"QRindex", "", kInteger, &B::QRindex, "Invalid index (structured append) for QRCode: ",
     {1, 16}},
    {"QRparity", "", kInteger, &B::QRparity, "Invalid parity (structured append) for QRCode: ",
     {0, 255}},

    // Codablock-F
    {"CBrows", "", kInteger, &B::CBrows, "Invalid number of rows for Codablock-F: ", {2, 44}},
    {"CBcols", "", kInteger, &B::CBcols, "Invalid number of columns for Codablock-F: ", {4, 62}},
    {"CBrowheight", "", kReal, &B::CBrowheight, "Invalid row height for Codablock-F: "},
    {"CBsepheight", "", kReal, &B::CBsepheight, "Invalid row-separator height for Codablock-F: "},
    {"CBformat", "", kInteger, &B::CBformat, "Invalid format for Codablock-F: ", {0, 1}},

    // Aztec Code
    {"ACsize", "", kInteger, &B::ACsize, "Invalid size for Aztec Code: ", {0, 36}},
    {"ACbinary", "", kFlag, &B::ACbinary},
    {"ACrunes", "", kFlag, &B::ACrunes},
    {"ACecl", "", kTruncatedReal, &B::ACecl, "Invalid error correction level for Aztec Code: "},
    {"ACappend", "", kFlag, &B::ACappend},
    {"ACformat", "", kInteger, &B::ACformat, "Invalid format for Aztec Code: ", {0, 2}},
    {"ACspec", "", kTextWithFlag, Flagged{&B::ACspec, &B::ACspecGiven}},
    {"ACsum", "", kLetter, &B::ACsum, "Invalid sum (structured append) for Aztec Code: "},
    {"ACindex", "", kLetter, &B::ACindex, "Invalid index (structured append) for Aztec Code: "},
    {"ACmessage", "", kTextWithFlag, Flagged{&B::ACmessage, &B::ACmessageGiven}},

    // RSS Expanded Stacked, composite component
    {"RSSseg", "", kInteger, &B::RSSseg, "Invalid segments per row (RSS Expanded Stacked): ",
     {2, 22}},
    {"CCtype", "", kKeyword, &B::CCtype,
     "Composite component type must be set to 'none', 'auto', 'A', 'B' or 'C'.", {}, kComposites},

    // Grid of barcodes
    {"multiple", "", kKeyword, &B::multiple, "'Multiple' must be set to 'on' or 'off'.", {},
     kOnOff},
    {"rows", "", kInteger, &B::rows, "Invalid number of rows (multiple barcodes): ", {.low = 1}},
    {"columns", "", kInteger, &B::columns, "Invalid number of columns (multiple barcodes): ",
     {.low = 1}},
    {"hdist", "", kReal, &B::hdist, "Invalid horizontal distance (multiple barcodes): "},
    {"vdist", "", kReal, &B::vdist, "Invalid vertical distance (multiple barcodes): "},
    {"datalimit", "", kInteger, &B::datalimit, "Invalid data limit (multiple barcodes): ",
     {.low = 1}},
    {"dynamicsize", "", kKeyword, &B::dynamicsize,
     "Dynamic size for multiple barcodes must be set to 'none', 'horizontal', or 'vertical'.", {},
     kDynamicSizes},
    {"structapp", "", kKeyword, &B::structapp,
     "Structured append of multiple barcodes must be set to 'none', 'standard', or 'vextorin'.", {},
     kStructuredAppends},

    {"bkmode", "", kKeyword, &B::bkmode,
     "Background mode must be set to 'transparent' or 'opaque'.", {}, kBackgrounds},
};
// clang-format on

static_assert(NamesUnique(kOptions));
static_assert(KindsSuitFields(kOptions));
// The flag option stores kRemoveSequence.
static_assert(kRemoveSequence == 1);

}  // namespace

std::span<const Option<BarcodeSettings>> BarcodeOptions() {
  return kOptions;
}

}  // namespace Settings
