#include "library/symbology/Linear.h"

#include <utility>

namespace Library {

void LinearRow::append(std::string_view widths) {
  for (const char digit : widths) {
    const int width = digit - '0';
    runs.push_back(width);
    total += width;
  }
  characters.push_back(static_cast<int>(widths.size()));
}

void LinearRow::finish(Symbol& symbol) && {
  symbol.width = total;
  symbol.rows.push_back({std::move(runs), 0, std::move(characters)});
}

std::string Masked(std::string_view digits, std::string_view mask) {
  std::string text(mask);
  std::size_t next = 0;
  for (char& place : text) {
    if (place == '#') place = digits[next++];
  }
  return text;
}

std::string BlankedText(std::string_view data) {
  std::string text(data);
  for (char& character : text) {
    if (character < 0x20 || character == 0x7F) character = ' ';
  }
  return text;
}

void SetTextLine(Symbol& symbol, std::string text) {
  if (!text.empty())
    symbol.texts.push_back({std::move(text), 0, symbol.width, SymbolText::Place::kLine});
}

}  // namespace Library
