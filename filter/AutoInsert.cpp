#include "filter/AutoInsert.h"

#include "filter/BeginToken.h"
#include "filter/Limits.h"
#include "filter/PostScriptString.h"
#include "filter/ShowOperators.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Filter {

using Diag::ResultCode;

namespace {

constexpr std::size_t kNone = std::string_view::npos;
// Widths of characters may stand between a string and the operator that shows it.
constexpr std::size_t kLongestOperators = 256 * 1024;
// Operators in the code of one unit, which has them once for each part of the text that stays
// visible.
constexpr std::size_t kMostOperatorCode = 4 * 1024 * 1024;

// Where the string that ends with the last byte of `text` begins; kNone when there is none.
std::size_t StringBegin(std::string_view text) {
  if (text.ends_with('>')) return text.rfind('<');
  std::size_t depth = 0;
  for (std::size_t at = text.size(); at-- > 0;) {
    if (text[at] != '(' && text[at] != ')') continue;
    std::size_t backslashes = 0;
    while (backslashes < at && text[at - 1 - backslashes] == '\\') ++backslashes;
    if (backslashes % 2 == 1) continue;
    if (text[at] == ')') ++depth;
    if (text[at] == '(' && --depth == 0) return at;
  }
  return kNone;
}

}  // namespace

bool AutoInsert::Unit::hasTaken() const {
  return std::any_of(parts.begin(), parts.end(),
                     [](const Part& part) { return !part.taken.empty(); });
}

std::size_t AutoInsert::Unit::length() const {
  std::size_t length = 0;
  for (const Part& part : parts) length += part.bytes.size();
  return length;
}

ResultCode AutoInsert::handlePostScriptString(std::size_t size, const Producer& newProducer) {
  if (job.stream.position() < noBeginBefore) {
    job.stream.forward(size);
    return Diag::kSuccess;
  }
  producer = newProducer;
  text.clear();
  units.clear();
  outputSize = 0;
  std::size_t string = 0;  // its begin
  if (job.stream.position() >= noArrayBefore) {
    if (const std::size_t back = arrayInFront(); back > 0 && job.stream.retract(back))
      string = back;
  }
  if (!readUnit(0)) {
    job.stream.forward(string);
    string = 0;
    if (!readUnit(0)) {
      job.stream.forward(size);
      return Diag::kSuccess;
    }
  }
  const ResultCode result = takeSequences();
  while (!units.empty() && !units.back().hasTaken()) units.pop_back();
  if (units.empty()) {
    job.stream.forward(string + size);
  } else {
    writeUnits();
  }
  return result;
}

// ---------------------------------------------------------------- reading

// The token at an offset in the window, which grows until it holds the token whole.
Token AutoInsert::nextToken(std::size_t at) {
  while (true) {
    const Token token = NextToken(window(), at);
    if (token.kind != Token::kEnd || window().size() - at > kLongestSequence ||
        !job.stream.extend()) {
      return token;
    }
  }
}

// How far in front of the window the array begins that its first string stands in; 0 for none.
std::size_t AutoInsert::arrayInFront() {
  std::string_view front = job.stream.history();
  const std::size_t size = front.size();
  front.remove_prefix(size - std::min(size, Stream::kLookBack));
  const std::size_t at = front.size();
  const std::uint64_t place = job.stream.position();
  const std::uint64_t last = std::exchange(noArrayInFrontOf, place);
  while (place - (at - front.size()) > last) {
    const std::size_t end = front.find_last_not_of(" \t\r\n\f+-.0123456789");
    if (end == kNone) return 0;
    if (front[end] == '[') {
      noArrayInFrontOf = last;
      return at - end;
    }
    front = front.substr(0, end + 1);
    if (!front.ends_with(')') && !front.ends_with('>')) return 0;
    const std::size_t begin = StringBegin(front);
    if (begin == kNone) return 0;
    front = front.substr(0, begin);
  }
  return 0;
}

// Reads the operation whose operand begins at this offset.
bool AutoInsert::readUnit(std::size_t at) {
  Unit unit;
  const Token token = nextToken(at);
  unit.begin = token.begin;
  if (token.kind == Token::kOpenArray) {
    if (!readArray(token.end, unit)) return false;
  } else if (token.kind == Token::kString) {
    unit.parts.push_back({token.begin, token.end, DecodeString(token.in(window())), 0, 0, {}});
    unit.operandEnd = token.end;
  } else {
    return false;
  }
  readOperators(unit);
  addText(unit);
  units.push_back(std::move(unit));
  return true;
}

