// Reads a PCL job up to the next place that matters to the filter, and passes everything in front
// of it on. Pages of PCL are full of raster data that hold every byte, so what is looked for are
// pairs of bytes.
#pragma once

#include "filter/BlockMasks.h"
#include "filter/Found.h"
#include "filter/Stream.h"

#include <cstddef>
#include <cstdint>
#include <string>

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

  // Forwards the job up to what is found, which then stands at the window's front.
  Found next(const Wanted& newWanted);

  // Where the line began that the window is in, as a place in the job.
  std::uint64_t lineBegin() const { return lineBeginPlace; }
  // Pages ended so far, by form feeds.
  unsigned pages() const { return pageCount; }

 private:
  static constexpr char kFormFeed = '\f';

  void chooseStops(const Wanted& newWanted);
  void countPages(std::uint64_t formFeeds) {
    for (; formFeeds != 0; formFeeds &= formFeeds - 1) ++pageCount;
  }
  Found findIn(const BlockMasks& masks, std::size_t base);
  Found whatIsAt(std::size_t at);

  Stream& stream;
  const Marks marks;
  const MaskMaker makeMasks;
  StopSet stops{kFormFeed, kFormFeed};
  Wanted wanted;
  bool stopsChosen = false;
  std::size_t foundAt = 0;  // in the window
  std::uint64_t lineBeginPlace = UINT64_MAX;
  unsigned pageCount = 0;
};

}  // namespace Filter
