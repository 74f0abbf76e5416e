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
//   VX_STANDIN_SIZE         "40x20": millimetres that the size query answers
//   VX_STANDIN_LAYOUT       "60000x30000": size that the grid needs, 1/1000 mm
//   VX_STANDIN_INVALIDPOS, VX_STANDIN_COMPOSITE, VX_STANDIN_ERRORINCC, VX_STANDIN_CHECKDIGITS,
//   VX_STANDIN_MAXLEN, VX_STANDIN_ROWS, VX_STANDIN_ERRORTEXT
//                           answers of the state queries
//
// In the log a handle is its number, counted from the first BCAlloc ("b1"), a text is quoted with
// C escapes, a rectangle is [left top right bottom], and a size argument is the capacity given.
#include "engine/library/vextorin9.h"

#include <sys/stat.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
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

template <class Number>
Number ReadNumber(std::string_view text, Number otherwise, int base = 10) {
  Number value = otherwise;
  std::from_chars(text.data(), text.data() + text.size(), value, base);
  return value;
}

double ReadDouble(std::string_view text, double otherwise) {
  double value = otherwise;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

int EnvironmentInt(const char* name, int otherwise) {
  return ReadNumber(Environment(name), otherwise);
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

std::string Shown(std::string_view bytes) {
  std::string text = "\"";
  for (const char c : bytes) {
    const unsigned char byte = static_cast<unsigned char>(c);
    if (byte < 32 || byte > 126 || c == '"' || c == '\\') {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\x%02x", byte);
      text += escape;
    } else {
      text += c;
    }
  }
  return text + '"';
}

std::string Shown(const char* text) {
  return text ? Shown(std::string_view(text)) : "null";
}
std::string Shown(char letter) {
  return {'\'', letter, '\''};
}
std::string Shown(int number) {
  return std::to_string(number);
}
std::string Shown(std::uint32_t code) {
  char text[12];
  std::snprintf(text, sizeof text, "0x%08x", code);
  return text;
}
std::string Shown(double number) {
  char text[40];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}
std::string Shown(const void* pointer) {
  return pointer ? "pointer" : "null";
}
std::string Shown(void* pointer) {
  return Shown(static_cast<const void*>(pointer));
}
std::string Shown(BCBarcode* barcode) {
  return barcode ? "b" + std::to_string(barcode->number) : "null";
}
std::string Shown(const std::uint32_t* size) {
  return std::to_string(*size);
}

template <class Box>
std::string ShownBox(const Box* box) {
  if (!box) return "null";
  return '[' + Shown(box->left) + ' ' + Shown(box->top) + ' ' + Shown(box->right) + ' ' +
         Shown(box->bottom) + ']';
}
std::string Shown(const BCRect* box) {
  return ShownBox(box);
}
std::string Shown(const BCMargins* box) {
  return ShownBox(box);
}

void WriteLine(const std::string& line) {
  const std::string file(Environment("VX_STANDIN_LOG"));
  if (file.empty()) return;
  if (std::FILE* log = std::fopen(file.c_str(), "ab")) {
    std::fputs((line + '\n').c_str(), log);
    std::fclose(log);
  }
}

template <class... Arguments>
void Log(const char* name, const Arguments&... arguments) {
  std::string line;
  ((line += (line.empty() ? "" : ", ") + Shown(arguments)), ...);
  WriteLine(std::string(name) + '(' + line + ')');
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
    if (which != name && ReadNumber(Part(which, '#', 1), 0) != call) continue;
    return ReadNumber(Part(entry, '=', 1), BC_OK, 16);
  }
  return BC_OK;
}

// A call on a barcode: logged, and answered as steered; a null handle is refused.
template <class... Arguments>
BCResult Call(const char* name, BCBarcode* barcode, const Arguments&... arguments) {
  Log(name, barcode, arguments...);
  if (const BCResult code = Steered(name)) return code;
  return barcode ? BC_OK : BC_E_INVALIDARG;
}

std::string OutputBytes() {
  std::string bytes;
  std::string_view text = Environment("VX_STANDIN_OUTPUT", "STAND-IN\n");
  while (!text.empty()) {
    const bool zero = text.starts_with("\\0");
    bytes += zero ? '\0' : text[0];
    text.remove_prefix(zero ? 2 : 1);
  }
  return bytes;
}

std::uint32_t NeededBytes(std::uint32_t least) {
  static int call = 0;
  return std::max(
      least, ReadNumber(Part(Environment("VX_STANDIN_NEEDED"), ',', call++), std::uint32_t{0}));
}

// What all output functions share, once the call itself is logged and its result decided.
BCResult Output(BCResult code, char* buffer, std::uint32_t* size) {
  const std::uint32_t capacity = *size;
  const std::string bytes = OutputBytes();
  const std::uint32_t needed = NeededBytes(static_cast<std::uint32_t>(bytes.size()));
  if (code != BC_OK) return code;
  *size = needed > capacity ? needed : static_cast<std::uint32_t>(bytes.size());
  if (needed > capacity) return BC_E_BUFFERTOOSMALL;
  std::memcpy(buffer, bytes.data(), bytes.size());
  return BC_OK;
}

}  // namespace

