// What the fuzz targets share.
//
// A target is a function of some bytes that throws Broken when a property of the program does not
// hold for them; memory errors are the sanitizers' to find. libFuzzer calls it by Main.cpp, the
// ordinary tests call it with the seeds.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace Fuzz {

class Broken : public std::logic_error {
  using std::logic_error::logic_error;
};

inline void Require(bool holds, const std::string& property) {
  if (!holds) throw Broken(property);
}

// The input's first bytes choose how the rest is used; where it is too short, they are 0.
class Input {
 public:
  explicit Input(std::string_view newBytes) : bytes(newBytes) {}

  unsigned choice() {
    const unsigned byte = bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(bytes.empty() ? 0 : 1);
    return byte;
  }
  std::string_view rest() const { return bytes; }

 private:
  std::string_view bytes;
};

void FuzzFilter(std::string_view input);
void FuzzOptions(std::string_view input);
void FuzzStrings(std::string_view input);
void FuzzData(std::string_view input);

}  // namespace Fuzz
