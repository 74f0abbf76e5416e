// What every option that fills a field is expected to take and to refuse: written down on its own,
// so that a slip in the program's tables shows.
#pragma once

#include "settings/AppSettings.h"
#include "settings/BarcodeSettings.h"
#include "tests/program/Observed.h"

#include <climits>
#include <string>
#include <utility>
#include <variant>
#include <vector>

// Texts parted by "|": those taken, each with the value it stores behind ">", and those refused.
struct Values {
  // Those of a text option unless others are given.
  Values(const std::string& taken = ">|a B=c>a B=c", const std::string& refused = "")
      : bad(Split(refused, '|')) {
    for (const std::string& part : Split(taken, '|'))
      good.emplace_back(part.substr(0, part.find('>')), part.substr(part.find('>') + 1));
  }
  std::vector<std::pair<std::string, std::string>> good;
  Texts bad;
};

inline const Values kText;
inline const Values kFlag(">1");  // takes no value
// Any integer; a zero is taken only from a text of zeros and points.
inline const Values kInteger("0>0|0.00>0|>0|7>7|-3>-3|12abc>12", "x|-0| 0|0mm");
inline const Values kReal("0>0|0.000>0|-2.5>-2.5|5mm>5|1e-3>0.001",
                          "abc|-0|0mm|0.0000001|nan|1e999");
inline const Values kPositive("12abc>12|0.0000001>1e-07", "0|-3|abc||");
inline const Values kNotNegative("2.5>2.5|0>0|abc>0", "-3|-0.001");
inline const Values kLetter("Bxyz>B|A>A|Z>Z", "a|@|[|1||");

inline Values Words(const std::string& taken) {
  const std::string word = taken.substr(0, taken.find('>'));
  return {taken, "|maybe|5|" + word + "x| " + word};
}
inline const Values kOnOff = Words("ON>1|off>0");

inline Values InRange(int low, int high = INT_MAX) {
  const std::string lowest = std::to_string(low), highest = std::to_string(high);
  const std::string zero = low > 0 ? "" : "|0.0>0";
  const std::string beyond = high < INT_MAX ? "|" + std::to_string(high + 1) : "";
  return {lowest + '>' + lowest + '|' + highest + "x>" + highest + zero,
          std::to_string(low - 1) + "|x|-2147483649" + beyond + (low > 0 ? "|0.0" : "")};
}

template <class Record>
struct Expectation {
  std::string names;  // the long one first, separated by blanks
  std::variant<bool Record::*, int Record::*, double Record::*, char Record::*,
               std::string Record::*>
      field;
  std::string message;
  Values values;
  int Record::*given = nullptr;  // set to 1 by every good value

  bool isFlag() const { return values.good.size() == 1 && values.good[0].first.empty(); }
};

inline std::vector<Expectation<Settings::AppSettings>> ExpectedAppOptions() {
  using A = Settings::AppSettings;
  return {
      {"memory", &A::memorySize, "Size of memory must be a value greater 0.",
       Values("1>1|99999>99999", "0|abc|-5")},
      {"output o", &A::outputFile, "", kText},
      {"inifile", &A::iniFile, "", kText},
      {"globalxoffset", &A::globalXOffset, "Invalid global x offset: ", kReal},
      {"globalyoffset", &A::globalYOffset, "Invalid global y offset: ", kReal},
      {"filter", &A::filter, "", kFlag},
      {"stream", &A::streamType, "Stream type must be 'PS' or 'PCL'.", Words("ps>1|PCL>2")},
      {"escapebegin", &A::escapeBegin, "", kText},
      {"escapeend", &A::escapeEnd, "", kText},
      {"insert", &A::insertMode,
       "Insert mode must be 'beforeline', 'afterline', 'beforestring' or 'afterstring'.",
       Words("beforeline>1|AFTERLINE>2|BeforeString>3|afterstring>4|Auto>5")},
      {"insertpattern", &A::insertPattern, "", kText},
      {"pclreset", &A::pclReset, "", kFlag},
      {"SAP S", &A::sap, "", kFlag},
      {"orvella", &A::orvella, "Orvella state must be set to 'on' or 'off'.", kOnOff},
      {"v1format", &A::v1format, "", kFlag},
      {"onerror", &A::ignoreBarcodeError, "On-Error-Action must be 'ignore' or 'message'.",
       Words("ignore>1|Message>0")},
      {"onnodata", &A::ignoreNoData, "On-No-Data-Action must be 'ignore' or 'message'.",
       Words("IGNORE>1|message>0")},
      {"linebyline", &A::lineByLine, "", kFlag},
      {"jobfiles", &A::jobFiles, "Job files must be set to 'allow' or 'deny'.",
       Words("deny>0|ALLOW>1")},
  };
}

