#include "core/pool_account.h"

#include "store_fixture.h"

namespace orvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* historyKey = "balance.braiinsHistory";
constexpr const char* notLoaded =
    "The Braiins account could not be loaded. The next try is in 5 minutes.";

using PoolAccountTest = StoreTest;

TEST_F(PoolAccountTest, ANewTokenForgetsTheOldFiguresBeforeAnybodyHears) {
  startWithFigures();
  const auto sentBefore = transport.sent().size();
  const auto heard = heardDuring([&] { store->setToken("\u00a0 second\n"); });
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_EQ(heard[0].token, "second");
  EXPECT_EQ(heard[0].stats, std::nullopt);
  EXPECT_THAT(heard[0].workers, IsEmpty());
  EXPECT_FALSE(heard[0].isLoadingHistory);
  EXPECT_EQ(transport.sent().size(), sentBefore);
  executor.runUntilIdle();
  EXPECT_EQ(keptToken(), "second");
}

TEST_F(PoolAccountTest, ANewTokenLoadsTheHistoryAndKeepsWhatIsNotTheAccounts) {
  startWithFigures();
  store->loadHistory();
  executor.advance(100s);
  const BalanceState before = state();
  store->setToken("second");
  EXPECT_TRUE(state().isLoadingHistory);
  EXPECT_EQ(state().history, before.history);
  EXPECT_EQ(state().lastUpdate, before.lastUpdate);
  EXPECT_TRUE(state().prices);
}

TEST_F(PoolAccountTest, TheSameTokenChangesNothing) {
  startWithFigures();
  const auto sentBefore = transport.sent().size();
  store->setToken("  first\r\n");
  executor.advance(60s);
  EXPECT_EQ(takeChanges(), 0);
  EXPECT_EQ(transport.sent().size(), sentBefore);
  EXPECT_TRUE(state().stats);
}

TEST_F(PoolAccountTest, ClearingTheTokenForgetsTheAccount) {
  startWithFigures();
  store->loadHistory();
  executor.advance(100s);
  ASSERT_TRUE(defaults.data(historyKey));
  store->setToken(" ");
  executor.runUntilIdle();
  EXPECT_THAT(keychain.items, IsEmpty());
  EXPECT_EQ(state().stats, std::nullopt);
  EXPECT_THAT(state().history, IsEmpty());
  EXPECT_EQ(state().historyStatus, std::nullopt);
  EXPECT_EQ(defaults.data(historyKey), std::nullopt);
  EXPECT_TRUE(state().lastUpdate);
}

TEST_F(PoolAccountTest, AsksNothingWithoutAToken) {
  startWithFigures();
  store->setToken("");
  transport.clearSent();
  store->loadHistory();
  store->restartPolling();
  executor.advance(24h);
  EXPECT_THAT(transport.sent(), IsEmpty());
  EXPECT_FALSE(state().isLoadingHistory);
}

TEST_F(PoolAccountTest, ARestartLeavesTheNewCyclesBusyFlagAlone) {
  startWithFigures();
  executor.advance(50s);
  transport.on("/profile").respond(500).after(10s);
  const auto flags = valuesDuring(&BalanceState::isRefreshing, [&] {
    store->restartPolling();
    executor.advance(1s);
    store->restartPolling();
    store->restartPolling();
    executor.advance(1s);
  });
  EXPECT_THAT(flags, ElementsAre(true, false, true));
  executor.advance(100s);
  EXPECT_FALSE(state().isRefreshing);
  EXPECT_EQ(transport.aborted(), 1U);
}

TEST_F(PoolAccountTest, IsBusyUntilTheWorkersHaveComeOrFailed) {
  storeToken("first");
  transport.on("/workers").fail(HttpFailure::networkConnectionLost).after(5s);
  startAndSettle();
  EXPECT_TRUE(state().stats);
  executor.advance(64s);
  EXPECT_TRUE(state().isRefreshing);
  executor.advance(1s);
  EXPECT_FALSE(state().isRefreshing);
  EXPECT_EQ(state().accountStatus, std::nullopt);
}

TEST_F(PoolAccountTest, AFailureKeepsTheFiguresUnderItsTextUntilTheNextGoodCycle) {
  startWithFigures();
  const BalanceState before = state();
  transport.on("/profile").respond(500).times(1);
  executor.advance(300s);
  EXPECT_EQ(state().accountStatus, notLoaded);
  EXPECT_EQ(state().stats, before.stats);
  EXPECT_EQ(state().workers, before.workers);
  EXPECT_EQ(state().lastUpdate, before.lastUpdate);
  EXPECT_FALSE(state().isRefreshing);
  EXPECT_EQ(takeChanges(), 2);  // the failure, the prices
  executor.advance(300s);
  EXPECT_EQ(state().accountStatus, std::nullopt);
  EXPECT_GT(state().lastUpdate, before.lastUpdate);
}

TEST_F(PoolAccountTest, FailingWorkersAndPricesKeepTheLastOnesSilently) {
  startWithFigures();
  transport.on("/workers").respond(500);
  transport.on("price.test").respond(429);
  transport.on("fallback.test").respond(500);
  executor.advance(360s);
  EXPECT_EQ(transport.sentTo("fallback.test"), 1U);
  EXPECT_EQ(takeChanges(), 1);  // the figures
  EXPECT_TRUE(state().prices);
  EXPECT_EQ(state().workers.size(), 1U);
  EXPECT_EQ(state().accountStatus, std::nullopt);
}

