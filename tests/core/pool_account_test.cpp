#include "core/pool_account.h"
#include "store_fixture.h"

namespace orvane::test { namespace {

using testing::IsEmpty;

constexpr const char* historyKey = "balance.braiinsHistory";

using PoolAccountTest = StoreTest;

TEST_F(PoolAccountTest, ANewTokenForgetsTheOldFiguresBeforeAnybodyHears) {
  startWithFigures();
  store->loadHistory();
  executor.advance(100s);
  const BalanceState before = state();
  const auto heard = heardDuring([&] { store->setToken("\u00a0 second\n"); });
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_EQ(heard[0].token, "second");
  EXPECT_EQ(heard[0].stats, std::nullopt);
  EXPECT_THAT(heard[0].workers, IsEmpty());
  EXPECT_FALSE(heard[0].isLoadingHistory);
  EXPECT_TRUE(state().isLoadingHistory && state().prices);
  EXPECT_EQ(state().history, before.history);
  EXPECT_EQ(state().lastUpdate, before.lastUpdate);
  executor.runUntilIdle();
  EXPECT_EQ(keptToken(), "second");
}

TEST_F(PoolAccountTest, TheSameTokenChangesNothing) {
  startWithFigures();
  const auto sentBefore = transport.sent().size();
  store->setToken("  first\r\n");
  executor.advance(60s);
  EXPECT_EQ(takeChanges(), 0);
  EXPECT_EQ(transport.sent().size(), sentBefore);
}

TEST_F(PoolAccountTest, AKeychainThatStartsAfterUsGivesItsTokenOnceUnlessOneWasEntered) {
  struct Case {
    const char* entered;
    const char* used;
  };
  for (const auto& [entered, used] : {Case{"", "kept"}, Case{"entered", "entered"}}) {
    SCOPED_TRACE(entered);
    storeToken("kept");
    keychain.condition = MemoryKeychain::Condition::gone;
    startAndSettle();
    EXPECT_TRUE(state().token.empty() && !state().isReadingToken);
    store->setToken(entered);
    executor.runUntilIdle();
    keychain.arrive();
    executor.runUntilIdle();
    EXPECT_EQ(state().token, used);
    EXPECT_TRUE(state().stats);
    storeToken("another program's");
    keychain.arrive();
    executor.runUntilIdle();
    EXPECT_EQ(state().token, used);
  }
  keychain.items.clear();  // from now on it is known that there is none
  startAndSettle();
  storeToken("another program's");
  keychain.arrive();
  executor.runUntilIdle();
  EXPECT_EQ(state().token, "");
}

TEST_F(PoolAccountTest, ClearingTheTokenForgetsTheAccount) {
  startWithFigures();
  store->loadHistory();
  executor.advance(100s);
  ASSERT_TRUE(defaults.data(historyKey));
  store->setToken(" ");
  executor.runUntilIdle();
  EXPECT_THAT(keychain.items, IsEmpty());
  EXPECT_FALSE(state().stats || state().historyStatus);
  EXPECT_THAT(state().history, IsEmpty());
  EXPECT_EQ(defaults.data(historyKey), std::nullopt);
  EXPECT_TRUE(state().lastUpdate);
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
  EXPECT_EQ(state().accountStatus,
            "The Braiins account could not be loaded. The next try is in 5 minutes.");
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
  // The changes are the old token's figures if they came before, and the new token.
  const std::vector<std::tuple<const char*, HttpResponse, int>> cases{
      {"/profile", {401, ""}, 1},
      {"/workers", {200, R"({"btc":{"workers":{"old":{}}}})"}, 2},
      {"price.test", {200, R"({"bitcoin":{"eur":1,"usd":1}})"}, 2},
      {"price.test", {500, ""}, 2},
  };
  for (const auto& [url, answer, changesHeard] : cases) {
    SCOPED_TRACE(std::string(url) + " " + std::to_string(answer.status));
    startWithFigures();
    const auto prices = state().prices;
    const auto answerTooLate = [this, &answer](const HttpRequest&) {
      executor.post([this] { store->setToken("second"); });
      return answer;
    };
    transport.on(url).respondBy(answerTooLate).times(1);
    executor.advance(changesHeard == 1 ? 261s : 321s);
    EXPECT_EQ(state().token, "second");
    EXPECT_EQ(state().accountStatus, std::nullopt);
    EXPECT_THAT(state().workers, IsEmpty());
    EXPECT_EQ(state().prices, prices);
    EXPECT_EQ(takeChanges(), changesHeard);
    EXPECT_EQ(transport.sentTo("fallback.test"), 0U);
    executor.advance(60s);
    EXPECT_TRUE(state().stats);
  }
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
  EXPECT_EQ(loaded.at(0).rewardBTC, "0.0001");
  EXPECT_THAT(defaults.data(historyKey).value(), testing::HasSubstr("816393600"));
  start();
  EXPECT_EQ(state().history, loaded);
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

TEST_F(PoolAccountTest, AHistoryLoadBelongsToTheTokenItBeganWith) {
  for (const auto moment : {65s, 130s}) {  // before the load's first request, and before its second
    SCOPED_TRACE(moment.count());
    start();
    store->setToken("first");
    executor.advance(moment);
    const std::size_t before = transport.sent().size();
    const std::size_t rewards = transport.sentTo("/rewards");
    const std::size_t hashRates = transport.sentTo("/hash_rate_daily");
    store->setToken("second");
    EXPECT_TRUE(state().isLoadingHistory);
    executor.advance(250s);
    EXPECT_EQ(transport.sentTo("/rewards"), rewards + 1);
    EXPECT_EQ(transport.sentTo("/hash_rate_daily"), hashRates + 1);
    for (std::size_t i = before; i < transport.sent().size(); ++i) {
      const auto& headers = transport.sent()[i].request.headers;
      EXPECT_TRUE(headers.empty() || headers[0].value == "second");
    }
    EXPECT_EQ(state().history.size(), 1U);
    EXPECT_FALSE(state().isLoadingHistory);
  }
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
    EXPECT_FALSE(defaults.data(historyKey) || state().historyStatus || state().isLoadingHistory);
  }
}

}}  // namespace orvane::test
