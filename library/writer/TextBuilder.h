// Builds program text: words and numbers set apart by blanks, lines broken before they grow long,
// numbers the same in every locale.
#pragma once

#include "library/layout/Drawing.h"

#include <charconv>
#include <concepts>
#include <string>
#include <string_view>

namespace Library {

class TextBuilder {
 public:
  // Ends the line.
  void line(std::string_view text) {
    endLine();
    append(text);
    endLine();
  }

  TextBuilder& operator<<(std::string_view word) {
    if (!atLineStart()) {
      const bool full = out.size() - lineStart + word.size() >= kLineLength;
      append(full ? "\n" : " ");
    }
    append(word);
    return *this;
  }
  TextBuilder& operator<<(const char* word) { return *this << std::string_view(word); }
  TextBuilder& operator<<(std::integral auto number) {
    char digits[24];
    const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return *this << std::string_view(digits, end);
  }
  TextBuilder& operator<<(double number) { return *this << decimal(number); }
  TextBuilder& operator<<(const Point& p) { return *this << p.x << p.y; }

  void endLine() {
    if (!atLineStart()) append("\n");
  }

  std::string finish() {
    endLine();
    return std::move(out);
  }

  // At most 6 decimals, none of them a zero at the end.
  static std::string decimal(double number) {
    char text[64];
    std::string result(
        text, std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, 6).ptr);
    result.erase(result.find_last_not_of('0') + 1);
    if (result.back() == '.') result.pop_back();
    return result == "-0" ? "0" : result;
  }

 private:
  static constexpr std::size_t kLineLength = 100;

  void append(std::string_view text) {
    const std::size_t end = text.rfind('\n');
    if (end != text.npos) lineStart = out.size() + end + 1;
    out += text;
  }
  bool atLineStart() const { return lineStart == out.size(); }

  std::string out;
  std::size_t lineStart = 0;
};

}  // namespace Library