// The answer is there, but the user is quicker than the task that waits for it.
TEST_F(PoolAccountTest, LateAnswersOfACancelledCycleAreDropped) {
  struct Case {
    const char* url;
    HttpResponse answer;
    int changes;  ///< the old token's figures if they came before, the new token
  };
  const std::vector<Case> cases{
      {"/profile", {.status = 401, .body = {}}, 1},
      {"/workers", {.status = 200, .body = R"({"btc":{"workers":{"old":{}}}})"}, 2},
      {"price.test", {.status = 200, .body = R"({"bitcoin":{"eur":1,"usd":1}})"}, 2},
      {"price.test", {.status = 500, .body = {}}, 2},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(std::string(test.url) + " " + std::to_string(test.answer.status));
    keychain.items.clear();
    startWithFigures();
    const auto prices = state().prices;
    transport.on(test.url)
        .respondBy([this, &test](const HttpRequest&) {
          executor.post([this] { store->setToken("second"); });
          return test.answer;
        })
        .times(1);
    executor.advance(test.changes == 1 ? 261s : 321s);
    EXPECT_EQ(state().token, "second");
    EXPECT_EQ(state().accountStatus, std::nullopt);
    EXPECT_THAT(state().workers, IsEmpty());
    EXPECT_EQ(state().prices, prices);
    EXPECT_EQ(takeChanges(), test.changes);
    EXPECT_EQ(transport.sentTo("fallback.test"), 0U);
    executor.advance(60s);
    EXPECT_TRUE(state().stats);
  }
}

TEST_F(PoolAccountTest, ARequestThatSaysItWasCancelledLeavesNoText) {
  startWithFigures();
  transport.on("/profile").fail(HttpFailure::cancelled);
  transport.on("/rewards").fail(HttpFailure::cancelled);
  store->restartPolling();
  store->loadHistory();
  executor.advance(200s);
  EXPECT_EQ(transport.sentTo("/rewards"), 1U);
  EXPECT_EQ(state().accountStatus, std::nullopt);
  EXPECT_EQ(state().historyStatus, std::nullopt);
  EXPECT_FALSE(state().isRefreshing || state().isLoadingHistory);
}

TEST_F(PoolAccountTest, AHistoryLoadIsKeptAndReadBack) {
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
  EXPECT_THAT(defaults.data(historyKey).value(), testing::HasSubstr("816393600"));
  start();
  EXPECT_EQ(state().history, loaded);
  EXPECT_EQ(state().historyStatus, std::nullopt);
}

TEST_F(PoolAccountTest, AFailedLoadKeepsTheHistoryUnderItsTextUntilTheNextLoad) {
  defaults.setData(historyKey, R"([{"date":86400}])");
  startWithFigures();
  transport.on("/rewards").respond(500);
  store->loadHistory();
  executor.advance(100s);
  EXPECT_EQ(state().historyStatus,
            "The Braiins history could not be loaded. The next try is in 5 minutes.");
  EXPECT_EQ(state().history.size(), 1U);
  EXPECT_EQ(defaults.data(historyKey), R"([{"date":86400}])");
  EXPECT_FALSE(state().isLoadingHistory);
  store->loadHistory();
  EXPECT_EQ(state().historyStatus, std::nullopt);
}

TEST_F(PoolAccountTest, AnAccountWithoutDaysIsAnEmptyHistory) {
  startWithFigures();
  transport.on("/rewards").respond(200, R"({"btc":{"daily_rewards":[]}})");
  transport.on("/hash_rate_daily").respond(200, R"({"btc":[]})");
  store->loadHistory();
  executor.advance(200s);
  EXPECT_EQ(state().historyStatus, "Braiins has no daily entry for this account yet.");
  EXPECT_EQ(defaults.data(historyKey), "[]");
}

TEST_F(PoolAccountTest, AHistoryThatCannotBeStoredIsShownAllTheSame) {
  startWithFigures();
  defaults.setData(historyKey, "kept");
  transport.on("/hash_rate_daily")
      .respond(200, R"({"btc":[{"date":0,"hash_rate_unit":"Ph/s","hash_rate_24h":1e300,)"
                    R"("total_shares":0}]})");
  store->loadHistory();
  executor.advance(100s);
  EXPECT_EQ(state().history.size(), 2U);
  EXPECT_EQ(state().historyStatus, "Updated 12:03");
  EXPECT_EQ(defaults.data(historyKey), "kept");
}

TEST_F(PoolAccountTest, ATokenEnteredWhileALoadRunsStartsNoSecondLoad) {
  start();
  store->setToken("first");
  executor.advance(65s);
  ASSERT_EQ(transport.sentTo("/rewards"), 1U);
  store->setToken("second");
  executor.advance(1h);
  EXPECT_EQ(transport.sentTo("/rewards"), 1U);
  EXPECT_EQ(transport.sentTo("/hash_rate_daily"), 1U);
  EXPECT_EQ(state().history.size(), 1U);
  store->loadHistory();
  executor.advance(1h);
  EXPECT_EQ(transport.sentTo("/rewards"), 2U) << "a load is over";
}

TEST_F(PoolAccountTest, AHistoryDoesNotComeBackAfterItsTokenWasCleared) {
  for (const auto moment : {10s, 30s}) {  // before the load's first request, and after it
    SCOPED_TRACE(moment.count());
    startWithFigures();
    store->loadHistory();
    executor.advance(moment);
    store->setToken("");
    executor.advance(1h);
    EXPECT_THAT(state().history, IsEmpty());
    EXPECT_EQ(defaults.data(historyKey), std::nullopt);
    EXPECT_EQ(state().historyStatus, std::nullopt);
    EXPECT_FALSE(state().isLoadingHistory);
  }
}

}  // namespace
}  // namespace orvane::test
