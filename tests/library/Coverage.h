// Which types the tests have tried, and what read the symbols back: a line a symbol in a file that
// all tests of a run share, and a table made of it when the last of them has ended.
#pragma once

#include <string_view>

// `judge`: the reader, or the reference that the symbol was compared with.
void NoteSymbol(int type, std::string_view judge, bool good);
