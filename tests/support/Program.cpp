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

Lines SplitLines(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
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
  command.arguments = {VEXTORIN_PROGRAM, "--inifile=" + ini, "joe", "A title", "1", "media=A4"};
  command.environment = environment;
  command.inputChunk = inputChunk;
  command.folder = folder.path();
  if (standIn) {
    command.environment.emplace_back("LD_LIBRARY_PATH", VEXTORIN_STANDIN);
    command.environment.emplace_back("VX_STANDIN_LOG", folder.file("calls"));
  }
  if (inputFile) {
    command.arguments.push_back(folder.write("job", input));
  } else {
    command.input = input;
  }
  Result result{Support::Run(command), {}};
  result.calls = SplitLines(ReadFile(folder.file("calls")));
  return result;
}

Program Filter(Lines settings) {
  return {.settings = Join({"filter"}, settings)};
}

Program StandAlone(Lines settings) {
  return {.settings = std::move(settings)};
}

}  // namespace Support
