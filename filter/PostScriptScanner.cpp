#include "filter/PostScriptScanner.h"

#include "filter/BeginToken.h"
#include "filter/Language.h"
#include "filter/Limits.h"
#include "filter/OrvellaParameters.h"
#include "filter/PostScriptString.h"
#include "filter/PostScriptTokens.h"
#include "filter/StringFinder.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace Filter {
namespace {

constexpr char kEscape = '\033';
// Blocks whose masks are made at a time.
constexpr std::size_t kBlocksAtATime = 64;
// A structuring comment is at most 255 bytes long (Document Structuring Conventions 3.0).
constexpr std::size_t kCommentText = 512;
// A dictionary in front of a counted stream.
constexpr std::size_t kDictionaryText = 1024;
// Bytes that may be looked at to find the strings of begin tokens: a job of nothing but openers and
// begin tokens must not take time that grows with the square of its size. Real jobs stay far below.
constexpr std::uint64_t kSearchedFreely = 8 * 1024 * 1024;
constexpr std::uint64_t kSearchedEach = 4;  // for each byte of the job
// Openers that are tried for the string of one begin token.
constexpr int kMostOpeners = 16;

// Bit i is the parity of the bits 0..i.
std::uint64_t PrefixXor(std::uint64_t bits) {
  for (int shift = 1; shift < 64; shift *= 2) bits ^= bits << shift;
  return bits;
}

std::size_t LastBit(std::uint64_t bits) {
  return 63 - static_cast<std::size_t>(std::countl_zero(bits));
}

}  // namespace

PostScriptScanner::PostScriptScanner(Stream& newStream, const Marks& newMarks)
    : stream(newStream), marks(newMarks), makeMasks(BestMaskMaker()) {}

void PostScriptScanner::chooseStops(const Wanted& newWanted) {
  if (stopsChosen && newWanted == wanted) return;
  stopsChosen = true;
  wanted = newWanted;
  stops = StopSet();
  stops.watch('(', ')', {kReaderWord[6], kReaderWord[7], kReaderWord[10]});
  for (const char byte : {'\\', '<', '%'}) stops.addByte(byte);
  if (!marks.begin.empty()) stops.addByte(marks.begin.front());
  if (marks.languageMayEnd) stops.addByte(kEscape);
  if (marks.orvella) stops.addByte(kOrvellaControl);
  if (wanted.pjl) stops.addByte('@');
  if (wanted.pattern) stops.addByte(marks.insertPattern.front());
  if (marks.lineBegins || wanted.lineEnds || marks.stringsEndWithLines) {
    stops.setLineEnd(marks.lineEnd);
  }
}

Found PostScriptScanner::next(const Wanted& newWanted) {
  chooseStops(newWanted);
  found = Found::kEnd;
  BlockMasks masks[kBlocksAtATime];
  while (true) {
    passData();
    giveUpLongString();
    // At once, since whatever looks ahead makes the window grow.
    passTo(std::min(stringBegin, position));
    if (marks.lineBegins) stream.keepFrom(lineBeginPlace);
    const std::string_view window = stream.peek(position + kBlockSize + kBlockLookAhead);
    if (window.size() <= position) {
      restartAt(window.size());
      return Found::kEnd;
    }
    const std::size_t rest = window.size() - position;
    std::size_t count = 1;
    if (rest >= kBlockSize + kBlockLookAhead) {
      count = std::min((rest - kBlockLookAhead) / kBlockSize, kBlocksAtATime);
      makeMasks(window.data() + position, count, stops, masks);
    } else {
      char last[kBlockSize + kBlockLookAhead] = {};
      std::memcpy(last, window.data() + position, std::min(rest, kBlockSize));
      makeMasks(last, 1, stops, masks);
    }
    const std::size_t before = position;
    const bool stopped = walk(masks, count);
    if (found != Found::kEnd) return found;
    if (stopped) continue;
    position =
        std::max(before + std::min(count * kBlockSize, rest), std::min(skipTo, before + rest));
  }
}

