#include "library/prepare/Compression.h"

#include "library/Error.h"
#include "library/LoadedLibrary.h"
#include "library/prepare/Escapes.h"

#define ZLIB_CONST
#include <zlib.h>

#include <limits>

namespace Library {
namespace {

[[gnu::used, gnu::section(".note.dlopen")]] alignas(4) constexpr auto kNote = NoteOf(
    R"([{"soname":[")" VEXTORIN_ZLIB_SONAME R"("],"priority":"required",)"
    R"("description":"compressed data"}])");

struct ZlibFunctions {
  decltype(&deflateInit2_) begin;
  decltype(&deflate) run;
  decltype(&deflateEnd) end;
};

ZlibFunctions LoadZlib() {
  const LoadedLibrary library(VEXTORIN_ZLIB_SONAME);
  return {library.find<decltype(ZlibFunctions::begin)>("deflateInit2_"),
          library.find<decltype(ZlibFunctions::run)>("deflate"),
          library.find<decltype(ZlibFunctions::end)>("deflateEnd")};
}

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

class Deflater {
 public:
  explicit Deflater(int windowBits) {
    constexpr int kMemoryLevel = 9;
    if (zlib.begin(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, windowBits, kMemoryLevel,
                   Z_DEFAULT_STRATEGY, ZLIB_VERSION, sizeof stream) != Z_OK) {
      throw Error(BC_E_OUTOFMEMORY);
    }
  }
  ~Deflater() { zlib.end(&stream); }
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  bool finish() { return zlib.run(&stream, Z_FINISH) == Z_STREAM_END; }

  z_stream stream{};

 private:
  const ZlibFunctions zlib = LoadZlib();
};

std::string Packed(std::string_view bytes, int algorithm) {
  if (bytes.size() > std::numeric_limits<int>::max()) throw Error(BC_E_DATATOOLONG);
  Deflater deflater(WindowBits(algorithm));
  // The longest is nine bits to a byte, with the wrapper; deflateBound falls short of it.
  std::string packed(bytes.size() + bytes.size() / 8 + 64, '\0');
  deflater.stream.next_in = reinterpret_cast<const Bytef*>(bytes.data());
  deflater.stream.avail_in = static_cast<uInt>(bytes.size());
  deflater.stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  deflater.stream.avail_out = static_cast<uInt>(packed.size());
  if (!deflater.finish()) throw Error(BC_E_OUTOFMEMORY);
  packed.resize(deflater.stream.total_out);
  return packed;
}

}  // namespace

std::string Zlib(std::string_view bytes) {
  return Packed(bytes, 3);
}

Data Compress(const Data& data, int algorithm) {
  Data result = RawData(Packed(Bytes(data), algorithm));
  for (DataCharacter& character : result) character.source = -1;
  return result;
}

}  // namespace Library
