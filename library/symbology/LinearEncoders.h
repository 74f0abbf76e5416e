// The encoders and normalizers of the linear symbols that are no Code 128 or DataBar, which the
// symbology table names beside those of Encoders.h.
#pragma once

#include "library/symbology/Encoders.h"

namespace Library {

// Retail numbers. Data of the types with an add-on have it behind a plus sign, once normalized.
void EncodeUpcE(const EncoderInput& input, Symbol& symbol);
void EncodeIssn(const EncoderInput& input, Symbol& symbol);
void EncodeIsbn(const EncoderInput& input, Symbol& symbol);
void NormalizeAddOn(Data& data, const Options& options);
void NormalizeUpcE(Data& data, const Options& options);  // without an add-on and with one
void NormalizeIssn(Data& data, const Options& options);
void NormalizeIsbn(Data& data, const Options& options);

void EncodeStandard2Of5(const EncoderInput& input, Symbol& symbol);  // as Matrix 2 of 5
void EncodeIata2Of5(const EncoderInput& input, Symbol& symbol);
void EncodeDataLogic2Of5(const EncoderInput& input, Symbol& symbol);
void EncodeIndustrial2Of5(const EncoderInput& input, Symbol& symbol);
void EncodeLeitcode(const EncoderInput& input, Symbol& symbol);
void EncodeIdentcode(const EncoderInput& input, Symbol& symbol);
void EncodeItf14(const EncoderInput& input, Symbol& symbol);

void EncodeExtendedCode39(const EncoderInput& input, Symbol& symbol);
void EncodeLogmars(const EncoderInput& input, Symbol& symbol);
void EncodeVin(const EncoderInput& input, Symbol& symbol);
void NormalizeVin(Data& data, const Options& options);
void EncodePzn(const EncoderInput& input, Symbol& symbol);
void NormalizePzn(Data& data, const Options& options);
void EncodeCode32(const EncoderInput& input, Symbol& symbol);
void NormalizeCode32(Data& data, const Options& options);

void EncodeCode93(const EncoderInput& input, Symbol& symbol);
void EncodeExtendedCode93(const EncoderInput& input, Symbol& symbol);

void EncodeCode11(const EncoderInput& input, Symbol& symbol);
void EncodeCodabar(const EncoderInput& input, Symbol& symbol);
void NormalizeCodabar(Data& data, const Options& options);
void EncodeTelepen(const EncoderInput& input, Symbol& symbol);
void EncodeTelepenNumeric(const EncoderInput& input, Symbol& symbol);
void EncodePlessey(const EncoderInput& input, Symbol& symbol);
void EncodeMsi(const EncoderInput& input, Symbol& symbol);

void EncodeFlattermarken(const EncoderInput& input, Symbol& symbol);
void EncodePharmacode(const EncoderInput& input, Symbol& symbol);
void EncodeFim(const EncoderInput& input, Symbol& symbol);

void EncodeKoreaPost(const EncoderInput& input, Symbol& symbol);
void EncodeChannelCode(const EncoderInput& input, Symbol& symbol);
void EncodeBc412(const EncoderInput& input, Symbol& symbol);

}  // namespace Library
