// MaxiCode: read back by ZXing, from its modules and from the printed page.
#include "library/layout/Layout.h"
#include "library/writer/PostScriptWriter.h"
#include "tests/library/ScanSymbol.h"
#include "tests/library/Sweep.h"
#include "tests/support/Decode.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace {

using Library::Options;
using Library::Symbol;

Options Shipment(std::string service, std::string country, std::string postal) {
  Options options = OptionsFor(57, "1Z12345677");
  options.maxi.service = std::move(service);
  options.maxi.country = std::move(country);
  options.maxi.postal = std::move(postal);
  return options;
}

}  // namespace

TEST(MaxiCode, OfAllLengthsIsRead) {
  std::mt19937 random = Seeded(16023);
  const std::string kKinds[] = {"0123456789", "ABCXYZ 12345.,", "abcxyz ABC-+&",
                                "\xC4\xD6\xE9\x01!"};
  for (const int mode : {4, 5}) {
    for (std::size_t length = 1; length <= 40; length += 3) {
      const std::string& kind = kKinds[random() % std::size(kKinds)];
      Options options = OptionsFor(57, "");
      while (options.data.size() < length) options.data += kind[random() % kind.size()];
      options.maxi.mode = mode;
      // Bytes of several sets may be too many for the mode of more correction.
      if (length > 30 && RefusalOf(options).code == BC_E_DATATOOLONG) continue;
      const Scanned scanned = Scan(Library::Encode(options));
      EXPECT_EQ(scanned.format, "MaxiCode");
      EXPECT_TRUE(IsRead(scanned, options.data)) << mode;
    }
  }
}

TEST(MaxiCode, CarriesThePrimaryMessage) {
  const struct {
    const char* name;
    Options options;
    std::string bytes;
  } cases[] = {
      {"United States", Shipment("1", "840", "84170"),
       "841700000\x1D"
       "840\x1D"
       "001\x1D"
       "1Z12345677"},
      {"Germany", Shipment("001", "276", "10115"),
       "10115\x1D"
       "276\x1D"
       "001\x1D"
       "1Z12345677"},
      {"letters", Shipment("999", "56", "b1050"),
       "B1050 \x1D"
       "056\x1D"
       "999\x1D"
       "1Z12345677"},
      {"cut", Shipment("", "826", "EC1A 1BB"),
       "EC1A 1\x1D"
       "826\x1D"
       "000\x1D"
       "1Z12345677"},
  };
  for (const auto& row : cases)
    EXPECT_TRUE(ReadsBack(Library::Encode(row.options), row.bytes)) << row.name;

  Options options = OptionsFor(57, "DATA");
  options.maxi.usePreamble = true;
  options.maxi.preamble = "[)>\\03601\\03596";
  options.translateEscapes = true;
  EXPECT_TRUE(ReadsBack(Library::Encode(options),
                        "[)>\x1E"
                        "01\x1D"
                        "96DATA"));
}

TEST(MaxiCode, TellsPlaceAndInterpretation) {
  Options options = OptionsFor(57, "part");
  options.maxi.appendSum = 8;
  options.maxi.appendIndex = 3;
  const Scanned scanned = Scan(Library::Encode(options));
  EXPECT_EQ(scanned.sequenceSize, 8);
  EXPECT_EQ(scanned.sequenceIndex, 2);
  EXPECT_TRUE(IsRead(scanned, "part"));

  for (const int eci : {3, 31, 32, 1023, 1024, 32767, 32768, 999999}) {
    options = OptionsFor(57, "\xC3\xBC");
    options.eci = eci;
    const std::string digits = std::to_string(1000000 + eci).substr(1);
    EXPECT_NE(Scan(Library::Encode(options)).withEci.find("\\" + digits), std::string::npos) << eci;
  }
}

TEST(MaxiCode, RefusesWhatItCannotHold) {
  const struct {
    const char* name;
    Options options;
    std::function<void(Options&)> set;
    Refusal refusal;
  } cases[] = {
      {"mode 2, no message",
       OptionsFor(57, "A"),
       [](Options& o) { o.maxi.mode = 2; },
       {BC_E_INVALIDARG}},
      {"mode 4, message",
       Shipment("1", "840", "1"),
       [](Options& o) { o.maxi.mode = 4; },
       {BC_E_INVALIDARG}},
      {"mode 2, letters",
       Shipment("1", "840", "A1"),
       [](Options& o) { o.maxi.mode = 2; },
       {BC_E_INVALIDARG}},
      {"ten digits", Shipment("1", "840", "1234567890"), [](Options&) {}, {BC_E_INVALIDARG}},
      {"no post code", Shipment("1", "840", ""), [](Options&) {}, {BC_E_INVALIDARG}},
      {"post code", Shipment("1", "826", "EC!A"), [](Options&) {}, {BC_E_INVALIDARG}},
      {"country", Shipment("1", "D", "1"), [](Options&) {}, {BC_E_INVALIDARG}},
      {"service", Shipment("1000", "276", "1"), [](Options&) {}, {BC_E_INVALIDARG}},
      {"mode", OptionsFor(57, "A"), [](Options& o) { o.maxi.mode = 6; }, {BC_E_INVALIDARG}},
      {"append",
       OptionsFor(57, "A"),
       [](Options& o) { o.maxi.appendSum = 9, o.maxi.appendIndex = 1; },
       {BC_E_INVALIDARG}},
      {"letters", OptionsFor(57, std::string(94, 'A')), [](Options&) {}, {BC_E_DATATOOLONG}},
      {"enhanced",
       OptionsFor(57, std::string(78, 'A')),
       [](Options& o) { o.maxi.mode = 5; },
       {BC_E_DATATOOLONG}},
      {"digits", OptionsFor(57, std::string(139, '1')), [](Options&) {}, {BC_E_DATATOOLONG}},
  };
  for (const auto& row : cases) {
    Options options = row.options;
    row.set(options);
    EXPECT_EQ(RefusalOf(options), row.refusal) << row.name;
  }
  EXPECT_EQ(RefusalOf(OptionsFor(57, std::string(93, 'A'))), Refusal{});
  EXPECT_EQ(RefusalOf(OptionsFor(57, std::string(138, '1'))), Refusal{});
}

TEST(MaxiCode, IsReadFromThePage) {
  for (const int underCut : {0, 40}) {
    Options options = Shipment("1", "840", "84170");
    options.maxi.underCut = underCut;
    options.quietZone = {2, 2, 2, 2};
    options.quietZoneUnit = 2;
    const Library::Drawing drawing =
        Library::LayOut(Library::Encode(options), options, {0, 34000, 34000, 0});
    const Support::Symbol read = Support::DecodeJob(Library::PostScriptWriter(true).write(drawing));
    EXPECT_EQ(read.format, "MaxiCode") << underCut << read.data;
    EXPECT_NE(read.data.find("1Z12345677"), std::string::npos);
  }
}
