/*
 * The barcode library's interface, libvextorin9.so.0: plain C functions around one opaque object.
 *
 * Conventions
 *  - A BCBarcode is made by BCAlloc and belongs to the caller until BCFree.
 *  - Every function with a handle returns BC_E_INVALIDARG for a null handle; functions that return
 *    a value return the value named "null" beside them.
 *  - A setter checks its value and stores it. Nothing is encoded before BCCreate. A rejected value
 *    leaves the object as it was.
 *  - Numbers without a range here have that of the option which sets the same: vextorin.conf(5).
 *  - A symbology setter takes the value that means "not set" (-1, or an empty text) as "use the
 *    default".
 *  - Texts are terminated byte strings unless a length goes with them; they are copied. They may
 *    have 1,024 bytes, a format string 16,384; longer ones are out of range. A returned
 *    text belongs to the object and lives until the next call on it.
 *  - `int` used as a switch: 0 is off, anything else on. Lengths are thousandths of a millimetre.
 *  - Different objects may be used from different threads, one object from one thread at a time.
 */
#ifndef VEXTORIN9_H
#define VEXTORIN9_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif
#ifdef __GNUC__
#pragma GCC visibility push(default)
#endif

typedef uint32_t BCResult;          /* HRESULT form, 0 is success */
typedef struct BCBarcode BCBarcode; /* opaque */

/* Thousandths of a millimetre. */
typedef struct {
  int32_t left, top, right, bottom;
} BCRect;

/* Quiet zone, in the unit given beside it. */
typedef struct {
  double left, top, right, bottom;
} BCMargins;

#define BC_OK ((BCResult)0)
/* null handle, value out of range, unknown type */
#define BC_E_INVALIDARG ((BCResult)0x80070057u)
#define BC_E_OUTOFMEMORY ((BCResult)0x8007000Eu)
/* a character that the type does not take: BCGetInvalidDataPos says which */
#define BC_E_INVALIDDATA ((BCResult)0x8007000Du)
/* for the symbology, or for the size forced */
#define BC_E_DATATOOLONG ((BCResult)0x80090004u)
/* known combination that cannot be made */
#define BC_E_NOTSUPPORTED ((BCResult)0x80070032u)
/* the size argument holds the size needed */
#define BC_E_BUFFERTOOSMALL ((BCResult)0x8007007Au)
/* must-fit is on and the symbol does not fit */
#define BC_E_MUSTFIT ((BCResult)0x8007006Fu)
/* a library that the type or the format needs is missing */
#define BC_E_MODULENOTFOUND ((BCResult)0x8007007Eu)

/* Session and information */
BCResult BCInitLibraryA(const char* text); /* directory of the calling program, may be empty */
BCResult BCDeInitLibrary(void);
/* Works without a session; the date reads year/month/day hours:minutes:seconds. */
BCResult BCGetVersionA(int* major, int* minor, int* patch, int* revision, char* buildDate,
                       int size);
/* Cut to `size` characters; the buffer is one byte longer and zero-filled by the caller. */
void BCGetErrorTextA(BCResult code, char* buffer, int size);
int FileExists(const char* path); /* 1: a file of that name exists and is no directory */

/* Object */
BCResult BCAlloc(BCBarcode** handle); /* on failure *handle is null */
BCResult BCCreate(BCBarcode* b);      /* encodes the data; errors in the data come from here */
BCResult BCFree(BCBarcode* b);

/* State queries */
int BCGetBCType(BCBarcode* b);   /* null: 0 */
int BCGetMaxLenOfData(int type); /* data characters, check digits included; 0: no fixed limit */
/* The number of check digits that the symbol adds; with a buffer also their text. Null: -1. */
int BCGetCheckDigitsA(BCBarcode* b, char* buffer, int size);
const char* BCGetTextA(BCBarcode* b);        /* the data as held; null: empty text */
int BCGetInvalidDataPos(BCBarcode* b);       /* zero-based, -1: unknown */
int BCGetCountRows(BCBarcode* b);            /* after BCCreate; null or not created: 0 */
int BCGet2DCompositeComponent(BCBarcode* b); /* the composite type set, 0: none */
int BCGet_CompSym_ErrorInCC(BCBarcode* b);   /* 1: the last error lies in the composite component */

