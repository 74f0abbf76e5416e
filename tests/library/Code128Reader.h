// Code 128 from the reader's side: what a sequence of symbol characters means.
#pragma once

#include "library/prepare/PreparedData.h"
#include "library/symbology/Code128.h"
#include "library/symbology/Symbol.h"

#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Code128Reader {

// A reader between two symbol characters (ISO/IEC 15417 4.3.4).
struct Reader {
  char set = 'A';
  bool latched = false, pending = false, shifted = false;

  static constexpr std::size_t kStates = 24;
  std::size_t number() const {
    return static_cast<std::size_t>((set - 'A') * 8 + latched * 4 + pending * 2 + shifted);
  }

  // What `value` transmits, FNC1 to FNC3 as the values from kFnc1; none where it makes no sense.
  std::optional<std::vector<int>> read(int value) {
    if (value == 102) return std::vector<int>{Library::kFnc1};
    if (set == 'C') {
      if (value < 100) return digits(value);
      set = value == 100 ? 'B' : 'A';
      return pending ? std::nullopt : std::optional(std::vector<int>{});
    }
    if (value < 96) return std::vector<int>{character(value)};
    if (shifted) return std::nullopt;
    if (value == 97) return std::vector<int>{Library::kFnc2};
    if (value == 96) return std::vector<int>{Library::kFnc3};
    control(value);
    return std::vector<int>{};
  }

 private:
  std::optional<std::vector<int>> digits(int value) const {
    if (latched || pending) return std::nullopt;
    return std::vector<int>{'0' + value / 10, '0' + value % 10};
  }

  int character(int value) {
    const char used = shifted ? (set == 'A' ? 'B' : 'A') : set;
    const int base = used == 'A' && value >= 64 ? value - 64 : value + 32;
    const int high = latched != pending ? 128 : 0;
    pending = shifted = false;
    return base + high;
  }

  void control(int value) {
    if (value == 98) {
      shifted = true;
    } else if (value == 99) {
      set = 'C';
    } else if ((value == 100) == (set == 'A')) {
      set = value == 100 ? 'B' : 'A';
    } else if (pending) {
      latched = !latched;
      pending = false;
    } else {
      pending = true;
    }
  }
};

inline std::optional<std::vector<int>> Decode(const std::vector<std::uint8_t>& values) {
  Reader reader{static_cast<char>('A' + values.front() - 103)};
  std::vector<int> result;
  for (std::size_t i = 1; i < values.size(); ++i) {
    const auto read = reader.read(values[i]);
    if (!read) return std::nullopt;
    result.insert(result.end(), read->begin(), read->end());
  }
  return result;
}

// The values of `count` symbol characters from run `first` on. Throws where six runs are none.
inline std::vector<int> ValuesAt(const std::vector<int>& runs, std::size_t first,
                                 std::size_t count) {
  static const auto kValues = [] {
    std::map<std::string, int> values;
    for (int value = 0; value < Library::kCode128Stop; ++value)
      values[std::string(Library::Code128Pattern(value))] = value;
    values["211133"] = Library::kCode128Stop;  // of Code 16K
    return values;
  }();
  std::vector<int> values;
  for (std::size_t i = 0; i < count; ++i) {
    std::string widths;
    for (std::size_t k = 0; k < 6; ++k)
      widths += static_cast<char>('0' + runs.at(first + 6 * i + k));
    values.push_back(kValues.at(widths));
  }
  return values;
}

}  // namespace Code128Reader
