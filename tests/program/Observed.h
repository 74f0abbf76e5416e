// What the program says and holds, as tests compare it.
#pragma once

#include "parser/StringParser.h"
#include "settings/BarcodeSettings.h"
#include "settings/GlobalSettings.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

using Texts = std::vector<std::string>;

// None of an empty text; a separator at its end adds none.
inline Texts Split(std::string_view text, char separator) {
  std::istringstream stream{std::string(text)};
  Texts parts;
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

// The lines of the dump that differ from those of untouched settings, without their indentation.
inline Texts Changes(const Settings::BarcodeSettings& settings) {
  static const Texts kBefore = Split(Settings::BarcodeSettings().printSettings(), '\n');
  const Texts after = Split(settings.printSettings(), '\n');
  Texts changes;
  for (std::size_t i = 0; i < after.size(); ++i)
    if (kBefore.at(i) != after[i]) changes.push_back(after[i].substr(2));
  return changes;
}

// Takes what the program reports, in place of standard error.
class CollectedLog {
 public:
  CollectedLog() { collect(true); }
  ~CollectedLog() { collect(false); }
  CollectedLog(const CollectedLog&) = delete;
  CollectedLog& operator=(const CollectedLog&) = delete;

  // The error and warning lines since the last call.
  std::string take() {
    const std::string text = log.getCollectedText();
    log.clearCollectedText();
    return text;
  }

 private:
  void collect(bool on) {
    log.setStderrOn(!on);
    log.setCollect(on);
    log.clearCollectedText();
  }

  Diag::TraceLog& log = g_settings.trace;
};

// None of an empty message.
inline std::string ErrorLine(const std::string& message) {
  return message.empty() ? "" : "vextorin: Error: " + message + "\n";
}

// Reads options as a sequence has them.
class Options : public testing::Test {
 protected:
  Diag::ResultCode read(const std::string& text) {
    Parser::StringParser parser(text);
    return settings.readOptions(parser);
  }

  const Support::TempFolder files;
  Settings::BarcodeSettings settings;
  CollectedLog log;
};
