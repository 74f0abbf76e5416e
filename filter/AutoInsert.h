// Sequences in PostScript strings, with insert=auto: each barcode stands where its text would have
// stood, whatever program wrote the job.
//
// A sequence is read together with the operations that show its strings:
//
//     unit      one operation:  operand  operators
//     operand   a string, or an array of strings and numbers
//     part      a string of an operand
//
// The parts of all units are one text, with a blank between two parts where the pen moves by a word
// space or nobody knows how far. The units are written anew with the code of PlacementCode.h around
// them; what stands between them stays.
#pragma once

#include "diag/ResultCode.h"
#include "filter/BarcodeMaker.h"
#include "filter/Job.h"
#include "filter/PenMovement.h"
#include "filter/PlacementCode.h"
#include "filter/PostScriptTokens.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Filter {

class AutoInsert {
 public:
  AutoInsert(Job& newJob, BarcodeMaker& newMaker) : job(newJob), maker(newMaker) {}

  // Handles the string of `size` bytes at the window's front, which holds a begin token or ends
  // with a part of one, and what belongs to it; always passes or writes the string.
  Diag::ResultCode handlePostScriptString(std::size_t size, const Producer& newProducer);

 private:
  // A range of a part's bytes that does not stay visible, and the barcode that stands at its begin.
  struct Taken {
    std::size_t begin = 0, end = 0;
    bool begins = false;  // the sequence begins here
    std::string output;
  };
  struct Part {
    std::size_t begin = 0, end = 0;  // the token, as offsets in the window
    std::string bytes;
    std::size_t textBegin = 0;  // in the text
    std::size_t offset = 0;     // bytes of the unit's parts in front
    std::vector<Taken> taken;

    std::size_t textEnd() const { return textBegin + bytes.size(); }
  };
  struct Unit {
    std::size_t begin = 0, operandEnd = 0, end = 0;  // offsets in the window
    bool shown = false;                              // by operators that were recognised
    std::vector<Part> parts;

    bool hasTaken() const;
    std::size_t length() const;  // bytes of all parts
  };

  std::string_view window() { return job.stream.peek(0); }
  Token nextToken(std::size_t at);

  // Reading
  std::size_t arrayInFront();
  bool readUnit(std::size_t at);
  bool readArray(std::size_t at, Unit& unit);
  void readOperators(Unit& unit);
  bool readNextUnit();
  void addText(Unit& unit);

  // Sequences
  Diag::ResultCode takeSequences();
  bool findBegin(std::size_t from, std::size_t& begin);
  void noteSearched(const Unit& unit);
  bool findEnd(std::size_t from, std::size_t& end);
  Diag::ResultCode takeSequence(std::size_t begin, std::size_t end);
  void take(std::size_t begin, std::size_t end, const std::string& output);
  const Unit& unitAt(std::size_t textOffset) const;
  const Part& partAt(std::size_t textOffset) const;
  std::uint64_t placeOf(std::size_t textOffset) const;
  Diag::ResultCode reportUnclosed(std::size_t begin);

  // Writing
  void writeUnits();
  static void boundCode(Unit& unit);
  std::string rewritten(const Unit& unit);
  ShownText describe(const Unit& unit);
  std::string operandCode(const Unit& unit, std::size_t begin, std::size_t end);
  std::string operandLeft(const Unit& unit);
  std::string operatorsFor(const Unit& unit, std::size_t begin, std::size_t end);

  Job& job;
  BarcodeMaker& maker;
  // A begin token in front of this place in the job has no end; it was looked for.
  std::uint64_t noEndBefore = 0;

  // A string in front of this place has been searched for begin tokens, with the array it stands
  // in.
  std::uint64_t noBeginBefore = 0;

  // An array that a string in front of this place stands in is no text; it was looked at.
  std::uint64_t noArrayBefore = 0;

  // The last string in front of which no array was found; strings behind it look no farther back.
  std::uint64_t noArrayInFrontOf = 0;

  // Of the sequence at hand.
  Producer producer;
  std::string text;
  std::vector<Unit> units;
  std::size_t outputSize =
      0;  // of the barcodes taken so far, which wait for the text to be written
};

}  // namespace Filter
