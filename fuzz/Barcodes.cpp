#include "fuzz/Barcodes.h"

#include "engine/GenerateWithSettings.h"
#include "engine/Overhead.h"
#include "filter/PlacementCode.h"

#include <string_view>

namespace Fuzz {
namespace {

const std::string kBarcode = "\n\n% BEGIN OF BARCODE\nfuzzed\n% END OF BARCODE\n\n";
const std::string kBarcodeAtText = "\n\n% BEGIN OF BARCODE\n" +
                                   std::string(Engine::kPlacementAtText) +
                                   "fuzzed\n% END OF BARCODE\n\n";
// Data that begin with these words fail.
constexpr std::string_view kFails = "fail";
const std::string kMessage = "FUZZED MESSAGE";

constexpr std::string_view kCodeBegin = "\n\n% BEGIN OF TEXT PLACEMENT\n";
constexpr std::string_view kCodeEnd = "% END OF TEXT PLACEMENT\n\n";

void EraseAll(std::string& text, const std::string& part) {
  std::string rest;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(part, from)) != std::string::npos; from = at + part.size()) {
    rest.append(text, from, at - from);
  }
  text = rest.append(text, from);
}

void EraseAllBetween(std::string& text, std::string_view begin, std::string_view end) {
  std::string rest;
  std::size_t from = 0;
  while (true) {
    const std::size_t at = text.find(begin, from);
    const std::size_t behind = at == std::string::npos ? at : text.find(end, at);
    if (behind == std::string::npos) break;
    rest.append(text, from, at - from);
    from = behind + end.size();
  }
  text = rest.append(text, from);
}

}  // namespace

std::string WithoutInserted(std::string output) {
  EraseAllBetween(output, kCodeBegin, kCodeEnd);
  for (const std::string& part : {kBarcode, kBarcodeAtText, Filter::MessagesAtText(kMessage),
                                  "(" + kMessage + ") show", kMessage}) {
    EraseAll(output, part);
  }
  return output;
}

}  // namespace Fuzz

namespace Engine {

Diag::ResultCode GenerateWithSettings(Settings::BarcodeSettings& settings, std::string& output,
                                      std::uint32_t) {
  if (!settings.data.starts_with(Fuzz::kFails)) {
    output = settings.drawnAtText ? Fuzz::kBarcodeAtText : Fuzz::kBarcode;
    return Diag::kSuccess;
  }
  output = Fuzz::kMessage;
  return Diag::kInvalidArgument;
}

}  // namespace Engine
