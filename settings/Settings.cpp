#include "settings/Settings.h"

#include "settings/ApplyOption.h"
#include "settings/GlobalSettings.h"

namespace Settings {

void Settings::reportMissingArgument(std::string_view name) const {
  g_settings.trace.Trace(Diag::kError, "Option '", quoted(name), "' requires an argument.");
  giveReason("has no value");
}

void Settings::reportUnrecognizedOption(std::string_view name) const {
  g_settings.trace.Trace(Diag::kError, "Unrecognized option ", quoted(name));
  giveReason("is not known");
}

void Settings::giveReason(std::string_view fault) const {
  if (fromJob) g_settings.trace.reason(Diag::Text("option ", optionNumber, ' ', fault));
}

Diag::ResultCode Settings::applyEach(Parser::ArgumentParser& parser, const Apply& apply) const {
  std::string name;
  for (int number = 1;; ++number) {
    optionNumber = number;  // anew, as a file that an option names has options, too
    if (parser.nextOption(name) != Diag::kSuccess) break;
    if (const Diag::ResultCode result = apply(name)) return result;
  }
  if (name.empty()) return Diag::kSuccess;
  reportUnrecognizedOption(name);
  return Diag::kInvalidArgument;
}

Diag::ResultCode RefuseValue(const Settings& record, std::string_view refusal,
                             std::string_view value) {
  const bool naming = refusal.ends_with(": ");
  g_settings.trace.Trace(Diag::kError, refusal, record.quoted(naming ? value : ""));
  return Diag::kInvalidArgument;
}

}  // namespace Settings
