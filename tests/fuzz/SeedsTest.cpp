// The fuzzers' seeds as ordinary tests, so that neither targets nor seeds rot.
#include "fuzz/Target.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

void ReplaySeeds(const std::string& target, void (*fuzz)(std::string_view)) {
  int count = 0;
  for (const auto& seed : std::filesystem::directory_iterator(VEXTORIN_SEEDS + target)) {
    SCOPED_TRACE(seed.path().string());
    std::ifstream file(seed.path(), std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    EXPECT_NO_THROW(fuzz(bytes));
    ++count;
  }
  EXPECT_GT(count, 0);
}

TEST(FuzzSeeds, OfWholeJobs) {
  ReplaySeeds("filter", Fuzz::FuzzFilter);
}

TEST(FuzzSeeds, OfOptions) {
  ReplaySeeds("options", Fuzz::FuzzOptions);
}

TEST(FuzzSeeds, OfStrings) {
  ReplaySeeds("strings", Fuzz::FuzzStrings);
}

TEST(FuzzSeeds, OfEmbeddedData) {
  ReplaySeeds("data", Fuzz::FuzzData);
}

}  // namespace