/* General setters */
BCResult BCSetBCType(BCBarcode* b, int type);
/* may hold zero bytes; BC_E_DATATOOLONG for more than 131,072 */
BCResult BCSetTextA(BCBarcode* b, const char* data, int length);
BCResult BCSetCompression(BCBarcode* b, int algorithm); /* 0 none, 1 raw deflate, 2 gzip, 3 zlib */
BCResult BCSetCDMethod(BCBarcode* b, int method);       /* check-digit method number */
BCResult BCSetAutoCorrect(BCBarcode* b, int on);
BCResult BCSetTranslateEsc(BCBarcode* b, int on);
/* 0 none, 1 top and bottom, 2 rectangle, 3 top, 4 bottom */
BCResult BCSetBearerBarType(BCBarcode* b, int type);
BCResult BCSetBearerBarWidth(BCBarcode* b, int32_t width);
BCResult BCSetNotchHeight(BCBarcode* b, int32_t height);  /* drop of guard bars below data bars */
BCResult BCSetModWidthA(BCBarcode* b, const char* width); /* decimal number, 1/1000 mm */
/* unit 0 or 6 percent of the module, 2 mm, 3 mils, 4 inch; a positive value narrows the bars */
BCResult BCSetBarWidthReduction(BCBarcode* b, double value, int unit);
BCResult BCSetRatioA(BCBarcode* b, const char* ratio);   /* "1:2:1:3" */
BCResult BCSetFormatA(BCBarcode* b, const char* format); /* "A##B&" */
BCResult BCSetDPI(BCBarcode* b, double x, double y);     /* dots per inch */
BCResult BCSetOptResolution(BCBarcode* b, int on);       /* snap X to whole device dots */
/* unit 0 none, 1 pixel, 2 mm, 3 mils, 4 inch, 5 modules */
BCResult BCSetQuietZone(BCBarcode* b, const BCMargins* margins, int unit);
BCResult BCSetMustFit(BCBarcode* b, int on);
BCResult BCSetDecoder(BCBarcode* b, int decoder); /* 0 any, 1 hardware, 2 software, 3 own */
BCResult BCSetSizeMode(BCBarcode* b, int mode);   /* 0 fit, 1 by module width, 2 minimal */
BCResult BCSetPrintText(BCBarcode* b, int show, int above);
BCResult BCSetTextAlignment(BCBarcode* b, int alignment); /* 0 default, 1 left, 2 right, 3 centre */
BCResult BCSetFontHeight(BCBarcode* b, int points);
BCResult BCSetFontNameA(BCBarcode* b, const char* name);
BCResult BCSetTextDist(BCBarcode* b, int32_t distance);
BCResult BCSetColorMode(BCBarcode* b, int mode); /* 0 RGB, 1 grey, 2 CMYK; components are 0..1 */
BCResult BCSetBarcodeColorRGB(BCBarcode* b, double red, double green, double blue);
BCResult BCSetFontColorRGB(BCBarcode* b, double red, double green, double blue);
BCResult BCSetBackgroundColorRGB(BCBarcode* b, double red, double green, double blue);
BCResult BCSetBarcodeColorGray(BCBarcode* b, double level); /* 0 black .. 1 white */
BCResult BCSetFontColorGray(BCBarcode* b, double level);
BCResult BCSetBackgroundColorGray(BCBarcode* b, double level);
BCResult BCSetBarcodeColorCMYK(BCBarcode* b, double c, double m, double y, double k);
BCResult BCSetFontColorCMYK(BCBarcode* b, double c, double m, double y, double k);
BCResult BCSetBackgroundColorCMYK(BCBarcode* b, double c, double m, double y, double k);
BCResult BCSetBkMode(BCBarcode* b, int mode);               /* 1 transparent, 2 opaque */
BCResult BCSetPCLMode(BCBarcode* b, int mode);              /* 0 PCL5 with HP-GL/2, 1 without */
BCResult BCSet2DCompositeComponent(BCBarcode* b, int type); /* 0 none, 1 auto, 2 A, 3 B, 4 C */
BCResult BCSetRotation(BCBarcode* b, int quarterTurns);     /* 0..3, counter-clockwise */

