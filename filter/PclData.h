// Bytes that stand in a PCL job and are neither text nor commands: rows of pictures, fonts, pages
// in another language. Nothing in them is searched, and nothing is put into them.
//
// What is known here (# is a number; commands of one group may be combined, as in ESC*b3m80W):
//
//   ESC*b#W  ESC*b#V                      a row, or plane of a row, of a raster: # bytes
//   ESC*c#W  ESC*v#W and the like         patterns, colours, dithers, set-up: # bytes
//   ESC)s#W  ESC(s#W  ESC(f#W             fonts, characters, symbol sets: # bytes
//   ESC&n#W  ESC&b#W  ESC&a#W             names, network, logical pages: # bytes
//   ESC&p#X                               text that prints as it stands: # bytes
//   ESC%#B                                HP-GL/2, up to ESC%#A, a reset or an exit
//   ) HP-PCL XL;  ( HP-PCL XL;            PCL XL behind PJL, an exit or at the begin, up to an exit
//
// Macros are commands and text like any other.
//
// Counts. What a command counts is data whatever it holds, if need be up to the end of the job: so
// the printer takes it, and a job in which a barcode is missing can be printed again, one whose
// picture is spoilt can't be told from a good one. No number, zero and negative numbers count
// nothing. Text may stand in some data (see mayHoldText): whoever passes them says so when a
// sequence seems to begin there.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Filter {

inline constexpr char kPclEscape = '\033';
// Commands are shorter, and so are the exits from other languages.
inline constexpr std::size_t kLongestPclCommand = 128;
// So much text tells whether PCL XL begins.
inline constexpr std::size_t kPclXlText = 512;

class PclData {
 public:
  // The letters that end parameters with data in a group of commands, bit i for letter i.
  using Letters = std::uint32_t;

  PclData() = default;
  // `letters`: of the command's group, when it goes on behind the data.
  static PclData Counted(std::uint64_t bytes, bool text, Letters letters = 0);
  static PclData HpGl();
  static PclData PclXl();

  bool finished() const { return kind == Kind::kNone; }
  // Counted, and nothing else to know of them.
  bool isPlain() const { return kind == Kind::kCounted && !text && letters == 0; }
  // The counted bytes that are left.
  std::uint64_t left() const { return remaining; }
  Letters goesOnWith() const { return letters; }
  // Transparent print, other languages, and counts that no PCL printer has.
  bool mayHoldText() const { return text; }
  // What to say of a sequence in them.
  const char* whereText() const;

  // How many bytes at the window's front are data. 0 asks for more bytes behind the window, unless
  // the data have finished.
  std::size_t take(std::string_view window, bool inputEnded);

 private:
  enum class Kind { kNone, kCounted, kHpGl, kPclXl };

  bool endsAt(std::string_view escape) const;

  Kind kind = Kind::kNone;
  bool text = false;
  Letters letters = 0;
  std::uint64_t remaining = 0;
};

// A command as far as it matters here.
struct PclCommand {
  std::size_t size = 1;  // up to its data or, if it has none, only the escape
  PclData data;
  bool exit = false;  // from PCL: PJL or another language follows
};

// By the low bits of the two bytes that name a group of commands.
using PclLetterTable = std::array<std::array<PclData::Letters, 32>, 16>;
extern const PclLetterTable kPclLetters;
// Of the group that two bytes name, 0 when they name none with data.
inline PclData::Letters PclLettersOf(char first, char second) {
  if ((first & 0xf0) != 0x20 || (second & 0xe0) != 0x60) return 0;
  return kPclLetters[first & 15][second & 31];
}
// Whether data may follow the escape that the text begins with, as a look at three bytes tells.
inline bool MayBeginPclData(std::string_view text) {
  return text.size() >= 3 && (text[1] == '%' || PclLettersOf(text[1], text[2]) != 0);
}
// How many bytes at the text's front are whole rows of a raster with their commands.
std::size_t PclRowsInFront(std::string_view text);
// The command that the text begins with, of which kLongestPclCommand bytes are enough.
PclCommand ReadPclCommand(std::string_view text);
// The rest of a combined command behind its data; of size 0 when no further data follow.
PclCommand ReadPclParameters(std::string_view text, PclData::Letters letters);
// Where PCL XL begins, with nothing but white space, resets and exits in front of it. `inLine`: the
// text begins within a line, which is skipped.
std::optional<std::size_t> FindPclXl(std::string_view text, bool inLine);
// Where the first command with data, or exit, stands in the text; npos for none.
std::size_t FindPclData(std::string_view text);

}  // namespace Filter
