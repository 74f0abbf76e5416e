#include "library/symbology/Encoders.h"
#include "library/symbology/Linear.h"

#include <utility>

namespace Library {

HibcMessage HibcContent(const EncoderInput& input) {
  if (input.options.placeInMessage.count > 1) return {input.data, {}, PrintableText(input.data)};
  return CompleteHibc(input.data, input.symbology.maxLength);
}

void EncodeHibc(const EncoderInput& input, Encoder carrier, Symbol& symbol) {
  HibcMessage message = HibcContent(input);
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
