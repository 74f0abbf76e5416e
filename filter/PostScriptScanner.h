// Reads a PostScript job up to the next place that matters to the filter, and passes everything in
// front of it on.
//
// What matters is rare: a string that may hold a sequence, the begin token among operators, a few
// comments, the end of the language. Blocks of 64 bytes become bit masks, and a block whose
// parentheses simply alternate and which holds nothing else of interest is settled with a few
// operations on them; only the others are walked byte by byte.
//
//     code  --(--> string --)--> code        "(" nests, "\" hides the next byte
//     code  --%--> comment --line end--> code
//     code  --data begin--> data --end--> code        see EmbeddedData.h
//
// Data that are not recognised as such are read as code, and may open strings that never were. So a
// begin token has the last word on the string that it stands in: see StringFinder.h.
#pragma once

#include "filter/BlockMasks.h"
#include "filter/EmbeddedData.h"
#include "filter/Found.h"
#include "filter/PenMovement.h"
#include "filter/Stream.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Filter {

// What the scanner has to look for.
struct Marks {
  std::string begin;          // the begin token
  std::string insertPattern;  // empty: none
  char lineEnd = '\n';
  bool stringsEndWithLines = false;
  bool splitBegins = false;    // a begin token may be split over strings
  bool languageMayEnd = true;  // ESC %-12345X ends PostScript
  bool orvella = false;
  bool lineBegins = false;  // keep track of where lines begin
};

class PostScriptScanner {
 public:
  // What the filter wants to be stopped for beside strings and begin tokens.
  struct Wanted {
    bool strings = false, lineEnds = false, pattern = false, pjl = false;
    bool operator==(const Wanted&) const = default;
  };

  PostScriptScanner(Stream& newStream, const Marks& newMarks);

  // Forwards the job up to what is found, which then stands at the window's front.
  Found next(const Wanted& wanted);
  // The length of the string that was found.
  std::size_t stringSize() const { return foundSize; }

  // Pages begun so far, by their %%Page comments.
  unsigned pages() const { return pageCount; }
  // Who made the job, as its comments say.
  const Producer& producer() const { return jobProducer; }
  // Where the line of code began that the window is in, as a place in the job.
  std::uint64_t lineBegin() const { return lineBeginPlace; }
  // Called with the place in the job when a sequence stands in a counted stream, which stays as it
  // is.
  void onSequenceInStream(std::function<void(std::uint64_t place)> call) {
    streamSequence = std::move(call);
  }

 private:
  static constexpr std::size_t kNone = std::string_view::npos;

  void chooseStops(const Wanted& newWanted);
  bool walk(const BlockMasks* masks, std::size_t count);
  bool settleBlock(const BlockMasks& masks, std::size_t base);
  // Each visit settles what stands at an offset. True when scanning stops or begins anew there.
  bool visit(std::size_t at);
  bool visitInString(std::size_t at, char byte);
  bool visitInCode(std::size_t at, char byte);
  bool visitLineEnd(std::size_t at);
  bool visitExit(std::size_t at);
  bool visitComment(std::size_t at);
  bool visitReader(std::size_t at);
  bool visitAngle(std::size_t at);
  bool visitHiddenString(std::size_t at);
  bool lineEndsInString(std::size_t at);

  void readComment(std::string_view comment);
  bool beginData(std::size_t at, const std::optional<FoundData>& sectionFound);
  void passData();

  bool endString(std::size_t end);
  bool escapesBegin(std::size_t at);
  bool candidateAt(std::size_t at);
  bool findStringAround(std::size_t at, bool whole);
  bool inComment(std::size_t at);
  std::size_t sizeOfString(std::size_t begin);
  bool holdsBegin(std::size_t begin, std::size_t size);
  void giveUpLongString();

  bool startsWith(std::size_t at, std::string_view text);
  bool stopAt(std::size_t at, Found what);
  bool stopAtString(std::size_t begin, std::size_t size, Found what);
  void passTo(std::size_t at);
  void restartAt(std::size_t at);

  Stream& stream;
  const Marks marks;
  const MaskMaker makeMasks;
  StopSet stops;
  Wanted wanted;
  bool stopsChosen = false;

  // Offsets count from the window's front.
  std::size_t position = 0;  // scanned up to here
  std::size_t skipTo = 0;    // bytes before it are settled whatever their masks say
  std::size_t stringBegin = kNone;
  unsigned depth = 0;          // of parentheses in the string
  std::uint64_t searched = 0;  // bytes that were looked at to find strings of begin tokens
  DataSection data = DataSection::Counted(0);

  // Places in the job between which no line ends.
  std::uint64_t oneLineFrom = 0, oneLineTo = 0;

  Found found = Found::kEnd;
  std::size_t foundSize = 0;
  unsigned pageCount = 0;
  Producer jobProducer;
  std::uint64_t lineBeginPlace = UINT64_MAX;
  std::function<void(std::uint64_t place)> streamSequence;
};

}  // namespace Filter