/* Additions, which another library of this soname may lack: ask before the call. */
#ifdef VEXTORIN9_BUILD
#define BC_ADDITION
#else
#define BC_ADDITION __attribute__((weak))
#endif
/* Extended Channel Interpretation of the data: 0 none, 3..999999. Types without it refuse it in
   BCCreate with BC_E_NOTSUPPORTED. */
BC_ADDITION BCResult BCSetECI(BCBarcode* b, int number);
/* As BCGetErrorTextA, for the last error of this object; the text ends in a blank where the queries
   of the object have something to append. */
BC_ADDITION void BCGetObjectErrorTextA(BCBarcode* b, BCResult code, char* buffer, int size);
/* Why the call of this object that failed last, with that code, did so: "EAN-13 takes digits only
   ('A' at 5)". The length of the text, 0 when there is no more to say than the error text; the
   buffer gets `size` bytes of it at most, terminator included. Null: 0. */
BC_ADDITION int BCGetReasonA(BCBarcode* b, BCResult code, char* buffer, int size);

/* PDF417 */
BCResult BCSet_PDF417_Rows(BCBarcode* b, int rows);
BCResult BCSet_PDF417_Columns(BCBarcode* b, int columns);
BCResult BCSet_PDF417_RowHeight(BCBarcode* b, int32_t height);
BCResult BCSet_PDF417_ECLevel(BCBarcode* b, int level);
BCResult BCSet_PDF417_EncodingMode(BCBarcode* b, int mode);
BCResult BCSet_PDF417_RowColRatioA(BCBarcode* b, const char* ratio);
BCResult BCSet_PDF417_SegIndex(BCBarcode* b, int index);
BCResult BCSet_PDF417_SegCount(BCBarcode* b, int count);
BCResult BCSet_PDF417_TimeStamp(BCBarcode* b, int time);
BCResult BCSet_PDF417_FileSize(BCBarcode* b, int bytes);
BCResult BCSet_PDF417_CheckSum(BCBarcode* b, int sum);
BCResult BCSet_PDF417_SegLast(BCBarcode* b, int on);
BCResult BCSet_PDF417_FileIDA(BCBarcode* b, const char* id);
BCResult BCSet_PDF417_FileNameA(BCBarcode* b, const char* name);
BCResult BCSet_PDF417_SenderA(BCBarcode* b, const char* sender);
BCResult BCSet_PDF417_AddresseeA(BCBarcode* b, const char* addressee);

/* Micro PDF417 */
BCResult BCSet_MPDF417_Version(BCBarcode* b, int version);
BCResult BCSet_MPDF417_Mode(BCBarcode* b, int mode);

/* MaxiCode */
BCResult BCSet_Maxi_Mode(BCBarcode* b, int mode);
BCResult BCSet_Maxi_UnderCut(BCBarcode* b, int percent);
BCResult BCSet_Maxi_Append(BCBarcode* b, int sum, int index);
BCResult BCSet_Maxi_SCMA(BCBarcode* b, const char* service, const char* country,
                         const char* postal);
BCResult BCSet_Maxi_UsePreambleA(BCBarcode* b, int on, const char* preamble);

/* QR Code, Micro QR Code */
BCResult BCSet_QR_Version(BCBarcode* b, int version);
BCResult BCSet_QR_Format(BCBarcode* b, int format);
BCResult BCSet_QR_FmtAppIndicatorA(BCBarcode* b, const char* indicator);
BCResult BCSet_QR_ECLevel(BCBarcode* b, int level);
BCResult BCSet_QR_Mask(BCBarcode* b, int mask);
BCResult BCSet_QR_Append(BCBarcode* b, int sum, int index, int parity);
BCResult BCSet_MQR_Version(BCBarcode* b, int version);
BCResult BCSet_MQR_Mask(BCBarcode* b, int mask);

