// What every option that fills a field is expected to take and to refuse: written down on its own,
// so that a slip in the program's tables shows.
#pragma once

#include "diag/Text.h"
#include "settings/AppSettings.h"
#include "settings/BarcodeSettings.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

inline constexpr int kLargest = 2147483647;

template <class Record>
struct Expectation {
  using Field = std::variant<bool Record::*, int Record::*, double Record::*, char Record::*,
                             std::string Record::*>;
  // Texts and the values that they store.
  using Good = std::vector<std::pair<std::string, std::string>>;

  std::string names;  // the long one first, separated by blanks
  Field field;
  std::string message;
  Good good;
  std::vector<std::string> bad;
  int Record::*given = nullptr;  // set to 1 by every good value
  bool flag = false;             // takes no value
};

template <class Record, class Value>
Expectation<Record> Values(std::string names, Value Record::*field, std::string message,
                           typename Expectation<Record>::Good good, std::vector<std::string> bad,
                           int Record::*given = nullptr, bool flag = false) {
  return {
      std::move(names), field, std::move(message), std::move(good), std::move(bad), given, flag};
}

template <class Record, class Value>
Expectation<Record> Flag(std::string names, Value Record::*field) {
  return {std::move(names), field, "", {{"", "1"}}, {}, nullptr, true};
}

template <class Record>
Expectation<Record> Plain(std::string names, std::string Record::*field) {
  return {std::move(names), field, "", {{"", ""}, {"a B=c", "a B=c"}}, {}};
}

template <class Record>
Expectation<Record> FlaggedText(std::string names, std::string Record::*field, int Record::*given) {
  return {std::move(names), field, "", {{"", ""}, {"a B=c", "a B=c"}}, {}, given};
}

template <class Record, class Value>
Expectation<Record> Word(std::string names, Value Record::*field, std::string message,
                         typename Expectation<Record>::Good good) {
  const std::string word = good[0].first;
  return {std::move(names),
          field,
          std::move(message),
          std::move(good),
          {"", "maybe", "5", word + "x", " " + word}};
}

// Without limits any integer; a zero is taken only from a text of zeros and points.
template <class Record>
Expectation<Record> Integer(std::string names, int Record::*field, std::string message) {
  return {std::move(names),
          field,
          std::move(message),
          {{"0", "0"}, {"0.00", "0"}, {"", "0"}, {"7", "7"}, {"-3", "-3"}, {"12abc", "12"}},
          {"x", "-0", " 0", "0mm"}};
}

template <class Record>
Expectation<Record> Integer(std::string names, int Record::*field, std::string message, int low,
                            int high = kLargest) {
  using Diag::Text;
  Expectation<Record> row{std::move(names),
                          field,
                          std::move(message),
                          {{Text(low), Text(low)}, {Text(high, "x"), Text(high)}},
                          {Text(low - 1), "x", "-2147483649"}};
  row.good.emplace_back(Text(high), Text(high));
  if (high < kLargest) row.bad.push_back(Text(high + 1));
  if (low <= 0)
    row.good.emplace_back("0.0", "0");
  else
    row.bad.emplace_back("0.0");
  return row;
}

template <class Record>
Expectation<Record> Real(std::string names, double Record::*field, std::string message) {
  return {std::move(names),
          field,
          std::move(message),
          {{"0", "0"}, {"0.000", "0"}, {"-2.5", "-2.5"}, {"5mm", "5"}, {"1e-3", "0.001"}},
          {"abc", "-0", "0mm", "0.0000001", "nan", "1e999"}};
}

template <class Record>
Expectation<Record> Positive(std::string names, double Record::*field, std::string message) {
  return {std::move(names),
          field,
          std::move(message),
          {{"12abc", "12"}, {"0.0000001", "1e-07"}},
          {"0", "-3", "abc", ""}};
}

template <class Record>
Expectation<Record> NotNegative(std::string names, double Record::*field, std::string message) {
  return {std::move(names),
          field,
          std::move(message),
          {{"2.5", "2.5"}, {"0", "0"}, {"abc", "0"}},
          {"-3", "-0.001"}};
}

