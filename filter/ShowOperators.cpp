#include "filter/ShowOperators.h"

#include "filter/PostScriptTokens.h"

namespace Filter {

bool Prepares(std::string_view word) {
  return IsOneOf(word, {"dup",    "exch",   "pop",        "index",        "copy",    "roll",
                        "neg",    "add",    "sub",        "mul",          "div",     "idiv",
                        "abs",    "round",  "cvi",        "cvr",          "true",    "false",
                        "length", "floor",  "truncate",   "stringwidth",  "moveto",  "rmoveto",
                        "rotate", "scale",  "translate",  "currentpoint", "setfont", "findfont",
                        "concat", "matrix", "selectfont", "scalefont",    "makefont"});
}

bool TakesOtherwise(std::string_view word) {
  return IsOneOf(word,
                 {"def",      "store", "put",    "cvn",         "cvx",          "cvs",     "exec",
                  "eq",       "ne",    "=",      "==",          "print",        "run",     "file",
                  "token",    "known", "search", "load",        "get",          "begin",   "end",
                  "array",    "save",  "astore", "filter",      "putinterval",  "restore", "bind",
                  "gsave",    "if",    "ifelse", "getinterval", "anchorsearch", "for",     "repeat",
                  "grestore", ")",     ">"});
}

bool EndsText(std::string_view word) {
  return IsOneOf(
      word, {"showpage", "copypage", "currentfile", "image", "imagemask", "colorimage", "eexec"});
}

}  // namespace Filter
