#include "library/symbology/Linear.h"

#include <utility>

namespace Library {

void LinearRow::append(std::string_view widths) {
  for (const char width : widths) {
    runs.push_back(width - '0');
    total += width - '0';
  }
}

void LinearRow::finish(Symbol& symbol) && {
  symbol.width = total;
  symbol.rows.push_back({std::move(runs), 0});
}

void SetTextLine(Symbol& symbol, std::string text) {
  if (!text.empty())
    symbol.texts.push_back({std::move(text), 0, symbol.width, SymbolText::Place::kLine});
}

}  // namespace Library