inline std::vector<Expectation<Settings::BarcodeSettings>> ExpectedBarcodeOptions() {
  using B = Settings::BarcodeSettings;
  return {
      {"data d", &B::data, "", kText},
      {"format f", &B::format, "Output format must be 'PS', 'PCL', 'PDF', 'PDFFRAG', or 'IMAGE'.",
       Words("PS>1|pcl>2|IMAGE>3|pdf>4|PDFFRAG>5")},
      {"barcode b", &B::barcode, "Invalid barcode type: ", Values("1>1|-5>-5|55x>55", "0|00|x||")},
      {"checkdigit c", &B::checkdigit, "Invalid checkdigit method: ", kInteger},
      {"compress", &B::compress,
       "Compression algorithm must be 'NONE', 'DEFLATE', 'GZIP' or 'ZLIB'.",
       Words("NONE>0|deflate>1|GZIP>2|zlib>3")},
      {"autocorrect", &B::autocorrect, "Autocorrect must be set to 'on' or 'off'.", kOnOff},
      {"translation e", &B::translation, "Translation must be set to 'on' or 'off'.", kOnOff},
      {"eci", &B::eci,
       "Invalid ECI number: ", Values("0>0|3>3|26>26|999999>999999", "1|2|-1|1000000")},
      {"guardline", &B::guardline, "Invalid guardline width: ", kReal},
      {"bearerwidth", &B::bearerwidth, "Invalid bearer bar width: ", kReal},
      {"bearertype", &B::bearertype,
       "Output bearer bar type must be 'NONE', 'TOPANDBOTTOM', 'RECTANGLE', 'TOP', or 'BOTTOM'.",
       Words("NONE>0|horizontal>1|TOPANDBOTTOM>1|rectangle>2|TOP>3|bottom>4")},
      {"notchheight", &B::notchheight, "Invalid notch height: ", kReal},
      {"modulewidth m", &B::modulewidth, "Invalid module width: ", kReal},
      {"reduction", &B::reduction, "", Values("1.5>1.5|-2>-2|abc>0|nan>0", "")},
      {"reductionunit", &B::reductionunit,
       "Bar width reduction unit must be 'PERC', 'MM', 'MILS', or 'INCH'",
       Words("PERC>6|mm>2|MILS>3|inch>4")},
      {"printratio", &B::printratio, "", kText},
      {"formatstring", &B::formatstring, "", kText},
      {"optimalwidth O 72dpiraster", &B::optimalwidth, "", kFlag},
      {"quietzoneunit", &B::quietzoneunit,
       "Quiet zone unit must be 'NONE', 'MOD', 'MM', 'MILS', 'INCH', or 'PX'",
       Words("NONE>0|mod>5|MM>2|mils>3|INCH>4|px>1")},
      {"quietzoneh", &B::quietzoneh, "Invalid length of horizontal quiet zone: ", kNotNegative},
      {"quietzonev", &B::quietzonev, "Invalid length of vertical quiet zone: ", kNotNegative},
      {"nooverhead", &B::nooverhead, "", kFlag},
      {"imageformat i", &B::imageformat, "", kText},
      {"dpi", &B::dpi,
       "Invalid dpi value: ", Values("300>300|-1>-1|0>0|0.0000001>1e-07", "abc|0dpi|inf")},
      {"defaultset", &B::defaultset, "Invalid default set number: ", Values("1>1|0>0|x>0", "2|-1")},
      {"dravlindefaults", &B::defaultset, "", kFlag},
      {"xpos x", &B::xpos, "Invalid x position: ", kReal},
      {"ypos y", &B::ypos, "Invalid y position: ", kReal},
      {"width w", &B::width, "Invalid barcode width: ", kPositive},
      {"height h", &B::height, "Invalid barcode height: ", kPositive},
      {"rot r", &B::rot, "Rotation must be set to '0', '90', '180' or '270'.",
       Words("0>0|90>1|180>2|270>3")},
      {"origin", &B::origin, "Origin must be set to 'top' or 'bottom'.", Words("TOP>2|bottom>1")},
      {"mustfit", &B::mustfit, "'Must fit' flag must be set to 'on' or 'off'.", kOnOff},
      {"decoder", &B::decoder,
       "Decoder must be set to 'Any', 'Hardware', 'Software' or 'Vextorin'.",
       Words("ANY>0|hardware>1|SOFTWARE>2|vextorin>3")},
      {"sizemode", &B::sizemode,
       "Size mode must be set to 'DEFAULT', 'FIT', 'MODULE' or 'MINIMAL'.",
       Words("DEFAULT>-1|fit>0|MODULE>1|minimal>2")},
      {"text t", &B::text, "Text position must be set to 'below', 'above' or 'hide'.",
       Words("ABOVE>1|below>2|HIDE>3")},
      {"align", &B::align, "Text alignment must be 'DEFAULT', 'LEFT', 'CENTER' or 'RIGHT'.",
       Words("DEFAULT>0|left>1|RIGHT>2|center>3")},
      {"colormode", &B::colormode, "Color mode must be set to 'CMYK', 'GRAY' or 'RGB'.",
       Words("RGB>0|gray>1|CMYK>2")},
      {"pclmode", &B::pclmode, "PCL mode must be set to 'PCL5' (default) or 'PCL5noHPGL'.",
       Words("PCL5>0|pcl5nohpgl>1")},
      {"fontsize", &B::fontsize, "Invalid font size: ", kInteger},
      {"font", &B::font, "", kText},
      {"textdist", &B::textdist, "Invalid text distance: ", kReal},
      {"trimwhitespaces", &B::trimwhitespaces, "", kFlag},
      {"initgraphics", &B::initgraphics, "", kFlag},
      {"movecursor", &B::movecursor, "", kFlag},
      {"remove", &B::remove, "", kFlag},
      {"embed", &B::embed, "Embedding must be set to 'on' or 'off'.", kOnOff},
      {"pos", &B::pos, "Positioning must be set to 'rel' or 'abs'.", Words("REL>1|abs>0")},
      {"PDFrows", &B::PDFrows, "Invalid number of rows for PDF417: ", InRange(3, 90)},
      {"PDFcols", &B::PDFcols, "Invalid number of columns for PDF417: ", InRange(1, 30)},
      {"PDFratio", &B::PDFratio, "", kText, &B::PDFratioGiven},
      {"PDFauto", &B::PDFratio, "", Values(">auto", ""), &B::PDFratioGiven},
      {"PDFrowheight", &B::PDFrowheight, "Invalid row height for PDF417: ", kReal},
      {"PDFecl", &B::PDFecl, "Invalid error correction level for PDF417: ", InRange(0, 8)},
      {"PDFmode", &B::PDFmode, "Invalid mode for PDF417: ", InRange(0, 1)},
      {"MPDFversion", &B::MPDFversion, "Invalid version for Micro PDF417: ", InRange(0, 34)},
      {"MPDFmode", &B::MPDFmode, "Invalid mode for Micro PDF417: ", InRange(0, 8)},
      {"PDFindex", &B::PDFindex, "Invalid segment index for PDF417: ", kInteger},
      {"PDFid", &B::PDFid, "", kText, &B::PDFidGiven},
      {"PDFlast", &B::PDFlast, "", kFlag},
      {"PDFfile", &B::PDFfile, "", kText, &B::PDFfileGiven},
      {"PDFcount", &B::PDFcount, "Invalid segment count for PDF417: ", kInteger},
      {"PDFtime", &B::PDFtime, "Invalid timestamp for PDF417: ", kInteger},
      {"PDFsender", &B::PDFsender, "", kText, &B::PDFsenderGiven},
      {"PDFaddr", &B::PDFaddr, "", kText, &B::PDFaddrGiven},
      {"PDFsize", &B::PDFsize, "Invalid filesize for PDF417: ", kInteger},
      {"PDFchecksum", &B::PDFchecksum, "Invalid checksum for PDF417: ", kInteger},
      {"DMsize", &B::DMsize, "Invalid size for DATAMATRIX: ", InRange(0, 30)},
      {"DMformat", &B::DMformat, "Invalid format for DATAMATRIX: ", InRange(0, 5)},
      {"DMbinary", &B::DMbinary, "", kFlag},
      {"DMrect", &B::DMrect, "", kFlag},
      {"DMsum", &B::DMsum, "Invalid sum (structured append) for DATAMATRIX: ", InRange(2, 16)},
      {"DMindex", &B::DMindex,
       "Invalid index (structured append) for DATAMATRIX: ", InRange(1, 16)},
      {"DMfile", &B::DMfile, "Invalid file id (structured append) for DATAMATRIX: ", kInteger},
      {"MCmode", &B::MCmode, "Invalid mode for MaxiCode: ", InRange(2, 5)},
      {"MCundercut", &B::MCundercut, "Invalid undercut of hexagon for MaxiCode: ", InRange(0, 100)},
      {"MCpre", &B::MCpre, "", kText, &B::MCpreGiven},
      {"MCsum", &B::MCsum, "Invalid sum (structured append) for MaxiCode: ", InRange(2, 8)},
      {"MCindex", &B::MCindex, "Invalid index (structured append) for MaxiCode: ", InRange(1, 8)},
      {"MCservice", &B::MCservice, "", kText, &B::MCserviceGiven},
      {"MCcountry", &B::MCcountry, "", kText, &B::MCcountryGiven},
      {"MCpostal", &B::MCpostal, "", kText, &B::MCpostalGiven},
      {"QRversion", &B::QRversion, "Invalid version for QRCode: ", InRange(0, 40)},
      {"MQRversion", &B::MQRversion, "Invalid version for Micro QRCode: ", InRange(0, 4)},
      {"QRformat", &B::QRformat, "Invalid format for QRCode: ", InRange(0, 2)},
      {"QRind", &B::QRind, "", kText, &B::QRindGiven},
      {"QRecl", &B::QRecl, "Invalid error correction level for QRCode: ", InRange(0, 3)},
      {"MQRecl", &B::MQRecl, "Invalid error correction level for Micro QRCode: ", InRange(0, 3)},
      {"QRmask", &B::QRmask, "Invalid mask pattern for QRCode: ", InRange(-1, 7)},
      {"MQRmask", &B::MQRmask, "Invalid mask pattern for Micro QRCode: ", InRange(-1, 3)},
      {"QRsum", &B::QRsum, "Invalid sum (structured append) for QRCode: ", InRange(2, 16)},
      {"QRindex", &B::QRindex, "Invalid index (structured append) for QRCode: ", InRange(1, 16)},
      {"QRparity", &B::QRparity,
       "Invalid parity (structured append) for QRCode: ", InRange(0, 255)},
      {"CBrows", &B::CBrows, "Invalid number of rows for Codablock-F: ", InRange(2, 44)},
      {"CBcols", &B::CBcols, "Invalid number of columns for Codablock-F: ", InRange(4, 62)},
      {"CBrowheight", &B::CBrowheight, "Invalid row height for Codablock-F: ", kReal},
      {"CBsepheight", &B::CBsepheight, "Invalid row-separator height for Codablock-F: ", kReal},
      {"CBformat", &B::CBformat, "Invalid format for Codablock-F: ", InRange(0, 1)},
      {"ACsize", &B::ACsize, "Invalid size for Aztec Code: ", InRange(0, 36)},
      {"ACbinary", &B::ACbinary, "", kFlag},
      {"ACrunes", &B::ACrunes, "", kFlag},
      {"ACecl", &B::ACecl, "Invalid error correction level for Aztec Code: ",
       Values("0>0|89>89|95>95|23.9>23|-1.5>-1|1e300>2147483647", "0.5|-0.9|x")},
      {"ACappend", &B::ACappend, "", kFlag},
      {"ACformat", &B::ACformat, "Invalid format for Aztec Code: ", InRange(0, 2)},
      {"ACspec", &B::ACspec, "", kText, &B::ACspecGiven},
      {"ACsum", &B::ACsum, "Invalid sum (structured append) for Aztec Code: ", kLetter},
      {"ACindex", &B::ACindex, "Invalid index (structured append) for Aztec Code: ", kLetter},
      {"ACmessage", &B::ACmessage, "", kText, &B::ACmessageGiven},
      {"RSSseg", &B::RSSseg, "Invalid segments per row (RSS Expanded Stacked): ", InRange(2, 22)},
      {"CCtype", &B::CCtype,
       "Composite component type must be set to 'none', 'auto', 'A', 'B' or 'C'.",
       Words("NONE>0|auto>1|A>2|b>3|C>4")},
      {"multiple", &B::multiple, "'Multiple' must be set to 'on' or 'off'.", kOnOff},
      {"rows", &B::rows, "Invalid number of rows (multiple barcodes): ", InRange(1)},
      {"columns", &B::columns, "Invalid number of columns (multiple barcodes): ", InRange(1)},
      {"hdist", &B::hdist, "Invalid horizontal distance (multiple barcodes): ", kReal},
      {"vdist", &B::vdist, "Invalid vertical distance (multiple barcodes): ", kReal},
      {"datalimit", &B::datalimit, "Invalid data limit (multiple barcodes): ", InRange(1)},
      {"dynamicsize", &B::dynamicsize,
       "Dynamic size for multiple barcodes must be set to 'none', 'horizontal', or 'vertical'.",
       Words("NONE>0|horizontal>1|VERTICAL>2")},
      {"structapp", &B::structapp,
       "Structured append of multiple barcodes must be set to 'none', 'standard', or 'vextorin'.",
       Words("NONE>0|standard>1|VEXTORIN>2")},
      {"bkmode", &B::bkmode, "Background mode must be set to 'transparent' or 'opaque'.",
       Words("Transparent>1|OPAQUE>2")},
  };
}
