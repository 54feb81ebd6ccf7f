#include <functional>
#include <string>

#include <gmock/gmock.h>

#include "store_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

enum class Text { refused, unreachable, notLoaded };

struct FailureCase {
  const char* name;
  std::function<void(ScriptedTransport::Script&)> script;
  Text text;
};

std::string textOf(Text text, const std::string& word) {
  switch (text) {
    case Text::refused:
      return "Braiins did not accept the API token. Check it in Settings below.";
    case Text::unreachable:
      return "Braiins could not be reached. The last figures stay until the next try.";
    case Text::notLoaded:
      return "The Braiins " + word + " could not be loaded. The next try is in 5 minutes.";
  }
  return {};
}

FailureCase status(const char* name, int code, Text text, std::string body = {}) {
  return {name, [code, body](auto& script) { script.respond(code, body).times(1); }, text};
}
FailureCase failure(const char* name, HttpFailure kind, Text text) {
  return {name, [kind](auto& script) { script.fail(kind).times(1); }, text};
}

class PoolFailureTest : public StoreTest, public testing::WithParamInterface<FailureCase> {};

TEST_P(PoolFailureTest, KeepsTheFiguresUnderItsTextUntilTheNextGoodCycle) {
  startWithFigures();
  const BalanceState before = state();
  GetParam().script(transport.on("/profile"));
  executor.advance(300s);
  EXPECT_EQ(state().accountStatus, textOf(GetParam().text, "account"));
  EXPECT_EQ(state().stats, before.stats);
  EXPECT_EQ(state().workers, before.workers);
  EXPECT_EQ(state().lastUpdate, before.lastUpdate);
  EXPECT_FALSE(state().isRefreshing);
  EXPECT_EQ(takeChanges(), 2);  // the failure, the prices
  executor.advance(300s);
  EXPECT_EQ(state().accountStatus, std::nullopt);
  EXPECT_GT(state().lastUpdate, before.lastUpdate);
}

TEST_P(PoolFailureTest, KeepsTheHistoryUnderItsText) {
  startWithFigures();
  store->loadHistory();
  executor.advance(100s);
  const BalanceState before = state();
  const auto stored = defaults.data("balance.braiinsHistory");
  GetParam().script(transport.on("/rewards"));
  store->loadHistory();
  executor.advance(100s);
  EXPECT_EQ(state().historyStatus, textOf(GetParam().text, "history"));
  EXPECT_EQ(state().history, before.history);
  EXPECT_EQ(defaults.data("balance.braiinsHistory"), stored);
  EXPECT_FALSE(state().isLoadingHistory);
}

INSTANTIATE_TEST_SUITE_P(
    All, PoolFailureTest,
    testing::Values(
        status("Status401", 401, Text::refused), status("Status403", 403, Text::refused),
        status("Status404", 404, Text::notLoaded), status("Status429", 429, Text::notLoaded),
        status("Status500", 500, Text::notLoaded), status("Status204", 204, Text::notLoaded),
        status("Redirect", 302, Text::notLoaded), status("Garbage", 200, Text::notLoaded, "<html>"),
        FailureCase{"Silence", [](auto& script) { script.stall().times(1); }, Text::unreachable},
        failure("Refused", HttpFailure::cannotConnectToHost, Text::unreachable),
        failure("Lost", HttpFailure::networkConnectionLost, Text::unreachable),
        failure("NoHost", HttpFailure::cannotFindHost, Text::unreachable),
        failure("Offline", HttpFailure::notConnectedToInternet, Text::unreachable),
        failure("Untrusted", HttpFailure::other, Text::notLoaded)),
    [](const auto& failing) { return std::string(failing.param.name); });

}  // namespace
}  // namespace orvane::test
