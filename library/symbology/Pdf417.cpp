// PDF417 and truncated PDF417 (ISO/IEC 15438): the code words of a symbol, its shape and its rows.
#include "library/symbology/Pdf417.h"

#include "library/Error.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <initializer_list>

namespace Library {
namespace {

constexpr double kSharedHeight = 0;  // the layout knows how high rows become
constexpr int kMinRows = 3, kMaxRows = 90;
constexpr int kMaxColumns = 30;
constexpr int kMaxWords = 928;

// "R:C", rows to columns; 0 when nothing is asked for.
double RatioOf(const std::string& text) {
  if (text.empty() || text == "auto") return 0;
  const char* const end = text.data() + text.size();
  double rows = 0, columns = 0;
  const auto first = std::from_chars(text.data(), end, rows);
  if (first.ec != std::errc{} || first.ptr == end || *first.ptr != ':')
    throw Error(BC_E_INVALIDARG);
  const auto second = std::from_chars(first.ptr + 1, end, columns);
  if (second.ec != std::errc{} || second.ptr != end) throw Error(BC_E_INVALIDARG);
  const double ratio = rows / columns;
  if (!(rows > 0) || !(columns > 0) || !std::isfinite(ratio)) throw Error(BC_E_INVALIDARG);
  return ratio;
}

struct Shape {
  int rows, columns;  // 0: free
};

Shape ShapeSet(const Pdf417Options& options) {
  const Shape shape{std::max(options.rows, 0), std::max(options.columns, 0)};
  const bool good = (shape.rows == 0 || (shape.rows >= kMinRows && shape.rows <= kMaxRows)) &&
                    shape.columns <= kMaxColumns && shape.rows * shape.columns <= kMaxWords;
  if (!good) throw Error(BC_E_INVALIDARG);
  return shape;
}

int Quotient(int words, int parts) {
  return (words + parts - 1) / parts;
}

// As few rows as take the words in so many columns; 0 rows when no symbol is so narrow or wide.
Shape WithColumns(int words, int columns) {
  const int rows = std::max(Quotient(words, columns), kMinRows);
  const bool good = rows <= kMaxRows && rows * columns <= kMaxWords;
  return {good ? rows : 0, columns};
}

// The shape that is nearest to so many columns. There is one for as many words as a symbol holds.
Shape NearColumns(int words, int wanted) {
  Shape best{};
  for (int columns = 1; columns <= kMaxColumns; ++columns) {
    const Shape shape = WithColumns(words, columns);
    if (shape.rows == 0) continue;
    const bool nearer = std::abs(columns - wanted) < std::abs(best.columns - wanted);
    if (best.rows == 0 || nearer) best = shape;
  }
  return best;
}

Shape FreeShape(int words, double ratio) {
  // About three rows to a column, when nothing is asked for: somewhat wider than high.
  const double columns =
      ratio > 0 ? std::ceil(std::sqrt(words / ratio)) : std::floor(std::sqrt(words / 3.0) + 0.5);
  return NearColumns(words, static_cast<int>(std::clamp(columns, 1.0, double{kMaxColumns})));
}

Shape ShapeFor(int words, const Pdf417Options& options) {
  Shape shape = ShapeSet(options);
  const double ratio = RatioOf(options.ratio);
  if (words > kMaxWords) throw Error(BC_E_DATATOOLONG);
  if (shape.rows == 0 && shape.columns == 0) return FreeShape(words, ratio);
  if (shape.columns == 0) shape.columns = Quotient(words, shape.rows);
  if (shape.rows == 0) shape.rows = WithColumns(words, shape.columns).rows;
  const int room = shape.rows * shape.columns;
  if (shape.columns > kMaxColumns || room < words || room > kMaxWords)
    throw Error(BC_E_DATATOOLONG);
  return shape;
}

// The level set, or the one that ISO/IEC 15438 annex E recommends, less where it would not fit.
int LevelFor(int words, const Pdf417Options& options) {
  if (options.ecLevel > kMaxPdf417Level) throw Error(BC_E_INVALIDARG);
  if (options.ecLevel >= 0) return options.ecLevel;
  const int dataWords = words - 1;  // without their number
  int level = dataWords <= 40 ? 2 : dataWords <= 160 ? 3 : dataWords <= 320 ? 4 : 5;
  while (level > 0 && words + Pdf417CorrectionWords(level) > kMaxWords) --level;
  return level;
}

// All code words and the shape and error correction that rows tell.
struct Content {
  CodeWords words;
  Shape shape;
  int level;
};

Content ContentOf(const std::string& data, const Options& settings) {
  const Pdf417Options& options = settings.pdf417;
  const CodeWords block = Pdf417ControlBlock(options);
  Content content;
  content.words = {0};  // their number, itself included
  Append(Pdf417Interpretation(settings.eci), content.words);
  Append(CompactPdf417(data, options.mode == 1 ? Compaction::kBytes : Compaction::kAny),
         content.words);
  const int used = static_cast<int>(content.words.size() + block.size());
  content.level = LevelFor(used, options);
  const int correction = Pdf417CorrectionWords(content.level);
  content.shape = ShapeFor(used + correction, options);

  const int length = content.shape.rows * content.shape.columns - correction;
  content.words.insert(content.words.end(), static_cast<std::size_t>(length - used),
                       kPdf417Padding);
  Append(block, content.words);
  content.words[0] = static_cast<std::uint16_t>(length);
  AppendPdf417Correction(content.words, correction);
  return content;
}

class RowWriter {
 public:
  RowWriter(const Content& symbolContent, bool withoutRight)
      : content(symbolContent), truncated(withoutRight) {}

