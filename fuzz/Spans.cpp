#include "fuzz/Spans.h"

#include "filter/OrvellaParameters.h"
#include "filter/PostScriptString.h"

#include <algorithm>
#include <string>
#include <utility>

namespace Fuzz {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
// Strings of a sequence are searched for their delimiters no farther than this.
constexpr std::size_t kReach = 1200 * 1024;

// How many bytes of `text` write `token` with the escapes of a literal string; 0 for none. With
// `partly` a part of it in front of a ")" will do.
std::size_t WrittenAs(std::string_view text, std::string_view token, bool partly) {
  std::size_t at = 0;
  while (!token.empty()) {
    if (at >= text.size()) return partly ? at : 0;
    if (partly && text[at] == ')') return at;
    char byte = text[at++];
    if (byte == '\\') {
      if (at >= text.size()) return partly ? at : 0;
      byte = text[at++];
      if (byte == '\r' && text.substr(at).starts_with('\n')) ++at;
      if (byte == '\r' || byte == '\n') continue;
      if (byte >= '0' && byte <= '7') {
        int value = byte - '0';
        for (int digits = 1; digits < 3 && at < text.size() && text[at] >= '0' && text[at] <= '7';
             ++digits) {
          value = value * 8 + text[at++] - '0';
        }
        byte = static_cast<char>(value);
      }
    }
    if (byte != token.front()) return 0;
    token.remove_prefix(1);
  }
  return at;
}

// Whether a string in an encoding holds the token or, with `partly`, its first byte.
bool EncodedHolds(std::string_view string, std::string_view token, bool partly) {
  return Filter::DecodeString(string).find(partly ? token.substr(0, 1) : token) !=
         std::string::npos;
}

// Places where the token is written, in any form.
Spans Places(std::string_view job, std::string_view token, bool partly) {
  Spans places;
  for (std::size_t at = 0; at < job.size(); ++at) {
    std::size_t size = 0;
    if (job[at] == token[0] || job[at] == '\\') size = WrittenAs(job.substr(at), token, partly);
    if (job[at] == '<') {
      Filter::StringScanner scanner;
      const std::size_t string = scanner.scan(job.substr(at));
      const bool whole = string < Filter::StringScanner::kNoString;
      if (whole && EncodedHolds(job.substr(at, string), token, partly)) size = string;
    }
    if (size > 0) places.push_back({at, at + size});
  }
  return places;
}

bool IsEscaped(std::string_view job, std::size_t at) {
  std::size_t backslashes = 0;
  while (backslashes < at && job[at - 1 - backslashes] == '\\') ++backslashes;
  return backslashes % 2 == 1;
}

// The first opener in front of a place that nothing in between closes, and how many of them.
std::size_t OpenerInFront(std::string_view job, std::size_t place, std::size_t& openers) {
  std::size_t first = place;
  std::size_t closed = 0;
  const std::size_t stop = place - std::min(place, kReach);
  for (std::size_t at = place; at-- > stop;) {
    if (job[at] == ')' && !IsEscaped(job, at)) ++closed;
    if (job[at] != '(') continue;
    if (closed == 0) {
      first = at;
      ++openers;
    } else if (!IsEscaped(job, at)) {
      --closed;
    }
  }
  return first;
}

// Behind the closer of so many openers.
std::size_t CloserBehind(std::string_view job, std::size_t place, std::size_t openers) {
  std::size_t open = openers;
  const std::size_t stop = std::min(job.size(), place + kReach);
  for (std::size_t at = place; open > 0 && at < stop; ++at) {
    if (job[at] == '\\') {
      ++at;
    } else if (job[at] == '(') {
      ++open;
    } else if (job[at] == ')' && --open == 0) {
      return at + 1;
    }
  }
  return open == 0 ? place : job.size();
}

// Without comments, encoded strings and escapes every token is where it seems to be.
bool IsPlain(std::string_view job) {
  return job.find_first_of("%<\\\x1c\r", 2) == kNone;
}

void AddOrvella(std::string_view job, Spans& spans) {
  const std::size_t begin = job.find(Filter::kOrvellaControl);
  if (begin != kNone) spans.push_back({begin, job.size()});
}

Span Around(std::string_view job, const Span& begin, const Span& end) {
  std::size_t openers = 0;
  const std::size_t from = OpenerInFront(job, begin.begin, openers);
  openers = 0;
  OpenerInFront(job, end.begin, openers);
  return {from, CloserBehind(job, end.end, openers)};
}

// A span for each sequence of a plain job; none when one goes over several strings.
Spans SpansOfEach(std::string_view job, const Spans& begins, const Spans& ends) {
  Spans spans;
  for (std::size_t behind = 0; const Span& begin : begins) {
    const auto end =
        std::ranges::find_if(ends, [&](const Span& place) { return place.begin >= begin.end; });
    if (begin.begin < behind || end == ends.end()) continue;
    if (job.substr(begin.end, end->begin - begin.end).find_first_of("()\n") != kNone) return {};
    spans.push_back(Around(job, begin, *end));
    behind = end->end;
  }
  return spans;
}

Spans Merged(Spans spans) {
  std::ranges::sort(spans, {}, &Span::begin);
  Spans merged;
  for (const Span& span : spans) {
    if (!merged.empty() && span.begin <= merged.back().end)
      merged.back().end = std::max(merged.back().end, span.end);
    else
      merged.push_back(span);
  }
  return merged;
}

}  // namespace

Spans SpansOfSequences(std::string_view job, const Settings::AppSettings& settings) {
  const bool partly = settings.insertMode == Settings::kInsertAuto;
  const Spans begins = Places(job, settings.escapeBegin, partly);
  const Spans ends = Places(job, settings.escapeEnd, false);
  Spans spans;
  // An encoded string may hold both tokens; the end of a sequence may be split, too.
  if (!begins.empty() && partly) {
    std::size_t openers = 0;
    spans.push_back({OpenerInFront(job, begins.front().begin, openers), job.size()});
  } else if (!begins.empty() && !ends.empty() && begins.front().end <= ends.back().end) {
    if (IsPlain(job)) spans = SpansOfEach(job, begins, ends);
    if (spans.empty()) spans.push_back(Around(job, begins.front(), ends.back()));
  }
  if (settings.orvella) AddOrvella(job, spans);
  return Merged(std::move(spans));
}

bool DiffersOnlyIn(const Spans& spans, std::string_view job, std::string_view other) {
  if (spans.empty()) return job == other;
  std::size_t from = 0;   // in the job
  std::size_t found = 0;  // in the other
  for (const Span& span : spans) {
    const std::string_view kept = job.substr(from, span.begin - from);
    const std::size_t at = from == 0 ? 0 : other.find(kept, found);
    if (at == kNone || other.substr(at, kept.size()) != kept) return false;
    found = at + kept.size();
    from = span.end;
  }
  const std::string_view last = job.substr(from);
  return other.size() >= found + last.size() && other.ends_with(last);
}

}  // namespace Fuzz
