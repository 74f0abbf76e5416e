#include "library/prepare/Hibc.h"

#include "library/Error.h"
#include "library/prepare/CheckDigits.h"

#include <cstddef>

namespace Library {
namespace {

constexpr int kMod43 = 3;  // check method
constexpr std::size_t kShortestMessage = 3;

std::uint16_t CheckCharacter(const Data& message) {
  return static_cast<unsigned char>(ComputeCheckDigits(kMod43, Bytes(message)).front());
}

bool EndsInItsCheckCharacter(const Data& message) {
  return message.size() >= kShortestMessage &&
         CheckCharacter({message.begin(), message.end() - 1}) == message.back().value;
}

}  // namespace

HibcMessage CompleteHibc(Data data, int longest) {
  const bool marked = !data.empty() && data.front().value == '+';
  if (!marked) data.insert(data.begin(), {'+', -1});
  if (data.size() < kShortestMessage - 1) throw Error(BC_E_INVALIDDATA);
  if (!marked || !EndsInItsCheckCharacter(data)) data.push_back({CheckCharacter(data), -1});
  if (data.size() > static_cast<std::size_t>(longest)) throw Error(BC_E_DATATOOLONG);

  HibcMessage message{std::move(data), {}, {}};
  message.text = Bytes(message.data);
  message.check = message.text.back();
  if (message.check == " ") message.text.back() = '_';
  message.text = "*" + message.text + "*";
  return message;
}

}  // namespace Library
