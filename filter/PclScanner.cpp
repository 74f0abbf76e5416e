#include "filter/PclScanner.h"

#include "filter/OrvellaParameters.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>

namespace Filter {
namespace {

constexpr std::size_t kBlocksAtATime = 64;
}  // namespace

PclScanner::PclScanner(Stream& newStream, const Marks& newMarks)
    : stream(newStream), marks(newMarks), makeMasks(BestMaskMaker()) {}

void PclScanner::chooseStops(const Wanted& newWanted) {
  if (stopsChosen && newWanted == wanted) return;
  stopsChosen = true;
  wanted = newWanted;
  stops = StopSet(kFormFeed, kFormFeed);
  const auto addToken = [&](const std::string& token) {
    if (token.size() == 1) stops.addByte(token[0]);
    if (token.size() > 1) stops.addPair(token[0], token[1]);
  };
  addToken(marks.begin);
  if (wanted.pattern) addToken(marks.insertPattern);
  if (marks.pjl) {
    stops.addPair('@', 'p', StopSet::kAnyCase);
  }
  if (marks.orvella) {
    for (const std::string_view begin : {kOrvellaHeaderBegin, kOrvellaMarker}) {
      addToken(std::string(begin));
    }
  }
  if (wanted.lineEnds) stops.addByte(marks.lineEnd);
  if (marks.lineBegins) stops.setLineEnd(marks.lineEnd);
}

Found PclScanner::next(const Wanted& newWanted) {
  chooseStops(newWanted);
  BlockMasks masks[kBlocksAtATime];
  while (true) {
    const std::string_view window = stream.peek(kBlockSize + kBlockLookAhead);
    if (window.empty()) return Found::kEnd;
    std::size_t size = std::min(window.size(), kBlockSize);
    if (window.size() >= kBlockSize + kBlockLookAhead) {
      const std::size_t count =
          std::min((window.size() - kBlockLookAhead) / kBlockSize, kBlocksAtATime);
      size = count * kBlockSize;
      makeMasks(window.data(), count, stops, masks);
    } else {
      char last[kBlockSize + kBlockLookAhead] = {};
      std::memcpy(last, window.data(), window.size());
      makeMasks(last, 1, stops, masks);
    }
    for (std::size_t base = 0; base < size; base += kBlockSize) {
      const BlockMasks& now = masks[base / kBlockSize];
      if ((now.stop | now.line) == 0) {
        countPages(now.first);
        continue;
      }
      const Found found = findIn(now, base);
      if (found == Found::kEnd) continue;
      stream.forward(foundAt);
      return found;
    }
    stream.forward(size);
    if (marks.lineBegins) stream.keepFrom(lineBeginPlace);
  }
}

Found PclScanner::findIn(const BlockMasks& masks, std::size_t base) {
  Found found = Found::kEnd;
  std::uint64_t passed = ~std::uint64_t{0};  // the bytes in front of what is found
  for (std::uint64_t bits = masks.stop; bits != 0 && found == Found::kEnd; bits &= bits - 1) {
    const int place = std::countr_zero(bits);
    foundAt = base + static_cast<std::size_t>(place);
    found = whatIsAt(foundAt);
    if (found != Found::kEnd) passed = (std::uint64_t{1} << place) - 1;
  }
  countPages(masks.first & passed);
  if (const std::uint64_t lines = masks.line & passed; lines != 0) {
    const auto last = 63 - static_cast<std::size_t>(std::countl_zero(lines));
    lineBeginPlace = stream.position() + base + last + 1;
  }
  return found;
}

// What a stop turns out to be; kEnd for nothing.
Found PclScanner::whatIsAt(std::size_t at) {
  const auto is = [&](std::string_view text) {
    return !text.empty() && stream.peek(at + text.size()).substr(at).starts_with(text);
  };
  const char byte = stream.peek(at + 1)[at];
  if (wanted.pattern && is(marks.insertPattern)) return Found::kPattern;
  if (marks.pjl && byte == '@') return Found::kAtSign;
  if (is(marks.begin)) return Found::kBeginToken;
  if (wanted.lineEnds && byte == marks.lineEnd) return Found::kLineEnd;
  if (marks.orvella && byte == kOrvellaControl) return Found::kControl;
  return Found::kEnd;
}

}  // namespace Filter
