#include "library/symbology/DataMatrixSchemes.h"

#include "library/prepare/PreparedData.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Library {
namespace {

using Scheme = DataMatrixScheme;
using Words = std::vector<std::uint16_t>;

constexpr std::uint16_t kPad = 129, kDigitPair = 130, kFunction1 = 232, kUpperShift = 235;
constexpr std::uint16_t kLatches[] = {0, 230, 239, 238, 240, 231};  // by scheme
constexpr std::uint16_t kUnlatch = 254;                             // C40, Text, X12
constexpr std::uint8_t kEdifactUnlatch = 31;
constexpr std::uint8_t kShift1 = 0, kShift2 = 1, kShift3 = 2;
constexpr std::uint8_t kFunction1Value = 27, kUpperShiftValue = 30;  // behind shift 2

// Values of one character in C40, Text or X12.
struct Values {
  std::uint8_t count = 0;
  std::array<std::uint8_t, 4> values{};

  constexpr void add(int value) { values[count++] = static_cast<std::uint8_t>(value); }
};
using ValueTable = std::array<Values, kFnc1 + 1>;

constexpr bool IsIn(int character, char first, char last) {
  return character >= first && character <= last;
}

// Text is C40 with capitals and small letters changed for each other.
constexpr Values ValuesOf(int character, bool text) {
  Values values;
  if (character == kFnc1) {
    values.add(kShift2), values.add(kFunction1Value);
    return values;
  }
  if (character >= 128) {
    values.add(kShift2), values.add(kUpperShiftValue);
    character -= 128;
  }
  const char basic = text ? 'a' : 'A', other = text ? 'A' : 'a';
  if (character == ' ') {
    values.add(3);
  } else if (IsIn(character, '0', '9')) {
    values.add(character - '0' + 4);
  } else if (IsIn(character, basic, static_cast<char>(basic + 25))) {
    values.add(character - basic + 14);
  } else if (character < ' ') {
    values.add(kShift1), values.add(character);
  } else if (IsIn(character, '!', '/')) {
    values.add(kShift2), values.add(character - '!');
  } else if (IsIn(character, ':', '@')) {
    values.add(kShift2), values.add(character - ':' + 15);
  } else if (IsIn(character, '[', '_')) {
    values.add(kShift2), values.add(character - '[' + 22);
  } else if (IsIn(character, other, static_cast<char>(other + 25))) {
    values.add(kShift3), values.add(character - other + 1);
  } else {
    values.add(kShift3), values.add(character == '`' ? 0 : character - '{' + 27);
  }
  return values;
}

constexpr Values X12ValuesOf(int character) {
  constexpr std::string_view kMarks = "\r*> ";
  Values values;
  if (IsIn(character, '0', '9')) values.add(character - '0' + 4);
  if (IsIn(character, 'A', 'Z')) values.add(character - 'A' + 14);
  for (std::size_t i = 0; i < kMarks.size(); ++i) {
    if (character == kMarks[i]) values.add(static_cast<int>(i));
  }
  return values;
}

constexpr ValueTable MakeTable(Values (*values)(int character)) {
  ValueTable table{};
  for (int character = 0; character <= kFnc1; ++character) {
    table[static_cast<std::size_t>(character)] = values(character);
  }
  return table;
}
constexpr ValueTable kC40Values = MakeTable([](int c) { return ValuesOf(c, false); });
constexpr ValueTable kTextValues = MakeTable([](int c) { return ValuesOf(c, true); });
constexpr ValueTable kX12Values = MakeTable(X12ValuesOf);

const Values& ValuesIn(Scheme scheme, std::uint16_t character) {
  const ValueTable& table = scheme == Scheme::kC40    ? kC40Values
                            : scheme == Scheme::kText ? kTextValues
                                                      : kX12Values;
  return table[character];
}

bool IsDigit(std::uint16_t character) {
  return character >= '0' && character <= '9';
}

class Writer {
 public:
  Writer(const DataMatrixContent& message, std::size_t room)
      : characters(message.characters), capacity(room) {
    words.reserve(capacity);
    words.assign(message.header.begin(), message.header.end());
  }

  // `open`: the symbol ends with the run, or what follows needs no change to ASCII.
  void run(Scheme scheme, std::size_t first, std::size_t last, bool open) {
    if (scheme != Scheme::kAscii) words.push_back(kLatches[static_cast<std::size_t>(scheme)]);
    switch (scheme) {
      case Scheme::kAscii:
        return ascii(first, last);
      case Scheme::kEdifact:
        return edifact(first, last, open);
      case Scheme::kBase256:
        return base256(first, last, open);
      default:
        return triples(scheme, first, last, open);
    }
  }

