// Compression of the data before it is encoded.
#pragma once

#include "library/prepare/PreparedData.h"

#include <string>
#include <string_view>

namespace Library {

// `algorithm` 1 raw deflate, 2 gzip, 3 zlib. Equal data give equal bytes. Throws Error with
// BC_E_INVALIDARG for another algorithm, BC_E_OUTOFMEMORY.
Data Compress(const Data& data, int algorithm);

// Bytes in zlib's wrapper.
std::string Zlib(std::string_view bytes);

}  // namespace Library
