#include "library/prepare/PreparedData.h"

namespace Library {
namespace {

bool IsPrintable(int byte) {
  return (byte >= 0x20 && byte < 0x7F) || (byte >= 0xA0 && byte < 256);
}

}  // namespace

std::string Bytes(const Data& data) {
  std::string bytes;
  bytes.reserve(data.size());
  for (const DataCharacter character : data) {
    if (character.isByte()) bytes += static_cast<char>(character.value);
  }
  return bytes;
}

void AppendPrintable(std::string& text, Data::const_iterator begin, Data::const_iterator end) {
  for (; begin != end; ++begin) {
    if (IsPrintable(begin->value)) text += static_cast<char>(begin->value);
  }
}

std::string PrintableText(const Data& data) {
  std::string text;
  text.reserve(data.size());
  AppendPrintable(text, data.begin(), data.end());
  return text;
}

}  // namespace Library
