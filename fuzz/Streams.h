// Standard input and output of the filter without a process and a pipe: the targets are linked with
// --wrap=read and --wrap=write, and while a Streams lives, descriptor 0 reads from it and 1 writes
// to it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Fuzz {

// How the input arrives: in pieces of `size` bytes between two places, elsewhere in whole reads.
struct Arrival {
  std::size_t size = SIZE_MAX;
  std::size_t from = 0, to = SIZE_MAX;
};

class Streams {
 public:
  Streams(std::string_view newInput, Arrival newArrival);
  ~Streams();
  Streams(const Streams&) = delete;
  Streams& operator=(const Streams&) = delete;

  std::size_t read(char* buffer, std::size_t size);

  std::string output;

 private:
  std::string_view input;
  Arrival arrival;
  std::size_t position = 0;
};

}  // namespace Fuzz
