// The base of every class that is filled from options.
#pragma once

#include "diag/ResultCode.h"
#include "diag/Text.h"
#include "parser/ArgumentParser.h"

#include <functional>
#include <string>
#include <string_view>

namespace Settings {

class Settings {
 public:
  virtual ~Settings() = default;

  // The current values as one text, for the trace log.
  virtual std::string printSettings() const = 0;
  // Writes the help text to standard output.
  virtual void printUsage() const = 0;

  virtual void reportMissingArgument(std::string_view name) const;
  virtual void reportUnrecognizedOption(std::string_view name) const;

  // Drains the parser and applies every option, up to the first failure: kInvalidArgument for an
  // unknown option or a rejected value (the message has been written), kNothingLeft for a missing
  // argument, kHelpShown after a help or version text. Options applied before stay applied.
  virtual Diag::ResultCode readOptions(Parser::ArgumentParser& parser) = 0;

  // The options come from a print job, whose author may do less than the configuration's: messages
  // quote their text as foreign, and the files they name have to be ordinary ones.
  bool fromJob = false;

  // A name or value of these settings, as messages quote it.
  Diag::Foreign quoted(std::string_view text) const { return {text, fromJob}; }

 protected:
  Settings() = default;
  Settings(const Settings&) = default;
  Settings& operator=(const Settings&) = default;

  using Apply = std::function<Diag::ResultCode(const std::string& name)>;
  // Hands every option name of the parser to `apply`, up to its first failure.
  Diag::ResultCode applyEach(Parser::ArgumentParser& parser, const Apply& apply) const;

 private:
  // Says of a print job's option what is wrong with it, without its name, which is the job's text.
  void giveReason(std::string_view fault) const;

  mutable int optionNumber = 0;  // of the option that is being applied, counted from 1
};

}  // namespace Settings
