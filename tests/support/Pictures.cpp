#include "tests/support/Pictures.h"

#include "tests/support/Jobs.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <random>

namespace Support {
namespace {

std::string Number(std::size_t value) {
  return std::to_string(value);
}

// With a line end behind every `width` bytes.
std::string InLines(std::string_view text, std::size_t width = 72) {
  std::string lines;
  for (; !text.empty(); text.remove_prefix(std::min(width, text.size())))
    lines.append(text.substr(0, width)) += '\n';
  return lines;
}

// Digits up to "~>", which stands on its last line.
std::string Ascii85(std::string_view bytes) {
  std::string lines = InLines(Ascii85String(bytes).substr(2));
  if (const std::size_t cut = lines.find("~\n>"); cut != lines.npos) lines.replace(cut, 3, "~>");
  return lines;
}

std::string HexDigits(std::string_view bytes) {
  const std::string string = HexString(bytes);
  return InLines(string.substr(1, string.size() - 2));
}

std::string Flate(std::string_view bytes) {
  uLongf size = compressBound(bytes.size());
  std::string compressed(size, '\0');
  compress(reinterpret_cast<Bytef*>(compressed.data()), &size,
           reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
  compressed.resize(size);
  return compressed;
}

std::string RunLength(std::string_view bytes) {
  std::string runs;
  for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(128, bytes.size()))) {
    const std::string_view run = bytes.substr(0, 128);
    runs += static_cast<char>(run.size() - 1);
    runs += run;
  }
  return runs + '\x80';
}

// Encrypted as the private part of a Type 1 font.
std::string Eexec(const std::string& code) {
  unsigned key = 55665;
  std::string encrypted;
  for (const char c : "\xff\xff\xff\xff" + code) {
    const unsigned byte = (static_cast<unsigned char>(c) ^ key >> 8) & 0xff;
    key = ((byte + key) * 52845 + 22719) & 0xffff;
    encrypted += static_cast<char>(byte);
  }
  return encrypted;
}

std::string ImageFrom(const std::string& source, std::size_t side) {
  const std::string n = Number(side);
  return "/DeviceGray setcolorspace << /ImageType 1 /Width " + n + " /Height " + n +
         " /BitsPerComponent 8\n/ImageMatrix [" + n + " 0 0 -" + n + " 0 " + n +
         "] /Decode [0 1] /DataSource " + source + " >> image\n";
}

std::string ImageByProcedure(const std::string& procedure, std::size_t side) {
  const std::string n = Number(side);
  return n + ' ' + n + " 8 [" + n + " 0 0 -" + n + " 0 " + n + "] { " + procedure + " } image";
}

// With a comment that counts it.
std::string Counted(const std::string& comment, const std::string& data,
                    const std::string& closer) {
  return comment + data + '\n' + closer + '\n';
}

}  // namespace

std::string Noise(unsigned seed, std::size_t size) {
  std::mt19937 random(seed);
  std::string bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random() >> 8);
  return bytes;
}

std::string EveryPair(unsigned seed) {
  std::array<unsigned char, 256> order;
  std::iota(order.begin(), order.end(), static_cast<unsigned char>(0));
  std::shuffle(order.begin(), order.end(), std::mt19937(seed));
  std::string bytes;
  for (std::size_t i = 0; i < order.size(); ++i) {
    bytes += static_cast<char>(order[i]);
    for (std::size_t j = i + 1; j < order.size(); ++j) {
      bytes += static_cast<char>(order[i]);
      bytes += static_cast<char>(order[j]);
    }
  }
  return bytes + bytes[0];
}

std::vector<Picture> PicturesOf(std::string_view samples, std::size_t side) {
  const std::string raw(samples.substr(0, side * side));
  const std::string size = Number(raw.size()), zeros = InLines(std::string(512, '0'), 64);
  const std::string row = "/row " + Number(side) + " string def\n";
  const std::string reader = "currentfile row readstring pop";
  const std::string rawReader = ImageByProcedure(reader, side) + '\n';
  const std::string plain = ImageFrom("currentfile", side);
  const std::string base85 = ImageFrom("currentfile /ASCII85Decode filter", side) + Ascii85(raw);
  const std::string font =
      "userdict /Hidden " + HexString(raw.substr(0, 4000)) + " put mark currentfile closefile\n";
  const auto lines = static_cast<std::size_t>(std::ranges::count(base85, '\n'));
  return {
      {"ASCII85", base85},
      {"ASCII85 on one line",
       ImageFrom("currentfile /ASCII85Decode filter", side) + Ascii85String(raw).substr(2) + '\n'},
      {"ASCII85 and Flate",
       ImageFrom("currentfile /ASCII85Decode filter /FlateDecode filter", side) +
           Ascii85(Flate(raw))},
      {"Flate", ImageFrom("currentfile /FlateDecode filter", side) + Flate(raw) + '\n'},
      {"RunLength", ImageFrom("currentfile /RunLengthDecode filter", side) + RunLength(raw) + '\n'},
      {"hexadecimal",
       ImageFrom("currentfile /ASCIIHexDecode filter", side) + HexDigits(raw) + ">\n"},
      {"readhexstring",
       row + ImageByProcedure("currentfile row readhexstring pop", side) + '\n' + HexDigits(raw)},
      {"readstring", row + rawReader + raw + '\n'},
      {"currentfile", plain + raw + '\n'},
      {"BeginData in bytes",
       Counted("%%BeginData: " + Number(plain.size() + raw.size()) + " Binary Bytes\n", plain + raw,
               "%%EndData")},
      {"BeginData in lines",
       Counted("%%BeginData: " + Number(lines) + " ASCII Lines\n", base85, "%%EndData")},
      {"BeginBinary",
       row + Counted("%%BeginBinary: " + Number(rawReader.size() + raw.size()) + '\n',
                     rawReader + raw, "%%EndBinary")},
      {"SubFile up to a mark",
       ImageFrom("currentfile 0 (%EOD-of-it%) /SubFileDecode filter", side) + raw +
           "%EOD-of-it%\n"},
      {"SubFile by count",
       ImageFrom("currentfile " + size + " () /SubFileDecode filter", side) + raw + '\n'},
      {"font in binary", "currentfile eexec\n" + Eexec(font) + '\n' + zeros + "cleartomark\n"},
      {"font in hexadecimal",
       "currentfile eexec\n" + HexDigits(Eexec(font)) + zeros + "cleartomark\n"},
      {"compressed code", "currentfile /ASCII85Decode filter /FlateDecode filter cvx exec\n" +
                              Ascii85(Flate(plain + raw))},
      {"procedure that reads ASCII85", "/IM { " +
                                           ImageFrom("currentfile /ASCII85Decode filter", side) +
                                           "} bind def\nIM\n" + Ascii85(raw)},
      {"procedure that reads binary data",
       row + "/IM { " + ImageByProcedure(reader, side) + " } bind def\nIM\n" + raw + '\n'},
      {"procedure whose reader is hidden", row + "/F (currentfile) cvx def /IM { " +
                                               ImageByProcedure("F row readstring pop", side) +
                                               " } bind def\nIM\n" + raw + '\n'},
  };
}

}  // namespace Support
