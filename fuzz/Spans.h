// Where a job may hold sequences, found with as little knowledge of PostScript as possible: a span
// is rather too long than too short.
#pragma once

#include "settings/AppSettings.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Fuzz {

struct Span {
  std::size_t begin = 0, end = 0;
};
// In order; they don't overlap.
using Spans = std::vector<Span>;

// One span for each sequence with the strings around it. A job in which the sequences can't be told
// apart without reading it as the filter does has one span for all of them.
Spans SpansOfSequences(std::string_view job, const Settings::AppSettings& settings);

// Whether `other` has the bytes of `job` outside the spans, in their order.
bool DiffersOnlyIn(const Spans& spans, std::string_view job, std::string_view other);

}  // namespace Fuzz
