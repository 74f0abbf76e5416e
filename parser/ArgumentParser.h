// A source of options: the command line, an ini file, or a string. Callers alternate: after each
// option name that takes a value they ask for its argument once.
#pragma once

#include "diag/ResultCode.h"

#include <string>

namespace Parser {

class ArgumentParser {
 public:
  virtual ~ArgumentParser() = default;

  // kSuccess and the option's name; kNothingLeft (empty name) at the end of the source;
  // kInvalidArgument and the text at the current place when that is not an option.
  virtual Diag::ResultCode nextOption(std::string& name) = 0;

  // The argument of the option just delivered; kNothingLeft when it has none.
  virtual Diag::ResultCode optionArgument(std::string& value) = 0;
};

}  // namespace Parser
