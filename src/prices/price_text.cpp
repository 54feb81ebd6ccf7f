#include "prices/price_text.h"

#include <clocale>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <type_traits>

#include <locale.h>

namespace orvane {
namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

struct FreeLocale {
  void operator()(locale_t locale) const { freelocale(locale); }
};
using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale>;

}  // namespace

std::optional<double> parsePriceText(const std::string& text) {
  const Locale cLocale(newlocale(LC_ALL_MASK, "C", nullptr));
  if (!cLocale || text.empty() || whiteSpace.contains(text.front())) { return std::nullopt; }
  // A NUL inside the text ends the conversion, but then not at the text's end.
  char* end = nullptr;
  const double value = strtod_l(text.c_str(), &end, cLocale.get());
  if (end != text.c_str() + text.size()) { return std::nullopt; }
  return value;
}

}  // namespace orvane