// An array of strings and numbers, behind its bracket.
bool AutoInsert::readArray(std::size_t at, Unit& unit) {
  for (Token token = nextToken(at);; token = nextToken(token.end)) {
    if (token.kind == Token::kString) {
      unit.parts.push_back({token.begin, token.end, DecodeString(token.in(window())), 0, 0, {}});
    } else if (token.kind == Token::kCloseArray) {
      unit.operandEnd = token.end;
      return !unit.parts.empty();
    } else if (token.kind != Token::kNumber) {
      noArrayBefore = job.stream.position() + token.begin;
      return false;
    }
    if (token.end - unit.begin > kLongestSequence) {
      noArrayBefore = job.stream.position() + token.end;
      return false;
    }
  }
}

// Everything up to the first word that is not known to do something else than show.
void AutoInsert::readOperators(Unit& unit) {
  unit.end = unit.operandEnd;
  int nesting = 0;  // of arrays and procedures
  for (Token token = nextToken(unit.operandEnd);; token = nextToken(token.end)) {
    const std::string_view word = token.in(window());
    if (token.end - unit.operandEnd > kLongestOperators) return;
    switch (token.kind) {
      case Token::kNumber:
      case Token::kLiteralName:
        continue;
      case Token::kOpenArray:
      case Token::kOpenProcedure:
        ++nesting;
        continue;
      case Token::kCloseArray:
      case Token::kCloseProcedure:
        if (--nesting < 0) return;
        continue;
      case Token::kName:
        break;
      default:
        return;
    }
    if (nesting > 0 || Prepares(word)) continue;
    unit.shown = !TakesOtherwise(word);
    if (unit.shown) unit.end = token.end;
    return;
  }
}

bool AutoInsert::readNextUnit() {
  const std::size_t last = units.back().end;
  for (Token token = nextToken(last); token.kind != Token::kEnd; token = nextToken(token.end)) {
    if (token.end - units.front().begin > kLongestSequence) return false;
    if (token.kind == Token::kName && EndsText(token.in(window()))) return false;
    const bool mayBegin = token.kind == Token::kString || token.kind == Token::kOpenArray;
    if (mayBegin && readUnit(token.begin)) return true;
  }
  return false;
}

// Appends what the unit's parts say.
void AutoInsert::addText(Unit& unit) {
  const std::string_view all = window();
  const Part* before = units.empty() ? nullptr : &units.back().parts.back();
  const std::string_view behind = all.substr(unit.operandEnd, unit.end - unit.operandEnd);
  std::size_t offset = 0;
  for (Part& part : unit.parts) {
    part.offset = offset;
    offset += part.bytes.size();
    if (before) {
      const std::string_view between = all.substr(before->end, part.begin - before->end);
      const std::string_view front = job.stream.before(before->begin, Stream::kLookBack);
      const auto movement = PenMovement(producer, front, between, behind);
      if (!movement || *movement >= kWordSpace || *movement <= -kWordSpace) text += ' ';
    }
    part.textBegin = text.size();
    text += part.bytes;
    if (const char hyphen = producer.otherHyphen()) {
      std::replace(text.begin() + static_cast<std::ptrdiff_t>(part.textBegin), text.end(), hyphen,
                   '-');
    }
    before = &part;
  }
}

// ---------------------------------------------------------------- sequences

ResultCode AutoInsert::takeSequences() {
  ResultCode result = Diag::kSuccess;
  std::size_t begin = 0;
  std::size_t end = 0;
  while (findBegin(end, begin)) {
    if (!findEnd(begin + job.application.escapeBegin.size(), end)) {
      const ResultCode unclosed = reportUnclosed(begin);
      return result == Diag::kSuccess ? unclosed : result;
    }
    const ResultCode taken = takeSequence(begin, end);
    if (result == Diag::kSuccess) result = taken;
  }
  return result;
}

// Finds the next begin token, which may be split over units that were not read yet. Another part of
// a token than the one that the text ends with now is found when its string's turn comes.
bool AutoInsert::findBegin(std::size_t from, std::size_t& begin) {
  const std::string& token = job.application.escapeBegin;
  std::size_t partBegin = kNone;
  while (true) {
    begin = text.find(token, from);
    if (begin != kNone) return true;
    const std::size_t part = PartAtEnd(std::string_view(text).substr(from), token);
    const std::size_t now = text.size() - part;
    if (part == 0 || now > partBegin || !readNextUnit()) {
      noteSearched(units.front());
      return false;
    }
    partBegin = now;
  }
}

