#include "core/balance_store.h"
#include <algorithm>
#include "store_fixture.h"

namespace orvane::test { namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BalanceStoreTest : public StoreTest {
 protected:
  /// Locks the keychain and starts; the keychain then waits for the user.
  void startLocked() {
    keychain.condition = MemoryKeychain::Condition::locked;
    startAndSettle();
    ASSERT_TRUE(keychain.isPrompting());
  }
};

TEST_F(BalanceStoreTest, WithoutAnythingStoredAsksNobody) {
  startAndSettle();
  store->loadHistory();
  store->restartPolling();
  executor.advance(24h);
  EXPECT_THAT(transport.sent(), IsEmpty());
  EXPECT_FALSE(state().isLoadingHistory);
  EXPECT_EQ(takeChanges(), 1) << "nobody waits for a stored token any more";
}

// Only what the user enters is trimmed.
TEST_F(BalanceStoreTest, TakesTheStoredTokenAndAddressAsTheyAre) {
  storeToken(" stored ");
  startAndSettle();
  EXPECT_EQ(state().token, " stored ");
  EXPECT_EQ(transport.sent().at(0).request.headers.at(0).value, " stored ");
  defaults.setText("balance.watchedAddress", " address ");
  start();
  EXPECT_EQ(state().ownAddress, " address ");
}

TEST_F(BalanceStoreTest, ReadsUnitAndCurrencyByTheirExactNames) {
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
}

TEST_F(BalanceStoreTest, KeepsUnitAndCurrencyWithoutTellingTheMenuBar) {
  start();
  store->setUnit(BalanceUnit::btc);
  store->setPreferredFiatCurrency(PreferredFiatCurrency::usd);
  EXPECT_EQ(defaults.text("balance.unit"), "btc");
  EXPECT_EQ(defaults.text("balance.preferredFiatCurrency"), "USD");
  EXPECT_EQ(takeChanges(), 0);
}

TEST_F(BalanceStoreTest, SortsAStoredHistoryAndLeavesADamagedOneInPlace) {
  defaults.setData("balance.braiinsHistory", R"([{"date":0},{"date":86400.0},{"date":3}])");
  start();
  ASSERT_EQ(state().history.size(), 3U);
  EXPECT_TRUE(std::ranges::is_sorted(state().history, std::greater{}, &BraiinsHistoryDay::date));
  defaults.setData("balance.braiinsHistory", "[{]");
  start();
  EXPECT_THAT(state().history, IsEmpty());
  EXPECT_EQ(defaults.data("balance.braiinsHistory"), "[{]");
}

TEST_F(BalanceStoreTest, AnEnteredAddressDoesNotWaitForALockedKeychain) {
  defaults.setText("balance.watchedAddress", firstAddress);
  storeToken("stored");
  startLocked();
  EXPECT_TRUE(state().isReadingToken && state().prices);
  EXPECT_EQ(store->menuBarTitle(), "100.000 sats");
  EXPECT_EQ(transport.sentTo("pool.test"), 0U);
  takeChanges();
  keychain.answerPrompt(true);
  executor.runUntilIdle();
  EXPECT_EQ(store->menuBarTitle(), "203 | 100.000 sats");
  EXPECT_EQ(takeChanges(), 2);
  EXPECT_EQ(transport.sentTo("explorer.test"), 3U);
}

TEST_F(BalanceStoreTest, AsksForTheKeychainOnceOnly) {
  storeToken("stored");
  storePayoutAddress(firstAddress);
  startLocked();
  keychain.answerPrompt(false);
  executor.advance(24h);
  EXPECT_FALSE(keychain.isPrompting() || state().isReadingToken);
  EXPECT_THAT(transport.sent(), IsEmpty());
  startLocked();
  keychain.answerPrompt(true);
  executor.runUntilIdle();
  EXPECT_EQ(state().watchedAddress, firstAddress);
}

TEST_F(BalanceStoreTest, ATokenEnteredDuringTheReadWins) {
  storeToken("stored");
  startLocked();
  store->setToken("entered");
  EXPECT_FALSE(state().isReadingToken || store->writesFinished());
  keychain.answerPrompt(true);
  executor.advance(1s);
  EXPECT_EQ(state().token, "entered");
  EXPECT_EQ(keptToken(), "entered");
  EXPECT_TRUE(store->writesFinished());
  EXPECT_EQ(transport.sentTo("/profile"), 1U);
}

TEST_F(BalanceStoreTest, MayEndAtAnyMoment) {
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

/// An account and an address, watched for long. A pool cycle takes 360 seconds: the account, a
/// minute later the workers and the prices, then the sleep.
class LongRunTest : public StoreTest {
 protected:
  LongRunTest() {
    storeToken("token");
    defaults.setText("balance.watchedAddress", firstAddress);
  }

  /// When requests to these URLs were sent, in seconds since `begin`.
  [[nodiscard]] std::vector<long> momentsOf(std::string_view urlPart) const {
    std::vector<long> moments;
    for (const auto& [request, at] : transport.sent()) {
      if (!request.url.contains(urlPart)) { continue; }
      moments.push_back(std::chrono::floor<std::chrono::seconds>(at - begin).count());
    }
    return moments;
  }
  void expectPacing() const {
    const auto moments = momentsOf("https://pool.test/");
    const auto tooSoon = [](long one, long next) { return next - one < 60; };
    EXPECT_EQ(std::ranges::adjacent_find(moments, tooSoon), moments.end());
  }
  void expectAtRest(std::size_t sleepingLoops) const {
    EXPECT_FALSE(state().isRefreshing || state().isRefreshingAddress || state().isLoadingHistory);
    EXPECT_EQ(transport.inFlight(), 0U);
    EXPECT_EQ(executor.pendingTimers(), sleepingLoops);
    EXPECT_TRUE(store->writesFinished());
  }
  /// Lets the program run for a while, then the machine sleep for a night: all counts from there.
  void runThenSleep(ExecutorClock::duration running) {
    executor.advance(running);
    transport.clearSent();
    takeChanges();
    executor.suspend(8h);
    begin = executor.now();
  }

  Instant begin = executor.now();
};

// The status of a failure that is over would leave the icon orange until the next change.
TEST_F(LongRunTest, TheMenuBarIsToldWhenTheOldFailureIsGone) {
  const auto account = &BalanceState::accountStatus;
  const auto address = &BalanceState::addressStatus;
  const std::vector<std::tuple<const char*, decltype(account), std::function<void()>>> cases{
      {"another token", account, [this] { store->setToken("another"); }},
      {"new figures", account, [this] { executor.advance(300s); }},
      {"another address", address, [this] { (void)store->setOwnAddress(secondAddress); }},
      {"a new summary", address, [this] { store->restartAddressWatch(); }},
  };
  for (const auto& [name, status, story] : cases) {
    defaults.setText("balance.watchedAddress", firstAddress);
    transport.on("/profile").respond(500).times(1);
    transport.on("/height").respond(500).times(1);
    startAndSettle();
    ASSERT_TRUE(state().*status) << name;
    executor.advance(60s);  // the prices have come
    const auto heard = heardDuring([&] {
      story();
      executor.runUntilIdle();
    });
    ASSERT_FALSE(heard.empty()) << name;
    EXPECT_EQ(heard[0].*status, std::nullopt) << name;
    storeToken("token");
  }
}

TEST_F(LongRunTest, ADayAsksAsOftenAsItShould) {
  start();
  executor.advance(288 * 360s - 1s);
  EXPECT_EQ(transport.sentTo("/profile"), 288U);
  EXPECT_EQ(transport.sentTo("/workers"), 288U);
  EXPECT_EQ(transport.sentTo("price.test"), 288U);
  EXPECT_EQ(transport.sentTo("explorer.test"), 173U * 3);
  EXPECT_EQ(transport.sentTo("/rewards"), 0U);
  // The token, and each cycle's figures and prices; each address cycle's summary.
  EXPECT_EQ(takeChanges(), 1 + 2 * 288 + 173);
  expectPacing();
  expectAtRest(2);
}

TEST_F(LongRunTest, HistoryLoadsAndRestartsKeepToThePoolsPace) {
  transport.on("/workers").respond(503).after(7s);
  transport.on("/rewards").stall();
  start();
  for (int step = 0; step < 288; ++step) {
    executor.advance(std::chrono::seconds(180 + step % 7));
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

TEST_F(LongRunTest, ARestartLeavesTheNewCyclesBusyFlagsAlone) {
  start();
  executor.advance(200s);
  transport.on("").neverAnswer();
  const auto restart = [this] {
    store->restartPolling();
    store->restartAddressWatch();
  };
  std::vector<bool> address;
  const auto pool = valuesDuring(&BalanceState::isRefreshing, [&] {
    address = valuesDuring(&BalanceState::isRefreshingAddress, [&] {
      restart();
      executor.advance(1s);
      restart();
      restart();
      executor.advance(1s);
    });
  });
  EXPECT_THAT(pool, ElementsAre(true, false, true));
  EXPECT_THAT(address, ElementsAre(false, true, false, true));
  EXPECT_EQ(transport.inFlight(), 3U) << "of the address; the account waits for its slot";
}

TEST_F(LongRunTest, AfterANightBothSidesAreFreshAtOnceAndGoOnInTheirUsualPace) {
  start();
  runThenSleep(200s);
  EXPECT_EQ(state().lastUpdate, executor.wallClock());
  EXPECT_EQ(state().addressLastUpdate, executor.wallClock());
  EXPECT_EQ(takeChanges(), 2);
  executor.advance(599s);
  EXPECT_THAT(momentsOf("pool.test"), ElementsAre(0, 60, 360, 420));
  EXPECT_THAT(momentsOf("price.test"), ElementsAre(60, 420));
  EXPECT_THAT(momentsOf("explorer.test"), ElementsAre(0, 0, 0)) << "the next is due at 600";
}

TEST_F(LongRunTest, ANetworkThatComesHelpsAtOnceWhatFailedForWantOfIt) {
  using enum HttpFailure;
  const auto failed = [](HttpFailure failure) -> HttpResult { return std::unexpected(failure); };
  const std::vector<std::pair<HttpResult, bool>> cases{
      {failed(notConnectedToInternet), true},
      {failed(networkConnectionLost), true},
      {failed(cannotFindHost), true},
      {failed(cannotConnectToHost), true},
      {failed(timedOut), true},
      {failed(other), false},
      {HttpResponse{.status = 401, .body = {}}, false},
      {HttpResponse{.status = 200, .body = "{"}, false}};
  for (const auto& [result, isHelped] : cases) {
    const auto answer = [result](const HttpRequest&) { return result; };
    transport.on("pool.test").respondBy(answer).times(1);
    transport.on("explorer.test").respondBy(answer).times(3);
    begin = executor.now();
    transport.clearSent();
    start();
    executor.advance(10s);
    network.come();
    network.come();  // the second finds the first one's cycle
    executor.advance(299s);
    EXPECT_THAT(momentsOf("/profile"), isHelped ? ElementsAre(0, 60) : ElementsAre(0, 300));
    EXPECT_EQ(transport.sentTo("/height"), isHelped ? 2U : 1U);
    network.come();
    executor.advance(60s);
    EXPECT_EQ(transport.sentTo("/height"), isHelped ? 2U : 1U) << "nothing is wanting";
  }
}

TEST_F(LongRunTest, ANetworkThatComesWhileACycleFailsBeginsTheNextOne) {
  transport.on("/profile").fail(HttpFailure::timedOut).after(15s).times(1);
  transport.on("/height").fail(HttpFailure::timedOut).after(15s).times(1);
  start();
  executor.advance(14s);
  network.come();
  executor.advance(100s);
  EXPECT_THAT(momentsOf("/profile"), ElementsAre(0, 60));
  EXPECT_THAT(momentsOf("/height"), ElementsAre(0, 15));
}

TEST_F(LongRunTest, CallsThatWaitedForTheirSlotStillTakeTurns) {
  start();
  executor.advance(10s);
  store->loadHistory();  // waits behind the workers
  runThenSleep(10s);
  EXPECT_THAT(momentsOf("pool.test"), ElementsAre(0)) << "the workers alone";
  executor.advance(419s);
  EXPECT_THAT(momentsOf("/rewards"), ElementsAre(60));
  EXPECT_THAT(momentsOf("pool.test"), ElementsAre(0, 60, 120, 300, 360));
}

}}  // namespace orvane::test
