#include "diag/File.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace Diag {
namespace {

FileContents Failed(ReadFailure failure, int error = 0) {
  return {{}, failure, error};
}

// Reads up to `limit` bytes, fewer only at the end of the file. A configuration, read at each
// start, mostly fits into the first block; each further one is as long as what has been read.
FileContents ReadUpTo(int file, std::size_t limit) {
  constexpr std::size_t kFirstBlock = 4096;
  FileContents contents;
  std::string& bytes = contents.bytes;
  while (bytes.size() < limit) {
    const std::size_t before = bytes.size();
    bytes.resize(before + std::min(std::max(kFirstBlock, before), limit - before));
    const ssize_t count = read(file, bytes.data() + before, bytes.size() - before);
    const int error = errno;
    bytes.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count == 0) break;
    if (count < 0 && error != EINTR) return Failed(ReadFailure::kNotRead, error);
  }
  return contents;
}

FileContents ReadAny(int file, std::size_t limit) {
  FileContents contents = ReadUpTo(file, limit + 1);
  return contents.bytes.size() > limit ? Failed(ReadFailure::kTooLarge) : contents;
}

FileContents ReadRegular(int file, std::size_t limit) {
  struct stat status;
  if (fstat(file, &status) != 0) return Failed(ReadFailure::kNotRead, errno);
  if (S_ISDIR(status.st_mode)) return Failed(ReadFailure::kNotRead, EISDIR);
  if (!S_ISREG(status.st_mode)) return Failed(ReadFailure::kNotRegular);
  const auto size = static_cast<std::size_t>(status.st_size);
  return size > limit ? Failed(ReadFailure::kTooLarge) : ReadUpTo(file, size);
}

}  // namespace

int Descriptor::close() {
  return number >= 0 && ::close(std::exchange(number, -1)) != 0 ? errno : 0;
}

FileContents ReadFile(const std::string& name, FileKind kind, std::size_t limit) {
  const bool regular = kind == FileKind::kRegular;
  // A pipe without a writer would not even open otherwise.
  const int flags = regular ? O_NONBLOCK | O_NOCTTY : 0;
  const Descriptor file(open(name.c_str(), O_RDONLY | O_CLOEXEC | flags));
  if (!file) return Failed(ReadFailure::kNotOpened, errno);
  return regular ? ReadRegular(file.get(), limit) : ReadAny(file.get(), limit);
}

}  // namespace Diag
