// Codes of narrow and wide elements that are used in few places: Code 11, Telepen, Plessey and MSI.
#include "library/Error.h"
#include "library/symbology/Linear.h"
#include "library/symbology/LinearEncoders.h"

#include <bit>

namespace Library {
namespace {

// Code 11: wide elements are drawn 2 modules wide.
constexpr std::string_view kCode11Patterns[] = {
    "11112", "21112", "12112", "22111", "11212", "21211",  // 0 to 5
    "12211", "11122", "21121", "21111", "11211",           // 6 to 9, -
};
constexpr std::string_view kCode11Frame = "11221";

constexpr unsigned char kTelepenStart = '_', kTelepenStop = 'z';

constexpr std::string_view kPlesseyStart = "31311331";
constexpr std::string_view kPlesseyEnd = "331311313";
constexpr std::string_view kPlesseyBits[] = {"13", "31"};

constexpr std::string_view kMsiStart = "21";
constexpr std::string_view kMsiEnd = "121";
constexpr std::string_view kMsiBits[] = {"12", "21"};

// Eight bits, the lowest first, with even parity. Ones are a narrow bar and space; the zeros come
// in pairs: 00 and 010 have elements of their own, any other pair is widened at both its ends.
void AppendTelepen(unsigned byte, LinearRow& row) {
  if (std::popcount(byte) % 2 != 0) byte |= 0x80;
  bool open = false;  // between the zeros of a pair
  for (int bit = 0; bit < 8;) {
    const unsigned next = byte >> bit & 7;
    if ((next & 1) != 0) {
      const bool closes = open && (next & 2) == 0;
      row.append(closes ? "13" : "11");
      bit += closes ? 2 : 1;
      open = open && !closes;
    } else if ((next & 2) == 0) {
      row.append("31");
      bit += 2;
    } else if ((next & 4) == 0 && bit < 6) {
      row.append("33");
      bit += 3;
    } else {
      row.append("13");
      bit += 2;
      open = true;
    }
  }
}

void DrawTelepen(const std::string& bytes, Symbol& symbol) {
  unsigned sum = 0;
  for (const char byte : bytes) sum += static_cast<unsigned char>(byte);
  const unsigned check = (127 - sum % 127) % 127;
  LinearRow row;
  AppendTelepen(kTelepenStart, row);
  for (const char byte : bytes) AppendTelepen(static_cast<unsigned char>(byte), row);
  AppendTelepen(check, row);
  AppendTelepen(kTelepenStop, row);
  std::move(row).finish(symbol);
  // The space that ends the stop character.
  symbol.width -= symbol.rows.back().runs.back();
  symbol.rows.back().runs.pop_back();
  symbol.checkDigits = std::to_string(check);
}

int HexValue(char digit) {
  return digit <= '9' ? digit - '0' : digit - 'A' + 10;
}

// The remainder of the data bits, each digit's lowest first, divided by x^8 + x^7 + x^6 + x^5 + x^3
// + 1; its first bit is the highest.
unsigned PlesseyRemainder(std::string_view digits) {
  constexpr unsigned kGenerator = 0x1E9;
  unsigned remainder = 0;
  for (const char digit : digits) {
    for (int bit = 0; bit < 4; ++bit) {
      const unsigned in = static_cast<unsigned>(HexValue(digit) >> bit & 1);
      const unsigned out = (remainder >> 7 & 1) ^ in;
      remainder = remainder << 1 & 0xFF;
      if (out != 0) remainder ^= kGenerator & 0xFF;
    }
  }
  return remainder;
}

// Two digits for the remainder, lowest bits first as in the data.
std::string PlesseyCheck(std::string_view digits) {
  const unsigned remainder = PlesseyRemainder(digits);
  std::string check;
  for (const int shift : {4, 0}) {
    unsigned digit = 0;
    for (int bit = 0; bit < 4; ++bit) digit |= (remainder >> (shift + 3 - bit) & 1) << bit;
    check += "0123456789ABCDEF"[digit];
  }
  return check;
}

}  // namespace

void EncodeCode11(const EncoderInput& input, Symbol& symbol) {
  std::string text = Bytes(input.data);
  LinearRow row;
  row.append(kCode11Frame);
  for (const char character : text) {
    row.append("1");
    row.append(kCode11Patterns[character == '-' ? 10 : character - '0']);
  }
  row.append("1");
  row.append(kCode11Frame);
  std::move(row).finish(symbol);
  SetTextLine(symbol, std::move(text));
}

void EncodeTelepen(const EncoderInput& input, Symbol& symbol) {
  const std::string data = Bytes(input.data);
  DrawTelepen(data, symbol);
  SetTextLine(symbol, BlankedText(data));
}

// Pairs of digits, or of a digit and X, to a byte each.
void EncodeTelepenNumeric(const EncoderInput& input, Symbol& symbol) {
  std::string data = Bytes(input.data);
  constexpr int kFirstPair = 27, kFirstWithX = 17;
  for (std::size_t i = 0; i < data.size(); i += 2) {
    if (data[i] == 'X') throw Error(BC_E_INVALIDDATA, DataIndex(input.data[i].source));
  }
  if (data.size() % 2 != 0) throw Error(BC_E_INVALIDDATA);
  std::string bytes;
  for (std::size_t i = 0; i < data.size(); i += 2) {
    const int first = data[i] - '0';
    bytes += static_cast<char>(data[i + 1] == 'X' ? kFirstWithX + first
                                                  : kFirstPair + 10 * first + data[i + 1] - '0');
  }
  DrawTelepen(bytes, symbol);
  SetTextLine(symbol, std::move(data));
}

void EncodePlessey(const EncoderInput& input, Symbol& symbol) {
  std::string text = Bytes(input.data);
  symbol.checkDigits = PlesseyCheck(text);
  LinearRow row;
  row.append(kPlesseyStart);
  for (const char digit : text + symbol.checkDigits) {
    for (int bit = 0; bit < 4; ++bit) row.append(kPlesseyBits[HexValue(digit) >> bit & 1]);
  }
  row.append(kPlesseyEnd);
  std::move(row).finish(symbol);
  SetTextLine(symbol, std::move(text));
}

void EncodeMsi(const EncoderInput& input, Symbol& symbol) {
  std::string text = Bytes(input.data);
  LinearRow row;
  row.append(kMsiStart);
  for (const char digit : text) {
    for (int bit = 3; bit >= 0; --bit) row.append(kMsiBits[(digit - '0') >> bit & 1]);
  }
  row.append(kMsiEnd);
  std::move(row).finish(symbol);
  SetTextLine(symbol, std::move(text));
}

}  // namespace Library
