// Random data of the tests: the same in every run, others each time a run repeats its tests, as the
// sweep does.
#pragma once

#include <random>

std::mt19937 Seeded(unsigned seed);
