#include "engine/Session.h"

#include "diag/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>

namespace Engine {

using Diag::ResultCode;
using Diag::Text;

namespace {

constexpr int kErrorTextSize = 70;  // characters, without the terminator

std::string Hexadecimal(std::uint32_t number) {
  char digits[8];
  return {digits, std::to_chars(digits, digits + sizeof digits, number, 16).ptr};
}

std::string LibraryText(BCBarcode* handle, ResultCode code) {
  char buffer[kErrorTextSize + 1] = {};
  if (BCGetObjectErrorTextA != nullptr) {
    BCGetObjectErrorTextA(handle, code, buffer, kErrorTextSize);
  } else {
    BCGetErrorTextA(code, buffer, kErrorTextSize);
  }
  buffer[kErrorTextSize] = '\0';
  return buffer;
}

// The character that the library rejected and its place, counted from 1. Empty when the place is
// unknown or lies behind a zero byte: of data that hold one, the library shows the part before it.
std::string InvalidCharacter(BCBarcode* handle) {
  const int position = BCGetInvalidDataPos(handle);
  const char* text = BCGetTextA(handle);
  const std::string_view data = text != nullptr ? text : "";
  if (position < 0 || static_cast<std::size_t>(position) >= data.size()) return {};

  const auto character = static_cast<unsigned char>(data[static_cast<std::size_t>(position)]);
  const bool graphic = character > 0x20 && character < 0x7F;
  return Text(graphic ? Text('\'', static_cast<char>(character), '\'')
                      : Text("(ASCII Code 0x", Hexadecimal(character), ')'),
              " at position ", std::int64_t{position} + 1);
}

// How many characters the symbology takes from the user. Empty when it has no fixed limit.
std::string CharactersNeeded(BCBarcode* handle) {
  const int limit = BCGetMaxLenOfData(BCGetBCType(handle));
  if (limit <= 0) return {};
  const int checkDigits = std::max(BCGetCheckDigitsA(handle, nullptr, 0), 0);
  return Text("(needs ", limit - checkDigits, " characters)");
}

std::string Detail(BCBarcode* handle, ResultCode code) {
  if (code == BC_E_INVALIDDATA) return InvalidCharacter(handle);
  if (code == BC_E_DATATOOLONG) return CharactersNeeded(handle);
  return {};
}

}  // namespace

ResultCode InitLibrary(const std::string& argument) {
  const ResultCode result = BCInitLibraryA(argument.c_str());
  if (result == Diag::kSuccess) {
    g_settings.trace.Trace(Diag::kInformation, "Library initialized.");
  } else {
    g_settings.trace.Trace(Diag::kError, "Couldn't initialize library. Error code: ",
                           static_cast<std::int32_t>(result));
  }
  return result;
}

ResultCode DeinitLibrary() {
  const ResultCode result = BCDeInitLibrary();
  if (result == Diag::kSuccess) {
    g_settings.trace.Trace(Diag::kDebug, "Library deinitialized.");
  } else {
    ReportFailure(Diag::kWarning, nullptr, result, "Couldn't deinitalize library.");
  }
  return result;
}

std::string GetErrorMessage(BCBarcode* handle, ResultCode code) {
  const std::string start = Text("Error code: 0x", Hexadecimal(code), Diag::kLibraryMessage);
  if (code == Diag::kInvalidArgument) {
    return Text(start, Diag::kNothingKnown, " Unsupported barcode or syntax error.");
  }
  if (handle == nullptr) return start + '-';
  return start + GetErrorDetails(handle, code) + '.';
}

void GiveReason(BCBarcode* handle, ResultCode code) {
  if (!g_settings.trace.readByScheduler() || BCGetReasonA == nullptr) return;
  char reason[256] = {};
  if (BCGetReasonA(handle, code, reason, sizeof reason) > 0) g_settings.trace.reason(reason);
}

std::string GetErrorDetails(BCBarcode* handle, ResultCode code) {
  const std::string text = LibraryText(handle, code);
  if (BCGet2DCompositeComponent(handle) == 0) return text + Detail(handle, code);

  if (BCGet_CompSym_ErrorInCC(handle) == 0) {
    return Text("Error in linear component - ", text, Detail(handle, code));
  }
  if (code == BC_E_NOTSUPPORTED) {
    return "Error in Composite Symbol - "
           "Composite Component not supported for the selected barcode type";
  }
  return Text("Error in 2D Composite Component - ", text, Detail(handle, code));
}

}  // namespace Engine
