#include "library/symbology/FullAscii.h"

namespace Library {
namespace {

struct Range {
  int first, last;
  char shift;
  char letter;  // of the first
};

constexpr Range kRanges[] = {
    {0, 0, '%', 'U'},     {1, 26, '$', 'A'},    {27, 31, '%', 'A'},   {'!', '/', '/', 'A'},
    {':', ':', '/', 'Z'}, {';', '?', '%', 'F'}, {'@', '@', '%', 'V'}, {'[', '_', '%', 'K'},
    {'`', '`', '%', 'W'}, {'a', 'z', '+', 'A'}, {'{', 127, '%', 'P'},
};

}  // namespace

std::string FullAsciiPair(int byte, std::string_view direct) {
  const char character = static_cast<char>(byte);
  if (direct.find(character) != direct.npos) return {character};
  for (const Range& range : kRanges) {
    if (byte >= range.first && byte <= range.last) {
      return {range.shift, static_cast<char>(range.letter + byte - range.first)};
    }
  }
  return {character};
}

}  // namespace Library
