#include "tests/library/Sweep.h"

#include <gtest/gtest.h>

namespace {

unsigned repetition = 0;

class Counter : public testing::EmptyTestEventListener {
  void OnTestIterationStart(const testing::UnitTest&, int iteration) override {
    repetition = static_cast<unsigned>(iteration);
  }
};

[[maybe_unused]] const bool counting = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new Counter);
  return true;
}();

}  // namespace

std::mt19937 Seeded(unsigned seed) {
  constexpr unsigned kApart = 0x9E3779B9;
  return std::mt19937(seed + repetition * kApart);
}