template <class Record>
Expectation<Record> Letter(std::string names, char Record::*field, std::string message) {
  return {std::move(names),
          field,
          std::move(message),
          {{"Bxyz", "B"}, {"A", "A"}, {"Z", "Z"}},
          {"a", "@", "[", "1", ""}};
}

inline std::vector<Expectation<Settings::AppSettings>> ExpectedAppOptions() {
  using A = Settings::AppSettings;
  return {
      Values("memory", &A::memorySize, "Size of memory must be a value greater 0.",
             {{"1", "1"}, {"99999", "99999"}}, {"0", "abc", "-5"}),
      Plain("output o", &A::outputFile),
      Plain("inifile", &A::iniFile),
      Real("globalxoffset", &A::globalXOffset, "Invalid global x offset: "),
      Real("globalyoffset", &A::globalYOffset, "Invalid global y offset: "),
      Flag("filter", &A::filter),
      Word("stream", &A::streamType, "Stream type must be 'PS' or 'PCL'.",
           {{"ps", "1"}, {"PCL", "2"}}),
      Plain("escapebegin", &A::escapeBegin),
      Plain("escapeend", &A::escapeEnd),
      Word("insert", &A::insertMode,
           "Insert mode must be 'beforeline', 'afterline', 'beforestring' or 'afterstring'.",
           {{"beforeline", "1"}, {"AFTERLINE", "2"}, {"BeforeString", "3"}, {"afterstring", "4"}}),
      Plain("insertpattern", &A::insertPattern),
      Flag("pclreset", &A::pclReset),
      Flag("SAP S", &A::sap),
      Word("orvella", &A::orvella, "Orvella state must be set to 'on' or 'off'.",
           {{"on", "1"}, {"OFF", "0"}}),
      Flag("v1format", &A::v1format),
      Word("onerror", &A::ignoreBarcodeError, "On-Error-Action must be 'ignore' or 'message'.",
           {{"ignore", "1"}, {"Message", "0"}}),
      Word("onnodata", &A::ignoreNoData, "On-No-Data-Action must be 'ignore' or 'message'.",
           {{"IGNORE", "1"}, {"message", "0"}}),
      Flag("linebyline", &A::lineByLine),
  };
}

