#include "filter/PclData.h"

#include "engine/PclCodes.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace Filter {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kReset = "\033E";
// The largest number in a PCL command. Rows beyond it exist in jobs of wide plotters.
constexpr std::uint64_t kLargestNumber = 65535;
// Counts stay far from overflow.
constexpr std::uint64_t kNumberLimit = std::uint64_t{1} << 50;

constexpr PclData::Letters Bit(char letter) {
  return PclData::Letters{1} << (letter & 31);
}

// Which parameters data follow in a group of commands.
struct Group {
  char first, second;
  std::string_view letters;
};
constexpr Group kGroups[] = {
    {'*', 'b', "WV"},  // raster rows, planes
    {'*', 'c', "W"},   // user-defined pattern
    {'*', 'g', "W"},   // raster set-up
    {'*', 'i', "W"},   // viewing illuminant
    {'*', 'l', "W"},   // colour lookup tables
    {'*', 'm', "W"},   // dither matrix
    {'*', 'o', "W"},   // driver configuration
    {'*', 'v', "W"},   // image data configuration
    {'&', 'a', "W"},   // logical page
    {'&', 'b', "W"},   // network configuration
    {'&', 'n', "W"},   // alphanumeric ID
    {'&', 'p', "X"},   // transparent print
    {'(', 'f', "W"},   // symbol set
    {'(', 's', "W"},   // character
    {')', 's', "W"},   // font header
};

constexpr PclLetterTable MakeLetterTable() {
  PclLetterTable table{};
  for (const Group& group : kGroups) {
    for (const char letter : group.letters)
      table[group.first & 15][group.second & 31] |= Bit(letter);
  }
  return table;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// A number with its sign; its digits may be missing.
struct Number {
  std::uint64_t size = 0;  // without the sign
  bool negative = false, digits = false;
  std::size_t end = 0;
};

Number NumberAt(std::string_view text, std::size_t at) {
  Number number;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) number.negative = text[at++] == '-';
  for (; at < text.size() && IsDigit(text[at]); ++at) {
    number.digits = true;
    number.size = std::min(number.size * 10 + static_cast<unsigned>(text[at] - '0'), kNumberLimit);
  }
  if (at < text.size() && text[at] == '.') {
    do ++at;
    while (at < text.size() && IsDigit(text[at]));
  }
  number.end = at;
  return number;
}

// A command's parameters from `at` on, up to the first with data.
std::optional<PclCommand> ReadParameters(std::string_view text, std::size_t at,
                                         PclData::Letters letters, bool needDigits) {
  while (true) {
    const Number number = NumberAt(text, at);
    at = number.end;
    if (at >= text.size() || (needDigits && !number.digits)) return std::nullopt;
    const char letter = text[at++];
    const bool last = letter >= '@' && letter <= '^';
    if (!last && !(letter >= '`' && letter <= '~')) return std::nullopt;
    if ((letters & Bit(letter)) != 0 && !number.negative && number.size > 0) {
      const bool holdsText = letters == Bit('X') || number.size > kLargestNumber;
      return PclCommand{at, PclData::Counted(number.size, holdsText, last ? 0 : letters)};
    }
    if (last) return std::nullopt;
  }
}

// The letter of ESC%#<letter>, 0 when it is none.
char PercentCommand(std::string_view text) {
  if (!text.starts_with("\033%")) return '\0';
  const Number number = NumberAt(text, 2);
  return number.digits && number.end < text.size() ? text[number.end] : '\0';
}

std::uint64_t EightBytes(const char* at) {
  std::uint64_t bytes;
  std::memcpy(&bytes, at, sizeof bytes);
  return bytes;
}

// A row or plane of a raster with its command, in which nothing but parameters without sign and
// data may be combined with it.
struct Row {
  std::size_t size = 0;  // 0 for none
  std::size_t commandSize = 0;
};
constexpr std::size_t kLongestRowCommand = 16;

Row RowAt(std::string_view text) {
  if (text.size() < kLongestRowCommand || !text.starts_with("\033*b")) return {};
  std::size_t number = 0;
  for (std::size_t at = 3; at < kLongestRowCommand; ++at) {
    const char c = text[at];
    if (IsDigit(c)) {
      number = number * 10 + static_cast<std::size_t>(c - '0');
    } else if (c == 'W' || c == 'V') {
      return {at + 1 + number, at + 1};
    } else if (c < '`' || c > '~' || c == 'w' || c == 'v') {
      return {};
    } else {
      number = 0;
    }
  }
  return {};
}

