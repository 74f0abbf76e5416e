// How much a message matters.
#pragma once

namespace Diag {

enum Level : int { kError = 1, kWarning = 2, kInformation = 3, kDebug = 4 };

}  // namespace Diag
