#include "filter/PostScriptString.h"

#include "settings/Values.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Filter {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

struct Escape {
  char letter;  // behind the backslash
  char byte;
};
constexpr Escape kEscapes[] = {
    {'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'},
};

bool IsOctalDigit(char c) {
  return c >= '0' && c <= '7';
}

// Of the carriage return at `at`, with the line feed behind it. Any line end in a string is read as
// a line feed.
std::size_t LineEndLength(std::string_view text, std::size_t at) {
  return text.substr(at).starts_with("\r\n") ? 2 : 1;
}

bool IsSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r') || c == '\0';
}

bool IsHexadecimal(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F') || IsSpace(c);
}

bool IsAscii85(char c) {
  return (c >= '!' && c <= 'u') || c == 'z' || IsSpace(c);
}

// True when the token's last byte is the ")" that closes it, not one behind a backslash.
bool ClosesLiteral(std::string_view token) {
  if (token.size() < 2 || token.back() != ')') return false;
  std::size_t backslashes = 0;
  while (backslashes + 2 < token.size() && token[token.size() - 2 - backslashes] == '\\') {
    ++backslashes;
  }
  return backslashes % 2 == 0;
}

void AppendOctal(std::string& text, unsigned char byte) {
  text += '\\';
  text += static_cast<char>('0' + byte / 64);
  text += static_cast<char>('0' + byte / 8 % 8);
  text += static_cast<char>('0' + byte % 8);
}

void AppendLiteralByte(std::string& text, char byte) {
  if (byte == '(' || byte == ')' || byte == '\\') {
    text += '\\';
    text += byte;
    return;
  }
  for (const Escape& escape : kEscapes) {
    if (escape.byte == byte) {
      text += '\\';
      text += escape.letter;
      return;
    }
  }
  const auto value = static_cast<unsigned char>(byte);
  if (value < 32 || value >= 127) {
    AppendOctal(text, value);
  } else {
    text += byte;
  }
}

// Text between the delimiters; a missing closing delimiter takes nothing away.
std::string_view Inner(std::string_view token, std::string_view open, std::string_view close) {
  if (token.starts_with(open)) token.remove_prefix(open.size());
  if (token.ends_with(close)) token.remove_suffix(close.size());
  return token;
}

constexpr int kAscii85GroupDigits = 5;
constexpr int kAscii85GroupBytes = 4;

void AppendBigEndian(std::string& bytes, std::uint32_t word, int count) {
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(word >> (24 - 8 * i));
}

}  // namespace

std::size_t DecodeEscape(std::string_view text, std::size_t at, std::string& bytes) {
  const char c = text[at];
  if (c == '\n') return at + 1;  // a line continuation
  if (c == '\r') return at + LineEndLength(text, at);
  if (IsOctalDigit(c)) {
    unsigned value = 0;
    const std::size_t end = std::min(at + 3, text.size());
    for (; at < end && IsOctalDigit(text[at]); ++at) {
      value = value * 8 + static_cast<unsigned>(text[at] - '0');
    }
    bytes += static_cast<char>(value % 256);
    return at;
  }
  for (const Escape& escape : kEscapes) {
    if (escape.letter == c) {
      bytes += escape.byte;
      return at + 1;
    }
  }
  bytes += c;
  return at + 1;
}

StringForm FormOf(std::string_view token) {
  if (token.starts_with('(')) return StringForm::kLiteral;
  return token.starts_with("<~") ? StringForm::kAscii85 : StringForm::kHexadecimal;
}

std::size_t StringScanner::scan(std::string_view text) {
  if (text.starts_with('(')) return scanLiteral(text);
  if (text.size() < 2) return kNone;  // the second byte tells the form
  return text[1] == '~' ? scanAscii85(text) : scanHexadecimal(text);
}

