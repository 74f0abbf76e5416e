#include "settings/MoreHelp.h"

#include "diag/Output.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace Settings {
namespace {

struct Entry {
  std::string_view name;  // as it is written; a line without one is the header of a group
  std::string_view text;  // wrapped when it is printed
};

// clang-format off
constexpr Entry kEntries[] = {
    {"", "Further keys of the configuration file:"},
    {"insert=auto", "Puts each barcode where its text would have stood, whatever program wrote the "
                    "job."},
    {"jobfiles=STATE", "Whether the sequences of a job may read files with \"datafile\" and "
                       "\"bcfile\": \"allow\" (default) or \"deny\". They read regular files only "
                       "in any case."},
    {"morehelp", "Shows this list."},
    {"", "Further options of a barcode:"},
    {"--eci=NUMBER", "Extended Channel Interpretation: which character set the data are in, for "
                     "readers that ask: 26 for UTF-8, 3 for Latin-1; 0 (default) says nothing. "
                     "QR Code, Data Matrix, Aztec, PDF417, MaxiCode and some more."},
    {"", "Alone on the command line, without a configuration file:"},
    {"--help, -h", "Show the usage text, as the key \"help\" does."},
    {"--version", "Shows the version."},
    {"--check FILE", "Says what a configuration sets, and what is wrong in it."},
};
// clang-format on

constexpr std::size_t kTextColumn = 28;  // that of the list of barcode options
constexpr std::size_t kLineWidth = 80;

// Appends the words of `text` in lines that begin in the text's column.
void AppendWrapped(std::string& list, std::string_view text) {
  std::size_t column = kTextColumn;
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    if (column > kTextColumn && column + 1 + word.size() > kLineWidth) {
      list.append("\n").append(kTextColumn, ' ');
      column = kTextColumn;
    } else if (column > kTextColumn) {
      list += ' ';
      ++column;
    }
    list += word;
    column += word.size();
  }
  list += '\n';
}

std::string Listed() {
  std::string list;
  for (const Entry& entry : kEntries) {
    if (entry.name.empty()) {
      list.append(list.empty() ? "" : "\n").append(entry.text).append("\n\n");
      continue;
    }
    constexpr std::size_t kIndent = 2;
    list.append(kIndent, ' ').append(entry.name);
    list.append(kTextColumn - kIndent - entry.name.size(), ' ');
    AppendWrapped(list, entry.text);
  }
  return list;
}

static_assert(std::ranges::all_of(kEntries, [](const Entry& entry) {
  return entry.name.size() < kTextColumn - 2;
}));

}  // namespace

void PrintMoreHelp() {
  Diag::PrintText(Listed());
}

}  // namespace Settings
