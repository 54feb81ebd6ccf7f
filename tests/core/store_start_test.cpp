#include <gmock/gmock.h>

#include "store_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using testing::IsEmpty;

class StoreStartTest : public StoreTest {
 protected:
  /// Locks the keychain and starts; the keychain then waits for the user.
  void startLocked() {
    keychain.condition = MemoryKeychain::Condition::locked;
    startAndSettle();
    ASSERT_TRUE(keychain.isPrompting());
  }
};

TEST_F(StoreStartTest, WithoutAnythingStoredAsksNobodyAndAnnouncesNothing) {
  startAndSettle();
  EXPECT_FALSE(state().isReadingToken);
  executor.advance(24h);
  EXPECT_THAT(transport.sent(), IsEmpty());
  EXPECT_EQ(takeChanges(), 0);
  EXPECT_EQ(store->menuBarTitle(), "");
}

TEST_F(StoreStartTest, WithoutAKeychainIsReadyAtOnce) {
  keychain.condition = MemoryKeychain::Condition::absent;
  start();
  EXPECT_TRUE(state().isReadingToken);
  executor.runUntilIdle();
  EXPECT_FALSE(state().isReadingToken);
}

TEST_F(StoreStartTest, BringsTheFiguresOfAStoredTokenBackByThemselves) {
  storeToken("stored");
  startAndSettle();
  EXPECT_EQ(state().token, "stored");
  EXPECT_FALSE(state().isReadingToken);
  EXPECT_EQ(store->menuBarTitle(), "203 sats");
  EXPECT_EQ(takeChanges(), 2);  // the token, the figures
  EXPECT_EQ(transport.sent()[0].request.headers[0].value, "stored");
  executor.advance(61s);
  EXPECT_EQ(state().workers.size(), 1U);
  EXPECT_EQ(store->priceText(), "1 BTC = 84.123 €");
  EXPECT_EQ(takeChanges(), 1);  // the prices
  EXPECT_EQ(transport.sentTo("/rewards"), 0U);
}

TEST_F(StoreStartTest, ReadsUnitAndCurrencyByTheirExactNames) {
  const std::vector<std::tuple<const char*, const char*, bool>> settings{
      {"btc", "USD", true}, {"sats", "EUR", false}, {"BTC", "usd", false}, {"", "", false}};
  for (const auto& [unit, currency, areOthers] : settings) {
    defaults.setText("balance.unit", unit);
    defaults.setText("balance.preferredFiatCurrency", currency);
    start();
    EXPECT_EQ(state().unit == BalanceUnit::btc, areOthers) << unit;
    EXPECT_EQ(state().preferredFiatCurrency == PreferredFiatCurrency::usd, areOthers) << currency;
    EXPECT_EQ(defaults.text("balance.unit"), unit) << "written back";
  }
  store->setUnit(BalanceUnit::btc);
  store->setPreferredFiatCurrency(PreferredFiatCurrency::usd);
  EXPECT_EQ(defaults.text("balance.unit"), "btc");
  EXPECT_EQ(defaults.text("balance.preferredFiatCurrency"), "USD");
  EXPECT_EQ(takeChanges(), 0);
}

TEST_F(StoreStartTest, SortsAStoredHistoryAndLeavesADamagedOneInPlace) {
  defaults.setData("balance.braiinsHistory", R"([{"date":0},{"date":86400.0},{"date":3}])");
  start();
  ASSERT_EQ(state().history.size(), 3U);
  EXPECT_GT(state().history[0].date, state().history[1].date);
  EXPECT_GT(state().history[1].date, state().history[2].date);

  defaults.setData("balance.braiinsHistory", "[{]");
  start();
  EXPECT_THAT(state().history, IsEmpty());
  EXPECT_EQ(defaults.data("balance.braiinsHistory"), "[{]");
}

TEST_F(StoreStartTest, AnEnteredAddressDoesNotWaitForALockedKeychain) {
  defaults.setText("balance.watchedAddress", firstAddress);
  storeToken("stored");
  startLocked();
  EXPECT_TRUE(state().isReadingToken);
  EXPECT_EQ(store->menuBarTitle(), "100.000 sats");
  EXPECT_EQ(transport.sentTo("pool.test"), 0U);
  EXPECT_EQ(transport.sentTo("price.test"), 1U);
  takeChanges();

  keychain.answerPrompt(true);
  executor.runUntilIdle();
  EXPECT_EQ(store->menuBarTitle(), "203 | 100.000 sats");
  EXPECT_EQ(takeChanges(), 2);
  EXPECT_EQ(transport.sentTo("explorer.test"), 3U);
}

TEST_F(StoreStartTest, AsksForTheKeychainOnceOnly) {
  storeToken("stored");
  storePayoutAddress(firstAddress);
  startLocked();
  EXPECT_EQ(state().watchedAddress, "");
  keychain.answerPrompt(false);
  executor.advance(24h);
  EXPECT_FALSE(keychain.isPrompting());
  EXPECT_FALSE(state().isReadingToken);
  EXPECT_THAT(transport.sent(), IsEmpty());

  startLocked();
  keychain.answerPrompt(true);
  executor.runUntilIdle();
  EXPECT_EQ(state().watchedAddress, firstAddress);
  EXPECT_TRUE(state().addressIsFromMiner);
}

TEST_F(StoreStartTest, ATokenEnteredDuringTheReadWins) {
  storeToken("stored");
  startLocked();
  store->setToken("entered");
  EXPECT_FALSE(state().isReadingToken);
  executor.runUntilIdle();
  EXPECT_EQ(transport.sent()[0].request.headers[0].value, "entered");
  EXPECT_FALSE(store->writesFinished());

  keychain.answerPrompt(true);
  executor.advance(1s);
  EXPECT_EQ(state().token, "entered");
  EXPECT_EQ(keptToken(), "entered");
  EXPECT_TRUE(store->writesFinished());
  EXPECT_EQ(transport.sentTo("/profile"), 1U);
}

TEST_F(StoreStartTest, MayEndAtAnyMoment) {
  keychain.delay = 1s;
  transport.on("").respond(500).after(5s);
  storeToken("stored");
  storePayoutAddress(firstAddress);
  for (const auto moment : {0s, 1s, 2s, 4s, 10s, 70s}) {
    start();
    store->setToken("entered " + std::to_string(moment.count()));
    executor.advance(moment);
    store.reset();
    executor.advance(1h);
  }
  EXPECT_EQ(transport.inFlight(), 0U);
  EXPECT_EQ(executor.pendingTimers(), 0U);
}

}  // namespace
}  // namespace orvane::test
