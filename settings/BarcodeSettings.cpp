#include "settings/BarcodeSettings.h"

#include "settings/ApplyOption.h"
#include "settings/BarcodeOptions.h"
#include "settings/HelpText.h"

#include <cstdio>

namespace Settings {

void BarcodeSettings::printUsage() const {
  std::fwrite(kHelpText.data(), 1, kHelpText.size(), stdout);
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
