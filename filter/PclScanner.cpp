#include "filter/PclScanner.h"

#include "filter/BeginToken.h"
#include "filter/OrvellaParameters.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>
#include <utility>

namespace Filter {
namespace {

constexpr char kFormFeed = '\f';
// What is looked at behind a block and behind a stop in it.
constexpr std::size_t kMargin = kLongestPclCommand;
static_assert(kMargin >= kBlockLookAhead);

}  // namespace

PclScanner::PclScanner(Stream& newStream, const Marks& newMarks)
    : stream(newStream), marks(newMarks), makeMasks(BestMaskMaker()) {}

void PclScanner::chooseStops(const Wanted& newWanted) {
  if (stopsChosen && newWanted == wanted) return;
  stopsChosen = true;
  wanted = newWanted;
  stops = StopSet();
  stops.addByte(kPclEscape);
  stops.addByte(kFormFeed);
  if (marks.pjl) stops.addByte('@');
  if (marks.orvella) stops.addByte(kOrvellaControl);
  if (wanted.lineEnds) stops.addByte(marks.lineEnd);
  if (marks.lineBegins) stops.setLineEnd(marks.lineEnd);
  escapeStops = false;
  for (const std::string& text : {marks.begin, wanted.pattern ? marks.insertPattern : ""}) {
    if (text.empty()) continue;
    stops.addByte(text.front());
    escapeStops |= text.front() == kPclEscape;
  }
}

Found PclScanner::next(const Wanted& newWanted) {
  chooseStops(newWanted);
  found = Found::kEnd;
  while (found == Found::kEnd) {
    if (xlMayBegin != XlMayBegin::kNot) lookForPclXl();
    passData();
    if (!data.finished()) return Found::kEnd;  // the job ends in them
    if (atCommand) {
      passCommands();
    } else if (!scanBlocks()) {
      return Found::kEnd;
    }
  }
  passScanned();
  if (found == Found::kAtSign) xlMayBegin = XlMayBegin::kBehindLine;
  return found;
}

// ---------------------------------------------------------------- data

void PclScanner::lookForPclXl() {
  const bool inLine = std::exchange(xlMayBegin, XlMayBegin::kNot) == XlMayBegin::kBehindLine;
  const auto begin = FindPclXl(stream.peek(kPclXlText).substr(0, kPclXlText), inLine);
  if (!begin) return;
  stream.forward(*begin);
  data = PclData::PclXl();
}

// Forwards data, as far as they are at hand and beyond.
void PclScanner::passData() {
  while (!data.finished()) {
    const std::string_view window = stream.window();
    if (window.empty()) return;
    const char* const where = data.whereText();
    const std::size_t size = data.take(window, stream.inputEnded());
    if (data.mayHoldText() && dataSequence) {
      ForEachToken(stream, size, marks.begin,
                   [&](std::uint64_t place) { dataSequence(place, where); });
    }
    stream.forward(size);
    if (size == 0 && !data.finished()) stream.extend();
    if (!data.finished()) continue;
    atCommand = !escapeStops;
    if (data.goesOnWith() == 0) continue;
    const std::string_view text = stream.peek(kLongestPclCommand).substr(0, kLongestPclCommand);
    const PclCommand rest = ReadPclParameters(text, data.goesOnWith());
    data = rest.data;
    stream.forward(rest.size);
  }
}

// Passes the command at `position` and those that follow it, with data that are at hand.
void PclScanner::passCommands() {
  blocks = kFewBlocks;
  do {
    if (!escapeStops) position += PclRowsInFront(stream.window().substr(position));
    // The window needn't grow for what was scanned.
    if (stream.window().size() < position + kLongestPclCommand) passScanned();
    const std::string_view text = stream.peek(position + kLongestPclCommand).substr(position);
    if (!text.starts_with(kPclEscape)) break;
    const PclCommand command = ReadPclCommand(text.substr(0, kLongestPclCommand));
    position += command.size;
    if (command.data.isPlain() && command.data.left() <= text.size() - command.size) {
      position += static_cast<std::size_t>(command.data.left());
    } else if (command.exit || !command.data.finished()) {
      if (command.exit) xlMayBegin = XlMayBegin::kHere;
      data = command.data;
      passScanned();
      break;
    }
  } while (!escapeStops);
  atCommand = false;
}

// ---------------------------------------------------------------- text

// Forwards what was scanned.
void PclScanner::passScanned() {
  if (marks.lineBegins) stream.keepFrom(lineBeginPlace);
  stream.forward(position);
  position = 0;
}

// Scans some blocks at the window's front. False at the end of the job.
bool PclScanner::scanBlocks() {
  passScanned();
  const std::string_view window = stream.peek(kBlockSize + kMargin);
  if (window.empty()) return false;
  std::size_t count = 1;
  if (window.size() >= kBlockSize + kMargin) {
    count = std::min((window.size() - kMargin) / kBlockSize, blocks);
    makeMasks(window.data(), count, stops, masks.data());
  } else {
    char last[kBlockSize + kBlockLookAhead] = {};
    std::memcpy(last, window.data(), std::min(window.size(), sizeof last));
    makeMasks(last, 1, stops, masks.data());
  }
  blocks = std::min(blocks * 2, masks.size());
  const std::size_t size = std::min(window.size(), count * kBlockSize);
  if (!walk(count)) position = size;
  return true;
}

// True when something was found or data may begin, at `position`.
bool PclScanner::walk(std::size_t count) {
  const std::uint64_t front = stream.position();
  for (std::size_t block = 0; block < count; ++block) {
    const BlockMasks& now = masks[block];
    if ((now.stop | now.line) == 0) continue;
    const std::size_t base = block * kBlockSize;
    std::uint64_t passed = ~std::uint64_t{0};  // the bytes in front of what is found
    for (std::uint64_t bits = now.stop; bits != 0; bits &= bits - 1) {
      const int place = std::countr_zero(bits);
      if (!visit(base + static_cast<std::size_t>(place))) continue;
      passed = (std::uint64_t{1} << place) - 1;
      break;
    }
    if (const std::uint64_t lines = now.line & passed; lines != 0) {
      const auto last = 63 - static_cast<std::size_t>(std::countl_zero(lines));
      lineBeginPlace = front + base + last + 1;
    }
    if (passed != ~std::uint64_t{0}) return true;
  }
  return false;
}

// Most stops are commands that need no more than a look.
inline bool PclScanner::visit(std::size_t at) {
  const std::string_view text = stream.peek(0).substr(at);
  const bool command = text[0] == kPclEscape;
  if (command && !escapeStops && !MayBeginPclData(text)) return false;
  return settle(at, command);
}

bool PclScanner::settle(std::size_t at, bool command) {
  const char byte = stream.peek(0)[at];
  if (!command || escapeStops) found = whatIsAt(at, byte);
  if (byte == kFormFeed && found == Found::kEnd) ++pageCount;
  atCommand = command && found == Found::kEnd;
  position = at;
  return atCommand || found != Found::kEnd;
}

// What a stop turns out to be; kEnd for nothing. The order of the rules decides between them.
Found PclScanner::whatIsAt(std::size_t at, char byte) {
  const auto is = [&](std::string_view text) {
    return text.starts_with(byte) && stream.peek(at + text.size()).substr(at).starts_with(text);
  };
  if (wanted.pattern && is(marks.insertPattern)) return Found::kPattern;
  if (marks.pjl && (is("@P") || is("@p"))) return Found::kAtSign;
  if (is(marks.begin)) return Found::kBeginToken;
  if (wanted.lineEnds && byte == marks.lineEnd) {
    lineBeginPlace = stream.position() + at + 1;
    return Found::kLineEnd;
  }
  if (marks.orvella && (is(kOrvellaHeaderBegin) || is(kOrvellaMarker))) return Found::kControl;
  return Found::kEnd;
}

}  // namespace Filter
