#include "filter/EmbeddedData.h"

#include "filter/PostScriptString.h"
#include "filter/PostScriptTokens.h"
#include "settings/Values.h"

#include <algorithm>
#include <vector>

namespace Filter {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
// Noise has that many printable bytes behind a line end once in 10^13 bytes.
constexpr std::size_t kTextRun = 32;
// Text lines of programs are shorter; in front of a token in a longer one nothing is known.
constexpr std::size_t kLongestTextLine = 1024;
// A marker or closing line may be cut by the window's end.
constexpr std::size_t kMargin = 64;
constexpr int kRunLengthEnd = 128;

bool IsText(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 32 && byte < 127) || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool AllText(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), IsText);
}

bool IsLineEnd(char c) {
  return c == '\n' || c == '\r';
}

// Where a line that holds `token` begins, if all in front of the token is text. `midLine`: the
// window begins within a line.
std::size_t FindTextLineWith(std::string_view window, std::string_view token, bool midLine) {
  std::size_t at = token.empty() ? kNone : window.find(token);
  while (at != kNone) {
    const std::size_t line = at == 0 ? 0 : window.find_last_of("\r\n", at - 1) + 1;
    const bool whole = line > 0 || !midLine;
    if (whole && at - line <= kLongestTextLine && AllText(window.substr(line, at - line)))
      return line;
    // What stands in front of the line's first token stands in front of the others.
    const std::size_t lineEnd = window.find_first_of("\r\n", at);
    at = lineEnd == kNone ? kNone : window.find(token, lineEnd);
  }
  return kNone;
}

// Where the window's last line begins if it may still become one of text that holds a token; else
// the window's end.
std::size_t OpenTextLine(std::string_view window, bool midLine) {
  const std::size_t line = window.find_last_of("\r\n") + 1;
  const std::string_view open = window.substr(line);
  if ((line == 0 && midLine) || open.size() > kLongestTextLine || !AllText(open))
    return window.size();
  return line;
}

std::uint64_t Count(std::string_view text) {
  std::uint64_t value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9' || value > UINT64_MAX / 100) break;
    value = value * 10 + static_cast<std::uint64_t>(c - '0');
  }
  return value;
}

std::vector<std::string_view> Words(std::string_view text) {
  std::vector<std::string_view> words;
  while (true) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.empty()) return words;
    words.push_back(text.substr(0, text.find_first_of(" \t")));
    text.remove_prefix(words.back().size());
  }
}

}  // namespace

// ---------------------------------------------------------------- sections

DataSection DataSection::Counted(std::uint64_t bytes, std::string_view closer) {
  DataSection section;
  section.remaining = bytes;
  section.closer = closer;
  section.done = bytes == 0;
  return section;
}

DataSection DataSection::Computed(std::uint64_t bytes) {
  DataSection section = Counted(bytes);
  section.computed = true;
  return section;
}

DataSection DataSection::Lines(std::uint64_t lines, std::string_view closer) {
  DataSection section = Counted(lines, closer);
  section.end = End::kLines;
  return section;
}

DataSection DataSection::UpTo(std::string_view marker) {
  DataSection section;
  section.end = End::kMarker;
  section.marker = marker;
  return section;
}

DataSection DataSection::RunLength() {
  DataSection section;
  section.end = End::kRunLength;
  return section;
}

DataSection DataSection::UpToText() {
  DataSection section;
  section.end = End::kText;
  return section;
}

std::size_t DataSection::take(std::string_view window, bool inputEnded, std::string_view token) {
  // What the job counts is data whatever it holds; of other data the text behind is known best.
  const bool counted = (end == End::kCount && !computed) || end == End::kLines;
  std::size_t text = kNone;
  if (!counted) {
    text = FindTextLineWith(window, token, midLine);
    if (text != kNone) {
      window = window.substr(0, text);
    } else if (!inputEnded) {
      window = window.substr(0, OpenTextLine(window, midLine));
      if (window.empty()) return 0;
    }
  }
  const std::size_t size = takeByKind(window, inputEnded || text != kNone);
  if ((text != kNone && size == window.size()) || (size == 0 && inputEnded)) done = true;
  if (size > 0) midLine = !IsLineEnd(window[size - 1]);
  return size;
}

std::size_t DataSection::takeByKind(std::string_view window, bool inputEnded) {
  switch (end) {
    case End::kLines:
      return takeLines(window, inputEnded);
    case End::kMarker:
      return takeToMarker(window, inputEnded);
    case End::kRunLength:
      return takeRuns(window);
    case End::kText:
      return takeToText(window, inputEnded);
    default:
      return takeCounted(window, inputEnded);
  }
}

