#include "core/display_texts.h"
#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>

namespace orvane { namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::ElementsAre;

constexpr auto rightNow = std::chrono::sys_days{2026y / 11 / 16} + 14h + 5min;

const LocaleFormat english({.numbers = "en_US.UTF-8", .dates = "en_US.UTF-8", .timeZone = "UTC"});
const LocaleFormat german({.numbers = "de_DE.UTF-8", .dates = "de_DE.UTF-8", .timeZone = "UTC"});

BalanceState in(BalanceUnit unit) {
  BalanceState state;
  state.unit = unit;
  return state;
}

TEST(DisplayTextsTest, AmountsAreGroupedSatsOrEightPlainDecimalsOfBitcoin) {
  const std::vector<std::tuple<std::int64_t, std::string, std::string>> cases{
      {0, "0 sats", "0.00000000 BTC"},
      {-1, "-1 sats", "-0.00000001 BTC"},
      {5'000, "5,000 sats", "0.00005000 BTC"},
      {99'999'999, "99,999,999 sats", "0.99999999 BTC"},
      {100'000'000, "100,000,000 sats", "1.00000000 BTC"},
      {-150'000'000, "-150,000,000 sats", "-1.50000000 BTC"},
      {std::numeric_limits<std::int64_t>::min(), "-9,223,372,036,854,775,808 sats",
       "-92233720368.54775808 BTC"},
  };
  for (const auto& [sats, satsText, btcText] : cases) {
    EXPECT_EQ(amountText(in(BalanceUnit::sats), english, sats), satsText);
    EXPECT_EQ(amountText(in(BalanceUnit::btc), german, sats), btcText);
  }
  EXPECT_EQ(amountText(in(BalanceUnit::sats), german, 12'345), "12.345 sats");
  EXPECT_EQ(amountNumberText(in(BalanceUnit::sats), german, 12'345), "12.345");
}

TEST(DisplayTextsTest, TitleTheMenuBarWithThePoolFirstAndOneUnitWord) {
  BalanceState state;
  state.addressSummary = WatchedAddressSummary{};
  EXPECT_EQ(menuBarTitle(state, english), "0 sats");
  state.stats = BraiinsAccountStats{.balanceSats = 203};
  EXPECT_EQ(menuBarTitle(state, english), "203 | 0 sats");
  state.unit = BalanceUnit::btc;
  EXPECT_EQ(menuBarTitle(state, english), "0.00000203 | 0.00000000 BTC");
}

TEST(DisplayTextsTest, GiveValuesOnlyWithPricesAndInThePreferredCurrency) {
  BalanceState state;
  EXPECT_EQ(fiatText(state, english, 1e8), std::nullopt);
  EXPECT_EQ(priceText(state, english), std::nullopt);
  state.prices = CurrentBitcoinPrices{.eur = 84'123.4, .usd = 96'999.6};
  EXPECT_EQ(fiatText(state, english, 1e8), "84,123.40 €");
  EXPECT_EQ(priceText(state, english), "1 BTC = 84,123 €");
  state.preferredFiatCurrency = PreferredFiatCurrency::usd;
  EXPECT_EQ(fiatText(state, german, 1e8), "96.999,60 $");
  EXPECT_EQ(priceText(state, german), "1 BTC = 97.000 $");
}

TEST(DisplayTextsTest, AHashRateHasTheFirstUnitItReaches) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const auto texts = [](std::vector<double> rates) {
    std::vector<std::string> texts(rates.size());
    std::ranges::transform(rates, texts.begin(), hashRateText);
    return texts;
  };
  EXPECT_THAT(texts({0, 999.4, 1'500, 999'999, 1e6}),
              ElementsAre("0 H/s", "999 H/s", "1.50 kH/s", "1000.00 kH/s", "1.00 MH/s"));
  EXPECT_THAT(texts({2.5e9, 12'345'678'901'234, 1e14}),
              ElementsAre("2.50 GH/s", "12.35 TH/s", "100.00 TH/s"));
  EXPECT_THAT(texts({1.1e14, -1, std::nan(""), infinity}), Each(std::string("—")));
}

TEST(DisplayTextsTest, ShowALastShareOnlyWhenThereWasOne) {
  EXPECT_EQ(lastShareText(german, rightNow), "Last share 16.11.2026, 14:05");
  EXPECT_EQ(lastShareText(english, std::nullopt), "");
}

TEST(DisplayTextsTest, PutThePoolsFailureBeforeItsTimeAndItsTimeBeforeThePrice) {
  BalanceState state;
  state.token = "t";
  state.lastUpdate = rightNow;
  EXPECT_EQ(poolStatusLine(state, german), "Updated 14:05 · refreshes every 5 minutes");
  state.prices = CurrentBitcoinPrices{.eur = 84'123.4, .usd = 0};
  EXPECT_EQ(poolStatusLine(state, german),
            "Updated 14:05 · 1 BTC = 84.123 € · refreshes every 5 minutes");
  state.accountStatus = "Failed.";
  EXPECT_EQ(poolStatusLine(state, german), "Failed.");
}

TEST(DisplayTextsTest, PutTheAddressesFailureBeforeItsTime) {
  BalanceState state;
  state.prices = CurrentBitcoinPrices{.eur = 84'123.4, .usd = 0};
  state.addressLastUpdate = rightNow;
  EXPECT_EQ(addressStatusLine(state, german),
            "Updated 14:05 · Chainpeek · refreshes every 10 minutes");
  state.addressStatus = "Failed.";
  EXPECT_EQ(addressStatusLine(state, german), "Failed.");
}

TEST(DisplayTextsTest, TellAFailedLoadByWhatTheUserCanDo) {
  const std::string refused = "Braiins did not accept the API token. Check it in Settings below.";
  const std::string unreachable =
      "Braiins could not be reached. The last figures stay until the next try.";
  const std::string notLoaded =
      "The Braiins history could not be loaded. The next try is in 5 minutes.";
  using Kind = PoolError::Kind;
  const std::vector<std::tuple<Kind, HttpFailure, std::string>> cases{
      {Kind::userAuthenticationRequired, HttpFailure::other, refused},
      {Kind::transport, HttpFailure::notConnectedToInternet, unreachable},
      {Kind::transport, HttpFailure::networkConnectionLost, unreachable},
      {Kind::transport, HttpFailure::cannotFindHost, unreachable},
      {Kind::transport, HttpFailure::cannotConnectToHost, unreachable},
      {Kind::transport, HttpFailure::timedOut, unreachable},
      {Kind::transport, HttpFailure::other, notLoaded},
      {Kind::badServerResponse, HttpFailure::other, notLoaded},
  };
  for (const auto& [kind, failure, text] : cases) {
    EXPECT_EQ(poolErrorText({.kind = kind, .failure = failure}, "history"), text)
        << static_cast<int>(kind) << " " << static_cast<int>(failure);
  }
}

}}  // namespace orvane
