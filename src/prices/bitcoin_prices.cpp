#include "prices/bitcoin_prices.h"

#include <algorithm>

#include <fmt/format.h>

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

namespace {

constexpr double satsPerBTC = 100'000'000;

double price(const CurrentBitcoinPrices& prices, PreferredFiatCurrency currency) {
  switch (currency) {
    case PreferredFiatCurrency::eur:
      return prices.eur;
    case PreferredFiatCurrency::usd:
      return prices.usd;
  }
  return 0;
}

}  // namespace

double fiatValue(double sats, const CurrentBitcoinPrices& prices, PreferredFiatCurrency currency) {
  return sats / satsPerBTC * price(prices, currency);
}

std::string fiatValueText(const LocaleFormat& format, PreferredFiatCurrency currency, double sats,
                          const CurrentBitcoinPrices& prices) {
  const double value = fiatValue(sats, prices, currency);
  const int fractionDigits = value >= 1.0 ? 2 : 3;
  return fmt::format("{} {}", format.fixed(value, fractionDigits), symbol(currency));
}

std::string rateText(const LocaleFormat& format, PreferredFiatCurrency currency,
                     const CurrentBitcoinPrices& prices) {
  return fmt::format("1 BTC = {} {}", format.fixed(price(prices, currency), 0), symbol(currency));
}

}  // namespace orvane
