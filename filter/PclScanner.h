// Reads a PCL job up to the next place that matters to the filter, and passes everything in front
// of it on.
//
// Text and commands go through bit masks of 64 bytes; data behind commands are passed by what
// PclData.h knows of them, rows of a picture that follow each other without a look at anything
// else.
#pragma once

#include "filter/BlockMasks.h"
#include "filter/Found.h"
#include "filter/PclData.h"
#include "filter/Stream.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace Filter {

class PclScanner {
 public:
  struct Wanted {
    bool lineEnds = false, pattern = false;
    bool operator==(const Wanted&) const = default;
  };
  struct Marks {
    std::string begin, insertPattern;
    char lineEnd = '\n';
    bool orvella = false;
    bool pjl = false;
    bool lineBegins = false;  // keep track of where lines begin
  };

  PclScanner(Stream& newStream, const Marks& newMarks);

  // The language begins at the window's front.
  void beginLanguage() { xlMayBegin = XlMayBegin::kHere; }

  // Forwards the job up to what is found, which then stands at the window's front.
  Found next(const Wanted& newWanted);

  // Where the line began that the window is in, as a place in the job.
  std::uint64_t lineBegin() const { return lineBeginPlace; }
  // Pages ended so far, by form feeds.
  unsigned pages() const { return pageCount; }
  // Called with the place in the job of a sequence in data, which stay as they are, and says where
  // it stands.
  void onSequenceInData(std::function<void(std::uint64_t place, const char* where)> call) {
    dataSequence = std::move(call);
  }

 private:
  static constexpr std::size_t kFewBlocks = 4, kManyBlocks = 64;

  void chooseStops(const Wanted& newWanted);
  void lookForPclXl();
  void passData();
  void passCommands();
  void passScanned();
  bool scanBlocks();
  bool walk(std::size_t count);
  bool visit(std::size_t at);
  bool settle(std::size_t at, bool command);
  Found whatIsAt(std::size_t at, char byte);

  Stream& stream;
  const Marks marks;
  const MaskMaker makeMasks;
  StopSet stops;
  std::array<BlockMasks, kManyBlocks> masks;
  Wanted wanted;
  bool stopsChosen = false;
  bool escapeStops = false;  // what the filter looks for may begin with the escape

  std::size_t position = 0;  // in the window: scanned up to here
  std::size_t blocks = kFewBlocks;
  bool atCommand = false;  // at `position` may stand a command with data
  enum class XlMayBegin { kNot, kHere, kBehindLine } xlMayBegin = XlMayBegin::kNot;
  PclData data;  // behind `position`
  Found found = Found::kEnd;
  std::uint64_t lineBeginPlace = UINT64_MAX;
  unsigned pageCount = 0;
  std::function<void(std::uint64_t place, const char* where)> dataSequence;
};

}  // namespace Filter