std::size_t DataSection::finishAt(std::size_t size) {
  done = true;
  return size;
}

// How much of the window's end may still turn out as the closing line.
std::size_t DataSection::closerAtEnd(std::string_view window, bool inputEnded) const {
  const std::size_t line = window.find_last_of("\r\n") + 1;
  if (inputEnded || (line == 0 && midLine) || !closer.starts_with(window.substr(line))) return 0;
  return window.size() - line;
}

std::size_t DataSection::takeCounted(std::string_view window, bool inputEnded) {
  std::size_t size = static_cast<std::size_t>(std::min<std::uint64_t>(remaining, window.size()));
  if (!closer.empty()) {
    const std::string_view reach = window.substr(0, size + closer.size());
    std::size_t found = reach.find(closer);
    while (found < size && !(found == 0 ? !midLine : IsLineEnd(reach[found - 1]))) {
      found = reach.find(closer, found + 1);
    }
    if (found < size) return finishAt(found);
    size = std::min(size, window.size() - closerAtEnd(window, inputEnded));
  }
  remaining -= size;
  if (remaining == 0) done = true;
  return size;
}

std::size_t DataSection::takeLines(std::string_view window, bool inputEnded) {
  std::size_t at = 0;
  while (remaining > 0) {
    const bool atBegin = at > 0 || !midLine;
    if (atBegin && window.substr(at).starts_with(closer)) return finishAt(at);
    const std::size_t lineEnd = window.find_first_of("\r\n", at);
    if (lineEnd == kNone) return window.size() - closerAtEnd(window, inputEnded);
    // A line feed may follow.
    if (window[lineEnd] == '\r' && lineEnd + 1 == window.size() && !inputEnded) return lineEnd;
    at = lineEnd + (window.substr(lineEnd).starts_with("\r\n") ? 2 : 1);
    --remaining;
  }
  return finishAt(at);
}

std::size_t DataSection::takeToMarker(std::string_view window, bool inputEnded) {
  const std::size_t found = window.find(marker);
  if (found != kNone) return finishAt(found + marker.size());
  if (inputEnded) return window.size();
  return window.size() - std::min(window.size(), kMargin + marker.size());
}

std::size_t DataSection::takeRuns(std::string_view window) {
  std::size_t at = 0;
  while (at < window.size()) {
    if (remaining > 0) {
      const auto step =
          static_cast<std::size_t>(std::min<std::uint64_t>(remaining, window.size() - at));
      remaining -= step;
      at += step;
      continue;
    }
    const int length = static_cast<unsigned char>(window[at++]);
    if (length == kRunLengthEnd) return finishAt(at);
    remaining = length < kRunLengthEnd ? static_cast<std::uint64_t>(length) + 1 : 1;
  }
  return at;
}

std::size_t DataSection::takeToText(std::string_view window, bool inputEnded) {
  for (std::size_t lineEnd = window.find_first_of("\r\n"); lineEnd != kNone;
       lineEnd = window.find_first_of("\r\n", lineEnd + 1)) {
    const std::string_view run = window.substr(lineEnd + 1, kTextRun);
    if (run.size() < kTextRun && !inputEnded) return lineEnd;
    if (!run.empty() && AllText(run)) return finishAt(lineEnd + 1);
  }
  return inputEnded ? window.size() : window.size() - std::min(window.size(), kMargin);
}

// ---------------------------------------------------------------- where they begin

std::optional<DataSection> DataBehindComment(std::string_view comment) {
  struct Row {
    std::string_view begin, end;
  };
  constexpr Row kRows[] = {{"%%BeginData:", "%%EndData"}, {"%%BeginBinary:", "%%EndBinary"}};
  for (const auto& [begin, end] : kRows) {
    if (!comment.starts_with(begin)) continue;
    const std::vector<std::string_view> words = Words(comment.substr(begin.size()));
    if (words.empty() || Count(words[0]) == 0) return std::nullopt;
    const bool lines = words.size() > 2 && words[2] == "Lines";
    return lines ? DataSection::Lines(Count(words[0]), end)
                 : DataSection::Counted(Count(words[0]), end);
  }
  return std::nullopt;
}

