// Tokens and the knowledge about data: offsets stay within the text, every step takes something,
// and where data end does not depend on how they arrive. The first byte chooses, the second says
// how much arrives at a time.
#include "filter/EmbeddedData.h"
#include "filter/PostScriptTokens.h"
#include "fuzz/Target.h"

#include <algorithm>
#include <optional>

namespace Fuzz {
namespace {

using namespace Filter;

constexpr std::string_view kToken = "$_vxrs";

void ReadTokens(std::string_view text) {
  std::size_t at = 0;
  while (true) {
    const Token token = NextToken(text, at);
    Require(token.begin >= at && token.end <= text.size(), "tokens stand in the text");
    if (token.kind == Token::kEnd) return;
    Require(token.end > token.begin, "a token has at least one byte");
    at = token.end;
  }
}

// How many bytes the section takes when `piece` bytes arrive at a time.
std::size_t Size(DataSection section, std::string_view text, std::size_t piece) {
  std::size_t begin = 0;
  std::size_t end = std::min(piece, text.size());
  while (!section.finished()) {
    const std::string_view window = text.substr(begin, end - begin);
    if (window.empty() && end == text.size()) break;
    // The end of the input shows only once a read has found nothing.
    std::size_t size = window.empty() ? 0 : section.take(window, false, kToken);
    if (size == 0 && !section.finished() && end == text.size())
      size = section.take(window, true, kToken);
    Require(size <= window.size(), "data stand in the text");
    if (size == 0 && end == text.size()) break;
    begin += size;
    if (size == 0) end = std::min(end + piece, text.size());
  }
  return begin;
}

void TakeData(const DataSection& section, std::string_view text, std::size_t piece) {
  const std::size_t whole = Size(section, text, text.size());
  Require(Size(section, text, piece) == whole, "data end where they end however they arrive");
}

DataSection SectionOf(unsigned choice, unsigned count) {
  switch (choice) {
    case 0:
      return DataSection::Counted(count, "%%EndData");
    case 1:
      return DataSection::Lines(count, "%%EndData");
    case 2:
      return DataSection::UpTo("~>");
    case 3:
      return DataSection::RunLength();
    default:
      return DataSection::UpToText();
  }
}

}  // namespace

void FuzzData(std::string_view bytes) {
  Input input(bytes);
  const unsigned choice = input.choice() % 8;
  const unsigned count = input.choice();
  const std::size_t piece = input.choice() + 1;
  const std::string_view text = input.rest();
  ReadTokens(text);
  if (choice < 5) return TakeData(SectionOf(choice, count), text, piece);
  std::optional<FoundData> found;
  if (choice == 5) {
    const std::size_t line = std::min(text.find('\n'), text.size());
    if (const auto section = DataBehindComment(text.substr(0, line)))
      found = FoundData{std::min(line + 1, text.size()), *section};
  } else if (choice == 6) {
    found = DataBehindDictionary(text);
  } else {
    const std::size_t reader = std::min(text.find(kReaderWord), text.size());
    found = DataBehindReader(text.substr(0, reader), text.substr(reader));
    if (found) found->begin += reader;
  }
  if (!found) return;
  Require(found->begin <= text.size(), "data begin in the text");
  TakeData(found->section, text.substr(found->begin), piece);
}

}  // namespace Fuzz