// True when something was found or the window's front has changed, so that the masks are void.
bool PostScriptScanner::walk(const BlockMasks* masks, std::size_t count) {
  const std::size_t begin = position;
  for (std::size_t block = 0; block < count; ++block) {
    const BlockMasks& now = masks[block];
    const std::size_t base = begin + block * kBlockSize;
    if (settleBlock(now, base)) continue;
    for (std::uint64_t bits = now.first | now.second | now.stop | now.line; bits != 0;
         bits &= bits - 1) {
      const std::size_t at = base + static_cast<std::size_t>(std::countr_zero(bits));
      if (at >= skipTo && visit(at)) return true;
    }
  }
  return false;
}

// Handles a block in which strings begin and end and nothing else happens.
bool PostScriptScanner::settleBlock(const BlockMasks& masks, std::size_t base) {
  if (masks.stop != 0 || skipTo > base || depth > 1) return false;
  const std::uint64_t parentheses = masks.first | masks.second;
  if (wanted.strings && parentheses != 0) return false;
  std::uint64_t inside = depth == 1 ? ~std::uint64_t{0} : 0;
  if (parentheses != 0) {
    inside ^= PrefixXor(parentheses);
    if (masks.first != (parentheses & inside) || masks.second != (parentheses & ~inside))
      return false;
  }
  const std::uint64_t lines = masks.line & ~inside;
  if (wanted.lineEnds && lines != 0) return false;
  if (marks.stringsEndWithLines && (masks.line & inside) != 0) return false;
  if (lines != 0) lineBeginPlace = stream.position() + base + LastBit(lines) + 1;
  depth = static_cast<unsigned>(inside >> 63);
  if (depth == 0) stringBegin = kNone;
  if (depth == 1 && masks.first != 0) stringBegin = base + LastBit(masks.first);
  return true;
}

bool PostScriptScanner::visit(std::size_t at) {
  const char byte = stream.peek(at + 1)[at];
  return depth > 0 ? visitInString(at, byte) : visitInCode(at, byte);
}

bool PostScriptScanner::visitInString(std::size_t at, char byte) {
  switch (byte) {
    case '(':
      ++depth;
      return false;
    case ')':
      if (--depth > 0) return false;
      return endString(at + 1);
    case '\\':
      skipTo = at + 2;
      return escapesBegin(at) && candidateAt(at);
    case '<':
      return visitHiddenString(at);
    default:
      if (byte == marks.lineEnd && marks.stringsEndWithLines) return endString(at + 1);
      return marks.begin.starts_with(byte) && candidateAt(at);
  }
}

bool PostScriptScanner::endString(std::size_t end) {
  const std::size_t begin = stringBegin;
  depth = 0;
  stringBegin = kNone;
  return wanted.strings && stopAtString(begin, end - begin, Found::kOtherString);
}

// The order of the rules decides between them.
bool PostScriptScanner::visitInCode(std::size_t at, char byte) {
  if (wanted.pattern && startsWith(at, marks.insertPattern)) return stopAt(at, Found::kPattern);
  if (wanted.pjl && byte == '@') return stopAt(at, Found::kAtSign);
  switch (byte) {
    case '%':
      return visitComment(at);
    case '(':
      stringBegin = at;
      depth = 1;
      return false;
    case '<':
      return visitAngle(at);
    default:
      break;
  }
  if (marks.begin.starts_with(byte) && startsWith(at, marks.begin))
    return stopAt(at, Found::kBeginToken);
  if (byte == marks.lineEnd) return visitLineEnd(at);
  if (byte == kOrvellaControl && marks.orvella) return stopAt(at, Found::kControl);
  if (byte == kEscape && marks.languageMayEnd) return visitExit(at);
  if (byte == kReaderWord[6]) return visitReader(at);
  return false;
}

bool PostScriptScanner::visitLineEnd(std::size_t at) {
  lineBeginPlace = stream.position() + at + 1;
  if (wanted.lineEnds) return stopAt(at, Found::kLineEnd);
  return false;
}

bool PostScriptScanner::visitExit(std::size_t at) {
  return EndsLanguage(stream.peek(at + kLongestLanguageEnd).substr(at)) && stopAt(at, Found::kExit);
}

// ---------------------------------------------------------------- comments and data

