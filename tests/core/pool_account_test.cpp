#include "core/pool_account.h"

#include <gmock/gmock.h>

#include "store_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class PoolAccountTest : public StoreTest {
 protected:
  [[nodiscard]] std::vector<bool> busyFlagsWhile(const std::function<void()>& story) {
    std::vector<bool> flags;
    const auto subscription = store->observe([&] {
      if (flags.empty() || flags.back() != state().isRefreshing) {
        flags.push_back(state().isRefreshing);
      }
    });
    story();
    return flags;
  }

  /// The next answer from `url` comes together with a new token, which is set before the task that
  /// waits for the answer has gone on.
  void enterTokenUponAnswer(const char* url, const HttpResponse& answer) {
    transport.on(url)
        .respondBy([this, answer](const HttpRequest&) {
          executor.post([this] { store->setToken("second"); });
          return answer;
        })
        .times(1);
  }
};

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

// The load waits for the pool, before its first request and between its two.
TEST_F(PoolAccountTest, ARestartLeavesTheNewCyclesBusyFlagAlone) {
  startWithFigures();
  executor.advance(50s);
  transport.on("/profile").respond(500).after(10s);
  const auto flags = busyFlagsWhile([&] {
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

TEST_F(PoolAccountTest, AFailedWorkersRequestKeepsTheLastWorkers) {
  startWithFigures();
  transport.on("/workers").respond(500);
  executor.advance(1h);
  EXPECT_EQ(state().workers.size(), 1U);
  EXPECT_EQ(state().accountStatus, std::nullopt);
}

TEST_F(PoolAccountTest, FailingPricesKeepTheLastOnesSilently) {
  startWithFigures();
  transport.on("price.test").respond(429);
  transport.on("fallback.test").respond(500);
  executor.advance(360s);
  EXPECT_EQ(transport.sentTo("fallback.test"), 1U);
  EXPECT_EQ(takeChanges(), 1);  // the figures
  EXPECT_TRUE(state().prices);
}

// The answer is there, but the user is quicker than the task that waits for it.
TEST_F(PoolAccountTest, ALateRefusalOfTheOldTokenSaysNothingAboutTheNewOne) {
  startWithFigures();
  enterTokenUponAnswer("/profile", {.status = 401, .body = {}});
  executor.advance(261s);
  EXPECT_EQ(state().token, "second");
  EXPECT_EQ(state().accountStatus, std::nullopt);
  EXPECT_EQ(takeChanges(), 1);
  executor.advance(60s);
  EXPECT_TRUE(state().stats);
}

TEST_F(PoolAccountTest, LateWorkersOfTheOldTokenAreDropped) {
  startWithFigures();
  enterTokenUponAnswer("/workers", {.status = 200, .body = R"({"btc":{"workers":{"old":{}}}})"});
  executor.advance(321s);
  EXPECT_EQ(state().token, "second");
  EXPECT_THAT(state().workers, IsEmpty());
  EXPECT_EQ(takeChanges(), 2);  // the old token's figures, the new token
}

TEST_F(PoolAccountTest, LatePricesOfACancelledCycleAreDropped) {
  startWithFigures();
  const auto before = state().prices;
  enterTokenUponAnswer("price.test", {.status = 200, .body = R"({"bitcoin":{"eur":1,"usd":1}})"});
  executor.advance(321s);
  EXPECT_EQ(state().token, "second");
  EXPECT_EQ(state().prices, before);
  EXPECT_EQ(takeChanges(), 2);
}

// The primary source has failed, and nobody waits for the prices any more.
TEST_F(PoolAccountTest, ACancelledCycleAsksNoFallbackForPrices) {
  startWithFigures();
  enterTokenUponAnswer("price.test", {.status = 500, .body = {}});
  executor.advance(321s);
  EXPECT_EQ(state().token, "second");
  EXPECT_EQ(transport.sentTo("fallback.test"), 0U);
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

// JSON has no infinity.

}  // namespace
}  // namespace orvane::test
