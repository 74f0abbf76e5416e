#include "app/QueueConfiguration.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace App {
namespace {

// Names that lead to another folder, or that no queue has, name no file.
bool IsName(std::string_view queue) {
  return !queue.empty() && queue.front() != '.' && queue.find('/') == queue.npos;
}

}  // namespace

bool RunByScheduler() {
  return std::getenv("CUPS_SERVERBIN") != nullptr;
}

std::string QueueConfiguration(const std::string& common) {
  const char* const printer = std::getenv("PRINTER");
  if (!RunByScheduler() || printer == nullptr || !IsName(printer)) return common;
  const std::string own =
      common.substr(0, common.rfind('/') + 1) + "vextorin.d/" + printer + ".conf";
  // One that is there but can't be read is an error, not a reason to print with other settings.
  return access(own.c_str(), F_OK) == 0 ? own : common;
}

}  // namespace App