// Notes that the strings of a unit, which is in the text, need not be searched again, but for one
// in which a token may begin that goes on behind the text.
void AutoInsert::noteSearched(const Unit& unit) {
  std::uint64_t place = job.stream.position() + unit.operandEnd;
  if (const std::size_t part = PartAtEnd(text, job.application.escapeBegin); part > 0)
    place = std::min(place, placeOf(text.size() - part));
  noBeginBefore = std::max(noBeginBefore, place);
}

// Sets `end` behind the end token.
bool AutoInsert::findEnd(std::size_t from, std::size_t& end) {
  const std::string& token = job.application.escapeEnd;
  std::size_t searched = from;
  const bool hasNone = placeOf(from) < noEndBefore;
  while (true) {
    end = text.find(token, searched);
    if (end != kNone) break;
    searched = std::max(from, text.size() - std::min(text.size(), token.size()));
    if (hasNone || !readNextUnit()) return false;
  }
  end += token.size();
  return true;
}

ResultCode AutoInsert::takeSequence(std::size_t begin, std::size_t end) {
  if (outputSize > kMostWaiting) {
    job.noteBarcodeMissing(placeOf(begin), "stands behind too many others in one text");
    take(begin, end, {});
    return Diag::kInvalidArgument;
  }
  const std::size_t optionsBegin = begin + job.application.escapeBegin.size();
  const std::size_t optionsEnd = end - job.application.escapeEnd.size();
  std::string output = text.substr(optionsBegin, optionsEnd - std::min(optionsBegin, optionsEnd));
  const ResultCode result = maker.processForText(output, placeOf(begin));
  if (!maker.insertsAfter(result)) output.clear();
  outputSize += output.size();
  take(begin, end, output);
  return result;
}

void AutoInsert::take(std::size_t begin, std::size_t end, const std::string& output) {
  const auto endsBefore = [&](const Part& part) { return part.textEnd() <= begin; };
  bool first = true;
  for (auto unit = std::ranges::partition_point(
           units, [&](const Unit& each) { return endsBefore(each.parts.back()); });
       unit != units.end() && unit->parts.front().textBegin < end; ++unit) {
    for (auto part = std::ranges::partition_point(unit->parts, endsBefore);
         part != unit->parts.end() && part->textBegin < end; ++part) {
      if (part->bytes.empty()) continue;
      part->taken.push_back({std::max(begin, part->textBegin) - part->textBegin,
                             std::min(end, part->textEnd()) - part->textBegin, first,
                             first ? output : std::string()});
      first = false;
    }
  }
}

// The unit that holds an offset of the text, and the part of it.
const AutoInsert::Unit& AutoInsert::unitAt(std::size_t textOffset) const {
  return *std::prev(std::ranges::partition_point(
      units, [&](const Unit& unit) { return unit.parts.front().textBegin <= textOffset; }));
}

const AutoInsert::Part& AutoInsert::partAt(std::size_t textOffset) const {
  return *std::prev(std::ranges::partition_point(
      unitAt(textOffset).parts, [&](const Part& part) { return part.textBegin <= textOffset; }));
}

// The place in the job of that part.
std::uint64_t AutoInsert::placeOf(std::size_t textOffset) const {
  return job.stream.position() + partAt(textOffset).begin;
}

// Reports the sequence that begins here, and of each further string of its array the first one.
ResultCode AutoInsert::reportUnclosed(std::size_t begin) {
  noEndBefore = std::max(noEndBefore, job.stream.position() + units.back().end);
  const Unit& unit = unitAt(begin);
  const std::size_t last = unit.parts.back().textEnd();
  while (begin < last) {
    job.log.Trace(Diag::kWarning, "Begin of barcode escape sequence without valid end found!");
    job.noteBarcodeMissing(placeOf(begin), "has no end");
    begin = text.find(job.application.escapeBegin, std::max(begin + 1, partAt(begin).textEnd()));
  }
  if (unit.parts.size() > 1) noteSearched(unit);
  return Diag::kUnclosedSequence;
}

// ---------------------------------------------------------------- writing

void AutoInsert::writeUnits() {
  std::string output;
  std::size_t at = 0;
  for (Unit& unit : units) {
    boundCode(unit);
    output += window().substr(at, unit.begin - at);
    output += unit.hasTaken() ? rewritten(unit)
                              : std::string(window().substr(unit.begin, unit.end - unit.begin));
    at = unit.end;
  }
  job.stream.consume(at);
  job.stream.putString(output);
}

// A unit whose code would be too long counts as one without operators.
void AutoInsert::boundCode(Unit& unit) {
  std::size_t visible = 1;  // parts, at most
  for (const Part& part : unit.parts) visible += part.taken.size();
  if (visible * (unit.end - unit.operandEnd) <= kMostOperatorCode) return;
  unit.shown = false;
  unit.end = unit.operandEnd;
}

