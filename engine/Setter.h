// Handing settings to the barcode library, as tables: a row says when a setting is set, how it is
// handed over and what to report when the library refuses it. The templates below are the usual
// forms of the first two; a row with an unusual one brings a lambda.
#pragma once

#include "diag/ResultCode.h"
#include "engine/Length.h"
#include "engine/library/vextorin9.h"
#include "settings/BarcodeSettings.h"

#include <span>
#include <string>
#include <string_view>

namespace Engine {

struct Setter {
  bool (*isSet)(const Settings::BarcodeSettings& settings);
  BCResult (*call)(Settings::BarcodeSettings& settings, BCBarcode* handle);
  // Written when the call fails; empty when it can't. With a number, the words in front of it.
  std::string_view message = {};
  int Settings::BarcodeSettings::*number = nullptr;
};

// Walks the rows up to the first failure, which it reports and returns.
Diag::ResultCode ApplySetters(std::span<const Setter> setters, Settings::BarcodeSettings& settings,
                              BCBarcode* handle);

// When a setting is set.

inline bool Always(const Settings::BarcodeSettings&) {
  return true;
}

template <auto Field>
bool IsNonZero(const Settings::BarcodeSettings& settings) {
  return settings.*Field != 0;
}
template <auto Field>
bool IsPositive(const Settings::BarcodeSettings& settings) {
  return settings.*Field > 0;
}
template <auto Field>
bool IsNotNegative(const Settings::BarcodeSettings& settings) {
  return settings.*Field >= 0;
}
// Of several fields, at least one.
template <auto... Fields>
bool IsNotMinusOne(const Settings::BarcodeSettings& settings) {
  return (... || (settings.*Fields != -1));
}
template <auto Field>
bool IsNotEmpty(const Settings::BarcodeSettings& settings) {
  return !(settings.*Field).empty();
}
// A length for which 0 is a value and -1 none.
template <auto Field>
bool IsLength(const Settings::BarcodeSettings& settings) {
  return settings.*Field >= -0.5;
}

// How it is handed over: whole numbers, switches and letters as they are, lengths in thousandths of
// a millimetre, texts terminated.

inline int Argument(int value) {
  return value;
}
inline char Argument(char value) {
  return value;
}
inline std::int32_t Argument(double millimetres) {
  return TruncatedThousandths(millimetres);
}
inline const char* Argument(const std::string& text) {
  return text.c_str();
}

template <auto Function, auto... Fields>
BCResult Pass(Settings::BarcodeSettings& settings, BCBarcode* handle) {
  return Function(handle, Argument(settings.*Fields)...);
}
// On exactly when the field is 1.
template <auto Function, auto Field>
BCResult PassSwitch(Settings::BarcodeSettings& settings, BCBarcode* handle) {
  return Function(handle, settings.*Field == 1);
}

}  // namespace Engine
