// Reading values from texts: what the option handlers and the print-stream filter share. Nothing
// here depends on the locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Settings {

// Empty, or nothing but "0" and "." characters.
bool TextIsZero(std::string_view text);
// Within 1e-6 of zero, bounds included.
bool NumberIsZero(double number);
// False when `number` is zero because `text`, from which it was read, holds no number.
bool NumberMatchesText(double number, std::string_view text);

// As strtol reads it, base 10; what follows the number is ignored. A number beyond an int gives the
// nearest limit, no number 0.
int TextToInteger(std::string_view text);
// As strtod reads it; what follows the number is ignored. No number, or one that isn't finite
// ("nan", "1e999"), gives 0: nothing behind the settings could place it on a page.
double TextToReal(std::string_view text);

// Truncated toward zero; a number beyond an int gives the nearest limit.
int Truncated(double number);

// a to z become A to Z, in place; returns a copy.
std::string ToUpper(std::string& text);
// Whether the first `count` characters are equal; false when `text` is shorter than that.
bool StartsWith(std::string_view text, std::string_view start, std::size_t count);
// Replaces every occurrence, scanning on behind each replacement. An empty search text has none.
void ReplaceAll(std::string& text, std::string_view search, std::string_view replacement);
// The value of the leading decimal digits, 0 without any; a larger one gives the largest int.
int DecimalPrefix(std::string_view text);
// The bytes that the hexadecimal digits of `text` spell in pairs, other characters skipped; a lone
// last digit is a high one.
std::string HexDigits(std::string_view text);

}  // namespace Settings
