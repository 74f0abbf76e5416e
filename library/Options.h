// Everything that the setters of one barcode object store. Nothing here is interpreted before
// BCCreate. -1, 0 or an empty text mean "use the default" as noted; lengths are thousandths of a
// millimetre.
#pragma once

#include "engine/library/vextorin9.h"

#include <cstdint>
#include <string>

namespace Library {

struct Color {
  double components[4] = {0, 0, 0, 0};  // RGB, one grey level, or CMYK: as the colour mode says
};

struct Pdf417Options {
  int rows = -1, columns = -1, ecLevel = -1, mode = 0;
  std::int32_t rowHeight = -1;
  std::string ratio;
  int segIndex = -1, segCount = -1, timeStamp = -1, fileSize = -1, checkSum = -1, segLast = -1;
  std::string fileId, fileName, sender, addressee;
  int microVersion = 0, microMode = 0;
};

struct MaxiOptions {
  int mode = -1, underCut = -1, appendSum = -1, appendIndex = -1;
  std::string service, country, postal, preamble;
  bool usePreamble = false;
};

struct QrOptions {
  int version = 0, format = 0, ecLevel = 1, mask = -1;
  int appendSum = -1, appendIndex = -1, appendParity = -1;
  std::string indicator;
  int microVersion = 0, microMask = -1;
};

struct DataMatrixOptions {
  int size = 0, format = 0;
  bool binary = false, rectangular = false;
  int appendSum = -1, appendIndex = -1, appendFileId = -1;
};

struct CodablockOptions {
  int rows = -1, columns = -1, format = 0;
  std::int32_t rowHeight = -1, separatorHeight = -1;
};

struct AztecOptions {
  int size = 0, format = 0, errorCorrection = -1;
  bool binary = false, runes = false, append = false;
  std::string formatSpecifier, messageId;
  char appendSum = 'A', appendIndex = 'A';
};

// In a structured append; symbologies with options of their own for it go by those.
struct PlaceInMessage {
  int index = 1, count = 1;  // index from 1; count 1: alone
};

struct GridOptions {
  bool enabled = false;
  int rows = -1, columns = -1, dataLimit = -1, growth = 0, structuredAppend = 0;
  std::int32_t horizontalDistance = -1, verticalDistance = -1;
};

// How a symbol is measured, laid out and coloured; none of it is encoded.
struct LayoutOptions {
  // Bars
  int bearerBarType = 0;  // 0 none, 1 top and bottom, 2 rectangle, 3 top, 4 bottom
  std::int32_t bearerBarWidth = -1;
  std::int32_t notchHeight = -1;
  double moduleWidth = -1;  // thousandths of a millimetre, -1: not set
  double reduction = 0;
  int reductionUnit = 0;  // 0 or 6 percent of X, 2 mm, 3 mils, 4 inch
  std::string ratio;

  // Size
  double dpiX = 72, dpiY = 72;
  bool dpiIsReal = false;  // the output has these dots, whatever their number
  bool endsAtBox = false;  // the output shows nothing beyond the rectangle
  bool optimalResolution = false;
  BCMargins quietZone = {0, 0, 0, 0};
  int quietZoneUnit = 0;  // 0 none, 1 pixel, 2 mm, 3 mils, 4 inch, 5 modules
  bool mustFit = false;
  int decoder = 0;    // 0 any, 1 hardware, 2 software, 3 own
  int sizeMode = -1;  // -1 not set, 0 fit, 1 module width, 2 minimal
  int rotation = 0;   // quarter turns counter-clockwise

  // Text
  int printText = -1;  // -1: as the symbology has it, 0 hidden, 1 shown
  bool textAbove = false;
  int textAlignment = 0;  // 0 default, 1 left, 2 right, 3 centre
  int fontHeight = -1;    // points
  std::string fontName;
  std::int32_t textDistance = -1;

  // Colours
  int colorMode = 0;  // 0 RGB, 1 grey, 2 CMYK
  Color barcodeColor, fontColor;
  Color background = {{1, 1, 1, 0}};
  int backgroundMode = 2;  // 1 transparent, 2 opaque

  int pclMode = 0;
};

struct Options : LayoutOptions {
  int type = 20;
  std::string data;

  // Data preparation
  int compression = 0;  // 0 none, 1 raw deflate, 2 gzip, 3 zlib
  int checkDigitMethod = 1;
  int autoCorrect = -1;
  bool translateEscapes = false;
  std::string format;

  int eci = 0;  // Extended Channel Interpretation of the data, 0: none

  PlaceInMessage placeInMessage;

  int compositeType = 0;  // 0 none, 1 auto, 2 A, 3 B, 4 C
  int segmentsPerRow = -1;

  Pdf417Options pdf417;
  MaxiOptions maxi;
  QrOptions qr;
  DataMatrixOptions dataMatrix;
  CodablockOptions codablock;
  AztecOptions aztec;
  GridOptions grid;
};

}  // namespace Library
