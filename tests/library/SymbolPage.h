// Encoded symbols as pixels and as text, to be read by ZBar and compared with other encoders.
#pragma once

#include "library/symbology/Symbol.h"
#include "tests/support/Decode.h"

#include <cstdint>
#include <string>
#include <vector>

// A row of modules each, '1' for dark.
std::vector<std::string> ModulesOf(const Library::Symbol& symbol);

// With a quiet zone, rows without a height 33 X high.
Support::Page PageOf(const Library::Symbol& symbol);

// Of the modules within the outermost bars, rows that are alike counted once (FNV-1a).
std::uint64_t DigestOf(std::vector<std::string> rows);
std::uint64_t DigestOf(const Library::Symbol& symbol);

// The data of the symbols that ZBar finds, separated by blanks.
std::string ReadByZBar(const Library::Symbol& symbol);
