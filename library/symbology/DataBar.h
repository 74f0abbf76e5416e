// What the GS1 DataBar family asks of its data.
#pragma once

#include "library/Options.h"
#include "library/prepare/CharacterSet.h"
#include "library/prepare/PreparedData.h"

namespace Library {

// What the compaction of DataBar Expanded and of composite components has codes for, besides FNC1.
inline constexpr CharacterSet kDataBarCharacters = kGs1Characters | CharacterSet::Of(" ");

// RemoveGtinIdentifier for DataBar Limited, which holds GTINs that begin with 0 or 1. Throws Error
// with BC_E_INVALIDDATA at the first digit of any other.
void NormalizeLimitedGtin(Data& data, const Options& options);

// Pairs of segments in a row of DataBar Expanded Stacked, 0: as many as is usual.
int SegmentPairs(const Options& options);

}  // namespace Library
