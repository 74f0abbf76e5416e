// A stand-in for the barcode library under the same soname. It draws nothing: it writes down every
// call, one line each, and answers as its environment says. Tests put its directory on
// LD_LIBRARY_PATH and so see what the program asks of the library, and what it does with answers
// that a real library gives rarely or never.
//
//   VX_STANDIN_LOG          file that gets a line a call: name(arguments)
//   VX_STANDIN_FAIL         "name=code,name#2=code": hexadecimal result codes, for every call of
//                           that name or for the second one only
//   VX_STANDIN_OUTPUT       bytes that the output functions write; \0 stands for a zero byte
//   VX_STANDIN_NEEDED       "70000,80000": bytes that the first, second, ... output call asks for
//   VX_STANDIN_LAYOUT       "60000x30000": size that the grid needs, 1/1000 mm
//   VX_STANDIN_INVALIDPOS, VX_STANDIN_COMPOSITE, VX_STANDIN_ERRORINCC, VX_STANDIN_CHECKDIGITS,
//   VX_STANDIN_MAXLEN, VX_STANDIN_ERRORTEXT
//                           answers of the state queries
//
// The functions of the system log are here as well; the program finds them before the C library's.
//
// In the log a handle is its number, counted from the first BCAlloc ("b1"), a text is quoted with
// C escapes, a rectangle is [left top right bottom], and a size argument is the capacity given.
#include "engine/library/vextorin9.h"

#include <sys/stat.h>

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct BCBarcode {
  int number = 0;
  int type = 0;
  std::string data;
};

namespace {

std::string_view Environment(const char* name, std::string_view otherwise = {}) {
  const char* value = std::getenv(name);
  return value ? std::string_view(value) : otherwise;
}

int ReadNumber(std::string_view text, int otherwise = 0) {
  std::from_chars(text.data(), text.data() + text.size(), otherwise);
  return otherwise;
}

// The place-th of the values between separators; past the end, the last one.
std::string_view Part(std::string_view list, char separator, int place) {
  for (;; --place) {
    const std::size_t end = list.find(separator);
    if (end == std::string_view::npos || place == 0) return list.substr(0, end);
    list.remove_prefix(end + 1);
  }
}

// Arguments as the log shows them.

template <class... Values>
std::string Formatted(const char* format, Values... values) {
  char text[16];
  return {text, static_cast<std::size_t>(std::snprintf(text, sizeof text, format, values...))};
}

std::string Shown(std::string_view bytes) {
  std::string text = "\"";
  for (const char c : bytes) {
    const bool plain = c >= 32 && c < 127 && c != '"' && c != '\\';
    text += plain ? std::string(1, c) : Formatted("\\x%02x", static_cast<unsigned char>(c));
  }
  return text + '"';
}
std::string Shown(const char* text) {
  return text ? Shown(std::string_view(text)) : "null";
}
std::string Shown(char letter) {
  return {'\'', letter, '\''};
}
std::string Shown(BCResult code) {
  return Formatted("0x%08x", code);
}
template <class Number>
requires std::same_as<Number, int> || std::same_as<Number, double> std::string Shown(
    Number number) {
  char text[40];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}
std::string Shown(void* pointer) {
  return pointer ? "pointer" : "null";
}
std::string Shown(BCBarcode* barcode) {
  return barcode ? "b" + std::to_string(barcode->number) : "null";
}
std::string Shown(std::uint32_t* size) {
  return std::to_string(*size);
}
template <class Box>
std::string Shown(const Box* box) {
  if (!box) return "null";
  return '[' + Shown(box->left) + ' ' + Shown(box->top) + ' ' + Shown(box->right) + ' ' +
         Shown(box->bottom) + ']';
}

template <class... Arguments>
void Log(const char* name, Arguments... arguments) {
  std::string line;
  ((line += (line.empty() ? "" : ", ") + Shown(arguments)), ...);
  const std::string file(Environment("VX_STANDIN_LOG"));
  if (std::FILE* log = file.empty() ? nullptr : std::fopen(file.c_str(), "ab")) {
    std::fprintf(log, "%s(%s)\n", name, line.c_str());
    std::fclose(log);
  }
}

void LogMessage(int priority, const char* format, std::va_list arguments) {
  char text[4096];
  std::vsnprintf(text, sizeof text, format, arguments);
  Log("syslog", priority, std::string_view(text));
}

// The result that VX_STANDIN_FAIL asks of this call of `name`.
BCResult Steered(std::string_view name) {
  static std::map<std::string, int, std::less<>> calls;
  const int call = ++calls[std::string(name)];
  std::string_view list = Environment("VX_STANDIN_FAIL");
  while (!list.empty()) {
    const std::string_view entry = list.substr(0, list.find(','));
    list.remove_prefix(std::min(list.size(), entry.size() + 1));
    const std::string_view which = Part(entry, '=', 0);
    if (Part(which, '#', 0) != name) continue;
    if (which != name && ReadNumber(Part(which, '#', 1)) != call) continue;
    const std::string code(Part(entry, '=', 1));
    return static_cast<BCResult>(std::strtoul(code.c_str(), nullptr, 16));
  }
  return BC_OK;
}

// A call on a barcode: logged, and answered as steered; a null handle is refused.
template <class... Arguments>
BCResult Call(const char* name, BCBarcode* barcode, Arguments... arguments) {
  Log(name, barcode, arguments...);
  if (const BCResult code = Steered(name)) return code;
  return barcode ? BC_OK : BC_E_INVALIDARG;
}

std::string OutputBytes() {
  std::string bytes(Environment("VX_STANDIN_OUTPUT", "STAND-IN\n"));
  for (std::size_t at; (at = bytes.find("\\0")) != std::string::npos;)
    bytes.replace(at, 2, 1, '\0');
  return bytes;
}

// What all output functions share, once the call itself is logged and its result decided.
BCResult Output(BCResult code, char* buffer, std::uint32_t* size) {
  static int call = 0;
  const int wanted = ReadNumber(Part(Environment("VX_STANDIN_NEEDED"), ',', call++));
  const std::string bytes = OutputBytes();
  const auto written = static_cast<std::uint32_t>(bytes.size());
  const std::uint32_t needed = std::max(written, static_cast<std::uint32_t>(wanted));
  if (code != BC_OK) return code;
  const bool fits = needed <= *size;
  *size = fits ? written : needed;
  if (!fits) return BC_E_BUFFERTOOSMALL;
  std::memcpy(buffer, bytes.data(), bytes.size());
  return BC_OK;
}

}  // namespace

