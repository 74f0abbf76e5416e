// The control block of Macro PDF417 (ISO/IEC 15438 annex H), which ends the data of a symbol.
#include "library/Error.h"
#include "library/prepare/CharacterSet.h"
#include "library/symbology/Pdf417.h"

#include <algorithm>
#include <string>

namespace Library {
namespace {

constexpr std::uint16_t kBlock = 928, kField = 923, kTerminator = 922;
constexpr std::uint16_t kFirstCommand = 900;  // code words below are values

// Fields of a fixed length.
constexpr std::size_t kPlaceDigits = 5;  // segment index and count, check sum
constexpr std::size_t kTimeDigits = 10;  // seconds since 1970

void AppendNumber(int number, std::size_t length, CodeWords& words) {
  std::string digits = std::to_string(number);
  if (digits.size() < length) digits.insert(0, length - digits.size(), '0');
  AppendPdf417Number(digits, words);
}

void AppendField(std::uint16_t tag, int number, std::size_t length, CodeWords& words) {
  if (number < 0) return;
  Append({kField, tag}, words);
  AppendNumber(number, length, words);
}

void AppendField(std::uint16_t tag, const std::string& text, CodeWords& words) {
  if (text.empty()) return;
  Append({kField, tag}, words);
  Append(CompactPdf417(text, Compaction::kText), words);
}

// The id as readers show it: three digits a code word. Empty when it is none such.
CodeWords TripletsOf(std::string id) {
  const bool number = std::all_of(id.begin(), id.end(), [](char c) { return kDigits.contains(c); });
  if (!number) return {};
  id.insert(0, (3 - id.size() % 3) % 3, '0');
  CodeWords words;
  for (std::size_t i = 0; i < id.size(); i += 3) {
    words.push_back(static_cast<std::uint16_t>(std::stoi(id.substr(i, 3))));
    if (words.back() >= kFirstCommand) return {};
  }
  return words;
}

// Any other id is written in text compaction. Its code words must be values.
void AppendFileId(const std::string& id, CodeWords& words) {
  if (id.empty()) return;
  CodeWords written = TripletsOf(id);
  if (written.empty()) written = CompactPdf417(id, Compaction::kText);
  const bool values = std::all_of(written.begin(), written.end(),
                                  [](std::uint16_t word) { return word < kFirstCommand; });
  if (!values) throw Error(BC_E_NOTSUPPORTED);
  Append(written, words);
}

bool AsksForMacro(const Pdf417Options& options) {
  for (const int number : {options.segIndex, options.segCount, options.timeStamp, options.fileSize,
                           options.checkSum}) {
    if (number >= 0) return true;
  }
  return options.segLast > 0 || !options.fileId.empty() || !options.fileName.empty() ||
         !options.sender.empty() || !options.addressee.empty();
}

// Whether the segment is the last one, as it was set or as index and count say.
bool IsLast(const Pdf417Options& options, int index) {
  if (options.segCount < 0) return options.segLast > 0 || options.segIndex < 0;
  if (index >= options.segCount) throw Error(BC_E_INVALIDARG);
  const bool last = index + 1 == options.segCount;
  if (options.segLast >= 0 && (options.segLast != 0) != last) throw Error(BC_E_NOTSUPPORTED);
  return last;
}

}  // namespace

CodeWords Pdf417ControlBlock(const Pdf417Options& options) {
  CodeWords words;
  if (!AsksForMacro(options)) return words;
  // Fields about the file without a place in it: its only segment.
  const int index = std::max(options.segIndex, 0);
  const bool last = IsLast(options, index);
  if (options.segIndex < 0 && !last) throw Error(BC_E_NOTSUPPORTED);
  words.push_back(kBlock);
  AppendNumber(index, kPlaceDigits, words);
  AppendFileId(options.fileId, words);
  AppendField(0, options.fileName, words);
  AppendField(1, options.segCount, kPlaceDigits, words);
  AppendField(2, options.timeStamp, kTimeDigits, words);
  AppendField(3, options.sender, words);
  AppendField(4, options.addressee, words);
  AppendField(5, options.fileSize, 1, words);
  AppendField(6, options.checkSum, kPlaceDigits, words);
  if (last) words.push_back(kTerminator);
  return words;
}

}  // namespace Library
