// The encoders that the symbology table names.
#pragma once

#include "library/Options.h"
#include "library/prepare/Gs1.h"
#include "library/prepare/Hibc.h"
#include "library/prepare/PreparedData.h"
#include "library/symbology/Symbology.h"

namespace Library {

struct EncoderInput {
  const Options& options;
  const Symbology& symbology;
  const Data& data;   // of the symbology's characters and length, check digits included
  const Data& given;  // before the normalizer, empty where the symbology has none
};

void EncodeCode128(const EncoderInput& input, Symbol& symbol);
void EncodeGs1Code128(const EncoderInput& input, Symbol& symbol);
void EncodeCode128A(const EncoderInput& input, Symbol& symbol);
void EncodeCode128B(const EncoderInput& input, Symbol& symbol);
void EncodeCode128C(const EncoderInput& input, Symbol& symbol);
void EncodeSscc18(const EncoderInput& input, Symbol& symbol);
void EncodeEan14(const EncoderInput& input, Symbol& symbol);
void EncodeDpd(const EncoderInput& input, Symbol& symbol);
void EncodeUpuS10(const EncoderInput& input, Symbol& symbol);
void EncodeHibcCode128(const EncoderInput& input, Symbol& symbol);
void EncodeCode16K(const EncoderInput& input, Symbol& symbol);
void EncodeCodablockF(const EncoderInput& input, Symbol& symbol);
void EncodeHibcCodablockF(const EncoderInput& input, Symbol& symbol);
void EncodeHibcCode39(const EncoderInput& input, Symbol& symbol);
void EncodeCode39(const EncoderInput& input, Symbol& symbol);
void EncodeInterleaved2Of5(const EncoderInput& input, Symbol& symbol);
void EncodeEan8(const EncoderInput& input, Symbol& symbol);
void EncodeEan13(const EncoderInput& input, Symbol& symbol);
void EncodeUpcA(const EncoderInput& input, Symbol& symbol);
void EncodePdf417(const EncoderInput& input, Symbol& symbol);
void EncodeTruncatedPdf417(const EncoderInput& input, Symbol& symbol);
void EncodeMicroPdf417(const EncoderInput& input, Symbol& symbol);
void EncodeHibcPdf417(const EncoderInput& input, Symbol& symbol);
void EncodeHibcMicroPdf417(const EncoderInput& input, Symbol& symbol);
void EncodeQrCode(const EncoderInput& input, Symbol& symbol);
void EncodeHibcQrCode(const EncoderInput& input, Symbol& symbol);
void EncodeUpnQr(const EncoderInput& input, Symbol& symbol);
void EncodeMicroQrCode(const EncoderInput& input, Symbol& symbol);
void EncodeRectangularQr(const EncoderInput& input, Symbol& symbol);
void EncodeDataMatrix(const EncoderInput& input, Symbol& symbol);
void EncodeAztec(const EncoderInput& input, Symbol& symbol);
void EncodeDataBar(const EncoderInput& input, Symbol& symbol);
void EncodeLimitedDataBar(const EncoderInput& input, Symbol& symbol);
void EncodeStackedDataBar(const EncoderInput& input, Symbol& symbol);
void EncodeStackedOmniDataBar(const EncoderInput& input, Symbol& symbol);
void EncodeExpandedDataBar(const EncoderInput& input, Symbol& symbol);
void EncodeStackedExpandedDataBar(const EncoderInput& input, Symbol& symbol);
void EncodeHibcAztec(const EncoderInput& input, Symbol& symbol);
void EncodeAztecRune(const EncoderInput& input, Symbol& symbol);
void EncodeHibcDataMatrix(const EncoderInput& input, Symbol& symbol);
void EncodeMailmarkMatrix(const EncoderInput& input, Symbol& symbol);
void EncodeMaxiCode(const EncoderInput& input, Symbol& symbol);
void EncodeCode49(const EncoderInput& input, Symbol& symbol);
void EncodePostnet(const EncoderInput& input, Symbol& symbol);
void EncodePlanet(const EncoderInput& input, Symbol& symbol);
void EncodeCepNet(const EncoderInput& input, Symbol& symbol);
void EncodeTwoTrackPharmacode(const EncoderInput& input, Symbol& symbol);
void EncodeAustraliaPost(const EncoderInput& input, Symbol& symbol);
void EncodeAustraliaPost2(const EncoderInput& input, Symbol& symbol);
void EncodeAustraliaPost3(const EncoderInput& input, Symbol& symbol);
void EncodeAustraliaReply(const EncoderInput& input, Symbol& symbol);
void EncodeAustraliaRouting(const EncoderInput& input, Symbol& symbol);
void EncodeAustraliaRedirection(const EncoderInput& input, Symbol& symbol);
void EncodeRoyalMail(const EncoderInput& input, Symbol& symbol);
void EncodeJapanPost(const EncoderInput& input, Symbol& symbol);
void EncodeIntelligentMail(const EncoderInput& input, Symbol& symbol);
void EncodeKix(const EncoderInput& input, Symbol& symbol);
void EncodeMailmark(const EncoderInput& input, Symbol& symbol);
void EncodeDaft(const EncoderInput& input, Symbol& symbol);
void EncodeDotCode(const EncoderInput& input, Symbol& symbol);
void EncodeHanXin(const EncoderInput& input, Symbol& symbol);
void EncodeCodeOne(const EncoderInput& input, Symbol& symbol);

// What the symbol holds and what it shows: element strings, parsed, where the options ask for them,
// else the data as they are.
ElementString GivenContent(const EncoderInput& input);

// The message of a HIBC symbol; in a structured append the part of it that was given.
HibcMessage HibcContent(const EncoderInput& input);

// What a HIBC symbol holds, drawn by the encoder of the symbology that carries it.
void EncodeHibc(const EncoderInput& input, Encoder carrier, Symbol& symbol);

}  // namespace Library
