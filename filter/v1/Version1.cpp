#include "filter/v1/Version1.h"

#include "filter/v1/Parameters.h"
#include "settings/BarcodeOptions.h"
#include "settings/GlobalSettings.h"

#include <algorithm>
#include <new>

namespace Filter {
namespace {

constexpr char kDataLetter = 'd';

// A refusal that ends in ": " is followed by the parameter as written.
Diag::ResultCode Refuse(std::string_view refusal, std::string_view token = {}) {
  if (refusal.ends_with(": ")) {
    g_settings.trace.Trace(Diag::kError, refusal, '"', Diag::Foreign{token}, '"');
  } else {
    g_settings.trace.Trace(Diag::kError, refusal);
  }
  return Diag::kInvalidArgument;
}

// A number means the same as in the option that fills its field.
Settings::Range RangeOf(int Settings::BarcodeSettings::*field) {
  for (const auto& option : Settings::BarcodeOptions()) {
    const auto* own = std::get_if<int Settings::BarcodeSettings::*>(&option.field);
    if (own && *own == field) return option.range;
  }
  return {};
}

// Stores a value by the kind of its parameter. Each returns the message that refuses the value, and
// then leaves the field as it was; else nothing.
struct Storing {
  Settings::BarcodeSettings& settings;
  const Token& token;
  std::string_view refusal;

  std::string_view operator()(Fixed target) const {
    settings.*target.field = target.value;
    return {};
  }

  std::string_view operator()(Choice target) const {
    const bool known = Settings::ReadKeyword(token.value, target.keywords, settings.*target.field);
    return known ? std::string_view() : refusal;
  }

  std::string_view operator()(int Settings::BarcodeSettings::*field) const {
    int number = 0;
    if (!Settings::ReadInteger(token.value, RangeOf(field), number, BeginsWithZero)) return refusal;
    settings.*field = number;
    return {};
  }

  std::string_view operator()(double Settings::BarcodeSettings::*field) const {
    const double number = Settings::TextToReal(token.value);
    const bool isZero = !(number < 0 || number > 0);
    if (isZero && !BeginsWithZero(token.value)) return refusal;
    settings.*field = number;
    return {};
  }

  std::string_view operator()(std::string Settings::BarcodeSettings::*field) const {
    if (token.isTooLong()) return refusal;
    settings.*field = token.value;
    return {};
  }

  std::string_view operator()(Settings::FlaggedText<Settings::BarcodeSettings> target) const {
    if (token.isTooLong()) return refusal;
    settings.*target.given = 1;
    return (*this)(target.text);
  }

  std::string_view operator()(Reader read) const { return read(settings, token); }
};

}  // namespace

Diag::ResultCode ParseVersion1(std::string_view text, Settings::BarcodeSettings& settings) {
  g_settings.trace.Trace(Diag::kInformation, "Parse arguments in v1.x format.");
  std::vector<std::string_view> tokens;
  try {
    tokens = SplitVersion1(text);
  } catch (const std::bad_alloc&) {
    return Refuse("Memory allocation failed.");
  }
  if (tokens.empty()) return Refuse("Missing barcode parameters!");
  for (const std::string_view token : tokens) {
    if (const Diag::ResultCode result = ApplyVersion1Token(token, settings)) return result;
  }
  return Diag::kSuccess;
}

std::vector<std::string_view> SplitVersion1(std::string_view text) {
  std::vector<std::string_view> tokens;
  while (true) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.empty()) return tokens;
    const std::size_t size = text.front() == kDataLetter ? text.size() : text.find(' ');
    tokens.push_back(text.substr(0, size));
    text.remove_prefix(tokens.back().size());
  }
}

Diag::ResultCode ApplyVersion1Token(std::string_view token, Settings::BarcodeSettings& settings) {
  const Parameter* parameter = FindParameter(token);
  if (!parameter) return Refuse(UnknownParameter(token), token);
  const Token parts = {token, token.substr(parameter->letters.size())};
  const Storing storing = {settings, parts, parameter->refusal};
  const std::string_view refusal = std::visit(storing, parameter->target);
  return refusal.empty() ? Diag::kSuccess : Refuse(refusal, token);
}

std::string Version1Help() {
  constexpr std::size_t kDescriptionColumn = 28;
  std::string help = "  BARCODE_SETTINGS:\n";
  for (const Parameter& parameter : AllParameters()) {
    if (parameter.description.empty()) continue;
    std::string line = Diag::Text("    ", parameter.letters, parameter.value);
    line.resize(std::max(line.size() + 1, kDescriptionColumn), ' ');
    help += line.append(parameter.description) + '\n';
  }
  return help;
}

}  // namespace Filter
