#include "fuzz/Target.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Fuzz::VEXTORIN_FUZZ_TARGET({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
