// Which printer language a job is in: from its first bytes, and from commands on its way.
#pragma once

#include "filter/Stream.h"
#include "settings/AppSettings.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace Filter {

// What a job's first bytes say of it.
struct JobKind {
  bool pdf = false;         // not ours: it passes unchanged
  bool postScript = false;  // else PCL
  char lineEnd = '\n';      // carriage return in jobs whose lines end with it alone
};
// So much of a job decides.
inline constexpr std::size_t kDecidingBytes = 4095;
JobKind KindOf(std::string_view beginning);

// Whether the text begins with an exit from PostScript: ESC %-12345X in front of @PJL, on the same
// line or the next, or of a printer reset.
bool EndsLanguage(std::string_view text);
inline constexpr std::size_t kLongestLanguageEnd = 16;

// Passes a PJL command at the window's front, at least one byte, and says which language it enters:
// @PJL ENTER LANGUAGE = <value>, the words in any letter case with any white space between them.
std::optional<Settings::StreamType> PassPjl(Stream& stream);

}  // namespace Filter