// Nothing in a comment is searched for sequences; its line end is code again.
bool PostScriptScanner::visitComment(std::size_t at) {
  std::size_t end = stream.peek(at + kCommentText).find_first_of("\r\n", at);
  while (end == kNone) {
    const std::size_t seen = stream.peek(0).size();
    if (seen - at > kLongestComment || !stream.extend()) break;
    end = stream.peek(0).find_first_of("\r\n", seen);
  }
  const std::string_view window = stream.peek(0);
  skipTo = std::min(end, window.size());
  readComment(window.substr(at, std::min(skipTo - at, kCommentText)));
  if (data.finished()) return false;
  if (window.substr(skipTo).starts_with("\r\n")) ++skipTo;
  restartAt(std::min(skipTo + 1, window.size()));
  return true;
}

void PostScriptScanner::readComment(std::string_view comment) {
  if (comment.starts_with("%%Page:")) ++pageCount;
  jobProducer.readComment(comment);
  if (const auto section = DataBehindComment(comment)) data = *section;
}

// A word that looks like currentfile: whether data follow.
bool PostScriptScanner::visitReader(std::size_t at) {
  constexpr std::size_t kLetters = 6;  // in front of the letter that was found
  if (at < kLetters || !startsWith(at - kLetters, kReaderWord)) return false;
  at -= kLetters;
  const std::string_view text = stream.peek(at + kReaderText);
  return beginData(at, DataBehindReader(stream.before(at, kReaderText), text.substr(at)));
}

bool PostScriptScanner::beginData(std::size_t at, const std::optional<FoundData>& sectionFound) {
  if (!sectionFound) return false;
  data = sectionFound->section;
  restartAt(std::min(at + sectionFound->begin, stream.peek(0).size()));
  return true;
}

// Forwards data, as far as they are at hand and beyond.
void PostScriptScanner::passData() {
  while (!data.finished()) {
    const std::string_view window = stream.window();
    if (window.empty()) return;
    const std::size_t size = data.take(window, stream.inputEnded(), marks.begin);
    if (size > 0) {
      if (data.isStream() && streamSequence)
        ForEachToken(stream, size, marks.begin, streamSequence);
      stream.forward(size);
    } else if (!data.finished() && stream.extend()) {
      continue;
    }
  }
}

// ---------------------------------------------------------------- strings

// "<": a dictionary, or a string in one of the encodings.
bool PostScriptScanner::visitAngle(std::size_t at) {
  if (startsWith(at, "<<")) {
    skipTo = at + 2;
    const std::string_view text = stream.peek(at + kDictionaryText);
    return beginData(at, DataBehindDictionary(text.substr(at, kDictionaryText)));
  }
  const std::size_t size = sizeOfString(at);
  if (size == kNone) return false;
  if (holdsBegin(at, size)) return stopAtString(at, size, Found::kString);
  if (wanted.strings) return stopAtString(at, size, Found::kOtherString);
  skipTo = at + size;
  return false;
}

// An encoded string inside a literal one: it counts when it holds a begin token and the literal one
// began on an earlier line, as data that were no string do.
bool PostScriptScanner::visitHiddenString(std::size_t at) {
  const std::size_t size = sizeOfString(at);
  if (size == kNone || !holdsBegin(at, size)) return false;
  return lineEndsInString(at) && stopAtString(at, size, Found::kString);
}

// Whether a line ends between the literal string's begin and this place. A string full of encoded
// ones must not be searched once for each.
bool PostScriptScanner::lineEndsInString(std::size_t at) {
  const std::uint64_t front = stream.position();
  const bool same = oneLineFrom <= front + stringBegin && front + stringBegin <= oneLineTo;
  const std::uint64_t from = same ? std::min(oneLineTo, front + at) : front + stringBegin;
  const auto begin = static_cast<std::size_t>(from - front);
  if (stream.peek(0).substr(begin, at - begin).find_first_of("\r\n") != kNone) return true;
  if (!same) oneLineFrom = front + stringBegin;
  oneLineTo = std::max(front + at, same ? oneLineTo : 0);
  return false;
}

// Whether the escape at this place can stand for the begin token's first byte, at a glance.
bool PostScriptScanner::escapesBegin(std::size_t at) {
  const std::string_view text = stream.peek(at + 2).substr(at);
  return text.size() > 1 &&
         ((text[1] >= '0' && text[1] <= '7') || marks.begin.starts_with(text[1]));
}