inline std::vector<Expectation<Settings::BarcodeSettings>> ExpectedBarcodeOptions() {
  using B = Settings::BarcodeSettings;
  return {
      Plain("data d", &B::data),
      Word("format f", &B::format,
           "Output format must be 'PS', 'PCL', 'PDF', 'PDFFRAG', or 'IMAGE'.",
           {{"PS", "1"}, {"pcl", "2"}, {"IMAGE", "3"}, {"pdf", "4"}, {"PDFFRAG", "5"}}),
      Values("barcode b", &B::barcode, "Invalid barcode type: ",
             {{"1", "1"}, {"-5", "-5"}, {"55x", "55"}}, {"0", "00", "x", ""}),
      Integer("checkdigit c", &B::checkdigit, "Invalid checkdigit method: "),
      Word("compress", &B::compress,
           "Compression algorithm must be 'NONE', 'DEFLATE', 'GZIP' or 'ZLIB'.",
           {{"NONE", "0"}, {"deflate", "1"}, {"GZIP", "2"}, {"zlib", "3"}}),
      Word("autocorrect", &B::autocorrect, "Autocorrect must be set to 'on' or 'off'.",
           {{"ON", "1"}, {"off", "0"}}),
      Word("translation e", &B::translation, "Translation must be set to 'on' or 'off'.",
           {{"ON", "1"}, {"off", "0"}}),
      Real("guardline", &B::guardline, "Invalid guardline width: "),
      Real("bearerwidth", &B::bearerwidth, "Invalid bearer bar width: "),
      Word(
          "bearertype", &B::bearertype,
          "Output bearer bar type must be 'NONE', 'TOPANDBOTTOM', 'RECTANGLE', 'TOP', or 'BOTTOM'.",
          {{"NONE", "0"},
           {"horizontal", "1"},
           {"TOPANDBOTTOM", "1"},
           {"rectangle", "2"},
           {"TOP", "3"},
           {"bottom", "4"}}),
      Real("notchheight", &B::notchheight, "Invalid notch height: "),
      Real("modulewidth m", &B::modulewidth, "Invalid module width: "),
      Values("reduction", &B::reduction, "",
             {{"1.5", "1.5"}, {"-2", "-2"}, {"abc", "0"}, {"nan", "0"}}, {}),
      Word("reductionunit", &B::reductionunit,
           "Bar width reduction unit must be 'PERC', 'MM', 'MILS', or 'INCH'",
           {{"PERC", "6"}, {"mm", "2"}, {"MILS", "3"}, {"inch", "4"}}),
      Plain("printratio", &B::printratio),
      Plain("formatstring", &B::formatstring),
      Flag("optimalwidth O 72dpiraster", &B::optimalwidth),
      Word("quietzoneunit", &B::quietzoneunit,
           "Quiet zone unit must be 'NONE', 'MOD', 'MM', 'MILS', 'INCH', or 'PX'",
           {{"NONE", "0"}, {"mod", "5"}, {"MM", "2"}, {"mils", "3"}, {"INCH", "4"}, {"px", "1"}}),
      NotNegative("quietzoneh", &B::quietzoneh, "Invalid length of horizontal quiet zone: "),
      NotNegative("quietzonev", &B::quietzonev, "Invalid length of vertical quiet zone: "),
      Flag("nooverhead", &B::nooverhead),
      Plain("imageformat i", &B::imageformat),
      Values("dpi", &B::dpi, "Invalid dpi value: ",
             {{"300", "300"}, {"-1", "-1"}, {"0", "0"}, {"0.0000001", "1e-07"}},
             {"abc", "0dpi", "inf"}),
      Values("defaultset", &B::defaultset,
             "Invalid default set number: ", {{"1", "1"}, {"0", "0"}, {"x", "0"}}, {"2", "-1"}),
      Flag("dravlindefaults", &B::defaultset),
      Real("xpos x", &B::xpos, "Invalid x position: "),
      Real("ypos y", &B::ypos, "Invalid y position: "),
      Positive("width w", &B::width, "Invalid barcode width: "),
      Positive("height h", &B::height, "Invalid barcode height: "),
      Word("rot r", &B::rot, "Rotation must be set to '0', '90', '180' or '270'.",
           {{"0", "0"}, {"90", "1"}, {"180", "2"}, {"270", "3"}}),
      Word("origin", &B::origin, "Origin must be set to 'top' or 'bottom'.",
           {{"TOP", "2"}, {"bottom", "1"}}),
      Word("mustfit", &B::mustfit, "'Must fit' flag must be set to 'on' or 'off'.",
           {{"ON", "1"}, {"off", "0"}}),
      Word("decoder", &B::decoder,
           "Decoder must be set to 'Any', 'Hardware', 'Software' or 'Vextorin'.",
           {{"ANY", "0"}, {"hardware", "1"}, {"SOFTWARE", "2"}, {"vextorin", "3"}}),
      Word("sizemode", &B::sizemode,
           "Size mode must be set to 'DEFAULT', 'FIT', 'MODULE' or 'MINIMAL'.",
           {{"DEFAULT", "-1"}, {"fit", "0"}, {"MODULE", "1"}, {"minimal", "2"}}),
      Word("text t", &B::text, "Text position must be set to 'below', 'above' or 'hide'.",
           {{"ABOVE", "1"}, {"below", "2"}, {"HIDE", "3"}}),
      Word("align", &B::align, "Text alignment must be 'DEFAULT', 'LEFT', 'CENTER' or 'RIGHT'.",
           {{"DEFAULT", "0"}, {"left", "1"}, {"RIGHT", "2"}, {"center", "3"}}),
      Word("colormode", &B::colormode, "Color mode must be set to 'CMYK', 'GRAY' or 'RGB'.",
           {{"RGB", "0"}, {"gray", "1"}, {"CMYK", "2"}}),
      Word("pclmode", &B::pclmode, "PCL mode must be set to 'PCL5' (default) or 'PCL5noHPGL'.",
           {{"PCL5", "0"}, {"pcl5nohpgl", "1"}}),
      Integer("fontsize", &B::fontsize, "Invalid font size: "),
      Plain("font", &B::font),
      Real("textdist", &B::textdist, "Invalid text distance: "),
      Flag("trimwhitespaces", &B::trimwhitespaces),
      Flag("initgraphics", &B::initgraphics),
      Flag("movecursor", &B::movecursor),
      Flag("remove", &B::remove),
      Word("embed", &B::embed, "Embedding must be set to 'on' or 'off'.",
           {{"ON", "1"}, {"off", "0"}}),
      Word("pos", &B::pos, "Positioning must be set to 'rel' or 'abs'.",
           {{"REL", "1"}, {"abs", "0"}}),
      Integer("PDFrows", &B::PDFrows, "Invalid number of rows for PDF417: ", 3, 90),
      Integer("PDFcols", &B::PDFcols, "Invalid number of columns for PDF417: ", 1, 30),
      FlaggedText("PDFratio", &B::PDFratio, &B::PDFratioGiven),
      Values("PDFauto", &B::PDFratio, "", {{"", "auto"}}, {}, &B::PDFratioGiven, true),
      Real("PDFrowheight", &B::PDFrowheight, "Invalid row height for PDF417: "),
      Integer("PDFecl", &B::PDFecl, "Invalid error correction level for PDF417: ", 0, 8),
      Integer("PDFmode", &B::PDFmode, "Invalid mode for PDF417: ", 0, 1),
      Integer("MPDFversion", &B::MPDFversion, "Invalid version for Micro PDF417: ", 0, 34),
      Integer("MPDFmode", &B::MPDFmode, "Invalid mode for Micro PDF417: ", 0, 8),
      Integer("PDFindex", &B::PDFindex, "Invalid segment index for PDF417: "),
      FlaggedText("PDFid", &B::PDFid, &B::PDFidGiven),
      Flag("PDFlast", &B::PDFlast),
      FlaggedText("PDFfile", &B::PDFfile, &B::PDFfileGiven),
      Integer("PDFcount", &B::PDFcount, "Invalid segment count for PDF417: "),
      Integer("PDFtime", &B::PDFtime, "Invalid timestamp for PDF417: "),
      FlaggedText("PDFsender", &B::PDFsender, &B::PDFsenderGiven),
      FlaggedText("PDFaddr", &B::PDFaddr, &B::PDFaddrGiven),
      Integer("PDFsize", &B::PDFsize, "Invalid filesize for PDF417: "),
      Integer("PDFchecksum", &B::PDFchecksum, "Invalid checksum for PDF417: "),
      Integer("DMsize", &B::DMsize, "Invalid size for DATAMATRIX: ", 0, 30),
      Integer("DMformat", &B::DMformat, "Invalid format for DATAMATRIX: ", 0, 5),
      Flag("DMbinary", &B::DMbinary),
      Flag("DMrect", &B::DMrect),
      Integer("DMsum", &B::DMsum, "Invalid sum (structured append) for DATAMATRIX: ", 2, 16),
      Integer("DMindex", &B::DMindex, "Invalid index (structured append) for DATAMATRIX: ", 1, 16),
      Integer("DMfile", &B::DMfile, "Invalid file id (structured append) for DATAMATRIX: "),
      Integer("MCmode", &B::MCmode, "Invalid mode for MaxiCode: ", 2, 5),
      Integer("MCundercut", &B::MCundercut, "Invalid undercut of hexagon for MaxiCode: ", 0, 100),
      FlaggedText("MCpre", &B::MCpre, &B::MCpreGiven),
      Integer("MCsum", &B::MCsum, "Invalid sum (structured append) for MaxiCode: ", 2, 8),
      Integer("MCindex", &B::MCindex, "Invalid index (structured append) for MaxiCode: ", 1, 8),
      FlaggedText("MCservice", &B::MCservice, &B::MCserviceGiven),
      FlaggedText("MCcountry", &B::MCcountry, &B::MCcountryGiven),
      FlaggedText("MCpostal", &B::MCpostal, &B::MCpostalGiven),
      Integer("QRversion", &B::QRversion, "Invalid version for QRCode: ", 0, 40),
      Integer("MQRversion", &B::MQRversion, "Invalid version for Micro QRCode: ", 0, 4),
      Integer("QRformat", &B::QRformat, "Invalid format for QRCode: ", 0, 2),
      FlaggedText("QRind", &B::QRind, &B::QRindGiven),
      Integer("QRecl", &B::QRecl, "Invalid error correction level for QRCode: ", 0, 3),
      Integer("MQRecl", &B::MQRecl, "Invalid error correction level for Micro QRCode: ", 0, 3),
      Integer("QRmask", &B::QRmask, "Invalid mask pattern for QRCode: ", -1, 7),
      Integer("MQRmask", &B::MQRmask, "Invalid mask pattern for Micro QRCode: ", -1, 3),
      Integer("QRsum", &B::QRsum, "Invalid sum (structured append) for QRCode: ", 2, 16),
      Integer("QRindex", &B::QRindex, "Invalid index (structured append) for QRCode: ", 1, 16),
      Integer("QRparity", &B::QRparity, "Invalid parity (structured append) for QRCode: ", 0, 255),
      Integer("CBrows", &B::CBrows, "Invalid number of rows for Codablock-F: ", 2, 44),
      Integer("CBcols", &B::CBcols, "Invalid number of columns for Codablock-F: ", 4, 62),
      Real("CBrowheight", &B::CBrowheight, "Invalid row height for Codablock-F: "),
      Real("CBsepheight", &B::CBsepheight, "Invalid row-separator height for Codablock-F: "),
      Integer("CBformat", &B::CBformat, "Invalid format for Codablock-F: ", 0, 1),
      Integer("ACsize", &B::ACsize, "Invalid size for Aztec Code: ", 0, 36),
      Flag("ACbinary", &B::ACbinary),
      Flag("ACrunes", &B::ACrunes),
      Values("ACecl", &B::ACecl, "Invalid error correction level for Aztec Code: ",
             {{"0", "0"},
              {"89", "89"},
              {"95", "95"},
              {"23.9", "23"},
              {"-1.5", "-1"},
              {"1e300", "2147483647"}},
             {"0.5", "-0.9", "x"}),
      Flag("ACappend", &B::ACappend),
      Integer("ACformat", &B::ACformat, "Invalid format for Aztec Code: ", 0, 2),
      FlaggedText("ACspec", &B::ACspec, &B::ACspecGiven),
      Letter("ACsum", &B::ACsum, "Invalid sum (structured append) for Aztec Code: "),
      Letter("ACindex", &B::ACindex, "Invalid index (structured append) for Aztec Code: "),
      FlaggedText("ACmessage", &B::ACmessage, &B::ACmessageGiven),
      Integer("RSSseg", &B::RSSseg, "Invalid segments per row (RSS Expanded Stacked): ", 2, 22),
      Word("CCtype", &B::CCtype,
           "Composite component type must be set to 'none', 'auto', 'A', 'B' or 'C'.",
           {{"NONE", "0"}, {"auto", "1"}, {"A", "2"}, {"b", "3"}, {"C", "4"}}),
      Word("multiple", &B::multiple, "'Multiple' must be set to 'on' or 'off'.",
           {{"ON", "1"}, {"off", "0"}}),
      Integer("rows", &B::rows, "Invalid number of rows (multiple barcodes): ", 1),
      Integer("columns", &B::columns, "Invalid number of columns (multiple barcodes): ", 1),
      Real("hdist", &B::hdist, "Invalid horizontal distance (multiple barcodes): "),
      Real("vdist", &B::vdist, "Invalid vertical distance (multiple barcodes): "),
      Integer("datalimit", &B::datalimit, "Invalid data limit (multiple barcodes): ", 1),
      Word("dynamicsize", &B::dynamicsize,
           "Dynamic size for multiple barcodes must be set to 'none', 'horizontal', or 'vertical'.",
           {{"NONE", "0"}, {"horizontal", "1"}, {"VERTICAL", "2"}}),
      Word("structapp", &B::structapp,
           "Structured append of multiple barcodes must be set to 'none', 'standard', or "
           "'vextorin'.",
           {{"NONE", "0"}, {"standard", "1"}, {"VEXTORIN", "2"}}),
      Word("bkmode", &B::bkmode, "Background mode must be set to 'transparent' or 'opaque'.",
           {{"Transparent", "1"}, {"OPAQUE", "2"}}),
  };
}
