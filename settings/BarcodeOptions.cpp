#include "settings/BarcodeOptions.h"

#include "settings/ApplyOption.h"
#include "settings/BarcodeFiles.h"
#include "settings/BarcodeKeywords.h"

namespace Settings {
namespace {

using B = BarcodeSettings;
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
  if (!option.range.holds(number)) return RefuseValue(option.refusal, given.value);
  settings.defaultset = number == 1;
  return Diag::kSuccess;
}

// The letter h hides the text too, but only behind the letter t: "-th".
Diag::ResultCode PlaceText(B& settings, const Option<B>& option, Given given) {
  std::string word(given.value);
  if (given.name == "t" && ToUpper(word) == "H")
    settings.text = kTextHide;
  else if (!ReadKeyword(word, option.keywords, settings.text))
    return RefuseValue(option.refusal, given.value);
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
