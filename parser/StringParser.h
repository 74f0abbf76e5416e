// Options from one text, such as the contents of an escape sequence:
//
//     --data="A ""B"" C" --width=50 --height = 30 -o barcode.pcl
//
// Space, tab, line feed, form feed and carriage return separate; a vertical tab does not. A name
// after "/" keeps its slash, which no settings class accepts.
#pragma once

#include "parser/ArgumentParser.h"

#include <utility>

namespace Parser {

class StringParser : public ArgumentParser {
 public:
  explicit StringParser(std::string options) : text(std::move(options)) {}

  // A group of single letters lasts until an argument is asked for: in it every character, a
  // separator too, is a name.
  Diag::ResultCode nextOption(std::string& name) override;
  // kInvalidArgument when a quoted value isn't closed.
  Diag::ResultCode optionArgument(std::string& value) override;

 private:
  void skipSeparators();
  bool atEnd() const { return position >= text.size(); }
  std::string takeUntil(const char* stops);
  Diag::ResultCode takeQuoted(std::string& value);

  std::string text;
  std::size_t position = 0;
  bool inGroup = false;
};

}  // namespace Parser
