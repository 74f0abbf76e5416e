// The version-1 parameters as table rows: the letters, the field that they fill and how, the
// message for a value that is refused, and the words of the help text.
#pragma once

#include "settings/BarcodeSettings.h"
#include "settings/Option.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace Filter {

// A parameter as written, and what stands behind its letters.
struct Token {
  std::string_view text;
  std::string_view value;

  // For a parameter that holds a text.
  bool isTooLong() const { return text.size() >= 1024; }
};

// The text of a real zero. A number of 0 that was read from another text is none.
inline bool BeginsWithZero(std::string_view text) {
  return text.starts_with('0');
}

// Letters that stand for a value of their own; what follows them is ignored.
struct Fixed {
  int Settings::BarcodeSettings::*field;
  int value;
};

// One of several words, in any letter case.
struct Choice {
  int Settings::BarcodeSettings::*field;
  Settings::Keywords keywords;
};

// A parameter with a rule of its own. Returns the message that refuses the value, else nothing.
using Reader = std::string_view (*)(Settings::BarcodeSettings& settings, const Token& token);

struct Parameter {
  // A number or a text fills its field directly.
  using Target =
      std::variant<Fixed, Choice, int Settings::BarcodeSettings::*,
                   double Settings::BarcodeSettings::*, std::string Settings::BarcodeSettings::*,
                   Settings::FlaggedText<Settings::BarcodeSettings>, Reader>;

  std::string_view letters;
  Target target;
  std::string_view refusal;
  // For the help text: what stands behind the letters, and the meaning. Without a description the
  // parameter is left out.
  std::string_view value;
  std::string_view description;
};

// In the order of the help text.
std::span<const Parameter> AllParameters();

// The parameter whose letters the token begins with; null when there is none.
const Parameter* FindParameter(std::string_view token);

// The message for a token that is no parameter, by the family that its first letters belong to.
std::string_view UnknownParameter(std::string_view token);

}  // namespace Filter
