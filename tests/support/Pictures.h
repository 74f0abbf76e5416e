// Pictures of noise, in the ways in which print jobs hold binary data.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Support {

// Bytes that look like nothing; the same for the same seed. EveryPair: 65,537 bytes in which every
// byte stands behind every other.
std::string Noise(unsigned seed, std::size_t size);
std::string EveryPair(unsigned seed);

// Program text with data behind or between.
struct Picture {
  const char* name;
  std::string code;
};

// A gray picture of these samples in every way. REQUIRES: at least side * side samples.
std::vector<Picture> PicturesOf(std::string_view samples, std::size_t side);

}  // namespace Support
