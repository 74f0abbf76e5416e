// How far the pen moves between two strings that a program shows one behind the other, for the
// programs whose operators are known: dvips, groff, and those that write PDF's operators. Kerning
// parts a word, a word space does not.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Filter {

// Who wrote a job, as far as operators tell them apart.
struct Producer {
  bool known = false;
  bool dvips = false;
  bool groff = false;
  double unitsPerInch = 600;  // of dvips

  // The byte that stands for a hyphen in text, as "-" does; 0 without one. groff writes its minus
  // sign so.
  char otherHyphen() const { return groff ? '\255' : '\0'; }

  // Takes in a comment line of the job.
  void readComment(std::string_view comment);
};

// The pen's movement in ems from the end of one string to the begin of the next; none when it can't
// be told. `history`: the job in front of the first string; `between`: what stands between the two;
// `behind`: the operators behind the second.
std::optional<double> PenMovement(Producer producer, std::string_view history,
                                  std::string_view between, std::string_view behind);

// Movements below this many ems leave a word whole.
inline constexpr double kWordSpace = 0.15;

}  // namespace Filter
