#include "engine/library/vextorin9.h"
#include "library/api/CopyText.h"

#include <sys/stat.h>

namespace {

constexpr int kRevision = 1;

void Store(int* target, int value) {
  if (target) *target = value;
}

}  // namespace

BCResult BCGetVersionA(int* major, int* minor, int* patch, int* revision, char* buildDate,
                       int size) {
  Store(major, VEXTORIN_VERSION_MAJOR);
  Store(minor, VEXTORIN_VERSION_MINOR);
  Store(patch, VEXTORIN_VERSION_PATCH);
  Store(revision, kRevision);
  Library::CopyText(VEXTORIN_BUILD_DATE, buildDate, size);
  return BC_OK;
}

int FileExists(const char* path) {
  struct stat entry;
  return path && stat(path, &entry) == 0 && !S_ISDIR(entry.st_mode);
}
