// The three ways to write a string in PostScript: literal (...), hexadecimal <...> and ASCII85
// <~...~> (PostScript Language Reference, third edition, 3.2.2). Pure functions on byte strings,
// apart from the stream.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Filter {

// A string token here includes its delimiters.
enum class StringForm { kLiteral, kHexadecimal, kAscii85 };

// The form of a token, from its opener. REQUIRES: it begins with "(" or "<".
StringForm FormOf(std::string_view token);

// Finds the end of the string token at the front of a text that may still grow. The scan goes on
// where it stopped, so that a string that arrives in pieces is looked at once.
//
// "(" nests and ends at its ")", or with its line when `lineEnd` is given; a backslash hides the
// byte behind it. "<~" ends with "~>" and "<" with ">", and they hold nothing but the characters of
// their encoding and white space: what else looks like them is no string.
class StringScanner {
 public:
  static constexpr std::size_t kNoString = std::string_view::npos - 1;

  explicit StringScanner(char newLineEnd = '\0') : lineEnd(newLineEnd) {}

  // The token's length, kNoString, or std::string_view::npos when it does not end within `text`.
  // REQUIRES: `text` begins with what the calls before it were given.
  std::size_t scan(std::string_view text);

 private:
  std::size_t scanLiteral(std::string_view text);
  std::size_t scanHexadecimal(std::string_view text);
  std::size_t scanAscii85(std::string_view text);

  char lineEnd;
  std::size_t position = 0;  // what stands before is scanned
  std::size_t depth = 0;
};

// Appends what the escape behind a backslash at `text[at]` stands for, nothing for a continued
// line, and returns the index behind it. REQUIRES: at < text.size()
std::size_t DecodeEscape(std::string_view text, std::size_t at, std::string& bytes);

// Each takes a token with its delimiters and yields the bytes that it stands for. Damaged or
// unclosed tokens yield what can be read of them.
std::string decodeLiteral(std::string_view token);
std::string decodeHex(std::string_view token);
std::string decodeAscii85(std::string_view token);

// Each yields a token of printable ASCII with its delimiters.
std::string encodeLiteral(std::string_view bytes);
std::string encodeHex(std::string_view bytes);
std::string encodeAscii85(std::string_view bytes);

// By form.
std::string DecodeString(std::string_view token);
// As `token` was written; a token that its line's or the job's end cut off stays cut off.
std::string EncodeLike(std::string_view token, std::string_view bytes);

// A range of the bytes that a token stands for.
struct ByteRange {
  std::size_t begin = 0, end = 0;
};
// The token without these bytes. What stands around them in a literal or hexadecimal string stays
// as it is written. REQUIRES: the ranges are in order and don't overlap.
std::string WithoutBytes(std::string_view token, const std::vector<ByteRange>& ranges);

}  // namespace Filter
