#include "library/prepare/FormatString.h"

#include "library/Error.h"

namespace Library {
namespace {

DataCharacter Added(int value) {
  return {static_cast<std::uint16_t>(value), -1};
}

}  // namespace

Data ApplyFormat(const Data& data, std::string_view format, bool codeSets, int dataLength) {
  Data result;
  result.reserve(data.size() + format.size());
  auto next = data.begin();
  for (std::size_t at = 0; at < format.size(); ++at) {
    const char sign = format[at];
    if (sign == '#') {
      if (next == data.end()) throw Error(BC_E_INVALIDDATA, DataIndex(dataLength));
      result.push_back(*next++);
    } else if (sign == '&') {
      result.insert(result.end(), next, data.end());
      next = data.end();
    } else if (sign == '^') {
      result.push_back(Added(kCheckDigitPlace));
    } else if (codeSets && sign >= 'A' && sign <= 'C') {
      result.push_back(Added(kCodeSetA + sign - 'A'));
    } else {
      if (sign == '\\' && at + 1 < format.size()) ++at;
      result.push_back(Added(static_cast<unsigned char>(format[at])));
    }
  }
  return result;
}

}  // namespace Library