  Words padded() && {
    if (words.size() < capacity) words.push_back(kPad);
    while (words.size() < capacity) {
      const unsigned sum = kPad + disguise(253);
      words.push_back(static_cast<std::uint16_t>(sum <= 254 ? sum : sum - 254));
    }
    return std::move(words);
  }

 private:
  // What is added to the next word, by its place, so that no pattern shows.
  unsigned disguise(unsigned modulus) const {
    return 149 * static_cast<unsigned>(words.size() + 1) % modulus + 1;
  }

  void ascii(std::size_t first, std::size_t last) {
    for (std::size_t i = first; i < last; ++i) {
      const std::uint16_t character = characters[i];
      if (i + 1 < last && IsDigit(character) && IsDigit(characters[i + 1])) {
        const int pair = (character - '0') * 10 + characters[i + 1] - '0';
        words.push_back(static_cast<std::uint16_t>(kDigitPair + pair));
        ++i;
      } else if (character == kFnc1) {
        words.push_back(kFunction1);
      } else {
        if (character >= 128) words.push_back(kUpperShift);
        words.push_back(static_cast<std::uint16_t>(character % 128 + 1));
      }
    }
  }

  void triples(Scheme scheme, std::size_t first, std::size_t last, bool open) {
    AppendDataMatrixTriples(scheme, {characters.data() + first, last - first}, words);
    if (!open) words.push_back(kUnlatch);
  }

  void edifact(std::size_t first, std::size_t last, bool open) {
    std::vector<std::uint8_t> values;
    for (std::size_t i = first; i < last; ++i) values.push_back(characters[i] & 63);
    if (!open) values.push_back(kEdifactUnlatch);
    std::uint32_t bits = 0;
    int count = 0;
    for (const std::uint8_t value : values) {
      bits = bits << 6 | value;
      for (count += 6; count >= 8; count -= 8) words.push_back(bits >> (count - 8) & 255);
    }
    if (count > 0) words.push_back(bits << (8 - count) & 255);
  }

  void base256(std::size_t first, std::size_t last, bool open) {
    constexpr std::size_t kUnit = 250;
    const std::size_t length = last - first;
    const auto add = [this](std::size_t byte) {
      words.push_back(static_cast<std::uint16_t>((byte + disguise(255)) & 255));
    };
    if (open) {
      add(0);
    } else if (length <= kDataMatrixShortRun) {
      add(length);
    } else {
      add(length / kUnit + kDataMatrixShortRun);
      add(length % kUnit);
    }
    for (std::size_t i = first; i < last; ++i) add(characters[i]);
  }

  const std::vector<std::uint16_t>& characters;
  const std::size_t capacity;
  Words words;
};

}  // namespace

int DataMatrixValueCount(Scheme scheme, std::uint16_t character) {
  if (scheme == Scheme::kEdifact) return character >= ' ' && character <= '^' ? 1 : 0;
  return ValuesIn(scheme, character).count;
}

void AppendDataMatrixTriples(Scheme scheme, std::span<const std::uint16_t> characters,
                             Words& words) {
  std::vector<std::uint8_t> values;
  for (const std::uint16_t character : characters) {
    const Values& added = ValuesIn(scheme, character);
    values.insert(values.end(), added.values.begin(), added.values.begin() + added.count);
  }
  if (values.size() % 3 == 2) values.push_back(kShift1);  // stands for nothing at the end
  for (std::size_t i = 0; i + 2 < values.size(); i += 3) {
    const int packed = 1600 * values[i] + 40 * values[i + 1] + values[i + 2] + 1;
    words.push_back(static_cast<std::uint16_t>(packed / 256));
    words.push_back(static_cast<std::uint16_t>(packed % 256));
  }
}

std::size_t DataMatrixAsciiWords(const std::vector<std::uint16_t>& characters, std::size_t first) {
  std::size_t count = 0;
  for (std::size_t i = first; i < characters.size(); ++i, ++count) {
    const bool pair =
        i + 1 < characters.size() && IsDigit(characters[i]) && IsDigit(characters[i + 1]);
    if (pair) ++i;
    if (characters[i] >= 128 && characters[i] < 256) ++count;
  }
  return count;
}

Words WriteDataMatrix(const DataMatrixContent& content, const std::vector<Scheme>& schemes,
                      const DataMatrixTail& tail, std::size_t capacity) {
  Writer writer(content, capacity);
  for (std::size_t first = 0; first < schemes.size();) {
    std::size_t last = first;
    while (last < schemes.size() && schemes[last] == schemes[first] &&
           (last != tail.place || last == first)) {
      ++last;
    }
    writer.run(schemes[first], first, last, tail.open && last == tail.place);
    first = last;
  }
  return std::move(writer).padded();
}

}  // namespace Library
