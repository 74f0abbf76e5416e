#include "filter/PenMovement.h"

#include "filter/PostScriptTokens.h"

#include <algorithm>
#include <vector>

namespace Filter {
namespace {

constexpr double kThousandths = 1000;

struct Words {
  std::vector<double> numbers;
  std::string name;  // the last executable one
  std::size_t names = 0;
  bool other = false;  // procedures, dictionaries, literal names
};

Words WordsOf(std::string_view text) {
  Words words;
  for (Token token = NextToken(text, 0); token.kind != Token::kEnd;
       token = NextToken(text, token.end)) {
    if (token.kind == Token::kNumber) {
      words.numbers.push_back(NumberIn(token.in(text)));
    } else if (token.kind == Token::kName) {
      words.name = token.in(text);
      ++words.names;
    } else if (token.kind != Token::kOpenArray && token.kind != Token::kCloseArray) {
      words.other = true;
    }
  }
  return words;
}

// std::string_view::rfind compares the whole word at every place, which a look back for every
// string of a long text can't afford.
std::size_t FindLast(std::string_view text, std::string_view word) {
  while (true) {
    const std::size_t last = text.rfind(word.back());
    if (last == std::string_view::npos) return last;
    if (text.substr(0, last + 1).ends_with(word)) return last + 1 - word.size();
    text = text.substr(0, last);
  }
}

// The number in front of the last `word` in a text that has one; 0 without one.
double SizeInFront(std::string_view text, std::string_view word) {
  // More never stands in front of the word in what programs write.
  constexpr std::size_t kOperands = 128;
  constexpr int kMostTried = 8;
  for (int tried = 0; tried < kMostTried; ++tried) {
    const std::size_t at = FindLast(text, word);
    if (at == std::string_view::npos) return 0;
    text = text.substr(0, at);
    std::string_view line = text.substr(at - std::min(at, kOperands));
    line = line.substr(line.find_last_of("\r\n") + 1);
    const Words words = WordsOf(std::string(line) + ' ');
    if (!words.numbers.empty()) return words.numbers.back();
  }
  return 0;
}

// (text) show dx dy rmoveto, in a font that "12 scalefont setfont" has set.
std::optional<double> MovementInPoints(std::string_view history,
                                       const std::vector<double>& numbers) {
  const double size = SizeInFront(history, " scalefont");
  if (size <= 0 || numbers[1] != 0) return std::nullopt;
  return numbers[0] / size;
}

// ---------------------------------------------------------------- dvips
//
// Units are those of the device. (text) p shows; (text) dx b shows and moves by dx, which c to k
// repeat with -4 to 4 units added; l to t without p show and move by -4 to 4.

std::optional<double> DvipsKern(std::string_view name) {
  constexpr std::string_view kKerns = "lmno-qrst";  // -4..4
  const std::size_t place = name.size() == 1 ? kKerns.find(name[0]) : std::string_view::npos;
  if (place == std::string_view::npos || name == "-") return std::nullopt;
  return static_cast<double>(place) - 4;
}

// Text of a job that holds a sequence is of about this size.
constexpr double kPointsOfText = 10;
constexpr double kPointsPerInch = 72;

std::optional<double> DvipsMovement(Producer producer, const Words& between) {
  if (between.names != 1 || between.other) return std::nullopt;
  const double em = producer.unitsPerInch * kPointsOfText / kPointsPerInch;
  if (const auto kern = DvipsKern(between.name)) return *kern / em;
  if (between.name == "b" && between.numbers.size() == 1) return between.numbers[0] / em;
  if (between.name == "p" && between.numbers.empty()) return 0;
  return std::nullopt;
}

// ---------------------------------------------------------------- groff
//
// dx (text) E moves by dx first, and so do F, G and H; Q, R, S and T move to a place. The font is
// set by "/F0 10/Times-Roman@0 SF".

std::optional<double> GroffMovement(std::string_view history, const Words& behind) {
  if (behind.numbers.empty() || behind.name.size() != 1) return std::nullopt;
  if (behind.name[0] < 'E' || behind.name[0] > 'H') return std::nullopt;
  const double size = SizeInFront(history, " SF");
  if (size <= 0) return std::nullopt;
  return behind.numbers.back() / size;
}

}  // namespace

void Producer::readComment(std::string_view comment) {
  if (comment.starts_with("%%Creator:") && !known) {  // those behind it are of pictures in the job
    known = true;
    dvips = comment.find("dvips") != std::string_view::npos;
    groff = comment.find("groff") != std::string_view::npos;
  }
  constexpr std::string_view kResolution = "dpi=";
  const std::size_t resolution = comment.find(kResolution);
  if (comment.starts_with("%DVIPSParameters:") && resolution != std::string_view::npos) {
    const double dpi = NumberIn(comment.substr(resolution + kResolution.size()));
    if (dpi > 0) unitsPerInch = dpi;
  }
}

std::optional<double> PenMovement(Producer producer, std::string_view history,
                                  std::string_view between, std::string_view behind) {
  const Words words = WordsOf(std::string(between) + ' ');
  if (words.names == 0 && !words.other) {  // within an array: thousandths, to the left
    double sum = 0;
    for (const double number : words.numbers) sum -= number;
    return sum / kThousandths;
  }
  // (text) [widths] Tj  kern TJm
  if (words.name == "TJm" && words.names == 2 && !words.numbers.empty())
    return -words.numbers.back() / kThousandths;
  if (words.name == "rmoveto" && words.names == 2 && words.numbers.size() == 2)
    return MovementInPoints(history, words.numbers);
  if (producer.dvips) return DvipsMovement(producer, words);
  if (producer.groff) return GroffMovement(history, WordsOf(std::string(behind) + ' '));
  return std::nullopt;
}

}  // namespace Filter
