#include "prices/bitcoin_prices.h"

#include <gmock/gmock.h>

namespace orvane::test {
namespace {

using enum PreferredFiatCurrency;

const LocaleFormat english({.numbers = "en_US", .dates = "en_US"});
const LocaleFormat german({.numbers = "de_DE", .dates = "de_DE"});

TEST(FiatCurrencyTest, TheChoiceHasAnOrderRawValuesAndSymbols) {
  EXPECT_THAT(allFiatCurrencies, testing::ElementsAre(eur, usd));
  EXPECT_EQ(rawValue(eur), "EUR");
  EXPECT_EQ(rawValue(usd), "USD");
  EXPECT_EQ(fiatCurrencyFromRawValue("USD"), usd);
  for (const std::string_view text : {"", "eur", "EUR ", "GBP"}) {
    EXPECT_EQ(fiatCurrencyFromRawValue(text), std::nullopt) << text;
  }
  EXPECT_EQ(symbol(eur), "€");
  EXPECT_EQ(symbol(usd), "$");
}

TEST(FiatTextsTest, ShowTwoDigitsFromOneOnAndThreeBelow) {
  const std::pair<double, std::string_view> cases[]{
      {123'450'000'000, "1,234.50 €"}, {100'000'000, "1.00 €"}, {99'999'999, "1.000 €"},
      {50'000'000, "0.500 €"},         {0, "0.000 €"},          {-500'000'000, "-5.000 €"}};
  for (const auto& [sats, text] : cases) {
    EXPECT_EQ(fiatValueText(english, eur, sats, {.eur = 1}), text) << sats;
  }
  EXPECT_EQ(fiatValueText(german, usd, 123'450'000'000, {.eur = 9, .usd = 1}), "1.234,50 $");
  EXPECT_EQ(rateText(english, eur, {.eur = 84123.5, .usd = 1}), "1 BTC = 84,124 €");
}

}  // namespace
}  // namespace orvane::test
