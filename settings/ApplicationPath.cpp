#include "settings/ApplicationPath.h"

#include <limits.h>
#include <unistd.h>

namespace Settings {
namespace {

constexpr std::string_view kDefaultPath = "/usr/local/share/vextorin9/vextorin";

std::string ProgramPath(Diag::TraceLog* log) {
  const std::string link = Diag::Text("/proc/", getpid(), "/exe");
  char path[PATH_MAX];
  const ssize_t length = readlink(link.c_str(), path, sizeof path);
  if (length >= 0) return std::string(path, static_cast<std::size_t>(length));
  if (log) {
    log->Trace(Diag::kDebug, "readlink() failed.");
    log->Trace(Diag::kInformation, "Couldn't get path of application!");
    log->Trace(Diag::kInformation, "Now using default installation path!");
  }
  return std::string(kDefaultPath);
}

}  // namespace

std::string ApplicationDirectory(Diag::TraceLog* log) {
  std::string path = ProgramPath(log);
  for (const char separator : {'/', '\\'})
    if (const std::size_t last = path.rfind(separator); last != std::string::npos)
      return path.substr(0, last + 1);
  return path;
}

}  // namespace Settings
