// The string codecs. The input is once bytes that are encoded, once a token as a job might hold it,
// with the first two bytes for a range of what it stands for.
#include "filter/BeginToken.h"
#include "filter/PostScriptString.h"
#include "fuzz/Target.h"

#include <algorithm>

namespace Fuzz {
namespace {

using namespace Filter;

constexpr std::size_t kNone = std::string_view::npos;

std::size_t Scanned(std::string_view text, char lineEnd = '\0') {
  StringScanner scanner(lineEnd);
  return scanner.scan(text);
}

void EncodeAndDecode(std::string_view bytes) {
  for (const std::string& token : {encodeLiteral(bytes), encodeHex(bytes), encodeAscii85(bytes)}) {
    Require(DecodeString(token) == bytes, "what was encoded decodes: " + token);
    Require(Scanned(token + ")>~>") == token.size(), "an encoded string is one token: " + token);
    Require(EncodeLike(token, bytes) == token, "a string is encoded as it was written: " + token);
  }
}

void ScanInPieces(std::string_view text, char lineEnd) {
  StringScanner scanner(lineEnd);
  std::size_t size = kNone;
  for (std::size_t seen = 1; seen <= text.size() && size == kNone; ++seen) {
    size = scanner.scan(text.substr(0, seen));
  }
  Require(size == Scanned(text, lineEnd), "a string's end is where it is however it arrives");
}

// REQUIRES: the token is whole, or cut off.
void TakeApart(std::string_view token, std::size_t begin, std::size_t length) {
  const std::string bytes = DecodeString(token);
  Require(DecodeString(EncodeLike(token, bytes)) == bytes, "a string can be written again");
  begin = std::min(begin, bytes.size());
  length = std::min(length, bytes.size() - begin);
  const std::string rest = WithoutBytes(token, {{begin, begin + length}});
  // What is left of a string that its line ends may look as if it had a ")" of its own.
  if (!token.ends_with(')') && rest.ends_with(')')) return;
  std::string expected = bytes;
  expected.erase(begin, length);
  Require(DecodeString(rest) == expected, "only the bytes taken out of a string are gone: " + rest);
}

}  // namespace

void FuzzStrings(std::string_view bytes) {
  EncodeAndDecode(bytes);
  Input input(bytes);
  const std::size_t begin = input.choice();
  const std::size_t length = input.choice();
  const char lineEnd = length % 2 == 0 ? '\0' : '\n';
  const std::string_view text = input.rest();
  MatchBegin(text, "$_vxrs");
  if (!text.starts_with('(') && !text.starts_with('<')) return;
  ScanInPieces(text, lineEnd);
  const std::size_t size = Scanned(text, lineEnd);
  if (size < StringScanner::kNoString) return TakeApart(text.substr(0, size), begin, length);
  // What is cut off must not look closed without its end.
  const bool closed = text.find(')') != kNone;
  if (size == kNone && text.starts_with('(') && !closed) TakeApart(text, begin, length);
}

}  // namespace Fuzz
