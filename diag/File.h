// Files: a descriptor that is closed with its owner, and reading a file whole.
#pragma once

#include <unistd.h>

#include <cstddef>
#include <string>
#include <utility>

namespace Diag {

class Descriptor {
 public:
  explicit Descriptor(int descriptor = -1) : number(descriptor) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number, other.number);
    return *this;
  }
  ~Descriptor() { close(); }

  explicit operator bool() const { return number >= 0; }
  int get() const { return number; }
  // 0, or the system's error, such as that of a write which was put off.
  int close();

 private:
  int number;  // negative: none
};

// What a name may stand for. A regular file never blocks, and has no more bytes than it states.
enum class FileKind { kAny, kRegular };

enum class ReadFailure { kNone, kNotOpened, kNotRead, kNotRegular, kTooLarge };

struct FileContents {
  std::string bytes;
  ReadFailure failure = ReadFailure::kNone;
  int error = 0;  // the system's, with kNotOpened and kNotRead
};

// Reads a file of at most `limit` bytes. A folder is kNotRead for either kind.
FileContents ReadFile(const std::string& name, FileKind kind, std::size_t limit);

}  // namespace Diag