// Tells whether a text begins with the same command as a row. REQUIRES: kLongestRowCommand bytes.
class SameCommand {
 public:
  SameCommand(const char* row, std::size_t size)
      : tail(std::max<std::size_t>(size, 8) - 8),
        mask(EightBytes(kOnes.data() + 8 - std::min<std::size_t>(size, 8))),
        first(EightBytes(row) & mask),
        last(EightBytes(row + tail) & mask) {}

  bool at(const char* text) const {
    return (EightBytes(text) & mask) == first && (EightBytes(text + tail) & mask) == last;
  }

 private:
  static constexpr std::string_view kOnes{"\xff\xff\xff\xff\xff\xff\xff\xff\0\0\0\0\0\0\0", 15};
  std::size_t tail;
  std::uint64_t mask, first, last;
};

}  // namespace

PclData PclData::Counted(std::uint64_t bytes, bool text, Letters letters) {
  PclData data;
  data.kind = Kind::kCounted;
  data.remaining = bytes;
  data.text = text;
  data.letters = letters;
  return data;
}

PclData PclData::HpGl() {
  PclData data;
  data.kind = Kind::kHpGl;
  data.text = true;
  return data;
}

PclData PclData::PclXl() {
  PclData data = HpGl();
  data.kind = Kind::kPclXl;
  return data;
}

const char* PclData::whereText() const {
  if (kind == Kind::kHpGl) return "stands in HP-GL/2";
  return kind == Kind::kPclXl ? "stands in PCL XL" : "stands in counted data";
}

bool PclData::endsAt(std::string_view escape) const {
  if (escape.starts_with(Engine::kUniversalExit)) return true;
  return kind == Kind::kHpGl && (escape.starts_with(kReset) || PercentCommand(escape) == 'A');
}

std::size_t PclData::take(std::string_view window, bool inputEnded) {
  if (kind == Kind::kCounted) {
    const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(remaining, window.size()));
    remaining -= size;
    if (remaining == 0) kind = Kind::kNone;
    return size;
  }
  for (std::size_t at = window.find(kPclEscape); at != kNone;
       at = window.find(kPclEscape, at + 1)) {
    const std::string_view escape = window.substr(at, Engine::kUniversalExit.size());
    if (endsAt(escape)) {
      kind = Kind::kNone;
      return at;
    }
    if (escape.size() < Engine::kUniversalExit.size() && !inputEnded) return at;
  }
  return window.size();
}

const PclLetterTable kPclLetters = MakeLetterTable();

std::size_t PclRowsInFront(std::string_view text) {
  std::size_t at = 0;
  while (true) {
    const Row row = RowAt(text.substr(at));
    if (row.size == 0 || row.size > text.size() - at) return at;
    // The rows of a picture that is not compressed all begin alike.
    const SameCommand same(text.data() + at, row.commandSize);
    do at += row.size;
    while (text.size() - at >= std::max(row.size, kLongestRowCommand) && same.at(text.data() + at));
  }
}

PclCommand ReadPclCommand(std::string_view text) {
  if (!MayBeginPclData(text)) return {};
  if (text.starts_with(Engine::kUniversalExit)) return {Engine::kUniversalExit.size(), {}, true};
  if (PercentCommand(text) == 'B') return {1, PclData::HpGl()};
  return ReadParameters(text, 3, PclLettersOf(text[1], text[2]), false).value_or(PclCommand{});
}

PclCommand ReadPclParameters(std::string_view text, PclData::Letters letters) {
  return ReadParameters(text, 0, letters, true).value_or(PclCommand{0, {}});
}

std::optional<std::size_t> FindPclXl(std::string_view text, bool inLine) {
  constexpr std::string_view kName = " HP-PCL XL;";
  constexpr std::string_view kBindings = ")('";  // low byte first, high byte first, text
  std::size_t at = inLine ? text.find('\n') : 0;
  while (at < text.size()) {
    const std::string_view rest = text.substr(at);
    if (rest.substr(1).starts_with(kName) && kBindings.find(rest[0]) != kNone) return at;
    if (rest.starts_with(Engine::kUniversalExit)) {
      at += Engine::kUniversalExit.size();
    } else if (rest.starts_with(kReset)) {
      at += kReset.size();
    } else if (rest.find_first_of(" \t\r\n") == 0) {
      ++at;
    } else {
      break;
    }
  }
  return std::nullopt;
}

std::size_t FindPclData(std::string_view text) {
  for (std::size_t at = text.find(kPclEscape); at != kNone; at = text.find(kPclEscape, at + 1)) {
    const PclCommand command = ReadPclCommand(text.substr(at, kLongestPclCommand));
    if (command.exit || !command.data.finished()) return at;
  }
  return kNone;
}

}  // namespace Filter
