// Random data of every length and alphabet of types that the readers at hand do not know, against
// the modules that others draw; data/ReferenceRows.inc says whose they are.
#include "tests/library/Coverage.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/SymbolPage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>

namespace {

using namespace std::literals;

constexpr std::string_view kBwipp = "BWIPP's modules", kTable = "published tables",
                           kZint = "libzint's table";

constexpr struct {
  int type;
  std::string_view judge, data;
  std::uint64_t digest;
} kRows[] = {
#include "tests/library/data/ReferenceRows.inc"
};

}  // namespace

TEST(ReferenceRows, AreDrawnAsOthersDrawThem) {
  for (const auto& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.type << " " << testing::PrintToString(row.data));
    const Library::Symbol symbol = Library::Encode(OptionsFor(row.type, std::string(row.data)));
    EXPECT_TRUE(IsSame(row.type, row.judge, DigestOf(symbol), row.digest));
  }
}