extern "C" {

#define SETTER0(name)           \
  BCResult name(BCBarcode* b) { \
    return Call(#name, b);      \
  }
#define SETTER1(name, A)              \
  BCResult name(BCBarcode* b, A a1) { \
    return Call(#name, b, a1);        \
  }
#define SETTER2(name, A, B)                 \
  BCResult name(BCBarcode* b, A a1, B a2) { \
    return Call(#name, b, a1, a2);          \
  }
#define SETTER3(name, A, B, C)                    \
  BCResult name(BCBarcode* b, A a1, B a2, C a3) { \
    return Call(#name, b, a1, a2, a3);            \
  }
#define SETTER4(name, A, B, C, D)                       \
  BCResult name(BCBarcode* b, A a1, B a2, C a3, D a4) { \
    return Call(#name, b, a1, a2, a3, a4);              \
  }

// clang-format off
SETTER0(BCCreate)
SETTER1(BCSetCompression, int)
SETTER1(BCSetCDMethod, int)
SETTER1(BCSetAutoCorrect, int)
SETTER1(BCSetTranslateEsc, int)
SETTER1(BCSetBearerBarType, int)
SETTER1(BCSetBearerBarWidth, int32_t)
SETTER1(BCSetNotchHeight, int32_t)
SETTER1(BCSetModWidthA, const char*)
SETTER2(BCSetBarWidthReduction, double, int)
SETTER1(BCSetRatioA, const char*)
SETTER1(BCSetFormatA, const char*)
SETTER2(BCSetDPI, double, double)
SETTER1(BCSetOptResolution, int)
SETTER2(BCSetQuietZone, const BCMargins*, int)
SETTER1(BCSetMustFit, int)
SETTER1(BCSetDecoder, int)
SETTER1(BCSetSizeMode, int)
SETTER2(BCSetPrintText, int, int)
SETTER1(BCSetTextAlignment, int)
SETTER1(BCSetFontHeight, int)
SETTER1(BCSetFontNameA, const char*)
SETTER1(BCSetTextDist, int32_t)
SETTER1(BCSetColorMode, int)
SETTER3(BCSetBarcodeColorRGB, double, double, double)
SETTER3(BCSetFontColorRGB, double, double, double)
SETTER3(BCSetBackgroundColorRGB, double, double, double)
SETTER1(BCSetBarcodeColorGray, double)
SETTER1(BCSetFontColorGray, double)
SETTER1(BCSetBackgroundColorGray, double)
SETTER4(BCSetBarcodeColorCMYK, double, double, double, double)
SETTER4(BCSetFontColorCMYK, double, double, double, double)
SETTER4(BCSetBackgroundColorCMYK, double, double, double, double)
SETTER1(BCSetBkMode, int)
SETTER1(BCSetPCLMode, int)
SETTER1(BCSet2DCompositeComponent, int)
SETTER1(BCSetRotation, int)
SETTER1(BCSet_PDF417_Rows, int)
SETTER1(BCSet_PDF417_Columns, int)
SETTER1(BCSet_PDF417_RowHeight, int32_t)
SETTER1(BCSet_PDF417_ECLevel, int)
SETTER1(BCSet_PDF417_EncodingMode, int)
SETTER1(BCSet_PDF417_RowColRatioA, const char*)
SETTER1(BCSet_PDF417_SegIndex, int)
SETTER1(BCSet_PDF417_SegCount, int)
SETTER1(BCSet_PDF417_TimeStamp, int)
SETTER1(BCSet_PDF417_FileSize, int)
SETTER1(BCSet_PDF417_CheckSum, int)
SETTER1(BCSet_PDF417_SegLast, int)
SETTER1(BCSet_PDF417_FileIDA, const char*)
SETTER1(BCSet_PDF417_FileNameA, const char*)
SETTER1(BCSet_PDF417_SenderA, const char*)
SETTER1(BCSet_PDF417_AddresseeA, const char*)
SETTER1(BCSet_MPDF417_Version, int)
SETTER1(BCSet_MPDF417_Mode, int)
SETTER1(BCSet_Maxi_Mode, int)
SETTER1(BCSet_Maxi_UnderCut, int)
SETTER2(BCSet_Maxi_Append, int, int)
SETTER3(BCSet_Maxi_SCMA, const char*, const char*, const char*)
SETTER2(BCSet_Maxi_UsePreambleA, int, const char*)
SETTER1(BCSet_QR_Version, int)
SETTER1(BCSet_QR_Format, int)
SETTER1(BCSet_QR_FmtAppIndicatorA, const char*)
SETTER1(BCSet_QR_ECLevel, int)
SETTER1(BCSet_QR_Mask, int)
SETTER3(BCSet_QR_Append, int, int, int)
SETTER1(BCSet_MQR_Version, int)
SETTER1(BCSet_MQR_Mask, int)
SETTER1(BCSet_DM_Size, int)
SETTER1(BCSet_DM_Format, int)
SETTER1(BCSet_DM_EnforceBinaryEncoding, int)
SETTER1(BCSet_DM_Rectangular, int)
SETTER3(BCSet_DM_Append, int, int, int)
SETTER1(BCSet_CBF_Rows, int)
SETTER1(BCSet_CBF_Columns, int)
SETTER1(BCSet_CBF_RowHeight, int32_t)
SETTER1(BCSet_CBF_RowSeparatorHeight, int32_t)
SETTER1(BCSet_CBF_Format, int)
SETTER1(BCSet_Aztec_Size, int)
SETTER1(BCSet_Aztec_EnforceBinaryEncoding, int)
SETTER1(BCSet_Aztec_RuneMode, int)
SETTER2(BCSet_Aztec_FormatA, int, const char*)
SETTER1(BCSet_Aztec_ErrorCorrection, int)
SETTER1(BCSet_Aztec_AppendActive, int)
SETTER3(BCSet_Aztec_AppendDataA, char, char, const char*)
SETTER1(BCSet_RSS_SegmPerRow, int)
SETTER1(BCSet_MultiBC_Enabled, int)
SETTER1(BCSet_MultiBC_Rows, int)
SETTER1(BCSet_MultiBC_Columns, int)
SETTER1(BCSet_MultiBC_HDist, int32_t)
SETTER1(BCSet_MultiBC_VDist, int32_t)
SETTER1(BCSet_MultiBC_DataLimit, int)
SETTER1(BCSet_MultiBC_DynamicBoundingRect, int)
SETTER1(BCSet_MultiBC_StructApp, int)
// clang-format on

// Session and information

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

// Object

BCResult BCAlloc(BCBarcode** handle) {
  static int count = 0;
  Log("BCAlloc");
  *handle = nullptr;
  if (const BCResult code = Steered("BCAlloc")) return code;
  *handle = new BCBarcode{++count, 0, {}};
  return BC_OK;
}

BCResult BCFree(BCBarcode* b) {
  // A barcode that can't be freed may still be asked about.
  static std::vector<std::unique_ptr<BCBarcode>> kept;
  const BCResult code = Call("BCFree", b);
  std::unique_ptr<BCBarcode> barcode(b);
  if (code != BC_OK) kept.push_back(std::move(barcode));
  return code;
}

// State

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

int BCGetMaxLenOfData(int type) {
  Log("BCGetMaxLenOfData", type);
  return EnvironmentInt("VX_STANDIN_MAXLEN", 0);
}

int BCGetCheckDigitsA(BCBarcode* b, char* buffer, int size) {
  Log("BCGetCheckDigitsA", b, static_cast<const void*>(buffer), size);
  return b ? EnvironmentInt("VX_STANDIN_CHECKDIGITS", 0) : -1;
}

const char* BCGetTextA(BCBarcode* b) {
  Log("BCGetTextA", b);
  return b ? b->data.c_str() : "";
}

#define QUERY(name, variable, otherwise)                \
  int name(BCBarcode* b) {                              \
    Log(#name, b);                                      \
    return b ? EnvironmentInt(variable, otherwise) : 0; \
  }
QUERY(BCGetInvalidDataPos, "VX_STANDIN_INVALIDPOS", -1)
QUERY(BCGetCountRows, "VX_STANDIN_ROWS", 1)
QUERY(BCGet2DCompositeComponent, "VX_STANDIN_COMPOSITE", 0)
QUERY(BCGet_CompSym_ErrorInCC, "VX_STANDIN_ERRORINCC", 0)

// Size

BCResult BCGetBarcodeSize(BCBarcode* b, const BCRect* rect, void* device, int unit, double* width,
                          double* height) {
  const std::string_view size = Environment("VX_STANDIN_SIZE", "40x20");
  *width = ReadDouble(Part(size, 'x', 0), 0);
  *height = ReadDouble(Part(size, 'x', 1), 0);
  return Call("BCGetBarcodeSize", b, rect, device, unit);
}

BCResult BC_MultiBC_CalculateLayout(BCBarcode* b, void* device, const BCRect* rect,
                                    int32_t* neededWidth, int32_t* neededHeight) {
  const std::string_view size = Environment("VX_STANDIN_LAYOUT", "60000x30000");
  *neededWidth = ReadNumber(Part(size, 'x', 0), 0);
  *neededHeight = ReadNumber(Part(size, 'x', 1), 0);
  return Call("BC_MultiBC_CalculateLayout", b, device, rect);
}

// Output

BCResult BCPostscriptToMemoryExt(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect,
                                 int overhead) {
  return Output(Call("BCPostscriptToMemoryExt", b, size, rect, overhead), buffer, size);
}

BCResult BCPCLToMemoryExt(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect,
                          int relative) {
  return Output(Call("BCPCLToMemoryExt", b, size, rect, relative), buffer, size);
}

BCResult BCPDFToMemory(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect) {
  return Output(Call("BCPDFToMemory", b, size, rect), buffer, size);
}

BCResult BCPDFFragmentToMemory(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect) {
  return Output(Call("BCPDFFragmentToMemory", b, size, rect), buffer, size);
}

BCResult BCBitmapToMemoryA(BCBarcode* b, char* buffer, const char* format, uint32_t* size,
                           const BCRect* rect) {
  return Output(Call("BCBitmapToMemoryA", b, format, size, rect), buffer, size);
}

}  // extern "C"