std::size_t StringScanner::scanLiteral(std::string_view text) {
  const char stops[] = {'(', ')', '\\', lineEnd == '\0' ? '\\' : lineEnd};
  while (true) {
    position = text.find_first_of({stops, sizeof stops}, position);
    if (position == kNone) {
      position = text.size();
      return kNone;
    }
    switch (text[position]) {
      case '\\':
        if (position + 1 == text.size()) return kNone;
        ++position;
        break;
      case '(':
        ++depth;
        break;
      case ')':
        if (--depth == 0) return position + 1;
        break;
      default:  // the line's end
        return position + 1;
    }
    ++position;
  }
}

std::size_t StringScanner::scanHexadecimal(std::string_view text) {
  position = std::max<std::size_t>(position, 1);
  while (position < text.size() && IsHexadecimal(text[position])) ++position;
  if (position == text.size()) return kNone;
  return text[position] == '>' ? position + 1 : kNoString;
}

std::size_t StringScanner::scanAscii85(std::string_view text) {
  position = std::max<std::size_t>(position, 2);
  while (position < text.size() && IsAscii85(text[position])) ++position;
  if (text.size() - position < 2)
    return position < text.size() && text[position] != '~' ? kNoString : kNone;
  return text.substr(position).starts_with("~>") ? position + 2 : kNoString;
}

std::string decodeLiteral(std::string_view token) {
  if (ClosesLiteral(token)) token.remove_suffix(1);
  if (token.starts_with('(')) token.remove_prefix(1);
  std::string bytes;
  bytes.reserve(token.size());
  for (std::size_t at = 0; at < token.size();) {
    const std::size_t special = std::min(token.find_first_of("\\\r", at), token.size());
    bytes += token.substr(at, special - at);
    at = special;
    if (at == token.size()) break;
    if (token[at] == '\r') {
      bytes += '\n';
      at += LineEndLength(token, at);
    } else if (++at < token.size()) {
      at = DecodeEscape(token, at, bytes);
    }
  }
  return bytes;
}

std::string encodeLiteral(std::string_view bytes) {
  std::string token = "(";
  for (const char byte : bytes) AppendLiteralByte(token, byte);
  return token += ')';
}

std::string decodeHex(std::string_view token) {
  return Settings::HexDigits(token);
}

std::string encodeHex(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string token = "<";
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    token += kDigits[value / 16];
    token += kDigits[value % 16];
  }
  return token += '>';
}

std::string decodeAscii85(std::string_view token) {
  std::string bytes;
  std::uint32_t word = 0;
  int digits = 0;
  for (const char c : Inner(token, "<~", "~>")) {
    if (c == 'z' && digits == 0) bytes.append(kAscii85GroupBytes, '\0');
    if (c < '!' || c > 'u') continue;  // white space
    word = word * 85 + static_cast<std::uint32_t>(c - '!');
    if (++digits < kAscii85GroupDigits) continue;
    AppendBigEndian(bytes, word, kAscii85GroupBytes);
    word = 0;
    digits = 0;
  }
  if (digits > 1) {  // a last group of n digits holds n - 1 bytes
    for (int i = digits; i < kAscii85GroupDigits; ++i) word = word * 85 + 84;
    AppendBigEndian(bytes, word, digits - 1);
  }
  return bytes;
}

std::string encodeAscii85(std::string_view bytes) {
  std::string token = "<~";
  for (std::size_t at = 0; at < bytes.size(); at += kAscii85GroupBytes) {
    const std::string_view group = bytes.substr(at, kAscii85GroupBytes);
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < kAscii85GroupBytes; ++i) {
      word = word << 8 | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0U);
    }
    if (word == 0 && group.size() == kAscii85GroupBytes) {
      token += 'z';
      continue;
    }
    std::array<char, kAscii85GroupDigits> digits;
    for (std::size_t i = kAscii85GroupDigits; i-- > 0; word /= 85) {
      digits[i] = static_cast<char>('!' + word % 85);
    }
    token.append(digits.data(), group.size() + 1);
  }
  return token += "~>";
}

