#include <gmock/gmock.h>

#include "store_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using testing::IsEmpty;

using PoolHistoryTest = StoreTest;

TEST_F(PoolHistoryTest, AHistoryLoadIsKeptAndReadBack) {
  startWithFigures();
  store->loadHistory();
  EXPECT_TRUE(state().isLoadingHistory);
  executor.advance(59s);
  EXPECT_EQ(state().historyStatus, std::nullopt);
  executor.advance(30s);
  EXPECT_EQ(state().historyStatus, "Updated 12:03");
  EXPECT_FALSE(state().isLoadingHistory);
  EXPECT_EQ(takeChanges(), 0);
  const auto loaded = state().history;
  ASSERT_EQ(loaded.size(), 1U);
  EXPECT_EQ(loaded[0].rewardBTC, "0.0001");
  EXPECT_EQ(loaded[0].shares, 2);
  EXPECT_THAT(defaults.data("balance.braiinsHistory").value(), testing::HasSubstr("816393600"));
  store->loadHistory();
  EXPECT_EQ(state().historyStatus, std::nullopt);
  start();
  EXPECT_EQ(state().history, loaded);
  EXPECT_EQ(state().historyStatus, std::nullopt);
}

TEST_F(PoolHistoryTest, AnAccountWithoutDaysIsAnEmptyHistory) {
  startWithFigures();
  transport.on("/rewards").respond(200, R"({"btc":{"daily_rewards":[]}})");
  transport.on("/hash_rate_daily").respond(200, R"({"btc":[]})");
  store->loadHistory();
  executor.advance(200s);
  EXPECT_EQ(state().historyStatus, "Braiins has no daily entry for this account yet.");
  EXPECT_EQ(defaults.data("balance.braiinsHistory"), "[]");
}

TEST_F(PoolHistoryTest, AHistoryThatCannotBeStoredIsShownAllTheSame) {
  startWithFigures();
  defaults.setData("balance.braiinsHistory", "kept");
  transport.on("/hash_rate_daily")
      .respond(200, R"({"btc":[{"date":0,"hash_rate_unit":"Ph/s","hash_rate_24h":1e300,)"
                    R"("total_shares":0}]})");
  store->loadHistory();
  executor.advance(100s);
  EXPECT_EQ(state().history.size(), 2U);
  EXPECT_EQ(state().historyStatus, "Updated 12:03");
  EXPECT_EQ(defaults.data("balance.braiinsHistory"), "kept");
}

TEST_F(PoolHistoryTest, ATokenEnteredWhileALoadRunsStartsNoSecondLoad) {
  start();
  store->setToken("first");
  executor.advance(65s);
  ASSERT_EQ(transport.sentTo("/rewards"), 1U);
  store->setToken("second");
  executor.advance(1h);
  EXPECT_EQ(transport.sentTo("/rewards"), 1U);
  EXPECT_EQ(transport.sentTo("/hash_rate_daily"), 1U);
  EXPECT_FALSE(state().isLoadingHistory);
  EXPECT_EQ(state().history.size(), 1U);
  store->loadHistory();
  executor.advance(1h);
  EXPECT_EQ(transport.sentTo("/rewards"), 2U);
}

TEST_F(PoolHistoryTest, AHistoryDoesNotComeBackAfterItsTokenWasCleared) {
  for (const auto moment : {10s, 30s}) {
    keychain.items.clear();
    transport.clearSent();
    startWithFigures();
    store->loadHistory();
    executor.advance(moment);
    ASSERT_EQ(transport.sentTo("/rewards"), moment == 10s ? 0U : 1U);
    store->setToken("");
    EXPECT_TRUE(state().isLoadingHistory);
    executor.advance(1h);
    EXPECT_THAT(state().history, IsEmpty());
    EXPECT_EQ(defaults.data("balance.braiinsHistory"), std::nullopt);
    EXPECT_EQ(state().historyStatus, std::nullopt);
    EXPECT_FALSE(state().isLoadingHistory);
  }
}

}  // namespace
}  // namespace orvane::test
