// Every source of options: whatever stands in it, it comes to an end, and settings filled from it
// are left whole. The first byte chooses the source.
#include "filter/Arguments.h"
#include "filter/v1/Version1.h"
#include "fuzz/Target.h"
#include "parser/CommandLineParser.h"
#include "parser/IniFileParser.h"
#include "parser/StringParser.h"
#include "settings/GlobalSettings.h"

#include <vector>

namespace Fuzz {
namespace {

// Takes every option and, from every second one on, its argument; each call takes something.
void Drain(Parser::ArgumentParser& parser, std::size_t size) {
  std::string text;
  for (std::size_t taken = 0; parser.nextOption(text) == Diag::kSuccess; ++taken) {
    Require(taken <= size, "options come to an end");
    if (taken % 2 == 0) parser.optionArgument(text);
  }
}

template <class Source, class Record>
void ReadFrom(const Source& source, std::size_t size, Record& record) {
  auto drained = source;
  Drain(drained, size);
  auto read = source;
  record.fromJob = true;
  record.readOptions(read);
  record.printSettings();
}

void ReadCommandLine(std::string_view text, Settings::AppSettings& settings) {
  std::string elements(text);
  elements += '\0';
  std::vector<const char*> arguments = {"program"};
  for (std::size_t at = 0; at < elements.size(); at += std::string_view(&elements[at]).size() + 1) {
    arguments.push_back(&elements[at]);
  }
  ReadFrom(Parser::CommandLineParser(static_cast<int>(arguments.size()), arguments.data()),
           elements.size(), settings);
}

void DecodeArguments(std::string_view text, Settings::BarcodeSettings& settings) {
  std::string decoded(text);
  Filter::decodeArguments(decoded, g_settings.trace);
  if (text.find_first_of("(<") == std::string_view::npos)
    Require(decoded == text, "options without strings stay as they are");
  ReadFrom(Parser::StringParser(decoded), decoded.size(), settings);
}

}  // namespace

void FuzzOptions(std::string_view bytes) {
  Input input(bytes);
  g_settings.trace.setStderrOn(false);
  g_settings.trace.setMaxLevel(Diag::kDebug);
  static const Settings::AppSettings kDefaults;  // looks for configuration files
  Settings::AppSettings settings = kDefaults;
  settings.barcode.fromJob = true;
  const unsigned source = input.choice() % 5;
  const std::string text(input.rest());
  switch (source) {
    case 0:
      return ReadFrom(Parser::StringParser(text), text.size(), settings.barcode);
    case 1: {
      Parser::IniFileParser parser;
      parser.take(text);
      return ReadFrom(parser, text.size(), settings);
    }
    case 2:
      return ReadCommandLine(text, settings);
    case 3:
      Filter::ParseVersion1(text, settings.barcode);
      return;
    default:
      return DecodeArguments(text, settings.barcode);
  }
}

}  // namespace Fuzz
