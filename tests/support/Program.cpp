#include "tests/support/Program.h"

#include "tests/support/TempFolder.h"

#include <utility>

namespace Support {
namespace {

std::string JoinLines(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

}  // namespace

Lines Split(std::string_view text, std::string_view separator) {
  Lines parts;
  while (!text.empty()) {
    const std::size_t end = text.find(separator);
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(end == text.npos ? text.size() : end + separator.size());
  }
  return parts;
}

Lines Join(Lines settings, const Lines& more) {
  settings.insert(settings.end(), more.begin(), more.end());
  return settings;
}

Program::Result Program::run(std::string_view input) const {
  const TempFolder folder;
  const std::string ini = folder.write("test.ini", JoinLines(settings));
  Command command;
  // The ini file's option stands where a spooler's job number would.
  command.arguments = {executable, "--inifile=" + ini, "joe", "A title", "1", "media=A4"};
  command.environment = environment;
  command.inputChunk = inputChunk;
  command.slow = slow;
  command.folder = folder.path();
  if (standIn) {
    command.environment.emplace_back("LD_LIBRARY_PATH", VEXTORIN_STANDIN);
    command.environment.emplace_back("VX_STANDIN_LOG", folder.file("calls"));
    command.environment.emplace_back("VX_STANDIN_OUTPUT", kDrawing);  // an earlier one goes first
  }
  if (inputFile) {
    command.arguments.push_back(folder.write("job", input));
  } else {
    command.input = input;
  }
  Result result{Support::Run(command), {}};
  result.calls = Split(ReadFile(folder.file("calls")));
  return result;
}

std::string FirstWith(const Lines& texts, std::string_view beginning) {
  for (const std::string& text : texts) {
    if (text.starts_with(beginning)) return text;
  }
  return {};
}

Program StandAlone(std::string_view settings) {
  return {.settings = Split(settings, " ")};
}

Program Filter(std::string_view settings) {
  return {.settings = Join({"filter"}, Split(settings, " "))};
}

Program Recorded(Program program, Environment answers) {
  program.standIn = true;
  program.environment = std::move(answers);
  return program;
}

}  // namespace Support
