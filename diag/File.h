// A standard I/O stream that is closed with its owner.
#pragma once

#include <cstdio>
#include <memory>

namespace Diag {

struct CloseFile {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

}  // namespace Diag
