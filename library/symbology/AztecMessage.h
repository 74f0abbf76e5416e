// The data of an Aztec symbol as a sequence of bits, and that as words: the high-level encoding of
// ISO/IEC 24778 and its bit stuffing.
#pragma once

#include <cstdint>
#include <vector>

namespace Library {

enum class AztecMode : std::uint8_t { kUpper, kLower, kMixed, kPunct, kDigit };

// Stands for an ECI number among the characters.
inline constexpr std::uint16_t kAztecInterpretation = 0x200;

// What a message is made of, in its order: header, then data.
struct AztecContent {
  bool append = false;                    // begins with the mark of structured append
  std::vector<std::uint16_t> characters;  // bytes, kFnc1 and kAztecInterpretation
  int eci = 0;                            // the number that the last stands for
  std::size_t header = 0;                 // of the characters, those in front of the data
  bool binary = false;                    // the bytes of the data in binary shifts only
};

// Bits, those that come last in the lowest ones of the value.
struct AztecCode {
  int bits = 0;
  std::uint32_t value = 0;

  // More than 32 bits lose those that come first.
  constexpr AztecCode then(const AztecCode& next) const {
    return {bits + next.bits, value << next.bits | next.value};
  }
};

class AztecMessage {
 public:
  using Words = std::vector<std::uint16_t>;

  // As few bits as possible. A `choice` from 1 to 31 may take another message of as many, or of a
  // few more, which bit stuffing then makes longer or shorter.
  explicit AztecMessage(const AztecContent& content, unsigned choice = 0);
  static constexpr unsigned kChoices = 32;

  int bitCount() const { return bits; }
  // The fewest bits that any message of so many characters takes.
  static std::size_t leastBits(std::size_t characters) { return characters * 5 / 2; }

  // As words of 6, 8, 10 or 12 bits, none of which is all zeros or all ones. The last is filled up
  // with latches, and ones where there is no room for another: ones alone are a binary shift to a
  // reader, and some then read check words as bytes.
  Words words(int wordBits) const;

 private:
  std::vector<AztecCode> codes;
  int bits = 0;                        // of all of them
  AztecMode last = AztecMode::kUpper;  // at the end
};

}  // namespace Library
