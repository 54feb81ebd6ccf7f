#include "core/pool_account.h"

#include <gmock/gmock.h>

#include "store_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

using PoolAccountTest = StoreTest;

TEST_F(PoolAccountTest, ANewTokenForgetsTheOldFiguresBeforeAnybodyHears) {
  startWithFigures();
  store->loadHistory();
  transport.on("/profile").respond(500);
  executor.advance(300s);
  ASSERT_TRUE(state().accountStatus);
  const auto lastUpdate = state().lastUpdate;
  const auto sentBefore = transport.sent().size();
  takeChanges();
  int heard = 0;
  store->onChange = [&] {
    ++heard;
    EXPECT_EQ(state().token, "second");
    EXPECT_EQ(state().stats, std::nullopt);
    EXPECT_THAT(state().workers, IsEmpty());
    EXPECT_EQ(state().accountStatus, std::nullopt);
    EXPECT_FALSE(state().isLoadingHistory);
    EXPECT_EQ(transport.sent().size(), sentBefore);
  };
  store->setToken("\u00a0 second\n");
  EXPECT_EQ(heard, 1);
  EXPECT_TRUE(state().isLoadingHistory);
  EXPECT_EQ(state().history.size(), 1U);
  EXPECT_EQ(state().lastUpdate, lastUpdate);
  EXPECT_TRUE(state().prices);
  store->onChange = nullptr;
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
  EXPECT_TRUE(state().stats);
}

TEST_F(PoolAccountTest, ClearingTheTokenForgetsTheAccountAndStopsPolling) {
  startWithFigures();
  store->loadHistory();
  executor.advance(200s);
  ASSERT_TRUE(defaults.data("balance.braiinsHistory"));
  const auto lastUpdate = state().lastUpdate;
  transport.clearSent();
  store->setToken(" ");
  executor.advance(24h);
  EXPECT_THAT(keychain.items, IsEmpty());
  EXPECT_EQ(state().stats, std::nullopt);
  EXPECT_THAT(state().workers, IsEmpty());
  EXPECT_THAT(state().history, IsEmpty());
  EXPECT_EQ(state().historyStatus, std::nullopt);
  EXPECT_EQ(defaults.data("balance.braiinsHistory"), std::nullopt);
  EXPECT_EQ(state().lastUpdate, lastUpdate);
  EXPECT_THAT(transport.sent(), IsEmpty());
  store->loadHistory();
  store->restartPolling();
  executor.advance(1h);
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
  EXPECT_TRUE(state().isRefreshing);
  executor.advance(64s);
  EXPECT_TRUE(state().isRefreshing);
  executor.advance(1s);
  EXPECT_FALSE(state().isRefreshing);
  EXPECT_EQ(state().accountStatus, std::nullopt);
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
    EXPECT_EQ(state().token, "second") << test.url;
    EXPECT_EQ(state().accountStatus, std::nullopt) << test.url;
    EXPECT_THAT(state().workers, IsEmpty()) << test.url;
    EXPECT_EQ(state().prices, prices) << test.url;
    EXPECT_EQ(takeChanges(), test.changes) << test.url;
    EXPECT_EQ(transport.sentTo("fallback.test"), 0U);
    executor.advance(60s);
    EXPECT_TRUE(state().stats) << test.url;
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
  EXPECT_TRUE(state().stats);
  EXPECT_FALSE(state().isRefreshing);
  EXPECT_FALSE(state().isLoadingHistory);
}

}  // namespace
}  // namespace orvane::test