// FOR_EACH(macro, a, b, ...): macro(a) macro(b) ..., up to 256 of them.
#define PARENTHESES ()
#define EXPAND(...) EXPAND_64(EXPAND_64(EXPAND_64(EXPAND_64(__VA_ARGS__))))
#define EXPAND_64(...) EXPAND_16(EXPAND_16(EXPAND_16(EXPAND_16(__VA_ARGS__))))
#define EXPAND_16(...) EXPAND_4(EXPAND_4(EXPAND_4(EXPAND_4(__VA_ARGS__))))
#define EXPAND_4(...) __VA_ARGS__
#define FOR_EACH(macro, ...) EXPAND(STEP(macro, __VA_ARGS__))
#define STEP(macro, name, ...) macro(name) __VA_OPT__(AGAIN PARENTHESES(macro, __VA_ARGS__))
#define AGAIN() STEP

// Functions that are logged with all their arguments.
#define CALL(name, parameters, ...)                   \
  BCResult name parameters {                          \
    return Call(#name, b __VA_OPT__(, ) __VA_ARGS__); \
  }
#define SET_NUMBER(name) CALL(name, (BCBarcode * b, int value), value)
#define SET_TEXT(name) CALL(name, (BCBarcode * b, const char* value), value)
#define SET_GRAY(name) CALL(name, (BCBarcode * b, double level), level)
#define SET_RGB(name) \
  CALL(name, (BCBarcode * b, double red, double green, double blue), red, green, blue)
#define SET_CMYK(name) \
  CALL(name, (BCBarcode * b, double c, double m, double y, double k), c, m, y, k)
#define OUTPUT(name, parameters, ...)                         \
  BCResult name parameters {                                  \
    return Output(Call(#name, b, __VA_ARGS__), buffer, size); \
  }
#define QUERY(name, variable, otherwise)                         \
  int name(BCBarcode* b) {                                       \
    Log(#name, b);                                               \
    return b ? ReadNumber(Environment(variable), otherwise) : 0; \
  }

extern "C" {

CALL(BCCreate, (BCBarcode * b))
FOR_EACH(SET_NUMBER, BCSetCompression, BCSetCDMethod, BCSetAutoCorrect, BCSetTranslateEsc, BCSetECI,
         BCSetBearerBarType, BCSetBearerBarWidth, BCSetNotchHeight, BCSetOptResolution,
         BCSetMustFit, BCSetDecoder, BCSetSizeMode, BCSetTextAlignment, BCSetFontHeight,
         BCSetTextDist, BCSetColorMode, BCSetBkMode, BCSetPCLMode, BCSet2DCompositeComponent,
         BCSetRotation, BCSet_PDF417_Rows, BCSet_PDF417_Columns, BCSet_PDF417_RowHeight,
         BCSet_PDF417_ECLevel, BCSet_PDF417_EncodingMode, BCSet_PDF417_SegIndex,
         BCSet_PDF417_SegCount, BCSet_PDF417_TimeStamp, BCSet_PDF417_FileSize,
         BCSet_PDF417_CheckSum, BCSet_PDF417_SegLast, BCSet_MPDF417_Version, BCSet_MPDF417_Mode,
         BCSet_Maxi_Mode, BCSet_Maxi_UnderCut, BCSet_QR_Version, BCSet_QR_Format, BCSet_QR_ECLevel,
         BCSet_QR_Mask, BCSet_MQR_Version, BCSet_MQR_Mask, BCSet_DM_Size, BCSet_DM_Format,
         BCSet_DM_EnforceBinaryEncoding, BCSet_DM_Rectangular, BCSet_CBF_Rows, BCSet_CBF_Columns,
         BCSet_CBF_RowHeight, BCSet_CBF_RowSeparatorHeight, BCSet_CBF_Format, BCSet_Aztec_Size,
         BCSet_Aztec_EnforceBinaryEncoding, BCSet_Aztec_RuneMode, BCSet_Aztec_ErrorCorrection,
         BCSet_Aztec_AppendActive, BCSet_RSS_SegmPerRow, BCSet_MultiBC_Enabled, BCSet_MultiBC_Rows,
         BCSet_MultiBC_Columns, BCSet_MultiBC_HDist, BCSet_MultiBC_VDist, BCSet_MultiBC_DataLimit,
         BCSet_MultiBC_DynamicBoundingRect, BCSet_MultiBC_StructApp)
FOR_EACH(SET_TEXT, BCSetModWidthA, BCSetRatioA, BCSetFormatA, BCSetFontNameA,
         BCSet_PDF417_RowColRatioA, BCSet_PDF417_FileIDA, BCSet_PDF417_FileNameA,
         BCSet_PDF417_SenderA, BCSet_PDF417_AddresseeA, BCSet_QR_FmtAppIndicatorA)
FOR_EACH(SET_GRAY, BCSetBarcodeColorGray, BCSetFontColorGray, BCSetBackgroundColorGray)
FOR_EACH(SET_RGB, BCSetBarcodeColorRGB, BCSetFontColorRGB, BCSetBackgroundColorRGB)
FOR_EACH(SET_CMYK, BCSetBarcodeColorCMYK, BCSetFontColorCMYK, BCSetBackgroundColorCMYK)
CALL(BCSetBarWidthReduction, (BCBarcode * b, double value, int unit), value, unit)
CALL(BCSetDPI, (BCBarcode * b, double x, double y), x, y)
CALL(BCSetQuietZone, (BCBarcode * b, const BCMargins* margins, int unit), margins, unit)
CALL(BCSetPrintText, (BCBarcode * b, int show, int above), show, above)
CALL(BCSet_Maxi_Append, (BCBarcode * b, int sum, int index), sum, index)
CALL(BCSet_Maxi_SCMA, (BCBarcode * b, const char* service, const char* country, const char* postal),
     service, country, postal)
CALL(BCSet_Maxi_UsePreambleA, (BCBarcode * b, int on, const char* preamble), on, preamble)
CALL(BCSet_QR_Append, (BCBarcode * b, int sum, int index, int parity), sum, index, parity)
CALL(BCSet_DM_Append, (BCBarcode * b, int sum, int index, int file), sum, index, file)
CALL(BCSet_Aztec_FormatA, (BCBarcode * b, int format, const char* text), format, text)
CALL(BCSet_Aztec_AppendDataA, (BCBarcode * b, char sum, char index, const char* id), sum, index, id)

OUTPUT(BCPostscriptToMemoryExt,
       (BCBarcode * b, char* buffer, uint32_t* size, const BCRect* rect, int overhead), size, rect,
       overhead)
OUTPUT(BCPCLToMemoryExt,
       (BCBarcode * b, char* buffer, uint32_t* size, const BCRect* rect, int relative), size, rect,
       relative)
OUTPUT(BCPDFToMemory, (BCBarcode * b, char* buffer, uint32_t* size, const BCRect* rect), size, rect)
OUTPUT(BCPDFFragmentToMemory, (BCBarcode * b, char* buffer, uint32_t* size, const BCRect* rect),
       size, rect)
OUTPUT(BCBitmapToMemoryA,
       (BCBarcode * b, char* buffer, const char* format, uint32_t* size, const BCRect* rect),
       format, size, rect)

QUERY(BCGetInvalidDataPos, "VX_STANDIN_INVALIDPOS", -1)
QUERY(BCGet2DCompositeComponent, "VX_STANDIN_COMPOSITE", 0)
QUERY(BCGet_CompSym_ErrorInCC, "VX_STANDIN_ERRORINCC", 0)

BCResult BCInitLibraryA(const char* text) {
  Log("BCInitLibraryA", text);
  return Steered("BCInitLibraryA");
}

BCResult BCDeInitLibrary(void) {
  Log("BCDeInitLibrary");
  return Steered("BCDeInitLibrary");
}

BCResult BCGetVersionA(int* major, int* minor, int* patch, int* revision, char* buildDate,
                       int size) {
  Log("BCGetVersionA", size);
  *major = 9, *minor = 8, *patch = 7, *revision = 6;
  std::snprintf(buildDate, static_cast<std::size_t>(size), "2001/02/03 04:05:06");
  return Steered("BCGetVersionA");
}

void BCGetErrorTextA(BCResult code, char* buffer, int size) {
  Log("BCGetErrorTextA", code, size);
  const std::string_view text = Environment("VX_STANDIN_ERRORTEXT", "Library text ");
  std::memcpy(buffer, text.data(), std::min(text.size(), static_cast<std::size_t>(size)));
}

int FileExists(const char* path) {
  Log("FileExists", path);
  struct stat status;
  return stat(path, &status) == 0 && !S_ISDIR(status.st_mode);
}

BCResult BCAlloc(BCBarcode** handle) {
  static int count = 0;
  Log("BCAlloc");
  const BCResult code = Steered("BCAlloc");
  *handle = code == BC_OK ? new BCBarcode{++count, 0, {}} : nullptr;
  return code;
}

BCResult BCFree(BCBarcode* b) {
  // A barcode that can't be freed may still be asked about.
  static std::vector<std::unique_ptr<BCBarcode>> kept;
  const BCResult code = Call("BCFree", b);
  kept.emplace_back(b);
  if (code == BC_OK) kept.pop_back();
  return code;
}

BCResult BCSetBCType(BCBarcode* b, int type) {
  if (b) b->type = type;
  return Call("BCSetBCType", b, type);
}

BCResult BCSetTextA(BCBarcode* b, const char* data, int length) {
  const std::string_view text(data, static_cast<std::size_t>(length));
  if (b) b->data = text;
  return Call("BCSetTextA", b, text, length);
}

int BCGetBCType(BCBarcode* b) {
  Log("BCGetBCType", b);
  return b ? b->type : 0;
}

const char* BCGetTextA(BCBarcode* b) {
  Log("BCGetTextA", b);
  return b ? b->data.c_str() : "";
}

int BCGetCountRows(BCBarcode* b) {
  Log("BCGetCountRows", b);
  return b ? 1 : 0;
}

int BCGetMaxLenOfData(int type) {
  Log("BCGetMaxLenOfData", type);
  return ReadNumber(Environment("VX_STANDIN_MAXLEN"));
}

int BCGetCheckDigitsA(BCBarcode* b, char* buffer, int size) {
  Log("BCGetCheckDigitsA", b, static_cast<void*>(buffer), size);
  return b ? ReadNumber(Environment("VX_STANDIN_CHECKDIGITS")) : -1;
}

BCResult BCGetBarcodeSize(BCBarcode* b, const BCRect* rect, void* device, int unit, double* width,
                          double* height) {
  *width = 40;
  *height = 20;
  return Call("BCGetBarcodeSize", b, rect, device, unit);
}

BCResult BC_MultiBC_CalculateLayout(BCBarcode* b, void* device, const BCRect* rect,
                                    int32_t* neededWidth, int32_t* neededHeight) {
  const std::string_view size = Environment("VX_STANDIN_LAYOUT", "60000x30000");
  *neededWidth = ReadNumber(Part(size, 'x', 0));
  *neededHeight = ReadNumber(Part(size, 'x', 1));
  return Call("BC_MultiBC_CalculateLayout", b, device, rect);
}

void openlog(const char* identity, int options, int facility) {
  Log("openlog", identity, options, facility);
}

void closelog() {
  Log("closelog");
}

void syslog(int priority, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  LogMessage(priority, format, arguments);
  va_end(arguments);
}

// What syslog is in a build with checked C library functions.
void __syslog_chk(int priority, int, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  LogMessage(priority, format, arguments);
  va_end(arguments);
}

}  // extern "C"
