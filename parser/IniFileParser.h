// Options from a text file of `name=value` lines. A line without "=" names an option without value;
// lines that start with "#" are comments. Blanks around the line are dropped, those around "=" are
// not. A byte order mark in front of the first line is none of it. No sections, no quoting, no
// escapes.
#pragma once

#include "parser/ArgumentParser.h"

#include <cstddef>
#include <string_view>

namespace Parser {

class IniFileParser : public ArgumentParser {
 public:
  // No configuration is longer; a name such as /dev/zero must not take all memory.
  static constexpr std::size_t kLongestFile = std::size_t{16} << 20;  // bytes

  // Reads the whole file. kAccessDenied when it can't be opened, or read to its end, or is longer
  // than kLongestFile.
  Diag::ResultCode open(const std::string& fileName);
  // Takes the bytes of a file that was read already.
  void take(std::string bytes);

  // A value that nobody asked for is delivered as kInvalidArgument.
  Diag::ResultCode nextOption(std::string& name) override;
  Diag::ResultCode optionArgument(std::string& value) override;

  // The line of the option just delivered: its number, counted from 1 (0 before the first), and its
  // text.
  std::size_t lineNumber() const { return number; }
  const std::string& lineText() const { return line; }

 private:
  bool readLine();  // the next line that isn't empty; false at the end
  std::string_view nextPiece();

  std::string text;
  std::size_t position = 0;
  std::size_t number = 0;
  std::string line;
  std::string pending;  // the value of the option just delivered
};

}  // namespace Parser
