#include "tests/library/Coverage.h"

#include "library/symbology/Symbology.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

// A short write at the file's end is one line whole, whatever other tests write at the same time.
void NoteSymbol(int type, std::string_view judge, bool good) {
  const std::string line =
      std::to_string(type) + (good ? " good " : " wrong ") + std::string(judge) + '\n';
  const int file = open(VEXTORIN_COVERAGE ".notes", O_WRONLY | O_APPEND | O_CREAT, 0666);
  if (file < 0) return;
  EXPECT_EQ(write(file, line.data(), line.size()), static_cast<ssize_t>(line.size()));
  close(file);
}

namespace {

struct Tried {
  int good = 0, wrong = 0;
  std::set<std::string> judges;
};

std::map<int, Tried> Notes() {
  std::map<int, Tried> types;
  std::ifstream notes(VEXTORIN_COVERAGE ".notes");
  for (std::string line; std::getline(notes, line);) {
    std::istringstream words(line);
    int type = 0;
    std::string result, judge;
    words >> type >> result >> std::ws;
    std::getline(words, judge);
    (result == "good" ? types[type].good : types[type].wrong) += 1;
    types[type].judges.insert(judge);
  }
  return types;
}

std::string Joined(const std::set<std::string>& judges) {
  std::string all;
  for (const std::string& judge : judges) all += (all.empty() ? "" : ", ") + judge;
  return all;
}

}  // namespace

// Runs when all tests that note symbols have. VEXTORIN_WHOLE_RUN says that none was left out.
TEST(SymbologyCoverage, HasEveryTypeReadBackAndNoneWrong) {
  std::map<int, Tried> types = Notes();
  std::ofstream table(VEXTORIN_COVERAGE ".txt");
  table << "type                                          tried  read back  by\n";
  for (int type = 1; type < 200; ++type) {
    const Library::Symbology* const symbology = Library::FindSymbology(type);
    if (symbology == nullptr) continue;
    const Tried& tried = types[type];
    char row[100];
    std::snprintf(row, sizeof row, "%4d %-40s %6d %10d  ", type,
                  std::string(symbology->name).c_str(), tried.good + tried.wrong, tried.good);
    table << row << (symbology->encoder == nullptr ? "not supported" : Joined(tried.judges))
          << '\n';
    EXPECT_EQ(tried.wrong, 0) << type;
    const bool whole = std::getenv("VEXTORIN_WHOLE_RUN") != nullptr;
    EXPECT_TRUE(!whole || symbology->encoder == nullptr || tried.good > 0) << type;
  }
  std::remove(VEXTORIN_COVERAGE ".notes");
}