// Whether a begin token stands at this place of a literal string, and if so the string.
bool PostScriptScanner::candidateAt(std::size_t at) {
  constexpr std::size_t kLongestEscape = 5;
  const std::size_t longest = kLongestEscape * (marks.begin.size() + 1);
  const BeginMatch match = MatchBegin(stream.peek(at + longest).substr(at, longest), marks.begin);
  if (match == BeginMatch::kNone) return false;
  if (match == BeginMatch::kPart && !marks.splitBegins) return false;
  return findStringAround(at, match == BeginMatch::kWhole);
}

bool PostScriptScanner::findStringAround(std::size_t at, bool whole) {
  std::size_t opener = stringBegin;
  bool foreign = false;
  if (searched > kSearchedFreely + kSearchedEach * stream.position()) return false;
  for (int tried = 0; tried < kMostOpeners && opener < at; ++tried) {
    const std::string_view inside = stream.peek(0).substr(opener, at - opener);
    std::size_t from = BehindForeignBytes(inside);
    searched += inside.size();
    if (from > 0) {
      foreign = true;
    } else {
      const std::size_t size = sizeOfString(opener);
      if (size != kNone && opener + size > at) return stopAtString(opener, size, Found::kString);
      from = size == kNone ? 1 : size;
      searched += size == kNone ? stream.peek(0).size() - opener : size;
    }
    opener = stream.peek(0).find('(', opener + from);
  }
  // No string holds the token. Behind data it stands among operators; otherwise the string is cut
  // off by the end of the job.
  if (foreign) {
    stringBegin = kNone;
    depth = 0;
    return whole && !inComment(at) && stopAt(at, Found::kBeginToken);
  }
  const std::size_t rest = stream.peek(0).size() - stringBegin;
  return stream.inputEnded() && rest <= kLongestString &&
         stopAtString(stringBegin, rest, Found::kString);
}

// Whether the line in front of `at`, if it is code, is a comment there.
bool PostScriptScanner::inComment(std::size_t at) {
  const std::string_view front = stream.before(at, kCommentText);
  return front.substr(front.find_last_of("\r\n") + 1).find('%') != kNone;
}

// kNone when there is none, it is not closed, or it is longer than any string.
std::size_t PostScriptScanner::sizeOfString(std::size_t begin) {
  StringScanner scanner(marks.stringsEndWithLines ? marks.lineEnd : '\0');
  while (true) {
    const std::string_view text = stream.peek(begin + 2).substr(begin);
    const std::size_t size = scanner.scan(text);
    if (size == StringScanner::kNoString || (size != kNone && size > kLongestString)) return kNone;
    if (size != kNone) return size;
    if (text.size() > kLongestString || !stream.extend()) return kNone;
  }
}

bool PostScriptScanner::holdsBegin(std::size_t begin, std::size_t size) {
  if (marks.begin.empty()) return false;
  const std::string bytes = DecodeString(stream.peek(0).substr(begin, size));
  if (bytes.find(marks.begin) != kNone) return true;
  return marks.splitBegins && PartAtEnd(bytes, marks.begin) > 0;
}

// A string that is longer than any never was one; what follows is read as code.
void PostScriptScanner::giveUpLongString() {
  if (stringBegin == kNone || position - stringBegin <= kLongestString) return;
  stringBegin = kNone;
  depth = 0;
}

// ---------------------------------------------------------------- the window's front

bool PostScriptScanner::startsWith(std::size_t at, std::string_view text) {
  return stream.peek(at + text.size()).substr(at).starts_with(text);
}

bool PostScriptScanner::stopAt(std::size_t at, Found what) {
  restartAt(at);
  found = what;
  return true;
}

bool PostScriptScanner::stopAtString(std::size_t begin, std::size_t size, Found what) {
  foundSize = size;
  return stopAt(begin, what);
}

// Forwards bytes that were scanned.
void PostScriptScanner::passTo(std::size_t at) {
  stream.forward(at);
  position -= at;
  skipTo -= std::min(skipTo, at);
  if (stringBegin != kNone) stringBegin -= at;
}

// Forwards the bytes in front of `at`, behind which scanning begins anew.
void PostScriptScanner::restartAt(std::size_t at) {
  stream.forward(at);
  position = 0;
  skipTo = 0;
  stringBegin = kNone;
  depth = 0;
}

}  // namespace Filter
