// What the parts of the filter share: the job on its way, the settings, and the log.
#pragma once

#include "diag/TraceLog.h"
#include "filter/Stream.h"
#include "settings/AppSettings.h"

#include <cstddef>
#include <cstdint>

namespace Filter {

// Barcodes that are kept until their place in the job comes. Further ones are missing then.
constexpr std::size_t kMostWaiting = 16 * 1024 * 1024;

struct Job {
  Job(Settings::AppSettings& newApplication, Diag::TraceLog& newLog)
      : application(newApplication), log(newLog) {}

  Stream stream;
  Settings::AppSettings& application;
  Diag::TraceLog& log;
  char lineEnd = '\n';
  // Pages begun so far; 0 in front of the first and in jobs that don't say.
  unsigned page = 0;

  bool isPostScript() const { return application.streamType == Settings::kStreamPostScript; }

  // Says where in the job something happened that the line in front of it is about, or that a
  // barcode will be missing from the paper.
  void noteSequenceFailed(std::uint64_t place) const;
  void noteBarcodeMissing(std::uint64_t place, const char* reason) const;

 private:
  std::string where(std::uint64_t place) const;
};

}  // namespace Filter
