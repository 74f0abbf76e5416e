#include "fuzz/Streams.h"

#include <unistd.h>

#include <algorithm>

namespace Fuzz {
namespace {

Streams* current = nullptr;

}  // namespace

Streams::Streams(std::string_view newInput, Arrival newArrival)
    : input(newInput), arrival(newArrival) {
  current = this;
}

Streams::~Streams() {
  current = nullptr;
}

std::size_t Streams::read(char* buffer, std::size_t size) {
  size = std::min(size, input.size() - position);
  if (position < arrival.from) {
    size = std::min(size, arrival.from - position);
  } else if (position < arrival.to) {
    size = std::min(size, arrival.size);
  }
  input.copy(buffer, size, position);
  position += size;
  return size;
}

}  // namespace Fuzz

// The linker's names for what stands in place of a function, and for the function.
extern "C" {

ssize_t __real_read(int file, void* buffer, std::size_t size);
ssize_t __real_write(int file, const void* bytes, std::size_t size);

ssize_t __wrap_read(int file, void* buffer, std::size_t size) {
  if (!Fuzz::current || file != STDIN_FILENO) return __real_read(file, buffer, size);
  return static_cast<ssize_t>(Fuzz::current->read(static_cast<char*>(buffer), size));
}

ssize_t __wrap_write(int file, const void* bytes, std::size_t size) {
  if (!Fuzz::current || file != STDOUT_FILENO) return __real_write(file, bytes, size);
  Fuzz::current->output.append(static_cast<const char*>(bytes), size);
  return static_cast<ssize_t>(size);
}

}  // extern "C"
