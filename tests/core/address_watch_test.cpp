#include "core/address_watch.h"
#include "store_fixture.h"

namespace orvane::test { namespace {

using testing::UnorderedElementsAre;

constexpr const char* seenKey = "balance.watchedAddressSeenTransactions";

class AddressWatchTest : public StoreTest {
 protected:
  void startWatching(const char* address) {
    defaults.setText("balance.watchedAddress", address);
    startAndSettle();
    takeChanges();
  }
};

TEST_F(AddressWatchTest, AnEnteredAddressIsReadAtOnceAndEveryTenMinutes) {
  startAndSettle();
  takeChanges();
  EXPECT_EQ(store->setOwnAddress(std::string(" ") + firstAddress + "\n"), std::nullopt);
  EXPECT_EQ(state().watchedAddress, "") << "before the loop's first cycle";
  executor.runUntilIdle();
  EXPECT_EQ(state().watchedAddress, firstAddress);
  EXPECT_EQ(state().addressSummary->confirmedSats, 100'000);
  EXPECT_EQ(state().addressLastUpdate, executor.wallClock());
  EXPECT_TRUE(state().prices);
  EXPECT_EQ(takeChanges(), 3);  // the address, its summary, the prices
  executor.advance(599s);
  EXPECT_EQ(transport.sent().size(), 4U);
  executor.advance(1s);
  EXPECT_EQ(transport.sent().size(), 8U);
  EXPECT_EQ(takeChanges(), 2);
}

TEST_F(AddressWatchTest, RefusesATextThatIsNoMainnetAddressAndChangesNothing) {
  startWatching(firstAddress);
  EXPECT_EQ(store->setOwnAddress("tb1qw508d6qejxtdg4y5r3zarvary0c5xw7kxpjzsx"),
            "This is not a Bitcoin mainnet address. It starts with bc1, 1 or 3.");
  EXPECT_EQ(state().ownAddress, firstAddress);
  EXPECT_EQ(defaults.text("balance.watchedAddress"), firstAddress);
}

TEST_F(AddressWatchTest, FollowsTheMinersPayoutAddressUnlessOneIsEntered) {
  startAndSettle();
  const std::string miners = std::string(firstAddress) + "\n";
  // The payout address, the entered one, the one that is watched, whether it is the miner's.
  const std::vector<std::tuple<std::string, std::string, std::string, bool>> steps{
      {"no address", "", "", false},
      {miners, "", firstAddress, true},
      {miners, firstAddress, firstAddress, false},
      {miners, secondAddress, secondAddress, false},
      {miners, "", firstAddress, true},
      {"", "", "", false},
  };
  for (const auto& [payout, entered, watched, isFromMiner] : steps) {
    SCOPED_TRACE(payout + " " + entered);
    storePayoutAddress(payout);
    EXPECT_EQ(store->setOwnAddress(entered), std::nullopt);
    executor.advance(600s);
    EXPECT_EQ(state().watchedAddress, watched);
    EXPECT_EQ(state().addressIsFromMiner, isFromMiner);
    EXPECT_EQ(state().addressSummary.has_value(), !watched.empty());
  }
  EXPECT_EQ(defaults.text("balance.watchedAddress"), "") << "an empty text is a text";
}

TEST_F(AddressWatchTest, AnotherAddressForgetsAllThatWasShownOfTheOldOne) {
  setPayments(firstAddress, {"old payment"});
  startWatching(firstAddress);
  transport.on("explorer.test").neverAnswer();
  EXPECT_EQ(store->setOwnAddress(secondAddress), std::nullopt);
  const auto heard = heardDuring([this] { executor.runUntilIdle(); });
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_EQ(heard[0].watchedAddress, secondAddress);
  EXPECT_FALSE(heard[0].addressSummary || heard[0].addressLastUpdate);
  EXPECT_EQ(defaults.texts(seenKey), std::nullopt);
}

// All answers are there, but the user is quicker than the task that waits for them.
TEST_F(AddressWatchTest, ASummaryThatIsOvertakenByAnotherAddressIsDropped) {
  setPayments(firstAddress, {"old payment"});
  const auto answerTooLate = [this](const HttpRequest&) {
    executor.post([this] { (void)store->setOwnAddress(secondAddress); });
    return HttpResponse{.status = 200, .body = "850000"};
  };
  transport.on("/blocks/tip/height").respondBy(answerTooLate).times(1);
  std::vector<std::string> shown;
  start();
  const auto subscription = store->observe([&] {
    if (state().addressSummary) { shown.push_back(state().watchedAddress); }
  });
  EXPECT_EQ(store->setOwnAddress(firstAddress), std::nullopt);
  executor.runUntilIdle();
  EXPECT_TRUE(state().addressSummary);
  EXPECT_THAT(shown, testing::Each(std::string(secondAddress)));
  EXPECT_EQ(defaults.texts(seenKey), std::vector<std::string>{});
}

TEST_F(AddressWatchTest, NotifiesOfANewPaymentBeforeItIsShown) {
  setPayments(firstAddress, {"a", "b"});
  startWatching(firstAddress);
  setPayments(firstAddress, {"c", "a", "b"});
  const auto subscription = store->observe([&] {
    if (state().addressSummary->incoming.size() == 3) {
      EXPECT_THAT(defaults.texts(seenKey).value(), UnorderedElementsAre("a", "b", "c"));
    }
  });
  store->setUnit(BalanceUnit::btc);
  executor.advance(2h);
  ASSERT_EQ(notifications.received().size(), 1U);
  EXPECT_EQ(notifications.received()[0].identifier, "address-c");
  EXPECT_EQ(notifications.received()[0].body, "0.00001000 BTC to your watched address.");
}

TEST_F(AddressWatchTest, AnyFailureKeepsTheFiguresUnderOneText) {
  startWatching(firstAddress);
  for (const char* path : {"/txs", "/height", "explorer.test"}) {
    SCOPED_TRACE(path);
    const BalanceState before = state();
    transport.on(path).fail(HttpFailure::timedOut).times(1);
    executor.advance(600s);
    EXPECT_EQ(state().addressStatus,
              "Chainpeek could not be reached. The last figures stay until the next try in 10 "
              "minutes.");
    EXPECT_EQ(state().addressSummary, before.addressSummary);
    EXPECT_EQ(state().addressLastUpdate, before.addressLastUpdate);
    EXPECT_EQ(takeChanges(), 2);  // the failure, the prices
    executor.advance(600s);
    EXPECT_EQ(state().addressStatus, std::nullopt);
    takeChanges();
  }
}

TEST_F(AddressWatchTest, IsBusyAroundTheSummaryOnly) {
  transport.on("/height").respond(200, "850000").after(5s);
  transport.on("price.test").respond(500).after(5s);
  startWatching(firstAddress);
  executor.advance(4s);
  EXPECT_TRUE(state().isRefreshingAddress);
  executor.advance(1s);
  EXPECT_FALSE(state().isRefreshingAddress);
  EXPECT_EQ(transport.inFlight(), 1U);
}

TEST_F(AddressWatchTest, AKeychainThatCannotBeReadTakesNothingAway) {
  storePayoutAddress(firstAddress);
  setPayments(firstAddress, {"told"});
  startAndSettle();
  for (const auto condition :
       {MemoryKeychain::Condition::locked, MemoryKeychain::Condition::gone}) {
    keychain.condition = condition;
    const BalanceState before = state();
    executor.advance(600s);
    EXPECT_EQ(state().watchedAddress, firstAddress);
    EXPECT_TRUE(state().addressIsFromMiner);
    EXPECT_EQ(state().addressSummary, before.addressSummary);
    EXPECT_EQ(defaults.texts(seenKey), std::vector<std::string>{"told"});
  }
}

TEST_F(AddressWatchTest, ADialogThatNobodyAnswersHoldsUpNoFigures) {
  storePayoutAddress(firstAddress);
  startAndSettle();
  keychain.condition = MemoryKeychain::Condition::locked;
  store->setToken("new");
  executor.advance(600s);
  const auto updated = state().addressLastUpdate;
  executor.advance(600s);
  EXPECT_TRUE(keychain.isPrompting());
  EXPECT_GT(state().addressLastUpdate, updated);
}

TEST_F(AddressWatchTest, APayoutAddressIsReadWhenTheKeychainStartsAfterUs) {
  storePayoutAddress(firstAddress);
  keychain.condition = MemoryKeychain::Condition::gone;
  startAndSettle();
  EXPECT_EQ(state().watchedAddress, "");
  keychain.arrive();
  executor.runUntilIdle();
  EXPECT_EQ(state().watchedAddress, firstAddress);
}

// A cancelled read of the keychain is not a payout address that has gone.
TEST_F(AddressWatchTest, ARestartDuringTheReadOfThePayoutAddressKeepsTheAddress) {
  storePayoutAddress(firstAddress);
  startAndSettle();
  keychain.delay = 2s;
  takeChanges();
  store->restartAddressWatch();
  executor.advance(1s);
  store->restartAddressWatch();
  executor.advance(1s);
  EXPECT_EQ(state().watchedAddress, firstAddress);
  EXPECT_EQ(takeChanges(), 0);
}

}}  // namespace orvane::test
