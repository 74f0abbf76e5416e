#include "library/prepare/Compression.h"

#include "library/Error.h"
#include "library/prepare/Escapes.h"

#include <zlib.h>

#include <limits>

namespace Library {
namespace {

// zlib's window bits: negative for raw deflate, 16 more for a gzip wrapper, whose header zlib
// writes without a time and a name.
int WindowBits(int algorithm) {
  switch (algorithm) {
    case 1:
      return -MAX_WBITS;
    case 2:
      return MAX_WBITS + 16;
    case 3:
      return MAX_WBITS;
    default:
      throw Error(BC_E_INVALIDARG);
  }
}

struct Deflater {
  explicit Deflater(int windowBits) {
    constexpr int kMemoryLevel = 9;
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, windowBits, kMemoryLevel,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
      throw Error(BC_E_OUTOFMEMORY);
    }
  }
  ~Deflater() { deflateEnd(&stream); }
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  z_stream stream{};
};

}  // namespace

Data Compress(const Data& data, int algorithm) {
  std::string bytes = Bytes(data);
  if (bytes.size() > std::numeric_limits<int>::max()) throw Error(BC_E_DATATOOLONG);
  Deflater deflater(WindowBits(algorithm));
  // The longest is nine bits to a byte, with the wrapper; deflateBound falls short of it.
  std::string packed(bytes.size() + bytes.size() / 8 + 64, '\0');
  deflater.stream.next_in = reinterpret_cast<Bytef*>(bytes.data());
  deflater.stream.avail_in = static_cast<uInt>(bytes.size());
  deflater.stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  deflater.stream.avail_out = static_cast<uInt>(packed.size());
  if (deflate(&deflater.stream, Z_FINISH) != Z_STREAM_END) throw Error(BC_E_OUTOFMEMORY);
  packed.resize(deflater.stream.total_out);

  Data result = RawData(packed);
  for (DataCharacter& character : result) character.source = -1;
  return result;
}

}  // namespace Library
