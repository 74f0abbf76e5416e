#include "library/prepare/Hibc.h"

#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <utility>

namespace Library {

void EncodeHibc(const EncoderInput& input, Encoder carrier, Symbol& symbol) {
  HibcMessage message = CompleteHibc(input.data, input.symbology.maxLength);
  carrier({input.options, input.symbology, message.data, input.given}, symbol);
  symbol.texts.clear();
  SetTextLine(symbol, std::move(message.text));
  symbol.checkDigits = std::move(message.check);
}

void EncodeHibcPdf417(const EncoderInput& input, Symbol& symbol) {
  EncodeHibc(input, EncodePdf417, symbol);
}

void EncodeHibcMicroPdf417(const EncoderInput& input, Symbol& symbol) {
  EncodeHibc(input, EncodeMicroPdf417, symbol);
}

}  // namespace Library
