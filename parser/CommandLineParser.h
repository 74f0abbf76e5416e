// Options from the command line:
//
//     -o FILE  -oFILE  -o=FILE  --output=FILE  --output FILE  /o=FILE  /output=FILE  /output FILE
//
// Single letters may be grouped (-th). There are no positional arguments: a plain word is reported
// as something that is no option. An element is cut before its first line break.
#pragma once

#include "parser/ArgumentParser.h"

#include <string_view>

namespace Parser {

class CommandLineParser : public ArgumentParser {
 public:
  // `argv` is not owned and must live as long as the parser. Its first element is skipped.
  CommandLineParser(int argc, const char* const* argv);

  Diag::ResultCode nextOption(std::string& name) override;
  Diag::ResultCode optionArgument(std::string& value) override;

 private:
  bool consumed() const { return position >= current.size(); }
  bool advance();  // false when there is no further element
  void skipElement();
  std::string_view rest() const { return std::string_view(current).substr(position); }
  Diag::ResultCode shortOption(std::string& name);
  Diag::ResultCode longOption(std::string& name, std::size_t dashes);

  int count;
  const char* const* elements;
  std::string current;  // elements[index], cut
  int index = 1;
  std::size_t position = 0;  // in `current`
  bool inGroup = false;      // reading the letters of an element such as -xyz
};

}  // namespace Parser
