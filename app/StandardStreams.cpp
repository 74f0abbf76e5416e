#include "app/StandardStreams.h"

#include "app/Application.h"
#include "diag/Output.h"
#include "settings/GlobalSettings.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace App {

void SecureStandardStreams() {
  constexpr struct {
    int descriptor;
    int mode;
  } kStreams[] = {{STDIN_FILENO, O_WRONLY}, {STDOUT_FILENO, O_RDONLY}, {STDERR_FILENO, O_RDWR}};
  for (const auto& [descriptor, mode] : kStreams) {
    const bool closed = fcntl(descriptor, F_GETFD) < 0 && errno == EBADF;
    // The lowest free descriptor is this one, as those before it are taken.
    if (closed && open("/dev/null", mode) != descriptor) _exit(kExitException);
  }
  signal(SIGPIPE, SIG_IGN);
}

int AfterPrinting(int exitCode) {
  const int error = Diag::PrintFailure();
  if (error == 0) return exitCode;
  ReportOutputFailure(error);
  return kExitAccessDenied;
}

void ReportOutputFailure(int error) {
  g_settings.trace.Note(Diag::kError, "Couldn't write to standard output: ", std::strerror(error));
}

}  // namespace App
