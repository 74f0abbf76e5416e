// A fixed text: scripts compare it whole, slips included ("trasparent", "Replace by"). Descriptions
// stand in the 29th column. Ranges are those of the symbologies; the option table has those
// enforced.
#include "settings/HelpText.h"

namespace Settings {

constexpr std::string_view kHelpText =
    R"help(Available barcode settings: 

Usage: vextorin [OPTION] ... [FILE] ...

Options may be specified as 
* POSIX style options (short options, e.g. "-o FILE"),
* GNU style options (long options, e.g. --output=FILE) or
* DOS style options (e.g. /o=FILE or /output=FILE).
Short options are case sensitive.
If an argument is shown as mandatory (or optional) for a long option, it is
mandatory (or optional) for the equivalent short option too.

General options:
  -d, --data=DATA           Content of the barcode.
      --datafile=FILE       Append the bytes of FILE to the content.
      --bcfile=FILE         Read barcode settings (name=value) from FILE.
      --compress=ALGORITHM  Compress the content of the barcode: "none"
                            (default), "deflate", "gzip" or "zlib".
  -f, --format=TYPE         Output format: "PS", "PCL", "PDF", "PDFFRAG" or
                            "IMAGE". Default is "PS" or the format of the
                            filtered stream.
  -b, --barcode=NUMBER      Number of the barcode type (default is 20, Code128).
  -c, --checkdigit=NUMBER   Number of the check digit method.
      --autocorrect=STATE   Correct the content automatically: "on" or "off".
  -e, --translation=STATE   Translate escape sequences in the content: "on"
                            (default) or "off".
      --bearerwidth=WIDTH   Width of the bearer bars in mm.
      --bearertype=TYPE     Type of the bearer bars: "none" (default),
                            "topandbottom", "rectangle", "top" or "bottom".
                            "horizontal" has been deprecated and replaced by
                            "topandbottom".
      --notchheight=HEIGHT  Height of the notches in mm.
  -m, --modulewidth=WIDTH   Width of the narrowest element (module) in mm.
      --reductionunit=UNIT  Unit of the bar width reduction: "PERC" (default,
                            percent of the module width), "MM", "MILS" or
                            "INCH".
      --reduction=REDUCTION Bar width reduction, in reduction units.
      --printratio=RATIO    Ratio of bar and space widths, e.g. "1:2:1:3".
      --formatstring=FORMAT Format of the content, e.g. "A##B&".
  -O, --optimalwidth, --72dpiraster
                            Fit the modules to the raster of the device.
      --quietzoneunit=UNIT  Unit of the quiet zones: "NONE" (default), "MOD"
                            (modules), "MM", "MILS", "INCH" or "PX" (pixels).
      --quietzoneh=LENGTH   Horizontal quiet zone, in quiet zone units.
      --quietzonev=LENGTH   Vertical quiet zone, in quiet zone units.
      --nooverhead          Do not write PCL or PostScript overhead.
  -i, --imageformat=FORMAT  Format of an image: "BMP" (default), "GIF" or "JPG".
                            Sets the output format to "IMAGE" if none was given.
      --dpi=DPI             Resolution of an image in dots per inch.
      --colormode=MODE      Color mode: "RGB" (default), "GRAY" or "CMYK"
                            (PostScript only).
      --bkmode=MODE         Background of the barcode: "trasparent" or "opaque"
                            (default).
      --pclmode=MODE        PCL mode: "PCL5" (default) or "PCL5noHPGL".
      --defaultset=NUMBER   Number of the default set that fills in sizes which
                            were not given: 0 (none) or 1.

Position and size:
  -x, --xpos=POSITION       Horizontal position of the barcode in mm.
  -y, --ypos=POSITION       Vertical position of the barcode in mm.
  -w, --width=WIDTH         Width of the barcode in mm.
  -h, --height=HEIGHT       Height of the barcode in mm.
  -r, --rot=ROTATION        Rotation of the barcode in degrees,
                            counter-clockwise: 0 (default), 90, 180 or 270.
      --origin=ORIGIN       Corner that the position refers to: "top" (upper
                            left corner) or "bottom" (bottom left corner).
      --mustfit=STATE       Fail if the barcode does not fit into the given
                            width and height: "on" or "off" (default).
      --decoder=TYPE        Decoder that the barcode is made for: "Any",
                            "Hardware" (default), "Software" or "Vextorin".
      --sizemode=MODE       How the size is found: "DEFAULT", "FIT" (into width
                            and height), "MODULE" (from the module width) or
                            "MINIMAL" (as small as possible).

Text options:
  -t, --text=POS            Position of the text: "above", "below" or "hide".
  -th                       Hide the text.
      --align=ALIGNMENT     Alignment of the text: "default", "left", "right" or
                            "center".
      --fontsize=SIZE       Size of the text font in points.
      --font=NAME           Name of the text font.
      --textdist=DISTANCE   Distance between text and bars in mm.
      --trimwhitespaces     Remove white space at both ends of the content.

Filtering options:
      --initgraphics        Write "initgraphics" in the PostScript overhead.
      --movecursor          Move the PCL cursor to the end of the barcode.
      --remove              Remove the escape sequence. Without this option it
                            is overwritten with blanks.
      --embed=STATE         Write the overhead that embeds the barcode in a
                            document: "on" (default when filtering) or "off".
      --pos=POS             Position is relative to the current point ("rel",
                            default for PCL) or absolute on the page ("abs",
                            default for PostScript).

PDF417 options:
      --PDFrows=ROWS        Number of rows (3..90).
      --PDFcols=COLUMNS     Number of columns (1..30).
      --PDFratio=RATIO      Ratio of rows to columns, e.g. "3:1".
      --PDFauto             Choose the ratio of rows to columns automatically.
      --PDFrowheight=HEIGHT Height of a row in mm.
      --PDFecl=LEVEL        Error correction level (0..8).
      --PDFmode=MODE        Number of the encoding mode.

Micro PDF417 options:
      --MPDFversion=VERSION Number of the version (size of the symbol).
      --MPDFmode=MODE       Number of the Micro PDF417 mode.

Macro PDF417 options:
      --PDFindex=INDEX      Index of this segment.
      --PDFid=ID            File id, common to all segments.
      --PDFlast             This is the last segment.
      --PDFfile=NAME        Name of the file.
      --PDFcount=COUNT      Number of segments of the file.
      --PDFtime=TIMESTAMP   Time stamp of the file.
      --PDFsender=SENDER    Name of the sender.
      --PDFaddr=ADDRESSEE   Name of the addressee.
      --PDFsize=SIZE        Size of the file in bytes.
      --PDFchecksum=SUM     Checksum of the file.

DATAMATRIX options:
      --DMsize=SIZE         Number of the symbol size.
      --DMformat=FORMAT     Number of the format.
      --DMbinary            Enforce binary encoding.
      --DMrect              Rectangular symbol (default is a square).
      --DMsum=SUM           Structured append: number of symbols (2..16).
      --DMindex=INDEX       Structured append: index of this symbol (1..16).
      --DMfile=ID           Structured append: file id.

MaxiCode options:
      --MCmode=MODE         Mode of the symbol (2..5).
      --MCundercut=UNDERCUT Undercut of the hexagons in percent (0..100).
      --MCpre=PREAMBLE      Preamble of the structured carrier message.
      --MCsum=SUM           Structured append: number of symbols.
      --MCindex=INDEX       Structured append: index of this symbol (1..8).
      --MCservice=SERVICE   Structured carrier message: service class.
      --MCcountry=COUNTRY   Structured carrier message: country code.
      --MCpostal=POSTAL     Structured carrier message: postal code.

QRCode options:
      --QRversion=VERSION   Number of the version (size of the symbol).
      --QRformat=FORMAT     Number of the format.
      --QRind=INDICATOR     Format application indicator.
      --QRecl=LEVEL         Error correction level (0..3, 1 is default).
      --QRmask=PATTERN      Number of the mask pattern.
      --QRsum=SUM           Structured append: number of symbols (2..16).
      --QRindex=INDEX       Structured append: index of this symbol (1..16).
      --QRparity=PARITY     Structured append: parity byte.

Micro QRCode options:
      --MQRversion=VERSION  Number of the version (size of the symbol).
      --MQRecl=LEVEL        Error correction level (0..3, 1 is default).
      --MQRmask=PATTERN     Number of the mask pattern.

Codablock-F options:
      --CBrows=ROWS         Number of rows (2..44).
      --CBcols=COLUMNS      Number of columns (4..62).
      --CBrowheight=HEIGHT  Height of a row in mm.
      --CBsepheight=HEIGHT  Height of the separator between two rows in mm.
      --CBformat=FORMAT     Number of the format.

Aztec Code options:
      --ACsize=SIZE         Number of the symbol size.
      --ACbinary            Enforce binary encoding.
      --ACecl=LEVEL         Error correction level in percent (0..89).
      --ACrunes             Make an Aztec rune.
      --ACformat=FORMAT     Number of the format.
      --ACspec=SPECIFIER    Format specifier.
      --ACappend            Enable structured append.
      --ACsum=SUM           Structured append: number of symbols (A..Z).
      --ACindex=INDEX       Structured append: index of this symbol (A..Z).
      --ACmessage=ID        Structured append: message id.

RSS Expanded Stacked options:
      --RSSseg=SEGMENTS     Number of segments in a row (2..22).

Composite barcode options:
      --CCtype=TYPE         Type of the composite component: "none" (default),
                            "auto", "A", "B" or "C".
Multiple barcodes options:
      --multiple=STATE      Produce several barcodes, arranged in rows and
                            columns, if the content is too long for one: "on" or
                            "off" (default).
      --rows=ROWS           Number of rows of barcodes.
      --columns=COLUMNS     Number of columns of barcodes.
      --hdist=DISTANCE      Least horizontal distance between barcodes in mm.
      --vdist=DISTANCE      Least vertical distance between barcodes in mm.
      --datalimit=LIMIT     Greatest amount of content in one barcode, in bytes.
      --dynamicsize=MODE    Direction in which the bounding rectangle may grow:
                            "none" (default), "horizontal" or "vertical".
      --structapp=MODE      Structured append: "none" (default), "standard"
                            (that of the symbology) or "vextorin".

Deprecated parameters:
      --guardline=WIDTH     Replaced by "bearerwidth".
      --dravlindefaults     Replace by "--defaultset=1"

Examples:

  # PDF417 barcode in PCL format, 50x30 mm with absolute positioning:
  vextorin --data="Test123" --format=PCL --barcode=55 --width=50
           --height=30 --output=barcode.pcl  or
  vextorin -d"Test123" -fPCL -b55 -w50 -h30 -obarcode.pcl

  # Rotated PostScript Code128 barcode with a module width of 0.254 mm:
  vextorin --data="Test123" --format=PS --barcode=20 --rot=90 --modulewidth=0.254

  # EAN8 barcode with text above barcode in font "Times"
  vextorin --data="40313948" --barcode=8 --text=above --font="Times"
)help";
static_assert(kHelpText.size() == 11244);

}  // namespace Settings
