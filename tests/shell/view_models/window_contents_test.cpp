#include "shell/view_models/window_contents.h"
#include <gmock/gmock.h>
#include "shell/view_models/app_info.h"

namespace orvane::test { namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
constexpr WallTime noon = WallTime() + std::chrono::hours(12);

const LocaleFormat english({.numbers = "en_US", .dates = "en_US", .timeZone = "UTC"});

TEST(WindowLayoutTest, TokenAndAddressDecideWhatShowsAndTheLeastSize) {
  struct Case {
    std::string token;
    std::string address;
    WindowLayout layout;
  };
  for (const auto& [token, address, layout] :
       std::vector<Case>{{"", "", {true, false, false, 500, 720}},
                         {"", "a", {false, true, false, 500, 720}},
                         {"t", "", {true, false, true, 1190, 720}},
                         {"t", "a", {true, true, true, 1190, 990}}}) {
    BalanceState state;
    state.token = token;
    state.watchedAddress = address;
    EXPECT_EQ(windowLayout(state), layout) << token << address;
  }
}

TEST(PoolCardTest, WithoutFiguresSaysWhatIsMissing) {
  for (const auto& [token, isReading] : {std::pair{"", false}, {"t", false}, {"", true}}) {
    BalanceState state;
    state.token = token;
    state.isReadingToken = isReading;
    const bool hasToken = !state.token.empty();
    const bool isOnTheWay = hasToken || isReading;
    const auto card = poolCard(state, english);
    EXPECT_EQ(card.balance, (BalanceFigure{.text = isOnTheWay ? "Loading…" : "No API token",
                                           .isPlaceholder = true}));
    EXPECT_THAT(card.metrics, ElementsAre(Metric{.title = "Today", .value = "—"},
                                          Metric{.title = "Hashrate 60 min", .value = "—"},
                                          Metric{.title = "Shares 24 h", .value = "—"}));
    EXPECT_EQ(card.status.text, isOnTheWay ? "Asking Braiins…"
                                           : "Paste a read-only Braiins API token below to start.");
    EXPECT_EQ(card.refresh, (RefreshButtonState{.isVisible = hasToken}));
  }
}

TEST(PoolCardTest, EachFigureStandsInItsPlaceAndAmountsHaveTheirValue) {
  BalanceState state;
  state.token = "t";
  state.stats = BraiinsAccountStats{
      .hashRate60m = 5e12, .shares24h = 2'048, .todayRewardSats = 1'000, .balanceSats = 200'000};
  state.prices = CurrentBitcoinPrices{.eur = 100'000, .usd = 0};
  state.isRefreshing = true;
  state.accountStatus = "It failed.";
  const auto card = poolCard(state, english);
  EXPECT_EQ(card.balance, (BalanceFigure{.text = "200,000 sats", .fiatValue = "≈ 200.00 €"}));
  EXPECT_THAT(card.metrics,
              ElementsAre(Metric{.title = "Today", .value = "1,000 sats", .fiatValue = "≈ 1.00 €"},
                          Metric{.title = "Hashrate 60 min", .value = "5.00 TH/s"},
                          Metric{.title = "Shares 24 h", .value = "2,048"}));
  EXPECT_EQ(card.status, (StatusLine{.text = "It failed.", .isWarning = true}));
  EXPECT_EQ(card.refresh, (RefreshButtonState{.isVisible = true, .isBusy = true}));
  state.prices.reset();
  EXPECT_EQ(poolCard(state, english).balance.fiatValue, "");
}

TEST(AddressCardTest, HasItsFiguresOnceTheAddressHasBeenRead) {
  BalanceState state;
  state.watchedAddress = "bc1q";
  state.isRefreshing = true;
  const auto waiting = addressCard(state, english);
  EXPECT_EQ(waiting.address, "bc1q");
  EXPECT_EQ(waiting.balance, (BalanceFigure{.text = "Loading…", .isPlaceholder = true}));
  EXPECT_THAT(waiting.metrics, IsEmpty());
  EXPECT_EQ(waiting.status, StatusLine{.text = "Asking Chainpeek…"});
  EXPECT_EQ(waiting.refresh, RefreshButtonState{});
  state.addressSummary = WatchedAddressSummary{
      .confirmedSats = 200'000, .pendingSats = 1'000, .tipHeight = 850'000, .incoming = {}};
  state.prices = CurrentBitcoinPrices{.eur = 100'000, .usd = 0};
  state.addressLastUpdate = noon;
  state.isRefreshingAddress = true;
  state.addressIsFromMiner = true;
  const auto read = addressCard(state, english);
  EXPECT_TRUE(read.isFromMiner);
  EXPECT_EQ(read.balance, (BalanceFigure{.text = "200,000 sats", .fiatValue = "≈ 200.00 €"}));
  EXPECT_THAT(read.metrics, ElementsAre(Metric{.title = "Unconfirmed", .value = "1,000 sats"},
                                        Metric{.title = "Block rewards", .value = "None"}));
  EXPECT_FALSE(read.status.isWarning);
  EXPECT_EQ(read.refresh, (RefreshButtonState{.isVisible = true, .isBusy = true}));
  state.addressStatus = "It failed.";
  EXPECT_EQ(addressCard(state, english).status,
            (StatusLine{.text = "It failed.", .isWarning = true}));
}

TEST(AddressCardTest, ABlockRewardCountsUpToTheConfirmationThatFreesIt) {
  struct Case {
    std::int64_t tip;
    std::optional<std::int64_t> height;
    std::string text;
    bool isSpendable;
  };
  for (const auto& [tip, height, text, isSpendable] : std::vector<Case>{
           {850'000, 850'000, "Block #850,000 · 5 sats · 1 of 100 confirmations", false},
           {850'098, 850'000, "Block #850,000 · 5 sats · 99 of 100 confirmations", false},
           {850'099, 850'000, "Block #850,000 · 5 sats · spendable", true},
           {849'000, 850'000, "Block #850,000 · 5 sats · 0 of 100 confirmations", false},
           {850'000, {}, "Unconfirmed block · 5 sats · 0 of 100 confirmations", false},
           {largest, smallest, "Block #-9,223,372,036,854,775,808 · 5 sats · spendable", true}}) {
    BalanceState state;
    state.addressSummary = WatchedAddressSummary{
        .tipHeight = tip,
        .incoming = {{.txid = "payment", .sats = 7},
                     {.txid = "reward", .sats = 5, .isCoinbase = true, .blockHeight = height}}};
    const auto card = addressCard(state, english);
    EXPECT_THAT(card.blockRewards,
                ElementsAre(BlockRewardLine{.text = text, .isSpendable = isSpendable}));
    EXPECT_EQ(card.metrics[1].value, "1") << text;
  }
}

TEST(SettingsFieldsTest, OnlyAnotherTextCanBeSavedAndOnlyAKeptOneRemoved) {
  const auto expectFields = [](const char* kept, const char* draft, bool canSave, bool canRemove) {
    const SettingsFieldState field{.canSave = canSave, .canRemove = canRemove};
    BalanceState state;
    state.token = kept;
    EXPECT_EQ(tokenFieldState(state, draft), field) << "token: " << kept << '/' << draft;
    state.token = "other";
    state.watchedAddress = "the miner's";
    state.ownAddress = kept;
    EXPECT_EQ(addressFieldState(state, draft), field) << "address: " << kept << '/' << draft;
  };
  expectFields("", "", false, false);
  expectFields("", " \n", false, false);
  expectFields("", "a", true, false);
  expectFields("a", "\u00a0a\u2028", false, true);
  expectFields("ab", "a b", true, true);
  expectFields("a", "", true, true);
}

TEST(SettingsFieldsTest, TheEmptyAddressFieldAsksForAnotherOneThanTheMiners) {
  BalanceState state;
  EXPECT_STREQ(addressPlaceholder(state),
               "Bitcoin address to watch, e.g. your solo-mining payout address");
  state.addressIsFromMiner = true;
  EXPECT_STREQ(addressPlaceholder(state), "Another Bitcoin address to watch instead");
}

TEST(AppInfoTest, TheVersionTextHasABuildWhereThereIsOne) {
  EXPECT_EQ(applicationVersionText("1.2.0", "345"), "Version 1.2.0 (345)");
  EXPECT_EQ(applicationVersionText("1.2.0", ""), "Version 1.2.0");
  EXPECT_EQ(applicationVersionText({}, "345"), "Version 1.0 (345)");
}

}}  // namespace orvane::test
