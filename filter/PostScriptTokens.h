// Tokens of PostScript program text (PostScript Language Reference, third edition, 3.2), for the
// few places that are read word by word: around pictures and around the strings of a sequence.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string_view>

namespace Filter {

struct Token {
  enum Kind {
    kEnd,          // of the text; a token that it cuts off counts as such
    kNumber,       // also the ones that a name could be taken for, such as 1e3 and 16#FF
    kName,         // executable
    kLiteralName,  // with its slash
    kString,       // in any of the three forms, with its delimiters
    kOpenArray,
    kCloseArray,
    kOpenProcedure,
    kCloseProcedure,
    kOpenDictionary,
    kCloseDictionary,
  };
  Kind kind = kEnd;
  std::size_t begin = 0, end = 0;  // offsets in the text

  std::string_view in(std::string_view text) const { return text.substr(begin, end - begin); }
};

// The first token at or behind `at`; comments and white space are passed over.
Token NextToken(std::string_view text, std::size_t at);

// PostScript's white space: blank, tab, line feed, form feed, carriage return, null.
bool IsPostScriptSpace(char c);

// The value of a number token; 0 when it isn't one in plain decimal notation.
double NumberIn(std::string_view token);

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words);

}  // namespace Filter
