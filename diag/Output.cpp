#include "diag/Output.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace Diag {
namespace {

int g_printFailure = 0;

bool Waited(int descriptor) {
  if (errno == EINTR) return true;
  if (errno != EAGAIN && errno != EWOULDBLOCK) return false;
  pollfd ready{descriptor, POLLOUT, 0};
  return poll(&ready, 1, -1) >= 0 || errno == EINTR;
}

}  // namespace

int WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(descriptor, bytes.data(), bytes.size());
    if (count >= 0)
      bytes.remove_prefix(static_cast<std::size_t>(count));
    else if (!Waited(descriptor))
      return errno;
  }
  return 0;
}

void PrintText(std::string_view text) {
  if (g_printFailure == 0) g_printFailure = WriteAll(STDOUT_FILENO, text);
}

int PrintFailure() {
  return g_printFailure;
}

}  // namespace Diag
