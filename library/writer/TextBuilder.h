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
    out += text;
    out += '\n';
  }

  TextBuilder& operator<<(std::string_view word) {
    if (!atLineStart()) {
      const bool full = out.size() - lineStart() + word.size() >= kLineLength;
      out += full ? '\n' : ' ';
    }
    out += word;
    return *this;
  }
  TextBuilder& operator<<(const char* word) { return *this << std::string_view(word); }
  TextBuilder& operator<<(std::integral auto number) { return *this << digits(number); }
  TextBuilder& operator<<(double number) { return *this << digits(number); }
  TextBuilder& operator<<(const Point& p) { return *this << p.x << p.y; }

  void endLine() {
    if (!atLineStart()) out += '\n';
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

  static std::string digits(std::integral auto number) {
    char text[24];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
  }
  static std::string digits(double number) { return decimal(number); }

  bool atLineStart() const { return out.empty() || out.back() == '\n'; }
  std::size_t lineStart() const {
    const std::size_t end = out.rfind('\n');
    return end == std::string::npos ? 0 : end + 1;
  }

  std::string out;
};

}  // namespace Library
