// Large jobs that hold one thing over and over, each of which was slow once or is easily
// made so: they end within the time that any child has, and come out right.
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Support;

const std::string kSequence = "$_vxrs --data=1 $_vxre";

std::string Repeated(const std::string& piece, std::size_t kibibytes) {
  std::string text;
  const std::size_t most = kibibytes * 1024 - 64;
  while (text.size() + piece.size() <= most) text += piece;
  return text;
}

std::size_t CountOf(std::string_view text, std::string_view word) {
  std::size_t count = 0;
  for (std::size_t at = text.find(word); at != text.npos; at = text.find(word, at + word.size()))
    ++count;
  return count;
}

#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kJobSize = 96;  // KiB: the sanitizers make it ten times as slow
#else
constexpr std::size_t kJobSize = 1024;
#endif

// Without a whole sequence: every begin token that could have begun one is told.
TEST(Sizes, RepeatedPiecesPassUnchanged) {
  const struct {
    std::string front, piece;
    bool told = false;
    std::string back{};
  } rows[] = {
      {"%!PS\n", "("},
      {"%!PS\n", "<"},
      {"%!PS\n", "<~"},
      {"%!PS\n", "<41"},
      {"%!PS\n", "%\n"},
      {"%!PS\n", "<</a "},
      {"%!PS\n(", "\\"},
      {"%!PS\n(", "$_vxr"},
      {"%!PS\n", "($) show\n"},
      {"%!PS\n", "($_vxr)x"},
      {"%!PS\n[", "($)-20"},
      {"%!PS\n", "currentfile "},
      {"%!PS\n", "{currentfile "},
      {"%!PS\n", "($_vxrs) show\n", true},
      {"%!PS\n", "(\x01$_vxrs ", true},
      {"%!PS\n", "$_vxrs ", true},
      {"\033E", "$_vxrs ", true},
      {"\033E", "$_vxrs ", true, "\033*b1W.$_vxre"},
      {"\033E", "\033*b1W"},
      {"\033E", "\033*b1w"},
      {"\033E", "\033%0B\033E"},
      {"\033%0B", "\033%0"},
      {"\033E", "\033%-12345X"},
      {"\033E", "@PJL "},
  };
  for (const auto& row : rows) {
    for (const std::string settings : {"insert=beforestring", "insert=beforeline", "insert=auto"}) {
      SCOPED_TRACE(row.front + row.piece + ", " + settings);
      const std::string pieces = Repeated(row.piece, kJobSize) + row.back;
      const Program::Result result = Recorded(Filter(settings)).run(row.front + pieces);
      EXPECT_TRUE(result.output == row.front + pieces);
      EXPECT_EQ(result.status, 0);
      EXPECT_EQ(CountOf(result.errors, "has no end.\n"), row.told ? CountOf(pieces, "$_vxrs") : 0);
    }
  }
}

TEST(Sizes, EverySequenceOfManyIsDrawn) {
  const struct {
    std::string front, piece, back;
    bool split = false;  // which insert=auto reads
  } rows[] = {
      {"%!PS\n(", kSequence, ") show\n"},
      {"%!PS\n", "(" + kSequence + ") show\n", ""},
      {"%!PS\n", "[($_v)1(xrs --data=1)2( $_vx)3(re)]TJ\n", "", true},
      {"%!PS\n", kSequence, "\n"},
      {"\033E", kSequence, "\n"},
      {"%!PS\n(" + kSequence + ")", "1 ", "show\n"},
  };
  for (const auto& row : rows) {
    for (const std::string settings : {"embed=off", "embed=off insert=auto"}) {
      SCOPED_TRACE(row.front + row.piece + row.back + settings);
      const std::string job = row.front + Repeated(row.piece, kJobSize / 4) + row.back;
      const Program::Result result = Recorded(Filter(settings)).run(job);
      EXPECT_EQ(CountOf(result.output, kDrawing),
                row.split && settings == "embed=off" ? 0 : CountOf(job, "re"));
      EXPECT_EQ(result.errors, "");
    }
  }
}

}  // namespace
