// What the scanners stop for.
#pragma once

namespace Filter {

enum class Found {
  kEnd,          // of the job
  kBeginToken,   // among operators, or in PCL
  kString,       // one whose bytes hold the begin token, or end with a part of it
  kOtherString,  // any other, when asked for
  kPattern,      // the insert pattern, when asked for
  kLineEnd,      // when asked for
  kControl,      // the byte that begins an Orvella sequence
  kAtSign,       // of a PJL command, when one may follow
  kExit,         // of the language: what follows is no PostScript
};

}  // namespace Filter
