#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include "platform/text/locale_format.h"

namespace orvane {
/// The price of one bitcoin, as the sources give it: nothing checks that it is positive.
struct CurrentBitcoinPrices {
  double eur = 0;
  double usd = 0;

  bool operator==(const CurrentBitcoinPrices&) const = default;
};

/// The currency that amounts are converted to.
enum class PreferredFiatCurrency { eur, usd };

/// In the order of the settings choice.
inline constexpr std::array allFiatCurrencies{PreferredFiatCurrency::eur,
                                              PreferredFiatCurrency::usd};

/// The form that settings keep: "EUR" or "USD".
[[nodiscard]] std::string_view rawValue(PreferredFiatCurrency currency);
/// Accepts exactly a raw value; anything else gives nothing.
[[nodiscard]] std::optional<PreferredFiatCurrency> fiatCurrencyFromRawValue(std::string_view text);
/// "€" or "$".
[[nodiscard]] std::string_view symbol(PreferredFiatCurrency currency);

/// The value of `sats` satoshis in `currency`.
[[nodiscard]] double fiatValue(double sats, const CurrentBitcoinPrices& prices,
                               PreferredFiatCurrency currency);

/// "1,234.50 €": the value with two fraction digits from 1.0 on, else three.
[[nodiscard]] std::string fiatValueText(const LocaleFormat& format, PreferredFiatCurrency currency,
                                        double sats, const CurrentBitcoinPrices& prices);

/// "1 BTC = 84,123 €".
[[nodiscard]] std::string rateText(const LocaleFormat& format, PreferredFiatCurrency currency,
                                   const CurrentBitcoinPrices& prices);
}  // namespace orvane
