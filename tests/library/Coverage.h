// Which types the tests have tried, and what read the symbols back: a line a symbol in a file that
// all tests of a run share, and a table made of it when the last of them has ended.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

// `judge`: the reader, or the reference that the symbol was compared with.
void NoteSymbol(int type, std::string_view judge, bool good);

// Whether what was made of a symbol, or read from it, is what the judge says.
template <class Actual, class Expected>
testing::AssertionResult IsSame(int type, std::string_view judge, const Actual& actual,
                                const Expected& expected) {
  NoteSymbol(type, judge, actual == expected);
  if (actual == expected) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << testing::PrintToString(actual) << " in place of " << testing::PrintToString(expected);
}
