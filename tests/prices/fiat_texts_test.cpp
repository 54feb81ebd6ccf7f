#include <gtest/gtest.h>

#include "prices/bitcoin_prices.h"

namespace orvane::test {
namespace {

using enum PreferredFiatCurrency;

const LocaleFormat english({.numbers = "en_US", .dates = "en_US"});
const LocaleFormat german({.numbers = "de_DE", .dates = "de_DE"});

TEST(FiatTextsTest, CurrenciesHaveExactlyTheirRawValues) {
  EXPECT_EQ(fiatCurrencyFromRawValue("EUR"), eur);
  EXPECT_EQ(fiatCurrencyFromRawValue("USD"), usd);
  for (const std::string_view text : {"", "eur", "usd", "EUR ", "GBP"}) {
    EXPECT_EQ(fiatCurrencyFromRawValue(text), std::nullopt) << text;
  }
  EXPECT_EQ(rawValue(eur), "EUR");
  EXPECT_EQ(rawValue(usd), "USD");
}

TEST(FiatTextsTest, ShowsTwoDigitsFromOneOnAndThreeBelow) {
  struct Case {
    double sats;
    std::string_view text;
  };
  const std::vector<Case> cases{
      {.sats = 123'450'000'000, .text = "1,234.50 €"},
      {.sats = 100'000'000, .text = "1.00 €"},
      {.sats = 99'999'999, .text = "1.000 €"},
      {.sats = 50'000'000, .text = "0.500 €"},
      {.sats = 0, .text = "0.000 €"},
      {.sats = -500'000'000, .text = "-5.000 €"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(fiatValueText(english, eur, test.sats, {.eur = 1}), test.text) << test.sats;
  }
  EXPECT_EQ(fiatValueText(english, usd, 50'000'000, {.eur = 9, .usd = 1}), "0.500 $");
  EXPECT_EQ(fiatValueText(german, usd, 123'450'000'000, {.eur = 9, .usd = 1}), "1.234,50 $");
}

}  // namespace
}  // namespace orvane::test
