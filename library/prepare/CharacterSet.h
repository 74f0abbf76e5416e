// Which of the 256 byte values a symbology can hold.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace Library {

class CharacterSet {
 public:
  // Every byte from `first` to `last`.
  static constexpr CharacterSet Range(int first, int last) {
    CharacterSet set;
    for (int byte = first; byte <= last; ++byte) set.add(byte);
    return set;
  }
  static constexpr CharacterSet Of(std::string_view characters) {
    CharacterSet set;
    for (const char character : characters) set.add(static_cast<unsigned char>(character));
    return set;
  }
  constexpr CharacterSet operator|(const CharacterSet& other) const {
    CharacterSet set;
    for (std::size_t i = 0; i < words.size(); ++i) set.words[i] = words[i] | other.words[i];
    return set;
  }
  constexpr bool contains(int byte) const {
    return byte >= 0 && byte < 256 && ((words[Word(byte)] >> (byte & 63)) & 1) != 0;
  }
  constexpr bool operator==(const CharacterSet& other) const = default;

 private:
  static constexpr std::size_t Word(int byte) { return static_cast<std::size_t>(byte) >> 6; }
  constexpr void add(int byte) { words[Word(byte)] |= std::uint64_t{1} << (byte & 63); }

  std::array<std::uint64_t, 4> words{};
};

inline constexpr CharacterSet kAllBytes = CharacterSet::Range(0, 255);
inline constexpr CharacterSet kDigits = CharacterSet::Range('0', '9');
inline constexpr CharacterSet kCode39Characters =
    kDigits | CharacterSet::Range('A', 'Z') | CharacterSet::Of("-. $/+%");
inline constexpr CharacterSet kDigitsAndHyphen = kDigits | CharacterSet::Of("-");
inline constexpr CharacterSet kCodabarCharacters = kDigits | CharacterSet::Of("-$:/.+ABCD");
// Letters that can't be taken for digits.
inline constexpr CharacterSet kVinCharacters =
    kDigits | CharacterSet::Of("ABCDEFGHJKLMNPRSTUVWXYZ");
// The 82 characters of GS1 element strings (GS1 General Specifications, ISO/IEC 646 subset).
inline constexpr CharacterSet kGs1Characters = kDigits | CharacterSet::Range('A', 'Z') |
                                               CharacterSet::Range('a', 'z') |
                                               CharacterSet::Of("!\"%&'()*+,-./:;<=>?_");

}  // namespace Library
