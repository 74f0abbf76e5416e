#include "library/grid/Parts.h"

#include "library/Error.h"
#include "library/Limits.h"
#include "library/grid/Append.h"
#include "library/prepare/Gs1.h"
#include "library/prepare/Prepare.h"
#include "library/symbology/Encode.h"

#include <algorithm>
#include <optional>

namespace Library {
namespace {

struct Part {
  std::size_t begin, end;  // in the message
};

std::size_t ModulesOf(const Symbol& symbol) {
  return static_cast<std::size_t>(symbol.width) * symbol.rows.size();
}

class Sharer {
 public:
  explicit Sharer(const Options& options)
      : settings(options),
        symbology(SymbologyOf(options)),
        message(MessageOf(options, symbology)),
        append(options, message) {}

  std::vector<Symbol> run() {
    if (message.size() <= dataLimit(message.size())) {
      if (std::optional<Symbol> lone = tryEncode({0, message.size()}, 1, 1)) {
        std::vector<Symbol> one;
        one.push_back(std::move(*lone));
        return one;
      }
    }
    return encodeAll(share());
  }

 private:
  std::size_t dataLimit(std::size_t none) const {
    return settings.grid.dataLimit > 0 ? static_cast<std::size_t>(settings.grid.dataLimit) : none;
  }

  // The longest part worth a try.
  std::size_t longest() const {
    const auto shortest = static_cast<std::size_t>(symbology.minLength);
    const auto held = static_cast<std::size_t>(symbology.maxLength);
    // Data without check digits, unless they are given.
    const bool whole = symbology.fixedLength > 0 && message.size() % shortest == 0;
    return std::min(dataLimit(whole ? shortest : held), held);
  }

  std::vector<Part> share() {
    std::vector<Part> parts;
    std::size_t length = longest();
    if (message.size() / length > static_cast<std::size_t>(append.maxSymbols())) tooLong();
    for (std::size_t begin = 0; begin < message.size(); begin = parts.back().end) {
      if (static_cast<int>(parts.size()) == append.maxSymbols()) tooLong();
      length = longestFrom(begin, length);
      const std::size_t end = cutBefore(begin, length);
      if (end == begin) tooLong();
      parts.push_back({begin, end});
    }
    return parts;
  }

  // The largest length that can be encoded, 0: none. Parts of one message are alike, so the search
  // begins at `guess`, the length of the one before, and goes away from it in growing steps.
  std::size_t longestFrom(std::size_t begin, std::size_t guess) {
    const std::size_t most = std::min(longest(), message.size() - begin);
    std::size_t fits = 0, tooLong = most + 1;
    std::size_t probe = std::min(guess, most);
    for (std::size_t step = 1; tooLong - fits > 1; step *= 2) {
      (isEncodable(begin, probe) ? fits : tooLong) = probe;
      if (tooLong > most) {
        probe = std::min(fits + step, most);
      } else if (fits == 0) {
        probe = tooLong > step ? tooLong - step : 1;
      } else {
        probe = fits + (tooLong - fits) / 2;
      }
    }
    return fits;
  }

  // As the last of two: no other place takes more room.
  bool isEncodable(std::size_t begin, std::size_t length) {
    const std::size_t end = cutBefore(begin, length);
    return end == begin || tryEncode({begin, end}, 2, 2).has_value();
  }

  // The end of the longest part of at most `length` characters after which the message may be cut.
  std::size_t cutBefore(std::size_t begin, std::size_t length) const {
    std::size_t end = begin + length;
    if (end >= message.size()) return message.size();
    while (end > begin && !mayCut(begin, end)) --end;
    return end;
  }

  bool mayCut(std::size_t begin, std::size_t end) const {
    if (TakesGs1(symbology, settings)) return BeginsElement(message, end);
    if (!symbology.family.pairs) return true;
    const auto checkDigits = static_cast<std::size_t>(CheckDigitCount(settings));
    return (end - begin + checkDigits) % 2 == 0;
  }

  std::vector<Symbol> encodeAll(const std::vector<Part>& parts) {
    std::vector<Symbol> symbols;
    symbols.reserve(parts.size());
    for (const Part& part : parts) {
      symbols.push_back(
          encode(part, static_cast<int>(symbols.size()) + 1, static_cast<int>(parts.size())));
    }
    return symbols;
  }

  Symbol encode(const Part& part, int index, int count) {
    Data data(message.begin() + static_cast<std::ptrdiff_t>(part.begin),
              message.begin() + static_cast<std::ptrdiff_t>(part.end));
    append.mark(index, count, settings, data);
    Symbol symbol = EncodePart(settings, std::move(data));
    spend(ModulesOf(symbol) + settings.format.size());
    return symbol;
  }

  // Nothing: too long.
  std::optional<Symbol> tryEncode(const Part& part, int index, int count) {
    try {
      return encode(part, index, count);
    } catch (const Error& error) {
      if (error.code != BC_E_DATATOOLONG || isSpent()) throw;
      const auto held = static_cast<std::size_t>(symbology.maxLength);
      spend(kModulesPerCharacter * std::min(part.end - part.begin, held) + settings.format.size());
      return std::nullopt;
    }
  }

  // Counts what was encoded.
  void spend(std::size_t modules) {
    spent += modules;
    if (isSpent()) tooLong();
  }
  bool isSpent() const { return spent > kMaxGridModules; }

  [[noreturn]] static void tooLong() { throw Error(BC_E_DATATOOLONG); }

  Options settings;  // append marks them anew for every symbol
  const Symbology& symbology;
  Data message;
  Append append;
  std::size_t spent = 0;  // of kMaxGridModules
};

}  // namespace

std::vector<Symbol> EncodeParts(const Options& options) {
  return Sharer(options).run();
}

}  // namespace Library
