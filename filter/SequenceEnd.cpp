#include "filter/SequenceEnd.h"

#include "filter/Limits.h"
#include "filter/PclData.h"

#include <algorithm>

namespace Filter {

std::size_t SequenceEnd::find(Job& job, std::size_t front, std::string_view end) {
  constexpr std::size_t kNone = std::string_view::npos;
  const std::uint64_t place = job.stream.position();
  if (place < dataAt) return 0;
  std::size_t from = front;
  if (noEndBefore > place) from = std::max(from, static_cast<std::size_t>(noEndBefore - place));
  while (from < kLongestSequence) {
    const std::string_view window = job.stream.peek(from);
    const std::size_t found = window.find(end, from);
    if (found < kLongestSequence) {
      const std::string_view inside = window.substr(front, found - front);
      const std::size_t data = job.isPostScript() ? kNone : FindPclData(inside);
      if (data == kNone) return found + end.size();
      dataAt = place + front + data;
      return 0;
    }
    if (found != kNone) break;
    from = std::max(from, window.size() - std::min(window.size(), end.size() - 1));
    if (!job.stream.extend()) break;
  }
  noEndBefore = place + from;
  return 0;
}

}  // namespace Filter
