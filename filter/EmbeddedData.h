// Bytes that stand in a PostScript job and are no program text: the samples of pictures, encrypted
// fonts, counted sections. Read as text they would open strings and comments that swallow the page
// behind them.
//
// What is known here:
//
//   %%BeginData: n type Bytes|Lines, %%BeginBinary: n      n bytes or lines, or up to %%EndData
//   << ... /Length n ... >>stream                          n bytes, whole pages of PDF operators
//   currentfile eexec                                      to cleartomark
//   currentfile ... /ASCII85Decode filter ... image        to ~>
//   currentfile n (mark) /SubFileDecode filter ... image   to the mark, or n bytes
//   currentfile /RunLengthDecode filter ... image          to the length byte 128
//   w h bits matrix { currentfile ... readstring } image   w * h * bits / 8 bytes
//   any other reader of binary data                        to the next line of text
//
// Hexadecimal data hold nothing that could be mistaken and need no knowledge. A procedure that only
// contains a reader begins nothing; where its name calls it, nothing is known, and whoever looks
// for strings has to find back into the text (see StringFinder.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Filter {

class DataSection {
 public:
  enum class End { kCount, kLines, kMarker, kRunLength, kText };

  static DataSection Counted(std::uint64_t bytes, std::string_view closer = {});
  // A count that follows from what the job says of a picture.
  static DataSection Computed(std::uint64_t bytes);
  static DataSection Lines(std::uint64_t lines, std::string_view closer);
  static DataSection UpTo(std::string_view marker);
  static DataSection RunLength();
  // Binary data of unknown length.
  static DataSection UpToText();

  bool finished() const { return done; }
  // Data of a counted stream: a page's contents that nothing can be put into.
  bool isStream() const { return stream; }
  void markAsStream() { stream = true; }

  // How many bytes at the window's front are data. 0 asks for more bytes behind the window, unless
  // the section has finished. Text that holds `token` on a line of its own is never taken for data
  // of unknown length.
  std::size_t take(std::string_view window, bool inputEnded, std::string_view token);

 private:
  std::size_t takeByKind(std::string_view window, bool inputEnded);
  std::size_t closerAtEnd(std::string_view window, bool inputEnded) const;
  std::size_t takeCounted(std::string_view window, bool inputEnded);
  std::size_t takeLines(std::string_view window, bool inputEnded);
  std::size_t takeToMarker(std::string_view window, bool inputEnded);
  std::size_t takeRuns(std::string_view window);
  std::size_t takeToText(std::string_view window, bool inputEnded);
  std::size_t finishAt(std::size_t size);

  End end = End::kCount;
  std::uint64_t remaining = 0;
  std::string marker;  // data end behind it
  std::string closer;  // a line that ends the section although its count says otherwise
  bool computed = false;
  bool midLine = false;  // the last byte taken ended no line
  bool done = false;
  bool stream = false;
};

// A section and where it begins, as an offset in the text that was looked at.
struct FoundData {
  std::size_t begin = 0;
  DataSection section;
};

// What a comment line says, without its line end; the data begin with the next line.
std::optional<DataSection> DataBehindComment(std::string_view comment);
// What a dictionary that the text begins with says.
std::optional<FoundData> DataBehindDictionary(std::string_view text);
// What the program text that begins with the word currentfile sets up to be read; `before` is what
// stands in front of it.
std::optional<FoundData> DataBehindReader(std::string_view before, std::string_view text);
inline constexpr std::string_view kReaderWord = "currentfile";
// So much text tells.
inline constexpr std::size_t kReaderText = 4096;

}  // namespace Filter
