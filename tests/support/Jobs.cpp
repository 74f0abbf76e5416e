#include "tests/support/Jobs.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace Support {
namespace {

constexpr std::string_view kOpener = "\n\n% BEGIN OF BARCODE\ngsave\n";
constexpr std::string_view kCloser = "grestore\n% END OF BARCODE\n\n";
constexpr std::string_view kProlog =
    "/BeginBarcodeEPSF { %def               % Prepare for EPS file\n"
    "  /b4_Inc_state save def               % Save state for cleanup\n"
    "  /dict_count countdictstack def\n"
    "  /op_count count 1 sub def            % Count objects on op stack\n"
    "  userdict begin                       % Make userdict currend dict\n"
    "  /showpage { } def                    % Redefine showpage to be null\n"
    "  0 setgray 0 setlinecap\n"
    "  1 setlinewidth 0 setlinejoin\n"
    "  10 setmiterlimit [ ] 0 setdash newpath\n"
    "  /languagelevel where                 % If level not equal to 1 then\n"
    "    {pop languagelevel                 % set strokeadjust and\n"
    "    1 ne                               % overprint to their defaults\n"
    "    {false setstrokeadjust false setoverprint\n"
    "    } if\n"
    "  } if\n"
    "} bind def/EndBarcodeEPSF { %def\n"
    "  count op_count sub {pop} repeat\n"
    "% Clean up dict stack\n"
    "  countdictstack dict_count sub {end} repeat\n"
    "  b4_Inc_state restore\n"
    "} bind def\n"
    "\n"
    "BeginBarcodeEPSF\n"
    "\n";
static_assert(kProlog.size() == 911);

// Up to four bytes as base 85 digits; a short group has one digit more than bytes.
std::string Group(std::string_view bytes) {
  std::uint32_t value = 0;
  for (std::size_t place = 0; place < 4; ++place) {
    value = value << 8 | (place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0u);
  }
  if (bytes.size() == 4 && value == 0) return "z";
  std::string digits(5, '!');
  for (int place = 4; place >= 0; --place, value /= 85) {
    digits[static_cast<std::size_t>(place)] = static_cast<char>('!' + value % 85);
  }
  return digits.substr(0, bytes.size() + 1);
}

}  // namespace

std::string HexString(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string hex = "<";
  for (const char c : text) {
    hex += kDigits[static_cast<unsigned char>(c) >> 4];
    hex += kDigits[static_cast<unsigned char>(c) & 15];
  }
  return hex + '>';
}

std::string Ascii85String(std::string_view text) {
  std::string encoded = "<~";
  for (; !text.empty(); text.remove_prefix(std::min<std::size_t>(4, text.size()))) {
    encoded += Group(text.substr(0, 4));
  }
  return encoded + "~>";
}

std::string Wrapped(std::string_view drawing, std::string_view placement) {
  std::string text(kOpener);
  text += placement;
  text += kProlog;
  text += drawing;
  text += "\nEndBarcodeEPSF\n";
  text += kCloser;
  return text;
}

std::string WithoutBarcodes(std::string_view job) {
  constexpr std::pair<std::string_view, std::string_view> kInserted[] = {
      {kOpener, kCloser},
      {"\n\n% BEGIN OF MESSAGE\n", "% END OF MESSAGE\n\n"},
      {"\n\n% BEGIN OF TEXT PLACEMENT\n", "% END OF TEXT PLACEMENT\n\n"}};
  std::string rest(job);
  for (const auto& [opener, closer] : kInserted) {
    std::size_t begin = 0;
    while ((begin = rest.find(opener, begin)) != rest.npos) {
      const std::size_t end = rest.find(closer, begin);
      if (end == rest.npos) break;
      rest.erase(begin, end + closer.size() - begin);
    }
  }
  return rest;
}

}  // namespace Support
