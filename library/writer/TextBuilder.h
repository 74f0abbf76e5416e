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
  void line(std::convertible_to<std::string_view> auto... parts) {
    endLine();
    (append(parts), ...);
    endLine();
  }

  TextBuilder& operator<<(std::string_view word) {
    makeRoom(word.size() + 1);
    if (!atLineStart()) {
      const bool full = size - lineStart + word.size() >= kLineLength;
      out[size++] = full ? '\n' : ' ';
      if (full) lineStart = size;
    }
    append(word);
    return *this;
  }
  template <std::size_t size>
  TextBuilder& operator<<(const char (&word)[size]) {
    return *this << std::string_view(word, size - 1);
  }
  TextBuilder& operator<<(std::integral auto number) {
    return addNumber(kLongestInteger, [number](char* text) {
      return std::to_chars(text, text + kLongestInteger, number).ptr;
    });
  }
  TextBuilder& operator<<(double number) {
    return addNumber(kLongestDecimal, [number](char* text) { return writeDecimal(text, number); });
  }
  TextBuilder& operator<<(const Point& p) { return *this << p.x << p.y; }

  void endLine() {
    if (!atLineStart()) append("\n");
  }

  std::string finish() {
    endLine();
    out.resize(size);
    return std::move(out);
  }

  // At most 6 decimals, none of them a zero at the end.
  static std::string decimal(double number) {
    char digits[kLongestDecimal];
    return std::string(digits, writeDecimal(digits, number));
  }

 private:
  static constexpr std::size_t kLineLength = 100;
  static constexpr std::size_t kLongestInteger = 24, kLongestDecimal = 330;

  // The end of the text.
  static char* writeDecimal(char* text, double number);

  // write(text) puts the number at `text` and returns its end: where it is to stand if it does not
  // begin the line.
  template <class Write>
  TextBuilder& addNumber(std::size_t longest, Write&& write) {
    makeRoom(longest + 1);
    char* const text = out.data() + size;
    if (atLineStart()) {
      size = static_cast<std::size_t>(write(text) - out.data());
      return *this;
    }
    const auto end = static_cast<std::size_t>(write(text + 1) - out.data());
    const bool full = end - 1 - lineStart >= kLineLength;
    *text = full ? '\n' : ' ';
    if (full) lineStart = size + 1;
    size = end;
    return *this;
  }

  void append(std::string_view text) {
    put(text);
    const std::size_t end = text.rfind('\n');
    if (end != text.npos) lineStart = size - text.size() + end + 1;
  }
  void makeRoom(std::size_t length) {
    if (out.size() - size < length) out.resize(2 * (size + length));
  }
  void put(std::string_view text) {
    makeRoom(text.size());
    text.copy(out.data() + size, text.size());
    size += text.size();
  }
  bool atLineStart() const { return lineStart == size; }

  std::string out = std::string(4096, '\0');  // the text and room for more
  std::size_t size = 0;                       // of the text
  std::size_t lineStart = 0;
};

}  // namespace Library
