// Options as table rows.
//
// A settings class has one constexpr array of rows, and that array is the only place that knows an
// option: the handler, the tests and whatever lists options walk it. A row names the option, the
// kind of its value, the field it fills and the message for a value that is refused. The few
// irregular options carry a named function in place of a field.
#pragma once

#include "diag/ResultCode.h"
#include "settings/OptionValues.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace Settings {

enum class Kind {
  kFlag,             // no value; the field becomes 1 or true
  kKeyword,          // one of `keywords`
  kInteger,          // within `range`; a zero only from the text of a zero
  kNonZeroInteger,   // any integer but zero
  kReal,             // a zero only from the text of a zero
  kRealExactZero,    // the same, with nothing around zero taken for it
  kPositiveReal,     // greater than 0
  kNonNegativeReal,  // 0 or greater
  kUncheckedReal,    // any text
  kTruncatedReal,    // a real number into an integer field, truncated toward zero
  kLetter,           // A to Z
  kText,             // as given
  kQuietText,        // as given; the record may ask that a missing one goes unreported
  kTextWithFlag,     // as given, and the companion flag is set: an empty text counts as given
  kAction,           // no value; a named function
  kValueAction,      // a value; a named function reads and applies it
};

constexpr bool TakesValue(Kind kind) {
  return kind != Kind::kFlag && kind != Kind::kAction;
}

// A text and its companion flag.
template <class Record>
struct FlaggedText {
  std::string Record::*text;
  int Record::*given;
};

template <class Record>
struct Option;

// What was read: the name by which the option was called, and its value.
struct Given {
  std::string_view name;
  std::string_view value;
};

// Returns a result code of its own; a refused value goes through RefuseValue.
template <class Record>
using Action = Diag::ResultCode (*)(Record& record, const Option<Record>& option, Given given);

template <class Record>
struct Option {
  using Field = std::variant<bool Record::*, int Record::*, double Record::*, char Record::*,
                             std::string Record::*, FlaggedText<Record>, Action<Record>>;

  std::string_view name;        // long name, without dashes
  std::string_view shortNames;  // other names, separated by blanks
  Kind kind;
  Field field;
  std::string_view refusal{};  // message for a bad value, which is appended after a final ": "
  Range range{};
  Keywords keywords{};
};

// The words of `option` one after the other: its long name, then the others. False when `visit`
// returns false for one of them.
template <class Record, class Visit>
constexpr bool ForEachName(const Option<Record>& option, Visit visit) {
  if (!visit(option.name)) return false;
  for (std::string_view rest = option.shortNames; !rest.empty();) {
    const std::size_t length = rest.find(' ') < rest.size() ? rest.find(' ') : rest.size();
    if (!visit(rest.substr(0, length))) return false;
    rest.remove_prefix(length < rest.size() ? length + 1 : length);
  }
  return true;
}

template <class Record>
constexpr bool HasName(const Option<Record>& option, std::string_view name) {
  return !ForEachName(option, [&](std::string_view own) { return own != name; });
}

// Null when the table has no option of that name.
template <class Record>
const Option<Record>* FindOption(std::span<const Option<Record>> table, std::string_view name) {
  for (const Option<Record>& option : table)
    if (HasName(option, name)) return &option;
  return nullptr;
}

template <class Table>
constexpr bool NamesUnique(const Table& table) {
  for (std::size_t i = 0; i < std::size(table); ++i) {
    const bool alone = ForEachName(table[i], [&](std::string_view name) {
      if (name.empty()) return false;
      for (std::size_t j = 0; j < i; ++j)
        if (HasName(table[j], name)) return false;
      return true;
    });
    if (!alone) return false;
  }
  return true;
}

template <class Record>
constexpr bool KindSuitsField(const Option<Record>& option) {
  const auto holds = [&]<class... Types>(std::type_identity<Types>...) {
    return (std::holds_alternative<Types>(option.field) || ...);
  };
  constexpr std::type_identity<bool Record::*> kBool;
  constexpr std::type_identity<int Record::*> kInt;
  switch (option.kind) {
    case Kind::kFlag:
      return holds(kBool, kInt);
    case Kind::kKeyword:
      return holds(kBool, kInt) && !option.keywords.empty() && !option.refusal.empty();
    case Kind::kInteger:
    case Kind::kNonZeroInteger:
    case Kind::kTruncatedReal:
      return holds(kInt) && !option.refusal.empty();
    case Kind::kReal:
    case Kind::kRealExactZero:
    case Kind::kPositiveReal:
    case Kind::kNonNegativeReal:
      return holds(std::type_identity<double Record::*>()) && !option.refusal.empty();
    case Kind::kUncheckedReal:
      return holds(std::type_identity<double Record::*>());
    case Kind::kLetter:
      return holds(std::type_identity<char Record::*>()) && !option.refusal.empty();
    case Kind::kText:
    case Kind::kQuietText:
      return holds(std::type_identity<std::string Record::*>());
    case Kind::kTextWithFlag:
      return holds(std::type_identity<FlaggedText<Record>>());
    case Kind::kAction:
    case Kind::kValueAction:
      return holds(std::type_identity<Action<Record>>());
  }
  return false;
}

template <class Table>
constexpr bool KindsSuitFields(const Table& table) {
  for (const auto& option : table)
    if (!KindSuitsField(option)) return false;
  return true;
}

}  // namespace Settings
