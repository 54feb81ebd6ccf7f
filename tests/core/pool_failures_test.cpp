#include <string>

#include <gmock/gmock.h>

#include "store_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* refused = "Braiins did not accept the API token. Check it in Settings below.";
constexpr const char* unreachable =
    "Braiins could not be reached. The last figures stay until the next try.";
constexpr const char* accountNotLoaded =
    "The Braiins account could not be loaded. The next try is in 5 minutes.";
constexpr const char* historyNotLoaded =
    "The Braiins history could not be loaded. The next try is in 5 minutes.";

struct FailureCase {
  HttpResult answer;
  const char* accountText = accountNotLoaded;
  const char* historyText = historyNotLoaded;
};

FailureCase status(int code, std::string body = {}) {
  return {.answer = HttpResponse{.status = code, .body = std::move(body)}};
}
FailureCase tokenRefused(int code) {
  return {HttpResponse{.status = code, .body = {}}, refused, refused};
}
FailureCase noAnswer(HttpFailure failure) {
  return {std::unexpected(failure), unreachable, unreachable};
}

class PoolFailureTest : public StoreTest, public testing::WithParamInterface<FailureCase> {
 protected:
  void answerOnce(const char* url) {
    const auto answer = [](const HttpRequest&) { return GetParam().answer; };
    transport.on(url).respondBy(answer).times(1);
  }
};

TEST_P(PoolFailureTest, KeepsFiguresAndHistoryUnderItsTextUntilTheNextGoodCycle) {
  startWithFigures();
  store->loadHistory();
  executor.advance(100s);
  const BalanceState before = state();
  const auto stored = defaults.data("balance.braiinsHistory");
  takeChanges();
  answerOnce("/profile");
  executor.advance(200s);
  EXPECT_EQ(state().accountStatus, GetParam().accountText);
  EXPECT_EQ(state().stats, before.stats);
  EXPECT_EQ(state().workers, before.workers);
  EXPECT_EQ(state().lastUpdate, before.lastUpdate);
  EXPECT_FALSE(state().isRefreshing);
  EXPECT_EQ(takeChanges(), 2);  // the failure, the prices
  answerOnce("/rewards");
  store->loadHistory();
  executor.advance(300s);
  EXPECT_EQ(state().accountStatus, std::nullopt);
  EXPECT_GT(state().lastUpdate, before.lastUpdate);
  EXPECT_EQ(state().historyStatus, GetParam().historyText);
  EXPECT_EQ(state().history, before.history);
  EXPECT_EQ(defaults.data("balance.braiinsHistory"), stored);
  EXPECT_FALSE(state().isLoadingHistory);
}

INSTANTIATE_TEST_SUITE_P(
    All, PoolFailureTest,
    testing::Values(tokenRefused(401), tokenRefused(403), status(204), status(429), status(500),
                    status(200, "<html>"), noAnswer(HttpFailure::cannotConnectToHost),
                    noAnswer(HttpFailure::networkConnectionLost), noAnswer(HttpFailure::timedOut),
                    noAnswer(HttpFailure::cannotFindHost),
                    noAnswer(HttpFailure::notConnectedToInternet),
                    FailureCase{.answer = std::unexpected(HttpFailure::other)}));

}  // namespace
}  // namespace orvane::test
