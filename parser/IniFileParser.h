// Options from a text file of `name=value` lines. A line without "=" names an option without value;
// lines that start with "#" are comments. Blanks around the line are dropped, those around "=" are
// not. No sections, no quoting, no escapes.
#pragma once

#include "diag/File.h"
#include "parser/ArgumentParser.h"

namespace Parser {

class IniFileParser : public ArgumentParser {
 public:
  // kAccessDenied when the file can't be opened for reading.
  Diag::ResultCode open(const std::string& fileName);

  // A value that nobody asked for is delivered as kInvalidArgument.
  Diag::ResultCode nextOption(std::string& name) override;
  Diag::ResultCode optionArgument(std::string& value) override;

 private:
  bool readLine(std::string& line);  // the next line that isn't empty; false at the end

  Diag::File file;
  std::string pending;  // the value of the option just delivered
};

}  // namespace Parser
