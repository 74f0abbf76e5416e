// Every parameter of one barcode, or of one grid of barcodes.
//
// A field bears the name of the long option that sets it. Not set is -1 for integers, -1.0 for
// lengths, 0 for most enumerations, and a companion flag `...Given` for texts whose empty value is
// legal. Only set values are passed to the barcode library. Lengths are millimetres.
#pragma once

#include "settings/Settings.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Settings {

enum OutputFormat : int {
  kFormatNotSet = 0,
  kFormatPostScript = 1,
  kFormatPcl = 2,
  kFormatImage = 3,
  kFormatPdf = 4,
  kFormatPdfFragment = 5,
};
enum Origin : int { kOriginNotSet = 0, kOriginBottom = 1, kOriginTop = 2 };
enum TextPosition : int { kTextNotSet = 0, kTextAbove = 1, kTextBelow = 2, kTextHide = 3 };
enum EscapeTextOperation : int { kRemoveSequence = 1, kBlankSequence = 2 };
// One numbering for quiet zones and bar width reductions.
enum LengthUnit : int {
  kUnitNone = 0,
  kUnitPixel = 1,
  kUnitMillimetre = 2,
  kUnitMils = 3,
  kUnitInch = 4,
  kUnitModule = 5,
  kUnitPercent = 6,
};

class BarcodeSettings : public Settings {
 public:
  std::string printSettings() const override;
  void printUsage() const override;
  Diag::ResultCode readOptions(Parser::ArgumentParser& parser) override;

  // Applies one option, taking its value from the source that delivered the name. A bad value or
  // an unknown name is kInvalidArgument, a missing value kNothingLeft, an unreadable data file
  // kAccessDenied; a barcode settings file passes its own failure up.
  Diag::ResultCode handleOption(const std::string& name, Parser::ArgumentParser& source);

  // Fills in the customary sizes of the symbology for what is still unset.
  void applyDefaultSet();

  // General
  std::string data;
  int format = kFormatNotSet;
  int barcode = 20;  // the library's type number, never 0; 20 is Code 128
  int checkdigit = 1;
  int autocorrect = -1;
  int eci = 0;  // Extended Channel Interpretation, 0: none
  int translation = 1;
  double guardline = 0.0;    // deprecated form of the bearer bar width; 0: none
  double bearerwidth = 0.0;  // 0: none
  int bearertype = 0;        // 0 none, 1 top and bottom, 2 rectangle, 3 top, 4 bottom
  double notchheight = -1.0;
  double modulewidth = -1.0;
  std::string printratio;    // "1:2:1:3"
  std::string formatstring;  // "A##B&"
  int optimalwidth = -1;
  int quietzoneunit = kUnitNone;
  double quietzoneh = 0.0;     // in quietzoneunit
  double quietzonev = 0.0;     // in quietzoneunit
  double quietzonehV1 = -1.0;  // millimetres, from the version-1 syntax
  double quietzonevV1 = -1.0;
  int nooverhead = 0;
  std::string imageformat = "BMP";
  double dpi = 72.0;
  int compress = 0;  // 0 none, 1 deflate, 2 gzip, 3 zlib
  double reduction = 0.0;
  int reductionunit = kUnitNone;  // not set, mm, mils, inch or percent

  // Position and size
  double xpos = 0.0;
  double ypos = 0.0;
  double width = -1.0;
  double height = -1.0;
  int rot = 0;  // quarter turns counter-clockwise
  int origin = kOriginNotSet;
  bool mustfit = false;
  int decoder = 1;    // 0 any, 1 hardware, 2 software, 3 own
  int sizemode = -1;  // -1 default, 0 fit, 1 module, 2 minimal
  int colormode = 0;  // 0 RGB, 1 grey, 2 CMYK
  int bkmode = 2;     // 1 transparent, 2 opaque
  int pclmode = 0;    // 0 PCL5, 1 PCL5 without HP-GL/2

  // Text
  int text = kTextNotSet;
  int fontsize = -1;  // points
  std::string font;
  double textdist = -1.0;
  int trimwhitespaces = 0;
  int align = 0;  // 0 default, 1 left, 2 right, 3 centre

  // Filtering
  int initgraphics = 0;
  int movecursor = 0;
  int remove = kBlankSequence;
  // The filter has found the place of the sequence's text: a relative barcode is drawn there.
  bool drawnAtText = false;
  int embed = -1;
  int pos = -1;  // 0 absolute, 1 relative

  // PDF417, Micro PDF417, Macro PDF417
  int PDFrows = -1;
  int PDFcols = -1;
  int PDFecl = -1;
  double PDFrowheight = -1.0;
  int PDFmode = 0;
  int MPDFversion = 0;
  int MPDFmode = 0;
  int PDFindex = -1;
  std::string PDFid;
  int PDFidGiven = 0;
  int PDFlast = -1;
  std::string PDFfile;
  int PDFfileGiven = 0;
  int PDFcount = -1;
  int PDFtime = -1;
  std::string PDFsender;
  int PDFsenderGiven = 0;
  std::string PDFaddr;
  int PDFaddrGiven = 0;
  int PDFsize = -1;
  int PDFchecksum = -1;
  std::string PDFratio;
  int PDFratioGiven = 0;

  // Data Matrix
  int DMsize = 0;
  int DMformat = 0;
  int DMbinary = 0;
  int DMrect = 0;
  int DMsum = -1;
  int DMindex = -1;
  int DMfile = -1;

  // MaxiCode
  int MCmode = -1;
  int MCundercut = -1;  // percent
  int MCsum = -1;
  int MCindex = -1;
  std::string MCpre;
  int MCpreGiven = 0;
  std::string MCservice;
  int MCserviceGiven = 0;
  std::string MCcountry;
  int MCcountryGiven = 0;
  std::string MCpostal;
  int MCpostalGiven = 0;

  // QR Code, Micro QR Code
  int QRversion = 0;
  int QRformat = 0;
  std::string QRind;
  int QRindGiven = 0;
  int QRecl = 1;
  int QRmask = -1;
  int QRsum = -1;
  int QRindex = -1;
  int QRparity = -1;
  int MQRversion = 0;
  int MQRecl = 1;
  int MQRmask = -1;

  // Codablock-F
  int CBrows = -1;
  int CBcols = -1;
  double CBrowheight = -1.0;
  double CBsepheight = -1.0;
  int CBformat = 0;

  // Aztec Code
  int ACsize = 0;
  int ACbinary = 0;
  int ACecl = -1;  // percent
  int ACrunes = 0;
  int ACformat = 0;
  std::string ACspec;
  int ACspecGiven = 0;
  int ACappend = 0;
  char ACsum = 'A';
  char ACindex = 'A';
  std::string ACmessage;
  int ACmessageGiven = 0;

  // RSS Expanded Stacked, composite component
  int RSSseg = -1;
  int CCtype = 0;  // 0 none, 1 auto, 2 A, 3 B, 4 C

  // When true, a missing argument of `data` fails without a report.
  bool suppressArgumentReport = false;
  bool defaultset = false;
  // Where the option that failed stands, as messages name it, if that is a barcode settings file.
  std::string failurePlace;
  std::size_t fileCost = 0;  // of the files read so far for a job's settings, see BarcodeFiles.h

  // Grid of barcodes
  bool multiple = false;
  int rows = -1;
  int columns = -1;
  double hdist = -1.0;
  double vdist = -1.0;
  int datalimit = -1;   // bytes a symbol
  int dynamicsize = 0;  // 0 none, 1 horizontal, 2 vertical
  int structapp = 0;    // 0 none, 1 the symbology's own, 2 VEXTORIN
};

}  // namespace Settings
