// The HIBC supplier (LIC) and provider (PAS) messages, ANSI/HIBC 2.6 and 1.3: a plus sign, the
// data, a check character modulo 43 over both.
#pragma once

#include "library/prepare/PreparedData.h"

namespace Library {

inline constexpr int kHibcAddedCharacters = 2;

struct HibcMessage {
  Data data;          // as encoded
  std::string check;  // the check character
  std::string text;   // *+data*, a blank as check character shown as an underscore
};

// Takes the data alone, behind a plus sign, or the whole message: behind a plus sign a last
// character that is right for those before it is the check character. Throws Error with
// BC_E_INVALIDDATA without data, BC_E_DATATOOLONG when the message is longer than `longest`.
// REQUIRES: bytes of Code 39's character set only.
HibcMessage CompleteHibc(Data data, int longest);

}  // namespace Library