/* Data Matrix */
BCResult BCSet_DM_Size(BCBarcode* b, int size);
BCResult BCSet_DM_Format(BCBarcode* b, int format);
BCResult BCSet_DM_EnforceBinaryEncoding(BCBarcode* b, int on);
BCResult BCSet_DM_Rectangular(BCBarcode* b, int on);
BCResult BCSet_DM_Append(BCBarcode* b, int sum, int index, int fileId);

/* Codablock-F */
BCResult BCSet_CBF_Rows(BCBarcode* b, int rows);
BCResult BCSet_CBF_Columns(BCBarcode* b, int columns);
BCResult BCSet_CBF_RowHeight(BCBarcode* b, int32_t height);
BCResult BCSet_CBF_RowSeparatorHeight(BCBarcode* b, int32_t height);
BCResult BCSet_CBF_Format(BCBarcode* b, int format);

/* Aztec Code */
BCResult BCSet_Aztec_Size(BCBarcode* b, int size);
BCResult BCSet_Aztec_EnforceBinaryEncoding(BCBarcode* b, int on);
BCResult BCSet_Aztec_RuneMode(BCBarcode* b, int on);
BCResult BCSet_Aztec_FormatA(BCBarcode* b, int format, const char* specifier);
BCResult BCSet_Aztec_ErrorCorrection(BCBarcode* b, int percent);
BCResult BCSet_Aztec_AppendActive(BCBarcode* b, int on);
BCResult BCSet_Aztec_AppendDataA(BCBarcode* b, char sum, char index, const char* messageId);

/* GS1 DataBar Expanded Stacked */
BCResult BCSet_RSS_SegmPerRow(BCBarcode* b, int segments);

/* Grid of barcodes: BC_E_DATATOOLONG for more than 1,000 symbols or about 2.5 million modules */
BCResult BCSet_MultiBC_Enabled(BCBarcode* b, int on);
BCResult BCSet_MultiBC_Rows(BCBarcode* b, int rows);
BCResult BCSet_MultiBC_Columns(BCBarcode* b, int columns);
BCResult BCSet_MultiBC_HDist(BCBarcode* b, int32_t distance);
BCResult BCSet_MultiBC_VDist(BCBarcode* b, int32_t distance);
BCResult BCSet_MultiBC_DataLimit(BCBarcode* b, int bytes);
BCResult BCSet_MultiBC_DynamicBoundingRect(BCBarcode* b, int growth);
BCResult BCSet_MultiBC_StructApp(BCBarcode* b, int mode);

/* Size. `device` is null; `unit` 2 is millimetres. */
BCResult BCGetBarcodeSize(BCBarcode* b, const BCRect* rect, void* device, int unit, double* width,
                          double* height);
/* The size needed, 1/1000 mm, is also written when the rectangle is too small. */
BCResult BC_MultiBC_CalculateLayout(BCBarcode* b, void* device, const BCRect* rect,
                                    int32_t* neededWidth, int32_t* neededHeight);

/*
 * Output into the caller's buffer. `size` holds the buffer's capacity going in and the bytes
 * written (or, with BC_E_BUFFERTOOSMALL, the bytes needed) coming out.
 */
/* overhead: with the EPS header, trailer and showpage */
BCResult BCPostscriptToMemoryExt(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect,
                                 int overhead);
/* relative: positions count from the cursor */
BCResult BCPCLToMemoryExt(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect,
                          int relative);
BCResult BCPDFToMemory(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect);
BCResult BCPDFFragmentToMemory(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect);
/* format: "BMP", "GIF", "JPG" or "JPEG", "PNG", "TIF" or "TIFF", letter case ignored */
BCResult BCBitmapToMemoryA(BCBarcode* b, char* buffer, const char* format, uint32_t* size,
                           const BCRect* rect);
/*
 * What is doubtful about the last output, in words: a symbol too small to be read for certain. The
 * length of the text, 0 when there is none; the buffer gets `size` bytes of it at most, terminator
 * included. An addition, too.
 */
BC_ADDITION int BCGetWarningA(BCBarcode* b, char* buffer, int size);

#ifdef __GNUC__
#pragma GCC visibility pop
#endif
#ifdef __cplusplus
}
#endif

#endif /* VEXTORIN9_H */
