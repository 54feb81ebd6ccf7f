#include "prices/bitcoin_prices.h"
#include <algorithm>
#include <fmt/format.h>
#include "platform/decimal/decimal.h"

namespace orvane {
namespace {
struct Currency {
  std::string_view rawValue;
  std::string_view symbol;
  double CurrentBitcoinPrices::* price;
};

Currency currencyOf(PreferredFiatCurrency currency) {
  switch (currency) {
    case PreferredFiatCurrency::eur:
      return {.rawValue = "EUR", .symbol = "€", .price = &CurrentBitcoinPrices::eur};
    case PreferredFiatCurrency::usd:
      return {.rawValue = "USD", .symbol = "$", .price = &CurrentBitcoinPrices::usd};
  }
  return {};
}
}  // namespace

std::string_view rawValue(PreferredFiatCurrency currency) { return currencyOf(currency).rawValue; }
std::string_view symbol(PreferredFiatCurrency currency) { return currencyOf(currency).symbol; }

std::optional<PreferredFiatCurrency> fiatCurrencyFromRawValue(std::string_view text) {
  const auto* const found = std::ranges::find(allFiatCurrencies, text, rawValue);
  return found == allFiatCurrencies.end() ? std::nullopt : std::optional(*found);
}

double fiatValue(double sats, const CurrentBitcoinPrices& prices, PreferredFiatCurrency currency) {
  return sats / satsPerBTC * prices.*currencyOf(currency).price;
}

std::string fiatValueText(const LocaleFormat& format, PreferredFiatCurrency currency, double sats,
                          const CurrentBitcoinPrices& prices) {
  const double value = fiatValue(sats, prices, currency);
  const int fractionDigits = value >= 1.0 ? 2 : 3;
  return fmt::format("{} {}", format.fixed(value, fractionDigits), symbol(currency));
}

std::string rateText(const LocaleFormat& format, PreferredFiatCurrency currency,
                     const CurrentBitcoinPrices& prices) {
  const double price = prices.*currencyOf(currency).price;
  return fmt::format("1 BTC = {} {}", format.fixed(price, 0), symbol(currency));
}
}  // namespace orvane
