// In place of the engine: barcodes of constant bytes, so that a run takes no time for drawing and
// what was inserted can be found in the output.
#pragma once

#include <string>

namespace Fuzz {

// The output without what the filter has put in.
std::string WithoutInserted(std::string output);

}  // namespace Fuzz
