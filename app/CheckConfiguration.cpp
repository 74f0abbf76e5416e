#include "app/CheckConfiguration.h"

#include "app/Application.h"
#include "app/StandardStreams.h"
#include "diag/Output.h"
#include "parser/IniFileParser.h"
#include "settings/GlobalSettings.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace App {
namespace {

using Diag::Text;

// Hands on one option of the file, and no other.
class OneOption : public Parser::ArgumentParser {
 public:
  OneOption(Parser::IniFileParser& newFile, const std::string& newName)
      : file(newFile), optionName(newName) {}

  Diag::ResultCode nextOption(std::string& name) override {
    name.clear();
    if (delivered) return Diag::kNothingLeft;
    delivered = true;
    name = optionName;
    return Diag::kSuccess;
  }
  Diag::ResultCode optionArgument(std::string& value) override {
    return file.optionArgument(value);
  }

 private:
  Parser::IniFileParser& file;
  const std::string& optionName;
  bool delivered = false;
};

// Options that do something at once: print a text, or read another file.
bool ActsAtOnce(std::string_view name) {
  for (const std::string_view acting :
       {"help", "?", "shorthelp", "barcodesettings", "s", "version", "morehelp"})
    if (name == acting) return true;
  return false;
}

// What the log said since it was emptied, as one line.
std::string Said(Diag::TraceLog& trace) {
  std::string said;
  const std::string text = trace.getCollectedText();
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    std::string_view line = std::string_view(text).substr(begin, end - begin);
    for (const std::string_view prefix : {"vextorin: ", "Error: ", "Warning: "})
      if (line.starts_with(prefix)) line.remove_prefix(prefix.size());
    if (!line.empty()) said.append(said.empty() ? "" : " ").append(line);
    begin = end + 1;
  }
  return said;
}

struct Finding {
  std::size_t line;
  std::string text;   // the line itself
  std::string fault;  // empty when it is right
};

// What is wrong with the option just delivered; empty when nothing is, and it is set.
std::string Fault(Parser::IniFileParser& file, const std::string& name) {
  if (ActsAtOnce(name)) return "shows a text in place of every job";
  Diag::TraceLog& trace = g_settings.trace;
  trace.clearCollectedText();
  OneOption option(file, name);
  if (g_settings.application.readOptions(option) == Diag::kSuccess) return {};
  const std::string said = Said(trace);
  return said.empty() ? "can't be used" : said;
}

// The options may say where messages go; here they are collected.
void CollectMessages(Diag::TraceLog& trace) {
  trace.setStderrOn(false);
  trace.setErrorFileOn(false);
  trace.setSyslogOn(false);
  trace.setMaxLevel(Diag::kWarning);
  trace.setCollect(true);
}

std::vector<Finding> ReadAll(Parser::IniFileParser& file) {
  std::vector<Finding> findings;
  std::string name;
  for (;;) {
    const Diag::ResultCode next = file.nextOption(name);
    if (next != Diag::kSuccess && name.empty()) return findings;
    CollectMessages(g_settings.trace);
    if (next == Diag::kSuccess) {
      std::string fault = Fault(file, name);
      findings.push_back({file.lineNumber(), file.lineText(), std::move(fault)});
    } else if (!findings.empty() && findings.back().fault.empty()) {
      // What is left of the line that was delivered last.
      findings.back().fault = "the option takes no value";
    }
  }
}

}  // namespace

int CheckConfiguration(const std::string& fileName) {
  Parser::IniFileParser file;
  if (file.open(fileName) != Diag::kSuccess) {
    Diag::PrintText(Text(fileName, ": can't be read\n"));
    return AfterPrinting(kExitNoIniFile);
  }
  std::string report;
  std::size_t wrong = 0;
  for (const Finding& finding : ReadAll(file)) {
    report += Text(fileName, ':', finding.line, ": ", finding.text);
    if (!finding.fault.empty()) {
      ++wrong;
      report += "  WRONG: " + finding.fault;
    }
    report += '\n';
  }
  const Settings::AppSettings& application = g_settings.application;
  if (!application.filter && application.barcode.data.empty())
    report += Text(fileName, ": neither filter nor data is set, so nothing would be done\n");
  report += wrong == 0 ? Text(fileName, ": no mistakes\n")
                       : Text(fileName, ": ", wrong, wrong == 1 ? " mistake\n" : " mistakes\n");
  Diag::PrintText(report);
  return AfterPrinting(wrong == 0 ? int{kExitSuccess} : int{kExitBadArguments});
}

}  // namespace App
