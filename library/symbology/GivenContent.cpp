#include "library/symbology/Encoders.h"

#include <utility>

namespace Library {

ElementString GivenContent(const EncoderInput& input) {
  if (!TakesGs1(input.symbology, input.options)) return {input.data, PrintableText(input.data)};
  return ParseElementString(input.data, input.options.autoCorrect > 0);
}

}  // namespace Library
