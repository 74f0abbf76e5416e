// The one channel through which every part of the program reports progress, warnings and errors.
//
// A message goes, filtered by level, to up to four sinks in this order: standard error, the error
// file, the collected text, syslog. A prefixed line reads
//
//     name ": " level-word indentation message "\n"
//
// and on standard error a tag such as "ERROR: " stands in front of it, unless the print scheduler
// reads that: see SchedulerLines.h.
#pragma once

#include "diag/File.h"
#include "diag/Level.h"
#include "diag/ResultCode.h"
#include "diag/SchedulerLines.h"
#include "diag/Text.h"

#include <string>
#include <string_view>

namespace Diag {

class TraceLog {
 public:
  static constexpr ResultCode kSinksOpen = 1;

  TraceLog() = default;
  ~TraceLog();
  TraceLog(const TraceLog&) = delete;
  TraceLog& operator=(const TraceLog&) = delete;

  // True when a message of `level` would be written; ask before work that only a message needs.
  bool enabled(Level level) const { return !muted && level <= maxLevel; }

  // The message is the concatenation of its parts (texts, characters, numbers, Foreign{...} for
  // what a print job or the command line brought); nothing is built for a disabled level.
  // A complete line: prefix and line end.
  template <class... Parts>
  void Trace(Level level, const Parts&... parts) {
    add(level, {.lineEnd = true, .prefix = true, .collected = true}, parts...);
  }
  // The start of a line: prefix, no line end.
  template <class... Parts>
  void TracePart(Level level, const Parts&... parts) {
    add(level, {.lineEnd = false, .prefix = true, .collected = true}, parts...);
  }
  // The rest of a line: line end, no prefix.
  template <class... Parts>
  void TraceCont(Level level, const Parts&... parts) {
    add(level, {.lineEnd = true, .prefix = false, .collected = true}, parts...);
  }
  // Text exactly as given.
  template <class... Parts>
  void TraceRaw(Level level, const Parts&... parts) {
    add(level, {.lineEnd = false, .prefix = false, .collected = true}, parts...);
  }
  // A complete line that says more than the documented ones. It is never collected: what is printed
  // in place of a barcode is documented text.
  template <class... Parts>
  void Note(Level level, const Parts&... parts) {
    add(level, {.lineEnd = true, .prefix = true, .collected = false}, parts...);
  }

  // Why what is reported next as an error happened, for the print scheduler alone and in place of
  // what the lines of the error say; it quotes nothing of a print job. Muted or not: what users see
  // of an error is this line.
  void reason(std::string_view text) {
    if (stderrOn && schedulerReads && kError <= maxLevel) schedulerLines.setReason(text);
  }

  void setSyslogOn(bool on) { syslogOn = on; }
  void setStderrOn(bool on) { stderrOn = on; }
  void setErrorFileOn(bool on) { errorFileOn = on; }
  // The print scheduler reads standard error, and has messages there in its own form.
  void setSchedulerReads(bool on) { schedulerReads = on; }
  bool readByScheduler() const { return schedulerReads; }
  void setName(std::string_view newName) { name = newName; }
  void setErrorFileName(std::string_view newName) { errorFileName = newName; }
  const std::string& getErrorFileName() const { return errorFileName; }
  void setIndentWidth(int spaces) { indentWidth = spaces; }
  void setMaxLevel(int level) { maxLevel = level; }  // 0 silences everything
  void setMuted(bool on) { muted = on; }
  bool isMuted() const { return muted; }
  void increaseIndent() { ++indentDepth; }
  void decreaseIndent();  // not below 0
  void setCollect(bool on) { collect = on; }
  std::string getCollectedText() const { return collectedText; }
  void clearCollectedText() { collectedText.clear(); }

  // Writes what is still held back of messages.
  void finish() { schedulerLines.finish(); }

  // Opens the error file and syslog as switched on. Failures are reported on standard error; the
  // program goes on without the failed sink. Success is kSinksOpen, not 0.
  ResultCode openSinks();
  void closeSinks();

 private:
  struct Form {
    bool lineEnd;
    bool prefix;
    bool collected;  // while collection is on
  };
  template <class... Parts>
  void add(Level level, Form form, const Parts&... parts) {
    if (!enabled(level)) return;
    const std::string message = Text(parts...);
    if (stderrOn && schedulerReads) {
      schedulerLines.add(level, name,
                         {message, TextWithoutForeign(parts...), form.lineEnd, !form.collected});
    }
    write(message, level, form);
  }
  void write(std::string_view message, Level level, Form form);
  ResultCode openErrorFile();

  bool schedulerReads = false;
  SchedulerLines schedulerLines;
  bool syslogOn = false;
  bool stderrOn = true;
  bool errorFileOn = false;
  std::string name = "vextorin";
  std::string syslogIdentity;  // syslog keeps a pointer to it
  Descriptor errorFile;
  std::string errorFileName = "vextorin_error.txt";
  int indentWidth = 2;  // spaces a step
  int indentDepth = 0;
  int maxLevel = kError;
  bool muted = false;
  bool collect = false;  // levels 1 and 2 are also appended to collectedText
  std::string collectedText;
};

}  // namespace Diag
