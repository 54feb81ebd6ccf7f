#include "prices/bitcoin_prices.h"
#include <gtest/gtest.h>

namespace orvane::test { namespace {

using enum PreferredFiatCurrency;

const LocaleFormat english({.numbers = "en_US", .dates = "en_US"});
const LocaleFormat german({.numbers = "de_DE", .dates = "de_DE"});

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

}}  // namespace orvane::test
