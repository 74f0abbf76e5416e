// Postal codes of bars in two and four states, by libzint. Services fix the sizes of their bars.
#include "library/Error.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"
#include "library/symbology/ZintSymbol.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace Library {
namespace {

// Of the rows in X, from top to bottom: ascender and tracker, and descender in four states.
using Heights = double[3];
constexpr Heights kTwoState = {3.225, 2.15};
constexpr Heights kTwoTrack = {4, 4};
constexpr Heights kAustralia = {3.7, 2.6, 3.7};
constexpr Heights kRoyalMail = {3.164, 2.165, 3.164};
constexpr Heights kJapan = {2, 2, 2};
constexpr Heights kIntelligentMail = {2.0855, 2.064, 2.0855};

constexpr Heights kDaftHeights = {3, 2, 3};

struct Message {
  std::string data;  // for libzint
  std::string text;
  std::string checkDigits;  // that the symbol adds
};

// Each turns prepared data into the message. Throws Error.
using Complete = void (*)(const Data& data, Message& message);

// libzint adds the check digit again.
void LeaveCheckDigit(const Data&, Message& message) {
  message.data.pop_back();
}

void CheckTwoTrackValue(const Data& data, Message& message) {
  constexpr int kLeast = 4, kMost = 64'570'080;
  const int value = std::stoi(message.data);
  if (value < kLeast || value > kMost) {
    throw Error(BC_E_INVALIDDATA, DataIndex(data.front().source));
  }
}

// Customer information of up to `letters` characters, or of exactly `digits` digits.
void FillCustomerField(Message& message, std::size_t letters, std::size_t digits) {
  constexpr std::size_t kSortingCode = 8;
  const std::size_t length = message.data.size() - kSortingCode;
  if (length <= letters) return message.data.resize(kSortingCode + letters, ' ');
  constexpr std::string_view kNumbers = "0123456789";
  if (message.data.find_first_not_of(kNumbers) != std::string::npos) {
    throw Error(BC_E_DATATOOLONG);
  }
  if (length != digits) throw Error(BC_E_INVALIDDATA);
}

void FillCustomer2(const Data&, Message& message) {
  FillCustomerField(message, 5, 8);
}
void FillCustomer3(const Data&, Message& message) {
  FillCustomerField(message, 10, 15);
}

// The check character stands in the row and column of the table of characters, six by six, that
// the sums of all rows and columns name.
void AddRoyalMailCheck(const Data&, Message& message) {
  constexpr std::string_view kTable = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  constexpr std::size_t kSide = 6;
  std::size_t rows = 0, columns = 0;
  for (const char character : message.data) {
    const std::size_t place = kTable.find(character);
    rows += place / kSide + 1;
    columns += place % kSide + 1;
  }
  const std::size_t row = (rows + kSide - 1) % kSide, column = (columns + kSide - 1) % kSide;
  message.checkDigits = kTable[row * kSide + column];
}

// A letter takes two of the code elements.
void CountJapanElements(const Data& data, Message&) {
  constexpr std::size_t kMost = 20;
  std::size_t elements = 0;
  for (const DataCharacter character : data) elements += character.value >= 'A' ? 2 : 1;
  if (elements > kMost) throw Error(BC_E_DATATOOLONG);
}

// Barcode identifier, service type, mailer, serial number and routing code.
void GroupIntelligentMail(const Data&, Message& message) {
  constexpr std::size_t kTrackingLength = 20;
  constexpr std::size_t kEnds[] = {2, 5, 11, 20};
  const std::size_t length = message.data.size();
  for (const std::size_t routing : {0, 5, 9, 11}) {
    if (length != kTrackingLength + routing) continue;
    for (std::size_t group = 0; group < std::size(kEnds); ++group) {
      if (kEnds[group] < length) message.text.insert(kEnds[group] + group, 1, ' ');
    }
    if (routing != 0) message.data.insert(kTrackingLength, 1, '-');
    return;
  }
  throw Error(BC_E_INVALIDDATA);
}

void TrimText(const Data&, Message& message) {
  message.text.erase(message.text.find_last_not_of(' ') + 1);
}

struct Service {
  int zint;  // libzint's number
  const Heights& heights;
  Complete complete = nullptr;  // null: the data as they are
};

void Draw(const Service& service, const EncoderInput& input, Symbol& symbol) {
  Message message{Bytes(input.data), {}, {}};
  message.text = message.data;
  if (service.complete != nullptr) service.complete(input.data, message);

  ZintSymbol encoded(service.zint);
  encoded.encode(message.data);
  encoded.copyRows(symbol, 0);
  for (std::size_t row = 0; row < symbol.rows.size(); ++row) {
    symbol.rows[row].height = service.heights[row];
  }
  if (!message.checkDigits.empty()) symbol.checkDigits = std::move(message.checkDigits);
  SetTextLine(symbol, std::move(message.text));
}

}  // namespace

void EncodePostnet(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_POSTNET, kTwoState, LeaveCheckDigit}, input, symbol);
}
void EncodePlanet(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_PLANET, kTwoState, LeaveCheckDigit}, input, symbol);
}
void EncodeCepNet(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_CEPNET, kTwoState, LeaveCheckDigit}, input, symbol);
}
void EncodeTwoTrackPharmacode(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_PHARMA_TWO, kTwoTrack, CheckTwoTrackValue}, input, symbol);
}
void EncodeAustraliaPost(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_AUSPOST, kAustralia}, input, symbol);
}
void EncodeAustraliaPost2(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_AUSPOST, kAustralia, FillCustomer2}, input, symbol);
}
void EncodeAustraliaPost3(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_AUSPOST, kAustralia, FillCustomer3}, input, symbol);
}
void EncodeAustraliaReply(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_AUSREPLY, kAustralia}, input, symbol);
}
void EncodeAustraliaRouting(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_AUSROUTE, kAustralia}, input, symbol);
}
void EncodeAustraliaRedirection(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_AUSREDIRECT, kAustralia}, input, symbol);
}
void EncodeRoyalMail(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_RM4SCC, kRoyalMail, AddRoyalMailCheck}, input, symbol);
}
void EncodeJapanPost(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_JAPANPOST, kJapan, CountJapanElements}, input, symbol);
}
void EncodeIntelligentMail(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_USPS_IMAIL, kIntelligentMail, GroupIntelligentMail}, input, symbol);
}
void EncodeKix(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_KIX, kRoyalMail}, input, symbol);
}
void EncodeMailmark(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_MAILMARK, kRoyalMail, TrimText}, input, symbol);
}
void EncodeDaft(const EncoderInput& input, Symbol& symbol) {
  Draw({BARCODE_DAFT, kDaftHeights}, input, symbol);
}

}  // namespace Library
