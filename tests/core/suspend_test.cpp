#include <chrono>
#include <optional>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "store_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto night = 8h;
constexpr const char* unreachable =
    "Braiins could not be reached. The last figures stay until the next try.";

/// An account and an address, watched since a while, on a machine that is suspended for a night.
class SuspendTest : public StoreTest {
 protected:
  SuspendTest() {
    storeToken("token");
    defaults.setText("balance.watchedAddress", firstAddress);
  }
  /// Lets the program run for a while, then the night pass, and looks at what follows from there.
  void runThenSleep(ExecutorClock::duration running) {
    executor.advance(running);
    before_ = transport.sent().size();
    takeChanges();
    executor.suspend(night);
    woken_ = executor.now();
  }
  /// When requests to these URLs were sent, in seconds since the waking.
  [[nodiscard]] std::vector<long> sentAfterwards(std::string_view urlPart) const {
    std::vector<long> moments;
    for (auto sent = transport.sent().begin() + static_cast<long>(before_);
         sent != transport.sent().end(); ++sent) {
      if (!sent->request.url.contains(urlPart)) { continue; }
      moments.push_back(
          std::chrono::duration_cast<std::chrono::seconds>(sent->at - woken_).count());
    }
    return moments;
  }

 private:
  std::size_t before_ = 0;
  Instant woken_;
};

TEST_F(SuspendTest, BothSidesAreFreshAtOnceAndGoOnInTheirUsualPace) {
  start();
  runThenSleep(200s);
  EXPECT_THAT(sentAfterwards("/profile"), ElementsAre(0));
  EXPECT_THAT(sentAfterwards("explorer.test"), ElementsAre(0, 0, 0));
  EXPECT_EQ(state().lastUpdate, executor.wallClock());
  EXPECT_EQ(state().addressLastUpdate, executor.wallClock());
  EXPECT_EQ(takeChanges(), 2);

  executor.advance(599s);
  EXPECT_THAT(sentAfterwards("pool.test"), ElementsAre(0, 60, 360, 420));
  EXPECT_THAT(sentAfterwards("price.test"), ElementsAre(60, 420));
  EXPECT_THAT(sentAfterwards("explorer.test"), ElementsAre(0, 0, 0)) << "the next is due at 600";
}

TEST_F(SuspendTest, CallsThatWaitedForTheirSlotStillTakeTurns) {
  start();
  executor.advance(10s);
  store->loadHistory();  // waits behind the workers
  runThenSleep(10s);
  EXPECT_THAT(sentAfterwards("pool.test"), ElementsAre(0)) << "the workers alone";
  executor.advance(419s);
  EXPECT_THAT(sentAfterwards("/rewards"), ElementsAre(60));
  EXPECT_THAT(sentAfterwards("pool.test"), ElementsAre(0, 60, 120, 300, 360));
  EXPECT_FALSE(state().isLoadingHistory);
}

TEST_F(SuspendTest, AnAnswerThatWasUnderWayEndsItsCycleAndStartsNoOther) {
  transport.on("/profile").respond(200, "").after(10s).times(1);
  start();
  runThenSleep(5s);
  EXPECT_THAT(sentAfterwards("pool.test"), IsEmpty()) << "the cycle has ended with a failure";
  EXPECT_TRUE(state().accountStatus);
  executor.advance(361s);
  EXPECT_THAT(sentAfterwards("pool.test"), ElementsAre(300, 360));
  EXPECT_FALSE(state().accountStatus);
}

TEST_F(SuspendTest, ANetworkThatWakesLaterLeavesTheFiguresAndIsAskedInTheNextCycle) {
  start();
  executor.advance(100s);
  for (const char* host : {"pool.test", "explorer.test", "price.test"}) {
    transport.on(host)
        .fail(HttpFailure::cannotFindHost)
        .times(host == std::string_view("explorer.test") ? 3 : 1);
  }
  runThenSleep(0s);
  EXPECT_EQ(state().accountStatus, unreachable);
  EXPECT_TRUE(state().addressStatus);
  EXPECT_TRUE(state().stats && state().addressSummary) << "the evening's figures stay";
  EXPECT_FALSE(state().isRefreshing || state().isRefreshingAddress);

  executor.advance(600s);
  EXPECT_THAT(sentAfterwards("/profile"), ElementsAre(0, 300));
  EXPECT_EQ(state().accountStatus, std::nullopt);
  EXPECT_EQ(state().addressStatus, std::nullopt);
}

}  // namespace
}  // namespace orvane::test
