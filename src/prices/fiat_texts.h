#pragma once

#include <string>

#include "platform/text/locale_format.h"
#include "prices/bitcoin_prices.h"

namespace orvane {

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
