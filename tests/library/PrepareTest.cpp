#include "library/Error.h"
#include "library/prepare/Compression.h"
#include "library/prepare/Escapes.h"
#include "library/prepare/FormatString.h"
#include "library/prepare/Prepare.h"
#include "tests/library/ScanSymbol.h"

#include <gtest/gtest.h>
#include <zlib.h>

namespace {

using Library::Data;

// Function characters and switches as names in angle brackets.
std::string Show(const Data& data) {
  static const char* const kNames[] = {"FNC1", "FNC2", "FNC3", "FNC4", "A", "B", "C", "^"};
  std::string shown;
  for (const auto character : data) {
    if (character.isByte()) {
      shown += static_cast<char>(character.value);
    } else {
      shown.append("<").append(kNames[character.value - Library::kFnc1]).append(">");
    }
  }
  return shown;
}

std::string Inflate(const std::string& packed, int windowBits) {
  z_stream stream{};
  inflateInit2(&stream, windowBits);
  std::string plain(4096, '\0');
  std::string input = packed;
  stream.next_in = reinterpret_cast<Bytef*>(input.data());
  stream.avail_in = static_cast<uInt>(input.size());
  stream.next_out = reinterpret_cast<Bytef*>(plain.data());
  stream.avail_out = static_cast<uInt>(plain.size());
  const int result = inflate(&stream, Z_FINISH);
  plain.resize(result == Z_STREAM_END ? stream.total_out : 0);
  inflateEnd(&stream);
  return plain;
}

}  // namespace

TEST(Escapes, BecomeTheCharactersThatTheyName) {
  using Library::FunctionCharacters;
  const struct {
    std::string text, withFunctions, withoutFunctions;
  } cases[] = {
      {R"(\a\b\e\f\n\r\t\v\\\")", "\a\b\x1B\f\n\r\t\v\\\"", "\a\b\x1B\f\n\r\t\v\\\""},
      {R"(\x41\x7e\xFf)", "A~\xFF", "A~\xFF"},
      {R"(\101\377\000)", std::string("A\xFF\0", 3), std::string("A\xFF\0", 3)},
      {R"(\210\211\212\213)", "<FNC1><FNC2><FNC3><FNC4>", "\x88\x89\x8A\x8B"},
      // What is no escape stays.
      {R"(\q\400\777\19\x4\xG1\x-1\)", R"(\q\400\777\19\x4\xG1\x-1\)",
       R"(\q\400\777\19\x4\xG1\x-1\)"},
      {R"(\\101)", R"(\101)", R"(\101)"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(Show(TranslateEscapes(row.text, FunctionCharacters::kOctal)), row.withFunctions);
    EXPECT_EQ(Show(TranslateEscapes(row.text, FunctionCharacters::kNone)), row.withoutFunctions);
  }
}

TEST(FormatString, PlacesDataCheckDigitsAndSwitches) {
  const struct {
    const char* format;
    const char* data;
    const char* expected;
    bool codeSets;
  } cases[] = {
      {"A##B&", "12345", "<A>12<B>345", true}, {"A##B&", "12345", "A12B345", false},
      {"##-##", "1234", "12-34", false},       {"&^", "12", "12<^>", false},
      {R"(\#\&\A\\#)", "1", R"(#&A\1)", true}, {"&&x", "12", "12x", false},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(Show(ApplyFormat(Library::RawData(row.data), row.format, row.codeSets, 5)),
              row.expected)
        << row.format;
  }
}

TEST(Compression, GivesBytesThatUnpackAndNeverChange) {
  const std::string text = "begin" + std::string(500, 'x');
  const std::pair<int, int> windowBits[] = {{1, -MAX_WBITS}, {2, MAX_WBITS + 16}, {3, MAX_WBITS}};
  for (const auto& [algorithm, bits] : windowBits) {
    const std::string packed = Bytes(Compress(Library::RawData(text), algorithm));
    EXPECT_LT(packed.size(), 40u);
    EXPECT_EQ(Inflate(packed, bits), text);
    if (algorithm == 2) {
      EXPECT_EQ(packed.substr(4, 4), std::string(4, '\0')) << "time";
    }
  }

  for (int length = 0; length < 300; ++length) {
    std::string noise;
    for (int i = 0; i < length; ++i) noise += static_cast<char>(144 + i * 7919 % 112);
    for (const auto& [algorithm, bits] : windowBits) {
      EXPECT_EQ(Inflate(Bytes(Compress(Library::RawData(noise), algorithm)), bits), noise);
    }
  }

  Library::Options options = OptionsFor(58, "compressed compressed compressed");
  options.compression = 3;
  EXPECT_EQ(Inflate(Scan(Library::Encode(options)).bytes, MAX_WBITS), options.data);
  for (const int type : {3, 8, 13, 16}) {
    options.type = type;
    EXPECT_EQ(RefusalOf(options), (Refusal{BC_E_NOTSUPPORTED, -1})) << type;
  }
}

TEST(Errors, NameTheCharacterInTheCallersData) {
  const struct {
    const char* name;
    int type;
    std::string data, format;
    bool escapes;
    Refusal expected;
  } cases[] = {
      {"no character of Code 39", 8, "AB*CD", "", false, {BC_E_INVALIDDATA, 2}},
      {"letter in EAN-13", 13, "40063813339A", "", false, {BC_E_INVALIDDATA, 11}},
      {"behind an escape", 8, R"(\x41\x42c)", "", true, {BC_E_INVALIDDATA, 8}},
      {"function character", 8, R"(AB\210)", "", true, {BC_E_INVALIDDATA, 2}},
      {"through a format", 8, "12a", "XX#-&", false, {BC_E_INVALIDDATA, 2}},
      {"in the format", 8, "12", "x&", false, {BC_E_INVALIDDATA, -1}},
      {"escapes, data end", 8, R"(1\x32)", "###", true, {BC_E_INVALIDDATA, 5}},
      {"too long", 13, "40063813339312", "", false, {BC_E_DATATOOLONG, -1}},
      {"character before length", 13, "4006x", "", false, {BC_E_INVALIDDATA, 4}},
      {"check digit", 34, "036000291453", "", false, {BC_E_INVALIDDATA, 11}},
      {"check digit by format", 13, "400638133393", "&^", false, {BC_OK, -1}},
      {"check digit in front", 13, "400638133393", "^&", false, {BC_E_INVALIDDATA, 11}},
      {"nothing", 20, "", "", false, {BC_E_INVALIDDATA, -1}},
      {"nothing but a check digit", 58, "", "&^", false, {BC_E_INVALIDDATA, -1}},
      {"unknown type", 94, "A", "", false, {BC_E_INVALIDARG, -1}},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    Library::Options options = OptionsFor(row.type, row.data);
    options.format = row.format;
    options.translateEscapes = row.escapes;
    EXPECT_EQ(RefusalOf(options), row.expected);
  }
}
