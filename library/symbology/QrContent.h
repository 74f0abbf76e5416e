// What QR Code, Micro QR Code and rMQR Code have in common round their segments.
#pragma once

#include "library/Options.h"
#include "library/symbology/QrBits.h"
#include "library/symbology/QrMessage.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Library {

struct EncoderInput;

// Format of the data, as options have it.
enum QrFormat {
  kQrDefault,
  kQrGs1,       // element strings, FNC1 in first position
  kQrIndustry,  // FNC1 in second position and an application indicator
};

struct QrData {
  QrContent content;
  std::string text;  // for people
};

// Element strings are parsed and verified. Throws Error as ParseElementString does.
QrData QrDataOf(const EncoderInput& input);

// Whether the symbol is to be part of a structured append.
bool IsQrAppended(const QrOptions& options);

// For a symbol that can be neither part of one nor marked by FNC1. Throws Error with
// BC_E_NOTSUPPORTED.
void RefuseQrMarks(const QrOptions& options);

// Mode indicators that stand in front of the segments.
struct QrMarks {
  int bits;
  std::uint32_t eci, fnc1First, fnc1Second;
};

// Nothing for 0. Throws Error with BC_E_INVALIDARG unless the number is 0 or 3 to 999999.
void AppendQrEci(QrBits& bits, int eci, const QrMarks& marks);

// ECI and FNC1 as the options ask for them. Throws Error with BC_E_INVALIDARG, too, for an
// application indicator that is neither two digits nor a letter.
void AppendQrMarks(QrBits& bits, const Options& options, const QrMarks& marks);

// A terminator of `terminatorBits` zeros, or as many as there is room for, and words that stand for
// nothing. REQUIRES: the bits are no more than the words hold.
std::vector<std::uint8_t> QrDataWords(QrBits bits, std::size_t words, int terminatorBits);

}  // namespace Library
