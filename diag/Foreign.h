// Text that is not ours in messages: a print job's, or the command line's.
//
// Such text must not look like a message. The print scheduler takes a line of standard error that
// begins with a word such as "STATE:" for a command, so control characters are shown as \xHH, and
// it cuts lines after 2,047 bytes, so what a message quotes is cut before that.
//
//     log.Trace(Diag::kError, "Barcode Sequence: ", Diag::Foreign{sequence});
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Diag {

// The most that one message quotes, counted as it is shown; what is cut ends in "...".
inline constexpr std::size_t kLongestQuotation = 1500;  // bytes

struct Foreign {
  std::string_view text;
  // False for text that may come from the configuration as well and this time did: that stays as it
  // is.
  bool foreign = true;
};

// Appends the text as messages show it, in at most `room` bytes, which is lowered by as many.
void AppendForeign(std::string& message, Foreign part, std::size_t& room);

}  // namespace Diag