std::string AutoInsert::rewritten(const Unit& unit) {
  const std::string operators(window().substr(unit.operandEnd, unit.end - unit.operandEnd));
  const ShownText shown = describe(unit);
  if (!unit.shown) {
    std::string block;
    if (!shown.barcodes.empty()) {
      job.log.Note(Diag::kWarning,
                   "The operator that shows the text of a barcode sequence could not be seen: the "
                   "barcode is drawn at the current point, if there is one.");
      block = BlockAtCurrentPoint(shown.barcodes);
    }
    return block + operandLeft(unit) + operators;
  }
  const bool placed = !shown.barcodes.empty() || !shown.visible.empty();
  const std::string front = placed ? BlockBeforeText(shown) : std::string();
  if (job.application.barcode.remove != Settings::kBlankSequence)
    return front + operandLeft(unit) + operators;
  return front + operandLeft(unit) + BlockBehindText(shown) + operators + BlockBehindOperators();
}

ShownText AutoInsert::describe(const Unit& unit) {
  ShownText shown;
  for (const Part& part : unit.parts) shown.bytes += part.bytes;
  const std::size_t length = shown.bytes.size();
  shown.operand = operandCode(unit, 0, length);
  shown.operators = operatorsFor(unit, 0, length);
  std::size_t partBegin = 0;
  std::size_t visibleFrom = 0;
  const auto addVisible = [&](std::size_t end) {
    if (end <= visibleFrom) return;
    shown.visible.push_back({operandCode(unit, visibleFrom, end),
                             operatorsFor(unit, visibleFrom, end), end - visibleFrom, visibleFrom});
  };
  for (const Part& part : unit.parts) {
    for (const Taken& taken : part.taken) {
      addVisible(partBegin + taken.begin);
      visibleFrom = partBegin + taken.end;
      if (taken.begins) shown.barcodes.push_back({taken.output, partBegin + taken.begin});
    }
    partBegin += part.bytes.size();
  }
  addVisible(length);
  return shown;
}

// Code that leaves a range of the unit's bytes on the stack, in an array with the numbers between.
std::string AutoInsert::operandCode(const Unit& unit, std::size_t begin, std::size_t end) {
  const bool array = window()[unit.begin] == '[';
  std::string code;
  for (auto part = std::ranges::partition_point(
           unit.parts, [&](const Part& each) { return each.offset + each.bytes.size() <= begin; });
       part != unit.parts.end() && (part->offset < end); ++part) {
    if (part->offset > begin) {
      const std::size_t behind = std::prev(part)->end;
      code += window().substr(behind, part->begin - behind);
    }
    if (part->bytes.empty()) continue;
    const std::size_t from = std::max(begin, part->offset);
    code += PartOfText(from, std::min(end, part->offset + part->bytes.size()) - from);
  }
  return array ? '[' + code + ']' : code;
}

// The operand without what was taken, as it is written.
std::string AutoInsert::operandLeft(const Unit& unit) {
  std::string left;
  std::size_t at = unit.begin;
  for (const Part& part : unit.parts) {
    left += window().substr(at, part.begin - at);
    const std::string_view token = window().substr(part.begin, part.end - part.begin);
    std::vector<ByteRange> ranges;
    for (const Taken& taken : part.taken) ranges.push_back({taken.begin, taken.end});
    left += WithoutBytes(token, ranges);
    at = part.end;
  }
  return left += window().substr(at, unit.operandEnd - at);
}

// The operators for a range of the bytes: of an array with one or two numbers for each byte, as
// widths are given, those of the range.
std::string AutoInsert::operatorsFor(const Unit& unit, std::size_t begin, std::size_t end) {
  const std::string operators(window().substr(unit.operandEnd, unit.end - unit.operandEnd));
  const std::size_t length = unit.length();
  const Token open = NextToken(operators, 0);
  if (open.kind != Token::kOpenArray || end - begin == length) return operators;
  std::vector<std::string_view> numbers;
  Token token = NextToken(operators, open.end);
  for (; token.kind == Token::kNumber; token = NextToken(operators, token.end)) {
    numbers.push_back(token.in(operators));
  }
  if (token.kind != Token::kCloseArray || numbers.empty()) return operators;
  const std::size_t each = numbers.size() / length;
  if (each * length != numbers.size() || each > 2) return operators;
  std::string range = "[";
  for (std::size_t i = begin * each; i < end * each; ++i) range.append(numbers[i]).append(" ");
  return range + operators.substr(token.begin);
}

}  // namespace Filter
