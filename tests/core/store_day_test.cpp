#include <chrono>
#include <optional>

#include <gmock/gmock.h>
#include <malloc.h>

#include "store_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

// A cycle: the account, a minute later the workers and the prices, then the sleep.
constexpr auto cycle = BraiinsAccountClient::poolRequestGap + PoolAccount::pollInterval;

class StoreDayTest : public StoreTest {
 protected:
  StoreDayTest() {
    storeToken("token");
    defaults.setText("balance.watchedAddress", firstAddress);
  }

  void expectPacing() const {
    std::optional<Instant> last;
    for (const auto& sent : transport.sent()) {
      if (!sent.request.url.starts_with("https://pool.test/")) { continue; }
      if (last) { ASSERT_GE(sent.at - *last, BraiinsAccountClient::poolRequestGap); }
      last = sent.at;
    }
  }
  void expectAtRest(std::size_t sleepingLoops) const {
    EXPECT_FALSE(state().isRefreshing);
    EXPECT_FALSE(state().isRefreshingAddress);
    EXPECT_FALSE(state().isLoadingHistory);
    EXPECT_EQ(transport.inFlight(), 0U);
    EXPECT_EQ(executor.pendingTimers(), sleepingLoops);
    EXPECT_TRUE(store->writesFinished());
  }
};

TEST_F(StoreDayTest, TwoHundredAndEightyEightCyclesAskAsOftenAsTheyShould) {
  const auto begin = std::chrono::steady_clock::now();
  start();
  executor.advance(288 * cycle - 1s);
  EXPECT_EQ(transport.sentTo("/profile"), 288U);
  EXPECT_EQ(transport.sentTo("/workers"), 288U);
  EXPECT_EQ(transport.sentTo("price.test"), 288U);
  EXPECT_EQ(transport.sentTo("explorer.test"), 173U * 3);
  EXPECT_EQ(transport.sentTo("/rewards"), 0U);
  // The token, and each cycle's figures and prices; each address cycle's summary.
  EXPECT_EQ(takeChanges(), 1 + 2 * 288 + 173);
  expectPacing();
  expectAtRest(2);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
}

TEST_F(StoreDayTest, HistoryLoadsAndRestartsKeepToThePoolsPace) {
  transport.on("/workers").respond(503).after(7s);
  transport.on("/rewards").stall();
  start();
  for (int step = 0; step < 288; ++step) {
    executor.advance(cycle / 2 + std::chrono::seconds(step % 7));
    store->loadHistory();
    if (step % 5 == 0) { store->restartPolling(); }
    if (step % 50 == 0) { store->setToken("token " + std::to_string(step)); }
  }
  store->setToken("");
  executor.advance(3min);
  EXPECT_GT(transport.sentTo("/rewards"), 200U);
  EXPECT_GT(transport.sentTo("/workers"), 50U);
  expectPacing();
  expectAtRest(1);
}

// As many figures come and go in thirty days as in one.
TEST_F(StoreDayTest, HoldsNoMoreMemoryAfterAMonth) {
  start();
  const auto passDay = [this] {
    for (int hour = 0; hour < 24; ++hour) {
      executor.advance(1h);
      store->loadHistory();
    }
    executor.advance(5min);
    transport.clearSent();
    return mallinfo2().uordblks;
  };
  passDay();
  const auto afterADay = passDay();
  for (int day = 0; day < 28; ++day) {
    passDay();
  }
  const auto afterAMonth = passDay();
  EXPECT_LT(afterAMonth, afterADay + 16'384);
}

}  // namespace
}  // namespace orvane::test
