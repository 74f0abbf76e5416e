// Applying one row of an option table to a record. For the settings classes' own files.
#pragma once

#include "parser/ArgumentParser.h"
#include "settings/GlobalSettings.h"
#include "settings/Option.h"

namespace Settings {

// Writes the message of a refused value; kInvalidArgument.
Diag::ResultCode RefuseValue(const Settings& record, std::string_view refusal,
                             std::string_view value);

template <class Record>
void SetSwitch(Record& record, const Option<Record>& option, int value) {
  if (const auto* flag = std::get_if<bool Record::*>(&option.field))
    record.*(*flag) = value != 0;
  else
    record.*std::get<int Record::*>(option.field) = value;
}

template <class Record>
bool StoreKeyword(Record& record, const Option<Record>& option, std::string_view text) {
  int value = 0;
  if (!ReadKeyword(text, option.keywords, value)) return false;
  SetSwitch(record, option, value);
  return true;
}

template <class Record>
bool StoreText(Record& record, const FlaggedText<Record>& field, std::string_view text) {
  record.*field.text = text;
  record.*field.given = 1;
  return true;
}

// False when the value is refused.
template <class Record>
bool StoreValue(Record& record, const Option<Record>& option, std::string_view text) {
  const auto integer = [&]() -> int& { return record.*std::get<int Record::*>(option.field); };
  const auto real = [&]() -> double& { return record.*std::get<double Record::*>(option.field); };
  switch (option.kind) {
    case Kind::kFlag:
      SetSwitch(record, option, 1);
      return true;
    case Kind::kKeyword:
      return StoreKeyword(record, option, text);
    case Kind::kInteger:
      return ReadInteger(text, option.range, integer());
    case Kind::kNonZeroInteger:
      return ReadInteger(text, option.range, integer()) && integer() != 0;
    case Kind::kReal:
      return ReadReal(text, real());
    case Kind::kRealExactZero:
      return ReadRealExactZero(text, real());
    case Kind::kPositiveReal:
      return ReadPositiveReal(text, real());
    case Kind::kNonNegativeReal:
      return ReadNonNegativeReal(text, real());
    case Kind::kUncheckedReal:
      real() = TextToReal(text);
      return true;
    case Kind::kTruncatedReal:
      return ReadTruncatedReal(text, integer());
    case Kind::kLetter:
      return ReadLetter(text, record.*std::get<char Record::*>(option.field));
    case Kind::kText:
    case Kind::kQuietText:
      record.*std::get<std::string Record::*>(option.field) = text;
      return true;
    case Kind::kTextWithFlag:
      return StoreText(record, std::get<FlaggedText<Record>>(option.field), text);
    case Kind::kAction:
    case Kind::kValueAction:
      break;
  }
  return false;
}

template <class Record>
Diag::ResultCode ApplyOption(Record& record, const Option<Record>& option, Given given) {
  if (const auto* action = std::get_if<Action<Record>>(&option.field))
    return (*action)(record, option, given);
  return StoreValue(record, option, given.value) ? Diag::kSuccess
                                                 : RefuseValue(record, option.refusal, given.value);
}

// Takes the value, if the option has one, from the source that delivered `name`, and applies it.
// `quiet` keeps a missing value from being reported.
template <class Record>
Diag::ResultCode ApplyFrom(Parser::ArgumentParser& source, Record& record,
                           const Option<Record>& option, const std::string& name,
                           bool quiet = false) {
  std::string value;
  if (TakesValue(option.kind) && source.optionArgument(value) != Diag::kSuccess) {
    if (!quiet) record.reportMissingArgument(name);
    return Diag::kNothingLeft;
  }
  return ApplyOption(record, option, {name, value});
}

}  // namespace Settings
