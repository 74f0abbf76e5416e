// The dump of a barcode settings record for the trace log: every value under its label, in groups.
// Enumerations stay numbers. The labels are the log's own and say less than the option names; those
// of different groups repeat.
#include "diag/Text.h"
#include "settings/BarcodeSettings.h"

#include <variant>

namespace Settings {
namespace {

using B = BarcodeSettings;

struct DumpLine {
  std::string_view label;
  // A line without a field is the header of a group, written as it stands.
  std::variant<std::monostate, bool B::*, int B::*, double B::*, char B::*, std::string B::*> field;
};

// clang-format off
constexpr DumpLine kLines[] = {
    {"  ----- General options: ----", {}},
    {"Data", &B::data},
    {"Output format", &B::format},
    {"Barcode type", &B::barcode},
    {"Checkdigit method", &B::checkdigit},
    {"Auto correction", &B::autocorrect},
    {"Translate escape sequences", &B::translation},
    {"Guard width", &B::guardline},
    {"Bearer bar width", &B::bearerwidth},
    {"Bearer bar type", &B::bearertype},
    {"Notch height", &B::notchheight},
    {"Module width", &B::modulewidth},
    {"Bar width reduction", &B::reduction},
    {"Bar width reduction unit", &B::reductionunit},
    {"Print ratio", &B::printratio},
    {"Format string", &B::formatstring},
    {"Optimize width", &B::optimalwidth},
    {"Quiet zone unit", &B::quietzoneunit},
    {"Quiet zone horizontal", &B::quietzoneh},
    {"Quiet zone vertical", &B::quietzonev},
    {"Quiet zone horizontal (V1Format)", &B::quietzonehV1},
    {"Quiet zone vertical (V1Format)", &B::quietzonevV1},
    {"NoOverhead flag", &B::nooverhead},
    {"Image format", &B::imageformat},
    {"DPI", &B::dpi},
    {"Use DefaultSet", &B::defaultset},
    {"Color Mode", &B::colormode},
    {"Background Mode", &B::bkmode},
    {"PCL Mode", &B::pclmode},
    {"Compression", &B::compress},

    {"  ----- Position and size options: ----", {}},
    {"X position", &B::xpos},
    {"Y position", &B::ypos},
    {"Width", &B::width},
    {"Height", &B::height},
    {"Rotation", &B::rot},
    {"Orientation", &B::origin},
    {"Must fit", &B::mustfit},
    {"Decoder", &B::decoder},
    {"Size mode", &B::sizemode},

    {"  ----- Text options: ----", {}},
    {"Text position", &B::text},
    {"Text alignment", &B::align},
    {"Font size", &B::fontsize},
    {"Font name", &B::font},
    {"Text distance", &B::textdist},
    {"Trim whitespaces", &B::trimwhitespaces},

    {"  ----- Filtering options: ----", {}},
    {"Initgraphics flag", &B::initgraphics},
    {"Move cursor flag", &B::movecursor},
    {"Escape string operation", &B::remove},
    {"Embedding overhead", &B::embed},
    {"Relative positioning", &B::pos},

    {"  ----- Composite component bar code options: ----", {}},
    {"CC Type", &B::CCtype},

    {"  ----- Multiple barcodes options: ----", {}},
    {"Rows", &B::rows},
    {"Columns", &B::columns},
    {"Horizontal distance", &B::hdist},
    {"Vertical distance", &B::vdist},
    {"Data limit", &B::datalimit},
    {"Dynamic size (bounding rectangle)", &B::dynamicsize},
    {"Structured append", &B::structapp},

    {"  ----- PDF417 options: ----", {}},
    {"Rows", &B::PDFrows},
    {"Columns", &B::PDFcols},
    {"Error correction level", &B::PDFecl},
    {"Row height", &B::PDFrowheight},
    {"PDF417 mode", &B::PDFmode},
    {"Micro PDF417 version", &B::MPDFversion},
    {"Micro PDF417 Mode", &B::MPDFmode},
    {"Segment index", &B::PDFindex},
    {"File id", &B::PDFid},
    {"Last segment", &B::PDFlast},
    {"Filename", &B::PDFfile},
    {"Segment count", &B::PDFcount},
    {"Timestamp", &B::PDFtime},
    {"Sender", &B::PDFsender},
    {"Addressee", &B::PDFaddr},
    {"File size", &B::PDFsize},
    {"Checksum", &B::PDFchecksum},
    {"Row-column ratio", &B::PDFratio},

    {"  ----- DATAMATRIX options: ----", {}},
    {"Size", &B::DMsize},
    {"Format", &B::DMformat},
    {"Enforce binary", &B::DMbinary},
    {"Rectangular", &B::DMrect},
    {"Sum", &B::DMsum},
    {"Index", &B::DMindex},
    {"File id", &B::DMfile},

    {"  ----- MaxiCode options: ", {}},
    {"Mode", &B::MCmode},
    {"Undercut", &B::MCundercut},
    {"Sum", &B::MCsum},
    {"Index", &B::MCindex},
    {"Preamble", &B::MCpre},
    {"Service", &B::MCservice},
    {"Country", &B::MCcountry},
    {"Postal code", &B::MCpostal},

    {"  ----- QRCode options: ----", {}},
    {"Version", &B::QRversion},
    {"Format", &B::QRformat},
    {"Format application indicator", &B::QRind},
    {"Error correction level", &B::QRecl},
    {"Mask pattern", &B::QRmask},
    {"Sum", &B::QRsum},
    {"Index", &B::QRindex},
    {"Parity", &B::QRparity},

    {"  ----- Micro QRCode options: ----", {}},
    {"Version", &B::MQRversion},
    {"Error correction level", &B::MQRecl},
    {"Mask pattern", &B::MQRmask},

    {"  ----- CodaBlock-F options: ----", {}},
    {"Rows", &B::CBrows},
    {"Columns", &B::CBcols},
    {"Row height", &B::CBrowheight},
    {"Row separator height", &B::CBsepheight},
    {"Format", &B::CBformat},

    {"  ----- Aztec Code options: ----", {}},
    {"Size", &B::ACsize},
    {"Enforce binary", &B::ACbinary},
    {"Error correction level", &B::ACecl},
    {"Runes mode", &B::ACrunes},
    {"Format", &B::ACformat},
    {"Format specifier", &B::ACspec},
    {"Structured Append", &B::ACappend},
    {"Sum", &B::ACsum},
    {"Index", &B::ACindex},
    {"Message Id", &B::ACmessage},

    {"  ----- RSS Expanded Stacked options: ----", {}},
    {"Segments per row", &B::RSSseg},
};
// clang-format on

struct LineText {
  const B& settings;
  std::string_view label;

  std::string operator()(std::monostate) const { return Diag::Text(label, '\n'); }
  std::string operator()(std::string B::*field) const {
    return Diag::Text("  ", label, " = ", settings.quoted(settings.*field), '\n');
  }
  template <class Value>
  std::string operator()(Value B::*field) const {
    return Diag::Text("  ", label, " = ", settings.*field, '\n');
  }
};

}  // namespace

std::string BarcodeSettings::printSettings() const {
  std::string dump = "\nBarcode Settings: \n\n";
  for (const DumpLine& line : kLines) dump += std::visit(LineText{*this, line.label}, line.field);
  return dump;
}

}  // namespace Settings
