// PostScript that puts a barcode where a text of the job stands, and takes parts of the text off
// the page without moving the rest.
//
// A program shows text in its own way: the string may come before its coordinates, carry a width
// for each character, be moved behind or before it is shown. So the filter does not ask what an
// operator does; the inserted code tries it. The string is shown by the job's own operators, on a
// device that paints nothing, in a font that has the metrics of the current one and notes where
// each of its characters stands. What the trial changed is undone by restore.
//
//     BLOCK  the string without its hidden parts  BLOCK  the job's operators  BLOCK
//     |                                           |                           |
//     trial; barcodes at the noted places         |                           end of hiding
//                                                 visible parts at the noted places; the whole
//                                                 string again, hidden, for the job's operators:
//                                                 they leave the job in the state that it expects
//
// Texts stand in the code with every bit inverted, so that no sequence is found in them again.
// Where the trial finds no place, the barcode is left out and the text shown without its hidden
// parts. Level 1 operators only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Filter {

// A part of a text operation that stays visible.
struct VisiblePart {
  std::string operand;     // code that leaves it on the stack
  std::string operators;   // that show it
  std::size_t length = 0;  // characters
  std::size_t begin = 0;   // its first character within the whole text
};

// A barcode, wrapped to be drawn at the text, and the character of the text at which it stands.
struct BarcodeAt {
  std::string output;
  std::size_t character = 0;

  // False for one that stands at a place of its own on the page.
  bool asksForPlace() const;
};

// An operation of the job that shows a text.
struct ShownText {
  std::string bytes;
  std::string operand;    // code that leaves the whole text on the stack: a string, an array
  std::string operators;  // behind it, up to the one that shows it
  std::vector<BarcodeAt> barcodes;
  std::vector<VisiblePart> visible;
};

// Code that leaves a range of the text's bytes on the stack.
std::string PartOfText(std::size_t begin, std::size_t length);

// The blocks around the text. A text without barcodes and visible parts needs no block in front.
std::string BlockBeforeText(const ShownText& text);
std::string BlockBehindText(const ShownText& text);
std::string BlockBehindOperators();

// Barcodes at the current point, where no operation that shows the text could be seen.
std::string BlockAtCurrentPoint(const std::vector<BarcodeAt>& barcodes);

// The messages of a barcode that could not be made, drawn at its place.
std::string MessagesAtText(std::string_view messages);

}  // namespace Filter