  SymbolRow row(int index) {
    constexpr int kRunsPerWord = 8, kStopRuns = 9;
    const int columns = content.shape.columns;
    SymbolRow result;
    result.height = kSharedHeight;
    result.runs.reserve(static_cast<std::size_t>(kRunsPerWord * (columns + 4)));
    result.characters.assign(static_cast<std::size_t>(columns + (truncated ? 3 : 4)), kRunsPerWord);
    result.characters.back() = truncated ? 1 : kStopRuns;
    runs = &result.runs;
    cluster = index % kPdf417Clusters;
    append({8, 1, 1, 1, 1, 1, 1, 3});
    appendWord(indicator(index, 0));
    const auto first = content.words.begin() + index * columns;
    std::for_each(first, first + columns, [this](int word) { appendWord(word); });
    if (truncated) {
      append({1});
    } else {
      appendWord(indicator(index, 2));
      append({7, 1, 1, 3, 1, 1, 1, 2, 1});
    }
    return result;
  }

 private:
  void append(std::initializer_list<int> widths) {
    runs->insert(runs->end(), widths.begin(), widths.end());
  }

  void appendWord(int word) { AppendPdf417Word(cluster, word, *runs); }

  // What rows tell of the symbol, each a third of it. The right side of a row is two clusters on.
  int indicator(int row, int turn) const {
    const int facts[] = {(content.shape.rows - 1) / 3,
                         content.level * 3 + (content.shape.rows - 1) % 3,
                         content.shape.columns - 1};
    return row / 3 * 30 + facts[(cluster + turn) % 3];
  }

  const Content& content;
  const bool truncated;
  int cluster = 0;
  std::vector<int>* runs = nullptr;
};

void Encode(const EncoderInput& input, bool truncated, Symbol& symbol) {
  const Content content = ContentOf(Bytes(input.data), input.options);
  symbol.width = 17 * content.shape.columns + (truncated ? 35 : 69);
  RowWriter writer(content, truncated);
  symbol.rows.reserve(static_cast<std::size_t>(content.shape.rows));
  for (int row = 0; row < content.shape.rows; ++row) symbol.rows.push_back(writer.row(row));
  SetTextLine(symbol, PrintableText(input.data));
}

}  // namespace

void EncodePdf417(const EncoderInput& input, Symbol& symbol) {
  Encode(input, false, symbol);
}

void EncodeTruncatedPdf417(const EncoderInput& input, Symbol& symbol) {
  Encode(input, true, symbol);
}

}  // namespace Library