std::optional<FoundData> DataBehindDictionary(std::string_view text) {
  // Dictionaries of streams are flat; a job full of openers must not be read once for each of them.
  constexpr int kDeepest = 8;
  std::uint64_t length = 0;
  int depth = 0;
  std::string_view key;
  for (Token token = NextToken(text, 0); token.kind != Token::kEnd;
       token = NextToken(text, token.end)) {
    const std::string_view word = token.in(text);
    if (token.kind == Token::kOpenDictionary && ++depth > kDeepest) return std::nullopt;
    if (token.kind == Token::kNumber && depth == 1 && key == "/Length") length = Count(word);
    if (token.kind == Token::kName && depth > 0) return std::nullopt;  // a program's dictionary
    if (token.kind == Token::kLiteralName || token.kind == Token::kNumber) key = word;
    if (token.kind != Token::kCloseDictionary || --depth > 0) continue;
    const std::string_view rest = text.substr(token.end);
    constexpr std::string_view kStream = "stream";
    const std::size_t space = std::min(rest.find_first_not_of("\r\n "), rest.size());
    if (length == 0 || !rest.substr(space).starts_with(kStream)) return std::nullopt;
    std::size_t begin = token.end + space + kStream.size();
    if (text.substr(begin).starts_with('\r')) ++begin;
    if (text.substr(begin).starts_with('\n')) ++begin;
    FoundData found{begin, DataSection::Counted(length, "endstream")};
    found.section.markAsStream();
    return found;
  }
  return std::nullopt;
}

namespace {

// Words that only arrange operands; any other word behind a reader starts reading.
bool OnlyArranges(std::string_view word) {
  return IsOneOf(
      word, {"currentfile", "filter", "def",    "store", "exch",  "dup",        "pop",
             "index",       "roll",   "copy",   "put",   "get",   "true",       "false",
             "cvx",         "dict",   "begin",  "end",   "null",  "mul",        "add",
             "readonly",    "load",   "string", "mark",  "array", "readstring", "readhexstring"});
}

// Words that do something else with the file than reading data that follow.
bool ReadsProgram(std::string_view word) {
  return IsOneOf(word, {"closefile", "flushfile", "read", "readline", "token", "bytesavailable",
                        "fileposition", "resetfile", "eq", "ne", "run", "stop"});
}

bool ShowsPicture(std::string_view word) {
  return IsOneOf(word, {"image", "imagemask", "colorimage", "exec"});
}

// What the words around currentfile amount to.
class Reader {
 public:
  // Takes in one token; literal names begin what belongs to them. False when there are more readers
  // than any picture has: a job full of them must not be read once for each.
  bool add(const Token& token, std::string_view word);
  // The data, when reading begins now. None for hexadecimal data.
  std::optional<DataSection> section() const;

 private:
  void addName(std::string_view word);
  void finishEntry();
  void dropNumbers();
  std::uint64_t pictureBytes() const;

  std::string_view key;         // the last literal name
  std::vector<double> numbers;  // behind it, or behind the last word
  std::size_t matrix = kNone;   // how many numbers stood in front of the array behind them
  std::string text;             // the last string

