#include "library/symbology/Symbology.h"

#include "library/prepare/LogisticsNumbers.h"
#include "library/prepare/PostalFields.h"
#include "library/symbology/AztecPattern.h"
#include "library/symbology/Codablock.h"
#include "library/symbology/Code128.h"
#include "library/symbology/Code16K.h"
#include "library/symbology/Composite.h"
#include "library/symbology/DataBar.h"
#include "library/symbology/Encoders.h"
#include "library/symbology/Families.h"
#include "library/symbology/LinearEncoders.h"

#include <algorithm>
#include <iterator>

namespace Library {
namespace {

using namespace Families;

constexpr CheckRule kNoCheck{CheckKind::kBuiltIn, 0, 0, {0, 1}};
constexpr CheckRule kOneBuiltIn{CheckKind::kBuiltIn, 0, 1, {0, 1}};
constexpr CheckRule kTwoBuiltIn{CheckKind::kBuiltIn, 0, 2, {0, 1}};
constexpr CheckRule kCode11Check{CheckKind::kOptional, 8, 2, {0, 1, 7, 8}};
constexpr CheckRule k2Of5Check{CheckKind::kOptional, 0, 0, {0, 1, 2, 21, 28}};
constexpr CheckRule kInterleavedCheck{CheckKind::kOptional, 0, 0, {0, 1, 2, 5, 6, 21, 28}};
constexpr CheckRule kCode39Check{CheckKind::kOptional, 0, 0, {0, 1, 3, 21, 28}};
constexpr CheckRule kExtendedCode39Check{CheckKind::kOptionalBuiltIn, 0, 0, {0, 1, 3}};
constexpr CheckRule kMod43Check{CheckKind::kOptional, 0, 0, {0, 1, 3}};
constexpr CheckRule kCode93Check{CheckKind::kBuiltIn, 4, 2, {0, 1, 4}};
constexpr CheckRule kCodabarCheck{CheckKind::kOptionalBuiltIn, 0, 0, {0, 1, 23, 28}};
constexpr CheckRule kMsiCheck{CheckKind::kOptional, 10, 1, {0, 1, 10, 11, 21, 24, 25, 26, 27}};
constexpr CheckRule kPlesseyCheck{CheckKind::kBuiltIn, 12, 2, {0, 1, 12}};
constexpr CheckRule kTelepenCheck{CheckKind::kBuiltIn, 33, 1, {0, 1, 33}};
constexpr CheckRule kLeitcodeCheck{CheckKind::kLast, 5, 1, {0, 1, 5}};
constexpr CheckRule kIdentcodeCheck{CheckKind::kLast, 6, 1, {0, 1, 6}};
constexpr CheckRule kPznCheck{CheckKind::kLast, 20, 1, {0, 1, 20}};
constexpr CheckRule kCode32Check{CheckKind::kLast, 32, 1, {0, 1, 32}};
constexpr CheckRule kVinCheck{CheckKind::kBuiltIn, 34, 0, {0, 1, 34}};
constexpr CheckRule kHibcCheck{CheckKind::kBuiltIn, 3, 1, {0, 1, 3}};
constexpr CheckRule kHibc128Check{CheckKind::kBuiltIn, 3, 1, {0, 1, 3, 18}};

constexpr CheckRule kEan8Check{CheckKind::kLast, 13, 1, {0, 1, 2, 13}};
constexpr CheckRule kEan8AddOnCheck{CheckKind::kLast, 13, 1, {0, 1, 2, 13}, 8};
constexpr CheckRule kEan13Check{CheckKind::kLast, 14, 1, {0, 1, 2, 14}};
constexpr CheckRule kEan13AddOnCheck{CheckKind::kLast, 14, 1, {0, 1, 2, 14}, 13};
constexpr CheckRule kUpcACheck{CheckKind::kLast, 15, 1, {0, 1, 2, 15}};
constexpr CheckRule kUpcAAddOnCheck{CheckKind::kLast, 15, 1, {0, 1, 2, 15}, 12};
constexpr CheckRule kUpcECheck{CheckKind::kLast, 16, 1, {0, 1, 2, 16}};
constexpr CheckRule kUpcEAddOnCheck{CheckKind::kLast, 16, 1, {0, 1, 2, 16}, 8};
constexpr CheckRule kIsbnCheck{CheckKind::kLast, 14, 1, {0, 1, 14, 35}, 13};
constexpr CheckRule kIssnCheck = kIsbnCheck;

constexpr CheckRule kCode128Check{CheckKind::kBuiltIn, 18, 1, {0, 1, 18}};
constexpr CheckRule kGs1Check{CheckKind::kBuiltIn, 17, 1, {0, 1, 17}};
constexpr CheckRule kGtinCheck{CheckKind::kLast, 2, 1, {0, 1}};
constexpr CheckRule kSsccCheck{CheckKind::kLast, 2, 1, {0, 1, 2, 17}};
constexpr CheckRule kEan14Check{CheckKind::kLast, 2, 1, {0, 1, 2, 17, 22}};
constexpr CheckRule kItf14Check{CheckKind::kLast, 2, 1, {0, 1, 2, 22}};
constexpr CheckRule kDpdCheck{CheckKind::kBuiltIn, 29, 1, {0, 1, 18, 29}};
constexpr CheckRule kS10Check{CheckKind::kBuiltIn, 36, 1, {0, 1, 36}};

constexpr CheckRule kPostnetCheck{CheckKind::kLast, 9, 1, {0, 1, 9}};
constexpr CheckRule kRoyalMailCheck{CheckKind::kBuiltIn, 19, 1, {0, 1, 19}};
constexpr CheckRule kJapanPostCheck{CheckKind::kBuiltIn, 30, 1, {0, 1, 30}};
constexpr CheckRule kKoreaPostCheck{CheckKind::kLast, 31, 1, {0, 1, 31}};

constexpr CharacterSet kCapitals = CharacterSet::Range('A', 'Z');
constexpr CharacterSet kCapitalsAndDigits = kDigits | kCapitals;
constexpr CharacterSet kAscii = CharacterSet::Range(0, 127);
constexpr CharacterSet kHexDigits = kDigits | CharacterSet::Range('A', 'F');
constexpr CharacterSet kAddOnDigits = kDigits | CharacterSet::Of("+ ");
constexpr CharacterSet kIssnOnlyCharacters = kDigits | CharacterSet::Of("X");
constexpr CharacterSet kIssnCharacters = kAddOnDigits | CharacterSet::Of("X");
constexpr CharacterSet kIsbnCharacters = kDigits | CharacterSet::Of("X+");
constexpr CharacterSet kCode128ACharacters = CharacterSet::Range(0, 95);
constexpr CharacterSet kCode128BCharacters = CharacterSet::Range(32, 127);
constexpr CharacterSet kFimCharacters = CharacterSet::Of("ABCDE");
constexpr CharacterSet kDaftCharacters = CharacterSet::Of("DAFT");
constexpr CharacterSet kAustraliaCharacters =
    kCapitalsAndDigits | CharacterSet::Range('a', 'z') | CharacterSet::Of(" #");
constexpr CharacterSet kJapanPostCharacters = kCapitalsAndDigits | CharacterSet::Of("-");
constexpr CharacterSet kTelepenNumericCharacters = kDigits | CharacterSet::Of("X");
constexpr CharacterSet kDpdCharacters = CharacterSet::Range(0x20, 0x7E);
constexpr CharacterSet kMailmarkCharacters = kCapitalsAndDigits | CharacterSet::Of(" ");
constexpr CharacterSet kBc412Characters = kDigits | CharacterSet::Of("ABCDEFGHIJKLMNPQRSTUVWXYZ");

// Element strings of 48 characters, with a pair of parentheses round every identifier of two.
constexpr int kGs1Length = 48 * 2;
// 74 digits or 41 letters, with parentheses; the encoder counts those.
constexpr int kDataBarLength = 74 * 2;
// Two digits to a symbol character; the encoder counts those.
constexpr int kCode128Length = 2 * kMaxCode128Characters;
// Twice the digits that fit, for parentheses and envelopes; the encoder counts code words.
constexpr int kMicroPdfLength = 2 * 366;
// Two characters to a code of five bits; the encoder counts those.
constexpr int kAztecLength = kMaxAztecBits * 2 / 5;

// In the order of the type numbers.
constexpr Symbology kSymbologies[] = {
    // clang-format off
    // type name, family, encoder, normalizer, characters, shortest, longest and fixed length, check digits, X, quiet zone, composite
    {1,   "Code 11",                             kTwoWidthBarcode,        EncodeCode11,                 nullptr,                  kDigitsAndHyphen,          1,  121,                 0,  kCode11Check,         254,  {10, 10}},
    {2,   "2 of 5 Standard",                     kTwoWidthBarcode,        EncodeStandard2Of5,           nullptr,                  kDigits,                   1,  80,                  0,  k2Of5Check,           254,  {10, 10}},
    {3,   "2 of 5 Interleaved",                  kInterleavedBarcode,     EncodeInterleaved2Of5,        nullptr,                  kDigits,                   1,  90,                  0,  kInterleavedCheck,    254,  {10, 10}},
    {4,   "2 of 5 IATA",                         kTwoWidthBars,           EncodeIata2Of5,               nullptr,                  kDigits,                   1,  45,                  0,  k2Of5Check,           254,  {10, 10}},
    {5,   "2 of 5 Matrix",                       kTwoWidthBarcode,        EncodeStandard2Of5,           nullptr,                  kDigits,                   1,  80,                  0,  k2Of5Check,           254,  {10, 10}},
    {6,   "2 of 5 Data Logic",                   kTwoWidthBarcode,        EncodeDataLogic2Of5,          nullptr,                  kDigits,                   1,  80,                  0,  k2Of5Check,           254,  {10, 10}},
    {7,   "2 of 5 Industrial",                   kTwoWidthBars,           EncodeIndustrial2Of5,         nullptr,                  kDigits,                   1,  45,                  0,  k2Of5Check,           254,  {10, 10}},
    {8,   "Code 39",                             kTwoWidthBarcode,        EncodeCode39,                 nullptr,                  kCode39Characters,         1,  85,                  0,  kCode39Check,         254,  {10, 10}},
    {9,   "Code 39 Extended",                    kTwoWidthBarcode,        EncodeExtendedCode39,         nullptr,                  kAscii,                    1,  85,                  0,  kExtendedCode39Check, 254,  {10, 10}},
    {10,  "EAN-8",                               kEanUpc,                 EncodeEan8,                   nullptr,                  kDigits,                   7,  8,                   8,  kEan8Check,           330,  {7, 7},               &kEan8Composite},
    {11,  "EAN-8 + 2",                           kEanUpc,                 EncodeEan8,                   NormalizeAddOn,           kAddOnDigits,              9,  11,                  10, kEan8AddOnCheck,      330,  {7, 5},               &kEan8Composite},
    {12,  "EAN-8 + 5",                           kEanUpc,                 EncodeEan8,                   NormalizeAddOn,           kAddOnDigits,              12, 14,                  13, kEan8AddOnCheck,      330,  {7, 5},               &kEan8Composite},
    {13,  "EAN-13",                              kEanUpc,                 EncodeEan13,                  nullptr,                  kDigits,                   12, 13,                  13, kEan13Check,          330,  {11, 7},              &kEan13Composite},
    {14,  "EAN-13 + 2",                          kEanUpc,                 EncodeEan13,                  NormalizeAddOn,           kAddOnDigits,              14, 16,                  15, kEan13AddOnCheck,     330,  {11, 5},              &kEan13Composite},
    {15,  "EAN-13 + 5",                          kEanUpc,                 EncodeEan13,                  NormalizeAddOn,           kAddOnDigits,              17, 19,                  18, kEan13AddOnCheck,     330,  {11, 5},              &kEan13Composite},
    {16,  "GS1-128",                             kGs1Code128,             EncodeGs1Code128,             nullptr,                  kGs1Characters,            1,  kGs1Length,          0,  kGs1Check,            495,  {10, 10},             &kGs1Code128Composite},
    {17,  "UPC 12 digits",                       kEanUpc,                 EncodeUpcA,                   nullptr,                  kDigits,                   11, 12,                  12, kUpcACheck,           330,  {9, 9},               &kUpcAComposite},
    {18,  "Codabar",                             kTwoWidthBarcode,        EncodeCodabar,                NormalizeCodabar,         kCodabarCharacters,        3,  60,                  0,  kCodabarCheck,        254,  {10, 10}},
    {19,  "Codabar (18 widths)",                 kPlainBarcode,           nullptr,                      nullptr,                  kCodabarCharacters,        1,  60,                  0,  kNoCheck,             254,  {10, 10}},
    {20,  "Code 128",                            kCode128Family,          EncodeCode128,                nullptr,                  kAllBytes,                 1,  kCode128Length,      0,  kCode128Check,        254,  {10, 10}},
    {21,  "Leitcode",                            kTwoWidthBarcode,        EncodeLeitcode,               nullptr,                  kDigits,                   13, 14,                  14, kLeitcodeCheck,       423,  {10, 10}},
    {22,  "Identcode",                           kTwoWidthBarcode,        EncodeIdentcode,              nullptr,                  kDigits,                   11, 12,                  12, kIdentcodeCheck,      423,  {10, 10}},
    {23,  "Code 16K",                            kCode16K,                EncodeCode16K,                nullptr,                  kAllBytes,                 1,  kMaxCode16KLength,   0,  kTwoBuiltIn,          250,  {10, 1}},
    {24,  "Code 49",                             kCode49,                 EncodeCode49,                 nullptr,                  kAscii,                    1,  81,                  0,  kNoCheck,             250,  {10, 1}},
    {25,  "Code 93",                             kFourWidthBarcode,       EncodeCode93,                 nullptr,                  kCode39Characters,         1,  107,                 0,  kCode93Check,         254,  {10, 10}},
    {26,  "ISSN",                                kEanUpc,                 EncodeIssn,                   NormalizeIssn,            kIssnOnlyCharacters,       7,  13,                  13, kIssnCheck,           330,  {11, 7},              &kEan13Composite},
    {27,  "ISSN + 2",                            kEanUpc,                 EncodeIssn,                   NormalizeIssn,            kIssnCharacters,           9,  16,                  15, kIssnCheck,           330,  {11, 5},              &kEan13Composite},
    {28,  "Flattermarken",                       kPlainBarcode,           EncodeFlattermarken,          nullptr,                  kDigits,                   1,  90,                  0,  kNoCheck,             254,  {0, 0}},
    {29,  "GS1 DataBar Omnidirectional",         kDataBar,                EncodeDataBar,                RemoveGtinIdentifier,     kDigits,                   13, 14,                  14, kGtinCheck,           330,  {0, 0},               &kDataBarComposite},
    {30,  "GS1 DataBar Limited",                 kLimitedDataBar,         EncodeLimitedDataBar,         NormalizeLimitedGtin,     kDigits,                   13, 14,                  14, kGtinCheck,           330,  {0, 0},               &kLimitedDataBarComposite},
    {31,  "GS1 DataBar Expanded",                kDataBarExpanded,        EncodeExpandedDataBar,        nullptr,                  kDataBarCharacters,        1,  kDataBarLength,      0,  kNoCheck,             250,  {0, 0},               &kExpandedDataBarComposite},
    {32,  "Telepen Alpha",                       kFixedTwoWidthBarcode,   EncodeTelepen,                nullptr,                  kAscii,                    1,  30,                  0,  kTelepenCheck,        254,  {10, 10}},
    {33,  "GS1-128 (UCC-128)",                   kGs1Code128,             EncodeGs1Code128,             nullptr,                  kGs1Characters,            1,  kGs1Length,          0,  kGs1Check,            495,  {10, 10},             &kGs1Code128Composite},
    {34,  "UPC-A",                               kEanUpc,                 EncodeUpcA,                   nullptr,                  kDigits,                   11, 12,                  12, kUpcACheck,           330,  {9, 9},               &kUpcAComposite},
    {35,  "UPC-A + 2",                           kEanUpc,                 EncodeUpcA,                   NormalizeAddOn,           kAddOnDigits,              13, 15,                  14, kUpcAAddOnCheck,      330,  {9, 5},               &kUpcAComposite},
    {36,  "UPC-A + 5",                           kEanUpc,                 EncodeUpcA,                   NormalizeAddOn,           kAddOnDigits,              16, 18,                  17, kUpcAAddOnCheck,      330,  {9, 5},               &kUpcAComposite},
    {37,  "UPC-E",                               kEanUpc,                 EncodeUpcE,                   NormalizeUpcE,            kDigits,                   6,  8,                   8,  kUpcECheck,           330,  {9, 7},               &kUpcEComposite},
    {38,  "UPC-E + 2",                           kEanUpc,                 EncodeUpcE,                   NormalizeUpcE,            kAddOnDigits,              8,  11,                  10, kUpcEAddOnCheck,      330,  {9, 5},               &kUpcEComposite},
    {39,  "UPC-E + 5",                           kEanUpc,                 EncodeUpcE,                   NormalizeUpcE,            kAddOnDigits,              11, 14,                  13, kUpcEAddOnCheck,      330,  {9, 5},               &kUpcEComposite},
    {40,  "POSTNET 5",                           kTwoState,               EncodePostnet,                nullptr,                  kDigits,                   5,  5,                   6,  kPostnetCheck,        577,  {5, 5, 1.6, 1.6}},
    {41,  "POSTNET 6",                           kTwoState,               EncodePostnet,                nullptr,                  kDigits,                   5,  6,                   6,  kPostnetCheck,        577,  {5, 5, 1.6, 1.6}},
    {42,  "POSTNET 9",                           kTwoState,               EncodePostnet,                nullptr,                  kDigits,                   9,  9,                   10, kPostnetCheck,        577,  {5, 5, 1.6, 1.6}},
    {43,  "POSTNET 10",                          kTwoState,               EncodePostnet,                nullptr,                  kDigits,                   9,  10,                  10, kPostnetCheck,        577,  {5, 5, 1.6, 1.6}},
    {44,  "POSTNET 11",                          kTwoState,               EncodePostnet,                nullptr,                  kDigits,                   11, 11,                  12, kPostnetCheck,        577,  {5, 5, 1.6, 1.6}},
    {45,  "POSTNET 12",                          kTwoState,               EncodePostnet,                nullptr,                  kDigits,                   11, 12,                  12, kPostnetCheck,        577,  {5, 5, 1.6, 1.6}},
    {46,  "Plessey (bidirectional)",             kTwoWidthBarcode,        EncodePlessey,                nullptr,                  kHexDigits,                1,  65,                  0,  kPlesseyCheck,        254,  {12, 12}},
    {47,  "MSI",                                 kTwoWidthBarcode,        EncodeMsi,                    nullptr,                  kDigits,                   1,  65,                  0,  kMsiCheck,            254,  {12, 12}},
    {48,  "SSCC-18",                             kLogisticsBarcode,       EncodeSscc18,                 RemoveSsccIdentifier,     kDigits,                   17, 18,                  18, kSsccCheck,           495,  {10, 10},             &kSsccComposite},
    {49,  "FIM",                                 kPlainBarcode,           EncodeFim,                    nullptr,                  kFimCharacters,            1,  1,                   1,  kNoCheck,             794,  {5.3, 3.2}},
    {50,  "LOGMARS",                             kTwoWidthBarcode,        EncodeLogmars,                nullptr,                  kCode39Characters,         1,  30,                  0,  kMod43Check,          254,  {10, 10}},
    {51,  "Pharmacode one-track",                kTwoWidthBars,           EncodePharmacode,             nullptr,                  kDigits,                   1,  6,                   6,  kNoCheck,             500,  {6, 6}},
    {52,  "PZN",                                 kTwoWidthBarcode,        EncodePzn,                    NormalizePzn,             kDigits,                   6,  8,                   8,  kPznCheck,            250,  {10, 10}},
    {53,  "Pharmacode two-track",                kTwoTrack,               EncodeTwoTrackPharmacode,     nullptr,                  kDigits,                   1,  8,                   8,  kNoCheck,             1000, {6, 6}},
    {54,  "CEPNet",                              kTwoState,               EncodeCepNet,                 nullptr,                  kDigits,                   8,  9,                   9,  kPostnetCheck,        577,  {10, 10, 1.6, 1.6}},
    {55,  "PDF417",                              kPdf417,                 EncodePdf417,                 nullptr,                  kAllBytes,                 1,  2710,                0,  kNoCheck,             254,  {2, 2, 2, 2}},
    {56,  "PDF417 Truncated",                    kPdf417,                 EncodeTruncatedPdf417,        nullptr,                  kAllBytes,                 1,  2710,                0,  kNoCheck,             254,  {2, 2, 2, 2}},
    {57,  "MaxiCode",                            kMaxiCode,               EncodeMaxiCode,               nullptr,                  kAllBytes,                 1,  138,                 0,  kNoCheck,             870,  {1, 1, 1, 1}},
    {58,  "QR Code",                             kQrCode,                 EncodeQrCode,                 nullptr,                  kAllBytes,                 1,  7089,                0,  kNoCheck,             330,  {4, 4, 4, 4}},
    {59,  "Code 128 A",                          kCode128Family,          EncodeCode128A,               nullptr,                  kCode128ACharacters,       1,  kCode128Length,      0,  kCode128Check,        254,  {10, 10}},
    {60,  "Code 128 B",                          kCode128Family,          EncodeCode128B,               nullptr,                  kCode128BCharacters,       1,  kCode128Length,      0,  kCode128Check,        254,  {10, 10}},
    {61,  "Code 128 C",                          kFourWidthBarcode,       EncodeCode128C,               nullptr,                  kDigits,                   2,  kCode128Length,      0,  kCode128Check,        254,  {10, 10}},
    {62,  "Code 93 Extended",                    kFourWidthBarcode,       EncodeExtendedCode93,         nullptr,                  kAscii,                    1,  107,                 0,  kCode93Check,         254,  {10, 10}},
    {63,  "Australia Post Standard Customer",    kFourState,              EncodeAustraliaPost,          nullptr,                  kDigits,                   8,  8,                   8,  kNoCheck,             470,  {10, 10, 3.3, 3.3}},
    {64,  "Australia Post Customer 2",           kFourState,              EncodeAustraliaPost2,         NormalizeAustraliaPost,   kAustraliaCharacters,      8,  16,                  16, kNoCheck,             470,  {10, 10, 3.3, 3.3}},
    {65,  "Australia Post Customer 3",           kFourState,              EncodeAustraliaPost3,         NormalizeAustraliaPost,   kAustraliaCharacters,      8,  23,                  23, kNoCheck,             470,  {10, 10, 3.3, 3.3}},
    {66,  "Australia Post Reply Paid",           kFourState,              EncodeAustraliaReply,         nullptr,                  kDigits,                   8,  8,                   8,  kNoCheck,             470,  {10, 10, 3.3, 3.3}},
    {67,  "Australia Post Routing",              kFourState,              EncodeAustraliaRouting,       nullptr,                  kDigits,                   8,  8,                   8,  kNoCheck,             470,  {10, 10, 3.3, 3.3}},
    {68,  "Australia Post Redirection",          kFourState,              EncodeAustraliaRedirection,   nullptr,                  kDigits,                   8,  8,                   8,  kNoCheck,             470,  {10, 10, 3.3, 3.3}},
    {69,  "ISBN",                                kEanUpc,                 EncodeIsbn,                   NormalizeIsbn,            kIsbnCharacters,           9,  19,                  13, kIsbnCheck,           330,  {11, 7},              &kEan13Composite},
    {70,  "Royal Mail 4-State",                  kFourState,              EncodeRoyalMail,              NormalizePostalLetters,   kCapitalsAndDigits,        1,  50,                  0,  kRoyalMailCheck,      577,  {3.1, 3.1, 3.1, 3.1}},
    {71,  "Data Matrix",                         kDataMatrix,             EncodeDataMatrix,             nullptr,                  kAllBytes,                 1,  3116,                0,  kNoCheck,             254,  {1, 1, 1, 1}},
    {72,  "EAN-14",                              kLogisticsBarcode,       EncodeEan14,                  RemoveGtinIdentifier,     kDigits,                   13, 14,                  14, kEan14Check,          495,  {10, 10},             &kEan14Composite},
    {73,  "VIN",                                 kTwoWidthBarcode,        EncodeVin,                    NormalizeVin,             kVinCharacters,            17, 17,                  17, kVinCheck,            254,  {10, 10}},
    {74,  "Codablock-F",                         kCodablockF,             EncodeCodablockF,             nullptr,                  kAllBytes,                 1,  kMaxCodablockLength, 0,  kTwoBuiltIn,          250,  {10, 10}},
    {75,  "NVE-18",                              kLogisticsBarcode,       EncodeSscc18,                 RemoveSsccIdentifier,     kDigits,                   17, 18,                  18, kSsccCheck,           495,  {10, 10},             &kSsccComposite},
    {76,  "Japan Post",                          kFourState,              EncodeJapanPost,              NormalizePostalLetters,   kJapanPostCharacters,      1,  20,                  0,  kJapanPostCheck,      577,  {3.3, 3.3, 3.3, 3.3}},
    {77,  "Korea Post",                          kHiddenPlainBarcode,     EncodeKoreaPost,              nullptr,                  kDigits,                   6,  7,                   7,  kKoreaPostCheck,      423,  {10, 10}},
    {78,  "GS1 DataBar Truncated",               kTruncatedDataBar,       EncodeDataBar,                RemoveGtinIdentifier,     kDigits,                   13, 14,                  14, kGtinCheck,           330,  {0, 0},               &kDataBarComposite},
    {79,  "GS1 DataBar Stacked",                 kStackedDataBar,         EncodeStackedDataBar,         RemoveGtinIdentifier,     kDigits,                   13, 14,                  14, kGtinCheck,           330,  {0, 0},               &kStackedDataBarComposite},
    {80,  "GS1 DataBar Stacked Omnidirectional", kStackedDataBar,         EncodeStackedOmniDataBar,     RemoveGtinIdentifier,     kDigits,                   13, 14,                  14, kGtinCheck,           330,  {0, 0},               &kStackedOmniDataBarComposite},
    {81,  "GS1 DataBar Expanded Stacked",        kStackedDataBarExpanded, EncodeStackedExpandedDataBar, nullptr,                  kDataBarCharacters,        1,  kDataBarLength,      0,  kNoCheck,             250,  {0, 0},               &kStackedExpandedDataBarComposite},
    {82,  "Planet 12",                           kTwoState,               EncodePlanet,                 nullptr,                  kDigits,                   11, 12,                  12, kPostnetCheck,        577,  {5, 5, 1.6, 1.6}},
    {83,  "Planet 14",                           kTwoState,               EncodePlanet,                 nullptr,                  kDigits,                   13, 14,                  14, kPostnetCheck,        577,  {5, 5, 1.6, 1.6}},
    {84,  "MicroPDF417",                         kMicroPdf417,            EncodeMicroPdf417,            nullptr,                  kAllBytes,                 1,  kMicroPdfLength,     0,  kNoCheck,             254,  {1, 1, 1, 1}},
    {85,  "USPS Intelligent Mail",               kFourState,              EncodeIntelligentMail,        NormalizeIntelligentMail, kDigitsAndHyphen,          20, 31,                  31, kNoCheck,             577,  {4.9, 4.9, 1, 1}},
    {86,  "Plessey (UK)",                        kTwoWidthBarcode,        EncodePlessey,                nullptr,                  kHexDigits,                1,  65,                  0,  kPlesseyCheck,        254,  {12, 12}},
    {87,  "Telepen Numeric",                     kFixedTwoWidthBarcode,   EncodeTelepenNumeric,         nullptr,                  kTelepenNumericCharacters, 2,  60,                  0,  kTelepenCheck,        254,  {10, 10}},
    {88,  "GS1-128 (optional check)",            kGs1Code128,             EncodeGs1Code128,             nullptr,                  kGs1Characters,            1,  kGs1Length,          0,  kGs1Check,            495,  {10, 10},             &kGs1Code128Composite},
    {89,  "ITF-14",                              kLogisticsTwoWidth,      EncodeItf14,                  nullptr,                  kDigits,                   13, 14,                  14, kItf14Check,          1016, {10, 10}},
    {90,  "KIX",                                 kFourState,              EncodeKix,                    NormalizePostalLetters,   kCapitalsAndDigits,        1,  18,                  0,  kNoCheck,             577,  {3.1, 3.1, 3.1, 3.1}},
    {91,  "Code 32",                             kTwoWidthBarcode,        EncodeCode32,                 NormalizeCode32,          kDigits,                   8,  9,                   9,  kCode32Check,         250,  {10, 10}},
    {92,  "Aztec Code",                          kAztec,                  EncodeAztec,                  nullptr,                  kAllBytes,                 1,  kAztecLength,        0,  kNoCheck,             330,  {0, 0}},
    {93,  "DAFT",                                kFourState,              EncodeDaft,                   nullptr,                  kDaftCharacters,           1,  100,                 0,  kNoCheck,             577,  {0, 0}},
    {96,  "DPD",                                 kDpdBarcode,             EncodeDpd,                    NormalizeDpd,             kDpdCharacters,            27, 28,                  28, kDpdCheck,            375,  {12.5, 12.5}},
    {97,  "Micro QR Code",                       kMicroQr,                EncodeMicroQrCode,            nullptr,                  kAllBytes,                 1,  35,                  0,  kNoCheck,             330,  {2, 2, 2, 2}},
    {98,  "HIBC LIC Code 128",                   kFourWidthBarcode,       EncodeHibcCode128,            nullptr,                  kCode39Characters,         1,  112,                 0,  kHibc128Check,        254,  {10, 10}},
    {99,  "HIBC LIC Code 39",                    kTwoWidthBarcode,        EncodeHibcCode39,             nullptr,                  kCode39Characters,         1,  69,                  0,  kHibcCheck,           254,  {10, 10}},
    {100, "HIBC PAS Code 128",                   kFourWidthBarcode,       EncodeHibcCode128,            nullptr,                  kCode39Characters,         1,  112,                 0,  kHibc128Check,        254,  {10, 10}},
    {101, "HIBC PAS Code 39",                    kTwoWidthBarcode,        EncodeHibcCode39,             nullptr,                  kCode39Characters,         1,  69,                  0,  kHibcCheck,           254,  {10, 10}},
    {102, "HIBC LIC Data Matrix",                kHibcDataMatrix,         EncodeHibcDataMatrix,         nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           254,  {1, 1, 1, 1}},
    {103, "HIBC PAS Data Matrix",                kHibcDataMatrix,         EncodeHibcDataMatrix,         nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           254,  {1, 1, 1, 1}},
    {104, "HIBC LIC QR Code",                    kHibcQrCode,             EncodeHibcQrCode,             nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           330,  {4, 4, 4, 4}},
    {105, "HIBC PAS QR Code",                    kHibcQrCode,             EncodeHibcQrCode,             nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           330,  {4, 4, 4, 4}},
    {106, "HIBC LIC PDF417",                     kHibcPdf417,             EncodeHibcPdf417,             nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           254,  {2, 2, 2, 2}},
    {107, "HIBC PAS PDF417",                     kHibcPdf417,             EncodeHibcPdf417,             nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           254,  {2, 2, 2, 2}},
    {108, "HIBC LIC MicroPDF417",                kHibcMicroPdf417,        EncodeHibcMicroPdf417,        nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           254,  {1, 1, 1, 1}},
    {109, "HIBC PAS MicroPDF417",                kHibcMicroPdf417,        EncodeHibcMicroPdf417,        nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           254,  {1, 1, 1, 1}},
    {110, "HIBC LIC Codablock-F",                kHibcCodablockF,         EncodeHibcCodablockF,         nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           250,  {10, 10}},
    {111, "HIBC PAS Codablock-F",                kHibcCodablockF,         EncodeHibcCodablockF,         nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           250,  {10, 10}},
    {112, "HIBC LIC Aztec Code",                 kHibcAztec,              EncodeHibcAztec,              nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           330,  {0, 0}},
    {113, "HIBC PAS Aztec Code",                 kHibcAztec,              EncodeHibcAztec,              nullptr,                  kCode39Characters,         1,  112,                 0,  kHibcCheck,           330,  {0, 0}},
    {115, "DotCode",                             kDotCode,                EncodeDotCode,                nullptr,                  kAllBytes,                 1,  1000,                0,  kNoCheck,             330,  {3, 3, 3, 3}},
    {116, "Han Xin",                             kHanXin,                 EncodeHanXin,                 nullptr,                  kAllBytes,                 1,  7827,                0,  kNoCheck,             330,  {3, 3, 3, 3}},
    {119, "Royal Mail 2D Mailmark",              kMailmarkMatrix,         EncodeMailmarkMatrix,         NormalizeMailmarkMatrix,  kAllBytes,                 1,  90,                  0,  kNoCheck,             500,  {1, 1, 1, 1}},
    {120, "UPU S10",                             kLogisticsBarcode,       EncodeUpuS10,                 CheckUpuS10,              kCapitalsAndDigits,        12, 13,                  13, kS10Check,            495,  {10, 10}},
    {121, "Royal Mail 4-state Mailmark",         kFourState,              EncodeMailmark,               NormalizeMailmark,        kMailmarkCharacters,       22, 26,                  0,  kNoCheck,             577,  {3.1, 3.1, 3.1, 3.1}},
    {128, "Aztec Runes",                         kMatrix,                 EncodeAztecRune,              nullptr,                  kDigits,                   1,  3,                   0,  kNoCheck,             330,  {0, 0}},
    {129, "Code 32",                             kTwoWidthBarcode,        EncodeCode32,                 NormalizeCode32,          kDigits,                   8,  9,                   9,  kCode32Check,         250,  {10, 10}},
    {140, "Channel Code",                        kPlainBarcode,           EncodeChannelCode,            nullptr,                  kDigits,                   1,  7,                   0,  kNoCheck,             254,  {1, 2}},
    {141, "Code One",                            kCodeOne,                EncodeCodeOne,                nullptr,                  kAllBytes,                 1,  3550,                0,  kNoCheck,             330,  {0, 0}},
    {142, "Grid Matrix",                         kMatrix,                 nullptr,                      nullptr,                  kAllBytes,                 1,  2751,                0,  kNoCheck,             330,  {6, 6, 6, 6}},
    {143, "UPNQR",                               kMatrix,                 EncodeUpnQr,                  nullptr,                  kAllBytes,                 1,  411,                 0,  kNoCheck,             330,  {4, 4, 4, 4}},
    // Tiles of eight colours; a drawing has one for all bars.
    {144, "Ultracode",                           kMatrix,                 nullptr,                      nullptr,                  kAllBytes,                 1,  504,                 0,  kNoCheck,             330,  {1, 1, 1, 1}},
    {145, "rMQR",                                kRectangularMicroQr,     EncodeRectangularQr,          nullptr,                  kAllBytes,                 1,  361,                 0,  kNoCheck,             330,  {2, 2, 2, 2}},
    {146, "BC412",                               kPlainBarcode,           EncodeBc412,                  nullptr,                  kBc412Characters,          7,  18,                  0,  kOneBuiltIn,          120,  {10, 10}},
    // clang-format on
};

constexpr bool Ordered() {
  for (std::size_t i = 1; i < std::size(kSymbologies); ++i) {
    if (kSymbologies[i - 1].type >= kSymbologies[i].type) return false;
  }
  return true;
}
static_assert(Ordered());

}  // namespace

const Symbology* FindSymbology(int type) {
  const auto found = std::lower_bound(
      std::begin(kSymbologies), std::end(kSymbologies), type,
      [](const Symbology& symbology, int number) { return symbology.type < number; });
  return found != std::end(kSymbologies) && found->type == type ? found : nullptr;
}

}  // namespace Library
