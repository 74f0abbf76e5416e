#include "diag/TraceLog.h"

#include "diag/Output.h"

#include <fcntl.h>
#include <syslog.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace Diag {
namespace {

struct LevelRow {
  Level level;
  std::string_view word;  // in the line
  std::string_view tag;   // in front of the line, on standard error only
  int priority;
};

constexpr LevelRow kLevels[] = {
    {kError, "Error: ", "ERROR: ", LOG_USER | LOG_ERR},
    {kWarning, "Warning: ", "WARNING: ", LOG_USER | LOG_WARNING},
    {kInformation, "Info: ", "INFO: ", LOG_USER | LOG_INFO},
    {kDebug, "", "DEBUG: ", LOG_USER | LOG_INFO},
};

const LevelRow& RowOf(Level level) {
  static constexpr LevelRow kOther{kDebug, "", "", LOG_USER | LOG_INFO};
  const auto* row = std::ranges::find(kLevels, level, &LevelRow::level);
  return row != std::end(kLevels) ? *row : kOther;
}

void WriteToStderr(std::string_view text) {
  WriteAll(STDERR_FILENO, text);
}

// The file stays where other users can write, too, so a link there may be anyone's. A pipe that
// nobody reads must not stop the job.
Descriptor OpenForAppending(const std::string& name) {
  const bool standardStream = name == "/dev/stderr" || name == "/dev/stdout";
  const int flags = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
  constexpr mode_t kOwnerAndGroup = 0640;
  return Descriptor(open(name.c_str(), flags | (standardStream ? 0 : O_NOFOLLOW), kOwnerAndGroup));
}

void WriteOrDrop(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(descriptor, text.data(), text.size());
    if (count < 0 && errno != EINTR) return;
    text.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  }
}

}  // namespace

TraceLog::~TraceLog() {
  finish();
  closeSinks();
}

void TraceLog::decreaseIndent() {
  if (indentDepth > 0) --indentDepth;
}

ResultCode TraceLog::openSinks() {
  closeSinks();
  const ResultCode fileResult = errorFileOn ? openErrorFile() : kSinksOpen;
  if (syslogOn) {
    syslogIdentity = name;
    openlog(syslogIdentity.c_str(), LOG_PID, LOG_USER);
  }
  return fileResult;
}

ResultCode TraceLog::openErrorFile() {
  if (errorFileName.empty()) {
    WriteToStderr("Filename of error file must be specified.\n");
    return kInvalidArgument;
  }
  errorFile = OpenForAppending(errorFileName);
  if (!errorFile) {
    WriteToStderr(Text("Couldn't open error file.\nError message:", std::strerror(errno), '\n'));
    return kAccessDenied;
  }
  return kSinksOpen;
}

void TraceLog::closeSinks() {
  errorFile = Descriptor();
  if (syslogOn) closelog();
}

void TraceLog::write(std::string_view message, Level level, Form form) {
  const LevelRow& row = RowOf(level);
  std::string line(row.tag);
  if (form.prefix) line.append(name).append(": ").append(row.word);
  line.append(static_cast<std::size_t>(std::max(indentWidth, 0) * indentDepth), ' ');
  line.append(message);
  if (form.lineEnd) line += '\n';

  const std::string_view untagged = std::string_view(line).substr(row.tag.size());
  if (stderrOn && !schedulerReads) WriteToStderr(line);
  if (errorFileOn && errorFile) {
    WriteOrDrop(errorFile.get(), untagged);
  }
  if (collect && form.collected && (level == kError || level == kWarning)) {
    collectedText += untagged;
  }
  if (syslogOn) {
    // Syslog supplies the identity and the line end itself.
    const std::size_t nameLength = form.prefix ? name.size() + 2 : 0;
    std::string text(untagged.substr(nameLength));
    if (form.lineEnd) text.pop_back();
    syslog(row.priority, "%s", text.c_str());
  }
}

}  // namespace Diag
