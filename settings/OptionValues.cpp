#include "settings/OptionValues.h"

#include <algorithm>
#include <string>

namespace Settings {

bool ReadInteger(std::string_view text, Range range, int& value, ZeroRule isZero) {
  value = TextToInteger(text);
  return range.holds(value) && (value != 0 || isZero(text));
}

bool ReadReal(std::string_view text, double& value, ZeroRule isZero) {
  value = TextToReal(text);
  return !NumberIsZero(value) || isZero(text);
}

bool ReadRealExactZero(std::string_view text, double& value) {
  value = TextToReal(text);
  return value < 0 || value > 0 || TextIsZero(text);
}

bool ReadPositiveReal(std::string_view text, double& value) {
  value = TextToReal(text);
  return value > 0;
}

bool ReadNonNegativeReal(std::string_view text, double& value) {
  value = TextToReal(text);
  return value >= 0;
}

bool ReadTruncatedReal(std::string_view text, int& value) {
  value = Truncated(TextToReal(text));
  return value != 0 || TextIsZero(text);
}

bool ReadLetter(std::string_view text, char& value) {
  if (text.empty() || text[0] < 'A' || text[0] > 'Z') return false;
  value = text[0];
  return true;
}

bool ReadKeyword(std::string_view text, Keywords keywords, int& value) {
  std::string word(text);
  ToUpper(word);
  const auto found = std::ranges::find(keywords, word, &Keyword::word);
  if (found == keywords.end()) return false;
  value = found->value;
  return true;
}

}  // namespace Settings
