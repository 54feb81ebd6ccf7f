#include "prices/bitcoin_prices.h"

#include <algorithm>

namespace orvane {

std::string_view rawValue(PreferredFiatCurrency currency) {
  switch (currency) {
    case PreferredFiatCurrency::eur:
      return "EUR";
    case PreferredFiatCurrency::usd:
      return "USD";
  }
  return {};
}

std::optional<PreferredFiatCurrency> fiatCurrencyFromRawValue(std::string_view text) {
  const auto* const found = std::ranges::find(allFiatCurrencies, text, rawValue);
  return found == allFiatCurrencies.end() ? std::nullopt : std::optional(*found);
}

std::string_view symbol(PreferredFiatCurrency currency) {
  switch (currency) {
    case PreferredFiatCurrency::eur:
      return "€";
    case PreferredFiatCurrency::usd:
      return "$";
  }
  return {};
}

}  // namespace orvane
