// Takes what the program reports, in place of standard error.
#pragma once

#include "settings/GlobalSettings.h"

#include <string>

class CollectedLog {
 public:
  CollectedLog() {
    log.setStderrOn(false);
    log.setCollect(true);
    log.clearCollectedText();
  }
  ~CollectedLog() {
    log.clearCollectedText();
    log.setCollect(false);
    log.setStderrOn(true);
  }
  CollectedLog(const CollectedLog&) = delete;
  CollectedLog& operator=(const CollectedLog&) = delete;

  // The error and warning lines since the last call.
  std::string take() {
    const std::string text = log.getCollectedText();
    log.clearCollectedText();
    return text;
  }

 private:
  Diag::TraceLog& log = g_settings.trace;
};
