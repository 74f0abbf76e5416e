#include "diag/Foreign.h"

#include <algorithm>

namespace Diag {
namespace {

constexpr std::string_view kCut = "...";

// Tab and vertical tab end no line anywhere.
bool IsControl(unsigned char byte) {
  return (byte < 0x20 && byte != '\t' && byte != '\v') || byte == 0x7F;
}

void AppendByte(std::string& text, char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto code = static_cast<unsigned char>(byte);
  if (IsControl(code))
    text.append("\\x").append({kDigits[code >> 4], kDigits[code & 15]});
  else
    text += byte;
}

}  // namespace

void AppendForeign(std::string& message, Foreign part, std::size_t& room) {
  if (!part.foreign) {
    message += part.text;
    return;
  }
  const std::size_t begin = message.size();
  std::size_t cutAt = begin;  // the last place where the mark of a cut still fits
  for (const char byte : part.text) {
    AppendByte(message, byte);
    const std::size_t used = message.size() - begin;
    if (used > room) {
      message.replace(cutAt, std::string::npos, kCut.substr(0, room));
      break;
    }
    if (used + kCut.size() <= room) cutAt = message.size();
  }
  room -= std::min(room, message.size() - begin);
}

}  // namespace Diag