std::string DecodeString(std::string_view token) {
  switch (FormOf(token)) {
    case StringForm::kLiteral:
      return decodeLiteral(token);
    case StringForm::kHexadecimal:
      return decodeHex(token);
    default:
      return decodeAscii85(token);
  }
}

std::string EncodeLike(std::string_view token, std::string_view bytes) {
  switch (FormOf(token)) {
    case StringForm::kHexadecimal:
      return encodeHex(bytes);
    case StringForm::kAscii85:
      return encodeAscii85(bytes);
    default:
      break;
  }
  if (ClosesLiteral(token)) return encodeLiteral(bytes);
  const bool lineEnd = bytes.ends_with('\n') && (token.ends_with('\n') || token.ends_with('\r'));
  std::string literal = encodeLiteral(bytes.substr(0, bytes.size() - lineEnd));
  literal.pop_back();
  if (lineEnd) literal += token.back();
  return literal;
}

namespace {

// For every byte that a token stands for the offset where it is written, and one for the end.
std::vector<std::size_t> LiteralOffsets(std::string_view token) {
  const std::size_t end = token.size() - ClosesLiteral(token);
  std::vector<std::size_t> offsets;
  std::string bytes;
  for (std::size_t at = 1; at < end;) {
    const std::size_t begin = at;
    bytes.clear();
    if (token[at] == '\r') {
      bytes = '\n';
      at += LineEndLength(token, at);
    } else if (token[at] != '\\') {
      bytes = token[at++];
    } else if (++at < end) {
      at = DecodeEscape(token.substr(0, end), at, bytes);
    }
    if (!bytes.empty()) offsets.push_back(begin);
  }
  offsets.push_back(end);
  return offsets;
}

std::vector<std::size_t> HexadecimalOffsets(std::string_view token) {
  std::vector<std::size_t> offsets;
  std::size_t digits = 0;
  for (std::size_t at = 1; at + 1 < token.size(); ++at) {
    if (IsSpace(token[at])) continue;
    if (digits++ % 2 == 0) offsets.push_back(at);
  }
  offsets.push_back(token.size() - 1);
  return offsets;
}

// Whether `next` would be read as a part of the escape or line end that `text` ends with.
bool JoinsOnto(std::string_view text, char next) {
  if (next == '\n') return text.ends_with('\r');
  if (!IsOctalDigit(next)) return false;
  constexpr std::size_t kMostDigits = 3;
  std::size_t digits = 0;
  while (digits < std::min(text.size(), kMostDigits) &&
         IsOctalDigit(text[text.size() - 1 - digits]))
    ++digits;
  text.remove_suffix(digits);
  const std::size_t backslashes = text.size() - (text.find_last_not_of('\\') + 1);
  return digits > 0 && digits < kMostDigits && backslashes % 2 == 1;
}

}  // namespace

std::string WithoutBytes(std::string_view token, const std::vector<ByteRange>& ranges) {
  if (FormOf(token) == StringForm::kAscii85) {
    std::string bytes = decodeAscii85(token);
    for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
      bytes.erase(range->begin, range->end - range->begin);
    }
    return encodeAscii85(bytes);
  }
  const bool literal = FormOf(token) == StringForm::kLiteral;
  const std::vector<std::size_t> offsets =
      literal ? LiteralOffsets(token) : HexadecimalOffsets(token);
  std::string rest;
  const auto append = [&](std::string_view piece) {
    if (literal && !piece.empty() && JoinsOnto(rest, piece.front())) {
      AppendOctal(rest, static_cast<unsigned char>(piece.front()));
      piece.remove_prefix(1);
    }
    rest += piece;
  };
  std::size_t from = 0;
  for (const ByteRange& range : ranges) {
    append(token.substr(from, offsets[range.begin] - from));
    from = offsets[range.end];
  }
  append(token.substr(from));
  return rest;
}

}  // namespace Filter
