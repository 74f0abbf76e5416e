#include "settings/BarcodeSettings.h"

#include "diag/Output.h"
#include "settings/ApplyOption.h"
#include "settings/BarcodeOptions.h"
#include "settings/HelpText.h"

namespace Settings {

void BarcodeSettings::printUsage() const {
  Diag::PrintText(kHelpText);
}

Diag::ResultCode BarcodeSettings::readOptions(Parser::ArgumentParser& parser) {
  return applyEach(parser, [&](const std::string& name) { return handleOption(name, parser); });
}

Diag::ResultCode BarcodeSettings::handleOption(const std::string& name,
                                               Parser::ArgumentParser& source) {
  const Option<BarcodeSettings>* option = FindOption(BarcodeOptions(), name);
  if (!option) {
    reportUnrecognizedOption(name);
    return Diag::kInvalidArgument;
  }
  const bool quiet = option->kind == Kind::kQuietText && suppressArgumentReport;
  return ApplyFrom(source, *this, *option, name, quiet);
}

}  // namespace Settings