  std::string_view filter;  // the first one, which reads the file itself
  double subFileCount = 0;
  std::string subFileMark;
  bool inHexadecimal = false;
  int readers = 0;
  double width = 0, height = 0, bits = 0, components = 0;
};

bool Reader::add(const Token& token, std::string_view word) {
  constexpr int kMostReaders = 8;
  switch (token.kind) {
    case Token::kNumber:
      numbers.push_back(NumberIn(word));
      break;
    case Token::kString:
      text = DecodeString(word);
      break;
    case Token::kOpenArray:
      matrix = numbers.size();
      break;
    case Token::kLiteralName:
      finishEntry();
      key = word;
      if (!word.ends_with("Decode") || word == "/Decode") dropNumbers();
      break;
    case Token::kName:
      addName(word);
      break;
    default:
      break;
  }
  return readers <= kMostReaders;
}

// An entry of a picture's dictionary, or the operands in front of a picture's procedure: width,
// height, bits, matrix.
void Reader::finishEntry() {
  if (numbers.empty()) return;
  if (key == "/Width") width = numbers.back();
  if (key == "/Height") height = numbers.back();
  if (key == "/BitsPerComponent") bits = numbers.back();
  if (key == "/Decode") components = static_cast<double>(numbers.size()) / 2;
}

void Reader::addName(std::string_view word) {
  finishEntry();
  if (matrix != kNone && matrix >= 3 && width == 0) {
    width = numbers[matrix - 3];
    height = numbers[matrix - 2];
    bits = numbers[matrix - 1];
    components = 1;
  }
  if (word == "filter" && filter.empty()) {
    filter = key;
    subFileMark = text;
    subFileCount = numbers.empty() ? 0 : numbers.back();
  }
  if (word == "readhexstring") inHexadecimal = true;
  if (word == kReaderWord) ++readers;
  if (word == "colorimage" && !numbers.empty()) components = numbers.back();
  if (!IsOneOf(word, {"true", "false"})) dropNumbers();
}

void Reader::dropNumbers() {
  numbers.clear();
  matrix = kNone;
}

std::uint64_t Reader::pictureBytes() const {
  constexpr double kMost = 1e9;
  const double rowBits = width * bits * std::max(components, 1.0);
  if (!(rowBits > 0 && rowBits < kMost && height > 0 && height < kMost)) return 0;
  return static_cast<std::uint64_t>((rowBits + 7) / 8) * static_cast<std::uint64_t>(height);
}

std::optional<DataSection> Reader::section() const {
  if (filter == "/ASCIIHexDecode" || inHexadecimal) return std::nullopt;
  if (filter == "/ASCII85Decode") return DataSection::UpTo("~>");
  if (filter == "/RunLengthDecode") return DataSection::RunLength();
  if (filter == "/SubFileDecode" && !subFileMark.empty()) return DataSection::UpTo(subFileMark);
  if (filter == "/SubFileDecode" && subFileCount >= 1)
    return DataSection::Counted(static_cast<std::uint64_t>(subFileCount));
  const std::uint64_t size = filter.empty() ? pictureBytes() : 0;
  return size > 0 ? DataSection::Computed(size) : DataSection::UpToText();
}

// White space behind the word that starts reading: one byte, or one line end.
std::size_t BehindSpace(std::string_view text, std::size_t at) {
  if (text.substr(at).starts_with("\r\n")) return at + 2;
  return at + (at < text.size() && IsPostScriptSpace(text[at]) ? 1 : 0);
}

// How many procedures that began in front of the reader it is part of.
int OpenProcedures(std::string_view before) {
  int depth = 0;
  for (Token token = NextToken(before, 0); token.kind != Token::kEnd;
       token = NextToken(before, token.end)) {
    if (token.kind == Token::kOpenProcedure) ++depth;
    if (token.kind == Token::kCloseProcedure) depth = std::max(depth - 1, 0);
  }
  return depth;
}

// The operands in front of a reader: from the last dictionary's or, outside of one, line's begin.
std::string_view Operands(std::string_view before) {
  const std::size_t dictionary = before.rfind("<<");
  if (dictionary != kNone && before.find(">>", dictionary) == kNone)
    return before.substr(dictionary);
  constexpr std::size_t kOperandText = 512;
  const std::size_t from = before.size() - std::min(before.size(), kOperandText);
  return before.substr(from == 0 ? 0 : std::min(before.find_first_of("\r\n", from), before.size()));
}

}  // namespace

std::optional<FoundData> DataBehindReader(std::string_view before, std::string_view text) {
  Reader reader;
  const std::string_view operands = Operands(before);
  for (Token token = NextToken(operands, 0); token.kind != Token::kEnd;
       token = NextToken(operands, token.end)) {
    if (!reader.add(token, token.in(operands))) return std::nullopt;
  }
  // What stands in a procedure of a procedure is read when somebody calls that one.
  const int open = OpenProcedures(operands);
  if (open > 1) return std::nullopt;
  bool inside = open > 0;
  bool left = false;  // the procedure that holds the reader has ended
  int depth = 0;
  for (Token token = NextToken(text, 0); token.kind != Token::kEnd;
       token = NextToken(text, token.end)) {
    const std::string_view word = token.in(text);
    if (!reader.add(token, word)) return std::nullopt;
    if (token.kind == Token::kOpenProcedure) ++depth;
    if (token.kind == Token::kCloseProcedure && --depth < 0) {
      if (left) return std::nullopt;
      inside = false;
      left = true;
      depth = 0;
    }
    if (token.kind != Token::kName || depth > 0 || inside) continue;
    if (word == "eexec" && !left) return FoundData{token.end, DataSection::UpTo("cleartomark")};
    if (left && !ShowsPicture(word) && !IsOneOf(word, {"true", "false"})) return std::nullopt;
    if (ReadsProgram(word)) return std::nullopt;
    if (!ShowsPicture(word) && OnlyArranges(word)) continue;
    if (const auto section = reader.section())
      return FoundData{BehindSpace(text, token.end), *section};
    return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace Filter
