// The parts that setters are made of: Set(handle, member, value, check). A check turns the value
// given into the value to store, or throws; so a rejected value changes nothing. A change of what
// is encoded takes back BCCreate, for the symbol no longer shows what the object holds; a change of
// layout does not, for the symbol is laid out anew for every output.
#pragma once

#include "library/Limits.h"
#include "library/api/Barcode.h"

#include <cmath>
#include <cstring>
#include <string>

namespace Library {

[[noreturn]] inline void Reject() {
  throw Error(BC_E_INVALIDARG);
}

// Checks. Each is called with the value and the default of the member it goes to.

struct InRange {
  double low, high;
  template <class Value>
  Value operator()(Value value, Value) const {
    if (!(value >= low && value <= high)) Reject();  // NaN is in no range
    return value;
  }
};

// -1 gives the default.
struct InRangeOrDefault {
  double low, high;
  template <class Value>
  Value operator()(Value value, Value standard) const {
    return value == -1 ? standard : InRange{low, high}(value, standard);
  }
};

struct TextOfAtMost {
  std::size_t longest;
  std::string operator()(const char* text, const std::string&) const {
    if (!text || strnlen(text, longest + 1) > longest) Reject();
    return text;
  }
};

constexpr TextOfAtMost kText{kMaxTextBytes};

struct Switch {
  template <class Value>
  Value operator()(int on, Value) const {
    return static_cast<Value>(on != 0);
  }
};

constexpr double kMaxLength = 1e8;  // 1/1000 mm: 100 m
constexpr InRangeOrDefault kLength{0, kMaxLength};

// Changes the options and forgets the symbols.
template <class Change>
BCResult Apply(BCBarcode* handle, Change&& change) noexcept {
  return Guarded(handle, [&](BCBarcode& barcode) {
    change(barcode.options);
    barcode.symbol.reset();
    barcode.grid.reset();
    barcode.kept.reset();
  });
}

// Changes the layout alone.
template <class Change>
BCResult Arrange(BCBarcode* handle, Change&& change) noexcept {
  return Guarded(handle, [&](BCBarcode& barcode) {
    LayoutOptions& layout = barcode.options;
    barcode.kept.reset();
    change(layout);
  });
}

// Options as a new object has them.
template <class Group>
const Group& Standard() {
  static const Group standard;
  return standard;
}

template <class Member, class Value, class Check>
BCResult Set(BCBarcode* handle, Member LayoutOptions::*member, Value value, Check check) noexcept {
  return Arrange(handle, [&](LayoutOptions& layout) {
    layout.*member = check(value, Standard<LayoutOptions>().*member);
  });
}

template <class Member, class Value, class Check>
BCResult Set(BCBarcode* handle, Member Options::*member, Value value, Check check) noexcept {
  return Apply(handle, [&](Options& options) {
    options.*member = check(value, Standard<Options>().*member);
  });
}

template <class Group, class Member, class Value, class Check>
BCResult Set(BCBarcode* handle, Group Options::*group, Member Group::*member, Value value,
             Check check) noexcept {
  return Apply(handle, [&](Options& options) {
    options.*group.*member = check(value, Standard<Group>().*member);
  });
}

}  // namespace Library
